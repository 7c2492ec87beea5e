// CDlgStopOverTime: the whole stSpeedAlarm section: the low-speed, over-speed, parking-overtime and
// fatigue-driving alarms. Speeds, thresholds, durations and the overtime are sent as typed; only the
// two fatigue times are numbers.
#pragma once

#include "pages/base/CDlgCfgBase.h"

class CDlgStopOverTime : public CDlgCfgBase {
public:
    CDlgStopOverTime();

    // 1 when read, 0 when the transport failed or the section did not decode (controls unchanged), -1
    // when the reply was refused.
    int Refresh() override;
    // Always sends, even after a refused fatigue time (the user has been told; the typed time is sent).
    // 1 when accepted, 0 otherwise.
    int Save() override;
    std::vector<SectionInfo> DeclaredSections() const override;

protected:
    BOOL OnInitDialog() override;
};
