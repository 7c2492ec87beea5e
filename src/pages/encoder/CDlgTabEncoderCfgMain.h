// CDlgTabEncoderCfgMain: the main (recording) stream of every channel (stMainStream).
#pragma once

#include "res/resource.h"
#include "shell/CfgBase.h"

class CDlgTabEncoderCfgMain : public CDlgCfgBase {
public:
    CDlgTabEncoderCfgMain() : CDlgCfgBase(IDD_ENC_MAIN) {}
};
