// Hosts that misbehave on the parse path. The request channel copies the reply into a heap record of
// the host's size, and these tests run under AddressSanitizer: a read past the record fails them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "plugin/HostBridge.h"
#include "plugin/RequestChannel.h"
#include "protocol/ConfigTask.h"
#include "protocol/Envelope.h"
#include "shell/DeviceVersion.h"

using namespace varcfg;

namespace {

constexpr char kPowerReply[] =
    R"(<VariCfgSec Action="DEVICE_QUERY"><stPower ucPowerMode="1" usPOffDelayTime="30" /></VariCfgSec>)";
constexpr char kVersionReply[] =
    R"(<VariCfgSec Action="DEVICE_QUERY"><stVersion Model="MR8-O1" iVideoChannelCnt="8" /></VariCfgSec>)";
constexpr char kSettingReply[] = R"(<VariCfgSec Action="DEVICE_SET" Result="1"/>)";
constexpr char kPlatformReply[] = R"(<Response><NETWORK_SET Action="set" Result="1"/></Response>)";

// A host that writes prepared bytes into the reply record's text area, as many as fit and with no
// terminator of its own, and a length field of its choosing.
struct MisbehavingHost {
    std::string bytes;
    int32_t lengthField = 0;
    std::size_t areaSize = MDVR_MSG_DATA_SIZE;
    int32_t result = 1;
};
MisbehavingHost* g_host = nullptr;

int32_t Answer(int32_t, MDVR_MsgRecord*, MDVR_MsgRecord* reply, void*) {
    const MisbehavingHost& host = *g_host;
    std::memcpy(reply->data, host.bytes.data(), std::min(host.bytes.size(), host.areaSize));
    reply->length = host.lengthField;
    return host.result;
}

// The reply text padded with blanks, or anything else, to fill every byte of an area.
std::string Filling(const std::string& text, std::size_t areaSize, char padding = ' ') {
    return text + std::string(areaSize - text.size(), padding);
}

// Runs a check with its refusal line hidden.
template <class Check>
int Quietly(Check check) {
    testing::internal::CaptureStdout();
    const int result = check();
    testing::internal::GetCapturedStdout();
    return result;
}

int CheckQuery(const std::string& reply) {
    return Quietly([&] { return QueryReply().Check(reply); });
}
int CheckSetting(const std::string& reply) {
    return Quietly([&] { return CheckSettingReply(reply); });
}
int CheckPlatform(const std::string& reply) {
    return Quietly([&] { return CheckPlatformReply(reply); });
}

class HostMisbehaviour : public ::testing::Test {
protected:
    void SetUp() override {
        Device() = DeviceState{};
        g_host = &host;
        SetConfigFunction(Answer, nullptr, nullptr);
    }
    void TearDown() override { SetConfigFunction(nullptr, nullptr, nullptr); }

    std::string Exchanged(RecordSize size = RecordSize::Standard) {
        std::string reply;
        EXPECT_TRUE(Exchange("<VariCfgSec Action=\"DEVICE_QUERY\"><stPower></VariCfgSec>", kQueryForm, reply, size));
        return reply;
    }

    MisbehavingHost host;
};

const int32_t kLyingLengths[] = {-1, std::numeric_limits<int32_t>::min(), 0, MDVR_MSG_DATA_SIZE + 1, 1 << 20,
                                 std::numeric_limits<int32_t>::max()};

}  // namespace

TEST_F(HostMisbehaviour, ReplyFillingTheWholeRecordIsReadToTheRecordsEndAndNoFurther) {
    for (const int32_t length : kLyingLengths) {
        SCOPED_TRACE(length);
        host.lengthField = length;
        host.bytes = Filling(kPowerReply, MDVR_MSG_DATA_SIZE);
        const std::string reply = Exchanged();
        EXPECT_EQ(reply, host.bytes);

        QueryReply checked;
        ASSERT_EQ(Quietly([&] { return checked.Check(reply); }), 0);
        PowerRecord power{};
        ASSERT_TRUE(CConfig_Task::Import_stPower(*checked.Section(), power));
        EXPECT_EQ(power.powerMode, 1);
        EXPECT_EQ(power.powerOffDelayMinutes, 30);

        // The same in the larger record of the two long queries.
        host.areaSize = MDVR_LARGE_MSG_DATA_SIZE;
        host.bytes = Filling(kPowerReply, MDVR_LARGE_MSG_DATA_SIZE);
        EXPECT_EQ(Exchanged(RecordSize::Large), host.bytes);
        host.areaSize = MDVR_MSG_DATA_SIZE;
    }
}

TEST_F(HostMisbehaviour, LengthFieldIsNeverBelievedOverTheTerminator) {
    for (const int32_t length : kLyingLengths) {
        SCOPED_TRACE(length);
        host.lengthField = length;
        host.bytes = std::string(kVersionReply) + '\0' + std::string(100, 'x');
        EXPECT_EQ(Exchanged(), kVersionReply);
        EXPECT_EQ(QueryDeviceVersion(), 1);
        EXPECT_STREQ(Device().version.model, "MR8-O1");
    }
}

TEST_F(HostMisbehaviour, UnterminatedGarbageFillingTheRecordIsRefusedByEveryCheck) {
    std::mt19937 random(2060);
    std::uniform_int_distribution<int> byte(1, 255);  // no zero byte: the text runs to the record's end
    for (int round = 0; round < 20; ++round) {
        host.bytes.clear();
        for (std::size_t i = 0; i < MDVR_MSG_DATA_SIZE; ++i) host.bytes += static_cast<char>(byte(random));
        host.lengthField = round % 2 == 0 ? -1 : std::numeric_limits<int32_t>::max();
        const std::string reply = Exchanged();
        ASSERT_EQ(reply.size(), MDVR_MSG_DATA_SIZE);
        EXPECT_EQ(CheckQuery(reply), -1);
        EXPECT_EQ(CheckSetting(reply), -1);
        EXPECT_EQ(CheckPlatform(reply), -1);
    }
    // A valid reply followed by garbage up to the record's end is no valid reply.
    host.bytes = Filling(std::string(kSettingReply) + "<", MDVR_MSG_DATA_SIZE, 'x');
    EXPECT_EQ(CheckSetting(Exchanged()), -1);
}

TEST_F(HostMisbehaviour, RepliesCutShortOrEmptyAreRefusedByTheirChecks) {
    const struct {
        const char* reply;
        int (*check)(const std::string&);
    } replies[] = {{kPowerReply, CheckQuery}, {kSettingReply, CheckSetting}, {kPlatformReply, CheckPlatform}};
    for (const auto& r : replies) {
        const std::string whole = r.reply;
        ASSERT_EQ(r.check(whole), 0) << whole;
        for (std::size_t length = 0; length < whole.size(); ++length) {
            EXPECT_EQ(r.check(whole.substr(0, length)), -1) << whole.substr(0, length);
        }
    }
}

TEST_F(HostMisbehaviour, VersionQueryReportsTransportFailureAndRefusalApart) {
    host.result = 0;
    host.bytes = kVersionReply;
    EXPECT_EQ(QueryDeviceVersion(), 0);

    host.result = 1;
    const std::string cutShort = std::string(kVersionReply).substr(0, sizeof kVersionReply / 2);
    std::vector<std::string> refused = {cutShort, "", "\x15\x15 garbled reply \x15\x15",
                                        Filling("<VariCfgSec Action=\"DEVICE_QUERY\">", MDVR_MSG_DATA_SIZE, 'x')};
    for (const std::string& bytes : refused) {
        SCOPED_TRACE(bytes.substr(0, 40));
        host.bytes = bytes;
        EXPECT_EQ(Quietly(QueryDeviceVersion), -1);
    }
    EXPECT_EQ(Device().versionKnown, 0);
    EXPECT_EQ(Device().version.model[0], '\0');
}
