#include "grid/qt/zuGridJson.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>
#include <stdexcept>

namespace korvane::test {
namespace {

TEST(GridJson, CollectionsComeBackAsTheyWere)
{
    TBabGridCellForViewer root;
    TzuGridCore grid(root, [] {});
    TzuGrid_Column &column = grid.Columns().Add();
    column.SetWidth(123);
    column.SetHeaderText("Größe \"x\"");
    column.SetKind(TColumnKind::tckSubGrid);
    column.SetSubGridName("Steps");
    column.SetGroupcells(true);
    TzuGrid_SubGrid &subGrid = grid.SubGrids().Add();
    subGrid.SetName("Steps");
    subGrid.SetHasInfoCol(true);
    subGrid.Columns().Add().SetNumericSort(true);
    TzuCellLayout &layout = grid.CellLayouts().Add();
    layout.SetName("Loud");
    layout.SetBackColor(clWindow);
    layout.SetFrameKind(TFrameKind::fkRaised);
    layout.SetFrameOptions(foTop | foRight);
    layout.SetFont({"Arial", 17, clBlue, true, false, true, false});
    const QJsonObject json = GridToJson(grid);

    TBabGridCellForViewer otherRoot;
    TzuGridCore other(otherRoot, [] {});
    other.Columns().Add();
    other.Columns().Add();
    const auto stored = QJsonDocument::fromJson(QJsonDocument(json).toJson());
    GridFromJson(other, stored.object());
    EXPECT_EQ(GridToJson(other), json);
    EXPECT_EQ(otherRoot.Columns().Count(), 2);
    EXPECT_EQ(other.CellLayouts().At(0).Font(), layout.Font());
    EXPECT_EQ(other.SubGrids().At(0).Columns().Count(), 1);

    for (const QJsonObject &wrong :
         {QJsonObject{{"Columns", 5}}, QJsonObject{{"Columns", QJsonArray{"a"}}},
          QJsonObject{{"Columns", QJsonArray{QJsonObject{{"Kind", "tckNone"}}}}}}) {
        EXPECT_THROW(GridFromJson(other, wrong), std::invalid_argument);
        EXPECT_EQ(GridToJson(other), json);
    }
    GridFromJson(other, {{"SubGrids", QJsonArray{}}});
    EXPECT_EQ(other.SubGrids().Count(), 0);
    EXPECT_EQ(other.Columns().Count(), 1);
}

} // namespace
} // namespace korvane::test
