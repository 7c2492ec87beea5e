// Character tests for the 8-bit texts of replies. Unlike <cctype>, they never depend on the locale and
// take any char, negative ones included.
#pragma once

#include <algorithm>
#include <string_view>

namespace varcfg {

constexpr bool IsDecimalDigit(char c) { return c >= '0' && c <= '9'; }

constexpr bool IsAsciiSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r';
}

constexpr char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// Whole-text equality that ignores the letter case of ASCII letters only.
inline bool EqualsIgnoringAsciiCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return LowerAscii(x) == LowerAscii(y); });
}

}  // namespace varcfg
