// CDlgTabNetCfgLocal: the recorder's wired Ethernet port (section stLocalEth0): IP address, subnet
// mask, gateway and MAC address. It writes only when one of the four changed since the last read or
// accepted write.
#pragma once

#include "pages/base/CDlgCfgBase.h"

class CDlgTabNetCfgLocal : public CDlgCfgBase {
public:
    CDlgTabNetCfgLocal();

    // 1 when read, 0 when the transport failed, -1 when the reply was refused; controls and baseline
    // change only on 1.
    int Refresh() override;
    // 1 when written and accepted, or when nothing changed; 0 on failure, with the edits kept on screen.
    int Save() override;
    std::vector<SectionInfo> DeclaredSections() const override;

protected:
    BOOL OnInitDialog() override;
};
