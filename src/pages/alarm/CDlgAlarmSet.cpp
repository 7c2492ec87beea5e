#include "pages/alarm/CDlgAlarmSet.h"

#include "pages/alarm/CDlgTabAlarmCfgBase.h"
#include "pages/alarm/CDlgTabAlarmCfgGSensor.h"
#include "pages/alarm/CDlgTabAlarmCfgInput.h"
#include "pages/alarm/CDlgTabAlarmCfgLinkage.h"
#include "pages/alarm/CDlgTabAlarmCfgOutput.h"
#include "pages/alarm/CDlgTabAlarmCfgVmd.h"
#include "res/resource.h"

CDlgAlarmSet::CDlgAlarmSet() : CDlgTabHost(IDD_ALARM_SET, IDC_ALARM_TABS) {
    AddTab(std::make_unique<CDlgTabAlarmCfgBase>(), 24005);
    AddTab(std::make_unique<CDlgTabAlarmCfgInput>(), 24002);
    AddTab(std::make_unique<CDlgTabAlarmCfgOutput>(), 24003);
    AddTab(std::make_unique<CDlgTabAlarmCfgLinkage>(), 24004);
    AddTab(std::make_unique<CDlgTabAlarmCfgGSensor>(), 24006);
    AddTab(std::make_unique<CDlgTabAlarmCfgVmd>(), 24066);
}
