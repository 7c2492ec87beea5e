// CDlgTabAlarmCfgInput: the alarm inputs, four per page: enable, level, function (stAlarmIn). Rows
// beyond the model's alarm inputs are hidden; a save writes the shown rows of the current page only,
// on every save.
#pragma once

#include <cstdint>

#include "pages/base/CDlgCfgBase.h"

class CDlgTabAlarmCfgInput : public CDlgCfgBase {
public:
    CDlgTabAlarmCfgInput();

    // 1 when the rows were filled, 0 when the transport failed or a child was misnamed, -1 when refused.
    int Refresh() override;
    // 1 when written and accepted, 0 otherwise.
    int Save() override;
    std::vector<SectionInfo> DeclaredSections() const override;

protected:
    BOOL OnInitDialog() override;
    void OnCommand(int id, int code) override;

private:
    // How many of the page's four rows stand for inputs the model has (0 to 4).
    int RowsShown() const;
    void ShowRows();
    void EnablePaging();

    uint32_t page_ = 0;
};
