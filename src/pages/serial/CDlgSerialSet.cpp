#include "pages/serial/CDlgSerialSet.h"

#include "pages/serial/CDlgTabSerialCfg.h"
#include "pages/serial/CDlgTabSerialCfgIcReader01.h"
#include "pages/serial/CDlgTabSerialCfgLedDis.h"
#include "pages/serial/CDlgTabSerialCfgPtz.h"
#include "res/resource.h"

CDlgSerialSet::CDlgSerialSet() : CDlgTabHost(IDD_SERIAL_SET, IDC_SERIAL_TABS) {
    AddTab(std::make_unique<CDlgTabSerialCfg>(), 21209);
    AddTab(std::make_unique<CDlgTabSerialCfgPtz>(), 24076);
    AddTab(std::make_unique<CDlgTabSerialCfgLedDis>(), 24140);
    AddTab(std::make_unique<CDlgTabSerialCfgIcReader01>(), 24087);
}
