#include "PluginLibrary.h"

#include "Sockets.h"

namespace varcfg::host {
namespace {

// Adds the name to missing when the module does not export it.
template <class Fn>
void Bind(HMODULE module, const char* name, Fn& function, std::string& missing) {
    function = reinterpret_cast<Fn>(reinterpret_cast<void*>(GetProcAddress(module, name)));
    if (function == nullptr) missing += missing.empty() ? name : std::string(", ") + name;
}

}  // namespace

PluginLibrary::~PluginLibrary() { Unload(); }

void PluginLibrary::Unload() {
    if (module_ != nullptr) FreeLibrary(module_);
    module_ = nullptr;
}

bool PluginLibrary::Load(const std::wstring& path, std::string& problem) {
    Unload();
    module_ = LoadLibraryW(path.c_str());
    if (module_ == nullptr) {
        problem = "cannot load the plug-in: " + sim::WindowsErrorText(GetLastError(), "the plug-in");
        return false;
    }
    MDVR_IsEnableDllFn isEnableDll = nullptr;
    std::string missing;
    Bind(module_, "MDVR_IsEnableDll", isEnableDll, missing);
    Bind(module_, "MDVR_SetConfigFunction", setConfigFunction, missing);
    Bind(module_, "MDVR_SetLangPath", setLangPath, missing);
    Bind(module_, "MDVR_DisplayConfig", displayConfig, missing);
    Bind(module_, "MDVR_GetDisplayWidth", getDisplayWidth, missing);
    Bind(module_, "MDVR_GetDisplayHeight", getDisplayHeight, missing);
    Bind(module_, "MDVR_DllPreTranslateMessage", preTranslateMessage, missing);
    if (!missing.empty()) {
        problem = "not a configuration panel plug-in: it lacks " + missing;
        Unload();
        return false;
    }
    // The first call a host makes: a plug-in of another family or version must not be used.
    if (isEnableDll(MDVR_INTERFACE_KIND, MDVR_INTERFACE_VERSION) == 0) {
        problem = "the plug-in refuses interface kind 1, version 18";
        Unload();
        return false;
    }
    return true;
}

}  // namespace varcfg::host
