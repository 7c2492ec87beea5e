// The section decoder: turns the elements of a query reply into plain records.
//
// A section's attribute list is data: a table of fields, each binding an attribute name to a member of
// a standard-layout record. One mechanism walks the attributes of an element and fills the record;
// sections with one child element per channel or per numbered entry reuse it for each child.
//
//   constexpr varcfg::Field<PowerRecord> kPowerFields[] = {
//       VARCFG_FIELD(PowerRecord, powerOnDelayEnable, "ucPOnDelayEnable", Integer),
//       VARCFG_FIELD(PowerRecord, powerOffDelayMinutes, "usPOffDelayTime", Integer),
//   };
//   varcfg::DecodeAttributes(section, kPowerFields, power);
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>

class TiXmlElement;

namespace varcfg {

enum class FieldKind : uint8_t {
    Integer,  // decimal text, stored in the member's width (1, 2 or 4 bytes)
    Float,    // decimal text, stored as float or double
    Text,     // copied, cut to one less than the member's size so the member stays terminated
    Ip,       // the IP text rule of IpFromText, stored as uint32_t
};

struct FieldBinding {
    const char* attribute;  // matched without regard to ASCII letter case
    std::size_t offset;
    std::size_t size;
    FieldKind kind;
    // Text fields: a text of fewer or more characters stops decoding (DecodeStatus::TextRefused).
    std::size_t minTextLength;
    std::size_t maxTextLength;
    bool isSigned;  // Integer fields: whether the member is a signed type, for those who read it back
};

// A binding into a Record, made by VARCFG_FIELD. The record type keeps tables of different records
// apart.
template <class Record>
struct Field : FieldBinding {
    constexpr Field AcceptingTextLength(std::size_t minLength, std::size_t maxLength) const {
        Field field = *this;
        field.minTextLength = minLength;
        field.maxTextLength = maxLength;
        return field;
    }
};

template <class Record, class Member, FieldKind kKind>
constexpr Field<Record> MakeField(const char* attribute, std::size_t offset) {
    static_assert(std::is_standard_layout_v<Record>, "fields are found by offset: records must be standard-layout");
    if constexpr (kKind == FieldKind::Integer) {
        static_assert(std::is_integral_v<Member> && !std::is_same_v<Member, bool> &&
                          (sizeof(Member) == 1 || sizeof(Member) == 2 || sizeof(Member) == 4),
                      "Integer fields are 8-, 16- or 32-bit integers");
    } else if constexpr (kKind == FieldKind::Float) {
        static_assert(std::is_same_v<Member, float> || std::is_same_v<Member, double>,
                      "Float fields are float or double");
    } else if constexpr (kKind == FieldKind::Text) {
        static_assert(std::is_array_v<Member> && std::is_same_v<std::remove_extent_t<Member>, char> &&
                          std::extent_v<Member> >= 2,
                      "Text fields are char arrays with room for a character and the terminator");
    } else {
        static_assert(std::is_same_v<Member, uint32_t>, "Ip fields are uint32_t");
    }
    constexpr bool kSigned = std::is_signed_v<std::remove_extent_t<Member>>;
    return Field<Record>{{attribute, offset, sizeof(Member), kKind, 0, SIZE_MAX, kSigned}};
}

// VARCFG_FIELD(Record, member, "attributeName", Integer | Float | Text | Ip)
#define VARCFG_FIELD(Record, member, attribute, kind)                                 \
    (::varcfg::MakeField<Record, decltype(Record::member), ::varcfg::FieldKind::kind>( \
        attribute, offsetof(Record, member)))

// A section's fields: a view of a constant array of Field<Record>. When two fields bind the same name,
// the first one in the table is used.
template <class Record>
class FieldTable {
public:
    template <std::size_t N>
    constexpr FieldTable(const Field<Record> (&fields)[N]) : fields_(fields), count_(N) {}

    // The same table less its first count fields, so that a decode can leave them out.
    constexpr FieldTable WithoutFirst(std::size_t count) const {
        return count < count_ ? FieldTable(fields_ + count, count_ - count) : FieldTable(fields_ + count_, 0);
    }

    constexpr const Field<Record>* begin() const { return fields_; }
    constexpr const Field<Record>* end() const { return fields_ + count_; }
    constexpr std::size_t size() const { return count_; }

private:
    constexpr FieldTable(const Field<Record>* fields, std::size_t count) : fields_(fields), count_(count) {}

    const Field<Record>* fields_;
    std::size_t count_;
};

enum class DecodeStatus {
    Decoded,
    TextRefused,         // a text broke its field's length rule; decoding stopped there
    MalformedChildName,  // a numbered child's name broke the suffix rule; decoding stopped there
};

struct DecodeResult {
    DecodeStatus status = DecodeStatus::Decoded;
    const char* refusedAttribute = nullptr;  // TextRefused: the table's spelling of the attribute
    std::string refusedText;                 // TextRefused: the text as it arrived

    bool Succeeded() const { return status == DecodeStatus::Decoded; }
};

// How the entry index follows the first underscore of a numbered child's name ("AlarmIO_11").
enum class IndexSuffix {
    AtLeastOneCharacter,
    ExactlyOneCharacter,
};

namespace detail {

// The record is named by the record argument alone, so a table can be passed as its plain array.
template <class T>
struct TypeIdentity {
    using type = T;
};
template <class T>
using NoDeduce = typename TypeIdentity<T>::type;

template <class Record>
unsigned char* BytesOf(Record& record) {
    return reinterpret_cast<unsigned char*>(&record);
}

}  // namespace detail

// A table of any record, as the decoder's loops read it: a FieldTable, or an array of entries that
// carry their binding as the member `field` (tables that bind more than the attribute, such as a
// page's bindings to its controls).
class FieldList {
public:
    template <class Record>
    constexpr explicit FieldList(const FieldTable<Record>& table)
        : first_(table.begin()), count_(table.size()), at_(&BindingAt<Field<Record>>) {}
    template <class Entry>
    constexpr FieldList(const Entry* entries, std::size_t count) : first_(entries), count_(count), at_(&FieldOfEntry<Entry>) {}

    constexpr std::size_t size() const { return count_; }
    const FieldBinding& operator[](std::size_t index) const { return at_(first_, index); }

private:
    template <class Binding>
    static const FieldBinding& BindingAt(const void* first, std::size_t index) {
        return static_cast<const Binding*>(first)[index];
    }
    template <class Entry>
    static const FieldBinding& FieldOfEntry(const void* first, std::size_t index) {
        return static_cast<const Entry*>(first)[index].field;
    }

    const void* first_;
    std::size_t count_;
    const FieldBinding& (*at_)(const void*, std::size_t);
};

// The decoder's operations on a FieldList and the record's bytes; the typed forms below call them.
DecodeResult DecodeAttributes(const TiXmlElement& element, const FieldList& fields, unsigned char* record);
DecodeResult DecodeChannels(const TiXmlElement& container, const FieldList& fields, unsigned char* first,
                            std::size_t stride, std::size_t count);
DecodeResult DecodeIndexedChildren(const TiXmlElement& container, IndexSuffix suffix, const FieldList& fields,
                                   unsigned char* first, std::size_t stride, std::size_t indexLimit);
// An element inside each numbered child that fills a member of the child's entry ("stAlarmOutIO" in
// "AlarmLinkageItem_3"): its first element of that name, decoded by fields at offset in the entry.
struct NestedEntry {
    const char* name;
    FieldList fields;
    std::size_t offset;
};
DecodeResult DecodeIndexedChildren(const TiXmlElement& container, IndexSuffix suffix, const FieldList& fields,
                                   unsigned char* first, std::size_t stride, std::size_t indexLimit,
                                   const NestedEntry& nested);

// Walks the element's attributes in document order and stores each one the table knows; unknown names
// are skipped, and of two attributes bound to one member the later wins. A binding without an attribute
// name (a member that is shown but not decoded) matches nothing. Integers are read as by atoi
// (leading blanks, a sign, the leading digits; no digits gives 0), keep their low 32 bits, and are then
// cut to the member's width. A refused text stops the walk; members filled before it keep their values.
template <class Record>
DecodeResult DecodeAttributes(const TiXmlElement& element, const FieldTable<detail::NoDeduce<Record>>& table,
                              Record& record) {
    return DecodeAttributes(element, FieldList(table), detail::BytesOf(record));
}

// The child element that holds a section's channels or numbered entries. When it is missing, prints
// "CConfig_Task::<operationName>, pVariElement.FirstChildElement failed.\n" and returns null.
const TiXmlElement* FindContainer(const TiXmlElement& section, const char* containerName, const char* operationName);

// Channels by position: the container's first child element, whatever its name, fills channels[0], the
// next one channels[1], and so on up to the end of the array. Channels without a child are untouched.
template <class Record, std::size_t N>
DecodeResult DecodeChannels(const TiXmlElement& container, const FieldTable<detail::NoDeduce<Record>>& table,
                            Record (&channels)[N]) {
    return DecodeChannels(container, FieldList(table), detail::BytesOf(channels[0]), sizeof(Record), N);
}

// Entries by number: each child element of the container, in document order, fills the entry numbered
// by the decimal digits right after the first underscore of its name (none gives 0). A name without an
// underscore or whose suffix breaks the rule stops decoding as MalformedChildName. A number at or above
// indexLimit (or the array's size) ends decoding as a success, keeping the entries already read.
template <class Record, std::size_t N>
DecodeResult DecodeIndexedChildren(const TiXmlElement& container, IndexSuffix suffix, std::size_t indexLimit,
                                   const FieldTable<detail::NoDeduce<Record>>& table, Record (&entries)[N]) {
    return DecodeIndexedChildren(container, suffix, FieldList(table), detail::BytesOf(entries[0]),
                                         sizeof(Record), indexLimit < N ? indexLimit : N);
}

}  // namespace varcfg
