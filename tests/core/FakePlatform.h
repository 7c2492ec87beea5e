// A platform without an operating system behind it: profile files live in memory, other files are
// names (some with contents), folders are Windows-style texts. Installed for its lifetime.
#pragma once

#include <cwchar>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "base/Platform.h"

class FakePlatform : public varcfg::Platform {
public:
    FakePlatform() { varcfg::InstallPlatform(this); }
    ~FakePlatform() override { varcfg::InstallPlatform(nullptr); }

    void Set(const std::wstring& file, const std::wstring& section, const std::wstring& key,
             const std::wstring& value) {
        profiles[file + L"|" + section + L"|" + key] = value;
        files.insert(file);
    }
    const std::wstring* Find(const std::wstring& file, const std::wstring& section, const std::wstring& key) const {
        const auto found = profiles.find(file + L"|" + section + L"|" + key);
        return found == profiles.end() ? nullptr : &found->second;
    }

    std::wstring ReadProfileText(const std::wstring& file, const std::wstring& section, const std::wstring& key,
                                 const std::wstring& defaultValue, std::size_t bufferSize) override {
        ++textReads;
        const std::wstring* value = Find(file, section, key);
        return (value != nullptr ? *value : defaultValue).substr(0, bufferSize - 1);
    }
    int ReadProfileInt(const std::wstring& file, const std::wstring& section, const std::wstring& key,
                       int defaultValue) override {
        const std::wstring* value = Find(file, section, key);
        return value != nullptr ? static_cast<int>(std::wcstol(value->c_str(), nullptr, 10)) : defaultValue;
    }
    void WriteProfileText(const std::wstring& file, const std::wstring& section, const std::wstring& key,
                          const std::wstring& value) override {
        ++writes;
        Set(file, section, key, value);
    }
    bool CanOpenForReading(const std::wstring& path) override {
        return files.count(path) != 0 || fileContents.count(path) != 0;
    }
    bool ReadWholeFile(const std::wstring& path, std::string& contents) override {
        const auto found = fileContents.find(path);
        if (found == fileContents.end()) return false;
        contents = found->second;
        return true;
    }
    bool FileExists(const std::wstring& path) override {
        existenceQueries.push_back(path);
        return CanOpenForReading(path);
    }
    std::wstring ModuleFolder() override { return L"C:\\Client\\Plugins\\"; }
    std::wstring HostExecutablePath() override { return hostExecutable; }
    std::wstring RoamingAppDataFolder() override { return L"C:\\Users\\op\\AppData\\Roaming"; }
    // Resolves the ".\" and "..\" parts of an absolute path.
    std::wstring FullPath(const std::wstring& path) override {
        std::vector<std::wstring> parts;
        std::wstring part;
        for (wchar_t c : path + L"\\") {
            if (c != L'\\') {
                part += c;
                continue;
            }
            if (part == L"..") parts.pop_back();
            else if (part != L"." && !part.empty()) parts.push_back(part);
            part.clear();
        }
        std::wstring full;
        for (const std::wstring& p : parts) full += p + L"\\";
        return path.back() == L'\\' ? full : full.substr(0, full.size() - 1);
    }
    int SystemDpi() override { return systemDpi; }
    uint32_t ButtonTextColour() override { return 0x102030; }
    uint32_t ButtonFaceColour() override { return 0xF0E0D0; }

    std::map<std::wstring, std::wstring> profiles;  // "file|section|key" -> value
    std::set<std::wstring> files;  // files that exist, profile files included
    std::map<std::wstring, std::string> fileContents;  // further files, with their bytes
    std::wstring hostExecutable = L"C:\\Client\\CMSClient.exe";
    int systemDpi = 96;
    int textReads = 0;
    int writes = 0;
    std::vector<std::wstring> existenceQueries;
};
