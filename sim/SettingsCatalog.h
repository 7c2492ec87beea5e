// What the simulated recorder keeps: every section the panel reads or writes, the attributes of each,
// how the recorder reads a written value, and the value it leaves the factory with.
//
// Values are kept as their canonical text, the form the recorder writes in its replies: decimal
// numbers, dotted IPs, floating point with six decimals, texts as written.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "protocol/ModelTable.h"

namespace varcfg::sim {

enum class ValueKind : uint8_t {
    Number,    // decimal digits; fits the width of the name's prefix (uc, us, ui) and the field's range
    Ip,        // a dotted quad, or one decimal number read by the panel's IP text rule; kept dotted
    Text,      // 8-bit text without control characters, of bounded length
    Decimal,   // an optional sign, digits, an optional fraction; kept with six decimals
    Parity,    // the letter n, o or e (or its character code); kept as the character code
    MaskRows,  // 1 to 32 unsigned 32-bit numbers, each followed by a comma
    DateTime,  // "YYYY-MM-DD hh:mm:ss", a real date from 2000 to 2099
};

enum FieldFlag : uint8_t {
    kReadOnly = 1,              // a DEVICE_SET naming it is refused; the recorder changes it itself
    kFromModel = 2,             // follows from the model: never written, never saved
    kActionOnly = 4,            // a DEVICE_SET accepts it, but it asks for an action: nothing keeps it
    kNegativeAsComplement = 8,  // "-1" is read as the field's all-ones value, as the panel's %d writes it
    kAtMostChannelCount = 16,   // the range ends at the model's video channel count
};

struct SettingField {
    std::string name;
    std::string alsoNamed;  // a second attribute name for the same value, written in replies too
    ValueKind kind = ValueKind::Number;
    int64_t min = 0;  // Number and Decimal: the range; Text: the length range
    int64_t max = 0;
    std::vector<int64_t> allowed;  // Number: when not empty, the only values
    std::string factory;           // in numbered children, "#" stands for the child's number
    uint8_t flags = 0;
};

// How many numbered children a recorder of a given model has.
enum class ChildCount : uint8_t { VideoChannels, EightChannels, AlarmInputs, AlarmOutputs, SerialPorts, LinkageItems };

struct ChildGroup {
    std::string container;    // the element holding the children: "stVideoPara"
    std::string childPrefix;  // children are named prefix_N: "VChn_3"
    ChildCount kept = ChildCount::VideoChannels;   // children a DEVICE_SET may write
    ChildCount shown = ChildCount::VideoChannels;  // children a query reply shows
    int queryGroup = 0;  // children per query reply, from StartChn (0 when absent); 0 for all
    std::vector<SettingField> fields;
    std::string nestedName;                             // an element inside each child with fields of its own, or ""
    ChildCount nestedCount = ChildCount::AlarmOutputs;  // children below this count carry the nested element
    std::vector<SettingField> nestedFields;
};

struct SettingSection {
    std::string name;
    bool writable = true;  // DEVICE_SET accepts the section
    std::vector<SettingField> fields;
    std::optional<ChildGroup> children;
};

// Every section, in a fixed order.
const std::vector<SettingSection>& Catalog();
const SettingSection* FindSection(std::string_view name);
// The section field, or the child field, with the attribute name (compared without regard to case).
const SettingField* FindField(const std::vector<SettingField>& fields, std::string_view attributeName);
std::size_t FieldIndex(const std::vector<SettingField>& fields, const SettingField& field);

int Count(ChildCount count, const Capabilities& capabilities);

// The canonical text of a written value, or nothing when the recorder refuses it.
std::optional<std::string> CanonicalValue(const SettingField& field, std::string_view written,
                                          const Capabilities& capabilities);

// The dotted form of a dotted quad of four decimal parts from 0 to 255; nothing for other text.
std::optional<std::string> DottedQuad(std::string_view text);

// A decimal number without sign of at most ten digits; nothing for other text.
std::optional<uint64_t> PlainNumber(std::string_view text);

}  // namespace varcfg::sim
