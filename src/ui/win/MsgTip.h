// The message tip: a small skinned modal box that tells the user a result or a refused input, and the
// one function that shows it.
#pragma once

#include <string>

#include "ui/win/Dialog.h"
#include "ui/win/Skin.h"

namespace varcfg {

// Tip types and their buttons.
enum MsgTipType : int {
    kTipConfirm = 0,           // confirm only: confirm and cancel/Escape both return 1
    kTipConfirmCancel = 1,     // confirm 1, cancel 2
    kTipYesNoCancel = 3,       // confirm 6, no 7, cancel 2
    kTipConfirmTakeData = 4,   // as type 0, but returns 6 after taking the dialog data in
};

// Shows text in a tip of the given type over the thread's active window (or over no window) and waits
// until the user closes it. Returns the code of the button used (see MsgTipType).
int ShowMsgTip(const std::wstring& text, int type = kTipConfirm);

// The tip itself. The message is the window text of its static control, so screen readers and UI
// automation read it; the box grows to fit the message, up to the size of the primary screen. Enter
// and Space act as confirm whichever button has the focus; Escape acts as cancel. Types other than
// those above behave as type 0.
class CDlgMsgTip : public Dialog {
public:
    explicit CDlgMsgTip(int type);

    // Sets the message and the window title (the tip draws no title bar; the title is for assistive
    // tools). Call before RunModal.
    void SetMessage(const std::wstring& text, const std::wstring& title = std::wstring());

protected:
    BOOL OnInitDialog() override;
    void OnCommand(int id, int code) override;
    BOOL PreTranslateMessage(MSG* message) override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

private:
    bool Shows(int buttonId) const;
    void Close(int buttonId);
    // Sizes the buttons to their captions, then the box and the message to the text; centres the box.
    void FitToText();
    int MeasureTextHeight(int width) const;
    void PlaceButtons();

    int type_;
    std::wstring text_;
    std::wstring title_;
    SkinButton confirm_;
    SkinButton no_;
    SkinButton cancel_;
};

}  // namespace varcfg
