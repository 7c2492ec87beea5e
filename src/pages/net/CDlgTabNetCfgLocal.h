// CDlgTabNetCfgLocal: the recorder's wired Ethernet port (section stLocalEth0): IP address, subnet
// mask, gateway and MAC address. It keeps the values last read or written as a baseline and writes
// only when one of the four changed.
#pragma once

#include <string>

#include "shell/CfgBase.h"

class CDlgTabNetCfgLocal : public CDlgCfgBase {
public:
    CDlgTabNetCfgLocal();

    // 1 when read, 0 when the transport failed, -1 when the reply was refused; controls and baseline
    // change only on 1.
    int Refresh() override;
    // 1 when written and accepted, or when nothing changed; 0 on failure, with the edits kept on screen.
    int Save() override;

protected:
    BOOL OnInitDialog() override;
    void DoDataExchange(varcfg::DataExchange& dx) override;

private:
    struct Address {
        std::wstring ip;
        std::wstring mask;
        std::wstring gateway;
        std::wstring mac;
        bool operator==(const Address& other) const {
            return ip == other.ip && mask == other.mask && gateway == other.gateway && mac == other.mac;
        }
    };

    Address current_;
    Address baseline_;
};
