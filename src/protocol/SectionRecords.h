// Plain records that the sections of query replies decode into. Layouts are fixed: other code copies
// and compares them as they are.
#pragma once

#include <cstdint>

namespace varcfg {

// stVersion: the version block, kept module-wide.
struct VersionRecord {
    int32_t videoChannelCount;
    char model[32];
    char mcuVer[32];
    char ubootVer[32];
    char kernelVer[32];
    char rootfsVer[32];
    char appVer[32];
    char dbVer[32];
    char wifiVer[32];
};
static_assert(sizeof(VersionRecord) == 260, "the version block is 260 bytes");

// stNetWorkMode: the network host's network type and GPS interval, and the 808 link switch.
struct NetWorkModeRecord {
    uint8_t netType;
    uint8_t enableHr808;
    uint16_t gpsInterval;
};

// stLocalEth0. IPs in network byte order.
struct LocalEthRecord {
    uint8_t dhcpEnableFlag;
    uint32_t localIp;
    uint32_t localEth1Ip;
    uint32_t netMask;
    uint32_t gateWay;
    char mac[24];
};

// stBaseInfo. The other-setup page compares these records byte for byte, so the layout has no padding.
struct BaseInfoRecord {
    char deviceNo[16];
    uint8_t timeZone;  // index into the time zone list: offset in hours plus 12
    uint8_t tzAdjust;  // extra minutes: 0, 15, 30 or 45
    uint8_t dstEnable;
    uint8_t dstFromMon;
    uint8_t dstFromDay;
    uint8_t dstToMon;
    uint8_t dstToDay;
    uint8_t nowIsDst;
    uint16_t dstAdjust;  // index into the adjustment list
    uint8_t dateStyle;
    uint8_t gpsMode;
    uint8_t gpsTimeSyncFlag;
    uint8_t diskFormatFlag;
    uint16_t sizeOf2ndPart;
    uint16_t customize;
    uint16_t diskFsType;
    char curTime[24];
};
static_assert(sizeof(BaseInfoRecord) == 60, "stBaseInfo records are compared byte for byte: no padding");

// stPower.
struct PowerRecord {
    uint8_t powerMode;
    uint8_t powerOnDelayEnable;
    uint16_t powerOffDelayMinutes;
    uint32_t timingPowerOnTime;
    uint32_t timingPowerOffTime;
    uint32_t accOffStopRecordChannels;
    uint32_t powerOffOutputDelay;
};

// stCMS, st808CMS1, st808CMS2 and stPttDcn: one server, by IP or by domain name.
struct ServerRecord {
    uint8_t addressType;  // 0 IP, 1 domain name
    uint32_t ip;          // network byte order
    char domain[64];
    uint16_t port;
};

}  // namespace varcfg
