#include "pages/encoder/CDlgTabEncoderCfgMain.h"

#include <algorithm>

#include "base/AnsiText.h"
#include "channel/DeviceVersion.h"
#include "pages/encoder/CChnCamTypeCfg.h"
#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

constexpr Binding<MainStreamRecord> kMainStreamBindings[] = {
    VARCFG_BIND(MainStreamRecord, videoMode, "ucFD_VideoMode", Integer).InComboIndex(IDC_MAIN_SYSTEM, Unlisted::Clear),
    VARCFG_BIND(MainStreamRecord, videoFmt, "uiFD_VideoFmt", Integer).InComboData(IDC_MAIN_MODE, Unlisted::Keep),
    VARCFG_BIND(MainStreamRecord, vEncFormat, "ucFD_VEncFormat", Integer).InComboIndex(IDC_MAIN_FORMAT, Unlisted::Clear),
};
constexpr Section<MainStreamRecord> kMainStream{"stMainStream", kMainStreamBindings};

// The children of stVideoPara, one row per channel: the ids of row n follow these by n. A list with
// no selection sends 1080P, 25 frames and 3072 kbit/s.
constexpr Binding<MainStreamChannel> kChannelBindings[] = {
    VARCFG_BIND(MainStreamChannel, resolution, "ucFD_Resolution", Integer)
        .InComboData(IDC_MAIN_RESOLUTION_FIRST, Unlisted::Keep, 6),
    VARCFG_BIND(MainStreamChannel, frameRate, "ucFD_FrameRate", Integer)
        .InComboData(IDC_MAIN_FRAME_RATE_FIRST, Unlisted::Keep, 25),
    VARCFG_BIND(MainStreamChannel, bitRate, "uiFD_BitRate", Integer).InComboData(IDC_MAIN_BIT_RATE_FIRST, Unlisted::Keep, 3072),
    VARCFG_BIND(MainStreamChannel, disableAudio, "uiFD_DisableAudio", Integer).InInvertedCheck(IDC_MAIN_AUDIO_FIRST),
    VARCFG_BIND(MainStreamChannel, disableVideo, "uiFD_DisableVideo", Integer).InInvertedCheck(IDC_MAIN_VIDEO_FIRST),
};
constexpr Section<MainStreamChannel> kChannel{"stMainStream", kChannelBindings};

constexpr wchar_t kPairQuery[] = L"<VariCfgSec Action=\"DEVICE_QUERY\"><stMainStream StartChn=\"%d\"></VariCfgSec>";
constexpr wchar_t kPairSettingStart[] =
    L"<VariCfgSec Action=\"DEVICE_SET\"><stMainStream ucFD_VideoMode=\"%d\" uiFD_VideoFmt=\"%d\" "
    L"ucFD_VEncFormat=\"%d\" StartChn=\"%d\"><stVideoPara>";
constexpr wchar_t kPairSettingChannel[] =
    L"<VChn_%d ucFD_Resolution=\"%d\" ucFD_FrameRate=\"%d\" uiFD_BitRate=\"%d\" uiFD_DisableAudio=\"%d\" "
    L"uiFD_DisableVideo=\"%d\" />";
constexpr wchar_t kPairSettingEnd[] = L"</stVideoPara></stMainStream></VariCfgSec>";
constexpr wchar_t kVideoFmtSetting[] =
    L"<VariCfgSec Action=\"DEVICE_SET\"><stMainStream uiFD_VideoFmt=\"%d\"></stMainStream></VariCfgSec>";

struct VideoMode {
    const wchar_t* text;
    uint32_t mask;  // four bits per channel: 0 960H, 1 720P, 2 1080P, 15 unused
};
constexpr uint32_t kFourChannels1080P = 0xFFFF2222u;
constexpr VideoMode kEightChannelModes[] = {
    {L"8X720P", 0x11111111u},         {L"8X1080P", 0x22222222u},        {L"8X960H", 0},
    {L"4X1080P+4X720P", 0x11112222u}, {L"4X1080P+4X960H", 0x2222u},     {L"4X720P+4X960H", 0x1111u},
    {L"2X1080P+6X720P", 0x11111122u}, {L"2X1080P+6X960H", 0x22u},       {L"4X1080P", kFourChannels1080P},
};
constexpr VideoMode kFourChannelModes[] = {
    {L"4X1080P", 0x2222u}, {L"4X720P", 0x1111u},        {L"4X960H", 0},
    {L"2X1080P+2X720P", 0x1122u}, {L"2X1080P+2X960H", 0x22u}, {L"2X720P+2X960H", 0x11u},
};

constexpr int kResolution1080P = 6;
constexpr int kResolution720P = 5;
constexpr int kResolutionD1 = 2;
constexpr int kResolutionCif = 4;

// Bit rates in kbit/s by resolution code, and the entry each row selects by default.
constexpr int kBitRates[8][9] = {
    {512, 768, 1024, 1536, 2048, 3072, 4096, 5120, 6144},        {512, 768, 1024, 1536, 2048, 3072, 4096, 5120, 6144},
    {512, 768, 1024, 1536, 2048, 3072, 4096, 5120, 6144},        {512, 768, 1024, 1536, 2048, 3072, 4096, 5120, 6144},
    {384, 512, 768, 1024, 1536, 2048, 3072, 4096, 5120},         {1024, 1536, 2048, 3072, 4096, 5120, 6144, 8192, 10240},
    {2048, 3072, 4096, 5120, 6144, 8192, 10240, 12288, 16384},   {1024, 2048, 3072, 4096, 5120, 6144, 8192, 10240, 12288},
};
constexpr int kDefaultBitRateIndex[8] = {2, 1, 3, 2, 2, 2, 2, 2};

// The bit-rate row of a resolution code; codes without a row of their own use the 720P row.
int BitRateRow(long long resolution) {
    return resolution == 2 || resolution == 4 || resolution == 6 || resolution == 7 ? static_cast<int>(resolution) : 5;
}

// The row the lists start from, before anything is read: that of the class's best resolution.
int StartBitRateRow(int resolutionClass) {
    switch (resolutionClass) {
        case 1: return 2;
        case 2: return 5;
        case 4: return 6;
        default: return 4;
    }
}

}  // namespace

CDlgTabEncoderCfgMain::CDlgTabEncoderCfgMain() : CDlgCfgBase(IDD_ENC_MAIN) {}

int CDlgTabEncoderCfgMain::ChannelCount() const {
    return std::clamp(Device().capabilities.videoChannels, 0, kMaxChannels);
}

BOOL CDlgTabEncoderCfgMain::OnInitDialog() {
    SetCaptions(Hwnd(), {{IDC_MAIN_SYSTEM_LABEL, 18001},
                         {IDC_MAIN_FORMAT_LABEL, 18002},
                         {IDC_MAIN_MODE_LABEL, 18003},
                         {IDC_MAIN_CAMERA_TYPES, 24176},
                         {IDC_MAIN_CHANNEL_HEADER, 18004},
                         {IDC_MAIN_RESOLUTION_HEADER, 18013},
                         {IDC_MAIN_FRAME_RATE_HEADER, 18006},
                         {IDC_MAIN_BIT_RATE_HEADER, 18015},
                         {IDC_MAIN_AUDIO_HEADER, 18005},
                         {IDC_MAIN_VIDEO_HEADER, 18007}});
    const std::wstring channel = CLanguage::Instance().Text(14001);
    for (int n = 0; n < kMaxChannels; ++n) SetItemText(Hwnd(), IDC_MAIN_CHANNEL_FIRST + n, channel + std::to_wstring(n + 1));
    ComboAdd(Hwnd(), IDC_MAIN_SYSTEM, L"PAL", 0);
    ComboAdd(Hwnd(), IDC_MAIN_SYSTEM, L"NTSC", 1);
    ComboAdd(Hwnd(), IDC_MAIN_FORMAT, L"H264", 0);
    ComboAdd(Hwnd(), IDC_MAIN_FORMAT, L"H265", 1);
    FillModelLists();
    return TRUE;
}

void CDlgTabEncoderCfgMain::FillModelLists() {
    const std::string model = Device().version.model;
    if (model == listsModel_ && ChannelCount() == listsChannels_) return;
    listsModel_ = model;
    listsChannels_ = ChannelCount();
    HWND page = Hwnd();

    ComboSelect(page, IDC_MAIN_SYSTEM, 0);
    ComboClear(page, IDC_MAIN_MODE);
    const auto fillModes = [page](const auto& modes) {
        for (const VideoMode& mode : modes) ComboAdd(page, IDC_MAIN_MODE, mode.text, static_cast<LPARAM>(mode.mask));
        ComboSelect(page, IDC_MAIN_MODE, 0);
    };
    const bool eightChannelModes = IsModelInGroup(FeatureGroup::EightChannelMixedMode);
    const bool fourChannelModes = !eightChannelModes && IsModelInGroup(FeatureGroup::FourChannelMixedMode);
    if (eightChannelModes) fillModes(kEightChannelModes);
    if (fourChannelModes) fillModes(kFourChannelModes);
    modeFixed_ = !eightChannelModes && !fourChannelModes && IsModelInGroup(FeatureGroup::FixedMode);
    const bool modeList = eightChannelModes || fourChannelModes;
    ShowItem(page, IDC_MAIN_MODE, modeList);
    EnableItem(page, IDC_MAIN_MODE, modeList);
    ShowItem(page, IDC_MAIN_MODE_LABEL, modeList || modeFixed_);
    EnableItem(page, IDC_MAIN_MODE_LABEL, modeList || modeFixed_);
    ShowItem(page, IDC_MAIN_CAMERA_TYPES, modeFixed_);

    ComboSelect(page, IDC_MAIN_FORMAT, 0);
    const bool h265 = IsModelInGroup(FeatureGroup::H265);
    EnableItem(page, IDC_MAIN_FORMAT, h265);
    EnableItem(page, IDC_MAIN_FORMAT_LABEL, h265);

    const int resolutionClass = Device().capabilities.resolutionClass;
    for (int n = 0; n < kMaxChannels; ++n) {
        const int list = IDC_MAIN_RESOLUTION_FIRST + n;
        ComboClear(page, list);
        if (resolutionClass >= 4) ComboAdd(page, list, L"1080P", kResolution1080P);
        if (resolutionClass >= 2) ComboAdd(page, list, L"720P", kResolution720P);
        ComboAdd(page, list, L"D1", kResolutionD1);
        if (resolutionClass < 3) ComboAdd(page, list, L"CIF", kResolutionCif);
        FillBitRates(n, StartBitRateRow(resolutionClass));
        const bool present = n < listsChannels_;
        for (int first : {IDC_MAIN_CHANNEL_FIRST, IDC_MAIN_RESOLUTION_FIRST, IDC_MAIN_FRAME_RATE_FIRST,
                          IDC_MAIN_BIT_RATE_FIRST, IDC_MAIN_AUDIO_FIRST, IDC_MAIN_VIDEO_FIRST}) {
            ShowItem(page, first + n, present);
        }
    }
    FillAllFrameRates(false);
}

void CDlgTabEncoderCfgMain::FillBitRates(int n, int resolution) {
    const int row = BitRateRow(resolution);
    const int list = IDC_MAIN_BIT_RATE_FIRST + n;
    ComboClear(Hwnd(), list);
    for (int bitRate : kBitRates[row]) ComboAdd(Hwnd(), list, std::to_wstring(bitRate), bitRate);
    ComboSelect(Hwnd(), list, kDefaultBitRateIndex[row]);
}

void CDlgTabEncoderCfgMain::FillFrameRates(int n, bool capped) {
    int maximum = ComboSelection(Hwnd(), IDC_MAIN_SYSTEM) == 1 ? 30 : 25;
    const bool at1080P = ComboSelectedData(Hwnd(), IDC_MAIN_RESOLUTION_FIRST + n, -1) == kResolution1080P;
    const bool fourChannels1080P =
        static_cast<uint32_t>(ComboSelectedData(Hwnd(), IDC_MAIN_MODE, -1)) == kFourChannels1080P;
    if (capped && at1080P && !fourChannels1080P) {
        if (IsModelInGroup(FeatureGroup::FrameLimited1080P)) maximum = 15;
        if (n == 0 && IsModelInGroup(FeatureGroup::HighFrameRate)) maximum = 60;
    }
    const int list = IDC_MAIN_FRAME_RATE_FIRST + n;
    ComboClear(Hwnd(), list);
    for (int rate = 1; rate <= maximum; ++rate) ComboAdd(Hwnd(), list, std::to_wstring(rate), rate);
    ComboSelectByData(Hwnd(), list, storedFrameRates_[n]);
}

void CDlgTabEncoderCfgMain::FillAllFrameRates(bool capped) {
    for (int n = 0; n < kMaxChannels; ++n) FillFrameRates(n, capped);
}

void CDlgTabEncoderCfgMain::OnCommand(int id, int code) {
    if (id == IDC_MAIN_CAMERA_TYPES && code == BN_CLICKED) {
        OnCameraTypes();
    } else if (code != CBN_SELCHANGE) {
        CDlgCfgBase::OnCommand(id, code);
    } else if (id == IDC_MAIN_SYSTEM) {
        FillAllFrameRates(true);
    } else if (id >= IDC_MAIN_RESOLUTION_FIRST && id < IDC_MAIN_RESOLUTION_FIRST + kMaxChannels) {
        OnResolutionChanged(id - IDC_MAIN_RESOLUTION_FIRST);
    } else if (id >= IDC_MAIN_FRAME_RATE_FIRST && id < IDC_MAIN_FRAME_RATE_FIRST + kMaxChannels) {
        const int n = id - IDC_MAIN_FRAME_RATE_FIRST;
        storedFrameRates_[n] = static_cast<int>(ComboSelectedData(Hwnd(), id, 0));
    } else if (id == IDC_MAIN_MODE) {
        for (int n = 0; n < ChannelCount(); ++n) ShowChannel(n, decoded_[n]);
    }
}

void CDlgTabEncoderCfgMain::OnResolutionChanged(int n) {
    const int partner = n % 2 == 0 ? n + 1 : n - 1;
    const bool paired = IsModelInGroup(FeatureGroup::PairedResolution);
    if (paired) ComboSelect(Hwnd(), IDC_MAIN_RESOLUTION_FIRST + partner, ComboSelection(Hwnd(), IDC_MAIN_RESOLUTION_FIRST + n));
    const int resolution = static_cast<int>(ComboSelectedData(Hwnd(), IDC_MAIN_RESOLUTION_FIRST + n, -1));
    FillBitRates(n, resolution);
    if (paired) FillBitRates(partner, resolution);
    FillFrameRates(n, true);
}

void CDlgTabEncoderCfgMain::ShowChannel(int n, const MainStreamChannel& channel) {
    FillBitRates(n, channel.resolution);
    storedFrameRates_[n] = channel.frameRate;
    ShowSection(kChannel, channel, n);
}

std::vector<SectionInfo> CDlgTabEncoderCfgMain::DeclaredSections() const {
    return {Info(kMainStream), Info(kChannel)};
}

int CDlgTabEncoderCfgMain::Refresh() {
    FillModelLists();
    int result = 0;
    for (int start = 0; start < ChannelCount(); start += 2) result = LoadPair(start);
    Redraw();
    return result;
}

int CDlgTabEncoderCfgMain::LoadPair(int startChannel) {
    QueryReply reply;
    const int result = Query(ToAnsi(FillTemplate(kPairQuery, {startChannel})), reply);
    if (result != 1) return result;
    MainStreamRecord record{};
    MainStreamChannel pair[2]{};
    if (!DecodeSection(kMainStream, *reply.Section(), record)) return 0;
    if (const TiXmlElement* container = FindContainer(*reply.Section(), "stVideoPara", "Import_stMainStream")) {
        DecodeChannels(*container, kChannel.fields, reinterpret_cast<unsigned char*>(pair), sizeof(MainStreamChannel), 2);
    }
    record.videoMode = record.videoMode != 0 ? 1 : 0;
    record.vEncFormat = record.vEncFormat != 0 ? 1 : 0;
    keptVideoFmt_ = record.videoFmt;
    ShowSection(kMainStream, record);
    const int end = std::min(startChannel + 2, ChannelCount());
    for (int n = startChannel; n < end; ++n) {
        decoded_[n] = pair[n - startChannel];
        ShowChannel(n, decoded_[n]);
    }
    FillAllFrameRates(true);
    return 1;
}

int CDlgTabEncoderCfgMain::Save() {
    if (!TakeSection(kMainStream)) return -1;
    for (int n = 0; n < ChannelCount(); ++n) {
        if (!TakeSection(kChannel, n)) return -1;
    }
    int result = 1;
    for (int start = 0; start < ChannelCount(); start += 2) result = SavePair(start);
    Redraw();
    return result;
}

int CDlgTabEncoderCfgMain::SavePair(int startChannel) {
    const long long videoFmt = modeFixed_ ? keptVideoFmt_ : Number(IDC_MAIN_MODE);
    std::wstring setting = FillTemplate(
        kPairSettingStart, {Number(IDC_MAIN_SYSTEM), videoFmt, Number(IDC_MAIN_FORMAT), startChannel});
    const int end = std::min(startChannel + 2, ChannelCount());
    for (int n = startChannel; n < end; ++n) {
        setting += FillTemplate(kPairSettingChannel,
                                {n, Number(IDC_MAIN_RESOLUTION_FIRST + n), Number(IDC_MAIN_FRAME_RATE_FIRST + n),
                                 Number(IDC_MAIN_BIT_RATE_FIRST + n), 1 - Number(IDC_MAIN_AUDIO_FIRST + n),
                                 1 - Number(IDC_MAIN_VIDEO_FIRST + n)});
    }
    setting += kPairSettingEnd;
    return SendSetting(setting) == 1 ? 1 : 0;
}

void CDlgTabEncoderCfgMain::OnCameraTypes() {
    CChnCamTypeCfg cameraTypes(ChannelCount(), keptVideoFmt_, IsModelInGroup(FeatureGroup::FirstFourLocked));
    if (cameraTypes.RunModal(Hwnd()) != IDOK) return;
    if (SendSetting(FillTemplate(kVideoFmtSetting, {cameraTypes.Mask()})) != 1) return;
    keptVideoFmt_ = cameraTypes.Mask();
    FillAllFrameRates(true);
}
