// The alarm sections: alarm recording, alarm inputs and the G-sensor.
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

// stGSensor: alarm thresholds in g (the rollover in degrees) and the calibration.
inline constexpr Field<GSensorRecord> kGSensorFields[] = {
    VARCFG_FIELD(GSensorRecord, alarmEnable, "ucFD_AlarmEnable", Integer),
    VARCFG_FIELD(GSensorRecord, rapidAcceleration, "fFD_RAccel", Float),
    VARCFG_FIELD(GSensorRecord, hardBraking, "fFD_RDecel", Float),
    VARCFG_FIELD(GSensorRecord, crash, "fFD_Crash", Float),
    VARCFG_FIELD(GSensorRecord, swerve, "fFD_Swerve", Float),
    VARCFG_FIELD(GSensorRecord, rollover, "fFD_TrunOver", Float),
    VARCFG_FIELD(GSensorRecord, x, "fFD_X", Float),
    VARCFG_FIELD(GSensorRecord, xLimit, "fFD_XLimit", Float),
    VARCFG_FIELD(GSensorRecord, y, "fFD_Y", Float),
    VARCFG_FIELD(GSensorRecord, yLimit, "fFD_YLimit", Float),
    VARCFG_FIELD(GSensorRecord, z, "fFD_Z", Float),
    VARCFG_FIELD(GSensorRecord, zLimit, "fFD_ZLimit", Float),
};
inline constexpr PlaceholderSource kGSensorSources[] = {
    FromAttribute("ucFD_AlarmEnable"), FromAttribute("fFD_RAccel"), FromAttribute("fFD_RDecel"),
    FromAttribute("fFD_Crash"),        FromAttribute("fFD_Swerve"), FromAttribute("fFD_TrunOver"),
    FromAttribute("fFD_X"),            FromAttribute("fFD_XLimit"), FromAttribute("fFD_Y"),
    FromAttribute("fFD_YLimit"),       FromAttribute("fFD_Z"),      FromAttribute("fFD_ZLimit")};
// Both settings end with "<VariCfgSec>" where the envelope's end tag would stand. The second asks the
// recorder to calibrate its sensor anew.
inline constexpr SettingTemplate kGSensorSettings[] = {
    {L"<VariCfgSec Action=\"DEVICE_SET\"><stGSensor ucFD_AlarmEnable=\"%d\" fFD_RAccel=\"%f\" fFD_RDecel=\"%f\" "
     L"fFD_Crash=\"%f\" fFD_Swerve=\"%f\" fFD_TrunOver=\"%f\" fFD_X=\"%f\" fFD_XLimit=\"%f\" fFD_Y=\"%f\" "
     L"fFD_YLimit=\"%f\" fFD_Z=\"%f\" fFD_ZLimit=\"%f\" /><VariCfgSec>",
     kGSensorSources},
    SettingTemplate(L"<VariCfgSec Action=\"DEVICE_SET\"><stGSensor ReCalibrate=\"1\"/><VariCfgSec>"),
};
inline constexpr std::size_t kGSensorRecalibrateSetting = 1;
inline constexpr SectionDeclaration kGSensorSection{"stGSensor", kGSensorFields, kGSensorSettings};

}  // namespace varcfg
