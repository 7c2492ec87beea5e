// CDlgTabSerialCfgLedDis: the LED display on a serial port (stLedDisplay).
#pragma once

#include "res/resource.h"
#include "pages/base/CDlgCfgBase.h"

class CDlgTabSerialCfgLedDis : public CDlgCfgBase {
public:
    CDlgTabSerialCfgLedDis() : CDlgCfgBase(IDD_SERIAL_LED_DISPLAY) {}
};
