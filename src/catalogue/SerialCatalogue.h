// The serial sections: the serial ports.
#pragma once

#include "catalogue/SectionCatalogue.h"

namespace varcfg {

// One port of stSerial (a SerialChn_ child of stSerialChnPara).
struct SerialPortRecord {
    uint8_t peripheral;
    uint32_t baudRate;
    uint8_t dataBits;
    uint8_t parity;  // a character code: 'o' odd, 'e' even, anything else none
    uint8_t stopBits;
    uint8_t count;
};
inline constexpr Field<SerialPortRecord> kSerialPortFields[] = {
    VARCFG_FIELD(SerialPortRecord, peripheral, "ucFD_DataMode", Integer),
    VARCFG_FIELD(SerialPortRecord, baudRate, "uiBaudRate", Integer),
    VARCFG_FIELD(SerialPortRecord, dataBits, "ucDataBit", Integer),
    VARCFG_FIELD(SerialPortRecord, parity, "ucParity", Integer),
    VARCFG_FIELD(SerialPortRecord, stopBits, "ucStopBit", Integer),
    VARCFG_FIELD(SerialPortRecord, count, "ucCount", Integer),
};
// Parity is written as a letter (none, odd, even by the list's order) and read back as a character code.
inline constexpr long long kParityLetters[] = {'n', 'o', 'e'};
inline constexpr ValueList kParityByIndex{kParityLetters, 'n'};
inline constexpr PlaceholderSource kSerialHeadSources[] = {kPieceNumber};
inline constexpr PlaceholderSource kSerialPortSources[] = {
    kEntryNumber,                 FromAttribute("ucFD_DataMode"), FromAttribute("uiBaudRate"),
    FromAttribute("ucDataBit"),   FromAttribute("ucStopBit"),     FromAttribute("ucParity").AsListed(kParityByIndex),
    kEntryNumber};
// ucStopBit follows two blanks, and the closing part opens stSerialChnPara again and closes an
// stAlarmLinkage never opened: the recorder accepts this form.
inline constexpr SettingTemplate kSerialSettings[] = {
    {{L"<VariCfgSec Action=\"DEVICE_SET\"><stSerial StartChn=\"%d\"><stSerialChnPara>", kSerialHeadSources},
     {L"<SerialChn_%d ucFD_DataMode=\"%d\" uiBaudRate=\"%d\" ucDataBit=\"%d\"  ucStopBit=\"%d\" ucParity=\"%c\">"
      L"</SerialChn_%d>",
      kSerialPortSources},
     {L"<stSerialChnPara></stAlarmLinkage></VariCfgSec>"}},
};
inline constexpr SectionDeclaration kSerialSection{"stSerial", kSerialPortFields, kSerialSettings};

}  // namespace varcfg
