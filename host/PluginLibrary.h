// The plug-in DLL, loaded by path, with the exports a host calls.
#pragma once

#include <windows.h>

#include <string>

#include "varcfg/host_api.h"

namespace varcfg::host {

class PluginLibrary {
public:
    PluginLibrary() = default;
    ~PluginLibrary();
    PluginLibrary(const PluginLibrary&) = delete;
    PluginLibrary& operator=(const PluginLibrary&) = delete;

    // Loads the DLL and binds its exports, then asks it whether it serves this host's interface
    // (kind 1, version 18). False, with the reason in problem, when the file cannot be loaded, lacks an
    // export or refuses the interface; nothing stays loaded then.
    bool Load(const std::wstring& path, std::string& problem);
    bool Loaded() const { return module_ != nullptr; }

    MDVR_SetConfigFunctionFn setConfigFunction = nullptr;
    MDVR_SetLangPathFn setLangPath = nullptr;
    MDVR_DisplayConfigFn displayConfig = nullptr;
    MDVR_GetDisplaySizeFn getDisplayWidth = nullptr;
    MDVR_GetDisplaySizeFn getDisplayHeight = nullptr;
    MDVR_DllPreTranslateMessageFn preTranslateMessage = nullptr;

private:
    void Unload();

    HMODULE module_ = nullptr;
};

}  // namespace varcfg::host
