#include "base/AnsiText.h"

#include <windows.h>

namespace varcfg {

std::string ToAnsi(std::wstring_view text) {
    if (text.empty()) return {};
    const int wideLength = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_ACP, 0, text.data(), wideLength, nullptr, 0, nullptr, nullptr);
    std::string out(static_cast<size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), wideLength, out.data(), size, nullptr, nullptr);
    return out;
}

std::wstring FromAnsi(std::string_view text) {
    if (text.empty()) return {};
    const int ansiLength = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(CP_ACP, 0, text.data(), ansiLength, nullptr, 0);
    std::wstring out(static_cast<size_t>(size), L'\0');
    MultiByteToWideChar(CP_ACP, 0, text.data(), ansiLength, out.data(), size);
    return out;
}

}  // namespace varcfg
