// The system sections: user security.
#pragma once

#include "catalogue/SectionCatalogue.h"

namespace varcfg {

// stUserSec: password protection.
struct UserSecurityRecord {
    uint8_t passwordEnable;
    char userPassword[7];
    char adminPassword[7];
};
inline constexpr Field<UserSecurityRecord> kUserSecurityFields[] = {
    VARCFG_FIELD(UserSecurityRecord, passwordEnable, "ucFD_PWEnableFlag", Integer),
    VARCFG_FIELD(UserSecurityRecord, userPassword, "strFD_NormalPasswd", Text),
    VARCFG_FIELD(UserSecurityRecord, adminPassword, "strFD_AdminPasswd", Text),
};
inline constexpr PlaceholderSource kUserSecuritySources[] = {
    FromAttribute("ucFD_PWEnableFlag"), FromAttribute("strFD_NormalPasswd"), FromAttribute("strFD_AdminPasswd")};
// The section element stays open: the recorder accepts this form.
inline constexpr SettingTemplate kUserSecuritySettings[] = {
    {L"<VariCfgSec Action=\"DEVICE_SET\"><stUserSec ucFD_PWEnableFlag=\"%d\" strFD_NormalPasswd=\"%s\" "
     L"strFD_AdminPasswd=\"%s\"></VariCfgSec>",
     kUserSecuritySources},
};
inline constexpr AttributeRoleEntry kUserSecurityRoles[] = {{"strFD_NormalPasswd", AttributeRole::Secret},
                                                            {"strFD_AdminPasswd", AttributeRole::Secret}};
inline constexpr SectionDeclaration kUserSecuritySection{"stUserSec", kUserSecurityFields, kUserSecuritySettings,
                                                         kUserSecurityRoles};

}  // namespace varcfg
