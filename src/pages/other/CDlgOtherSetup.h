// CDlgOtherSetup: disk format, clock, time zone, daylight saving, power-off delay (stBaseInfo, stPower).
#pragma once

#include "res/resource.h"
#include "pages/base/CDlgCfgBase.h"

class CDlgOtherSetup : public CDlgCfgBase {
public:
    CDlgOtherSetup() : CDlgCfgBase(IDD_OTHER_SETUP) {}
};
