// The system sections: base information (time zone, daylight saving), power, speed, parking and fatigue
// alarms, user security.
#pragma once

#include "catalogue/SectionCatalogue.h"
#include "protocol/SectionFields.h"

namespace varcfg {

// The values go out as a base-information record holds them. The zone minutes are shown as the index
// of 0, 15, 30 and 45 and written as minutes; the daylight saving adjustment is written as its index.
inline constexpr PlaceholderSource kBaseInfoSources[] = {
    FromAttribute("ucFD_TimeZone").AsStored(),   FromAttribute("ucFD_TZAdjust").Scaled(15).AsStored(),
    FromAttribute("ucFD_GpsSTFlag").AsStored(),  FromAttribute("ucFD_DstEnable").AsStored(),
    FromAttribute("usFD_DstAdjust").AsStored(),  FromAttribute("ucFD_DstFromMon").AsStored(),
    FromAttribute("ucFD_DstFromDay").AsStored(), FromAttribute("ucFD_DstToMon").AsStored(),
    FromAttribute("ucFD_DstToDay").AsStored()};
// The blanks and tabs inside are the recorder's own form of this setting.
inline constexpr SettingTemplate kBaseInfoSettings[] = {
    {L"<VariCfgSec Action=\"DEVICE_SET\"><stBaseInfo ucFD_TimeZone=\"%d\" ucFD_TZAdjust=\"%d\" ucFD_GpsSTFlag=\"%d\"  "
     L"\t\t\tucFD_DstEnable=\"%d\" usFD_DstAdjust=\"%d\" ucFD_DstFromMon=\"%d\" ucFD_DstFromDay=\"%d\" "
     L"ucFD_DstToMon=\"%d\" \t\t\tucFD_DstToDay=\"%d\" /></VariCfgSec>",
     kBaseInfoSources},
};
inline constexpr AttributeRoleEntry kBaseInfoRoles[] = {{"strFD_DeviceNo", AttributeRole::Identity}};
inline constexpr SectionDeclaration kBaseInfoSection{"stBaseInfo", kBaseInfoFields, kBaseInfoSettings, kBaseInfoRoles};

// The power-off delay is enabled exactly when it is not 0.
inline constexpr PlaceholderSource kPowerSources[] = {FromAttribute("usPOffDelayTime").AsFlag(),
                                                      FromAttribute("usPOffDelayTime")};
inline constexpr SettingTemplate kPowerSettings[] = {
    {L"<VariCfgSec Action=\"DEVICE_SET\"><stPower ucPOnDelayEnable=\"%d\" usPOffDelayTime=\"%d\" /></VariCfgSec>",
     kPowerSources},
};
inline constexpr SectionDeclaration kPowerSection{"stPower", kPowerFields, kPowerSettings};

// stSpeedAlarm: the low-speed, over-speed, parking-overtime and fatigue-driving alarms.
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
    uint16_t drivingTime;  // minutes
    uint16_t restTime;     // minutes
};
inline constexpr Field<SpeedAlarmRecord> kSpeedAlarmFields[] = {
    VARCFG_FIELD(SpeedAlarmRecord, lowSpeedEnable, "ucFD_LowSpeedIsEnable", Integer),
    VARCFG_FIELD(SpeedAlarmRecord, lowSpeedUnit, "ucFD_LowSpeedUnit", Integer),
    VARCFG_FIELD(SpeedAlarmRecord, lowSpeed, "usFD_LowSpeed", Integer),
    VARCFG_FIELD(SpeedAlarmRecord, clearLowSpeed, "usFD_ClearLowSpeed", Integer),
    VARCFG_FIELD(SpeedAlarmRecord, lowDuration, "usFD_LowDurTime", Integer),
    VARCFG_FIELD(SpeedAlarmRecord, overSpeedEnable, "ucFD_OverSpeedIsEnable", Integer),
    VARCFG_FIELD(SpeedAlarmRecord, overSpeedUnit, "ucFD_OverSpeedUnit", Integer),
    VARCFG_FIELD(SpeedAlarmRecord, overSpeed, "usFD_OverSpeed", Integer),
    VARCFG_FIELD(SpeedAlarmRecord, clearOverSpeed, "usFD_ClearOverSpeed", Integer),
    VARCFG_FIELD(SpeedAlarmRecord, overDuration, "usFD_OverDurTime", Integer),
    VARCFG_FIELD(SpeedAlarmRecord, parkingEnable, "ucFD_PeakingIsEnable", Integer),
    VARCFG_FIELD(SpeedAlarmRecord, parkingTimeUnit, "ucFD_TimeUnit", Integer),
    VARCFG_FIELD(SpeedAlarmRecord, parkingOvertime, "uiFD_OverTime", Integer),
    VARCFG_FIELD(SpeedAlarmRecord, fatigueEnable, "ucFD_FatigueEnable", Integer),
    VARCFG_FIELD(SpeedAlarmRecord, drivingTime, "usFD_DrivingTime", Integer),
    VARCFG_FIELD(SpeedAlarmRecord, restTime, "usFD_RestTime", Integer),
};
// The overtime goes into both overtime attributes: the recorder reads one or the other.
inline constexpr PlaceholderSource kSpeedAlarmSources[] = {
    FromAttribute("ucFD_LowSpeedIsEnable"), FromAttribute("ucFD_LowSpeedUnit"),     FromAttribute("usFD_LowSpeed"),
    FromAttribute("usFD_ClearLowSpeed"),    FromAttribute("usFD_LowDurTime"),       FromAttribute("ucFD_OverSpeedIsEnable"),
    FromAttribute("ucFD_OverSpeedUnit"),    FromAttribute("usFD_OverSpeed"),        FromAttribute("usFD_ClearOverSpeed"),
    FromAttribute("usFD_OverDurTime"),      FromAttribute("ucFD_PeakingIsEnable"),  FromAttribute("ucFD_TimeUnit"),
    FromAttribute("uiFD_OverTime"),         FromAttribute("uiFD_OverTime"),         FromAttribute("ucFD_FatigueEnable"),
    FromAttribute("usFD_DrivingTime"),      FromAttribute("usFD_RestTime")};
inline constexpr SettingTemplate kSpeedAlarmSettings[] = {
    {L"<VariCfgSec Action=\"DEVICE_SET\"><stSpeedAlarm ucFD_LowSpeedIsEnable=\"%d\" ucFD_LowSpeedUnit=\"%d\" "
     L"usFD_LowSpeed=\"%s\" usFD_ClearLowSpeed=\"%s\" usFD_LowDurTime=\"%s\" ucFD_OverSpeedIsEnable=\"%d\" "
     L"ucFD_OverSpeedUnit=\"%d\" usFD_OverSpeed=\"%s\" usFD_ClearOverSpeed=\"%s\" usFD_OverDurTime=\"%s\" "
     L"ucFD_PeakingIsEnable=\"%d\" ucFD_TimeUnit=\"%d\" uiFD_OverTime=\"%s\" usFD_OverTime=\"%s\" "
     L"ucFD_FatigueEnable=\"%d\" usFD_DrivingTime=\"%d\" usFD_RestTime=\"%d\" /></VariCfgSec>",
     kSpeedAlarmSources},
};
// The recorder's answer to this query may be longer than the standard record holds.
inline constexpr SectionDeclaration kSpeedAlarmSection{"stSpeedAlarm", kSpeedAlarmFields, kSpeedAlarmSettings,
                                                       RecordSize::Large};

// stUserSec: password protection.
struct UserSecurityRecord {
    uint8_t passwordEnable;
    char userPassword[7];
    char adminPassword[7];
};
inline constexpr Field<UserSecurityRecord> kUserSecurityFields[] = {
    VARCFG_FIELD(UserSecurityRecord, passwordEnable, "ucFD_PWEnableFlag", Integer),
    VARCFG_FIELD(UserSecurityRecord, userPassword, "strFD_NormalPasswd", Text),
    VARCFG_FIELD(UserSecurityRecord, adminPassword, "strFD_AdminPasswd", Text),
};
inline constexpr PlaceholderSource kUserSecuritySources[] = {
    FromAttribute("ucFD_PWEnableFlag"), FromAttribute("strFD_NormalPasswd"), FromAttribute("strFD_AdminPasswd")};
// The section element stays open: the recorder accepts this form.
inline constexpr SettingTemplate kUserSecuritySettings[] = {
    {L"<VariCfgSec Action=\"DEVICE_SET\"><stUserSec ucFD_PWEnableFlag=\"%d\" strFD_NormalPasswd=\"%s\" "
     L"strFD_AdminPasswd=\"%s\"></VariCfgSec>",
     kUserSecuritySources},
};
inline constexpr AttributeRoleEntry kUserSecurityRoles[] = {{"strFD_NormalPasswd", AttributeRole::Secret},
                                                            {"strFD_AdminPasswd", AttributeRole::Secret}};
inline constexpr SectionDeclaration kUserSecuritySection{"stUserSec", kUserSecurityFields, kUserSecuritySettings,
                                                         kUserSecurityRoles};

}  // namespace varcfg
