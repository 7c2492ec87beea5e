#include "TestHostWindow.h"

#include "varcfg/host_api.h"

namespace varcfg::test {

HostWindow::HostWindow() {
    static const ATOM windowClass = [] {
        WNDCLASSW wc{};
        wc.lpfnWndProc = DefWindowProcW;
        wc.hInstance = GetModuleHandleW(nullptr);
        wc.lpszClassName = L"VarcfgTestHost";
        return RegisterClassW(&wc);
    }();
    RECT frame{0, 0, MDVR_DISPLAY_WIDTH, MDVR_DISPLAY_HEIGHT};
    AdjustWindowRect(&frame, WS_OVERLAPPEDWINDOW, FALSE);
    hwnd_ = CreateWindowW(MAKEINTATOM(windowClass), L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                          frame.right - frame.left, frame.bottom - frame.top, nullptr, nullptr,
                          GetModuleHandleW(nullptr), nullptr);
}

void HostWindow::Destroy() {
    if (hwnd_ != nullptr) DestroyWindow(hwnd_);
    hwnd_ = nullptr;
}

}  // namespace varcfg::test
