// CDlgTabNetCfgWifi: the recorder's wireless LAN: whether it joins a network as a client (section
// stWifi, with DHCP or a fixed address) or acts as an access point (work mode in stWifi, the rest in
// stWifiAp); SSID, key, authentication and encryption. Every save sends what the work mode needs.
#pragma once

#include "pages/base/CDlgCfgBase.h"

class CDlgTabNetCfgWifi : public CDlgCfgBase {
public:
    CDlgTabNetCfgWifi();

    // 1 when read, 0 when the transport failed or the section did not decode, -1 when the reply was
    // refused. An authentication the list does not offer (open, 100) keeps the list's selection.
    int Refresh() override;
    // Client: one write of stWifi. Access point: the work mode, then stWifiAp, stopping when the first
    // is not accepted. 1 when the last write was accepted, else 0 with the edits kept on screen.
    int Save() override;
    std::vector<SectionInfo> DeclaredSections() const override;

protected:
    BOOL OnInitDialog() override;
    void OnCommand(int id, int code) override;

private:
    // Offers the encryptions of the selected authentication and selects the first; an open network
    // has none, and no key.
    void RebuildEncryptionList();
};
