// The network pages, each over a table of cases: what a load shows, what a save sends.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "PageHarness.h"
#include "pages/net/CDlgTabNetCfg808.h"
#include "pages/net/CDlgTabNetCfgGNet.h"
#include "pages/net/CDlgTabNetCfgKovCms.h"
#include "pages/net/CDlgTabNetCfgLocal.h"
#include "pages/net/CDlgTabNetCfgPtt.h"
#include "pages/net/CDlgTabNetCfgWifi.h"
#include "res/resource.h"
#include "base/Platform.h"
#include "ui/Language.h"
#include "ui/win/WinPlatform.h"

using varcfg::test::PageCase;
using varcfg::test::PageUnderTest;
using varcfg::test::RunPageCase;

namespace {

const char kLocalEth[] = R"(ucFD_DhcpEnableFlag="1" uiFD_LocalIp="192.168.1.100" uiFD_NetMask="0x00FFFFFF" )"
                         R"(uiFD_GateWay="16885952" strFD_Mac="00:11:22:33:44:55")";

std::string LocalSetting(const std::string& ip, const std::string& mask, const std::string& gateway,
                         const std::string& mac) {
    return R"(<VariCfgSec Action="DEVICE_SET"><stLocalEth0 ucFD_DhcpEnableFlag="0" uiFD_LocalIp=")" + ip +
           R"(" uiFD_NetMask=")" + mask + R"(" uiFD_GateWay=")" + gateway + R"(" strFD_Mac=")" + mac +
           R"(" /></VariCfgSec>)";
}

}  // namespace

TEST(LocalEthernetPage, ShowsEveryAddressFormAndWritesOnlyWhatChangedExactlyAsTyped) {
    const std::string accepted = LocalSetting("192.168.1.100", "255.255.255.0", "192.168.1.1", "AA:BB");
    const PageCase cases[] = {
        {"unchanged: nothing is sent",
         {{"stLocalEth0", kLocalEth}},
         {{IDC_LOCAL_IP, L"192.168.1.100"}, {IDC_LOCAL_MASK, L"255.255.255.0"}, {IDC_LOCAL_GATEWAY, L"192.168.1.1"},
          {IDC_LOCAL_MAC, L"00:11:22:33:44:55"}},
         {},
         {}},
        {"only the MAC changed: all four are sent, DHCP off",
         {{"stLocalEth0", kLocalEth}},
         {},
         {{IDC_LOCAL_MAC, L"AA:BB"}},
         {accepted}},
        {"a blank address control is sent as an empty text",
         {{"stLocalEth0", kLocalEth}},
         {},
         {{IDC_LOCAL_GATEWAY, L""}},
         {LocalSetting("192.168.1.100", "255.255.255.0", "", "00:11:22:33:44:55")}},
        {"a MAC is cut to 23 characters on load and sent as typed, quotes included",
         {{"stLocalEth0", R"(strFD_Mac="00:11:22:33:44:55:66:77:88:99")"}},
         {{IDC_LOCAL_MAC, L"00:11:22:33:44:55:66:77"}, {IDC_LOCAL_IP, L"0.0.0.0"}},
         {{IDC_LOCAL_MAC, L"a\"b<c"}},
         {LocalSetting("0.0.0.0", "0.0.0.0", "0.0.0.0", "a\"b<c")}},
        {"a refused write keeps the old baseline: the next save sends again",
         {{"stLocalEth0", kLocalEth}},
         {},
         {{IDC_LOCAL_MAC, L"AA:BB"}},
         {accepted},
         0,
         {accepted},
         "MR4-A1",
         1,
         R"(<VariCfgSec Action="DEVICE_SET" Result="0" />)"},
    };
    for (const PageCase& c : cases) RunPageCase<CDlgTabNetCfgLocal>(c);
}

namespace {

const char kPtt[] = R"(ucFD_Enable="1" usFD_GroupNo="12")";
const char kPttCentre[] = R"(ucFD_AddressType="1" uiFD_IP="0x0A01A8C0" strFD_Domain="ptt.example" usFD_Port="7000")";

std::string PttSetting(const std::string& enable, const std::string& group) {
    return R"(<VariCfgSec Action="DEVICE_SET"><stPtt ucFD_Enable=")" + enable + R"(" usFD_GroupNo=")" + group +
           R"(" /></VariCfgSec>)";
}

std::string PttCentreSetting(const std::string& ip, const std::string& port) {
    return R"(<VariCfgSec Action="DEVICE_SET"><stPttDcn ucFD_AddressType="0" uiFD_IP=")" + ip + R"(" usFD_Port=")" +
           port + R"(" /></VariCfgSec>)";
}

}  // namespace

TEST(PushToTalkPage, WritesEachChangedSectionInOrderAndStopsAtTheFirstFailure) {
    const PageCase cases[] = {
        {"unchanged: nothing is sent",
         {{"stPtt", kPtt}, {"stPttDcn", kPttCentre}},
         {{IDC_PTT_ENABLE, L"1"}, {IDC_PTT_GROUP_NUMBER, L"12"}, {IDC_PTT_CENTRE_IP, L"192.168.1.10"},
          {IDC_PTT_PORT, L"7000"}},
         {},
         {}},
        {"only the port changed: only the centre is sent, by IP address",
         {{"stPtt", kPtt}, {"stPttDcn", kPttCentre}},
         {},
         {{IDC_PTT_PORT, L"7001"}},
         {PttCentreSetting("192.168.1.10", "7001")}},
        {"switched off with a group that is not a number: sent as typed",
         {{"stPtt", kPtt}, {"stPttDcn", kPttCentre}},
         {},
         {{IDC_PTT_ENABLE, L"0"}, {IDC_PTT_GROUP_NUMBER, L"1\"2"}},
         {PttSetting("0", "1\"2")}},
        {"a refused switch write sends nothing after it and keeps its edit",
         {{"stPtt", kPtt}, {"stPttDcn", kPttCentre}},
         {},
         {{IDC_PTT_ENABLE, L"0"}, {IDC_PTT_PORT, L"7001"}},
         {PttSetting("0", "12")},
         0,
         {PttSetting("0", "12")},
         "MR4-A1", 1, R"(<VariCfgSec Action="DEVICE_SET" Result="1" />)", {}, {"stPtt"}},
        {"a lost centre write: the accepted group stays written, the centre is sent again",
         {{"stPtt", kPtt}, {"stPttDcn", kPttCentre}},
         {},
         {{IDC_PTT_GROUP_NUMBER, L"13"}, {IDC_PTT_CENTRE_IP, L""}},
         {PttSetting("1", "13"), PttCentreSetting("", "7000")},
         0,
         {PttCentreSetting("", "7000")},
         "MR4-A1", 1, R"(<VariCfgSec Action="DEVICE_SET" Result="1" />)", {"stPttDcn"}},
        {"a refused centre reply fails the load after the switch was shown",
         {{"stPtt", kPtt}},
         {{IDC_PTT_GROUP_NUMBER, L"12"}, {IDC_PTT_CENTRE_IP, L""}},
         {},
         {},
         1,
         {},
         "MR4-A1", -1},
    };
    for (const PageCase& c : cases) RunPageCase<CDlgTabNetCfgPtt>(c);
}

namespace {

const char kMobile[] = R"(ucFD_NetType="2" strFD_Apn="cmnet" strFD_PhoneNo="*99***1#" strFD_UserName="card" )"
                       R"(strFD_UserPasswd="secret")";

std::string MobileSetting(const std::string& type, const std::string& apn, const std::string& dialNumber,
                          const std::string& user, const std::string& password) {
    return R"(<VariCfgSec Action="DEVICE_SET"><stMobileGNet ucFD_NetType=")" + type + R"(" strFD_Apn=")" + apn +
           R"(" strFD_PhoneNo=")" + dialNumber + R"(" strFD_UserName=")" + user + R"(" strFD_UserPasswd=")" +
           password + R"(" /></VariCfgSec>)";
}

}  // namespace

TEST(MobileNetworkPage, SendsTheWholeSectionOnEverySaveWithTheCarrierDefaultsOfTheChosenType) {
    const std::string unchanged = MobileSetting("2", "cmnet", "*99***1#", "card", "secret");
    const PageCase cases[] = {
        {"unchanged: every save sends the whole section",
         {{"stMobileGNet", kMobile}},
         {{IDC_MOBILE_TYPE, L"TDD/SCDMA"}, {IDC_MOBILE_APN, L"cmnet"}, {IDC_MOBILE_DIAL_NUMBER, L"*99***1#"},
          {IDC_MOBILE_USER, L"card"}, {IDC_MOBILE_PASSWORD, L"secret"}},
         {},
         {unchanged},
         1,
         {unchanged}},
        {"choosing a type overwrites a typed APN and keeps user and password",
         {{"stMobileGNet", kMobile}},
         {},
         {{IDC_MOBILE_APN, L"private.apn"}, {IDC_MOBILE_TYPE, L"EVDO"}},
         {MobileSetting("1", "ctnet", "#777", "card", "secret")},
         1,
         {MobileSetting("1", "ctnet", "#777", "card", "secret")}},
        {"texts with quotes are sent as typed",
         {{"stMobileGNet", kMobile}},
         {},
         {{IDC_MOBILE_TYPE, L"FDD-CTLTE"}, {IDC_MOBILE_USER, L"a\"b"}},
         {MobileSetting("3", "ctlte", "*99#", "a\"b", "secret")},
         1,
         {MobileSetting("3", "ctlte", "*99#", "a\"b", "secret")}},
        {"a type the list does not offer selects nothing on a new page",
         {{"stMobileGNet", R"(ucFD_NetType="4" strFD_Apn="x")"}},
         {{IDC_MOBILE_TYPE, L""}, {IDC_MOBILE_APN, L"x"}},
         {},
         {MobileSetting("-1", "x", "", "", "")},
         1,
         {MobileSetting("-1", "x", "", "", "")}},
        {"a refused write keeps the edits for the next save",
         {{"stMobileGNet", kMobile}},
         {},
         {{IDC_MOBILE_PASSWORD, L"new"}},
         {MobileSetting("2", "cmnet", "*99***1#", "card", "new")},
         0,
         {MobileSetting("2", "cmnet", "*99***1#", "card", "new")},
         "MR4-A1", 1, R"(<VariCfgSec Action="DEVICE_SET" Result="0" />)"},
    };
    for (const PageCase& c : cases) RunPageCase<CDlgTabNetCfgGNet>(c);

    // A later read of a type the list does not offer keeps the type shown, and saves it.
    PageUnderTest page(std::make_unique<CDlgTabNetCfgGNet>(), "MR4-A1");
    page.recorder.SetSection("stMobileGNet", kMobile);
    ASSERT_EQ(page.Page().Refresh(), 1);
    page.recorder.SetSection("stMobileGNet", R"(ucFD_NetType="9" strFD_Apn="cmnet" strFD_PhoneNo="*99***1#")");
    ASSERT_EQ(page.Page().Refresh(), 1);
    EXPECT_EQ(varcfg::test::Shown(page.Hwnd(), IDC_MOBILE_TYPE), L"TDD/SCDMA");
    EXPECT_EQ(page.Page().Save(), 1);
    EXPECT_EQ(page.TakeSettings(), std::vector<std::string>{MobileSetting("2", "cmnet", "*99***1#", "", "")});
}

namespace {

// The list texts that come from the language table, so that tests can pick them by name.
class ScopedLanguage {
public:
    explicit ScopedLanguage(const std::string& texts) {
        varcfg::InstallPlatform(&varcfg::WindowsPlatform());
        std::ofstream(file_) << "[STRING]\n" << texts;
        CLanguage::Instance().SetLanguagePath(file_.wstring());
    }
    ~ScopedLanguage() {
        CLanguage::Instance().SetLanguagePath(L"");
        varcfg::InstallPlatform(nullptr);
        std::filesystem::remove(file_);
    }

private:
    std::filesystem::path file_ = std::filesystem::temp_directory_path() / "net_pages_language.ini";
};

const char kWifiClient[] = R"(ucFD_WorkMode="1" strFD_SSID="depot" strFD_Passwd="k3y" ucFD_AuthMode="2" )"
                           R"(ucFD_CryptType="1" ucFD_DhcpEnableFlag="1" uiFD_IP="0x640AA8C0" )"
                           R"(uiFD_NetMask="255.255.255.0" uiFD_GateWay="17475776" uiFD_DNS="8.8.8.8")";

std::string WifiClientSetting(const std::string& ssid, const std::string& key, const std::string& authentication,
                              const std::string& encryption, const std::string& dhcp, const std::string& ip) {
    return R"(<VariCfgSec Action="DEVICE_SET"><stWifi ucFD_WorkMode="1" strFD_SSID=")" + ssid +
           R"(" strFD_Passwd=")" + key + R"(" ucFD_AuthMode=")" + authentication + R"(" ucFD_CryptType=")" +
           encryption + R"(" ucFD_DhcpEnableFlag=")" + dhcp + R"(" uiFD_IP=")" + ip +
           R"(" uiFD_NetMask="255.255.255.0" uiFD_GateWay="192.168.10.1" /></VariCfgSec>)";
}

const std::string kAccessPointMode = R"(<VariCfgSec Action="DEVICE_SET"><stWifi ucFD_WorkMode="2" /></VariCfgSec>)";

std::string AccessPointSetting(const std::string& ssid, const std::string& key, const std::string& authentication,
                               const std::string& encryption) {
    return R"(<VariCfgSec Action="DEVICE_SET"><stWifiAp strFD_SSID=")" + ssid + R"(" strFD_Passwd=")" + key +
           R"(" ucFD_AuthMode=")" + authentication + R"(" ucFD_CryptType=")" + encryption + R"(" /> /></VariCfgSec>)";
}

}  // namespace

TEST(WifiPage, SendsTheClientOrTheAccessPointSettingsWithTheEncryptionsOfTheAuthentication) {
    const ScopedLanguage language("16029=Client\n16030=Access point\n11006=HEX\n");
    const std::string client = WifiClientSetting("depot", "k3y", "2", "1", "1", "192.168.10.100");
    const PageCase cases[] = {
        {"a client on DHCP: every save sends the fixed address too",
         {{"stWifi", kWifiClient}},
         {{IDC_WIFI_MODE, L"Client"}, {IDC_WIFI_SSID, L"depot"}, {IDC_WIFI_KEY, L"k3y"}, {IDC_WIFI_AUTH, L"WPA2PSK"},
          {IDC_WIFI_CRYPT, L"AES"}, {IDC_WIFI_DHCP, L"1"}, {IDC_WIFI_IP, L"192.168.10.100"},
          {IDC_WIFI_MASK, L"255.255.255.0"}, {IDC_WIFI_GATEWAY, L"192.168.10.1"}},
         {},
         {client},
         1,
         {client}},
        {"open: no encryption to choose, sent as 100 and -1",
         {{"stWifi", kWifiClient}},
         {},
         {{IDC_WIFI_AUTH, L"OPEN"}, {IDC_WIFI_DHCP, L"0"}, {IDC_WIFI_IP, L""}},
         {WifiClientSetting("depot", "k3y", "100", "-1", "0", "")},
         1,
         {WifiClientSetting("depot", "k3y", "100", "-1", "0", "")}},
        {"from WEP to WPA2-PSK the encryption starts again at TKIP",
         {{"stWifi", R"(ucFD_WorkMode="3" ucFD_AuthMode="0" ucFD_CryptType="1")"}},
         {{IDC_WIFI_MODE, L"Client"}, {IDC_WIFI_AUTH, L"WEP"}, {IDC_WIFI_CRYPT, L"HEX"}},
         {{IDC_WIFI_AUTH, L"WPA2PSK"}, {IDC_WIFI_SSID, L"a\"b"}},
         {R"(<VariCfgSec Action="DEVICE_SET"><stWifi ucFD_WorkMode="1" strFD_SSID="a"b" strFD_Passwd="" )"
          R"(ucFD_AuthMode="2" ucFD_CryptType="0" ucFD_DhcpEnableFlag="0" uiFD_IP="0.0.0.0" )"
          R"(uiFD_NetMask="0.0.0.0" uiFD_GateWay="0.0.0.0" /></VariCfgSec>)"},
         1,
         {R"(<VariCfgSec Action="DEVICE_SET"><stWifi ucFD_WorkMode="1" strFD_SSID="a"b" strFD_Passwd="" )"
          R"(ucFD_AuthMode="2" ucFD_CryptType="0" ucFD_DhcpEnableFlag="0" uiFD_IP="0.0.0.0" )"
          R"(uiFD_NetMask="0.0.0.0" uiFD_GateWay="0.0.0.0" /></VariCfgSec>)"}},
        {"an access point: the work mode, then its own section with the doubled end",
         {{"stWifi", R"(ucFD_WorkMode="2" strFD_SSID="MDVR-AP" strFD_Passwd="12345678" ucFD_AuthMode="100" )"
                     R"(ucFD_CryptType="7")"}},
         {{IDC_WIFI_MODE, L"Access point"}, {IDC_WIFI_AUTH, L"WEP"}, {IDC_WIFI_CRYPT, L"ASCII"}},
         {},
         {kAccessPointMode, AccessPointSetting("MDVR-AP", "12345678", "0", "0")},
         1,
         {kAccessPointMode, AccessPointSetting("MDVR-AP", "12345678", "0", "0")}},
        {"a refused work mode sends nothing more",
         {{"stWifi", kWifiClient}},
         {},
         {{IDC_WIFI_MODE, L"Access point"}},
         {kAccessPointMode},
         0,
         {kAccessPointMode},
         "MR4-A1", 1, R"(<VariCfgSec Action="DEVICE_SET" Result="1" />)", {}, {"stWifi"}},
        {"a lost access point write fails the save",
         {{"stWifi", kWifiClient}},
         {},
         {{IDC_WIFI_MODE, L"Access point"}},
         {kAccessPointMode, AccessPointSetting("depot", "k3y", "2", "1")},
         0,
         {kAccessPointMode, AccessPointSetting("depot", "k3y", "2", "1")},
         "MR4-A1", 1, R"(<VariCfgSec Action="DEVICE_SET" Result="1" />)", {"stWifiAp"}},
    };
    for (const PageCase& c : cases) RunPageCase<CDlgTabNetCfgWifi>(c);
}

namespace {

const char kBaseInfo[] = R"(strFD_DeviceNo="BUS0042" ucFD_TimeZone="12")";
const char kCentre[] = R"(ucFD_AddressType="0" uiFD_IP="121.40.17.5" strFD_Domain="cms.old.example" usFD_Port="6608")";
const char kPlatformAccepted[] = R"(<Response><NETWORK_SET Action="set" Result="1"/></Response>)";

std::string CentreSetting(const std::string& deviceId, const std::string& address, const std::string& port) {
    return R"(<Parameter><NETWORK_SET Action="set" DevIDNO=")" + deviceId + R"("  CenterIP_0=")" + address +
           R"(" ContrlPort_0=")" + port + R"(" /></Parameter>)";
}

}  // namespace

TEST(CentreServerPage, WritesThePlatformMessageOnlyAfterConfirmationAndWhenSomethingChanged) {
    const std::string byDomain = CentreSetting("BUS0042", "cms.fleet.example", "6608");
    const PageCase cases[] = {
        {"unchanged: confirmed, nothing is sent",
         {{"stBaseInfo", kBaseInfo}, {"stCMS", kCentre}},
         {{IDC_CMS_DEVICE_ID, L"BUS0042"}, {IDC_CMS_ADDRESS_TYPE, L"IP"}, {IDC_CMS_IP, L"121.40.17.5"},
          {IDC_CMS_DOMAIN, L"cms.old.example"}, {IDC_CMS_PORT, L"6608"}},
         {},
         {},
         0,
         {},
         "MR4-A1", 1, kPlatformAccepted, {}, {}, {IDOK, IDOK}},
        {"cancelled: nothing is sent and the edit waits for the next save",
         {{"stBaseInfo", kBaseInfo}, {"stCMS", kCentre}},
         {},
         {{IDC_CMS_PORT, L"7000"}},
         {},
         0,
         {CentreSetting("BUS0042", "121.40.17.5", "7000")},
         "MR4-A1", 1, kPlatformAccepted, {}, {}, {IDCANCEL, IDOK}},
        {"by domain: the domain is sent as the address, and again, for its baseline stays",
         {{"stBaseInfo", kBaseInfo}, {"stCMS", kCentre}},
         {},
         {{IDC_CMS_ADDRESS_TYPE, L"DOMAIN"}, {IDC_CMS_DOMAIN, L"cms.fleet.example"}},
         {byDomain},
         1,
         {byDomain},
         "MR4-A1", 1, kPlatformAccepted, {}, {}, {IDOK, IDOK}},
        {"a port that is not a number goes as typed; a VariCfgSec answer is refused",
         {{"stBaseInfo", kBaseInfo}, {"stCMS", kCentre}},
         {},
         {{IDC_CMS_PORT, L"66\"8"}},
         {CentreSetting("BUS0042", "121.40.17.5", "66\"8")},
         0,
         {CentreSetting("BUS0042", "121.40.17.5", "66\"8")},
         "MR4-A1", 1, R"(<VariCfgSec Action="DEVICE_SET" Result="1" />)", {}, {}, {IDOK, IDOK}},
        {"a lost message keeps the edit for the next save",
         {{"stBaseInfo", kBaseInfo}, {"stCMS", kCentre}},
         {},
         {{IDC_CMS_DEVICE_ID, L"BUS0043"}},
         {CentreSetting("BUS0043", "121.40.17.5", "6608")},
         0,
         {CentreSetting("BUS0043", "121.40.17.5", "6608")},
         "MR4-A1", 1, kPlatformAccepted, {"NETWORK_SET"}, {}, {IDOK, IDOK}},
        {"a device ID of four characters does not decode: the server is not read, and the port's first "
         "text differs from the empty baseline",
         {{"stBaseInfo", R"(strFD_DeviceNo="BUS1")"}, {"stCMS", kCentre}},
         {{IDC_CMS_DEVICE_ID, L""}, {IDC_CMS_PORT, L"6608"}, {IDC_CMS_IP, L""}},
         {},
         {CentreSetting("", "", "6608")},
         1,
         {},
         "MR4-A1", 0, kPlatformAccepted, {}, {}, {IDOK, IDOK}},
    };
    for (const PageCase& c : cases) RunPageCase<CDlgTabNetCfgKovCms>(c);

    // What the operator is asked to confirm.
    const ScopedLanguage language("24175=Apply server settings\n");
    PageUnderTest page(std::make_unique<CDlgTabNetCfgKovCms>(), "MR4-A1");
    page.recorder.SetSection("stBaseInfo", kBaseInfo);
    page.recorder.SetSection("stCMS", kCentre);
    ASSERT_EQ(page.Page().Refresh(), 1);
    page.watcher.Queue(varcfg::test::Answer::Click(IDCANCEL));
    EXPECT_EQ(page.Page().Save(), 0);
    ASSERT_EQ(page.watcher.Seen().size(), 1u);
    EXPECT_EQ(page.watcher.Seen()[0].title, L"Apply server settings");
    const auto texts = page.watcher.Seen()[0].StaticTexts();
    EXPECT_NE(std::find(texts.begin(), texts.end(), L"Apply server settings:BUS0042@121.40.17.5:6608"), texts.end());
}

namespace {

const char kLink808[] = R"(ucFD_NetType="0" usFD_GPSInterval="30" ucFD_EnableHR808="1")";
const char kCarInfo[] = R"(strFD_Phonenumber="13800138000" strFD_ProvincialId="44" strFD_CityDomainId="0300" )"
                        R"(strFD_CarColors="2" strFD_TerminalID="T1234567" strFD_CarVIN="LSVAM4187C2184847" )"
                        R"(strFD_TerminalType="MR9504" strFD_DeviceNum="BUS0042" strFD_CarType="Bus" )"
                        R"(strFD_FacturerID="70111" strFD_DrivingLicense="D-1")";
const char kServer[] = R"(ucFD_AddressType="0" uiFD_IP="121.40.17.5" strFD_Domain="" usFD_Port="7611")";
const char kOtherServer[] = R"(ucFD_AddressType="1" uiFD_IP="0" strFD_Domain="jt808.example" usFD_Port="7008")";

std::string CarInfoSetting(const std::string& phone, const std::string& colour) {
    return R"(<VariCfgSec Action="DEVICE_SET"><stCarInfo strFD_Phonenumber=")" + phone +
           R"(" strFD_ProvincialId="44" strFD_CityDomainId="0300" strFD_CarColors=")" + colour +
           R"(" strFD_TerminalID="T1234567" strFD_CarVIN="LSVAM4187C2184847" strFD_TerminalType="MR9504" )"
           R"(strFD_DeviceNum="BUS0042" strFD_CarType="Bus" strFD_FacturerID="70111" strFD_DrivingLicense="D-1" )"
           R"(/></VariCfgSec>)";
}

std::string ServerSetting(const std::string& section, const std::string& type, const std::string& ip,
                          const std::string& domain, const std::string& port) {
    return R"(<VariCfgSec Action="DEVICE_SET"><)" + section + R"( ucFD_AddressType=")" + type + R"(" uiFD_IP=")" +
           ip + R"(" strFD_Domain=")" + domain + R"(" usFD_Port=")" + port + R"(" /></VariCfgSec>)";
}

const std::string kLinkOff = R"(<VariCfgSec Action="DEVICE_SET"><stNetWorkMode ucFD_EnableHR808="0" /></VariCfgSec>)";

}  // namespace

TEST(Platform808Page, WritesTheChangedSectionsInOrderAndServer2AgainstServer1) {
    const ScopedLanguage language("17021=Blue\n17022=Yellow\n17023=No plate\n17024=Black\n");
    const std::vector<std::pair<std::string, std::string>> sameServerTwice = {
        {"stNetWorkMode", kLink808}, {"stCarInfo", kCarInfo}, {"st808CMS1", kServer}, {"st808CMS2", kServer}};
    const std::vector<std::pair<std::string, std::string>> twoServers = {
        {"stNetWorkMode", kLink808}, {"stCarInfo", kCarInfo}, {"st808CMS1", kServer}, {"st808CMS2", kOtherServer}};
    const std::string server2 = ServerSetting("st808CMS2", "1", "0.0.0.0", "jt808.example", "7008");
    const PageCase cases[] = {
        {"the same server twice, no edits: nothing is sent",
         sameServerTwice,
         {{IDC_808_ENABLE, L"1"}, {IDC_808_PHONE, L"13800138000"}, {IDC_808_PLATE_COLOUR, L"Yellow"},
          {IDC_808_DRIVING_LICENCE, L"D-1"}, {IDC_808_SERVER1_TYPE, L"IP"}, {IDC_808_SERVER1_IP, L"121.40.17.5"},
          {IDC_808_SERVER1_PORT, L"7611"}, {IDC_808_SERVER2_IP, L"121.40.17.5"}},
         {},
         {}},
        {"two different servers: server 2 is written on every save",
         twoServers,
         {{IDC_808_SERVER2_TYPE, L"DOMAIN"}, {IDC_808_SERVER2_DOMAIN, L"jt808.example"}},
         {},
         {server2},
         1,
         {server2}},
        {"every section changed: written in order, the colour as its index",
         sameServerTwice,
         {},
         {{IDC_808_ENABLE, L"0"}, {IDC_808_PLATE_COLOUR, L"Black"}, {IDC_808_SERVER1_PORT, L"7612"},
          {IDC_808_SERVER2_DOMAIN, L"b\"u"}},
         {kLinkOff, CarInfoSetting("13800138000", "3"), ServerSetting("st808CMS1", "0", "121.40.17.5", "", "7612"),
          ServerSetting("st808CMS2", "0", "121.40.17.5", "b\"u", "7611")},
         1,
         {ServerSetting("st808CMS2", "0", "121.40.17.5", "b\"u", "7611")}},
        {"a refused vehicle write ends the save; the switch stays written",
         sameServerTwice,
         {},
         {{IDC_808_ENABLE, L"0"}, {IDC_808_PHONE, L"139"}, {IDC_808_SERVER1_PORT, L"7612"}},
         {kLinkOff, CarInfoSetting("139", "2")},
         0,
         {CarInfoSetting("139", "2")},
         "MR4-A1", 1, R"(<VariCfgSec Action="DEVICE_SET" Result="1" />)", {}, {"stCarInfo"}},
        {"a colour outside the list selects nothing and goes as -1",
         {{"stNetWorkMode", kLink808}, {"stCarInfo", R"(strFD_CarColors="7")"}, {"st808CMS1", kServer},
          {"st808CMS2", kServer}},
         {{IDC_808_PLATE_COLOUR, L""}},
         {{IDC_808_PHONE, L"1"}, {IDC_808_SERVER2_PORT, L"7000"}},
         {R"(<VariCfgSec Action="DEVICE_SET"><stCarInfo strFD_Phonenumber="1" strFD_ProvincialId="" )"
          R"(strFD_CityDomainId="" strFD_CarColors="-1" strFD_TerminalID="" strFD_CarVIN="" strFD_TerminalType="" )"
          R"(strFD_DeviceNum="" strFD_CarType="" strFD_FacturerID="" strFD_DrivingLicense="" /></VariCfgSec>)",
          ServerSetting("st808CMS2", "0", "121.40.17.5", "", "7000")},
         0,
         {ServerSetting("st808CMS2", "0", "121.40.17.5", "", "7000")},
         "MR4-A1", 1, R"(<VariCfgSec Action="DEVICE_SET" Result="1" />)", {"st808CMS2"}},
    };
    for (const PageCase& c : cases) RunPageCase<CDlgTabNetCfg808>(c);

    // A refused server 1 reply ends the load: server 2 is not asked for.
    PageUnderTest page(std::make_unique<CDlgTabNetCfg808>(), "MR4-A1");
    page.recorder.SetSection("stNetWorkMode", kLink808);
    page.recorder.SetSection("stCarInfo", kCarInfo);
    page.recorder.SetSection("st808CMS2", kServer);
    EXPECT_EQ(page.Page().Refresh(), -1);
    const std::vector<std::string> queried = page.recorder.Texts();
    ASSERT_EQ(queried.size(), 3u);
    EXPECT_NE(queried[2].find("<st808CMS1>"), std::string::npos);
    EXPECT_EQ(varcfg::test::Shown(page.Hwnd(), IDC_808_SERVER2_IP), L"");
}
