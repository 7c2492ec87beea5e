// CDlgTabAlarmCfgOutput: the alarm outputs' level and function (stAlarmLinkage).
#pragma once

#include "res/resource.h"
#include "pages/base/CDlgCfgBase.h"

class CDlgTabAlarmCfgOutput : public CDlgCfgBase {
public:
    CDlgTabAlarmCfgOutput() : CDlgCfgBase(IDD_ALARM_OUTPUT) {}
};
