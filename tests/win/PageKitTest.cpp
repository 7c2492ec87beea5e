// The page kit on a real dialog: one declared section loaded into every kind of control, taken back
// with validation in table order, and compared with its baseline.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "FakeRecorder.h"
#include "ModalWatcher.h"
#include "PageHarness.h"
#include "TestHostWindow.h"
#include "pages/base/CDlgCfgBase.h"
#include "res/resource.h"
#include "ui/win/Controls.h"

using namespace varcfg;
using varcfg::test::Answer;
using varcfg::test::Enter;
using varcfg::test::Shown;

namespace {

struct KitRecord {
    uint16_t delay;
    uint8_t gpsSync;
    uint8_t zoneHours;
    uint8_t zoneMinutes;
    char clock[24];
    uint32_t notShown;
};

constexpr Binding<KitRecord> kKitBindings[] = {
    VARCFG_BIND(KitRecord, delay, "usDelay", Integer).InNumber(IDC_OTHER_POWER_OFF_DELAY, 0, 65535),
    VARCFG_BIND(KitRecord, gpsSync, "ucNoSync", Integer).InInvertedCheck(IDC_OTHER_GPS_SYNC),
    VARCFG_BIND(KitRecord, zoneHours, "ucHours", Integer).InComboIndex(IDC_OTHER_ZONE_HOURS, Unlisted::Keep),
    VARCFG_BIND(KitRecord, zoneMinutes, "ucMinutes", Integer).InComboData(IDC_OTHER_ZONE_MINUTES, Unlisted::Clear, 99),
    VARCFG_BIND(KitRecord, clock, "strClock", Text).InDateTime(IDC_OTHER_DATE),
    VARCFG_BIND(KitRecord, notShown, "uiHidden", Integer),
};
constexpr Section<KitRecord> kKit{"stKit", kKitBindings};

class KitPage : public CDlgCfgBase {
public:
    KitPage() : CDlgCfgBase(IDD_OTHER_SETUP) {}
    int Refresh() override { return LoadSection(kKit, record); }
    bool Take() { return TakeSection(kKit); }
    bool Changed() const { return SectionChanged(kKit); }
    void Accept() { AcceptSection(kKit); }
    using CDlgCfgBase::Number;
    using CDlgCfgBase::Text;
    KitRecord record{};

protected:
    BOOL OnInitDialog() override {
        for (const wchar_t* hours : {L"-1", L"0", L"+1"}) ComboAdd(Hwnd(), IDC_OTHER_ZONE_HOURS, hours, 0);
        ComboAdd(Hwnd(), IDC_OTHER_ZONE_MINUTES, L"0", 0);
        ComboAdd(Hwnd(), IDC_OTHER_ZONE_MINUTES, L"30", 30);
        return TRUE;
    }
};

}  // namespace

TEST(PageKit, LoadsEveryKindOfControlTakesThemBackInOrderAndKnowsWhatChanged) {
    varcfg::test::PageUnderTest page(std::make_unique<KitPage>(), "MR4-A1");
    auto& kit = static_cast<KitPage&>(page.Page());
    HWND dialog = page.Hwnd();
    page.recorder.SetSection("stKit", R"(usDelay="300" ucNoSync="1" ucHours="2" ucMinutes="30" )"
                                      R"(strClock="2024-05-06 07:08:09" uiHidden="7")");
    ASSERT_EQ(kit.Refresh(), 1);
    EXPECT_EQ(Shown(dialog, IDC_OTHER_POWER_OFF_DELAY), L"300");
    EXPECT_EQ(Shown(dialog, IDC_OTHER_GPS_SYNC), L"0") << "inverted: a set flag clears the box";
    EXPECT_EQ(Shown(dialog, IDC_OTHER_ZONE_HOURS), L"+1");
    EXPECT_EQ(Shown(dialog, IDC_OTHER_ZONE_MINUTES), L"30");
    EXPECT_EQ(Shown(dialog, IDC_OTHER_DATE).substr(0, 10), L"2024-05-06");
    EXPECT_EQ(kit.record.notShown, 7u) << "members that are not shown are decoded all the same";
    EXPECT_TRUE(kit.Take());
    EXPECT_FALSE(kit.Changed());

    // Values the lists do not offer: the hours keep their selection, the minutes lose theirs.
    page.recorder.SetSection("stKit", R"(usDelay="300" ucNoSync="1" ucHours="9" ucMinutes="7")");
    ASSERT_EQ(kit.Refresh(), 1);
    EXPECT_EQ(Shown(dialog, IDC_OTHER_ZONE_HOURS), L"+1");
    EXPECT_EQ(Shown(dialog, IDC_OTHER_ZONE_MINUTES), L"");
    EXPECT_TRUE(kit.Take());
    EXPECT_EQ(kit.Number(IDC_OTHER_ZONE_HOURS), 2);
    EXPECT_EQ(kit.Number(IDC_OTHER_ZONE_MINUTES), 99) << "the declared value for no selection";
    EXPECT_FALSE(kit.Changed());

    // A refused field stops the take there: it keeps the focus, and the fields after it their values.
    Enter(dialog, IDC_OTHER_POWER_OFF_DELAY, L"70000");
    Enter(dialog, IDC_OTHER_GPS_SYNC, L"1");
    page.watcher.Queue(Answer::Key(VK_RETURN));
    EXPECT_FALSE(kit.Take());
    ASSERT_EQ(page.watcher.Seen().size(), 1u);
    EXPECT_EQ(page.watcher.Seen()[0].Control(IDC_TIP_TEXT)->text, L"Please enter an integer between 0 and 65535.");
    EXPECT_EQ(GetFocus(), GetDlgItem(dialog, IDC_OTHER_POWER_OFF_DELAY));
    EXPECT_EQ(kit.Number(IDC_OTHER_GPS_SYNC), 0);

    Enter(dialog, IDC_OTHER_POWER_OFF_DELAY, L"0300");
    EXPECT_TRUE(kit.Take());
    EXPECT_EQ(kit.Number(IDC_OTHER_POWER_OFF_DELAY), 300);
    EXPECT_EQ(kit.Text(IDC_OTHER_POWER_OFF_DELAY), L"0300") << "the typed text is kept beside the number";
    EXPECT_TRUE(kit.Changed());
    kit.Accept();
    EXPECT_FALSE(kit.Changed()) << "accepted values are the new baseline";

    // A failed load changes nothing.
    page.recorder.transportFails = true;
    EXPECT_EQ(kit.Refresh(), 0);
    EXPECT_EQ(Shown(dialog, IDC_OTHER_POWER_OFF_DELAY), L"0300");
}
