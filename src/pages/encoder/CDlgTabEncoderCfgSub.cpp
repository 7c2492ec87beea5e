#include "pages/encoder/CDlgTabEncoderCfgSub.h"

#include "channel/DeviceVersion.h"
#include "catalogue/EncoderCatalogue.h"
#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

constexpr int kCustomMode = 3;

// A value the recorder sends that no entry offers leaves the previous selection.
constexpr Binding<SubStreamRecord> kSubStreamBindings[] = {
    BindAttribute(kSubStreamFields, "ucFD_EncodeMode").InComboIndex(IDC_SUB_MODE, Unlisted::Clear),
    BindAttribute(kSubStreamFields, "ucFD_Resolution").InComboData(IDC_SUB_RESOLUTION, Unlisted::Keep),
    BindAttribute(kSubStreamFields, "ucFD_Quality").InComboIndex(IDC_SUB_QUALITY, Unlisted::Clear),
    BindAttribute(kSubStreamFields, "ucFD_FrameRate").InComboData(IDC_SUB_FRAME_RATE, Unlisted::Keep),
    BindAttribute(kSubStreamFields, "uiFD_BitRate").InComboData(IDC_SUB_BIT_RATE, Unlisted::Keep),
};
constexpr Section<SubStreamRecord> kSubStream{kSubStreamSection, kSubStreamBindings};

constexpr int kSmallFrameRates[] = {3, 5, 8, 10, 12, 15, 18, 20};
constexpr int kLargeFrameRates[] = {3, 5, 8, 10, 12, 15, 18, 20, 25, 30};
constexpr int kSmallBitRates[] = {60, 90, 130, 180, 200, 250, 300, 320, 380, 512};
constexpr int kLargeBitRates[] = {90, 130, 180, 200, 250, 300, 320, 380, 512, 768, 1024, 1536, 2048};

// The frame and bit rate each preset mode selects. 500 kbit/s is in neither list: that preset leaves
// the bit rate as it was.
struct Preset {
    int frameRate;
    int bitRate;
};
constexpr Preset kPresets[kCustomMode] = {{8, 500}, {10, 320}, {12, 200}};

template <std::size_t N>
void FillNumbers(HWND dialog, int id, const int (&numbers)[N]) {
    ComboClear(dialog, id);
    for (int number : numbers) ComboAdd(dialog, id, std::to_wstring(number), number);
}

}  // namespace

CDlgTabEncoderCfgSub::CDlgTabEncoderCfgSub() : CDlgCfgBase(IDD_ENC_SUB) {}

BOOL CDlgTabEncoderCfgSub::OnInitDialog() {
    SetCaptions(Hwnd(), {{IDC_SUB_GROUP, 18017},
                         {IDC_SUB_MODE_LABEL, 23006},
                         {IDC_SUB_RESOLUTION_LABEL, 18013},
                         {IDC_SUB_QUALITY_LABEL, 14007},
                         {IDC_SUB_FRAME_RATE_LABEL, 18006},
                         {IDC_SUB_BIT_RATE_LABEL, 18015}});
    CLanguage& language = CLanguage::Instance();
    for (int mode = 0; mode <= kCustomMode; ++mode) {
        ComboAdd(Hwnd(), IDC_SUB_MODE, language.Text(static_cast<uint32_t>(23008 + mode)), mode);
    }
    ComboAdd(Hwnd(), IDC_SUB_RESOLUTION, L"D1", 2);
    ComboAdd(Hwnd(), IDC_SUB_RESOLUTION, L"CIF", 4);
    for (int quality = 0; quality < 3; ++quality) {
        ComboAdd(Hwnd(), IDC_SUB_QUALITY, language.Text(static_cast<uint32_t>(18024 + quality)), quality);
    }
    FillModelLists();
    return TRUE;
}

void CDlgTabEncoderCfgSub::FillModelLists() {
    const std::string model = Device().version.model;
    if (listsFilled_ && model == listsModel_) return;
    listsFilled_ = true;
    listsModel_ = model;
    const bool extended = IsModelInGroup(FeatureGroup::ExtendedSubStream);
    if (extended) {
        FillNumbers(Hwnd(), IDC_SUB_FRAME_RATE, kLargeFrameRates);
        FillNumbers(Hwnd(), IDC_SUB_BIT_RATE, kLargeBitRates);
    } else {
        FillNumbers(Hwnd(), IDC_SUB_FRAME_RATE, kSmallFrameRates);
        FillNumbers(Hwnd(), IDC_SUB_BIT_RATE, kSmallBitRates);
    }
    EnableItem(Hwnd(), IDC_SUB_RESOLUTION, extended);
}

void CDlgTabEncoderCfgSub::EnableCustomLists(int mode) {
    for (int id : {IDC_SUB_QUALITY, IDC_SUB_FRAME_RATE, IDC_SUB_BIT_RATE}) EnableItem(Hwnd(), id, mode == kCustomMode);
}

void CDlgTabEncoderCfgSub::OnCommand(int id, int code) {
    if (id != IDC_SUB_MODE || code != CBN_SELCHANGE) {
        CDlgCfgBase::OnCommand(id, code);
        return;
    }
    const int mode = ComboSelection(Hwnd(), IDC_SUB_MODE);
    EnableCustomLists(mode);
    if (mode < 0 || mode >= kCustomMode) return;
    ComboSelectByData(Hwnd(), IDC_SUB_BIT_RATE, kPresets[mode].bitRate);
    ComboSelectByData(Hwnd(), IDC_SUB_FRAME_RATE, kPresets[mode].frameRate);
}

std::vector<SectionInfo> CDlgTabEncoderCfgSub::DeclaredSections() const { return {Info(kSubStream)}; }

int CDlgTabEncoderCfgSub::Refresh() {
    FillModelLists();
    SubStreamRecord record{};
    const int result = LoadSection(kSubStream, record);
    if (result == 1) EnableCustomLists(record.encodeMode);
    Redraw();
    return result;
}

int CDlgTabEncoderCfgSub::Save() {
    if (!TakeSection(kSubStream)) return -1;
    const int result = SendSection(kSubStream);
    Redraw();
    return result == 1 ? 1 : 0;
}
