// The encoder category: main stream, sub stream, mirror and OSD tabs.
#pragma once

#include "shell/CDlgTabHost.h"

class CDlgEncoderSet : public CDlgTabHost {
public:
    CDlgEncoderSet();
};
