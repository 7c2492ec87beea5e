#include "pages/net/CDlgTabNetCfg808.h"

#include "pages/net/ServerSection.h"
#include "protocol/SectionRecords.h"
#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

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

constexpr Binding<NetWorkModeRecord> kLinkBindings[] = {
    VARCFG_BIND(NetWorkModeRecord, enableHr808, "ucFD_EnableHR808", Integer).InCheck(IDC_808_ENABLE),
};
constexpr Section<NetWorkModeRecord> kLink{"stNetWorkMode", kLinkBindings};

constexpr Binding<CarInfoRecord> kCarInfoBindings[] = {
    VARCFG_BIND(CarInfoRecord, phoneNumber, "strFD_Phonenumber", Text).InText(IDC_808_PHONE),
    VARCFG_BIND(CarInfoRecord, provincialId, "strFD_ProvincialId", Text).InText(IDC_808_PROVINCE),
    VARCFG_BIND(CarInfoRecord, cityDomainId, "strFD_CityDomainId", Text).InText(IDC_808_CITY),
    VARCFG_BIND(CarInfoRecord, carColor, "strFD_CarColors", Integer).InComboIndex(IDC_808_PLATE_COLOUR, Unlisted::Clear),
    VARCFG_BIND(CarInfoRecord, terminalId, "strFD_TerminalID", Text).InText(IDC_808_TERMINAL_ID),
    VARCFG_BIND(CarInfoRecord, carVin, "strFD_CarVIN", Text).InText(IDC_808_VIN),
    VARCFG_BIND(CarInfoRecord, terminalType, "strFD_TerminalType", Text).InText(IDC_808_TERMINAL_TYPE),
    VARCFG_BIND(CarInfoRecord, deviceNum, "strFD_DeviceNum", Text).InText(IDC_808_DEVICE_NUMBER),
    VARCFG_BIND(CarInfoRecord, carType, "strFD_CarType", Text).InText(IDC_808_VEHICLE_TYPE),
    VARCFG_BIND(CarInfoRecord, facturerId, "strFD_FacturerID", Text).InText(IDC_808_MANUFACTURER),
    VARCFG_BIND(CarInfoRecord, drivingLicense, "strFD_DrivingLicense", Text).InText(IDC_808_DRIVING_LICENCE),
};
constexpr Section<CarInfoRecord> kCarInfo{"stCarInfo", kCarInfoBindings};

constexpr ServerBindings kServer1Bindings =
    BindServer({IDC_808_SERVER1_TYPE, IDC_808_SERVER1_IP, IDC_808_SERVER1_DOMAIN, IDC_808_SERVER1_PORT});
constexpr Section<ServerRecord> kServer1{"st808CMS1", kServer1Bindings.rows};

constexpr ServerBindings kServer2Bindings =
    BindServer({IDC_808_SERVER2_TYPE, IDC_808_SERVER2_IP, IDC_808_SERVER2_DOMAIN, IDC_808_SERVER2_PORT});
constexpr Section<ServerRecord> kServer2{"st808CMS2", kServer2Bindings.rows};

constexpr wchar_t kLinkSetting[] =
    L"<VariCfgSec Action=\"DEVICE_SET\"><stNetWorkMode ucFD_EnableHR808=\"%d\" /></VariCfgSec>";
// The plate colour goes as its list index, although the attribute is a text.
constexpr wchar_t kCarInfoSetting[] =
    L"<VariCfgSec Action=\"DEVICE_SET\"><stCarInfo strFD_Phonenumber=\"%s\" strFD_ProvincialId=\"%s\" "
    L"strFD_CityDomainId=\"%s\" strFD_CarColors=\"%d\" strFD_TerminalID=\"%s\" strFD_CarVIN=\"%s\" "
    L"strFD_TerminalType=\"%s\" strFD_DeviceNum=\"%s\" strFD_CarType=\"%s\" strFD_FacturerID=\"%s\" "
    L"strFD_DrivingLicense=\"%s\" /></VariCfgSec>";
// Both the IP address and the domain are sent; the recorder picks by the address type.
constexpr wchar_t kServer1Setting[] =
    L"<VariCfgSec Action=\"DEVICE_SET\"><st808CMS1 ucFD_AddressType=\"%d\" uiFD_IP=\"%s\" strFD_Domain=\"%s\" "
    L"usFD_Port=\"%s\" /></VariCfgSec>";
constexpr wchar_t kServer2Setting[] =
    L"<VariCfgSec Action=\"DEVICE_SET\"><st808CMS2 ucFD_AddressType=\"%d\" uiFD_IP=\"%s\" strFD_Domain=\"%s\" "
    L"usFD_Port=\"%s\" /></VariCfgSec>";

// Plate colours by list index, which is the value sent.
constexpr uint32_t kPlateColourTextIds[] = {17023, 17021, 17022, 17024};

}  // namespace

CDlgTabNetCfg808::CDlgTabNetCfg808() : CDlgCfgBase(IDD_NET_808) {}

BOOL CDlgTabNetCfg808::OnInitDialog() {
    SetCaptions(Hwnd(), {{IDC_808_ENABLE_LABEL, 11004},         {IDC_808_SERVER1_IP_LABEL, 16005},
                         {IDC_808_SERVER2_IP_LABEL, 16006},     {IDC_808_SERVER1_PORT_LABEL, 16008},
                         {IDC_808_SERVER2_PORT_LABEL, 16008},   {IDC_808_PHONE_LABEL, 17005},
                         {IDC_808_PROVINCE_LABEL, 17003},       {IDC_808_CITY_LABEL, 17010},
                         {IDC_808_PLATE_COLOUR_LABEL, 17012},   {IDC_808_TERMINAL_ID_LABEL, 17014},
                         {IDC_808_VIN_LABEL, 24163},            {IDC_808_TERMINAL_TYPE_LABEL, 24164},
                         {IDC_808_DEVICE_NUMBER_LABEL, 24165},  {IDC_808_VEHICLE_TYPE_LABEL, 24166},
                         {IDC_808_MANUFACTURER_LABEL, 24167},   {IDC_808_DRIVING_LICENCE_LABEL, 24168},
                         {IDC_808_VEHICLE_GROUP, 24169},        {IDC_808_SERVER1_TYPE_LABEL, 24092},
                         {IDC_808_SERVER2_TYPE_LABEL, 24092},   {IDC_808_SERVER1_DOMAIN_LABEL, 24093},
                         {IDC_808_SERVER2_DOMAIN_LABEL, 24093}});
    for (uint32_t textId : kPlateColourTextIds) {
        ComboAdd(Hwnd(), IDC_808_PLATE_COLOUR, CLanguage::Instance().Text(textId),
                 ComboCount(Hwnd(), IDC_808_PLATE_COLOUR));
    }
    for (int list : {IDC_808_SERVER1_TYPE, IDC_808_SERVER2_TYPE}) {
        ComboAdd(Hwnd(), list, L"IP", 0);
        ComboAdd(Hwnd(), list, L"DOMAIN", 1);
    }
    return TRUE;
}

std::vector<SectionInfo> CDlgTabNetCfg808::DeclaredSections() const {
    return {Info(kLink), Info(kCarInfo), Info(kServer1), Info(kServer2)};
}

int CDlgTabNetCfg808::Refresh() {
    int result = LoadSection(kLink);
    if (result == 1) result = LoadSection(kCarInfo);
    if (result == 1) result = LoadSection(kServer1);
    if (result == 1) result = LoadSection(kServer2);
    Redraw();
    return result;
}

int CDlgTabNetCfg808::Save() {
    if (!TakeSection(kLink) || !TakeSection(kCarInfo) || !TakeSection(kServer1) || !TakeSection(kServer2)) return -1;
    int result = WriteChangedSection(kLink, FillTemplate(kLinkSetting, {Number(IDC_808_ENABLE)}));
    if (result == 1) {
        result = WriteChangedSection(
            kCarInfo, FillTemplate(kCarInfoSetting,
                                   {Text(IDC_808_PHONE), Text(IDC_808_PROVINCE), Text(IDC_808_CITY),
                                    Number(IDC_808_PLATE_COLOUR), Text(IDC_808_TERMINAL_ID), Text(IDC_808_VIN),
                                    Text(IDC_808_TERMINAL_TYPE), Text(IDC_808_DEVICE_NUMBER),
                                    Text(IDC_808_VEHICLE_TYPE), Text(IDC_808_MANUFACTURER),
                                    Text(IDC_808_DRIVING_LICENCE)}));
    }
    if (result == 1) {
        result = WriteChangedSection(
            kServer1, FillTemplate(kServer1Setting, {Number(IDC_808_SERVER1_TYPE), Text(IDC_808_SERVER1_IP),
                                                     Text(IDC_808_SERVER1_DOMAIN), Text(IDC_808_SERVER1_PORT)}));
    }
    // Server 2's address and port are compared with server 1's accepted ones, not with its own: with two
    // different servers it is written on every save. Kept: a second write of the same server is harmless.
    const bool server2Unchanged = Text(IDC_808_SERVER2_IP) == Baseline(IDC_808_SERVER1_IP).text &&
                                  Text(IDC_808_SERVER2_PORT) == Baseline(IDC_808_SERVER1_PORT).text &&
                                  Value(IDC_808_SERVER2_TYPE) == Baseline(IDC_808_SERVER2_TYPE) &&
                                  Value(IDC_808_SERVER2_DOMAIN) == Baseline(IDC_808_SERVER2_DOMAIN);
    if (result == 1 && !server2Unchanged) {
        result = SendSetting(FillTemplate(kServer2Setting, {Number(IDC_808_SERVER2_TYPE), Text(IDC_808_SERVER2_IP),
                                                            Text(IDC_808_SERVER2_DOMAIN), Text(IDC_808_SERVER2_PORT)}));
        if (result == 1) AcceptSection(kServer2);
    }
    Redraw();
    return result == 1 ? 1 : 0;
}
