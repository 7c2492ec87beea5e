// CDlgSetup: the setup area right of the menu. It owns one page per category, shows one at a time, and
// carries the read and write buttons that load the shown page from the recorder and save it back.
#pragma once

#include <map>
#include <memory>

#include "pages/base/CDlgCfgBase.h"
#include "ui/win/Skin.h"

class CDlgSetup : public varcfg::Dialog {
public:
    CDlgSetup();

    // Shows the page of the category; loads it the first time it is shown.
    void SelectCategory(int index);
    // Read button: loads the shown page again. Write button: saves it.
    void Read();
    void Write();

    CDlgCfgBase* ShownPage() const;
    int ShownCategory() const { return shown_; }

protected:
    BOOL OnInitDialog() override;
    void OnCommand(int id, int code) override;
    void OnSize(int width, int height) override;

private:
    std::map<int, std::unique_ptr<CDlgCfgBase>> pages_;
    int shown_ = -1;
    varcfg::SkinButton readButton_;
    varcfg::SkinButton writeButton_;
};
