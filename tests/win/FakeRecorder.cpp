#include "FakeRecorder.h"

#include <cstring>

#include "channel/HostBridge.h"

FakeRecorder::FakeRecorder() { varcfg::SetConfigFunction(OnRequest, OnConfigFile, this); }

FakeRecorder::~FakeRecorder() { varcfg::SetConfigFunction(nullptr, nullptr, nullptr); }

void FakeRecorder::SetSection(const std::string& section, const std::string& attributes) {
    SetQueryReply(section, "<VariCfgSec Action=\"DEVICE_QUERY\"><" + section + " " + attributes + " /></VariCfgSec>");
}

std::vector<std::string> FakeRecorder::Texts() const {
    std::vector<std::string> texts;
    for (const Request& r : requests) texts.push_back(r.text);
    return texts;
}

int32_t FakeRecorder::OnRequest(int32_t mode, MDVR_MsgRecord* request, MDVR_MsgRecord* reply, void* context) {
    auto& self = *static_cast<FakeRecorder*>(context);
    self.requests.push_back({mode, request->length, std::string(request->data),
                             reinterpret_cast<const char*>(reply) - reinterpret_cast<const char*>(request)});
    self.lastRequestBytes.assign(request->data, request->data + 100);
    if (self.duringRequest) self.duringRequest();
    if (self.transportFails) return 0;

    const std::string text = request->data;
    // The section is the element after the envelope's first one.
    const std::size_t envelopeEnd = text.find("><");
    const std::size_t nameStart = envelopeEnd == std::string::npos ? text.size() : envelopeEnd + 2;
    const std::string section = text.substr(nameStart, text.find_first_of(" />", nameStart) - nameStart);
    std::string answer;
    const std::string queryStart = "<VariCfgSec Action=\"DEVICE_QUERY\"><";
    if (text.compare(0, queryStart.size(), queryStart) == 0) {
        const auto found = self.queryReplies_.find(section);
        answer = found != self.queryReplies_.end() ? found->second : "";
    } else if (self.unreachableSections.count(section) != 0) {
        return 0;
    } else if (self.refusingSections.count(section) != 0) {
        answer = R"(<VariCfgSec Action="DEVICE_SET" Result="0" />)";
    } else {
        answer = self.settingReply;
    }
    std::strncpy(reply->data, answer.c_str(), MDVR_MSG_TEXT_USED - 1);
    return 1;
}

int32_t FakeRecorder::OnConfigFile(int32_t mode, const char* path, void* context) {
    static_cast<FakeRecorder*>(context)->fileCalls.push_back({mode, path});
    return 1;
}

std::string VersionSection(const std::string& model) {
    return "<VariCfgSec Action=\"DEVICE_QUERY\"><stVersion Model=\"" + model +
           "\" iVideoChannelCnt=\"4\" strMcuVer=\"MCU-1.2\" strUbootVer=\"UB-2016\" strKernelVer=\"K-3.10\" "
           "strRootfsVer=\"FS-7\" strAppVer=\"APP-5.4.1\" strDBVer=\"DB-1\" strWifiVer=\"W-2\" /></VariCfgSec>";
}
