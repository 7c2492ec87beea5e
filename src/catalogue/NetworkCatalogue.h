// The network sections: local Ethernet, mobile dial-up, push-to-talk and its dispatch centre.
#pragma once

#include "catalogue/SectionCatalogue.h"
#include "protocol/SectionRecords.h"

namespace varcfg {

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
inline constexpr Field<ServerRecord> kServerFields[] = {
    VARCFG_FIELD(ServerRecord, addressType, "ucFD_AddressType", Integer),
    VARCFG_FIELD(ServerRecord, ip, "uiFD_IP", Ip),
    VARCFG_FIELD(ServerRecord, domain, "strFD_Domain", Text),
    VARCFG_FIELD(ServerRecord, port, "usFD_Port", Integer),
};

inline constexpr PlaceholderSource kPttCentreSources[] = {FromAttribute("uiFD_IP"), FromAttribute("usFD_Port")};
// The dispatch centre is always given by its IP address.
inline constexpr SettingTemplate kPttCentreSettings[] = {
    {L"<VariCfgSec Action=\"DEVICE_SET\"><stPttDcn ucFD_AddressType=\"0\" uiFD_IP=\"%s\" usFD_Port=\"%s\" "
     L"/></VariCfgSec>",
     kPttCentreSources},
};
inline constexpr SectionDeclaration kPttCentreSection{"stPttDcn", kServerFields, kPttCentreSettings};

}  // namespace varcfg
