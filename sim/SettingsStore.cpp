#include "SettingsStore.h"

#include <algorithm>

#include "protocol/ModelTable.h"

namespace varcfg::sim {
namespace {

constexpr char kStartChannel[] = "StartChn";
constexpr std::size_t kLargestStartChannel = 65535;
constexpr std::string_view kSavedTextHeader = "# Simulated recorder settings: section [child [element]] attribute=value";
// Its absence from a text that begins with the header shows that the text was cut short.
constexpr std::string_view kSavedTextEnd = "# end";

std::string Escaped(std::string_view text) {
    std::string escaped;
    escaped.reserve(text.size());
    for (const char c : text) {
        switch (c) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            case '"':
                escaped += "&quot;";
                break;
            default:
                escaped += c;
                break;
        }
    }
    return escaped;
}

void AppendAttributes(std::string& out, const std::vector<SettingField>& fields,
                      const std::vector<std::string>& values) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].flags & kActionOnly) continue;
        const std::string value = Escaped(values[i]);
        out += ' ' + fields[i].name + "=\"" + value + '"';
        if (!fields[i].alsoNamed.empty()) out += ' ' + fields[i].alsoNamed + "=\"" + value + '"';
    }
}

std::string ChildName(const ChildGroup& group, int number) { return group.childPrefix + '_' + std::to_string(number); }

// The number of a child named prefix_N, or nothing for another name.
std::optional<int> ChildNumber(const ChildGroup& group, std::string_view name) {
    const std::string head = group.childPrefix + '_';
    if (name.substr(0, head.size()) != head) return std::nullopt;
    const std::optional<uint64_t> number = PlainNumber(name.substr(head.size()));
    if (!number || *number > static_cast<uint64_t>(INT32_MAX)) return std::nullopt;
    return static_cast<int>(*number);
}

std::optional<std::size_t> StartChannel(std::string_view written) {
    const std::optional<uint64_t> start = PlainNumber(written);
    if (!start || *start > kLargestStartChannel) return std::nullopt;
    return static_cast<std::size_t>(*start);
}

std::vector<std::string> FactoryValues(const std::vector<SettingField>& fields, int childNumber) {
    std::vector<std::string> values;
    values.reserve(fields.size());
    for (const SettingField& field : fields) {
        values.push_back(field.factory == "#" ? std::to_string(childNumber) : field.factory);
    }
    return values;
}

std::size_t SectionIndex(const SettingSection& section) {
    return static_cast<std::size_t>(&section - Catalog().data());
}

std::vector<std::string_view> Words(std::string_view text) {
    std::vector<std::string_view> words;
    while (!text.empty()) {
        const std::size_t blank = text.find(' ');
        words.push_back(text.substr(0, blank));
        if (blank == std::string_view::npos) break;
        text.remove_prefix(blank + 1);
    }
    return words;
}

}  // namespace

SettingsStore::SettingsStore(const std::string& model, const Capabilities& capabilities) : capabilities_(capabilities) {
    for (const SettingSection& layout : Catalog()) {
        SectionValues section;
        section.values = FactoryValues(layout.fields, 0);
        if (layout.children) {
            const ChildGroup& group = *layout.children;
            const int kept = Count(group.kept, capabilities_);
            const int nestedCount = Count(group.nestedCount, capabilities_);
            for (int n = 0; n < kept; ++n) {
                ChildValues child;
                child.values = FactoryValues(group.fields, n);
                if (!group.nestedName.empty() && n < nestedCount) child.nested = FactoryValues(group.nestedFields, n);
                section.children.push_back(std::move(child));
            }
        }
        sections_.push_back(std::move(section));
    }
    SetModelFactoryValues(model);
}

// The model text and channel count the panel reads its profile from, and main stream values the model's
// own lists offer: its best resolution with that resolution's default bit rate and a frame rate it
// allows, and the first entry of its video mode list.
void SettingsStore::SetModelFactoryValues(const std::string& model) {
    const auto set = [this](std::string_view section, std::string_view attribute, const std::string& value) {
        const SettingSection& layout = *FindSection(section);
        sections_[SectionIndex(layout)].values[FieldIndex(layout.fields, *FindField(layout.fields, attribute))] = value;
    };
    set("stVersion", "Model", model);
    set("stVersion", "iVideoChannelCnt", std::to_string(capabilities_.videoChannels));

    const ModelTable& table = BuiltInModelTable();
    uint32_t videoModeMask = 0;
    if (table.IsInGroup(model, FeatureGroup::EightChannelMixedMode)) {
        videoModeMask = 0x11111111u;
    } else if (table.IsInGroup(model, FeatureGroup::FourChannelMixedMode)) {
        videoModeMask = 0x2222u;
    } else if (table.IsInGroup(model, FeatureGroup::FixedMode)) {
        const uint32_t cameraType = capabilities_.resolutionClass >= 4 ? 2u : 1u;
        for (int channel = 0; channel < capabilities_.videoChannels && channel < 8; ++channel) {
            videoModeMask |= cameraType << (4 * channel);
        }
    }
    set("stMainStream", "uiFD_VideoFmt", std::to_string(videoModeMask));

    const char* resolution = capabilities_.resolutionClass >= 4 ? "6" : capabilities_.resolutionClass >= 2 ? "5" : "2";
    const char* bitRate = capabilities_.resolutionClass >= 4   ? "4096"
                          : capabilities_.resolutionClass >= 2 ? "2048"
                                                               : "1024";
    // Models that cap 1080P at 15 frames offer no higher rate at their best resolution.
    const char* frameRate =
        capabilities_.resolutionClass >= 4 && table.IsInGroup(model, FeatureGroup::FrameLimited1080P) ? "15" : "25";
    const SettingSection& mainStream = *FindSection("stMainStream");
    const std::vector<SettingField>& channelFields = mainStream.children->fields;
    for (ChildValues& channel : sections_[SectionIndex(mainStream)].children) {
        channel.values[FieldIndex(channelFields, *FindField(channelFields, "ucFD_Resolution"))] = resolution;
        channel.values[FieldIndex(channelFields, *FindField(channelFields, "ucFD_FrameRate"))] = frameRate;
        channel.values[FieldIndex(channelFields, *FindField(channelFields, "uiFD_BitRate"))] = bitRate;
    }
}

std::optional<std::string> SettingsStore::QueryReply(const RequestElement& section) const {
    const SettingSection* layout = FindSection(section.name);
    if (layout == nullptr || !section.children.empty()) return std::nullopt;
    std::size_t start = 0;
    for (const RequestAttribute& attribute : section.attributes) {
        const std::optional<std::size_t> written = StartChannel(attribute.value);
        if (!layout->children || attribute.name != kStartChannel || !written) return std::nullopt;
        start = *written;
    }

    const SectionValues& values = sections_[SectionIndex(*layout)];
    std::string reply = '<' + layout->name;
    AppendAttributes(reply, layout->fields, values.values);
    if (!layout->children) return reply + "/>";

    const ChildGroup& group = *layout->children;
    if (group.queryGroup > 0) reply += std::string(" ") + kStartChannel + "=\"" + std::to_string(start) + '"';
    reply += "><" + group.container + '>';
    const std::size_t shown =
        std::min(static_cast<std::size_t>(std::max(0, Count(group.shown, capabilities_))), values.children.size());
    const std::size_t end =
        group.queryGroup > 0 ? std::min(shown, start + static_cast<std::size_t>(group.queryGroup)) : shown;
    for (std::size_t n = start; n < end; ++n) {
        const ChildValues& child = values.children[n];
        const std::string name = ChildName(group, static_cast<int>(n));
        reply += '<' + name;
        AppendAttributes(reply, group.fields, child.values);
        if (child.nested.empty()) {
            reply += "/>";
            continue;
        }
        reply += "><" + group.nestedName;
        AppendAttributes(reply, group.nestedFields, child.nested);
        reply += "/></" + name + '>';
    }
    return reply + "</" + group.container + "></" + layout->name + '>';
}

std::optional<SettingsStore::Change> SettingsStore::PlanField(std::size_t section, int child, bool nested,
                                                              const std::vector<SettingField>& fields,
                                                              const RequestAttribute& attribute,
                                                              bool mayWriteReadOnly) const {
    const SettingField* field = FindField(fields, attribute.name);
    if (field == nullptr || (field->flags & kFromModel) || ((field->flags & kReadOnly) && !mayWriteReadOnly)) {
        return std::nullopt;
    }
    std::optional<std::string> value = CanonicalValue(*field, attribute.value, capabilities_);
    if (!value) return std::nullopt;
    return Change{section, child, nested, FieldIndex(fields, *field), std::move(*value)};
}

bool SettingsStore::PlanChildren(std::size_t section, const RequestElement& container,
                                 std::vector<Change>& changes) const {
    const ChildGroup& group = *Catalog()[section].children;
    if (container.name != group.container || !container.attributes.empty()) return false;
    for (const RequestElement& child : container.children) {
        const std::optional<int> number = ChildNumber(group, child.name);
        if (!number || *number >= Count(group.kept, capabilities_)) return false;
        for (const RequestAttribute& attribute : child.attributes) {
            std::optional<Change> change = PlanField(section, *number, false, group.fields, attribute, false);
            if (!change) return false;
            changes.push_back(std::move(*change));
        }
        for (const RequestElement& nested : child.children) {
            const bool known = !group.nestedName.empty() && nested.name == group.nestedName &&
                               *number < Count(group.nestedCount, capabilities_) && nested.children.empty();
            if (!known) return false;
            for (const RequestAttribute& attribute : nested.attributes) {
                std::optional<Change> change = PlanField(section, *number, true, group.nestedFields, attribute, false);
                if (!change) return false;
                changes.push_back(std::move(*change));
            }
        }
    }
    return true;
}

std::optional<std::vector<SettingsStore::Change>> SettingsStore::PlanSet(const RequestElement& section) const {
    const SettingSection* layout = FindSection(section.name);
    if (layout == nullptr || !layout->writable) return std::nullopt;
    const std::size_t index = SectionIndex(*layout);
    std::vector<Change> changes;
    for (const RequestAttribute& attribute : section.attributes) {
        // The recorder numbers children by their names; StartChn only has to be a channel number.
        if (layout->children && attribute.name == kStartChannel) {
            if (!StartChannel(attribute.value)) return std::nullopt;
            continue;
        }
        std::optional<Change> change = PlanField(index, -1, false, layout->fields, attribute, false);
        if (!change) return std::nullopt;
        changes.push_back(std::move(*change));
    }
    for (const RequestElement& container : section.children) {
        if (!layout->children || !PlanChildren(index, container, changes)) return std::nullopt;
    }
    return changes;
}

std::optional<SettingsStore::Change> SettingsStore::PlanValue(std::string_view section, std::string_view attribute,
                                                              std::string_view written) const {
    const SettingSection* layout = FindSection(section);
    if (layout == nullptr) return std::nullopt;
    return PlanField(SectionIndex(*layout), -1, false, layout->fields,
                     RequestAttribute{std::string(attribute), std::string(written)}, true);
}

void SettingsStore::Apply(const std::vector<Change>& changes) {
    for (const Change& change : changes) {
        const SettingSection& layout = Catalog()[change.section];
        SectionValues& section = sections_[change.section];
        if (change.child < 0) {
            if (!(layout.fields[change.field].flags & kActionOnly)) section.values[change.field] = change.value;
        } else if (change.nested) {
            section.children[static_cast<std::size_t>(change.child)].nested[change.field] = change.value;
        } else {
            section.children[static_cast<std::size_t>(change.child)].values[change.field] = change.value;
        }
    }
}

std::string SettingsStore::SavedText() const {
    std::string text = std::string(kSavedTextHeader) + '\n';
    const auto appendLines = [&text](const std::string& where, const std::vector<SettingField>& fields,
                                     const std::vector<std::string>& values) {
        for (std::size_t i = 0; i < fields.size(); ++i) {
            if (fields[i].flags & (kFromModel | kActionOnly)) continue;
            text += where + ' ' + fields[i].name + '=' + values[i] + '\n';
        }
    };
    for (std::size_t s = 0; s < sections_.size(); ++s) {
        const SettingSection& layout = Catalog()[s];
        appendLines(layout.name, layout.fields, sections_[s].values);
        for (std::size_t n = 0; n < sections_[s].children.size(); ++n) {
            const ChildValues& child = sections_[s].children[n];
            const std::string where = layout.name + ' ' + ChildName(*layout.children, static_cast<int>(n));
            appendLines(where, layout.children->fields, child.values);
            if (!child.nested.empty()) {
                appendLines(where + ' ' + layout.children->nestedName, layout.children->nestedFields, child.nested);
            }
        }
    }
    for (const std::string& line : untakenLines_) text += line + '\n';
    text += kSavedTextEnd;
    return text + '\n';
}

std::optional<SettingsStore::Change> SettingsStore::PlanSavedLine(std::string_view line) const {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) return std::nullopt;
    const std::vector<std::string_view> words = Words(line.substr(0, equals));
    if (words.size() < 2 || words.size() > 4) return std::nullopt;
    const SettingSection* layout = FindSection(words.front());
    if (layout == nullptr) return std::nullopt;
    const RequestAttribute attribute{std::string(words.back()), std::string(line.substr(equals + 1))};
    const std::size_t section = SectionIndex(*layout);
    if (words.size() == 2) return PlanField(section, -1, false, layout->fields, attribute, true);

    if (!layout->children) return std::nullopt;
    const ChildGroup& group = *layout->children;
    const std::optional<int> number = ChildNumber(group, words[1]);
    if (!number || *number >= static_cast<int>(sections_[section].children.size())) return std::nullopt;
    if (words.size() == 3) return PlanField(section, *number, false, group.fields, attribute, true);
    if (words[2] != group.nestedName || sections_[section].children[static_cast<std::size_t>(*number)].nested.empty()) {
        return std::nullopt;
    }
    return PlanField(section, *number, true, group.nestedFields, attribute, true);
}

SettingsStore::LoadReport SettingsStore::LoadSavedText(std::string_view text) {
    LoadReport report;
    report.cutShort = text.substr(0, text.find('\n')) == kSavedTextHeader;  // until its end line is seen
    int lineNumber = 0;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        if (end == std::string_view::npos) {
            report.cutShort = true;
            break;
        }
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end + 1);
        ++lineNumber;
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        if (line == kSavedTextEnd) report.cutShort = false;
        if (line.empty() || line.front() == '#') continue;
        if (std::optional<Change> change = PlanSavedLine(line)) {
            Apply({*change});
            continue;
        }
        untakenLines_.emplace_back(line);
        if (++report.notTaken == 1) {
            report.firstNotTaken = "line " + std::to_string(lineNumber) + ": not a value this recorder keeps";
        }
    }
    return report;
}

}  // namespace varcfg::sim
