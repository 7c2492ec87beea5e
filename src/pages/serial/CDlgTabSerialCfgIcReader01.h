// CDlgTabSerialCfgIcReader01: the IC card reader on a serial port (stIcReader01).
#pragma once

#include "res/resource.h"
#include "pages/base/CDlgCfgBase.h"

class CDlgTabSerialCfgIcReader01 : public CDlgCfgBase {
public:
    CDlgTabSerialCfgIcReader01() : CDlgCfgBase(IDD_SERIAL_IC_READER) {}
};
