// CALinkSnapCfg: the snapshot and snapshot-send channels of one linkage row.
#pragma once

#include "pages/alarm/CALinkChannelPicker.h"
#include "res/resource.h"

class CALinkSnapCfg : public CALinkChannelPicker {
public:
    CALinkSnapCfg(int videoChannels, uint16_t snapshotSet, uint16_t sendSet)
        : CALinkChannelPicker({IDD_LINK_SNAPSHOT, 24200, IDC_LINK_SNAPSHOT_SNAPSHOT_LABEL, 13027,
                               IDC_LINK_SNAPSHOT_SEND_LABEL, IDC_LINK_SNAPSHOT_CHANNEL_HEADER,
                               IDC_LINK_SNAPSHOT_CHANNEL_FIRST, IDC_LINK_SNAPSHOT_SNAPSHOT_FIRST,
                               IDC_LINK_SNAPSHOT_SEND_FIRST},
                              videoChannels, snapshotSet, sendSet) {}
};
