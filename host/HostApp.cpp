#include "HostApp.h"

namespace varcfg::host {
namespace {

constexpr wchar_t kWindowClass[] = L"VarcfgHostWindow";
// A fixed frame: the panel does not follow its parent's size.
constexpr DWORD kWindowStyle = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX;

}  // namespace

std::wstring FromSystemCodePage(const std::string& text) {
    const int size = MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()), wide.data(), size);
    return wide;
}

std::string ToSystemCodePage(const std::wstring& text) {
    const int size = WideCharToMultiByte(CP_ACP, 0, text.data(), static_cast<int>(text.size()), nullptr, 0, nullptr,
                                         nullptr);
    std::string narrow(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), static_cast<int>(text.size()), narrow.data(), size, nullptr, nullptr);
    return narrow;
}

std::wstring ProgramFolder() {
    wchar_t path[MAX_PATH] = {};
    const DWORD length = GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::wstring folder(path, length);
    return folder.substr(0, folder.find_last_of(L"\\/") + 1);
}

HostApp::~HostApp() {
    if (window_ != nullptr) DestroyWindow(window_);
}

bool HostApp::LoadPlugin(const std::wstring& pluginPath, const std::wstring& languageFile, std::string& problem) {
    if (!plugin_.Load(pluginPath, problem)) return false;
    // Before any panel: the first page sends requests at once.
    plugin_.setConfigFunction(&CarryPluginRequest, &LogConfigFileRequest, &link_);
    plugin_.setLangPath(ToSystemCodePage(languageFile).c_str());
    return true;
}

HWND HostApp::CreateHostWindow() {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = WindowProc;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    windowClass.lpszClassName = kWindowClass;
    RegisterClassW(&windowClass);  // fails harmlessly when a second host registers it again

    RECT frame{0, 0, plugin_.getDisplayWidth(), plugin_.getDisplayHeight()};
    AdjustWindowRectEx(&frame, kWindowStyle, FALSE, 0);
    window_ = CreateWindowExW(0, kWindowClass, Title().c_str(), kWindowStyle, CW_USEDEFAULT, CW_USEDEFAULT,
                              frame.right - frame.left, frame.bottom - frame.top, nullptr, nullptr,
                              GetModuleHandleW(nullptr), this);
    ShowWindow(window_, SW_SHOW);
    UpdateWindow(window_);
    return window_;
}

void HostApp::ShowPanel() {
    plugin_.displayConfig(window_, nullptr);
    SetWindowTextW(window_, Title().c_str());
}

int HostApp::RunMessageLoop() {
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (plugin_.preTranslateMessage(&message) == 0) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    return static_cast<int>(message.wParam);
}

std::wstring HostApp::Title() const {
    const std::string model = link_.Model().empty() ? "model not known yet" : link_.Model();
    return L"varcfg-host: " + FromSystemCodePage(model) + L", " + FromSystemCodePage(link_.Where());
}

LRESULT CALLBACK HostApp::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* app = static_cast<HostApp*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(app));
    }
    // Only the user's closing ends the loop: a host that closes the window itself (as the tests do)
    // must not leave a quit message behind.
    if (message == WM_CLOSE) {
        DestroyWindow(window);
        PostQuitMessage(0);
        return 0;
    }
    if (message == WM_DESTROY) {
        if (auto* app = reinterpret_cast<HostApp*>(GetWindowLongPtrW(window, GWLP_USERDATA))) app->window_ = nullptr;
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace varcfg::host
