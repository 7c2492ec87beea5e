// Helpers for the standard controls, by dialog and control id. They hide the message numbers and keep
// behaviour equal under Windows and Wine where the two differ.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstdint>
#include <initializer_list>
#include <string>

namespace varcfg {

std::wstring WindowText(HWND window);

// Captions from the language table: each control gets the text of its id (empty when the language
// file has none).
struct Caption {
    int control;
    uint32_t textId;
};
void SetCaptions(HWND dialog, std::initializer_list<Caption> captions);
std::wstring ItemText(HWND dialog, int id);
void SetItemText(HWND dialog, int id, const std::wstring& text);

void ShowItem(HWND dialog, int id, bool visible);
void EnableItem(HWND dialog, int id, bool enabled);

bool IsChecked(HWND dialog, int id);
void SetChecked(HWND dialog, int id, bool checked);

// Combo boxes (drop-down lists).
int ComboAdd(HWND dialog, int id, const std::wstring& text, LPARAM data);
void ComboClear(HWND dialog, int id);
int ComboCount(HWND dialog, int id);
// Selects index; an index outside the list clears the selection (as Windows does; Wine would keep it).
void ComboSelect(HWND dialog, int id, int index);
int ComboSelection(HWND dialog, int id);
// Selects the first item carrying data; false (selection unchanged) when none does.
bool ComboSelectByData(HWND dialog, int id, LPARAM data);
// Data of the selected item, or fallback when nothing is selected.
LPARAM ComboSelectedData(HWND dialog, int id, LPARAM fallback);

// IP address controls: "a.b.c.d", or "" when all four fields are blank. Setting "" or a text that is
// not a dotted quad clears the fields.
std::wstring IpAddressText(HWND dialog, int id);
void SetIpAddressText(HWND dialog, int id, const std::wstring& dotted);

// Date-time pickers.
bool DateTimeValue(HWND dialog, int id, SYSTEMTIME& value);
void SetDateTimeValue(HWND dialog, int id, const SYSTEMTIME& value);

// Tab controls.
void TabInsert(HWND dialog, int id, int index, const std::wstring& caption);
int TabSelection(HWND dialog, int id);
void TabSelect(HWND dialog, int id, int index);
// The display area of the tab control, in the dialog's client coordinates.
RECT TabDisplayArea(HWND dialog, int id);

}  // namespace varcfg
