#include "pages/net/CDlgTabNetCfgPtt.h"

#include "pages/net/ServerSection.h"
#include "res/resource.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

constexpr Binding<PttRecord> kPttBindings[] = {
    BindAttribute(kPttFields, "ucFD_Enable").InCheck(IDC_PTT_ENABLE),
    BindAttribute(kPttFields, "usFD_GroupNo").InText(IDC_PTT_GROUP_NUMBER),
};
constexpr Section<PttRecord> kPtt{kPttSection, kPttBindings};

constexpr ServerBindings kPttCentreBindings = BindServer({0, IDC_PTT_CENTRE_IP, 0, IDC_PTT_PORT});
constexpr Section<ServerRecord> kPttCentre{kPttCentreSection, kPttCentreBindings.rows};

}  // namespace

CDlgTabNetCfgPtt::CDlgTabNetCfgPtt() : CDlgCfgBase(IDD_NET_PTT) {}

BOOL CDlgTabNetCfgPtt::OnInitDialog() {
    SetCaptions(Hwnd(), {{IDC_PTT_ENABLE_LABEL, 11004},
                         {IDC_PTT_GROUP_NUMBER_LABEL, 24110},
                         {IDC_PTT_CENTRE_IP_LABEL, 16007},
                         {IDC_PTT_PORT_LABEL, 16008}});
    return TRUE;
}

std::vector<SectionInfo> CDlgTabNetCfgPtt::DeclaredSections() const { return {Info(kPtt), Info(kPttCentre)}; }

int CDlgTabNetCfgPtt::Refresh() {
    int result = LoadSection(kPtt);
    if (result == 1) result = LoadSection(kPttCentre);
    Redraw();
    return result;
}

int CDlgTabNetCfgPtt::Save() {
    if (!TakeSection(kPtt) || !TakeSection(kPttCentre)) return -1;
    int result = WriteChangedSection(kPtt);
    if (result == 1) result = WriteChangedSection(kPttCentre);
    Redraw();
    return result == 1 ? 1 : 0;
}
