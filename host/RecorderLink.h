// Where the panel's requests go, and the two callbacks this host gives the plug-in.
#pragma once

#include <optional>
#include <string>

#include "SimulatedRecorder.h"
#include "varcfg/host_api.h"

namespace varcfg::host {

class RecorderLink {
public:
    virtual ~RecorderLink() = default;

    // The recorder's reply text to one request text; nothing when the recorder could not be reached,
    // did not answer in time or broke the exchange.
    virtual std::optional<std::string> Exchange(const std::string& request) = 0;
    // Where the requests go, for the window title: "simulated in this program", "recorder at ...".
    virtual std::string Where() const = 0;
    // Why the last exchange that answered nothing failed, in one line.
    virtual std::string Problem() const = 0;

    // The recorder's model, as the last version reply reported it (or as known beforehand); empty until
    // then.
    const std::string& Model() const { return model_; }
    // Takes the model from a reply to the version query; keeps the old one when the reply names none.
    void TakeModelFrom(const std::string& versionReply);

protected:
    std::string model_;
};

// A simulated recorder in this process.
class SimulatedRecorderLink : public RecorderLink {
public:
    explicit SimulatedRecorderLink(sim::SimulatedRecorder& recorder);
    std::optional<std::string> Exchange(const std::string& request) override { return recorder_.Handle(request); }
    std::string Where() const override { return "simulated in this program"; }
    std::string Problem() const override { return "the simulated recorder lost the request"; }

private:
    sim::SimulatedRecorder& recorder_;
};

// The request callback, with a RecorderLink as its context. Every mode is carried alike. Returns 1
// with at most 2047 bytes of reply text and a terminator in the reply record, or 0 with the reply
// record untouched when the link has no answer.
int32_t CarryPluginRequest(int32_t mode, MDVR_MsgRecord* request, MDVR_MsgRecord* reply, void* link);

// The configuration-file callback: this host keeps no configuration files, so it only logs the
// request on standard output and answers 0.
int32_t LogConfigFileRequest(int32_t mode, const char* path, void* context);

}  // namespace varcfg::host
