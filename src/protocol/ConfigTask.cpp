#include "protocol/ConfigTask.h"

#include <cstdio>
#include <string_view>

#include "protocol/SectionDecoder.h"

using varcfg::BaseInfoRecord;
using varcfg::Field;
using varcfg::FieldTable;
using varcfg::NetWorkModeRecord;
using varcfg::PowerRecord;
using varcfg::ServerRecord;
using varcfg::VersionRecord;

namespace {

constexpr Field<VersionRecord> kVersionFields[] = {
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

constexpr Field<NetWorkModeRecord> kNetWorkModeFields[] = {
    VARCFG_FIELD(NetWorkModeRecord, netType, "ucFD_NetType", Integer),
    VARCFG_FIELD(NetWorkModeRecord, enableHr808, "ucFD_EnableHR808", Integer),
    VARCFG_FIELD(NetWorkModeRecord, gpsInterval, "usFD_GPSInterval", Integer),
};

// The device number comes first, so that the table without it is the same table less one field.
constexpr Field<BaseInfoRecord> kBaseInfoFields[] = {
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
static_assert(std::string_view(kBaseInfoFields[0].attribute) == "strFD_DeviceNo");
constexpr FieldTable<BaseInfoRecord> kBaseInfoTable = FieldTable(kBaseInfoFields);
constexpr FieldTable<BaseInfoRecord> kBaseInfoTableWithoutDeviceNo = kBaseInfoTable.WithoutFirst(1);

constexpr Field<PowerRecord> kPowerFields[] = {
    VARCFG_FIELD(PowerRecord, powerMode, "ucPowerMode", Integer),
    VARCFG_FIELD(PowerRecord, powerOnDelayEnable, "ucPOnDelayEnable", Integer),
    VARCFG_FIELD(PowerRecord, powerOffDelayMinutes, "usPOffDelayTime", Integer),
    VARCFG_FIELD(PowerRecord, timingPowerOnTime, "uiTimingPOnTime", Integer),
    VARCFG_FIELD(PowerRecord, timingPowerOffTime, "uiTimingPOffTime", Integer),
    VARCFG_FIELD(PowerRecord, accOffStopRecordChannels, "uiAccOffStopRecCh", Integer),
    VARCFG_FIELD(PowerRecord, powerOffOutputDelay, "uiPOffOutTimeDelay", Integer),
};

constexpr Field<ServerRecord> kServerFields[] = {
    VARCFG_FIELD(ServerRecord, addressType, "ucFD_AddressType", Integer),
    VARCFG_FIELD(ServerRecord, ip, "uiFD_IP", Ip),
    VARCFG_FIELD(ServerRecord, domain, "strFD_Domain", Text),
    VARCFG_FIELD(ServerRecord, port, "usFD_Port", Integer),
};

}  // namespace

bool CConfig_Task::Import_stVersion(const TiXmlElement& section, VersionRecord& record) {
    return varcfg::DecodeAttributes(section, kVersionFields, record).Succeeded();
}

bool CConfig_Task::Import_stNetWorkMode(const TiXmlElement& section, NetWorkModeRecord& record) {
    return varcfg::DecodeAttributes(section, kNetWorkModeFields, record).Succeeded();
}

bool CConfig_Task::Import_stBaseInfo(const TiXmlElement& section, BaseInfoRecord& record, DeviceNo deviceNo) {
    const varcfg::DecodeResult result = varcfg::DecodeAttributes(
        section, deviceNo == DeviceNo::Check ? kBaseInfoTable : kBaseInfoTableWithoutDeviceNo, record);
    if (result.status == varcfg::DecodeStatus::TextRefused) {
        std::printf("CConfig_Task::Import_stBaseInfo, invalid device id:%s.\n", result.refusedText.c_str());
    }
    return result.Succeeded();
}

bool CConfig_Task::Import_stPower(const TiXmlElement& section, PowerRecord& record) {
    return varcfg::DecodeAttributes(section, kPowerFields, record).Succeeded();
}

bool CConfig_Task::Import_stCMS(const TiXmlElement& section, ServerRecord& record) {
    return varcfg::DecodeAttributes(section, kServerFields, record).Succeeded();
}
