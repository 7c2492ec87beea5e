#include "ui/PathManager.h"

#include <algorithm>
#include <limits>

#include "base/Platform.h"

namespace varcfg {
namespace {

// Reads like _wtoi: leading blanks, a sign, then digits up to the first other character (so a
// fraction is cut off). Values beyond the 32-bit range stick at its ends.
int32_t ParseDecimal(std::wstring_view piece) {
    std::size_t i = 0;
    while (i < piece.size() && (piece[i] == L' ' || piece[i] == L'\t')) ++i;
    bool negative = false;
    if (i < piece.size() && (piece[i] == L'+' || piece[i] == L'-')) {
        negative = piece[i] == L'-';
        ++i;
    }
    constexpr int64_t kBeyondRange = int64_t{std::numeric_limits<int32_t>::max()} + 1;
    int64_t value = 0;
    for (; i < piece.size() && piece[i] >= L'0' && piece[i] <= L'9'; ++i) {
        value = std::min(value * 10 + (piece[i] - L'0'), kBeyondRange);
    }
    if (negative) value = -value;
    return static_cast<int32_t>(std::clamp<int64_t>(value, std::numeric_limits<int32_t>::min(),
                                                    std::numeric_limits<int32_t>::max()));
}

}  // namespace

uint32_t ParseColourTriple(std::wstring_view text) {
    uint32_t pieces[3] = {};
    std::size_t start = 0;
    for (uint32_t& piece : pieces) {
        if (start > text.size()) break;
        const std::size_t comma = std::min(text.find(L',', start), text.size());
        piece = static_cast<uint32_t>(ParseDecimal(text.substr(start, comma - start)));
        start = comma + 1;
    }
    return pieces[0] | pieces[1] << 8 | pieces[2] << 16;
}

std::wstring FormatColourTriple(uint32_t colour) {
    return std::to_wstring(colour & 0xFF) + L"," + std::to_wstring(colour >> 8 & 0xFF) + L"," +
           std::to_wstring(colour >> 16 & 0xFF);
}

}  // namespace varcfg

namespace {

// Profile texts of this manager are read into MAX_PATH buffers: at most 259 characters.
constexpr std::size_t kProfileTextSize = 260;
constexpr uint32_t Rgb(uint32_t red, uint32_t green, uint32_t blue) { return red | green << 8 | blue << 16; }
constexpr uint32_t kWhite = Rgb(255, 255, 255);
constexpr uint32_t kBlack = Rgb(0, 0, 0);
constexpr uint32_t kAllBits = 0xFFFFFFFF;

std::wstring WithFinalBackslash(std::wstring folder) {
    if (!folder.empty() && folder.back() != L'\\') folder += L'\\';
    return folder;
}

// AppPath.INI beside the module may place the application folder relative to the module; otherwise
// it is the host executable's folder.
std::wstring FindApplicationFolder(varcfg::Platform& platform) {
    const std::wstring moduleFolder = platform.ModuleFolder();
    const std::wstring appPathFile = moduleFolder + L"AppPath.INI";
    std::wstring folder;
    if (platform.ReadProfileInt(appPathFile, L"APPPATH", L"SRC_TYPE", 0) != 0) {
        const std::wstring append =
            platform.ReadProfileText(appPathFile, L"APPPATH", L"APPEND", L"", kProfileTextSize);
        folder = append.empty() ? moduleFolder : platform.FullPath(moduleFolder + append);
    }
    if (folder.empty()) {
        const std::wstring host = platform.HostExecutablePath();
        folder = host.substr(0, host.find_last_of(L"\\/") + 1);
    }
    // Every folder is joined to names directly, so an APPEND without a final backslash still needs one.
    return WithFinalBackslash(folder);
}

// "a.bmp" -> "a-200.bmp", "icon" -> "icon-200"; folder separators become backslashes.
std::wstring ScaledImageName(std::wstring name, int scale) {
    std::replace(name.begin(), name.end(), L'/', L'\\');
    const std::wstring suffix = L"-" + std::to_wstring(scale);
    const std::size_t dot = name.rfind(L'.');
    if (dot == std::wstring::npos) return name + suffix;
    return name.insert(dot, suffix);
}

std::wstring WithExtension(const std::wstring& name, const wchar_t* extension) {
    const bool hasFourCharacterExtension = name.size() >= 5 && name[name.size() - 4] == L'.';
    return (hasFourCharacterExtension ? name.substr(0, name.size() - 4) : name) + extension;
}

}  // namespace

CPathManager& CPathManager::Instance() {
    static CPathManager manager;
    manager.Load();
    return manager;
}

void CPathManager::Load() {
    if (loaded_) return;
    loaded_ = true;
    varcfg::Platform& platform = varcfg::CurrentPlatform();
    applicationFolder_ = FindApplicationFolder(platform);
    settingsFile_ = varcfg::HostUserFolder() + L"config.ini";

    const std::wstring styleFile = applicationFolder_ + L"UIStyle.ini";
    uiStyle_ = platform.ReadProfileInt(settingsFile_, L"CONFIG", L"UI_STYLE", 0);
    if (uiStyle_ == 0) {
        // The user has not chosen yet: adopt the application's style and fix it for the user.
        uiStyle_ = platform.ReadProfileInt(styleFile, L"CONFIG", L"UI_STYLE", 1);
        platform.WriteProfileText(settingsFile_, L"CONFIG", L"UI_STYLE", std::to_wstring(uiStyle_));
    }
    buttonZoomSize_ = platform.ReadProfileInt(styleFile, L"CONFIG", L"ButtonZoomSize", 1);
    isDlgShowIcon_ = platform.ReadProfileInt(styleFile, L"CONFIG", L"IsDlgShowIcon", 1);
    dlgShowIconId_ = platform.ReadProfileInt(styleFile, L"CONFIG", L"DlgShowIconID", 128);

    const std::wstring styleSection = L"STYLE" + std::to_wstring(uiStyle_);
    themeFolder_ = applicationFolder_ + L"Theme\\" +
                   platform.ReadProfileText(styleFile, styleSection, L"FOLDER", L"Default", kProfileTextSize) +
                   L"\\";
    dark_ = platform.ReadProfileInt(styleFile, styleSection, L"DARK", 0);
    commonFolder_ = applicationFolder_ + (uiStyle_ < 100 ? L"Theme\\Common\\" : L"Theme\\Common2\\");
    logoFolder_ = applicationFolder_ + L"Theme\\Logo\\";
    ReadColours();
}

void CPathManager::ReadColours() {
    varcfg::Platform& platform = varcfg::CurrentPlatform();
    const std::wstring file = themeFolder_ + L"color_config.ini";
    const auto read = [&](const wchar_t* key, uint32_t defaultColour) {
        return varcfg::ParseColourTriple(platform.ReadProfileText(
            file, L"COLOR", key, varcfg::FormatColourTriple(defaultColour), kProfileTextSize));
    };
    // Style 2 has defaults of its own for the popup title and frame.
    const bool styleTwo = uiStyle_ == 2;
    ColourConfig& c = colours_;

    c.m_dwRGBWndPopoTitle[0] = read(L"m_dwRGBWndPopoTitle[0]", styleTwo ? Rgb(133, 181, 227) : Rgb(180, 180, 180));
    c.m_dwRGBWndPopoTitle[1] = read(L"m_dwRGBWndPopoTitle[1]", kWhite);
    c.m_dwRGBWndPopoTitle[2] = read(L"m_dwRGBWndPopoTitle[2]", Rgb(60, 60, 60));
    c.m_dwRGBWndPopoBottom[0] = read(L"m_dwRGBWndPopoBottom[0]", kWhite);
    c.m_dwRGBWndPopoBottom[1] = read(L"m_dwRGBWndPopoBottom[1]", Rgb(180, 180, 180));
    c.m_nFlatDesign = static_cast<int32_t>(read(L"m_nFlatDesign", 1));
    c.m_dwRGBDlgPopupBase = read(L"m_dwRGBDlgPopupBase", styleTwo ? Rgb(15, 76, 139) : Rgb(127, 127, 127));
    c.m_dwRGBDlgPopupBaseBK = read(L"m_dwRGBDlgPopupBaseBK", kWhite);
    c.m_dwRGBDlgPopupBaseCtrlBK = read(L"m_dwRGBDlgPopupBaseCtrlBK", kWhite);
    c.m_dwRGBDlgPopupBaseCtrlText = read(L"m_dwRGBDlgPopupBaseCtrlText", kBlack);
    c.m_dwRGBListItemBK[0] = read(L"m_dwRGBListItemBK[0]", kWhite);
    c.m_dwRGBListItemBK[1] = read(L"m_dwRGBListItemBK[1]", kWhite);
    c.m_dwRGBListHeadCtrlBK[0] = read(L"m_dwRGBListHeadCtrlBK[0]", kWhite);
    c.m_dwRGBListHeadCtrlBK[1] = read(L"m_dwRGBListHeadCtrlBK[1]", kWhite);
    c.m_dwRGBListItemBKFocus[0] = read(L"m_dwRGBListItemBKFocus[0]", kWhite);
    c.m_dwRGBListItemBKFocus[1] = read(L"m_dwRGBListItemBKFocus[1]", kWhite);
    c.m_dwRGBEditText = read(L"m_dwRGBEditText", kBlack);
    c.m_dwRGBEditTextBK = read(L"m_dwRGBEditTextBK", kWhite);
    c.m_dwRGBEditTextBKDisabled = read(L"m_dwRGBEditTextBKDisabled", kWhite);

    c.m_dwRGBBtnNormalText = read(L"m_dwRGBBtnNormalText", kBlack);
    c.m_dwRGBBtnOverText = read(L"m_dwRGBBtnOverText", kBlack);
    c.m_dwRGBBtnHilightText = read(L"m_dwRGBBtnHilightText", kBlack);
    c.m_dwRGBBtnHilightText2 = read(L"m_dwRGBBtnHilightText2", kBlack);
    c.m_dwRGBBtnDisabledText = read(L"m_dwRGBBtnDisabledText", Rgb(127, 127, 127));
    c.m_dwRGBCheckState = read(L"m_dwRGBCheckState", Rgb(0, 170, 170));
    c.m_dwRGBTextColor = read(L"m_dwRGBTextColor", kBlack);
    c.m_dwRGBGroupText = read(L"m_dwRGBGroupText", platform.ButtonTextColour());
    c.m_dwRGBBorder = read(L"m_dwRGBBorder", kAllBits);
    c.m_dwRGBGroupBK = read(L"m_dwRGBGroupBK", platform.ButtonFaceColour());
    c.m_dwBroderStyle = static_cast<uint32_t>(platform.ReadProfileInt(file, L"COLOR", L"m_dwBroderStyle", 1));
    c.m_dwRGBDlgLeft = read(L"m_dwRGBDlgLeft", Rgb(222, 227, 233));
}

int CPathManager::ScreenDpi() const {
    varcfg::Platform& platform = varcfg::CurrentPlatform();
    const int overlay = platform.ReadProfileInt(settingsFile_, L"SHOW", L"DPIOverlay", 0);
    return overlay != 0 ? overlay : platform.SystemDpi();
}

std::wstring CPathManager::ResolveImagePath(const std::wstring& name, bool highDpiVariants, int* scale) const {
    if (scale != nullptr) *scale = 100;
    if (name.empty()) return {};
    if (highDpiVariants && ScreenDpi() > kNormalDpi) {
        std::wstring found = FindImage(ScaledImageName(name, 200));
        if (!found.empty()) {
            if (scale != nullptr) *scale = 200;
            return found;
        }
    }
    return FindImage(name);
}

std::wstring CPathManager::FindImage(const std::wstring& name) const {
    varcfg::Platform& platform = varcfg::CurrentPlatform();
    for (const std::wstring& candidate : {name, WithExtension(name, L".png"), WithExtension(name, L".jpg")}) {
        if (platform.FileExists(candidate)) return candidate;
        const std::wstring inTheme = themeFolder_ + candidate;
        if (platform.FileExists(inTheme)) return inTheme;
    }
    return {};
}
