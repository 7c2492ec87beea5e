#include "plugin/LibvarcfgApp.h"

#include <commctrl.h>

#include "shell/CDlgParam.h"
#include "ui/Language.h"
#include "ui/win/ModuleState.h"
#include "ui/win/WinPlatform.h"

CLibvarcfgApp::CLibvarcfgApp() {
    varcfg::InstallPlatform(&varcfg::WindowsPlatform());
    // The language table must outlive the application object: creating it before this constructor
    // completes makes it the later one torn down, whichever code uses it first.
    CLanguage::Instance();
}

HWND CLibvarcfgApp::CreatePanel(HWND parent) {
    varcfg::ModuleState moduleState;
    INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES | ICC_DATE_CLASSES | ICC_INTERNET_CLASSES};
    InitCommonControlsEx(&controls);
    CDlgParam* panel = CDlgParam::CreateIn(parent);
    return panel != nullptr ? panel->Hwnd() : nullptr;
}

BOOL CLibvarcfgApp::PreTranslateMessage(MSG* message) {
    varcfg::ModuleState moduleState;
    return varcfg::Dialog::PreTranslateChain(message);
}

CLibvarcfgApp& TheApp() {
    static CLibvarcfgApp app;
    return app;
}
