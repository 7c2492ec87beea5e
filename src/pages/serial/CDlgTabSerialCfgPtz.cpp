#include "pages/serial/CDlgTabSerialCfgPtz.h"

#include <algorithm>

#include "channel/DeviceVersion.h"
#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

struct PtzRecord {
    uint16_t address;
    uint8_t protocol;
    uint8_t serialIndex;
};

constexpr Binding<PtzRecord> kPtzBindings[] = {
    VARCFG_BIND(PtzRecord, address, "usPtzAddress", Integer),
    VARCFG_BIND(PtzRecord, protocol, "ucPtzProtocol", Integer),
    VARCFG_BIND(PtzRecord, serialIndex, "ucSerialIndex", Integer),
};
constexpr Section<PtzRecord> kChnPtz{"stChnPtz", kPtzBindings};

constexpr int kAddressCount = 6;

// The serial index is always the slot number. The closing piece opens stChnPtzPara again: the recorder
// accepts this form.
constexpr wchar_t kPtzSettingHead[] =
    L"<VariCfgSec Action=\"DEVICE_SET\"><stChnPtz StartChn=\"%d\"><stChnPtzPara>";
constexpr wchar_t kPtzSettingSlot[] =
    L"<VChn_%d usPtzAddress=\"%d\" ucPtzProtocol=\"%d\" ucSerialIndex=\"%d\"></VChn_%d>";
constexpr wchar_t kPtzSettingTail[] = L"<stChnPtzPara></stChnPtz></VariCfgSec>";

int ShownChannelCount() { return std::min(Device().capabilities.videoChannels, CDlgTabSerialCfgPtz::kSlots); }

}  // namespace

CDlgTabSerialCfgPtz::CDlgTabSerialCfgPtz() : CDlgCfgBase(IDD_SERIAL_PTZ) {}

BOOL CDlgTabSerialCfgPtz::OnInitDialog() {
    const std::wstring channel = CLanguage::Instance().Text(14001);
    for (int i = 0; i < Device().capabilities.videoChannels; ++i) {
        ComboAdd(Hwnd(), IDC_PTZ_CHANNEL, FillTemplate(L"%s %d", {channel, i + 1}), i);
    }
    ComboSelect(Hwnd(), IDC_PTZ_CHANNEL, 0);
    for (int i = 0; i < kAddressCount; ++i) ComboAdd(Hwnd(), IDC_PTZ_ADDRESS, FillTemplate(L"%d", {i}), i);
    ComboSelect(Hwnd(), IDC_PTZ_ADDRESS, 0);
    // Pelco P comes first: the recorder numbers it 0.
    ComboAdd(Hwnd(), IDC_PTZ_PROTOCOL, L"Pelco P", 0);
    ComboAdd(Hwnd(), IDC_PTZ_PROTOCOL, L"Pelco D", 1);
    ComboSelect(Hwnd(), IDC_PTZ_PROTOCOL, 0);
    SetCaptions(Hwnd(), {{IDC_PTZ_CHANNEL_LABEL, 14001}, {IDC_PTZ_ADDRESS_LABEL, 24190}, {IDC_PTZ_PROTOCOL_LABEL, 24191}});
    return TRUE;
}

void CDlgTabSerialCfgPtz::OnCommand(int id, int code) {
    if (id == IDC_PTZ_CHANNEL && code == CBN_SELCHANGE) {
        ShowChannel();
        return;
    }
    CDlgCfgBase::OnCommand(id, code);
}

std::vector<SectionInfo> CDlgTabSerialCfgPtz::DeclaredSections() const { return {Info(kChnPtz)}; }

int CDlgTabSerialCfgPtz::Refresh() {
    QueryReply reply;
    const int result = Query(QueryText(kChnPtz.name), reply);
    if (result != 1) return result;
    PtzRecord channels[kSlots] = {};
    if (!DecodeNumberedEntries(kChnPtz, *reply.Section(), "stChnPtzPara", kSlots, channels)) return 0;
    for (int i = 0; i < ShownChannelCount(); ++i) {
        address_[i] = channels[i].address;
        protocol_[i] = channels[i].protocol;
    }
    ShowChannel();
    Redraw();
    return 1;
}

void CDlgTabSerialCfgPtz::ShowChannel() {
    const int channel = ComboSelection(Hwnd(), IDC_PTZ_CHANNEL);
    if (channel < 0 || channel >= kSlots) return;
    const int address = address_[channel];
    if (address >= 0 && address < kAddressCount) ComboSelect(Hwnd(), IDC_PTZ_ADDRESS, address);
    // The protocol list follows the address, not the protocol: with an address above 1 it loses its
    // selection. Recorders in the field rely on what this writes back.
    if (protocol_[channel] == 0 || protocol_[channel] == 1) ComboSelect(Hwnd(), IDC_PTZ_PROTOCOL, address);
}

int CDlgTabSerialCfgPtz::Save() {
    const int channel = ComboSelection(Hwnd(), IDC_PTZ_CHANNEL);
    const int address = static_cast<int>(ComboSelectedData(Hwnd(), IDC_PTZ_ADDRESS, CB_ERR));
    const int protocol = static_cast<int>(ComboSelectedData(Hwnd(), IDC_PTZ_PROTOCOL, CB_ERR));
    std::wstring setting = FillTemplate(kPtzSettingHead, {channel});
    for (int slot = 0; slot < kSlots; ++slot) {
        const bool shown = slot == channel;
        setting += FillTemplate(kPtzSettingSlot, {slot, shown ? address : address_[slot],
                                                  shown ? protocol : protocol_[slot], slot, slot});
    }
    setting += kPtzSettingTail;
    const int result = SendSetting(setting);
    Redraw();
    if (result != 1) return 0;
    if (channel >= 0 && channel < kSlots) {
        address_[channel] = address;
        protocol_[channel] = protocol;
    }
    return 1;
}
