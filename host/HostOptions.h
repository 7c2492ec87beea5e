// The reference host's command line.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace varcfg::host {

extern const char kHostUsage[];

inline constexpr char kDefaultModel[] = "MR8-O1";
inline constexpr uint32_t kDefaultTimeoutMs = 3000;
inline constexpr uint32_t kMaxTimeoutMs = 60000;

struct RecorderAddress {
    std::string host;
    uint16_t port = 0;
};

struct HostOptions {
    std::wstring pluginPath;    // empty: libvarcfg_18.dll beside the host
    std::wstring languageFile;  // empty: Lang\English.ini beside the host
    std::string model = kDefaultModel;
    std::string stateFile;
    bool useRecorder = false;  // requests go over TCP to recorder, not to a recorder in this process
    RecorderAddress recorder;
    uint32_t timeoutMs = kDefaultTimeoutMs;
    std::wstring screenshotFolder;  // non-empty: take the screenshots and exit
    bool probe = false;
};

struct ParsedOptions {
    enum class Outcome { Run, Help, Invalid } outcome = Outcome::Run;
    HostOptions options;
    std::string problem;  // for Invalid: what is wrong, in one line
};

// args are the arguments after the program name.
ParsedOptions ParseHostOptions(const std::vector<std::wstring>& args);

// "HOST:PORT" with a port from 1 to 65535; false when the text is not of that form.
bool ParseRecorderAddress(const std::string& text, RecorderAddress& address);

}  // namespace varcfg::host
