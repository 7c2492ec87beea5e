#include "pages/parking/CDlgStopOverTime.h"

#include "catalogue/SystemCatalogue.h"
#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

constexpr long long kDrivingTimeMin = 30;
constexpr long long kRestTimeMin = 15;
constexpr long long kFatigueTimeMax = 9999;
constexpr uint16_t kDrivingTimeShownBelowMin = 120;
constexpr uint16_t kRestTimeShownBelowMin = 30;

// Speeds, thresholds, durations and the overtime are taken and sent as typed. A fatigue time that its
// range refuses is still taken: the save goes on and sends it.
constexpr Binding<SpeedAlarmRecord> kSpeedAlarmBindings[] = {
    BindAttribute(kSpeedAlarmFields, "ucFD_LowSpeedIsEnable").InCheck(IDC_PARK_LOW_ENABLE),
    BindAttribute(kSpeedAlarmFields, "ucFD_LowSpeedUnit").InComboIndex(IDC_PARK_LOW_UNIT, Unlisted::Clear),
    BindAttribute(kSpeedAlarmFields, "usFD_LowSpeed").InText(IDC_PARK_LOW_SPEED, 3),
    BindAttribute(kSpeedAlarmFields, "usFD_ClearLowSpeed").InText(IDC_PARK_LOW_CLEAR, 3),
    BindAttribute(kSpeedAlarmFields, "usFD_LowDurTime").InText(IDC_PARK_LOW_DURATION),
    BindAttribute(kSpeedAlarmFields, "ucFD_OverSpeedIsEnable").InCheck(IDC_PARK_OVER_ENABLE),
    BindAttribute(kSpeedAlarmFields, "ucFD_OverSpeedUnit").InComboIndex(IDC_PARK_OVER_UNIT, Unlisted::Clear),
    BindAttribute(kSpeedAlarmFields, "usFD_OverSpeed").InText(IDC_PARK_OVER_SPEED, 3),
    BindAttribute(kSpeedAlarmFields, "usFD_ClearOverSpeed").InText(IDC_PARK_OVER_CLEAR, 3),
    BindAttribute(kSpeedAlarmFields, "usFD_OverDurTime").InText(IDC_PARK_OVER_DURATION),
    BindAttribute(kSpeedAlarmFields, "ucFD_PeakingIsEnable").InCheck(IDC_PARK_OVERTIME_ENABLE),
    BindAttribute(kSpeedAlarmFields, "ucFD_TimeUnit").InComboIndex(IDC_PARK_OVERTIME_UNIT, Unlisted::Clear),
    BindAttribute(kSpeedAlarmFields, "uiFD_OverTime").InText(IDC_PARK_OVERTIME, 9),
    BindAttribute(kSpeedAlarmFields, "ucFD_FatigueEnable").InCheck(IDC_PARK_FATIGUE_ENABLE),
    BindAttribute(kSpeedAlarmFields, "usFD_DrivingTime")
        .InNumber(IDC_PARK_DRIVING_TIME, kDrivingTimeMin, kFatigueTimeMax)
        .KeepingOutOfRange(),
    BindAttribute(kSpeedAlarmFields, "usFD_RestTime").InNumber(IDC_PARK_REST_TIME, kRestTimeMin, kFatigueTimeMax).KeepingOutOfRange(),
};
constexpr Section<SpeedAlarmRecord> kSpeedAlarm{kSpeedAlarmSection, kSpeedAlarmBindings};

}  // namespace

CDlgStopOverTime::CDlgStopOverTime() : CDlgCfgBase(IDD_STOP_OVERTIME) {}

BOOL CDlgStopOverTime::OnInitDialog() {
    for (int unitList : {IDC_PARK_LOW_UNIT, IDC_PARK_OVER_UNIT}) {
        for (uint32_t textId : {23028u, 23029u, 23030u}) {
            ComboAdd(Hwnd(), unitList, CLanguage::Instance().Text(textId), ComboCount(Hwnd(), unitList));
        }
        ComboSelect(Hwnd(), unitList, 0);
    }
    ComboAdd(Hwnd(), IDC_PARK_OVERTIME_UNIT, CLanguage::Instance().Text(14013), 0);
    ComboSelect(Hwnd(), IDC_PARK_OVERTIME_UNIT, 0);
    SetCaptions(Hwnd(), {{IDC_PARK_LOW_GROUP, 23021},          {IDC_PARK_OVER_GROUP, 23022},
                         {IDC_PARK_OVERTIME_GROUP, 23024},     {IDC_PARK_FATIGUE_GROUP, 21105},
                         {IDC_PARK_LOW_ENABLE, 13001},         {IDC_PARK_OVER_ENABLE, 13001},
                         {IDC_PARK_OVERTIME_ENABLE, 13001},    {IDC_PARK_FATIGUE_ENABLE, 13001},
                         {IDC_PARK_LOW_UNIT_LABEL, 23023},     {IDC_PARK_OVER_UNIT_LABEL, 23023},
                         {IDC_PARK_OVERTIME_UNIT_LABEL, 23023}, {IDC_PARK_LOW_SPEED_LABEL, 23025},
                         {IDC_PARK_OVER_SPEED_LABEL, 23026},   {IDC_PARK_OVERTIME_LABEL, 23027},
                         {IDC_PARK_LOW_DURATION_LABEL, 24119}, {IDC_PARK_OVER_DURATION_LABEL, 24119},
                         {IDC_PARK_LOW_CLEAR_LABEL, 24120},    {IDC_PARK_OVER_CLEAR_LABEL, 24120},
                         {IDC_PARK_DRIVING_TIME_LABEL, 21102}, {IDC_PARK_REST_TIME_LABEL, 21104},
                         {IDC_PARK_DRIVING_TIME_UNIT, 21103},  {IDC_PARK_REST_TIME_UNIT, 21103}});
    return TRUE;
}

std::vector<SectionInfo> CDlgStopOverTime::DeclaredSections() const { return {Info(kSpeedAlarm)}; }

int CDlgStopOverTime::Refresh() {
    SpeedAlarmRecord record{};
    const int result = LoadSection(kSpeedAlarm, record, [](SpeedAlarmRecord& loaded) {
        if (loaded.drivingTime < kDrivingTimeMin) loaded.drivingTime = kDrivingTimeShownBelowMin;
        if (loaded.restTime < kRestTimeMin) loaded.restTime = kRestTimeShownBelowMin;
    });
    Redraw();
    return result;
}

int CDlgStopOverTime::Save() {
    // Unlike other pages, a refused field does not stop this save: the operator has been told, and the
    // setting goes out with the values the fields then hold (this page's established behaviour). The
    // transfer itself stops at the refused field: the fields after it keep their values.
    TakeSection(kSpeedAlarm);
    const int result = SendSection(kSpeedAlarm);
    Redraw();
    return result == 1 ? 1 : 0;
}
