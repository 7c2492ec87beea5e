#include "protocol/AlarmSections.h"

#include <cstddef>
#include <cstdlib>
#include <cstring>

#include <tinyxml.h>

#include "protocol/AlarmFields.h"
#include "protocol/SectionDecoder.h"

namespace varcfg {
namespace {

// Both view attributes fill one member; the later one in the reply wins.
constexpr Field<AlarmLinkageItem> kLinkageItemFields[] = {
    VARCFG_FIELD(AlarmLinkageItem, linkageName, "strLinkageName", Text),
    VARCFG_FIELD(AlarmLinkageItem, linkageEnable, "ucLinkageEnable", Integer),
    VARCFG_FIELD(AlarmLinkageItem, alarmInType, "ucAlarmInType", Integer),
    VARCFG_FIELD(AlarmLinkageItem, alarmOutType, "usAlarmOutType", Integer),
    VARCFG_FIELD(AlarmLinkageItem, recordChannels, "usAlarmRecordCh", Integer),
    VARCFG_FIELD(AlarmLinkageItem, recordSendChannels, "usAlarmSendCh", Integer),
    VARCFG_FIELD(AlarmLinkageItem, snapshotWord, "usAlarmSnapCh", Integer),
    VARCFG_FIELD(AlarmLinkageItem, viewChannel, "ucViewChnNo", Integer),
    VARCFG_FIELD(AlarmLinkageItem, viewChannel, "usViewChnNo", Integer),
    VARCFG_FIELD(AlarmLinkageItem, recordDuration, "usAlarmRecordLast", Integer),
};

constexpr Field<VdaRecord> kVdaFields[] = {
    VARCFG_FIELD(VdaRecord, accLimitMd, "ucFD_AccLimitMD", Integer),
    VARCFG_FIELD(VdaRecord, delayTime, "usFD_DelayTime", Integer),
    VARCFG_FIELD(VdaRecord, intervalTime, "usFD_IntervalTime", Integer),
};

constexpr Field<VdaChannel> kVdaChannelFields[] = {
    VARCFG_FIELD(VdaChannel, enable, "ucFD_Enable", Integer),
    VARCFG_FIELD(VdaChannel, weekdays1, "ucFD_Wday1", Integer),
    VARCFG_FIELD(VdaChannel, start1, "uiStartT1", Integer),
    VARCFG_FIELD(VdaChannel, end1, "uiEndT1", Integer),
    VARCFG_FIELD(VdaChannel, weekdays2, "ucFD_Wday2", Integer),
    VARCFG_FIELD(VdaChannel, start2, "uiStartT2", Integer),
    VARCFG_FIELD(VdaChannel, end2, "uiEndT2", Integer),
    VARCFG_FIELD(VdaChannel, weekdays3, "ucFD_Wday3", Integer),
    VARCFG_FIELD(VdaChannel, start3, "uiStartT3", Integer),
    VARCFG_FIELD(VdaChannel, end3, "uiEndT3", Integer),
    VARCFG_FIELD(VdaChannel, sensitivity, "ucFD_Percent", Integer),
    VARCFG_FIELD(VdaChannel, mask, "uiFD_Mask", Text),
};

}  // namespace

bool DecodeAlarmIn(const TiXmlElement& section, AlarmInRecord& record) {
    if (!DecodeAttributes(section, kAlarmInFields, record).Succeeded()) return false;
    const TiXmlElement* container = FindContainer(section, "stAlarmInIO", "Import_stAlarmIn");
    if (container == nullptr) return true;
    return DecodeIndexedChildren(*container, IndexSuffix::AtLeastOneCharacter, kAlarmInEntries, kAlarmIoFields,
                                 record.inputs)
        .Succeeded();
}

bool DecodeAlarmLinkage(const TiXmlElement& section, AlarmLinkageRecord& record) {
    const TiXmlElement* container = FindContainer(section, "stAlarmLinkageItem", "Import_stAlarmLinkage");
    if (container == nullptr) return true;
    const NestedEntry output{"stAlarmOutIO", FieldList(FieldTable<AlarmIoEntry>(kAlarmIoFields)),
                             offsetof(AlarmLinkageItem, output)};
    return DecodeIndexedChildren(*container, IndexSuffix::AtLeastOneCharacter,
                                 FieldList(FieldTable<AlarmLinkageItem>(kLinkageItemFields)),
                                 reinterpret_cast<unsigned char*>(record.items), sizeof(AlarmLinkageItem),
                                 kLinkageItems, output)
        .Succeeded();
}

bool DecodeVda(const TiXmlElement& section, VdaRecord& record) {
    if (!DecodeAttributes(section, kVdaFields, record).Succeeded()) return false;
    const TiXmlElement* container = FindContainer(section, "stVdaPara", "Import_stVda");
    if (container == nullptr) return true;
    return DecodeIndexedChildren(*container, IndexSuffix::AtLeastOneCharacter, kVdaChannels, kVdaChannelFields,
                                 record.channels)
        .Succeeded();
}

void ParseMaskRows(const char* text, uint32_t (&rows)[32]) {
    std::size_t row = 0;
    for (const char* comma = std::strchr(text, ','); comma != nullptr && row < 32; comma = std::strchr(text, ',')) {
        const std::size_t length = static_cast<std::size_t>(comma - text);
        if (length > 16) break;
        const std::string piece(text, length);
        rows[row++] = static_cast<uint32_t>(std::strtoll(piece.c_str(), nullptr, 10));
        text = comma + 1;
    }
}

std::string MaskText(const uint32_t (&rows)[32]) {
    std::string text;
    for (uint32_t row : rows) text += std::to_string(static_cast<int32_t>(row)) + ",";
    return text;
}

}  // namespace varcfg
