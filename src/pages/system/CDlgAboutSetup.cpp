#include "pages/system/CDlgAboutSetup.h"

#include "plugin/AnsiText.h"
#include "res/resource.h"
#include "shell/DeviceVersion.h"
#include "ui/win/Controls.h"
#include "ui/win/DataExchange.h"

using namespace varcfg;

namespace {

// The two gestures keep separate flags, shared by every about page of the process.
bool g_ctrlHeld = false;
bool g_modelShownByKeys = false;
bool g_modelShownByMouse = false;

}  // namespace

CDlgAboutSetup::CDlgAboutSetup() : CDlgCfgBase(IDD_ABOUT) {}

BOOL CDlgAboutSetup::OnInitDialog() {
    SetCaptions(Hwnd(), {{IDC_ABOUT_GROUP, 12003},
                         {IDC_ABOUT_UBOOT_LABEL, 12004},
                         {IDC_ABOUT_KERNEL_LABEL, 12005},
                         {IDC_ABOUT_ROOTFS_LABEL, 12006},
                         {IDC_ABOUT_APP_LABEL, 12007},
                         {IDC_ABOUT_MCU_LABEL, 12008},
                         {IDC_ABOUT_MODEL_LABEL, 23031}});
    // The build's own compile-time stamp, e.g. "Build:Dec 14 2023 17:26:57".
    SetItemText(Hwnd(), IDC_ABOUT_BUILD, L"Build:" + FromAnsi(__DATE__) + L" " + FromAnsi(__TIME__));
    return TRUE;
}

void CDlgAboutSetup::DoDataExchange(DataExchange& dx) {
    dx.Text(IDC_ABOUT_UBOOT, ubootVer_);
    dx.Text(IDC_ABOUT_KERNEL, kernelVer_);
    dx.Text(IDC_ABOUT_ROOTFS, rootfsVer_);
    dx.Text(IDC_ABOUT_APP, appVer_);
    dx.Text(IDC_ABOUT_MCU, mcuVer_);
    dx.Text(IDC_ABOUT_MODEL, model_, 8);
}

int CDlgAboutSetup::Refresh() {
    const VersionRecord& version = Device().version;
    ubootVer_ = FromAnsi(version.ubootVer);
    kernelVer_ = FromAnsi(version.kernelVer);
    rootfsVer_ = FromAnsi(version.rootfsVer);
    appVer_ = FromAnsi(version.appVer);
    mcuVer_ = FromAnsi(version.mcuVer);
    model_ = FromAnsi(version.model);
    UpdateData(false);
    Redraw();
    return 1;
}

int CDlgAboutSetup::Save() {
    UpdateData(true);
    Redraw();
    return 1;
}

void CDlgAboutSetup::ShowModelLine(bool visible) {
    ShowItem(Hwnd(), IDC_ABOUT_MODEL_LABEL, visible);
    ShowItem(Hwnd(), IDC_ABOUT_MODEL, visible);
}

BOOL CDlgAboutSetup::PreTranslateMessage(MSG* message) {
    if (message->message == WM_KEYDOWN) {
        if (message->wParam == VK_CONTROL) {
            g_ctrlHeld = true;
            return TRUE;
        }
        if (message->wParam != 'M') return TRUE;  // nothing on this page is editable
        if (g_ctrlHeld) {
            g_modelShownByKeys = !g_modelShownByKeys;
            ShowModelLine(g_modelShownByKeys);
        }
        return FALSE;
    }
    if (message->message == WM_KEYUP && message->wParam == VK_CONTROL) {
        g_ctrlHeld = false;
        return TRUE;
    }
    return FALSE;
}

bool CDlgAboutSetup::OnMessage(UINT message, WPARAM, LPARAM, LRESULT&) {
    if (message == WM_RBUTTONDBLCLK) {
        g_modelShownByMouse = !g_modelShownByMouse;
        ShowModelLine(g_modelShownByMouse);
    }
    return false;  // the default handling runs too
}
