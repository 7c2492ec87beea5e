#include "pages/encoder/CDlgTabEncoderCfgMirror.h"

#include <algorithm>

#include "channel/DeviceVersion.h"
#include "catalogue/EncoderCatalogue.h"
#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

constexpr int kMirrorChannels = 8;

// One row per channel: the ids of row n follow these by n.
constexpr Binding<MirrorChannel> kMirrorBindings[] = {
    BindAttribute(kMirrorFields, "ucFD_LeftRight").InCheck(IDC_MIRROR_LEFT_RIGHT_FIRST),
    BindAttribute(kMirrorFields, "ucFD_UpDown").InCheck(IDC_MIRROR_UP_DOWN_FIRST),
};
constexpr Section<MirrorChannel> kMirror{kMirrorSection, kMirrorBindings};

constexpr int kChannelLabels[kMirrorChannels] = {IDC_MIRROR_CHANNEL1, IDC_MIRROR_CHANNEL2, IDC_MIRROR_CHANNEL3,
                                                 IDC_MIRROR_CHANNEL4, IDC_MIRROR_CHANNEL5, IDC_MIRROR_CHANNEL6,
                                                 IDC_MIRROR_CHANNEL7, IDC_MIRROR_CHANNEL8};

}  // namespace

CDlgTabEncoderCfgMirror::CDlgTabEncoderCfgMirror() : CDlgCfgBase(IDD_ENC_MIRROR) {}

BOOL CDlgTabEncoderCfgMirror::OnInitDialog() {
    SetCaptions(Hwnd(), {{IDC_MIRROR_GROUP, 23002}, {IDC_MIRROR_LEFT_RIGHT_HEADER, 23003},
                         {IDC_MIRROR_UP_DOWN_HEADER, 23004}});
    const std::wstring channel = CLanguage::Instance().Text(14001);
    for (int n = 0; n < kMirrorChannels; ++n) SetItemText(Hwnd(), kChannelLabels[n], channel + std::to_wstring(n + 1));
    return TRUE;
}

std::vector<SectionInfo> CDlgTabEncoderCfgMirror::DeclaredSections() const { return {Info(kMirror)}; }

int CDlgTabEncoderCfgMirror::Refresh() {
    QueryReply reply;
    const int result = Query(QueryText(kMirror.name), reply);
    if (result != 1) return result;
    MirrorChannel channels[kMirrorChannels]{};
    if (const TiXmlElement* container = FindContainer(*reply.Section(), "stVideoMirrorPara", "Import_stVideoMirror")) {
        DecodeChannels(*container, kMirror.fields, reinterpret_cast<unsigned char*>(channels), sizeof(MirrorChannel),
                       kMirrorChannels);
    }
    const int channelCount = std::min(Device().capabilities.videoChannels, kMirrorChannels);
    for (int n = 0; n < kMirrorChannels; ++n) {
        const bool present = n < channelCount;
        for (int id : {kChannelLabels[n], IDC_MIRROR_LEFT_RIGHT_FIRST + n, IDC_MIRROR_UP_DOWN_FIRST + n}) {
            ShowItem(Hwnd(), id, present);
        }
        if (present) ShowSection(kMirror, channels[n], n);
    }
    Redraw();
    return 1;
}

int CDlgTabEncoderCfgMirror::Save() {
    for (int n = 0; n < kMirrorChannels; ++n) {
        if (!TakeSection(kMirror, n)) return -1;
    }
    // All eight channels go out, those the model lacks as last shown.
    const int result = SendSection(kMirror, 0, 0, kMirrorChannels);
    Redraw();
    return result == 1 ? 1 : 0;
}
