// The other settings page: time zone, daylight saving and power-off delay over a table of cases; the
// failed exchanges, the disk format and clock actions with their questions and tips, and the clock that
// follows the local time, by hand.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cwchar>
#include <string>
#include <vector>

#include "PageHarness.h"
#include "base/AnsiText.h"
#include "pages/other/CDlgOtherSetup.h"
#include "res/resource.h"
#include "ui/win/Controls.h"

using varcfg::test::Answer;
using varcfg::test::Enter;
using varcfg::test::PageCase;
using varcfg::test::PageUnderTest;
using varcfg::test::RunPageCase;
using varcfg::test::SeenWindow;
using varcfg::test::Shown;
using varcfg::test::UseEnglishTexts;

namespace {

const char kBaseInfo[] =
    R"(strFD_DeviceNo="VR10001" ucFD_TimeZone="20" ucFD_TZAdjust="30" ucFD_DstEnable="1" ucFD_DstFromMon="3" )"
    R"(ucFD_DstFromDay="4" ucFD_DstToMon="6" ucFD_DstToDay="2" ucFD_NowIsDst="1" usFD_DstAdjust="4" )"
    R"(ucFD_DateStyle="1" ucFD_GpsMode="2" ucFD_GpsSTFlag="1" usFD_DiskFsType="3" strFD_CurTime="2024-01-01 00:00:00")";
const char kPower[] = R"(ucPowerMode="0" ucPOnDelayEnable="1" usPOffDelayTime="5")";

// kBaseInfo written back, with the blanks and tabs of the recorder's form.
const std::string kBaseInfoAsRead =
    "<VariCfgSec Action=\"DEVICE_SET\"><stBaseInfo ucFD_TimeZone=\"20\" ucFD_TZAdjust=\"30\" ucFD_GpsSTFlag=\"1\"  "
    "\t\t\tucFD_DstEnable=\"1\" usFD_DstAdjust=\"4\" ucFD_DstFromMon=\"3\" ucFD_DstFromDay=\"4\" ucFD_DstToMon=\"6\" "
    "\t\t\tucFD_DstToDay=\"2\" /></VariCfgSec>";

// The values in the order of the write: zone, zone minutes, GPS, DST, adjustment, start month and
// week, end month and week.
std::string BaseInfoSetting(std::vector<int> values) {
    const char* names[] = {"ucFD_TimeZone",   "ucFD_TZAdjust",   "ucFD_GpsSTFlag", "\t\t\tucFD_DstEnable",
                           "usFD_DstAdjust",  "ucFD_DstFromMon", "ucFD_DstFromDay", "ucFD_DstToMon",
                           "\t\t\tucFD_DstToDay"};
    std::string text = "<VariCfgSec Action=\"DEVICE_SET\"><stBaseInfo";
    for (std::size_t i = 0; i < values.size(); ++i) {
        text += (i == 3 ? "  " : " ") + std::string(names[i]) + "=\"" + std::to_string(values[i]) + "\"";
    }
    return text + " /></VariCfgSec>";
}

std::string PowerSetting(int enable, int delay) {
    return "<VariCfgSec Action=\"DEVICE_SET\"><stPower ucPOnDelayEnable=\"" + std::to_string(enable) +
           "\" usPOffDelayTime=\"" + std::to_string(delay) + "\" /></VariCfgSec>";
}

const char kRefused[] = R"(<VariCfgSec Action="DEVICE_SET" Result="0" />)";

// Makes the transport fail for the requests that name section, and only for them.
void LoseRequestsOf(PageUnderTest& page, const std::string& section) {
    page.recorder.duringRequest = [&page, section] {
        page.recorder.transportFails = page.recorder.requests.back().text.find(section) != std::string::npos;
    };
}

bool Shows(const SeenWindow& box, const std::wstring& text) {
    const std::vector<std::wstring> texts = box.StaticTexts();
    return std::find(texts.begin(), texts.end(), text) != texts.end();
}

// Seconds between a picker's "YYYY-MM-DD HH:MM:SS" and the local time now.
long long SecondsFromNow(const std::wstring& shown) {
    SYSTEMTIME time{};
    std::swscanf(shown.c_str(), L"%hu-%hu-%hu %hu:%hu:%hu", &time.wYear, &time.wMonth, &time.wDay, &time.wHour,
                 &time.wMinute, &time.wSecond);
    SYSTEMTIME now{};
    GetLocalTime(&now);
    now.wMilliseconds = 0;
    FILETIME a{}, b{};
    SystemTimeToFileTime(&time, &a);
    SystemTimeToFileTime(&now, &b);
    const auto ticks = [](const FILETIME& f) { return (static_cast<long long>(f.dwHighDateTime) << 32) | f.dwLowDateTime; };
    return std::llabs(ticks(a) - ticks(b)) / 10000000;
}

}  // namespace

TEST(OtherSetupPage, ShowsZoneDaylightSavingAndDelayAndWritesWhatChangedInOrder) {
    UseEnglishTexts();
    const PageCase cases[] = {
        {"as read: the first save writes the base information, for the fields the page leaves out; a second "
         "sends nothing",
         {{"stBaseInfo", kBaseInfo}, {"stPower", kPower}},
         {{IDC_OTHER_ZONE_HOURS, L"GMT + 08"}, {IDC_OTHER_ZONE_MINUTES, L"30"}, {IDC_OTHER_GPS_SYNC, L"1"},
          {IDC_OTHER_DST_ENABLE, L"1"}, {IDC_OTHER_DST_ADJUST, L"60"}, {IDC_OTHER_DST_START_MONTH, L"Apr"},
          {IDC_OTHER_DST_START_WEEK, L"Last"}, {IDC_OTHER_DST_END_MONTH, L" July"}, {IDC_OTHER_DST_END_WEEK, L"3rd"},
          {IDC_OTHER_POWER_OFF_DELAY, L"5"}, {IDC_OTHER_DISK, L"Disk1"}, {IDC_OTHER_AUTO_UPDATE, L"1"}},
         {},
         {kBaseInfoAsRead},
         1,
         {}},
        {"edits: the zone minutes as minutes, the rest as entries, the base information before the power",
         {{"stBaseInfo", kBaseInfo}, {"stPower", kPower}},
         {},
         {{IDC_OTHER_ZONE_HOURS, L"GMT - 01"}, {IDC_OTHER_ZONE_MINUTES, L"45"}, {IDC_OTHER_GPS_SYNC, L"0"},
          {IDC_OTHER_DST_START_MONTH, L"Dec"}, {IDC_OTHER_DST_END_WEEK, L"Last"}, {IDC_OTHER_POWER_OFF_DELAY, L"0"}},
         {BaseInfoSetting({11, 45, 0, 1, 4, 11, 4, 6, 4}), PowerSetting(0, 0)},
         1,
         {}},
        {"values no entry offers: zone 24 is GMT + 12, minutes 20 show 00, month 12 selects nothing, month 13 "
         "and week 5 the first entry, adjustment 5 the default; a disabled delay shows 0",
         {{"stBaseInfo", R"(strFD_DeviceNo="12345" ucFD_TimeZone="24" ucFD_TZAdjust="20" ucFD_DstFromMon="12" )"
                         R"(ucFD_DstToMon="13" ucFD_DstFromDay="5" ucFD_DstToDay="4" usFD_DstAdjust="5")"},
          {"stPower", R"(ucPOnDelayEnable="0" usPOffDelayTime="30")"}},
         {{IDC_OTHER_ZONE_HOURS, L"GMT + 12"}, {IDC_OTHER_ZONE_MINUTES, L"00"}, {IDC_OTHER_DST_START_MONTH, L""},
          {IDC_OTHER_DST_END_MONTH, L"Jan"}, {IDC_OTHER_DST_START_WEEK, L"1st"}, {IDC_OTHER_DST_END_WEEK, L"Last"},
          {IDC_OTHER_DST_ADJUST, L"00"}, {IDC_OTHER_POWER_OFF_DELAY, L"0"}},
         {},
         {BaseInfoSetting({24, 0, 0, 0, 0, 255, 0, 0, 4})},
         1,
         {}},
        {"zone 25 keeps the zone shown; a typed delay goes with its switch on",
         {{"stBaseInfo", R"(strFD_DeviceNo="12345" ucFD_TimeZone="25")"}, {"stPower", kPower}},
         {{IDC_OTHER_ZONE_HOURS, L"GMT + 00"}},
         {{IDC_OTHER_POWER_OFF_DELAY, L"65535"}},
         {BaseInfoSetting({12, 0, 0, 0, 0, 0, 0, 0, 0}), PowerSetting(1, 65535)},
         1,
         {}},
        {"a device number of four characters: the base information stays unread, the delay is read",
         {{"stBaseInfo", R"(strFD_DeviceNo="1234" ucFD_TimeZone="0" ucFD_DstEnable="1")"}, {"stPower", kPower}},
         {{IDC_OTHER_ZONE_HOURS, L"GMT + 00"}, {IDC_OTHER_DST_ENABLE, L"0"}, {IDC_OTHER_POWER_OFF_DELAY, L"5"}},
         {},
         {BaseInfoSetting({12, 0, 0, 0, 0, 0, 0, 0, 0})},
         1,
         {}},
        {"a refused base information stops the save before the power, and the next save tries again",
         {{"stBaseInfo", kBaseInfo}, {"stPower", kPower}},
         {},
         {{IDC_OTHER_POWER_OFF_DELAY, L"9"}},
         {kBaseInfoAsRead},
         0,
         {kBaseInfoAsRead},
         "MR4-A1",
         1,
         kRefused},
    };
    for (const PageCase& c : cases) RunPageCase<CDlgOtherSetup>(c);
}

TEST(OtherSetupPage, ReadsThePowerSectionAfterALostBaseInformationButNotAfterARefusedOne) {
    const struct {
        const char* name;
        const char* lost;  // the requests that get no answer: those that name this
        const char* baseInfoReply;
        const char* powerReply;
        int result;
        std::size_t queries;
        std::wstring zone, delay;  // shown after the read
    } cases[] = {
        {"both read", "no request", nullptr, nullptr, 1, 2, L"GMT + 08", L"5"},
        {"base information lost", "stBaseInfo", nullptr, nullptr, 1, 2, L"GMT + 00", L"5"},
        {"power lost", "stPower", nullptr, nullptr, 1, 2, L"GMT + 08", L"0"},
        {"both lost", "DEVICE_QUERY", nullptr, nullptr, 0, 2, L"GMT + 00", L"0"},
        {"base information refused", "no request", "<VariCfgSec Action=\"DEVICE_QUERY\"><stBaseInfo", nullptr, -1, 1,
         L"GMT + 00", L"0"},
        {"power refused", "no request", nullptr, "not xml", -1, 2, L"GMT + 08", L"0"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        PageUnderTest page(std::make_unique<CDlgOtherSetup>(), "MR4-A1");
        page.recorder.SetSection("stBaseInfo", kBaseInfo);
        page.recorder.SetSection("stPower", kPower);
        if (c.baseInfoReply != nullptr) page.recorder.SetQueryReply("stBaseInfo", c.baseInfoReply);
        if (c.powerReply != nullptr) page.recorder.SetQueryReply("stPower", c.powerReply);
        LoseRequestsOf(page, c.lost);
        EXPECT_EQ(page.Page().Refresh(), c.result);
        EXPECT_EQ(page.recorder.requests.size(), c.queries);
        EXPECT_EQ(Shown(page.Hwnd(), IDC_OTHER_ZONE_HOURS), c.zone);
        EXPECT_EQ(Shown(page.Hwnd(), IDC_OTHER_POWER_OFF_DELAY), c.delay);
    }
}

TEST(OtherSetupPage, ALostBaseInformationDoesNotStopThePowerAndFailedWritesAreSentAgain) {
    PageUnderTest page(std::make_unique<CDlgOtherSetup>(), "MR4-A1");
    page.recorder.SetSection("stBaseInfo", kBaseInfo);
    page.recorder.SetSection("stPower", kPower);
    ASSERT_EQ(page.Page().Refresh(), 1);
    page.TakeSettings();

    Enter(page.Hwnd(), IDC_OTHER_POWER_OFF_DELAY, L"8");
    LoseRequestsOf(page, "stBaseInfo");
    EXPECT_EQ(page.Page().Save(), 1);
    EXPECT_EQ(page.TakeSettings(), (std::vector<std::string>{kBaseInfoAsRead, PowerSetting(1, 8)}));
    page.recorder.duringRequest = nullptr;
    page.recorder.transportFails = false;
    EXPECT_EQ(page.Page().Save(), 1);
    EXPECT_EQ(page.TakeSettings(), std::vector<std::string>{kBaseInfoAsRead});

    // A lost or refused delay stays on screen and is sent again.
    Enter(page.Hwnd(), IDC_OTHER_POWER_OFF_DELAY, L"9");
    LoseRequestsOf(page, "stPower");
    EXPECT_EQ(page.Page().Save(), 0);
    EXPECT_EQ(Shown(page.Hwnd(), IDC_OTHER_POWER_OFF_DELAY), L"9");
    page.recorder.duringRequest = nullptr;
    page.recorder.transportFails = false;
    page.recorder.settingReply = kRefused;
    EXPECT_EQ(page.Page().Save(), 0);
    page.recorder.settingReply = R"(<VariCfgSec Action="DEVICE_SET" Result="1" />)";
    EXPECT_EQ(page.Page().Save(), 1);
    EXPECT_EQ(page.TakeSettings(), std::vector<std::string>(3, PowerSetting(1, 9)));

    // A delay out of range is refused before anything is sent.
    Enter(page.Hwnd(), IDC_OTHER_POWER_OFF_DELAY, L"70000");
    page.watcher.Queue(Answer::Key(VK_RETURN));
    EXPECT_EQ(page.Page().Save(), -1);
    ASSERT_EQ(page.watcher.Seen().size(), 1u);
    EXPECT_TRUE(Shows(page.watcher.Seen()[0], L"Please enter an integer between 0 and 65535."));
    EXPECT_EQ(GetDlgCtrlID(GetFocus()), IDC_OTHER_POWER_OFF_DELAY);
    EXPECT_EQ(Shown(page.Hwnd(), IDC_OTHER_POWER_OFF_DELAY), L"70000");
    EXPECT_TRUE(page.TakeSettings().empty());
}

TEST(OtherSetupPage, FormatAndClockActOnlyAfterTheirQuestionAndTellTheOutcome) {
    UseEnglishTexts();
    const std::string format = R"(<VariCfgSec Action="DEVICE_FORMAT"><stDisk DiskNo="2"></VariCfgSec>)";
    const std::string clock = R"(<VariCfgSec Action="DEVICE_TIME"><stTime strTime="2024-02-29 23:59:58"></VariCfgSec>)";
    const std::wstring formatQuestion = L"Erase all data and format disk 3";
    const std::wstring clockQuestion = L"Set the recorder clock to 2024-02-29 23:59:58";
    const struct {
        const char* name;
        int button;
        int answer;
        const char* reply;  // "" for no answer at all
        std::vector<std::string> sent;
        std::wstring question, title, tip;
    } cases[] = {
        {"format cancelled", IDC_OTHER_FORMAT, IDCANCEL, "1", {}, formatQuestion, L"Disk", L""},
        {"format accepted: the tip numbers the disk from 0", IDC_OTHER_FORMAT, IDOK, "1", {format}, formatQuestion,
         L"Disk", L"Disk:[2],succeeded"},
        {"format refused: the tip numbers the disk from 1", IDC_OTHER_FORMAT, IDOK, "0", {format}, formatQuestion,
         L"Disk", L"Disk:[3],failed"},
        {"format lost: told as done", IDC_OTHER_FORMAT, IDOK, "", {format}, formatQuestion, L"Disk",
         L"Disk:[2],succeeded"},
        {"clock cancelled", IDC_OTHER_SET_CLOCK, IDCANCEL, "1", {}, clockQuestion, L"Recorder time", L""},
        {"clock accepted", IDC_OTHER_SET_CLOCK, IDOK, "1", {clock}, clockQuestion, L"Recorder time",
         L"Recorder time:succeeded"},
        {"clock refused", IDC_OTHER_SET_CLOCK, IDOK, "0", {clock}, clockQuestion, L"Recorder time",
         L"Recorder time:failed"},
        {"clock lost: told as done", IDC_OTHER_SET_CLOCK, IDOK, "", {clock}, clockQuestion, L"Recorder time",
         L"Recorder time:succeeded"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        PageUnderTest page(std::make_unique<CDlgOtherSetup>(), "MR4-A1");
        page.recorder.settingReply = std::string(R"(<VariCfgSec Action="X" Result=")") + c.reply + R"(" />)";
        page.recorder.transportFails = c.reply[0] == '\0';
        Enter(page.Hwnd(), IDC_OTHER_DISK, L"Disk3");
        Enter(page.Hwnd(), IDC_OTHER_AUTO_UPDATE, L"0");
        Enter(page.Hwnd(), IDC_OTHER_DATE, L"2024-02-29 08:00:00");
        Enter(page.Hwnd(), IDC_OTHER_TIME, L"2001-01-01 23:59:58");
        page.watcher.Queue(Answer::Click(c.answer));
        page.watcher.Queue(Answer::Key(VK_RETURN));
        SendDlgItemMessageW(page.Hwnd(), c.button, BM_CLICK, 0, 0);
        EXPECT_EQ(page.TakeSettings(), c.sent);
        const auto& seen = page.watcher.Seen();
        ASSERT_EQ(seen.size(), c.tip.empty() ? 1u : 2u);
        EXPECT_EQ(seen[0].title, c.title);
        EXPECT_TRUE(Shows(seen[0], c.question));
        EXPECT_EQ(seen[0].VisibleButtons(), (std::vector<int>{IDOK, IDCANCEL}));
        if (!c.tip.empty()) {
            EXPECT_TRUE(Shows(seen[1], c.tip)) << varcfg::ToAnsi(c.tip);
        }
    }
}

TEST(OtherSetupPage, TheClockRequestCarriesTheTimeShownWhenTheQuestionWasAnsweredAndTheDateAsked) {
    // Both pickers moved while the question was open: the request carries the new time, and the date
    // that the question showed.
    PageUnderTest page(std::make_unique<CDlgOtherSetup>(), "MR4-A1");
    Enter(page.Hwnd(), IDC_OTHER_AUTO_UPDATE, L"0");
    Enter(page.Hwnd(), IDC_OTHER_DATE, L"2024-02-29 08:00:00");
    Enter(page.Hwnd(), IDC_OTHER_TIME, L"2024-02-29 23:59:58");
    page.watcher.Inspect([&page](HWND) {
        Enter(page.Hwnd(), IDC_OTHER_TIME, L"2024-03-01 00:00:03");
        Enter(page.Hwnd(), IDC_OTHER_DATE, L"2024-03-01 08:00:00");
    });
    page.watcher.Queue(Answer::Click(IDOK));
    page.watcher.Queue(Answer::Key(VK_RETURN));
    SendDlgItemMessageW(page.Hwnd(), IDC_OTHER_SET_CLOCK, BM_CLICK, 0, 0);
    EXPECT_EQ(page.TakeSettings(), std::vector<std::string>{
                                       R"(<VariCfgSec Action="DEVICE_TIME"><stTime strTime="2024-02-29 00:00:03"></VariCfgSec>)"});
}

TEST(OtherSetupPage, TheTimePickerFollowsTheLocalClockWhileItsBoxIsTicked) {
    PageUnderTest page(std::make_unique<CDlgOtherSetup>(), "MR4-A1");
    const std::wstring past = L"2001-02-03 04:05:06";
    Enter(page.Hwnd(), IDC_OTHER_DATE, past);
    Enter(page.Hwnd(), IDC_OTHER_TIME, past);
    // The page's own one-second timer moves the time picker, not the date picker.
    const DWORD start = GetTickCount();
    while (Shown(page.Hwnd(), IDC_OTHER_TIME) == past && GetTickCount() - start < 3000) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
        Sleep(20);
    }
    EXPECT_LE(SecondsFromNow(Shown(page.Hwnd(), IDC_OTHER_TIME)), 2);
    EXPECT_EQ(Shown(page.Hwnd(), IDC_OTHER_DATE), past);

    Enter(page.Hwnd(), IDC_OTHER_AUTO_UPDATE, L"0");
    Enter(page.Hwnd(), IDC_OTHER_TIME, past);
    SendMessageW(page.Hwnd(), WM_TIMER, 999, 0);
    EXPECT_EQ(Shown(page.Hwnd(), IDC_OTHER_TIME), past);
    Enter(page.Hwnd(), IDC_OTHER_AUTO_UPDATE, L"1");
    SendMessageW(page.Hwnd(), WM_TIMER, 999, 0);
    EXPECT_LE(SecondsFromNow(Shown(page.Hwnd(), IDC_OTHER_TIME)), 2);
}
