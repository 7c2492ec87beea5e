// The request channel: the one way the plug-in talks to the recorder. Every exchange is one synchronous
// call of the host's request callback with a request record and a reply record.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "protocol/RecordSize.h"

namespace varcfg {

// How a request text is put into the request record: at most copyLimit characters are copied and the
// length field says the text's length, but at most lengthLimit.
struct RequestForm {
    std::size_t copyLimit;
    std::size_t lengthLimit;
};
inline constexpr RequestForm kQueryForm{2047, 2047};    // 8-bit query texts, sent whole
inline constexpr RequestForm kSettingForm{1023, 1023};  // settings: longer texts are cut without notice
inline constexpr RequestForm kRawForm{2047, 2048};      // the raw command page's free text

// Sends one request in mode 0. Both records start zeroed. Returns false when the host's callback
// returns 0 (or none is installed); reply is then left untouched. Otherwise reply receives the reply
// record's text up to its terminator, and never beyond the record's end.
bool Exchange(std::string_view request, RequestForm form, std::string& reply,
              RecordSize size = RecordSize::Standard);
// Logs, after the reply check's own lines, which request a refused reply answered (passwords hidden).
void LogRefusedReply(std::string_view request);

}  // namespace varcfg

namespace varcfg {

// The container's hidden test buttons. Get: mode 1 with both records zeroed, the second record of the
// pair passed as the request. Set: mode 0 with the request's length 100 and bytes 0, 1, ... 99.
// Their results are not looked at.
void SendTestGetParameters();
void SendTestSetParameters();

// Asks the host to import (mode 1) or export (mode 0) the recorder's whole configuration to path;
// the host's result is passed back (0 without a callback).
int32_t CallConfigFile(int32_t mode, const char* path);

}  // namespace varcfg
