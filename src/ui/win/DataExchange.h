// DataExchange: a page's field bindings read as one table. DoDataExchange calls one function per
// control; the same calls fill the controls (load) or the members (save):
//
//   void DoDataExchange(DataExchange& dx) override {
//       dx.Text(2088, mac_);
//       dx.Text(2087, powerOffDelay_, 0, 65535);
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

class DataExchange {
public:
    DataExchange(Dialog& dialog, bool save) : dialog_(dialog), save_(save) {}

    bool Saving() const { return save_; }
    bool Failed() const { return failed_; }

    // Window text of an edit or static; a limit above 0 caps the text length in both directions.
    void Text(int id, std::wstring& value, std::size_t limit = 0);
    // Unsigned decimal with a range ("Please enter an integer between 0 and 65535.").
    void Text(int id, uint32_t& value, uint32_t min, uint32_t max);
    void Text(int id, int32_t& value, int32_t min, int32_t max);
    // Check box: 0 or 1.
    void Check(int id, int& value);
    // Selected index of a combo box, -1 for none.
    void ComboIndex(int id, int& index);

private:
    bool Skip() const { return failed_; }
    // Shows value on load; on save reads it in range, true when it was taken.
    bool Number(int id, long long& value, long long min, long long max, const wchar_t* notANumber);
    void Fail(int id, const std::wstring& message);

    Dialog& dialog_;
    bool save_;
    bool failed_ = false;
};

}  // namespace varcfg
