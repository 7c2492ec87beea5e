// The serial pages: the PTZ page's per-channel cache and its eight-slot write.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "PageHarness.h"
#include "pages/serial/CDlgTabSerialCfgPtz.h"
#include "res/resource.h"

using varcfg::test::UseEnglishTexts;
using varcfg::test::Enter;
using varcfg::test::PageUnderTest;
using varcfg::test::Shown;

namespace {

std::string PtzReply(const std::string& channels) {
    return R"(<VariCfgSec Action="DEVICE_QUERY"><stChnPtz><stChnPtzPara>)" + channels +
           "</stChnPtzPara></stChnPtz></VariCfgSec>";
}

std::string PtzChannel(int number, int address, int protocol) {
    return "<VChn_" + std::to_string(number) + R"( usPtzAddress=")" + std::to_string(address) +
           R"(" ucPtzProtocol=")" + std::to_string(protocol) + R"(" ucSerialIndex="0" />)";
}

// The write: the selected channel, then eight slots of address and protocol.
std::string PtzSetting(int channel, const std::vector<std::pair<int, int>>& slots) {
    std::string text = R"(<VariCfgSec Action="DEVICE_SET"><stChnPtz StartChn=")" + std::to_string(channel) +
                       R"("><stChnPtzPara>)";
    for (int n = 0; n < 8; ++n) {
        const std::string slot = std::to_string(n);
        text += "<VChn_" + slot + R"( usPtzAddress=")" + std::to_string(slots[n].first) + R"(" ucPtzProtocol=")" +
                std::to_string(slots[n].second) + R"(" ucSerialIndex=")" + slot + R"("></VChn_)" + slot + ">";
    }
    return text + "<stChnPtzPara></stChnPtz></VariCfgSec>";
}

}  // namespace

TEST(PtzPage, ShowsTheProtocolByTheAddressAndWritesAllEightSlots) {
    UseEnglishTexts();
    PageUnderTest page(std::make_unique<CDlgTabSerialCfgPtz>(), "MR4-A1");  // four channels
    // Channel 5 is read but not kept: the profile has four channels.
    page.recorder.SetQueryReply("stChnPtz", PtzReply(PtzChannel(0, 0, 1) + PtzChannel(1, 1, 0) + PtzChannel(2, 3, 1) +
                                                     PtzChannel(5, 4, 1)));
    ASSERT_EQ(page.Page().Refresh(), 1);
    EXPECT_EQ(Shown(page.Hwnd(), IDC_PTZ_CHANNEL), L"CH 1");
    EXPECT_EQ(Shown(page.Hwnd(), IDC_PTZ_ADDRESS), L"0");
    EXPECT_EQ(Shown(page.Hwnd(), IDC_PTZ_PROTOCOL), L"Pelco P");  // protocol 1, but address 0
    Enter(page.Hwnd(), IDC_PTZ_CHANNEL, L"CH 2");
    EXPECT_EQ(Shown(page.Hwnd(), IDC_PTZ_ADDRESS), L"1");
    EXPECT_EQ(Shown(page.Hwnd(), IDC_PTZ_PROTOCOL), L"Pelco D");  // protocol 0, but address 1
    Enter(page.Hwnd(), IDC_PTZ_CHANNEL, L"CH 3");
    EXPECT_EQ(Shown(page.Hwnd(), IDC_PTZ_ADDRESS), L"3");
    EXPECT_EQ(Shown(page.Hwnd(), IDC_PTZ_PROTOCOL), L"");  // an address above 1 leaves no protocol
    page.TakeSettings();

    Enter(page.Hwnd(), IDC_PTZ_PROTOCOL, L"Pelco D");
    EXPECT_EQ(page.Page().Save(), 1);
    const std::vector<std::pair<int, int>> written = {{0, 1}, {1, 0}, {3, 1}, {0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}};
    EXPECT_EQ(page.TakeSettings(), std::vector<std::string>{PtzSetting(2, written)});

    // The written values are kept: another channel's write carries them.
    Enter(page.Hwnd(), IDC_PTZ_CHANNEL, L"CH 4");
    Enter(page.Hwnd(), IDC_PTZ_ADDRESS, L"5");
    page.recorder.settingReply = R"(<VariCfgSec Action="DEVICE_SET" Result="0" />)";
    EXPECT_EQ(page.Page().Save(), 0);
    page.recorder.settingReply = R"(<VariCfgSec Action="DEVICE_SET" Result="1" />)";
    Enter(page.Hwnd(), IDC_PTZ_CHANNEL, L"CH 3");
    Enter(page.Hwnd(), IDC_PTZ_CHANNEL, L"CH 1");
    EXPECT_EQ(page.Page().Save(), 1);
    const std::vector<std::string> sent = page.TakeSettings();
    ASSERT_EQ(sent.size(), 2u);
    EXPECT_EQ(sent[1], PtzSetting(0, {{0, 0}, {1, 0}, {3, 1}, {0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}}))
        << "the refused write to channel 4 was not kept";
}

TEST(PtzPage, ChannelEightEndsTheListAndAMalformedNameFailsTheRead) {
    UseEnglishTexts();
    PageUnderTest page(std::make_unique<CDlgTabSerialCfgPtz>(), "MR4-A1");
    page.recorder.SetQueryReply("stChnPtz", PtzReply(PtzChannel(0, 2, 0) + "<VChn_8 usPtzAddress=\"1\" />" +
                                                     PtzChannel(1, 4, 1)));
    ASSERT_EQ(page.Page().Refresh(), 1);
    Enter(page.Hwnd(), IDC_PTZ_CHANNEL, L"CH 2");
    EXPECT_EQ(Shown(page.Hwnd(), IDC_PTZ_ADDRESS), L"0") << "channel 1 comes after channel 8: not read";

    page.recorder.SetQueryReply("stChnPtz", PtzReply(PtzChannel(1, 5, 1) + "<VChn_10 usPtzAddress=\"1\" />"));
    EXPECT_EQ(page.Page().Refresh(), 0);
    page.recorder.SetQueryReply("stChnPtz", "not xml");
    EXPECT_EQ(page.Page().Refresh(), -1);
    page.TakeSettings();
    EXPECT_EQ(page.Page().Save(), 1);
    EXPECT_EQ(page.TakeSettings(),
              std::vector<std::string>{PtzSetting(1, {{2, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}})})
        << "failed reads left the kept values";
}
