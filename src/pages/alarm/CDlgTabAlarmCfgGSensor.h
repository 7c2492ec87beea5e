// CDlgTabAlarmCfgGSensor: the acceleration-sensor alarm, its thresholds and calibration (stGSensor).
#pragma once

#include "res/resource.h"
#include "pages/base/CDlgCfgBase.h"

class CDlgTabAlarmCfgGSensor : public CDlgCfgBase {
public:
    CDlgTabAlarmCfgGSensor() : CDlgCfgBase(IDD_ALARM_GSENSOR) {}
};
