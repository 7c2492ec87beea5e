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

// stMobileGNet: the cellular dial-up.
struct MobileGNetRecord {
    uint8_t netType;
    char apn[32];
    char phoneNo[32];
    char userName[32];
    char userPasswd[32];
};

// stWifi. IPs in network byte order.
struct WifiRecord {
    uint8_t workMode;  // 1 client, 2 access point
    char ssid[32];
    char passwd[64];
    uint8_t authMode;  // 0 WEP, 1 WPA-PSK, 2 WPA2-PSK, 100 open
    uint8_t cryptType;
    uint8_t dhcpEnableFlag;
    uint32_t ip;
    uint32_t gateWay;
    uint32_t netMask;
    uint32_t dns;
};

// stPtt: push-to-talk.
struct PttRecord {
    uint8_t enable;
    uint16_t groupNo;
};

// stCarInfo: the vehicle and terminal as a JT/T 808 platform registers them.
struct CarInfoRecord {
    char phoneNumber[24];
    char provincialId[8];
    char cityDomainId[8];
    int32_t carColor;  // strFD_CarColors, read as a number: the index of the plate colour
    char terminalId[32];
    char carVin[24];
    char terminalType[24];
    char deviceNum[32];
    char carType[32];
    char facturerId[16];
    char drivingLicense[32];
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
