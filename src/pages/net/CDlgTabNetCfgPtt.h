// CDlgTabNetCfgPtt: push-to-talk: the switch and talk group (stPtt) and the dispatch centre's address
// (stPttDcn). Each section is written only when it changed since the last read or accepted write.
#pragma once

#include "pages/base/CDlgCfgBase.h"

class CDlgTabNetCfgPtt : public CDlgCfgBase {
public:
    CDlgTabNetCfgPtt();

    // 1 when both sections were read; otherwise the first failure: 0 transport or decoding, -1 a refused
    // reply.
    int Refresh() override;
    // 1 when every changed section was accepted (or none changed); 0 at the first failed write, which
    // keeps the edits on screen and writes nothing after it.
    int Save() override;
    std::vector<SectionInfo> DeclaredSections() const override;

protected:
    BOOL OnInitDialog() override;
};
