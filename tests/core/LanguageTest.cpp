#include <gtest/gtest.h>

#include <string>

#include "FakePlatform.h"
#include "ui/Language.h"

namespace {

const std::wstring kEnglish = L"C:\\Client\\Lang\\English.ini";
const std::wstring kFrench = L"C:\\Client\\Lang\\French.ini";

class Language : public ::testing::Test {
protected:
    void SetUp() override {
        platform.Set(kEnglish, L"STRING", L"15006", L"Save");
        platform.Set(kEnglish, L"STRING", L"15007", L"Refresh");
        platform.Set(kFrench, L"STRING", L"15006", L"Enregistrer");
    }
    FakePlatform platform;
    CLanguage table;
};

}  // namespace

TEST_F(Language, TextBeforeAnyPathIsEmptyAndNotCached) {
    std::wstring text = L"stale";
    EXPECT_EQ(&table.GetText(15006, text), &text);
    EXPECT_EQ(text, L"");
    ASSERT_EQ(table.SetLanguagePath(kEnglish), 1);
    EXPECT_EQ(table.GetText(15006, text), L"Save");
}

TEST_F(Language, TextsAreReadOnceButEmptyOnesOnEveryRequest) {
    platform.Set(kEnglish, L"STRING", L"12003", L"");
    platform.Set(kEnglish, L"STRING", L"1", std::wstring(300, L'x'));
    ASSERT_EQ(table.SetLanguagePath(kEnglish), 1);
    EXPECT_EQ(table.Text(1), std::wstring(258, L'x'));

    EXPECT_EQ(table.Text(15006), L"Save");
    EXPECT_EQ(table.Text(12003), L"");
    EXPECT_EQ(table.Text(99999), L"");
    const int reads = platform.textReads;
    platform.Set(kEnglish, L"STRING", L"15006", L"Changed on disk");
    platform.Set(kEnglish, L"STRING", L"12003", L"Filled in later");
    platform.Set(kEnglish, L"STRING", L"99999", L"Added later");
    EXPECT_EQ(table.Text(15006), L"Save");
    EXPECT_EQ(table.Text(12003), L"Filled in later");
    EXPECT_EQ(table.Text(99999), L"Added later");
    EXPECT_EQ(platform.textReads, reads + 2);
}

TEST_F(Language, IdsAreKeysInSignedDecimal) {
    platform.Set(kEnglish, L"STRING", L"-1", L"id 4294967295");
    ASSERT_EQ(table.SetLanguagePath(kEnglish), 1);
    EXPECT_EQ(table.Text(0xFFFFFFFFu), L"id 4294967295");
}

TEST_F(Language, OnlyAnotherReadableFileSwitchesAndEmptiesTheCache) {
    EXPECT_EQ(table.SetLanguagePath(L"C:\\Client\\Lang\\Missing.ini"), 0);
    ASSERT_EQ(table.SetLanguagePath(kEnglish), 1);
    EXPECT_EQ(table.Text(15006), L"Save");
    platform.Set(kEnglish, L"STRING", L"15006", L"Changed on disk");

    EXPECT_EQ(table.SetLanguagePath(kEnglish), 0);
    EXPECT_EQ(table.SetLanguagePath(L"C:\\Client\\Lang\\Missing.ini"), 0);
    EXPECT_EQ(table.SetLanguagePath(L""), 0);
    EXPECT_EQ(table.Text(15006), L"Save");
    EXPECT_EQ(table.Text(15007), L"Refresh");

    ASSERT_EQ(table.SetLanguagePath(kFrench), 1);
    EXPECT_EQ(table.Text(15006), L"Enregistrer");
    EXPECT_EQ(table.Text(15007), L"");
    // Paths are compared exactly: another spelling of a name is another file.
    platform.Set(L"C:\\Client\\Lang\\FRENCH.ini", L"STRING", L"15006", L"ENREGISTRER");
    EXPECT_EQ(table.SetLanguagePath(L"C:\\Client\\Lang\\FRENCH.ini"), 1);
    EXPECT_EQ(table.Text(15006), L"ENREGISTRER");
}

TEST(LanguageNumber, ComesFromTheHostsLangIniWhereOnlyEnglishWins) {
    FakePlatform platform;
    platform.hostExecutable = L"C:\\Program Files\\Fleet\\CMSClient.v2.exe";
    const std::wstring langIni = L"C:\\Users\\op\\AppData\\Roaming\\CMSClient.v2\\Lang.ini";
    EXPECT_EQ(varcfg::CurrentLanguageNumber(), 0);
    platform.Set(langIni, L"LANGUAGE", L"CUR_LANG", L"3");
    platform.Set(langIni, L"CONFIG", L"OnlyEnglish", L"0");
    EXPECT_EQ(varcfg::CurrentLanguageNumber(), 3);
    platform.Set(langIni, L"CONFIG", L"OnlyEnglish", L"5");
    EXPECT_EQ(varcfg::CurrentLanguageNumber(), 1);
}

TEST(LanguageWithoutPlatform, NoFileOpensAndEveryTextIsEmpty) {
    CLanguage table;
    EXPECT_EQ(table.SetLanguagePath(kEnglish), 0);
    EXPECT_EQ(table.Text(15006), L"");
}
