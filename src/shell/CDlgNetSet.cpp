#include "shell/CDlgNetSet.h"

#include <cstdio>

#include "pages/net/CDlgTabNetCfg808.h"
#include "pages/net/CDlgTabNetCfgGNet.h"
#include "pages/net/CDlgTabNetCfgKovCms.h"
#include "pages/net/CDlgTabNetCfgLocal.h"
#include "pages/net/CDlgTabNetCfgPtt.h"
#include "pages/net/CDlgTabNetCfgWifi.h"
#include "protocol/ConfigTask.h"
#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"
#include "ui/win/DataExchange.h"

using namespace varcfg;

namespace {

// The links the recorder can use for its network, in the order of ucFD_NetType: wired, Wi-Fi, mobile.
constexpr uint32_t kNetTypeTextIds[] = {16000, 16009, 16016};

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

void CDlgNetSet::DoDataExchange(DataExchange& dx) { dx.ComboIndex(IDC_NET_TYPE, netType_); }

int CDlgNetSet::QueryNetworkMode() {
    QueryReply reply;
    const int result = Query(QueryText("stNetWorkMode"), reply);
    if (result != 1) return result;
    NetWorkModeRecord mode{};
    CConfig_Task::Import_stNetWorkMode(*reply.Section(), mode);
    netType_ = loadedNetType_ = mode.netType;
    gpsInterval_ = loadedGpsInterval_ = mode.gpsInterval;
    ComboSelect(Hwnd(), IDC_NET_TYPE, netType_);
    return 1;
}

int CDlgNetSet::Refresh() {
    const int modeResult = QueryNetworkMode();
    CDlgCfgBase* page = SelectedPage();
    if (page == nullptr) {
        Redraw();
        return modeResult;
    }
    const int result = page->Refresh();
    Redraw();
    return result;
}

int CDlgNetSet::Save() {
    if (!UpdateData(true)) return -1;
    if (netType_ != loadedNetType_ || gpsInterval_ != loadedGpsInterval_) {
        char setting[160];
        std::snprintf(setting, sizeof setting,
                      "<VariCfgSec Action=\"DEVICE_SET\"><stNetWorkMode ucFD_NetType=\"%d\" usFD_GPSInterval=\"%d\" "
                      "/></VariCfgSec>",
                      netType_, gpsInterval_);
        if (SendSetting(std::string(setting)) != 1) {
            Redraw();
            return 0;
        }
        loadedNetType_ = netType_;
        loadedGpsInterval_ = gpsInterval_;
    }
    CDlgCfgBase* page = SelectedPage();
    const int result = page != nullptr ? page->Save() : 0;
    Redraw();
    return result;
}
