#include "pages/alarm/CDlgTabAlarmCfgLinkage.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "channel/DeviceVersion.h"
#include "pages/alarm/AlarmShared.h"
#include "pages/alarm/CALinkRecCfg.h"
#include "pages/alarm/CALinkSnapCfg.h"
#include "protocol/AlarmSections.h"
#include "res/resource.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

// The first items of the fixed events in the first and second half of a page beyond the inputs, and
// the list entry of the first fixed event.
constexpr int kFirstHalfEventItem = 27;
constexpr int kSecondHalfEventItem = 30;
constexpr int kFirstEventEntry = 25;
// Functions from this one on are not offered as event names: their inputs are asked again.
constexpr int kNamedFunctions = 25;

constexpr wchar_t kLinkageSettingStart[] =
    L"<VariCfgSec Action=\"DEVICE_SET\"><stAlarmLinkage StartChn=\"%d\"><stAlarmLinkageItem>";
// Two blanks before usViewChnNo, as the recorder's protocol writes it.
constexpr wchar_t kLinkageSettingItem[] =
    L"<AlarmLinkageItem_%d usAlarmRecordCh=\"%d\" usAlarmSendCh=\"%d\" usAlarmSnapCh=\"%d\"  usViewChnNo=\"%d\" "
    L"ucViewChnNo=\"%d\"></AlarmLinkageItem_%d>";
constexpr wchar_t kLinkageSettingEnd[] = L"</stAlarmLinkageItem></stAlarmLinkage></VariCfgSec>";

int AlarmInputs() { return Device().capabilities.alarmInputs; }
int VideoChannels() { return Device().capabilities.videoChannels; }

}  // namespace

CDlgTabAlarmCfgLinkage::CDlgTabAlarmCfgLinkage() : CDlgCfgBase(IDD_ALARM_LINKAGE) { std::fill(std::begin(functions_), std::end(functions_), -1); }

BOOL CDlgTabAlarmCfgLinkage::OnInitDialog() {
    SetCaptions(Hwnd(), {{IDC_LINKAGE_EVENT_HEADER, 24060},
                         {IDC_LINKAGE_SNAPSHOT_HEADER, 13027},
                         {IDC_LINKAGE_RECORD_HEADER, 13010},
                         {IDC_LINKAGE_VIEW_HEADER, 14035},
                         {IDC_LINKAGE_PREVIOUS, 22004},
                         {IDC_LINKAGE_NEXT, 22005}});
    for (int r = 0; r < kRows; ++r) {
        SetCaptions(Hwnd(), {{IDC_LINKAGE_RECORD_FIRST + r, 24063}, {IDC_LINKAGE_SNAPSHOT_FIRST + r, 24063}});
        const int event = IDC_LINKAGE_EVENT_FIRST + r;
        AddInputFunctions(Hwnd(), event, kNamedFunctions);
        AddTextEntries(Hwnd(), event, {24066});
        AddFixedEntries(Hwnd(), event, {L"Oxygen"});
        AddTextEntries(Hwnd(), event, {24062});
        AddFixedEntries(Hwnd(), event, {L"GSensor"});
        ComboSelect(Hwnd(), event, 0);
        const int view = IDC_LINKAGE_VIEW_FIRST + r;
        ComboAdd(Hwnd(), view, L"ALL", 0);
        for (int k = 1; k <= VideoChannels(); ++k) ComboAdd(Hwnd(), view, FillTemplate(L"CH%d", {k}), k);
        ComboSelect(Hwnd(), view, 0);
    }
    EnablePaging();
    return TRUE;
}

void CDlgTabAlarmCfgLinkage::OnCommand(int id, int code) {
    if (code != BN_CLICKED) return CDlgCfgBase::OnCommand(id, code);
    if (id == IDC_LINKAGE_PREVIOUS || id == IDC_LINKAGE_NEXT) {
        page_ = id == IDC_LINKAGE_NEXT ? page_ + 1 : (page_ > 0 ? page_ - 1 : 0);
        Refresh();
        EnablePaging();
    } else if (id >= IDC_LINKAGE_RECORD_FIRST && id < IDC_LINKAGE_RECORD_FIRST + kRows) {
        RowSets& row = rows_[id - IDC_LINKAGE_RECORD_FIRST];
        CALinkRecCfg picker(VideoChannels(), row.record, row.recordSend);
        if (picker.RunModal(Hwnd()) != IDOK) return;
        row.record = picker.FirstSet();
        row.recordSend = picker.SecondSet();
    } else if (id >= IDC_LINKAGE_SNAPSHOT_FIRST && id < IDC_LINKAGE_SNAPSHOT_FIRST + kRows) {
        RowSets& row = rows_[id - IDC_LINKAGE_SNAPSHOT_FIRST];
        CALinkSnapCfg picker(VideoChannels(), row.snapshot, row.snapshotSend);
        if (picker.RunModal(Hwnd()) != IDOK) return;
        row.snapshot = picker.FirstSet();
        row.snapshotSend = picker.SecondSet();
    } else {
        CDlgCfgBase::OnCommand(id, code);
    }
}

// One page beyond the inputs carries the fixed events.
void CDlgTabAlarmCfgLinkage::EnablePaging() {
    EnableItem(Hwnd(), IDC_LINKAGE_PREVIOUS, page_ > 0);
    EnableItem(Hwnd(), IDC_LINKAGE_NEXT, AlarmInputs() - static_cast<int>(page_) * kRows >= 1);
}

int CDlgTabAlarmCfgLinkage::FirstItem(int first) {
    if (AlarmInputs() - first >= 1) return first;
    return first % kRows == 0 ? kFirstHalfEventItem : kSecondHalfEventItem;
}

void CDlgTabAlarmCfgLinkage::ShowRows() {
    const int inputs = AlarmInputs();
    for (int r = 0; r < kRows; ++r) {
        const int source = static_cast<int>(page_) * kRows + r;
        if (source < inputs) {
            if (functions_[source] < 0) LookUpFunctions();
            ComboSelect(Hwnd(), IDC_LINKAGE_EVENT_FIRST + r, functions_[source]);
        } else {
            ComboSelect(Hwnd(), IDC_LINKAGE_EVENT_FIRST + r, kFirstEventEntry + r);
        }
        // On the first page the fixed events give way to the inputs, when there are any.
        const bool shown = !(page_ == 0 && source >= inputs && inputs >= 1);
        for (int first : {IDC_LINKAGE_EVENT_FIRST, IDC_LINKAGE_VIEW_FIRST, IDC_LINKAGE_RECORD_FIRST, IDC_LINKAGE_SNAPSHOT_FIRST}) {
            ShowItem(Hwnd(), first + r, shown);
        }
    }
}

void CDlgTabAlarmCfgLinkage::LookUpFunctions() {
    const int first = static_cast<int>(page_) * kRows;
    QueryReply reply;
    if (Query(StartChnQuery("stAlarmIn", first), reply) != 1) return;
    AlarmInRecord record{};
    if (!DecodeAlarmIn(*reply.Section(), record)) return;
    for (int source = first; source < first + kRows && source < AlarmInputs() && source < kAlarmInEntries; ++source) {
        const int function = record.inputs[source].function;
        if (function < kNamedFunctions) functions_[source] = function;
    }
}

int CDlgTabAlarmCfgLinkage::QueryHalf(int first) {
    QueryReply reply;
    const int result = Query(StartChnQuery("stAlarmLinkage", FirstItem(first)), reply);
    if (result != 1) return result;
    AlarmLinkageRecord record{};
    if (!DecodeAlarmLinkage(*reply.Section(), record)) return 0;
    for (int i = 0; i < 2; ++i) {
        const int slot = (first + i) % kRows;
        // Beyond the inputs both halves read the first pair of fixed events.
        const int itemNumber = first + i < AlarmInputs() ? first + i : (i == 0 ? 27 : 28);
        const AlarmLinkageItem& item = record.items[itemNumber];
        rows_[slot] = {item.recordChannels, item.recordSendChannels, static_cast<uint16_t>(item.snapshotWord & 0xff),
                       static_cast<uint16_t>(item.snapshotWord >> 8)};
        if (item.viewChannel <= VideoChannels()) ComboSelect(Hwnd(), IDC_LINKAGE_VIEW_FIRST + slot, item.viewChannel);
    }
    return 1;
}

int CDlgTabAlarmCfgLinkage::Refresh() {
    ShowRows();
    EnablePaging();
    const int first = static_cast<int>(page_) * kRows;
    // The second half is read only when it lies wholly among the inputs.
    int result = QueryHalf(first);
    if (result == 1 && AlarmInputs() - first - 2 >= 1) result = QueryHalf(first + 2);
    Redraw();
    return result;
}

int CDlgTabAlarmCfgLinkage::SaveHalf(int first) {
    const int firstItem = FirstItem(first);
    std::wstring setting = FillTemplate(kLinkageSettingStart, {firstItem});
    for (int i = 0; i < 2; ++i) {
        const int slot = (first + i) % kRows;
        const RowSets& row = rows_[slot];
        const long long view = ComboSelectedData(Hwnd(), IDC_LINKAGE_VIEW_FIRST + slot, -1);
        setting += FillTemplate(kLinkageSettingItem, {firstItem + i, row.record, row.recordSend,
                                                      row.snapshotSend * 256 | row.snapshot, view, view, firstItem + i});
    }
    return SendSetting(setting + kLinkageSettingEnd) == 1 ? 1 : 0;
}

int CDlgTabAlarmCfgLinkage::Save() {
    const int first = static_cast<int>(page_) * kRows;
    const int remaining = AlarmInputs() - first;
    const int firstHalf = SaveHalf(first);
    // The second half goes out even when the first failed, unless the page is a full page of inputs.
    if (firstHalf == 1 && remaining - 2 > 0) return SaveHalf(first + 2);
    if (remaining == kRows) return firstHalf;
    return SaveHalf(first + 2);
}
