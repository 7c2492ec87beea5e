#include "pages/alarm/CALinkChannelPicker.h"

#include "ui/Language.h"
#include "ui/win/Controls.h"
#include "ui/win/DataExchange.h"

using namespace varcfg;

CALinkChannelPicker::CALinkChannelPicker(const Layout& layout, int videoChannels, uint16_t firstSet, uint16_t secondSet)
    : CDlgCfgBase(layout.templateId), layout_(layout), videoChannels_(videoChannels), sets_{firstSet, secondSet} {
    for (int set = 0; set < 2; ++set) {
        for (int k = 0; k < kChannels; ++k) flags_[set][k] = sets_[set] >> k & 1;
    }
}

BOOL CALinkChannelPicker::OnInitDialog() {
    CLanguage& language = CLanguage::Instance();
    SetWindowTextW(Hwnd(), FillTemplate(L"%s", {language.Text(layout_.titleId)}).c_str());
    SetCaptions(Hwnd(), {{IDOK, 11002},
                         {IDCANCEL, 11003},
                         {layout_.channelHeader, 14001},
                         {layout_.firstLabel, layout_.firstLabelTextId},
                         {layout_.secondLabel, 24064}});
    const std::wstring channel = language.Text(14001);
    for (int k = 0; k < kChannels; ++k) {
        SetItemText(Hwnd(), layout_.channelLabelFirst + k, FillTemplate(L"%s%d", {channel, k + 1}));
        for (int id : {layout_.channelLabelFirst, layout_.firstBoxFirst, layout_.secondBoxFirst}) {
            ShowItem(Hwnd(), id + k, videoChannels_ - k > 0);
        }
    }
    UpdateData(false);
    return TRUE;
}

void CALinkChannelPicker::DoDataExchange(DataExchange& dx) {
    for (int k = 0; k < kChannels; ++k) {
        dx.Check(layout_.firstBoxFirst + k, flags_[0][k]);
        dx.Check(layout_.secondBoxFirst + k, flags_[1][k]);
    }
}

void CALinkChannelPicker::OnCommand(int id, int code) {
    if (id == IDOK) {
        UpdateData(true);
        for (int set = 0; set < 2; ++set) {
            sets_[set] = 0;
            for (int k = 0; k < kChannels; ++k) sets_[set] = static_cast<uint16_t>(sets_[set] | (flags_[set][k] != 0) << k);
        }
    }
    CDlgCfgBase::OnCommand(id, code);
}
