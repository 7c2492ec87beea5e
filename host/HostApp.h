// The reference host: loads the plug-in by path and shows its panel in a window of the panel's size,
// in the order a host must follow (see include/varcfg/host_api.h).
#pragma once

#include <windows.h>

#include <string>

#include "PluginLibrary.h"
#include "RecorderLink.h"

namespace varcfg::host {

// The folder of this program, ending in a backslash.
std::wstring ProgramFolder();

// 8-bit texts (device texts, the plug-in's paths, the console) are in the system code page.
std::wstring FromSystemCodePage(const std::string& text);
std::string ToSystemCodePage(const std::wstring& text);

class HostApp {
public:
    // The panel's requests go to link, which must outlive the host.
    explicit HostApp(RecorderLink& link) : link_(link) {}
    // Closes the window (and with it the panel), then unloads the plug-in.
    ~HostApp();
    HostApp(const HostApp&) = delete;
    HostApp& operator=(const HostApp&) = delete;

    // Loads the plug-in, which must accept this host's interface, then hands it both callbacks and
    // the language file. False, with the reason in problem, when the plug-in is refused.
    bool LoadPlugin(const std::wstring& pluginPath, const std::wstring& languageFile, std::string& problem);
    // Creates and shows the window whose client area has the size the plug-in asks for.
    HWND CreateHostWindow();
    // Asks the plug-in to show its panel in the window (it reads from the recorder at once), then
    // names the recorder's model in the title.
    void ShowPanel();
    // Runs the message loop, every message offered to the plug-in first, until the window closes or
    // someone posts WM_QUIT; returns the quit code.
    int RunMessageLoop();

    HWND Window() const { return window_; }
    std::wstring Title() const;

private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    RecorderLink& link_;
    PluginLibrary plugin_;
    HWND window_ = nullptr;
};

}  // namespace varcfg::host
