// The real message tip, driven through its keys and buttons as a user would.
#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "ModalWatcher.h"
#include "res/resource.h"
#include "ui/Language.h"
#include "ui/Platform.h"
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
    void TearDown() override { EXPECT_TRUE(watcher.Problems().empty()) << ProblemText(); }

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

    std::string ProblemText() const {
        std::string text;
        for (const std::wstring& problem : watcher.Problems()) {
            for (wchar_t c : problem) text += c < 128 ? static_cast<char>(c) : '?';
            text += '\n';
        }
        return text;
    }

    ModalWatcher watcher;
};

// The buttons of a tip sit side by side in one row, 12 pixels above the bottom edge, and the row is
// centred.
void ExpectOneCentredRow(const SeenWindow& tip) {
    const std::vector<int> buttons = tip.VisibleButtons();
    ASSERT_FALSE(buttons.empty());
    const RECT& first = tip.Control(buttons.front())->rect;
    const RECT& last = tip.Control(buttons.back())->rect;
    for (int id : buttons) {
        const RECT& button = tip.Control(id)->rect;
        EXPECT_EQ(button.bottom, tip.client.bottom - 12) << "button " << id;
        EXPECT_EQ(button.top, first.top) << "button " << id;
        EXPECT_GT(Width(button), 0);
    }
    for (std::size_t i = 1; i < buttons.size(); ++i) {
        EXPECT_LT(tip.Control(buttons[i - 1])->rect.right, tip.Control(buttons[i])->rect.left) << "buttons overlap";
    }
    EXPECT_NEAR((first.left + last.right) / 2, CentreX(tip.client), 1);
}

}  // namespace

TEST_F(MsgTip, ConfirmOnlyTipShowsOneCentredButtonAndAnswersOneHoweverClosed) {
    EXPECT_EQ(Show(L"Saved.", varcfg::kTipConfirm, Answer::Key(VK_ESCAPE)), 1);
    EXPECT_EQ(Tip().VisibleButtons(), std::vector<int>{IDOK});
    ExpectOneCentredRow(Tip());

    EXPECT_EQ(Show(L"Saved.", varcfg::kTipConfirm, Answer::Key(VK_RETURN)), 1);
    EXPECT_EQ(Show(L"Saved.", varcfg::kTipConfirm, Answer::Key(VK_SPACE)), 1);
    EXPECT_EQ(Show(L"Saved.", varcfg::kTipConfirm, Answer::Click(IDOK)), 1);
}

TEST_F(MsgTip, ConfirmCancelTipAnswersOneOrTwo) {
    EXPECT_EQ(Show(L"Discard?", varcfg::kTipConfirmCancel, Answer::Click(IDCANCEL)), 2);
    EXPECT_EQ(Tip().VisibleButtons(), (std::vector<int>{IDOK, IDCANCEL}));
    ExpectOneCentredRow(Tip());

    EXPECT_EQ(Show(L"Discard?", varcfg::kTipConfirmCancel, Answer::Key(VK_ESCAPE)), 2);
    EXPECT_EQ(Show(L"Discard?", varcfg::kTipConfirmCancel, Answer::Key(VK_RETURN)), 1);
    EXPECT_EQ(Show(L"Discard?", varcfg::kTipConfirmCancel, Answer::Click(IDOK)), 1);
}

TEST_F(MsgTip, YesNoCancelTipAnswersSixSevenOrTwo) {
    EXPECT_EQ(Show(L"Keep changes?", varcfg::kTipYesNoCancel, Answer::Key(VK_SPACE)), 6);
    EXPECT_EQ(Tip().VisibleButtons(), (std::vector<int>{IDOK, IDNO, IDCANCEL}));
    ExpectOneCentredRow(Tip());

    EXPECT_EQ(Show(L"Keep changes?", varcfg::kTipYesNoCancel, Answer::Click(IDNO)), 7);
    EXPECT_EQ(Show(L"Keep changes?", varcfg::kTipYesNoCancel, Answer::Key(VK_ESCAPE)), 2);
    EXPECT_EQ(Show(L"Keep changes?", varcfg::kTipYesNoCancel, Answer::Click(IDCANCEL)), 2);
    EXPECT_EQ(Show(L"Keep changes?", varcfg::kTipYesNoCancel, Answer::Click(IDOK)), 6);
}

TEST_F(MsgTip, EnterAndSpaceConfirmWhicheverButtonHasTheFocus) {
    // Tab moves the focus from confirm to no; the key still confirms.
    EXPECT_EQ(Show(L"Keep changes?", varcfg::kTipYesNoCancel, Answer::Keys({VK_TAB, VK_SPACE})), 6);
    EXPECT_EQ(Show(L"Keep changes?", varcfg::kTipYesNoCancel, Answer::Keys({VK_TAB, VK_TAB, VK_RETURN})), 6);
}

TEST_F(MsgTip, TakeDataTipAnswersSixEitherWay) {
    EXPECT_EQ(Show(L"Applied.", varcfg::kTipConfirmTakeData, Answer::Key(VK_RETURN)), 6);
    EXPECT_EQ(Tip().VisibleButtons(), std::vector<int>{IDOK});
    EXPECT_EQ(Show(L"Applied.", varcfg::kTipConfirmTakeData, Answer::Key(VK_ESCAPE)), 6);
}

TEST_F(MsgTip, ButtonCaptionsComeFromTheLanguageFile) {
    const fs::path file = fs::temp_directory_path() / L"varcfg-tip-language.ini";
    std::ofstream(file) << "[STRING]\n11000=Yes\n11001=No\n11002=OK\n11003=Cancel\n";
    // The language table reads files through the installed platform.
    struct WindowsFiles {
        WindowsFiles() { varcfg::InstallPlatform(&varcfg::WindowsPlatform()); }
        ~WindowsFiles() { varcfg::InstallPlatform(nullptr); }
    } windowsFiles;
    ASSERT_EQ(CLanguage::Instance().SetLanguagePath(file.wstring()), 1);

    const auto captions = [this]() {
        std::vector<std::wstring> texts;
        for (int id : Tip().VisibleButtons()) texts.push_back(Tip().Control(id)->text);
        return texts;
    };
    Show(L"", varcfg::kTipConfirm, Answer::Key(VK_RETURN));
    EXPECT_EQ(captions(), std::vector<std::wstring>{L"OK"});
    Show(L"", varcfg::kTipConfirmCancel, Answer::Key(VK_RETURN));
    EXPECT_EQ(captions(), (std::vector<std::wstring>{L"OK", L"Cancel"}));
    Show(L"", varcfg::kTipYesNoCancel, Answer::Key(VK_RETURN));
    EXPECT_EQ(captions(), (std::vector<std::wstring>{L"Yes", L"No", L"Cancel"}));
    fs::remove(file);
}

TEST_F(MsgTip, LongTextGrowsTheBoxToFitButNeverBeyondTheScreen) {
    Show(L"Saved.", varcfg::kTipConfirm, Answer::Key(VK_RETURN));
    const RECT small = Tip().rect;

    // Everything of a long message is shown: the text fits its static control.
    int textHeight = 0;
    int staticHeight = 0;
    watcher.Inspect([&](HWND box) {
        HWND text = GetDlgItem(box, IDC_TIP_TEXT);
        RECT area{};
        GetClientRect(text, &area);
        staticHeight = Height(area);
        HDC dc = GetDC(text);
        HGDIOBJ oldFont = SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessageW(text, WM_GETFONT, 0, 0)));
        const std::wstring message = Words(120);
        textHeight = DrawTextW(dc, message.c_str(), -1, &area,
                               DT_CALCRECT | DT_WORDBREAK | DT_EDITCONTROL | DT_EXPANDTABS | DT_NOPREFIX);
        SelectObject(dc, oldFont);
        ReleaseDC(text, dc);
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
    const int screenWidth = GetSystemMetrics(SM_CXSCREEN);
    const int screenHeight = GetSystemMetrics(SM_CYSCREEN);
    EXPECT_GT(Height(huge.rect), Height(grown));
    EXPECT_LE(Width(huge.rect), screenWidth);
    EXPECT_LE(Height(huge.rect), screenHeight);
    EXPECT_GE(huge.rect.left, 0);
    EXPECT_GE(huge.rect.top, 0);
    EXPECT_LE(huge.rect.right, screenWidth);
    EXPECT_LE(huge.rect.bottom, screenHeight);
    // The confirm button is still on the box.
    ExpectOneCentredRow(huge);
    EXPECT_LE(huge.Control(IDOK)->rect.bottom, huge.rect.bottom);
}

TEST_F(MsgTip, EmptyTextStillShowsATipWithOnlyTheConfirmButton) {
    EXPECT_EQ(Show(L"", varcfg::kTipConfirm, Answer::Key(VK_RETURN)), 1);
    const SeenWindow tip = Tip();
    EXPECT_EQ(tip.StaticTexts(), std::vector<std::wstring>{L""});
    EXPECT_EQ(tip.VisibleButtons(), std::vector<int>{IDOK});
    EXPECT_GT(Width(tip.rect), 0);
    EXPECT_GT(Height(tip.rect), 0);
}

TEST_F(MsgTip, MessageIsTheStaticTextOfABoxModalOverTheActiveWindow) {
    HWND host = CreateWindowExW(0, L"Static", L"host", WS_POPUP | WS_VISIBLE, 20, 20, 560, 400, nullptr, nullptr,
                                GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(host, nullptr);
    SetActiveWindow(host);
    ASSERT_EQ(GetActiveWindow(), host);

    const std::wstring message = L"Write failed:[3],\r\nA & B at 100%";
    EXPECT_EQ(Show(message, varcfg::kTipConfirm, Answer::Key(VK_RETURN)), 1);
    const SeenWindow tip = Tip();
    ASSERT_NE(tip.Control(IDC_TIP_TEXT), nullptr);
    EXPECT_EQ(tip.Control(IDC_TIP_TEXT)->text, message);
    EXPECT_EQ(tip.StaticTexts(), std::vector<std::wstring>{message});
    EXPECT_EQ(tip.owner, host);
    EXPECT_FALSE(tip.ownerEnabled) << "the host must be blocked while the tip is shown";
    RECT hostRect{};
    GetWindowRect(host, &hostRect);
    EXPECT_NEAR(CentreX(tip.rect), CentreX(hostRect), 1);
    EXPECT_NEAR((tip.rect.top + tip.rect.bottom) / 2, (hostRect.top + hostRect.bottom) / 2, 1);
    EXPECT_TRUE(IsWindowEnabled(host));
    DestroyWindow(host);
}
