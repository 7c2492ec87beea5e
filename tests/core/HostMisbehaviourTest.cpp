// Hosts that misbehave on the parse path. The request channel copies the reply into a heap record of
// the host's size, and these tests run under AddressSanitizer: a read past the record fails them.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <limits>
#include <random>
#include <string>

#include "channel/HostBridge.h"
#include "channel/RequestChannel.h"
#include "protocol/Envelope.h"
#include "channel/DeviceVersion.h"

using namespace varcfg;

namespace {

constexpr char kPowerReply[] =
    R"(<VariCfgSec Action="DEVICE_QUERY"><stPower ucPowerMode="1" usPOffDelayTime="30" /></VariCfgSec>)";
constexpr char kVersionReply[] =
    R"(<VariCfgSec Action="DEVICE_QUERY"><stVersion Model="MR8-O1" iVideoChannelCnt="8" /></VariCfgSec>)";
constexpr char kSettingReply[] = R"(<VariCfgSec Action="DEVICE_SET" Result="1"/>)";
constexpr char kPlatformReply[] = R"(<Response><NETWORK_SET Action="set" Result="1"/></Response>)";

// A host that writes prepared bytes into the reply record's text area, with no terminator of its own,
// and a length field of its choosing.
struct MisbehavingHost {
    std::string bytes;
    int32_t lengthField = 0;
} g_host;

int32_t Answer(int32_t, MDVR_MsgRecord*, MDVR_MsgRecord* reply, void*) {
    std::memcpy(reply->data, g_host.bytes.data(), g_host.bytes.size());
    reply->length = g_host.lengthField;
    return 1;
}

std::string Filling(const std::string& text, std::size_t areaSize, char padding = ' ') {
    return text + std::string(areaSize - text.size(), padding);
}

// Runs a check with its refusal line hidden.
template <class Run>
auto Quietly(Run run) {
    testing::internal::CaptureStdout();
    const auto result = run();
    testing::internal::GetCapturedStdout();
    return result;
}

// The results of the query, setting and platform reply checks.
using Results = std::array<int, 3>;
Results Checked(const std::string& reply) {
    return Quietly(
        [&] { return Results{QueryReply().Check(reply), CheckSettingReply(reply), CheckPlatformReply(reply)}; });
}
constexpr Results kRefused = {-1, -1, -1};

class HostMisbehaviour : public ::testing::Test {
protected:
    HostMisbehaviour() {
        Device() = DeviceState{};
        g_host = MisbehavingHost{};
        SetConfigFunction(Answer, nullptr, nullptr);
    }
    ~HostMisbehaviour() override { SetConfigFunction(nullptr, nullptr, nullptr); }
};

std::string Exchanged(RecordSize size = RecordSize::Standard) {
    std::string reply;
    EXPECT_TRUE(Exchange("<VariCfgSec Action=\"DEVICE_QUERY\"><stPower></VariCfgSec>", kQueryForm, reply, size));
    return reply;
}

}  // namespace

TEST_F(HostMisbehaviour, LengthFieldIsBelievedOverNeitherTheTerminatorNorTheRecordsEnd) {
    const int32_t lyingLengths[] = {-1, std::numeric_limits<int32_t>::min(), 0, MDVR_MSG_DATA_SIZE + 1, 1 << 20,
                                    std::numeric_limits<int32_t>::max()};
    for (const int32_t length : lyingLengths) {
        SCOPED_TRACE(length);
        g_host.lengthField = length;
        g_host.bytes = Filling(kPowerReply, MDVR_MSG_DATA_SIZE);
        EXPECT_EQ(Exchanged(), g_host.bytes);

        g_host.bytes = Filling(kPowerReply, MDVR_LARGE_MSG_DATA_SIZE);  // the record of the two long queries
        EXPECT_EQ(Exchanged(RecordSize::Large), g_host.bytes);

        g_host.bytes = std::string(kVersionReply) + '\0' + std::string(100, 'x');
        EXPECT_EQ(Exchanged(), kVersionReply);
    }
}

TEST_F(HostMisbehaviour, GarbageAndBrokenRepliesAreRefusedAndLeaveTheVersionUnknown) {
    std::mt19937 random(2060);
    std::uniform_int_distribution<int> byte(1, 255);  // no zero byte: the text runs to the record's end
    for (int round = 0; round < 20; ++round) {
        g_host.bytes.clear();
        for (std::size_t i = 0; i < MDVR_MSG_DATA_SIZE; ++i) g_host.bytes += static_cast<char>(byte(random));
        g_host.lengthField = round % 2 == 0 ? -1 : std::numeric_limits<int32_t>::max();
        const std::string reply = Exchanged();
        ASSERT_EQ(reply.size(), MDVR_MSG_DATA_SIZE);
        EXPECT_EQ(Checked(reply), kRefused);
    }
    // A valid reply followed by garbage up to the record's end is no valid reply.
    g_host.bytes = Filling(std::string(kSettingReply) + "<", MDVR_MSG_DATA_SIZE, 'x');
    EXPECT_EQ(Checked(Exchanged()), kRefused);

    g_host.bytes = Filling("<VariCfgSec Action=\"DEVICE_QUERY\">", MDVR_MSG_DATA_SIZE, 'x');
    EXPECT_EQ(Quietly(QueryDeviceVersion), -1);
    EXPECT_EQ(Device().versionKnown, 0);
    EXPECT_EQ(Device().version.model[0], '\0');
}

TEST(ReplyChecks, RefuseEveryReplyCutShort) {
    const std::string replies[] = {kPowerReply, kSettingReply, kPlatformReply};
    for (std::size_t r = 0; r < std::size(replies); ++r) {
        ASSERT_EQ(Checked(replies[r])[r], 0) << replies[r];
        for (std::size_t length = 0; length < replies[r].size(); ++length) {
            EXPECT_EQ(Checked(replies[r].substr(0, length)), kRefused) << replies[r].substr(0, length);
        }
    }
}
