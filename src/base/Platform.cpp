#include "base/Platform.h"

namespace varcfg {
namespace {

// Stands in until a real platform is installed: the module then behaves as on a machine without its
// files (empty texts, default style and colours) instead of failing.
class NoFilesPlatform : public Platform {
public:
    std::wstring ReadProfileText(const std::wstring&, const std::wstring&, const std::wstring&,
                                   const std::wstring& defaultValue, std::size_t bufferSize) override {
        return defaultValue.substr(0, bufferSize > 0 ? bufferSize - 1 : 0);
    }
    int ReadProfileInt(const std::wstring&, const std::wstring&, const std::wstring&, int defaultValue) override {
        return defaultValue;
    }
    void WriteProfileText(const std::wstring&, const std::wstring&, const std::wstring&,
                            const std::wstring&) override {}
    bool CanOpenForReading(const std::wstring&) override { return false; }
    bool ReadWholeFile(const std::wstring&, std::string&) override { return false; }
    bool FileExists(const std::wstring&) override { return false; }
    std::wstring ModuleFolder() override { return {}; }
    std::wstring HostExecutablePath() override { return {}; }
    std::wstring RoamingAppDataFolder() override { return {}; }
    std::wstring FullPath(const std::wstring& path) override { return path; }
    int SystemDpi() override { return 96; }
    uint32_t ButtonTextColour() override { return 0x000000; }
    uint32_t ButtonFaceColour() override { return 0xF0F0F0; }
};

Platform*& Installed() {
    static Platform* platform = nullptr;
    return platform;
}

}  // namespace

Platform& CurrentPlatform() {
    static NoFilesPlatform noFiles;
    Platform* platform = Installed();
    return platform != nullptr ? *platform : noFiles;
}

void InstallPlatform(Platform* platform) { Installed() = platform; }

std::wstring HostUserFolder() {
    Platform& platform = CurrentPlatform();
    std::wstring name = platform.HostExecutablePath();
    const std::size_t folderEnd = name.find_last_of(L"\\/");
    if (folderEnd != std::wstring::npos) name.erase(0, folderEnd + 1);
    const std::size_t extension = name.rfind(L'.');
    if (extension != std::wstring::npos) name.erase(extension);
    return platform.RoamingAppDataFolder() + L"\\" + name + L"\\";
}

}  // namespace varcfg
