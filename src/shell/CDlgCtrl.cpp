#include "shell/CDlgCtrl.h"

#include <algorithm>
#include <iterator>

#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

struct MenuEntry {
    int category;
    int buttonId;
    uint32_t captionId;
};

// Captions come from the language file when it has them; otherwise the template's caption stays.
constexpr MenuEntry kEntries[] = {
    {0, IDC_MENU_ABOUT, 15100},         {1, IDC_MENU_NETWORK, 15101}, {2, IDC_MENU_ENCODER, 15102},
    {3, IDC_MENU_ALARM, 15103},         {4, IDC_MENU_SERIAL, 15104},  {5, IDC_MENU_PARKING, 15105},
    {6, IDC_MENU_USER_SECURITY, 15106}, {7, IDC_MENU_OTHER, 15107},   {8, IDC_MENU_USER_DATA, 15108},
};

}  // namespace

CDlgCtrl::CDlgCtrl() : Dialog(IDD_MENU) {}

BOOL CDlgCtrl::OnInitDialog() {
    SetSkinSurface(Hwnd(), SkinSurface::MenuColumn);
    for (const MenuEntry& entry : kEntries) {
        buttons_[entry.category].Attach(Hwnd(), entry.buttonId, L"playback_tab_config.jpg",
                                        L"playback_tab_config_over.jpg");
        const std::wstring caption = CLanguage::Instance().Text(entry.captionId);
        if (!caption.empty()) SetItemText(Hwnd(), entry.buttonId, caption);
    }
    return TRUE;
}

void CDlgCtrl::OnCommand(int id, int code) {
    if (code == BN_CLICKED) Press(id);
}

void CDlgCtrl::SelectCategory(int index) {
    for (const MenuEntry& entry : kEntries) {
        if (entry.category == index) Press(entry.buttonId);
    }
}

void CDlgCtrl::Press(int buttonId) {
    const auto entry = std::find_if(std::begin(kEntries), std::end(kEntries),
                                    [buttonId](const MenuEntry& e) { return e.buttonId == buttonId; });
    if (entry == std::end(kEntries)) return;
    for (auto& [category, button] : buttons_) button.SetChecked(category == entry->category);
    SendMessageW(GetParent(Hwnd()), WM_SELECT_CATEGORY, static_cast<WPARAM>(entry->category), 0);
}
