// What the panel knows of the connected recorder: its version block, read once by the version query,
// and the capability values that its model selects. One set per loaded module.
#pragma once

#include <cstdint>

#include "protocol/ModelTable.h"
#include "protocol/SectionRecords.h"

namespace varcfg {

struct DeviceState {
    int32_t versionKnown = 0;  // 1 after the first successful version query, never reset
    VersionRecord version{};
    // Before any version query: one channel, 720P, no alarm inputs or outputs, no serial ports.
    Capabilities capabilities{1, 2, 0, 0, 0};
};

DeviceState& Device();

// Asks the recorder for its version block. 1: taken over and the profile assigned; 0: the transport
// failed; -1: the reply was refused. A failure leaves the previous version and profile in force.
int QueryDeviceVersion();

// Writes the capability values from the model text and channel count of the version block: those of
// the model's profile, or, for a model no profile lists, only the channel count the recorder reported.
void AssignProfile();

// Whether the current model text belongs to the feature group; asked anew each time.
bool IsModelInGroup(FeatureGroup group);

// The table that models are looked up in, loaded once: see LoadModelTable.
const ModelTable& ActiveModelTable();

class Platform;
// A deployment's varcfg_models.tbl beside the module when it is readable and valid, else the built-in
// table. A file with a fault is ignored, and the fault is logged.
ModelTable LoadModelTable(Platform& platform);

}  // namespace varcfg
