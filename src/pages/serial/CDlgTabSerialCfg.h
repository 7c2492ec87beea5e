// CDlgTabSerialCfg: each serial port's peripheral and line settings (stSerial).
#pragma once

#include "res/resource.h"
#include "pages/base/CDlgCfgBase.h"

class CDlgTabSerialCfg : public CDlgCfgBase {
public:
    CDlgTabSerialCfg() : CDlgCfgBase(IDD_SERIAL_PORTS) {}
};
