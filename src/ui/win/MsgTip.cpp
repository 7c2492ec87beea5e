#include "ui/win/MsgTip.h"

#include <algorithm>
#include <vector>

#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"

namespace varcfg {
namespace {

// Button captions of the language table.
constexpr uint32_t kTextYes = 11000;
constexpr uint32_t kTextNo = 11001;
constexpr uint32_t kTextOk = 11002;
constexpr uint32_t kTextCancel = 11003;

constexpr int kButtonsAboveBottom = 12;  // pixels between the buttons and the bottom edge
constexpr int kButtonGap = 10;
constexpr int kCaptionPadding = 16;  // on each side of a caption

// The buttons a type shows, from left to right, with their captions.
std::vector<Caption> ButtonsOf(int type) {
    switch (type) {
    case kTipConfirmCancel:
        return {{IDOK, kTextOk}, {IDCANCEL, kTextCancel}};
    case kTipYesNoCancel:
        return {{IDOK, kTextYes}, {IDNO, kTextNo}, {IDCANCEL, kTextCancel}};
    default:
        return {{IDOK, kTextOk}};
    }
}

int Width(const RECT& rect) { return rect.right - rect.left; }
int Height(const RECT& rect) { return rect.bottom - rect.top; }

// A child's rectangle in its parent's client coordinates.
RECT ChildRect(HWND child) {
    RECT rect{};
    GetWindowRect(child, &rect);
    MapWindowPoints(nullptr, GetParent(child), reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

// The extent of text in control's font; width 0 measures one line, otherwise the text is wrapped as a
// multi-line static wraps it at that width.
SIZE MeasureText(HWND control, const std::wstring& text, int width) {
    HDC dc = GetDC(control);
    HGDIOBJ oldFont = SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessageW(control, WM_GETFONT, 0, 0)));
    RECT rect{0, 0, width, 0};
    const UINT format = width > 0 ? DT_LEFT | DT_WORDBREAK | DT_EDITCONTROL | DT_EXPANDTABS | DT_NOPREFIX
                                  : DT_LEFT | DT_SINGLELINE;
    DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &rect, DT_CALCRECT | format);
    SelectObject(dc, oldFont);
    ReleaseDC(control, dc);
    return {Width(rect), Height(rect)};
}

// Over the owner when it is on screen, else in the middle of the primary screen; inside the monitor.
POINT CentredPosition(HWND owner, int width, int height) {
    RECT around{};
    const bool overOwner = owner != nullptr && IsWindowVisible(owner) && !IsIconic(owner);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    if (overOwner) {
        GetWindowRect(owner, &around);
        GetMonitorInfoW(MonitorFromRect(&around, MONITOR_DEFAULTTOPRIMARY), &monitor);
    } else {
        GetMonitorInfoW(MonitorFromPoint(POINT{0, 0}, MONITOR_DEFAULTTOPRIMARY), &monitor);
        around = monitor.rcWork;
    }
    const RECT& screen = monitor.rcMonitor;
    const int left = around.left + (Width(around) - width) / 2;
    const int top = around.top + (Height(around) - height) / 2;
    return {std::max<int>(screen.left, std::min<int>(left, screen.right - width)),
            std::max<int>(screen.top, std::min<int>(top, screen.bottom - height))};
}

}  // namespace

int ShowMsgTip(const std::wstring& text, int type) {
    CDlgMsgTip tip(type);
    tip.SetMessage(text);
    return static_cast<int>(tip.RunModal(GetActiveWindow()));
}

CDlgMsgTip::CDlgMsgTip(int type) : Dialog(IDD_MSGTIP), type_(type) {}

void CDlgMsgTip::SetMessage(const std::wstring& text, const std::wstring& title) {
    text_ = text;
    title_ = title;
}

BOOL CDlgMsgTip::OnInitDialog() {
    HWND window = Hwnd();
    SetSkinSurface(window, SkinSurface::Popup);
    SetWindowTextW(window, title_.c_str());
    SetItemText(window, IDC_TIP_TEXT, text_);
    confirm_.Attach(window, IDOK);
    no_.Attach(window, IDNO);
    cancel_.Attach(window, IDCANCEL);
    for (int id : {IDOK, IDNO, IDCANCEL}) ShowItem(window, id, false);
    for (const Caption& button : ButtonsOf(type_)) {
        SetItemText(window, button.control, CLanguage::Instance().Text(button.textId));
    }
    FitToText();
    PlaceButtons();
    SendMessageW(window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Item(IDOK)), TRUE);
    return FALSE;  // the focus is set
}

void CDlgMsgTip::FitToText() {
    HWND window = Hwnd();
    HWND message = Item(IDC_TIP_TEXT);

    // Buttons grow to their captions, as a translation may be longer than the template allows for.
    int rowWidth = -kButtonGap;
    for (const Caption& button : ButtonsOf(type_)) {
        HWND control = Item(button.control);
        RECT rect = ChildRect(control);
        const int width = std::max<int>(Width(rect), MeasureText(control, ItemText(window, button.control), 0).cx +
                                                         2 * kCaptionPadding);
        SetWindowPos(control, nullptr, 0, 0, width, Height(rect), SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        rowWidth += width + kButtonGap;
    }

    // The template's message area is the smallest; its margins are kept as the box grows.
    RECT box{};
    GetWindowRect(window, &box);
    RECT client{};
    GetClientRect(window, &client);
    const RECT area = ChildRect(message);
    const int widthBesideText = Width(box) - Width(area);
    const int heightBesideText = Height(box) - Height(area);
    const int screenWidth = GetSystemMetrics(SM_CXSCREEN);
    const int screenHeight = GetSystemMetrics(SM_CYSCREEN);
    const int maxTextWidth = std::max(1, screenWidth - widthBesideText);
    const int maxTextHeight = std::max(1, screenHeight - heightBesideText);
    // The button row keeps the message's side margins.
    const int textWidthForRow = rowWidth + 2 * area.left - (Width(client) - Width(area));

    int textWidth = std::min(std::max<int>(Width(area), textWidthForRow), maxTextWidth);
    int textHeight = MeasureText(message, text_, textWidth).cy;
    // A long message widens the box a quarter at a time while it is taller than half its width, so it
    // reads as lines across a box rather than down a narrow column.
    while (textHeight > std::max<int>(Height(area), textWidth / 2) && textWidth < maxTextWidth) {
        textWidth = std::min(maxTextWidth, textWidth + std::max(1, textWidth / 4));
        textHeight = MeasureText(message, text_, textWidth).cy;
    }
    const int areaHeight = std::min(std::max<int>(textHeight, Height(area)), maxTextHeight);
    const int shownHeight = std::min(std::max(textHeight, 1), areaHeight);
    // A short message sits in the middle of its area rather than at the top.
    SetWindowPos(message, nullptr, area.left, area.top + (areaHeight - shownHeight) / 2, textWidth, shownHeight,
                 SWP_NOZORDER | SWP_NOACTIVATE);

    const int width = std::min(widthBesideText + textWidth, screenWidth);
    const int height = std::min(heightBesideText + areaHeight, screenHeight);
    const POINT position = CentredPosition(GetWindow(window, GW_OWNER), width, height);
    SetWindowPos(window, nullptr, position.x, position.y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void CDlgMsgTip::PlaceButtons() {
    std::vector<HWND> row;
    for (const Caption& button : ButtonsOf(type_)) row.push_back(Item(button.control));
    RECT client{};
    GetClientRect(Hwnd(), &client);
    const int buttonHeight = Height(ChildRect(row.front()));
    const RECT strip{client.left, client.bottom - kButtonsAboveBottom - buttonHeight, client.right,
                     client.bottom - kButtonsAboveBottom};
    ArrangeButtonRow(row, strip, kButtonGap);
    for (HWND button : row) ShowWindow(button, SW_SHOW);
}

bool CDlgMsgTip::Shows(int buttonId) const {
    const std::vector<Caption> buttons = ButtonsOf(type_);
    return std::any_of(buttons.begin(), buttons.end(),
                       [buttonId](const Caption& button) { return button.control == buttonId; });
}

void CDlgMsgTip::Close(int buttonId) {
    // Escape cancels every type, also those without a cancel button.
    if (buttonId != IDCANCEL && !Shows(buttonId)) return;
    switch (type_) {
    case kTipConfirmCancel:
        EndDialog(buttonId == IDOK ? IDOK : IDCANCEL);
        break;
    case kTipYesNoCancel:
        EndDialog(buttonId == IDOK ? IDYES : buttonId);
        break;
    case kTipConfirmTakeData:
        if (UpdateData(true)) EndDialog(IDYES);
        break;
    default:
        EndDialog(IDOK);
        break;
    }
}

void CDlgMsgTip::OnCommand(int id, int code) {
    if (id == IDOK || id == IDNO || id == IDCANCEL) {
        if (code == BN_CLICKED) Close(id);
        return;
    }
    Dialog::OnCommand(id, code);
}

BOOL CDlgMsgTip::PreTranslateMessage(MSG* message) {
    if (message->message == WM_KEYDOWN && (message->wParam == VK_RETURN || message->wParam == VK_SPACE)) {
        Close(IDOK);
        return TRUE;
    }
    return FALSE;
}

bool CDlgMsgTip::OnMessage(UINT message, WPARAM, LPARAM, LRESULT& result) {
    if (message != WM_PAINT) return false;
    PAINTSTRUCT paint{};
    HDC dc = BeginPaint(Hwnd(), &paint);
    RECT client{};
    GetClientRect(Hwnd(), &client);
    DrawPopupFrame(dc, client);
    EndPaint(Hwnd(), &paint);
    result = 0;
    return true;
}

}  // namespace varcfg
