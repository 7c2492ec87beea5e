#include "shell/CDlgSetup.h"

#include "res/resource.h"
#include "shell/Categories.h"
#include "channel/DeviceVersion.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"
#include "ui/win/MsgTip.h"

using namespace varcfg;

namespace {

constexpr int kCommandStripHeight = 50;
constexpr int kButtonWidth = 110;
constexpr int kButtonHeight = 30;
constexpr int kButtonGap = 12;

constexpr uint32_t kReadFailedText = 21005;
constexpr uint32_t kWriteFailedText = 21003;
constexpr uint32_t kWriteSucceededText = 21004;

void Tip(uint32_t textId) { ShowMsgTip(CLanguage::Instance().Text(textId), kTipConfirm); }

}  // namespace

CDlgSetup::CDlgSetup() : Dialog(IDD_SETUP) {}

BOOL CDlgSetup::OnInitDialog() {
    // The version query fills the model profile that sizes the pages; a failure is retried on the
    // first read or write.
    QueryDeviceVersion();

    for (const Category& category : Categories()) {
        std::unique_ptr<CDlgCfgBase> page = category.createPage();
        page->Create(Hwnd());
        pages_.emplace(category.index, std::move(page));
    }

    readButton_.Attach(Hwnd(), IDC_SETUP_READ);
    writeButton_.Attach(Hwnd(), IDC_SETUP_WRITE);
    SetCaptions(Hwnd(), {{IDC_SETUP_READ, 15006}, {IDC_SETUP_WRITE, 15007}});

    RECT client{};
    GetClientRect(Hwnd(), &client);
    OnSize(client.right, client.bottom);
    return TRUE;
}

void CDlgSetup::OnSize(int width, int height) {
    if (pages_.empty()) return;
    const int pageHeight = height - kCommandStripHeight;
    for (const auto& entry : pages_) MoveWindow(entry.second->Hwnd(), 0, 0, width, pageHeight, TRUE);
    // The two buttons share the strip below the pages, read first.
    for (HWND button : {readButton_.Hwnd(), writeButton_.Hwnd()}) {
        SetWindowPos(button, nullptr, 0, 0, kButtonWidth, kButtonHeight, SWP_NOMOVE | SWP_NOZORDER);
    }
    ArrangeButtonRow({readButton_.Hwnd(), writeButton_.Hwnd()}, RECT{0, pageHeight, width, height}, kButtonGap);
}

void CDlgSetup::OnCommand(int id, int code) {
    if (code != BN_CLICKED) return;
    if (id == IDC_SETUP_READ) Read();
    if (id == IDC_SETUP_WRITE) Write();
}

CDlgCfgBase* CDlgSetup::ShownPage() const {
    const auto found = pages_.find(shown_);
    return found != pages_.end() ? found->second.get() : nullptr;
}

void CDlgSetup::SelectCategory(int index) {
    bool matched = false;
    for (const auto& [pageIndex, page] : pages_) {
        const bool show = pageIndex == index;
        page->Show(show);
        if (show) {
            shown_ = index;
            matched = true;
        }
    }
    if (!matched) return;
    // Switching back to a page never reloads it; the read button does.
    if (ShownPage()->IsLoaded()) return;
    Read();
}

void CDlgSetup::Read() {
    CDlgCfgBase* page = ShownPage();
    if (page == nullptr) return;
    if (!Device().versionKnown && QueryDeviceVersion() != 1) {
        Tip(kReadFailedText);
        return;
    }
    if (page->Refresh()) {
        page->SetLoaded();
        return;
    }
    // The user may have moved on during the exchange: a hidden page's failure is not worth a tip.
    if (page->IsVisible()) Tip(kReadFailedText);
}

void CDlgSetup::Write() {
    CDlgCfgBase* page = ShownPage();
    if (page == nullptr) return;
    if (!Device().versionKnown) {
        if (QueryDeviceVersion() != 1) {
            Tip(kWriteFailedText);
            return;
        }
        Tip(kWriteSucceededText);
    }
    const int result = page->Save();
    if (result == -1) return;  // the page refused its own input and has told the user
    Tip(result != 0 ? kWriteSucceededText : kWriteFailedText);
}
