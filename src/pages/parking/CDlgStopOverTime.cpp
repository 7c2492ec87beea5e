#include "pages/parking/CDlgStopOverTime.h"

#include <cwchar>

#include "base/Validators.h"
#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"
#include "ui/win/DataExchange.h"

using namespace varcfg;

namespace {

struct SpeedAlarmRecord {
    uint8_t lowSpeedEnable;
    uint8_t lowSpeedUnit;
    uint16_t lowSpeed;
    uint16_t clearLowSpeed;
    uint16_t lowDuration;
    uint8_t overSpeedEnable;
    uint8_t overSpeedUnit;
    uint16_t overSpeed;
    uint16_t clearOverSpeed;
    uint16_t overDuration;
    uint8_t parkingEnable;
    uint8_t parkingTimeUnit;
    uint32_t parkingOvertime;
    uint8_t fatigueEnable;
    uint16_t drivingTime;
    uint16_t restTime;
};

constexpr Binding<SpeedAlarmRecord> kSpeedAlarmBindings[] = {
    VARCFG_BIND(SpeedAlarmRecord, lowSpeedEnable, "ucFD_LowSpeedIsEnable", Integer).InCheck(IDC_PARK_LOW_ENABLE),
    VARCFG_BIND(SpeedAlarmRecord, lowSpeedUnit, "ucFD_LowSpeedUnit", Integer)
        .InComboIndex(IDC_PARK_LOW_UNIT, Unlisted::Clear),
    VARCFG_BIND(SpeedAlarmRecord, lowSpeed, "usFD_LowSpeed", Integer).InText(IDC_PARK_LOW_SPEED, 3),
    VARCFG_BIND(SpeedAlarmRecord, clearLowSpeed, "usFD_ClearLowSpeed", Integer).InText(IDC_PARK_LOW_CLEAR, 3),
    VARCFG_BIND(SpeedAlarmRecord, lowDuration, "usFD_LowDurTime", Integer).InText(IDC_PARK_LOW_DURATION),
    VARCFG_BIND(SpeedAlarmRecord, overSpeedEnable, "ucFD_OverSpeedIsEnable", Integer).InCheck(IDC_PARK_OVER_ENABLE),
    VARCFG_BIND(SpeedAlarmRecord, overSpeedUnit, "ucFD_OverSpeedUnit", Integer)
        .InComboIndex(IDC_PARK_OVER_UNIT, Unlisted::Clear),
    VARCFG_BIND(SpeedAlarmRecord, overSpeed, "usFD_OverSpeed", Integer).InText(IDC_PARK_OVER_SPEED, 3),
    VARCFG_BIND(SpeedAlarmRecord, clearOverSpeed, "usFD_ClearOverSpeed", Integer).InText(IDC_PARK_OVER_CLEAR, 3),
    VARCFG_BIND(SpeedAlarmRecord, overDuration, "usFD_OverDurTime", Integer).InText(IDC_PARK_OVER_DURATION),
    VARCFG_BIND(SpeedAlarmRecord, parkingEnable, "ucFD_PeakingIsEnable", Integer).InCheck(IDC_PARK_OVERTIME_ENABLE),
    VARCFG_BIND(SpeedAlarmRecord, parkingTimeUnit, "ucFD_TimeUnit", Integer)
        .InComboIndex(IDC_PARK_OVERTIME_UNIT, Unlisted::Clear),
    VARCFG_BIND(SpeedAlarmRecord, parkingOvertime, "uiFD_OverTime", Integer).InText(IDC_PARK_OVERTIME, 9),
    VARCFG_BIND(SpeedAlarmRecord, fatigueEnable, "ucFD_FatigueEnable", Integer).InCheck(IDC_PARK_FATIGUE_ENABLE),
    // Shown by the page: a time below its minimum is shown as a default.
    VARCFG_BIND(SpeedAlarmRecord, drivingTime, "usFD_DrivingTime", Integer),
    VARCFG_BIND(SpeedAlarmRecord, restTime, "usFD_RestTime", Integer),
};
// The recorder's answer to this query may be longer than the standard record holds.
constexpr Section<SpeedAlarmRecord> kSpeedAlarm{"stSpeedAlarm", kSpeedAlarmBindings, RecordSize::Large};

// The overtime goes into both overtime attributes: the recorder reads one or the other.
constexpr wchar_t kSpeedAlarmSetting[] =
    L"<VariCfgSec Action=\"DEVICE_SET\"><stSpeedAlarm ucFD_LowSpeedIsEnable=\"%d\" ucFD_LowSpeedUnit=\"%d\" "
    L"usFD_LowSpeed=\"%s\" usFD_ClearLowSpeed=\"%s\" usFD_LowDurTime=\"%s\" ucFD_OverSpeedIsEnable=\"%d\" "
    L"ucFD_OverSpeedUnit=\"%d\" usFD_OverSpeed=\"%s\" usFD_ClearOverSpeed=\"%s\" usFD_OverDurTime=\"%s\" "
    L"ucFD_PeakingIsEnable=\"%d\" ucFD_TimeUnit=\"%d\" uiFD_OverTime=\"%s\" usFD_OverTime=\"%s\" "
    L"ucFD_FatigueEnable=\"%d\" usFD_DrivingTime=\"%d\" usFD_RestTime=\"%d\" /></VariCfgSec>";

constexpr long long kDrivingTimeMin = 30;
constexpr long long kRestTimeMin = 15;
constexpr long long kFatigueTimeMax = 9999;
constexpr long long kDrivingTimeShownBelowMin = 120;
constexpr long long kRestTimeShownBelowMin = 30;

// A typed time is kept even when its range then refuses it: the save goes on and sends it.
void TakeFatigueTime(DataExchange& dx, HWND page, int control, long long& value, long long min) {
    if (dx.Failed()) return;
    const std::wstring typed = ItemText(page, control);
    if (!typed.empty() && IsDigitString(typed)) value = std::wcstoll(typed.c_str(), nullptr, 10);
    dx.Number(control, value, min, kFatigueTimeMax);
}

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
        if (loaded.drivingTime < kDrivingTimeMin) loaded.drivingTime = static_cast<uint16_t>(kDrivingTimeShownBelowMin);
        if (loaded.restTime < kRestTimeMin) loaded.restTime = static_cast<uint16_t>(kRestTimeShownBelowMin);
    });
    if (result == 1) {
        drivingTime_ = record.drivingTime;
        restTime_ = record.restTime;
        DataExchange show(*this, false);
        show.Number(IDC_PARK_DRIVING_TIME, drivingTime_, kDrivingTimeMin, kFatigueTimeMax);
        show.Number(IDC_PARK_REST_TIME, restTime_, kRestTimeMin, kFatigueTimeMax);
    }
    Redraw();
    return result;
}

int CDlgStopOverTime::Save() {
    // Unlike other pages, a refused field does not stop this save: the operator has been told, and the
    // setting goes out with the values the fields then hold (this page's established behaviour).
    // The transfer itself stops at the refused field: the fields after it keep their values.
    if (TakeSection(kSpeedAlarm)) {
        DataExchange take(*this, true);
        TakeFatigueTime(take, Hwnd(), IDC_PARK_DRIVING_TIME, drivingTime_, kDrivingTimeMin);
        TakeFatigueTime(take, Hwnd(), IDC_PARK_REST_TIME, restTime_, kRestTimeMin);
    }
    const std::wstring& overtime = Text(IDC_PARK_OVERTIME);
    const int result = SendSetting(FillTemplate(
        kSpeedAlarmSetting,
        {Number(IDC_PARK_LOW_ENABLE), Number(IDC_PARK_LOW_UNIT), Text(IDC_PARK_LOW_SPEED), Text(IDC_PARK_LOW_CLEAR),
         Text(IDC_PARK_LOW_DURATION), Number(IDC_PARK_OVER_ENABLE), Number(IDC_PARK_OVER_UNIT),
         Text(IDC_PARK_OVER_SPEED), Text(IDC_PARK_OVER_CLEAR), Text(IDC_PARK_OVER_DURATION),
         Number(IDC_PARK_OVERTIME_ENABLE), Number(IDC_PARK_OVERTIME_UNIT), overtime, overtime,
         Number(IDC_PARK_FATIGUE_ENABLE), drivingTime_, restTime_}));
    Redraw();
    return result == 1 ? 1 : 0;
}
