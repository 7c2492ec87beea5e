// CLibvarcfgApp: the module's application object. It knows the module's own instance handle, keeps
// track of the panels it created, and gives their dialogs keyboard navigation in the host's loop.
#pragma once

#include <windows.h>

#include <set>

class CLibvarcfgApp {
public:
    CLibvarcfgApp();
    CLibvarcfgApp(const CLibvarcfgApp&) = delete;
    CLibvarcfgApp& operator=(const CLibvarcfgApp&) = delete;

    // The module that holds this code (the DLL, or a test program that links the panel statically),
    // found from an address inside it rather than from the host's process.
    static HINSTANCE ModuleInstance();

    // Creates a further panel inside the parent, covering its client area. Null when creation failed.
    HWND CreatePanel(HWND parent);

    // Standard pre-translation: a message for a window inside one of our panels goes through that
    // panel's dialog navigation. Non-zero when the message was consumed.
    BOOL PreTranslateMessage(MSG* message);

    void OnPanelDestroyed(HWND panel);

private:
    std::set<HWND> panels_;
};

CLibvarcfgApp& TheApp();
