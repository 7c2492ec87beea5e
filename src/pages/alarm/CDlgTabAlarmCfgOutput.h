// CDlgTabAlarmCfgOutput: the alarm outputs' level and function. Output k is kept in linkage item k of
// stAlarmLinkage. Rows beyond the model's alarm outputs are hidden; a save writes the shown rows, on
// every save.
#pragma once

#include "pages/base/CDlgCfgBase.h"

class CDlgTabAlarmCfgOutput : public CDlgCfgBase {
public:
    CDlgTabAlarmCfgOutput();

    // 1 when read, 0 when the transport failed or an item was misnamed, -1 when refused.
    int Refresh() override;
    // 1 when written and accepted, 0 otherwise.
    int Save() override;
    std::vector<SectionInfo> DeclaredSections() const override;

protected:
    BOOL OnInitDialog() override;
};
