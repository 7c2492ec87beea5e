// CDlgTabSerialCfg: each serial port's peripheral and line settings (stSerial). The page reads every
// port at once, keeps their values, shows one port at a time and writes only the port shown.
#pragma once

#include "catalogue/SerialCatalogue.h"
#include "pages/base/CDlgCfgBase.h"

class CDlgTabSerialCfg : public CDlgCfgBase {
public:
    static constexpr int kKeptPorts = 8;

    CDlgTabSerialCfg();

    // 1 when read, 0 when the transport failed or the section did not decode, -1 when the reply was
    // refused; the kept values change only on 1.
    int Refresh() override;
    // Writes the shown port. 1 when accepted (its values are then kept), else 0.
    int Save() override;
    std::vector<SectionInfo> DeclaredSections() const override;

protected:
    BOOL OnInitDialog() override;
    void OnCommand(int id, int code) override;

private:
    void ShowPort();

    // Each port as last read or written, its parity as the index of the parity list.
    varcfg::SerialPortRecord ports_[kKeptPorts] = {};
};
