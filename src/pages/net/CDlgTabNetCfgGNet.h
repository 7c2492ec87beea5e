// CDlgTabNetCfgGNet: the recorder's 3G/4G dial-up settings (stMobileGNet).
#pragma once

#include "res/resource.h"
#include "pages/base/CDlgCfgBase.h"

class CDlgTabNetCfgGNet : public CDlgCfgBase {
public:
    CDlgTabNetCfgGNet() : CDlgCfgBase(IDD_NET_MOBILE) {}
};
