#include <gtest/gtest.h>

#include "base/Validators.h"

using varcfg::IsDecimalString;
using varcfg::IsDigitString;

TEST(Validators, DigitStringsAreEmptyOrDigitsOnly) {
    for (const wchar_t* good : {L"", L"0123", L"9", L"65535"}) EXPECT_EQ(IsDigitString(good), 1) << good;
    for (const wchar_t* bad : {L"12a", L"-1", L"1.5", L" 1", L"1 ", L"\x0661", L"/", L":"})
        EXPECT_EQ(IsDigitString(bad), 0) << bad;
}

TEST(Validators, DecimalStringsAllowAnyNumberOfInnerPoints) {
    for (const wchar_t* good : {L"", L"7", L"0.5", L"1.2.3", L"12", L"1..2"}) EXPECT_EQ(IsDecimalString(good), 1) << good;
    for (const wchar_t* bad : {L".5", L"5.", L".", L"1,5", L"-1", L"1e3", L" 1"})
        EXPECT_EQ(IsDecimalString(bad), 0) << bad;
}
