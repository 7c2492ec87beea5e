// CDlgTabNetCfgKovCms: the device ID and the video platform server it registers with (stBaseInfo, stCMS).
#pragma once

#include "res/resource.h"
#include "shell/CfgBase.h"

class CDlgTabNetCfgKovCms : public CDlgCfgBase {
public:
    CDlgTabNetCfgKovCms() : CDlgCfgBase(IDD_NET_CMS) {}
};
