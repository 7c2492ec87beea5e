// CDlgTabAlarmCfgInput: the alarm inputs, four per page: enable, level, function (stAlarmIn).
#pragma once

#include "res/resource.h"
#include "pages/base/CDlgCfgBase.h"

class CDlgTabAlarmCfgInput : public CDlgCfgBase {
public:
    CDlgTabAlarmCfgInput() : CDlgCfgBase(IDD_ALARM_INPUT) {}
};
