// The data exchange of a real dialog: a refused number tells the user, takes the focus and stops the
// exchange there.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "ModalWatcher.h"
#include "TestHostWindow.h"
#include "res/resource.h"
#include "ui/win/Controls.h"
#include "ui/win/DataExchange.h"
#include "ui/win/Dialog.h"

using namespace varcfg;
using varcfg::test::Answer;
using varcfg::test::ModalWatcher;

namespace {

class DelayDialog : public Dialog {
public:
    DelayDialog() : Dialog(IDD_OTHER_SETUP) {}
    uint32_t delay = 5;
    int gpsSync = 0;

protected:
    void DoDataExchange(DataExchange& dx) override {
        dx.Text(IDC_OTHER_POWER_OFF_DELAY, delay, 0, 65535);
        dx.Check(IDC_OTHER_GPS_SYNC, gpsSync);
    }
};

std::wstring TipText(const ModalWatcher& watcher, std::size_t index) {
    const auto* text = watcher.Seen().at(index).Control(IDC_TIP_TEXT);
    return text != nullptr ? text->text : L"";
}

}  // namespace

TEST(DataExchange, RangeFailureTellsTheUserFocusesTheFieldAndStopsThere) {
    ModalWatcher watcher;
    varcfg::test::HostWindow parent;
    DelayDialog dialog;
    ASSERT_TRUE(dialog.Create(parent));
    dialog.Show(true);
    dialog.UpdateData(false);
    EXPECT_EQ(ItemText(dialog.Hwnd(), IDC_OTHER_POWER_OFF_DELAY), L"5");

    SetItemText(dialog.Hwnd(), IDC_OTHER_POWER_OFF_DELAY, L"70000");
    SetChecked(dialog.Hwnd(), IDC_OTHER_GPS_SYNC, true);
    watcher.Queue(Answer::Key(VK_RETURN));
    EXPECT_FALSE(dialog.UpdateData(true));
    ASSERT_EQ(watcher.Seen().size(), 1u);
    EXPECT_EQ(TipText(watcher, 0), L"Please enter an integer between 0 and 65535.");
    EXPECT_EQ(GetFocus(), dialog.Item(IDC_OTHER_POWER_OFF_DELAY));
    EXPECT_EQ(dialog.delay, 5u);
    EXPECT_EQ(dialog.gpsSync, 0) << "fields after the refused one keep their values";

    SetItemText(dialog.Hwnd(), IDC_OTHER_POWER_OFF_DELAY, L"-3");
    watcher.Queue(Answer::Key(VK_RETURN));
    EXPECT_FALSE(dialog.UpdateData(true));
    EXPECT_EQ(TipText(watcher, 1), L"Please enter a positive integer.");

    SetItemText(dialog.Hwnd(), IDC_OTHER_POWER_OFF_DELAY, L"65535");
    EXPECT_TRUE(dialog.UpdateData(true));
    EXPECT_EQ(dialog.delay, 65535u);
    EXPECT_EQ(dialog.gpsSync, 1);
    EXPECT_TRUE(watcher.Problems().empty());
    DestroyWindow(parent);
}
