// CDlgTabHost: a category made of tabs. It owns a tab strip and one page per tab, shows the page of the
// selected tab, and passes the setup area's load and save to that page only. Every switch to a tab
// reloads it: tabs keep no loaded state.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "pages/base/CDlgCfgBase.h"

class CDlgTabHost : public CDlgCfgBase {
public:
    // Loads the selected tab's page; 0 when no tab is selected.
    int Refresh() override;
    // Takes the dialog data in and saves the selected tab's page only; its result is returned as is.
    int Save() override;

    CDlgCfgBase* SelectedPage() const;
    int SelectedTab() const;
    // The page of each tab, in tab order.
    std::vector<CDlgCfgBase*> Pages() const;

protected:
    CDlgTabHost(int templateId, int tabControlId) : CDlgCfgBase(templateId), tabControlId_(tabControlId) {}

    // Called from the derived constructor, in tab order. A caption id of 0 uses the fixed caption.
    void AddTab(std::unique_ptr<CDlgCfgBase> page, uint32_t captionId, const wchar_t* fixedCaption = L"");

    BOOL OnInitDialog() override;
    LRESULT OnNotify(NMHDR* header) override;
    void OnSize(int width, int height) override;

    // Moves the tab strip to fill the host below top, and the pages into its display area.
    void LayoutTabs(int top);

private:
    struct Tab {
        std::unique_ptr<CDlgCfgBase> page;
        uint32_t captionId;
        std::wstring fixedCaption;
    };
    void ShowTab(int index);

    int tabControlId_;
    int tabTop_ = 0;
    std::vector<Tab> tabs_;
};
