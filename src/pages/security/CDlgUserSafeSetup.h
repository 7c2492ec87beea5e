// CDlgUserSafeSetup: the licence plate (stCarInfo) and the recorder's password protection (stUserSec):
// whether passwords are required, the user and the administrator password, each typed twice. Each
// section is written only when it changed.
#pragma once

#include "pages/base/CDlgCfgBase.h"

class CDlgUserSafeSetup : public CDlgCfgBase {
public:
    CDlgUserSafeSetup();

    // The plate, then the passwords. 1 when the passwords were read; 0 when their transport failed or
    // their section did not decode; -1 when either reply was refused.
    int Refresh() override;
    // Validates the four password fields in order, telling the user of the first fault and returning 0
    // without sending; then writes the plate if changed, then the passwords if changed. A plate the
    // recorder refused stops the save (0); a transport failure does not. 1 otherwise.
    int Save() override;
    std::vector<SectionInfo> DeclaredSections() const override;

protected:
    BOOL OnInitDialog() override;

private:
    bool Validate();
};
