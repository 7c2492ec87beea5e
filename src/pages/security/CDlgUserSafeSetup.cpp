#include "pages/security/CDlgUserSafeSetup.h"

#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"
#include "ui/win/MsgTip.h"

using namespace varcfg;

namespace {

struct CarInfoRecord {
    char licensePlate[17];
};

struct UserSecurityRecord {
    uint8_t passwordEnable;
    char userPassword[7];
    char adminPassword[7];
};

constexpr std::size_t kPlateLimit = 16;
constexpr std::size_t kPasswordLimit = 6;

constexpr Binding<CarInfoRecord> kCarInfoBindings[] = {
    VARCFG_BIND(CarInfoRecord, licensePlate, "strFD_LicensePlate", Text).InText(IDC_SECURITY_PLATE, kPlateLimit),
};
constexpr Section<CarInfoRecord> kCarInfo{"stCarInfo", kCarInfoBindings};

// Each password is shown in its field and in its confirmation.
constexpr Binding<UserSecurityRecord> kUserSecurityBindings[] = {
    VARCFG_BIND(UserSecurityRecord, passwordEnable, "ucFD_PWEnableFlag", Integer)
        .InComboIndex(IDC_SECURITY_PASSWORD_ENABLE, Unlisted::Clear),
    VARCFG_BIND(UserSecurityRecord, userPassword, "strFD_NormalPasswd", Text)
        .InText(IDC_SECURITY_USER_PASSWORD, kPasswordLimit),
    VARCFG_BIND(UserSecurityRecord, userPassword, "strFD_NormalPasswd", Text)
        .InText(IDC_SECURITY_USER_CONFIRM, kPasswordLimit),
    VARCFG_BIND(UserSecurityRecord, adminPassword, "strFD_AdminPasswd", Text)
        .InText(IDC_SECURITY_ADMIN_PASSWORD, kPasswordLimit),
    VARCFG_BIND(UserSecurityRecord, adminPassword, "strFD_AdminPasswd", Text)
        .InText(IDC_SECURITY_ADMIN_CONFIRM, kPasswordLimit),
};
constexpr Section<UserSecurityRecord> kUserSecurity{"stUserSec", kUserSecurityBindings};

constexpr wchar_t kCarInfoSetting[] =
    L"<VariCfgSec Action=\"DEVICE_SET\"><stCarInfo strFD_LicensePlate=\"%s\" /></VariCfgSec>";
// The section element stays open: the recorder accepts this form.
constexpr wchar_t kUserSecuritySetting[] =
    L"<VariCfgSec Action=\"DEVICE_SET\"><stUserSec ucFD_PWEnableFlag=\"%d\" strFD_NormalPasswd=\"%s\" "
    L"strFD_AdminPasswd=\"%s\"></VariCfgSec>";

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
        const int plateResult = SendSetting(FillTemplate(kCarInfoSetting, {Text(IDC_SECURITY_PLATE)}));
        if (plateResult == -1) result = 0;
        if (plateResult == 1) AcceptSection(kCarInfo);
    }
    if (result == 1 && SectionChanged(kUserSecurity)) {
        const int passwordResult =
            SendSetting(FillTemplate(kUserSecuritySetting, {Number(IDC_SECURITY_PASSWORD_ENABLE),
                                                            Text(IDC_SECURITY_USER_PASSWORD),
                                                            Text(IDC_SECURITY_ADMIN_PASSWORD)}));
        if (passwordResult == -1) result = 0;
        if (passwordResult == 1) AcceptSection(kUserSecurity);
    }
    Redraw();
    return result;
}
