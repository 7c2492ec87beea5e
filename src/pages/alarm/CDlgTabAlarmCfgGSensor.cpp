#include "pages/alarm/CDlgTabAlarmCfgGSensor.h"

#include <algorithm>
#include <cwchar>
#include <iterator>

#include "protocol/AlarmRecords.h"
#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"
#include "ui/win/DataExchange.h"
#include "ui/win/MsgTip.h"

using namespace varcfg;

namespace {

// Thresholds in g, the rollover angle in degrees. The calibration values are decoded here and shown
// by the page: they take any number, signed ones included.
constexpr Binding<GSensorRecord> kGSensorBindings[] = {
    VARCFG_BIND(GSensorRecord, alarmEnable, "ucFD_AlarmEnable", Integer).InCheck(IDC_GSENSOR_ENABLE),
    VARCFG_BIND(GSensorRecord, rapidAcceleration, "fFD_RAccel", Float).InDecimal(IDC_GSENSOR_ACCELERATION, 0.0, 2.0),
    VARCFG_BIND(GSensorRecord, hardBraking, "fFD_RDecel", Float).InDecimal(IDC_GSENSOR_BRAKING, 0.0, 2.0),
    VARCFG_BIND(GSensorRecord, crash, "fFD_Crash", Float).InDecimal(IDC_GSENSOR_CRASH, 0.0, 2.0),
    VARCFG_BIND(GSensorRecord, swerve, "fFD_Swerve", Float).InDecimal(IDC_GSENSOR_TURN, 0.0, 2.0),
    VARCFG_BIND(GSensorRecord, rollover, "fFD_TrunOver", Float).InDecimal(IDC_GSENSOR_ROLLOVER, 0.0, 60.0),
    VARCFG_BIND(GSensorRecord, x, "fFD_X", Float),
    VARCFG_BIND(GSensorRecord, xLimit, "fFD_XLimit", Float),
    VARCFG_BIND(GSensorRecord, y, "fFD_Y", Float),
    VARCFG_BIND(GSensorRecord, yLimit, "fFD_YLimit", Float),
    VARCFG_BIND(GSensorRecord, z, "fFD_Z", Float),
    VARCFG_BIND(GSensorRecord, zLimit, "fFD_ZLimit", Float),
};
constexpr Section<GSensorRecord> kGSensor{"stGSensor", kGSensorBindings};

constexpr int kCalibrationControls[] = {IDC_GSENSOR_X, IDC_GSENSOR_X_LIMIT, IDC_GSENSOR_Y,
                                        IDC_GSENSOR_Y_LIMIT, IDC_GSENSOR_Z, IDC_GSENSOR_Z_LIMIT};

// Both requests end with "<VariCfgSec>" where the envelope's end tag would stand.
constexpr wchar_t kGSensorSetting[] =
    L"<VariCfgSec Action=\"DEVICE_SET\"><stGSensor ucFD_AlarmEnable=\"%d\" fFD_RAccel=\"%f\" fFD_RDecel=\"%f\" "
    L"fFD_Crash=\"%f\" fFD_Swerve=\"%f\" fFD_TrunOver=\"%f\" fFD_X=\"%f\" fFD_XLimit=\"%f\" fFD_Y=\"%f\" "
    L"fFD_YLimit=\"%f\" fFD_Z=\"%f\" fFD_ZLimit=\"%f\" /><VariCfgSec>";
constexpr wchar_t kRecalibrateSetting[] = L"<VariCfgSec Action=\"DEVICE_SET\"><stGSensor ReCalibrate=\"1\"/><VariCfgSec>";

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
    UpdateData(false);
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
    GSensorRecord record{};
    const int result = LoadSection(kGSensor, record);
    if (result == 1) {
        const float calibration[] = {record.x, record.xLimit, record.y, record.yLimit, record.z, record.zLimit};
        std::copy(std::begin(calibration), std::end(calibration), calibration_);
        UpdateData(false);
    }
    Redraw();
    return result;
}

void CDlgTabAlarmCfgGSensor::DoDataExchange(DataExchange& dx) {
    for (int i = 0; i < 6; ++i) dx.Real(kCalibrationControls[i], calibration_[i]);
}

int CDlgTabAlarmCfgGSensor::Save() {
    // A refused threshold stops the transfer there, but not the save: the setting goes out with the
    // values transferred so far and the others as last shown (this page's established behaviour).
    if (TakeSection(kGSensor)) UpdateData(true);
    // A threshold as last shown or taken; sent as the recorder's 32-bit value.
    const auto threshold = [this](int control) {
        return static_cast<double>(static_cast<float>(std::wcstod(Text(control).c_str(), nullptr)));
    };
    const int result = SendSetting(FillTemplate(
        kGSensorSetting,
        {Number(IDC_GSENSOR_ENABLE), threshold(IDC_GSENSOR_ACCELERATION), threshold(IDC_GSENSOR_BRAKING),
         threshold(IDC_GSENSOR_CRASH), threshold(IDC_GSENSOR_TURN), threshold(IDC_GSENSOR_ROLLOVER),
         calibration_[0], calibration_[1], calibration_[2], calibration_[3], calibration_[4], calibration_[5]}));
    Redraw();
    return result == 1 ? 1 : 0;
}

void CDlgTabAlarmCfgGSensor::Recalibrate() {
    // Only a refusal by the recorder counts as failed; a request that never went out reads as done.
    const uint32_t outcomeId = SendSetting(std::wstring(kRecalibrateSetting)) == -1 ? 21008 : 21007;
    CLanguage& language = CLanguage::Instance();
    ShowMsgTip(FillTemplate(L"%s GSensor,%s", {language.Text(24056), language.Text(outcomeId)}));
}
