// CDlgTabAlarmCfgBase: recording around an alarm: pre-record and record time, record type (stRecord).
// It writes on every save.
#pragma once

#include "pages/base/CDlgCfgBase.h"

class CDlgTabAlarmCfgBase : public CDlgCfgBase {
public:
    CDlgTabAlarmCfgBase();

    // 1 when read, 0 when the transport failed or the section did not decode, -1 when refused.
    int Refresh() override;
    // A time out of range is refused with the validation message, and the values as they then stand
    // are still written: 1 when accepted, 0 otherwise.
    int Save() override;
    std::vector<SectionInfo> DeclaredSections() const override;

protected:
    BOOL OnInitDialog() override;
};
