#include "gantt/qt/zuGant.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>

#include <gtest/gtest.h>
#include <memory>

using namespace korvane;

namespace {

void Settle()
{
    for (int i = 0; i < 5; ++i) {
        QCoreApplication::processEvents();
    }
}

QString NameOf(QAccessibleInterface *part)
{
    return part != nullptr ? part->text(QAccessible::Name) : QStringLiteral("none");
}

/// Three rows of two items; the middle row is the parent of the last. A link joins the first row's.
struct GantAccessible : testing::Test
{
    std::unique_ptr<TzuGant> Chart = std::make_unique<TzuGant>();
    std::vector<TzuDataEntity_Tree *> Nodes;
    std::vector<TzuDataEntity_Spanbar *> Items;

    GantAccessible()
    {
        Chart->resize(900, 300);
        Nodes.push_back(Chart->AddRootDataEntityTree("First"));
        Nodes.push_back(Chart->AddRootDataEntityTree("Second"));
        Nodes.push_back(Chart->AddDataEntityTree(Nodes[1], "Third"));
        Nodes[1]->SetExpanded(true);
        for (TzuDataEntity_Tree *node : Nodes) {
            for (int i = 0; i < 2; ++i) {
                TzuDataEntity_Spanbar *item = Chart->AddSpanbar(node, i);
                item->SetStartDateTime(40000 + 5 * i);
                item->SetStopDateTime(40002 + 5 * i);
                item->Texts().AddText(node->GetText() + (i == 0 ? " a" : " b"), 0, 0, 1);
                Items.push_back(item);
            }
        }
        Chart->SetStart(39990);
        Chart->SetStop(40020);
        TzuDataEntity_Link &link = Chart->AddLink();
        link.SetFirst(Items[0]);
        link.SetSecond(Items[1]);
        Chart->show();
        Settle();
        Chart->GantArea().grab();
    }

    QAccessibleInterface *Area()
    {
        return QAccessible::queryAccessibleInterface(&Chart->GantArea());
    }
    QAccessibleInterface *Item(int row, int index) { return Area()->child(row)->child(index); }
};

TEST_F(GantAccessible, AClientWalksRowsAndItems)
{
    ASSERT_NE(Area(), nullptr);
    EXPECT_EQ(Area()->role(), QAccessible::Chart);
    ASSERT_EQ(Area()->childCount(), 3);
    for (int row = 0; row < 3; ++row) {
        QAccessibleInterface *line = Area()->child(row);
        ASSERT_NE(line, nullptr);
        EXPECT_EQ(line->parent(), Area());
        EXPECT_EQ(Area()->indexOfChild(line), row);
        EXPECT_EQ(NameOf(line).toStdString(), Nodes[row]->GetText());
        ASSERT_EQ(line->childCount(), 2);
        for (int i = 0; i < 2; ++i) {
            QAccessibleInterface *item = line->child(i);
            EXPECT_EQ(item, line->child(i)) << "made once";
            EXPECT_EQ(item->parent(), line);
            EXPECT_EQ(line->indexOfChild(item), i);
            EXPECT_TRUE(line->rect().contains(item->rect()));
            const QPoint middle = item->rect().center();
            EXPECT_EQ(Area()->childAt(middle.x(), middle.y()), line);
            EXPECT_EQ(line->childAt(middle.x(), middle.y()), item);
        }
        EXPECT_EQ(line->child(2), nullptr);
        EXPECT_EQ(line->child(-1), nullptr);
    }
    EXPECT_EQ(Area()->child(3), nullptr);
    EXPECT_EQ(NameOf(Item(0, 1)), QStringLiteral("First b"));
    EXPECT_EQ(Item(0, 0)->text(QAccessible::Description), QStringLiteral("Before First b"));
    EXPECT_EQ(Item(0, 1)->text(QAccessible::Description), QStringLiteral("After First a"));
    EXPECT_FALSE(Item(0, 0)->text(QAccessible::Value).isEmpty());

    Nodes[1]->SetExpanded(false);
    Settle();
    EXPECT_EQ(Area()->childCount(), 2);
    Items[0]->SetVisible(false);
    EXPECT_TRUE(Item(0, 0)->state().invisible);
}

TEST_F(GantAccessible, FocusAndSelectionAreReportedAndCanBeSet)
{
    QAccessibleInterface *item = Item(1, 0);
    EXPECT_TRUE(item->state().selectable);
    EXPECT_FALSE(item->state().selected || item->state().focused || item->state().readOnly);
    EXPECT_EQ(Area()->focusChild(), nullptr);

    Chart->activateWindow();
    auto *actions = item->actionInterface();
    ASSERT_NE(actions, nullptr);
    actions->doAction(QAccessibleActionInterface::setFocusAction());
    Settle();
    EXPECT_EQ(Chart->ActiveDataEntity(), Items[2]);
    EXPECT_EQ(Area()->focusChild(), item);
    EXPECT_TRUE(item->state().focused);
    actions->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(Items[2]->GetSelected() && item->state().selected);

    TzuDataEntity_Spanbar *edited = nullptr;
    Chart->OnEditDataEntity_Spanbar = [&](auto, TzuDataEntity_Spanbar *asked) { edited = asked; };
    actions->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(edited, Items[2]);
}

TEST_F(GantAccessible, WhatAClientHoldsTurnsInvalidWithTheItemTheRowAndTheChart)
{
    QAccessibleInterface *gone = Item(0, 0);
    QAccessibleInterface *kept = Item(0, 1);
    QAccessibleInterface *row = Area()->child(1);
    QAccessibleInterface *below = Item(1, 0);
    Chart->RemoveSpanbar(Items[0]);
    EXPECT_FALSE(gone->isValid());
    EXPECT_TRUE(kept->isValid());
    EXPECT_EQ(NameOf(gone), QString());
    EXPECT_TRUE(gone->rect().isEmpty());
    EXPECT_EQ(gone->parent(), nullptr);
    gone->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());

    Chart->Tree().RemoveDataEntity(Nodes[1]);
    EXPECT_FALSE(row->isValid() || below->isValid());
    EXPECT_EQ(row->childCount(), 0);
    EXPECT_EQ(Area()->indexOfChild(row), -1);
    Settle();
    EXPECT_EQ(Area()->childCount(), 1);
    EXPECT_EQ(NameOf(Item(0, 0)), QStringLiteral("First b"));
    Chart.reset();
    Settle();
}

TEST_F(GantAccessible, KeysReachTheChartAndOtherKeysGoOn)
{
    struct TCase
    {
        int Key;
        Qt::KeyboardModifiers Modifiers;
        bool Used;
    };
    const TCase cases[] = {
        {Qt::Key_Right, {}, true},
        {Qt::Key_A, Qt::ControlModifier, true},
        {Qt::Key_A, {}, false},
        {Qt::Key_Escape, {}, true},
        {Qt::Key_Escape, {}, false},
        {Qt::Key_F5, {}, false},
        {Qt::Key_Up, Qt::AltModifier, false},
    };
    for (const TCase &c : cases) {
        SCOPED_TRACE(&c - cases);
        QKeyEvent event(QEvent::KeyPress, c.Key, c.Modifiers);
        QCoreApplication::sendEvent(&Chart->GantArea(), &event);
        EXPECT_EQ(event.isAccepted(), c.Used);
    }
    EXPECT_NE(Chart->ActiveDataEntity(), nullptr);
}

} // namespace
