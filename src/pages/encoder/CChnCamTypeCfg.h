// CChnCamTypeCfg: the modal dialog in which the user sets each channel's camera type (960H, 720P or
// 1080P) on models whose video mode is fixed. It edits the channel-resolution mask, four bits per
// channel with channel 1 lowest; the opener writes the mask when the dialog ends with OK.
#pragma once

#include <cstdint>

#include "pages/base/CDlgCfgBase.h"

class CChnCamTypeCfg : public CDlgCfgBase {
public:
    // Channels at or above channelCount are hidden and add nothing to the mask; with firstFourLocked
    // the types of channels 1-4 cannot be changed.
    CChnCamTypeCfg(int channelCount, uint32_t mask, bool firstFourLocked);

    // The edited mask, after OK.
    uint32_t Mask() const { return mask_; }

protected:
    BOOL OnInitDialog() override;
    void OnCommand(int id, int code) override;

private:
    int channelCount_;
    uint32_t mask_;
    bool firstFourLocked_;
};
