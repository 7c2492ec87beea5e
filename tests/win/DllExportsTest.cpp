// Loads the built libvarcfg_18.dll as a host does and calls every export.
#include <windows.h>
#include <shlobj.h>

#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <tuple>
#include <vector>

#include "ModalWatcher.h"
#include "TestHostWindow.h"
#include "varcfg/host_api.h"

namespace {

template <class Fn>
Fn Export(HMODULE dll, const char* name) {
    return reinterpret_cast<Fn>(reinterpret_cast<void*>(GetProcAddress(dll, name)));
}

const std::string kVersionQuery = "<VariCfgSec Action=\"DEVICE_QUERY\"><stVersion /></VariCfgSec>";

// The host's side of the recorder: records the requests in the vector it is given, answers the version.
int32_t AnswerVersion(int32_t mode, MDVR_MsgRecord* request, MDVR_MsgRecord* reply, void* requests) {
    static_cast<std::vector<std::string>*>(requests)->push_back(request->data);
    const char answer[] =
        R"(<VariCfgSec Action="DEVICE_QUERY"><stVersion Model="MR4-A1" strAppVer="5.4.1" /></VariCfgSec>)";
    std::memcpy(reply->data, answer, sizeof answer);
    return mode == MDVR_REQUEST_EXCHANGE ? 1 : 0;
}

// A careless host: every byte of the reply's text area filled, no terminator, a length that lies.
int32_t FillWholeReply(int32_t, MDVR_MsgRecord* request, MDVR_MsgRecord* reply, void* requests) {
    static_cast<std::vector<std::string>*>(requests)->push_back(request->data);
    std::memset(reply->data, '<', sizeof reply->data);
    reply->length = -1;
    return 1;
}

class Dll : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        module_ = LoadLibraryW(L"libvarcfg_18.dll");
        // As a host must: the callbacks before any panel.
        if (module_ != nullptr) Export<MDVR_SetConfigFunctionFn>(module_, "MDVR_SetConfigFunction")(AnswerVersion, nullptr, &requests_);
    }
    static void TearDownTestSuite() { FreeLibrary(module_); }
    void SetUp() override {
        ASSERT_NE(module_, nullptr) << "libvarcfg_18.dll not found beside the test";
        requests_.clear();
    }

    static HMODULE module_;
    static std::vector<std::string> requests_;
};
HMODULE Dll::module_ = nullptr;
std::vector<std::string> Dll::requests_;

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
    for (uint32_t channels : {1u, 15u}) EXPECT_EQ(setChannels(channels), 1);
    for (uint32_t channels : {0u, 16u}) EXPECT_EQ(setChannels(channels), 0);

    auto activePage = Export<MDVR_AcceptAnyFn>(module_, "MDVR_ActivePage");
    EXPECT_EQ(activePage, Export<MDVR_AcceptAnyFn>(module_, "MDVR_SaveLocalCfgFile")) << "one entry point under two names";
    EXPECT_EQ(activePage(nullptr), 1);
    EXPECT_EQ(Export<MDVR_IsLoadConfigFileFn>(module_, "MDVR_IsLoadConfigFile")(), 0);
}

// The plug-in's log as the host's user finds it.
std::string LogText() {
    wchar_t appData[MAX_PATH] = {};
    if (SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, appData) != S_OK) return {};
    std::ifstream in((std::wstring(appData) + L"\\win_tests\\Log\\libvarcfg.log").c_str(), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

TEST_F(Dll, LanguagePathNamesTheLogAndAlwaysSucceeds) {
    EXPECT_EQ(Export<MDVR_SetLangPathFn>(module_, "MDVR_SetLangPath")("Z:\\no\\such\\language.ini"), 1);
    const std::string log = LogText();
    EXPECT_NE(log.find("language file Z:\\no\\such\\language.ini cannot be opened"), std::string::npos) << log;
}

// A refused reply: the reply check's reason, then the request it answered.
int32_t RefuseEverything(int32_t, MDVR_MsgRecord* request, MDVR_MsgRecord* reply, void* requests) {
    static_cast<std::vector<std::string>*>(requests)->push_back(request->data);
    const char answer[] = R"(<VariCfgSec Action="DEVICE_QUERY" Result="0" />)";
    std::memcpy(reply->data, answer, sizeof answer);
    return 1;
}

TEST_F(Dll, MisuseAndRefusalsAreNamedInTheLog) {
    auto setConfig = Export<MDVR_SetConfigFunctionFn>(module_, "MDVR_SetConfigFunction");
    auto display = Export<MDVR_DisplayConfigFn>(module_, "MDVR_DisplayConfig");
    Export<MDVR_SetLangPathFn>(module_, "MDVR_SetLangPath")("Lang\\English.ini");
    varcfg::test::ModalWatcher watcher;

    // No parent window: no panel, and the log says why.
    EXPECT_EQ(display(nullptr, nullptr), 0);
    EXPECT_NE(LogText().find("no panel created: the parent window is null"), std::string::npos);

    // No request callback: the panel's reads fail with the tip, and the log names the cause.
    setConfig(nullptr, nullptr, nullptr);
    watcher.Queue(varcfg::test::Answer::Key(VK_RETURN));
    {
        varcfg::test::HostWindow host;
        EXPECT_EQ(display(host, nullptr), 0);
    }
    EXPECT_NE(LogText().find("no request callback: MDVR_SetConfigFunction was not called"), std::string::npos);

    // A recorder that refuses: the check's own reason and the request it answered.
    setConfig(RefuseEverything, nullptr, &requests_);
    watcher.Queue(varcfg::test::Answer::Key(VK_RETURN));
    {
        varcfg::test::HostWindow host;
        EXPECT_EQ(display(host, nullptr), 0);
    }
    setConfig(AnswerVersion, nullptr, &requests_);
    const std::string log = LogText();
    const std::size_t reason = log.find("CNetCtrl::GetParaValue,  get paraElement failed.");
    ASSERT_NE(reason, std::string::npos) << log;
    EXPECT_NE(log.find("reply refused; it answered <VariCfgSec Action=\"DEVICE_QUERY\"><stVersion />", reason),
              std::string::npos)
        << log;
    EXPECT_TRUE(watcher.Problems().empty());
}

TEST_F(Dll, DisplayConfigCoversTheParentKeepsOnlyTabAndDiesWithIt) {
    auto display = Export<MDVR_DisplayConfigFn>(module_, "MDVR_DisplayConfig");
    auto preTranslate = Export<MDVR_DllPreTranslateMessageFn>(module_, "MDVR_DllPreTranslateMessage");
    varcfg::test::HostWindow host;
    EXPECT_EQ(display(host, nullptr), 0);
    // A new panel asks the recorder for its version once, through the host's callback.
    EXPECT_EQ(requests_, std::vector<std::string>{kVersionQuery});
    EXPECT_EQ(display(host, nullptr), 0);  // each call adds a further panel
    EXPECT_EQ(requests_, (std::vector<std::string>{kVersionQuery, kVersionQuery}));

    RECT client{};
    GetClientRect(host, &client);
    int panels = 0;
    for (HWND child = GetWindow(host, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        RECT r{};
        GetWindowRect(child, &r);
        MapWindowPoints(HWND_DESKTOP, host, reinterpret_cast<POINT*>(&r), 2);
        EXPECT_EQ(std::make_tuple(r.left, r.top, r.right, r.bottom), std::make_tuple(0L, 0L, client.right, client.bottom));
        EXPECT_TRUE(IsWindowVisible(child) || !IsWindowVisible(host));
        ++panels;
    }
    EXPECT_EQ(panels, 2);
    HWND panel = GetWindow(host, GW_CHILD);

    // Pre-translation hands keys other than Tab back to the host.
    MSG enter{panel, WM_KEYDOWN, VK_RETURN, 0, 0, {}};
    EXPECT_EQ(preTranslate(&enter), 0);
    MSG tab{panel, WM_KEYDOWN, VK_TAB, 0, 0, {}};
    EXPECT_NE(preTranslate(&tab), 0) << "Tab is dialog navigation inside the panel";
    MSG hostTab{host, WM_KEYDOWN, VK_TAB, 0, 0, {}};
    EXPECT_EQ(preTranslate(&hostTab), 0) << "the host's own windows are not ours";

    host.Destroy();
    EXPECT_FALSE(IsWindow(panel));
}

TEST_F(Dll, HostThatFillsTheWholeReplyGetsAFailedReadNotACrash) {
    auto setConfig = Export<MDVR_SetConfigFunctionFn>(module_, "MDVR_SetConfigFunction");
    setConfig(FillWholeReply, nullptr, &requests_);
    varcfg::test::ModalWatcher watcher;
    // When no earlier panel of this process knew the version, the about page cannot be read either.
    watcher.Queue(varcfg::test::Answer::Key(VK_RETURN));
    {
        varcfg::test::HostWindow host;
        EXPECT_EQ(Export<MDVR_DisplayConfigFn>(module_, "MDVR_DisplayConfig")(host, nullptr), 0);
    }
    setConfig(AnswerVersion, nullptr, &requests_);
    EXPECT_LE(watcher.Seen().size(), 1u);
    EXPECT_TRUE(watcher.Problems().empty());
    ASSERT_FALSE(requests_.empty());
    EXPECT_EQ(requests_[0], kVersionQuery);
}
