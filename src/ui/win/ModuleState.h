// ModuleState: while one exists, windows are created with this module's own manifest in force, so the
// panel gets the themed common controls (version 6) whatever the host's manifest says.
#pragma once

#include <windows.h>

namespace varcfg {

class ModuleState {
public:
    ModuleState();
    ~ModuleState();
    ModuleState(const ModuleState&) = delete;
    ModuleState& operator=(const ModuleState&) = delete;

private:
    ULONG_PTR cookie_ = 0;
    bool active_ = false;
};

}  // namespace varcfg
