#include "pages/alarm/CAVmdAreaSet.h"

#include <windowsx.h>

#include "protocol/AlarmSections.h"
#include "res/resource.h"
#include "ui/Language.h"
#include "ui/win/Controls.h"

using namespace varcfg;

namespace {

constexpr COLORREF kSelectedColour = 0xff0000;  // blue in 0x00BBGGRR
constexpr COLORREF kClearColour = 0xffffff;

}  // namespace

CAVmdAreaSet::CAVmdAreaSet(const std::string& areaText) : CDlgCfgBase(IDD_VMD_AREA), areaText_(areaText) {
    ParseMaskRows(areaText_.c_str(), rows_);
}

BOOL CAVmdAreaSet::OnInitDialog() {
    SetWindowTextW(Hwnd(), FillTemplate(L"%s", {CLanguage::Instance().Text(24118)}).c_str());
    SetItemText(Hwnd(), IDOK, CLanguage::Instance().Text(11002));
    SetItemText(Hwnd(), IDCANCEL, CLanguage::Instance().Text(11003));
    return TRUE;
}

void CAVmdAreaSet::OnCommand(int id, int code) {
    if (id == IDOK) {
        // Only the grid's cells change; the rows and bits beyond it keep what the text held.
        uint32_t rows[32] = {};
        ParseMaskRows(areaText_.c_str(), rows);
        for (int y = 0; y < kRows; ++y) {
            rows[y] = (rows[y] & ~((1u << kColumns) - 1)) | (rows_[y] & ((1u << kColumns) - 1));
        }
        areaText_ = MaskText(rows);
    }
    CDlgCfgBase::OnCommand(id, code);
}

bool CAVmdAreaSet::OnMessage(UINT message, WPARAM, LPARAM lParam, LRESULT& result) {
    if (message == WM_PAINT) {
        PAINTSTRUCT paint;
        HDC dc = BeginPaint(Hwnd(), &paint);
        Paint(dc);
        EndPaint(Hwnd(), &paint);
        result = 0;
        return true;
    }
    if (message == WM_LBUTTONDOWN) {
        const int x = GET_X_LPARAM(lParam) - kLeft;
        const int y = GET_Y_LPARAM(lParam) - kTop;
        if (x < 0 || y < 0 || x / kCellSize >= kColumns || y / kCellSize >= kRows) return false;
        const int column = x / kCellSize;
        const int row = y / kCellSize;
        rows_[row] ^= 1u << column;
        HDC dc = GetDC(Hwnd());
        PaintCell(dc, column, row);
        ReleaseDC(Hwnd(), dc);
        result = 0;
        return true;
    }
    return false;
}

void CAVmdAreaSet::Paint(HDC dc) const {
    for (int y = 0; y <= kRows; ++y) {
        MoveToEx(dc, kLeft, kTop + y * kCellSize, nullptr);
        LineTo(dc, kLeft + kColumns * kCellSize, kTop + y * kCellSize);
    }
    for (int x = 0; x <= kColumns; ++x) {
        MoveToEx(dc, kLeft + x * kCellSize, kTop, nullptr);
        LineTo(dc, kLeft + x * kCellSize, kTop + kRows * kCellSize);
    }
    for (int y = 0; y < kRows; ++y) {
        for (int x = 0; x < kColumns; ++x) PaintCell(dc, x, y);
    }
}

// Inside the grid lines, so that toggling a cell leaves its border standing.
void CAVmdAreaSet::PaintCell(HDC dc, int column, int row) const {
    const RECT cell{kLeft + column * kCellSize + 1, kTop + row * kCellSize + 1, kLeft + (column + 1) * kCellSize,
                    kTop + (row + 1) * kCellSize};
    HBRUSH brush = CreateSolidBrush(IsSelected(column, row) ? kSelectedColour : kClearColour);
    FillRect(dc, &cell, brush);
    DeleteObject(brush);
}
