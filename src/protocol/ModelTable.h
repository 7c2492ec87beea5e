// The recorder model table: which capability profile and which feature groups a model text selects.
// The table is data (data/varcfg_models.tbl, compiled in); a deployment may supply its own file.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace varcfg {

// What the pages size themselves by.
struct Capabilities {
    int32_t videoChannels;
    int32_t resolutionClass;  // 4 allows 1080P, 2 allows 720P, 1 neither
    int32_t alarmInputs;
    int32_t alarmOutputs;
    int32_t serialPorts;
};

// Feature groups tested by single pages.
enum class FeatureGroup : uint8_t {
    EightChannelMixedMode,
    FourChannelMixedMode,
    FixedMode,
    H265,
    FrameLimited1080P,
    HighFrameRate,
    ExtendedSubStream,
    PairedResolution,
    FirstFourLocked,
};
inline constexpr int kFeatureGroupCount = 9;

class ModelTable {
public:
    // Reads the table's text format. On a fault returns nothing and describes it ("line 12: ...").
    static std::optional<ModelTable> Parse(std::string_view text, std::string& error);

    // The capabilities of the first profile, in table order, that lists the model; null for none.
    const Capabilities* ProfileOf(std::string_view model) const;
    bool IsInGroup(std::string_view model, FeatureGroup group) const;

    // The model lines in table order, with their profile's name ("" for none): for listings and checks.
    struct Entry {
        std::string text;
        std::string profile;
        uint32_t groups;  // bit per FeatureGroup
    };
    std::vector<Entry> Entries() const;

private:
    struct Profile {
        std::string name;
        Capabilities capabilities;
    };
    struct Model {
        std::string text;
        int profile;  // index into profiles_, -1 for none
        uint32_t groups;  // bit per FeatureGroup
    };

    std::vector<Profile> profiles_;
    std::vector<Model> models_;
};

// The table compiled into the binary.
const ModelTable& BuiltInModelTable();

}  // namespace varcfg
