#include "pages/base/CDlgCfgBase.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <cwchar>

#include "base/AnsiText.h"
#include "base/Validators.h"
#include "protocol/IpText.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

long long IntegerMember(const FieldBinding& field, const unsigned char* member) {
    if (field.size == 1) {
        uint8_t value = 0;
        std::memcpy(&value, member, 1);
        return field.isSigned ? static_cast<int8_t>(value) : value;
    }
    if (field.size == 2) {
        uint16_t value = 0;
        std::memcpy(&value, member, 2);
        return field.isSigned ? static_cast<int16_t>(value) : value;
    }
    uint32_t value = 0;
    std::memcpy(&value, member, 4);
    return field.isSigned ? static_cast<int32_t>(value) : static_cast<long long>(value);
}

double RealMember(const FieldBinding& field, const unsigned char* member) {
    if (field.size == sizeof(double)) {
        double value = 0;
        std::memcpy(&value, member, sizeof value);
        return value;
    }
    float value = 0;
    std::memcpy(&value, member, sizeof value);
    return value;
}

// The member as a control shows it: texts as they stand, numbers in decimal, reals with six
// significant digits, IPs dotted.
ShownValue MemberValue(const FieldBinding& field, const unsigned char* member) {
    ShownValue value;
    switch (field.kind) {
        case FieldKind::Integer:
            value.number = IntegerMember(field, member);
            value.text = std::to_wstring(value.number);
            break;
        case FieldKind::Float:
            value.text = FillTemplate(L"%g", {RealMember(field, member)});
            break;
        case FieldKind::Text: {
            const char* text = reinterpret_cast<const char*>(member);
            std::size_t length = 0;
            while (length < field.size && text[length] != '\0') ++length;
            value.text = FromAnsi(std::string_view(text, length));
            break;
        }
        case FieldKind::Ip: {
            uint32_t ip = 0;
            std::memcpy(&ip, member, sizeof ip);
            value.number = ip;
            value.text = FromAnsi(DottedIp(ip));
            break;
        }
    }
    return value;
}

// Moves one value between its control and the value, by the binding's rule.
void Exchange(DataExchange& dx, const ViewRule& view, int control, ShownValue& value) {
    switch (view.show) {
        case Show::None:
            break;
        case Show::Text:
            dx.Text(control, value.text, static_cast<std::size_t>(view.max));
            break;
        case Show::Number:
            dx.Number(control, value.number, view.min, view.max, &value.text, view.keepsOutOfRange);
            break;
        case Show::Decimal:
            dx.Decimal(control, value.text, view.realMin, view.realMax);
            break;
        case Show::Real:
            dx.Real(control, value.text);
            break;
        case Show::IpAddress:
            dx.IpAddress(control, value.text);
            break;
        case Show::Check: {
            int checked = static_cast<int>(value.number);
            dx.Check(control, checked);
            value.number = checked;
            break;
        }
        case Show::ComboIndex: {
            int index = static_cast<int>(value.number);
            dx.ComboIndex(control, index, view.unlisted);
            value.number = index;
            break;
        }
        case Show::ComboData:
            dx.ComboData(control, value.number, view.unlisted, view.unselected);
            break;
        case Show::DateTime:
            dx.DateTime(control, value.text);
            break;
    }
}

// Stores a value as its control shows it into the member: the inverse of MemberValue.
void StoreMember(const FieldBinding& field, const ViewRule& view, const ShownValue& value, unsigned char* member) {
    switch (field.kind) {
        case FieldKind::Integer: {
            const bool typed = view.show == Show::Text || view.show == Show::Decimal;
            const auto number = static_cast<uint32_t>(typed ? std::wcstoll(value.text.c_str(), nullptr, 10) : value.number);
            std::memcpy(member, &number, field.size);  // the low bytes: the records are little-endian
            break;
        }
        case FieldKind::Float: {
            const double real = std::wcstod(value.text.c_str(), nullptr);
            if (field.size == sizeof(double)) {
                std::memcpy(member, &real, sizeof real);
            } else {
                const auto single = static_cast<float>(real);
                std::memcpy(member, &single, sizeof single);
            }
            break;
        }
        case FieldKind::Text: {
            const std::string text = ToAnsi(value.text);
            const std::size_t length = std::min(text.size(), field.size - 1);
            std::memcpy(member, text.data(), length);
            std::memset(member + length, 0, field.size - length);
            break;
        }
        case FieldKind::Ip: {
            const uint32_t ip = IpFromText(ToAnsi(value.text));
            std::memcpy(member, &ip, sizeof ip);
            break;
        }
    }
}

// The number as a member of the field's width and signedness holds it.
long long StoredNumber(const FieldBinding& field, long long number) {
    const uint32_t bits = static_cast<uint32_t>(number);
    if (field.size == 1) return field.isSigned ? static_cast<int8_t>(bits) : static_cast<uint8_t>(bits);
    if (field.size == 2) return field.isSigned ? static_cast<int16_t>(bits) : static_cast<uint16_t>(bits);
    return field.isSigned ? static_cast<long long>(static_cast<int32_t>(bits)) : static_cast<long long>(bits);
}

// What a control shows before anything was shown in it: the baseline of a control never loaded.
ShownValue EmptyValue(const ViewRule& view) {
    ShownValue value;
    if (view.show == Show::ComboIndex) value.number = -1;
    if (view.show == Show::ComboData) value.number = view.unselected;
    return value;
}

}  // namespace

int CDlgCfgBase::IsDigitString(const std::wstring& text) { return varcfg::IsDigitString(text); }

int CDlgCfgBase::IsDecimalString(const std::wstring& text) { return varcfg::IsDecimalString(text); }

int CDlgCfgBase::Query(const std::string& queryText, QueryReply& reply, RecordSize size) {
    std::string replyText;
    if (!varcfg::Exchange(queryText, kQueryForm, replyText, size)) return 0;
    if (reply.Check(replyText) == 0) return 1;
    LogRefusedReply(queryText);
    return -1;
}

int CDlgCfgBase::SendSetting(const std::wstring& settingText) { return SendSetting(ToAnsi(settingText)); }

int CDlgCfgBase::SendSetting(const std::string& ansiSettingText) {
    std::string replyText;
    if (!varcfg::Exchange(ansiSettingText, kSettingForm, replyText)) return 0;
    if (CheckSettingReply(replyText) == 0) return 1;
    LogRefusedReply(ansiSettingText);
    return -1;
}

const ShownValue& CDlgCfgBase::Value(int control) const {
    static const ShownValue kNone;
    const auto found = values_.find(control);
    return found != values_.end() ? found->second : kNone;
}

const ShownValue& CDlgCfgBase::Baseline(int control) const {
    static const ShownValue kNone;
    const auto found = baseline_.find(control);
    return found != baseline_.end() ? found->second : kNone;
}

std::wstring CDlgCfgBase::SettingText(const SectionInfo& section, int row, int piece, int entries) const {
    if (section.declaration == nullptr || section.setting >= section.declaration->settingCount) return {};
    const SettingTemplate& setting = section.declaration->settings[section.setting];
    std::wstring text = FillPlaceholders(section, setting.head, row, piece, piece);
    if (!setting.repeated) return text;
    for (int entry = 0; entry < entries; ++entry) {
        text += FillPlaceholders(section, setting.entry, row + entry, piece, piece + entry);
    }
    return text + FillPlaceholders(section, setting.tail, row, piece, piece);
}

std::wstring CDlgCfgBase::FillPlaceholders(const SectionInfo& section, const TemplateText& text, int row, int piece,
                                           int entryNumber) const {
    std::vector<TemplateArg> args;
    args.reserve(text.sourceCount);
    for (std::size_t s = 0; s < text.sourceCount; ++s) {
        const PlaceholderSource& source = text.sources[s];
        if (source.kind == SourceKind::Fixed) {
            args.emplace_back(source.value);
            continue;
        }
        if (source.kind == SourceKind::Piece || source.kind == SourceKind::EntryNumber) {
            args.emplace_back(source.kind == SourceKind::Piece ? piece : entryNumber);
            continue;
        }
        // A shown attribute gives its control's value; one the page decodes but does not show gives
        // its value as last read.
        const BindingData* shown = nullptr;
        const BindingData* kept = nullptr;
        for (std::size_t b = 0; b < section.bindings.size() && shown == nullptr; ++b) {
            const BindingData& binding = section.bindings[b];
            if (!SameName(binding.field.attribute, source.attribute)) continue;
            if (binding.view.show != Show::None) {
                shown = &binding;
            } else if (kept == nullptr) {
                kept = &binding;
            }
        }
        if (shown != nullptr) {
            const ViewRule& view = shown->view;
            const ShownValue& value = Value(view.control + row);
            const bool asText = view.show == Show::Text || view.show == Show::IpAddress ||
                                view.show == Show::Decimal || view.show == Show::Real || view.show == Show::DateTime;
            if (shown->field.kind == FieldKind::Float) {
                // As typed, then as the recorder's 32-bit value.
                args.emplace_back(static_cast<double>(static_cast<float>(std::wcstod(value.text.c_str(), nullptr))));
            } else if (asText) {
                args.emplace_back(std::wstring_view(value.text));
            } else {
                const long long number = source.Convert(value.number);
                args.emplace_back(source.stored ? StoredNumber(shown->field, number) : number);
            }
        } else if (kept != nullptr) {
            static const ShownValue kNeverRead;
            const auto found = kept_.find({kept, row});
            const ShownValue& value = found != kept_.end() ? found->second : kNeverRead;
            if (kept->field.kind == FieldKind::Integer) {
                args.emplace_back(source.Convert(value.number));
            } else {
                args.emplace_back(std::wstring_view(value.text));
            }
        } else {
            args.emplace_back(L"");
        }
    }
    return FillTemplate(text.text, args.data(), args.size());
}

void CDlgCfgBase::ShowBindings(const BindingList& bindings, const unsigned char* record, int row) {
    DataExchange show(*this, false);
    DataExchange readBack(*this, true);
    for (std::size_t i = 0; i < bindings.size(); ++i) {
        const BindingData& binding = bindings[i];
        if (binding.view.show == Show::None) {
            if (binding.field.attribute != nullptr) kept_[{&binding, row}] = MemberValue(binding.field, record + binding.field.offset);
            continue;
        }
        const int control = binding.view.control + row;
        ShownValue value = MemberValue(binding.field, record + binding.field.offset);
        if (binding.view.show == Show::Check) value.number = (value.number != 0) != binding.view.inverted ? 1 : 0;
        Exchange(show, binding.view, control, value);
        // The value is what the control shows: a list keeps or clears its selection for a value it does
        // not offer, a picker keeps its time for a text that is none, an edit cuts at its limit. Numbers
        // are shown as they are, and reading them back would validate them.
        if (binding.view.show != Show::Number && binding.view.show != Show::Decimal && binding.view.show != Show::Real) {
            Exchange(readBack, binding.view, control, value);
        }
        values_[control] = value;
        baseline_[control] = value;
    }
}

void CDlgCfgBase::StoreBindings(const BindingList& bindings, unsigned char* record, int row) const {
    for (std::size_t i = 0; i < bindings.size(); ++i) {
        const BindingData& binding = bindings[i];
        if (binding.view.show == Show::None) continue;
        StoreMember(binding.field, binding.view, Value(binding.view.control + row), record + binding.field.offset);
    }
}

bool CDlgCfgBase::TakeBindings(const BindingList& bindings, int row) {
    DataExchange take(*this, true);
    for (std::size_t i = 0; i < bindings.size(); ++i) {
        const BindingData& binding = bindings[i];
        if (binding.view.show == Show::None) continue;
        const int control = binding.view.control + row;
        ShownValue& value = values_[control];
        Exchange(take, binding.view, control, value);
        if (take.Failed()) return false;
    }
    return true;
}

bool CDlgCfgBase::BindingsChanged(const BindingList& bindings, int row) const {
    for (std::size_t i = 0; i < bindings.size(); ++i) {
        const BindingData& binding = bindings[i];
        if (binding.view.show == Show::None) continue;
        const int control = binding.view.control + row;
        const auto baseline = baseline_.find(control);
        if (Value(control) != (baseline != baseline_.end() ? baseline->second : EmptyValue(binding.view))) return true;
    }
    return false;
}

void CDlgCfgBase::AcceptBindings(const BindingList& bindings, int row) {
    for (std::size_t i = 0; i < bindings.size(); ++i) {
        const BindingData& binding = bindings[i];
        if (binding.view.show == Show::None) continue;
        const int control = binding.view.control + row;
        baseline_[control] = Value(control);
    }
}
