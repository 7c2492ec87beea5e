// CDlgAboutSetup: the recorder's firmware versions, from the version block read when the panel opened,
// and the plug-in's own build stamp. It sends nothing to the recorder. Ctrl+M or a right double-click
// reveals the recorder's internal model line.
#pragma once

#include "pages/base/CDlgCfgBase.h"

class CDlgAboutSetup : public CDlgCfgBase {
public:
    CDlgAboutSetup();

    // Shows the version texts of the version block; always 1.
    int Refresh() override;
    // Takes the fields in; nothing is written. Always 1.
    int Save() override;
    std::vector<SectionInfo> DeclaredSections() const override;

protected:
    BOOL OnInitDialog() override;
    BOOL PreTranslateMessage(MSG* message) override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

private:
    void ShowModelLine(bool visible);
};
