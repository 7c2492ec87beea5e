// The Windows implementation of the platform: the private-profile functions, the module and host file
// names, the shell's roaming application-data folder, GDI's DPI and the system colours.
#pragma once

#include "base/Platform.h"

namespace varcfg {

class WinPlatform : public Platform {
public:
    std::wstring ReadProfileText(const std::wstring& file, const std::wstring& section, const std::wstring& key,
                                   const std::wstring& defaultValue, std::size_t bufferSize) override;
    int ReadProfileInt(const std::wstring& file, const std::wstring& section, const std::wstring& key,
                       int defaultValue) override;
    void WriteProfileText(const std::wstring& file, const std::wstring& section, const std::wstring& key,
                            const std::wstring& value) override;
    bool CanOpenForReading(const std::wstring& path) override;
    bool ReadWholeFile(const std::wstring& path, std::string& contents) override;
    bool FileExists(const std::wstring& path) override;
    // The folder of the module this code is linked into: the DLL's, or a test program's.
    std::wstring ModuleFolder() override;
    std::wstring HostExecutablePath() override;
    std::wstring RoamingAppDataFolder() override;
    std::wstring FullPath(const std::wstring& path) override;
    int SystemDpi() override;
    uint32_t ButtonTextColour() override;
    uint32_t ButtonFaceColour() override;
};

// The module's one instance, to be installed with InstallPlatform before the language table or the
// path manager is first used.
WinPlatform& WindowsPlatform();

}  // namespace varcfg
