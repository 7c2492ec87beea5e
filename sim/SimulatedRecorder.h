// A simulated recorder: answers every request text the panel sends with the reply text a recorder of
// the given model writes, keeps the settings it is given and, with a state file, keeps them across
// starts. Tests can make it slow, lose a request, garble a reply or refuse settings.
//
//   varcfg::sim::SimulatedRecorder recorder("MR8-O1");
//   std::optional<std::string> reply = recorder.Handle(R"(<VariCfgSec Action="DEVICE_QUERY"><stPower></VariCfgSec>)");
//
// For a host's request callback, see HostCallback.h.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "SettingsStore.h"
#include "StateFile.h"
#include "protocol/ModelTable.h"

namespace varcfg::sim {

// Faults to show. Requests and setting requests are counted from 1, from the last SetFaults.
struct Faults {
    std::chrono::milliseconds latency{0};  // waited before every answer
    unsigned lostRequestAt = 0;            // this request gets no reply and has no effect; 0 for none
    unsigned garbledReplyAt = 0;           // this request gets a reply that is not XML and has no effect
    // Setting requests are DEVICE_SET, DEVICE_TIME, DEVICE_FORMAT and the centre server message.
    unsigned refusedSettingAt = 0;  // this setting request is refused with Result 0
    bool refuseEverySetting = false;
};

class SimulatedRecorder {
public:
    // The model text selects the capabilities from the built-in model table; a model the table does not
    // know has four video channels and no alarm inputs, alarm outputs or serial ports. With a state file,
    // the settings kept in it are taken at once, and every accepted setting is saved to it; a setting
    // that cannot be saved is refused. A program should refuse a state file with a StateFile::Fault.
    explicit SimulatedRecorder(std::string model, std::string stateFile = {});

    SimulatedRecorder(const SimulatedRecorder&) = delete;
    SimulatedRecorder& operator=(const SimulatedRecorder&) = delete;

    // The reply text to one request text; nothing when the request is lost.
    std::optional<std::string> Handle(std::string_view request);

    // The most reply text a host may copy into a reply record: the record was zeroed, so it stays
    // terminated.
    static constexpr std::size_t kMaxReplyText = 2047;

    // Answers the zero-terminated request text in requestData (a text area of requestCapacity bytes)
    // into replyData: at most kMaxReplyText bytes and a terminator; replyLength counts the bytes. False
    // when the request is lost, and the reply is then untouched. Never throws.
    bool AnswerRecord(const char* requestData, std::size_t requestCapacity, char* replyData,
                      int32_t& replyLength) noexcept;

    void SetFaults(const Faults& faults);

    const std::string& Model() const { return model_; }
    const Capabilities& Profile() const { return capabilities_; }
    // What went wrong when the state file was last read or written; empty when nothing did.
    std::string StateFileProblem() const;
    // Called with the reason, under the recorder's lock, whenever a setting is refused because it could
    // not be saved.
    void OnSaveFailure(std::function<void(const std::string&)> report);

private:
    std::string Answer(std::string_view request);
    std::string AnswerSectionMessage(const RequestElement& root);
    std::string AnswerPlatformMessage(const RequestElement& root);
    std::optional<std::vector<SettingsStore::Change>> PlanClock(const RequestElement& section) const;
    std::optional<std::vector<SettingsStore::Change>> PlanPlatformMessage(const RequestElement& message) const;
    bool SettingRefusedByFault();
    bool Commit(const std::vector<SettingsStore::Change>& changes);
    void ReadStateFile();

    std::string model_;
    Capabilities capabilities_;
    std::optional<StateFile> stateFile_;
    SettingsStore store_;
    Faults faults_;
    unsigned requestCount_ = 0;
    unsigned settingCount_ = 0;
    std::string stateFileProblem_;
    std::function<void(const std::string&)> reportSaveFailure_;
    mutable std::mutex mutex_;  // one exchange at a time, as on a real recorder
};

}  // namespace varcfg::sim
