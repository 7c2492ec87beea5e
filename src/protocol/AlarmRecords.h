// Records of the alarm sections: recording around an alarm, alarm inputs, linkage items (which carry
// the alarm outputs), motion detection and the acceleration sensor.
#pragma once

#include <cstdint>

namespace varcfg {

// stRecord.
struct RecordingRecord {
    uint8_t recordMode;
    uint8_t sdUsage;
    uint8_t enableIpc;
    uint8_t alarmRecordType;
    uint32_t preRecordTime;
    uint32_t alarmRecordTime;
    uint32_t alarmRecordDays;
    uint32_t saveDayEnable;
    uint8_t saveDays;
};

// One alarm input, or the output of a linkage item.
struct AlarmIoEntry {
    uint8_t enable;
    uint8_t number;
    uint8_t level;
    uint8_t function;
    uint16_t duration;
};

// stAlarmIn: entries indexed by the input's number.
inline constexpr int kAlarmInEntries = 12;
struct AlarmInRecord {
    uint8_t diskFaultAlarm;
    uint8_t diskSpaceAlarm;
    uint8_t videoLostAlarm;
    AlarmIoEntry inputs[kAlarmInEntries];
};

// stAlarmLinkage: items indexed by number; item k's output entry is alarm output k.
inline constexpr int kLinkageItems = 32;
struct AlarmLinkageItem {
    char linkageName[32];
    uint8_t linkageEnable;
    uint8_t alarmInType;
    uint16_t alarmOutType;
    uint16_t recordChannels;      // bit k: video channel k+1
    uint16_t recordSendChannels;
    uint16_t snapshotWord;        // low byte: snapshot channels, high byte: snapshot-send channels
    uint16_t viewChannel;
    uint16_t recordDuration;
    AlarmIoEntry output;
};
struct AlarmLinkageRecord {
    AlarmLinkageItem items[kLinkageItems];
};

// stVda: one entry per video channel. Times are seconds after midnight; the mask is the recorder's
// text of 32 decimal rows, each followed by a comma.
inline constexpr int kVdaChannels = 8;
struct VdaChannel {
    uint8_t enable;
    uint8_t weekdays1;
    uint32_t start1;
    uint32_t end1;
    uint8_t weekdays2;
    uint32_t start2;
    uint32_t end2;
    uint8_t weekdays3;
    uint32_t start3;
    uint32_t end3;
    uint8_t sensitivity;
    char mask[1280];
};
struct VdaRecord {
    uint8_t accLimitMd;
    uint16_t delayTime;
    uint16_t intervalTime;
    VdaChannel channels[kVdaChannels];
};

// stGSensor.
struct GSensorRecord {
    uint8_t alarmEnable;
    float rapidAcceleration;
    float hardBraking;
    float crash;
    float swerve;
    float rollover;
    float x;
    float xLimit;
    float y;
    float yLimit;
    float z;
    float zLimit;
};

}  // namespace varcfg
