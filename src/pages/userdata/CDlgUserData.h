// CDlgUserData: a console that sends any request text and shows the recorder's raw reply.
#pragma once

#include "res/resource.h"
#include "pages/base/CDlgCfgBase.h"

class CDlgUserData : public CDlgCfgBase {
public:
    CDlgUserData() : CDlgCfgBase(IDD_USER_DATA) {}
};
