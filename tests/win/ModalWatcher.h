// Watches the modal boxes that the code under test opens on this thread (message tips, message boxes,
// validation messages): records what each box shows once it waits for the user, then answers it with
// the next queued answer, as a user would, so that the test goes on instead of waiting for a person.
#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace varcfg::test {

struct SeenControl {
    int id = 0;
    std::wstring className;
    std::wstring text;
    bool visible = false;
    RECT rect{};           // screen coordinates
};

struct SeenWindow {
    std::wstring className;
    std::wstring title;
    RECT rect{};    // screen coordinates
    RECT client{};  // the client area, in screen coordinates
    HWND owner = nullptr;
    bool ownerEnabled = false;
    std::vector<SeenControl> controls;  // the direct children, in tab order

    const SeenControl* Control(int id) const;
    std::vector<std::wstring> StaticTexts() const;
    // The visible buttons from left to right.
    std::vector<int> VisibleButtons() const;
};

// What the user does to a box.
class Answer {
public:
    // Key presses (key down, key up) sent one after the other to the focused control.
    static Answer Keys(std::vector<UINT> virtualKeys) { return Answer(std::move(virtualKeys), 0); }
    static Answer Key(UINT virtualKey) { return Keys({virtualKey}); }
    // A click (BM_CLICK) on a visible button.
    static Answer Click(int buttonId) { return Answer({}, buttonId); }

private:
    friend class ModalWatcher;
    Answer(std::vector<UINT> keys, int buttonId) : keys_(std::move(keys)), buttonId_(buttonId) {}
    std::vector<UINT> keys_;
    int buttonId_;
};

// One watcher at a time, on the thread that opens the boxes.
class ModalWatcher {
public:
    ModalWatcher();
    ~ModalWatcher();
    ModalWatcher(const ModalWatcher&) = delete;
    ModalWatcher& operator=(const ModalWatcher&) = delete;

    // Answers the next boxes, in the order queued.
    void Queue(Answer answer);
    // Called with each live box when it is recorded, before it is answered.
    void Inspect(std::function<void(HWND box)> inspector) { inspector_ = std::move(inspector); }

    const std::vector<SeenWindow>& Seen() const { return seen_; }
    // What a user could not have done: a box with no answer left (closed with WM_CLOSE instead), a
    // click on a button that is not shown.
    const std::vector<std::wstring>& Problems() const { return problems_; }

private:
    // The first step records the box and takes the next answer; each later one is a key press or the click.
    struct Step {
        bool first;
        Answer answer;
    };

    static LRESULT CALLBACK CbtProc(int code, WPARAM wParam, LPARAM lParam);
    static void CALLBACK StepTimerProc(HWND, UINT, UINT_PTR timer, DWORD);
    void OnActivate(HWND box);
    void Schedule(HWND box, Step step);
    void Run(HWND box, Step step);

    HHOOK hook_ = nullptr;
    std::deque<Answer> answers_;
    std::function<void(HWND)> inspector_;
    std::vector<SeenWindow> seen_;
    std::vector<std::wstring> problems_;
    std::set<HWND> answered_;
    // Steps wait for a thread timer, so that they come once the box has settled and is waiting.
    std::map<UINT_PTR, std::pair<HWND, Step>> pending_;
};

}  // namespace varcfg::test
