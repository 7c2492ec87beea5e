#include "RecorderLink.h"

#include <tinyxml.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "protocol/Envelope.h"

namespace varcfg::host {
namespace {

// A reply record holds 2048 text bytes of which the plug-in zeroed all: the last stays the terminator.
constexpr std::size_t kMaxReplyText = MDVR_MSG_TEXT_USED - 1;

}  // namespace

void RecorderLink::TakeModelFrom(const std::string& versionReply) {
    TiXmlDocument document;
    document.Parse(versionReply.c_str());
    const TiXmlElement* root = document.RootElement();
    const TiXmlElement* version = root != nullptr ? root->FirstChildElement("stVersion") : nullptr;
    const char* model = version != nullptr ? version->Attribute("Model") : nullptr;
    if (model != nullptr && *model != '\0') model_ = model;
}

SimulatedRecorderLink::SimulatedRecorderLink(sim::SimulatedRecorder& recorder) : recorder_(recorder) {
    model_ = recorder.Model();
}

int32_t CarryPluginRequest(int32_t, MDVR_MsgRecord* request, MDVR_MsgRecord* reply, void* context) {
    if (request == nullptr || reply == nullptr || context == nullptr) return 0;
    // Called from the plug-in: nothing may be thrown back into it.
    try {
        auto& link = *static_cast<RecorderLink*>(context);
        const char* data = request->data;
        const char* end = std::find(data, data + sizeof request->data, '\0');
        const std::string text(data, end);
        const std::optional<std::string> answer = link.Exchange(text);
        if (!answer) return 0;
        const std::size_t copied = std::min(answer->size(), kMaxReplyText);
        std::memcpy(reply->data, answer->data(), copied);
        reply->data[copied] = '\0';
        reply->length = static_cast<int32_t>(copied);
        if (text == kVersionQueryText) link.TakeModelFrom(*answer);
        return 1;
    } catch (...) {
        return 0;
    }
}

int32_t LogConfigFileRequest(int32_t mode, const char* path, void*) {
    std::printf("configuration file: the panel asks to %s \"%s\"; this host keeps no configuration files\n",
                mode == MDVR_CONFIG_FILE_IMPORT ? "import" : "export", path != nullptr ? path : "");
    std::fflush(stdout);
    return 0;
}

}  // namespace varcfg::host
