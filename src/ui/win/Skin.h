// The panel's look: flat colours from the path manager's colour set, and owner-drawn buttons with the
// theme's images. Every Dialog asks the skin for its control colours.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace varcfg {

// Parents reflect WM_DRAWITEM to the owner-drawn control itself under this message number.
constexpr UINT kReflectedDrawItem = WM_USER + 0x1c00 + WM_DRAWITEM;

// What a dialog is to the skin, which picks its background and text colours:
//   Page        m_dwRGBDlgPopupBaseBK behind m_dwRGBTextColor (the default for every dialog)
//   Popup       m_dwRGBDlgPopupBaseBK behind m_dwRGBDlgPopupBaseCtrlText
//   MenuColumn  m_dwRGBDlgLeft behind m_dwRGBTextColor
enum class SkinSurface { Page, Popup, MenuColumn };
void SetSkinSurface(HWND dialog, SkinSurface surface);
// Gives the dialog's group boxes the look of the skin: a frame and caption on the dialog's background.
void SkinGroupBoxes(HWND dialog);

// Brush and text colours for WM_CTLCOLOR* messages of a dialog; null for the system's default.
HBRUSH SkinControlColour(UINT message, HDC dc, HWND control);

// A popup's frame: one pixel of m_dwRGBDlgPopupBase round rect, m_dwRGBDlgPopupBaseBK inside it.
void DrawPopupFrame(HDC dc, const RECT& rect);

// Places buttons side by side, left to right in the order given, gap pixels apart, the row centred in
// area (client coordinates of their parent). Each button keeps its size.
void ArrangeButtonRow(const std::vector<HWND>& buttons, const RECT& area, int gap);

// A standard BUTTON made owner-drawn (so keyboard, focus and BM_CLICK keep working) and drawn with the
// skin: image buttons with a normal and a hover/checked image of the theme, or flat text buttons.
//
// Colours: a flat button is filled with the accent m_dwRGBCheckState (lighter on hover, darker when
// pressed or checked) and its caption is m_dwRGBBtnHilightText2, the text on the accent. An image
// button's caption is m_dwRGBBtnNormalText on the normal image, m_dwRGBBtnOverText on the hover image
// and m_dwRGBBtnHilightText when checked. Disabled captions are m_dwRGBBtnDisabledText.
class SkinButton {
public:
    SkinButton() = default;
    ~SkinButton();
    SkinButton(const SkinButton&) = delete;
    SkinButton& operator=(const SkinButton&) = delete;

    // Takes over the button id of dialog. Image names are resolved in the theme folder; without images
    // (or when either is missing) the button is drawn flat.
    void Attach(HWND dialog, int id, const std::wstring& normalImage = L"", const std::wstring& hoverImage = L"");
    HWND Hwnd() const { return button_; }

    // A checked button shows its hover image (or the pressed fill), as the selected menu entry does.
    // BM_SETCHECK and BM_GETCHECK sent to the button reach the same state.
    void SetChecked(bool checked);
    bool IsChecked() const { return checked_; }

private:
    static LRESULT CALLBACK SubclassProc(HWND, UINT, WPARAM, LPARAM, UINT_PTR, DWORD_PTR);
    void Detach();
    void Draw(const DRAWITEMSTRUCT& item) const;

    HWND button_ = nullptr;
    std::wstring normalImagePath_;
    std::wstring hoverImagePath_;
    bool hover_ = false;
    bool checked_ = false;
};

}  // namespace varcfg
