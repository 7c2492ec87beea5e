// What several alarm tabs share: their lists, and the query of a section from a first entry on.
#pragma once

#include <windows.h>

#include <cstdint>
#include <initializer_list>
#include <string>

namespace varcfg {

// Adds one entry per language text, in order; each entry's data is its index in the list.
void AddTextEntries(HWND dialog, int id, std::initializer_list<uint32_t> textIds);
// Adds the names of the first count input functions (a function's value is its index; at most 26).
void AddInputFunctions(HWND dialog, int id, int count);
// Adds "<text of textId><n>" for n = 1 to count, and fixed texts; each entry's data is its index.
void AddNumberedEntries(HWND dialog, int id, uint32_t textId, int count);
void AddFixedEntries(HWND dialog, int id, std::initializer_list<const wchar_t*> texts);

// "<VariCfgSec Action="DEVICE_QUERY"><section StartChn="n"></VariCfgSec>": the section element is left
// open, which is the form the recorder expects.
std::string StartChnQuery(const char* section, int startChn);

}  // namespace varcfg
