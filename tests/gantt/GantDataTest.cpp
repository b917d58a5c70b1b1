#include "support/FakeGantHost.h"

#include <gmock/gmock.h>
#include <random>
#include <set>
#include <string>

using namespace korvane;
using namespace korvane::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct GantData : testing::Test
{
    TestChart Chart;
    TestGant &Gant = *Chart.Gant;
};

TEST_F(GantData, ItemsAreWhiteSquareEditableAndResizable)
{
    TzuDataEntity_Spanbar *item = Gant.AddSpanbarToGantRow(Chart.AddRow(), 0);
    EXPECT_EQ(item->GetColor(), 0xFFFFFFU);
    EXPECT_EQ(item->GetStyle(), TSpanbarStyle::sbsSquare);
    EXPECT_TRUE(item->GetCanEdit());
    EXPECT_EQ(item->GetStartDateTime(), 0);
    EXPECT_EQ(item->GetStopDateTime(), 0);
    for (const auto &[fixedSize, resizable] :
         {std::pair(-5, true), std::pair(0, true), std::pair(1, false)}) {
        item->SetFixedSize(fixedSize);
        EXPECT_EQ(item->IsResizable(), resizable) << fixedSize;
    }
}

TEST_F(GantData, AskingForALayerAppendsTheOnesBelowIt)
{
    TGantRow *row = Chart.AddRow();
    Chart.AddItem(row, 0, 10, 0);
    ASSERT_EQ(row->Layers().Count(), 1);
    const TzuDataEntity_Spanbar *item = Chart.AddItem(row, 0, 10, 3);
    ASSERT_EQ(row->Layers().Count(), 4);
    EXPECT_EQ(row->Layers().GetDataList(1)->Count(), 0);
    EXPECT_EQ(row->Layers().GetDataList(2)->Count(), 0);
    EXPECT_EQ(row->Layers().GetDataList(3)->GetItems(0), item);
    EXPECT_EQ(item->GetRow(), row);
}

TEST_F(GantData, WhatHasNoPlaceIsRefusedQuietly)
{
    EXPECT_EQ(Gant.AddSpanbarToGantRow(nullptr, 0), nullptr);
    EXPECT_EQ(Gant.AddSpanbarToGantRow(Chart.AddRow(), -1), nullptr);
    EXPECT_EQ(Gant.AddSpanbar(nullptr, 0), nullptr);
    Gant.RemoveSpanbar(nullptr);
    TzuDataEntity_Spanbar stray;
    Gant.RemoveSpanbar(&stray);
    EXPECT_THROW(TimeDataEntity(Gant.AddLink()), std::bad_cast);
}

TEST_F(GantData, EventsTellOfInsertionChangeSelectionAndDeletionInOrder)
{
    std::vector<std::string> events;
    const auto note = [&events](const char *name) {
        return [&events, name](auto...) { events.emplace_back(name); };
    };
    TGantRow *row = Chart.AddRow();
    Gant.OnInsertItem_Spanbar = note("insert");
    Gant.OnContentChanged_Spanbar = note("content");
    Gant.OnChangeDataEntity_Spanbar = note("change");
    Gant.OnValueChanged_Spanbar = note("value");
    Gant.OnSelectionChanged_Spanbar = note("selection");
    Gant.OnDeleteItem_Spanbar = note("delete");
    const int before = Chart.Host->Invalidations;
    TzuDataEntity_Spanbar *item = Chart.AddItem(row, 0, 10);
    item->SetSelected(true);
    item->SetSelected(true);
    item->DoInfoPush();
    Gant.RemoveSpanbar(item);
    EXPECT_THAT(events, ElementsAre("insert", "content", "selection", "change", "value", "delete",
                                    "content"));
    EXPECT_GE(Chart.Host->Invalidations - before, 5);
}

TEST_F(GantData, TheApplicationDecidesWhetherAnItemCanBeEdited)
{
    TzuDataEntity_Spanbar *item = Chart.AddItem(Chart.AddRow(), 0, 10);
    Gant.OnBeforeCanEditItem_Spanbar = [](TObject *, TzuDataEntity *entity) {
        entity->SetCanEdit(false);
    };
    EXPECT_FALSE(item->GetCanEdit());
}

TEST_F(GantData, DeletingAnItemTakesItsLinksAndLeavesTheOthersInOrder)
{
    TGantRow *row = Chart.AddRow();
    TzuDataEntity_Spanbar *a = Chart.AddItem(row, 0, 10);
    TzuDataEntity_Spanbar *b = Chart.AddItem(row, 20, 30);
    TzuDataEntity_Spanbar *c = Chart.AddItem(row, 40, 50);
    const TzuDataEntity_Link *kept1 = &Chart.Link(a, c);
    Chart.Link(a, b);
    Chart.Link(b, b);
    const TzuDataEntity_Link *kept2 = &Chart.Link(c, a);
    Chart.Link(b, c);
    const TzuDataEntity_Link *open = &Chart.Link(a, nullptr);

    Gant.RemoveSpanbar(b);

    TzuDataList &links = Gant.GetLinks();
    ASSERT_EQ(links.Count(), 3);
    EXPECT_EQ(links.GetItems(0), kept1);
    EXPECT_EQ(links.GetItems(1), kept2);
    EXPECT_EQ(links.GetItems(2), open);
    EXPECT_EQ(a->Links().size(), 3U);
    EXPECT_EQ(c->Links().size(), 2U);
}

TEST_F(GantData, DeletingTheActiveItemLeavesNoneActive)
{
    TGantRow *row = Chart.AddRow();
    TzuDataEntity_Spanbar *active = Chart.AddItem(row, 0, 10);
    TzuDataEntity_Spanbar *other = Chart.AddItem(row, 0, 10);
    Gant.SetActiveDataEntity(active);
    Gant.RemoveSpanbar(other);
    EXPECT_EQ(Gant.ActiveDataEntity(), active);
    Gant.RemoveSpanbar(active);
    EXPECT_EQ(Gant.ActiveDataEntity(), nullptr);
}

TEST_F(GantData, RemovingANodeRemovesItsRowItemsAndLinks)
{
    TzuDataEntity_Tree *parent = Chart.AddNode();
    TzuDataEntity_Tree *child = Chart.AddNode(parent);
    TzuDataEntity_Spanbar *gone = Gant.AddSpanbar(child, 0);
    TzuDataEntity_Spanbar *kept = Chart.AddItem(Chart.AddRow(), 0, 10);
    Chart.Link(gone, kept);
    std::vector<TGantRow *> freed;
    Gant.OnBeforeFreeGantRow = [&](TGantRowList *, TGantRow *row) { freed.push_back(row); };
    const TGantRow *childRow = gone->GetRow();
    const TGantRow *parentRow = Gant.GantRows().FindRowFromTreeNode(parent);

    Chart.Tree.RemoveDataEntity(parent);

    EXPECT_THAT(std::set<const TGantRow *>(freed.begin(), freed.end()),
                testing::UnorderedElementsAre(childRow, parentRow));
    EXPECT_EQ(Gant.GantRows().Count(), 1);
    EXPECT_EQ(Gant.GetLinks().Count(), 0);
    EXPECT_THAT(kept->Links(), IsEmpty());
}

TEST_F(GantData, TheApplicationMayMakeTheRowsOrDenyThem)
{
    class TOwnRow : public TGantRow
    {
    public:
        using TGantRow::TGantRow;
    };
    std::vector<TGantRow *> added;
    Gant.OnAfterAddGantRow = [&](TGantRowList *, TGantRow *row) { added.push_back(row); };
    bool deny = false;
    Gant.OnUserCreateGantRow = [&](TGantRowList *rows, TzuDataEntity_Tree *node,
                                   TzuDataEntity_GridTreeNode *, TGantRow *&row) {
        row = deny ? nullptr : new TOwnRow(*rows, node);
    };
    TGantRow *row = Chart.AddRow();
    EXPECT_NE(dynamic_cast<TOwnRow *>(row), nullptr);
    EXPECT_THAT(added, ElementsAre(row));
    deny = true;
    EXPECT_EQ(Chart.AddRow(), nullptr);
    EXPECT_EQ(Gant.GantRows().Count(), 1);
}

TEST_F(GantData, RowsAndItemsAreFoundByUserReference)
{
    int tag = 0;
    TzuDataEntity_Tree *first = Chart.AddNode();
    TzuDataEntity_Tree *second = Chart.AddNode();
    Chart.AddNode();
    first->SetUserReference(&tag);
    second->SetUserReference(&tag);
    TGantRow *secondRow = Gant.GantRows().FindRowFromTreeNode(second);
    EXPECT_EQ(Gant.GantRows().FindRowFromTreeNodeDataEntityUserReference(&tag), secondRow);
    EXPECT_EQ(Gant.GantRows().FindRowFromUntypedNode(second), secondRow);

    Chart.AddItem(secondRow, 0, 10, 0);
    TzuDataEntity_Spanbar *item = Chart.AddItem(secondRow, 0, 10, 1);
    EXPECT_EQ(Gant.FindSpanbarObjectFromUserReference(&tag), nullptr);
    item->SetUserReference(&tag);
    EXPECT_EQ(Gant.FindSpanbarObjectFromUserReference(&tag), item);
}

TEST_F(GantData, ADropIsHandedToTheApplicationAndRefusedWithoutAHandler)
{
    TGantRow *from = Chart.AddRow();
    TGantRow *to = Chart.AddRow();
    TzuDataEntity_Spanbar *item = Chart.AddItem(from, 0, 10);
    TzuDataEntity_Spanbar *result = item;
    EXPECT_FALSE(Gant.TimeMoveRow(*item, *from, *to, 1, 2, result));
    EXPECT_EQ(result, nullptr);
    EXPECT_FALSE(Gant.TimeCopy(*item, *from, *to, 1, 2, result));

    // The usual handler moves the item to the other row's list.
    Gant.OnTimeChangeRow = [](TzuGant_ComBasic *, TzuDataEntity_Spanbar *moved, TGantRow *,
                              TGantRow *target, TDateTime start, TDateTime stop) {
        moved->SetStartDateTime(start);
        moved->SetStopDateTime(stop);
        moved->ChangeOwner(target->Layers().GetDataList(0), 0);
    };
    EXPECT_TRUE(Gant.TimeMoveRow(*item, *from, *to, 1, 2, result));
    EXPECT_EQ(item->GetRow(), to);
    EXPECT_EQ(from->Layers().GetDataList(0)->Count(), 0);
}

TEST(GantLinks, KeepEndsAndItemsConsistentUnderRandomChanges)
{
    TestChart chart;
    std::mt19937 random(20260711);
    std::vector<TzuDataEntity_Spanbar *> items;
    const auto pick = [&random](std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
    };
    TGantRow *row = chart.AddRow();
    for (int step = 0; step < 3000; ++step) {
        TzuDataList &links = chart.Gant->GetLinks();
        const auto action = pick(8);
        if (items.size() < 5 || action == 0) {
            items.push_back(chart.AddItem(row, step, step + 10));
        } else if (action == 1) {
            const std::size_t index = pick(items.size());
            chart.Gant->RemoveSpanbar(items[index]);
            items.erase(items.begin() + static_cast<std::ptrdiff_t>(index));
        } else if (action == 2 && links.Count() > 0) {
            links.Delete(static_cast<int>(pick(static_cast<std::size_t>(links.Count()))));
        } else if (action == 3 && links.Count() > 0) {
            auto *link = static_cast<TzuDataEntity_Link *>(
                links.GetItems(static_cast<int>(pick(static_cast<std::size_t>(links.Count())))));
            link->SetSecond(action % 2 != 0 ? items[pick(items.size())] : nullptr);
        } else {
            chart.Link(items[pick(items.size())], items[pick(items.size())]);
        }
        std::multiset<std::pair<const TzuDataEntity *, const TzuDataEntity *>> fromLinks;
        std::multiset<std::pair<const TzuDataEntity *, const TzuDataEntity *>> fromItems;
        for (int i = 0; i < links.Count(); ++i) {
            const auto *link = static_cast<TzuDataEntity_Link *>(links.GetItems(i));
            for (const TzuDataEntity_Spanbar *end : {link->First(), link->Second()}) {
                if (end != nullptr) {
                    fromLinks.emplace(end, link);
                }
            }
        }
        for (const TzuDataEntity_Spanbar *item : items) {
            for (const TzuDataEntity_Link *link : item->Links()) {
                fromItems.emplace(item, link);
            }
        }
        ASSERT_EQ(fromLinks, fromItems) << "after step " << step;
    }
}

} // namespace
