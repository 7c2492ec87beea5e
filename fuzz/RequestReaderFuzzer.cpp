// The simulated recorder on any request texts: its lenient request reader, then the recorder itself.
// The input holds one or more requests separated by zero bytes; one recorder answers them in turn, so
// that a setting can be followed by the query that shows it.
//
// - Every reply is text that TinyXML reads without a fault: the recorder never garbles a reply unless
//   a test asks it to.
// - A request handed over in a record without a terminator is read no further than the record.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <tinyxml.h>

#include "RequestReader.h"
#include "SimulatedRecorder.h"
#include "varcfg/host_api.h"

namespace {

void Require(bool condition) {
    if (!condition) std::abort();
}

// Eight channels, six alarm inputs, two alarm outputs, three serial ports: every section has children.
constexpr char kModel[] = "MR8-Q2";
// More requests than this in one input only slow the search down.
constexpr int kMaxRequests = 8;

bool ReadsAsXml(const std::string& reply) {
    TiXmlDocument document;
    document.Parse(reply.c_str());
    return !document.Error();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    varcfg::sim::SimulatedRecorder recorder(kModel);

    std::size_t start = 0;
    for (int n = 0; n < kMaxRequests && start <= input.size(); ++n) {
        const std::size_t end = std::min(input.find('\0', start), input.size());
        const std::string_view request = input.substr(start, end - start);
        start = end + 1;

        varcfg::sim::ReadRequest(request);
        const std::optional<std::string> reply = recorder.Handle(request);
        Require(reply.has_value());
        Require(ReadsAsXml(*reply));
    }

    // The whole input as a request record's text area, filled to its last byte.
    const std::size_t capacity = size < MDVR_MSG_DATA_SIZE ? size : MDVR_MSG_DATA_SIZE;
    const auto requestData = std::make_unique<char[]>(capacity);
    std::copy(data, data + capacity, requestData.get());
    const auto replyData = std::make_unique<char[]>(MDVR_MSG_DATA_SIZE);
    int32_t replyLength = -1;
    Require(recorder.AnswerRecord(requestData.get(), capacity, replyData.get(), replyLength));
    Require(replyLength >= 0 && static_cast<std::size_t>(replyLength) <= varcfg::sim::SimulatedRecorder::kMaxReplyText);
    return 0;
}
