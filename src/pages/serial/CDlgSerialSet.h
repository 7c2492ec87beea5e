// The serial category: serial ports, PTZ, LED display and IC card reader tabs.
#pragma once

#include "pages/base/CDlgTabHost.h"

class CDlgSerialSet : public CDlgTabHost {
public:
    CDlgSerialSet();
};
