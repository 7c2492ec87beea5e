// CConfig_Task: one import operation per section. Each fills the caller's record from the section
// element of an accepted query reply and returns whether the section decoded; members without an
// attribute in the reply keep their values, so callers pass a zeroed record.
#pragma once

#include "protocol/SectionRecords.h"

class TiXmlElement;

class CConfig_Task {
public:
    // Whether Import_stBaseInfo reads the device number. When it does, a number of fewer than 5 or more
    // than 12 characters stops decoding and fails it.
    enum class DeviceNo { Check, Skip };

    static bool Import_stVersion(const TiXmlElement& section, varcfg::VersionRecord& record);
    static bool Import_stNetWorkMode(const TiXmlElement& section, varcfg::NetWorkModeRecord& record);
    static bool Import_stBaseInfo(const TiXmlElement& section, varcfg::BaseInfoRecord& record,
                                  DeviceNo deviceNo = DeviceNo::Check);
    static bool Import_stPower(const TiXmlElement& section, varcfg::PowerRecord& record);
    static bool Import_stCMS(const TiXmlElement& section, varcfg::ServerRecord& record);
};
