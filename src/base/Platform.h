// What the language table and the path manager need from the operating system: profile (INI) files,
// a few folders, the screen DPI and two system colours. The Windows implementation is in win/; tests
// install a fake with an in-memory profile store.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace varcfg {

class Platform {
public:
    virtual ~Platform() = default;

    // Profile files. A missing file, section or key gives the default. bufferSize is in characters and
    // includes the terminator: like the Windows profile reader, a value is cut at bufferSize - 1.
    virtual std::wstring ReadProfileText(const std::wstring& file, const std::wstring& section,
                                           const std::wstring& key, const std::wstring& defaultValue,
                                           std::size_t bufferSize) = 0;
    virtual int ReadProfileInt(const std::wstring& file, const std::wstring& section, const std::wstring& key,
                               int defaultValue) = 0;
    virtual void WriteProfileText(const std::wstring& file, const std::wstring& section, const std::wstring& key,
                                    const std::wstring& value) = 0;

    virtual bool CanOpenForReading(const std::wstring& path) = 0;
    // The file's bytes as they are; false (contents untouched) when it cannot be read.
    virtual bool ReadWholeFile(const std::wstring& path, std::string& contents) = 0;
    // True for an existing file, false for a folder or nothing.
    virtual bool FileExists(const std::wstring& path) = 0;

    // Folder of the module that holds this code (the plug-in DLL), long path form, ending in a backslash.
    virtual std::wstring ModuleFolder() = 0;
    virtual std::wstring HostExecutablePath() = 0;
    // The user's roaming application-data folder, without a final backslash.
    virtual std::wstring RoamingAppDataFolder() = 0;
    // The absolute form of a path, with its ".\" and "..\" parts resolved.
    virtual std::wstring FullPath(const std::wstring& path) = 0;

    virtual int SystemDpi() = 0;
    // System colours as 32-bit RGB, red in the low byte.
    virtual uint32_t ButtonTextColour() = 0;
    virtual uint32_t ButtonFaceColour() = 0;
};

// The platform installed last. Before any is installed (and after InstallPlatform(nullptr)) it is one
// that has no files at all, so every profile read gives its default.
Platform& CurrentPlatform();
// Not owned: the platform must stay alive while it is installed.
void InstallPlatform(Platform* platform);

// Where the host keeps its per-user files (Lang.ini, config.ini): the roaming application-data folder,
// then the host executable's file name without folder and without the part from its last ".", then "\".
std::wstring HostUserFolder();

}  // namespace varcfg
