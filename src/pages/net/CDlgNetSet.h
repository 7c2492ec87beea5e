// The network category: local Ethernet, Wi-Fi, mobile network, centre server, PTT and 808 tabs, and
// above them the recorder's network type (section stNetWorkMode), which this host reads and writes.
#pragma once

#include "pages/base/CDlgTabHost.h"
#include "protocol/SectionRecords.h"

class CDlgNetSet : public CDlgTabHost {
public:
    CDlgNetSet();

    // Reads the network type, then the selected tab; returns the tab's result.
    int Refresh() override;
    // Writes the network type when it changed, then saves the selected tab. A failed network-type
    // write returns 0 without saving the tab.
    int Save() override;
    std::vector<SectionInfo> DeclaredSections() const override;

protected:
    BOOL OnInitDialog() override;
};
