// CDlgTabAlarmCfgGSensor: the acceleration-sensor alarm, its thresholds and calibration (stGSensor),
// and the request to recalibrate the sensor. It writes on every save.
#pragma once

#include "pages/base/CDlgCfgBase.h"

class CDlgTabAlarmCfgGSensor : public CDlgCfgBase {
public:
    CDlgTabAlarmCfgGSensor();

    // 1 when read, 0 when the transport failed or the section did not decode, -1 when refused.
    int Refresh() override;
    // A refused value stops taking the fields after it; the values as they then stand are written.
    int Save() override;
    std::vector<SectionInfo> DeclaredSections() const override;

protected:
    BOOL OnInitDialog() override;
    void OnCommand(int id, int code) override;

private:
    void Recalibrate();
};
