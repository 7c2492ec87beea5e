#include "pages/encoder/CDlgTabEncoderCfgMirror.h"

#include <algorithm>

#include "channel/DeviceVersion.h"
#include "protocol/EncoderRecords.h"
#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

constexpr int kMirrorChannels = 8;

// One row per channel: the ids of row n follow these by n.
constexpr Binding<MirrorChannel> kMirrorBindings[] = {
    VARCFG_BIND(MirrorChannel, leftRight, "ucFD_LeftRight", Integer).InCheck(IDC_MIRROR_LEFT_RIGHT_FIRST),
    VARCFG_BIND(MirrorChannel, upDown, "ucFD_UpDown", Integer).InCheck(IDC_MIRROR_UP_DOWN_FIRST),
};
constexpr Section<MirrorChannel> kMirror{"stVideoMirror", kMirrorBindings};

constexpr int kChannelLabels[kMirrorChannels] = {IDC_MIRROR_CHANNEL1, IDC_MIRROR_CHANNEL2, IDC_MIRROR_CHANNEL3,
                                                 IDC_MIRROR_CHANNEL4, IDC_MIRROR_CHANNEL5, IDC_MIRROR_CHANNEL6,
                                                 IDC_MIRROR_CHANNEL7, IDC_MIRROR_CHANNEL8};

// The recorder expects stVideoMirror left open: the root's end closes it.
constexpr wchar_t kMirrorSetting[] =
    L"<VariCfgSec Action=\"DEVICE_SET\"><stVideoMirror><stVideoMirrorPara>"
    L"<VChn_0 ucFD_LeftRight=\"%d\" ucFD_UpDown=\"%d\" /><VChn_1 ucFD_LeftRight=\"%d\" ucFD_UpDown=\"%d\" />"
    L"<VChn_2 ucFD_LeftRight=\"%d\" ucFD_UpDown=\"%d\" /><VChn_3 ucFD_LeftRight=\"%d\" ucFD_UpDown=\"%d\" />"
    L"<VChn_4 ucFD_LeftRight=\"%d\" ucFD_UpDown=\"%d\" /><VChn_5 ucFD_LeftRight=\"%d\" ucFD_UpDown=\"%d\" />"
    L"<VChn_6 ucFD_LeftRight=\"%d\" ucFD_UpDown=\"%d\" /><VChn_7 ucFD_LeftRight=\"%d\" ucFD_UpDown=\"%d\" />"
    L"</stVideoMirrorPara></VariCfgSec>";

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
    const auto state = [this](int first, int n) { return Number(first + n); };
    const int result = SendSetting(FillTemplate(
        kMirrorSetting,
        {state(IDC_MIRROR_LEFT_RIGHT_FIRST, 0), state(IDC_MIRROR_UP_DOWN_FIRST, 0), state(IDC_MIRROR_LEFT_RIGHT_FIRST, 1),
         state(IDC_MIRROR_UP_DOWN_FIRST, 1), state(IDC_MIRROR_LEFT_RIGHT_FIRST, 2), state(IDC_MIRROR_UP_DOWN_FIRST, 2),
         state(IDC_MIRROR_LEFT_RIGHT_FIRST, 3), state(IDC_MIRROR_UP_DOWN_FIRST, 3), state(IDC_MIRROR_LEFT_RIGHT_FIRST, 4),
         state(IDC_MIRROR_UP_DOWN_FIRST, 4), state(IDC_MIRROR_LEFT_RIGHT_FIRST, 5), state(IDC_MIRROR_UP_DOWN_FIRST, 5),
         state(IDC_MIRROR_LEFT_RIGHT_FIRST, 6), state(IDC_MIRROR_UP_DOWN_FIRST, 6), state(IDC_MIRROR_LEFT_RIGHT_FIRST, 7),
         state(IDC_MIRROR_UP_DOWN_FIRST, 7)}));
    Redraw();
    return result == 1 ? 1 : 0;
}
