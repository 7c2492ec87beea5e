// Creates every dialog template of the panel from the resources linked into this program and checks
// what the code behind each one relies on: the controls it looks up by id exist as the right kind of
// control and start hidden or disabled where expected, and every page fits where the panel puts it.
#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

#include "TestHostWindow.h"
#include "res/resource.h"

namespace {

enum Kind { kLabel, kGroup, kPush, kText, kReadOnly, kList, kIp, kTabs };
const char* const kKindNames[] = {"label",         "group box",      "push button",   "text edit",
                                  "read-only edit", "drop-down list", "IP address",    "tab strip"};

enum Start { kShown, kHidden, kDisabled };

// count controls with consecutive ids from id.
struct Controls {
    int id;
    int count;
    Kind kind;
    Start start = kShown;
};

// Where the panel puts a template: a category page (607 x 550 pixels), a tab page (the display area of
// its host's tab strip), the menu column (128 x 600), a modal box or a part of the shell (their own
// client area).
enum Place { kPage, kTab, kMenu, kModal, kShell };

struct Template {
    int id;
    const char* name;
    Place place;
    int host;  // the tab host of a tab page
    std::vector<Controls> controls;
};

void PrintTo(const Template& page, std::ostream* out) { *out << page.name << " (template " << page.id << ")"; }

constexpr int kPageWidth = 607;   // the 735-pixel panel less the 128-pixel menu
constexpr int kPageHeight = 550;  // the 600-pixel panel less the 50-pixel button strip

const std::vector<Template> kTemplates = {
    {IDD_PANEL, "container", kShell, 0, {{IDC_TEST_GET_PARAMETERS, 2, kPush, kHidden},
                                       {IDC_TEST_IMPORT_PARAMETERS, 1, kPush, kHidden},
                                       {IDC_TEST_EXPORT_PARAMETERS, 1, kPush, kHidden}}},
    {IDD_MENU, "menu", kMenu, 0, {{IDC_MENU_NETWORK, 1, kPush}, {IDC_MENU_ENCODER, 1, kPush},
                                 {IDC_MENU_PARKING, 1, kPush}, {IDC_MENU_USER_SECURITY, 1, kPush},
                                 {IDC_MENU_OTHER, 1, kPush}, {IDC_MENU_USER_DATA, 1, kPush},
                                 {IDC_MENU_ABOUT, 1, kPush}, {IDC_MENU_ALARM, 1, kPush}, {IDC_MENU_SERIAL, 1, kPush}}},
    {IDD_SETUP, "setup", kShell, 0, {{IDC_SETUP_READ, 1, kPush}, {IDC_SETUP_WRITE, 1, kPush}}},
    {IDD_MSGTIP, "tip", kModal, 0, {{IDC_TIP_TEXT, 1, kLabel}, {IDOK, 2, kPush, kHidden}, {IDNO, 1, kPush, kHidden}}},

    {IDD_NET_SET, "network", kPage, 0,
     {{IDC_NET_TYPE_LABEL, 1, kLabel}, {IDC_NET_TYPE, 1, kList}, {IDC_NET_TABS, 1, kTabs}}},
    {IDD_ENCODER_SET, "encoder", kPage, 0, {{IDC_ENCODER_TABS, 1, kTabs}}},
    {IDD_ALARM_SET, "alarm", kPage, 0, {{IDC_ALARM_TABS, 1, kTabs}}},
    {IDD_SERIAL_SET, "serial", kPage, 0, {{IDC_SERIAL_TABS, 1, kTabs}}},

    {IDD_NET_LOCAL, "local", kTab, IDD_NET_SET,
     {{IDC_LOCAL_GROUP, 1, kGroup}, {IDC_LOCAL_MASK_LABEL, 1, kLabel}, {IDC_LOCAL_GATEWAY_LABEL, 1, kLabel},
      {IDC_LOCAL_MAC_LABEL, 1, kLabel}, {IDC_LOCAL_IP, 1, kIp}, {IDC_LOCAL_MASK, 1, kIp},
      {IDC_LOCAL_GATEWAY, 1, kIp}, {IDC_LOCAL_MAC, 1, kText}}},
    {IDD_NET_WIFI, "wifi", kTab, IDD_NET_SET, {}},         {IDD_NET_MOBILE, "mobile", kTab, IDD_NET_SET, {}},
    {IDD_NET_CMS, "cms", kTab, IDD_NET_SET, {}},           {IDD_NET_PTT, "ptt", kTab, IDD_NET_SET, {}},
    {IDD_NET_808, "808", kTab, IDD_NET_SET, {}},
    {IDD_ENC_MAIN, "main", kTab, IDD_ENCODER_SET, {{1580, 1, kPush, kHidden}}},
    {IDD_ENC_SUB, "sub", kTab, IDD_ENCODER_SET, {{1177, 1, kList, kDisabled}}},
    {IDD_ENC_MIRROR, "mirror", kTab, IDD_ENCODER_SET, {}}, {IDD_ENC_OSD, "osd", kTab, IDD_ENCODER_SET, {}},
    {IDD_ALARM_BASE, "alarmbase", kTab, IDD_ALARM_SET, {}},
    {IDD_ALARM_INPUT, "input", kTab, IDD_ALARM_SET, {{1608, 4, kList, kDisabled}}},
    {IDD_ALARM_LINKAGE, "linkage", kTab, IDD_ALARM_SET, {{1579, 4, kList, kDisabled}}},
    {IDD_ALARM_OUTPUT, "output", kTab, IDD_ALARM_SET, {}}, {IDD_ALARM_GSENSOR, "gsensor", kTab, IDD_ALARM_SET, {}},
    {IDD_ALARM_VMD, "vmd", kTab, IDD_ALARM_SET, {}},
    {IDD_SERIAL_PORTS, "ports", kTab, IDD_SERIAL_SET, {}}, {IDD_SERIAL_PTZ, "ptz", kTab, IDD_SERIAL_SET, {}},
    {IDD_SERIAL_LED_DISPLAY, "led", kTab, IDD_SERIAL_SET, {}},
    {IDD_SERIAL_IC_READER, "icreader", kTab, IDD_SERIAL_SET, {}},
    {IDD_STOP_OVERTIME, "parking", kPage, 0, {}},          {IDD_USER_SECURITY, "security", kPage, 0, {}},
    {IDD_OTHER_SETUP, "other", kPage, 0, {}},              {IDD_USER_DATA, "userdata", kPage, 0, {}},
    {IDD_ABOUT, "about", kPage, 0,
     {{IDC_ABOUT_GROUP, 1, kGroup}, {IDC_ABOUT_UBOOT_LABEL, 1, kLabel}, {IDC_ABOUT_KERNEL_LABEL, 4, kLabel},
      {IDC_ABOUT_UBOOT, 1, kReadOnly}, {IDC_ABOUT_KERNEL, 1, kReadOnly}, {IDC_ABOUT_ROOTFS, 1, kReadOnly},
      {IDC_ABOUT_APP, 1, kReadOnly}, {IDC_ABOUT_MCU, 1, kReadOnly}, {IDC_ABOUT_MODEL_LABEL, 2, kLabel, kHidden},
      {IDC_ABOUT_BUILD, 1, kLabel}}},

    {IDD_CAMERA_TYPES, "cameratypes", kModal, 0, {{IDOK, 2, kPush}}},
    {IDD_LINK_RECORD, "recordpicker", kModal, 0, {{IDOK, 2, kPush}}},
    {IDD_LINK_SNAPSHOT, "snapshotpicker", kModal, 0, {{IDOK, 2, kPush}}},
    {IDD_VMD_AREA, "area", kModal, 0, {{IDOK, 2, kPush}}},
};

INT_PTR CALLBACK Inert(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

// A dialog made from one of this program's templates, destroyed with the object.
struct Dialog {
    Dialog(int templateId, HWND parent)
        : hwnd(CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(templateId), parent, Inert, 0)) {}
    ~Dialog() { DestroyWindow(hwnd); }
    operator HWND() const { return hwnd; }
    const HWND hwnd;
};

bool IsClass(HWND window, const wchar_t* name) {
    wchar_t actual[64]{};
    GetClassNameW(window, actual, 64);
    return lstrcmpiW(actual, name) == 0;
}

bool IsKind(HWND control, Kind kind) {
    const LONG style = GetWindowLongW(control, GWL_STYLE);
    const LONG buttonType = style & BS_TYPEMASK;
    const bool button = IsClass(control, L"Button");
    const bool edit = IsClass(control, L"Edit");
    switch (kind) {
        case kLabel: return IsClass(control, L"Static");
        case kGroup: return button && buttonType == BS_GROUPBOX;
        case kPush: return button && (buttonType == BS_PUSHBUTTON || buttonType == BS_DEFPUSHBUTTON);
        case kText: return edit && (style & (ES_NUMBER | ES_PASSWORD | ES_MULTILINE | ES_READONLY)) == 0;
        case kReadOnly: return edit && (style & ES_READONLY) != 0;
        case kList: return IsClass(control, L"ComboBox") && (style & 3) == CBS_DROPDOWNLIST;
        case kIp: return IsClass(control, L"SysIPAddress32");
        case kTabs: return IsClass(control, L"SysTabControl32");
    }
    return false;
}

std::vector<HWND> Children(HWND dialog) {
    std::vector<HWND> children;
    for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        children.push_back(child);
    }
    return children;
}

RECT RectIn(HWND dialog, HWND child) {
    RECT rect{};
    GetWindowRect(child, &rect);
    MapWindowPoints(HWND_DESKTOP, dialog, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

// Wine draws "Segoe UI" with a substitute of lower line height. Layouts are also measured at the
// font's metrics on Windows at 96 DPI (1.75 x 1.9 pixels per dialog unit), where they must fit too.
SIZE AtWindowsMetrics(HWND dialog, SIZE pixels) {
    RECT units{0, 0, 4, 8};
    MapDialogRect(dialog, &units);
    const double scaleX = std::max(1.0, 7.0 / units.right);
    const double scaleY = std::max(1.0, 15.2 / units.bottom);
    return {static_cast<LONG>(pixels.cx * scaleX + 0.5), static_cast<LONG>(pixels.cy * scaleY + 0.5)};
}

class Templates : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        INITCOMMONCONTROLSEX classes{sizeof(classes),
                                     ICC_STANDARD_CLASSES | ICC_INTERNET_CLASSES | ICC_DATE_CLASSES | ICC_TAB_CLASSES};
        InitCommonControlsEx(&classes);
        parent_ = new varcfg::test::HostWindow;
    }
    static void TearDownTestSuite() { delete parent_; }

    // The display area of a host's tab strip once the setup area has made the host a full page.
    static SIZE TabDisplaySize(int hostId) {
        Dialog host(hostId, *parent_);
        MoveWindow(host, 0, 0, kPageWidth, kPageHeight, FALSE);
        const std::vector<HWND> children = Children(host);
        const auto strip = std::find_if(children.begin(), children.end(), [](HWND c) { return IsKind(c, kTabs); });
        if (strip == children.end()) return {0, 0};
        const LONG top = AtWindowsMetrics(host, {0, RectIn(host, *strip).top}).cy;
        MoveWindow(*strip, 0, top, kPageWidth, kPageHeight - top, FALSE);
        wchar_t caption[] = L"Tab";
        TCITEMW item{TCIF_TEXT, 0, 0, caption, 0, 0, 0};
        TabCtrl_InsertItem(*strip, 0, &item);
        RECT area{};
        GetClientRect(*strip, &area);
        TabCtrl_AdjustRect(*strip, FALSE, &area);
        return {area.right - area.left, area.bottom - area.top};
    }

    static varcfg::test::HostWindow* parent_;
};
varcfg::test::HostWindow* Templates::parent_ = nullptr;

class TemplateTest : public Templates, public ::testing::WithParamInterface<Template> {};

TEST_P(TemplateTest, HasTheControlsItsCodeLooksUpAndFitsWhereThePanelPutsIt) {
    const Template& page = GetParam();
    Dialog dialog(page.id, *parent_);
    ASSERT_NE(static_cast<HWND>(dialog), nullptr) << "template " << page.id << " does not create";

    const LONG style = GetWindowLongW(dialog, GWL_STYLE);
    if (page.place != kModal) {
        EXPECT_TRUE(style & WS_CHILD) << page.id;
        EXPECT_FALSE(style & WS_VISIBLE) << page.id << ": the panel shows one page at a time";
        EXPECT_TRUE(GetWindowLongW(dialog, GWL_EXSTYLE) & WS_EX_CONTROLPARENT) << page.id << ": Tab must reach inside";
    }
    for (const Controls& run : page.controls) {
        for (int id = run.id; id < run.id + run.count; ++id) {
            HWND control = GetDlgItem(dialog, id);
            if (control == nullptr) {
                ADD_FAILURE() << "template " << page.id << " has no control " << id;
                continue;
            }
            SCOPED_TRACE(::testing::Message() << "template " << page.id << ", control " << id);
            EXPECT_TRUE(IsKind(control, run.kind)) << "expected " << kKindNames[run.kind];
            const LONG controlStyle = GetWindowLongW(control, GWL_STYLE);
            EXPECT_EQ((controlStyle & WS_VISIBLE) == 0, run.start == kHidden) << "hidden at start";
            EXPECT_EQ((controlStyle & WS_DISABLED) != 0, run.start == kDisabled) << "disabled at start";
        }
    }

    // It fits where the panel puts it, every control that takes input is a tab stop, and no two shown
    // controls other than group boxes overlap.
    RECT client{};
    GetClientRect(dialog, &client);
    SIZE room{client.right, client.bottom};
    SIZE reach{0, 0};
    std::vector<std::pair<int, RECT>> shown;
    for (HWND child : Children(dialog)) {
        const RECT rect = RectIn(dialog, child);
        reach = {std::max(reach.cx, rect.right), std::max(reach.cy, rect.bottom)};
        const LONG childStyle = GetWindowLongW(child, GWL_STYLE);
        const int id = GetDlgCtrlID(child);
        if (!IsClass(child, L"Static") && !IsKind(child, kGroup)) {
            EXPECT_TRUE(childStyle & WS_TABSTOP) << "template " << page.id << ": control " << id << " cannot be tabbed to";
        }
        if ((childStyle & WS_VISIBLE) == 0 || IsKind(child, kGroup)) continue;
        for (const auto& [otherId, other] : shown) {
            RECT overlap{};
            EXPECT_FALSE(IntersectRect(&overlap, &rect, &other))
                << "template " << page.id << ": controls " << otherId << " and " << id << " overlap";
        }
        shown.emplace_back(id, rect);
    }
    if (page.place == kPage || page.place == kTab || page.place == kMenu) {
        room = page.place == kPage ? SIZE{kPageWidth, kPageHeight}
               : page.place == kMenu ? SIZE{128, 600} : TabDisplaySize(page.host);
        reach = AtWindowsMetrics(dialog, reach);
    }
    EXPECT_LE(reach.cx, room.cx) << "template " << page.id << " is too wide";
    EXPECT_LE(reach.cy, room.cy) << "template " << page.id << " is too high";
}

INSTANTIATE_TEST_SUITE_P(Templates, TemplateTest, ::testing::ValuesIn(kTemplates),
                         [](const ::testing::TestParamInfo<Template>& instance) { return std::string(instance.param.name); });

TEST_F(Templates, AreaGridDialogLeavesTheGridClear) {
    // The grid is painted, not a control: 10 x 8 cells of 40 pixels from (20, 10).
    const RECT grid{20, 10, 20 + 10 * 40, 10 + 8 * 40};
    Dialog area(IDD_VMD_AREA, *parent_);
    ASSERT_NE(static_cast<HWND>(area), nullptr);
    RECT client{};
    GetClientRect(area, &client);
    EXPECT_GE(client.right, grid.right + 20);
    EXPECT_GE(client.bottom, grid.bottom + 10);
    for (HWND child : Children(area)) {
        const RECT rect = RectIn(area, child);
        RECT overlap{};
        EXPECT_FALSE(IntersectRect(&overlap, &rect, &grid)) << "control " << GetDlgCtrlID(child) << " covers the grid";
    }
}

}  // namespace
