#include "pages/net/CDlgTabNetCfg808.h"

#include "pages/net/ServerSection.h"
#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

constexpr Binding<NetWorkModeRecord> kLinkBindings[] = {
    BindAttribute(kNetWorkModeFields, "ucFD_EnableHR808").InCheck(IDC_808_ENABLE),
};
constexpr Section<NetWorkModeRecord> kLink{kNetWorkModeSection, kLinkBindings, k808LinkSetting};

constexpr Binding<CarInfoRecord> kCarInfoBindings[] = {
    BindAttribute(kCarInfoFields, "strFD_Phonenumber").InText(IDC_808_PHONE),
    BindAttribute(kCarInfoFields, "strFD_ProvincialId").InText(IDC_808_PROVINCE),
    BindAttribute(kCarInfoFields, "strFD_CityDomainId").InText(IDC_808_CITY),
    BindAttribute(kCarInfoFields, "strFD_CarColors").InComboIndex(IDC_808_PLATE_COLOUR, Unlisted::Clear),
    BindAttribute(kCarInfoFields, "strFD_TerminalID").InText(IDC_808_TERMINAL_ID),
    BindAttribute(kCarInfoFields, "strFD_CarVIN").InText(IDC_808_VIN),
    BindAttribute(kCarInfoFields, "strFD_TerminalType").InText(IDC_808_TERMINAL_TYPE),
    BindAttribute(kCarInfoFields, "strFD_DeviceNum").InText(IDC_808_DEVICE_NUMBER),
    BindAttribute(kCarInfoFields, "strFD_CarType").InText(IDC_808_VEHICLE_TYPE),
    BindAttribute(kCarInfoFields, "strFD_FacturerID").InText(IDC_808_MANUFACTURER),
    BindAttribute(kCarInfoFields, "strFD_DrivingLicense").InText(IDC_808_DRIVING_LICENCE),
};
constexpr Section<CarInfoRecord> kCarInfo{kCarInfoSection, kCarInfoBindings, kVehicleRegistrationSetting};

constexpr ServerBindings kServer1Bindings =
    BindServer({IDC_808_SERVER1_TYPE, IDC_808_SERVER1_IP, IDC_808_SERVER1_DOMAIN, IDC_808_SERVER1_PORT});
constexpr Section<ServerRecord> kServer1{k808Server1Section, kServer1Bindings.rows};

constexpr ServerBindings kServer2Bindings =
    BindServer({IDC_808_SERVER2_TYPE, IDC_808_SERVER2_IP, IDC_808_SERVER2_DOMAIN, IDC_808_SERVER2_PORT});
constexpr Section<ServerRecord> kServer2{k808Server2Section, kServer2Bindings.rows};

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
    int result = WriteChangedSection(kLink);
    if (result == 1) result = WriteChangedSection(kCarInfo);
    if (result == 1) result = WriteChangedSection(kServer1);
    // Server 2's address and port are compared with server 1's accepted ones, not with its own: with two
    // different servers it is written on every save. Kept: a second write of the same server is harmless.
    const bool server2Unchanged = Text(IDC_808_SERVER2_IP) == Baseline(IDC_808_SERVER1_IP).text &&
                                  Text(IDC_808_SERVER2_PORT) == Baseline(IDC_808_SERVER1_PORT).text &&
                                  Value(IDC_808_SERVER2_TYPE) == Baseline(IDC_808_SERVER2_TYPE) &&
                                  Value(IDC_808_SERVER2_DOMAIN) == Baseline(IDC_808_SERVER2_DOMAIN);
    if (result == 1 && !server2Unchanged) {
        result = SendSection(kServer2);
        if (result == 1) AcceptSection(kServer2);
    }
    Redraw();
    return result == 1 ? 1 : 0;
}
