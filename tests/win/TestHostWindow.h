// A plain top-level window, shown, whose client area has the panel's size: the host side of the tests
// that put the panel or one of its pages in a window.
#pragma once

#include <windows.h>

namespace varcfg::test {

class HostWindow {
public:
    HostWindow();
    ~HostWindow() { Destroy(); }
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    operator HWND() const { return hwnd_; }
    // Destroys the window, and with it the panels in it, before the object goes.
    void Destroy();

private:
    HWND hwnd_;
};

}  // namespace varcfg::test
