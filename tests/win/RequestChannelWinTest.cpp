// The request channel and the version query as built for Windows, through a host callback.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "base/AnsiText.h"
#include "channel/HostBridge.h"
#include "channel/RequestChannel.h"
#include "channel/DeviceVersion.h"

using namespace varcfg;

namespace {

struct FakeHost {
    std::string request;
    int32_t length = -1;
    void* context = nullptr;
    std::string answer;
};

int32_t OnRequest(int32_t mode, MDVR_MsgRecord* request, MDVR_MsgRecord* reply, void* context) {
    FakeHost& host = *static_cast<FakeHost*>(context);
    host.context = context;
    host.request = request->data;
    host.length = request->length;
    host.answer.copy(reply->data, MDVR_MSG_TEXT_USED - 1);
    return mode == MDVR_REQUEST_EXCHANGE ? 1 : 0;
}

}  // namespace

TEST(RequestChannelOnWindows, WideSettingIsSentInTheAnsiCodePageAndCut) {
    FakeHost host;
    SetConfigFunction(OnRequest, nullptr, &host);
    host.answer = R"(<VariCfgSec Action="DEVICE_SET" Result="1" />)";

    const std::wstring setting = L"<VariCfgSec Action=\"DEVICE_SET\"><stCarInfo strFD_LicensePlate=\"" +
                                 std::wstring(1500, L'A') + L"\" /></VariCfgSec>";
    std::string reply;
    ASSERT_TRUE(Exchange(ToAnsi(setting), kSettingForm, reply));
    EXPECT_EQ(host.context, &host);
    EXPECT_EQ(host.length, 1023);
    EXPECT_EQ(host.request, std::string(setting.begin(), setting.begin() + 1023));
    EXPECT_EQ(reply, host.answer);

    // A character of the ANSI code page round-trips through the boundary conversions.
    const std::wstring accented = L"caf\u00e9";
    EXPECT_EQ(FromAnsi(ToAnsi(accented)), accented) << "code page " << GetACP();
    SetConfigFunction(nullptr, nullptr, nullptr);
}

TEST(RequestChannelOnWindows, VersionQueryAssignsTheModelsProfile) {
    FakeHost host;
    SetConfigFunction(OnRequest, nullptr, &host);
    host.answer = R"(<VariCfgSec Action="DEVICE_QUERY"><stVersion Model="MR4-G1" iVideoChannelCnt="4" /></VariCfgSec>)";
    EXPECT_EQ(QueryDeviceVersion(), 1);
    EXPECT_EQ(host.request, "<VariCfgSec Action=\"DEVICE_QUERY\"><stVersion /></VariCfgSec>");
    EXPECT_EQ(Device().capabilities.alarmInputs, 6);
    EXPECT_EQ(Device().capabilities.serialPorts, 3);
    EXPECT_TRUE(IsModelInGroup(FeatureGroup::FourChannelMixedMode));
    SetConfigFunction(nullptr, nullptr, nullptr);
}
