#include "pages/net/CDlgNetSet.h"

#include "pages/net/CDlgTabNetCfg808.h"
#include "pages/net/CDlgTabNetCfgGNet.h"
#include "pages/net/CDlgTabNetCfgKovCms.h"
#include "pages/net/CDlgTabNetCfgLocal.h"
#include "pages/net/CDlgTabNetCfgPtt.h"
#include "pages/net/CDlgTabNetCfgWifi.h"
#include "catalogue/NetworkCatalogue.h"
#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

// The links the recorder can use for its network, in the order of ucFD_NetType: wired, Wi-Fi, mobile.
constexpr uint32_t kNetTypeTextIds[] = {16000, 16009, 16016};

// The GPS interval is not edited here: it goes back as read.
constexpr Binding<NetWorkModeRecord> kNetWorkModeBindings[] = {
    BindAttribute(kNetWorkModeFields, "ucFD_NetType").InComboIndex(IDC_NET_TYPE, Unlisted::Clear),
    BindAttribute(kNetWorkModeFields, "usFD_GPSInterval"),
};
constexpr Section<NetWorkModeRecord> kNetWorkMode{kNetWorkModeSection, kNetWorkModeBindings, kNetTypeSetting};

}  // namespace

CDlgNetSet::CDlgNetSet() : CDlgTabHost(IDD_NET_SET, IDC_NET_TABS) {
    AddTab(std::make_unique<CDlgTabNetCfgLocal>(), 16000);
    AddTab(std::make_unique<CDlgTabNetCfgWifi>(), 16009);
    AddTab(std::make_unique<CDlgTabNetCfgGNet>(), 16016);
    AddTab(std::make_unique<CDlgTabNetCfgKovCms>(), 16004);
    AddTab(std::make_unique<CDlgTabNetCfgPtt>(), 0, L"PTT");
    AddTab(std::make_unique<CDlgTabNetCfg808>(), 0, L"808");
}

BOOL CDlgNetSet::OnInitDialog() {
    for (uint32_t id : kNetTypeTextIds) {
        ComboAdd(Hwnd(), IDC_NET_TYPE, CLanguage::Instance().Text(id), static_cast<LPARAM>(ComboCount(Hwnd(), IDC_NET_TYPE)));
    }
    SetCaptions(Hwnd(), {{IDC_NET_TYPE_LABEL, 16020}});
    return CDlgTabHost::OnInitDialog();
}

std::vector<SectionInfo> CDlgNetSet::DeclaredSections() const { return {Info(kNetWorkMode)}; }

int CDlgNetSet::Refresh() {
    const int modeResult = LoadSection(kNetWorkMode);
    CDlgCfgBase* page = SelectedPage();
    const int result = page != nullptr ? page->Refresh() : modeResult;
    Redraw();
    return result;
}

int CDlgNetSet::Save() {
    if (!TakeSection(kNetWorkMode)) return -1;
    if (SectionChanged(kNetWorkMode)) {
        if (SendSection(kNetWorkMode) != 1) {
            Redraw();
            return 0;
        }
        AcceptSection(kNetWorkMode);
    }
    CDlgCfgBase* page = SelectedPage();
    const int result = page != nullptr ? page->Save() : 0;
    Redraw();
    return result;
}
