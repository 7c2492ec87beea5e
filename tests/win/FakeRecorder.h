// A recorder for the Windows tests, answering through the host callback: each query of a section gets
// that section's prepared reply, each setting the prepared setting reply. Every request is recorded.
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "varcfg/host_api.h"

class FakeRecorder {
public:
    FakeRecorder();   // installs itself as the host's callbacks
    ~FakeRecorder();  // and removes them

    // The reply to a DEVICE_QUERY of section, e.g. Reply("stLocalEth0", "<VariCfgSec ...>").
    void SetQueryReply(const std::string& section, const std::string& reply) { queryReplies_[section] = reply; }
    // The section element alone, wrapped in a query reply envelope.
    void SetSection(const std::string& section, const std::string& attributes);

    std::string settingReply = R"(<VariCfgSec Action="DEVICE_SET" Result="1" />)";
    bool transportFails = false;  // the callback returns 0
    // Sections by name ("stPtt", or "NETWORK_SET" for the centre server's message): a setting naming an
    // unreachable one fails in transport, one naming a refusing one gets Result "0".
    std::set<std::string> unreachableSections;
    std::set<std::string> refusingSections;
    std::function<void()> duringRequest;  // runs inside each exchange, as other UI work could

    struct Request {
        int mode;
        int length;
        std::string text;
        long long recordDistance;  // bytes from the request record to the reply record
    };
    std::vector<Request> requests;
    std::vector<std::string> Texts() const;
    struct FileCall {
        int mode;
        std::string path;
    };
    std::vector<FileCall> fileCalls;
    std::vector<unsigned char> lastRequestBytes;  // the first 100 bytes of the last request record

private:
    static int32_t OnRequest(int32_t mode, MDVR_MsgRecord* request, MDVR_MsgRecord* reply, void* context);
    static int32_t OnConfigFile(int32_t mode, const char* path, void* context);

    std::map<std::string, std::string> queryReplies_;
};

// A version reply for a model of the built-in table.
std::string VersionSection(const std::string& model);
