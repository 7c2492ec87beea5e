// CDlgTabEncoderCfgSub: the sub (network) stream shared by all channels (stSubStream).
#pragma once

#include "res/resource.h"
#include "pages/base/CDlgCfgBase.h"

class CDlgTabEncoderCfgSub : public CDlgCfgBase {
public:
    CDlgTabEncoderCfgSub() : CDlgCfgBase(IDD_ENC_SUB) {}
};
