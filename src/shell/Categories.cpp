#include "shell/Categories.h"

#include <iterator>

#include "pages/about/CDlgAboutSetup.h"
#include "pages/alarm/CDlgAlarmSet.h"
#include "pages/encoder/CDlgEncoderSet.h"
#include "pages/net/CDlgNetSet.h"
#include "pages/other/CDlgOtherSetup.h"
#include "pages/parking/CDlgStopOverTime.h"
#include "pages/security/CDlgUserSafeSetup.h"
#include "pages/serial/CDlgSerialSet.h"
#include "pages/userdata/CDlgUserData.h"
#include "res/resource.h"

namespace {

template <class Page>
std::unique_ptr<CDlgCfgBase> Create() {
    return std::make_unique<Page>();
}

// Captions come from the language file when it has them; otherwise the template's caption stays.
const Category kCategories[] = {
    {0, IDC_MENU_ABOUT, 15100, &Create<CDlgAboutSetup>},
    {1, IDC_MENU_NETWORK, 15101, &Create<CDlgNetSet>},
    {2, IDC_MENU_ENCODER, 15102, &Create<CDlgEncoderSet>},
    {3, IDC_MENU_ALARM, 15103, &Create<CDlgAlarmSet>},
    {4, IDC_MENU_SERIAL, 15104, &Create<CDlgSerialSet>},
    {5, IDC_MENU_PARKING, 15105, &Create<CDlgStopOverTime>},
    {6, IDC_MENU_USER_SECURITY, 15106, &Create<CDlgUserSafeSetup>},
    {7, IDC_MENU_OTHER, 15107, &Create<CDlgOtherSetup>},
    {8, IDC_MENU_USER_DATA, 15108, &Create<CDlgUserData>},
};

}  // namespace

const Category* CategoriesBegin() { return std::begin(kCategories); }
const Category* CategoriesEnd() { return std::end(kCategories); }
