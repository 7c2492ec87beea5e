// CDlgTabAlarmCfgLinkage: what each alarm source records, sends, snapshots and shows (stAlarmLinkage).
// Sources are the model's alarm inputs, labelled with their function (read from stAlarmIn), then four
// fixed events kept in items 27, 28, 30 and 31. A page holds four rows, read and written as two halves
// of two items each; it writes on every save.
#pragma once

#include <cstdint>

#include "pages/base/CDlgCfgBase.h"

class CDlgTabAlarmCfgLinkage : public CDlgCfgBase {
public:
    static constexpr int kRows = 4;

    CDlgTabAlarmCfgLinkage();

    // The result of the last half read: 1, 0 when the transport failed or an item was misnamed, -1
    // when refused.
    int Refresh() override;
    // 1 when the page's halves were written and accepted, 0 otherwise.
    int Save() override;

    // A row's channel sets: bit k is video channel k+1.
    struct RowSets {
        uint16_t record = 0;
        uint16_t recordSend = 0;
        uint16_t snapshot = 0;
        uint16_t snapshotSend = 0;
    };
    const RowSets& Row(int row) const { return rows_[row]; }

protected:
    BOOL OnInitDialog() override;
    void OnCommand(int id, int code) override;

private:
    // The item that a half starting at source first begins with.
    static int FirstItem(int first);
    void ShowRows();
    void LookUpFunctions();
    int QueryHalf(int first);
    int SaveHalf(int first);
    void EnablePaging();

    uint32_t page_ = 0;
    int functions_[32];  // the function of each alarm input, -1 while unknown
    RowSets rows_[kRows];
};
