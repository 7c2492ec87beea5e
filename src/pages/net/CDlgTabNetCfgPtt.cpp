#include "pages/net/CDlgTabNetCfgPtt.h"

#include "pages/net/ServerSection.h"
#include "protocol/SectionRecords.h"
#include "res/resource.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

// stPtt: push-to-talk.
struct PttRecord {
    uint8_t enable;
    uint16_t groupNo;
};

constexpr Binding<PttRecord> kPttBindings[] = {
    VARCFG_BIND(PttRecord, enable, "ucFD_Enable", Integer).InCheck(IDC_PTT_ENABLE),
    VARCFG_BIND(PttRecord, groupNo, "usFD_GroupNo", Integer).InText(IDC_PTT_GROUP_NUMBER),
};
constexpr Section<PttRecord> kPtt{"stPtt", kPttBindings};

constexpr ServerBindings kPttCentreBindings = BindServer({0, IDC_PTT_CENTRE_IP, 0, IDC_PTT_PORT});
constexpr Section<ServerRecord> kPttCentre{"stPttDcn", kPttCentreBindings.rows};

constexpr wchar_t kPttSetting[] =
    L"<VariCfgSec Action=\"DEVICE_SET\"><stPtt ucFD_Enable=\"%d\" usFD_GroupNo=\"%s\" /></VariCfgSec>";
// The centre is always given by its IP address.
constexpr wchar_t kPttCentreSetting[] =
    L"<VariCfgSec Action=\"DEVICE_SET\"><stPttDcn ucFD_AddressType=\"0\" uiFD_IP=\"%s\" usFD_Port=\"%s\" "
    L"/></VariCfgSec>";

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
    int result =
        WriteChangedSection(kPtt, FillTemplate(kPttSetting, {Number(IDC_PTT_ENABLE), Text(IDC_PTT_GROUP_NUMBER)}));
    if (result == 1) {
        result = WriteChangedSection(
            kPttCentre, FillTemplate(kPttCentreSetting, {Text(IDC_PTT_CENTRE_IP), Text(IDC_PTT_PORT)}));
    }
    Redraw();
    return result == 1 ? 1 : 0;
}
