// The network pages, each over a table of cases: what a load shows, what a save sends.
#include <gtest/gtest.h>

#include "PageHarness.h"
#include "pages/net/CDlgTabNetCfgLocal.h"
#include "res/resource.h"

using varcfg::test::PageCase;
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
