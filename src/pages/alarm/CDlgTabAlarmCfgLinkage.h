// CDlgTabAlarmCfgLinkage: what each alarm source records, snapshots and shows (stAlarmLinkage).
#pragma once

#include "res/resource.h"
#include "pages/base/CDlgCfgBase.h"

class CDlgTabAlarmCfgLinkage : public CDlgCfgBase {
public:
    CDlgTabAlarmCfgLinkage() : CDlgCfgBase(IDD_ALARM_LINKAGE) {}
};
