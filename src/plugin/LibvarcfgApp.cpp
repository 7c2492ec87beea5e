#include "plugin/LibvarcfgApp.h"

#include <commctrl.h>

#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/WinPlatform.h"

namespace {

INT_PTR CALLBACK PanelProc(HWND window, UINT message, WPARAM, LPARAM) {
    switch (message) {
    case WM_INITDIALOG:
        return TRUE;
    case WM_DESTROY:
        TheApp().OnPanelDestroyed(window);
        return FALSE;
    default:
        return FALSE;
    }
}

}  // namespace

CLibvarcfgApp::CLibvarcfgApp() {
    varcfg::InstallPlatform(&varcfg::WindowsPlatform());
    // The language table must outlive the application object: creating it before this constructor
    // completes makes it the later one torn down, whichever code uses it first.
    CLanguage::Instance();
}

HINSTANCE CLibvarcfgApp::ModuleInstance() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&CLibvarcfgApp::ModuleInstance), &module);
    return module;
}

HWND CLibvarcfgApp::CreatePanel(HWND parent) {
    INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES | ICC_DATE_CLASSES | ICC_INTERNET_CLASSES};
    InitCommonControlsEx(&controls);

    HWND panel = CreateDialogParamW(ModuleInstance(), MAKEINTRESOURCEW(IDD_PANEL), parent, PanelProc, 0);
    if (panel == nullptr) return nullptr;
    panels_.insert(panel);
    RECT client{};
    GetClientRect(parent, &client);
    MoveWindow(panel, 0, 0, client.right - client.left, client.bottom - client.top, TRUE);
    ShowWindow(panel, SW_SHOW);
    return panel;
}

BOOL CLibvarcfgApp::PreTranslateMessage(MSG* message) {
    if (message == nullptr) return FALSE;
    for (HWND window = message->hwnd; window != nullptr; window = GetParent(window)) {
        if (panels_.count(window) != 0) return IsDialogMessageW(window, message);
    }
    return FALSE;
}

void CLibvarcfgApp::OnPanelDestroyed(HWND panel) { panels_.erase(panel); }

CLibvarcfgApp& TheApp() {
    static CLibvarcfgApp app;
    return app;
}
