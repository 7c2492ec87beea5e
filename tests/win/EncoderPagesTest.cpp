// The encoder pages, each over a table of cases: what a load shows, what a save sends.
#include <gtest/gtest.h>

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "PageHarness.h"
#include "base/AnsiText.h"
#include "channel/DeviceVersion.h"
#include "pages/encoder/CChnCamTypeCfg.h"
#include "pages/encoder/CDlgTabEncoderCfgMain.h"
#include "pages/encoder/CDlgTabEncoderCfgMirror.h"
#include "pages/encoder/CDlgTabEncoderCfgOsd.h"
#include "pages/encoder/CDlgTabEncoderCfgSub.h"
#include "res/resource.h"
#include "ui/win/Controls.h"

using namespace varcfg;
using varcfg::test::Answer;
using varcfg::test::ControlValues;
using varcfg::test::Enter;
using varcfg::test::PageCase;
using varcfg::test::PageUnderTest;
using varcfg::test::RunPageCase;
using varcfg::test::Shown;

namespace {

const std::string kRefused = R"(<VariCfgSec Action="DEVICE_SET" Result="0" />)";

std::string OsdSetting(const std::string& flags) {
    static const char* const kNames[] = {"ucFD_DeviceNoEnable", "ucFD_ChnNameEnable", "ucFD_TimeEnable",
                                         "ucFD_GPSEnable",      "ucFD_LPlateEnable",  "ucFD_SpeedEnable",
                                         "ucFD_TempEnable",     "ucFD_IOEnable",      "ucFD_GSensorEnable"};
    std::string text = R"(<VariCfgSec Action="DEVICE_SET"><stOSD)";
    for (std::size_t i = 0; i < flags.size(); ++i) text += std::string(" ") + kNames[i] + "=\"" + flags[i] + '"';
    return text + " /></VariCfgSec>";
}

uint32_t Bit(FeatureGroup group) { return 1u << static_cast<unsigned>(group); }

// The first model of the table that has a profile, belongs to the group and to none of the excluded.
std::string ModelIn(FeatureGroup group, uint32_t excluded = 0) {
    for (const ModelTable::Entry& entry : BuiltInModelTable().Entries()) {
        if (!entry.profile.empty() && (entry.groups & Bit(group)) && !(entry.groups & excluded)) return entry.text;
    }
    ADD_FAILURE() << "no model in group " << static_cast<int>(group);
    return "";
}

// The first model of the table with a profile and the given number of video channels.
std::string ModelWithChannels(int channels) {
    for (const ModelTable::Entry& entry : BuiltInModelTable().Entries()) {
        const Capabilities* profile = BuiltInModelTable().ProfileOf(entry.text);
        if (profile != nullptr && profile->videoChannels == channels) return entry.text;
    }
    ADD_FAILURE() << "no model with " << channels << " channels";
    return "";
}

std::vector<std::string> ListTexts(HWND page, int id) {
    std::vector<std::string> texts;
    for (int i = 0; i < ComboCount(page, id); ++i) {
        wchar_t text[64] = {};
        SendDlgItemMessageW(page, id, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
        texts.push_back(ToAnsi(text));
    }
    return texts;
}

// Picks a list entry by index, as the user would.
void Pick(HWND page, int id, int index) {
    ComboSelect(page, id, index);
    SendMessageW(page, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), reinterpret_cast<LPARAM>(GetDlgItem(page, id)));
}

bool Visible(HWND page, int id) { return IsWindowVisible(GetDlgItem(page, id)) != FALSE; }
bool Enabled(HWND page, int id) { return IsWindowEnabled(GetDlgItem(page, id)) != FALSE; }

std::string MirrorSetting(const std::string& states) {
    std::string text = R"(<VariCfgSec Action="DEVICE_SET"><stVideoMirror><stVideoMirrorPara>)";
    for (int n = 0; n < 8; ++n) {
        text += "<VChn_" + std::to_string(n) + R"( ucFD_LeftRight=")" + states[2 * n] + R"(" ucFD_UpDown=")" +
                states[2 * n + 1] + R"(" />)";
    }
    return text + "</stVideoMirrorPara></VariCfgSec>";
}

std::string SubSetting(int mode, int resolution, int quality, int frameRate, int bitRate) {
    return R"(<VariCfgSec Action="DEVICE_SET"><stSubStream ucFD_EncodeMode=")" + std::to_string(mode) +
           R"(" ucFD_Resolution=")" + std::to_string(resolution) + R"(" ucFD_Quality=")" + std::to_string(quality) +
           R"(" ucFD_FrameRate=")" + std::to_string(frameRate) + R"(" uiFD_BitRate=")" + std::to_string(bitRate) +
           R"(" /></VariCfgSec>)";
}

}  // namespace

TEST(OsdPage, EachFlagComesFromItsOwnAttributeAndEverySaveSendsAllNineInOrder) {
    // Attributes in another order than the setting's, and in capitals, with one value above 1.
    const char kOsd[] = R"(UCFD_GSENSORENABLE="1" ucFD_IOEnable="0" ucFD_TempEnable="2" ucFD_SpeedEnable="0" )"
                        R"(ucFD_LPlateEnable="1" ucFD_GPSEnable="0" ucFD_TimeEnable="1" ucFD_ChnNameEnable="0" )"
                        R"(ucFD_DeviceNoEnable="1")";
    const PageCase cases[] = {
        {"unchanged: every save sends all nine",
         {{"stOSD", kOsd}},
         {{IDC_OSD_DEVICE_NUMBER, L"1"}, {IDC_OSD_CHANNEL_NAME, L"0"}, {IDC_OSD_TIME, L"1"}, {IDC_OSD_GPS, L"0"},
          {IDC_OSD_PLATE, L"1"}, {IDC_OSD_SPEED, L"0"}, {IDC_OSD_TEMPERATURE, L"1"}, {IDC_OSD_IO, L"0"},
          {IDC_OSD_GSENSOR, L"1"}},
         {},
         {OsdSetting("101010101")},
         1,
         {OsdSetting("101010101")}},
        {"all cleared sends nine zeros",
         {{"stOSD", kOsd}},
         {},
         {{IDC_OSD_DEVICE_NUMBER, L"0"}, {IDC_OSD_TIME, L"0"}, {IDC_OSD_PLATE, L"0"}, {IDC_OSD_TEMPERATURE, L"0"},
          {IDC_OSD_GSENSOR, L"0"}},
         {OsdSetting("000000000")},
         1,
         {OsdSetting("000000000")}},
        {"a refused write keeps the boxes as set",
         {{"stOSD", kOsd}},
         {},
         {{IDC_OSD_GPS, L"1"}},
         {OsdSetting("101110101")},
         0,
         {OsdSetting("101110101")},
         "MR4-A1",
         1,
         kRefused},
    };
    for (const PageCase& c : cases) RunPageCase<CDlgTabEncoderCfgOsd>(c);
}

TEST(MirrorPage, ChannelsComeByPositionBelowTheCountAndAllEightAreAlwaysSent) {
    const auto reply = [](const std::string& children) {
        return R"(<VariCfgSec Action="DEVICE_QUERY"><stVideoMirror><stVideoMirrorPara>)" + children +
               "</stVideoMirrorPara></stVideoMirror></VariCfgSec>";
    };
    std::string ten;
    for (int n = 0; n < 10; ++n) ten += "<VChn_" + std::to_string(n) + R"( ucFD_LeftRight="1" ucFD_UpDown="0" />)";
    const std::string fourChannels = ModelWithChannels(4);
    const struct {
        const char* name;
        std::string model;
        std::string reply;
        ControlValues edits;
        std::string sent;
        std::string settingReply;
        int saveResult;
    } cases[] = {
        {"children out of order fill channels by position; an up-down of 2 is ticked; 4-7 send 0",
         fourChannels,
         reply(R"(<VChn_3 ucFD_LeftRight="1" ucFD_UpDown="2" /><VChn_0 ucFD_LeftRight="0" ucFD_UpDown="1" />)"),
         {{IDC_MIRROR_LEFT_RIGHT_FIRST + 2, L"1"}},
         MirrorSetting("1101100000000000"),
         R"(<VariCfgSec Action="DEVICE_SET" Result="1" />)",
         1},
        {"ten children on an eight-channel model: eight are read",
         ModelWithChannels(8),
         reply(ten),
         {},
         MirrorSetting("1010101010101010"),
         R"(<VariCfgSec Action="DEVICE_SET" Result="1" />)",
         1},
        {"no container shows zeros; a refused write returns 0",
         fourChannels,
         R"(<VariCfgSec Action="DEVICE_QUERY"><stVideoMirror /></VariCfgSec>)",
         {},
         MirrorSetting("0000000000000000"),
         R"(<VariCfgSec Action="DEVICE_SET" Result="0" />)",
         0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        PageUnderTest page(std::make_unique<CDlgTabEncoderCfgMirror>(), c.model);
        page.recorder.SetQueryReply("stVideoMirror", c.reply);
        page.recorder.settingReply = c.settingReply;
        EXPECT_EQ(page.Page().Refresh(), 1);
        const int channels = Device().capabilities.videoChannels;
        for (int n = 0; n < 8; ++n) EXPECT_EQ(Visible(page.Hwnd(), IDC_MIRROR_UP_DOWN_FIRST + n), n < channels) << n;
        for (const auto& [id, value] : c.edits) Enter(page.Hwnd(), id, value);
        page.TakeSettings();
        EXPECT_EQ(page.Page().Save(), c.saveResult);
        EXPECT_EQ(page.TakeSettings(), std::vector<std::string>{c.sent});
    }
}

TEST(SubStreamPage, ListsFollowTheModelAndPresetsSelectTheirRates) {
    const std::string small = ModelIn(FeatureGroup::H265, Bit(FeatureGroup::ExtendedSubStream));
    const std::string large = ModelIn(FeatureGroup::ExtendedSubStream);
    const char kCustom25[] = R"(ucFD_EncodeMode="3" ucFD_Resolution="2" ucFD_Quality="1" ucFD_FrameRate="25" uiFD_BitRate="2048")";
    const char kPreset2[] = R"(ucFD_EncodeMode="2" ucFD_Resolution="4" ucFD_Quality="2" ucFD_FrameRate="12" uiFD_BitRate="200")";
    const PageCase cases[] = {
        {"small lists: 25 frames and 2048 kbit/s match nothing and select nothing",
         {{"stSubStream", kCustom25}},
         {{IDC_SUB_RESOLUTION, L"D1"}, {IDC_SUB_FRAME_RATE, L""}, {IDC_SUB_BIT_RATE, L""}},
         {},
         {SubSetting(3, 2, 1, -1, -1)},
         1,
         {SubSetting(3, 2, 1, -1, -1)},
         small},
        {"large lists offer both",
         {{"stSubStream", kCustom25}},
         {{IDC_SUB_FRAME_RATE, L"25"}, {IDC_SUB_BIT_RATE, L"2048"}},
         {},
         {SubSetting(3, 2, 1, 25, 2048)},
         1,
         {SubSetting(3, 2, 1, 25, 2048)},
         large},
    };
    for (const PageCase& c : cases) RunPageCase<CDlgTabEncoderCfgSub>(c);

    // Preset modes grey the three custom lists, the custom mode frees them; only the extended sub
    // stream may change the resolution.
    for (const std::string& model : {small, large}) {
        PageUnderTest page(std::make_unique<CDlgTabEncoderCfgSub>(), model);
        page.recorder.SetSection("stSubStream", kPreset2);
        ASSERT_EQ(page.Page().Refresh(), 1);
        EXPECT_EQ(ListTexts(page.Hwnd(), IDC_SUB_FRAME_RATE).size(), model == large ? 10u : 8u);
        EXPECT_EQ(ListTexts(page.Hwnd(), IDC_SUB_BIT_RATE).size(), model == large ? 13u : 10u);
        EXPECT_EQ(Enabled(page.Hwnd(), IDC_SUB_RESOLUTION), model == large);
        for (int id : {IDC_SUB_QUALITY, IDC_SUB_FRAME_RATE, IDC_SUB_BIT_RATE}) EXPECT_FALSE(Enabled(page.Hwnd(), id));
        Pick(page.Hwnd(), IDC_SUB_MODE, 3);
        for (int id : {IDC_SUB_QUALITY, IDC_SUB_FRAME_RATE, IDC_SUB_BIT_RATE}) EXPECT_TRUE(Enabled(page.Hwnd(), id));
        if (model != large) continue;
        // Preset 1 selects 10 frames and 320 kbit/s; preset 0 selects 8 frames and keeps the bit rate.
        Pick(page.Hwnd(), IDC_SUB_MODE, 1);
        for (int id : {IDC_SUB_QUALITY, IDC_SUB_FRAME_RATE, IDC_SUB_BIT_RATE}) EXPECT_FALSE(Enabled(page.Hwnd(), id));
        page.TakeSettings();
        EXPECT_EQ(page.Page().Save(), 1);
        Pick(page.Hwnd(), IDC_SUB_MODE, 0);
        EXPECT_EQ(page.Page().Save(), 1);
        EXPECT_EQ(page.TakeSettings(), (std::vector<std::string>{SubSetting(1, 4, 2, 10, 320), SubSetting(0, 4, 2, 8, 320)}));
    }
}

TEST(SubStreamPage, TheSubStreamIsAskedForInTheLargeRecords) {
    PageUnderTest page(std::make_unique<CDlgTabEncoderCfgSub>(), "MR4-A1");
    page.recorder.SetSection("stSubStream", R"(ucFD_EncodeMode="3" ucFD_FrameRate="5" uiFD_BitRate="90")");
    ASSERT_EQ(page.Page().Refresh(), 1);
    EXPECT_EQ(page.Page().Save(), 1);
    ASSERT_EQ(page.recorder.requests.size(), 2u);
    EXPECT_EQ(page.recorder.requests[0].recordDistance, 9712);
    EXPECT_EQ(page.recorder.requests[1].recordDistance, 2064) << "settings travel in the standard records";
}

namespace {

std::string MainReply(uint32_t videoFmt) {
    return R"(<VariCfgSec Action="DEVICE_QUERY"><stMainStream ucFD_VideoMode="0" uiFD_VideoFmt=")" +
           std::to_string(videoFmt) +
           R"(" ucFD_VEncFormat="1" StartChn="0"><stVideoPara>)"
           R"(<VChn_0 ucFD_Resolution="6" ucFD_FrameRate="12" uiFD_BitRate="4096" uiFD_DisableAudio="1" uiFD_DisableVideo="0" />)"
           R"(<VChn_1 ucFD_Resolution="5" ucFD_FrameRate="30" uiFD_BitRate="2048" uiFD_DisableAudio="0" uiFD_DisableVideo="1" />)"
           R"(</stVideoPara></stMainStream></VariCfgSec>)";
}

struct SentChannel {
    int resolution, frameRate, bitRate, disableAudio, disableVideo;
};

std::string MainPair(int videoMode, long long videoFmt, int format, int start, const std::vector<SentChannel>& channels) {
    std::string text = R"(<VariCfgSec Action="DEVICE_SET"><stMainStream ucFD_VideoMode=")" + std::to_string(videoMode) +
                       R"(" uiFD_VideoFmt=")" + std::to_string(videoFmt) + R"(" ucFD_VEncFormat=")" +
                       std::to_string(format) + R"(" StartChn=")" + std::to_string(start) + R"("><stVideoPara>)";
    for (std::size_t i = 0; i < channels.size(); ++i) {
        const SentChannel& c = channels[i];
        text += "<VChn_" + std::to_string(start + static_cast<int>(i)) + R"( ucFD_Resolution=")" +
                std::to_string(c.resolution) + R"(" ucFD_FrameRate=")" + std::to_string(c.frameRate) +
                R"(" uiFD_BitRate=")" + std::to_string(c.bitRate) + R"(" uiFD_DisableAudio=")" +
                std::to_string(c.disableAudio) + R"(" uiFD_DisableVideo=")" + std::to_string(c.disableVideo) + R"(" />)";
    }
    return text + "</stVideoPara></stMainStream></VariCfgSec>";
}

const uint32_t kModeGroups = Bit(FeatureGroup::EightChannelMixedMode) | Bit(FeatureGroup::FourChannelMixedMode) |
                             Bit(FeatureGroup::FixedMode);

}  // namespace

TEST(MainStreamPage, EachFeatureGroupOffersAndSendsItsOwn) {
    const SentChannel loaded1 = {5, 25, 2048, 0, 1};  // 30 frames is beyond PAL's 25: nothing selected
    const struct {
        const char* name;
        std::string model;
        uint32_t videoFmt;
        std::vector<std::string> modes;  // empty: the list is hidden
        bool cameraTypes;
        bool format;
        std::size_t frameRates0;
        std::function<void(HWND)> edit;
        std::string firstSent;
    } rows[] = {
        {"eight-channel mixed mode: nine modes, 1080P capped at 15 frames",
         ModelIn(FeatureGroup::EightChannelMixedMode), 0x11111111u,
         {"8X720P", "8X1080P", "8X960H", "4X1080P+4X720P", "4X1080P+4X960H", "4X720P+4X960H", "2X1080P+6X720P",
          "2X1080P+6X960H", "4X1080P"},
         false, false, 15, [](HWND page) { Pick(page, IDC_MAIN_MODE, 8); },
         MainPair(0, -56798, 1, 0, {{6, 12, 4096, 1, 0}, loaded1})},
        {"four-channel mixed mode: six modes", ModelIn(FeatureGroup::FourChannelMixedMode), 0x1122u,
         {"4X1080P", "4X720P", "4X960H", "2X1080P+2X720P", "2X1080P+2X960H", "2X720P+2X960H"}, false, false, 25,
         [](HWND) {}, MainPair(0, 0x1122, 1, 0, {{6, 12, 4096, 1, 0}, loaded1})},
        {"fixed mode: the kept mask goes back; a resolution change leaves the partner",
         ModelIn(FeatureGroup::FixedMode, Bit(FeatureGroup::PairedResolution)), 0x2121u, {}, true, true, 25,
         [](HWND page) { Pick(page, IDC_MAIN_RESOLUTION_FIRST, 2); },
         MainPair(0, 0x2121, 1, 0, {{2, 12, 1536, 1, 0}, loaded1})},
        {"1080P frame-rate-limited", ModelIn(FeatureGroup::FrameLimited1080P, Bit(FeatureGroup::EightChannelMixedMode)),
         0x22u, {}, true, true, 15, [](HWND) {}, MainPair(0, 0x22, 1, 0, {{6, 12, 4096, 1, 0}, loaded1})},
        {"high frame rate: the first channel up to 60 at 1080P", ModelIn(FeatureGroup::HighFrameRate), 0x22u, {}, true,
         true, 60, [](HWND) {}, MainPair(0, 0x22, 1, 0, {{6, 12, 4096, 1, 0}, loaded1})},
        {"paired resolution: the partner follows; no mode list sends -1",
         ModelIn(FeatureGroup::PairedResolution, kModeGroups | Bit(FeatureGroup::H265)), 0, {}, false, false, 25,
         [](HWND page) { Pick(page, IDC_MAIN_RESOLUTION_FIRST, 1); },
         MainPair(0, -1, 1, 0, {{4, 12, 768, 1, 0}, {4, 25, 768, 0, 1}})},
        {"H.265 without a mode group", ModelIn(FeatureGroup::H265, kModeGroups | Bit(FeatureGroup::PairedResolution)), 0,
         {}, false, true, 25, [](HWND page) { Pick(page, IDC_MAIN_RESOLUTION_FIRST, 1); },
         MainPair(0, -1, 1, 0, {{5, 12, 2048, 1, 0}})},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name + std::string(" (") + row.model + ")");
        PageUnderTest page(std::make_unique<CDlgTabEncoderCfgMain>(), row.model);
        page.recorder.SetQueryReply("stMainStream", MainReply(row.videoFmt));
        HWND hwnd = page.Hwnd();
        ASSERT_EQ(page.Page().Refresh(), 1);
        EXPECT_EQ(Visible(hwnd, IDC_MAIN_MODE), !row.modes.empty());
        EXPECT_EQ(ListTexts(hwnd, IDC_MAIN_MODE), row.modes);
        EXPECT_EQ(Visible(hwnd, IDC_MAIN_CAMERA_TYPES), row.cameraTypes);
        EXPECT_EQ(Enabled(hwnd, IDC_MAIN_FORMAT), row.format);
        EXPECT_EQ(ListTexts(hwnd, IDC_MAIN_FRAME_RATE_FIRST).size(), row.frameRates0);
        EXPECT_EQ(ListTexts(hwnd, IDC_MAIN_FRAME_RATE_FIRST + 1).size(), 25u);
        const int channels = Device().capabilities.videoChannels;
        for (int n = 0; n < 8; ++n) EXPECT_EQ(Visible(hwnd, IDC_MAIN_RESOLUTION_FIRST + n), n < channels) << n;
        const int resolutionClass = Device().capabilities.resolutionClass;
        EXPECT_EQ(ListTexts(hwnd, IDC_MAIN_RESOLUTION_FIRST),
                  resolutionClass >= 4   ? (std::vector<std::string>{"1080P", "720P", "D1"})
                  : resolutionClass >= 2 ? (std::vector<std::string>{"720P", "D1", "CIF"})
                                         : (std::vector<std::string>{"D1", "CIF"}));
        row.edit(hwnd);
        page.TakeSettings();
        EXPECT_EQ(page.Page().Save(), 1);
        const std::vector<std::string> sent = page.TakeSettings();
        EXPECT_EQ(sent.size(), static_cast<std::size_t>((channels + 1) / 2));
        if (!sent.empty()) {
            EXPECT_EQ(sent.front(), row.firstSent);
        }
    }
}

TEST(MainStreamPage, SystemsListsWithoutSelectionAndFailuresOfTheLastPair) {
    const std::string model = ModelIn(FeatureGroup::FixedMode, Bit(FeatureGroup::PairedResolution));
    {
        SCOPED_TRACE("NTSC offers 30 frames; back to PAL a stored 30 has no entry; unselected lists send defaults");
        PageUnderTest page(std::make_unique<CDlgTabEncoderCfgMain>(), model);
        page.recorder.SetQueryReply("stMainStream", MainReply(0));
        ASSERT_EQ(page.Page().Refresh(), 1);
        Pick(page.Hwnd(), IDC_MAIN_SYSTEM, 1);
        EXPECT_EQ(ListTexts(page.Hwnd(), IDC_MAIN_FRAME_RATE_FIRST + 1).size(), 30u);
        EXPECT_EQ(Shown(page.Hwnd(), IDC_MAIN_FRAME_RATE_FIRST + 1), L"30");
        Pick(page.Hwnd(), IDC_MAIN_SYSTEM, 0);
        EXPECT_EQ(Shown(page.Hwnd(), IDC_MAIN_FRAME_RATE_FIRST + 1), L"");
        for (int id : {IDC_MAIN_RESOLUTION_FIRST, IDC_MAIN_FRAME_RATE_FIRST, IDC_MAIN_BIT_RATE_FIRST}) Pick(page.Hwnd(), id, -1);
        page.TakeSettings();
        EXPECT_EQ(page.Page().Save(), 1);
        EXPECT_EQ(page.TakeSettings().front(), MainPair(0, 0, 1, 0, {{6, 25, 3072, 1, 0}, {5, 25, 2048, 0, 1}}));
    }
    {
        SCOPED_TRACE("the last pair's result is the page's");
        PageUnderTest page(std::make_unique<CDlgTabEncoderCfgMain>(), model);
        page.recorder.SetQueryReply("stMainStream", MainReply(0));
        page.recorder.transportFails = true;
        EXPECT_EQ(page.Page().Refresh(), 0);
        EXPECT_EQ(page.Page().Save(), 0);
        page.recorder.transportFails = false;
        page.recorder.SetQueryReply("stMainStream", R"(<VariCfgSec Result="1"><stMainStream /></VariCfgSec>)");
        EXPECT_EQ(page.Page().Refresh(), -1);
        page.recorder.settingReply = R"(<VariCfgSec Action="DEVICE_SET" Result="0" />)";
        EXPECT_EQ(page.Page().Save(), 0);
        const std::vector<std::string> texts = page.recorder.Texts();
        const std::vector<std::string> starts(texts.begin(), texts.begin() + 2);
        EXPECT_EQ(starts, (std::vector<std::string>{
                              R"(<VariCfgSec Action="DEVICE_QUERY"><stMainStream StartChn="0"></VariCfgSec>)",
                              R"(<VariCfgSec Action="DEVICE_QUERY"><stMainStream StartChn="2"></VariCfgSec>)"}));
    }
}

TEST(CameraTypes, MaskNibblesInAndOutConfirmedBeforeTheMainStreamWritesThem) {
    {
        SCOPED_TRACE("the dialog alone: 0x22 on four channels, a cancelled confirmation, then OK");
        test::ModalWatcher watcher;
        test::HostWindow host;
        CChnCamTypeCfg dialog(4, 0x22, false);
        watcher.Queue(Answer::Key(VK_SHIFT));  // the dialog itself: a key that changes nothing
        ASSERT_TRUE(dialog.Create(host));
        HWND box = dialog.Hwnd();
        const std::vector<std::wstring> shown = {Shown(box, IDC_CAMERA_TYPE_FIRST), Shown(box, IDC_CAMERA_TYPE_FIRST + 1),
                                                 Shown(box, IDC_CAMERA_TYPE_FIRST + 2), Shown(box, IDC_CAMERA_TYPE_FIRST + 3)};
        EXPECT_EQ(shown, (std::vector<std::wstring>{L"1080P", L"1080P", L"960H", L"960H"}));
        for (int n = 4; n < 8; ++n) EXPECT_FALSE(Visible(box, IDC_CAMERA_TYPE_FIRST + n)) << n;
        Pick(box, IDC_CAMERA_TYPE_FIRST + 3, 1);
        watcher.Queue(Answer::Click(IDCANCEL));
        SendMessageW(box, WM_COMMAND, IDOK, 0);
        EXPECT_EQ(dialog.Mask(), 0x22u);
        EXPECT_TRUE(IsWindow(box));
        watcher.Queue(Answer::Click(IDOK));
        SendMessageW(box, WM_COMMAND, IDOK, 0);
        EXPECT_EQ(dialog.Mask(), 0x1022u);
        EXPECT_EQ(watcher.Seen().size(), 3u);  // the dialog and two confirmations
        for (const std::wstring& problem : watcher.Problems()) ADD_FAILURE() << ToAnsi(problem);
        host.Destroy();
    }
    {
        SCOPED_TRACE("an unused channel (15) shows 720P and goes back as 1; the first four can be locked");
        test::ModalWatcher watcher;
        test::HostWindow host;
        CChnCamTypeCfg dialog(8, 0xF2u, true);
        watcher.Queue(Answer::Key(VK_SHIFT));  // the dialog itself: a key that changes nothing
        ASSERT_TRUE(dialog.Create(host));
        EXPECT_EQ(Shown(dialog.Hwnd(), IDC_CAMERA_TYPE_FIRST + 1), L"720P");
        for (int n = 0; n < 8; ++n) EXPECT_EQ(Enabled(dialog.Hwnd(), IDC_CAMERA_TYPE_FIRST + n), n >= 4) << n;
        watcher.Queue(Answer::Click(IDOK));
        SendMessageW(dialog.Hwnd(), WM_COMMAND, IDOK, 0);
        EXPECT_EQ(dialog.Mask(), 0x12u);
        host.Destroy();
    }
    // From the main stream page: the new mask is written at once and kept only when accepted.
    for (const bool accepted : {true, false}) {
        SCOPED_TRACE(accepted ? "accepted" : "refused");
        const std::string model = ModelIn(FeatureGroup::FixedMode, Bit(FeatureGroup::FirstFourLocked));
        PageUnderTest page(std::make_unique<CDlgTabEncoderCfgMain>(), model);
        page.recorder.SetQueryReply("stMainStream", MainReply(0x2121u));
        ASSERT_EQ(page.Page().Refresh(), 1);
        page.recorder.settingReply = accepted ? R"(<VariCfgSec Action="DEVICE_SET" Result="1" />)"
                                              : R"(<VariCfgSec Action="DEVICE_SET" Result="0" />)";
        page.watcher.Inspect([](HWND box) {
            if (GetDlgItem(box, IDC_CAMERA_TYPE_FIRST + 1) != nullptr) Pick(box, IDC_CAMERA_TYPE_FIRST + 1, 0);
        });
        page.watcher.Queue(Answer::Click(IDOK));
        page.watcher.Queue(Answer::Click(IDOK));
        page.TakeSettings();
        SendDlgItemMessageW(page.Hwnd(), IDC_MAIN_CAMERA_TYPES, BM_CLICK, 0, 0);
        EXPECT_EQ(page.TakeSettings(),
                  std::vector<std::string>{
                      R"(<VariCfgSec Action="DEVICE_SET"><stMainStream uiFD_VideoFmt="8449"></stMainStream></VariCfgSec>)"});
        page.recorder.settingReply = R"(<VariCfgSec Action="DEVICE_SET" Result="1" />)";
        page.Page().Save();
        const std::vector<std::string> sent = page.TakeSettings();
        ASSERT_FALSE(sent.empty());
        EXPECT_NE(sent.front().find(accepted ? R"(uiFD_VideoFmt="8449")" : R"(uiFD_VideoFmt="8481")"), std::string::npos);
    }
}
