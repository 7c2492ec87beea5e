// The alarm category: base, inputs, outputs, linkage, G-sensor and motion detection tabs.
#pragma once

#include "pages/base/CDlgTabHost.h"

class CDlgAlarmSet : public CDlgTabHost {
public:
    CDlgAlarmSet();
};
