#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "FakePlatform.h"
#include "ui/PathManager.h"

using varcfg::ParseColourTriple;

namespace {

constexpr uint32_t Rgb(uint32_t red, uint32_t green, uint32_t blue) { return red | green << 8 | blue << 16; }

const std::wstring kConfigIni = L"C:\\Users\\op\\AppData\\Roaming\\CMSClient\\config.ini";
const std::wstring kUIStyleIni = L"C:\\Client\\UIStyle.ini";
const std::wstring kAppPathIni = L"C:\\Client\\Plugins\\AppPath.INI";
const std::wstring kTheme = L"C:\\Client\\Theme\\Default\\";

class PathManager : public ::testing::Test {
protected:
    // A manager loaded with the style chosen in config.ini, when one is given.
    std::unique_ptr<CPathManager> Loaded(int style = 0) {
        if (style != 0) platform.Set(kConfigIni, L"CONFIG", L"UI_STYLE", std::to_wstring(style));
        auto manager = std::make_unique<CPathManager>();
        manager->Load();
        return manager;
    }
    FakePlatform platform;
};

}  // namespace

TEST(ColourTriple, ReadsDecimalPiecesWithoutClamping) {
    EXPECT_EQ(ParseColourTriple(L"12,34"), Rgb(12, 34, 0));
    EXPECT_EQ(ParseColourTriple(L"300,0,0"), 300u);  // red byte 44, and 1 carried into green
    EXPECT_EQ(ParseColourTriple(L"-1,0,0"), 0xFFFFFFFFu);
    EXPECT_EQ(ParseColourTriple(L"1,2,3,4"), Rgb(1, 2, 3));
    EXPECT_EQ(ParseColourTriple(L" 7,8.9,red"), Rgb(7, 8, 0));
    EXPECT_EQ(ParseColourTriple(L",,5"), Rgb(0, 0, 5));
    EXPECT_EQ(ParseColourTriple(L"99999999999999999999"), 0x7FFFFFFFu);
}

TEST_F(PathManager, ApplicationFolderIsTheHostsFolderUnlessAppPathIniSaysOtherwise) {
    EXPECT_EQ(Loaded()->ApplicationFolder(), L"C:\\Client\\");
    platform.Set(kAppPathIni, L"APPPATH", L"APPEND", L"..\\skin\\");
    EXPECT_EQ(Loaded()->ApplicationFolder(), L"C:\\Client\\");

    platform.Set(kAppPathIni, L"APPPATH", L"SRC_TYPE", L"1");
    const auto relative = Loaded();
    EXPECT_EQ(relative->ApplicationFolder(), L"C:\\Client\\skin\\");
    EXPECT_EQ(relative->ThemeFolder(), L"C:\\Client\\skin\\Theme\\Default\\");
    platform.Set(kAppPathIni, L"APPPATH", L"APPEND", L".\\skin");
    EXPECT_EQ(Loaded()->ApplicationFolder(), L"C:\\Client\\Plugins\\skin\\");
    platform.Set(kAppPathIni, L"APPPATH", L"APPEND", L"");
    EXPECT_EQ(Loaded()->ApplicationFolder(), L"C:\\Client\\Plugins\\");
}

TEST_F(PathManager, UnchosenStyleIsTakenFromUIStyleIniAndWrittenBackOnce) {
    auto manager = Loaded();
    EXPECT_EQ(manager->UIStyle(), 1);
    EXPECT_EQ(*platform.Find(kConfigIni, L"CONFIG", L"UI_STYLE"), L"1");

    platform.Set(kConfigIni, L"CONFIG", L"UI_STYLE", L"0");
    platform.Set(kUIStyleIni, L"CONFIG", L"UI_STYLE", L"3");
    EXPECT_EQ(Loaded()->UIStyle(), 3);
    EXPECT_EQ(*platform.Find(kConfigIni, L"CONFIG", L"UI_STYLE"), L"3");

    platform.writes = 0;
    EXPECT_EQ(Loaded()->UIStyle(), 3);
    manager->Load();  // never reloaded
    EXPECT_EQ(manager->UIStyle(), 1);
    EXPECT_EQ(platform.writes, 0);
}

TEST_F(PathManager, StyleSectionNamesTheThemeAndStylesFrom100UseCommon2) {
    EXPECT_EQ(Loaded()->LogoFolder(), L"C:\\Client\\Theme\\Logo\\");
    platform.Set(kUIStyleIni, L"CONFIG", L"DlgShowIconID", L"131");
    platform.Set(kUIStyleIni, L"STYLE99", L"FOLDER", L"Night");
    platform.Set(kUIStyleIni, L"STYLE99", L"DARK", L"1");
    auto night = Loaded(99);
    EXPECT_EQ(night->ThemeFolder(), L"C:\\Client\\Theme\\Night\\");
    EXPECT_EQ(night->CommonFolder(), L"C:\\Client\\Theme\\Common\\");
    EXPECT_EQ(night->IsDark(), 1);
    EXPECT_EQ(night->DlgShowIconID(), 131);
    EXPECT_EQ(Loaded(100)->CommonFolder(), L"C:\\Client\\Theme\\Common2\\");
}

TEST_F(PathManager, ColoursAreReadFromTheThemesColourFileWithTheDefaultsOfTheirStyle) {
    for (int style : {1, 3, 100}) {
        EXPECT_EQ(Loaded(style)->Colours().m_dwRGBWndPopoTitle[0], Rgb(180, 180, 180)) << style;
    }
    const std::wstring file = L"C:\\Client\\Theme\\Blue\\color_config.ini";
    platform.Set(kUIStyleIni, L"STYLE2", L"FOLDER", L"Blue");
    platform.Set(file, L"COLOR", L"m_dwRGBDlgPopupBase", L"12,34");
    platform.Set(file, L"COLOR", L"m_dwRGBListHeadCtrlBK[1]", L"1,2,3");
    platform.Set(file, L"COLOR", L"m_nFlatDesign", L"0");
    platform.Set(file, L"COLOR", L"m_dwBroderStyle", L"7");
    platform.Set(kTheme + L"color_config.ini", L"COLOR", L"m_dwRGBDlgLeft", L"9,9,9");  // another theme's

    const ColourConfig c = Loaded(2)->Colours();
    EXPECT_EQ(c.m_dwRGBDlgPopupBase, Rgb(12, 34, 0));
    EXPECT_EQ(c.m_dwRGBListHeadCtrlBK[1], Rgb(1, 2, 3));
    EXPECT_EQ(c.m_nFlatDesign, 0);
    EXPECT_EQ(c.m_dwBroderStyle, 7u);
    EXPECT_EQ(c.m_dwRGBDlgLeft, Rgb(222, 227, 233));
    EXPECT_EQ(c.m_dwRGBWndPopoTitle[0], Rgb(133, 181, 227));
    EXPECT_EQ(c.m_dwRGBGroupText, 0x102030u);  // the platform's button colours
    EXPECT_EQ(c.m_dwRGBGroupBK, 0xF0E0D0u);
    EXPECT_EQ(c.m_dwRGBBorder, Rgb(255, 255, 255));
}

TEST_F(PathManager, ImagesAreFoundAsGivenThenInTheThemeThenAsPngThenAsJpg) {
    platform.systemDpi = 144;
    auto manager = Loaded();
    EXPECT_EQ(manager->ResolveImagePath(L"", true), L"");
    platform.files = {L"D:\\art\\a.bmp", L"b.png", kTheme + L"b.jpg"};
    EXPECT_EQ(manager->ResolveImagePath(L"D:\\art\\a.bmp", false), L"D:\\art\\a.bmp");
    EXPECT_EQ(manager->ResolveImagePath(L"b.gif", false), L"b.png");
    platform.files = {kTheme + L"b.jpg", L".bmp.png", L"x.jpeg.jpg"};
    EXPECT_EQ(manager->ResolveImagePath(L"b.gif", false), kTheme + L"b.jpg");
    // Only a four-character extension after at least one character is replaced.
    EXPECT_EQ(manager->ResolveImagePath(L".bmp", false), L".bmp.png");
    EXPECT_EQ(manager->ResolveImagePath(L"x.jpeg", false), L"x.jpeg.jpg");

    // Above normal DPI the scaled variant is looked for first.
    platform.files.clear();
    platform.existenceQueries.clear();
    int scale = 0;
    EXPECT_EQ(manager->ResolveImagePath(L"a.bmp", true, &scale), L"");
    EXPECT_EQ(scale, 100);
    const std::vector<std::wstring> order = {
        L"a-200.bmp", kTheme + L"a-200.bmp", L"a-200.png", kTheme + L"a-200.png", L"a-200.jpg", kTheme + L"a-200.jpg",
        L"a.bmp",     kTheme + L"a.bmp",     L"a.png",     kTheme + L"a.png",     L"a.jpg",     kTheme + L"a.jpg"};
    EXPECT_EQ(platform.existenceQueries, order);

    platform.files = {kTheme + L"a.bmp", kTheme + L"a-200.png"};
    EXPECT_EQ(manager->ResolveImagePath(L"a.bmp", true, &scale), kTheme + L"a-200.png");
    EXPECT_EQ(scale, 200);
    EXPECT_EQ(manager->ResolveImagePath(L"a.bmp", false, &scale), kTheme + L"a.bmp");
    EXPECT_EQ(scale, 100);

    platform.existenceQueries.clear();
    manager->ResolveImagePath(L"btn/v1.2/ok.bmp", true);
    manager->ResolveImagePath(L"icon", true);
    EXPECT_EQ(platform.existenceQueries[0], L"btn\\v1.2\\ok-200.bmp");
    EXPECT_EQ(platform.existenceQueries[6], L"btn/v1.2/ok.bmp");
    EXPECT_EQ(platform.existenceQueries[12], L"icon-200");

    // A forced screen DPI of normal or less wants no variant.
    platform.Set(kConfigIni, L"SHOW", L"DPIOverlay", L"72");
    manager = Loaded();
    EXPECT_EQ(manager->ScreenDpi(), 72);
    platform.existenceQueries.clear();
    manager->ResolveImagePath(L"a.bmp", true);
    EXPECT_EQ(platform.existenceQueries.front(), L"a.bmp");
}
