#include "pages/encoder/CDlgTabEncoderCfgOsd.h"

#include "catalogue/EncoderCatalogue.h"
#include "res/resource.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

constexpr Binding<OsdRecord> kOsdBindings[] = {
    BindAttribute(kOsdFields, "ucFD_DeviceNoEnable").InCheck(IDC_OSD_DEVICE_NUMBER),
    BindAttribute(kOsdFields, "ucFD_ChnNameEnable").InCheck(IDC_OSD_CHANNEL_NAME),
    BindAttribute(kOsdFields, "ucFD_TimeEnable").InCheck(IDC_OSD_TIME),
    BindAttribute(kOsdFields, "ucFD_GPSEnable").InCheck(IDC_OSD_GPS),
    BindAttribute(kOsdFields, "ucFD_LPlateEnable").InCheck(IDC_OSD_PLATE),
    BindAttribute(kOsdFields, "ucFD_SpeedEnable").InCheck(IDC_OSD_SPEED),
    BindAttribute(kOsdFields, "ucFD_TempEnable").InCheck(IDC_OSD_TEMPERATURE),
    BindAttribute(kOsdFields, "ucFD_IOEnable").InCheck(IDC_OSD_IO),
    BindAttribute(kOsdFields, "ucFD_GSensorEnable").InCheck(IDC_OSD_GSENSOR),
};
constexpr Section<OsdRecord> kOsd{kOsdSection, kOsdBindings};

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
    const int result = SendSection(kOsd);
    Redraw();
    return result == 1 ? 1 : 0;
}
