// CDlgTabNetCfgKovCms: the centre server that receives the recorder's video: the device ID (read from
// stBaseInfo) and the server's address and control port (read from stCMS), written together as the
// platform's NETWORK_SET message after the operator confirms them.
#pragma once

#include "pages/base/CDlgCfgBase.h"

class CDlgTabNetCfgKovCms : public CDlgCfgBase {
public:
    CDlgTabNetCfgKovCms();

    // The device ID, then the server: 1 when both were read; otherwise the first failure, 0 transport or
    // decoding (a device ID of fewer than 5 or more than 12 characters does not decode), -1 a refused
    // reply.
    int Refresh() override;
    // 1 only when the operator confirmed, something changed, and the platform accepted it; otherwise 0
    // with the edits kept on screen.
    int Save() override;
    std::vector<SectionInfo> DeclaredSections() const override;

protected:
    BOOL OnInitDialog() override;
};
