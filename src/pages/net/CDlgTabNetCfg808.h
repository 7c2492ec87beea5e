// CDlgTabNetCfg808: the recorder's link to JT/T 808 platforms: the link switch (stNetWorkMode), the
// vehicle and terminal registration (stCarInfo) and a primary and a secondary server (st808CMS1,
// st808CMS2), each by IP address or domain name plus port. Sections are written only when changed.
#pragma once

#include "pages/base/CDlgCfgBase.h"

class CDlgTabNetCfg808 : public CDlgCfgBase {
public:
    CDlgTabNetCfg808();

    // The four sections in order: 1 when all were read; otherwise the first failure, 0 transport or
    // decoding, -1 a refused reply, and the sections after it are not read.
    int Refresh() override;
    // Writes the changed sections in order; 1 when all were accepted, else 0 at the first failed write.
    // Sections written before it stay written; the edits stay on screen.
    int Save() override;
    std::vector<SectionInfo> DeclaredSections() const override;

protected:
    BOOL OnInitDialog() override;
};
