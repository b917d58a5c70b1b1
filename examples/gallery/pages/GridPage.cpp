// The grid: columns of every kind, edited in place, with parts lists in cells and two looks.
#include "Pages.h"
#include "grid/qt/zuGrid.h"

#include <QCheckBox>
#include <QVBoxLayout>

#include <string>

using namespace korvane;

namespace {

struct TLine
{
    const char *Texts[6]; ///< article, note, in stock, state, next delivery, at
    int Parts;
};

constexpr TLine kLines[] = {
    {{"Bicycle", "Assembled on demand; lights and mudguards apart", "1", "Ready", "2025-03-04",
      "09:30"},
     3},
    {{"Trailer", "For two children", "0", "Ordered", "2025-03-19", "14:00"}, 2},
    {{"Helmet", "Sizes S to XL", "1", "Ready", "2025-02-28", "08:15"}, 0},
    {{"Pump", "", "1", "Ready", "", ""}, 0},
    {{"Child seat", "Recalled: the buckle may open. Do not sell before the new belts are in.", "0",
      "Blocked", "2025-04-01", "10:00"},
     2},
    {{"Lock", "Keyed alike on request", "1", "Ready", "2025-03-11", "16:45"}, 0},
};

void AddLayouts(TzuGrid &grid)
{
    TzuCellLayout &wrapped = grid.CellLayouts().Add();
    wrapped.SetName("Wrapped");
    wrapped.SetWrapTextAndFit(true);
    TzuCellLayout &right = grid.CellLayouts().Add();
    right.SetName("Right");
    right.SetHorzAlignRight(true);
    TzuCellLayout &loud = grid.CellLayouts().Add();
    loud.SetName("Loud");
    loud.SetBackColor(Rgb(0xFF, 0xE8, 0xB0));
    loud.SetFrontColor(clBlack);
}

void AddColumns(TzuGrid &grid)
{
    struct
    {
        const char *Header;
        TColumnKind Kind;
        int Width;
        const char *Layout;
    } const columns[] = {
        {"Article", TColumnKind::tckSimpleEdit, 110, ""},
        {"Note", TColumnKind::tckMemo, 190, "Wrapped"},
        {"In stock", TColumnKind::tckBool, 66, ""},
        {"State", TColumnKind::tckCombo, 90, ""},
        {"Next delivery", TColumnKind::tckDate, 110, "Right"},
        {"At", TColumnKind::tckTime, 70, "Right"},
        {"Parts", TColumnKind::tckSubGrid, 260, ""},
    };
    for (const auto &each : columns) {
        TzuGrid_Column &column = grid.Columns().Add();
        column.SetHeaderText(each.Header);
        column.SetKind(each.Kind);
        column.SetWidth(each.Width);
        column.SetLayoutName(each.Layout);
        column.SetSortEnable(each.Kind != TColumnKind::tckSubGrid);
        column.SetSubGridName("Parts");
    }
    TzuGrid_SubGrid &parts = grid.SubGrids().Add();
    parts.SetName("Parts");
    parts.SetHasHeaders(true);
    parts.SetExtendLastColumnToWidth(true);
    parts.Columns().Add().SetHeaderText("Part");
    parts.Columns().At(0).SetWidth(130);
    parts.Columns().Add().SetHeaderText("Pieces");
    parts.Columns().At(1).SetNumericSort(true);
    parts.Columns().At(1).SetLayoutName("Right");
}

void Fill(TzuGrid &grid)
{
    int row = 0;
    for (const TLine &line : kLines) {
        grid.AddRows(1);
        for (int column = 0; column < 6; ++column) {
            grid.SetCellText(column, row, line.Texts[column]);
        }
        ++row;
    }
}

/// Styles frame a box in a darker shade of the window, which is not seen in dark palettes.
void FrameVisibly(QWidget &box)
{
    QPalette palette = box.palette();
    if (palette.color(QPalette::Window).lightness() < palette.color(QPalette::Text).lightness()) {
        palette.setColor(QPalette::Window, palette.color(QPalette::Text).darker());
        box.setPalette(palette);
    }
}

} // namespace

QWidget *CreateGridPage()
{
    auto *page = new QWidget;
    auto *grid = new TzuGrid;
    grid->SetMultiSelect(true);
    grid->SetAutoEditMode(true);
    grid->SetUserSortEnable(true);
    grid->SetExtendLastColumnToWidth(true);
    // The choices of a combo, asked for when it opens.
    grid->OnBeforeEditWithCombo = [](TObject *, TBabCell *cell) {
        auto &data = static_cast<TBabSimpleCell &>(*cell).Data();
        static_cast<TBabCellData_Combo &>(data).Items = {"Ready", "Ordered", "Blocked"};
    };
    // What is in a list of parts, asked for when it comes into view.
    grid->OnInitSubGrid = [](TObject *, TBabSubGridCell *parts, TAxisContentItem *,
                             TAxisContentItem *row) {
        const int line = row->ListIndex() - row->List()->FixedCount();
        const int count = line < static_cast<int>(std::size(kLines)) ? kLines[line].Parts : 0;
        for (int i = 0; i < count; ++i) {
            TAxisContentItem *part = parts->Rows().AddNew(nullptr);
            const int first = parts->Columns().FixedCount();
            parts->GetCell(first, part->ListIndex())->SetText("Part " + std::to_string(i + 1));
            parts->GetCell(first + 1, part->ListIndex())->SetText(std::to_string(2 * i + 1));
        }
    };
    grid->OnEditStop = [](TObject *, TCellEdit &edit) {
        edit.Allow = edit.At.Column != 1 || !edit.Text.empty();
        edit.Reason = "An article needs a name.";
    };
    AddLayouts(*grid);
    AddColumns(*grid);
    Fill(*grid);
    grid->ChooseCell({&grid->RootCell(), 1, 1}, TGridChoice::Set);

    auto *loud = new QCheckBox("Mark the states");
    FrameVisibly(*loud);
    QObject::connect(loud, &QCheckBox::toggled, grid,
                     [grid](bool on) { grid->Columns().At(3).SetLayoutName(on ? "Loud" : ""); });
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(grid, 1);
    layout->addWidget(loud);
    return page;
}
