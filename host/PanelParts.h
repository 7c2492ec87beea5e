// The parts of the plug-in's panel inside the host window, found as an automation tool finds them:
// by window class and control id. The host knows the panel only through its windows.
#pragma once

#include <windows.h>

namespace varcfg::host {

class PanelParts {
public:
    // Finds the panel in the host window; Found() is false while there is none.
    explicit PanelParts(HWND host);

    bool Found() const { return menu_ != nullptr && setup_ != nullptr; }
    HWND Menu() const { return menu_; }
    HWND Setup() const { return setup_; }
    // The page of the category shown in the setup area, or null.
    HWND ShownPage() const;
    // The shown category's tab strip, or null when the category is a plain page.
    HWND TabStrip() const;
    // The page of the selected tab of the shown category, or null when it has no tabs.
    HWND ShownTabPage() const;

    // Presses a button of the menu (IDC_MENU_...) or of the setup area (read, write) as a click does.
    void PressMenuButton(int buttonId) const;
    void PressSetupButton(int buttonId) const;
    // Selects a tab of the shown category as a click on it does; false when the category has no tabs.
    bool SelectTab(int index) const;
    // The selected tab of the shown category, or -1.
    int SelectedTab() const;

private:
    HWND menu_ = nullptr;
    HWND setup_ = nullptr;
};

}  // namespace varcfg::host
