// CDlgTabNetCfg808: the JT/T 808 link, vehicle registration and both 808 servers (stCarInfo, st808CMS1/2).
#pragma once

#include "res/resource.h"
#include "pages/base/CDlgCfgBase.h"

class CDlgTabNetCfg808 : public CDlgCfgBase {
public:
    CDlgTabNetCfg808() : CDlgCfgBase(IDD_NET_808) {}
};
