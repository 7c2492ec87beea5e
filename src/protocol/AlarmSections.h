// Decoding of the alarm sections whose entries are numbered children: the alarm inputs (stAlarmIn),
// the linkage items with their outputs (stAlarmLinkage) and motion detection per channel (stVda).
// Each fills a zeroed record and returns whether the section decoded; a missing container leaves the
// entries as they were and still counts as decoded.
#pragma once

#include <cstdint>
#include <string>

#include "protocol/AlarmRecords.h"

class TiXmlElement;

namespace varcfg {

// Inputs numbered up to 11 from the children of stAlarmInIO; a child numbered 12 or more ends the
// decoding as a success, a name without a number after its underscore fails it.
bool DecodeAlarmIn(const TiXmlElement& section, AlarmInRecord& record);
// Items numbered up to 31 from the children of stAlarmLinkageItem, each with its stAlarmOutIO element.
bool DecodeAlarmLinkage(const TiXmlElement& section, AlarmLinkageRecord& record);
// Channels numbered up to 7 from the children of stVdaPara.
bool DecodeVda(const TiXmlElement& section, VdaRecord& record);

// The 32 rows of a detection mask text: each piece before a comma (at most 16 characters, else the
// reading stops) read as a signed decimal number; text after the last comma is not read.
void ParseMaskRows(const char* text, uint32_t (&rows)[32]);
// The mask text of 32 rows: each row in decimal followed by a comma.
std::string MaskText(const uint32_t (&rows)[32]);

}  // namespace varcfg
