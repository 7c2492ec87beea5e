// The simulated recorder as a host's request callback, with the recorder as the callback's context:
//
//   varcfg::sim::SimulatedRecorder recorder("MR8-O1");
//   MDVR_SetConfigFunction(&varcfg::sim::AnswerHostRequest, onConfigFile, &recorder);
//
// Kept out of the library because the host header brings in the platform's own headers on Windows.
#pragma once

#include "SimulatedRecorder.h"
#include "varcfg/host_api.h"

namespace varcfg::sim {

// Every mode is answered alike. Returns 0 when the request is lost (an injected fault) or a record is
// missing; otherwise 1, with at most 2047 bytes of reply text and a terminator in the reply record.
inline int32_t AnswerHostRequest(int32_t, MDVR_MsgRecord* request, MDVR_MsgRecord* reply, void* context) {
    if (request == nullptr || reply == nullptr || context == nullptr) return 0;
    auto* recorder = static_cast<SimulatedRecorder*>(context);
    return recorder->AnswerRecord(request->data, sizeof request->data, reply->data, reply->length) ? 1 : 0;
}

static_assert(SimulatedRecorder::kMaxReplyText < MDVR_MSG_TEXT_USED, "a reply must leave the record terminated");

}  // namespace varcfg::sim
