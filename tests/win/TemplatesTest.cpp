// Creates every dialog template of the panel from the resources linked into this program and checks
// what the code behind each one relies on: the controls it looks up by id exist as the right kind of
// control, start hidden or disabled where the code expects that, and every page fits where the panel
// puts it.
#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

#include "res/resource.h"

namespace {

// What a control must be for the code that looks it up.
enum Kind {
    kLabel,      // static text
    kGroup,      // group box
    kCheck,      // automatic check box
    kPush,       // push button
    kText,       // one-line edit that takes any text, decimals and signs included
    kNumber,     // edit that takes digits only
    kPassword,   // edit that hides what is typed
    kMultiLine,  // multi-line edit
    kReadOnly,   // edit the user cannot change
    kList,       // drop-down list
    kIp,         // IP address control
    kDate,       // date picker
    kTime,       // time picker
    kTabs,       // tab strip
};
const char* const kKindNames[] = {"label", "group box", "check box", "push button", "text edit",
                                  "number edit", "password edit", "multi-line edit", "read-only edit",
                                  "drop-down list", "IP address", "date picker", "time picker", "tab strip"};

enum Start { kShown, kHidden, kDisabled };

// count controls with consecutive ids from id.
struct Controls {
    int id;
    int count;
    Kind kind;
    Start start = kShown;
};

// Where the panel puts a template, which bounds its layout.
enum Place {
    kPage,   // a category page: 607 x 550 pixels
    kTab,    // a tab page: the display area of its host's tab strip
    kModal,  // a modal box: its own client area
    kShell,  // container, menu and setup area: their own client area
};

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
    {2000, "container", kShell, 0,
     {{1000, 2, kPush, kHidden}, {2004, 1, kPush, kHidden}, {1003, 1, kPush, kHidden}}},
    {1002, "menu", kShell, 0,
     {{1008, 1, kPush}, {1540, 1, kPush}, {1054, 1, kPush}, {2067, 1, kPush}, {2071, 1, kPush},
      {2073, 1, kPush}, {2028, 3, kPush}}},
    {2006, "setup", kShell, 0, {{1009, 1, kPush}, {2020, 1, kPush}}},
    {10101, "tip", kModal, 0,
     {{IDC_TIP_TEXT, 1, kLabel}, {1, 2, kPush, kHidden}, {7, 1, kPush, kHidden}}},

    {2012, "network", kPage, 0, {{IDC_NET_TYPE_LABEL, 1, kLabel}, {IDC_NET_TYPE, 1, kList}, {IDC_NET_TABS, 1, kTabs}}},
    {1025, "encoder", kPage, 0, {{IDC_ENCODER_TABS, 1, kTabs}}},
    {1031, "alarm", kPage, 0, {{IDC_ALARM_TABS, 1, kTabs}}},
    {1038, "serial", kPage, 0, {{IDC_SERIAL_TABS, 1, kTabs}}},

    {1014, "local", kTab, 2012,
     {{2093, 1, kGroup}, {2104, 1, kLabel}, {2099, 1, kIp}, {2110, 1, kLabel}, {2113, 1, kIp},
      {2114, 1, kLabel}, {1096, 1, kIp}, {2117, 1, kLabel}, {2088, 1, kText}}},
    {2032, "wifi", kTab, 2012,
     {{1110, 1, kGroup}, {1111, 1, kList}, {1113, 2, kList}, {1121, 1, kText}, {1125, 1, kText},
      {1516, 1, kCheck}, {1116, 1, kIp}, {1119, 2, kIp}, {1115, 1, kLabel}, {1117, 2, kLabel},
      {1122, 1, kLabel}, {1123, 2, kLabel}, {1127, 2, kLabel}}},
    {1016, "mobile", kTab, 2012,
     {{1129, 1, kGroup}, {1137, 1, kList}, {1337, 1, kText}, {1310, 1, kText}, {1133, 1, kText},
      {1134, 1, kPassword}, {1131, 2, kLabel}, {1136, 1, kLabel}, {1138, 2, kLabel}}},
    {2038, "cms", kTab, 2012,
     {{1097, 1, kGroup}, {1140, 1, kText}, {1579, 1, kList}, {1105, 1, kIp}, {2087, 1, kText},
      {1109, 1, kNumber}, {2121, 1, kLabel}, {1103, 1, kLabel}, {1107, 1, kLabel}, {1843, 2, kLabel}}},
    {1042, "ptt", kTab, 2012,
     {{1712, 1, kCheck}, {2087, 1, kNumber}, {1715, 1, kIp}, {1716, 1, kNumber}, {1711, 1, kLabel},
      {1713, 2, kLabel}, {1717, 1, kLabel}}},
    {1024, "808", kTab, 2012,
     {{1526, 1, kCheck}, {1090, 3, kText}, {1538, 1, kText}, {1293, 1, kList}, {2112, 1, kText},
      {1825, 1, kText}, {1827, 3, kText}, {2087, 1, kText}, {1579, 2, kList}, {1528, 1, kIp},
      {1530, 1, kIp}, {1836, 1, kText}, {1839, 1, kText}, {1088, 2, kNumber}, {1525, 1, kLabel},
      {1531, 7, kLabel}, {1822, 3, kLabel}, {1826, 1, kLabel}, {1830, 2, kLabel}, {1832, 1, kGroup},
      {1834, 2, kLabel}, {1837, 2, kLabel}, {1840, 2, kLabel}}},

    {1030, "main", kTab, 1025,
     {{1557, 1, kList}, {1579, 1, kList}, {1804, 1, kList}, {1580, 1, kPush, kHidden}, {1802, 2, kLabel},
      {1610, 8, kList}, {1420, 8, kList}, {1618, 8, kList}, {1626, 8, kCheck}, {1634, 8, kCheck}}},
    {1027, "sub", kTab, 1025,
     {{1554, 1, kList}, {1177, 1, kList, kDisabled}, {1181, 1, kList}, {2164, 1, kList}, {1183, 1, kList},
      {1184, 1, kGroup}, {1553, 1, kLabel}, {1176, 1, kLabel}, {1178, 3, kLabel}}},
    {1029, "mirror", kTab, 1025,
     {{1544, 8, kCheck}, {1552, 8, kCheck}, {2077, 2, kLabel}, {1073, 1, kLabel}, {2079, 4, kLabel},
      {2084, 1, kLabel}, {1542, 2, kLabel}, {1736, 1, kGroup}}},
    {1028, "osd", kTab, 1025, {{2165, 9, kCheck}, {1143, 1, kGroup}, {1144, 1, kLabel}, {1146, 8, kLabel}}},

    {1032, "alarmbase", kTab, 1031,
     {{2087, 1, kNumber}, {1584, 1, kNumber}, {1588, 1, kList}, {1589, 2, kLabel}, {1581, 1, kLabel},
      {1032, 1, kLabel}, {1583, 1, kLabel}, {1586, 2, kLabel}}},
    {1033, "input", kTab, 1031,
     {{1600, 4, kCheck}, {1604, 4, kList}, {1608, 4, kList, kDisabled}, {2200, 4, kList},
      {1589, 3, kLabel}, {1593, 1, kLabel}, {1612, 1, kPush}, {1585, 1, kPush}}},
    {1034, "output", kTab, 1031, {{2204, 2, kList}, {2206, 2, kList}, {2208, 2, kList}, {1614, 3, kLabel}}},
    {1035, "linkage", kTab, 1031,
     {{1579, 4, kList, kDisabled}, {1653, 4, kList}, {1649, 4, kPush}, {1659, 4, kPush}, {1636, 2, kLabel},
      {1639, 2, kLabel}, {1657, 2, kPush}}},
    {1036, "gsensor", kTab, 1031,
     {{1625, 1, kCheck}, {1624, 1, kLabel}, {1626, 1, kGroup}, {2087, 1, kText}, {1627, 4, kText},
      {1737, 6, kText}, {1340, 1, kLabel}, {1632, 4, kLabel}, {1580, 1, kPush}}},
    {1043, "vmd", kTab, 1031,
     {{1579, 1, kList}, {1742, 1, kList}, {2026, 1, kCheck}, {1788, 1, kPush}, {1738, 2, kLabel},
      {1741, 1, kLabel}, {1768, 1, kLabel}, {1743, 1, kGroup}, {1744, 2, kLabel}, {1747, 7, kLabel},
      {1754, 7, kCheck}, {1761, 4, kNumber}, {1765, 1, kGroup}, {1766, 2, kLabel}, {1769, 7, kLabel},
      {1776, 7, kCheck}, {1783, 4, kNumber}, {1809, 1, kGroup}, {1810, 2, kLabel}, {1813, 7, kLabel},
      {1820, 7, kCheck}, {1827, 4, kNumber}}},

    {1039, "ports", kTab, 1038,
     {{1579, 1, kList}, {1675, 1, kList}, {1677, 1, kList}, {1679, 1, kList}, {1681, 1, kList},
      {1702, 1, kList}, {1673, 2, kLabel}, {1676, 1, kLabel}, {1678, 1, kLabel}, {1680, 1, kLabel},
      {1701, 1, kLabel}}},
    {1040, "ptz", kTab, 1038, {{1683, 1, kList}, {1579, 1, kList}, {1682, 1, kList}, {1684, 3, kLabel}}},
    {1046, "led", kTab, 1038, {}},
    {1041, "icreader", kTab, 1038, {}},

    {2045, "parking", kPage, 0,
     {{1560, 1, kCheck}, {1563, 1, kCheck}, {1568, 1, kCheck}, {1572, 1, kCheck}, {1566, 2, kList},
      {1571, 1, kList}, {2087, 3, kText}, {1800, 1, kText}, {1797, 2, kText}, {1795, 1, kText},
      {2090, 2, kNumber}, {2039, 3, kGroup}, {1708, 1, kGroup}, {1561, 2, kLabel}, {1564, 2, kLabel},
      {1569, 2, kLabel}, {1573, 2, kLabel}, {1794, 1, kLabel}, {1796, 1, kLabel}, {1799, 1, kLabel},
      {1801, 1, kLabel}, {1709, 2, kLabel}}},
    {1022, "security", kPage, 0,
     {{1060, 1, kText}, {1296, 1, kList}, {1297, 4, kPassword}, {1284, 2, kLabel}, {1301, 7, kLabel}}},
    {1012, "other", kPage, 0,
     {{1569, 1, kGroup}, {1570, 1, kLabel}, {1571, 1, kList}, {1572, 1, kPush}, {1705, 1, kGroup},
      {1706, 1, kDate}, {1707, 1, kTime}, {1820, 1, kCheck}, {1821, 1, kPush}, {1573, 1, kGroup},
      {1574, 1, kLabel}, {1575, 1, kList}, {1579, 1, kList}, {1718, 1, kLabel}, {1576, 1, kCheck},
      {1577, 1, kLabel}, {1734, 1, kGroup}, {1719, 1, kCheck}, {1720, 1, kLabel}, {1721, 1, kList},
      {1722, 2, kLabel}, {1724, 1, kList}, {1725, 1, kLabel}, {1726, 1, kList}, {1727, 3, kLabel},
      {1730, 1, kList}, {1731, 1, kGroup}, {1732, 1, kList}, {1733, 1, kLabel}, {1735, 1, kLabel},
      {2087, 1, kNumber}}},
    {2013, "userdata", kPage, 0, {{2060, 1, kMultiLine}, {2059, 1, kMultiLine}, {2061, 2, kLabel}}},
    {1020, "about", kPage, 0,
     {{1236, 1, kGroup}, {1237, 1, kLabel}, {1238, 1, kReadOnly}, {1239, 4, kLabel}, {2095, 1, kReadOnly},
      {2100, 1, kReadOnly}, {2105, 1, kReadOnly}, {2108, 1, kReadOnly}, {1567, 2, kLabel, kHidden},
      {1845, 1, kLabel}}},

    {1047, "cameratypes", kModal, 0,
     {{1846, 10, kLabel}, {1579, 8, kList}, {IDOK, 2, kPush}}},
    {1037, "recordpicker", kModal, 0,
     {{2010, 1, kLabel}, {1660, 10, kLabel}, {1670, 8, kCheck}, {1679, 8, kCheck}, {IDOK, 2, kPush}}},
    {1048, "snapshotpicker", kModal, 0,
     {{2010, 1, kLabel}, {1662, 8, kLabel}, {1857, 2, kLabel}, {1859, 16, kCheck}, {IDOK, 2, kPush}}},
    {1045, "area", kModal, 0, {{IDOK, 2, kPush}}},
};

INT_PTR CALLBACK Inert(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

// A dialog made from one of this program's templates, destroyed with the object.
class Dialog {
public:
    Dialog(int templateId, HWND parent)
        : hwnd_(CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(templateId), parent, Inert, 0)) {}
    ~Dialog() {
        if (hwnd_ != nullptr) DestroyWindow(hwnd_);
    }
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;
    operator HWND() const { return hwnd_; }

private:
    HWND hwnd_;
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
        case kCheck: return button && buttonType == BS_AUTOCHECKBOX;
        case kPush: return button && (buttonType == BS_PUSHBUTTON || buttonType == BS_DEFPUSHBUTTON);
        case kText: return edit && (style & (ES_NUMBER | ES_PASSWORD | ES_MULTILINE | ES_READONLY)) == 0;
        case kNumber: return edit && (style & ES_NUMBER) != 0;
        case kPassword: return edit && (style & ES_PASSWORD) != 0;
        case kMultiLine: return edit && (style & ES_MULTILINE) != 0;
        case kReadOnly: return edit && (style & ES_READONLY) != 0;
        case kList: return IsClass(control, L"ComboBox") && (style & 3) == CBS_DROPDOWNLIST;
        case kIp: return IsClass(control, L"SysIPAddress32");
        case kDate: return IsClass(control, L"SysDateTimePick32") && (style & DTS_TIMEFORMAT) != DTS_TIMEFORMAT;
        case kTime: return IsClass(control, L"SysDateTimePick32") && (style & DTS_TIMEFORMAT) == DTS_TIMEFORMAT;
        case kTabs: return IsClass(control, L"SysTabControl32");
    }
    return false;
}

bool IsInteractive(HWND control) {
    if (IsClass(control, L"Static")) return false;
    return !IsClass(control, L"Button") || (GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK) != BS_GROUPBOX;
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

// How far the controls reach, from the dialog's client origin, in pixels.
SIZE Reach(HWND dialog) {
    SIZE reach{0, 0};
    for (HWND child : Children(dialog)) {
        const RECT rect = RectIn(dialog, child);
        reach.cx = std::max(reach.cx, rect.right);
        reach.cy = std::max(reach.cy, rect.bottom);
    }
    return reach;
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

class PanelTemplates : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        INITCOMMONCONTROLSEX classes{sizeof(classes),
                                     ICC_STANDARD_CLASSES | ICC_INTERNET_CLASSES | ICC_DATE_CLASSES | ICC_TAB_CLASSES};
        InitCommonControlsEx(&classes);
        parent_ = CreateWindowExW(0, L"Static", L"", WS_OVERLAPPEDWINDOW, 0, 0, 800, 700, nullptr, nullptr,
                                  GetModuleHandleW(nullptr), nullptr);
    }
    static void TearDownTestSuite() { DestroyWindow(parent_); }

    // The display area of a host's tab strip once the setup area has made the host a full page.
    static SIZE TabDisplaySize(int hostId) {
        Dialog host(hostId, parent_);
        MoveWindow(host, 0, 0, kPageWidth, kPageHeight, FALSE);
        const std::vector<HWND> children = Children(host);
        const auto strip = std::find_if(children.begin(), children.end(), [](HWND c) { return IsKind(c, kTabs); });
        if (strip == children.end()) return {0, 0};
        const LONG top = AtWindowsMetrics(host, {0, RectIn(host, *strip).top}).cy;
        MoveWindow(*strip, 0, top, kPageWidth, kPageHeight - top, FALSE);
        wchar_t caption[] = L"Tab";
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = caption;
        TabCtrl_InsertItem(*strip, 0, &item);
        RECT area{};
        GetClientRect(*strip, &area);
        TabCtrl_AdjustRect(*strip, FALSE, &area);
        return {area.right - area.left, area.bottom - area.top};
    }

    static HWND parent_;
};
HWND PanelTemplates::parent_ = nullptr;

class TemplateTest : public PanelTemplates, public ::testing::WithParamInterface<Template> {};

TEST_P(TemplateTest, HasTheControlsItsCodeLooksUp) {
    const Template& page = GetParam();
    ASSERT_NE(FindResourceW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(page.id), RT_DIALOG), nullptr)
        << "no template " << page.id;
    Dialog dialog(page.id, parent_);
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
}

TEST_P(TemplateTest, FitsWhereThePanelPutsIt) {
    const Template& page = GetParam();
    Dialog dialog(page.id, parent_);
    ASSERT_NE(static_cast<HWND>(dialog), nullptr);

    RECT client{};
    GetClientRect(dialog, &client);
    SIZE room{client.right, client.bottom};
    SIZE reach = Reach(dialog);
    if (page.place == kPage || page.place == kTab) {
        room = page.place == kPage ? SIZE{kPageWidth, kPageHeight} : TabDisplaySize(page.host);
        reach = AtWindowsMetrics(dialog, reach);
    }
    EXPECT_LE(reach.cx, room.cx) << "template " << page.id << " is too wide";
    EXPECT_LE(reach.cy, room.cy) << "template " << page.id << " is too high";
}

TEST_P(TemplateTest, KeepsItsControlsApartAndInTheTabOrder) {
    const Template& page = GetParam();
    Dialog dialog(page.id, parent_);
    ASSERT_NE(static_cast<HWND>(dialog), nullptr);

    std::vector<std::pair<int, RECT>> shown;
    for (HWND child : Children(dialog)) {
        const LONG style = GetWindowLongW(child, GWL_STYLE);
        const int id = GetDlgCtrlID(child);
        if (IsInteractive(child)) {
            EXPECT_TRUE(style & WS_TABSTOP) << "template " << page.id << ": control " << id << " cannot be tabbed to";
        }
        if ((style & WS_VISIBLE) == 0 || IsKind(child, kGroup)) continue;
        const RECT rect = RectIn(dialog, child);
        for (const auto& [otherId, other] : shown) {
            RECT overlap{};
            EXPECT_FALSE(IntersectRect(&overlap, &rect, &other))
                << "template " << page.id << ": controls " << otherId << " and " << id << " overlap";
        }
        shown.emplace_back(id, rect);
    }
}

std::string TemplateName(const ::testing::TestParamInfo<Template>& instance) { return instance.param.name; }

INSTANTIATE_TEST_SUITE_P(Templates, TemplateTest, ::testing::ValuesIn(kTemplates), TemplateName);

using TemplatesLayout = PanelTemplates;

TEST_F(TemplatesLayout, FixedCaptionsAreInTheTemplates) {
    struct Caption {
        int templateId;
        int id;
        const wchar_t* text;
    };
    const Caption captions[] = {
        {1014, 2104, L"IP"},     {2032, 1115, L"IP"},       {2032, 1123, L"SSID"},     {2032, 1516, L"DHCP"},
        {2038, 1109, L"6608"},   {1032, 1590, L"(0-60)"},   {1032, 1589, L"(5-1800)"}, {1047, 1847, L"CHN1"},
        {1047, 1850, L"CHN4"},   {1047, 1854, L"CHN8"},
    };
    for (const Caption& caption : captions) {
        Dialog dialog(caption.templateId, parent_);
        wchar_t text[32]{};
        GetDlgItemTextW(dialog, caption.id, text, 32);
        EXPECT_STREQ(text, caption.text) << "template " << caption.templateId << ", control " << caption.id;
    }
}

TEST_F(TemplatesLayout, MenuButtonsFillTheColumnInCategoryOrder) {
    Dialog menu(IDD_MENU, parent_);
    ASSERT_NE(static_cast<HWND>(menu), nullptr);
    RECT buttonUnits{0, 0, 73, 24};
    MapDialogRect(menu, &buttonUnits);

    std::vector<std::pair<LONG, int>> byTop;
    for (HWND child : Children(menu)) {
        const RECT rect = RectIn(menu, child);
        EXPECT_EQ(rect.bottom - rect.top, buttonUnits.bottom) << GetDlgCtrlID(child);
        EXPECT_EQ(rect.left, 0);
        const LONG right = AtWindowsMetrics(menu, {rect.right, 0}).cx;
        EXPECT_GE(right, 120) << "the menu column is 128 pixels wide";
        EXPECT_LE(right, 128) << "the menu column is 128 pixels wide";
        byTop.emplace_back(rect.top, GetDlgCtrlID(child));
    }
    std::sort(byTop.begin(), byTop.end());
    std::vector<int> order;
    for (const auto& entry : byTop) order.push_back(entry.second);
    EXPECT_EQ(order, (std::vector<int>{1008, 1540, 1054, 2067, 2071, 2073, 2028, 2029, 2030}));
}

TEST_F(TemplatesLayout, AreaGridDialogLeavesTheGridClear) {
    // The grid is painted, not a control: 10 x 8 cells of 40 pixels from (20, 10).
    const RECT grid{20, 10, 20 + 10 * 40, 10 + 8 * 40};
    Dialog area(IDD_VMD_AREA, parent_);
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
