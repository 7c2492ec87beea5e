// CDlgTabNetCfgWifi: the recorder's wireless LAN, as client or access point (stWifi, stWifiAp).
#pragma once

#include "res/resource.h"
#include "pages/base/CDlgCfgBase.h"

class CDlgTabNetCfgWifi : public CDlgCfgBase {
public:
    CDlgTabNetCfgWifi() : CDlgCfgBase(IDD_NET_WIFI) {}
};
