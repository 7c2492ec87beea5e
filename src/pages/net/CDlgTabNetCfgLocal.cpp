#include "pages/net/CDlgTabNetCfgLocal.h"

#include "plugin/AnsiText.h"
#include "protocol/ConfigTask.h"
#include "protocol/IpText.h"
#include "res/resource.h"
#include "ui/win/Controls.h"
#include "ui/win/DataExchange.h"

using namespace varcfg;

CDlgTabNetCfgLocal::CDlgTabNetCfgLocal() : CDlgCfgBase(IDD_NET_LOCAL) {}

BOOL CDlgTabNetCfgLocal::OnInitDialog() {
    SetCaptions(Hwnd(), {{IDC_LOCAL_GROUP, 16000},
                         {IDC_LOCAL_MASK_LABEL, 16001},
                         {IDC_LOCAL_GATEWAY_LABEL, 16002},
                         {IDC_LOCAL_MAC_LABEL, 16003}});
    return TRUE;
}

void CDlgTabNetCfgLocal::DoDataExchange(DataExchange& dx) { dx.Text(IDC_LOCAL_MAC, current_.mac); }

int CDlgTabNetCfgLocal::Refresh() {
    QueryReply reply;
    const int result = Query(QueryText("stLocalEth0"), reply);
    if (result != 1) return result;
    LocalEthRecord record{};
    if (!CConfig_Task::Import_stLocalEth0(*reply.Section(), record)) return 0;

    current_.ip = FromAnsi(DottedIp(record.localIp));
    current_.mask = FromAnsi(DottedIp(record.netMask));
    current_.gateway = FromAnsi(DottedIp(record.gateWay));
    current_.mac = FromAnsi(record.mac);
    SetIpAddressText(Hwnd(), IDC_LOCAL_IP, current_.ip);
    SetIpAddressText(Hwnd(), IDC_LOCAL_MASK, current_.mask);
    SetIpAddressText(Hwnd(), IDC_LOCAL_GATEWAY, current_.gateway);
    baseline_ = current_;
    UpdateData(false);
    Redraw();
    return 1;
}

int CDlgTabNetCfgLocal::Save() {
    UpdateData(true);
    current_.ip = IpAddressText(Hwnd(), IDC_LOCAL_IP);
    current_.mask = IpAddressText(Hwnd(), IDC_LOCAL_MASK);
    current_.gateway = IpAddressText(Hwnd(), IDC_LOCAL_GATEWAY);
    if (current_ == baseline_) return 1;

    // DHCP is always written off: saving this page gives the port the fixed address shown.
    const std::wstring setting = FormatText(
        L"<VariCfgSec Action=\"DEVICE_SET\"><stLocalEth0 ucFD_DhcpEnableFlag=\"0\" uiFD_LocalIp=\"%ls\" "
        L"uiFD_NetMask=\"%ls\" uiFD_GateWay=\"%ls\" strFD_Mac=\"%ls\" /></VariCfgSec>",
        current_.ip.c_str(), current_.mask.c_str(), current_.gateway.c_str(), current_.mac.c_str());
    const int result = SendSetting(setting);
    Redraw();
    if (result != 1) return 0;
    baseline_ = current_;
    return 1;
}
