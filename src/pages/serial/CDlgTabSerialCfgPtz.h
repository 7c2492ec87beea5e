// CDlgTabSerialCfgPtz: each channel's PTZ camera address and protocol (stChnPtz).
#pragma once

#include "res/resource.h"
#include "shell/CfgBase.h"

class CDlgTabSerialCfgPtz : public CDlgCfgBase {
public:
    CDlgTabSerialCfgPtz() : CDlgCfgBase(IDD_SERIAL_PTZ) {}
};
