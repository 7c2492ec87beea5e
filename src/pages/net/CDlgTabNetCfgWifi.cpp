#include "pages/net/CDlgTabNetCfgWifi.h"

#include <iterator>

#include "catalogue/NetworkCatalogue.h"
#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

// The work mode depends on the encryption list, which depends on the authentication: the page shows
// them itself. The access point's setting takes the same controls.
constexpr Binding<WifiRecord> kWifiBindings[] = {
    BindAttribute(kWifiFields, "strFD_SSID").InText(IDC_WIFI_SSID),
    BindAttribute(kWifiFields, "strFD_Passwd").InText(IDC_WIFI_KEY),
    BindAttribute(kWifiFields, "ucFD_AuthMode").InComboIndex(IDC_WIFI_AUTH, Unlisted::Keep),
    BindAttribute(kWifiFields, "ucFD_CryptType").InComboIndex(IDC_WIFI_CRYPT, Unlisted::Clear),
    BindAttribute(kWifiFields, "ucFD_DhcpEnableFlag").InCheck(IDC_WIFI_DHCP),
    BindAttribute(kWifiFields, "uiFD_IP").InIpAddress(IDC_WIFI_IP),
    BindAttribute(kWifiFields, "uiFD_GateWay").InIpAddress(IDC_WIFI_GATEWAY),
    BindAttribute(kWifiFields, "uiFD_NetMask").InIpAddress(IDC_WIFI_MASK),
};
constexpr Section<WifiRecord> kWifi{kWifiSection, kWifiBindings, kWifiClientSetting};
constexpr Section<WifiRecord> kWorkModeAccessPoint{kWifiSection, kWifiBindings, kWifiAccessPointModeSetting};

constexpr Binding<WifiAccessPointRecord> kAccessPointBindings[] = {
    BindAttribute(kWifiAccessPointFields, "strFD_SSID").InText(IDC_WIFI_SSID),
    BindAttribute(kWifiAccessPointFields, "strFD_Passwd").InText(IDC_WIFI_KEY),
    BindAttribute(kWifiAccessPointFields, "ucFD_AuthMode").InComboIndex(IDC_WIFI_AUTH, Unlisted::Keep),
    BindAttribute(kWifiAccessPointFields, "ucFD_CryptType").InComboIndex(IDC_WIFI_CRYPT, Unlisted::Clear),
};
constexpr Section<WifiAccessPointRecord> kAccessPoint =
    Section<WifiAccessPointRecord>{kWifiAccessPointSection, kAccessPointBindings}.WrittenOnly();

// Work modes by list index; the recorder counts them from 1.
constexpr uint32_t kWorkModeTextIds[] = {16029, 16030};
constexpr int kClientIndex = 0;
constexpr int kAccessPointIndex = 1;

// Authentications in the order of the list; the item data is the value the recorder knows each by.
constexpr const wchar_t* kAuthenticationNames[] = {L"WEP", L"WPAPSK", L"WPA2PSK", L"OPEN"};
static_assert(std::size(kAuthenticationNames) == std::size(kAuthenticationValues));
constexpr LPARAM kWep = kAuthenticationValues[0];
constexpr LPARAM kOpen = kAuthenticationValues[3];
constexpr uint32_t kHexKeyTextId = 11006;

}  // namespace

CDlgTabNetCfgWifi::CDlgTabNetCfgWifi() : CDlgCfgBase(IDD_NET_WIFI) {}

BOOL CDlgTabNetCfgWifi::OnInitDialog() {
    SetCaptions(Hwnd(), {{IDC_WIFI_GROUP, 16009},
                         {IDC_WIFI_MODE_LABEL, 16010},
                         {IDC_WIFI_AUTH_LABEL, 16012},
                         {IDC_WIFI_CRYPT_LABEL, 16013},
                         {IDC_WIFI_MASK_LABEL, 16014},
                         {IDC_WIFI_GATEWAY_LABEL, 16002},
                         {IDC_WIFI_KEY_LABEL, 16015}});
    for (uint32_t textId : kWorkModeTextIds) {
        ComboAdd(Hwnd(), IDC_WIFI_MODE, CLanguage::Instance().Text(textId), ComboCount(Hwnd(), IDC_WIFI_MODE));
    }
    for (std::size_t i = 0; i < std::size(kAuthenticationNames); ++i) {
        ComboAdd(Hwnd(), IDC_WIFI_AUTH, kAuthenticationNames[i], static_cast<LPARAM>(kAuthenticationValues[i]));
    }
    ComboSelect(Hwnd(), IDC_WIFI_MODE, kClientIndex);
    ComboSelect(Hwnd(), IDC_WIFI_AUTH, 0);
    RebuildEncryptionList();
    return TRUE;
}

void CDlgTabNetCfgWifi::OnCommand(int id, int code) {
    if (id == IDC_WIFI_AUTH && code == CBN_SELCHANGE) return RebuildEncryptionList();
    CDlgCfgBase::OnCommand(id, code);
}

void CDlgTabNetCfgWifi::RebuildEncryptionList() {
    HWND page = Hwnd();
    ComboClear(page, IDC_WIFI_CRYPT);
    const LPARAM authentication = ComboSelectedData(page, IDC_WIFI_AUTH, kOpen);
    if (authentication == kWep) {
        ComboAdd(page, IDC_WIFI_CRYPT, L"ASCII", 0);
        ComboAdd(page, IDC_WIFI_CRYPT, CLanguage::Instance().Text(kHexKeyTextId), 1);
    } else if (authentication != kOpen) {
        ComboAdd(page, IDC_WIFI_CRYPT, L"TKIP", 0);
        ComboAdd(page, IDC_WIFI_CRYPT, L"AES", 1);
    }
    ComboSelect(page, IDC_WIFI_CRYPT, 0);
    EnableItem(page, IDC_WIFI_CRYPT, authentication != kOpen);
    EnableItem(page, IDC_WIFI_KEY, authentication != kOpen);
}

std::vector<SectionInfo> CDlgTabNetCfgWifi::DeclaredSections() const { return {Info(kWifi), Info(kAccessPoint)}; }

int CDlgTabNetCfgWifi::Refresh() {
    WifiRecord wifi{};
    const int result = LoadSection(kWifi, wifi);
    if (result == 1) {
        const bool knownMode = wifi.workMode == 1 || wifi.workMode == 2;
        ComboSelect(Hwnd(), IDC_WIFI_MODE, knownMode ? wifi.workMode - 1 : kClientIndex);
        RebuildEncryptionList();
        if (wifi.cryptType < 2) ComboSelect(Hwnd(), IDC_WIFI_CRYPT, wifi.cryptType);
    }
    Redraw();
    return result;
}

int CDlgTabNetCfgWifi::Save() {
    // The access point's setting is filled from the same controls.
    if (!TakeSection(kWifi)) return -1;
    int result = 0;
    if (ComboSelection(Hwnd(), IDC_WIFI_MODE) != kAccessPointIndex) {
        result = SendSection(kWifi);
    } else {
        result = SendSection(kWorkModeAccessPoint);
        if (result == 1) result = SendSection(kAccessPoint);
    }
    Redraw();
    return result == 1 ? 1 : 0;
}
