// Table-driven tests of one configuration page: the page alone in a host window, against a fake
// recorder, driven by control id as a user would. A page's cases are rows of PageCase:
//
//   const PageCase kCases[] = {
//       {"an edited MAC sends all four values",
//        {{"stLocalEth0", R"(uiFD_LocalIp="10.0.0.1" strFD_Mac="00:11")"}},
//        {{IDC_LOCAL_IP, L"10.0.0.1"}},                 // shown after the load
//        {{IDC_LOCAL_MAC, L"AA:BB"}},                   // entered before the save
//        {R"(<VariCfgSec Action="DEVICE_SET">...)"}},   // sent by the save, exactly
//   };
//   for (const PageCase& c : kCases) RunPageCase<CDlgTabNetCfgLocal>(c);
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "FakeRecorder.h"
#include "ModalWatcher.h"
#include "TestHostWindow.h"
#include "pages/base/CDlgCfgBase.h"

namespace varcfg::test {

// A control as the user sees it, in one text: an edit's or a static's text; an IP address control's
// dotted text ("" when blank); a check box "1" or "0"; a list's selected entry text ("" for none); a
// date-time picker "YYYY-MM-DD HH:MM:SS".
std::wstring Shown(HWND page, int id);
// What a user does to a control: types the text into an edit, fills an IP address control, ticks
// ("1") or clears ("0") a check box, picks the list entry with that text, sets a date-time picker to
// "YYYY-MM-DD HH:MM:SS"; the page is notified as by the user's action (BN_CLICKED, CBN_SELCHANGE,
// EN_CHANGE, DTN_DATETIMECHANGE).
void Enter(HWND page, int id, const std::wstring& value);

using ControlValues = std::vector<std::pair<int, std::wstring>>;

struct PageCase {
    std::string name = {};
    std::vector<std::pair<std::string, std::string>> sections = {};  // the recorder's: name, attributes
    ControlValues shown = {};                 // after the load
    ControlValues edits = {};                 // entered before the save
    std::vector<std::string> sent = {};       // the settings the save sends, in order, exactly
    int saveResult = 1;
    std::vector<std::string> sentAgain = {};  // a second save with no edits in between
    std::string model = "MR4-A1";         // the recorder's model, from the built-in table
    int loadResult = 1;
    std::string settingReply = R"(<VariCfgSec Action="DEVICE_SET" Result="1" />)";
    std::vector<std::string> unreachable = {};  // sections whose settings fail in transport
    std::vector<std::string> refusing = {};     // sections whose settings are refused
    std::vector<int> boxAnswers = {};           // the buttons clicked in the message boxes, in order
    std::vector<std::pair<std::string, std::string>> replies = {};  // whole query replies: section, reply
};

// Makes the deployed English language file the language table, so that pages whose lists and messages
// come from language ids show what an operator would read.
void UseEnglishTexts();

// A page in a host window; the recorder answers the page's queries and records its requests.
class PageUnderTest {
public:
    PageUnderTest(std::unique_ptr<CDlgCfgBase> page, const std::string& model);
    ~PageUnderTest();

    CDlgCfgBase& Page() { return *page_; }
    HWND Hwnd() const { return page_->Hwnd(); }
    // The settings sent since the last call (queries left out).
    std::vector<std::string> TakeSettings();

    FakeRecorder recorder;
    ModalWatcher watcher;

private:
    HostWindow host_;
    std::unique_ptr<CDlgCfgBase> page_;
    std::size_t seen_ = 0;
};

// Loads, checks what is shown, enters the edits, saves, checks what was sent and the result, then
// saves again and checks that. Failures name the case.
void RunPageCase(const std::function<std::unique_ptr<CDlgCfgBase>()>& createPage, const PageCase& pageCase);

template <class Page>
void RunPageCase(const PageCase& pageCase) {
    RunPageCase([] { return std::make_unique<Page>(); }, pageCase);
}

}  // namespace varcfg::test
