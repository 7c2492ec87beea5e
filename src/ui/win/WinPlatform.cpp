#include "ui/win/WinPlatform.h"

#include <windows.h>
#include <share.h>
#include <shlobj.h>

#include <cstdio>
#include <utility>
#include <vector>

namespace varcfg {
namespace {

// Its address identifies the module this code is linked into.
const char kModuleAnchor = 0;

// Longest path the wide file functions accept, terminator included.
constexpr DWORD kLongestPath = 32768;

std::wstring ModuleFileName(HMODULE module) {
    std::vector<wchar_t> buffer(MAX_PATH);
    for (;;) {
        const DWORD length = GetModuleFileNameW(module, buffer.data(), static_cast<DWORD>(buffer.size()));
        if (length == 0) return {};
        // A name that fills the buffer may have been cut.
        if (length < buffer.size() || buffer.size() >= kLongestPath) return std::wstring(buffer.data(), length);
        buffer.resize(buffer.size() * 2);
    }
}

std::wstring LongPathName(const std::wstring& path) {
    const DWORD needed = GetLongPathNameW(path.c_str(), nullptr, 0);
    if (needed == 0) return path;
    std::vector<wchar_t> buffer(needed);
    const DWORD length = GetLongPathNameW(path.c_str(), buffer.data(), needed);
    if (length == 0 || length >= needed) return path;
    return std::wstring(buffer.data(), length);
}

// _wfopen's sharing, without the deprecation warning Visual Studio gives for _wfopen.
std::FILE* OpenForReading(const std::wstring& path) { return _wfsopen(path.c_str(), L"rb", _SH_DENYNO); }

uint32_t ToRgb(COLORREF colour) { return static_cast<uint32_t>(colour); }

}  // namespace

std::wstring WinPlatform::ReadProfileText(const std::wstring& file, const std::wstring& section,
                                            const std::wstring& key, const std::wstring& defaultValue,
                                            std::size_t bufferSize) {
    if (bufferSize == 0) return {};
    std::vector<wchar_t> buffer(bufferSize);
    const DWORD length = GetPrivateProfileStringW(section.c_str(), key.c_str(), defaultValue.c_str(), buffer.data(),
                                                  static_cast<DWORD>(bufferSize), file.c_str());
    return std::wstring(buffer.data(), length);
}

int WinPlatform::ReadProfileInt(const std::wstring& file, const std::wstring& section, const std::wstring& key,
                                int defaultValue) {
    return static_cast<int>(GetPrivateProfileIntW(section.c_str(), key.c_str(), defaultValue, file.c_str()));
}

void WinPlatform::WriteProfileText(const std::wstring& file, const std::wstring& section, const std::wstring& key,
                                     const std::wstring& value) {
    WritePrivateProfileStringW(section.c_str(), key.c_str(), value.c_str(), file.c_str());
}

bool WinPlatform::CanOpenForReading(const std::wstring& path) {
    std::FILE* file = OpenForReading(path);
    if (file == nullptr) return false;
    std::fclose(file);
    return true;
}

bool WinPlatform::ReadWholeFile(const std::wstring& path, std::string& contents) {
    std::FILE* file = OpenForReading(path);
    if (file == nullptr) return false;
    std::string bytes;
    char block[4096];
    std::size_t count = 0;
    while ((count = std::fread(block, 1, sizeof block, file)) > 0) bytes.append(block, count);
    const bool complete = std::ferror(file) == 0;
    std::fclose(file);
    if (complete) contents = std::move(bytes);
    return complete;
}

bool WinPlatform::FileExists(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

std::wstring WinPlatform::ModuleFolder() {
    HMODULE module = nullptr;
    if (!GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                            reinterpret_cast<LPCWSTR>(&kModuleAnchor), &module)) {
        return {};
    }
    const std::wstring path = LongPathName(ModuleFileName(module));
    return path.substr(0, path.rfind(L'\\') + 1);
}

std::wstring WinPlatform::HostExecutablePath() { return ModuleFileName(nullptr); }

std::wstring WinPlatform::RoamingAppDataFolder() {
    wchar_t folder[MAX_PATH] = {};
    if (FAILED(SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, folder))) return {};
    return folder;
}

std::wstring WinPlatform::FullPath(const std::wstring& path) {
    const DWORD needed = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    if (needed == 0) return path;
    std::vector<wchar_t> buffer(needed);
    const DWORD length = GetFullPathNameW(path.c_str(), needed, buffer.data(), nullptr);
    if (length == 0 || length >= needed) return path;
    return std::wstring(buffer.data(), length);
}

int WinPlatform::SystemDpi() {
    HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi;
}

uint32_t WinPlatform::ButtonTextColour() { return ToRgb(GetSysColor(COLOR_BTNTEXT)); }

uint32_t WinPlatform::ButtonFaceColour() { return ToRgb(GetSysColor(COLOR_BTNFACE)); }

WinPlatform& WindowsPlatform() {
    static WinPlatform platform;
    return platform;
}

}  // namespace varcfg
