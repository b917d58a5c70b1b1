// The tree's own view: editors while everything changes, its rows, and what assistive tools see.
#include "tree/qt/zuTree.h"

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

#include <functional>
#include <gtest/gtest.h>
#include <string>

namespace korvane::test {
namespace {

void Settle()
{
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::processEvents();
    }
}

/// a(b c) d ... z, expanded, rows of 20 pixels, eight of them in view.
struct TreeView : testing::Test
{
    TzuTree Tree;

    TreeView()
    {
        Tree.SetLoadOnDemand(false);
        Tree.SetRowHeight(20);
        Tree.SetBorderStyle(TBorderStyle::bsNone);
        Tree.resize(300, 160);
        Add("a");
        Add("b", Row(0));
        Add("c", Row(0));
        for (char letter = 'd'; letter <= 'z'; ++letter) {
            Add(std::string(1, letter));
        }
        Tree.FullExpand();
        Tree.show();
        Tree.activateWindow();
        Tree.setFocus();
        Settle();
    }
    ~TreeView() override { Tree.OnSelectionChanged = nullptr; }

    TzuDataEntity_Tree *Add(const std::string &text, TzuDataEntity_Tree *parent = nullptr)
    {
        TzuDataEntity_Tree *entity = Tree.AddDataEntity(parent);
        entity->SetText(text);
        return entity;
    }
    TzuDataEntity_Tree *Row(int row) { return Tree.GetDataEntityFromRow(row); }
    QLineEdit *Editor() const
    {
        for (QLineEdit *editor : Tree.viewport()->findChildren<QLineEdit *>()) {
            if (editor->isVisible()) {
                return editor;
            }
        }
        return nullptr;
    }
};

TEST_F(TreeView, WhatIsBeingTypedSurvivesEveryChangeAroundIt)
{
    TzuDataEntity_Tree *edited = Row(4);
    const std::pair<const char *, std::function<void()>> changes[] = {
        {"many rows before it",
         [&] {
             for (int i = 0; i < 30; ++i) {
                 Tree.InsertDataEntity(*Tree.DataList(), 0)->SetText("new");
                 Tree.RemoveDataEntity(Row(2));
             }
         }},
        {"another place in its list", [&] { edited->Move(2); }},
        {"another parent",
         [&] {
             TzuDataEntity_Tree *parent = Row(0);
             parent->SetExpanded(true);
             Tree.MoveEntities({{edited}, parent, 0});
         }},
        {"another order",
         [&] {
             Tree.Sort({nullptr, TSortDirection::Descending, true});
         }},
        {"all expanded", [&] { Tree.FullExpand(); }},
        {"scrolled away and back",
         [&] {
             Tree.Scroll(10);
             Settle();
             Tree.Scroll(-10);
         }},
    };
    for (const auto &[name, change] : changes) {
        edited->EditText();
        ASSERT_NE(Editor(), nullptr) << name;
        QTest::keyClicks(Editor(), name);
        change();
        Settle();
        Tree.MakeVisible(*edited);
        Settle();
        ASSERT_NE(Editor(), nullptr) << name;
        EXPECT_EQ(Editor()->text(), name);
        const TRect row = Tree.GetRect(*edited);
        EXPECT_EQ(Editor()->y(), row.Top) << name;
        QTest::keyClick(Editor(), Qt::Key_Return);
        Settle();
        EXPECT_EQ(Editor(), nullptr) << name;
        EXPECT_EQ(edited->GetText(), name);
    }
}

TEST_F(TreeView, ACaptionWhoseNodeIsHiddenWhileItIsEditedTakesWhatWasTyped)
{
    TzuDataEntity_Tree *edited = Row(4);
    edited->EditText();
    QTest::keyClicks(Editor(), "typed");
    edited->Set_HideNode(true);
    Settle();
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_EQ(edited->GetText(), "typed");
    TzuDataEntity_Tree *untouched = Row(4);
    untouched->EditText();
    untouched->Set_HideNode(true);
    Settle();
    EXPECT_EQ(untouched->GetText(), "f");
}

TEST_F(TreeView, ButtonsExpandAndCollapseAndSoDoesADoubleClick)
{
    const auto rows = [&] { return Tree.CountVisible(); };
    const int all = rows();
    const QPoint button(Tree.indentation() / 2, 10);
    const QPoint caption(Tree.indentation() + 6, 10);
    Tree.ClearSelection();
    QTest::mouseClick(Tree.viewport(), Qt::LeftButton, {}, button);
    EXPECT_EQ(rows(), all - 2);
    EXPECT_FALSE(Row(0)->GetSelected()) << "a button does not select";
    QTest::mouseClick(Tree.viewport(), Qt::LeftButton, {}, button);
    EXPECT_EQ(rows(), all);
    QTest::mouseClick(Tree.viewport(), Qt::RightButton, {}, button);
    EXPECT_EQ(rows(), all);
    QTest::mouseDClick(Tree.viewport(), Qt::LeftButton, {}, caption);
    EXPECT_EQ(rows(), all - 2);
    EXPECT_EQ(Editor(), nullptr);
}

TEST_F(TreeView, ScrollingShowsTheSameAsDrawingAnew)
{
    Tree.viewport()->repaint();
    const auto picture = [&] { return Tree.grab().toImage(); };
    for (const int step : {1, 3, -2, 30, -40}) {
        Tree.Scroll(step);
        Settle();
        const QImage scrolled = picture();
        Tree.viewport()->update();
        Settle();
        EXPECT_EQ(scrolled, picture()) << step;
    }
}

TEST_F(TreeView, AssistiveToolsSeeRowsWithNamesPlacesAndStates)
{
    QAccessibleInterface *tree = QAccessible::queryAccessibleInterface(&Tree);
    ASSERT_NE(tree, nullptr);
    EXPECT_EQ(tree->role(), QAccessible::Tree);
    ASSERT_EQ(tree->childCount(), Tree.CountVisible());
    for (int row = 0; row < tree->childCount(); ++row) {
        QAccessibleInterface *child = tree->child(row);
        ASSERT_NE(child, nullptr);
        EXPECT_EQ(child->text(QAccessible::Name).toStdString(), Row(row)->GetText());
        EXPECT_EQ(child->parent(), tree);
        EXPECT_EQ(tree->indexOfChild(child), row);
        EXPECT_EQ(child->state().offscreen, row >= 8) << row;
        if (row < 8) {
            const QPoint middle = child->rect().center();
            EXPECT_EQ(tree->childAt(middle.x(), middle.y()), child);
        }
    }
    QAccessibleInterface *a = tree->child(0);
    EXPECT_TRUE(a->state().expandable && a->state().expanded);
    EXPECT_FALSE(tree->child(1)->state().expandable);
    QAccessibleActionInterface *actions = a->actionInterface();
    ASSERT_NE(actions, nullptr);
    actions->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_FALSE(Row(0)->GetExpanded());
    EXPECT_TRUE(a->state().collapsed);
    EXPECT_EQ(tree->child(1)->text(QAccessible::Name), "d");
    tree->child(1)->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(Tree.GetCurrentDataEntity(), Row(1));
    EXPECT_TRUE(tree->child(1)->state().selected && tree->child(1)->state().focused);
    EXPECT_EQ(tree->focusChild(), tree->child(1));
    QAccessibleInterface *last = tree->child(tree->childCount() - 1);
    Tree.Clear();
    EXPECT_FALSE(last->isValid());
    EXPECT_TRUE(last->state().invalid);
    EXPECT_EQ(tree->child(0), nullptr);
}

} // namespace
} // namespace korvane::test
