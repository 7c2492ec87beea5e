// A query reply as the plug-in takes it in: the query check first, then the section decoder. The first
// byte chooses the import operation (every section table of CConfig_Task, and the decoder's channel and
// numbered-entry walks over a table with a field of every kind); the rest is the reply text.
//
// Each record is a heap object of its own size, so that a write past a member's record is caught; every
// text member must come out terminated.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include <tinyxml.h>

#include "protocol/ConfigTask.h"
#include "protocol/Envelope.h"
#include "protocol/SectionDecoder.h"

namespace {

using varcfg::Field;

void Require(bool condition) {
    if (!condition) std::abort();
}

template <std::size_t N>
bool Terminated(const char (&text)[N]) {
    return std::memchr(text, '\0', N) != nullptr;
}

// A channel or entry with a field of every kind, for the decoder's walks over child elements.
struct Entry {
    uint8_t enable;
    uint16_t port;
    uint32_t count;
    uint32_t ip;
    float gain;
    double level;
    char name[8];
};

constexpr Field<Entry> kEntryFields[] = {
    VARCFG_FIELD(Entry, enable, "ucFD_Enable", Integer),
    VARCFG_FIELD(Entry, port, "usFD_Port", Integer),
    VARCFG_FIELD(Entry, count, "uiFD_Count", Integer),
    VARCFG_FIELD(Entry, ip, "uiFD_IP", Ip),
    VARCFG_FIELD(Entry, gain, "fFD_Gain", Float),
    VARCFG_FIELD(Entry, level, "fFD_Level", Float),
    VARCFG_FIELD(Entry, name, "strFD_Name", Text).AcceptingTextLength(1, 6),
};

constexpr std::size_t kEntryCount = 8;

struct Entries {
    Entry entries[kEntryCount];
};

bool EntriesTerminated(const Entries& all) {
    for (const Entry& entry : all.entries) {
        if (!Terminated(entry.name)) return false;
    }
    return true;
}

// One import operation on the accepted section; limit is a number from the selector byte.
using Operation = void (*)(const TiXmlElement& section, unsigned limit);

const Operation kOperations[] = {
    [](const TiXmlElement& section, unsigned) {
        auto record = std::make_unique<varcfg::VersionRecord>();
        CConfig_Task::Import_stVersion(section, *record);
        const varcfg::VersionRecord& v = *record;
        Require(Terminated(v.model) && Terminated(v.mcuVer) && Terminated(v.ubootVer) && Terminated(v.kernelVer) &&
                Terminated(v.rootfsVer) && Terminated(v.appVer) && Terminated(v.dbVer) && Terminated(v.wifiVer));
    },
    [](const TiXmlElement& section, unsigned) {
        auto record = std::make_unique<varcfg::NetWorkModeRecord>();
        CConfig_Task::Import_stNetWorkMode(section, *record);
    },
    [](const TiXmlElement& section, unsigned) {
        auto record = std::make_unique<varcfg::BaseInfoRecord>();
        CConfig_Task::Import_stBaseInfo(section, *record, CConfig_Task::DeviceNo::Check);
        Require(Terminated(record->deviceNo) && Terminated(record->curTime));
        // A device number outside 5 to 12 characters never reaches the record.
        const std::size_t length = std::strlen(record->deviceNo);
        Require(length == 0 || (length >= 5 && length <= 12));
    },
    [](const TiXmlElement& section, unsigned) {
        auto record = std::make_unique<varcfg::BaseInfoRecord>();
        Require(CConfig_Task::Import_stBaseInfo(section, *record, CConfig_Task::DeviceNo::Skip));
        Require(record->deviceNo[0] == '\0' && Terminated(record->curTime));
    },
    [](const TiXmlElement& section, unsigned) {
        auto record = std::make_unique<varcfg::PowerRecord>();
        CConfig_Task::Import_stPower(section, *record);
    },
    [](const TiXmlElement& section, unsigned) {
        auto record = std::make_unique<varcfg::ServerRecord>();
        CConfig_Task::Import_stCMS(section, *record);
        Require(Terminated(record->domain));
    },
    [](const TiXmlElement& section, unsigned) {
        const TiXmlElement* container = varcfg::FindContainer(section, "stVideoPara", "Import_fuzzChannels");
        if (container == nullptr) return;
        auto record = std::make_unique<Entries>();
        varcfg::DecodeChannels(*container, kEntryFields, record->entries);
        Require(EntriesTerminated(*record));
    },
    [](const TiXmlElement& section, unsigned limit) {
        const TiXmlElement* container = varcfg::FindContainer(section, "stAlarmInIO", "Import_fuzzEntries");
        if (container == nullptr) return;
        auto record = std::make_unique<Entries>();
        varcfg::DecodeIndexedChildren(*container, varcfg::IndexSuffix::AtLeastOneCharacter, limit, kEntryFields,
                                      record->entries);
        Require(EntriesTerminated(*record));
    },
    [](const TiXmlElement& section, unsigned limit) {
        const TiXmlElement* container = varcfg::FindContainer(section, "stAlarmInIO", "Import_fuzzEntries");
        if (container == nullptr) return;
        auto record = std::make_unique<Entries>();
        varcfg::DecodeIndexedChildren(*container, varcfg::IndexSuffix::ExactlyOneCharacter, limit, kEntryFields,
                                      record->entries);
        Require(EntriesTerminated(*record));
    },
};

constexpr unsigned kOperationCount = sizeof kOperations / sizeof kOperations[0];

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const unsigned operation = data[0] % kOperationCount;
    // Limits from 0 to beyond the entry array, so that both ends of the numbered walk are reached.
    const unsigned limit = data[0] / kOperationCount % (kEntryCount + 3);
    const std::string reply(reinterpret_cast<const char*>(data) + 1, size - 1);

    varcfg::QueryReply query;
    if (query.Check(reply) != 0) return 0;
    kOperations[operation](*query.Section(), limit);
    return 0;
}
