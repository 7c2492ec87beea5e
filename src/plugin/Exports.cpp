// The twelve functions the host calls. Names and results are the host's contract; see
// include/varcfg/host_api.h for the calling order.
#include <windows.h>
#include <shlobj.h>

#include <string>

#include "base/AnsiText.h"
#include "channel/HostBridge.h"
#include "plugin/LibvarcfgApp.h"
#include "base/TraceFile.h"
#include "ui/Language.h"
#include "base/Platform.h"
#include "varcfg/host_api.h"

namespace {

// The application object exists from the module's start: it installs the platform access that the
// language table and the paths use.
CLibvarcfgApp& g_app = TheApp();

// The log lives with the host's per-user settings: <roaming app data>\<host name>\Log\.
std::wstring LogFolder() {
    const std::wstring folder = varcfg::HostUserFolder() + L"Log\\";
    SHCreateDirectoryExW(nullptr, folder.c_str(), nullptr);
    return folder;
}

bool IsKeyboardMessage(UINT message) { return message >= WM_KEYFIRST && message <= WM_UNICHAR; }

}  // namespace

extern "C" {

int32_t MDVR_IsEnableDll(uint32_t kind, int32_t version) { return varcfg::IsEnableDll(kind, version); }

void MDVR_SetConfigFunction(MDVR_DeviceRequestFn onRequest, MDVR_ConfigFileFn onConfigFile, void* context) {
    varcfg::SetConfigFunction(onRequest, onConfigFile, context);
}

int32_t MDVR_SetLangPath(const char* languageFile) {
    const bool firstUse = CTraceFile2::Existing() == nullptr;
    CTraceFile2& log = CTraceFile2::Instance();
    if (firstUse) log.SetFolder(LogFolder());
    log.SetLogName("libvarcfg");

    const std::string path = languageFile != nullptr ? languageFile : "";
    CLanguage& language = CLanguage::Instance();
    const std::wstring inForce = language.Path();
    if (language.SetLanguagePath(varcfg::FromAnsi(path)) != 0) {
        log.Write("language file %s", path.c_str());
    } else if (inForce == varcfg::FromAnsi(path)) {
        log.Write("language file %s (already in use)", path.c_str());
    } else if (inForce.empty()) {
        log.Write("language file %s cannot be opened; the panel has no texts until a language file can be", path.c_str());
    } else {
        log.Write("language file %s cannot be opened; kept %s", path.c_str(), varcfg::ToAnsi(inForce).c_str());
    }
    return 1;
}

int32_t MDVR_SetDevType(uint32_t deviceType) { return varcfg::SetDevType(deviceType); }

int32_t MDVR_SetDevChannelNum(int32_t channelCount) { return varcfg::SetDevChannelNum(channelCount); }

int32_t MDVR_DisplayConfig(HWND parent, void*) {
    if (g_app.CreatePanel(parent) == nullptr) {
        if (CTraceFile2* log = CTraceFile2::Existing()) {
            log->Write("no panel created: %s", parent == nullptr ? "the parent window is null" : "the window could not be made");
        }
    }
    return 0;
}

int32_t MDVR_GetDisplayWidth(void) { return MDVR_DISPLAY_WIDTH; }

int32_t MDVR_GetDisplayHeight(void) { return MDVR_DISPLAY_HEIGHT; }

int32_t MDVR_DllPreTranslateMessage(MSG* message) {
    // Keys other than Tab belong to the host; Tab moves the focus inside the panel.
    if (message != nullptr && IsKeyboardMessage(message->message) && message->wParam != VK_TAB) return 0;
    return g_app.PreTranslateMessage(message);
}

// Exported under both MDVR_ActivePage and MDVR_SaveLocalCfgFile (see the .def file).
int32_t MDVR_ActivePage(void*) { return 1; }

int32_t MDVR_IsLoadConfigFile(void) { return 0; }

}  // extern "C"
