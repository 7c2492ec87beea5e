// The attribute tables of the sections that CConfig_Task decodes: each attribute's name, the record
// member it fills and its kind. The section catalogue declares these sections with the same tables.
#pragma once

#include "protocol/SectionDecoder.h"
#include "protocol/SectionRecords.h"

namespace varcfg {

inline constexpr Field<VersionRecord> kVersionFields[] = {
    VARCFG_FIELD(VersionRecord, model, "Model", Text),
    VARCFG_FIELD(VersionRecord, videoChannelCount, "iVideoChannelCnt", Integer),
    VARCFG_FIELD(VersionRecord, videoChannelCount, "VideoCnt", Integer),
    VARCFG_FIELD(VersionRecord, mcuVer, "strMcuVer", Text),
    VARCFG_FIELD(VersionRecord, ubootVer, "strUbootVer", Text),
    VARCFG_FIELD(VersionRecord, kernelVer, "strKernelVer", Text),
    VARCFG_FIELD(VersionRecord, rootfsVer, "strRootfsVer", Text),
    VARCFG_FIELD(VersionRecord, appVer, "strAppVer", Text),
    VARCFG_FIELD(VersionRecord, dbVer, "strDBVer", Text),
    VARCFG_FIELD(VersionRecord, wifiVer, "strWifiVer", Text),
};

inline constexpr Field<NetWorkModeRecord> kNetWorkModeFields[] = {
    VARCFG_FIELD(NetWorkModeRecord, netType, "ucFD_NetType", Integer),
    VARCFG_FIELD(NetWorkModeRecord, enableHr808, "ucFD_EnableHR808", Integer),
    VARCFG_FIELD(NetWorkModeRecord, gpsInterval, "usFD_GPSInterval", Integer),
};

// The device number comes first, so that the table without it is the same table less one field.
inline constexpr Field<BaseInfoRecord> kBaseInfoFields[] = {
    VARCFG_FIELD(BaseInfoRecord, deviceNo, "strFD_DeviceNo", Text).AcceptingTextLength(5, 12),
    VARCFG_FIELD(BaseInfoRecord, timeZone, "ucFD_TimeZone", Integer),
    VARCFG_FIELD(BaseInfoRecord, tzAdjust, "ucFD_TZAdjust", Integer),
    VARCFG_FIELD(BaseInfoRecord, dstEnable, "ucFD_DstEnable", Integer),
    VARCFG_FIELD(BaseInfoRecord, dstFromMon, "ucFD_DstFromMon", Integer),
    VARCFG_FIELD(BaseInfoRecord, dstFromDay, "ucFD_DstFromDay", Integer),
    VARCFG_FIELD(BaseInfoRecord, dstToMon, "ucFD_DstToMon", Integer),
    VARCFG_FIELD(BaseInfoRecord, dstToDay, "ucFD_DstToDay", Integer),
    VARCFG_FIELD(BaseInfoRecord, nowIsDst, "ucFD_NowIsDst", Integer),
    VARCFG_FIELD(BaseInfoRecord, dstAdjust, "usFD_DstAdjust", Integer),
    VARCFG_FIELD(BaseInfoRecord, dateStyle, "ucFD_DateStyle", Integer),
    VARCFG_FIELD(BaseInfoRecord, gpsMode, "ucFD_GpsMode", Integer),
    VARCFG_FIELD(BaseInfoRecord, gpsTimeSyncFlag, "ucFD_GpsSTFlag", Integer),
    VARCFG_FIELD(BaseInfoRecord, diskFormatFlag, "ucFD_DiskFormatFlag", Integer),
    VARCFG_FIELD(BaseInfoRecord, sizeOf2ndPart, "usFD_SizeOf2ndPart", Integer),
    VARCFG_FIELD(BaseInfoRecord, customize, "usFD_Customize", Integer),
    VARCFG_FIELD(BaseInfoRecord, diskFsType, "usFD_DiskFsType", Integer),
    VARCFG_FIELD(BaseInfoRecord, curTime, "strFD_CurTime", Text),
};

inline constexpr Field<PowerRecord> kPowerFields[] = {
    VARCFG_FIELD(PowerRecord, powerMode, "ucPowerMode", Integer),
    VARCFG_FIELD(PowerRecord, powerOnDelayEnable, "ucPOnDelayEnable", Integer),
    VARCFG_FIELD(PowerRecord, powerOffDelayMinutes, "usPOffDelayTime", Integer),
    VARCFG_FIELD(PowerRecord, timingPowerOnTime, "uiTimingPOnTime", Integer),
    VARCFG_FIELD(PowerRecord, timingPowerOffTime, "uiTimingPOffTime", Integer),
    VARCFG_FIELD(PowerRecord, accOffStopRecordChannels, "uiAccOffStopRecCh", Integer),
    VARCFG_FIELD(PowerRecord, powerOffOutputDelay, "uiPOffOutTimeDelay", Integer),
};

inline constexpr Field<ServerRecord> kServerFields[] = {
    VARCFG_FIELD(ServerRecord, addressType, "ucFD_AddressType", Integer),
    VARCFG_FIELD(ServerRecord, ip, "uiFD_IP", Ip),
    VARCFG_FIELD(ServerRecord, domain, "strFD_Domain", Text),
    VARCFG_FIELD(ServerRecord, port, "usFD_Port", Integer),
};

}  // namespace varcfg
