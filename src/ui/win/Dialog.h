// Dialog: a thin class over a dialog window made from a template of this module's resources.
// A page is a modeless child dialog; tips and other boxes run modally in a loop of our own, so that
// dialogs can pre-translate their keys (Enter and Space in a tip, Ctrl+M on the about page).
#pragma once

#include <windows.h>

#include <commctrl.h>

namespace varcfg {

class DataExchange;

// The module that holds this code (the DLL, or a test program that links the panel statically),
// found from an address inside it rather than from the host's process.
HINSTANCE ResourceModule();

class Dialog {
public:
    explicit Dialog(int templateId) : templateId_(templateId) {}
    virtual ~Dialog();
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;

    // Creates the dialog as a modeless child of parent (hidden unless the template says visible).
    bool Create(HWND parent);
    // Runs the dialog modally over owner and returns the code given to EndDialog.
    INT_PTR RunModal(HWND owner);
    void EndDialog(INT_PTR result);

    HWND Hwnd() const { return hwnd_; }
    HWND Item(int id) const { return GetDlgItem(hwnd_, id); }
    int TemplateId() const { return templateId_; }
    void Show(bool visible) const { ShowWindow(hwnd_, visible ? SW_SHOW : SW_HIDE); }
    bool IsVisible() const { return hwnd_ != nullptr && IsWindowVisible(hwnd_) != FALSE; }
    void Redraw() const { InvalidateRect(hwnd_, nullptr, TRUE); }
    void DestroyWindowNow();

    // Moves values between the controls and the members bound in DoDataExchange: into the members when
    // save is true. False when a field was refused (the user has been told and the field focused).
    bool UpdateData(bool save);

    // The dialog object of a window created by this class, or null.
    static Dialog* FromHandle(HWND window);
    // Offers a message to every dialog from its window up to the outermost one, then gives the
    // outermost dialog its keyboard navigation. Non-zero when the message was consumed.
    static BOOL PreTranslateChain(MSG* message);

protected:
    virtual BOOL OnInitDialog() { return TRUE; }
    virtual void OnCommand(int id, int code);
    virtual LRESULT OnNotify(NMHDR*) { return 0; }
    virtual void OnTimer(UINT_PTR) {}
    virtual void OnSize(int, int) {}
    virtual void OnDestroy() {}
    // The window is gone; an object that owns itself deletes itself here.
    virtual void OnFinalMessage() {}
    // Any other message. Return true when handled, with result set.
    virtual bool OnMessage(UINT, WPARAM, LPARAM, LRESULT&) { return false; }
    // A key or other message on its way to a window inside this dialog; true consumes it.
    virtual BOOL PreTranslateMessage(MSG*) { return FALSE; }
    virtual void DoDataExchange(DataExchange&) {}

private:
    static INT_PTR CALLBACK DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);

    HWND hwnd_ = nullptr;
    int templateId_;
    bool modal_ = false;
    bool modalEnded_ = false;
    INT_PTR modalResult_ = 0;
};

}  // namespace varcfg
