// CDlgTabEncoderCfgMirror: left-right and up-down mirroring of each camera (stVideoMirror).
#pragma once

#include "res/resource.h"
#include "pages/base/CDlgCfgBase.h"

class CDlgTabEncoderCfgMirror : public CDlgCfgBase {
public:
    CDlgTabEncoderCfgMirror() : CDlgCfgBase(IDD_ENC_MIRROR) {}
};
