#include "protocol/ConfigTask.h"

#include <string_view>

#include "base/TraceFile.h"
#include "protocol/SectionDecoder.h"
#include "protocol/SectionFields.h"

using varcfg::BaseInfoRecord;
using varcfg::Field;
using varcfg::FieldTable;
using varcfg::NetWorkModeRecord;
using varcfg::PowerRecord;
using varcfg::ServerRecord;
using varcfg::VersionRecord;

namespace {

static_assert(std::string_view(varcfg::kBaseInfoFields[0].attribute) == "strFD_DeviceNo");
constexpr FieldTable<BaseInfoRecord> kBaseInfoTable = FieldTable(varcfg::kBaseInfoFields);
constexpr FieldTable<BaseInfoRecord> kBaseInfoTableWithoutDeviceNo = kBaseInfoTable.WithoutFirst(1);

}  // namespace

bool CConfig_Task::Import_stVersion(const TiXmlElement& section, VersionRecord& record) {
    return varcfg::DecodeAttributes(section, varcfg::kVersionFields, record).Succeeded();
}

bool CConfig_Task::Import_stNetWorkMode(const TiXmlElement& section, NetWorkModeRecord& record) {
    return varcfg::DecodeAttributes(section, varcfg::kNetWorkModeFields, record).Succeeded();
}

bool CConfig_Task::Import_stBaseInfo(const TiXmlElement& section, BaseInfoRecord& record, DeviceNo deviceNo) {
    const varcfg::DecodeResult result = varcfg::DecodeAttributes(
        section, deviceNo == DeviceNo::Check ? kBaseInfoTable : kBaseInfoTableWithoutDeviceNo, record);
    if (result.status == varcfg::DecodeStatus::TextRefused) {
        CTraceFile2::Diagnose("CConfig_Task::Import_stBaseInfo, invalid device id:" + result.refusedText + ".\n");
    }
    return result.Succeeded();
}

bool CConfig_Task::Import_stPower(const TiXmlElement& section, PowerRecord& record) {
    return varcfg::DecodeAttributes(section, varcfg::kPowerFields, record).Succeeded();
}

bool CConfig_Task::Import_stCMS(const TiXmlElement& section, ServerRecord& record) {
    return varcfg::DecodeAttributes(section, varcfg::kServerFields, record).Succeeded();
}
