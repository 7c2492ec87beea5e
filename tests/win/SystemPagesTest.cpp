// The system pages: raw command, parking overtime, users and security (other settings have a file of
// their own). Each over a table of cases where the harness fits, and by hand where a page does more than
// load and save.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>

#include "PageHarness.h"
#include "pages/parking/CDlgStopOverTime.h"
#include "pages/security/CDlgUserSafeSetup.h"
#include "pages/userdata/CDlgUserData.h"
#include "base/AnsiText.h"
#include "base/TraceFile.h"
#include "res/resource.h"
#include "ui/win/Controls.h"

using varcfg::test::UseEnglishTexts;
using varcfg::test::Enter;
using varcfg::test::PageCase;
using varcfg::test::PageUnderTest;
using varcfg::test::RunPageCase;
using varcfg::test::Shown;
using varcfg::test::Answer;

namespace {

const char kSpeedAlarm[] =
    R"(ucFD_LowSpeedIsEnable="1" ucFD_LowSpeedUnit="2" usFD_LowSpeed="10" usFD_ClearLowSpeed="15" )"
    R"(usFD_LowDurTime="5" ucFD_OverSpeedIsEnable="0" ucFD_OverSpeedUnit="7" usFD_OverSpeed="100" )"
    R"(usFD_ClearOverSpeed="90" usFD_OverDurTime="12" ucFD_PeakingIsEnable="1" ucFD_TimeUnit="0" )"
    R"(uiFD_OverTime="600" ucFD_FatigueEnable="1" usFD_DrivingTime="10" usFD_RestTime="0")";

// The speed alarm setting: the three groups' values as the template takes them, then the fatigue times.
std::string SpeedSetting(const std::string& low, const std::string& over, const std::string& overtime,
                         const std::string& fatigue) {
    return R"(<VariCfgSec Action="DEVICE_SET"><stSpeedAlarm )" + low + " " + over + " " + overtime + " " + fatigue +
           " /></VariCfgSec>";
}

const std::string kLowAsLoaded =
    R"(ucFD_LowSpeedIsEnable="1" ucFD_LowSpeedUnit="2" usFD_LowSpeed="10" usFD_ClearLowSpeed="15" usFD_LowDurTime="5")";
// An over-speed unit the list does not offer leaves the list without a selection.
const std::string kOverAsLoaded =
    R"(ucFD_OverSpeedIsEnable="0" ucFD_OverSpeedUnit="-1" usFD_OverSpeed="100" usFD_ClearOverSpeed="90" usFD_OverDurTime="12")";
const std::string kOvertimeAsLoaded =
    R"(ucFD_PeakingIsEnable="1" ucFD_TimeUnit="0" uiFD_OverTime="600" usFD_OverTime="600")";

const char kCarInfo[] = R"(strFD_LicensePlate="B-AB 123")";
const char kUserSecurity[] = R"(ucFD_PWEnableFlag="1" strFD_NormalPasswd="111111" strFD_AdminPasswd="222222")";
const char kPlateSetting[] = R"(<VariCfgSec Action="DEVICE_SET"><stCarInfo strFD_LicensePlate="M-XY 9" /></VariCfgSec>)";

std::string PasswordSetting(int enable, const std::string& user, const std::string& admin) {
    return R"(<VariCfgSec Action="DEVICE_SET"><stUserSec ucFD_PWEnableFlag=")" + std::to_string(enable) +
           R"(" strFD_NormalPasswd=")" + user + R"(" strFD_AdminPasswd=")" + admin + R"("></VariCfgSec>)";
}

}  // namespace

TEST(RawCommandPage, SendsTheTypedTextUnchangedAndShowsTheRawReply) {
    PageUnderTest page(std::make_unique<CDlgUserData>(), "MR4-A1");
    page.recorder.settingReply = "not <xml at all";
    const std::wstring typed = L"<VariCfgSec Action=\"DEVICE_SET\"><stX a=\"%d &\"></VariCfgSec>";
    Enter(page.Hwnd(), IDC_USER_DATA_REQUEST, typed);
    EXPECT_EQ(page.Page().Save(), 1);
    ASSERT_EQ(page.recorder.requests.size(), 1u);
    EXPECT_EQ(page.recorder.requests[0].text, "<VariCfgSec Action=\"DEVICE_SET\"><stX a=\"%d &\"></VariCfgSec>");
    EXPECT_EQ(Shown(page.Hwnd(), IDC_USER_DATA_REPLY), L"not <xml at all");

    // A query is answered as any recorder would; the reply is shown whole, unparsed.
    page.recorder.SetQueryReply("stPower", R"(<VariCfgSec Action="DEVICE_QUERY"><stPower ucPowerMode="0" /></VariCfgSec>)");
    Enter(page.Hwnd(), IDC_USER_DATA_REQUEST, L"<VariCfgSec Action=\"DEVICE_QUERY\"><stPower></VariCfgSec>");
    EXPECT_EQ(page.Page().Save(), 1);
    EXPECT_EQ(Shown(page.Hwnd(), IDC_USER_DATA_REPLY),
              L"<VariCfgSec Action=\"DEVICE_QUERY\"><stPower ucPowerMode=\"0\" /></VariCfgSec>");

    // A transport failure keeps the previous reply on screen.
    page.recorder.transportFails = true;
    Enter(page.Hwnd(), IDC_USER_DATA_REQUEST, L"anything");
    EXPECT_EQ(page.Page().Save(), 0);
    EXPECT_EQ(Shown(page.Hwnd(), IDC_USER_DATA_REPLY),
              L"<VariCfgSec Action=\"DEVICE_QUERY\"><stPower ucPowerMode=\"0\" /></VariCfgSec>");
    EXPECT_EQ(page.recorder.requests.back().text, "anything");
}

TEST(RawCommandPage, CutsALongRequestAt2047CharactersAndSendsAnEmptyOne) {
    PageUnderTest page(std::make_unique<CDlgUserData>(), "MR4-A1");
    Enter(page.Hwnd(), IDC_USER_DATA_REQUEST, std::wstring(3000, L'x'));
    EXPECT_EQ(page.Page().Save(), 1);
    EXPECT_EQ(page.recorder.requests.back().text, std::string(2047, 'x'));
    EXPECT_EQ(page.recorder.requests.back().length, 2048);

    Enter(page.Hwnd(), IDC_USER_DATA_REQUEST, L"");
    EXPECT_EQ(page.Page().Save(), 1);
    EXPECT_EQ(page.recorder.requests.back().text, "");
    EXPECT_EQ(page.recorder.requests.back().length, 0);
    EXPECT_EQ(Shown(page.Hwnd(), IDC_USER_DATA_REPLY), L"<VariCfgSec Action=\"DEVICE_SET\" Result=\"1\" />");
}

TEST(ParkingOvertimePage, ShowsFatigueMinimumsAndSendsTextsAsTypedOnEverySave) {
    UseEnglishTexts();
    const std::string asLoaded = SpeedSetting(kLowAsLoaded, kOverAsLoaded, kOvertimeAsLoaded,
                                              R"(ucFD_FatigueEnable="1" usFD_DrivingTime="120" usFD_RestTime="30")");
    const PageCase cases[] = {
        {"times below their minimums are shown as 120 and 30; an unchanged page is sent on every save",
         {{"stSpeedAlarm", kSpeedAlarm}},
         {{IDC_PARK_LOW_ENABLE, L"1"}, {IDC_PARK_LOW_UNIT, L"knots"}, {IDC_PARK_OVER_UNIT, L""},
          {IDC_PARK_LOW_SPEED, L"10"}, {IDC_PARK_OVERTIME, L"600"}, {IDC_PARK_DRIVING_TIME, L"120"},
          {IDC_PARK_REST_TIME, L"30"}},
         {},
         {asLoaded},
         1,
         {asLoaded}},
        {"times at or above their minimums are shown as read",
         {{"stSpeedAlarm", R"(usFD_DrivingTime="45" usFD_RestTime="20")"}},
         {{IDC_PARK_DRIVING_TIME, L"45"}, {IDC_PARK_REST_TIME, L"20"}, {IDC_PARK_LOW_UNIT, L"km/h"}},
         {},
         {SpeedSetting(
             R"(ucFD_LowSpeedIsEnable="0" ucFD_LowSpeedUnit="0" usFD_LowSpeed="0" usFD_ClearLowSpeed="0" usFD_LowDurTime="0")",
             R"(ucFD_OverSpeedIsEnable="0" ucFD_OverSpeedUnit="0" usFD_OverSpeed="0" usFD_ClearOverSpeed="0" usFD_OverDurTime="0")",
             R"(ucFD_PeakingIsEnable="0" ucFD_TimeUnit="0" uiFD_OverTime="0" usFD_OverTime="0")",
             R"(ucFD_FatigueEnable="0" usFD_DrivingTime="45" usFD_RestTime="20")")},
         1,
         {SpeedSetting(
             R"(ucFD_LowSpeedIsEnable="0" ucFD_LowSpeedUnit="0" usFD_LowSpeed="0" usFD_ClearLowSpeed="0" usFD_LowDurTime="0")",
             R"(ucFD_OverSpeedIsEnable="0" ucFD_OverSpeedUnit="0" usFD_OverSpeed="0" usFD_ClearOverSpeed="0" usFD_OverDurTime="0")",
             R"(ucFD_PeakingIsEnable="0" ucFD_TimeUnit="0" uiFD_OverTime="0" usFD_OverTime="0")",
             R"(ucFD_FatigueEnable="0" usFD_DrivingTime="45" usFD_RestTime="20")")}},
        {"speeds are not checked for digits, the overtime goes into both attributes",
         {{"stSpeedAlarm", kSpeedAlarm}},
         {},
         {{IDC_PARK_LOW_SPEED, L"abc"}, {IDC_PARK_OVER_CLEAR, L"123"}, {IDC_PARK_OVERTIME, L"123456789"},
          {IDC_PARK_OVER_UNIT, L"mph"}, {IDC_PARK_FATIGUE_ENABLE, L"0"}},
         {SpeedSetting(
             R"(ucFD_LowSpeedIsEnable="1" ucFD_LowSpeedUnit="2" usFD_LowSpeed="abc" usFD_ClearLowSpeed="15" usFD_LowDurTime="5")",
             R"(ucFD_OverSpeedIsEnable="0" ucFD_OverSpeedUnit="1" usFD_OverSpeed="100" usFD_ClearOverSpeed="123" usFD_OverDurTime="12")",
             R"(ucFD_PeakingIsEnable="1" ucFD_TimeUnit="0" uiFD_OverTime="123456789" usFD_OverTime="123456789")",
             R"(ucFD_FatigueEnable="0" usFD_DrivingTime="120" usFD_RestTime="30")")},
         1,
         {SpeedSetting(
             R"(ucFD_LowSpeedIsEnable="1" ucFD_LowSpeedUnit="2" usFD_LowSpeed="abc" usFD_ClearLowSpeed="15" usFD_LowDurTime="5")",
             R"(ucFD_OverSpeedIsEnable="0" ucFD_OverSpeedUnit="1" usFD_OverSpeed="100" usFD_ClearOverSpeed="123" usFD_OverDurTime="12")",
             R"(ucFD_PeakingIsEnable="1" ucFD_TimeUnit="0" uiFD_OverTime="123456789" usFD_OverTime="123456789")",
             R"(ucFD_FatigueEnable="0" usFD_DrivingTime="120" usFD_RestTime="30")")}},
        {"a refused write returns 0",
         {{"stSpeedAlarm", kSpeedAlarm}},
         {},
         {},
         {asLoaded},
         0,
         {asLoaded},
         "MR4-A1",
         1,
         R"(<VariCfgSec Action="DEVICE_SET" Result="0" />)"},
    };
    for (const PageCase& c : cases) RunPageCase<CDlgStopOverTime>(c);
}

TEST(ParkingOvertimePage, ARefusedFatigueTimeIsReportedAndStillSent) {
    PageUnderTest page(std::make_unique<CDlgStopOverTime>(), "MR4-A1");
    page.recorder.SetSection("stSpeedAlarm", kSpeedAlarm);
    ASSERT_EQ(page.Page().Refresh(), 1);
    page.TakeSettings();
    Enter(page.Hwnd(), IDC_PARK_DRIVING_TIME, L"10");
    Enter(page.Hwnd(), IDC_PARK_REST_TIME, L"16");
    page.watcher.Queue(Answer::Key(VK_RETURN));
    EXPECT_EQ(page.Page().Save(), 1);
    ASSERT_EQ(page.watcher.Seen().size(), 1u);
    EXPECT_EQ(GetDlgCtrlID(GetFocus()), IDC_PARK_DRIVING_TIME);
    // The exchange stopped at the driving time: the rest time keeps the value it had.
    EXPECT_EQ(page.TakeSettings(),
              std::vector<std::string>{SpeedSetting(kLowAsLoaded, kOverAsLoaded, kOvertimeAsLoaded,
                                                    R"(ucFD_FatigueEnable="1" usFD_DrivingTime="10" usFD_RestTime="30")")});

    // A failed read leaves the controls as they were.
    page.recorder.transportFails = true;
    EXPECT_EQ(page.Page().Refresh(), 0);
    EXPECT_EQ(Shown(page.Hwnd(), IDC_PARK_DRIVING_TIME), L"10");
}

TEST(ParkingOvertimePage, ATextPastItsLimitIsReportedAndSentWithTheFieldsAsTheyThenAre) {
    // An edit takes any length until the page first showed the recorder's values in it.
    PageUnderTest page(std::make_unique<CDlgStopOverTime>(), "MR4-A1");
    Enter(page.Hwnd(), IDC_PARK_OVER_CLEAR, L"1234");
    page.recorder.SetSection("stSpeedAlarm", kSpeedAlarm);
    ASSERT_EQ(page.Page().Refresh(), 1);
    page.TakeSettings();
    Enter(page.Hwnd(), IDC_PARK_OVER_CLEAR, L"1234");
    Enter(page.Hwnd(), IDC_PARK_OVERTIME, L"999");
    Enter(page.Hwnd(), IDC_PARK_DRIVING_TIME, L"45");
    page.watcher.Queue(Answer::Key(VK_RETURN));
    EXPECT_EQ(page.Page().Save(), 1);
    ASSERT_EQ(page.watcher.Seen().size(), 1u);
    EXPECT_EQ(page.watcher.Seen()[0].StaticTexts(),
              std::vector<std::wstring>{L"Please enter no more than 3 characters."});
    EXPECT_EQ(GetDlgCtrlID(GetFocus()), IDC_PARK_OVER_CLEAR);
    // The refused text goes out as typed; the transfer stopped there, so the overtime and the fatigue
    // times go out as they were.
    std::string over = kOverAsLoaded;
    over.replace(over.find("\"90\""), 4, "\"1234\"");
    EXPECT_EQ(page.TakeSettings(),
              std::vector<std::string>{SpeedSetting(kLowAsLoaded, over, kOvertimeAsLoaded,
                                                    R"(ucFD_FatigueEnable="1" usFD_DrivingTime="120" usFD_RestTime="30")")});
}

TEST(ParkingOvertimePage, TheSpeedAlarmsAreAskedForInTheLargeRecords) {
    PageUnderTest page(std::make_unique<CDlgStopOverTime>(), "MR4-A1");
    page.recorder.SetSection("stSpeedAlarm", kSpeedAlarm);
    ASSERT_EQ(page.Page().Refresh(), 1);
    EXPECT_EQ(page.Page().Save(), 1);
    ASSERT_EQ(page.recorder.requests.size(), 2u);
    EXPECT_EQ(page.recorder.requests[0].recordDistance, 9712);
    EXPECT_EQ(page.recorder.requests[1].recordDistance, 2064) << "settings travel in the standard records";
}

TEST(UserSecurityPage, ShowsEachPasswordTwiceAndWritesOnlyChangedSectionsInOrder) {
    UseEnglishTexts();
    const PageCase cases[] = {
        {"unchanged: nothing is sent",
         {{"stCarInfo", kCarInfo}, {"stUserSec", kUserSecurity}},
         {{IDC_SECURITY_PLATE, L"B-AB 123"}, {IDC_SECURITY_PASSWORD_ENABLE, L"Enable"},
          {IDC_SECURITY_USER_PASSWORD, L"111111"}, {IDC_SECURITY_USER_CONFIRM, L"111111"},
          {IDC_SECURITY_ADMIN_PASSWORD, L"222222"}, {IDC_SECURITY_ADMIN_CONFIRM, L"222222"}},
         {},
         {}},
        {"only the flag changed: the passwords go with it, unchanged",
         {{"stCarInfo", kCarInfo}, {"stUserSec", kUserSecurity}},
         {},
         {{IDC_SECURITY_PASSWORD_ENABLE, L"Disable"}},
         {PasswordSetting(0, "111111", "222222")}},
        {"plate and passwords changed: the plate first, as typed",
         {{"stCarInfo", kCarInfo}, {"stUserSec", kUserSecurity}},
         {},
         {{IDC_SECURITY_PLATE, L"M-XY 9"}, {IDC_SECURITY_ADMIN_PASSWORD, L"333333"},
          {IDC_SECURITY_ADMIN_CONFIRM, L"333333"}},
         {kPlateSetting, PasswordSetting(1, "111111", "333333")}},
        {"a refused plate stops the save before the passwords, and the next save tries again",
         {{"stCarInfo", kCarInfo}, {"stUserSec", kUserSecurity}},
         {},
         {{IDC_SECURITY_PLATE, L"M-XY 9"}, {IDC_SECURITY_USER_PASSWORD, L"333333"},
          {IDC_SECURITY_USER_CONFIRM, L"333333"}},
         {kPlateSetting},
         0,
         {kPlateSetting},
         "MR4-A1",
         1,
         R"(<VariCfgSec Action="DEVICE_SET" Result="0" />)"},
        {"empty passwords are digits only and equal; a plate is cut at 16 characters",
         {{"stCarInfo", R"(strFD_LicensePlate="ABCDEFGHIJKLMNOPQ")"}, {"stUserSec", ""}},
         {{IDC_SECURITY_PLATE, L"ABCDEFGHIJKLMNOP"}, {IDC_SECURITY_USER_PASSWORD, L""},
          {IDC_SECURITY_PASSWORD_ENABLE, L"Disable"}},
         {{IDC_SECURITY_PASSWORD_ENABLE, L"Enable"}},
         {PasswordSetting(1, "", "")}},
    };
    for (const PageCase& c : cases) RunPageCase<CDlgUserSafeSetup>(c);
}

TEST(UserSecurityPage, APlateLongerThanSixteenCharactersIsRefusedAndNothingIsSent) {
    // The read failed, so the plate's edit has no limit yet: the operator can type seventeen characters.
    PageUnderTest page(std::make_unique<CDlgUserSafeSetup>(), "MR4-A1");
    page.recorder.transportFails = true;
    EXPECT_EQ(page.Page().Refresh(), 0);
    page.recorder.transportFails = false;
    page.recorder.SetSection("stCarInfo", kCarInfo);
    page.recorder.SetSection("stUserSec", kUserSecurity);
    Enter(page.Hwnd(), IDC_SECURITY_PLATE, L"ABCDEFGHIJKLMNOPQ");
    page.TakeSettings();
    page.watcher.Queue(Answer::Key(VK_RETURN));
    EXPECT_EQ(page.Page().Save(), 0);
    ASSERT_EQ(page.watcher.Seen().size(), 1u);
    EXPECT_EQ(page.watcher.Seen()[0].StaticTexts(),
              std::vector<std::wstring>{L"Please enter no more than 16 characters."});
    EXPECT_EQ(GetDlgCtrlID(GetFocus()), IDC_SECURITY_PLATE);
    EXPECT_TRUE(page.TakeSettings().empty());
    EXPECT_EQ(Shown(page.Hwnd(), IDC_SECURITY_PLATE), L"ABCDEFGHIJKLMNOPQ") << "the operator's text stays";
}

TEST(UserSecurityPage, ValidatesThePasswordsInOrderAndSendsNothingOnAFault) {
    UseEnglishTexts();
    const struct {
        const char* name;
        std::wstring user, userConfirm, admin, adminConfirm;
        std::wstring message;
        int focus;
    } cases[] = {
        {"user password", L"12a", L"12b", L"x", L"y", L"User password:[12a],digits only", IDC_SECURITY_USER_PASSWORD},
        {"user confirmation", L"12", L"1 2", L"x", L"y", L"Confirm user password:[1 2],digits only",
         IDC_SECURITY_USER_CONFIRM},
        {"user pair", L"12", L"13", L"x", L"y", L"The user password and its confirmation differ.",
         IDC_SECURITY_USER_CONFIRM},
        {"administrator password", L"12", L"12", L"x", L"y", L"Administrator password:[x],digits only",
         IDC_SECURITY_ADMIN_PASSWORD},
        {"administrator confirmation", L"12", L"12", L"9", L"y", L"Confirm administrator password:[y],digits only",
         IDC_SECURITY_ADMIN_CONFIRM},
        {"administrator pair", L"12", L"12", L"9", L"8", L"The administrator password and its confirmation differ.",
         IDC_SECURITY_ADMIN_CONFIRM},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        PageUnderTest page(std::make_unique<CDlgUserSafeSetup>(), "MR4-A1");
        page.recorder.SetSection("stCarInfo", kCarInfo);
        page.recorder.SetSection("stUserSec", kUserSecurity);
        ASSERT_EQ(page.Page().Refresh(), 1);
        page.TakeSettings();
        Enter(page.Hwnd(), IDC_SECURITY_PLATE, L"M-XY 9");
        Enter(page.Hwnd(), IDC_SECURITY_USER_PASSWORD, c.user);
        Enter(page.Hwnd(), IDC_SECURITY_USER_CONFIRM, c.userConfirm);
        Enter(page.Hwnd(), IDC_SECURITY_ADMIN_PASSWORD, c.admin);
        Enter(page.Hwnd(), IDC_SECURITY_ADMIN_CONFIRM, c.adminConfirm);
        page.watcher.Queue(Answer::Key(VK_RETURN));
        EXPECT_EQ(page.Page().Save(), 0);
        ASSERT_EQ(page.watcher.Seen().size(), 1u);
        const auto texts = page.watcher.Seen()[0].StaticTexts();
        EXPECT_NE(std::find(texts.begin(), texts.end(), c.message), texts.end()) << varcfg::ToAnsi(c.message);
        EXPECT_EQ(GetDlgCtrlID(GetFocus()), c.focus);
        EXPECT_TRUE(page.TakeSettings().empty());
    }
}

TEST(UserSecurityPage, PasswordsNeverReachTheLog) {
    wchar_t folder[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, folder);
    CTraceFile2& log = CTraceFile2::Instance();
    log.SetFolder(folder);
    log.SetLogName("security_page_test");
    DeleteFileW(log.FilePath().c_str());
    {
        PageUnderTest page(std::make_unique<CDlgUserSafeSetup>(), "MR4-A1");
        page.recorder.SetSection("stCarInfo", kCarInfo);
        page.recorder.SetSection("stUserSec", kUserSecurity);
        ASSERT_EQ(page.Page().Refresh(), 1);
        for (int id : {IDC_SECURITY_USER_PASSWORD, IDC_SECURITY_USER_CONFIRM}) Enter(page.Hwnd(), id, L"475869");
        for (int id : {IDC_SECURITY_ADMIN_PASSWORD, IDC_SECURITY_ADMIN_CONFIRM}) Enter(page.Hwnd(), id, L"918273");
        EXPECT_EQ(page.Page().Save(), 1);
        EXPECT_EQ(page.TakeSettings(), std::vector<std::string>{PasswordSetting(1, "475869", "918273")});
    }
    std::ifstream in(log.FilePath().c_str(), std::ios::binary);
    const std::string written{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    EXPECT_NE(written.find("stUserSec"), std::string::npos) << written;
    for (const char* secret : {"475869", "918273", "111111", "222222"}) {
        EXPECT_EQ(written.find(secret), std::string::npos) << secret << " in " << written;
    }
}
