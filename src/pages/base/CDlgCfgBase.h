// CDlgCfgBase: the base of every configuration page and tab host. The setup area loads a page with
// Refresh the first time it is shown, marks it loaded, and saves it with Save on the write button.
//
// It also carries the page kit: a page declares its sections (pages/base/Section.h) on the section
// catalogue and reads as its algorithm, for example
//
//   int Refresh() override { return LoadSection(kLocalEth); }   // query, decode, show, baseline
//   int Save() override {
//       if (!TakeSection(kLocalEth)) return -1;                 // take, validate
//       return WriteChangedSection(kLocalEth) == 1 ? 1 : 0;     // the catalogue's template, if changed
//   }
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "base/TemplateText.h"
#include "channel/RequestChannel.h"
#include "pages/base/Section.h"
#include "protocol/Envelope.h"
#include "ui/win/Dialog.h"

// A value as a control shows it: the text of an edit, IP address control or date-time picker, the
// number of a check box, a list or a number field (whose typed text is kept too).
struct ShownValue {
    std::wstring text;
    long long number = 0;
    bool operator==(const ShownValue& other) const { return text == other.text && number == other.number; }
    bool operator!=(const ShownValue& other) const { return !(*this == other); }
};

// A section's name and bindings, whatever its record: what a page reads and writes, as data.
struct SectionInfo {
    const char* name;
    varcfg::BindingList bindings;
    varcfg::RecordSize recordSize;
    const varcfg::SectionDeclaration* declaration;  // null for a section outside the catalogue
    std::size_t setting;                            // the declaration's template the page writes
    bool read;                                      // whether the page reads it, or only writes it
};

class CDlgCfgBase : public varcfg::Dialog {
public:
    using Dialog::Dialog;

    // Validates the controls, sends the page's settings and checks the replies. Positive on success,
    // 0 when the exchange or the recorder refused, -1 when the page refused its own input and has told
    // the user. A page without settings of its own saves nothing and returns 0.
    virtual int Save() { return 0; }
    // Reads the page's sections from the recorder and fills the controls; non-zero on success.
    virtual int Refresh() { return 0; }
    // The sections the page declares, in the order it reads them. Needs no window.
    virtual std::vector<SectionInfo> DeclaredSections() const { return {}; }

    void SetLoaded() { loaded_ = 1; }
    int IsLoaded() const { return loaded_; }

    static int IsDigitString(const std::wstring& text);
    static int IsDecimalString(const std::wstring& text);

protected:
    // The page's requests, all through the one request channel. Both return 1 when the recorder
    // answered and the reply passed its check, 0 when the transport failed, -1 when the reply was
    // refused.
    // A query: on 1, reply.Section() is the section element to decode.
    static int Query(const std::string& queryText, varcfg::QueryReply& reply,
                     varcfg::RecordSize size = varcfg::RecordSize::Standard);
    // A setting: the wide text is converted to the ANSI code page; either text is cut at 1023 characters.
    static int SendSetting(const std::wstring& settingText);
    static int SendSetting(const std::string& ansiSettingText);

    // Queries the section by its name, decodes the reply into a zeroed record and shows it: 1, or 0
    // when the transport failed or the section did not decode, or -1 when the reply was refused.
    // Controls, values and baseline change only on 1.
    // The adjustment, when given, changes the decoded record before it is shown.
    template <class Record, class Adjust>
    int LoadSection(const varcfg::Section<Record>& section, Record& record, Adjust adjust) {
        varcfg::QueryReply reply;
        const int result = Query(varcfg::QueryText(section.name), reply, section.recordSize);
        if (result != 1) return result;
        Record decoded{};
        if (!DecodeSection(section, *reply.Section(), decoded)) return 0;
        adjust(decoded);
        record = decoded;
        ShowSection(section, record);
        return 1;
    }
    template <class Record>
    int LoadSection(const varcfg::Section<Record>& section, Record& record) {
        return LoadSection(section, record, [](Record&) {});
    }
    template <class Record>
    int LoadSection(const varcfg::Section<Record>& section) {
        Record record{};
        return LoadSection(section, record);
    }
    // Decodes an element into the record by the section's bindings; false when decoding stopped.
    template <class Record>
    static bool DecodeSection(const varcfg::Section<Record>& section, const TiXmlElement& element, Record& record) {
        return varcfg::DecodeAttributes(element, section.fields, reinterpret_cast<unsigned char*>(&record)).Succeeded();
    }
    // Decodes the numbered children ("SerialChn_1": one character after the underscore) of the section's
    // container element into entries by the section's bindings; numbers from indexLimit up end the list.
    // A section without the container decodes as empty. False when a child's name broke the rule.
    template <class Record, std::size_t N>
    static bool DecodeNumberedEntries(const varcfg::Section<Record>& section, const TiXmlElement& element,
                                      const char* containerName, std::size_t indexLimit, Record (&entries)[N]) {
        const std::string operation = std::string("Import_") + section.name;
        const TiXmlElement* container = varcfg::FindContainer(element, containerName, operation.c_str());
        return container == nullptr ||
               varcfg::DecodeIndexedChildren(*container, varcfg::IndexSuffix::ExactlyOneCharacter, section.fields,
                                             reinterpret_cast<unsigned char*>(entries), sizeof(Record),
                                             indexLimit < N ? indexLimit : N)
                   .Succeeded();
    }
    // Shows the record's members in their controls; the shown values become the baseline. Row n shows
    // a row of controls whose ids follow the declared ones by n.
    template <class Record>
    void ShowSection(const varcfg::Section<Record>& section, const Record& record, int row = 0) {
        ShowBindings(section.bindings, reinterpret_cast<const unsigned char*>(&record), row);
    }
    // Takes the section's controls into their values in table order, validating each; at the first
    // refusal the user is told, the control focused, and false returned.
    template <class Record>
    bool TakeSection(const varcfg::Section<Record>& section, int row = 0) {
        return TakeBindings(section.bindings, row);
    }
    // Whether a value taken from the section's controls differs from its baseline.
    template <class Record>
    bool SectionChanged(const varcfg::Section<Record>& section, int row = 0) const {
        return BindingsChanged(section.bindings, row);
    }
    // The section's taken values become its baseline (after the recorder accepted them).
    template <class Record>
    void AcceptSection(const varcfg::Section<Record>& section, int row = 0) {
        AcceptBindings(section.bindings, row);
    }
    // Sends the setting when a value taken from the section's controls differs from its baseline, and
    // makes the taken values the baseline once the recorder accepted them. 1 when accepted or unchanged,
    // otherwise the result of SendSetting.
    template <class Record>
    int WriteChangedSection(const varcfg::Section<Record>& section, const std::wstring& settingText, int row = 0) {
        if (!SectionChanged(section, row)) return 1;
        const int result = SendSetting(settingText);
        if (result == 1) AcceptSection(section, row);
        return result;
    }
    // The same for a catalogue section, whose setting is its template filled from the taken values.
    template <class Record>
    int WriteChangedSection(const varcfg::Section<Record>& section, int row = 0) {
        return WriteChangedSection(section, SettingText(Info(section), row), row);
    }
    // Sends a catalogue section's setting, filled from the values taken from its controls, whether or
    // not they changed.
    template <class Record>
    int SendSection(const varcfg::Section<Record>& section, int row = 0, int piece = 0, int entries = 1) {
        return SendSetting(SettingText(Info(section), row, piece, entries));
    }
    // The values taken from the section's controls into the record's members, as the recorder would
    // send them back: for pages that keep records of pieces not shown.
    template <class Record>
    void StoreSection(const varcfg::Section<Record>& section, Record& record, int row = 0) const {
        StoreBindings(section.bindings, reinterpret_cast<unsigned char*>(&record), row);
    }
    // A catalogue section's setting template, each placeholder filled from its source: a bound
    // attribute's value as taken from its control in the row (texts as they stand, lists, checks and
    // numbers as numbers), the template's own value, or the piece's number. A repeated template repeats
    // its entry for the given number of rows from row, numbering them from piece.
    std::wstring SettingText(const SectionInfo& section, int row = 0, int piece = 0, int entries = 1) const;
    // One control's taken value becomes its baseline, for pages that accept part of a section.
    void AcceptValue(int control) { baseline_[control] = Value(control); }
    template <class Record>
    static SectionInfo Info(const varcfg::Section<Record>& section) {
        return SectionInfo{section.name,        section.bindings, section.recordSize,
                           section.declaration, section.setting,  section.read};
    }

    // The value of a bound control as last shown or taken, and its baseline.
    const ShownValue& Value(int control) const;
    const ShownValue& Baseline(int control) const;
    const std::wstring& Text(int control) const { return Value(control).text; }
    long long Number(int control) const { return Value(control).number; }

private:
    std::wstring FillPlaceholders(const SectionInfo& section, const varcfg::TemplateText& text, int row, int piece,
                                  int entryNumber) const;
    void ShowBindings(const varcfg::BindingList& bindings, const unsigned char* record, int row);
    void StoreBindings(const varcfg::BindingList& bindings, unsigned char* record, int row) const;
    bool TakeBindings(const varcfg::BindingList& bindings, int row);
    bool BindingsChanged(const varcfg::BindingList& bindings, int row) const;
    void AcceptBindings(const varcfg::BindingList& bindings, int row);

    int loaded_ = 0;
    std::map<int, ShownValue> values_;
    std::map<int, ShownValue> baseline_;
    // Values of attributes decoded but not shown, as last read, by binding and row.
    std::map<std::pair<const varcfg::BindingData*, int>, ShownValue> kept_;
};
