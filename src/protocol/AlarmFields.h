// The attribute tables of the alarm inputs: the section's own attributes and those of each numbered
// input (and of a linkage item's output). The section catalogue declares these sections with them.
#pragma once

#include "protocol/AlarmRecords.h"
#include "protocol/SectionDecoder.h"

namespace varcfg {

inline constexpr Field<AlarmInRecord> kAlarmInFields[] = {
    VARCFG_FIELD(AlarmInRecord, diskFaultAlarm, "ucDiskFaulAlarm", Integer),
    VARCFG_FIELD(AlarmInRecord, diskSpaceAlarm, "ucDiskSpaceAlarm", Integer),
    VARCFG_FIELD(AlarmInRecord, videoLostAlarm, "ucVideoLostAlarm", Integer),
};

inline constexpr Field<AlarmIoEntry> kAlarmIoFields[] = {
    VARCFG_FIELD(AlarmIoEntry, enable, "ucIOEnable", Integer),
    VARCFG_FIELD(AlarmIoEntry, number, "ucIONumber", Integer),
    VARCFG_FIELD(AlarmIoEntry, level, "ucIOLevel", Integer),
    VARCFG_FIELD(AlarmIoEntry, function, "ucIOFunc", Integer),
    VARCFG_FIELD(AlarmIoEntry, duration, "usIOLast", Integer),
};

}  // namespace varcfg
