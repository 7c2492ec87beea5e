#include "pages/base/CDlgTabHost.h"

#include "ui/Language.h"
#include "ui/win/Controls.h"

using namespace varcfg;

void CDlgTabHost::AddTab(std::unique_ptr<CDlgCfgBase> page, uint32_t captionId, const wchar_t* fixedCaption) {
    tabs_.push_back({std::move(page), captionId, fixedCaption});
}

BOOL CDlgTabHost::OnInitDialog() {
    HWND self = Hwnd();
    for (std::size_t i = 0; i < tabs_.size(); ++i) {
        const Tab& tab = tabs_[i];
        TabInsert(self, tabControlId_, static_cast<int>(i),
                  tab.captionId != 0 ? CLanguage::Instance().Text(tab.captionId) : tab.fixedCaption);
        tab.page->Create(self);
    }
    // The pages lie over the tab strip's display area.
    SetWindowLongPtrW(Item(tabControlId_), GWL_STYLE, GetWindowLongPtrW(Item(tabControlId_), GWL_STYLE) | WS_CLIPSIBLINGS);
    RECT strip{};
    GetWindowRect(Item(tabControlId_), &strip);
    MapWindowPoints(HWND_DESKTOP, self, reinterpret_cast<POINT*>(&strip), 2);
    tabTop_ = strip.top;
    RECT client{};
    GetClientRect(self, &client);
    OnSize(client.right, client.bottom);
    TabSelect(self, tabControlId_, 0);
    ShowTab(0);
    return TRUE;
}

void CDlgTabHost::OnSize(int, int) { LayoutTabs(tabTop_); }

void CDlgTabHost::LayoutTabs(int top) {
    HWND self = Hwnd();
    RECT client{};
    GetClientRect(self, &client);
    MoveWindow(Item(tabControlId_), 0, top, client.right, client.bottom - top, TRUE);
    const RECT area = TabDisplayArea(self, tabControlId_);
    for (const Tab& tab : tabs_) {
        SetWindowPos(tab.page->Hwnd(), HWND_TOP, area.left, area.top, area.right - area.left, area.bottom - area.top,
                     SWP_NOACTIVATE);
    }
}

void CDlgTabHost::ShowTab(int index) {
    for (std::size_t i = 0; i < tabs_.size(); ++i) tabs_[i].page->Show(static_cast<int>(i) == index);
}

int CDlgTabHost::SelectedTab() const { return TabSelection(Hwnd(), tabControlId_); }

CDlgCfgBase* CDlgTabHost::SelectedPage() const {
    const int index = SelectedTab();
    return index >= 0 && index < static_cast<int>(tabs_.size()) ? tabs_[static_cast<std::size_t>(index)].page.get()
                                                                 : nullptr;
}

std::vector<CDlgCfgBase*> CDlgTabHost::Pages() const {
    std::vector<CDlgCfgBase*> pages;
    for (const Tab& tab : tabs_) pages.push_back(tab.page.get());
    return pages;
}

LRESULT CDlgTabHost::OnNotify(NMHDR* header) {
    if (header->idFrom != static_cast<UINT_PTR>(tabControlId_) || header->code != TCN_SELCHANGE) return 0;
    CDlgCfgBase* page = SelectedPage();
    if (page == nullptr) return 0;
    ShowTab(SelectedTab());
    page->Refresh();
    return 0;
}

int CDlgTabHost::Refresh() {
    CDlgCfgBase* page = SelectedPage();
    const int result = page != nullptr ? page->Refresh() : 0;
    UpdateData(false);
    Redraw();
    return result;
}

int CDlgTabHost::Save() {
    UpdateData(true);
    CDlgCfgBase* page = SelectedPage();
    const int result = page != nullptr ? page->Save() : 0;
    Redraw();
    return result;
}
