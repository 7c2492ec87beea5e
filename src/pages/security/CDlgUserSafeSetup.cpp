#include "pages/security/CDlgUserSafeSetup.h"

#include "catalogue/NetworkCatalogue.h"
#include "catalogue/SystemCatalogue.h"
#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"
#include "ui/win/MsgTip.h"

using namespace varcfg;

namespace {

constexpr std::size_t kPlateLimit = 16;
constexpr std::size_t kPasswordLimit = 6;

constexpr Binding<CarInfoRecord> kCarInfoBindings[] = {
    BindAttribute(kCarInfoFields, "strFD_LicensePlate").InText(IDC_SECURITY_PLATE, kPlateLimit),
};
constexpr Section<CarInfoRecord> kCarInfo{kCarInfoSection, kCarInfoBindings, kLicensePlateSetting};

// Each password is shown in its field and in its confirmation.
constexpr Binding<UserSecurityRecord> kUserSecurityBindings[] = {
    BindAttribute(kUserSecurityFields, "ucFD_PWEnableFlag").InComboIndex(IDC_SECURITY_PASSWORD_ENABLE, Unlisted::Clear),
    BindAttribute(kUserSecurityFields, "strFD_NormalPasswd").InText(IDC_SECURITY_USER_PASSWORD, kPasswordLimit),
    BindAttribute(kUserSecurityFields, "strFD_NormalPasswd").InText(IDC_SECURITY_USER_CONFIRM, kPasswordLimit),
    BindAttribute(kUserSecurityFields, "strFD_AdminPasswd").InText(IDC_SECURITY_ADMIN_PASSWORD, kPasswordLimit),
    BindAttribute(kUserSecurityFields, "strFD_AdminPasswd").InText(IDC_SECURITY_ADMIN_CONFIRM, kPasswordLimit),
};
constexpr Section<UserSecurityRecord> kUserSecurity{kUserSecuritySection, kUserSecurityBindings};

}  // namespace

CDlgUserSafeSetup::CDlgUserSafeSetup() : CDlgCfgBase(IDD_USER_SECURITY) {}

BOOL CDlgUserSafeSetup::OnInitDialog() {
    ComboAdd(Hwnd(), IDC_SECURITY_PASSWORD_ENABLE, CLanguage::Instance().Text(11005), 0);
    ComboAdd(Hwnd(), IDC_SECURITY_PASSWORD_ENABLE, CLanguage::Instance().Text(11004), 1);
    ComboSelect(Hwnd(), IDC_SECURITY_PASSWORD_ENABLE, 0);
    SetCaptions(Hwnd(), {{IDC_SECURITY_PLATE_LABEL, 23016},
                         {IDC_SECURITY_PLATE_NOTE, 24180},
                         {IDC_SECURITY_PASSWORD_ENABLE_LABEL, 16018},
                         {IDC_SECURITY_USER_PASSWORD_LABEL, 17017},
                         {IDC_SECURITY_USER_PASSWORD_NOTE, 24181},
                         {IDC_SECURITY_USER_CONFIRM_LABEL, 17019},
                         {IDC_SECURITY_ADMIN_PASSWORD_LABEL, 1305},
                         {IDC_SECURITY_ADMIN_PASSWORD_NOTE, 24181},
                         {IDC_SECURITY_ADMIN_CONFIRM_LABEL, 1307}});
    return TRUE;
}

std::vector<SectionInfo> CDlgUserSafeSetup::DeclaredSections() const { return {Info(kCarInfo), Info(kUserSecurity)}; }

int CDlgUserSafeSetup::Refresh() {
    if (LoadSection(kCarInfo) == -1) return -1;
    const int result = LoadSection(kUserSecurity);
    Redraw();
    return result;
}

bool CDlgUserSafeSetup::Validate() {
    CLanguage& language = CLanguage::Instance();
    const std::wstring& userPassword = Text(IDC_SECURITY_USER_PASSWORD);
    const std::wstring& userConfirm = Text(IDC_SECURITY_USER_CONFIRM);
    const std::wstring& adminPassword = Text(IDC_SECURITY_ADMIN_PASSWORD);
    const std::wstring& adminConfirm = Text(IDC_SECURITY_ADMIN_CONFIRM);
    const auto notDigits = [&language](uint32_t labelId, const std::wstring& text) {
        return FillTemplate(L"%s:[%s],%s", {language.Text(labelId), text, language.Text(20000)});
    };
    const struct {
        bool refused;
        std::wstring message;
        int focus;
    } checks[] = {
        {!IsDigitString(userPassword), notDigits(17017, userPassword), IDC_SECURITY_USER_PASSWORD},
        {!IsDigitString(userConfirm), notDigits(17019, userConfirm), IDC_SECURITY_USER_CONFIRM},
        {userPassword != userConfirm, language.Text(20004), IDC_SECURITY_USER_CONFIRM},
        {!IsDigitString(adminPassword), notDigits(1305, adminPassword), IDC_SECURITY_ADMIN_PASSWORD},
        {!IsDigitString(adminConfirm), notDigits(1307, adminConfirm), IDC_SECURITY_ADMIN_CONFIRM},
        {adminPassword != adminConfirm, language.Text(20005), IDC_SECURITY_ADMIN_CONFIRM},
    };
    for (const auto& check : checks) {
        if (!check.refused) continue;
        ShowMsgTip(check.message);
        SetFocus(Item(check.focus));
        return false;
    }
    return true;
}

int CDlgUserSafeSetup::Save() {
    // A refused field fails the save with 0, as the password checks do, not -1: the operator sees the
    // refusal, then the write-failed tip (this page's established behaviour). Nothing is sent.
    if (!TakeSection(kCarInfo) || !TakeSection(kUserSecurity) || !Validate()) return 0;
    int result = 1;
    if (SectionChanged(kCarInfo)) {
        const int plateResult = SendSection(kCarInfo);
        if (plateResult == -1) result = 0;
        if (plateResult == 1) AcceptSection(kCarInfo);
    }
    if (result == 1 && SectionChanged(kUserSecurity)) {
        const int passwordResult = SendSection(kUserSecurity);
        if (passwordResult == -1) result = 0;
        if (passwordResult == 1) AcceptSection(kUserSecurity);
    }
    Redraw();
    return result;
}
