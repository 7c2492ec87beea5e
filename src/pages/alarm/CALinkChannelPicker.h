// The modal picker of a linkage row's two channel sets (one check box per video channel in each of two
// rows). OK rebuilds both sets from the boxes, bits 8 to 15 cleared; Cancel leaves them as they were.
#pragma once

#include <cstdint>

#include "pages/base/CDlgCfgBase.h"

class CALinkChannelPicker : public CDlgCfgBase {
public:
    static constexpr int kChannels = 8;

    uint16_t FirstSet() const { return sets_[0]; }
    uint16_t SecondSet() const { return sets_[1]; }

protected:
    struct Layout {
        int templateId;
        uint32_t titleId;
        int firstLabel;
        uint32_t firstLabelTextId;
        int secondLabel;
        int channelHeader;
        int channelLabelFirst;
        int firstBoxFirst;
        int secondBoxFirst;
    };

    CALinkChannelPicker(const Layout& layout, int videoChannels, uint16_t firstSet, uint16_t secondSet);

    BOOL OnInitDialog() override;
    void OnCommand(int id, int code) override;
    void DoDataExchange(varcfg::DataExchange& dx) override;

private:
    Layout layout_;
    int videoChannels_;
    uint16_t sets_[2];
    int flags_[2][kChannels] = {};
};
