// The section catalogue: every recorder section that a page reads or writes, declared once, as portable
// data. A declaration names the section, says how it is asked for and in which records its answer
// travels, lists its attributes (what the decoder reads), its setting templates with the source of each
// placeholder, and which attributes belong to one vehicle or are secret. Pages bind their controls to a
// declaration's attributes; the configuration library reads the same declarations.
//
//   inline constexpr Field<PttRecord> kPttFields[] = {
//       VARCFG_FIELD(PttRecord, enable, "ucFD_Enable", Integer),
//       VARCFG_FIELD(PttRecord, groupNo, "usFD_GroupNo", Integer),
//   };
//   inline constexpr PlaceholderSource kPttSources[] = {FromAttribute("ucFD_Enable"), FromAttribute("usFD_GroupNo")};
//   inline constexpr SettingTemplate kPttSettings[] = {
//       {L"<VariCfgSec Action=\"DEVICE_SET\"><stPtt ucFD_Enable=\"%d\" usFD_GroupNo=\"%s\" /></VariCfgSec>", kPttSources},
//   };
//   inline constexpr SectionDeclaration kPttSection{"stPtt", kPttFields, kPttSettings};
//
// Templates are literal: exactly the bytes the recorder expects, odd whitespace and unclosed elements
// included.
#pragma once

#include <cstddef>
#include <cstdint>

#include "protocol/RecordSize.h"
#include "protocol/SectionDecoder.h"

namespace varcfg {

// Where one placeholder of a setting template takes its value.
enum class SourceKind : uint8_t {
    Attribute,    // the section's attribute, as the page or document holds it
    Fixed,        // a value of the template's own
    Piece,        // the number of the piece the setting is for (its StartChn: channel, input, port)
    EntryNumber,  // in a repeated entry: the piece's number plus the entry's place
};

// How an attribute's number becomes the placeholder's value.
enum class Conversion : uint8_t {
    None,
    Scaled,  // times the factor: a list index that stands for steps of minutes
    Flag,    // 1 when the value is not 0, else 0: a switch implied by a value
    Listed,  // the entry at the value's place in a list of values (a list index sent as what it stands for)
};

// A list of values by index, and the value for an index outside it (a list with no selection).
struct ValueList {
    const long long* values;
    std::size_t count;
    long long unlisted;

    template <std::size_t N>
    constexpr ValueList(const long long (&byIndex)[N], long long outside) : values(byIndex), count(N), unlisted(outside) {}
};

struct PlaceholderSource {
    SourceKind kind;
    const char* attribute;  // Attribute: the attribute's name as declared
    long long value;        // Fixed: the value; Scaled: the factor
    Conversion conversion;
    bool stored;            // the number as the attribute's record member holds it (cut to its width)
    const ValueList* list;  // Listed: the values by index

    constexpr PlaceholderSource Scaled(long long factor) const {
        return {kind, attribute, factor, Conversion::Scaled, stored, nullptr};
    }
    constexpr PlaceholderSource AsFlag() const { return {kind, attribute, 0, Conversion::Flag, stored, nullptr}; }
    constexpr PlaceholderSource AsListed(const ValueList& byIndex) const {
        return {kind, attribute, 0, Conversion::Listed, stored, &byIndex};
    }
    // For settings built from a record: a list without a selection (-1) goes out as 255 in an 8-bit member.
    constexpr PlaceholderSource AsStored() const { return {kind, attribute, value, conversion, true, list}; }
    // The number a value converts to.
    constexpr long long Convert(long long number) const {
        switch (conversion) {
            case Conversion::Scaled:
                return number * value;
            case Conversion::Flag:
                return number != 0 ? 1 : 0;
            case Conversion::Listed:
                return number >= 0 && static_cast<std::size_t>(number) < list->count ? list->values[number]
                                                                                        : list->unlisted;
            default:
                return number;
        }
    }
};

constexpr PlaceholderSource FromAttribute(const char* attribute) {
    return {SourceKind::Attribute, attribute, 0, Conversion::None, false, nullptr};
}
constexpr PlaceholderSource FixedValue(long long value) {
    return {SourceKind::Fixed, nullptr, value, Conversion::None, false, nullptr};
}
inline constexpr PlaceholderSource kPieceNumber{SourceKind::Piece, nullptr, 0, Conversion::None, false, nullptr};
inline constexpr PlaceholderSource kEntryNumber{SourceKind::EntryNumber, nullptr, 0, Conversion::None, false, nullptr};

// Literal text with its placeholders' sources, in order.
struct TemplateText {
    const wchar_t* text;
    const PlaceholderSource* sources;
    std::size_t sourceCount;

    constexpr TemplateText(const wchar_t* literal) : text(literal), sources(nullptr), sourceCount(0) {}
    template <std::size_t N>
    constexpr TemplateText(const wchar_t* literal, const PlaceholderSource (&placeholders)[N])
        : text(literal), sources(placeholders), sourceCount(N) {}
};

// A setting as the recorder takes it: one literal template, or a head, an entry repeated for each row
// (input, output, channel, port) and a tail, each literal as the recorder expects it.
struct SettingTemplate {
    TemplateText head;
    TemplateText entry;
    TemplateText tail;
    bool repeated;

    constexpr explicit SettingTemplate(const wchar_t* literal)
        : head(literal), entry(L""), tail(L""), repeated(false) {}
    template <std::size_t N>
    constexpr SettingTemplate(const wchar_t* literal, const PlaceholderSource (&placeholders)[N])
        : head(literal, placeholders), entry(L""), tail(L""), repeated(false) {}
    constexpr SettingTemplate(TemplateText headText, TemplateText entryText, TemplateText tailText)
        : head(headText), entry(entryText), tail(tailText), repeated(true) {}
};

// What an attribute's value is to a fleet: a setting that may go to any recorder, a value that belongs
// to one vehicle (device number, addresses, plate, dial number), or a secret (passwords, keys).
enum class AttributeRole : uint8_t { Setting, Identity, Secret };

struct AttributeRoleEntry {
    const char* attribute;
    AttributeRole role;
};

// A section, whatever its record.
struct SectionDeclaration {
    const char* name;
    FieldList attributes;
    const SettingTemplate* settings;
    std::size_t settingCount;
    RecordSize recordSize;
    const AttributeRoleEntry* roles;
    std::size_t roleCount;

    template <class Record, std::size_t A, std::size_t S>
    constexpr SectionDeclaration(const char* sectionName, const Field<Record> (&fields)[A],
                                 const SettingTemplate (&templates)[S], RecordSize size = RecordSize::Standard)
        : name(sectionName), attributes(FieldTable<Record>(fields)), settings(templates), settingCount(S),
          recordSize(size), roles(nullptr), roleCount(0) {}
    template <class Record, std::size_t A, std::size_t S, std::size_t R>
    constexpr SectionDeclaration(const char* sectionName, const Field<Record> (&fields)[A],
                                 const SettingTemplate (&templates)[S], const AttributeRoleEntry (&attributeRoles)[R],
                                 RecordSize size = RecordSize::Standard)
        : name(sectionName), attributes(FieldTable<Record>(fields)), settings(templates), settingCount(S),
          recordSize(size), roles(attributeRoles), roleCount(R) {}

    // The attribute's role; Setting for one the declaration does not name.
    AttributeRole RoleOf(const char* attribute) const;
};

// Names compare without regard to ASCII letter case, as the recorder's own do.
constexpr bool SameName(const char* a, const char* b) {
    if (a == nullptr || b == nullptr) return false;
    for (;; ++a, ++b) {
        const char x = *a >= 'A' && *a <= 'Z' ? static_cast<char>(*a - 'A' + 'a') : *a;
        const char y = *b >= 'A' && *b <= 'Z' ? static_cast<char>(*b - 'A' + 'a') : *b;
        if (x != y) return false;
        if (x == '\0') return true;
    }
}

// The declared field of an attribute, found when a constant is built: an attribute the table does not
// declare stops the build.
template <class Record, std::size_t N>
constexpr const Field<Record>& DeclaredField(const Field<Record> (&fields)[N], const char* attribute) {
    for (const Field<Record>& field : fields) {
        if (field.attribute != nullptr && SameName(field.attribute, attribute)) return field;
    }
    throw "the attribute is not declared in the section's catalogue entry";
}

// Every declared section, in a stable order; and one by name (null when none).
const SectionDeclaration* const* CatalogueBegin();
const SectionDeclaration* const* CatalogueEnd();
const SectionDeclaration* FindCatalogueSection(const char* name);

}  // namespace varcfg
