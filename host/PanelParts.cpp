#include "PanelParts.h"

#include <commctrl.h>

#include "res/resource.h"

namespace varcfg::host {
namespace {

// Every category with tabs has its tab strip under the same id.
constexpr int kTabStripId = IDC_NET_TABS;

bool IsDialog(HWND window) {
    wchar_t name[16] = {};
    GetClassNameW(window, name, 16);
    return lstrcmpW(name, L"#32770") == 0;
}

// The first direct child dialog of parent that holds a control with the id (any id when 0) and is
// visible if asked to be.
HWND ChildDialog(HWND parent, int holdingId, bool visibleOnly) {
    if (parent == nullptr) return nullptr;
    for (HWND child = GetWindow(parent, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        if (!IsDialog(child)) continue;
        if (visibleOnly && !IsWindowVisible(child)) continue;
        if (holdingId != 0 && GetDlgItem(child, holdingId) == nullptr) continue;
        return child;
    }
    return nullptr;
}

}  // namespace

PanelParts::PanelParts(HWND host) {
    HWND panel = ChildDialog(host, 0, false);
    menu_ = ChildDialog(panel, IDC_MENU_ABOUT, false);
    setup_ = ChildDialog(panel, IDC_SETUP_READ, false);
}

HWND PanelParts::ShownPage() const { return ChildDialog(setup_, 0, true); }

HWND PanelParts::TabStrip() const {
    HWND strip = GetDlgItem(ShownPage(), kTabStripId);
    wchar_t name[32] = {};
    if (strip != nullptr) GetClassNameW(strip, name, 32);
    return lstrcmpiW(name, WC_TABCONTROLW) == 0 ? strip : nullptr;
}

HWND PanelParts::ShownTabPage() const { return TabStrip() != nullptr ? ChildDialog(ShownPage(), 0, true) : nullptr; }

void PanelParts::PressMenuButton(int buttonId) const { SendDlgItemMessageW(menu_, buttonId, BM_CLICK, 0, 0); }

void PanelParts::PressSetupButton(int buttonId) const { SendDlgItemMessageW(setup_, buttonId, BM_CLICK, 0, 0); }

bool PanelParts::SelectTab(int index) const {
    HWND strip = TabStrip();
    if (strip == nullptr) return false;
    // Selecting by message sends no notification: the tab host is told as the strip would tell it.
    SendMessageW(strip, TCM_SETCURSEL, static_cast<WPARAM>(index), 0);
    NMHDR change{strip, static_cast<UINT_PTR>(kTabStripId), static_cast<UINT>(TCN_SELCHANGE)};
    SendMessageW(GetParent(strip), WM_NOTIFY, kTabStripId, reinterpret_cast<LPARAM>(&change));
    return true;
}

int PanelParts::SelectedTab() const {
    HWND strip = TabStrip();
    return strip != nullptr ? static_cast<int>(SendMessageW(strip, TCM_GETCURSEL, 0, 0)) : -1;
}

}  // namespace varcfg::host
