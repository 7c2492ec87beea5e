#include "pages/net/CDlgTabNetCfgLocal.h"

#include "catalogue/NetworkCatalogue.h"
#include "res/resource.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

constexpr Binding<LocalEthRecord> kLocalEthBindings[] = {
    BindAttribute(kLocalEthFields, "uiFD_LocalIp").InIpAddress(IDC_LOCAL_IP),
    BindAttribute(kLocalEthFields, "uiFD_NetMask").InIpAddress(IDC_LOCAL_MASK),
    BindAttribute(kLocalEthFields, "uiFD_GateWay").InIpAddress(IDC_LOCAL_GATEWAY),
    BindAttribute(kLocalEthFields, "strFD_Mac").InText(IDC_LOCAL_MAC),
};
constexpr Section<LocalEthRecord> kLocalEth{kLocalEthSection, kLocalEthBindings};

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
    const int result = WriteChangedSection(kLocalEth);
    Redraw();
    return result == 1 ? 1 : 0;
}
