#include "ModalWatcher.h"

#include <algorithm>

namespace varcfg::test {
namespace {

ModalWatcher* activeWatcher = nullptr;

std::wstring ClassOf(HWND window) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    return name;
}

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

bool IsClass(const std::wstring& className, const wchar_t* expected) {
    return CompareStringOrdinal(className.c_str(), -1, expected, -1, TRUE) == CSTR_EQUAL;
}

// Dialogs and message boxes are what the product opens modally.
bool IsModalBox(HWND window) { return IsClass(ClassOf(window), L"#32770"); }

SeenWindow Describe(HWND box) {
    SeenWindow seen;
    seen.className = ClassOf(box);
    seen.title = TextOf(box);
    GetWindowRect(box, &seen.rect);
    GetClientRect(box, &seen.client);
    MapWindowPoints(box, nullptr, reinterpret_cast<POINT*>(&seen.client), 2);
    seen.owner = GetWindow(box, GW_OWNER);
    seen.ownerEnabled = seen.owner != nullptr && IsWindowEnabled(seen.owner);
    for (HWND child = GetWindow(box, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        SeenControl control;
        control.id = GetDlgCtrlID(child);
        control.className = ClassOf(child);
        control.text = TextOf(child);
        control.visible = IsWindowVisible(child) != FALSE;
        GetWindowRect(child, &control.rect);
        seen.controls.push_back(control);
    }
    return seen;
}

void PressKey(HWND target, UINT key) {
    PostMessageW(target, WM_KEYDOWN, key, 1);
    PostMessageW(target, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001u));
}

}  // namespace

const SeenControl* SeenWindow::Control(int id) const {
    const auto found =
        std::find_if(controls.begin(), controls.end(), [id](const SeenControl& control) { return control.id == id; });
    return found == controls.end() ? nullptr : &*found;
}

std::vector<std::wstring> SeenWindow::StaticTexts() const {
    std::vector<std::wstring> texts;
    for (const SeenControl& control : controls) {
        if (IsClass(control.className, L"Static")) texts.push_back(control.text);
    }
    return texts;
}

std::vector<int> SeenWindow::VisibleButtons() const {
    std::vector<const SeenControl*> buttons;
    for (const SeenControl& control : controls) {
        if (control.visible && IsClass(control.className, L"Button")) buttons.push_back(&control);
    }
    std::sort(buttons.begin(), buttons.end(),
              [](const SeenControl* a, const SeenControl* b) { return a->rect.left < b->rect.left; });
    std::vector<int> ids;
    for (const SeenControl* button : buttons) ids.push_back(button->id);
    return ids;
}

ModalWatcher::ModalWatcher() {
    activeWatcher = this;
    hook_ = SetWindowsHookExW(WH_CBT, CbtProc, nullptr, GetCurrentThreadId());
}

ModalWatcher::~ModalWatcher() {
    UnhookWindowsHookEx(hook_);
    for (const auto& entry : pending_) KillTimer(nullptr, entry.first);
    activeWatcher = nullptr;
}

void ModalWatcher::Queue(Answer answer) { answers_.push_back(std::move(answer)); }

LRESULT CALLBACK ModalWatcher::CbtProc(int code, WPARAM wParam, LPARAM lParam) {
    if (activeWatcher != nullptr) {
        const auto window = reinterpret_cast<HWND>(wParam);
        if (code == HCBT_ACTIVATE && IsModalBox(window)) activeWatcher->OnActivate(window);
        if (code == HCBT_DESTROYWND) activeWatcher->answered_.erase(window);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

void ModalWatcher::OnActivate(HWND box) {
    // A box is activated again when something it opened closes; it is answered only once.
    if (!answered_.insert(box).second) return;
    // A dialog that sets its focus while it is made is activated then, before it is sized, shown and
    // modal: it is recorded later, once it waits for the user.
    Schedule(box, Step{true, Answer({}, 0)});
}

void ModalWatcher::Schedule(HWND box, Step step) {
    // Timer messages come only when the queue is otherwise empty: the box has settled, and any key
    // sent before has been handled.
    const UINT_PTR timer = SetTimer(nullptr, 0, 0, StepTimerProc);
    pending_.emplace(timer, std::make_pair(box, std::move(step)));
}

void CALLBACK ModalWatcher::StepTimerProc(HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    if (activeWatcher == nullptr) return;
    const auto found = activeWatcher->pending_.find(timer);
    if (found == activeWatcher->pending_.end()) return;
    const auto [box, step] = found->second;
    activeWatcher->pending_.erase(found);
    if (IsWindow(box)) activeWatcher->Run(box, step);
}

void ModalWatcher::Run(HWND box, Step step) {
    if (step.first) {
        seen_.push_back(Describe(box));
        if (inspector_) inspector_(box);
        if (answers_.empty()) {
            problems_.push_back(L"no answer queued for a box titled \"" + seen_.back().title + L"\"");
            PostMessageW(box, WM_CLOSE, 0, 0);
            return;
        }
        step = Step{false, std::move(answers_.front())};
        answers_.pop_front();
    }
    Answer& answer = step.answer;
    if (answer.keys_.empty()) {
        HWND button = GetDlgItem(box, answer.buttonId_);
        if (button == nullptr || !IsWindowVisible(button)) {
            problems_.push_back(L"button " + std::to_wstring(answer.buttonId_) + L" is not shown");
            PostMessageW(box, WM_CLOSE, 0, 0);
            return;
        }
        PostMessageW(button, BM_CLICK, 0, 0);
        return;
    }
    HWND focus = GetFocus();
    PressKey(focus != nullptr && (focus == box || IsChild(box, focus)) ? focus : box, answer.keys_.front());
    answer.keys_.erase(answer.keys_.begin());
    if (!answer.keys_.empty()) Schedule(box, std::move(step));
}

}  // namespace varcfg::test
