// CDlgTabNetCfgPtt: push-to-talk: switch, talk group and dispatch centre (stPtt, stPttDcn).
#pragma once

#include "res/resource.h"
#include "pages/base/CDlgCfgBase.h"

class CDlgTabNetCfgPtt : public CDlgCfgBase {
public:
    CDlgTabNetCfgPtt() : CDlgCfgBase(IDD_NET_PTT) {}
};
