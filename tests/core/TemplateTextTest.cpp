#include "base/TemplateText.h"

#include <gtest/gtest.h>

#include <cstdint>

using varcfg::FillTemplate;

TEST(FillTemplate, WritesEachConversionAsPrintfWouldForThatType) {
    struct Case {
        std::wstring expected;
        std::wstring filled;
    };
    const Case cases[] = {
        // %d is an int: a 32-bit mask above 2^31 comes out negative, as the recorder has always received it.
        {L"uiFD_VideoFmt=\"-56798\"", FillTemplate(L"uiFD_VideoFmt=\"%d\"", {uint32_t{0xFFFF2222}})},
        {L"4294967295 ffff2222", FillTemplate(L"%u %x", {-1, uint32_t{0xFFFF2222}})},
        {L"fFD_X=\"1.500000\"", FillTemplate(L"fFD_X=\"%f\"", {1.5f})},
        {L"0.1 1e+06", FillTemplate(L"%g %g", {0.1, 1000000.0})},
        {L"2024-01-02 03:04:05", FillTemplate(L"%04d-%02d-%02d %02d:%02d:%02d", {2024, 1, 2, 3, 4, 5})},
        {L"[  ab][ab  ][a]", FillTemplate(L"[%4s][%-4s][%.1s]", {L"ab", L"ab", L"ab"})},
        {L"100% N", FillTemplate(L"%d%% %c", {100, 'N'})},
        // Length modifiers are read and ignored: the argument carries its own type.
        {L"7 x", FillTemplate(L"%ld %ls", {7, L"x"})},
        // A number given to %s, or a text to %d, is written as it stands.
        {L"12 ab", FillTemplate(L"%s %d", {12, L"ab"})},
    };
    for (const Case& c : cases) EXPECT_EQ(c.filled, c.expected);
}

TEST(FillTemplate, PutsOperatorTextsInAsTypedAndToleratesAMismatchedArgumentList) {
    // Quotes, angle brackets and percent signs in a text are not escaped or read as conversions.
    EXPECT_EQ(FillTemplate(L"<a v=\"%s\" />", {L"x\"<%d>"}), L"<a v=\"x\"<%d>\" />");
    EXPECT_EQ(FillTemplate(L"%s-%s", {L"a"}), L"a-");          // a conversion without an argument writes nothing
    EXPECT_EQ(FillTemplate(L"%s", {L"a", L"b"}), L"a");        // extra arguments are ignored
    EXPECT_EQ(FillTemplate(L"ends in %", {}), L"ends in ");    // a lone percent at the end is dropped
    EXPECT_EQ(FillTemplate(L"%q%s", {1, L"b"}), L"b");         // an unknown conversion takes its argument along
    // Non-ASCII texts pass through untouched.
    EXPECT_EQ(FillTemplate(L"%s", {L"\u00e4\u4e2d"}), L"\u00e4\u4e2d");
}
