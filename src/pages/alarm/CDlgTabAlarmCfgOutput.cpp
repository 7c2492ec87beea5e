#include "pages/alarm/CDlgTabAlarmCfgOutput.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "channel/DeviceVersion.h"
#include "pages/alarm/AlarmShared.h"
#include "protocol/AlarmSections.h"
#include "res/resource.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

constexpr int kRows = 2;
// Functions above this one can be chosen and written, but a stored one is not shown back.
constexpr uint8_t kLastShownFunction = 5;

// One row; row r uses the controls whose ids follow these by r.
constexpr Binding<AlarmIoEntry> kOutputRowBindings[] = {
    VARCFG_BIND(AlarmIoEntry, level, "ucIOLevel", Integer).InComboIndex(IDC_OUTPUT_LEVEL_FIRST, Unlisted::Clear),
    VARCFG_BIND(AlarmIoEntry, function, "ucIOFunc", Integer).InComboIndex(IDC_OUTPUT_FUNCTION_FIRST, Unlisted::Keep),
};
constexpr Section<AlarmIoEntry> kOutputRow{"stAlarmLinkage", kOutputRowBindings};

constexpr wchar_t kOutputSettingStart[] =
    L"<VariCfgSec Action=\"DEVICE_SET\"><stAlarmLinkage StartChn=\"%d\"><stAlarmLinkageItem>";
constexpr wchar_t kOutputSettingItem[] =
    L"<AlarmLinkageItem_%d><stAlarmOutIO ucIOEnable=\"1\" ucIOLevel=\"%d\" ucIOFunc=\"%d\"></stAlarmOutIO>"
    L"</AlarmLinkageItem_%d>";
constexpr wchar_t kOutputSettingEnd[] = L"</stAlarmLinkageItem></stAlarmLinkage></VariCfgSec>";

// The rows that stand for outputs the model has: never more than the screen's two.
int RowsShown() { return std::clamp(Device().capabilities.alarmOutputs, 0, kRows); }

}  // namespace

CDlgTabAlarmCfgOutput::CDlgTabAlarmCfgOutput() : CDlgCfgBase(IDD_ALARM_OUTPUT) {}

BOOL CDlgTabAlarmCfgOutput::OnInitDialog() {
    SetCaptions(Hwnd(), {{IDC_OUTPUT_NUMBER_HEADER, 24003}, {IDC_OUTPUT_LEVEL_HEADER, 13013}, {IDC_OUTPUT_FUNCTION_HEADER, 13011}});
    for (int r = 0; r < kRows; ++r) {
        AddNumberedEntries(Hwnd(), IDC_OUTPUT_NUMBER_FIRST + r, 24003, kRows);
        AddFixedEntries(Hwnd(), IDC_OUTPUT_LEVEL_FIRST + r, {L"L", L"H"});
        ComboSelect(Hwnd(), IDC_OUTPUT_LEVEL_FIRST + r, 0);
        AddTextEntries(Hwnd(), IDC_OUTPUT_FUNCTION_FIRST + r, {15001, 24040, 24041, 24042, 24025, 24043, 17025});
        ComboSelect(Hwnd(), IDC_OUTPUT_FUNCTION_FIRST + r, 0);
    }
    return TRUE;
}

std::vector<SectionInfo> CDlgTabAlarmCfgOutput::DeclaredSections() const { return {Info(kOutputRow)}; }

int CDlgTabAlarmCfgOutput::Refresh() {
    for (int r = 0; r < kRows; ++r) {
        ComboSelect(Hwnd(), IDC_OUTPUT_NUMBER_FIRST + r, r);
        for (int first : {IDC_OUTPUT_NUMBER_FIRST, IDC_OUTPUT_FUNCTION_FIRST, IDC_OUTPUT_LEVEL_FIRST}) {
            ShowItem(Hwnd(), first + r, r < RowsShown());
        }
    }
    QueryReply reply;
    int result = Query(StartChnQuery("stAlarmLinkage", 0), reply);
    if (result == 1) {
        AlarmLinkageRecord record{};
        result = DecodeAlarmLinkage(*reply.Section(), record) ? 1 : 0;
        for (int r = 0; result == 1 && r < RowsShown(); ++r) {
            AlarmIoEntry output = record.items[r].output;
            output.level = output.level != 0 ? 1 : 0;
            if (output.function > kLastShownFunction) output.function = UINT8_MAX;  // not offered: the list keeps its choice
            ShowSection(kOutputRow, output, r);
        }
    }
    Redraw();
    return result;
}

int CDlgTabAlarmCfgOutput::Save() {
    std::wstring setting = FillTemplate(kOutputSettingStart, {0});
    for (int r = 0; r < RowsShown(); ++r) {
        if (!TakeSection(kOutputRow, r)) return -1;
        setting += FillTemplate(kOutputSettingItem,
                                {r, Number(IDC_OUTPUT_LEVEL_FIRST + r), Number(IDC_OUTPUT_FUNCTION_FIRST + r), r});
    }
    setting += kOutputSettingEnd;
    const int result = SendSetting(setting);
    Redraw();
    return result == 1 ? 1 : 0;
}
