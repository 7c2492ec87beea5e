// CPathManager: where the plug-in finds its files and how its skin looks. Filled once from AppPath.INI
// (beside the module), the host's per-user config.ini, the application's UIStyle.ini and the theme's
// color_config.ini; afterwards only read.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace varcfg {

// A colour value of color_config.ini: decimal numbers separated by commas, the first three being red,
// green and blue; fractions are cut off and missing numbers count as 0. The numbers are not clamped:
// each is OR-ed in at its byte position, so 300,0,0 spills into green (red byte 44, green byte 1).
uint32_t ParseColourTriple(std::wstring_view text);
// "r,g,b" from the low three bytes of a colour.
std::wstring FormatColourTriple(uint32_t colour);

}  // namespace varcfg

// Everything the theme's color_config.ini sets (section COLOR), named as its keys are. Colours are
// 32-bit RGB with red in the low byte.
struct ColourConfig {
    uint32_t m_dwRGBWndPopoTitle[3] = {};
    uint32_t m_dwRGBWndPopoBottom[2] = {};
    int32_t m_nFlatDesign = 0;  // a switch, read as a colour: non-zero means flat
    uint32_t m_dwRGBDlgPopupBase = 0;
    uint32_t m_dwRGBDlgPopupBaseBK = 0;
    uint32_t m_dwRGBDlgPopupBaseCtrlBK = 0;
    uint32_t m_dwRGBDlgPopupBaseCtrlText = 0;
    uint32_t m_dwRGBListItemBK[2] = {};
    uint32_t m_dwRGBListHeadCtrlBK[2] = {};
    uint32_t m_dwRGBListItemBKFocus[2] = {};
    uint32_t m_dwRGBEditText = 0;
    uint32_t m_dwRGBEditTextBK = 0;
    uint32_t m_dwRGBEditTextBKDisabled = 0;

    uint32_t m_dwRGBBtnNormalText = 0;
    uint32_t m_dwRGBBtnOverText = 0;
    uint32_t m_dwRGBBtnHilightText = 0;
    uint32_t m_dwRGBBtnHilightText2 = 0;
    uint32_t m_dwRGBBtnDisabledText = 0;
    uint32_t m_dwRGBCheckState = 0;
    uint32_t m_dwRGBTextColor = 0;
    uint32_t m_dwRGBGroupText = 0;
    uint32_t m_dwRGBBorder = 0;
    uint32_t m_dwRGBGroupBK = 0;
    uint32_t m_dwBroderStyle = 0;  // a plain number, not a colour
    uint32_t m_dwRGBDlgLeft = 0;
};

class CPathManager {
public:
    static constexpr int kNormalDpi = 96;

    // The module's manager, loaded on the first call.
    static CPathManager& Instance();

    CPathManager() = default;
    CPathManager(const CPathManager&) = delete;
    CPathManager& operator=(const CPathManager&) = delete;

    // Reads every file once; later calls do nothing.
    void Load();

    // Folders end with a backslash.
    const std::wstring& ApplicationFolder() const { return applicationFolder_; }
    std::wstring ThemeFolder() const { return themeFolder_; }
    const std::wstring& CommonFolder() const { return commonFolder_; }
    const std::wstring& LogoFolder() const { return logoFolder_; }
    // The host's per-user config.ini.
    const std::wstring& SettingsFile() const { return settingsFile_; }

    // -1 until loaded.
    int UIStyle() const { return uiStyle_; }
    int IsDark() const { return dark_; }
    int ButtonZoomSize() const { return buttonZoomSize_; }
    int IsDlgShowIcon() const { return isDlgShowIcon_; }
    int DlgShowIconID() const { return dlgShowIconId_; }
    const ColourConfig& Colours() const { return colours_; }

    // config.ini's DPIOverlay, or the system DPI when that is 0.
    int ScreenDpi() const;

    // The full path of an existing image file for name, or empty. With highDpiVariants on a screen
    // above 96 DPI, the "-200" variant of the name is tried first. scale, when given, receives 200 when
    // that variant was found, else 100.
    std::wstring ResolveImagePath(const std::wstring& name, bool highDpiVariants, int* scale = nullptr) const;

private:
    void ReadColours();
    // The name as given, then in the theme folder; then the same with .png and with .jpg in place of
    // a four-character extension.
    std::wstring FindImage(const std::wstring& name) const;

    bool loaded_ = false;
    std::wstring applicationFolder_;
    std::wstring settingsFile_;
    std::wstring themeFolder_;
    std::wstring commonFolder_;
    std::wstring logoFolder_;
    int uiStyle_ = -1;
    int dark_ = 0;
    int buttonZoomSize_ = 1;
    int isDlgShowIcon_ = 1;
    int dlgShowIconId_ = 128;
    ColourConfig colours_;
};
