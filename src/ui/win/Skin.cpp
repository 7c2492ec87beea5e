#include "ui/win/Skin.h"

#include <commctrl.h>
#include <objidl.h>

#include <algorithm>
// Microsoft's GDI+ headers call min and max unqualified, and NOMINMAX removes the macros.
namespace Gdiplus {
using std::max;
using std::min;
}  // namespace Gdiplus
#include <gdiplus.h>

#include <cstdint>
#include <iterator>
#include <map>
#include <memory>

#include "ui/PathManager.h"

namespace varcfg {
namespace {

constexpr UINT_PTR kSkinButtonSubclassId = 1;

// Colour values of the path manager have red in the low byte, as COLORREF does.
COLORREF Colour(uint32_t rgb) { return static_cast<COLORREF>(rgb & 0xFFFFFF); }

// weight 0 gives from, 255 gives to.
COLORREF Blend(COLORREF from, COLORREF to, int weight) {
    const auto mix = [weight](int a, int b) { return static_cast<BYTE>(a + (b - a) * weight / 255); };
    return RGB(mix(GetRValue(from), GetRValue(to)), mix(GetGValue(from), GetGValue(to)),
               mix(GetBValue(from), GetBValue(to)));
}

const ColourConfig& Colours() { return CPathManager::Instance().Colours(); }

// WM_CTLCOLOR* asks for a brush on every paint of every control: one brush per colour, kept until the
// module goes away.
class BrushCache {
public:
    ~BrushCache() {
        for (const auto& entry : brushes_) DeleteObject(entry.second);
    }
    HBRUSH Get(COLORREF colour) {
        HBRUSH& brush = brushes_[colour];
        if (brush == nullptr) brush = CreateSolidBrush(colour);
        return brush;
    }

private:
    std::map<COLORREF, HBRUSH> brushes_;
};

HBRUSH SolidBrush(COLORREF colour) {
    static BrushCache cache;
    return cache.Get(colour);
}

// The property holding a dialog's surface, named by an atom so that setting it takes no atom reference.
const wchar_t* SurfaceProperty() {
    static const ATOM atom = GlobalAddAtomW(L"varcfg.SkinSurface");
    return MAKEINTATOM(atom);
}

SkinSurface SurfaceOf(HWND dialog) {
    return static_cast<SkinSurface>(reinterpret_cast<INT_PTR>(GetPropW(dialog, SurfaceProperty())));
}

struct SurfaceColours {
    COLORREF background;
    COLORREF text;
};

SurfaceColours ColoursOf(SkinSurface surface) {
    const ColourConfig& c = Colours();
    switch (surface) {
    case SkinSurface::Popup:
        return {Colour(c.m_dwRGBDlgPopupBaseBK), Colour(c.m_dwRGBDlgPopupBaseCtrlText)};
    case SkinSurface::MenuColumn:
        return {Colour(c.m_dwRGBDlgLeft), Colour(c.m_dwRGBTextColor)};
    case SkinSurface::Page:
        break;
    }
    return {Colour(c.m_dwRGBDlgPopupBaseBK), Colour(c.m_dwRGBTextColor)};
}

bool HasClass(HWND window, const wchar_t* className) {
    wchar_t name[32] = {};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    return CompareStringOrdinal(name, -1, className, -1, TRUE) == CSTR_EQUAL;
}

bool IsGroupBox(HWND control) {
    return HasClass(control, WC_BUTTONW) && (GetWindowLongPtrW(control, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX;
}

HBRUSH Paint(HDC dc, COLORREF text, COLORREF background) {
    SetTextColor(dc, text);
    SetBkColor(dc, background);
    return SolidBrush(background);
}

// Theme images, read once per path. GDI+ is started on the first image and left running: shutting it
// down is not allowed while the loader lock is held, which is when a DLL's statics are destroyed.
class ImageStore {
public:
    static ImageStore& Instance() {
        static ImageStore store;
        return store;
    }

    // Null when the file cannot be read as an image; a failed read is not retried.
    Gdiplus::Bitmap* Get(const std::wstring& path) {
        if (!started_ || path.empty()) return nullptr;
        auto found = images_.find(path);
        if (found == images_.end()) found = images_.emplace(path, Load(path)).first;
        return found->second.get();
    }

private:
    ImageStore() {
        Gdiplus::GdiplusStartupInput input;
        ULONG_PTR token = 0;
        started_ = Gdiplus::GdiplusStartup(&token, &input, nullptr) == Gdiplus::Ok;
    }

    // A copy in memory, so the theme file is not kept open, in the format GDI+ draws fastest.
    static std::unique_ptr<Gdiplus::Bitmap> Load(const std::wstring& path) {
        Gdiplus::Bitmap file(path.c_str());
        if (file.GetLastStatus() != Gdiplus::Ok) return nullptr;
        const INT width = static_cast<INT>(file.GetWidth());
        const INT height = static_cast<INT>(file.GetHeight());
        if (width <= 0 || height <= 0) return nullptr;
        auto copy = std::make_unique<Gdiplus::Bitmap>(width, height, PixelFormat32bppPARGB);
        Gdiplus::Graphics graphics(copy.get());
        if (graphics.DrawImage(&file, 0, 0, width, height) != Gdiplus::Ok) return nullptr;
        return copy;
    }

    bool started_ = false;
    std::map<std::wstring, std::unique_ptr<Gdiplus::Bitmap>> images_;
};

void DrawStretched(HDC dc, Gdiplus::Bitmap& image, int width, int height) {
    Gdiplus::Graphics graphics(dc);
    graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
    graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
    // Mirrored edges keep the filter from fading the image's border into black.
    Gdiplus::ImageAttributes edges;
    edges.SetWrapMode(Gdiplus::WrapModeTileFlipXY);
    graphics.DrawImage(&image, Gdiplus::Rect(0, 0, width, height), 0, 0, static_cast<INT>(image.GetWidth()),
                       static_cast<INT>(image.GetHeight()), Gdiplus::UnitPixel, &edges);
}

void Fill(HDC dc, const RECT& rect, COLORREF colour) { FillRect(dc, &rect, SolidBrush(colour)); }

// A group box paints its frame and caption but not its inside, and the dialog, which clips its
// children, does not paint under it: the inside showed whatever the window system left there. Erased
// with the brush the dialog gives its statics, it has the dialog's background, like the labels in it.
LRESULT CALLBACK GroupBoxProc(HWND groupBox, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
    if (message == WM_ERASEBKGND) {
        HDC dc = reinterpret_cast<HDC>(wParam);
        auto brush = reinterpret_cast<HBRUSH>(SendMessageW(GetParent(groupBox), WM_CTLCOLORSTATIC, wParam,
                                                           reinterpret_cast<LPARAM>(groupBox)));
        if (brush == nullptr) return DefSubclassProc(groupBox, message, wParam, lParam);
        RECT inside{};
        GetClientRect(groupBox, &inside);
        FillRect(dc, &inside, brush);
        return 1;
    }
    if (message == WM_NCDESTROY) RemoveWindowSubclass(groupBox, GroupBoxProc, 0);
    return DefSubclassProc(groupBox, message, wParam, lParam);
}

}  // namespace

void SkinGroupBoxes(HWND dialog) {
    for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        if (IsGroupBox(child)) SetWindowSubclass(child, GroupBoxProc, 0, 0);
    }
}

void SetSkinSurface(HWND dialog, SkinSurface surface) {
    if (surface == SkinSurface::Page) {
        RemovePropW(dialog, SurfaceProperty());
    } else {
        SetPropW(dialog, SurfaceProperty(), reinterpret_cast<HANDLE>(static_cast<INT_PTR>(surface)));
    }
}

HBRUSH SkinControlColour(UINT message, HDC dc, HWND control) {
    const ColourConfig& c = Colours();
    switch (message) {
    case WM_CTLCOLORDLG: {
        const SurfaceColours surface = ColoursOf(SurfaceOf(control));
        return Paint(dc, surface.text, surface.background);
    }
    case WM_CTLCOLORSTATIC: {
        // Read-only and disabled edits ask as statics but should still look like fields.
        if (HasClass(control, WC_EDITW)) return Paint(dc, Colour(c.m_dwRGBEditText), Colour(c.m_dwRGBEditTextBKDisabled));
        const SurfaceColours surface = ColoursOf(SurfaceOf(GetParent(control)));
        return Paint(dc, IsGroupBox(control) ? Colour(c.m_dwRGBGroupText) : surface.text, surface.background);
    }
    case WM_CTLCOLORBTN: {
        // Only the corners of push buttons show it: they blend into the dialog.
        const SurfaceColours surface = ColoursOf(SurfaceOf(GetParent(control)));
        return Paint(dc, surface.text, surface.background);
    }
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
        return Paint(dc, Colour(c.m_dwRGBEditText), Colour(c.m_dwRGBEditTextBK));
    default:
        return nullptr;
    }
}

void DrawPopupFrame(HDC dc, const RECT& rect) {
    const ColourConfig& c = Colours();
    FrameRect(dc, &rect, SolidBrush(Colour(c.m_dwRGBDlgPopupBase)));
    RECT inside = rect;
    InflateRect(&inside, -1, -1);
    Fill(dc, inside, Colour(c.m_dwRGBDlgPopupBaseBK));
}

void ArrangeButtonRow(const std::vector<HWND>& buttons, const RECT& area, int gap) {
    if (buttons.empty()) return;
    std::vector<SIZE> sizes;
    int rowWidth = gap * static_cast<int>(buttons.size() - 1);
    for (HWND button : buttons) {
        RECT rect{};
        GetWindowRect(button, &rect);
        sizes.push_back({rect.right - rect.left, rect.bottom - rect.top});
        rowWidth += sizes.back().cx;
    }
    int left = area.left + (area.right - area.left - rowWidth) / 2;
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        const int top = area.top + (area.bottom - area.top - sizes[i].cy) / 2;
        SetWindowPos(buttons[i], nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        left += sizes[i].cx + gap;
    }
}

SkinButton::~SkinButton() { Detach(); }

void SkinButton::Attach(HWND dialog, int id, const std::wstring& normalImage, const std::wstring& hoverImage) {
    Detach();
    button_ = GetDlgItem(dialog, id);
    if (button_ == nullptr) return;
    const CPathManager& paths = CPathManager::Instance();
    normalImagePath_ = paths.ResolveImagePath(normalImage, true);
    hoverImagePath_ = paths.ResolveImagePath(hoverImage, true);
    const LONG_PTR style = GetWindowLongPtrW(button_, GWL_STYLE);
    SetWindowLongPtrW(button_, GWL_STYLE, (style & ~static_cast<LONG_PTR>(BS_TYPEMASK)) | BS_OWNERDRAW);
    SetWindowSubclass(button_, SubclassProc, kSkinButtonSubclassId, reinterpret_cast<DWORD_PTR>(this));
    InvalidateRect(button_, nullptr, TRUE);
}

void SkinButton::Detach() {
    if (button_ != nullptr) RemoveWindowSubclass(button_, SubclassProc, kSkinButtonSubclassId);
    button_ = nullptr;
    hover_ = false;
}

void SkinButton::SetChecked(bool checked) {
    if (checked_ == checked) return;
    checked_ = checked;
    if (button_ != nullptr) InvalidateRect(button_, nullptr, FALSE);
}

LRESULT CALLBACK SkinButton::SubclassProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                          DWORD_PTR data) {
    SkinButton& self = *reinterpret_cast<SkinButton*>(data);
    switch (message) {
    case kReflectedDrawItem:
        self.Draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        return TRUE;
    case WM_MOUSEMOVE:
        if (!self.hover_) {
            self.hover_ = true;
            TRACKMOUSEEVENT leave{sizeof(TRACKMOUSEEVENT), TME_LEAVE, window, 0};
            TrackMouseEvent(&leave);
            InvalidateRect(window, nullptr, FALSE);
        }
        break;
    case WM_MOUSELEAVE:
        self.hover_ = false;
        InvalidateRect(window, nullptr, FALSE);
        break;
    case WM_LBUTTONDBLCLK:
        // An owner-drawn button reports a quick second click as a double click, not as a click.
        message = WM_LBUTTONDOWN;
        break;
    case BM_SETCHECK:
        self.SetChecked(wParam == BST_CHECKED);
        return 0;
    case BM_GETCHECK:
        return self.checked_ ? BST_CHECKED : BST_UNCHECKED;
    case WM_NCDESTROY:
        self.Detach();
        break;
    default:
        break;
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

void SkinButton::Draw(const DRAWITEMSTRUCT& item) const {
    const int width = item.rcItem.right - item.rcItem.left;
    const int height = item.rcItem.bottom - item.rcItem.top;
    if (width <= 0 || height <= 0) return;
    const bool disabled = (item.itemState & ODS_DISABLED) != 0;
    const bool pressed = !disabled && (item.itemState & ODS_SELECTED) != 0;
    const bool lit = !disabled && (hover_ || checked_ || pressed);
    const ColourConfig& c = Colours();

    // Drawn off screen and copied at once, so hovering does not flicker.
    HDC dc = CreateCompatibleDC(item.hDC);
    HBITMAP canvas = CreateCompatibleBitmap(item.hDC, width, height);
    HGDIOBJ oldCanvas = SelectObject(dc, canvas);
    const RECT area{0, 0, width, height};

    ImageStore& images = ImageStore::Instance();
    Gdiplus::Bitmap* normalImage = images.Get(normalImagePath_);
    Gdiplus::Bitmap* hoverImage = images.Get(hoverImagePath_);
    COLORREF text = Colour(c.m_dwRGBBtnHilightText2);
    if (normalImage != nullptr && hoverImage != nullptr) {
        DrawStretched(dc, lit ? *hoverImage : *normalImage, width, height);
        text = checked_ ? Colour(c.m_dwRGBBtnHilightText)
                        : Colour(lit ? c.m_dwRGBBtnOverText : c.m_dwRGBBtnNormalText);
    } else {
        const COLORREF accent = Colour(c.m_dwRGBCheckState);
        COLORREF fill = accent;
        if (disabled) {
            fill = Blend(accent, ColoursOf(SurfaceOf(GetParent(item.hwndItem))).background, 170);
        } else if (pressed || checked_) {
            fill = Blend(accent, RGB(0, 0, 0), 50);
        } else if (hover_) {
            fill = Blend(accent, RGB(255, 255, 255), 40);
        }
        Fill(dc, area, fill);
    }
    if (disabled) text = Colour(c.m_dwRGBBtnDisabledText);

    wchar_t caption[256] = {};
    GetWindowTextW(item.hwndItem, caption, static_cast<int>(std::size(caption)));
    HGDIOBJ oldFont = SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessageW(item.hwndItem, WM_GETFONT, 0, 0)));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, text);
    RECT captionArea = area;
    InflateRect(&captionArea, -4, 0);
    UINT format = DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS;
    if ((item.itemState & ODS_NOACCEL) != 0) format |= DT_HIDEPREFIX;
    DrawTextW(dc, caption, -1, &captionArea, format);
    SelectObject(dc, oldFont);

    if ((item.itemState & ODS_FOCUS) != 0 && (item.itemState & ODS_NOFOCUSRECT) == 0) {
        RECT focus = area;
        InflateRect(&focus, -3, -3);
        SetTextColor(dc, RGB(0, 0, 0));
        SetBkColor(dc, RGB(255, 255, 255));
        DrawFocusRect(dc, &focus);
    }

    BitBlt(item.hDC, item.rcItem.left, item.rcItem.top, width, height, dc, 0, 0, SRCCOPY);
    SelectObject(dc, oldCanvas);
    DeleteObject(canvas);
    DeleteDC(dc);
}

}  // namespace varcfg
