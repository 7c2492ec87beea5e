#include "SimulatedRecorder.h"

#include <algorithm>
#include <cstring>
#include <thread>
#include <utility>

namespace varcfg::sim {
namespace {

constexpr char kQueryAction[] = "DEVICE_QUERY";
constexpr char kSetAction[] = "DEVICE_SET";
constexpr char kTimeAction[] = "DEVICE_TIME";
constexpr char kFormatAction[] = "DEVICE_FORMAT";
constexpr uint64_t kLastDisk = 3;

// Text that no XML reader takes for an element: what a recorder with a failing link might send.
constexpr char kGarbledReply[] = "\x15\x15 garbled reply \x15\x15";

constexpr char kPlatformAccepted[] = R"(<Response><NETWORK_SET Action="set" Result="1"/></Response>)";
constexpr char kPlatformRefused[] = R"(<Response><NETWORK_SET Action="set" Result="0"/></Response>)";

Capabilities CapabilitiesOf(const std::string& model) {
    if (const Capabilities* profile = BuiltInModelTable().ProfileOf(model)) return *profile;
    return Capabilities{4, 2, 0, 0, 0};
}

// The action is written back only when it is a plain word, so a hostile one cannot break the reply.
std::string SettingReply(const std::string& action, bool accepted) {
    const bool plainWord =
        !action.empty() && action.size() <= 32 && std::all_of(action.begin(), action.end(), [](char c) {
            return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
        });
    return "<VariCfgSec Action=\"" + (plainWord ? action : std::string()) + "\" Result=\"" + (accepted ? "1" : "0") +
           "\"/>";
}

}  // namespace

SimulatedRecorder::SimulatedRecorder(std::string model, std::string stateFile)
    : model_(std::move(model)),
      capabilities_(CapabilitiesOf(model_)),
      store_(model_, capabilities_) {
    if (stateFile.empty()) return;
    stateFile_.emplace(std::move(stateFile));
    ReadStateFile();
}

std::optional<std::string> SimulatedRecorder::Handle(std::string_view request) {
    const std::lock_guard<std::mutex> lock(mutex_);
    ++requestCount_;
    if (faults_.latency.count() > 0) std::this_thread::sleep_for(faults_.latency);
    if (requestCount_ == faults_.lostRequestAt) return std::nullopt;
    if (requestCount_ == faults_.garbledReplyAt) return std::string(kGarbledReply);
    return Answer(request);
}

bool SimulatedRecorder::AnswerRecord(const char* requestData, std::size_t requestCapacity, char* replyData,
                                     int32_t& replyLength) noexcept {
    try {
        const char* requestEnd = std::find(requestData, requestData + requestCapacity, '\0');
        const std::optional<std::string> reply =
            Handle(std::string_view(requestData, static_cast<std::size_t>(requestEnd - requestData)));
        if (!reply) return false;
        const std::size_t copied = std::min(reply->size(), kMaxReplyText);
        std::memcpy(replyData, reply->data(), copied);
        replyData[copied] = '\0';
        replyLength = static_cast<int32_t>(copied);
        return true;
    } catch (...) {
        return false;
    }
}

void SimulatedRecorder::SetFaults(const Faults& faults) {
    const std::lock_guard<std::mutex> lock(mutex_);
    faults_ = faults;
    requestCount_ = 0;
    settingCount_ = 0;
}

std::string SimulatedRecorder::StateFileProblem() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return stateFileProblem_;
}

void SimulatedRecorder::OnSaveFailure(std::function<void(const std::string&)> report) {
    const std::lock_guard<std::mutex> lock(mutex_);
    reportSaveFailure_ = std::move(report);
}

std::string SimulatedRecorder::Answer(std::string_view request) {
    const std::optional<RequestElement> root = ReadRequest(request);
    if (root && root->name == "VariCfgSec") return AnswerSectionMessage(*root);
    if (root && root->name == "Parameter") return AnswerPlatformMessage(*root);
    return SettingReply({}, false);
}

std::string SimulatedRecorder::AnswerSectionMessage(const RequestElement& root) {
    const RequestAttribute* actionAttribute = root.Attribute("Action");
    const std::string action = actionAttribute != nullptr ? actionAttribute->value : std::string();
    const bool oneSection = root.children.size() == 1;

    if (action == kQueryAction) {
        const std::optional<std::string> section = oneSection ? store_.QueryReply(root.children.front()) : std::nullopt;
        if (!section) return SettingReply(action, false);
        return "<VariCfgSec Action=\"DEVICE_QUERY\">" + *section + "</VariCfgSec>";
    }
    if (action != kSetAction && action != kTimeAction && action != kFormatAction) return SettingReply(action, false);

    // Counted before anything else, so that a fault hits the Nth setting request whatever it holds.
    const bool refusedByFault = SettingRefusedByFault();
    std::optional<std::vector<SettingsStore::Change>> changes;
    if (oneSection) {
        const RequestElement& section = root.children.front();
        if (action == kSetAction) {
            changes = store_.PlanSet(section);
        } else if (action == kTimeAction) {
            changes = PlanClock(section);
        } else {
            const RequestAttribute* disk = section.Attribute("DiskNo");
            const std::optional<uint64_t> number = disk != nullptr ? PlainNumber(disk->value) : std::nullopt;
            const bool formattable = section.name == "stDisk" && section.attributes.size() == 1 && number &&
                                     *number <= kLastDisk && section.children.empty();
            if (formattable) changes.emplace();
        }
    }
    return SettingReply(action, !refusedByFault && changes && Commit(*changes));
}

std::optional<std::vector<SettingsStore::Change>> SimulatedRecorder::PlanClock(const RequestElement& section) const {
    if (section.name != "stTime" || section.attributes.empty() || !section.children.empty()) return std::nullopt;
    std::vector<SettingsStore::Change> changes;
    for (const RequestAttribute& attribute : section.attributes) {
        std::optional<SettingsStore::Change> change =
            attribute.name == "strTime" ? store_.PlanValue("stBaseInfo", "strFD_CurTime", attribute.value)
                                        : std::nullopt;
        if (!change) return std::nullopt;
        changes.push_back(std::move(*change));
    }
    return changes;
}

std::string SimulatedRecorder::AnswerPlatformMessage(const RequestElement& root) {
    const bool refusedByFault = SettingRefusedByFault();
    const bool oneMessage = root.children.size() == 1 && root.children.front().name == "NETWORK_SET";
    const std::optional<std::vector<SettingsStore::Change>> changes =
        oneMessage ? PlanPlatformMessage(root.children.front()) : std::nullopt;
    return !refusedByFault && changes && Commit(*changes) ? kPlatformAccepted : kPlatformRefused;
}

// The centre server message names the device and its server with names of its own; the server address
// is an IP when it reads as a dotted quad, and a domain name otherwise.
std::optional<std::vector<SettingsStore::Change>> SimulatedRecorder::PlanPlatformMessage(
    const RequestElement& message) const {
    if (!message.children.empty()) return std::nullopt;
    std::vector<SettingsStore::Change> changes;
    bool actionSet = false;
    const auto plan = [&](std::string_view section, std::string_view attribute, std::string_view value) {
        std::optional<SettingsStore::Change> change = store_.PlanValue(section, attribute, value);
        if (change) changes.push_back(std::move(*change));
        return change.has_value();
    };
    for (const RequestAttribute& attribute : message.attributes) {
        bool taken = false;
        if (attribute.name == "Action") {
            taken = actionSet = attribute.value == "set";
        } else if (attribute.name == "DevIDNO") {
            taken = plan("stBaseInfo", "strFD_DeviceNo", attribute.value);
        } else if (attribute.name == "ContrlPort_0") {
            taken = plan("stCMS", "usFD_Port", attribute.value);
        } else if (attribute.name == "CenterIP_0") {
            if (DottedQuad(attribute.value)) {
                taken = plan("stCMS", "ucFD_AddressType", "0") && plan("stCMS", "uiFD_IP", attribute.value);
            } else {
                const bool domainName = !attribute.value.empty() && attribute.value.find(' ') == std::string::npos;
                taken = domainName && plan("stCMS", "ucFD_AddressType", "1") &&
                        plan("stCMS", "strFD_Domain", attribute.value);
            }
        }
        if (!taken) return std::nullopt;
    }
    if (!actionSet) return std::nullopt;
    return changes;
}

bool SimulatedRecorder::SettingRefusedByFault() {
    ++settingCount_;
    return faults_.refuseEverySetting || settingCount_ == faults_.refusedSettingAt;
}

// With a state file, a setting is taken only once it is saved.
bool SimulatedRecorder::Commit(const std::vector<SettingsStore::Change>& changes) {
    if (!stateFile_ || changes.empty()) {
        store_.Apply(changes);
        return true;
    }
    SettingsStore changed = store_;
    changed.Apply(changes);
    stateFileProblem_ = stateFile_->Write(changed.SavedText());
    if (!stateFileProblem_.empty()) {
        if (reportSaveFailure_) reportSaveFailure_(stateFileProblem_);
        return false;
    }
    store_ = std::move(changed);
    return true;
}

void SimulatedRecorder::ReadStateFile() {
    const std::optional<std::string> text = stateFile_->Read(stateFileProblem_);
    if (!text) return;
    const SettingsStore::LoadReport report = store_.LoadSavedText(*text);
    std::string problem;
    if (report.notTaken > 0) {
        problem = std::to_string(report.notTaken) + " line(s) not taken (kept as written), the first at " +
                  report.firstNotTaken;
    }
    if (report.cutShort) {
        if (!problem.empty()) problem += "; ";
        problem += "cut short: settings missing from its end have factory values";
    }
    if (!problem.empty()) stateFileProblem_ = stateFile_->Path().string() + ": " + problem;
}

}  // namespace varcfg::sim
