// CDlgTabEncoderCfgOsd: the items the recorder overlays on its video (stOSD).
#pragma once

#include "res/resource.h"
#include "pages/base/CDlgCfgBase.h"

class CDlgTabEncoderCfgOsd : public CDlgCfgBase {
public:
    CDlgTabEncoderCfgOsd() : CDlgCfgBase(IDD_ENC_OSD) {}
};
