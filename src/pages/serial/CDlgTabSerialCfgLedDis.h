// CDlgTabSerialCfgLedDis: the LED display on a serial port (stLedDisplay).
#pragma once

#include "res/resource.h"
#include "shell/CfgBase.h"

class CDlgTabSerialCfgLedDis : public CDlgCfgBase {
public:
    CDlgTabSerialCfgLedDis() : CDlgCfgBase(IDD_SERIAL_LED_DISPLAY) {}
};
