// CDlgTabEncoderCfgOsd: the items the recorder overlays on its video (stOSD).
#pragma once

#include "res/resource.h"
#include "shell/CfgBase.h"

class CDlgTabEncoderCfgOsd : public CDlgCfgBase {
public:
    CDlgTabEncoderCfgOsd() : CDlgCfgBase(IDD_ENC_OSD) {}
};
