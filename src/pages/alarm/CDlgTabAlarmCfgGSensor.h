// CDlgTabAlarmCfgGSensor: the acceleration-sensor alarm, its thresholds and calibration (stGSensor).
#pragma once

#include "res/resource.h"
#include "shell/CfgBase.h"

class CDlgTabAlarmCfgGSensor : public CDlgCfgBase {
public:
    CDlgTabAlarmCfgGSensor() : CDlgCfgBase(IDD_ALARM_GSENSOR) {}
};
