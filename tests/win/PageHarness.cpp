#include "PageHarness.h"

#include <gtest/gtest.h>

#include <cstring>
#include <cwchar>

#include "base/AnsiText.h"
#include "base/Platform.h"
#include "channel/DeviceVersion.h"
#include "ui/Language.h"
#include "ui/win/WinPlatform.h"
#include "ui/win/Controls.h"

namespace varcfg::test {
namespace {

std::wstring ClassOf(HWND control) {
    wchar_t name[64] = {};
    GetClassNameW(control, name, 64);
    return name;
}

bool IsCheckBox(HWND control) {
    const LONG_PTR type = GetWindowLongPtrW(control, GWL_STYLE) & BS_TYPEMASK;
    return type == BS_CHECKBOX || type == BS_AUTOCHECKBOX || type == BS_3STATE || type == BS_AUTO3STATE;
}

int ComboIndexOf(HWND control, const std::wstring& text) {
    const int count = static_cast<int>(SendMessageW(control, CB_GETCOUNT, 0, 0));
    for (int i = 0; i < count; ++i) {
        wchar_t entry[256] = {};
        if (SendMessageW(control, CB_GETLBTEXTLEN, static_cast<WPARAM>(i), 0) >= 256) continue;
        SendMessageW(control, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(entry));
        if (text == entry) return i;
    }
    return -1;
}

void Notify(HWND page, int id, int code) {
    SendMessageW(page, WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(GetDlgItem(page, id)));
}

}  // namespace

std::wstring Shown(HWND page, int id) {
    HWND control = GetDlgItem(page, id);
    const std::wstring kind = ClassOf(control);
    if (kind == WC_IPADDRESSW) return IpAddressText(page, id);
    if (kind == L"Button" && IsCheckBox(control)) return IsChecked(page, id) ? L"1" : L"0";
    if (kind == L"ComboBox") {
        const int index = ComboSelection(page, id);
        if (index < 0) return L"";
        std::wstring text(static_cast<std::size_t>(SendMessageW(control, CB_GETLBTEXTLEN, index, 0)) + 1, L'\0');
        SendMessageW(control, CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
        text.resize(std::wcslen(text.c_str()));
        return text;
    }
    if (kind == DATETIMEPICK_CLASSW) {
        SYSTEMTIME time{};
        if (!DateTimeValue(page, id, time)) return L"";
        wchar_t text[32];
        std::swprintf(text, 32, L"%04u-%02u-%02u %02u:%02u:%02u", time.wYear, time.wMonth, time.wDay, time.wHour,
                      time.wMinute, time.wSecond);
        return text;
    }
    return ItemText(page, id);
}

void Enter(HWND page, int id, const std::wstring& value) {
    HWND control = GetDlgItem(page, id);
    const std::wstring kind = ClassOf(control);
    if (kind == WC_IPADDRESSW) {
        SetIpAddressText(page, id, value);
    } else if (kind == L"Button" && IsCheckBox(control)) {
        SetChecked(page, id, value == L"1");
        Notify(page, id, BN_CLICKED);
    } else if (kind == DATETIMEPICK_CLASSW) {
        SYSTEMTIME time{};
        const int read = std::swscanf(value.c_str(), L"%hu-%hu-%hu %hu:%hu:%hu", &time.wYear, &time.wMonth, &time.wDay,
                                      &time.wHour, &time.wMinute, &time.wSecond);
        EXPECT_EQ(read, 6) << "picker " << id << " takes no " << ToAnsi(value);
        SetDateTimeValue(page, id, time);
        NMDATETIMECHANGE change{};
        change.nmhdr = {control, static_cast<UINT_PTR>(id), static_cast<UINT>(DTN_DATETIMECHANGE)};
        change.st = time;
        SendMessageW(page, WM_NOTIFY, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(&change));
    } else if (kind == L"ComboBox") {
        const int index = ComboIndexOf(control, value);
        EXPECT_TRUE(index >= 0 || value.empty()) << "list " << id << " has no entry " << ToAnsi(value);
        ComboSelect(page, id, index);
        Notify(page, id, CBN_SELCHANGE);
    } else {
        SetItemText(page, id, value);
        Notify(page, id, EN_CHANGE);
    }
}

void UseEnglishTexts() {
    wchar_t program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    std::wstring file = program;
    file = file.substr(0, file.find_last_of(L'\\') + 1) + L"Lang\\English.ini";
    InstallPlatform(&WindowsPlatform());
    CLanguage::Instance().SetLanguagePath(file);
}

PageUnderTest::PageUnderTest(std::unique_ptr<CDlgCfgBase> page, const std::string& model) : page_(std::move(page)) {
    // The profile the panel would have assigned after the version query.
    Device() = DeviceState{};
    std::strncpy(Device().version.model, model.c_str(), sizeof Device().version.model - 1);
    Device().version.videoChannelCount = 4;
    Device().versionKnown = 1;
    AssignProfile();
    page_->Create(host_);
    page_->Show(true);
}

PageUnderTest::~PageUnderTest() {
    host_.Destroy();
    EXPECT_TRUE(watcher.Problems().empty());
}

std::vector<std::string> PageUnderTest::TakeSettings() {
    std::vector<std::string> settings;
    for (; seen_ < recorder.requests.size(); ++seen_) {
        const std::string& text = recorder.requests[seen_].text;
        if (text.find("Action=\"DEVICE_QUERY\"") == std::string::npos) settings.push_back(text);
    }
    return settings;
}

void RunPageCase(const std::function<std::unique_ptr<CDlgCfgBase>()>& createPage, const PageCase& pageCase) {
    SCOPED_TRACE(pageCase.name);
    PageUnderTest page(createPage(), pageCase.model);
    for (const auto& [section, attributes] : pageCase.sections) page.recorder.SetSection(section, attributes);
    for (const auto& [section, reply] : pageCase.replies) page.recorder.SetQueryReply(section, reply);
    page.recorder.settingReply = pageCase.settingReply;
    page.recorder.unreachableSections.insert(pageCase.unreachable.begin(), pageCase.unreachable.end());
    page.recorder.refusingSections.insert(pageCase.refusing.begin(), pageCase.refusing.end());
    for (int button : pageCase.boxAnswers) page.watcher.Queue(Answer::Click(button));

    EXPECT_EQ(page.Page().Refresh(), pageCase.loadResult);
    for (const auto& [id, expected] : pageCase.shown) {
        EXPECT_EQ(ToAnsi(Shown(page.Hwnd(), id)), ToAnsi(expected)) << "control " << id << " after the load";
    }
    page.TakeSettings();

    for (const auto& [id, value] : pageCase.edits) Enter(page.Hwnd(), id, value);
    EXPECT_EQ(page.Page().Save(), pageCase.saveResult);
    EXPECT_EQ(page.TakeSettings(), pageCase.sent) << "the save";
    page.Page().Save();
    EXPECT_EQ(page.TakeSettings(), pageCase.sentAgain) << "a second save with no edits";
}

}  // namespace varcfg::test
