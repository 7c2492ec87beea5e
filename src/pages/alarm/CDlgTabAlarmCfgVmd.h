// CDlgTabAlarmCfgVmd: motion detection of one channel at a time: enable, sensitivity, three weekly
// periods and the detection area (stVda). It writes the shown channel on every save.
#pragma once

#include <cstdint>
#include <string>

#include "pages/base/CDlgCfgBase.h"

class CDlgTabAlarmCfgVmd : public CDlgCfgBase {
public:
    static constexpr int kPeriods = 3;

    CDlgTabAlarmCfgVmd();

    // Reads the channel chosen in the channel list: 1 when shown, 0 when the transport failed or a
    // channel was misnamed, -1 when refused.
    int Refresh() override;
    // 1 when written and accepted; 0 when refused, or when a period ends before it starts (then
    // nothing is sent).
    int Save() override;

    const std::string& AreaText() const { return area_; }

protected:
    BOOL OnInitDialog() override;
    void OnCommand(int id, int code) override;
    void DoDataExchange(varcfg::DataExchange& dx) override;

private:
    int Channel() const;

    int enable_ = 0;
    int days_[kPeriods][7] = {};  // first to seventh day
    int32_t startHour_[kPeriods] = {};
    int32_t startMinute_[kPeriods] = {};
    int32_t endHour_[kPeriods] = {};
    int32_t endMinute_[kPeriods] = {};
    std::string area_;  // the mask text, as the recorder writes it
};
