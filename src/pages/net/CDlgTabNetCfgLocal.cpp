#include "pages/net/CDlgTabNetCfgLocal.h"

#include "protocol/SectionRecords.h"
#include "res/resource.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

constexpr Binding<LocalEthRecord> kLocalEthBindings[] = {
    VARCFG_BIND(LocalEthRecord, dhcpEnableFlag, "ucFD_DhcpEnableFlag", Integer),
    VARCFG_BIND(LocalEthRecord, localIp, "uiFD_LocalIp", Ip).InIpAddress(IDC_LOCAL_IP),
    VARCFG_BIND(LocalEthRecord, localEth1Ip, "uiFD_LocalEth1Ip", Ip),
    VARCFG_BIND(LocalEthRecord, netMask, "uiFD_NetMask", Ip).InIpAddress(IDC_LOCAL_MASK),
    VARCFG_BIND(LocalEthRecord, gateWay, "uiFD_GateWay", Ip).InIpAddress(IDC_LOCAL_GATEWAY),
    VARCFG_BIND(LocalEthRecord, mac, "strFD_Mac", Text).InText(IDC_LOCAL_MAC),
};
constexpr Section<LocalEthRecord> kLocalEth{"stLocalEth0", kLocalEthBindings};

// DHCP is always written off: saving this page gives the port the fixed address shown.
constexpr wchar_t kLocalEthSetting[] =
    L"<VariCfgSec Action=\"DEVICE_SET\"><stLocalEth0 ucFD_DhcpEnableFlag=\"0\" uiFD_LocalIp=\"%s\" "
    L"uiFD_NetMask=\"%s\" uiFD_GateWay=\"%s\" strFD_Mac=\"%s\" /></VariCfgSec>";

}  // namespace

CDlgTabNetCfgLocal::CDlgTabNetCfgLocal() : CDlgCfgBase(IDD_NET_LOCAL) {}

BOOL CDlgTabNetCfgLocal::OnInitDialog() {
    SetCaptions(Hwnd(), {{IDC_LOCAL_GROUP, 16000},
                         {IDC_LOCAL_MASK_LABEL, 16001},
                         {IDC_LOCAL_GATEWAY_LABEL, 16002},
                         {IDC_LOCAL_MAC_LABEL, 16003}});
    return TRUE;
}

std::vector<SectionInfo> CDlgTabNetCfgLocal::DeclaredSections() const { return {Info(kLocalEth)}; }

int CDlgTabNetCfgLocal::Refresh() {
    const int result = LoadSection(kLocalEth);
    Redraw();
    return result;
}

int CDlgTabNetCfgLocal::Save() {
    if (!TakeSection(kLocalEth)) return -1;
    if (!SectionChanged(kLocalEth)) return 1;
    const int result = SendSetting(FillTemplate(
        kLocalEthSetting, {Text(IDC_LOCAL_IP), Text(IDC_LOCAL_MASK), Text(IDC_LOCAL_GATEWAY), Text(IDC_LOCAL_MAC)}));
    Redraw();
    if (result != 1) return 0;
    AcceptSection(kLocalEth);
    return 1;
}
