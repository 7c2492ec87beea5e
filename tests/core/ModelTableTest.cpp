#include <gtest/gtest.h>

#include <map>
#include <string>

#include "protocol/ModelTable.h"

using namespace varcfg;

namespace {

uint32_t Bit(FeatureGroup g) { return 1u << static_cast<unsigned>(g); }

std::map<std::string, int> GroupMembersByProfile(const ModelTable& table, FeatureGroup group) {
    std::map<std::string, int> members;
    for (const auto& e : table.Entries())
        if (e.groups & Bit(group)) ++members[e.profile.empty() ? "-" : e.profile];
    return members;
}

}  // namespace

TEST(ModelTable, BuiltInTableHasTheShapeThePagesRelyOn) {
    const ModelTable& table = BuiltInModelTable();
    std::map<std::string, int> perProfile;
    for (const auto& e : table.Entries()) ++perProfile[e.profile.empty() ? "-" : e.profile];
    const std::map<std::string, int> expected = {
        {"A", 3}, {"B", 2}, {"C", 1}, {"D", 8}, {"E", 4}, {"F", 2}, {"G", 2}, {"H", 2}, {"I", 3}, {"J", 3},
        {"K", 6}, {"L", 3}, {"M", 1}, {"N", 1}, {"O", 5}, {"P", 2}, {"Q", 2}, {"R", 1}, {"S", 1}, {"T", 1},
        {"U", 1}, {"V", 1}, {"-", 2}};
    EXPECT_EQ(perProfile, expected);

    using M = std::map<std::string, int>;
    EXPECT_EQ(GroupMembersByProfile(table, FeatureGroup::EightChannelMixedMode), (M{{"Q", 1}, {"S", 1}}));
    EXPECT_EQ(GroupMembersByProfile(table, FeatureGroup::FourChannelMixedMode), (M{{"G", 1}, {"R", 1}}));
    EXPECT_EQ(GroupMembersByProfile(table, FeatureGroup::FixedMode),
              (M{{"D", 8}, {"E", 3}, {"G", 1}, {"I", 3}, {"M", 1}, {"O", 5}, {"Q", 1}}));
    EXPECT_EQ(GroupMembersByProfile(table, FeatureGroup::H265),
              (M{{"D", 8}, {"E", 3}, {"G", 1}, {"H", 1}, {"I", 3}, {"K", 5}, {"L", 3}, {"M", 1}, {"O", 5}, {"Q", 1},
                 {"V", 1}}));
    EXPECT_EQ(GroupMembersByProfile(table, FeatureGroup::FrameLimited1080P), (M{{"O", 2}, {"Q", 2}, {"S", 1}}));
    EXPECT_EQ(GroupMembersByProfile(table, FeatureGroup::HighFrameRate), (M{{"M", 1}}));
    EXPECT_EQ(GroupMembersByProfile(table, FeatureGroup::ExtendedSubStream),
              (M{{"D", 8}, {"E", 3}, {"G", 1}, {"I", 2}, {"K", 2}, {"L", 3}, {"M", 1}, {"O", 5}, {"Q", 1}, {"V", 1}}));
    EXPECT_EQ(GroupMembersByProfile(table, FeatureGroup::PairedResolution),
              (M{{"A", 3}, {"B", 2}, {"C", 1}, {"E", 1}, {"F", 1}, {"G", 1}, {"N", 1}, {"P", 1}, {"Q", 1}, {"R", 1},
                 {"S", 1}, {"-", 2}}));

    // A model is in at most one of mixed and fixed video modes: the main stream page offers one list.
    // Only a fixed-mode model can have its first four camera types locked, and only one model has.
    int locked = 0;
    for (const auto& e : table.Entries()) {
        const bool mixed = e.groups & (Bit(FeatureGroup::EightChannelMixedMode) | Bit(FeatureGroup::FourChannelMixedMode));
        EXPECT_FALSE(mixed && (e.groups & Bit(FeatureGroup::FixedMode))) << e.text;
        if (!(e.groups & Bit(FeatureGroup::FirstFourLocked))) continue;
        ++locked;
        EXPECT_TRUE(e.groups & Bit(FeatureGroup::FixedMode)) << e.text;
    }
    EXPECT_EQ(locked, 1);
}

TEST(ModelTable, ModelTextsMatchWholeAndWithoutRegardToCase) {
    std::string error;
    auto table = ModelTable::Parse("profile P1 alarm-in=3 alarm-out=2 serial=1 resolution=1 channels=4\n"
                                   "model Abc-4 P1 h265\n",
                                   error);
    ASSERT_TRUE(table) << error;
    ASSERT_NE(table->ProfileOf("ABC-4"), nullptr);
    EXPECT_EQ(table->ProfileOf("abc-4")->alarmInputs, 3);
    EXPECT_EQ(table->ProfileOf("Abc-40"), nullptr);
    EXPECT_EQ(table->ProfileOf("Abc-"), nullptr);
    EXPECT_TRUE(table->IsInGroup("aBC-4", FeatureGroup::H265));
    EXPECT_FALSE(table->IsInGroup("Abc-4 ", FeatureGroup::H265));
    EXPECT_FALSE(table->IsInGroup("Abc-4", FeatureGroup::FixedMode));
}

TEST(ModelTable, EarlierProfileWinsForAModelListedTwice) {
    std::string error;
    auto table = ModelTable::Parse("profile First alarm-in=1 alarm-out=1 serial=1 resolution=1 channels=1\n"
                                   "profile Second alarm-in=2 alarm-out=2 serial=2 resolution=2 channels=2\n"
                                   "model X Second\n"
                                   "model x First   # same model in any case\n"
                                   "model Y -  paired-resolution\n",
                                   error);
    ASSERT_TRUE(table) << error;
    EXPECT_EQ(table->ProfileOf("X")->videoChannels, 1);
    EXPECT_EQ(table->ProfileOf("Y"), nullptr) << "a group-only model selects no profile";
    EXPECT_TRUE(table->IsInGroup("y", FeatureGroup::PairedResolution));
}

TEST(ModelTable, FaultsNameTheirLine) {
    const struct { const char* text; const char* error; } cases[] = {
        {"model A Z\n", "line 1: unknown profile Z"},
        {"\n# c\nprofile P alarm-in=1 alarm-out=1 serial=1 resolution=3 channels=1\n",
         "line 3: resolution must be 1, 2 or 4"},
        {"profile P alarm-in=1 alarm-out=1 serial=1 resolution=1\n", "line 1: expected: profile NAME alarm-in=N "
                                                                     "alarm-out=N serial=N resolution=N channels=N"},
        {"profile P alarm-in=-1 alarm-out=1 serial=1 resolution=1 channels=1\n",
         "line 1: expected: profile NAME alarm-in=N alarm-out=N serial=N resolution=N channels=N"},
        {"profile P alarm-in=1 alarm-out=1 serial=1 resolution=1 channels=0\n", "line 1: channels must be 1 to 16"},
        {"model A - h264\n", "line 1: unknown feature group h264"},
        {"modell A -\n", "line 1: expected a profile or a model line"},
        {"model ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456 -\n", "line 1: a model text has at most 31 characters"},
    };
    for (const auto& c : cases) {
        std::string error;
        EXPECT_FALSE(ModelTable::Parse(c.text, error)) << c.text;
        EXPECT_EQ(error, c.error) << c.text;
    }
}
