#include "pages/about/CDlgAboutSetup.h"

#include "base/AnsiText.h"
#include "res/resource.h"
#include "channel/DeviceVersion.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

// The version block read when the panel opened; its attributes are decoded by the version query.
constexpr Binding<VersionRecord> kVersionBindings[] = {
    VARCFG_BIND(VersionRecord, ubootVer, nullptr, Text).InText(IDC_ABOUT_UBOOT),
    VARCFG_BIND(VersionRecord, kernelVer, nullptr, Text).InText(IDC_ABOUT_KERNEL),
    VARCFG_BIND(VersionRecord, rootfsVer, nullptr, Text).InText(IDC_ABOUT_ROOTFS),
    VARCFG_BIND(VersionRecord, appVer, nullptr, Text).InText(IDC_ABOUT_APP),
    VARCFG_BIND(VersionRecord, mcuVer, nullptr, Text).InText(IDC_ABOUT_MCU),
    VARCFG_BIND(VersionRecord, model, nullptr, Text).InText(IDC_ABOUT_MODEL, 8),
};
constexpr Section<VersionRecord> kVersion{"stVersion", kVersionBindings};

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

std::vector<SectionInfo> CDlgAboutSetup::DeclaredSections() const { return {Info(kVersion)}; }

int CDlgAboutSetup::Refresh() {
    ShowSection(kVersion, Device().version);
    Redraw();
    return 1;
}

int CDlgAboutSetup::Save() {
    // Nothing is sent from this page, so the save succeeds whatever the transfer found.
    TakeSection(kVersion);
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
