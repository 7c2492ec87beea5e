#include "pages/alarm/CDlgTabAlarmCfgBase.h"

#include "catalogue/AlarmCatalogue.h"
#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

constexpr Binding<RecordingRecord> kRecordingBindings[] = {
    BindAttribute(kRecordingFields, "ucFD_AlarmRecordType").InComboIndex(IDC_ALARM_BASE_RECORD_TYPE, Unlisted::Clear),
    BindAttribute(kRecordingFields, "uiFD_PreRecordTime").InNumber(IDC_ALARM_BASE_PRE_RECORD, 0, 60),
    BindAttribute(kRecordingFields, "uiFD_AlarmRecordTime").InNumber(IDC_ALARM_BASE_RECORD_TIME, 5, 1800),
};
constexpr Section<RecordingRecord> kRecording{kRecordingSection, kRecordingBindings};

}  // namespace

CDlgTabAlarmCfgBase::CDlgTabAlarmCfgBase() : CDlgCfgBase(IDD_ALARM_BASE) {}

BOOL CDlgTabAlarmCfgBase::OnInitDialog() {
    SetCaptions(Hwnd(), {{IDC_ALARM_BASE_PRE_RECORD_LABEL, 24007},
                         {IDC_ALARM_BASE_RECORD_TIME_LABEL, 24008},
                         {IDC_ALARM_BASE_RECORD_TYPE_LABEL, 24009},
                         {IDC_ALARM_BASE_PRE_RECORD_UNIT, 14013},
                         {IDC_ALARM_BASE_RECORD_TIME_UNIT, 14013}});
    for (uint32_t textId : {24011u, 24010u}) {
        ComboAdd(Hwnd(), IDC_ALARM_BASE_RECORD_TYPE, CLanguage::Instance().Text(textId),
                 ComboCount(Hwnd(), IDC_ALARM_BASE_RECORD_TYPE));
    }
    ComboSelect(Hwnd(), IDC_ALARM_BASE_RECORD_TYPE, 0);
    return TRUE;
}

std::vector<SectionInfo> CDlgTabAlarmCfgBase::DeclaredSections() const { return {Info(kRecording)}; }

int CDlgTabAlarmCfgBase::Refresh() {
    RecordingRecord record{};
    // Any type other than 0 is the second type.
    const int result = LoadSection(kRecording, record, [](RecordingRecord& decoded) {
        decoded.alarmRecordType = decoded.alarmRecordType != 0 ? 1 : 0;
    });
    Redraw();
    return result;
}

int CDlgTabAlarmCfgBase::Save() {
    // A refused time stops the transfer there, but not the save: the setting goes out with the values as
    // they then stand (this page's established behaviour).
    TakeSection(kRecording);
    const int result = SendSection(kRecording);
    Redraw();
    return result == 1 ? 1 : 0;
}
