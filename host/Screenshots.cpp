#include "Screenshots.h"

#include <objidl.h>

#include <algorithm>
// Microsoft's GDI+ headers call min and max unqualified, and NOMINMAX removes the macros.
namespace Gdiplus {
using std::max;
using std::min;
}  // namespace Gdiplus
#include <gdiplus.h>

#include <cstdio>
#include <filesystem>
#include <memory>

#include "HostApp.h"
#include "PanelParts.h"
#include "res/resource.h"

namespace varcfg::host {
namespace {

// Under Wine a page loads in well under a second; a tour that takes this long is stuck.
constexpr std::chrono::seconds kTimeLimit{120};
// Timer messages come only when nothing else is queued: by then the last action's pages are painted.
constexpr UINT kTickMs = 30;

struct Category {
    int menuButton;
    const char* name;
    std::vector<const char*> tabs;
};

// In category order, with the tabs of each tab host in tab order.
const std::vector<Category>& Categories() {
    static const std::vector<Category> categories = {
        {IDC_MENU_ABOUT, "about", {}},
        {IDC_MENU_NETWORK, "network", {"local", "wifi", "mobile", "server", "ptt", "808"}},
        {IDC_MENU_ENCODER, "encoder", {"main", "sub", "mirror", "osd"}},
        {IDC_MENU_ALARM, "alarm", {"base", "input", "output", "linkage", "gsensor", "motion"}},
        {IDC_MENU_SERIAL, "serial", {"ports", "ptz", "led", "ic-card"}},
        {IDC_MENU_PARKING, "parking", {}},
        {IDC_MENU_USER_SECURITY, "users", {}},
        {IDC_MENU_OTHER, "other", {}},
        {IDC_MENU_USER_DATA, "user-data", {}},
    };
    return categories;
}

// Dialogs that a page opens from one of its buttons, shot after that page: the button is pressed and
// the dialog saved under the shot's name, then closed with Enter.
struct DialogShot {
    const char* afterShot;
    const char* name;
    int button;  // on the shown tab's page
};
const DialogShot kDialogShots[] = {
    {"04-alarm-3-linkage", "04-alarm-3-linkage-record-picker", IDC_LINKAGE_RECORD_FIRST},
    {"04-alarm-3-linkage", "04-alarm-3-linkage-snapshot-picker", IDC_LINKAGE_SNAPSHOT_FIRST},
    {"04-alarm-5-motion", "04-alarm-5-motion-area-grid", IDC_VMD_AREA},
};

ScreenshotTour* runningTour = nullptr;

BOOL CALLBACK FindVisibleDialog(HWND window, LPARAM found) {
    wchar_t name[16] = {};
    GetClassNameW(window, name, 16);
    if (lstrcmpW(name, L"#32770") != 0 || !IsWindowVisible(window)) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

// A modal box of this thread: a message tip, or a message box a page opened.
HWND OpenBox() {
    HWND found = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), FindVisibleDialog, reinterpret_cast<LPARAM>(&found));
    return found;
}

bool PngEncoder(CLSID& encoder) {
    UINT count = 0;
    UINT size = 0;
    if (Gdiplus::GetImageEncodersSize(&count, &size) != Gdiplus::Ok || size == 0) return false;
    std::vector<unsigned char> buffer(size);
    auto* codecs = reinterpret_cast<Gdiplus::ImageCodecInfo*>(buffer.data());
    if (Gdiplus::GetImageEncoders(count, size, codecs) != Gdiplus::Ok) return false;
    for (UINT i = 0; i < count; ++i) {
        if (lstrcmpW(codecs[i].MimeType, L"image/png") == 0) {
            encoder = codecs[i].Clsid;
            return true;
        }
    }
    return false;
}

// What is on screen of the window: its client area, or all of it for a box of its own.
bool SaveWindowAsPng(HWND window, bool clientAreaOnly, const std::wstring& file) {
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    RECT area{};
    if (clientAreaOnly) {
        GetClientRect(window, &area);
    } else {
        GetWindowRect(window, &area);
    }
    const int width = area.right - area.left;
    const int height = area.bottom - area.top;
    if (width <= 0 || height <= 0) return false;

    HDC source = clientAreaOnly ? GetDC(window) : GetWindowDC(window);
    HDC memory = CreateCompatibleDC(source);
    HBITMAP bitmap = CreateCompatibleBitmap(source, width, height);
    HGDIOBJ previous = SelectObject(memory, bitmap);
    const bool copied = BitBlt(memory, 0, 0, width, height, source, 0, 0, SRCCOPY | CAPTUREBLT) != FALSE;
    SelectObject(memory, previous);
    DeleteDC(memory);
    ReleaseDC(window, source);

    bool saved = false;
    CLSID encoder{};
    if (copied && PngEncoder(encoder)) {
        Gdiplus::Bitmap image(bitmap, nullptr);
        saved = image.Save(file.c_str(), &encoder, nullptr) == Gdiplus::Ok;
    }
    DeleteObject(bitmap);
    return saved;
}

}  // namespace

ScreenshotTour::ScreenshotTour(std::wstring folder) : folder_(std::move(folder)) {
    for (std::size_t c = 0; c < Categories().size(); ++c) {
        const Category& category = Categories()[c];
        char number[8];
        std::snprintf(number, sizeof number, "%02u-", static_cast<unsigned>(c + 1));
        const std::string prefix = number + std::string(category.name);
        if (category.tabs.empty()) shots_.push_back({prefix, category.menuButton, -1, true});
        for (std::size_t t = 0; t < category.tabs.size(); ++t) {
            const std::string name = prefix + "-" + std::to_string(t) + "-" + category.tabs[t];
            shots_.push_back({name, category.menuButton, static_cast<int>(t), t == 0});
            for (const DialogShot& dialog : kDialogShots) {
                if (name == dialog.afterShot) {
                    shots_.push_back({dialog.name, category.menuButton, static_cast<int>(t), false, dialog.button});
                }
            }
        }
    }
}

ScreenshotTour::~ScreenshotTour() {
    if (timer_ != 0) KillTimer(nullptr, timer_);
    if (runningTour == this) runningTour = nullptr;
    if (gdiplusToken_ != 0) Gdiplus::GdiplusShutdown(gdiplusToken_);
}

bool ScreenshotTour::Start(HWND host) {
    if (runningTour != nullptr) return false;
    std::error_code error;
    folder_ = std::filesystem::absolute(folder_, error).wstring();
    std::filesystem::create_directories(folder_, error);
    if (!std::filesystem::is_directory(folder_, error)) {
        problem_ = "cannot make the folder " + ToSystemCodePage(folder_);
        return false;
    }
    Gdiplus::GdiplusStartupInput input;
    if (Gdiplus::GdiplusStartup(&gdiplusToken_, &input, nullptr) != Gdiplus::Ok) {
        problem_ = "GDI+ did not start";
        return false;
    }
    host_ = host;
    deadline_ = std::chrono::steady_clock::now() + kTimeLimit;
    runningTour = this;
    timer_ = SetTimer(nullptr, 0, kTickMs, OnTimer);
    return timer_ != 0;
}

void CALLBACK ScreenshotTour::OnTimer(HWND, UINT, UINT_PTR, DWORD) {
    if (runningTour != nullptr) runningTour->Tick();
}

void ScreenshotTour::Tick() {
    if (finished_) return;
    if (std::chrono::steady_clock::now() > deadline_) {
        Finish("the tour did not end within " + std::to_string(kTimeLimit.count()) + " s, at " + shots_[next_].name);
        return;
    }
    // This tick may run inside a tip's modal loop, while a button press below has not returned.
    if (HWND box = OpenBox()) {
        HandleBox(box);
        return;
    }
    answeredBox_ = nullptr;
    if (acting_) return;
    if (!PanelParts(host_).Found()) return;  // the plug-in has not shown its panel yet
    if (!captureDue_) {
        TakeAction();
        return;
    }
    captureDue_ = false;
    if (!Save(host_, true, shots_[next_].name)) return;
    if (++next_ == shots_.size()) Finish({});
}

void ScreenshotTour::TakeAction() {
    const Shot& shot = shots_[next_];
    boxName_ = shot.name;
    boxesOfShot_ = 0;
    acting_ = true;
    const PanelParts parts(host_);
    if (shot.pageButton != 0) {
        // Returns when the dialog it opens has been saved and closed.
        SendDlgItemMessageW(parts.ShownTabPage(), shot.pageButton, BM_CLICK, 0, 0);
        acting_ = false;
        if (++next_ == shots_.size()) Finish({});
        return;
    }
    if (shot.firstOfCategory) parts.PressMenuButton(shot.menuButton);
    if (shot.tab >= 0 && parts.SelectedTab() != shot.tab) parts.SelectTab(shot.tab);
    acting_ = false;
    captureDue_ = true;
}

void ScreenshotTour::HandleBox(HWND box) {
    if (box == answeredBox_) {
        // Enter did not close it: close it as its close box would.
        PostMessageW(box, WM_CLOSE, 0, 0);
        return;
    }
    answeredBox_ = box;
    ++boxesOfShot_;
    const bool opened = shots_[next_].pageButton != 0 && boxesOfShot_ == 1;
    const std::string suffix = opened ? "" : boxesOfShot_ > 1 ? "-tip-" + std::to_string(boxesOfShot_) : "-tip";
    if (!Save(box, false, boxName_ + suffix)) return;
    HWND focus = GetFocus();
    HWND target = focus != nullptr && (focus == box || IsChild(box, focus)) ? focus : box;
    PostMessageW(target, WM_KEYDOWN, VK_RETURN, 1);
    PostMessageW(target, WM_KEYUP, VK_RETURN, static_cast<LPARAM>(0xC0000001u));
}

bool ScreenshotTour::Save(HWND window, bool clientAreaOnly, const std::string& name) {
    const std::wstring file = (std::filesystem::path(folder_) / (name + ".png")).wstring();
    if (!SaveWindowAsPng(window, clientAreaOnly, file)) {
        Finish("cannot save " + ToSystemCodePage(file));
        return false;
    }
    written_.push_back(file);
    std::printf("%s\n", ToSystemCodePage(file).c_str());
    std::fflush(stdout);
    return true;
}

void ScreenshotTour::Finish(const std::string& problem) {
    finished_ = true;
    problem_ = problem;
    KillTimer(nullptr, timer_);
    timer_ = 0;
    runningTour = nullptr;
    // Also ends a tip's modal loop, should one still be open: it passes the quit message on.
    PostQuitMessage(problem.empty() ? 0 : 1);
}

}  // namespace varcfg::host
