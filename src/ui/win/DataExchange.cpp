#include "ui/win/DataExchange.h"

#include <cerrno>
#include <cwchar>

#include "base/TemplateText.h"
#include "base/Validators.h"
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
    return FillTemplate(L"Please enter an integer between %s and %s.", {min, max});
}

bool ParseDateTime(const std::wstring& text, SYSTEMTIME& time) {
    unsigned year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
    if (std::swscanf(text.c_str(), L"%u-%u-%u %u:%u:%u", &year, &month, &day, &hour, &minute, &second) != 6) {
        return false;
    }
    if (year < 1601 || year > 30827 || month < 1 || month > 12 || day < 1 || day > 31 || hour > 23 || minute > 59 ||
        second > 59) {
        return false;
    }
    time = SYSTEMTIME{};
    time.wYear = static_cast<WORD>(year);
    time.wMonth = static_cast<WORD>(month);
    time.wDay = static_cast<WORD>(day);
    time.wHour = static_cast<WORD>(hour);
    time.wMinute = static_cast<WORD>(minute);
    time.wSecond = static_cast<WORD>(second);
    return true;
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
        // The edit's limit stops typing, not pasting or a text set before the limit was: a longer text
        // is taken as it stands and refused.
        value = ItemText(dialog, id);
        if (limit > 0 && value.size() > limit) {
            Fail(id, FillTemplate(L"Please enter no more than %s characters.", {static_cast<long long>(limit)}));
        }
    } else {
        SetItemText(dialog, id, limit > 0 && value.size() > limit ? value.substr(0, limit) : value);
    }
}

void DataExchange::Number(int id, long long& value, long long min, long long max, std::wstring* text,
                          bool keepOutOfRange) {
    if (Skip()) return;
    if (!save_) {
        const std::wstring shown = text != nullptr ? *text : std::to_wstring(value);
        SetItemText(dialog_.Hwnd(), id, shown);
        return;
    }
    const std::wstring typed = ItemText(dialog_.Hwnd(), id);
    long long parsed = 0;
    if (!ParseInteger(typed, parsed) || (min >= 0 && parsed < 0)) {
        Fail(id, min >= 0 ? L"Please enter a positive integer." : L"Please enter an integer.");
        return;
    }
    if ((parsed < min || parsed > max) && !keepOutOfRange) {
        Fail(id, RangeMessage(min, max));
        return;
    }
    value = parsed;
    if (text != nullptr) *text = typed;
    if (parsed < min || parsed > max) Fail(id, RangeMessage(min, max));
}

void DataExchange::Text(int id, uint32_t& value, uint32_t min, uint32_t max) {
    long long number = value;
    Number(id, number, min, max);
    value = static_cast<uint32_t>(number);
}

void DataExchange::Text(int id, int32_t& value, int32_t min, int32_t max) {
    long long number = value;
    Number(id, number, min, max);
    value = static_cast<int32_t>(number);
}

void DataExchange::Decimal(int id, std::wstring& text, double min, double max) {
    if (Skip()) return;
    if (!save_) {
        SetItemText(dialog_.Hwnd(), id, text);
        return;
    }
    const std::wstring typed = ItemText(dialog_.Hwnd(), id);
    if (typed.empty() || !IsDecimalString(typed)) {
        Fail(id, L"Please enter a number.");
        return;
    }
    const double value = std::wcstod(typed.c_str(), nullptr);
    if (value < min || value > max) {
        Fail(id, FillTemplate(L"Please enter a number between %g and %g.", {min, max}));
        return;
    }
    text = typed;
}

void DataExchange::Real(int id, std::wstring& text) {
    if (Skip()) return;
    if (!save_) {
        SetItemText(dialog_.Hwnd(), id, text);
        return;
    }
    const std::wstring typed = ItemText(dialog_.Hwnd(), id);
    const wchar_t* begin = typed.c_str();
    wchar_t* end = nullptr;
    std::wcstod(begin, &end);
    while (end != begin && (*end == L' ' || *end == L'\t')) ++end;
    if (end == begin || *end != L'\0') {
        Fail(id, L"Please enter a number.");
        return;
    }
    text = typed;
}

void DataExchange::IpAddress(int id, std::wstring& dotted) {
    if (Skip()) return;
    if (save_) {
        dotted = IpAddressText(dialog_.Hwnd(), id);
    } else {
        SetIpAddressText(dialog_.Hwnd(), id, dotted);
    }
}

void DataExchange::Check(int id, int& value) {
    if (Skip()) return;
    if (save_) {
        value = IsChecked(dialog_.Hwnd(), id) ? 1 : 0;
    } else {
        SetChecked(dialog_.Hwnd(), id, value != 0);
    }
}

void DataExchange::ComboIndex(int id, int& index, Unlisted unlisted) {
    if (Skip()) return;
    HWND dialog = dialog_.Hwnd();
    if (save_) {
        index = ComboSelection(dialog, id);
    } else if (index >= 0 && index < ComboCount(dialog, id)) {
        ComboSelect(dialog, id, index);
    } else if (unlisted == Unlisted::Clear) {
        ComboSelect(dialog, id, -1);
    }
}

void DataExchange::ComboData(int id, long long& data, Unlisted unlisted, long long unselected) {
    if (Skip()) return;
    HWND dialog = dialog_.Hwnd();
    if (save_) {
        data = static_cast<long long>(ComboSelectedData(dialog, id, static_cast<LPARAM>(unselected)));
    } else if (!ComboSelectByData(dialog, id, static_cast<LPARAM>(data)) && unlisted == Unlisted::Clear) {
        ComboSelect(dialog, id, -1);
    }
}

void DataExchange::DateTime(int id, std::wstring& text) {
    if (Skip()) return;
    SYSTEMTIME time{};
    if (save_) {
        if (!DateTimeValue(dialog_.Hwnd(), id, time)) return;
        text = FillTemplate(L"%04d-%02d-%02d %02d:%02d:%02d",
                            {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond});
    } else if (ParseDateTime(text, time)) {
        SetDateTimeValue(dialog_.Hwnd(), id, time);
    }
}

}  // namespace varcfg
