// CDlgTabSerialCfgPtz: each video channel's PTZ camera address and protocol (stChnPtz). The page keeps
// every channel's values, shows one channel at a time, and writes all eight channel slots at once.
#pragma once

#include <cstdint>

#include "pages/base/CDlgCfgBase.h"

class CDlgTabSerialCfgPtz : public CDlgCfgBase {
public:
    static constexpr int kSlots = 8;

    CDlgTabSerialCfgPtz();

    // 1 when read, 0 when the transport failed or the section did not decode, -1 when the reply was
    // refused; the kept values change only on 1.
    int Refresh() override;
    // The shown channel from the lists, every other slot from the kept values. 1 when accepted, else 0.
    int Save() override;
    std::vector<SectionInfo> DeclaredSections() const override;

protected:
    BOOL OnInitDialog() override;
    void OnCommand(int id, int code) override;

private:
    void ShowChannel();

    int32_t address_[kSlots] = {};
    int32_t protocol_[kSlots] = {};
};
