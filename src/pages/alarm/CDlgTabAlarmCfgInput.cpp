#include "pages/alarm/CDlgTabAlarmCfgInput.h"

#include <algorithm>
#include <string>

#include "channel/DeviceVersion.h"
#include "pages/alarm/AlarmShared.h"
#include "catalogue/AlarmCatalogue.h"
#include "protocol/AlarmSections.h"
#include "res/resource.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

constexpr int kRowsPerPage = 4;
constexpr int kInputFunctions = 26;

// One row of the page; row r uses the controls whose ids follow these by r.
constexpr Binding<AlarmIoEntry> kInputRowBindings[] = {
    BindAttribute(kAlarmIoFields, "ucIOEnable").InCheck(IDC_INPUT_ENABLE_FIRST),
    BindAttribute(kAlarmIoFields, "ucIOLevel").InComboIndex(IDC_INPUT_LEVEL_FIRST, Unlisted::Clear),
    BindAttribute(kAlarmIoFields, "ucIOFunc").InComboIndex(IDC_INPUT_FUNCTION_FIRST, Unlisted::Keep),
};
constexpr Section<AlarmIoEntry> kInputRow{kAlarmInSection, kInputRowBindings};

int AlarmInputs() { return Device().capabilities.alarmInputs; }

}  // namespace

CDlgTabAlarmCfgInput::CDlgTabAlarmCfgInput() : CDlgCfgBase(IDD_ALARM_INPUT) {}

BOOL CDlgTabAlarmCfgInput::OnInitDialog() {
    SetCaptions(Hwnd(), {{IDC_INPUT_NUMBER_HEADER, 24002},
                         {IDC_INPUT_ENABLE_HEADER, 13001},
                         {IDC_INPUT_LEVEL_HEADER, 13013},
                         {IDC_INPUT_FUNCTION_HEADER, 13011},
                         {IDC_INPUT_PREVIOUS, 22004},
                         {IDC_INPUT_NEXT, 22005}});
    for (int r = 0; r < kRowsPerPage; ++r) {
        AddNumberedEntries(Hwnd(), IDC_INPUT_NUMBER_FIRST + r, 24002, 9);
        AddFixedEntries(Hwnd(), IDC_INPUT_LEVEL_FIRST + r, {L"L", L"H"});
        ComboSelect(Hwnd(), IDC_INPUT_LEVEL_FIRST + r, 0);
        AddInputFunctions(Hwnd(), IDC_INPUT_FUNCTION_FIRST + r, kInputFunctions);
        ComboSelect(Hwnd(), IDC_INPUT_FUNCTION_FIRST + r, 0);
    }
    EnablePaging();
    return TRUE;
}

void CDlgTabAlarmCfgInput::OnCommand(int id, int code) {
    if (code == BN_CLICKED && (id == IDC_INPUT_PREVIOUS || id == IDC_INPUT_NEXT)) {
        page_ = id == IDC_INPUT_NEXT ? page_ + 1 : (page_ > 0 ? page_ - 1 : 0);
        Refresh();
        EnablePaging();
        return;
    }
    CDlgCfgBase::OnCommand(id, code);
}

std::vector<SectionInfo> CDlgTabAlarmCfgInput::DeclaredSections() const { return {Info(kInputRow)}; }

int CDlgTabAlarmCfgInput::RowsShown() const {
    return std::clamp(AlarmInputs() - static_cast<int>(page_) * kRowsPerPage, 0, kRowsPerPage);
}

void CDlgTabAlarmCfgInput::ShowRows() {
    for (int r = 0; r < kRowsPerPage; ++r) {
        ComboSelect(Hwnd(), IDC_INPUT_NUMBER_FIRST + r, static_cast<int>(page_) * kRowsPerPage + r);
        for (int first : {IDC_INPUT_ENABLE_FIRST, IDC_INPUT_FUNCTION_FIRST, IDC_INPUT_NUMBER_FIRST, IDC_INPUT_LEVEL_FIRST}) {
            ShowItem(Hwnd(), first + r, r < RowsShown());
        }
    }
}

// Previous while there is a page before this one, Next while inputs follow this page.
void CDlgTabAlarmCfgInput::EnablePaging() {
    EnableItem(Hwnd(), IDC_INPUT_PREVIOUS, page_ > 0);
    EnableItem(Hwnd(), IDC_INPUT_NEXT, AlarmInputs() - (static_cast<int>(page_) + 1) * kRowsPerPage >= 1);
}

int CDlgTabAlarmCfgInput::Refresh() {
    ShowRows();
    EnablePaging();
    QueryReply reply;
    int result = Query(StartChnQuery("stAlarmIn", static_cast<int>(page_) * kRowsPerPage), reply);
    if (result == 1) {
        AlarmInRecord record{};
        result = DecodeAlarmIn(*reply.Section(), record) ? 1 : 0;
        for (int r = 0; result == 1 && r < RowsShown(); ++r) {
            AlarmIoEntry entry = record.inputs[page_ * kRowsPerPage + r];
            entry.level = entry.level != 0 ? 1 : 0;
            ShowSection(kInputRow, entry, r);
        }
    }
    Redraw();
    return result;
}

int CDlgTabAlarmCfgInput::Save() {
    for (int r = 0; r < RowsShown(); ++r) {
        if (!TakeSection(kInputRow, r)) return -1;
    }
    const int result = SendSection(kInputRow, 0, static_cast<int>(page_) * kRowsPerPage, RowsShown());
    Redraw();
    return result == 1 ? 1 : 0;
}
