#include "pages/encoder/CDlgEncoderSet.h"

#include "pages/encoder/CDlgTabEncoderCfgMain.h"
#include "pages/encoder/CDlgTabEncoderCfgMirror.h"
#include "pages/encoder/CDlgTabEncoderCfgOsd.h"
#include "pages/encoder/CDlgTabEncoderCfgSub.h"
#include "res/resource.h"

CDlgEncoderSet::CDlgEncoderSet() : CDlgTabHost(IDD_ENCODER_SET, IDC_ENCODER_TABS) {
    AddTab(std::make_unique<CDlgTabEncoderCfgMain>(), 18008);
    AddTab(std::make_unique<CDlgTabEncoderCfgSub>(), 18017);
    AddTab(std::make_unique<CDlgTabEncoderCfgMirror>(), 23002);
    AddTab(std::make_unique<CDlgTabEncoderCfgOsd>(), 18000);
}
