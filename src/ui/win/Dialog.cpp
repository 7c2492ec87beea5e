#include "ui/win/Dialog.h"

#include "ui/win/DataExchange.h"
#include "ui/win/ModuleState.h"
#include "ui/win/Skin.h"

namespace varcfg {

HINSTANCE ResourceModule() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&ResourceModule), &module);
    return module;
}

Dialog::~Dialog() { DestroyWindowNow(); }

void Dialog::DestroyWindowNow() {
    if (hwnd_ != nullptr) DestroyWindow(hwnd_);
}

bool Dialog::Create(HWND parent) {
    modal_ = false;
    ModuleState moduleState;
    CreateDialogParamW(ResourceModule(), MAKEINTRESOURCEW(templateId_), parent, DialogProc,
                       reinterpret_cast<LPARAM>(this));
    return hwnd_ != nullptr;
}

INT_PTR Dialog::RunModal(HWND owner) {
    // Like the classic frameworks: a modeless window with the owner disabled and a loop of our own,
    // so that messages pass through PreTranslateChain before the dialog manager sees them.
    HWND topOwner = owner != nullptr ? GetAncestor(owner, GA_ROOT) : nullptr;
    modal_ = true;
    modalEnded_ = false;
    modalResult_ = IDCANCEL;
    ModuleState moduleState;
    if (CreateDialogParamW(ResourceModule(), MAKEINTRESOURCEW(templateId_), topOwner, DialogProc,
                           reinterpret_cast<LPARAM>(this)) == nullptr) {
        return -1;
    }
    const bool ownerWasEnabled = topOwner != nullptr && IsWindowEnabled(topOwner);
    if (ownerWasEnabled) EnableWindow(topOwner, FALSE);
    ShowWindow(hwnd_, SW_SHOW);

    MSG message{};
    while (!modalEnded_) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got <= 0) {
            PostQuitMessage(static_cast<int>(message.wParam));  // leave WM_QUIT to the host's loop
            break;
        }
        if (!PreTranslateChain(&message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    if (ownerWasEnabled) EnableWindow(topOwner, TRUE);
    if (topOwner != nullptr) SetActiveWindow(topOwner);
    DestroyWindowNow();
    modal_ = false;
    return modalResult_;
}

void Dialog::EndDialog(INT_PTR result) {
    modalResult_ = result;
    modalEnded_ = true;
}

bool Dialog::UpdateData(bool save) {
    DataExchange exchange(*this, save);
    DoDataExchange(exchange);
    return !exchange.Failed();
}

Dialog* Dialog::FromHandle(HWND window) {
    if (window == nullptr) return nullptr;
    if (reinterpret_cast<DLGPROC>(GetWindowLongPtrW(window, DWLP_DLGPROC)) != DialogProc) return nullptr;
    return reinterpret_cast<Dialog*>(GetWindowLongPtrW(window, DWLP_USER));
}

BOOL Dialog::PreTranslateChain(MSG* message) {
    if (message == nullptr) return FALSE;
    Dialog* outermost = nullptr;
    for (HWND window = message->hwnd; window != nullptr; window = GetParent(window)) {
        Dialog* dialog = FromHandle(window);
        if (dialog == nullptr) continue;
        if (dialog->PreTranslateMessage(message)) return TRUE;
        outermost = dialog;
        if (dialog->modal_) break;  // a modal box does not navigate into its owner
    }
    return outermost != nullptr && IsDialogMessageW(outermost->hwnd_, message);
}

void Dialog::OnCommand(int id, int) {
    // Enter and Escape end a modal box; in a child page they must not destroy the page.
    if (modal_ && (id == IDOK || id == IDCANCEL)) EndDialog(id);
}

INT_PTR CALLBACK Dialog::DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    Dialog* dialog = nullptr;
    if (message == WM_INITDIALOG) {
        dialog = reinterpret_cast<Dialog*>(lParam);
        dialog->hwnd_ = window;
        SetWindowLongPtrW(window, DWLP_USER, lParam);
    } else {
        dialog = reinterpret_cast<Dialog*>(GetWindowLongPtrW(window, DWLP_USER));
    }
    if (dialog == nullptr) return FALSE;  // messages before WM_INITDIALOG (WM_SETFONT)

    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, DWLP_USER, 0);
        dialog->hwnd_ = nullptr;
        dialog->OnFinalMessage();  // may delete the dialog: nothing touches it after this
        return FALSE;
    }
    return dialog->HandleMessage(message, wParam, lParam);
}

INT_PTR Dialog::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG:
        SkinGroupBoxes(hwnd_);
        return OnInitDialog();
    case WM_COMMAND:
        OnCommand(LOWORD(wParam), HIWORD(wParam));
        return TRUE;
    case WM_NOTIFY:
        SetWindowLongPtrW(hwnd_, DWLP_MSGRESULT, OnNotify(reinterpret_cast<NMHDR*>(lParam)));
        return TRUE;
    case WM_TIMER:
        OnTimer(wParam);
        return TRUE;
    case WM_SIZE:
        OnSize(LOWORD(lParam), HIWORD(lParam));
        return TRUE;
    case WM_DESTROY:
        OnDestroy();
        return TRUE;
    case WM_DRAWITEM: {
        const auto* item = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        return item->CtlType == ODT_BUTTON && SendMessageW(item->hwndItem, kReflectedDrawItem, 0, lParam) != 0;
    }
    case WM_CTLCOLORDLG:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
        return reinterpret_cast<INT_PTR>(
            SkinControlColour(message, reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam)));
    default: {
        LRESULT result = 0;
        if (!OnMessage(message, wParam, lParam, result)) return FALSE;
        SetWindowLongPtrW(hwnd_, DWLP_MSGRESULT, result);
        return TRUE;
    }
    }
}

}  // namespace varcfg
