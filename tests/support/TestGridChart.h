// A chart without widgets whose rows are those of a grid, for tests.
#pragma once

#include "gantt/zuGantGridLines.h"
#include "support/FakeGantHost.h"
#include "support/FakeGridHost.h"

#include <string>

namespace korvane::test {

/// The lines of a fake grid; the area begins where its header ends.
struct FakeGridLines : TGantGridLines
{
    using TGantGridLines::TGantGridLines;
    int Offset() const override { return TzuGridCore::kHeaderHeight; }
};

/// The grid shows 180 pixels of its rows, each 20 high, in a tree column.
struct TestGridChart : TestChart
{
    TestGrid Table;

    TestGridChart()
    {
        Table.Grid.OnGetCellText = nullptr;
        Table.Grid.SetUseTree(true);
        Table.AddColumn("Name", 100).SetTreeButton(true);
        Nodes().OnIntegrationEvent = [this](auto *, TGridTreeEvent event, auto *node) {
            if (event == TGridTreeEvent::RowInserted) {
                Gant->GantRows().AddRow(nullptr, node);
            } else if (event == TGridTreeEvent::RowRemoved) {
                Gant->GantRows().RemoveRow(nullptr, node);
            }
        };
        Host->RowLines = std::make_unique<FakeGridLines>(Table.View, Gant->GantRows());
        Gant->SetUseGridNotTree(true);
    }
    ~TestGridChart()
    {
        Nodes().OnIntegrationEvent = nullptr;
        Gant.reset(); // its rows know nodes of the grid
    }

    TzuGridTree &Nodes() { return *Table.Grid.GetTree(); }
    TzuDataEntity_GridTreeNode *AddGridNode(const std::string &text,
                                            TzuDataEntity_GridTreeNode *parent = nullptr)
    {
        TzuDataEntity_GridTreeNode *node = Nodes().AddDataEntity(parent);
        node->SetText(text);
        return node;
    }
    TGantRow &RowOf(const TzuDataEntity_GridTreeNode *node)
    {
        return *Gant->GantRows().FindRowFromGridNode(node);
    }
};

} // namespace korvane::test
