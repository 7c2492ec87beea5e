// The network sections: network mode, local Ethernet, mobile dial-up, push-to-talk and its dispatch
// centre, the 808 platform's servers, and the vehicle's registration.
#pragma once

#include "catalogue/SectionCatalogue.h"
#include "protocol/SectionFields.h"

namespace varcfg {

inline constexpr PlaceholderSource kNetTypeSources[] = {FromAttribute("ucFD_NetType"),
                                                        FromAttribute("usFD_GPSInterval")};
inline constexpr PlaceholderSource k808LinkSources[] = {FromAttribute("ucFD_EnableHR808")};
// The network host writes the network type with the GPS interval as read; the 808 page writes its
// link switch alone.
inline constexpr SettingTemplate kNetWorkModeSettings[] = {
    {L"<VariCfgSec Action=\"DEVICE_SET\"><stNetWorkMode ucFD_NetType=\"%d\" usFD_GPSInterval=\"%d\" /></VariCfgSec>",
     kNetTypeSources},
    {L"<VariCfgSec Action=\"DEVICE_SET\"><stNetWorkMode ucFD_EnableHR808=\"%d\" /></VariCfgSec>", k808LinkSources},
};
inline constexpr std::size_t kNetTypeSetting = 0;
inline constexpr std::size_t k808LinkSetting = 1;
inline constexpr SectionDeclaration kNetWorkModeSection{"stNetWorkMode", kNetWorkModeFields, kNetWorkModeSettings};

inline constexpr Field<LocalEthRecord> kLocalEthFields[] = {
    VARCFG_FIELD(LocalEthRecord, dhcpEnableFlag, "ucFD_DhcpEnableFlag", Integer),
    VARCFG_FIELD(LocalEthRecord, localIp, "uiFD_LocalIp", Ip),
    VARCFG_FIELD(LocalEthRecord, localEth1Ip, "uiFD_LocalEth1Ip", Ip),
    VARCFG_FIELD(LocalEthRecord, netMask, "uiFD_NetMask", Ip),
    VARCFG_FIELD(LocalEthRecord, gateWay, "uiFD_GateWay", Ip),
    VARCFG_FIELD(LocalEthRecord, mac, "strFD_Mac", Text),
};
inline constexpr PlaceholderSource kLocalEthSources[] = {FromAttribute("uiFD_LocalIp"), FromAttribute("uiFD_NetMask"),
                                                         FromAttribute("uiFD_GateWay"), FromAttribute("strFD_Mac")};
// DHCP is always written off: the port takes the fixed address given.
inline constexpr SettingTemplate kLocalEthSettings[] = {
    {L"<VariCfgSec Action=\"DEVICE_SET\"><stLocalEth0 ucFD_DhcpEnableFlag=\"0\" uiFD_LocalIp=\"%s\" "
     L"uiFD_NetMask=\"%s\" uiFD_GateWay=\"%s\" strFD_Mac=\"%s\" /></VariCfgSec>",
     kLocalEthSources},
};
inline constexpr AttributeRoleEntry kLocalEthRoles[] = {{"uiFD_LocalIp", AttributeRole::Identity},
                                                        {"uiFD_LocalEth1Ip", AttributeRole::Identity},
                                                        {"strFD_Mac", AttributeRole::Identity}};
inline constexpr SectionDeclaration kLocalEthSection{"stLocalEth0", kLocalEthFields, kLocalEthSettings,
                                                     kLocalEthRoles};

// stWifi: the wireless LAN as a client, and the work mode. IPs in network byte order.
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
inline constexpr Field<WifiRecord> kWifiFields[] = {
    VARCFG_FIELD(WifiRecord, workMode, "ucFD_WorkMode", Integer),
    VARCFG_FIELD(WifiRecord, ssid, "strFD_SSID", Text),
    VARCFG_FIELD(WifiRecord, passwd, "strFD_Passwd", Text),
    VARCFG_FIELD(WifiRecord, authMode, "ucFD_AuthMode", Integer),
    VARCFG_FIELD(WifiRecord, cryptType, "ucFD_CryptType", Integer),
    VARCFG_FIELD(WifiRecord, dhcpEnableFlag, "ucFD_DhcpEnableFlag", Integer),
    VARCFG_FIELD(WifiRecord, ip, "uiFD_IP", Ip),
    VARCFG_FIELD(WifiRecord, gateWay, "uiFD_GateWay", Ip),
    VARCFG_FIELD(WifiRecord, netMask, "uiFD_NetMask", Ip),
    VARCFG_FIELD(WifiRecord, dns, "uiFD_DNS", Ip),
};
// Authentications by list index: the recorder knows open authentication as 100.
inline constexpr long long kAuthenticationValues[] = {0, 1, 2, 100};
inline constexpr ValueList kAuthenticationByIndex{kAuthenticationValues, -1};
// The recorder counts work modes from 1: 1 client, 2 access point.
inline constexpr long long kWifiClientMode = 1;
inline constexpr long long kWifiAccessPointMode = 2;
inline constexpr PlaceholderSource kWifiClientSources[] = {
    FixedValue(kWifiClientMode),      FromAttribute("strFD_SSID"),
    FromAttribute("strFD_Passwd"),    FromAttribute("ucFD_AuthMode").AsListed(kAuthenticationByIndex),
    FromAttribute("ucFD_CryptType"),  FromAttribute("ucFD_DhcpEnableFlag"),
    FromAttribute("uiFD_IP"),         FromAttribute("uiFD_NetMask"),
    FromAttribute("uiFD_GateWay")};
inline constexpr PlaceholderSource kWifiAccessPointModeSources[] = {FixedValue(kWifiAccessPointMode)};
// A client writes its whole setting; an access point first switches the work mode, then writes stWifiAp.
inline constexpr SettingTemplate kWifiSettings[] = {
    {L"<VariCfgSec Action=\"DEVICE_SET\"><stWifi ucFD_WorkMode=\"%d\" strFD_SSID=\"%s\" strFD_Passwd=\"%s\" "
     L"ucFD_AuthMode=\"%d\" ucFD_CryptType=\"%d\" ucFD_DhcpEnableFlag=\"%d\" uiFD_IP=\"%s\" uiFD_NetMask=\"%s\" "
     L"uiFD_GateWay=\"%s\" /></VariCfgSec>",
     kWifiClientSources},
    {L"<VariCfgSec Action=\"DEVICE_SET\"><stWifi ucFD_WorkMode=\"%d\" /></VariCfgSec>", kWifiAccessPointModeSources},
};
inline constexpr std::size_t kWifiClientSetting = 0;
inline constexpr std::size_t kWifiAccessPointModeSetting = 1;
inline constexpr AttributeRoleEntry kWifiRoles[] = {{"strFD_Passwd", AttributeRole::Secret},
                                                    {"uiFD_IP", AttributeRole::Identity}};
inline constexpr SectionDeclaration kWifiSection{"stWifi", kWifiFields, kWifiSettings, kWifiRoles};

// stWifiAp: the recorder's own access point.
struct WifiAccessPointRecord {
    char ssid[32];
    char passwd[64];
    uint8_t authMode;
    uint8_t cryptType;
};
inline constexpr Field<WifiAccessPointRecord> kWifiAccessPointFields[] = {
    VARCFG_FIELD(WifiAccessPointRecord, ssid, "strFD_SSID", Text),
    VARCFG_FIELD(WifiAccessPointRecord, passwd, "strFD_Passwd", Text),
    VARCFG_FIELD(WifiAccessPointRecord, authMode, "ucFD_AuthMode", Integer),
    VARCFG_FIELD(WifiAccessPointRecord, cryptType, "ucFD_CryptType", Integer),
};
inline constexpr PlaceholderSource kWifiAccessPointSources[] = {
    FromAttribute("strFD_SSID"), FromAttribute("strFD_Passwd"), FromAttribute("ucFD_AuthMode").AsListed(kAuthenticationByIndex),
    FromAttribute("ucFD_CryptType")};
// The recorder expects the doubled " />".
inline constexpr SettingTemplate kWifiAccessPointSettings[] = {
    {L"<VariCfgSec Action=\"DEVICE_SET\"><stWifiAp strFD_SSID=\"%s\" strFD_Passwd=\"%s\" ucFD_AuthMode=\"%d\" "
     L"ucFD_CryptType=\"%d\" /> /></VariCfgSec>",
     kWifiAccessPointSources},
};
inline constexpr AttributeRoleEntry kWifiAccessPointRoles[] = {{"strFD_Passwd", AttributeRole::Secret}};
inline constexpr SectionDeclaration kWifiAccessPointSection{"stWifiAp", kWifiAccessPointFields,
                                                            kWifiAccessPointSettings, kWifiAccessPointRoles};

// stMobileGNet: the cellular dial-up.
struct MobileGNetRecord {
    uint8_t netType;
    char apn[32];
    char phoneNo[32];
    char userName[32];
    char userPasswd[32];
};
inline constexpr Field<MobileGNetRecord> kMobileFields[] = {
    VARCFG_FIELD(MobileGNetRecord, netType, "ucFD_NetType", Integer),
    VARCFG_FIELD(MobileGNetRecord, apn, "strFD_Apn", Text),
    VARCFG_FIELD(MobileGNetRecord, phoneNo, "strFD_PhoneNo", Text),
    VARCFG_FIELD(MobileGNetRecord, userName, "strFD_UserName", Text),
    VARCFG_FIELD(MobileGNetRecord, userPasswd, "strFD_UserPasswd", Text),
};
inline constexpr PlaceholderSource kMobileSources[] = {FromAttribute("ucFD_NetType"), FromAttribute("strFD_Apn"),
                                                       FromAttribute("strFD_PhoneNo"), FromAttribute("strFD_UserName"),
                                                       FromAttribute("strFD_UserPasswd")};
inline constexpr SettingTemplate kMobileSettings[] = {
    {L"<VariCfgSec Action=\"DEVICE_SET\"><stMobileGNet ucFD_NetType=\"%d\" strFD_Apn=\"%s\" strFD_PhoneNo=\"%s\" "
     L"strFD_UserName=\"%s\" strFD_UserPasswd=\"%s\" /></VariCfgSec>",
     kMobileSources},
};
inline constexpr AttributeRoleEntry kMobileRoles[] = {{"strFD_UserPasswd", AttributeRole::Secret}};
inline constexpr SectionDeclaration kMobileSection{"stMobileGNet", kMobileFields, kMobileSettings, kMobileRoles};

// stPtt: push-to-talk.
struct PttRecord {
    uint8_t enable;
    uint16_t groupNo;
};
inline constexpr Field<PttRecord> kPttFields[] = {
    VARCFG_FIELD(PttRecord, enable, "ucFD_Enable", Integer),
    VARCFG_FIELD(PttRecord, groupNo, "usFD_GroupNo", Integer),
};
inline constexpr PlaceholderSource kPttSources[] = {FromAttribute("ucFD_Enable"), FromAttribute("usFD_GroupNo")};
inline constexpr SettingTemplate kPttSettings[] = {
    {L"<VariCfgSec Action=\"DEVICE_SET\"><stPtt ucFD_Enable=\"%d\" usFD_GroupNo=\"%s\" /></VariCfgSec>", kPttSources},
};
inline constexpr SectionDeclaration kPttSection{"stPtt", kPttFields, kPttSettings};

// The server sections (stCMS, st808CMS1, st808CMS2, stPttDcn) share one record and attribute list.
inline constexpr PlaceholderSource kPttCentreSources[] = {FromAttribute("uiFD_IP"), FromAttribute("usFD_Port")};
// The dispatch centre is always given by its IP address.
inline constexpr SettingTemplate kPttCentreSettings[] = {
    {L"<VariCfgSec Action=\"DEVICE_SET\"><stPttDcn ucFD_AddressType=\"0\" uiFD_IP=\"%s\" usFD_Port=\"%s\" "
     L"/></VariCfgSec>",
     kPttCentreSources},
};
inline constexpr SectionDeclaration kPttCentreSection{"stPttDcn", kServerFields, kPttCentreSettings};

inline constexpr PlaceholderSource k808ServerSources[] = {FromAttribute("ucFD_AddressType"), FromAttribute("uiFD_IP"),
                                                          FromAttribute("strFD_Domain"), FromAttribute("usFD_Port")};
// Both the IP address and the domain are sent; the recorder picks by the address type.
inline constexpr SettingTemplate k808Server1Settings[] = {
    {L"<VariCfgSec Action=\"DEVICE_SET\"><st808CMS1 ucFD_AddressType=\"%d\" uiFD_IP=\"%s\" strFD_Domain=\"%s\" "
     L"usFD_Port=\"%s\" /></VariCfgSec>",
     k808ServerSources},
};
inline constexpr SettingTemplate k808Server2Settings[] = {
    {L"<VariCfgSec Action=\"DEVICE_SET\"><st808CMS2 ucFD_AddressType=\"%d\" uiFD_IP=\"%s\" strFD_Domain=\"%s\" "
     L"usFD_Port=\"%s\" /></VariCfgSec>",
     k808ServerSources},
};
inline constexpr SectionDeclaration k808Server1Section{"st808CMS1", kServerFields, k808Server1Settings};
inline constexpr SectionDeclaration k808Server2Section{"st808CMS2", kServerFields, k808Server2Settings};

// stCarInfo: the vehicle and terminal as a JT/T 808 platform registers them, and the licence plate.
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
    char licensePlate[17];
};
inline constexpr Field<CarInfoRecord> kCarInfoFields[] = {
    VARCFG_FIELD(CarInfoRecord, phoneNumber, "strFD_Phonenumber", Text),
    VARCFG_FIELD(CarInfoRecord, provincialId, "strFD_ProvincialId", Text),
    VARCFG_FIELD(CarInfoRecord, cityDomainId, "strFD_CityDomainId", Text),
    VARCFG_FIELD(CarInfoRecord, carColor, "strFD_CarColors", Integer),
    VARCFG_FIELD(CarInfoRecord, terminalId, "strFD_TerminalID", Text),
    VARCFG_FIELD(CarInfoRecord, carVin, "strFD_CarVIN", Text),
    VARCFG_FIELD(CarInfoRecord, terminalType, "strFD_TerminalType", Text),
    VARCFG_FIELD(CarInfoRecord, deviceNum, "strFD_DeviceNum", Text),
    VARCFG_FIELD(CarInfoRecord, carType, "strFD_CarType", Text),
    VARCFG_FIELD(CarInfoRecord, facturerId, "strFD_FacturerID", Text),
    VARCFG_FIELD(CarInfoRecord, drivingLicense, "strFD_DrivingLicense", Text),
    VARCFG_FIELD(CarInfoRecord, licensePlate, "strFD_LicensePlate", Text),
};
inline constexpr PlaceholderSource kVehicleRegistrationSources[] = {
    FromAttribute("strFD_Phonenumber"), FromAttribute("strFD_ProvincialId"), FromAttribute("strFD_CityDomainId"),
    FromAttribute("strFD_CarColors"),   FromAttribute("strFD_TerminalID"),   FromAttribute("strFD_CarVIN"),
    FromAttribute("strFD_TerminalType"), FromAttribute("strFD_DeviceNum"),   FromAttribute("strFD_CarType"),
    FromAttribute("strFD_FacturerID"),  FromAttribute("strFD_DrivingLicense")};
inline constexpr PlaceholderSource kLicensePlateSources[] = {FromAttribute("strFD_LicensePlate")};
// The 808 page writes the registration, the plate colour as its list index although the attribute is a
// text; the user security page writes the plate alone.
inline constexpr SettingTemplate kCarInfoSettings[] = {
    {L"<VariCfgSec Action=\"DEVICE_SET\"><stCarInfo strFD_Phonenumber=\"%s\" strFD_ProvincialId=\"%s\" "
     L"strFD_CityDomainId=\"%s\" strFD_CarColors=\"%d\" strFD_TerminalID=\"%s\" strFD_CarVIN=\"%s\" "
     L"strFD_TerminalType=\"%s\" strFD_DeviceNum=\"%s\" strFD_CarType=\"%s\" strFD_FacturerID=\"%s\" "
     L"strFD_DrivingLicense=\"%s\" /></VariCfgSec>",
     kVehicleRegistrationSources},
    {L"<VariCfgSec Action=\"DEVICE_SET\"><stCarInfo strFD_LicensePlate=\"%s\" /></VariCfgSec>", kLicensePlateSources},
};
inline constexpr std::size_t kVehicleRegistrationSetting = 0;
inline constexpr std::size_t kLicensePlateSetting = 1;
inline constexpr AttributeRoleEntry kCarInfoRoles[] = {
    {"strFD_Phonenumber", AttributeRole::Identity}, {"strFD_TerminalID", AttributeRole::Identity},
    {"strFD_CarVIN", AttributeRole::Identity},      {"strFD_DeviceNum", AttributeRole::Identity},
    {"strFD_LicensePlate", AttributeRole::Identity}};
inline constexpr SectionDeclaration kCarInfoSection{"stCarInfo", kCarInfoFields, kCarInfoSettings, kCarInfoRoles};

}  // namespace varcfg
