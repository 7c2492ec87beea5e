// FillTemplate: the one formatter of request templates and message texts. Templates are written as
// the recorder's protocol writes them, printf-style ("uiFD_LocalIp=\"%s\""), and their arguments are
// given as a list of values, so that a template means the same under every compiler's runtime (a wide
// "%s" reads a narrow string in one runtime and a wide one in another).
//
//   FillTemplate(L"<stPtt ucFD_Enable=\"%d\" usFD_GroupNo=\"%s\" />", {enable, groupText})
//
// Conversions: %s takes text (a number given to it is written in decimal); %d and %i a number, cut to
// 32 bits and written signed as printf writes an int; %u, %x and %X the same 32 bits unsigned; %f, %e
// and %g a real number; %c a character code; %% a percent sign. Flags, width and precision work as in
// printf. Operator texts go in as they stand: nothing is escaped. A conversion without an argument
// writes nothing, and arguments beyond the template's conversions are ignored.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>

namespace varcfg {

class TemplateArg {
public:
    TemplateArg(std::wstring_view text) : text_(text) {}
    TemplateArg(const std::wstring& text) : text_(text) {}
    TemplateArg(const wchar_t* text) : text_(text) {}
    template <class Number, class = std::enable_if_t<std::is_arithmetic_v<Number>>>
    TemplateArg(Number number) : isText_(false), isReal_(std::is_floating_point_v<Number>) {
        if constexpr (std::is_floating_point_v<Number>) {
            real_ = static_cast<double>(number);
            integer_ = static_cast<long long>(number);
        } else {
            integer_ = static_cast<long long>(number);
            real_ = static_cast<double>(number);
        }
    }

    bool IsText() const { return isText_; }
    bool IsReal() const { return isReal_; }
    std::wstring_view Text() const { return text_; }
    long long Integer() const { return integer_; }
    double Real() const { return real_; }

private:
    std::wstring_view text_;
    long long integer_ = 0;
    double real_ = 0;
    bool isText_ = true;
    bool isReal_ = false;
};

std::wstring FillTemplate(std::wstring_view format, std::initializer_list<TemplateArg> args);
// The same with arguments gathered at run time.
std::wstring FillTemplate(std::wstring_view format, const TemplateArg* args, std::size_t count);

}  // namespace varcfg
