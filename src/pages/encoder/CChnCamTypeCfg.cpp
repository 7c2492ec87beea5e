#include "pages/encoder/CChnCamTypeCfg.h"

#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

constexpr int kChannels = 8;
constexpr int kLockedChannels = 4;
constexpr int kCameraType720P = 1;

}  // namespace

CChnCamTypeCfg::CChnCamTypeCfg(int channelCount, uint32_t mask, bool firstFourLocked)
    : CDlgCfgBase(IDD_CAMERA_TYPES), channelCount_(channelCount), mask_(mask), firstFourLocked_(firstFourLocked) {}

BOOL CChnCamTypeCfg::OnInitDialog() {
    HWND dialog = Hwnd();
    CLanguage& language = CLanguage::Instance();
    SetWindowTextW(dialog, language.Text(24176).c_str());
    SetCaptions(dialog, {{IDC_CAMERA_CHANNEL_HEADER, 18004}, {IDC_CAMERA_TYPE_HEADER, 24176}, {IDOK, 11002},
                         {IDCANCEL, 11003}});
    const std::wstring channel = language.Text(14001);
    for (int n = 0; n < kChannels; ++n) {
        const int list = IDC_CAMERA_TYPE_FIRST + n;
        const bool present = n < channelCount_;
        SetItemText(dialog, IDC_CAMERA_CHANNEL_FIRST + n, channel + std::to_wstring(n + 1));
        ShowItem(dialog, IDC_CAMERA_CHANNEL_FIRST + n, present);
        ShowItem(dialog, list, present);
        if (present) {
            ComboAdd(dialog, list, L"960H", 0);
            ComboAdd(dialog, list, L"720P", 1);
            ComboAdd(dialog, list, L"1080P", 2);
        }
        // A nibble that names no camera type (15: the channel is not in use) shows 720P.
        const uint32_t type = (mask_ >> (4 * n)) & 0xFu;
        ComboSelect(dialog, list, type <= 2 ? static_cast<int>(type) : kCameraType720P);
        if (firstFourLocked_ && n < kLockedChannels) EnableItem(dialog, list, false);
    }
    return TRUE;
}

void CChnCamTypeCfg::OnCommand(int id, int code) {
    if (id != IDOK) {
        CDlgCfgBase::OnCommand(id, code);
        return;
    }
    CLanguage& language = CLanguage::Instance();
    if (MessageBoxW(Hwnd(), language.Text(24177).c_str(), language.Text(24176).c_str(), MB_OKCANCEL | MB_ICONWARNING) !=
        IDOK) {
        return;
    }
    uint32_t mask = 0;
    for (int n = 0; n < kChannels; ++n) {
        const LPARAM type = ComboSelectedData(Hwnd(), IDC_CAMERA_TYPE_FIRST + n, -1);
        if (type >= 0) mask |= static_cast<uint32_t>(type) << (4 * n);
    }
    mask_ = mask;
    EndDialog(IDOK);
}
