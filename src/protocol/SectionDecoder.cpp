#include "protocol/SectionDecoder.h"

#include <cfloat>
#include <cmath>
#include <cstdlib>
#include <cstring>

#include <tinyxml.h>

#include "base/AsciiText.h"
#include "base/TraceFile.h"
#include "protocol/IpText.h"

namespace varcfg {
namespace {

const FieldBinding* FindField(const FieldList& fields, const char* attributeName) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].attribute != nullptr && EqualsIgnoringAsciiCase(fields[i].attribute, attributeName)) return &fields[i];
    }
    return nullptr;
}

// As atoi reads it, but a number beyond 32 bits keeps its low 32 bits instead of being undefined: every
// value from -2^31 to 2^32 - 1 arrives exactly, whatever the signedness of its member.
uint32_t DecimalInteger(const char* text) {
    while (IsAsciiSpace(*text)) ++text;
    const bool negative = *text == '-';
    if (*text == '-' || *text == '+') ++text;
    uint32_t value = 0;
    for (; IsDecimalDigit(*text); ++text) value = value * 10u + static_cast<uint32_t>(*text - '0');
    return negative ? 0u - value : value;
}

void StoreInteger(unsigned char* member, std::size_t size, uint32_t value) {
    if (size == 1) {
        const auto narrow = static_cast<uint8_t>(value);
        std::memcpy(member, &narrow, sizeof narrow);
    } else if (size == 2) {
        const auto narrow = static_cast<uint16_t>(value);
        std::memcpy(member, &narrow, sizeof narrow);
    } else {
        std::memcpy(member, &value, sizeof value);
    }
}

// A number beyond the range of float becomes an infinity of its sign: converting it is undefined.
void StoreFloat(unsigned char* member, std::size_t size, const char* text) {
    const double value = std::strtod(text, nullptr);
    if (size == sizeof(double)) {
        std::memcpy(member, &value, sizeof value);
        return;
    }
    const bool beyondFloat = std::isfinite(value) && std::fabs(value) > FLT_MAX;
    const float narrow = beyondFloat ? (value > 0 ? HUGE_VALF : -HUGE_VALF) : static_cast<float>(value);
    std::memcpy(member, &narrow, sizeof narrow);
}

// The rest of the member is cleared too, so that equal texts leave equal bytes.
void StoreText(unsigned char* member, std::size_t size, const char* text, std::size_t length) {
    const std::size_t copied = length < size - 1 ? length : size - 1;
    std::memcpy(member, text, copied);
    std::memset(member + copied, 0, size - copied);
}

DecodeResult Refused(const FieldBinding& field, const char* text) {
    DecodeResult result;
    result.status = DecodeStatus::TextRefused;
    result.refusedAttribute = field.attribute;
    result.refusedText = text;
    return result;
}

DecodeResult Malformed() {
    DecodeResult result;
    result.status = DecodeStatus::MalformedChildName;
    return result;
}

// The entry number of a numbered child; false when the name breaks the rule. Digits stop being read
// once the number reaches limit, so a long run of them cannot overflow.
bool EntryIndex(const char* name, IndexSuffix rule, std::size_t limit, std::size_t& index) {
    const char* underscore = std::strchr(name, '_');
    if (underscore == nullptr) return false;
    const char* suffix = underscore + 1;
    const std::size_t suffixLength = std::strlen(suffix);
    const bool fits = rule == IndexSuffix::AtLeastOneCharacter ? suffixLength >= 1 : suffixLength == 1;
    if (!fits) return false;
    index = 0;
    for (const char* digit = suffix; IsDecimalDigit(*digit) && index < limit; ++digit) {
        index = index * 10 + static_cast<std::size_t>(*digit - '0');
    }
    return true;
}

}  // namespace

DecodeResult DecodeAttributes(const TiXmlElement& element, const FieldList& fields, unsigned char* record) {
    for (const TiXmlAttribute* attribute = element.FirstAttribute(); attribute != nullptr;
         attribute = attribute->Next()) {
        const FieldBinding* field = FindField(fields, attribute->Name());
        if (field == nullptr) continue;
        const char* text = attribute->Value();
        unsigned char* member = record + field->offset;
        switch (field->kind) {
            case FieldKind::Integer:
                StoreInteger(member, field->size, DecimalInteger(text));
                break;
            case FieldKind::Float:
                StoreFloat(member, field->size, text);
                break;
            case FieldKind::Text: {
                const std::size_t length = std::strlen(text);
                if (length < field->minTextLength || length > field->maxTextLength) return Refused(*field, text);
                StoreText(member, field->size, text, length);
                break;
            }
            case FieldKind::Ip: {
                const uint32_t ip = IpFromText(text);
                std::memcpy(member, &ip, sizeof ip);
                break;
            }
        }
    }
    return {};
}

DecodeResult DecodeChannels(const TiXmlElement& container, const FieldList& fields, unsigned char* first,
                            std::size_t stride, std::size_t count) {
    const TiXmlElement* child = container.FirstChildElement();
    for (std::size_t channel = 0; channel < count && child != nullptr; ++channel) {
        DecodeResult result = DecodeAttributes(*child, fields, first + channel * stride);
        if (!result.Succeeded()) return result;
        child = child->NextSiblingElement();
    }
    return {};
}

namespace {

DecodeResult DecodeNumbered(const TiXmlElement& container, IndexSuffix suffix, const FieldList& fields,
                            unsigned char* first, std::size_t stride, std::size_t indexLimit,
                            const NestedEntry* nested) {
    for (const TiXmlElement* child = container.FirstChildElement(); child != nullptr;
         child = child->NextSiblingElement()) {
        std::size_t index = 0;
        if (!EntryIndex(child->Value(), suffix, indexLimit, index)) return Malformed();
        if (index >= indexLimit) break;
        unsigned char* entry = first + index * stride;
        DecodeResult result = DecodeAttributes(*child, fields, entry);
        if (!result.Succeeded()) return result;
        const TiXmlElement* inner = nested != nullptr ? child->FirstChildElement(nested->name) : nullptr;
        if (inner != nullptr) {
            result = DecodeAttributes(*inner, nested->fields, entry + nested->offset);
            if (!result.Succeeded()) return result;
        }
    }
    return {};
}

}  // namespace

DecodeResult DecodeIndexedChildren(const TiXmlElement& container, IndexSuffix suffix, const FieldList& fields,
                                   unsigned char* first, std::size_t stride, std::size_t indexLimit) {
    return DecodeNumbered(container, suffix, fields, first, stride, indexLimit, nullptr);
}

DecodeResult DecodeIndexedChildren(const TiXmlElement& container, IndexSuffix suffix, const FieldList& fields,
                                   unsigned char* first, std::size_t stride, std::size_t indexLimit,
                                   const NestedEntry& nested) {
    return DecodeNumbered(container, suffix, fields, first, stride, indexLimit, &nested);
}

const TiXmlElement* FindContainer(const TiXmlElement& section, const char* containerName, const char* operationName) {
    const TiXmlElement* container = section.FirstChildElement(containerName);
    if (container == nullptr) {
        CTraceFile2::Diagnose(std::string("CConfig_Task::") + operationName + ", pVariElement.FirstChildElement failed.\n");
    }
    return container;
}

}  // namespace varcfg
