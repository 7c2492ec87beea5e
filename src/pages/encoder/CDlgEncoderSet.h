// The encoder category: main stream, sub stream, mirror and OSD tabs.
#pragma once

#include "pages/base/CDlgTabHost.h"

class CDlgEncoderSet : public CDlgTabHost {
public:
    CDlgEncoderSet();
};
