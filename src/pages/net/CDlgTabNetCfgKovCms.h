// CDlgTabNetCfgKovCms: the device ID and the video platform server it registers with (stBaseInfo, stCMS).
#pragma once

#include "res/resource.h"
#include "pages/base/CDlgCfgBase.h"

class CDlgTabNetCfgKovCms : public CDlgCfgBase {
public:
    CDlgTabNetCfgKovCms() : CDlgCfgBase(IDD_NET_CMS) {}
};
