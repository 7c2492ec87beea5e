#include "base/TemplateText.h"

#include <cstdint>
#include <cstdio>
#include <cwchar>

namespace varcfg {
namespace {

// One conversion's flags, width and precision as printf reads them, and its letter.
struct Conversion {
    std::string directive;  // "%" up to the letter, without length modifiers
    wchar_t letter = 0;
    int width = 0;
    int precision = -1;
    bool leftAligned = false;
};

// Reads the conversion that starts after a '%' at position; position ends after its letter. False
// when the template ends first.
bool ReadConversion(std::wstring_view format, std::size_t& position, Conversion& conversion) {
    conversion.directive = "%";
    auto digits = [&](int& number) {
        number = 0;
        while (position < format.size() && format[position] >= L'0' && format[position] <= L'9') {
            conversion.directive += static_cast<char>(format[position]);
            if (number < 10000) number = number * 10 + (format[position] - L'0');
            ++position;
        }
    };
    while (position < format.size() && std::wcschr(L"-+ #0", format[position]) != nullptr && format[position] != 0) {
        if (format[position] == L'-') conversion.leftAligned = true;
        conversion.directive += static_cast<char>(format[position++]);
    }
    digits(conversion.width);
    if (position < format.size() && format[position] == L'.') {
        conversion.directive += '.';
        ++position;
        digits(conversion.precision);
    }
    // Length modifiers say nothing here: the argument carries its own type.
    while (position < format.size() && std::wcschr(L"hlLjzt", format[position]) != nullptr && format[position] != 0) {
        ++position;
    }
    if (position >= format.size()) return false;
    conversion.letter = format[position++];
    return true;
}

void AppendPrinted(std::wstring& out, const std::string& directive, char letter, long long integer, double real) {
    const std::string full = directive + letter;
    char buffer[512];
    int written = 0;
    if (letter == 'd' || letter == 'i') {
        written = std::snprintf(buffer, sizeof buffer, full.c_str(), static_cast<int>(static_cast<int32_t>(integer)));
    } else if (letter == 'u' || letter == 'x' || letter == 'X') {
        written = std::snprintf(buffer, sizeof buffer, full.c_str(), static_cast<unsigned>(static_cast<uint32_t>(integer)));
    } else {
        written = std::snprintf(buffer, sizeof buffer, full.c_str(), real);
    }
    if (written <= 0) return;
    const std::size_t length = static_cast<std::size_t>(written) < sizeof buffer ? static_cast<std::size_t>(written)
                                                                                 : sizeof buffer - 1;
    for (std::size_t i = 0; i < length; ++i) out += static_cast<wchar_t>(static_cast<unsigned char>(buffer[i]));
}

void AppendText(std::wstring& out, const Conversion& conversion, std::wstring_view text) {
    if (conversion.precision >= 0 && text.size() > static_cast<std::size_t>(conversion.precision)) {
        text = text.substr(0, static_cast<std::size_t>(conversion.precision));
    }
    const std::size_t padding =
        conversion.width > 0 && text.size() < static_cast<std::size_t>(conversion.width)
            ? static_cast<std::size_t>(conversion.width) - text.size()
            : 0;
    if (!conversion.leftAligned) out.append(padding, L' ');
    out += text;
    if (conversion.leftAligned) out.append(padding, L' ');
}

void AppendArgument(std::wstring& out, const Conversion& conversion, const TemplateArg& arg) {
    switch (conversion.letter) {
        case L's':
            if (arg.IsText()) {
                AppendText(out, conversion, arg.Text());
            } else {
                AppendPrinted(out, conversion.directive, arg.IsReal() ? 'g' : 'd', arg.Integer(), arg.Real());
            }
            break;
        case L'c': {
            const wchar_t character = arg.IsText() ? (arg.Text().empty() ? L'\0' : arg.Text()[0])
                                                   : static_cast<wchar_t>(arg.Integer());
            AppendText(out, conversion, std::wstring_view(&character, character != 0 ? 1 : 0));
            break;
        }
        case L'd': case L'i': case L'u': case L'x': case L'X':
            if (arg.IsText()) {
                AppendText(out, conversion, arg.Text());
            } else {
                AppendPrinted(out, conversion.directive, static_cast<char>(conversion.letter), arg.Integer(), arg.Real());
            }
            break;
        case L'f': case L'F': case L'e': case L'E': case L'g': case L'G':
            if (arg.IsText()) {
                AppendText(out, conversion, arg.Text());
            } else {
                AppendPrinted(out, conversion.directive, static_cast<char>(conversion.letter), arg.Integer(), arg.Real());
            }
            break;
        default:
            break;  // not a conversion this formatter knows: dropped with its argument
    }
}

}  // namespace

std::wstring FillTemplate(std::wstring_view format, std::initializer_list<TemplateArg> args) {
    return FillTemplate(format, args.begin(), args.size());
}

std::wstring FillTemplate(std::wstring_view format, const TemplateArg* args, std::size_t count) {
    std::wstring out;
    out.reserve(format.size() + 64);
    const TemplateArg* next = args;
    const TemplateArg* const end = args + count;
    std::size_t position = 0;
    while (position < format.size()) {
        const wchar_t character = format[position++];
        if (character != L'%') {
            out += character;
            continue;
        }
        if (position < format.size() && format[position] == L'%') {
            out += L'%';
            ++position;
            continue;
        }
        Conversion conversion;
        if (!ReadConversion(format, position, conversion)) break;
        if (next == end) continue;
        AppendArgument(out, conversion, *next++);
    }
    return out;
}

}  // namespace varcfg
