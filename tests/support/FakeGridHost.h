// A grid's view without a window, for tests.
#pragma once

#include "cellgrid/zuBabGridFind.h"
#include "grid/zuGrid.h"
#include "support/RecordingCanvas.h"

#include <string>
#include <vector>

namespace korvane::test {

/// 300 by 200 pixels; characters are 6 by 12.
class FakeGridHost : public IBabGridHost
{
public:
    TSize Size{300, 200};
    TRecordingCanvas Measuring;
    TRecordingCanvas Painted{{0, 0, 300, 200}};
    bool Focused = true;
    int Invalidations = 0;
    TGridCursor Cursor = TGridCursor::Arrow;

    void InvalidateGrid() override { ++Invalidations; }
    void InvalidateGridOverlay() override {}
    TSize GridSize() const override { return Size; }
    TCanvas &MeasureCanvas() override { return Measuring; }
    TFont GridFont() const override { return {}; }
    const TImageList *GridImages() const override { return nullptr; }
    bool GridHasFocus() const override { return Focused; }
    void SetGridCursor(TGridCursor cursor) override { Cursor = cursor; }
};

/// An editor into which tests type by setting its text.
class FakeGridEditor : public IBabGridEditHost
{
public:
    bool IsOpen = false;
    TEditStart Start;
    std::string Text;
    std::string Refusal;
    TRect Cell;
    TRect Clip;

    void OpenEditor(const TEditStart &start) override
    {
        IsOpen = true;
        Start = start;
        Text = start.Text;
        Refusal.clear();
    }
    std::string EditorText() const override { return Text; }
    void PlaceEditor(const TRect &cell, const TRect &clip) override
    {
        Cell = cell;
        Clip = clip;
    }
    void CloseEditor() override { IsOpen = false; }
    void ShowRefusal(const TRect & /*cell*/, std::string_view reason) override { Refusal = reason; }
};

/// A view with the declarative model of a grid.
struct TestGrid : FakeGridHost
{
    FakeGridEditor Editor;
    TBabGridFind View{*this, Editor};
    TzuGridCore Grid{View.RootCell(), [this] { View.LayoutOutOfDate(); }};

    TestGrid()
    {
        Grid.OnGetCellText = [](TBabGridCell *grid, TAxisContentItem *column, TAxisContentItem *row,
                                std::string &text) {
            text = std::string(1, static_cast<char>('a' + grid->Columns().IndexOf(*column)))
                   + std::to_string(grid->Rows().IndexOf(*row));
        };
    }
    TzuGrid_Column &AddColumn(const std::string &header, int width)
    {
        TzuGrid_Column &column = Grid.Columns().Add();
        column.SetHeaderText(header);
        column.SetWidth(width);
        return column;
    }
    TGridCellAt At(int column, int row) { return {&View.RootCell(), column, row}; }
    const TRecordingCanvas &Paint()
    {
        Painted.Clear();
        Painted.SetFont(GridFont());
        View.Paint(Painted);
        return Painted;
    }
    void Drag(TPoint from, TPoint to, TShiftState shift = {})
    {
        View.MouseDown(TMouseButton::mbLeft, shift, from);
        View.MouseMove(shift, to);
        View.MouseUp(TMouseButton::mbLeft, shift, to);
    }
    void Click(TPoint at, TShiftState shift = {}) { Drag(at, at, shift); }
    TPoint Middle(const TGridCellAt &at)
    {
        const TRect rect = View.CellRect(at);
        return {(rect.Left + rect.Right) / 2, (rect.Top + rect.Bottom) / 2};
    }
};

} // namespace korvane::test
