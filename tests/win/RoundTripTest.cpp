// Requests per user action: the panel driven through a fixed script against the in-process simulated
// recorder. Each action may send only what it needs (one version query in all, no write of an
// unchanged section on a page that keeps a baseline); the table of actions and requests is printed.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "HostCallback.h"
#include "ModalWatcher.h"
#include "TestHostWindow.h"
#include "channel/HostBridge.h"
#include "res/resource.h"
#include "shell/CDlgParam.h"
#include "pages/base/CDlgTabHost.h"
#include "channel/DeviceVersion.h"
#include "ui/win/Controls.h"

using namespace varcfg;
using varcfg::test::Answer;
using varcfg::test::ModalWatcher;

namespace {

// Records the request texts on their way to the simulated recorder.
struct CountingLink {
    sim::SimulatedRecorder recorder{"MR8-O1"};
    std::vector<std::string> requests;
};

int32_t Forward(int32_t mode, MDVR_MsgRecord* request, MDVR_MsgRecord* reply, void* context) {
    auto& link = *static_cast<CountingLink*>(context);
    link.requests.push_back(request->data);
    return sim::AnswerHostRequest(mode, request, reply, &link.recorder);
}

// The section a request names, e.g. "query stLocalEth0" or "set stLocalEth0".
std::string Describe(const std::string& request) {
    const bool query = request.find("DEVICE_QUERY") != std::string::npos;
    const std::size_t start = request.find("><") + 2;
    const std::size_t end = request.find_first_of(" />", start);
    return (query ? "query " : "set ") + request.substr(start, end - start);
}

struct Step {
    std::string action;
    std::vector<std::string> expected;  // what the protocol needs, in order
};

class RoundTrip : public ::testing::Test {
protected:
    void SetUp() override {
        Device() = DeviceState{};
        SetConfigFunction(Forward, nullptr, &link);
    }
    void TearDown() override {
        host.Destroy();
        SetConfigFunction(nullptr, nullptr, nullptr);
    }

    // Runs an action and checks and prints the requests it sent.
    template <class Action>
    void Run(const Step& step, Action action) {
        link.requests.clear();
        action();
        std::vector<std::string> sent;
        for (const std::string& request : link.requests) sent.push_back(Describe(request));
        std::string line;
        for (const std::string& s : sent) line += (line.empty() ? "" : ", ") + s;
        std::printf("  %-34s %zu  %s\n", step.action.c_str(), sent.size(), line.c_str());
        EXPECT_EQ(sent, step.expected) << step.action;
    }

    void Click(HWND dialog, int id) { SendDlgItemMessageW(dialog, id, BM_CLICK, 0, 0); }

    CountingLink link;
    ModalWatcher watcher;
    varcfg::test::HostWindow host;
};

}  // namespace

TEST_F(RoundTrip, EveryActionSendsOnlyWhatTheProtocolNeeds) {
    using V = std::vector<std::string>;
    std::printf("  %-34s %s\n", "action", "requests");
    CDlgParam* panel = nullptr;
    Run({"open the panel", V{"query stVersion"}}, [&] { panel = CDlgParam::CreateIn(host); });
    ASSERT_NE(panel, nullptr);
    HWND menu = panel->Menu()->Hwnd();
    HWND setup = panel->Setup()->Hwnd();

    // Pages that read nothing yet report a failed read, and the user is told.
    const struct {
        const char* name;
        int button;
        V expected;
        bool tip;
    } categories[] = {
        {"show network", IDC_MENU_NETWORK, V{"query stNetWorkMode", "query stLocalEth0"}, false},
        {"show encoder", IDC_MENU_ENCODER, V{}, true},
        {"show alarm", IDC_MENU_ALARM, V{"query stRecord"}, false},
        {"show serial", IDC_MENU_SERIAL, V{"query stSerial"}, false},
        {"show parking overtime", IDC_MENU_PARKING, V{"query stSpeedAlarm"}, false},
        {"show users and security", IDC_MENU_USER_SECURITY, V{"query stCarInfo", "query stUserSec"}, false},
        {"show other settings", IDC_MENU_OTHER, V{}, true},
        {"show user data", IDC_MENU_USER_DATA, V{}, true},
        {"show about", IDC_MENU_ABOUT, V{}, false},
        {"show network again", IDC_MENU_NETWORK, V{}, false},
    };
    for (const auto& category : categories) {
        if (category.tip) watcher.Queue(Answer::Key(VK_RETURN));
        Run({category.name, category.expected}, [&] { Click(menu, category.button); });
    }

    // Every tab of the four hosts; only the pages that read something send a query.
    for (int button : {IDC_MENU_NETWORK, IDC_MENU_ENCODER, IDC_MENU_ALARM, IDC_MENU_SERIAL}) {
        if (button == IDC_MENU_ENCODER) {
            watcher.Queue(Answer::Key(VK_RETURN));  // not loaded yet: read again
        }
        // The alarm tabs of a model with four inputs: the linkage tab labels its rows from the inputs
        // and reads both halves of its first page.
        const V alarmTabs[] = {{"query stRecord"}, {"query stAlarmIn"}, {"query stAlarmLinkage"},
                               {"query stAlarmIn", "query stAlarmLinkage", "query stAlarmLinkage"},
                               {"query stGSensor"}, {"query stVda"}};
        Click(menu, button);
        auto* tabs = static_cast<CDlgTabHost*>(panel->Setup()->ShownPage());
        const int count = static_cast<int>(SendDlgItemMessageW(tabs->Hwnd(), 2999, TCM_GETITEMCOUNT, 0, 0));
        for (int tab = count - 1; tab >= 0; --tab) {
            V expected;
            if (button == IDC_MENU_NETWORK && tab == 0) expected = {"query stLocalEth0"};
            if (button == IDC_MENU_ALARM) expected = alarmTabs[tab];
            if (button == IDC_MENU_SERIAL && tab == 0) expected = {"query stSerial"};
            if (button == IDC_MENU_SERIAL && tab == 1) expected = {"query stChnPtz"};
            Run({"switch to tab " + std::to_string(tab) + " of category " + std::to_string(panel->Setup()->ShownCategory()),
                 expected},
                [&] {
                    TabSelect(tabs->Hwnd(), 2999, tab);
                    NMHDR change{GetDlgItem(tabs->Hwnd(), 2999), 2999, static_cast<UINT>(TCN_SELCHANGE)};
                    SendMessageW(tabs->Hwnd(), WM_NOTIFY, 2999, reinterpret_cast<LPARAM>(&change));
                });
        }
    }

    Click(menu, IDC_MENU_NETWORK);
    Run({"read", V{"query stNetWorkMode", "query stLocalEth0"}}, [&] { Click(setup, IDC_SETUP_READ); });
    watcher.Queue(Answer::Key(VK_RETURN));
    Run({"write without edits", V{}}, [&] { Click(setup, IDC_SETUP_WRITE); });
    HWND local = static_cast<CDlgTabHost*>(panel->Setup()->ShownPage())->SelectedPage()->Hwnd();
    SetItemText(local, IDC_LOCAL_MAC, L"00:11:22:33:44:66");
    watcher.Queue(Answer::Key(VK_RETURN));
    Run({"write with an edit", V{"set stLocalEth0"}}, [&] { Click(setup, IDC_SETUP_WRITE); });
    watcher.Queue(Answer::Key(VK_RETURN));
    Run({"write again", V{}}, [&] { Click(setup, IDC_SETUP_WRITE); });
    ComboSelect(panel->Setup()->ShownPage()->Hwnd(), IDC_NET_TYPE, 2);
    watcher.Queue(Answer::Key(VK_RETURN));
    Run({"write a new network type", V{"set stNetWorkMode"}}, [&] { Click(setup, IDC_SETUP_WRITE); });
    for (const std::wstring& problem : watcher.Problems()) ADD_FAILURE() << std::string(problem.begin(), problem.end());
}
