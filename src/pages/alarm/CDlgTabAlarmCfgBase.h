// CDlgTabAlarmCfgBase: recording around an alarm: pre-record and record time, record type (stRecord).
#pragma once

#include "res/resource.h"
#include "pages/base/CDlgCfgBase.h"

class CDlgTabAlarmCfgBase : public CDlgCfgBase {
public:
    CDlgTabAlarmCfgBase() : CDlgCfgBase(IDD_ALARM_BASE) {}
};
