#include "channel/HostBridge.h"

namespace varcfg {

HostBridge& Host() {
    static HostBridge host;
    return host;
}

int32_t IsEnableDll(uint32_t kind, int32_t version) {
    return kind == MDVR_INTERFACE_KIND && version == MDVR_INTERFACE_VERSION ? 1 : 0;
}

void SetConfigFunction(MDVR_DeviceRequestFn onRequest, MDVR_ConfigFileFn onConfigFile, void* context) {
    HostBridge& host = Host();
    host.onRequest = onRequest;
    host.onConfigFile = onConfigFile;
    host.context = context;
}

int32_t SetDevType(uint32_t deviceType) {
    HostBridge& host = Host();
    host.deviceType = deviceType;
    host.channelGroup = deviceType == 11 || deviceType == 12 ? 8 : 4;
    return 1;
}

int32_t SetDevChannelNum(int32_t channelCount) {
    return channelCount >= 1 && channelCount <= 15 ? 1 : 0;
}

}  // namespace varcfg
