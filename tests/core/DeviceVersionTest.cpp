#include <gtest/gtest.h>

#include <string>

#include "FakePlatform.h"
#include "channel/HostBridge.h"
#include "channel/DeviceVersion.h"

using namespace varcfg;

namespace {

// A recorder that answers every request with one prepared reply.
struct Recorder {
    int32_t result = 1;
    std::string reply;
    std::string lastRequest;
    int requests = 0;
};
Recorder* g_recorder = nullptr;

int32_t Answer(int32_t, MDVR_MsgRecord* request, MDVR_MsgRecord* reply, void*) {
    ++g_recorder->requests;
    g_recorder->lastRequest = request->data;
    g_recorder->reply.copy(reply->data, MDVR_MSG_TEXT_USED - 1);
    return g_recorder->result;
}

std::string VersionReply(const std::string& attributes) {
    return "<VariCfgSec Action=\"DEVICE_QUERY\"><stVersion " + attributes + " /></VariCfgSec>";
}

class DeviceVersion : public ::testing::Test {
protected:
    void SetUp() override {
        Device() = DeviceState{};
        g_recorder = &recorder;
        SetConfigFunction(Answer, nullptr, nullptr);
    }
    void TearDown() override { SetConfigFunction(nullptr, nullptr, nullptr); }

    Recorder recorder;
};

}  // namespace

TEST_F(DeviceVersion, BeforeAnyQueryThePagesSeeOneChannelAndNoPeripherals) {
    const Capabilities& c = Device().capabilities;
    EXPECT_EQ(Device().versionKnown, 0);
    EXPECT_EQ(c.videoChannels, 1);
    EXPECT_EQ(c.resolutionClass, 2);
    EXPECT_EQ(c.alarmInputs + c.alarmOutputs + c.serialPorts, 0);
}

TEST_F(DeviceVersion, SuccessfulQueryTakesTheBlockAndAssignsTheModelsProfile) {
    recorder.reply = VersionReply(R"(model="mr8-o1" VideoCnt="3" iVideoChannelCnt="8" strAppVer="A1" )"
                                  R"(STRKERNELVER="K2" strUnknown="x")");
    EXPECT_EQ(QueryDeviceVersion(), 1);
    EXPECT_EQ(recorder.lastRequest, "<VariCfgSec Action=\"DEVICE_QUERY\"><stVersion /></VariCfgSec>");
    const DeviceState& d = Device();
    EXPECT_EQ(d.versionKnown, 1);
    EXPECT_STREQ(d.version.model, "mr8-o1");
    EXPECT_EQ(d.version.videoChannelCount, 8) << "the later of the two channel attributes wins";
    EXPECT_STREQ(d.version.appVer, "A1");
    EXPECT_STREQ(d.version.kernelVer, "K2");
    // Profile O, whatever the letter case: 8 channels, 1080P, 4 inputs, 1 output, 2 ports.
    EXPECT_EQ(d.capabilities.videoChannels, 8);
    EXPECT_EQ(d.capabilities.resolutionClass, 4);
    EXPECT_EQ(d.capabilities.alarmInputs, 4);
    EXPECT_EQ(d.capabilities.alarmOutputs, 1);
    EXPECT_EQ(d.capabilities.serialPorts, 2);
    EXPECT_TRUE(IsModelInGroup(FeatureGroup::FixedMode));
    EXPECT_TRUE(IsModelInGroup(FeatureGroup::FrameLimited1080P));
    EXPECT_FALSE(IsModelInGroup(FeatureGroup::PairedResolution));
}

TEST_F(DeviceVersion, UnknownModelTakesOnlyTheReportedChannelCount) {
    recorder.reply = VersionReply(R"(Model="MR4-F1")");
    ASSERT_EQ(QueryDeviceVersion(), 1);
    EXPECT_EQ(Device().capabilities.alarmInputs, 8);

    recorder.reply = VersionReply(R"(Model="MR4-F1X" iVideoChannelCnt="8")");
    ASSERT_EQ(QueryDeviceVersion(), 1);
    const Capabilities& c = Device().capabilities;
    EXPECT_EQ(c.videoChannels, 8);
    EXPECT_EQ(c.alarmInputs, 8) << "the previous device's counts stay";
    EXPECT_EQ(c.alarmOutputs, 2);
    EXPECT_EQ(c.serialPorts, 4);
    EXPECT_EQ(c.resolutionClass, 2);

    // A model that only takes part in a group test selects no profile either.
    recorder.reply = VersionReply(R"(Model="MR4-X1" iVideoChannelCnt="2")");
    ASSERT_EQ(QueryDeviceVersion(), 1);
    EXPECT_EQ(Device().capabilities.videoChannels, 2);
    EXPECT_TRUE(IsModelInGroup(FeatureGroup::PairedResolution));
}

TEST_F(DeviceVersion, FailuresLeaveTheVersionUnknownAndTheProfileInForce) {
    recorder.reply = VersionReply(R"(Model="MR4-F1")");
    recorder.result = 0;
    EXPECT_EQ(QueryDeviceVersion(), 0);
    EXPECT_EQ(Device().versionKnown, 0);

    recorder.result = 1;
    recorder.reply = "<VariCfgSec><stVersion Model=\"MR4-F1\"/></VariCfgSec>";  // no Action
    testing::internal::CaptureStdout();
    EXPECT_EQ(QueryDeviceVersion(), -1);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "CDlgCfgBase::GetParaCmdType, get first pAttribute failed.\n");
    EXPECT_EQ(Device().versionKnown, 0);
    EXPECT_EQ(Device().capabilities.alarmInputs, 0);
    EXPECT_EQ(Device().version.model[0], '\0');
}

TEST_F(DeviceVersion, VersionTextsAreCutAt31Characters) {
    recorder.reply = VersionReply("Model=\"" + std::string(40, 'M') + "\"");
    ASSERT_EQ(QueryDeviceVersion(), 1);
    EXPECT_EQ(std::string(Device().version.model), std::string(31, 'M'));
}

TEST(ModelTableFile, ValidFileBesideTheModuleReplacesTheBuiltInTable) {
    FakePlatform platform;
    platform.fileContents[L"C:\\Client\\Plugins\\varcfg_models.tbl"] =
        "profile Z alarm-in=7 alarm-out=1 serial=1 resolution=4 channels=16\nmodel NEW-16 Z h265\n";
    const ModelTable table = LoadModelTable(platform);
    ASSERT_NE(table.ProfileOf("new-16"), nullptr);
    EXPECT_EQ(table.ProfileOf("new-16")->videoChannels, 16);
    EXPECT_EQ(table.ProfileOf("MR4-A1"), nullptr);
}

TEST(ModelTableFile, MissingOrFaultyFileKeepsTheBuiltInTable) {
    FakePlatform platform;
    EXPECT_NE(LoadModelTable(platform).ProfileOf("MR4-A1"), nullptr);
    platform.fileContents[L"C:\\Client\\Plugins\\varcfg_models.tbl"] = "model NEW-16 Z\n";
    EXPECT_NE(LoadModelTable(platform).ProfileOf("MR4-A1"), nullptr);
    EXPECT_EQ(LoadModelTable(platform).ProfileOf("NEW-16"), nullptr);
}
