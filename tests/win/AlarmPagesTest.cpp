// The alarm tabs, each over a table of cases: what a load shows, what a save sends, and the rows the
// model's alarm inputs and outputs allow.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "PageHarness.h"
#include "channel/DeviceVersion.h"
#include "pages/alarm/CDlgTabAlarmCfgBase.h"
#include "pages/alarm/CDlgTabAlarmCfgGSensor.h"
#include "pages/alarm/CDlgTabAlarmCfgInput.h"
#include "pages/alarm/CDlgTabAlarmCfgLinkage.h"
#include "pages/alarm/CDlgTabAlarmCfgOutput.h"
#include "pages/alarm/CDlgTabAlarmCfgVmd.h"
#include "protocol/ModelTable.h"
#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"

using namespace varcfg;
using varcfg::test::Answer;
using varcfg::test::Enter;
using varcfg::test::PageCase;
using varcfg::test::PageUnderTest;
using varcfg::test::RunPageCase;
using varcfg::test::Shown;

namespace {

const std::string kSetOk = R"(<VariCfgSec Action="DEVICE_SET" Result="1" />)";
const std::string kSetRefused = R"(<VariCfgSec Action="DEVICE_SET" Result="0" />)";

// A model of the built-in table whose profile has these counts.
std::string ModelWith(int inputs, int outputs = -1) {
    const ModelTable& table = BuiltInModelTable();
    for (const ModelTable::Entry& entry : table.Entries()) {
        const Capabilities* profile = table.ProfileOf(entry.text);
        if (profile != nullptr && profile->alarmInputs == inputs && (outputs < 0 || profile->alarmOutputs == outputs)) {
            return entry.text;
        }
    }
    ADD_FAILURE() << "no model with " << inputs << " inputs and " << outputs << " outputs";
    return "";
}

std::string QueryReplyOf(const std::string& section, const std::string& attributes, const std::string& children) {
    return "<VariCfgSec Action=\"DEVICE_QUERY\"><" + section + " " + attributes + ">" + children + "</" + section +
           "></VariCfgSec>";
}

bool Visible(HWND page, int id) { return (GetWindowLongPtrW(GetDlgItem(page, id), GWL_STYLE) & WS_VISIBLE) != 0; }
bool Enabled(HWND page, int id) { return IsWindowEnabled(GetDlgItem(page, id)) != FALSE; }
void Click(HWND page, int id) { SendDlgItemMessageW(page, id, BM_CLICK, 0, 0); }

std::string RecordingSetting(const std::string& pre, const std::string& time, const std::string& type) {
    return R"(<VariCfgSec Action="DEVICE_SET"><stRecord uiFD_PreRecordTime=")" + pre + R"(" uiFD_AlarmRecordTime=")" +
           time + R"(" ucFD_AlarmRecordType=")" + type + R"("><VariCfgSec>)";
}

}  // namespace

TEST(AlarmBasePage, ShowsTheRecordTimesAndWritesThemOnEverySave) {
    const char kRecord[] = R"(ucFD_RecordMode="2" uiFD_PreRecordTime="10" uiFD_AlarmRecordTime="30" ucFD_AlarmRecordType="7")";
    const std::string unchanged = RecordingSetting("10", "30", "1");
    const PageCase cases[] = {
        {"any type but 0 is the second type; unchanged values go out again",
         {{"stRecord", kRecord}},
         {{IDC_ALARM_BASE_PRE_RECORD, L"10"}, {IDC_ALARM_BASE_RECORD_TIME, L"30"}},
         {},
         {unchanged},
         1,
         {unchanged}},
        {"times at the ends of their ranges",
         {{"stRecord", kRecord}},
         {},
         {{IDC_ALARM_BASE_PRE_RECORD, L"60"}, {IDC_ALARM_BASE_RECORD_TIME, L"5"}},
         {RecordingSetting("60", "5", "1")},
         1,
         {RecordingSetting("60", "5", "1")}},
        {"a refused write fails the save",
         {{"stRecord", kRecord}}, {}, {}, {unchanged}, 0, {unchanged}, "MR4-A1", 1, kSetRefused},
    };
    for (const PageCase& c : cases) RunPageCase<CDlgTabAlarmCfgBase>(c);
    // Shown as they came; the save refuses the first and sends the values as they stand.
    PageUnderTest page(std::make_unique<CDlgTabAlarmCfgBase>(), "MR4-A1");
    page.recorder.SetSection("stRecord", R"(uiFD_PreRecordTime="99" uiFD_AlarmRecordTime="2")");
    ASSERT_EQ(page.Page().Refresh(), 1);
    EXPECT_EQ(Shown(page.Hwnd(), IDC_ALARM_BASE_PRE_RECORD), L"99");
    EXPECT_EQ(Shown(page.Hwnd(), IDC_ALARM_BASE_RECORD_TIME), L"2");
    Enter(page.Hwnd(), IDC_ALARM_BASE_PRE_RECORD, L"61");
    Enter(page.Hwnd(), IDC_ALARM_BASE_RECORD_TIME, L"4");
    ComboSelect(page.Hwnd(), IDC_ALARM_BASE_RECORD_TYPE, -1);  // no type chosen is sent as -1
    page.watcher.Queue(Answer::Key(VK_RETURN));
    EXPECT_EQ(page.Page().Save(), 1);
    EXPECT_EQ(page.watcher.Seen().size(), 1u) << "one validation message: the transfer stops at the first field";
    EXPECT_EQ(page.TakeSettings(), std::vector<std::string>{RecordingSetting("99", "2", "-1")});
}

namespace {

std::string GSensorSetting(const std::string& enable, const std::vector<std::string>& values) {
    const char* names[] = {"fFD_RAccel", "fFD_RDecel", "fFD_Crash", "fFD_Swerve", "fFD_TrunOver", "fFD_X",
                           "fFD_XLimit", "fFD_Y", "fFD_YLimit", "fFD_Z", "fFD_ZLimit"};
    std::string text = R"(<VariCfgSec Action="DEVICE_SET"><stGSensor ucFD_AlarmEnable=")" + enable + "\"";
    for (std::size_t i = 0; i < values.size(); ++i) text += std::string(" ") + names[i] + "=\"" + values[i] + "\"";
    return text + " /><VariCfgSec>";
}

}  // namespace

TEST(AlarmGSensorPage, ShowsSixSignificantDigitsSendsSixDecimalsAndReportsRecalibration) {
    const char kSensor[] = R"(ucfd_alarmenable="1" fFD_RAccel="0.5" FFD_RDECEL="1.25" fFD_Crash="1.1234567" )"
                           R"(fFD_Swerve="0.3" fFD_TrunOver="45" fFD_X="-0.5" fFD_XLimit="2" fFD_Y="0" )"
                           R"(fFD_YLimit="2" fFD_Z="1" fFD_ZLimit="3")";
    const PageCase cases[] = {
        {"names in any case; six significant digits shown, six decimals sent",
         {{"stGSensor", kSensor}},
         {{IDC_GSENSOR_ENABLE, L"1"}, {IDC_GSENSOR_CRASH, L"1.12346"}, {IDC_GSENSOR_ROLLOVER, L"45"},
          {IDC_GSENSOR_X, L"-0.5"}},
         {},
         {GSensorSetting("1", {"0.500000", "1.250000", "1.123460", "0.300000", "45.000000", "-0.500000", "2.000000",
                               "0.000000", "2.000000", "1.000000", "3.000000"})},
         1,
         {GSensorSetting("1", {"0.500000", "1.250000", "1.123460", "0.300000", "45.000000", "-0.500000", "2.000000",
                               "0.000000", "2.000000", "1.000000", "3.000000"})}},
        {"thresholds at the ends of their ranges; calibration takes signed numbers",
         {{"stGSensor", kSensor}},
         {},
         {{IDC_GSENSOR_CRASH, L"2.0"}, {IDC_GSENSOR_ROLLOVER, L"60"}, {IDC_GSENSOR_ACCELERATION, L"0.25"},
          {IDC_GSENSOR_Z_LIMIT, L"-1.5e1"}, {IDC_GSENSOR_ENABLE, L"0"}},
         {GSensorSetting("0", {"0.250000", "1.250000", "2.000000", "0.300000", "60.000000", "-0.500000", "2.000000",
                               "0.000000", "2.000000", "1.000000", "-15.000000"})},
         1,
         {GSensorSetting("0", {"0.250000", "1.250000", "2.000000", "0.300000", "60.000000", "-0.500000", "2.000000",
                               "0.000000", "2.000000", "1.000000", "-15.000000"})}},
    };
    for (const PageCase& c : cases) RunPageCase<CDlgTabAlarmCfgGSensor>(c);

    PageUnderTest page(std::make_unique<CDlgTabAlarmCfgGSensor>(), "MR4-A1");
    page.recorder.SetSection("stGSensor", kSensor);
    ASSERT_EQ(page.Page().Refresh(), 1);
    // 2.01 is refused; the fields after it keep what was shown.
    Enter(page.Hwnd(), IDC_GSENSOR_CRASH, L"2.01");
    Enter(page.Hwnd(), IDC_GSENSOR_X, L"7");
    page.watcher.Queue(Answer::Key(VK_RETURN));
    EXPECT_EQ(page.Page().Save(), 1);
    EXPECT_EQ(page.TakeSettings(), std::vector<std::string>{GSensorSetting(
                                       "1", {"0.500000", "1.250000", "1.123460", "0.300000", "45.000000", "-0.500000",
                                             "2.000000", "0.000000", "2.000000", "1.000000", "3.000000"})});

    // Recalibration: a refusal is reported as failed; an accepted request and one that never went out
    // as done. Nothing is read again.
    CLanguage& language = CLanguage::Instance();
    const std::wstring done = FillTemplate(L"%s GSensor,%s", {language.Text(24056), language.Text(21007)});
    const std::wstring failed = FillTemplate(L"%s GSensor,%s", {language.Text(24056), language.Text(21008)});
    const struct {
        std::string reply;
        bool transportFails;
        std::wstring tip;
    } recalibrations[] = {{kSetOk, false, done}, {kSetRefused, false, failed}, {kSetOk, true, done}};
    for (const auto& r : recalibrations) {
        page.recorder.settingReply = r.reply;
        page.recorder.transportFails = r.transportFails;
        const std::size_t seen = page.watcher.Seen().size();
        page.watcher.Queue(Answer::Key(VK_RETURN));
        Click(page.Hwnd(), IDC_GSENSOR_RECALIBRATE);
        ASSERT_EQ(page.watcher.Seen().size(), seen + 1);
        EXPECT_EQ(page.watcher.Seen().back().Control(IDC_TIP_TEXT)->text, r.tip);
        EXPECT_EQ(page.recorder.requests.back().text,
                  R"(<VariCfgSec Action="DEVICE_SET"><stGSensor ReCalibrate="1"/><VariCfgSec>)");
    }
    EXPECT_EQ(page.TakeSettings().size(), 3u);
}

namespace {

// Inputs numbered from first, each with its function and a level of 5.
std::string AlarmInReply(int first, int count) {
    std::string children;
    for (int n = first; n < first + count; ++n) {
        children += "<AlarmIO_" + std::to_string(n) + " ucIOEnable=\"1\" ucIOLevel=\"5\" ucIOFunc=\"" +
                    std::to_string(n + 3) + "\" />";
    }
    return QueryReplyOf("stAlarmIn", R"(ucDiskFaulAlarm="1")", "<stAlarmInIO>" + children + "</stAlarmInIO>");
}

std::string InputSetting(int first, int count) {
    std::string text = R"(<VariCfgSec Action="DEVICE_SET"><stAlarmIn StartChn=")" + std::to_string(first) +
                       R"("><stAlarmInIO>)";
    for (int n = first; n < first + count; ++n) {
        text += "<AlarmIO_" + std::to_string(n) + R"( ucIOEnable="1" ucIOLevel="1" ucIOFunc=")" + std::to_string(n + 3) +
                R"(" />)";
    }
    return text + "</stAlarmInIO></stAlarmIn></VariCfgSec>";
}

}  // namespace

TEST(AlarmInputPage, ShowsAndWritesTheModelsInputsFourPerPage) {
    for (int inputs : {0, 1, 2, 3, 4, 6, 8, 9}) {
        SCOPED_TRACE("inputs " + std::to_string(inputs));
        PageUnderTest page(std::make_unique<CDlgTabAlarmCfgInput>(), ModelWith(inputs));
        page.recorder.SetQueryReply("stAlarmIn", AlarmInReply(0, 12));
        for (int first = 0; first == 0 || first < inputs; first += 4) {
            if (first > 0) {
                Click(page.Hwnd(), IDC_INPUT_NEXT);
            } else {
                EXPECT_EQ(page.Page().Refresh(), 1);
            }
            const int rows = std::min(std::max(inputs - first, 0), 4);
            for (int r = 0; r < 4; ++r) {
                EXPECT_EQ(Visible(page.Hwnd(), IDC_INPUT_ENABLE_FIRST + r), r < rows) << "row " << r;
                EXPECT_EQ(Visible(page.Hwnd(), IDC_INPUT_LEVEL_FIRST + r), r < rows) << "row " << r;
                EXPECT_EQ(ComboSelection(page.Hwnd(), IDC_INPUT_NUMBER_FIRST + r), first + r < 9 ? first + r : -1);
            }
            EXPECT_EQ(page.recorder.requests.back().text,
                      R"(<VariCfgSec Action="DEVICE_QUERY"><stAlarmIn StartChn=")" + std::to_string(first) +
                          R"("></VariCfgSec>)");
            EXPECT_EQ(Enabled(page.Hwnd(), IDC_INPUT_PREVIOUS), first > 0);
            EXPECT_EQ(Enabled(page.Hwnd(), IDC_INPUT_NEXT), inputs - first - 4 >= 1);
            page.TakeSettings();
            EXPECT_EQ(page.Page().Save(), 1);
            EXPECT_EQ(page.TakeSettings(), std::vector<std::string>{InputSetting(first, rows)});
        }
    }
}

TEST(AlarmInputPage, KeepsWhatTheReplyCannotSayAndSendsEdits) {
    PageUnderTest page(std::make_unique<CDlgTabAlarmCfgInput>(), ModelWith(4));
    // A function of 26 leaves the list as it was; a child numbered 12 ends the reading.
    page.recorder.SetQueryReply(
        "stAlarmIn", QueryReplyOf("stAlarmIn", "", R"(<stAlarmInIO><AlarmIO_0 ucIOFunc="2" /><AlarmIO_1 ucIOFunc="26" />)"
                                                   R"(<AlarmIO_12 /><AlarmIO_2 ucIOEnable="1" /></stAlarmInIO>)"));
    ComboSelect(page.Hwnd(), IDC_INPUT_FUNCTION_FIRST + 1, 7);
    ASSERT_EQ(page.Page().Refresh(), 1);
    EXPECT_EQ(ComboSelection(page.Hwnd(), IDC_INPUT_FUNCTION_FIRST), 2);
    EXPECT_EQ(ComboSelection(page.Hwnd(), IDC_INPUT_FUNCTION_FIRST + 1), 7);
    EXPECT_EQ(Shown(page.Hwnd(), IDC_INPUT_ENABLE_FIRST + 2), L"0");
    Enter(page.Hwnd(), IDC_INPUT_LEVEL_FIRST + 3, L"");
    Enter(page.Hwnd(), IDC_INPUT_ENABLE_FIRST + 3, L"1");
    page.TakeSettings();
    page.recorder.settingReply = kSetRefused;
    EXPECT_EQ(page.Page().Save(), 0);
    EXPECT_EQ(page.TakeSettings(),
              std::vector<std::string>{
                  R"(<VariCfgSec Action="DEVICE_SET"><stAlarmIn StartChn="0"><stAlarmInIO>)"
                  R"(<AlarmIO_0 ucIOEnable="0" ucIOLevel="0" ucIOFunc="2" /><AlarmIO_1 ucIOEnable="0" ucIOLevel="0" ucIOFunc="7" />)"
                  R"(<AlarmIO_2 ucIOEnable="0" ucIOLevel="0" ucIOFunc="0" /><AlarmIO_3 ucIOEnable="1" ucIOLevel="-1" ucIOFunc="0" />)"
                  R"(</stAlarmInIO></stAlarmIn></VariCfgSec>)"});
    // A misnamed child fills nothing.
    page.recorder.SetQueryReply("stAlarmIn", QueryReplyOf("stAlarmIn", "", R"(<stAlarmInIO><AlarmIO_ ucIOFunc="4" /></stAlarmInIO>)"));
    EXPECT_EQ(page.Page().Refresh(), 0);
    EXPECT_EQ(ComboSelection(page.Hwnd(), IDC_INPUT_FUNCTION_FIRST), 2);
}

namespace {

std::string LinkageReply(const std::string& items) {
    return QueryReplyOf("stAlarmLinkage", "", "<stAlarmLinkageItem>" + items + "</stAlarmLinkageItem>");
}

std::string OutputItem(int k, int level, int function) {
    return "<AlarmLinkageItem_" + std::to_string(k) + R"( usAlarmRecordCh="1"><stAlarmOutIO ucIOEnable="0" ucIOLevel=")" +
           std::to_string(level) + R"(" ucIOFunc=")" + std::to_string(function) + R"(" /></AlarmLinkageItem_)" +
           std::to_string(k) + ">";
}

std::string OutputSetting(const std::vector<std::pair<int, int>>& rows) {
    std::string text = R"(<VariCfgSec Action="DEVICE_SET"><stAlarmLinkage StartChn="0"><stAlarmLinkageItem>)";
    for (std::size_t k = 0; k < rows.size(); ++k) {
        const std::string n = std::to_string(k);
        text += "<AlarmLinkageItem_" + n + R"(><stAlarmOutIO ucIOEnable="1" ucIOLevel=")" + std::to_string(rows[k].first) +
                R"(" ucIOFunc=")" + std::to_string(rows[k].second) + R"("></stAlarmOutIO></AlarmLinkageItem_)" + n + ">";
    }
    return text + "</stAlarmLinkageItem></stAlarmLinkage></VariCfgSec>";
}

}  // namespace

TEST(AlarmOutputPage, ShowsAndWritesTheModelsOutputsInsideLinkageItems) {
    for (int outputs : {0, 1, 2}) {
        SCOPED_TRACE("outputs " + std::to_string(outputs));
        PageUnderTest page(std::make_unique<CDlgTabAlarmCfgOutput>(), ModelWith(outputs == 0 ? 0 : 4, outputs));
        // A level of 3 is high; a stored function 6 is not shown back.
        page.recorder.SetQueryReply("stAlarmLinkage", LinkageReply(OutputItem(0, 3, 5) + OutputItem(1, 0, 6)));
        ComboSelect(page.Hwnd(), IDC_OUTPUT_FUNCTION_FIRST + 1, 2);
        EXPECT_EQ(page.Page().Refresh(), 1);
        EXPECT_EQ(page.recorder.requests.back().text,
                  R"(<VariCfgSec Action="DEVICE_QUERY"><stAlarmLinkage StartChn="0"></VariCfgSec>)");
        for (int r = 0; r < 2; ++r) {
            EXPECT_EQ(Visible(page.Hwnd(), IDC_OUTPUT_LEVEL_FIRST + r), r < outputs);
            EXPECT_EQ(Visible(page.Hwnd(), IDC_OUTPUT_NUMBER_FIRST + r), r < outputs);
        }
        page.TakeSettings();
        EXPECT_EQ(page.Page().Save(), 1);
        const std::vector<std::pair<int, int>> rows = {{1, 5}, {0, 2}};
        EXPECT_EQ(page.TakeSettings(),
                  std::vector<std::string>{OutputSetting(std::vector<std::pair<int, int>>(rows.begin(), rows.begin() + outputs))});
    }
}

namespace {

std::string LinkageSetting(int first, const std::string& firstItem, const std::string& secondItem) {
    const auto item = [](int n, const std::string& values) {
        return "<AlarmLinkageItem_" + std::to_string(n) + " " + values + "></AlarmLinkageItem_" + std::to_string(n) + ">";
    };
    return R"(<VariCfgSec Action="DEVICE_SET"><stAlarmLinkage StartChn=")" + std::to_string(first) +
           R"("><stAlarmLinkageItem>)" + item(first, firstItem) + item(first + 1, secondItem) +
           "</stAlarmLinkageItem></stAlarmLinkage></VariCfgSec>";
}

std::vector<std::string> Queries(const FakeRecorder& recorder, std::size_t from) {
    std::vector<std::string> queries;
    for (std::size_t i = from; i < recorder.requests.size(); ++i) {
        const std::string& text = recorder.requests[i].text;
        if (text.find("DEVICE_QUERY") != std::string::npos) queries.push_back(text.substr(34, text.find('>', 34) - 34));
    }
    return queries;
}

}  // namespace

TEST(AlarmLinkagePage, ReadsAndWritesHalfPagesAndTheFixedEventsBeyondTheInputs) {
    PageUnderTest page(std::make_unique<CDlgTabAlarmCfgLinkage>(), ModelWith(4));
    page.recorder.SetQueryReply("stAlarmIn", AlarmInReply(0, 4));
    page.recorder.SetQueryReply(
        "stAlarmLinkage",
        LinkageReply(R"(<AlarmLinkageItem_0 usAlarmRecordCh="3" usAlarmSendCh="1" usAlarmSnapCh="773" usViewChnNo="2" />)"
                     R"(<AlarmLinkageItem_1 usViewChnNo="9" /><AlarmLinkageItem_27 usAlarmRecordCh="15" ucViewChnNo="4" />)"));
    ASSERT_EQ(page.Page().Refresh(), 1);
    EXPECT_EQ(Queries(page.recorder, 0), (std::vector<std::string>{R"(<stAlarmIn StartChn="0")", R"(<stAlarmLinkage StartChn="0")",
                                                                   R"(<stAlarmLinkage StartChn="2")"}));
    EXPECT_EQ(static_cast<CDlgTabAlarmCfgLinkage&>(page.Page()).Row(0).snapshot, 5);
    EXPECT_EQ(static_cast<CDlgTabAlarmCfgLinkage&>(page.Page()).Row(0).snapshotSend, 3);
    EXPECT_EQ(ComboSelection(page.Hwnd(), IDC_LINKAGE_EVENT_FIRST + 1), 4) << "input 1's function";
    EXPECT_EQ(Shown(page.Hwnd(), IDC_LINKAGE_VIEW_FIRST), L"CH2");
    EXPECT_EQ(Shown(page.Hwnd(), IDC_LINKAGE_VIEW_FIRST + 1), L"ALL") << "a view beyond the channels keeps the list";
    page.TakeSettings();
    EXPECT_EQ(page.Page().Save(), 1);
    const std::string first = R"(usAlarmRecordCh="3" usAlarmSendCh="1" usAlarmSnapCh="773"  usViewChnNo="2" ucViewChnNo="2")";
    const std::string empty = R"(usAlarmRecordCh="0" usAlarmSendCh="0" usAlarmSnapCh="0"  usViewChnNo="0" ucViewChnNo="0")";
    EXPECT_EQ(page.TakeSettings(), (std::vector<std::string>{LinkageSetting(0, first, empty), LinkageSetting(2, empty, empty)}));

    // The page after the inputs: the fixed events, read from item 27 only, written as 27, 28 and 30, 31.
    const std::size_t before = page.recorder.requests.size();
    Click(page.Hwnd(), IDC_LINKAGE_NEXT);
    EXPECT_EQ(Queries(page.recorder, before), std::vector<std::string>{R"(<stAlarmLinkage StartChn="27")"});
    EXPECT_FALSE(Enabled(page.Hwnd(), IDC_LINKAGE_NEXT));
    EXPECT_TRUE(Enabled(page.Hwnd(), IDC_LINKAGE_PREVIOUS));
    for (int r = 0; r < 4; ++r) {
        EXPECT_TRUE(Visible(page.Hwnd(), IDC_LINKAGE_VIEW_FIRST + r));
        EXPECT_EQ(ComboSelection(page.Hwnd(), IDC_LINKAGE_EVENT_FIRST + r), 25 + r);
    }
    page.TakeSettings();
    EXPECT_EQ(page.Page().Save(), 1);
    const std::vector<std::string> sent = page.TakeSettings();
    ASSERT_EQ(sent.size(), 2u);
    EXPECT_NE(sent[0].find(R"(StartChn="27"><stAlarmLinkageItem><AlarmLinkageItem_27 usAlarmRecordCh="15")"), std::string::npos);
    EXPECT_NE(sent[1].find(R"(StartChn="30"><stAlarmLinkageItem><AlarmLinkageItem_30 )"), std::string::npos);
}

TEST(AlarmLinkagePage, ShowsTheFixedEventsFirstWithoutInputsAndPicksChannelsThroughItsDialogs) {
    PageUnderTest page(std::make_unique<CDlgTabAlarmCfgLinkage>(), ModelWith(0));
    page.recorder.SetQueryReply("stAlarmLinkage", LinkageReply(R"(<AlarmLinkageItem_27 usAlarmRecordCh="257" />)"));
    ASSERT_EQ(page.Page().Refresh(), 1);
    EXPECT_EQ(Queries(page.recorder, 0), std::vector<std::string>{R"(<stAlarmLinkage StartChn="27")"});
    for (int r = 0; r < 4; ++r) EXPECT_TRUE(Visible(page.Hwnd(), IDC_LINKAGE_EVENT_FIRST + r));

    // OK rebuilds both sets from the boxes (bit 8 goes); Cancel keeps them.
    page.watcher.Inspect([](HWND box) {
        if (GetDlgItem(box, IDC_LINK_RECORD_SEND_FIRST + 2) == nullptr) return;
        EXPECT_EQ(IsChecked(box, IDC_LINK_RECORD_RECORD_FIRST), true);
        EXPECT_FALSE(IsWindowVisible(GetDlgItem(box, IDC_LINK_RECORD_RECORD_FIRST + 4)));
        SetChecked(box, IDC_LINK_RECORD_SEND_FIRST + 2, true);
    });
    page.watcher.Queue(Answer::Click(IDOK));
    Click(page.Hwnd(), IDC_LINKAGE_RECORD_FIRST);
    EXPECT_EQ(static_cast<CDlgTabAlarmCfgLinkage&>(page.Page()).Row(0).record, 1);
    EXPECT_EQ(static_cast<CDlgTabAlarmCfgLinkage&>(page.Page()).Row(0).recordSend, 4);
    page.watcher.Inspect([](HWND box) { SetChecked(box, IDC_LINK_SNAPSHOT_SNAPSHOT_FIRST, true); });
    page.watcher.Queue(Answer::Click(IDCANCEL));
    Click(page.Hwnd(), IDC_LINKAGE_SNAPSHOT_FIRST + 1);
    EXPECT_EQ(static_cast<CDlgTabAlarmCfgLinkage&>(page.Page()).Row(1).snapshot, 0);
    page.watcher.Queue(Answer::Click(IDOK));
    Click(page.Hwnd(), IDC_LINKAGE_SNAPSHOT_FIRST + 1);
    EXPECT_EQ(static_cast<CDlgTabAlarmCfgLinkage&>(page.Page()).Row(1).snapshot, 1);
    ASSERT_EQ(page.watcher.Seen().size(), 3u);
    EXPECT_EQ(page.watcher.Seen()[0].title, CLanguage::Instance().Text(24065));
    EXPECT_EQ(page.watcher.Seen()[1].title, CLanguage::Instance().Text(24200));
}

namespace {

std::string VdaReply(const std::string& channel) {
    return QueryReplyOf("stVda", R"(ucFD_AccLimitMD="1")", "<stVdaPara>" + channel + "</stVdaPara>");
}

}  // namespace

TEST(AlarmMotionPage, ReadsMinutesFromSecondsRefusesAnEndBeforeItsStartAndEditsTheAreaGrid) {
    PageUnderTest page(std::make_unique<CDlgTabAlarmCfgVmd>(), "MR4-A1");
    page.recorder.SetQueryReply(
        "stVda", VdaReply(R"(<VChn_0 ucFD_Enable="1" ucFD_Wday1="3" uiStartT1="30600" uiEndT1="72000" ucFD_Percent="7" )"
                          R"(uiFD_Mask="1023,1023,1,,5" /><VChn_8 ucFD_Enable="0" />)"));
    ASSERT_EQ(page.Page().Refresh(), 1);
    EXPECT_EQ(Shown(page.Hwnd(), IDC_VMD_PERIOD1_START_HOUR), L"8");
    EXPECT_EQ(Shown(page.Hwnd(), IDC_VMD_PERIOD1_START_MINUTE), L"0");
    EXPECT_EQ(Shown(page.Hwnd(), IDC_VMD_PERIOD1_DAY_FIRST + 6), L"1") << "bit 0 is the seventh day";
    EXPECT_EQ(Shown(page.Hwnd(), IDC_VMD_PERIOD1_DAY_FIRST), L"1") << "bit 1 is the first day";
    EXPECT_EQ(Shown(page.Hwnd(), IDC_VMD_SENSITIVITY), L"L");
    std::string mask = "1023,1023,1,0,";
    for (int row = 4; row < 32; ++row) mask += "0,";
    EXPECT_EQ(static_cast<CDlgTabAlarmCfgVmd&>(page.Page()).AreaText(), mask);

    // The grid: a click toggles a cell, OK keeps it, Cancel does not.
    page.watcher.Inspect([](HWND box) {
        SendMessageW(box, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20 + 40 * 2 + 5, 10 + 40 * 3 + 5));
        SendMessageW(box, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20 + 40 * 0 + 5, 10 + 5));
        SendMessageW(box, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20 + 40 * 10 + 5, 10 + 5));  // beyond the grid
    });
    page.watcher.Queue(Answer::Click(IDCANCEL));
    Click(page.Hwnd(), IDC_VMD_AREA);
    EXPECT_EQ(static_cast<CDlgTabAlarmCfgVmd&>(page.Page()).AreaText(), mask);
    page.watcher.Queue(Answer::Click(IDOK));
    Click(page.Hwnd(), IDC_VMD_AREA);
    mask.replace(0, 14, "1022,1023,1,4,");
    EXPECT_EQ(static_cast<CDlgTabAlarmCfgVmd&>(page.Page()).AreaText(), mask);

    // Period 2 starts at hour 45: allowed there, sent as 162000 seconds.
    Enter(page.Hwnd(), IDC_VMD_PERIOD2_START_HOUR, L"45");
    Enter(page.Hwnd(), IDC_VMD_PERIOD2_END_HOUR, L"23");
    page.TakeSettings();
    EXPECT_EQ(page.Page().Save(), 0) << "period 2 ends before it starts";
    EXPECT_TRUE(page.TakeSettings().empty());
    Enter(page.Hwnd(), IDC_VMD_PERIOD2_START_HOUR, L"0");
    EXPECT_EQ(page.Page().Save(), 1);
    EXPECT_EQ(page.TakeSettings(),
              std::vector<std::string>{
                  R"(<VariCfgSec Action="DEVICE_SET"><stVda StartChn="0"><stVdaPara><VChn_0 ucFD_Enable="1" ucFD_Wday1="3" )"
                  R"(uiStartT1="28800" uiEndT1="72000" ucFD_Wday2="0" uiStartT2="0" uiEndT2="82800" ucFD_Wday3="0" )"
                  R"(uiStartT3="0" uiEndT3="0" ucFD_Percent="0" uiFD_Mask=")" + mask +
                  R"("></VChn_0></stVdaPara></stVda></VariCfgSec>)"});
    // Hour 45 in period 1 is refused by its range; the save goes on with the values taken.
    Enter(page.Hwnd(), IDC_VMD_PERIOD1_START_HOUR, L"45");
    page.watcher.Queue(Answer::Key(VK_RETURN));
    EXPECT_EQ(page.Page().Save(), 1);
}
