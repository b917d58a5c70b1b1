// Small components that take several pages.
#pragma once

#include "gantt/qt/zuGant.h"
#include "grid/qt/zuGrid.h"
#include "schema/qt/zuSchema.h"
#include "tree/qt/zuTree.h"

#include <QApplication>

#include <string>
#include <vector>

namespace korvane::test {

inline constexpr TDateTime kFrom = 46000;

/// Bars with texts, and links near and far.
inline void AddBars(TzuGant &chart, const std::vector<TzuDataEntity_Spanbar *> &bars)
{
    for (std::size_t i = 0; i < bars.size(); ++i) {
        bars[i]->SetStartDateTime(kFrom + i * 1.7);
        bars[i]->SetStopDateTime(kFrom + i * 1.7 + 3 + i % 20);
        bars[i]->SetColor(static_cast<TColor>(0x00F0A000 + i));
        bars[i]->Texts().AddText("Bar " + std::to_string(i), 4, 2, 1);
        TzuDataEntity_Link &link = chart.AddLink();
        link.SetFirst(bars[i]);
        link.SetSecond(bars[(i * 7 + 3) % bars.size()]);
    }
    chart.resize(700, 300);
    chart.SetStart(kFrom);
    chart.SetStop(kFrom + 40);
    chart.show();
    QApplication::processEvents();
}

/// Eight groups of five rows, with a bar each, also the groups.
inline void FillChart(TzuGant &chart)
{
    std::vector<TzuDataEntity_Spanbar *> bars;
    TzuDataEntity_Tree *group = nullptr;
    for (int i = 0; i < 40; ++i) {
        const std::string name = "Row " + std::to_string(i);
        TzuDataEntity_Tree *row = i % 5 == 0 ? group = chart.AddRootDataEntityTree(name)
                                             : chart.AddDataEntityTree(group, name);
        bars.push_back(chart.AddSpanbar(row, 0));
    }
    chart.Tree().FullExpand();
    AddBars(chart, bars);
    chart.Tree().GetCurrentDataEntity()->SetSelected(false);
}

/// The same rows in a grid of two columns, some of them higher.
inline void FillGridChart(TzuGant &chart)
{
    chart.SetUseGridNotTree(true);
    TzuGrid &grid = chart.Grid();
    grid.Columns().At(0).SetHeaderText("Name");
    grid.Columns().At(0).SetWidth(110);
    grid.Columns().Add().SetHeaderText("Index");
    grid.OnGetCellText = [](TBabGridCell *cell, TAxisContentItem *column, TAxisContentItem *row,
                            std::string &text) {
        if (cell->Columns().IndexOf(*column) == cell->Columns().Count() - 1) {
            text = "at " + std::to_string(cell->Rows().IndexOf(*row));
        }
    };
    std::vector<TzuDataEntity_Spanbar *> bars;
    TzuDataEntity_GridTreeNode *group = nullptr;
    for (int i = 0; i < 40; ++i) {
        auto *node = grid.GetTree()->AddDataEntity(i % 5 == 0 ? nullptr : group);
        node->SetText("Row " + std::to_string(i));
        node->Row()->SetUserSize(i % 3 == 0 ? 35 : 22);
        node->Row()->SetUserSizeActive(true);
        group = i % 5 == 0 ? node : group;
        bars.push_back(chart.GridNode_AddSpanbar(node, 0));
    }
    grid.GetTree()->FullExpand();
    AddBars(chart, bars);
}

inline void FillTree(TzuTree &tree)
{
    for (int group = 0; group < 9; ++group) {
        TzuDataEntity_Tree *heading = tree.AddDataEntity();
        heading->SetText("Group " + std::to_string(group));
        for (int row = 0; row < group; ++row) {
            tree.AddDataEntity(heading)->SetText("Row " + std::to_string(row));
        }
    }
    tree.show();
    QApplication::processEvents();
    tree.FullExpand();
}

inline void FillGrid(TzuGrid &grid)
{
    grid.resize(300, 200);
    grid.OnGetCellText = [](TBabGridCell *cell, TAxisContentItem *column, TAxisContentItem *row,
                            std::string &text) {
        text = std::to_string(cell->Columns().IndexOf(*column)) + "/"
               + std::to_string(cell->Rows().IndexOf(*row))
               + (cell->Rows().IndexOf(*row) % 7 == 0 ? " some words more that wrap" : "");
    };
    grid.DefaultLayoutProp().WrapTextAndFit = true;
    for (int i = 0; i < 8; ++i) {
        TzuGrid_Column &column = grid.Columns().Add();
        column.SetHeaderText("Column " + std::to_string(i));
        column.SetWidth(60 + i * 10);
    }
    grid.AddRows(60);
    grid.show();
    QApplication::processEvents();
}

/// Groups of rows in the grid's tree, opened.
inline void FillGridTree(TzuGrid &grid)
{
    grid.resize(400, 300);
    grid.SetUseTree(true);
    TzuGrid_Column &names = grid.Columns().Add();
    names.SetTreeButton(true);
    names.SetHeaderText("Name");
    names.SetWidth(150);
    for (int i = 0; i < 3; ++i) {
        grid.Columns().Add().SetHeaderText("Column " + std::to_string(i));
    }
    for (int group = 0; group < 8; ++group) {
        auto *heading = grid.GetTree()->AddDataEntity(nullptr);
        heading->SetText("Group " + std::to_string(group));
        for (int row = 0; row < 6; ++row) {
            grid.GetTree()->AddDataEntity(heading)->SetText("Row " + std::to_string(group) + "/"
                                                            + std::to_string(row));
        }
    }
    grid.GetTree()->FullExpand();
    grid.show();
    QApplication::processEvents();
}

inline std::vector<TzuDataEntity_SchemaTime *> FillSchedule(TzuSchema &schema)
{
    std::vector<TzuDataEntity_SchemaTime *> times;
    schema.resize(500, 400);
    for (int i = 0; i < 9; ++i) {
        schema.AddColumn()->SetText("Column " + std::to_string(i));
    }
    for (int i = 0; i < 60; ++i) {
        TzuDataEntity_SchemaTime *time = schema.AddSchemaTime(0);
        time->SetCol(i % 9);
        time->SetStartDateTime(kFrom + i * 0.25);
        time->SetStopDateTime(kFrom + i * 0.25 + 1);
        time->SetColor(static_cast<TColor>(0x00F0A000 + i));
        time->AddText("Time " + std::to_string(i), 3, 2, 1);
        times.push_back(time);
    }
    schema.SetScalerStart(kFrom);
    schema.SetScalerStop(kFrom + 16);
    schema.show();
    QApplication::processEvents();
    return times;
}

} // namespace korvane::test
