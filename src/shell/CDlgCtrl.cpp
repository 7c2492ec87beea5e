#include "shell/CDlgCtrl.h"

#include <algorithm>

#include "res/resource.h"
#include "shell/Categories.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"

using namespace varcfg;

CDlgCtrl::CDlgCtrl() : Dialog(IDD_MENU) {}

BOOL CDlgCtrl::OnInitDialog() {
    SetSkinSurface(Hwnd(), SkinSurface::MenuColumn);
    for (const Category& category : Categories()) {
        buttons_[category.index].Attach(Hwnd(), category.menuButton, L"playback_tab_config.jpg",
                                        L"playback_tab_config_over.jpg");
        // The template's caption stays when the language file has none.
        const std::wstring caption = CLanguage::Instance().Text(category.captionId);
        if (!caption.empty()) SetItemText(Hwnd(), category.menuButton, caption);
    }
    return TRUE;
}

void CDlgCtrl::OnCommand(int id, int code) {
    if (code == BN_CLICKED) Press(id);
}

void CDlgCtrl::SelectCategory(int index) {
    for (const Category& category : Categories()) {
        if (category.index == index) Press(category.menuButton);
    }
}

void CDlgCtrl::Press(int buttonId) {
    const auto pressed = std::find_if(Categories().begin(), Categories().end(),
                                      [buttonId](const Category& c) { return c.menuButton == buttonId; });
    if (pressed == Categories().end()) return;
    for (auto& [index, button] : buttons_) button.SetChecked(index == pressed->index);
    SendMessageW(GetParent(Hwnd()), WM_SELECT_CATEGORY, static_cast<WPARAM>(pressed->index), 0);
}
