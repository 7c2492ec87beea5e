#include "pages/other/CDlgOtherSetup.h"

#include <initializer_list>
#include <vector>

#include "catalogue/SystemCatalogue.h"
#include "protocol/ConfigTask.h"
#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"
#include "ui/win/DataExchange.h"
#include "ui/win/MsgTip.h"

using namespace varcfg;

namespace {

// Both sections are decoded by CConfig_Task (the device number has its own rule); these rows show and
// take the members.
constexpr Binding<BaseInfoRecord> kBaseInfoBindings[] = {
    BindAttribute(kBaseInfoFields, "ucFD_TimeZone").InComboIndex(IDC_OTHER_ZONE_HOURS, Unlisted::Keep),
    BindAttribute(kBaseInfoFields, "ucFD_TZAdjust").InComboIndex(IDC_OTHER_ZONE_MINUTES, Unlisted::Clear),
    BindAttribute(kBaseInfoFields, "ucFD_GpsSTFlag").InCheck(IDC_OTHER_GPS_SYNC),
    BindAttribute(kBaseInfoFields, "ucFD_DstEnable").InCheck(IDC_OTHER_DST_ENABLE),
    BindAttribute(kBaseInfoFields, "usFD_DstAdjust").InComboIndex(IDC_OTHER_DST_ADJUST, Unlisted::Keep),
    BindAttribute(kBaseInfoFields, "ucFD_DstFromMon").InComboIndex(IDC_OTHER_DST_START_MONTH, Unlisted::Clear),
    BindAttribute(kBaseInfoFields, "ucFD_DstFromDay").InComboIndex(IDC_OTHER_DST_START_WEEK, Unlisted::Clear),
    BindAttribute(kBaseInfoFields, "ucFD_DstToMon").InComboIndex(IDC_OTHER_DST_END_MONTH, Unlisted::Clear),
    BindAttribute(kBaseInfoFields, "ucFD_DstToDay").InComboIndex(IDC_OTHER_DST_END_WEEK, Unlisted::Clear),
};
constexpr Section<BaseInfoRecord> kBaseInfo{kBaseInfoSection, kBaseInfoBindings};

constexpr Binding<PowerRecord> kPowerBindings[] = {
    BindAttribute(kPowerFields, "usPOffDelayTime").InNumber(IDC_OTHER_POWER_OFF_DELAY, 0, 65535),
};
constexpr Section<PowerRecord> kPower{kPowerSection, kPowerBindings};

// The action requests leave their element open: the recorder accepts them only so.
constexpr wchar_t kFormatRequest[] = L"<VariCfgSec Action=\"DEVICE_FORMAT\"><stDisk DiskNo=\"%d\"></VariCfgSec>";
constexpr wchar_t kClockRequest[] = L"<VariCfgSec Action=\"DEVICE_TIME\"><stTime strTime=\"%s\"></VariCfgSec>";

constexpr UINT_PTR kClockTimer = 999;
constexpr UINT kClockTimerPeriodMs = 1000;

constexpr int kDiskCount = 4;
constexpr int kZoneHoursWest = 12;  // the time zone list runs from GMT - 12 to GMT + 12
constexpr int kZoneHoursCount = 2 * kZoneHoursWest + 1;
constexpr int kZoneMinutesStep = 15;
constexpr int kZoneMinutesCount = 4;
constexpr int kDstAdjustCount = 5;  // 0 to 60 minutes in steps of 15
constexpr int kMonthCount = 12;
constexpr int kLastWeek = 4;

// The month lists as recorders' operators know them; the end list's July has always carried a blank.
constexpr const wchar_t* kStartMonths[] = {L"Jan",  L"Feb", L"Mar",  L"Apr", L"May", L"June",
                                           L"July", L"Aug", L"Sept", L"Oct", L"Nov", L"Dec"};
constexpr const wchar_t* kEndMonths[] = {L"Jan",   L"Feb", L"Mar",  L"Apr", L"May", L"June",
                                         L" July", L"Aug", L"Sept", L"Oct", L"Nov", L"Dec"};
// "Last" carries the data of the 4th week; the page takes the index, so it is written as 4.
constexpr const wchar_t* kWeeks[] = {L"1st", L"2nd", L"3rd", L"4th", L"Last"};
constexpr LPARAM kWeekData[] = {0, 1, 2, 3, 3};

// A picker that holds no time reads as zeros for the date and -1 for the time.
constexpr wchar_t kUnreadableClock[] = L"0000-00-00 -1:-1:-1";
constexpr std::size_t kDateLength = 10;

// The record as its lists show it: the zone minutes by their entry, a month from 1 to 12 and a week up
// to 4 as their entries (the 12th month has none and clears its list), anything else as the first.
BaseInfoRecord AsShown(BaseInfoRecord record) {
    const int minutes = record.tzAdjust;
    record.tzAdjust = static_cast<uint8_t>(
        minutes % kZoneMinutesStep == 0 && minutes / kZoneMinutesStep < kZoneMinutesCount ? minutes / kZoneMinutesStep
                                                                                           : 0);
    for (uint8_t* month : {&record.dstFromMon, &record.dstToMon}) {
        if (*month < 1 || *month > kMonthCount) *month = 0;
    }
    for (uint8_t* week : {&record.dstFromDay, &record.dstToDay}) {
        if (*week > kLastWeek) *week = 0;
    }
    return record;
}

// The delay counts only when the recorder has it enabled.
PowerRecord AsShown(PowerRecord record) {
    if (record.powerOnDelayEnable == 0) record.powerOffDelayMinutes = 0;
    return record;
}

void AddEntry(HWND page, int list, const std::wstring& text) { ComboAdd(page, list, text, ComboCount(page, list)); }

bool Confirmed(HWND page, const std::wstring& text, const std::wstring& title) {
    return MessageBoxW(page, text.c_str(), title.c_str(), MB_OKCANCEL | MB_ICONQUESTION) == IDOK;
}

// The base information a zeroed record gives: the last record before anything was read.
std::wstring ZeroBaseInfoSetting() {
    const TemplateText& setting = kBaseInfoSection.settings[0].head;
    const std::vector<TemplateArg> zeros(setting.sourceCount, TemplateArg(0));
    return FillTemplate(setting.text, zeros.data(), zeros.size());
}

}  // namespace

CDlgOtherSetup::CDlgOtherSetup() : CDlgCfgBase(IDD_OTHER_SETUP), lastBaseInfoSetting_(ZeroBaseInfoSetting()) {}

BOOL CDlgOtherSetup::OnInitDialog() {
    CLanguage& language = CLanguage::Instance();
    SetCaptions(Hwnd(), {{IDC_OTHER_DISK_GROUP, 12016},        {IDC_OTHER_DISK_LABEL, 12018},
                         {IDC_OTHER_FORMAT, 12016},            {IDC_OTHER_CLOCK_GROUP, 21101},
                         {IDC_OTHER_AUTO_UPDATE, 24162},       {IDC_OTHER_SET_CLOCK, 24063},
                         {IDC_OTHER_ZONE_GROUP, 22006},        {IDC_OTHER_ZONE_LABEL, 22006},
                         {IDC_OTHER_ZONE_MINUTES_UNIT, 21103}, {IDC_OTHER_GPS_SYNC_LABEL, 23034},
                         {IDC_OTHER_DST_GROUP, 24111},         {IDC_OTHER_DST_ENABLE_LABEL, 11004},
                         {IDC_OTHER_DST_ADJUST_LABEL, 24112},  {IDC_OTHER_DST_ADJUST_UNIT, 21103},
                         {IDC_OTHER_DST_START_LABEL, 24113},   {IDC_OTHER_DST_START_WEEK_LABEL, 14023},
                         {IDC_OTHER_DST_END_LABEL, 24114},     {IDC_OTHER_DST_END_WEEK_LABEL, 14023},
                         {IDC_OTHER_POWER_GROUP, 14011},       {IDC_OTHER_POWER_OFF_LABEL, 14012},
                         {IDC_OTHER_POWER_OFF_UNIT, 21103}});
    for (int disk = 1; disk <= kDiskCount; ++disk) {
        AddEntry(Hwnd(), IDC_OTHER_DISK, language.Text(23032) + std::to_wstring(disk));
    }
    ComboSelect(Hwnd(), IDC_OTHER_DISK, 0);
    for (int zone = 0; zone < kZoneHoursCount; ++zone) {
        const bool west = zone < kZoneHoursWest;
        AddEntry(Hwnd(), IDC_OTHER_ZONE_HOURS,
                 FillTemplate(west ? L"%s - %02d" : L"%s + %02d",
                              {L"GMT", west ? kZoneHoursWest - zone : zone - kZoneHoursWest}));
    }
    for (int entry = 0; entry < kZoneMinutesCount; ++entry) {
        AddEntry(Hwnd(), IDC_OTHER_ZONE_MINUTES, FillTemplate(L"%02d", {entry * kZoneMinutesStep}));
    }
    for (int entry = 0; entry < kDstAdjustCount; ++entry) {
        AddEntry(Hwnd(), IDC_OTHER_DST_ADJUST, FillTemplate(L"%02d", {entry * kZoneMinutesStep}));
    }
    for (int month = 0; month < kMonthCount; ++month) {
        AddEntry(Hwnd(), IDC_OTHER_DST_START_MONTH, kStartMonths[month]);
        AddEntry(Hwnd(), IDC_OTHER_DST_END_MONTH, kEndMonths[month]);
    }
    for (int week = 0; week <= kLastWeek; ++week) {
        ComboAdd(Hwnd(), IDC_OTHER_DST_START_WEEK, kWeeks[week], kWeekData[week]);
        ComboAdd(Hwnd(), IDC_OTHER_DST_END_WEEK, kWeeks[week], kWeekData[week]);
    }
    BaseInfoRecord defaults{};
    defaults.timeZone = kZoneHoursWest;
    ShowSection(kBaseInfo, defaults);
    ShowSection(kPower, PowerRecord{});
    SetChecked(Hwnd(), IDC_OTHER_AUTO_UPDATE, followLocalClock_);
    SetTimer(Hwnd(), kClockTimer, kClockTimerPeriodMs, nullptr);
    return TRUE;
}

void CDlgOtherSetup::OnCommand(int id, int code) {
    if (code == BN_CLICKED && id == IDC_OTHER_AUTO_UPDATE) {
        followLocalClock_ = IsChecked(Hwnd(), IDC_OTHER_AUTO_UPDATE);
    } else if (code == BN_CLICKED && id == IDC_OTHER_FORMAT) {
        FormatDisk();
    } else if (code == BN_CLICKED && id == IDC_OTHER_SET_CLOCK) {
        SetDeviceClock();
    } else {
        CDlgCfgBase::OnCommand(id, code);
    }
}

void CDlgOtherSetup::OnTimer(UINT_PTR timer) {
    if (timer != kClockTimer) return CDlgCfgBase::OnTimer(timer);
    if (!followLocalClock_) return;
    SYSTEMTIME now{};
    GetLocalTime(&now);
    SetDateTimeValue(Hwnd(), IDC_OTHER_TIME, now);
}

std::vector<SectionInfo> CDlgOtherSetup::DeclaredSections() const { return {Info(kBaseInfo), Info(kPower)}; }

int CDlgOtherSetup::Refresh() {
    QueryReply baseInfoReply;
    const int baseInfoResult = Query(QueryText(kBaseInfo.name), baseInfoReply);
    if (baseInfoResult == -1) return -1;
    int result = 0;
    BaseInfoRecord baseInfo{};
    if (baseInfoResult == 1 && CConfig_Task::Import_stBaseInfo(*baseInfoReply.Section(), baseInfo)) {
        ShowSection(kBaseInfo, AsShown(baseInfo));
        // A record read from the recorder carries its device number, which a setting never does: the
        // next save writes the base information whatever the operator changed.
        lastBaseInfoSetting_.clear();
        result = 1;
    }
    QueryReply powerReply;
    const int powerResult = Query(QueryText(kPower.name), powerReply);
    PowerRecord power{};
    if (powerResult == 1 && CConfig_Task::Import_stPower(*powerReply.Section(), power)) {
        ShowSection(kPower, AsShown(power));
        result = 1;
    } else if (powerResult != 0) {
        result = powerResult == -1 ? -1 : 0;
    }
    Redraw();
    return result;
}

int CDlgOtherSetup::Save() {
    if (!TakeSection(kBaseInfo) || !TakeSection(kPower)) return -1;
    int result = 1;
    const std::wstring baseInfo = SettingText(Info(kBaseInfo));
    if (baseInfo != lastBaseInfoSetting_) {
        result = SendSetting(baseInfo);
        if (result == -1) {
            Redraw();
            return 0;
        }
        if (result == 1) lastBaseInfoSetting_ = baseInfo;
    }
    if (SectionChanged(kPower)) {
        result = SendSection(kPower) == 1 ? 1 : 0;
        if (result == 1) AcceptSection(kPower);
    }
    Redraw();
    return result;
}

void CDlgOtherSetup::FormatDisk() {
    CLanguage& language = CLanguage::Instance();
    const int disk = ComboSelection(Hwnd(), IDC_OTHER_DISK);
    if (!Confirmed(Hwnd(), FillTemplate(L"%s %d", {language.Text(23033), disk + 1}), language.Text(12018))) return;
    // The tips as operators know them: a refusal numbers the disk from 1; any other outcome, a lost
    // reply included, reads as done and numbers the disk from 0.
    const bool refused = SendSetting(FillTemplate(kFormatRequest, {disk})) == -1;
    ShowMsgTip(FillTemplate(L"%s:[%d],%s", {language.Text(12018), refused ? disk + 1 : disk,
                                            language.Text(refused ? 21008 : 21007)}));
}

void CDlgOtherSetup::SetDeviceClock() {
    CLanguage& language = CLanguage::Instance();
    const std::wstring date = PickerText(IDC_OTHER_DATE).substr(0, kDateLength);
    if (!Confirmed(Hwnd(), FillTemplate(L"%s %s", {language.Text(24095), date + TimeOfDay()}), language.Text(24096))) {
        return;
    }
    // The time picker may have followed the local clock while the question was open: its time is read
    // again, the date stays the one the operator confirmed. As for the format, a lost reply reads as done.
    const bool refused = SendSetting(FillTemplate(kClockRequest, {date + TimeOfDay()})) == -1;
    ShowMsgTip(FillTemplate(L"%s:%s", {language.Text(24096), language.Text(refused ? 21008 : 21007)}));
}

std::wstring CDlgOtherSetup::PickerText(int control) {
    std::wstring text = kUnreadableClock;
    DataExchange take(*this, true);
    take.DateTime(control, text);
    return text;
}

std::wstring CDlgOtherSetup::TimeOfDay() { return PickerText(IDC_OTHER_TIME).substr(kDateLength); }
