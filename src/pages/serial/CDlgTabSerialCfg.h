// CDlgTabSerialCfg: each serial port's peripheral and line settings (stSerial). The page reads every
// port at once, keeps their values, shows one port at a time and writes only the port shown.
#pragma once

#include <cstdint>

#include "pages/base/CDlgCfgBase.h"

// One port of stSerial. Parity is a character code ('n', 'o', 'e'), as the recorder stores it.
struct SerialPortRecord {
    uint8_t peripheral;
    uint32_t baudRate;
    uint8_t dataBits;
    uint8_t parity;
    uint8_t stopBits;
    uint8_t count;
};

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

    SerialPortRecord ports_[kKeptPorts] = {};
};
