#include "channel/RequestChannel.h"

#include <algorithm>
#include <cstring>
#include <memory>

#include "channel/HostBridge.h"
#include "base/TraceFile.h"

namespace varcfg {
namespace {

static_assert(sizeof(MDVR_MsgRecord) == 2064, "the host expects 2064-byte records");
static_assert(sizeof(MDVR_LargeMsgRecord) == 9712, "the large record pair is 2 x 9712 bytes");

// The two records of one exchange lie one after the other, as the host expects them.
template <class Record>
struct RecordPair {
    Record request;
    Record reply;
};

// The host never installed a request callback: said once per request, as the request is lost.
void LogNoCallback() {
    if (CTraceFile2* log = CTraceFile2::Existing()) {
        log->Write("no request callback: MDVR_SetConfigFunction was not called, so the request is not sent");
    }
}

template <class Record>
bool ExchangeWith(std::string_view request, RequestForm form, std::string& reply) {
    HostBridge& host = Host();
    if (host.onRequest == nullptr) {
        LogNoCallback();
        return false;
    }

    // The larger pair is some 19 KB: keep it off the user-interface thread's stack.
    auto pair = std::make_unique<RecordPair<Record>>();
    const std::size_t copied = std::min({request.size(), form.copyLimit, sizeof pair->request.data - 1});
    std::memcpy(pair->request.data, request.data(), copied);
    pair->request.length = static_cast<int32_t>(std::min(request.size(), form.lengthLimit));

    // Records of either size are handed over as the callback's record type: the host reads the same
    // length field and text area, only the area is longer.
    const int32_t result = host.onRequest(MDVR_REQUEST_EXCHANGE, reinterpret_cast<MDVR_MsgRecord*>(&pair->request),
                                          reinterpret_cast<MDVR_MsgRecord*>(&pair->reply), host.context);
    if (CTraceFile2* log = CTraceFile2::Existing()) {
        log->Write("exchange %s -> %d", CTraceFile2::Redact(std::string_view(pair->request.data, copied)).c_str(),
                   result);
    }
    if (result == 0) return false;

    // A host may fill the whole text area without a terminator: read no further than the record.
    const char* begin = pair->reply.data;
    const char* end = std::find(begin, begin + sizeof pair->reply.data, '\0');
    reply.assign(begin, end);
    return true;
}

}  // namespace

void SendTestGetParameters() {
    HostBridge& host = Host();
    if (host.onRequest == nullptr) return;
    auto pair = std::make_unique<RecordPair<MDVR_MsgRecord>>();
    host.onRequest(MDVR_REQUEST_GET_ALL, &pair->reply, &pair->request, host.context);
}

void SendTestSetParameters() {
    HostBridge& host = Host();
    if (host.onRequest == nullptr) return;
    auto pair = std::make_unique<RecordPair<MDVR_MsgRecord>>();
    pair->request.length = 100;
    for (int i = 0; i < 100; ++i) pair->request.data[i] = static_cast<char>(i);
    host.onRequest(MDVR_REQUEST_EXCHANGE, &pair->request, &pair->reply, host.context);
}

int32_t CallConfigFile(int32_t mode, const char* path) {
    HostBridge& host = Host();
    return host.onConfigFile != nullptr ? host.onConfigFile(mode, path, host.context) : 0;
}

void LogRefusedReply(std::string_view request) {
    if (CTraceFile2* log = CTraceFile2::Existing()) {
        log->Write("reply refused; it answered %s", CTraceFile2::Redact(request).c_str());
    }
}

bool Exchange(std::string_view request, RequestForm form, std::string& reply, RecordSize size) {
    return size == RecordSize::Large ? ExchangeWith<MDVR_LargeMsgRecord>(request, form, reply)
                                     : ExchangeWith<MDVR_MsgRecord>(request, form, reply);
}

}  // namespace varcfg
