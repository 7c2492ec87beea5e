// DataExchange: moves values between a dialog's controls and the values behind them. The same call
// fills the control (load) or takes the value back (save), so that a list of calls reads as the
// page's table of bindings:
//
//   void DoDataExchange(DataExchange& dx) override {
//       dx.Text(2088, mac_);
//       dx.Number(2087, powerOffDelay_, 0, 65535);
//       dx.Check(1820, autoUpdate_);
//   }
//
// On save a refused field shows the standard validation message, takes the focus, and stops the
// exchange there: the fields after it keep their old values.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

namespace varcfg {

class Dialog;

// What a list does with a value it does not offer when it is shown.
enum class Unlisted : uint8_t {
    Keep,   // the previous selection stays
    Clear,  // nothing is selected
};

class DataExchange {
public:
    DataExchange(Dialog& dialog, bool save) : dialog_(dialog), save_(save) {}

    bool Saving() const { return save_; }
    bool Failed() const { return failed_; }

    // Window text of an edit or static. A limit above 0 is the edit's limit; a shown text is cut at it,
    // and a longer text taken back is refused ("Please enter no more than 16 characters.").
    void Text(int id, std::wstring& value, std::size_t limit = 0);
    // A whole decimal number in [min, max] ("Please enter an integer between 0 and 65535."). The
    // typed text is kept in text when one is given. With keepOutOfRange, a whole number outside the
    // range is taken before it is refused.
    void Number(int id, long long& value, long long min, long long max, std::wstring* text = nullptr,
                bool keepOutOfRange = false);
    void Text(int id, uint32_t& value, uint32_t min, uint32_t max);
    void Text(int id, int32_t& value, int32_t min, int32_t max);
    // Digits and points (see IsDecimalString) for a number in [min, max]; the value stays text, as
    // typed, and is shown as given.
    void Decimal(int id, std::wstring& text, double min, double max);
    // Any real number as the C library reads one (sign and exponent allowed, blanks around it); the
    // value stays text, as typed, and is shown as given.
    void Real(int id, std::wstring& text);
    // IP address control: "a.b.c.d", or "" when its four fields are blank.
    void IpAddress(int id, std::wstring& dotted);
    // Check box: 0 or 1.
    void Check(int id, int& value);
    // Selected index of a list, -1 for none. An index outside the list is shown as unlisted says.
    void ComboIndex(int id, int& index, Unlisted unlisted = Unlisted::Clear);
    // Item data of the selected entry; unselected when nothing is selected. A value that no entry
    // carries is shown as unlisted says.
    void ComboData(int id, long long& data, Unlisted unlisted, long long unselected = -1);
    // Date-time picker, as "YYYY-MM-DD HH:MM:SS"; a text that is not such a time leaves the picker.
    void DateTime(int id, std::wstring& text);

private:
    bool Skip() const { return failed_; }
    void Fail(int id, const std::wstring& message);

    Dialog& dialog_;
    bool save_;
    bool failed_ = false;
};

}  // namespace varcfg
