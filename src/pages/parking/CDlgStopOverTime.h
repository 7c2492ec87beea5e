// CDlgStopOverTime: the low-speed, over-speed, parking and fatigue alarms (stSpeedAlarm).
#pragma once

#include "res/resource.h"
#include "pages/base/CDlgCfgBase.h"

class CDlgStopOverTime : public CDlgCfgBase {
public:
    CDlgStopOverTime() : CDlgCfgBase(IDD_STOP_OVERTIME) {}
};
