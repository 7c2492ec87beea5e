#include "pages/encoder/CDlgTabEncoderCfgOsd.h"

#include "protocol/EncoderRecords.h"
#include "res/resource.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

constexpr Binding<OsdRecord> kOsdBindings[] = {
    VARCFG_BIND(OsdRecord, deviceNoEnable, "ucFD_DeviceNoEnable", Integer).InCheck(IDC_OSD_DEVICE_NUMBER),
    VARCFG_BIND(OsdRecord, chnNameEnable, "ucFD_ChnNameEnable", Integer).InCheck(IDC_OSD_CHANNEL_NAME),
    VARCFG_BIND(OsdRecord, timeEnable, "ucFD_TimeEnable", Integer).InCheck(IDC_OSD_TIME),
    VARCFG_BIND(OsdRecord, gpsEnable, "ucFD_GPSEnable", Integer).InCheck(IDC_OSD_GPS),
    VARCFG_BIND(OsdRecord, lPlateEnable, "ucFD_LPlateEnable", Integer).InCheck(IDC_OSD_PLATE),
    VARCFG_BIND(OsdRecord, speedEnable, "ucFD_SpeedEnable", Integer).InCheck(IDC_OSD_SPEED),
    VARCFG_BIND(OsdRecord, tempEnable, "ucFD_TempEnable", Integer).InCheck(IDC_OSD_TEMPERATURE),
    VARCFG_BIND(OsdRecord, ioEnable, "ucFD_IOEnable", Integer).InCheck(IDC_OSD_IO),
    VARCFG_BIND(OsdRecord, gSensorEnable, "ucFD_GSensorEnable", Integer).InCheck(IDC_OSD_GSENSOR),
};
constexpr Section<OsdRecord> kOsd{"stOSD", kOsdBindings};

constexpr wchar_t kOsdSetting[] =
    L"<VariCfgSec Action=\"DEVICE_SET\"><stOSD ucFD_DeviceNoEnable=\"%d\" ucFD_ChnNameEnable=\"%d\" "
    L"ucFD_TimeEnable=\"%d\" ucFD_GPSEnable=\"%d\" ucFD_LPlateEnable=\"%d\" ucFD_SpeedEnable=\"%d\" "
    L"ucFD_TempEnable=\"%d\" ucFD_IOEnable=\"%d\" ucFD_GSensorEnable=\"%d\" /></VariCfgSec>";

}  // namespace

CDlgTabEncoderCfgOsd::CDlgTabEncoderCfgOsd() : CDlgCfgBase(IDD_ENC_OSD) {}

BOOL CDlgTabEncoderCfgOsd::OnInitDialog() {
    SetCaptions(Hwnd(), {{IDC_OSD_GROUP, 18000},
                         {IDC_OSD_DEVICE_NUMBER_LABEL, 23013},
                         {IDC_OSD_CHANNEL_NAME_LABEL, 23017},
                         {IDC_OSD_TIME_LABEL, 23012},
                         {IDC_OSD_GPS_LABEL, 23014},
                         {IDC_OSD_PLATE_LABEL, 23016},
                         {IDC_OSD_SPEED_LABEL, 23015},
                         {IDC_OSD_TEMPERATURE_LABEL, 23018},
                         {IDC_OSD_IO_LABEL, 23020},
                         {IDC_OSD_GSENSOR_LABEL, 23019}});
    return TRUE;
}

std::vector<SectionInfo> CDlgTabEncoderCfgOsd::DeclaredSections() const { return {Info(kOsd)}; }

int CDlgTabEncoderCfgOsd::Refresh() {
    const int result = LoadSection(kOsd);
    Redraw();
    return result;
}

int CDlgTabEncoderCfgOsd::Save() {
    if (!TakeSection(kOsd)) return -1;
    const int result = SendSetting(FillTemplate(
        kOsdSetting, {Number(IDC_OSD_DEVICE_NUMBER), Number(IDC_OSD_CHANNEL_NAME), Number(IDC_OSD_TIME),
                      Number(IDC_OSD_GPS), Number(IDC_OSD_PLATE), Number(IDC_OSD_SPEED), Number(IDC_OSD_TEMPERATURE),
                      Number(IDC_OSD_IO), Number(IDC_OSD_GSENSOR)}));
    Redraw();
    return result == 1 ? 1 : 0;
}
