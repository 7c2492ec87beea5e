// CDlgUserSafeSetup: the licence plate and the recorder's passwords (stCarInfo, stUserSec).
#pragma once

#include "res/resource.h"
#include "pages/base/CDlgCfgBase.h"

class CDlgUserSafeSetup : public CDlgCfgBase {
public:
    CDlgUserSafeSetup() : CDlgCfgBase(IDD_USER_SECURITY) {}
};
