// CDlgTabSerialCfg: each serial port's peripheral and line settings (stSerial).
#pragma once

#include "res/resource.h"
#include "shell/CfgBase.h"

class CDlgTabSerialCfg : public CDlgCfgBase {
public:
    CDlgTabSerialCfg() : CDlgCfgBase(IDD_SERIAL_PORTS) {}
};
