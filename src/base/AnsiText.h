// Conversions at the boundary between the wide UI and the 8-bit texts of the recorder and the host,
// in the system's ANSI code page.
#pragma once

#include <string>
#include <string_view>

namespace varcfg {

std::string ToAnsi(std::wstring_view text);
std::wstring FromAnsi(std::string_view text);

}  // namespace varcfg
