// Requests per user action: the panel driven through a fixed script against the in-process simulated
// recorder. Each action may send only what it needs (one version query in all, no write of an
// unchanged section on a page that keeps a baseline); the table of actions and requests is printed.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "HostCallback.h"
#include "ModalWatcher.h"
#include "TestHostWindow.h"
#include "channel/HostBridge.h"
#include "res/resource.h"
#include "shell/CDlgParam.h"
#include "pages/base/CDlgTabHost.h"
#include "channel/DeviceVersion.h"
#include "protocol/ModelTable.h"
#include "ui/win/Controls.h"

using namespace varcfg;
using varcfg::test::Answer;
using varcfg::test::ModalWatcher;

namespace {

// Records the request texts on their way to the simulated recorder.
struct CountingLink {
    explicit CountingLink(const std::string& model = "MR8-O1") : recorder(model) {}
    sim::SimulatedRecorder recorder;
    std::vector<std::string> requests;
    std::vector<std::string> settingReplies;
};

int32_t Forward(int32_t mode, MDVR_MsgRecord* request, MDVR_MsgRecord* reply, void* context) {
    auto& link = *static_cast<CountingLink*>(context);
    link.requests.push_back(request->data);
    const int32_t result = sim::AnswerHostRequest(mode, request, reply, &link.recorder);
    if (std::string(request->data).find("DEVICE_SET") != std::string::npos) link.settingReplies.push_back(reply->data);
    return result;
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
        {"show encoder", IDC_MENU_ENCODER, V(4, "query stMainStream"), false},
        {"show alarm", IDC_MENU_ALARM, V{"query stRecord"}, false},
        {"show serial", IDC_MENU_SERIAL, V{"query stSerial"}, false},
        {"show parking overtime", IDC_MENU_PARKING, V{"query stSpeedAlarm"}, false},
        {"show users and security", IDC_MENU_USER_SECURITY, V{"query stCarInfo", "query stUserSec"}, false},
        {"show other settings", IDC_MENU_OTHER, V{"query stBaseInfo", "query stPower"}, false},
        {"show user data", IDC_MENU_USER_DATA, V{}, true},
        {"show about", IDC_MENU_ABOUT, V{}, false},
        {"show network again", IDC_MENU_NETWORK, V{}, false},
    };
    for (const auto& category : categories) {
        if (category.tip) watcher.Queue(Answer::Key(VK_RETURN));
        Run({category.name, category.expected}, [&] { Click(menu, category.button); });
    }

    // Every tab of the four hosts; only the pages that read something send a query.
    // The network tabs' first showing; the other hosts' tabs below.
    const std::map<std::pair<int, int>, V> firstShowing = {
        {{IDC_MENU_NETWORK, 0}, V{"query stLocalEth0"}},
        {{IDC_MENU_NETWORK, 1}, V{"query stWifi"}},
        {{IDC_MENU_NETWORK, 2}, V{"query stMobileGNet"}},
        {{IDC_MENU_NETWORK, 3}, V{"query stBaseInfo", "query stCMS"}},
        {{IDC_MENU_NETWORK, 4}, V{"query stPtt", "query stPttDcn"}},
        {{IDC_MENU_NETWORK, 5}, V{"query stNetWorkMode", "query stCarInfo", "query st808CMS1", "query st808CMS2"}},
    };
    for (int button : {IDC_MENU_NETWORK, IDC_MENU_ENCODER, IDC_MENU_ALARM, IDC_MENU_SERIAL}) {
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
            const auto network = firstShowing.find({button, tab});
            if (network != firstShowing.end()) expected = network->second;
            if (button == IDC_MENU_ENCODER) {
                const V encoderQueries[] = {V(4, "query stMainStream"), V{"query stSubStream"}, V{"query stVideoMirror"},
                                            V{"query stOSD"}};
                expected = encoderQueries[tab];
            }
            if (button == IDC_MENU_ALARM) expected = alarmTabs[tab];
            if (button == IDC_MENU_SERIAL && tab == 0) expected = V{"query stSerial"};
            if (button == IDC_MENU_SERIAL && tab == 1) expected = V{"query stChnPtz"};
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

// The encoder tabs on recorders of 1, 2, 4 and 8 channels: the main stream reads and writes one request
// per pair of channels; the other tabs one request each.
TEST(RoundTripEncoder, EveryTabSendsOneRequestPerPairOrSection) {
    using V = std::vector<std::string>;
    const struct {
        const char* model;
        int pairs;
    } recorders[] = {{"MR1-J1", 1}, {"MR2-M1", 1}, {"MR4-A1", 2}, {"MR8-O1", 4}};
    for (const auto& recorder : recorders) {
        SCOPED_TRACE(recorder.model);
        std::printf("  recorder %s\n", recorder.model);
        Device() = DeviceState{};
        CountingLink link(recorder.model);
        SetConfigFunction(Forward, nullptr, &link);
        ModalWatcher watcher;
        {
            varcfg::test::HostWindow host;
            CDlgParam* panel = CDlgParam::CreateIn(host);
            ASSERT_NE(panel, nullptr);
            HWND setup = panel->Setup()->Hwnd();
            const auto run = [&link](const std::string& action, const V& expected, const std::function<void()>& act) {
                link.requests.clear();
                act();
                std::vector<std::string> sent;
                for (const std::string& request : link.requests) sent.push_back(Describe(request));
                std::printf("  %-34s %zu\n", action.c_str(), sent.size());
                EXPECT_EQ(sent, expected) << action;
            };
            const V mainQueries(static_cast<std::size_t>(recorder.pairs), "query stMainStream");
            const V mainSettings(static_cast<std::size_t>(recorder.pairs), "set stMainStream");
            run("show encoder", mainQueries,
                [&] { SendDlgItemMessageW(panel->Menu()->Hwnd(), IDC_MENU_ENCODER, BM_CLICK, 0, 0); });
            auto* tabs = static_cast<CDlgTabHost*>(panel->Setup()->ShownPage());
            // The recorder's factory values are entries of this model's own lists.
            HWND main = tabs->SelectedPage()->Hwnd();
            for (int n = 0; n < Device().capabilities.videoChannels; ++n) {
                for (int first : {IDC_MAIN_RESOLUTION_FIRST, IDC_MAIN_FRAME_RATE_FIRST, IDC_MAIN_BIT_RATE_FIRST}) {
                    EXPECT_GE(ComboSelection(main, first + n), 0) << "list " << first + n;
                }
            }
            const struct {
                const char* section;
                V queries;
                V settings;
                int editedControl;  // a check box or list whose first entry differs from the recorder's
            } tabRows[] = {
                {"main stream", mainQueries, mainSettings, IDC_MAIN_AUDIO_FIRST},
                {"sub stream", V{"query stSubStream"}, V{"set stSubStream"}, IDC_SUB_QUALITY},
                {"mirror", V{"query stVideoMirror"}, V{"set stVideoMirror"}, IDC_MIRROR_LEFT_RIGHT_FIRST},
                {"OSD", V{"query stOSD"}, V{"set stOSD"}, IDC_OSD_IO},
            };
            for (int tab = 0; tab < 4; ++tab) {
                const auto& row = tabRows[tab];
                run(std::string("first showing of ") + row.section, tab == 0 ? V{} : row.queries, [&] {
                    TabSelect(tabs->Hwnd(), IDC_ENCODER_TABS, tab);
                    NMHDR change{GetDlgItem(tabs->Hwnd(), IDC_ENCODER_TABS), IDC_ENCODER_TABS,
                                 static_cast<UINT>(TCN_SELCHANGE)};
                    if (tab != 0) SendMessageW(tabs->Hwnd(), WM_NOTIFY, IDC_ENCODER_TABS, reinterpret_cast<LPARAM>(&change));
                });
                run(std::string("read ") + row.section, row.queries,
                    [&] { SendDlgItemMessageW(setup, IDC_SETUP_READ, BM_CLICK, 0, 0); });
                watcher.Queue(Answer::Key(VK_RETURN));
                run(std::string("write ") + row.section + " without edits", row.settings,
                    [&] { SendDlgItemMessageW(setup, IDC_SETUP_WRITE, BM_CLICK, 0, 0); });
                HWND page = tabs->SelectedPage()->Hwnd();
                if (SendDlgItemMessageW(page, row.editedControl, CB_GETCOUNT, 0, 0) > 0) {
                    ComboSelect(page, row.editedControl, 0);
                } else {
                    const bool checked = IsDlgButtonChecked(page, row.editedControl) == BST_CHECKED;
                    CheckDlgButton(page, row.editedControl, checked ? BST_UNCHECKED : BST_CHECKED);
                }
                watcher.Queue(Answer::Key(VK_RETURN));
                run(std::string("write ") + row.section + " with an edit", row.settings,
                    [&] { SendDlgItemMessageW(setup, IDC_SETUP_WRITE, BM_CLICK, 0, 0); });
            }
            host.Destroy();
        }
        SetConfigFunction(nullptr, nullptr, nullptr);
        for (const std::wstring& problem : watcher.Problems()) ADD_FAILURE() << std::string(problem.begin(), problem.end());
        for (const std::string& reply : link.settingReplies) EXPECT_NE(reply.find(R"(Result="1")"), std::string::npos) << reply;
    }
}

// The alarm tabs follow the model's alarm inputs: with none, the linkage page shows only the special
// events and asks for their half alone; with eight, it labels its rows from the inputs and reads both
// halves of its first page. The models come from the built-in table by their input count.
TEST(RoundTripAlarm, EveryAlarmTabReadsOnlyWhatItsInputCountNeeds) {
    using V = std::vector<std::string>;
    const struct {
        int inputs;
        V linkage;
    } counts[] = {
        {0, V{"query stAlarmLinkage"}},
        {8, V{"query stAlarmIn", "query stAlarmLinkage", "query stAlarmLinkage"}},
    };
    for (const auto& count : counts) {
        std::string model;
        for (const ModelTable::Entry& entry : BuiltInModelTable().Entries()) {
            const Capabilities* profile = BuiltInModelTable().ProfileOf(entry.text);
            if (profile != nullptr && profile->alarmInputs == count.inputs) {
                model = entry.text;
                break;
            }
        }
        ASSERT_FALSE(model.empty()) << "no model with " << count.inputs << " alarm inputs";
        SCOPED_TRACE(model);

        CountingLink link(model);
        Device() = DeviceState{};
        SetConfigFunction(Forward, nullptr, &link);
        ModalWatcher watcher;
        varcfg::test::HostWindow host;
        CDlgParam* panel = CDlgParam::CreateIn(host);
        ASSERT_NE(panel, nullptr);
        SendDlgItemMessageW(panel->Menu()->Hwnd(), IDC_MENU_ALARM, BM_CLICK, 0, 0);

        const V expected[] = {{"query stRecord"}, {"query stAlarmIn"}, {"query stAlarmLinkage"}, count.linkage,
                              {"query stGSensor"}, {"query stVda"}};
        auto* tabs = static_cast<CDlgTabHost*>(panel->Setup()->ShownPage());
        for (int tab = 5; tab >= 0; --tab) {
            link.requests.clear();
            TabSelect(tabs->Hwnd(), 2999, tab);
            NMHDR change{GetDlgItem(tabs->Hwnd(), 2999), 2999, static_cast<UINT>(TCN_SELCHANGE)};
            SendMessageW(tabs->Hwnd(), WM_NOTIFY, 2999, reinterpret_cast<LPARAM>(&change));
            std::vector<std::string> sent;
            for (const std::string& request : link.requests) sent.push_back(Describe(request));
            EXPECT_EQ(sent, expected[tab]) << "tab " << tab;
        }
        EXPECT_TRUE(watcher.Seen().empty()) << "no read failed";
        host.Destroy();
        SetConfigFunction(nullptr, nullptr, nullptr);
    }
}

TEST_F(RoundTrip, EveryNetworkTabReadsAndWritesOnlyWhatItsPageNames) {
    using V = std::vector<std::string>;
    CDlgParam* panel = CDlgParam::CreateIn(host);
    ASSERT_NE(panel, nullptr);
    HWND setup = panel->Setup()->Hwnd();
    Click(panel->Menu()->Hwnd(), IDC_MENU_NETWORK);
    auto* tabs = static_cast<CDlgTabHost*>(panel->Setup()->ShownPage());

    // Per tab: what it reads, what a write without edits sends, one edit and what writing it sends. The
    // centre server asks for confirmation before it writes, and writes nothing unchanged.
    const struct {
        int tab;
        V read;
        V unchanged;
        int edited;
        const wchar_t* edit;
        V written;
    } rows[] = {
        {1, V{"query stWifi"}, V{"set stWifi"}, IDC_WIFI_SSID, L"yard", V{"set stWifi"}},
        {2, V{"query stMobileGNet"}, V{"set stMobileGNet"}, IDC_MOBILE_APN, L"fleet.apn", V{"set stMobileGNet"}},
        {3, V{"query stBaseInfo", "query stCMS"}, V{}, IDC_CMS_PORT, L"6609", V{"set NETWORK_SET"}},
        {4, V{"query stPtt", "query stPttDcn"}, V{}, IDC_PTT_PORT, L"5061", V{"set stPttDcn"}},
        // The backup 808 server differs from the primary: it is written on every save.
        {5, V{"query stNetWorkMode", "query stCarInfo", "query st808CMS1", "query st808CMS2"}, V{"set st808CMS2"},
         IDC_808_PHONE, L"013900139000", V{"set stCarInfo", "set st808CMS2"}},
    };
    for (const auto& row : rows) {
        const std::string name = "network tab " + std::to_string(row.tab);
        Run({"show " + name, row.read}, [&] {
            TabSelect(tabs->Hwnd(), 2999, row.tab);
            NMHDR change{GetDlgItem(tabs->Hwnd(), 2999), 2999, static_cast<UINT>(TCN_SELCHANGE)};
            SendMessageW(tabs->Hwnd(), WM_NOTIFY, 2999, reinterpret_cast<LPARAM>(&change));
        });
        V read{"query stNetWorkMode"};
        read.insert(read.end(), row.read.begin(), row.read.end());
        Run({"read " + name, read}, [&] { Click(setup, IDC_SETUP_READ); });
        const auto write = [&] {
            if (row.tab == 3) watcher.Queue(Answer::Click(IDOK));
            watcher.Queue(Answer::Key(VK_RETURN));
            Click(setup, IDC_SETUP_WRITE);
        };
        Run({"write " + name + " unchanged", row.unchanged}, write);
        SetItemText(tabs->SelectedPage()->Hwnd(), row.edited, row.edit);
        Run({"write " + name + " with an edit", row.written}, write);
    }
    for (const std::wstring& problem : watcher.Problems()) ADD_FAILURE() << std::string(problem.begin(), problem.end());
}
