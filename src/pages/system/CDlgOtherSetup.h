// CDlgOtherSetup: disk format, clock, time zone, daylight saving, power-off delay (stBaseInfo, stPower).
#pragma once

#include "res/resource.h"
#include "shell/CfgBase.h"

class CDlgOtherSetup : public CDlgCfgBase {
public:
    CDlgOtherSetup() : CDlgCfgBase(IDD_OTHER_SETUP) {}
};
