// The language table and the path manager on real profile files, read through the Windows functions.
#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "ui/Language.h"
#include "ui/PathManager.h"
#include "ui/win/WinPlatform.h"

namespace fs = std::filesystem;

namespace {

void WriteText(const fs::path& path, const std::string& text) {
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << text;
}

// The real Windows platform with the module's and the roaming folder in a scratch folder, so the test
// neither depends on nor touches the user's own files.
struct ScratchPlatform : varcfg::WinPlatform {
    explicit ScratchPlatform(const fs::path& folder) : root(folder) {}
    std::wstring ModuleFolder() override { return (root / L"plugin").wstring() + L"\\"; }
    std::wstring RoamingAppDataFolder() override { return (root / L"roaming").wstring(); }
    const fs::path root;
};

class ProfileFiles : public ::testing::Test {
protected:
    void SetUp() override {
        fs::remove_all(root);
        fs::create_directories(root);
        varcfg::InstallPlatform(&platform);
        // The host's per-user folder exists, as the host creates it.
        fs::create_directories(varcfg::HostUserFolder());
    }
    void TearDown() override {
        varcfg::InstallPlatform(nullptr);
        fs::remove_all(root);
    }

    const fs::path root = fs::temp_directory_path() / L"varcfg-profile-files";
    ScratchPlatform platform{root};
};

}  // namespace

TEST_F(ProfileFiles, WindowsPlatformFindsThisModuleTheHostTheRoamingFolderAndWholeFiles) {
    varcfg::WinPlatform& windows = varcfg::WindowsPlatform();
    // This test program links the code statically, so the module is the program itself.
    const std::wstring host = windows.HostExecutablePath();
    const std::wstring moduleFolder = windows.ModuleFolder();
    ASSERT_FALSE(moduleFolder.empty());
    EXPECT_EQ(moduleFolder.back(), L'\\');
    EXPECT_EQ(fs::path(moduleFolder), fs::path(host).parent_path() / L"");
    EXPECT_TRUE(windows.FileExists(host));
    EXPECT_FALSE(windows.FileExists(moduleFolder));
    const std::wstring roaming = windows.RoamingAppDataFolder();
    ASSERT_FALSE(roaming.empty());
    EXPECT_NE(roaming.back(), L'\\');
    EXPECT_TRUE(fs::is_directory(roaming));
    EXPECT_GT(windows.SystemDpi(), 0);

    const std::string bytes("line\r\n\0\x1a end", 12);  // read byte for byte
    WriteText(root / L"models.tbl", bytes);
    std::string contents = "untouched";
    EXPECT_FALSE(platform.ReadWholeFile((root / L"missing.tbl").wstring(), contents));
    EXPECT_EQ(contents, "untouched");
    ASSERT_TRUE(platform.ReadWholeFile((root / L"models.tbl").wstring(), contents));
    EXPECT_EQ(contents, bytes);
}

TEST_F(ProfileFiles, LanguageTextsAndNumberComeFromRealProfileFiles) {
    const fs::path english = root / L"Lang" / L"English.ini";
    WriteText(english, "[STRING]\r\n15006=Save\r\n15007=\r\n1=" + std::string(300, 'x') + "\r\n");
    CLanguage table;
    EXPECT_EQ(table.SetLanguagePath((root / L"Lang" / L"Missing.ini").wstring()), 0);
    ASSERT_EQ(table.SetLanguagePath(english.wstring()), 1);
    EXPECT_EQ(table.Text(15006), L"Save");
    EXPECT_EQ(table.Text(15007), L"");
    EXPECT_EQ(table.Text(15008), L"");
    EXPECT_EQ(table.Text(1), std::wstring(258, L'x'));

    // Lang.ini is changed through the profile functions, as the host changes it: a file rewritten behind
    // their back within the file system's time resolution may be served from Wine's profile cache.
    const std::wstring langIni = varcfg::HostUserFolder() + L"Lang.ini";
    EXPECT_EQ(varcfg::CurrentLanguageNumber(), 0);
    platform.WriteProfileText(langIni, L"LANGUAGE", L"CUR_LANG", L"3");
    platform.WriteProfileText(langIni, L"CONFIG", L"OnlyEnglish", L"0");
    EXPECT_EQ(varcfg::CurrentLanguageNumber(), 3);
    platform.WriteProfileText(langIni, L"CONFIG", L"OnlyEnglish", L"5");
    EXPECT_EQ(varcfg::CurrentLanguageNumber(), 1);
}

TEST_F(ProfileFiles, PathManagerReadsAppPathStyleAndColourFiles) {
    const fs::path app = root / L"app";
    WriteText(root / L"plugin" / L"AppPath.INI", "[APPPATH]\r\nSRC_TYPE=1\r\nAPPEND=..\\app\\\r\n");
    WriteText(app / L"UIStyle.ini", "[CONFIG]\r\nUI_STYLE=2\r\nButtonZoomSize=2\r\n[STYLE2]\r\nFOLDER=Blue\r\n");
    const fs::path theme = app / L"Theme" / L"Blue";
    WriteText(theme / L"color_config.ini", "[COLOR]\r\nm_dwRGBDlgPopupBase=12,34\r\nm_dwRGBWndPopoTitle[2]=300,0,0\r\n");
    WriteText(theme / L"a-200.bmp", "");
    const std::wstring configIni = varcfg::HostUserFolder() + L"config.ini";
    WriteText(configIni, "[SHOW]\r\nDPIOverlay=144\r\n");

    CPathManager manager;
    manager.Load();
    EXPECT_EQ(manager.ApplicationFolder(), app.wstring() + L"\\");
    EXPECT_EQ(manager.ThemeFolder(), theme.wstring() + L"\\");
    EXPECT_EQ(manager.CommonFolder(), (app / L"Theme" / L"Common").wstring() + L"\\");
    EXPECT_EQ(manager.UIStyle(), 2);
    EXPECT_EQ(GetPrivateProfileIntW(L"CONFIG", L"UI_STYLE", 0, configIni.c_str()), 2u);
    EXPECT_EQ(manager.ButtonZoomSize(), 2);

    const ColourConfig& c = manager.Colours();
    EXPECT_EQ(c.m_dwRGBDlgPopupBase, 12u | 34u << 8);
    EXPECT_EQ(c.m_dwRGBWndPopoTitle[2], 300u);
    EXPECT_EQ(c.m_dwRGBGroupText, GetSysColor(COLOR_BTNTEXT));
    EXPECT_EQ(c.m_dwRGBGroupBK, GetSysColor(COLOR_BTNFACE));

    int scale = 0;
    EXPECT_EQ(manager.ResolveImagePath(L"a.bmp", true, &scale), (theme / L"a-200.bmp").wstring());
    EXPECT_EQ(scale, 200);
}
