#include "pages/net/CDlgTabNetCfgKovCms.h"

#include "base/AnsiText.h"
#include "pages/net/ServerSection.h"
#include "protocol/SectionRecords.h"
#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

constexpr Binding<BaseInfoRecord> kDeviceIdBindings[] = {
    VARCFG_BIND(BaseInfoRecord, deviceNo, "strFD_DeviceNo", Text).InText(IDC_CMS_DEVICE_ID).AcceptingTextLength(5, 12),
};
constexpr Section<BaseInfoRecord> kDeviceId{"stBaseInfo", kDeviceIdBindings};

constexpr ServerBindings kCentreBindings =
    BindServer({IDC_CMS_ADDRESS_TYPE, IDC_CMS_IP, IDC_CMS_DOMAIN, IDC_CMS_PORT});
constexpr Section<ServerRecord> kCentre{"stCMS", kCentreBindings.rows};

// The platform's own message; the two blanks before CenterIP_0 are part of it. The platform tells an
// IP address from a domain name by the text of CenterIP_0.
constexpr wchar_t kCentreSetting[] =
    L"<Parameter><NETWORK_SET Action=\"set\" DevIDNO=\"%s\"  CenterIP_0=\"%s\" ContrlPort_0=\"%s\" /></Parameter>";
constexpr wchar_t kConfirmation[] = L"%s:%s@%s:%s";
constexpr uint32_t kApplyServerTextId = 24175;
constexpr int kByIpAddress = 0;

}  // namespace

CDlgTabNetCfgKovCms::CDlgTabNetCfgKovCms() : CDlgCfgBase(IDD_NET_CMS) {}

BOOL CDlgTabNetCfgKovCms::OnInitDialog() {
    SetCaptions(Hwnd(), {{IDC_CMS_GROUP, 16004},
                         {IDC_CMS_DEVICE_ID_LABEL, 16026},
                         {IDC_CMS_IP_LABEL, 16007},
                         {IDC_CMS_PORT_LABEL, 16008},
                         {IDC_CMS_ADDRESS_TYPE_LABEL, 24092},
                         {IDC_CMS_DOMAIN_LABEL, 24093}});
    ComboAdd(Hwnd(), IDC_CMS_ADDRESS_TYPE, L"IP", 0);
    ComboAdd(Hwnd(), IDC_CMS_ADDRESS_TYPE, L"DOMAIN", 1);
    return TRUE;
}

std::vector<SectionInfo> CDlgTabNetCfgKovCms::DeclaredSections() const { return {Info(kDeviceId), Info(kCentre)}; }

int CDlgTabNetCfgKovCms::Refresh() {
    int result = LoadSection(kDeviceId);
    if (result == 1) result = LoadSection(kCentre);
    Redraw();
    return result;
}

int CDlgTabNetCfgKovCms::Save() {
    if (!TakeSection(kDeviceId) || !TakeSection(kCentre)) return -1;
    const std::wstring& address = Number(IDC_CMS_ADDRESS_TYPE) == kByIpAddress ? Text(IDC_CMS_IP) : Text(IDC_CMS_DOMAIN);
    const std::wstring title = CLanguage::Instance().Text(kApplyServerTextId);
    const std::wstring question =
        FillTemplate(kConfirmation, {title, Text(IDC_CMS_DEVICE_ID), address, Text(IDC_CMS_PORT)});
    if (MessageBoxW(Hwnd(), question.c_str(), title.c_str(), MB_OKCANCEL | MB_ICONQUESTION) != IDOK) return 0;
    if (!SectionChanged(kDeviceId) && !SectionChanged(kCentre)) return 0;

    const std::wstring setting =
        FillTemplate(kCentreSetting, {Text(IDC_CMS_DEVICE_ID), address, Text(IDC_CMS_PORT)});
    std::string reply;
    const bool answered = varcfg::Exchange(ToAnsi(setting), kSettingForm, reply);
    Redraw();
    if (!answered) return 0;
    if (CheckPlatformReply(reply) != 0) {
        LogRefusedReply(ToAnsi(setting));
        return 0;
    }
    // The domain keeps its old baseline: a changed domain is sent again by the next save.
    for (int control : {IDC_CMS_DEVICE_ID, IDC_CMS_ADDRESS_TYPE, IDC_CMS_IP, IDC_CMS_PORT}) AcceptValue(control);
    return 1;
}
