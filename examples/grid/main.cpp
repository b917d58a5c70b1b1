// A grid: columns of several kinds, edited in place and sorted by a click on the heads.
#include "grid/qt/zuGrid.h"

#include <QApplication>

#include <string>

using namespace korvane;

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    TzuGrid grid;
    grid.SetUserSortEnable(true);
    grid.SetExtendLastColumnToWidth(true);

    const auto addColumn = [&grid](const char *header, TColumnKind kind) {
        TzuGrid_Column &column = grid.Columns().Add();
        column.SetHeaderText(header);
        column.SetKind(kind);
        column.SetSortEnable(true);
    };
    addColumn("Article", TColumnKind::tckSimpleEdit);
    addColumn("In stock", TColumnKind::tckBool);
    addColumn("Delivery", TColumnKind::tckDate);

    constexpr const char *articles[][3] = {
        {"Bicycle", "1", "2026-03-04"}, {"Trailer", "0", "2026-03-19"}, {"Helmet", "1", ""}};
    int row = 0;
    for (const auto &article : articles) {
        grid.AddRows(1);
        for (int column = 0; column < 3; ++column) {
            grid.SetCellText(column, row, article[column]);
        }
        ++row;
    }
    // A text that the handler refuses stays in the editor, with the reason below it.
    grid.OnEditStop = [](TObject *, TCellEdit &edit) {
        edit.Allow = edit.At.Column != 1 || !edit.Text.empty();
        edit.Reason = "An article needs a name.";
    };
    grid.resize(500, 240);
    grid.show();
    return QApplication::exec();
}
