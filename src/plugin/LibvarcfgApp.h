// CLibvarcfgApp: the module's application object. It sets up the platform access on the module's start,
// creates panels, and gives their dialogs keyboard navigation in the host's message loop.
#pragma once

#include <windows.h>

class CLibvarcfgApp {
public:
    CLibvarcfgApp();
    CLibvarcfgApp(const CLibvarcfgApp&) = delete;
    CLibvarcfgApp& operator=(const CLibvarcfgApp&) = delete;

    // Creates a further panel inside the parent, covering its client area. Null when creation failed.
    HWND CreatePanel(HWND parent);

    // Standard pre-translation: a message for a window inside one of our dialogs goes through their
    // pre-translation and the outermost one's dialog navigation. Non-zero when it was consumed.
    BOOL PreTranslateMessage(MSG* message);
};

CLibvarcfgApp& TheApp();
