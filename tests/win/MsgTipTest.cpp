// The real message tip, driven through its keys and buttons as a user would.
#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "ModalWatcher.h"
#include "TestHostWindow.h"
#include "res/resource.h"
#include "ui/Language.h"
#include "base/Platform.h"
#include "ui/win/MsgTip.h"
#include "ui/win/WinPlatform.h"

namespace fs = std::filesystem;
using varcfg::ShowMsgTip;
using varcfg::test::Answer;
using varcfg::test::ModalWatcher;
using varcfg::test::SeenWindow;

namespace {

int Width(const RECT& rect) { return rect.right - rect.left; }
int Height(const RECT& rect) { return rect.bottom - rect.top; }
int CentreX(const RECT& rect) { return (rect.left + rect.right) / 2; }

std::wstring Words(int count) {
    std::wstring text;
    for (int i = 0; i < count; ++i) text += L"parameter" + std::to_wstring(i) + L" ";
    return text;
}

class MsgTip : public ::testing::Test {
protected:
    void TearDown() override {
        for (const std::wstring& problem : watcher.Problems()) ADD_FAILURE() << std::string(problem.begin(), problem.end());
    }

    // Shows a tip that the watcher answers; the tip must have been seen exactly once.
    int Show(const std::wstring& text, int type, Answer answer) {
        watcher.Queue(std::move(answer));
        const std::size_t seenBefore = watcher.Seen().size();
        const int result = ShowMsgTip(text, type);
        EXPECT_EQ(watcher.Seen().size(), seenBefore + 1) << "the tip was not shown";
        return result;
    }
    // The tip seen last.
    SeenWindow Tip() const { return watcher.Seen().empty() ? SeenWindow{} : watcher.Seen().back(); }

    ModalWatcher watcher;
};

// The buttons of a tip sit side by side in one row, 12 pixels above the bottom edge, and the row is
// centred.
void ExpectOneCentredRow(const SeenWindow& tip) {
    const std::vector<int> buttons = tip.VisibleButtons();
    ASSERT_FALSE(buttons.empty());
    const RECT& first = tip.Control(buttons.front())->rect;
    const RECT& last = tip.Control(buttons.back())->rect;
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        const RECT& button = tip.Control(buttons[i])->rect;
        EXPECT_EQ(button.bottom, tip.client.bottom - 12) << "button " << buttons[i];
        EXPECT_EQ(button.top, first.top) << "button " << buttons[i];
        EXPECT_GT(Width(button), 0);
        if (i > 0) {
            EXPECT_LT(tip.Control(buttons[i - 1])->rect.right, button.left) << "buttons overlap";
        }
    }
    EXPECT_NEAR((first.left + last.right) / 2, CentreX(tip.client), 1);
}

}  // namespace

// Each type shows the message as the static text of a box modal over the active window, with the
// type's buttons captioned from the language file, and answers the code of the button, key or Escape
// used; Enter and Space confirm whichever button has the focus.
TEST_F(MsgTip, EachTypeShowsItsCaptionedButtonsModallyAndAnswersItsCodes) {
    const fs::path file = fs::temp_directory_path() / L"varcfg-tip-language.ini";
    std::ofstream(file) << "[STRING]\n11000=Yes\n11001=No\n11002=OK\n11003=Cancel\n";
    struct WindowsFiles {  // the language table reads files through the installed platform
        WindowsFiles() { varcfg::InstallPlatform(&varcfg::WindowsPlatform()); }
        ~WindowsFiles() { varcfg::InstallPlatform(nullptr); }
    } windowsFiles;
    ASSERT_EQ(CLanguage::Instance().SetLanguagePath(file.wstring()), 1);
    const varcfg::test::HostWindow hostWindow;
    const HWND host = hostWindow;
    SetActiveWindow(host);
    ASSERT_EQ(GetActiveWindow(), host);
    RECT hostRect{};
    GetWindowRect(host, &hostRect);
    const std::wstring message = L"Write failed:[3],\r\nA & B at 100%";

    struct Case {
        int type;
        std::vector<std::wstring> captions;
        std::vector<int> buttons;
        std::vector<std::pair<Answer, int>> answers;
    };
    const Case cases[] = {
        {varcfg::kTipConfirm, {L"OK"}, {IDOK},
         {{Answer::Key(VK_ESCAPE), 1}, {Answer::Key(VK_RETURN), 1}, {Answer::Key(VK_SPACE), 1}, {Answer::Click(IDOK), 1}}},
        {varcfg::kTipConfirmCancel, {L"OK", L"Cancel"}, {IDOK, IDCANCEL},
         {{Answer::Click(IDCANCEL), 2}, {Answer::Key(VK_ESCAPE), 2}, {Answer::Key(VK_RETURN), 1}, {Answer::Click(IDOK), 1}}},
        {varcfg::kTipYesNoCancel, {L"Yes", L"No", L"Cancel"}, {IDOK, IDNO, IDCANCEL},
         {{Answer::Key(VK_SPACE), 6}, {Answer::Click(IDNO), 7}, {Answer::Key(VK_ESCAPE), 2}, {Answer::Click(IDCANCEL), 2},
          {Answer::Click(IDOK), 6}, {Answer::Keys({VK_TAB, VK_SPACE}), 6}, {Answer::Keys({VK_TAB, VK_TAB, VK_RETURN}), 6}}},
        {varcfg::kTipConfirmTakeData, {L"OK"}, {IDOK}, {{Answer::Key(VK_RETURN), 6}, {Answer::Key(VK_ESCAPE), 6}}},
    };
    for (const Case& c : cases) {
        for (std::size_t i = 0; i < c.answers.size(); ++i) {
            SCOPED_TRACE(::testing::Message() << "type " << c.type << ", answer " << i);
            EXPECT_EQ(Show(message, c.type, c.answers[i].first), c.answers[i].second);
            const SeenWindow tip = Tip();
            ASSERT_NE(tip.Control(IDC_TIP_TEXT), nullptr);
            EXPECT_EQ(tip.Control(IDC_TIP_TEXT)->text, message);
            EXPECT_EQ(tip.StaticTexts(), std::vector<std::wstring>{message});
            EXPECT_EQ(tip.VisibleButtons(), c.buttons);
            std::vector<std::wstring> captions;
            for (int id : tip.VisibleButtons()) captions.push_back(tip.Control(id)->text);
            EXPECT_EQ(captions, c.captions);
            ExpectOneCentredRow(tip);
            EXPECT_EQ(tip.owner, host);
            EXPECT_FALSE(tip.ownerEnabled) << "the host must be blocked while the tip is shown";
            EXPECT_NEAR(CentreX(tip.rect), CentreX(hostRect), 1);
            EXPECT_NEAR((tip.rect.top + tip.rect.bottom) / 2, (hostRect.top + hostRect.bottom) / 2, 1);
        }
    }
    EXPECT_TRUE(IsWindowEnabled(host));
    fs::remove(file);
}

TEST_F(MsgTip, TextSizesTheBoxButNeverBeyondTheScreen) {
    // An empty text still shows a tip with only the confirm button.
    EXPECT_EQ(Show(L"", varcfg::kTipConfirm, Answer::Key(VK_RETURN)), 1);
    EXPECT_EQ(Tip().StaticTexts(), std::vector<std::wstring>{L""});
    EXPECT_EQ(Tip().VisibleButtons(), std::vector<int>{IDOK});
    EXPECT_GT(Width(Tip().rect), 0);
    EXPECT_GT(Height(Tip().rect), 0);

    Show(L"Saved.", varcfg::kTipConfirm, Answer::Key(VK_RETURN));
    const RECT small = Tip().rect;

    // Everything of a long message is shown: the text fits its static control.
    int textHeight = 0, staticHeight = 0;
    watcher.Inspect([&](HWND box) {
        HWND text = GetDlgItem(box, IDC_TIP_TEXT);
        RECT area{};
        GetClientRect(text, &area);
        staticHeight = Height(area);
        HDC dc = GetDC(text);
        SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessageW(text, WM_GETFONT, 0, 0)));
        textHeight = DrawTextW(dc, Words(120).c_str(), -1, &area,
                               DT_CALCRECT | DT_WORDBREAK | DT_EDITCONTROL | DT_EXPANDTABS | DT_NOPREFIX);
        ReleaseDC(text, dc);  // which restores the common device context's font
    });
    Show(Words(120), varcfg::kTipConfirm, Answer::Key(VK_RETURN));
    watcher.Inspect(nullptr);
    const RECT grown = Tip().rect;
    EXPECT_GT(Width(grown), Width(small));
    EXPECT_GE(Height(grown), Height(small));
    EXPECT_GT(textHeight, 0);
    EXPECT_LE(textHeight, staticHeight);
    ExpectOneCentredRow(Tip());

    Show(Words(3000), varcfg::kTipConfirm, Answer::Key(VK_RETURN));
    const SeenWindow huge = Tip();
    const RECT screen{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    EXPECT_GT(Height(huge.rect), Height(grown));
    EXPECT_GE(huge.rect.left, screen.left);
    EXPECT_GE(huge.rect.top, screen.top);
    EXPECT_LE(huge.rect.right, screen.right);
    EXPECT_LE(huge.rect.bottom, screen.bottom);
    ExpectOneCentredRow(huge);
    EXPECT_LE(huge.Control(IDOK)->rect.bottom, huge.rect.bottom) << "the confirm button is still on the box";
}
