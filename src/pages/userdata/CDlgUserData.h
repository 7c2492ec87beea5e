// CDlgUserData: a maintenance console. The operator types any request text; saving sends it unchanged
// and shows the recorder's reply as raw text, neither checked nor parsed.
#pragma once

#include <string>

#include "pages/base/CDlgCfgBase.h"

class CDlgUserData : public CDlgCfgBase {
public:
    CDlgUserData();

    // 1 when the transport carried the request (the reply is shown whatever it says); 0 when it failed,
    // with the previous reply left on screen.
    int Save() override;

protected:
    BOOL OnInitDialog() override;
    void DoDataExchange(varcfg::DataExchange& dx) override;

private:
    std::wstring request_;
    std::wstring reply_;
};
