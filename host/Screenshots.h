// The screenshot tour: shows every category and every tab of the panel in turn and saves each as a
// PNG file, then ends the host's message loop.
#pragma once

#include <windows.h>

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

namespace varcfg::host {

class ScreenshotTour {
public:
    // Files go to folder, which is created when missing.
    explicit ScreenshotTour(std::wstring folder);
    ~ScreenshotTour();
    ScreenshotTour(const ScreenshotTour&) = delete;
    ScreenshotTour& operator=(const ScreenshotTour&) = delete;

    // Starts over the host window, before or after the panel is shown. A thread timer drives the
    // tour, so it goes on inside the modal loop of a message tip: each tip is saved too and closed with
    // Enter. When every shot is saved, or the time is up, or a file cannot be written, the tour posts
    // WM_QUIT with 0 for success or 1. One tour at a time; false when one runs already or the folder
    // cannot be made.
    bool Start(HWND host);

    bool Succeeded() const { return finished_ && problem_.empty(); }
    const std::string& Problem() const { return problem_; }
    const std::vector<std::wstring>& Written() const { return written_; }

private:
    struct Shot {
        std::string name;  // the file name without ".png"
        int menuButton;
        int tab;  // -1 for a category without tabs
        bool firstOfCategory;
        int pageButton = 0;  // a button of the shown page that opens the dialog to shoot
    };

    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD);
    void Tick();
    void HandleBox(HWND box);
    void TakeAction();
    bool Save(HWND window, bool clientAreaOnly, const std::string& name);
    void Finish(const std::string& problem);

    std::wstring folder_;
    std::vector<Shot> shots_;
    HWND host_ = nullptr;
    UINT_PTR timer_ = 0;
    ULONG_PTR gdiplusToken_ = 0;
    std::chrono::steady_clock::time_point deadline_;
    std::size_t next_ = 0;         // the shot now being taken
    bool acting_ = false;          // a menu button or tab is being pressed (a tip may open meanwhile)
    bool captureDue_ = false;      // the next shot's page is shown: save it at the next tick
    std::string boxName_ = "00-open";  // what a tip that opens now belongs to
    int boxesOfShot_ = 0;
    HWND answeredBox_ = nullptr;
    bool finished_ = false;
    std::string problem_;
    std::vector<std::wstring> written_;
};

}  // namespace varcfg::host
