// CDlgCtrl: the category menu, a column of nine image buttons. Pressing one checks it and asks the
// container to show its category.
#pragma once

#include <map>

#include "ui/win/Dialog.h"
#include "ui/win/Skin.h"

// Sent by the menu to the container: wParam is the category index, lParam 0.
constexpr UINT WM_SELECT_CATEGORY = 9474;

class CDlgCtrl : public varcfg::Dialog {
public:
    static constexpr int kMenuWidth = 128;

    CDlgCtrl();

    // Presses the menu button of the category, as a click would.
    void SelectCategory(int index);

protected:
    BOOL OnInitDialog() override;
    void OnCommand(int id, int code) override;

private:
    void Press(int buttonId);

    std::map<int, varcfg::SkinButton> buttons_;  // by category index
};
