#include "pages/net/CDlgTabNetCfgGNet.h"

#include <iterator>

#include "catalogue/NetworkCatalogue.h"
#include "res/resource.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

constexpr Binding<MobileGNetRecord> kMobileBindings[] = {
    BindAttribute(kMobileFields, "ucFD_NetType").InComboIndex(IDC_MOBILE_TYPE, Unlisted::Keep),
    BindAttribute(kMobileFields, "strFD_Apn").InText(IDC_MOBILE_APN),
    BindAttribute(kMobileFields, "strFD_PhoneNo").InText(IDC_MOBILE_DIAL_NUMBER),
    BindAttribute(kMobileFields, "strFD_UserName").InText(IDC_MOBILE_USER),
    BindAttribute(kMobileFields, "strFD_UserPasswd").InText(IDC_MOBILE_PASSWORD),
};
constexpr Section<MobileGNetRecord> kMobile{kMobileSection, kMobileBindings};

// The network types in the order of ucFD_NetType, with the dial number and access point name of the
// carrier that runs each.
struct NetworkType {
    const wchar_t* name;
    const wchar_t* dialNumber;
    const wchar_t* apn;
};
constexpr NetworkType kNetworkTypes[] = {
    {L"FDD/WCDMA", L"*99#", L"3gnet"},
    {L"EVDO", L"#777", L"ctnet"},
    {L"TDD/SCDMA", L"*99***1#", L"cmnet"},
    {L"FDD-CTLTE", L"*99#", L"ctlte"},
};

}  // namespace

CDlgTabNetCfgGNet::CDlgTabNetCfgGNet() : CDlgCfgBase(IDD_NET_MOBILE) {}

BOOL CDlgTabNetCfgGNet::OnInitDialog() {
    SetCaptions(Hwnd(), {{IDC_MOBILE_GROUP, 16016},
                         {IDC_MOBILE_USER_LABEL, 16017},
                         {IDC_MOBILE_PASSWORD_LABEL, 16018},
                         {IDC_MOBILE_TYPE_LABEL, 16020},
                         {IDC_MOBILE_DIAL_NUMBER_LABEL, 16021},
                         {IDC_MOBILE_APN_LABEL, 16022}});
    for (const NetworkType& type : kNetworkTypes) {
        ComboAdd(Hwnd(), IDC_MOBILE_TYPE, type.name, ComboCount(Hwnd(), IDC_MOBILE_TYPE));
    }
    return TRUE;
}

void CDlgTabNetCfgGNet::OnCommand(int id, int code) {
    if (id != IDC_MOBILE_TYPE || code != CBN_SELCHANGE) return CDlgCfgBase::OnCommand(id, code);
    SetItemText(Hwnd(), IDC_MOBILE_DIAL_NUMBER, L"");
    const LPARAM type = ComboSelectedData(Hwnd(), IDC_MOBILE_TYPE, -1);
    if (type < 0 || type >= static_cast<LPARAM>(std::size(kNetworkTypes))) return;
    SetItemText(Hwnd(), IDC_MOBILE_DIAL_NUMBER, kNetworkTypes[type].dialNumber);
    SetItemText(Hwnd(), IDC_MOBILE_APN, kNetworkTypes[type].apn);
}

std::vector<SectionInfo> CDlgTabNetCfgGNet::DeclaredSections() const { return {Info(kMobile)}; }

int CDlgTabNetCfgGNet::Refresh() {
    const int result = LoadSection(kMobile);
    Redraw();
    return result;
}

int CDlgTabNetCfgGNet::Save() {
    if (!TakeSection(kMobile)) return -1;
    const int result = SendSection(kMobile);
    Redraw();
    return result == 1 ? 1 : 0;
}
