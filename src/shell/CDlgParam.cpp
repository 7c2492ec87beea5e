#include "shell/CDlgParam.h"

#include "channel/RequestChannel.h"
#include "res/resource.h"
#include "varcfg/host_api.h"

using namespace varcfg;

namespace {

// The hidden import and export buttons name a fixed file; the host decides what to do with it.
constexpr char kTestConfigFile[] = "d:\\mdvrconfig.cfg";

}  // namespace

CDlgParam::CDlgParam() : Dialog(IDD_PANEL) {}

CDlgParam* CDlgParam::CreateIn(HWND parent) {
    auto* panel = new CDlgParam();
    if (!panel->Create(parent)) {
        delete panel;
        return nullptr;
    }
    RECT client{};
    GetClientRect(parent, &client);
    MoveWindow(panel->Hwnd(), 0, 0, client.right - client.left, client.bottom - client.top, TRUE);
    panel->Show(true);
    return panel;
}

BOOL CDlgParam::OnInitDialog() {
    menu_ = std::make_unique<CDlgCtrl>();
    menu_->Create(Hwnd());
    menu_->Show(true);
    setup_ = std::make_unique<CDlgSetup>();
    setup_->Create(Hwnd());
    setup_->Show(true);

    RECT client{};
    GetClientRect(Hwnd(), &client);
    OnSize(client.right, client.bottom);
    menu_->SelectCategory(0);
    return TRUE;
}

void CDlgParam::OnSize(int width, int height) {
    if (!setup_ || setup_->Hwnd() == nullptr) return;
    MoveWindow(menu_->Hwnd(), 0, 0, CDlgCtrl::kMenuWidth, height, TRUE);
    // No minimum width: a panel narrower than the menu leaves the setup area nothing.
    MoveWindow(setup_->Hwnd(), CDlgCtrl::kMenuWidth, 0, width - CDlgCtrl::kMenuWidth, height, TRUE);
}

bool CDlgParam::OnMessage(UINT message, WPARAM wParam, LPARAM, LRESULT& result) {
    if (message != WM_SELECT_CATEGORY) return false;
    if (setup_) setup_->SelectCategory(static_cast<int>(wParam));
    result = 0;
    return true;
}

void CDlgParam::OnCommand(int id, int code) {
    if (code != BN_CLICKED) return;
    switch (id) {
    case IDC_TEST_GET_PARAMETERS:
        SendTestGetParameters();
        break;
    case IDC_TEST_SET_PARAMETERS:
        SendTestSetParameters();
        break;
    case IDC_TEST_IMPORT_PARAMETERS:
        CallConfigFile(MDVR_CONFIG_FILE_IMPORT, kTestConfigFile);
        break;
    case IDC_TEST_EXPORT_PARAMETERS:
        CallConfigFile(MDVR_CONFIG_FILE_EXPORT, kTestConfigFile);
        break;
    default:
        break;
    }
}

void CDlgParam::OnDestroy() {
    // Menu first, then the setup area with every page.
    menu_.reset();
    setup_.reset();
}
