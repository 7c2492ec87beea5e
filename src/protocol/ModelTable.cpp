#include "protocol/ModelTable.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>

#include "base/AsciiText.h"

extern const char kBuiltInModelTableText[];

namespace varcfg {
namespace {

constexpr const char* kGroupNames[kFeatureGroupCount] = {
    "mixed-mode-8", "mixed-mode-4", "fixed-mode", "h265", "frame-limited-1080p",
    "high-frame-rate", "extended-sub-stream", "paired-resolution", "first-four-locked",
};

std::vector<std::string> Words(const std::string& line) {
    std::istringstream in(line.substr(0, line.find('#')));
    std::vector<std::string> words;
    for (std::string word; in >> word;) words.push_back(word);
    return words;
}

// "key=N" with N a whole number from 0 to 64.
bool ReadCount(const std::string& word, const char* key, int32_t& out) {
    const std::string prefix = std::string(key) + "=";
    if (word.compare(0, prefix.size(), prefix) != 0 || word.size() == prefix.size()) return false;
    const std::string digits = word.substr(prefix.size());
    if (digits.size() > 2 || !std::all_of(digits.begin(), digits.end(), IsDecimalDigit))
        return false;
    out = std::atoi(digits.c_str());
    return out <= 64;
}

}  // namespace

std::optional<ModelTable> ModelTable::Parse(std::string_view text, std::string& error) {
    ModelTable table;
    std::istringstream lines{std::string(text)};
    int number = 0;
    auto fail = [&](const std::string& what) {
        error = "line " + std::to_string(number) + ": " + what;
        return std::nullopt;
    };
    for (std::string line; std::getline(lines, line);) {
        ++number;
        const std::vector<std::string> words = Words(line);
        if (words.empty()) continue;

        if (words[0] == "profile") {
            Profile profile{};
            Capabilities& c = profile.capabilities;
            if (words.size() != 7 || !ReadCount(words[2], "alarm-in", c.alarmInputs) ||
                !ReadCount(words[3], "alarm-out", c.alarmOutputs) || !ReadCount(words[4], "serial", c.serialPorts) ||
                !ReadCount(words[5], "resolution", c.resolutionClass) ||
                !ReadCount(words[6], "channels", c.videoChannels)) {
                return fail("expected: profile NAME alarm-in=N alarm-out=N serial=N resolution=N channels=N");
            }
            if (c.resolutionClass != 1 && c.resolutionClass != 2 && c.resolutionClass != 4)
                return fail("resolution must be 1, 2 or 4");
            if (c.videoChannels < 1 || c.videoChannels > 16) return fail("channels must be 1 to 16");
            profile.name = words[1];
            for (const Profile& p : table.profiles_)
                if (p.name == profile.name) return fail("profile " + profile.name + " is listed twice");
            table.profiles_.push_back(profile);
        } else if (words[0] == "model") {
            if (words.size() < 3) return fail("expected: model TEXT PROFILE|- [GROUP ...]");
            Model model{words[1], -1, 0};
            if (model.text.size() > 31) return fail("a model text has at most 31 characters");
            if (words[2] != "-") {
                const auto found = std::find_if(table.profiles_.begin(), table.profiles_.end(),
                                                [&](const Profile& p) { return p.name == words[2]; });
                if (found == table.profiles_.end()) return fail("unknown profile " + words[2]);
                model.profile = static_cast<int>(found - table.profiles_.begin());
            }
            for (std::size_t i = 3; i < words.size(); ++i) {
                const auto* name = std::find(std::begin(kGroupNames), std::end(kGroupNames), words[i]);
                if (name == std::end(kGroupNames)) return fail("unknown feature group " + words[i]);
                model.groups |= 1u << (name - std::begin(kGroupNames));
            }
            table.models_.push_back(model);
        } else {
            return fail("expected a profile or a model line");
        }
    }
    return table;
}

const Capabilities* ModelTable::ProfileOf(std::string_view model) const {
    const Model* best = nullptr;
    for (const Model& m : models_) {
        if (m.profile < 0 || !EqualsIgnoringAsciiCase(m.text, model)) continue;
        if (best == nullptr || m.profile < best->profile) best = &m;
    }
    return best != nullptr ? &profiles_[static_cast<std::size_t>(best->profile)].capabilities : nullptr;
}

bool ModelTable::IsInGroup(std::string_view model, FeatureGroup group) const {
    const uint32_t bit = 1u << static_cast<unsigned>(group);
    return std::any_of(models_.begin(), models_.end(),
                       [&](const Model& m) { return (m.groups & bit) != 0 && EqualsIgnoringAsciiCase(m.text, model); });
}

std::vector<ModelTable::Entry> ModelTable::Entries() const {
    std::vector<Entry> entries;
    for (const Model& m : models_) {
        const std::string profile = m.profile < 0 ? "" : profiles_[static_cast<std::size_t>(m.profile)].name;
        entries.push_back({m.text, profile, m.groups});
    }
    return entries;
}

const ModelTable& BuiltInModelTable() {
    static const ModelTable table = [] {
        std::string error;
        std::optional<ModelTable> parsed = ModelTable::Parse(kBuiltInModelTableText, error);
        // The built-in table is checked by the tests; an empty table keeps the initial capabilities.
        return parsed ? *parsed : ModelTable{};
    }();
    return table;
}

}  // namespace varcfg
