#include "ui/win/DataExchange.h"

#include <cerrno>
#include <cwchar>
#include <limits>

#include "ui/win/Controls.h"
#include "ui/win/Dialog.h"
#include "ui/win/MsgTip.h"

namespace varcfg {
namespace {

// Reads a whole decimal integer (blanks around it allowed, a sign only where negatives can be).
bool ParseInteger(const std::wstring& text, long long& value) {
    const wchar_t* begin = text.c_str();
    wchar_t* end = nullptr;
    errno = 0;
    value = std::wcstoll(begin, &end, 10);
    if (end == begin || errno == ERANGE) return false;
    while (*end == L' ' || *end == L'\t') ++end;
    return *end == L'\0';
}

std::wstring RangeMessage(long long min, long long max) {
    return L"Please enter an integer between " + std::to_wstring(min) + L" and " + std::to_wstring(max) + L".";
}

}  // namespace

void DataExchange::Fail(int id, const std::wstring& message) {
    failed_ = true;
    ShowMsgTip(message, kTipConfirm);
    HWND control = dialog_.Item(id);
    SetFocus(control);
    SendMessageW(control, EM_SETSEL, 0, -1);
}

void DataExchange::Text(int id, std::wstring& value, std::size_t limit) {
    if (Skip()) return;
    HWND dialog = dialog_.Hwnd();
    if (limit > 0) SendDlgItemMessageW(dialog, id, EM_LIMITTEXT, limit, 0);
    if (save_) {
        value = ItemText(dialog, id);
        if (limit > 0 && value.size() > limit) value.resize(limit);
    } else {
        SetItemText(dialog, id, limit > 0 && value.size() > limit ? value.substr(0, limit) : value);
    }
}

void DataExchange::Text(int id, uint32_t& value, uint32_t min, uint32_t max) {
    long long number = value;
    if (Number(id, number, min, max, L"Please enter a positive integer.")) value = static_cast<uint32_t>(number);
}

void DataExchange::Text(int id, int32_t& value, int32_t min, int32_t max) {
    long long number = value;
    if (Number(id, number, min, max, L"Please enter an integer.")) value = static_cast<int32_t>(number);
}

bool DataExchange::Number(int id, long long& value, long long min, long long max, const wchar_t* notANumber) {
    if (Skip()) return false;
    if (!save_) {
        SetItemText(dialog_.Hwnd(), id, std::to_wstring(value));
        return false;
    }
    long long parsed = 0;
    if (!ParseInteger(ItemText(dialog_.Hwnd(), id), parsed) || (min >= 0 && parsed < 0)) {
        Fail(id, notANumber);
        return false;
    }
    if (parsed < min || parsed > max) {
        Fail(id, RangeMessage(min, max));
        return false;
    }
    value = parsed;
    return true;
}

void DataExchange::Check(int id, int& value) {
    if (Skip()) return;
    if (save_) {
        value = IsChecked(dialog_.Hwnd(), id) ? 1 : 0;
    } else {
        SetChecked(dialog_.Hwnd(), id, value != 0);
    }
}

void DataExchange::ComboIndex(int id, int& index) {
    if (Skip()) return;
    if (save_) {
        index = ComboSelection(dialog_.Hwnd(), id);
    } else {
        ComboSelect(dialog_.Hwnd(), id, index);
    }
}

}  // namespace varcfg
