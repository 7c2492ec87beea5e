#include "pages/net/CDlgTabNetCfgWifi.h"

#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

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

// The work mode and the encryption depend on other controls: the page shows them itself.
constexpr Binding<WifiRecord> kWifiBindings[] = {
    VARCFG_BIND(WifiRecord, workMode, "ucFD_WorkMode", Integer),
    VARCFG_BIND(WifiRecord, ssid, "strFD_SSID", Text).InText(IDC_WIFI_SSID),
    VARCFG_BIND(WifiRecord, passwd, "strFD_Passwd", Text).InText(IDC_WIFI_KEY),
    VARCFG_BIND(WifiRecord, authMode, "ucFD_AuthMode", Integer).InComboIndex(IDC_WIFI_AUTH, Unlisted::Keep),
    VARCFG_BIND(WifiRecord, cryptType, "ucFD_CryptType", Integer),
    VARCFG_BIND(WifiRecord, dhcpEnableFlag, "ucFD_DhcpEnableFlag", Integer).InCheck(IDC_WIFI_DHCP),
    VARCFG_BIND(WifiRecord, ip, "uiFD_IP", Ip).InIpAddress(IDC_WIFI_IP),
    VARCFG_BIND(WifiRecord, gateWay, "uiFD_GateWay", Ip).InIpAddress(IDC_WIFI_GATEWAY),
    VARCFG_BIND(WifiRecord, netMask, "uiFD_NetMask", Ip).InIpAddress(IDC_WIFI_MASK),
    VARCFG_BIND(WifiRecord, dns, "uiFD_DNS", Ip),
};
constexpr Section<WifiRecord> kWifi{"stWifi", kWifiBindings};

constexpr wchar_t kClientSetting[] =
    L"<VariCfgSec Action=\"DEVICE_SET\"><stWifi ucFD_WorkMode=\"%d\" strFD_SSID=\"%s\" strFD_Passwd=\"%s\" "
    L"ucFD_AuthMode=\"%d\" ucFD_CryptType=\"%d\" ucFD_DhcpEnableFlag=\"%d\" uiFD_IP=\"%s\" uiFD_NetMask=\"%s\" "
    L"uiFD_GateWay=\"%s\" /></VariCfgSec>";
constexpr wchar_t kWorkModeSetting[] =
    L"<VariCfgSec Action=\"DEVICE_SET\"><stWifi ucFD_WorkMode=\"%d\" /></VariCfgSec>";
// The recorder expects the doubled " />".
constexpr wchar_t kAccessPointSetting[] =
    L"<VariCfgSec Action=\"DEVICE_SET\"><stWifiAp strFD_SSID=\"%s\" strFD_Passwd=\"%s\" ucFD_AuthMode=\"%d\" "
    L"ucFD_CryptType=\"%d\" /> /></VariCfgSec>";

// Work modes by list index; the recorder counts them from 1.
constexpr uint32_t kWorkModeTextIds[] = {16029, 16030};
constexpr int kClientIndex = 0;
constexpr int kAccessPointIndex = 1;

// Authentications in the order of the list, with the value the recorder knows each by.
constexpr struct {
    const wchar_t* name;
    int value;
} kAuthentications[] = {{L"WEP", 0}, {L"WPAPSK", 1}, {L"WPA2PSK", 2}, {L"OPEN", 100}};
constexpr int kWep = 0;
constexpr int kOpen = 100;
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
    for (const auto& authentication : kAuthentications) {
        ComboAdd(Hwnd(), IDC_WIFI_AUTH, authentication.name, authentication.value);
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

std::vector<SectionInfo> CDlgTabNetCfgWifi::DeclaredSections() const { return {Info(kWifi)}; }

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
    if (!TakeSection(kWifi)) return -1;
    const int workMode = ComboSelection(Hwnd(), IDC_WIFI_MODE);
    const LPARAM authentication = ComboSelectedData(Hwnd(), IDC_WIFI_AUTH, -1);
    const int encryption = ComboSelection(Hwnd(), IDC_WIFI_CRYPT);
    int result = 0;
    if (workMode != kAccessPointIndex) {
        result = SendSetting(FillTemplate(
            kClientSetting, {kClientIndex + 1, Text(IDC_WIFI_SSID), Text(IDC_WIFI_KEY), authentication, encryption,
                             Number(IDC_WIFI_DHCP), Text(IDC_WIFI_IP), Text(IDC_WIFI_MASK), Text(IDC_WIFI_GATEWAY)}));
    } else {
        result = SendSetting(FillTemplate(kWorkModeSetting, {kAccessPointIndex + 1}));
        if (result == 1) {
            result = SendSetting(FillTemplate(
                kAccessPointSetting, {Text(IDC_WIFI_SSID), Text(IDC_WIFI_KEY), authentication, encryption}));
        }
    }
    Redraw();
    return result == 1 ? 1 : 0;
}
