#include "base/Validators.h"

#include <algorithm>

namespace varcfg {
namespace {

bool IsDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

}  // namespace

int IsDigitString(std::wstring_view text) { return std::all_of(text.begin(), text.end(), IsDigit) ? 1 : 0; }

int IsDecimalString(std::wstring_view text) {
    if (text.empty()) return 1;
    if (text.front() == L'.' || text.back() == L'.') return 0;
    return std::all_of(text.begin(), text.end(), [](wchar_t c) { return IsDigit(c) || c == L'.'; }) ? 1 : 0;
}

}  // namespace varcfg
