// Loads the built libvarcfg_18.dll as a host does and calls every export.
#include <windows.h>
#include <shlobj.h>

#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "ModalWatcher.h"
#include "varcfg/host_api.h"

namespace {

template <class Fn>
Fn Export(HMODULE dll, const char* name) {
    return reinterpret_cast<Fn>(reinterpret_cast<void*>(GetProcAddress(dll, name)));
}

// The host's side of the recorder: answers the version query, counts what it was asked.
struct HostRecorder {
    std::vector<std::string> requests;
};
HostRecorder g_recorder;

int32_t AnswerVersion(int32_t mode, MDVR_MsgRecord* request, MDVR_MsgRecord* reply, void* context) {
    static_cast<HostRecorder*>(context)->requests.push_back(request->data);
    const char answer[] =
        R"(<VariCfgSec Action="DEVICE_QUERY"><stVersion Model="MR4-A1" strAppVer="5.4.1" /></VariCfgSec>)";
    std::memcpy(reply->data, answer, sizeof answer);
    return mode == MDVR_REQUEST_EXCHANGE ? 1 : 0;
}

class Dll : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        module_ = LoadLibraryW(L"libvarcfg_18.dll");
        // As a host must: the callbacks before any panel.
        if (module_ != nullptr) Export<MDVR_SetConfigFunctionFn>(module_, "MDVR_SetConfigFunction")(AnswerVersion, nullptr, &g_recorder);
    }
    static void TearDownTestSuite() { FreeLibrary(module_); }
    void SetUp() override { ASSERT_NE(module_, nullptr) << "libvarcfg_18.dll not found beside the test"; }

    static HMODULE module_;
};
HMODULE Dll::module_ = nullptr;

// A plain host window of the panel's size.
HWND CreateHostWindow() {
    static const wchar_t* className = L"VarcfgTestHost";
    static bool registered = false;
    if (!registered) {
        WNDCLASSW wc{};
        wc.lpfnWndProc = DefWindowProcW;
        wc.hInstance = GetModuleHandleW(nullptr);
        wc.lpszClassName = className;
        RegisterClassW(&wc);
        registered = true;
    }
    RECT frame{0, 0, MDVR_DISPLAY_WIDTH, MDVR_DISPLAY_HEIGHT};
    AdjustWindowRect(&frame, WS_OVERLAPPEDWINDOW, FALSE);
    return CreateWindowW(className, L"host", WS_OVERLAPPEDWINDOW, 0, 0, frame.right - frame.left,
                         frame.bottom - frame.top, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
}

std::string ReadFile(const std::wstring& path) {
    std::ifstream in(path.c_str(), std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

}  // namespace

TEST_F(Dll, AnswersTheHostsFamilySizeAndStubQueries) {
    auto isEnable = Export<MDVR_IsEnableDllFn>(module_, "MDVR_IsEnableDll");
    ASSERT_NE(isEnable, nullptr);
    EXPECT_EQ(isEnable(1, 18), 1);
    EXPECT_EQ(isEnable(1, 17), 0);
    EXPECT_EQ(isEnable(2, 18), 0);
    EXPECT_EQ(isEnable(0, 18), 0);

    EXPECT_EQ(Export<MDVR_GetDisplaySizeFn>(module_, "MDVR_GetDisplayWidth")(), 735);
    EXPECT_EQ(Export<MDVR_GetDisplaySizeFn>(module_, "MDVR_GetDisplayHeight")(), 600);

    auto setType = Export<MDVR_SetDevTypeFn>(module_, "MDVR_SetDevType");
    for (uint32_t type : {0u, 11u, 12u, 13u}) EXPECT_EQ(setType(type), 1);
    auto setChannels = Export<MDVR_SetDevChannelNumFn>(module_, "MDVR_SetDevChannelNum");
    EXPECT_EQ(setChannels(0), 0);
    EXPECT_EQ(setChannels(1), 1);
    EXPECT_EQ(setChannels(15), 1);
    EXPECT_EQ(setChannels(16), 0);

    auto activePage = Export<MDVR_AcceptAnyFn>(module_, "MDVR_ActivePage");
    auto saveLocal = Export<MDVR_AcceptAnyFn>(module_, "MDVR_SaveLocalCfgFile");
    EXPECT_EQ(activePage, saveLocal) << "one entry point under two names";
    EXPECT_EQ(activePage(nullptr), 1);
    EXPECT_EQ(Export<MDVR_IsLoadConfigFileFn>(module_, "MDVR_IsLoadConfigFile")(), 0);
}

TEST_F(Dll, LanguagePathNamesTheLogAndAlwaysSucceeds) {
    auto setLang = Export<MDVR_SetLangPathFn>(module_, "MDVR_SetLangPath");
    EXPECT_EQ(setLang("Z:\\no\\such\\language.ini"), 1);

    wchar_t appData[MAX_PATH] = {};
    ASSERT_EQ(SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, appData), S_OK);
    const std::string log = ReadFile(std::wstring(appData) + L"\\win_tests\\Log\\libvarcfg.log");
    EXPECT_NE(log.find("language file Z:\\no\\such\\language.ini"), std::string::npos) << log;
}

TEST_F(Dll, DisplayConfigCoversTheParentAndDiesWithIt) {
    auto display = Export<MDVR_DisplayConfigFn>(module_, "MDVR_DisplayConfig");
    HWND host = CreateHostWindow();
    ASSERT_NE(host, nullptr);
    g_recorder.requests.clear();
    EXPECT_EQ(display(host, nullptr), 0);
    // A new panel asks the recorder for its version once, through the host's callback.
    const std::string versionQuery = "<VariCfgSec Action=\"DEVICE_QUERY\"><stVersion /></VariCfgSec>";
    EXPECT_EQ(g_recorder.requests, std::vector<std::string>{versionQuery});
    EXPECT_EQ(display(host, nullptr), 0);  // each call adds a further panel
    EXPECT_EQ(g_recorder.requests, (std::vector<std::string>{versionQuery, versionQuery}));

    RECT client{};
    GetClientRect(host, &client);
    int panels = 0;
    for (HWND child = GetWindow(host, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        RECT r{};
        GetWindowRect(child, &r);
        MapWindowPoints(HWND_DESKTOP, host, reinterpret_cast<POINT*>(&r), 2);
        EXPECT_EQ(r.left, 0);
        EXPECT_EQ(r.top, 0);
        EXPECT_EQ(r.right, client.right);
        EXPECT_EQ(r.bottom, client.bottom);
        EXPECT_TRUE(IsWindowVisible(child) || !IsWindowVisible(host));
        ++panels;
    }
    EXPECT_EQ(panels, 2);
    HWND panel = GetWindow(host, GW_CHILD);
    DestroyWindow(host);
    EXPECT_FALSE(IsWindow(panel));
}

TEST_F(Dll, PreTranslationHandsKeysOtherThanTabBackToTheHost) {
    auto display = Export<MDVR_DisplayConfigFn>(module_, "MDVR_DisplayConfig");
    auto preTranslate = Export<MDVR_DllPreTranslateMessageFn>(module_, "MDVR_DllPreTranslateMessage");
    HWND host = CreateHostWindow();
    display(host, nullptr);
    HWND panel = GetWindow(host, GW_CHILD);
    ASSERT_NE(panel, nullptr);

    MSG enter{panel, WM_KEYDOWN, VK_RETURN, 0, 0, {}};
    EXPECT_EQ(preTranslate(&enter), 0);
    MSG tab{panel, WM_KEYDOWN, VK_TAB, 0, 0, {}};
    EXPECT_NE(preTranslate(&tab), 0) << "Tab is dialog navigation inside the panel";
    MSG hostTab{host, WM_KEYDOWN, VK_TAB, 0, 0, {}};
    EXPECT_EQ(preTranslate(&hostTab), 0) << "the host's own windows are not ours";
    DestroyWindow(host);
}

namespace {

// A careless host: every byte of the reply's text area filled, no terminator, a length that lies.
int32_t FillWholeReply(int32_t, MDVR_MsgRecord* request, MDVR_MsgRecord* reply, void* context) {
    static_cast<HostRecorder*>(context)->requests.push_back(request->data);
    std::memset(reply->data, '<', sizeof reply->data);
    reply->length = -1;
    return 1;
}

}  // namespace

TEST_F(Dll, HostThatFillsTheWholeReplyGetsAFailedReadNotACrash) {
    auto setConfig = Export<MDVR_SetConfigFunctionFn>(module_, "MDVR_SetConfigFunction");
    auto display = Export<MDVR_DisplayConfigFn>(module_, "MDVR_DisplayConfig");
    setConfig(FillWholeReply, nullptr, &g_recorder);
    g_recorder.requests.clear();
    varcfg::test::ModalWatcher watcher;
    // When no earlier panel of this process knew the version, the about page cannot be read either.
    watcher.Queue(varcfg::test::Answer::Key(VK_RETURN));
    HWND host = CreateHostWindow();
    EXPECT_EQ(display(host, nullptr), 0);
    EXPECT_LE(watcher.Seen().size(), 1u);
    ASSERT_FALSE(g_recorder.requests.empty());
    EXPECT_EQ(g_recorder.requests[0], "<VariCfgSec Action=\"DEVICE_QUERY\"><stVersion /></VariCfgSec>");
    DestroyWindow(host);
    setConfig(AnswerVersion, nullptr, &g_recorder);
    EXPECT_TRUE(watcher.Problems().empty());
}
