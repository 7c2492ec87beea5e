// The network category: local Ethernet, Wi-Fi, mobile network, centre server, PTT and 808 tabs, and
// above them the recorder's network type (section stNetWorkMode), which this host reads and writes.
#pragma once

#include <cstdint>

#include "shell/CDlgTabHost.h"

class CDlgNetSet : public CDlgTabHost {
public:
    CDlgNetSet();

    // Reads the network type, then the selected tab; returns the tab's result.
    int Refresh() override;
    // Writes the network type when it changed, then saves the selected tab. A failed network-type
    // write returns 0 without saving the tab.
    int Save() override;

protected:
    BOOL OnInitDialog() override;
    void DoDataExchange(varcfg::DataExchange& dx) override;

private:
    int QueryNetworkMode();

    int netType_ = -1;          // the list's selection
    int loadedNetType_ = -1;    // as last read or written
    uint16_t gpsInterval_ = 0;  // not edited here: sent back as the recorder reported it
    uint16_t loadedGpsInterval_ = 0;
};
