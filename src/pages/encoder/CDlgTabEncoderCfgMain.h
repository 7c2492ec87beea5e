// CDlgTabEncoderCfgMain: the main (recording) stream of every channel (stMainStream).
#pragma once

#include "res/resource.h"
#include "pages/base/CDlgCfgBase.h"

class CDlgTabEncoderCfgMain : public CDlgCfgBase {
public:
    CDlgTabEncoderCfgMain() : CDlgCfgBase(IDD_ENC_MAIN) {}
};
