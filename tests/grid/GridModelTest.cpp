#include "grid/zuGrid.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace korvane::test {
namespace {

using TTexts = std::vector<std::string>;

struct GridModel : testing::Test
{
    int Changes = 0;
    TBabGridCellForViewer Root;
    TzuGridCore Grid{Root, [this] { ++Changes; }};

    TzuGrid_Column &AddColumn(const std::string &header, int width = 64)
    {
        TzuGrid_Column &column = Grid.Columns().Add();
        column.SetHeaderText(header);
        column.SetWidth(width);
        return column;
    }
    void Fill(int column, const TTexts &texts)
    {
        const int missing = static_cast<int>(texts.size()) - (Root.Rows().Count() - 1);
        Grid.AddRows(std::max(0, missing));
        for (std::size_t row = 0; row < texts.size(); ++row) {
            Grid.SetCellText(column, static_cast<int>(row), texts[row]);
        }
    }
    TTexts Texts(int column)
    {
        TTexts texts;
        for (int row = 0; row < Root.Rows().Count() - Root.Rows().FixedCount(); ++row) {
            texts.push_back(Grid.CellText(column, row));
        }
        return texts;
    }
    TzuGrid_SubGrid &AddSubGrid(const std::string &name)
    {
        TzuGrid_SubGrid &subGrid = Grid.SubGrids().Add();
        subGrid.SetName(name);
        TzuGrid_Column &column = AddColumn("Details");
        column.SetKind(TColumnKind::tckSubGrid);
        column.SetSubGridName(name);
        return subGrid;
    }
};

TEST_F(GridModel, FixedColumnAndRowFollowTheirProperties)
{
    AddColumn("Name", 100);
    for (const bool info : {true, false, true}) {
        for (const bool headers : {true, false, true}) {
            Grid.SetHasInfoCol(info);
            Grid.SetHasHeaders(headers);
            EXPECT_EQ(Root.Columns().FixedCount(), info ? 1 : 0);
            EXPECT_EQ(Root.Columns().Count(), info ? 2 : 1);
            EXPECT_EQ(Root.Rows().Count(), headers ? 1 : 0);
            EXPECT_EQ(Root.Columns().TotalSize(), info ? 120 : 100);
        }
    }
    EXPECT_EQ(Root.Columns().getAxisContentItem(0)->Value(), nullptr);
    EXPECT_EQ(Root.Columns().getAxisContentItem(1)->Value(), Grid.Columns().GetColumn(0));
    EXPECT_EQ(
        Root.CellText(*Root.Columns().getAxisContentItem(1), *Root.Rows().getAxisContentItem(0)),
        "Name");
}

TEST_F(GridModel, ContentStaysWithItsColumnWhateverHappensToOthers)
{
    AddColumn("A");
    AddColumn("B");
    AddColumn("C");
    Fill(0, {"a"});
    Fill(1, {"b"});
    Fill(2, {"c"});
    const auto row = [&] {
        std::string text;
        for (int column = 0; column < Grid.Columns().Count(); ++column) {
            text += Grid.CellText(column, 0);
        }
        return text;
    };
    Grid.Columns().Move(0, 2);
    EXPECT_EQ(row(), "bca");
    Grid.Columns().Delete(1);
    EXPECT_EQ(row(), "ba");
    Grid.Columns().Insert(1);
    EXPECT_EQ(row(), "ba");
    EXPECT_EQ(Grid.CellText(2, 0), "a");
    Grid.Columns().Clear();
    EXPECT_EQ(Root.Columns().Count(), 1);
    EXPECT_THROW(Grid.Columns().Delete(0), std::out_of_range);
}

TEST_F(GridModel, AChangeOfAColumnReachesEveryGridAtOnce)
{
    TzuGrid_SubGrid &subGrid = AddSubGrid("Steps");
    TzuGrid_Column &step = subGrid.Columns().Add();
    int inits = 0;
    Grid.OnInitSubGrid = [&](TObject *, TBabSubGridCell *cell, TAxisContentItem *,
                             TAxisContentItem *) {
        ++inits;
        cell->Rows().AddUnloaded(1000);
    };
    Grid.AddRows(3);
    std::vector<TBabGridCell *> cells;
    for (int row = 1; row <= 3; ++row) {
        cells.push_back(dynamic_cast<TBabGridCell *>(Root.GetCell(1, row)));
        ASSERT_NE(cells.back(), nullptr);
        Root.GetCell(1, row);
    }
    EXPECT_EQ(inits, 3);
    EXPECT_EQ(subGrid.Columns().GridCells(), cells);
    const auto expectAll = [&](int columns, std::int64_t width) {
        for (TBabGridCell *cell : cells) {
            EXPECT_EQ(cell->Columns().Count(), columns);
            EXPECT_EQ(cell->Columns().TotalSize(), width);
            EXPECT_EQ(cell->Rows().Count(), 1001);
        }
    };
    expectAll(1, 64);
    step.SetWidth(30);
    expectAll(1, 30);
    subGrid.SetHasInfoCol(true);
    expectAll(2, 50);
    subGrid.Columns().Add().SetHidden(true);
    expectAll(3, 50);
    // What the user drags in one grid holds for all.
    cells[1]->Columns().getAxisContentItem(1)->SetUserSize(77);
    EXPECT_EQ(step.Width(), 77);
    expectAll(3, 97);

    Root.Rows().Drop(2);
    cells.erase(cells.begin() + 1);
    EXPECT_EQ(subGrid.Columns().GridCells(), cells);
    // A name may come to mean another sub-grid.
    const auto columnsOfCell = [&] {
        return dynamic_cast<TBabGridCell &>(*Root.GetCell(1, 1)).Columns().Count();
    };
    inits = 0;
    subGrid.SetName("Parts");
    EXPECT_EQ(columnsOfCell(), 0);
    Grid.Columns().At(0).SetSubGridName("PARTS");
    EXPECT_EQ(columnsOfCell(), 3);
    TzuGrid_SubGrid &first = Grid.SubGrids().Insert(0);
    EXPECT_EQ(columnsOfCell(), 3);
    EXPECT_EQ(inits, 2);
    first.SetName("parts");
    first.Columns().Add();
    EXPECT_EQ(columnsOfCell(), 1);
    Grid.SubGrids().Clear();
    EXPECT_EQ(columnsOfCell(), 0);
    EXPECT_EQ(inits, 4);
}

TEST_F(GridModel, KindsAreConvertedAsFarAsTheyUnderstand)
{
    TzuGrid_Column &column = AddColumn("A");
    Fill(0, {"2026-11-21", "soon"});
    column.SetKind(TColumnKind::tckDate);
    EXPECT_EQ(Texts(0), (TTexts{"2026-11-21", ""}));
    column.SetKind(TColumnKind::tckBool);
    EXPECT_EQ(Texts(0), (TTexts{"1", "0"}));
    column.SetKind(TColumnKind::tckSubTree);
    EXPECT_EQ(Root.Matris().CellCount(), 0);
}

TEST_F(GridModel, ALayoutChangesAllItsCellsTogether)
{
    TzuCellLayout &bold = Grid.CellLayouts().Add();
    bold.SetName("Important");
    Grid.CellLayouts().Add().SetName("IMPORTANT"); // the first one counts
    EXPECT_EQ(bold.MinHeight(), 20);
    EXPECT_EQ(bold.BackColor(), clWindow);
    EXPECT_EQ(bold.FrameColor(), clBtnFace);
    TzuGrid_Column &column = AddColumn("A");
    Fill(0, {"x", "y"});
    TBabCell *cell = Root.GetCell(1, 1);
    Grid.CellLayouts().ApplyFromLayoutName("imPORTant", cell);
    Grid.CellLayouts().ApplyFromLayoutName("unknown", cell);
    Grid.CellLayouts().ApplyFromLayoutName("important", nullptr);
    column.SetLayoutName("important");
    Changes = 0;
    bold.SetBackColor(clRed);
    bold.SetBackColor(clRed);
    EXPECT_EQ(Changes, 1);
    EXPECT_EQ(cell->LayoutProp(), bold.LayoutProp().get());
    EXPECT_EQ(column.LayoutProp(), bold.LayoutProp().get());
    bold.SetName("other");
    EXPECT_EQ(column.LayoutProp(), Grid.CellLayouts().At(1).LayoutProp().get());
    Grid.CellLayouts().Clear();
    EXPECT_EQ(column.LayoutProp(), nullptr);
    EXPECT_EQ(cell->LayoutProp()->BackColor, clRed); // outlives its layout
}

TEST_F(GridModel, SortKeysOfRows)
{
    TzuGrid_Column &column = AddColumn("A");
    AddColumn("B");
    struct TCase
    {
        std::string Text;
        bool Numeric;
        std::string Key;
    };
    for (const TCase &each :
         {TCase{"abC", false, "ABC###0000000001"}, TCase{"", false, "###0000000001"},
          TCase{"42", true, "00000000000000042###0000000001"},
          TCase{"-3", true, "000000000000000-3###0000000001"},
          TCase{"123456789012345678901", true, "56789012345678901###0000000001"},
          TCase{"\xC3\xA4", true, "0000000000000000\xC3\xA4###0000000001"}}) {
        Fill(0, {each.Text});
        column.SetNumericSort(each.Numeric);
        Grid.SetSortKeys({{&column}});
        EXPECT_EQ(Grid.GetSortString(*Root.Rows().getAxisContentItem(1)), each.Key);
    }
    Grid.OnGetUserSortCompareString = [&](TObject *, TzuGrid_Column *sorted, std::string &key,
                                          TBabCell *cell) {
        EXPECT_EQ(sorted, &column);
        EXPECT_NE(cell, nullptr);
        key = "mine";
    };
    EXPECT_EQ(Grid.GetSortString(*Root.Rows().getAxisContentItem(1)), "mine");
    Grid.OnGetUserSortCompareString = nullptr;
    column.SetNumericSort(false);
    column.SetKind(TColumnKind::tckSubGrid);
    EXPECT_EQ(Grid.GetSortString(*Root.Rows().getAxisContentItem(1)), "###0000000001");
}

TEST_F(GridModel, SortingKeepsTheOrderOfEquals)
{
    TzuGrid_Column &name = AddColumn("A");
    TzuGrid_Column &number = AddColumn("B");
    Grid.SetUserSortEnable(true);
    name.SetSortEnable(true);
    const auto fill = [&] {
        Fill(0, {"b", "a", "B", "A", "c"});
        Fill(1, {"1", "2", "3", "10", "20"});
    };
    fill();
    Root.Selection().Select({0, 2, TCellSelection::kAllColumns, 2}); // "a"
    Root.Rows().getAxisContentItem(1)->SetUserSize(50);              // "b"
    Root.Rows().getAxisContentItem(1)->SetUserSizeActive(true);
    Grid.SortByUser(name, false);
    EXPECT_EQ(Texts(1), (TTexts{"2", "10", "1", "3", "20"}));
    EXPECT_TRUE(Root.Selection().IsWholeRow(1));
    EXPECT_EQ(Root.Rows().SizeAt(3), 50);
    Grid.SortByUser(name, false);
    EXPECT_EQ(Texts(1), (TTexts{"20", "1", "3", "2", "10"}));
    Grid.SortByUser(number, false); // not enabled
    EXPECT_EQ(Grid.SortColumn(), &name);

    number.SetSortEnable(true);
    Grid.SortByUser(number, true);
    EXPECT_EQ(Texts(1), (TTexts{"20", "1", "3", "10", "2"})); // as text
    number.SetNumericSort(true);
    Grid.SortByUser(number, true);
    EXPECT_EQ(Texts(1), (TTexts{"20", "3", "1", "10", "2"}));

    int sorted = 0;
    Grid.OnUserSort = [](TObject *, TzuGrid_Column *, bool &handled) { handled = true; };
    Grid.OnColumnSort = [&](TObject *, TzuGrid_Column *) { ++sorted; };
    Grid.SortByUser(name, false);
    EXPECT_EQ(Texts(1), (TTexts{"20", "3", "1", "10", "2"}));
    EXPECT_EQ(sorted, 1);
    Grid.Columns().Clear();
    EXPECT_EQ(Grid.SortColumn(), nullptr);
}

TEST_F(GridModel, SortingAgreesWithAStableSortOfTheKeys)
{
    TzuGrid_Column &column = AddColumn("A");
    std::mt19937 random(3);
    TTexts texts(500);
    for (std::string &text : texts) {
        for (unsigned length = random() % 4; length > 0; --length) {
            text += "A!#~b"[random() % 5]; // some sort before what is put behind a key
        }
    }
    Fill(0, texts);
    std::vector<std::pair<std::string, std::string>> expected;
    Grid.SetSortKeys({{&column}});
    Fill(0, texts);
    for (int row = 1; row <= 500; ++row) {
        expected.emplace_back(Grid.GetSortString(*Root.Rows().getAxisContentItem(row)),
                              texts[static_cast<std::size_t>(row) - 1]);
    }
    std::stable_sort(expected.begin(), expected.end());
    Grid.DoInternalResortOfContent();
    const TTexts sorted = Texts(0);
    for (std::size_t row = 0; row < sorted.size(); ++row) {
        ASSERT_EQ(sorted[row], expected[row].second) << row;
    }
}

} // namespace
} // namespace korvane::test
