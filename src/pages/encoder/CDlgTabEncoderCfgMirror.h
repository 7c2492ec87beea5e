// CDlgTabEncoderCfgMirror: left-right and up-down mirroring of each camera (stVideoMirror).
#pragma once

#include "res/resource.h"
#include "shell/CfgBase.h"

class CDlgTabEncoderCfgMirror : public CDlgCfgBase {
public:
    CDlgTabEncoderCfgMirror() : CDlgCfgBase(IDD_ENC_MIRROR) {}
};
