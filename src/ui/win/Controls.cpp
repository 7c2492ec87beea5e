#include "ui/win/Controls.h"

#include <cwchar>

#include "ui/Language.h"

namespace varcfg {

std::wstring WindowText(HWND window) {
    const int length = GetWindowTextLengthW(window);
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const int copied = GetWindowTextW(window, text.data(), length + 1);
    text.resize(static_cast<std::size_t>(copied > 0 ? copied : 0));
    return text;
}

void SetCaptions(HWND dialog, std::initializer_list<Caption> captions) {
    for (const Caption& caption : captions) SetItemText(dialog, caption.control, CLanguage::Instance().Text(caption.textId));
}

std::wstring ItemText(HWND dialog, int id) { return WindowText(GetDlgItem(dialog, id)); }

void SetItemText(HWND dialog, int id, const std::wstring& text) { SetDlgItemTextW(dialog, id, text.c_str()); }

void ShowItem(HWND dialog, int id, bool visible) { ShowWindow(GetDlgItem(dialog, id), visible ? SW_SHOW : SW_HIDE); }

void EnableItem(HWND dialog, int id, bool enabled) { EnableWindow(GetDlgItem(dialog, id), enabled ? TRUE : FALSE); }

bool IsChecked(HWND dialog, int id) { return IsDlgButtonChecked(dialog, id) == BST_CHECKED; }

void SetChecked(HWND dialog, int id, bool checked) {
    CheckDlgButton(dialog, id, checked ? BST_CHECKED : BST_UNCHECKED);
}

int ComboAdd(HWND dialog, int id, const std::wstring& text, LPARAM data) {
    const auto index = static_cast<int>(SendDlgItemMessageW(dialog, id, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str())));
    if (index >= 0) SendDlgItemMessageW(dialog, id, CB_SETITEMDATA, static_cast<WPARAM>(index), data);
    return index;
}

void ComboClear(HWND dialog, int id) { SendDlgItemMessageW(dialog, id, CB_RESETCONTENT, 0, 0); }

int ComboCount(HWND dialog, int id) { return static_cast<int>(SendDlgItemMessageW(dialog, id, CB_GETCOUNT, 0, 0)); }

void ComboSelect(HWND dialog, int id, int index) {
    // Windows clears the selection for an index past the end; Wine keeps the old one. Clear it first so
    // both behave alike.
    if (index < 0 || index >= ComboCount(dialog, id)) index = -1;
    SendDlgItemMessageW(dialog, id, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

int ComboSelection(HWND dialog, int id) {
    const LRESULT index = SendDlgItemMessageW(dialog, id, CB_GETCURSEL, 0, 0);
    return index == CB_ERR ? -1 : static_cast<int>(index);
}

bool ComboSelectByData(HWND dialog, int id, LPARAM data) {
    const int count = ComboCount(dialog, id);
    for (int i = 0; i < count; ++i) {
        if (SendDlgItemMessageW(dialog, id, CB_GETITEMDATA, static_cast<WPARAM>(i), 0) == data) {
            ComboSelect(dialog, id, i);
            return true;
        }
    }
    return false;
}

LPARAM ComboSelectedData(HWND dialog, int id, LPARAM fallback) {
    const int index = ComboSelection(dialog, id);
    return index < 0 ? fallback : SendDlgItemMessageW(dialog, id, CB_GETITEMDATA, static_cast<WPARAM>(index), 0);
}

std::wstring IpAddressText(HWND dialog, int id) {
    HWND control = GetDlgItem(dialog, id);
    if (SendMessageW(control, IPM_ISBLANK, 0, 0) != 0) return L"";
    DWORD address = 0;
    SendMessageW(control, IPM_GETADDRESS, 0, reinterpret_cast<LPARAM>(&address));
    wchar_t text[16] = {};
    std::swprintf(text, 16, L"%u.%u.%u.%u", FIRST_IPADDRESS(address), SECOND_IPADDRESS(address),
                  THIRD_IPADDRESS(address), FOURTH_IPADDRESS(address));
    return text;
}

void SetIpAddressText(HWND dialog, int id, const std::wstring& dotted) {
    // Setting the window text does not fill the four fields under Wine: set the address itself.
    HWND control = GetDlgItem(dialog, id);
    unsigned a = 0, b = 0, c = 0, d = 0;
    wchar_t rest = 0;
    if (std::swscanf(dotted.c_str(), L"%u.%u.%u.%u%lc", &a, &b, &c, &d, &rest) == 4 && a < 256 && b < 256 &&
        c < 256 && d < 256) {
        SendMessageW(control, IPM_SETADDRESS, 0,
                     static_cast<LPARAM>(MAKEIPADDRESS(a, b, c, d)));
    } else {
        SendMessageW(control, IPM_CLEARADDRESS, 0, 0);
    }
}

bool DateTimeValue(HWND dialog, int id, SYSTEMTIME& value) {
    return SendDlgItemMessageW(dialog, id, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&value)) == GDT_VALID;
}

void SetDateTimeValue(HWND dialog, int id, const SYSTEMTIME& value) {
    SendDlgItemMessageW(dialog, id, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&value));
}

void TabInsert(HWND dialog, int id, int index, const std::wstring& caption) {
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    std::wstring text = caption;
    item.pszText = text.data();
    SendDlgItemMessageW(dialog, id, TCM_INSERTITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
}

int TabSelection(HWND dialog, int id) { return static_cast<int>(SendDlgItemMessageW(dialog, id, TCM_GETCURSEL, 0, 0)); }

void TabSelect(HWND dialog, int id, int index) {
    SendDlgItemMessageW(dialog, id, TCM_SETCURSEL, static_cast<WPARAM>(index), 0);
}

RECT TabDisplayArea(HWND dialog, int id) {
    HWND tab = GetDlgItem(dialog, id);
    RECT area{};
    GetWindowRect(tab, &area);
    MapWindowPoints(HWND_DESKTOP, dialog, reinterpret_cast<POINT*>(&area), 2);
    SendMessageW(tab, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&area));
    return area;
}

}  // namespace varcfg
