// What the host hands the plug-in through the exports: its callbacks, its context and its view of
// the device type. One instance per loaded module, used only on the host's user-interface thread.
#pragma once

#include <cstdint>

#include "varcfg/host_api.h"

namespace varcfg {

struct HostBridge {
    MDVR_DeviceRequestFn onRequest = nullptr;
    MDVR_ConfigFileFn onConfigFile = nullptr;
    void* context = nullptr;
    // Kept for the host's benefit only: pages take their capabilities from the model profile.
    int32_t channelGroup = 4;
    uint32_t deviceType = 0;
};

HostBridge& Host();

// The logic behind the exports of the same names.
int32_t IsEnableDll(uint32_t kind, int32_t version);
void SetConfigFunction(MDVR_DeviceRequestFn onRequest, MDVR_ConfigFileFn onConfigFile, void* context);
int32_t SetDevType(uint32_t deviceType);
int32_t SetDevChannelNum(int32_t channelCount);

}  // namespace varcfg
