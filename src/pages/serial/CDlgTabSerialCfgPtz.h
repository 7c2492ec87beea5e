// CDlgTabSerialCfgPtz: each channel's PTZ camera address and protocol (stChnPtz).
#pragma once

#include "res/resource.h"
#include "pages/base/CDlgCfgBase.h"

class CDlgTabSerialCfgPtz : public CDlgCfgBase {
public:
    CDlgTabSerialCfgPtz() : CDlgCfgBase(IDD_SERIAL_PTZ) {}
};
