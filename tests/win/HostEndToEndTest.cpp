// The reference host's code with the real plug-in DLL, loaded by path through its exports, against a
// simulated recorder in this process: what a fleet client does, from opening the panel to a write that
// reaches the recorder's store.
#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "HostApp.h"
#include "ModalWatcher.h"
#include "PanelParts.h"
#include "RecorderLink.h"
#include "SimulatedRecorder.h"
#include "protocol/Envelope.h"
#include "protocol/IpText.h"
#include "res/resource.h"

using varcfg::host::HostApp;
using varcfg::host::PanelParts;
using varcfg::host::ProgramFolder;
using varcfg::test::Answer;

namespace {

// The recorder's own IP, as it answers a query of the local Ethernet section.
std::string RecorderIp(varcfg::sim::SimulatedRecorder& recorder) {
    const std::optional<std::string> reply = recorder.Handle(varcfg::QueryText("stLocalEth0"));
    varcfg::QueryReply parsed;
    if (!reply || parsed.Check(*reply) != 0) return "no reply";
    const char* ip = parsed.Section()->Attribute("uiFD_LocalIp");
    return ip != nullptr ? varcfg::DottedIp(varcfg::IpFromText(ip)) : "no IP";
}

// What an IP address control shows, read as a user's tool reads it.
std::string ShownIp(HWND page, int id) {
    DWORD address = 0;
    SendDlgItemMessageW(page, id, IPM_GETADDRESS, 0, reinterpret_cast<LPARAM>(&address));
    return std::to_string(FIRST_IPADDRESS(address)) + "." + std::to_string(SECOND_IPADDRESS(address)) + "." +
           std::to_string(THIRD_IPADDRESS(address)) + "." + std::to_string(FOURTH_IPADDRESS(address));
}

std::wstring LanguageText(const std::wstring& file, int id) {
    wchar_t text[260] = {};
    GetPrivateProfileStringW(L"STRING", std::to_wstring(id).c_str(), L"", text, 259, file.c_str());
    return text;
}

std::wstring ItemText(HWND dialog, int id) {
    wchar_t text[260] = {};
    GetDlgItemTextW(dialog, id, text, 260);
    return text;
}

class HostEndToEnd : public ::testing::Test {
protected:
    const std::wstring plugin = ProgramFolder() + L"libvarcfg_18.dll";
    const std::wstring english = ProgramFolder() + L"Lang\\English.ini";
    varcfg::sim::SimulatedRecorder recorder{"MR8-O1"};
    varcfg::host::SimulatedRecorderLink link{recorder};
    varcfg::test::ModalWatcher watcher;
};

}  // namespace

TEST_F(HostEndToEnd, ShowsTheRecordersAddressAndWritesAnEditBackToTheRecorder) {
    HostApp host(link);
    std::string problem;
    ASSERT_TRUE(host.LoadPlugin(plugin, english, problem)) << problem;
    HWND window = host.CreateHostWindow();
    host.ShowPanel();

    // A window whose client area is the size the plug-in asked for, named after the recorder.
    RECT client{};
    GetClientRect(window, &client);
    EXPECT_EQ(client.right - client.left, MDVR_DISPLAY_WIDTH);
    EXPECT_EQ(client.bottom - client.top, MDVR_DISPLAY_HEIGHT);
    wchar_t title[256] = {};
    GetWindowTextW(window, title, 256);
    EXPECT_NE(std::wstring(title).find(L"MR8-O1"), std::wstring::npos) << title;

    const PanelParts parts(window);
    ASSERT_TRUE(parts.Found());
    // The deployed language file reached the plug-in.
    EXPECT_EQ(ItemText(parts.Menu(), IDC_MENU_NETWORK), LanguageText(english, 15101));
    EXPECT_FALSE(LanguageText(english, 15101).empty());

    parts.PressMenuButton(IDC_MENU_NETWORK);
    HWND local = parts.ShownTabPage();
    ASSERT_NE(local, nullptr);
    ASSERT_NE(GetDlgItem(local, IDC_LOCAL_IP), nullptr) << "the network category opens on the local Ethernet tab";
    EXPECT_EQ(ShownIp(local, IDC_LOCAL_IP), "192.168.1.100");
    EXPECT_EQ(ShownIp(local, IDC_LOCAL_IP), RecorderIp(recorder));

    SendDlgItemMessageW(local, IDC_LOCAL_IP, IPM_SETADDRESS, 0, MAKEIPADDRESS(10, 20, 30, 40));
    watcher.Queue(Answer::Key(VK_RETURN));
    parts.PressSetupButton(IDC_SETUP_WRITE);

    ASSERT_EQ(watcher.Seen().size(), 1u);
    const varcfg::test::SeenControl* tipText = watcher.Seen()[0].Control(IDC_TIP_TEXT);
    ASSERT_NE(tipText, nullptr);
    EXPECT_EQ(tipText->text, LanguageText(english, 21004));
    EXPECT_TRUE(watcher.Problems().empty());
    EXPECT_EQ(RecorderIp(recorder), "10.20.30.40");
}

TEST_F(HostEndToEnd, RefusesFilesThatAreNotThePlugin) {
    HostApp host(link);
    std::string problem;
    EXPECT_FALSE(host.LoadPlugin(ProgramFolder() + L"no-such-plugin.dll", english, problem));
    EXPECT_NE(problem.find("cannot load"), std::string::npos) << problem;

    // A file that is not a DLL: Windows' text names the plug-in where it has an insert.
    const std::wstring notADll = ProgramFolder() + L"Lang\\English.ini";
    EXPECT_FALSE(host.LoadPlugin(notADll, english, problem));
    EXPECT_NE(problem.find("cannot load the plug-in: "), std::string::npos) << problem;
    EXPECT_EQ(problem.find('%'), std::string::npos) << problem;

    // A DLL that loads but exports nothing of the plug-in: refused before any call.
    EXPECT_FALSE(host.LoadPlugin(L"kernel32.dll", english, problem));
    EXPECT_NE(problem.find("MDVR_IsEnableDll"), std::string::npos) << problem;
}
