#include "pages/alarm/CDlgTabAlarmCfgVmd.h"

#include "base/AnsiText.h"
#include "channel/DeviceVersion.h"
#include "pages/alarm/AlarmShared.h"
#include "pages/alarm/CAVmdAreaSet.h"
#include "protocol/AlarmSections.h"
#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"
#include "ui/win/DataExchange.h"

using namespace varcfg;

namespace {

struct PeriodControls {
    int group, startLabel, endLabel, dayLabelFirst, dayFirst, startHour, startMinute, endHour, endMinute;
};
constexpr PeriodControls kPeriodControls[] = {
    {IDC_VMD_PERIOD1_GROUP, IDC_VMD_PERIOD1_START_LABEL, IDC_VMD_PERIOD1_END_LABEL, IDC_VMD_PERIOD1_DAY_LABEL_FIRST,
     IDC_VMD_PERIOD1_DAY_FIRST, IDC_VMD_PERIOD1_START_HOUR, IDC_VMD_PERIOD1_START_MINUTE, IDC_VMD_PERIOD1_END_HOUR,
     IDC_VMD_PERIOD1_END_MINUTE},
    {IDC_VMD_PERIOD2_GROUP, IDC_VMD_PERIOD2_START_LABEL, IDC_VMD_PERIOD2_END_LABEL, IDC_VMD_PERIOD2_DAY_LABEL_FIRST,
     IDC_VMD_PERIOD2_DAY_FIRST, IDC_VMD_PERIOD2_START_HOUR, IDC_VMD_PERIOD2_START_MINUTE, IDC_VMD_PERIOD2_END_HOUR,
     IDC_VMD_PERIOD2_END_MINUTE},
    {IDC_VMD_PERIOD3_GROUP, IDC_VMD_PERIOD3_START_LABEL, IDC_VMD_PERIOD3_END_LABEL, IDC_VMD_PERIOD3_DAY_LABEL_FIRST,
     IDC_VMD_PERIOD3_DAY_FIRST, IDC_VMD_PERIOD3_START_HOUR, IDC_VMD_PERIOD3_START_MINUTE, IDC_VMD_PERIOD3_END_HOUR,
     IDC_VMD_PERIOD3_END_MINUTE},
};

constexpr wchar_t kVdaSettingStart[] = L"<VariCfgSec Action=\"DEVICE_SET\"><stVda StartChn=\"%d\"><stVdaPara>";
constexpr wchar_t kVdaSettingChannel[] =
    L"<VChn_%d ucFD_Enable=\"%d\" ucFD_Wday1=\"%d\" uiStartT1=\"%d\" uiEndT1=\"%d\" ucFD_Wday2=\"%d\" "
    L"uiStartT2=\"%d\" uiEndT2=\"%d\" ucFD_Wday3=\"%d\" uiStartT3=\"%d\" uiEndT3=\"%d\" ucFD_Percent=\"%d\" "
    L"uiFD_Mask=\"%s\"></VChn_%d>";
constexpr wchar_t kVdaSettingEnd[] = L"</stVdaPara></stVda></VariCfgSec>";

// Weekday byte: bit 0 is the seventh day, bits 1 to 6 the first to sixth.
int DayBit(int day) { return day == 6 ? 0 : day + 1; }

}  // namespace

CDlgTabAlarmCfgVmd::CDlgTabAlarmCfgVmd() : CDlgCfgBase(IDD_ALARM_VMD) {
    uint32_t emptyRows[32] = {};
    area_ = MaskText(emptyRows);
}

BOOL CDlgTabAlarmCfgVmd::OnInitDialog() {
    SetCaptions(Hwnd(), {{IDC_VMD_CHANNEL_LABEL, 14001},
                         {IDC_VMD_ENABLE_LABEL, 13001},
                         {IDC_VMD_SENSITIVITY_LABEL, 24116},
                         {IDC_VMD_AREA_LABEL, 24118},
                         {IDC_VMD_AREA, 24118}});
    for (const PeriodControls& period : kPeriodControls) {
        SetCaptions(Hwnd(), {{period.group, 24117}, {period.startLabel, 24113}, {period.endLabel, 24114}});
        for (int day = 0; day < 7; ++day) {
            SetCaptions(Hwnd(), {{period.dayLabelFirst + day, static_cast<uint32_t>(14017 + day)}});
        }
    }
    const std::wstring channel = CLanguage::Instance().Text(14001);
    for (int k = 0; k < Device().capabilities.videoChannels; ++k) {
        ComboAdd(Hwnd(), IDC_VMD_CHANNEL, FillTemplate(L"%s %d", {channel, k + 1}), k);
    }
    ComboSelect(Hwnd(), IDC_VMD_CHANNEL, 0);
    AddFixedEntries(Hwnd(), IDC_VMD_SENSITIVITY, {L"L", L"M", L"H"});
    ComboSelect(Hwnd(), IDC_VMD_SENSITIVITY, 0);
    UpdateData(false);
    return TRUE;
}

void CDlgTabAlarmCfgVmd::OnCommand(int id, int code) {
    if (id == IDC_VMD_CHANNEL && code == CBN_SELCHANGE) {
        Refresh();
        return;
    }
    if (id == IDC_VMD_AREA && code == BN_CLICKED) {
        CAVmdAreaSet grid(area_);
        if (grid.RunModal(Hwnd()) == IDOK) area_ = grid.AreaText();
        return;
    }
    CDlgCfgBase::OnCommand(id, code);
}

// The start hours of the second and third periods take 0 to 59, as the recorder's own tools do.
void CDlgTabAlarmCfgVmd::DoDataExchange(DataExchange& dx) {
    dx.Check(IDC_VMD_ENABLE, enable_);
    for (int p = 0; p < kPeriods; ++p) {
        const PeriodControls& period = kPeriodControls[p];
        for (int day = 0; day < 7; ++day) dx.Check(period.dayFirst + day, days_[p][day]);
        dx.Text(period.startHour, startHour_[p], 0, p == 0 ? 23 : 59);
        dx.Text(period.startMinute, startMinute_[p], 0, 59);
        dx.Text(period.endHour, endHour_[p], 0, 23);
        dx.Text(period.endMinute, endMinute_[p], 0, 59);
    }
}

int CDlgTabAlarmCfgVmd::Channel() const {
    const int selection = ComboSelection(Hwnd(), IDC_VMD_CHANNEL);
    return selection >= 0 ? selection : 0;
}

int CDlgTabAlarmCfgVmd::Refresh() {
    const int channel = Channel();
    QueryReply reply;
    int result = Query(StartChnQuery("stVda", channel), reply);
    if (result == 1) {
        VdaRecord record{};
        result = DecodeVda(*reply.Section(), record) ? 1 : 0;
        if (result == 1 && channel < kVdaChannels) {
            const VdaChannel& entry = record.channels[channel];
            enable_ = entry.enable;
            ComboSelect(Hwnd(), IDC_VMD_SENSITIVITY, entry.sensitivity < 3 ? entry.sensitivity : 0);
            const uint8_t weekdays[] = {entry.weekdays1, entry.weekdays2, entry.weekdays3};
            const uint32_t starts[] = {entry.start1, entry.start2, entry.start3};
            const uint32_t ends[] = {entry.end1, entry.end2, entry.end3};
            for (int p = 0; p < kPeriods; ++p) {
                // The minute is the seconds count modulo 60, as the recorder's own tools read it.
                startHour_[p] = static_cast<int32_t>(starts[p] / 3600);
                startMinute_[p] = static_cast<int32_t>(starts[p] % 60);
                endHour_[p] = static_cast<int32_t>(ends[p] / 3600);
                endMinute_[p] = static_cast<int32_t>(ends[p] % 60);
                for (int day = 0; day < 7; ++day) days_[p][day] = weekdays[p] >> DayBit(day) & 1;
            }
            uint32_t rows[32] = {};
            ParseMaskRows(entry.mask, rows);
            area_ = MaskText(rows);
            UpdateData(false);
        }
    }
    Redraw();
    return result;
}

int CDlgTabAlarmCfgVmd::Save() {
    // A refused hour or minute stops the transfer there, but not the save: the setting goes out with the
    // values transferred (this page's established behaviour); only an end before its start stops it.
    UpdateData(true);
    int weekdays[kPeriods] = {};
    long long starts[kPeriods] = {};
    long long ends[kPeriods] = {};
    for (int p = 0; p < kPeriods; ++p) {
        for (int day = 0; day < 7; ++day) weekdays[p] |= (days_[p][day] != 0 ? 1 : 0) << DayBit(day);
        starts[p] = (startHour_[p] * 60LL + startMinute_[p]) * 60;
        ends[p] = (endHour_[p] * 60LL + endMinute_[p]) * 60;
        if (ends[p] < starts[p]) return 0;
    }
    const int channel = Channel();
    const int sensitivity = ComboSelection(Hwnd(), IDC_VMD_SENSITIVITY) & 0xff;
    const int result = SendSetting(
        FillTemplate(kVdaSettingStart, {channel}) +
        FillTemplate(kVdaSettingChannel, {channel, enable_, weekdays[0], starts[0], ends[0], weekdays[1], starts[1],
                                          ends[1], weekdays[2], starts[2], ends[2], sensitivity, FromAnsi(area_), channel}) +
        kVdaSettingEnd);
    Redraw();
    return result == 1 ? 1 : 0;
}
