#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "channel/HostBridge.h"
#include "channel/RequestChannel.h"

using namespace varcfg;

namespace {

// A host that records what it was handed and answers with a prepared reply.
struct FakeHost {
    int32_t result = 1;
    std::string answer;
    bool fillWholeArea = false;  // write every data byte, no terminator
    size_t dataSize = MDVR_MSG_DATA_SIZE;

    int calls = 0;
    int32_t mode = -1;
    int32_t requestLength = -1;
    std::vector<char> requestData;
    std::vector<char> replyDataOnEntry;
    void* context = nullptr;
};

FakeHost* g_host = nullptr;

int32_t OnRequest(int32_t mode, MDVR_MsgRecord* request, MDVR_MsgRecord* reply, void* context) {
    FakeHost& h = *g_host;
    ++h.calls;
    h.mode = mode;
    h.context = context;
    h.requestLength = request->length;
    h.requestData.assign(request->data, request->data + h.dataSize);
    h.replyDataOnEntry.assign(reply->data, reply->data + h.dataSize);
    if (h.fillWholeArea) {
        std::memset(reply->data, 'x', h.dataSize);
    } else {
        std::memcpy(reply->data, h.answer.data(), h.answer.size());
    }
    reply->length = 0;  // the plug-in must not rely on it
    return h.result;
}

class RequestChannel : public ::testing::Test {
protected:
    void SetUp() override {
        g_host = &host;
        SetConfigFunction(OnRequest, nullptr, &host);
    }
    void TearDown() override { SetConfigFunction(nullptr, nullptr, nullptr); }
    FakeHost host;
};

}  // namespace

TEST_F(RequestChannel, QuerySendsExactTextInModeZeroWithZeroedRecords) {
    host.answer = "<VariCfgSec Action=\"DEVICE_QUERY\"><stPower ucPOnDelayEnable=\"1\"/></VariCfgSec>";
    const std::string query = "<VariCfgSec Action=\"DEVICE_QUERY\"><stPower></VariCfgSec>";
    std::string reply;
    ASSERT_TRUE(Exchange(query, kQueryForm, reply));

    EXPECT_EQ(host.calls, 1);
    EXPECT_EQ(host.mode, 0);
    EXPECT_EQ(host.context, &host);
    EXPECT_EQ(host.requestLength, static_cast<int32_t>(query.size()));
    EXPECT_EQ(std::string(host.requestData.data()), query);
    for (size_t i = query.size(); i < MDVR_MSG_TEXT_USED; ++i) ASSERT_EQ(host.requestData[i], 0) << i;
    for (size_t i = 0; i < MDVR_MSG_TEXT_USED; ++i) ASSERT_EQ(host.replyDataOnEntry[i], 0) << i;
    EXPECT_EQ(reply, host.answer);  // accepted although the host left the length field at 0
}

TEST_F(RequestChannel, SettingTextsAreCutAt1023Characters) {
    const std::string setting(1500, 'a');
    std::string reply;
    ASSERT_TRUE(Exchange(setting, kSettingForm, reply));
    EXPECT_EQ(host.requestLength, 1023);
    EXPECT_EQ(std::string(host.requestData.data()), setting.substr(0, 1023));
}

TEST_F(RequestChannel, RawTextsAreCutAt2047CharactersWithLengthUpTo2048) {
    std::string reply;
    ASSERT_TRUE(Exchange(std::string(3000, 'r'), kRawForm, reply));
    EXPECT_EQ(host.requestLength, 2048);
    EXPECT_EQ(std::string(host.requestData.data()), std::string(2047, 'r'));

    ASSERT_TRUE(Exchange("", kRawForm, reply));
    EXPECT_EQ(host.requestLength, 0);
    EXPECT_EQ(host.requestData[0], 0);
}

TEST_F(RequestChannel, ZeroResultAbandonsTheExchangeAndLeavesTheReplyUntouched) {
    host.result = 0;
    host.answer = "<VariCfgSec Action=\"DEVICE_SET\" Result=\"1\"/>";
    std::string reply = "earlier";
    EXPECT_FALSE(Exchange("<q/>", kQueryForm, reply));
    EXPECT_EQ(reply, "earlier");
}

TEST_F(RequestChannel, NoCallbackInstalledFailsWithoutCalling) {
    SetConfigFunction(nullptr, nullptr, nullptr);
    std::string reply;
    EXPECT_FALSE(Exchange("<q/>", kQueryForm, reply));
    EXPECT_EQ(host.calls, 0);
}

TEST_F(RequestChannel, UnterminatedReplyIsReadNoFurtherThanTheRecord) {
    host.fillWholeArea = true;
    std::string reply;
    ASSERT_TRUE(Exchange("<q/>", kQueryForm, reply));
    EXPECT_EQ(reply, std::string(MDVR_MSG_DATA_SIZE, 'x'));

    host.dataSize = MDVR_LARGE_MSG_DATA_SIZE;
    ASSERT_TRUE(Exchange("<q/>", kQueryForm, reply, RecordSize::Large));
    EXPECT_EQ(reply, std::string(MDVR_LARGE_MSG_DATA_SIZE, 'x'));
}
