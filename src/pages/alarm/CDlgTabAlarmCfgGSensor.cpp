#include "pages/alarm/CDlgTabAlarmCfgGSensor.h"

#include "catalogue/AlarmCatalogue.h"
#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"
#include "ui/win/MsgTip.h"

using namespace varcfg;

namespace {

// Thresholds in g, the rollover angle in degrees; the calibration values take any number, signed ones
// included.
constexpr Binding<GSensorRecord> kGSensorBindings[] = {
    BindAttribute(kGSensorFields, "ucFD_AlarmEnable").InCheck(IDC_GSENSOR_ENABLE),
    BindAttribute(kGSensorFields, "fFD_RAccel").InDecimal(IDC_GSENSOR_ACCELERATION, 0.0, 2.0),
    BindAttribute(kGSensorFields, "fFD_RDecel").InDecimal(IDC_GSENSOR_BRAKING, 0.0, 2.0),
    BindAttribute(kGSensorFields, "fFD_Crash").InDecimal(IDC_GSENSOR_CRASH, 0.0, 2.0),
    BindAttribute(kGSensorFields, "fFD_Swerve").InDecimal(IDC_GSENSOR_TURN, 0.0, 2.0),
    BindAttribute(kGSensorFields, "fFD_TrunOver").InDecimal(IDC_GSENSOR_ROLLOVER, 0.0, 60.0),
    BindAttribute(kGSensorFields, "fFD_X").InReal(IDC_GSENSOR_X),
    BindAttribute(kGSensorFields, "fFD_XLimit").InReal(IDC_GSENSOR_X_LIMIT),
    BindAttribute(kGSensorFields, "fFD_Y").InReal(IDC_GSENSOR_Y),
    BindAttribute(kGSensorFields, "fFD_YLimit").InReal(IDC_GSENSOR_Y_LIMIT),
    BindAttribute(kGSensorFields, "fFD_Z").InReal(IDC_GSENSOR_Z),
    BindAttribute(kGSensorFields, "fFD_ZLimit").InReal(IDC_GSENSOR_Z_LIMIT),
};
constexpr Section<GSensorRecord> kGSensor{kGSensorSection, kGSensorBindings};

}  // namespace

CDlgTabAlarmCfgGSensor::CDlgTabAlarmCfgGSensor() : CDlgCfgBase(IDD_ALARM_GSENSOR) {}

BOOL CDlgTabAlarmCfgGSensor::OnInitDialog() {
    SetCaptions(Hwnd(), {{IDC_GSENSOR_ENABLE_LABEL, 13001},
                         {IDC_GSENSOR_THRESHOLD_GROUP, 24050},
                         {IDC_GSENSOR_CRASH_LABEL, 24051},
                         {IDC_GSENSOR_ROLLOVER_LABEL, 24052},
                         {IDC_GSENSOR_ACCELERATION_LABEL, 24053},
                         {IDC_GSENSOR_BRAKING_LABEL, 24054},
                         {IDC_GSENSOR_TURN_LABEL, 24055},
                         {IDC_GSENSOR_RECALIBRATE, 24056}});
    return TRUE;
}

void CDlgTabAlarmCfgGSensor::OnCommand(int id, int code) {
    if (id == IDC_GSENSOR_RECALIBRATE && code == BN_CLICKED) {
        Recalibrate();
        return;
    }
    CDlgCfgBase::OnCommand(id, code);
}

std::vector<SectionInfo> CDlgTabAlarmCfgGSensor::DeclaredSections() const { return {Info(kGSensor)}; }

int CDlgTabAlarmCfgGSensor::Refresh() {
    const int result = LoadSection(kGSensor);
    Redraw();
    return result;
}

int CDlgTabAlarmCfgGSensor::Save() {
    // A refused value stops the transfer there, but not the save: the setting goes out with the values
    // transferred so far and the others as last shown (this page's established behaviour).
    TakeSection(kGSensor);
    const int result = SendSection(kGSensor);
    Redraw();
    return result == 1 ? 1 : 0;
}

void CDlgTabAlarmCfgGSensor::Recalibrate() {
    // Only a refusal by the recorder counts as failed; a request that never went out reads as done.
    const std::wstring recalibrate = kGSensorSection.settings[kGSensorRecalibrateSetting].head.text;
    const uint32_t outcomeId = SendSetting(recalibrate) == -1 ? 21008 : 21007;
    CLanguage& language = CLanguage::Instance();
    ShowMsgTip(FillTemplate(L"%s GSensor,%s", {language.Text(24056), language.Text(outcomeId)}));
}
