#include <gtest/gtest.h>

#include "channel/HostBridge.h"

using namespace varcfg;

TEST(HostBridge, ServesOnlyInterfaceKindOneVersionEighteen) {
    EXPECT_EQ(IsEnableDll(1, 18), 1);
    EXPECT_EQ(IsEnableDll(1, 17), 0);
    EXPECT_EQ(IsEnableDll(2, 18), 0);
    EXPECT_EQ(IsEnableDll(0, 18), 0);
    EXPECT_EQ(IsEnableDll(1, -18), 0);
}

TEST(HostBridge, DeviceTypesElevenAndTwelveUseChannelGroupsOfEight) {
    const struct { uint32_t type; int32_t group; } cases[] = {{11, 8}, {12, 8}, {10, 4}, {13, 4}, {0, 4}};
    for (const auto& c : cases) {
        EXPECT_EQ(SetDevType(c.type), 1);
        EXPECT_EQ(Host().channelGroup, c.group) << "type " << c.type;
        EXPECT_EQ(Host().deviceType, c.type);
    }
}

TEST(HostBridge, ChannelCountIsCheckedButNotStored) {
    SetDevType(11);
    for (int32_t count : {0, 16, -1}) EXPECT_EQ(SetDevChannelNum(count), 0) << count;
    for (int32_t count : {1, 15}) EXPECT_EQ(SetDevChannelNum(count), 1) << count;
    EXPECT_EQ(Host().channelGroup, 8);
    EXPECT_EQ(Host().deviceType, 11u);
}
