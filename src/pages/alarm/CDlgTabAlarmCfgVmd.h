// CDlgTabAlarmCfgVmd: motion detection of one channel at a time: periods, sensitivity, area (stVda).
#pragma once

#include "res/resource.h"
#include "pages/base/CDlgCfgBase.h"

class CDlgTabAlarmCfgVmd : public CDlgCfgBase {
public:
    CDlgTabAlarmCfgVmd() : CDlgCfgBase(IDD_ALARM_VMD) {}
};
