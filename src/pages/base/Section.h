// A page's declaration of one recorder section: which attributes it reads, into which members of the
// section's record, shown in which controls under which rule. Loading (decode, show), taking (read the
// controls, validate in order) and change detection all work from this one table:
//
//   constexpr Binding<LocalEthRecord> kLocalEthBindings[] = {
//       VARCFG_BIND(LocalEthRecord, localIp, "uiFD_LocalIp", Ip).InIpAddress(IDC_LOCAL_IP),
//       VARCFG_BIND(LocalEthRecord, mac, "strFD_Mac", Text).InText(IDC_LOCAL_MAC),
//       VARCFG_BIND(LocalEthRecord, dhcpEnableFlag, "ucFD_DhcpEnableFlag", Integer),  // read, not shown
//   };
//   constexpr Section<LocalEthRecord> kLocalEth{"stLocalEth0", kLocalEthBindings};
//
// The declarations are plain constant data, so that every section a page reads and writes can be
// listed without creating the page.
#pragma once

#include <cstddef>
#include <cstdint>

#include "catalogue/SectionCatalogue.h"
#include "protocol/SectionDecoder.h"
#include "ui/win/DataExchange.h"

namespace varcfg {

// How a control shows a member, and how the page takes it back.
enum class Show : uint8_t {
    None,        // decoded into the record, not shown
    Text,        // edit: a text member as it stands, an integer member in decimal; taken as typed
    Number,      // edit: an integer member in decimal; taken as a whole number in [min, max]
    Decimal,     // edit: a real member with six significant digits; taken as digits and points in [min, max]
    Real,        // edit: a real member with six significant digits; taken as any real number
    IpAddress,   // IP address control: an IP member in dotted form; taken as the control's text
    Check,       // check box: ticked when the member is non-zero (zero when inverted); taken as 0 or 1
    ComboIndex,  // list: the member is the index; taken as the selected index (-1 for none)
    ComboData,   // list: the member is an entry's item data; taken as the selected entry's data
    DateTime,    // date-time picker: a text member "YYYY-MM-DD HH:MM:SS"; taken in the same form
};

struct ViewRule {
    int control = 0;
    Show show = Show::None;
    long long min = 0;            // Number: the range; Text: max is the length limit (0 for none)
    long long max = 0;
    double realMin = 0;           // Decimal: the range
    double realMax = 0;
    Unlisted unlisted = Unlisted::Clear;  // lists: a member value that no entry offers
    long long unselected = -1;    // ComboData: the value taken when nothing is selected
    bool inverted = false;        // Check: ticked when the member is zero
    bool keepsOutOfRange = false; // Number: a whole number outside the range is taken, then refused
};

// One attribute of a section and the control that shows it, for any record.
struct BindingData {
    FieldBinding field;
    ViewRule view;
};

// A binding of a Record's member. Made by VARCFG_BIND and its In... rules.
template <class Record>
struct Binding : BindingData {
    constexpr Binding InText(int control, long long limit = 0) const { return With(control, Show::Text, 0, limit); }
    constexpr Binding InNumber(int control, long long min, long long max) const {
        return With(control, Show::Number, min, max);
    }
    constexpr Binding InDecimal(int control, double min, double max) const {
        Binding binding = With(control, Show::Decimal, 0, 0);
        binding.view.realMin = min;
        binding.view.realMax = max;
        return binding;
    }
    constexpr Binding InReal(int control) const { return With(control, Show::Real, 0, 0); }
    constexpr Binding InIpAddress(int control) const { return With(control, Show::IpAddress, 0, 0); }
    constexpr Binding InCheck(int control) const { return With(control, Show::Check, 0, 1); }
    constexpr Binding InInvertedCheck(int control) const {
        Binding binding = With(control, Show::Check, 0, 1);
        binding.view.inverted = true;
        return binding;
    }
    constexpr Binding InComboIndex(int control, Unlisted unlisted) const {
        Binding binding = With(control, Show::ComboIndex, 0, 0);
        binding.view.unlisted = unlisted;
        return binding;
    }
    constexpr Binding InComboData(int control, Unlisted unlisted, long long unselected = -1) const {
        Binding binding = With(control, Show::ComboData, 0, 0);
        binding.view.unlisted = unlisted;
        binding.view.unselected = unselected;
        return binding;
    }
    constexpr Binding InDateTime(int control) const { return With(control, Show::DateTime, 0, 0); }
    // Number rules only: a typed whole number outside the range is taken before it is refused, for
    // pages whose save goes on after a refusal and sends what was typed.
    constexpr Binding KeepingOutOfRange() const {
        Binding binding = *this;
        binding.view.keepsOutOfRange = true;
        return binding;
    }
    // Text members only: a text of fewer or more characters stops the decoding of the section.
    constexpr Binding AcceptingTextLength(std::size_t minLength, std::size_t maxLength) const {
        Binding binding = *this;
        binding.field.minTextLength = minLength;
        binding.field.maxTextLength = maxLength;
        return binding;
    }

private:
    constexpr Binding With(int control, Show show, long long min, long long max) const {
        Binding binding = *this;
        binding.view.control = control;
        binding.view.show = show;
        binding.view.min = min;
        binding.view.max = max;
        return binding;
    }
};

template <class Record>
constexpr Binding<Record> MakeBinding(const Field<Record>& field) {
    Binding<Record> binding{};
    binding.field = field;
    return binding;
}

// A binding of an attribute that the section catalogue declares: BindAttribute(kPttFields, "ucFD_Enable")
// .InCheck(IDC_PTT_ENABLE). An attribute the catalogue does not declare stops the build.
template <class Record, std::size_t N>
constexpr Binding<Record> BindAttribute(const Field<Record> (&declared)[N], const char* attribute) {
    return MakeBinding<Record>(DeclaredField(declared, attribute));
}

// VARCFG_BIND(Record, member, "attributeName", Integer | Float | Text | Ip): a member decoded from the
// attribute; add a rule (.InText(id), .InNumber(id, min, max), ...) to show it. A null attribute name
// binds a member that is shown but not decoded.
#define VARCFG_BIND(Record, member, attribute, kind) \
    (::varcfg::MakeBinding<Record>(VARCFG_FIELD(Record, member, attribute, kind)))

// The bindings of a section, whatever its record.
class BindingList {
public:
    template <class Record>
    constexpr BindingList(const Binding<Record>* first, std::size_t count)
        : first_(first), count_(count), at_(&At<Record>) {}

    constexpr std::size_t size() const { return count_; }
    const BindingData& operator[](std::size_t index) const { return at_(first_, index); }

private:
    template <class Record>
    static const BindingData& At(const void* first, std::size_t index) {
        return static_cast<const Binding<Record>*>(first)[index];
    }

    const void* first_;
    std::size_t count_;
    const BindingData& (*at_)(const void*, std::size_t);
};

// A section as a page shows it: its name in queries and settings, the bindings of its record to the
// page's controls, and the records its query travels in. A section of the catalogue also brings its
// attributes (what the decoder reads) and the setting template the page writes.
template <class Record>
struct Section {
    const char* name;
    BindingList bindings;
    FieldList fields;
    RecordSize recordSize;
    const SectionDeclaration* declaration;  // null for a section the page declares on its own
    std::size_t setting;                    // the declaration's template this page writes
    bool read = true;                       // whether the page reads it, or only writes it

    // A section the page writes from controls that show another section.
    constexpr Section WrittenOnly() const {
        Section section = *this;
        section.read = false;
        return section;
    }

    template <std::size_t N>
    constexpr Section(const SectionDeclaration& declared, const Binding<Record> (&table)[N],
                      std::size_t settingIndex = 0)
        : name(declared.name), bindings(table, N), fields(declared.attributes), recordSize(declared.recordSize),
          declaration(&declared), setting(settingIndex) {}
    template <std::size_t N>
    constexpr Section(const char* sectionName, const Binding<Record> (&table)[N])
        : name(sectionName), bindings(table, N), fields(table, N), recordSize(RecordSize::Standard),
          declaration(nullptr), setting(0) {}
};

}  // namespace varcfg
