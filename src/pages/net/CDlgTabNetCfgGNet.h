// CDlgTabNetCfgGNet: the recorder's cellular dial-up (section stMobileGNet): network type, access point
// name, dial number, user name and password. Choosing a network type fills in its carrier's dial number
// and access point name. Every save sends the whole section.
#pragma once

#include "pages/base/CDlgCfgBase.h"

class CDlgTabNetCfgGNet : public CDlgCfgBase {
public:
    CDlgTabNetCfgGNet();

    // 1 when read, 0 when the transport failed or the section did not decode, -1 when the reply was
    // refused. A network type the list does not offer keeps the list's selection.
    int Refresh() override;
    // 1 when the recorder accepted the section, else 0 with the edits kept on screen.
    int Save() override;
    std::vector<SectionInfo> DeclaredSections() const override;

protected:
    BOOL OnInitDialog() override;
    void OnCommand(int id, int code) override;
};
