// The real panel against a recorder that answers through the host callback, driven by control id as a
// user would: menu and command buttons, tabs, typing into the address controls. Every tip is caught
// and answered by the modal watcher.
#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "FakeRecorder.h"
#include "ModalWatcher.h"
#include "TestHostWindow.h"
#include "res/resource.h"
#include "pages/net/CDlgNetSet.h"
#include "shell/CDlgParam.h"
#include "channel/DeviceVersion.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"
#include "ui/win/WinPlatform.h"

namespace fs = std::filesystem;
using namespace varcfg;
using varcfg::test::Answer;
using varcfg::test::ModalWatcher;

namespace {

const std::string kVersionQuery = R"(<VariCfgSec Action="DEVICE_QUERY"><stVersion /></VariCfgSec>)";
const std::string kNetModeQuery = R"(<VariCfgSec Action="DEVICE_QUERY"><stNetWorkMode></VariCfgSec>)";
const std::string kLocalQuery = R"(<VariCfgSec Action="DEVICE_QUERY"><stLocalEth0></VariCfgSec>)";

constexpr int kAbout = 0;

class Panel : public ::testing::Test {
protected:
    void SetUp() override {
        Device() = DeviceState{};
        InstallPlatform(&WindowsPlatform());
        std::ofstream(languageFile_) << "[STRING]\n21003=Write failed\n21004=Write succeeded\n21005=Read failed\n"
                                        "15006=Read\n15007=Write\n16000=Local network\n";
        CLanguage::Instance().SetLanguagePath(languageFile_.wstring());

        recorder.SetQueryReply("stVersion", VersionSection("MR4-A1"));
        recorder.SetSection("stNetWorkMode", R"(ucFD_NetType="1" usFD_GPSInterval="30")");
        recorder.SetSection("stLocalEth0", R"(ucFD_DhcpEnableFlag="1" uiFD_LocalIp="192.168.1.100" )"
                                           R"(uiFD_NetMask="0x00FFFFFF" uiFD_GateWay="16885952" strFD_Mac="00:11:22:33:44:55")");
    }
    void TearDown() override {
        host_.Destroy();
        EXPECT_TRUE(watcher.Problems().empty());
        CLanguage::Instance().SetLanguagePath(L"");
        fs::remove(languageFile_);
    }

    void Open() { ASSERT_NE(panel_ = CDlgParam::CreateIn(host_), nullptr); }

    HWND Setup() const { return panel_->Setup()->Hwnd(); }
    HWND Page() const { return panel_->Setup()->ShownPage()->Hwnd(); }
    // The local Ethernet page: tab 0 of the network host.
    HWND LocalPage() const { return static_cast<CDlgNetSet*>(panel_->Setup()->ShownPage())->SelectedPage()->Hwnd(); }
    void ClickMenu(int id) { SendDlgItemMessageW(panel_->Menu()->Hwnd(), id, BM_CLICK, 0, 0); }
    void ClickRead() { SendDlgItemMessageW(Setup(), IDC_SETUP_READ, BM_CLICK, 0, 0); }
    // Clicks Write and answers the tip that follows with the key.
    void Write(UINT key = VK_RETURN) {
        watcher.Queue(Answer::Key(key));
        SendDlgItemMessageW(Setup(), IDC_SETUP_WRITE, BM_CLICK, 0, 0);
    }
    void SwitchTab(int index) {
        HWND netHost = Page();
        TabSelect(netHost, IDC_NET_TABS, index);
        NMHDR change{GetDlgItem(netHost, IDC_NET_TABS), static_cast<UINT_PTR>(IDC_NET_TABS), static_cast<UINT>(TCN_SELCHANGE)};
        SendMessageW(netHost, WM_NOTIFY, IDC_NET_TABS, reinterpret_cast<LPARAM>(&change));
    }
    std::vector<std::wstring> Tips() const {
        std::vector<std::wstring> texts;
        for (const auto& box : watcher.Seen()) texts.push_back(box.Control(IDC_TIP_TEXT) ? box.Control(IDC_TIP_TEXT)->text : L"?");
        return texts;
    }

    FakeRecorder recorder;
    ModalWatcher watcher;
    CDlgParam* panel_ = nullptr;

private:
    varcfg::test::HostWindow host_;
    const fs::path languageFile_ = fs::temp_directory_path() / "varcfg-panel-test.ini";
};

using Texts = std::vector<std::string>;
using TipTexts = std::vector<std::wstring>;

}  // namespace

TEST_F(Panel, OpensWithOneVersionQueryAndShowsTheAboutPageFromIt) {
    Open();
    EXPECT_EQ(recorder.Texts(), Texts{kVersionQuery});
    EXPECT_EQ(panel_->Setup()->ShownCategory(), kAbout);
    EXPECT_EQ(ItemText(Page(), IDC_ABOUT_APP), L"APP-5.4.1");
    EXPECT_EQ(ItemText(Page(), IDC_ABOUT_UBOOT), L"UB-2016");
    EXPECT_EQ(ItemText(Page(), IDC_ABOUT_MODEL), L"MR4-A1");
    EXPECT_EQ(ItemText(Page(), IDC_ABOUT_BUILD).rfind(L"Build:", 0), 0u);
    EXPECT_EQ(ItemText(Setup(), IDC_SETUP_READ), L"Read");
    EXPECT_TRUE(Tips().empty());

    // The menu and the setup area share the panel: menu 128 wide, pages above a 50-pixel strip.
    RECT menu{}, page{}, setup{};
    GetWindowRect(panel_->Menu()->Hwnd(), &menu);
    GetWindowRect(Page(), &page);
    GetClientRect(Setup(), &setup);
    EXPECT_EQ(menu.right - menu.left, 128);
    EXPECT_EQ(page.left, menu.right);
    EXPECT_EQ(page.bottom - page.top, setup.bottom - 50);
}

TEST_F(Panel, CategoryLoadsOnceOrOnReadTabsOnEverySwitchAndOnlyTheShownTabIsWritten) {
    Open();
    ClickMenu(IDC_MENU_NETWORK);
    EXPECT_EQ(recorder.Texts(), (Texts{kVersionQuery, kNetModeQuery, kLocalQuery}));
    ClickMenu(IDC_MENU_ABOUT);
    ClickMenu(IDC_MENU_NETWORK);
    EXPECT_EQ(recorder.requests.size(), 3u) << "switching back never reloads";
    ClickRead();
    EXPECT_EQ(recorder.Texts(), (Texts{kVersionQuery, kNetModeQuery, kLocalQuery, kNetModeQuery, kLocalQuery}));
    EXPECT_EQ(ComboSelection(Page(), IDC_NET_TYPE), 1);
    EXPECT_TRUE(Tips().empty());

    recorder.requests.clear();
    SwitchTab(1);
    SwitchTab(0);
    EXPECT_EQ(recorder.Texts(), (Texts{R"(<VariCfgSec Action="DEVICE_QUERY"><stWifi></VariCfgSec>)", kLocalQuery}));

    // An edit on tab 0 is not written from tab 1, which writes only its own section.
    SetItemText(LocalPage(), IDC_LOCAL_MAC, L"edited");
    SwitchTab(1);
    recorder.requests.clear();
    Write();
    ASSERT_EQ(recorder.requests.size(), 1u);
    EXPECT_EQ(recorder.requests[0].text.find(R"(<VariCfgSec Action="DEVICE_SET"><stWifi )"), 0u);
    EXPECT_EQ(Tips(), TipTexts{L"Write succeeded"});
}

TEST_F(Panel, LocalEthernetShowsTheRecordersAddressesWritesEditsExactlyAndKeepsRefusedOnes) {
    Open();
    ClickMenu(IDC_MENU_NETWORK);
    HWND local = LocalPage();
    EXPECT_EQ(IpAddressText(local, IDC_LOCAL_IP), L"192.168.1.100");
    EXPECT_EQ(IpAddressText(local, IDC_LOCAL_MASK), L"255.255.255.0");
    EXPECT_EQ(IpAddressText(local, IDC_LOCAL_GATEWAY), L"192.168.1.1");
    EXPECT_EQ(ItemText(local, IDC_LOCAL_MAC), L"00:11:22:33:44:55");

    SetIpAddressText(local, IDC_LOCAL_IP, L"10.0.0.7");
    SetItemText(local, IDC_LOCAL_MAC, L"AA:BB:CC:DD:EE:FF");
    recorder.requests.clear();
    Write();
    EXPECT_EQ(recorder.Texts(),
              Texts{R"(<VariCfgSec Action="DEVICE_SET"><stLocalEth0 ucFD_DhcpEnableFlag="0" uiFD_LocalIp="10.0.0.7" )"
                    R"(uiFD_NetMask="255.255.255.0" uiFD_GateWay="192.168.1.1" strFD_Mac="AA:BB:CC:DD:EE:FF" />)"
                    R"(</VariCfgSec>)"});
    EXPECT_EQ(Tips(), TipTexts{L"Write succeeded"});
    // Written values are the new baseline: writing again sends nothing and still succeeds.
    Write();
    EXPECT_EQ(recorder.requests.size(), 1u);
    EXPECT_EQ(Tips(), (TipTexts{L"Write succeeded", L"Write succeeded"}));

    // A write that fails keeps the edit, and the next write sends it again.
    SetIpAddressText(local, IDC_LOCAL_GATEWAY, L"192.168.1.254");
    const std::pair<std::string, bool> failures[] = {
        {R"(<VariCfgSec Action="DEVICE_SET" Result="0" />)", false},  // refused
        {R"(<VariCfgSec Action="DEVICE_SET" Result="0" />)", true},   // no exchange at all
        {"\x01\x7f<Vari", false},                                    // cut short and garbled
    };
    for (const auto& [reply, transportFails] : failures) {
        recorder.settingReply = reply;
        recorder.transportFails = transportFails;
        Write();
        EXPECT_EQ(IpAddressText(local, IDC_LOCAL_GATEWAY), L"192.168.1.254");
    }
    recorder.transportFails = false;
    recorder.settingReply = R"(<VariCfgSec Action="DEVICE_SET" Result="1" />)";
    recorder.requests.clear();
    Write();
    ASSERT_EQ(recorder.requests.size(), 1u) << "the baseline kept the values the recorder refused";
    EXPECT_NE(recorder.requests[0].text.find(R"(uiFD_GateWay="192.168.1.254")"), std::string::npos);
    EXPECT_EQ(Tips(), (TipTexts{L"Write succeeded", L"Write succeeded", L"Write failed", L"Write failed",
                                L"Write failed", L"Write succeeded"}));
}

TEST_F(Panel, FailedReadTellsTheUserOnlyWhileThePageIsShownAndAnUnparsableOneChangesNothing) {
    Open();
    recorder.transportFails = true;
    watcher.Queue(Answer::Key(VK_RETURN));
    ClickMenu(IDC_MENU_NETWORK);
    EXPECT_EQ(Tips(), TipTexts{L"Read failed"});
    EXPECT_EQ(IpAddressText(LocalPage(), IDC_LOCAL_IP), L"") << "nothing was loaded";

    // The user moves on during the exchange: the failure of the hidden page is not told.
    recorder.duringRequest = [this] { ShowWindow(Page(), SW_HIDE); };
    ClickRead();
    EXPECT_EQ(Tips().size(), 1u);

    // Not loaded: the next showing tries again and succeeds.
    recorder.duringRequest = nullptr;
    recorder.transportFails = false;
    ClickMenu(IDC_MENU_ABOUT);
    ClickMenu(IDC_MENU_NETWORK);
    EXPECT_EQ(IpAddressText(LocalPage(), IDC_LOCAL_IP), L"192.168.1.100");

    // A reply that does not parse changes nothing on the page.
    recorder.SetQueryReply("stLocalEth0", "<VariCfgSec Action=\"DEVICE_QUERY\"><stLocalEth0 uiFD_LocalIp=");
    ClickRead();
    EXPECT_EQ(IpAddressText(LocalPage(), IDC_LOCAL_IP), L"192.168.1.100");
    EXPECT_EQ(ItemText(LocalPage(), IDC_LOCAL_MAC), L"00:11:22:33:44:55");
    EXPECT_EQ(Tips().size(), 1u);
}

TEST_F(Panel, UnknownVersionIsAskedForAgainBeforeTheFirstWrite) {
    recorder.transportFails = true;
    watcher.Queue(Answer::Key(VK_RETURN));  // the about page cannot be read at start
    Open();
    EXPECT_EQ(Tips(), TipTexts{L"Read failed"});
    // The menu asks once and the first page's read asks again: an unreachable recorder costs the host two
    // of its time-outs before the tip.
    const std::string versionQuery = R"(<VariCfgSec Action="DEVICE_QUERY"><stVersion /></VariCfgSec>)";
    EXPECT_EQ(recorder.Texts(), (std::vector<std::string>{versionQuery, versionQuery}));

    // The early success tip comes before anything is written, then the page's own result.
    recorder.transportFails = false;
    watcher.Queue(Answer::Key(VK_RETURN));
    Write(VK_SPACE);
    EXPECT_EQ(Tips(), (TipTexts{L"Read failed", L"Write succeeded", L"Write succeeded"}));
    EXPECT_EQ(Device().versionKnown, 1);

    // Once known, the version is not asked for again.
    recorder.requests.clear();
    Write();
    EXPECT_TRUE(recorder.requests.empty());
}

TEST_F(Panel, NetworkTypeIsWrittenOnlyWhenChangedAndBeforeTheTab) {
    Open();
    ClickMenu(IDC_MENU_NETWORK);
    ComboSelect(Page(), IDC_NET_TYPE, 2);
    recorder.requests.clear();
    Write();
    EXPECT_EQ(recorder.Texts(), Texts{R"(<VariCfgSec Action="DEVICE_SET"><stNetWorkMode ucFD_NetType="2" )"
                                      R"(usFD_GPSInterval="30" /></VariCfgSec>)"});
    EXPECT_EQ(Tips(), TipTexts{L"Write succeeded"});

    // A refused network type stops the write before the tab.
    ComboSelect(Page(), IDC_NET_TYPE, 0);
    SetItemText(LocalPage(), IDC_LOCAL_MAC, L"edited");
    recorder.settingReply = R"(<VariCfgSec Action="DEVICE_SET" Result="0" />)";
    recorder.requests.clear();
    Write();
    EXPECT_EQ(recorder.requests.size(), 1u);
    EXPECT_EQ(Tips(), (TipTexts{L"Write succeeded", L"Write failed"}));
}

TEST_F(Panel, HiddenTestButtonsReachTheHostsCallbacks) {
    Open();
    HWND panel = panel_->Hwnd();
    for (int id : {IDC_TEST_GET_PARAMETERS, IDC_TEST_SET_PARAMETERS, IDC_TEST_IMPORT_PARAMETERS, IDC_TEST_EXPORT_PARAMETERS}) {
        EXPECT_FALSE(IsWindowVisible(GetDlgItem(panel, id)));
        ShowWindow(GetDlgItem(panel, id), SW_SHOW);  // as a test build would show them
    }
    recorder.requests.clear();
    for (int id : {IDC_TEST_GET_PARAMETERS, IDC_TEST_SET_PARAMETERS}) SendDlgItemMessageW(panel, id, BM_CLICK, 0, 0);
    ASSERT_EQ(recorder.requests.size(), 2u);
    EXPECT_EQ(std::make_pair(recorder.requests[0].mode, recorder.requests[0].length), std::make_pair(1, 0));
    EXPECT_EQ(std::make_pair(recorder.requests[1].mode, recorder.requests[1].length), std::make_pair(0, 100));
    for (int i = 0; i < 100; ++i) ASSERT_EQ(recorder.lastRequestBytes[static_cast<size_t>(i)], i);

    for (int id : {IDC_TEST_IMPORT_PARAMETERS, IDC_TEST_EXPORT_PARAMETERS}) SendDlgItemMessageW(panel, id, BM_CLICK, 0, 0);
    ASSERT_EQ(recorder.fileCalls.size(), 2u);
    EXPECT_EQ(recorder.fileCalls[0].mode, 1);
    EXPECT_EQ(recorder.fileCalls[1].mode, 0);
    EXPECT_EQ(recorder.fileCalls[0].path, "d:\\mdvrconfig.cfg");
}

TEST_F(Panel, PagesTakeTheirKeysThroughThePreTranslationChain) {
    Open();
    HWND about = Page();
    HWND field = GetDlgItem(about, IDC_ABOUT_APP);
    auto key = [field](UINT message, WPARAM code) {
        MSG m{field, message, code, 0, 0, {}};
        return Dialog::PreTranslateChain(&m);
    };
    // Ctrl+M reveals and hides the model line on the about page.
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(about, IDC_ABOUT_MODEL)));
    EXPECT_TRUE(key(WM_KEYDOWN, 'X')) << "other keys are swallowed by the page";
    key(WM_KEYDOWN, 'M');
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(about, IDC_ABOUT_MODEL))) << "M alone does nothing";
    EXPECT_TRUE(key(WM_KEYDOWN, VK_CONTROL));
    key(WM_KEYDOWN, 'M');
    EXPECT_TRUE(IsWindowVisible(GetDlgItem(about, IDC_ABOUT_MODEL)));
    EXPECT_TRUE(IsWindowVisible(GetDlgItem(about, IDC_ABOUT_MODEL_LABEL)));
    key(WM_KEYDOWN, 'M');
    EXPECT_TRUE(key(WM_KEYUP, VK_CONTROL));
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(about, IDC_ABOUT_MODEL)));

    // Tab moves the focus through the controls of a page.
    ClickMenu(IDC_MENU_NETWORK);
    HWND mac = GetDlgItem(LocalPage(), IDC_LOCAL_MAC);
    SetFocus(mac);
    MSG tab{GetFocus(), WM_KEYDOWN, VK_TAB, 0, 0, {}};
    EXPECT_TRUE(Dialog::PreTranslateChain(&tab));
    EXPECT_NE(GetFocus(), mac);
}
