// CAVmdAreaSet: the motion detection area of one channel as a grid of 10 by 8 cells, each toggled by a
// click. OK rewrites the area text from the grid; Cancel leaves it as it was.
#pragma once

#include <cstdint>
#include <string>

#include "pages/base/CDlgCfgBase.h"

class CAVmdAreaSet : public CDlgCfgBase {
public:
    static constexpr int kColumns = 10;
    static constexpr int kRows = 8;
    static constexpr int kCellSize = 40;
    static constexpr int kLeft = 20;  // the grid's top-left corner in the client area
    static constexpr int kTop = 10;

    // The area text: 32 mask rows in decimal, each followed by a comma.
    explicit CAVmdAreaSet(const std::string& areaText);

    // The area text, rebuilt from the grid once the dialog ended with OK.
    const std::string& AreaText() const { return areaText_; }
    bool IsSelected(int column, int row) const { return (rows_[row] >> column & 1u) != 0; }

protected:
    BOOL OnInitDialog() override;
    void OnCommand(int id, int code) override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

private:
    void Paint(HDC dc) const;
    void PaintCell(HDC dc, int column, int row) const;

    std::string areaText_;
    uint32_t rows_[32] = {};
};
