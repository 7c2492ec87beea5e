// The alarm sections: alarm recording and alarm inputs.
#pragma once

#include "catalogue/SectionCatalogue.h"
#include "protocol/AlarmFields.h"

namespace varcfg {

inline constexpr Field<RecordingRecord> kRecordingFields[] = {
    VARCFG_FIELD(RecordingRecord, recordMode, "ucFD_RecordMode", Integer),
    VARCFG_FIELD(RecordingRecord, sdUsage, "ucFD_SDUsage", Integer),
    VARCFG_FIELD(RecordingRecord, enableIpc, "ucFD_EnableIPC", Integer),
    VARCFG_FIELD(RecordingRecord, alarmRecordType, "ucFD_AlarmRecordType", Integer),
    VARCFG_FIELD(RecordingRecord, preRecordTime, "uiFD_PreRecordTime", Integer),
    VARCFG_FIELD(RecordingRecord, alarmRecordTime, "uiFD_AlarmRecordTime", Integer),
    VARCFG_FIELD(RecordingRecord, alarmRecordDays, "uiFD_AlarmRecordDays", Integer),
    VARCFG_FIELD(RecordingRecord, saveDayEnable, "uiFD_SaveDayEnable", Integer),
    VARCFG_FIELD(RecordingRecord, saveDays, "ucFD_SaveDays", Integer),
};
inline constexpr PlaceholderSource kRecordingSources[] = {
    FromAttribute("uiFD_PreRecordTime"), FromAttribute("uiFD_AlarmRecordTime"), FromAttribute("ucFD_AlarmRecordType")};
// The stRecord element is never closed, and "<VariCfgSec>" stands where the envelope's end tag would.
inline constexpr SettingTemplate kRecordingSettings[] = {
    {L"<VariCfgSec Action=\"DEVICE_SET\"><stRecord uiFD_PreRecordTime=\"%d\" uiFD_AlarmRecordTime=\"%d\" "
     L"ucFD_AlarmRecordType=\"%d\"><VariCfgSec>",
     kRecordingSources},
};
inline constexpr SectionDeclaration kRecordingSection{"stRecord", kRecordingFields, kRecordingSettings};

// stAlarmIn: one entry per input, asked for and written four at a time from StartChn.
inline constexpr PlaceholderSource kAlarmInEntrySources[] = {kEntryNumber, FromAttribute("ucIOEnable"),
                                                             FromAttribute("ucIOLevel"), FromAttribute("ucIOFunc")};
inline constexpr PlaceholderSource kAlarmInHeadSources[] = {kPieceNumber};
inline constexpr SettingTemplate kAlarmInSettings[] = {
    {{L"<VariCfgSec Action=\"DEVICE_SET\"><stAlarmIn StartChn=\"%d\"><stAlarmInIO>", kAlarmInHeadSources},
     {L"<AlarmIO_%d ucIOEnable=\"%d\" ucIOLevel=\"%d\" ucIOFunc=\"%d\" />", kAlarmInEntrySources},
     {L"</stAlarmInIO></stAlarmIn></VariCfgSec>"}},
};
inline constexpr SectionDeclaration kAlarmInSection{"stAlarmIn", kAlarmIoFields, kAlarmInSettings};

}  // namespace varcfg
