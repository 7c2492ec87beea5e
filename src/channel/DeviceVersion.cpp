#include "channel/DeviceVersion.h"

#include <string>

#include "channel/RequestChannel.h"
#include "base/TraceFile.h"
#include "protocol/ConfigTask.h"
#include "protocol/Envelope.h"
#include "base/Platform.h"

namespace varcfg {

ModelTable LoadModelTable(Platform& platform) {
    const std::wstring path = platform.ModuleFolder() + L"varcfg_models.tbl";
    std::string text;
    if (platform.ReadWholeFile(path, text)) {
        std::string error;
        if (std::optional<ModelTable> table = ModelTable::Parse(text, error)) return *table;
        if (CTraceFile2* log = CTraceFile2::Existing()) {
            log->Write("varcfg_models.tbl ignored, %s", error.c_str());
        }
    }
    return BuiltInModelTable();
}

DeviceState& Device() {
    static DeviceState device;
    return device;
}

const ModelTable& ActiveModelTable() {
    static const ModelTable table = LoadModelTable(CurrentPlatform());
    return table;
}

int QueryDeviceVersion() {
    std::string reply;
    if (!Exchange(kVersionQueryText, kQueryForm, reply)) return 0;
    QueryReply checked;
    if (checked.Check(reply) != 0) {
        LogRefusedReply(kVersionQueryText);
        return -1;
    }

    VersionRecord version{};
    CConfig_Task::Import_stVersion(*checked.Section(), version);
    DeviceState& device = Device();
    device.versionKnown = 1;
    device.version = version;
    AssignProfile();
    return 1;
}

void AssignProfile() {
    DeviceState& device = Device();
    if (const Capabilities* profile = ActiveModelTable().ProfileOf(device.version.model)) {
        device.capabilities = *profile;
    } else {
        device.capabilities.videoChannels = device.version.videoChannelCount;
    }
}

bool IsModelInGroup(FeatureGroup group) { return ActiveModelTable().IsInGroup(Device().version.model, group); }

}  // namespace varcfg
