// varcfg-host: the reference host of the configuration panel plug-in. See kHostUsage for the options.
#include <windows.h>
#include <shellapi.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "HostApp.h"
#include "HostOptions.h"
#include "Probe.h"
#include "RecorderLink.h"
#include "Screenshots.h"
#include "SimulatedRecorder.h"
#include "StateFile.h"
#include "TcpRecorderLink.h"
#include "protocol/ModelTable.h"
#include "varcfg_version.h"

using namespace varcfg::host;

namespace {

std::vector<std::wstring> Arguments() {
    int count = 0;
    LPWSTR* arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::wstring> args;
    for (int i = 1; i < count; ++i) args.emplace_back(arguments[i]);
    LocalFree(arguments);
    return args;
}

// The plug-in and the profile functions need a full path (a bare name would be looked up in the
// Windows folder).
std::wstring FullPath(const std::wstring& path) {
    const DWORD size = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    if (size == 0) return path;
    std::wstring full(size, L'\0');
    full.resize(GetFullPathNameW(path.c_str(), size, full.data(), nullptr));
    return full;
}

bool Exists(const std::wstring& path) { return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

// A file named on the command line: in the current folder, or else beside this program, where the
// deployment files are (so that Lang\Deutsch.ini works from anywhere).
std::wstring LocateFile(const std::wstring& path) {
    const std::wstring here = FullPath(path);
    if (Exists(here) || !std::filesystem::path(path).is_relative()) return here;
    const std::wstring besideProgram = FullPath(ProgramFolder() + path);
    return Exists(besideProgram) ? besideProgram : here;
}

int RunPanel(const HostOptions& options, RecorderLink& link) {
    const std::wstring pluginPath =
        options.pluginPath.empty() ? ProgramFolder() + L"libvarcfg_18.dll" : LocateFile(options.pluginPath);
    const std::wstring languageFile =
        options.languageFile.empty() ? ProgramFolder() + L"Lang\\English.ini" : LocateFile(options.languageFile);
    if (!Exists(languageFile)) {
        std::fprintf(stderr, "varcfg-host: no language file %s: the panel shows no texts\n",
                     ToSystemCodePage(languageFile).c_str());
    }

    HostApp app(link);
    std::string problem;
    if (!app.LoadPlugin(pluginPath, languageFile, problem)) {
        std::fprintf(stderr, "varcfg-host: %s: %s\n", ToSystemCodePage(pluginPath).c_str(), problem.c_str());
        return 1;
    }
    app.CreateHostWindow();
    std::unique_ptr<ScreenshotTour> tour;
    if (!options.screenshotFolder.empty()) {
        // Before the panel: a tip that opens while the panel is made must not wait for a user.
        tour = std::make_unique<ScreenshotTour>(options.screenshotFolder);
        if (!tour->Start(app.Window())) {
            std::fprintf(stderr, "varcfg-host: cannot take screenshots: %s\n", tour->Problem().c_str());
            return 1;
        }
    }
    app.ShowPanel();
    const int quitCode = app.RunMessageLoop();
    if (!tour) return quitCode;
    if (!tour->Succeeded()) {
        std::fprintf(stderr, "varcfg-host: screenshots: %s\n", tour->Problem().c_str());
        return 1;
    }
    std::printf("%u screenshots written\n", static_cast<unsigned>(tour->Written().size()));
    return 0;
}

}  // namespace

int main() {
    const std::vector<std::wstring> args = Arguments();
    if (args.size() == 1 && args[0] == L"--version") {
        std::printf("varcfg-host %s\n", VARCFG_VERSION_TEXT);
        return 0;
    }
    const ParsedOptions parsed = ParseHostOptions(args);
    if (parsed.outcome == ParsedOptions::Outcome::Help) {
        std::fputs(kHostUsage, stdout);
        return 0;
    }
    if (parsed.outcome == ParsedOptions::Outcome::Invalid) {
        std::fprintf(stderr, "varcfg-host: %s (see --help)\n", parsed.problem.c_str());
        return 2;
    }
    const HostOptions& options = parsed.options;

    std::unique_ptr<varcfg::sim::SimulatedRecorder> recorder;
    std::unique_ptr<RecorderLink> link;
    if (options.useRecorder) {
        link = std::make_unique<TcpRecorderLink>(options.recorder.host, options.recorder.port,
                                                 std::chrono::milliseconds(options.timeoutMs));
    } else {
        if (!options.stateFile.empty()) {
            const std::string fault = varcfg::sim::StateFile(options.stateFile).Fault();
            if (!fault.empty()) {
                std::fprintf(stderr, "varcfg-host: --state %s: %s (see --help)\n", options.stateFile.c_str(),
                             fault.c_str());
                return 2;
            }
        }
        recorder = std::make_unique<varcfg::sim::SimulatedRecorder>(options.model, options.stateFile);
        recorder->OnSaveFailure([](const std::string& reason) {
            std::fprintf(stderr, "varcfg-host: setting refused: %s\n", reason.c_str());
        });
        if (!varcfg::BuiltInModelTable().ProfileOf(options.model)) {
            std::fprintf(stderr,
                         "varcfg-host: model %s is not in the model table: 4 video channels, no alarms, no serial "
                         "ports\n",
                         options.model.c_str());
        }
        const std::string stateProblem = recorder->StateFileProblem();
        if (!stateProblem.empty()) std::fprintf(stderr, "varcfg-host: %s\n", stateProblem.c_str());
        link = std::make_unique<SimulatedRecorderLink>(*recorder);
    }
    if (!options.probe) return RunPanel(options, *link);
    const ProbeReport report = Probe(*link);
    std::fputs(report.text.c_str(), stdout);
    return report.status;
}
