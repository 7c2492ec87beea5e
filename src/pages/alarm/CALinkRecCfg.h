// CALinkRecCfg: the record and record-send channels of one linkage row.
#pragma once

#include "pages/alarm/CALinkChannelPicker.h"
#include "res/resource.h"

class CALinkRecCfg : public CALinkChannelPicker {
public:
    CALinkRecCfg(int videoChannels, uint16_t recordSet, uint16_t sendSet)
        : CALinkChannelPicker({IDD_LINK_RECORD, 24065, IDC_LINK_RECORD_RECORD_LABEL, 13010, IDC_LINK_RECORD_SEND_LABEL,
                               IDC_LINK_RECORD_CHANNEL_HEADER, IDC_LINK_RECORD_CHANNEL_FIRST,
                               IDC_LINK_RECORD_RECORD_FIRST, IDC_LINK_RECORD_SEND_FIRST},
                              videoChannels, recordSet, sendSet) {}
};
