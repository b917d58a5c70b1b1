// Mouse, keys, editing, dragging and the menu in a real tree.
#include "foundation/qt/zuConvert.h"
#include "tree/qt/zuTree.h"
#include "tree/qt/zuTreePopup.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPointer>
#include <QTest>

#include <functional>
#include <gtest/gtest.h>
#include <string>

namespace korvane::test {
namespace {

/// a(b c) d e, expanded, rows of 20 pixels.
class InputTree : public TzuTree
{
public:
    InputTree()
    {
        SetLoadOnDemand(false);
        SetRowHeight(20);
        SetBorderStyle(TBorderStyle::bsNone);
        resize(300, 160);
        auto *a = Add("a");
        Add("b", a);
        Add("c", a);
        Add("d");
        Add("e");
        FullExpand();
        show();
        activateWindow();
        setFocus();
        EnsureLayout();
    }
    ~InputTree() override { DestroyContent(); }

    /// What happens while a drag runs; none begins without.
    std::function<Qt::DropAction(QDrag &)> Dragging;

    TzuDataEntity_Tree *Add(std::string_view text, TzuDataEntity_Tree *parent = nullptr)
    {
        TzuDataEntity_Tree *entity = AddDataEntity(parent);
        entity->SetText(text);
        return entity;
    }
    TzuDataEntity_Tree *Row(int row) { return GetDataEntityFromRow(row); }
    std::string Rows()
    {
        std::string rows;
        for (auto *e = GetNextVisible(nullptr); e != nullptr; e = GetNextVisible(e)) {
            const std::string text = e->GetText() + (e->GetSelected() ? "*" : "");
            rows += e == GetCurrentDataEntity() ? '[' + text + ']' : text;
        }
        return rows;
    }
    static QPoint At(int row, int y = 10) { return {80, row * 20 + y}; }
    void Press(int row, Qt::KeyboardModifiers keys = {})
    {
        QTest::mousePress(viewport(), Qt::LeftButton, keys, At(row));
    }
    void Release(int row, Qt::KeyboardModifiers keys = {})
    {
        QTest::mouseRelease(viewport(), Qt::LeftButton, keys, At(row));
    }
    void Click(int row, Qt::KeyboardModifiers keys = {})
    {
        Press(row, keys);
        Release(row, keys);
    }
    void MoveTo(const QPoint &point)
    {
        QMouseEvent move(QEvent::MouseMove, QPointF(point), viewport()->mapToGlobal(QPointF(point)),
                         Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(viewport(), &move);
    }
    QPointer<QLineEdit> Editor()
    {
        for (QLineEdit *editor : viewport()->findChildren<QLineEdit *>()) {
            if (editor->isVisible()) {
                return editor;
            }
        }
        return nullptr;
    }
    /// The event as the viewport gets it; whether it was accepted.
    template <typename Event>
    bool SendDrag(const QPoint &point, const QMimeData &mime)
    {
        Event event(Place<Event>(point), Qt::MoveAction | Qt::CopyAction, &mime, Qt::LeftButton,
                    {});
        QApplication::sendEvent(viewport(), &event);
        return event.isAccepted();
    }
    QImage Picture() { return viewport()->grab().toImage(); }

protected:
    Qt::DropAction ExecDrag(QDrag &drag) override
    {
        const Qt::DropAction action = Dragging ? Dragging(drag) : Qt::IgnoreAction;
        drag.deleteLater();
        return action;
    }

private:
    template <typename Event>
    static auto Place(const QPoint &point)
    {
        if constexpr (std::is_same_v<Event, QDropEvent>) {
            return QPointF(point);
        } else {
            return point;
        }
    }
};

void Settle()
{
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
}

// --- mouse and keys ------------------------------------------------------------------------------

TEST(TreeInput, TheMouseSelectsAndTheViewFollows)
{
    InputTree tree;
    tree.SetMultiSelect(true);
    tree.Click(1);
    tree.Click(3, Qt::ShiftModifier);
    EXPECT_EQ(tree.Rows(), "ab*c*[d*]e");
    tree.Click(2, Qt::ControlModifier);
    EXPECT_EQ(tree.Rows(), "ab*[c]d*e");
    Settle();
    EXPECT_EQ(tree.selectionModel()->selectedIndexes().size(), 2);
    tree.Press(0);
    tree.MoveTo(InputTree::At(2)); // rows on the way are selected
    tree.Release(2);
    EXPECT_EQ(tree.Rows(), "a*b*[c*]de");
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, {80, 150}); // below the rows
    EXPECT_EQ(tree.Rows(), "ab[c]de");
    tree.Click(0);
    EXPECT_EQ(tree.Rows(), "[a*]bcde");
    QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {}, InputTree::At(0));
    EXPECT_FALSE(tree.Row(0)->GetExpanded());
    QTest::keyClick(&tree, Qt::Key_Home);
    QTest::keyClick(&tree, Qt::Key_Right);
    QTest::keyClick(&tree, Qt::Key_Right);
    QTest::keyClick(&tree, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(tree.Rows(), "ab*[c*]de");
    QTest::keyClick(&tree, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(tree.SelectedCount(), 5);
    Settle();
    tree.selectionModel()->clearSelection(); // an assistive program
    EXPECT_EQ(tree.SelectedCount(), 0);
}

TEST(TreeInput, TypingFindsTheNextRowThatBeginsSo)
{
    InputTree tree;
    tree.Add("Übersicht 1");
    tree.Add("übersicht 2");
    QTest::keyClick(&tree, Qt::Key_Home);
    const int interval = QApplication::keyboardInputInterval();
    QApplication::setKeyboardInputInterval(100000);
    tree.keyboardSearch("ü");
    EXPECT_EQ(tree.GetCurrentDataEntity(), tree.Row(5));
    tree.keyboardSearch("ü"); // again and again goes on
    EXPECT_EQ(tree.GetCurrentDataEntity(), tree.Row(6));
    tree.keyboardSearch("ü");
    EXPECT_EQ(tree.GetCurrentDataEntity(), tree.Row(5));
    QTest::keyClick(&tree, Qt::Key_Home);
    for (const char *letter : {"ü", "b", "e", "r", "s", "i", "c", "h", "t"}) {
        tree.keyboardSearch(QString::fromUtf8(letter));
    }
    QTest::keyClick(&tree, Qt::Key_Space); // belongs to the text
    tree.keyboardSearch("2");
    EXPECT_EQ(tree.GetCurrentDataEntity(), tree.Row(6));
    tree.keyboardSearch("x"); // nothing
    tree.keyboardSearch("");
    EXPECT_EQ(tree.GetCurrentDataEntity(), tree.Row(6));
    QApplication::setKeyboardInputInterval(interval);
}

// --- editing -------------------------------------------------------------------------------------

TEST(TreeInput, F2EditsEscapeCancelsReturnAndLeavingStore)
{
    InputTree tree;
    std::vector<std::string> values;
    tree.OnValueChanged = [&](TObject *, auto *entity) { values.push_back(entity->GetText()); };
    tree.Click(3);
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
        QTest::keyClick(&tree, Qt::Key_F2);
        ASSERT_NE(tree.Editor(), nullptr);
        EXPECT_EQ(tree.Editor()->selectedText(), "d");
        QTest::keyClicks(tree.Editor(), "new");
        QTest::keyClick(tree.Editor(), key);
        Settle();
        EXPECT_EQ(tree.Editor(), nullptr);
    }
    tree.Row(4)->EditText();
    QTest::keyClicks(tree.Editor(), "left");
    tree.Click(0);
    Settle();
    EXPECT_EQ(tree.Editor(), nullptr);
    EXPECT_EQ(values, (std::vector<std::string>{"new", "left"}));
    tree.OnEdited = [&](TObject *, auto *, std::string &, bool &allow) { allow = false; };
    QTest::keyClick(&tree, Qt::Key_F2);
    QTest::keyClicks(tree.Editor(), "vetoed");
    QTest::keyClick(tree.Editor(), Qt::Key_Return);
    Settle();
    EXPECT_EQ(tree.Row(0)->GetText(), "a");
    tree.OnBeforeEdit = [](TObject *, auto *, bool &allow) { allow = false; };
    QTest::keyClick(&tree, Qt::Key_F2);
    EXPECT_EQ(tree.Editor(), nullptr);
}

TEST(TreeInput, ATextThatIsTooLongStaysInTheEditorWithTheReason)
{
    InputTree tree;
    tree.Click(3);
    QTest::keyClick(&tree, Qt::Key_F2);
    const QPointer<QLineEdit> editor = tree.Editor();
    const QString tooLong = QString::fromUtf8("\U0001F600").repeated(256);
    editor->setText(tooLong);
    const auto *hint = tree.findChild<QLabel *>("captionHint");
    ASSERT_NE(hint, nullptr);
    EXPECT_TRUE(hint->isVisible());
    EXPECT_TRUE(hint->text().contains("256"));
    QTest::keyClick(editor, Qt::Key_Return);
    Settle();
    EXPECT_EQ(tree.Editor(), editor);
    tree.Click(0); // going elsewhere does not lose it either
    tree.SetCurrentDataEntity(tree.Row(1));
    Settle();
    ASSERT_EQ(tree.Editor(), editor);
    EXPECT_EQ(editor->text(), tooLong);
    EXPECT_EQ(tree.Row(3)->GetText(), "d");
    editor->setText(QString::fromUtf8("\U0001F600").repeated(255));
    EXPECT_FALSE(hint->isVisible());
    QTest::keyClick(editor, Qt::Key_Return);
    Settle();
    EXPECT_EQ(tree.Editor(), nullptr);
    EXPECT_EQ(CodePoints(tree.Row(3)->GetText()), 255);
}

TEST(TreeInput, ASlowSecondClickEditsAndADoubleClickDoesNot)
{
    InputTree tree;
    const int interval = QApplication::doubleClickInterval();
    QApplication::setDoubleClickInterval(0); // the wait for a double click is over at once
    tree.Click(3);
    Settle();
    EXPECT_EQ(tree.Editor(), nullptr);
    tree.Click(3); // behind the caption
    Settle();
    EXPECT_EQ(tree.Editor(), nullptr);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, {tree.indentation() + 6, 70});
    Settle();
    EXPECT_NE(tree.Editor(), nullptr);
    QApplication::setDoubleClickInterval(interval);
}

TEST(TreeInput, TheEntityMayGoWhileItIsEdited)
{
    for (const bool byHandler : {false, true}) {
        InputTree tree;
        tree.Click(3);
        QTest::keyClick(&tree, Qt::Key_F2);
        QTest::keyClicks(tree.Editor(), "x");
        if (byHandler) {
            tree.OnEdited = [&](TObject *, auto *, std::string &, bool &) { tree.Clear(); };
            QTest::keyClick(tree.Editor(), Qt::Key_Return);
        } else {
            tree.RemoveDataEntity(tree.Row(3));
        }
        Settle();
        EXPECT_EQ(tree.Editor(), nullptr);
    }
}

// --- dragging ------------------------------------------------------------------------------------

TEST(TreeInput, DraggingMovesEntitiesWithinTheTree)
{
    std::string log;
    InputTree tree;
    tree.OnStartDrag = [&](TObject *, TTreeDrag &drag) {
        log += "start " + drag.Data->text().toStdString() + '\n';
    };
    tree.OnEndDrag = [&](TObject *, TTreeDrag &drag) { log += drag.Accept ? "end" : "cancelled"; };
    tree.Dragging = [&](QDrag &drag) {
        const QMimeData &data = *drag.mimeData();
        EXPECT_TRUE(tree.SendDrag<QDragEnterEvent>(InputTree::At(3), data));
        EXPECT_FALSE(tree.SendDrag<QDragMoveEvent>(InputTree::At(3), data)); // onto itself
        EXPECT_TRUE(tree.SendDrag<QDragMoveEvent>(InputTree::At(2, 18), data));
        return tree.SendDrag<QDropEvent>(InputTree::At(1, 18), data) ? Qt::MoveAction
                                                                     : Qt::IgnoreAction;
    };
    const auto dragRow = [&](int row) {
        tree.Press(row);
        tree.MoveTo(InputTree::At(row) + QPoint(30, 0));
        QTest::mouseRelease(tree.viewport(), Qt::LeftButton, {}, InputTree::At(row));
    };
    dragRow(3);
    EXPECT_EQ(log, ""); // by hand only
    tree.SetDragMode(TzuTree::TDragMode::dmAutomatic);
    dragRow(3);
    EXPECT_EQ(log, "start d\nend");
    EXPECT_EQ(tree.Rows(), "ab[d*]ce");
    tree.OnStartDrag = [](TObject *, TTreeDrag &drag) { drag.Accept = false; };
    log.clear();
    dragRow(4);
    EXPECT_EQ(log, "");
}

TEST(TreeInput, ADragRestingOnANodeExpandsItAndNearTheEdgeItScrolls)
{
    InputTree tree;
    tree.setAutoExpandDelay(0);
    for (int i = 0; i < 40; ++i) {
        tree.Add("more");
    }
    tree.Row(0)->SetExpanded(false);
    tree.Click(3);
    tree.Dragging = [&](QDrag &drag) {
        tree.SendDrag<QDragEnterEvent>(InputTree::At(0), *drag.mimeData());
        EXPECT_TRUE(QTest::qWaitFor([&] { return tree.Row(0)->GetExpanded(); }));
        tree.SendDrag<QDragMoveEvent>(QPoint(80, 158), *drag.mimeData());
        EXPECT_TRUE(QTest::qWaitFor([&] { return tree.ScrollInfo().Position > 2; }));
        tree.RemoveDataEntity(tree.GetCurrentDataEntity()); // what is being dragged
        EXPECT_FALSE(tree.SendDrag<QDropEvent>(InputTree::At(1), *drag.mimeData()));
        return Qt::IgnoreAction;
    };
    tree.BeginDrag();
}

TEST(TreeInput, WhatComesFromElsewhereIsTheApplicationsToTake)
{
    InputTree tree;
    QMimeData data;
    data.setText("text");
    EXPECT_FALSE(tree.SendDrag<QDragEnterEvent>(InputTree::At(1), data));
    std::string dropped;
    tree.OnDragOver = [&](TObject *, TTreeDrag &drag) {
        drag.Accept = drag.Data->hasText() && drag.Drop.Target == tree.Row(1);
    };
    tree.OnDragDrop = [&](TObject *, TTreeDrag &drag) {
        dropped = drag.Data->text().toStdString() + drag.Drop.Target->GetText();
    };
    EXPECT_TRUE(tree.SendDrag<QDragEnterEvent>(InputTree::At(1), data));
    EXPECT_FALSE(tree.SendDrag<QDragMoveEvent>(InputTree::At(2), data));
    EXPECT_FALSE(tree.SendDrag<QDropEvent>(InputTree::At(2), data));
    EXPECT_TRUE(tree.SendDrag<QDragEnterEvent>(InputTree::At(1), data));
    EXPECT_TRUE(tree.SendDrag<QDropEvent>(InputTree::At(1), data));
    EXPECT_EQ(dropped, "textb");
}

// --- menu and looks ------------------------------------------------------------------------------

TEST(TreeInput, TheMenuOffersWhatIsAllowedForTheEntityUnderIt)
{
    InputTree tree;
    tree.Click(0);
    const auto open = [&](QContextMenuEvent::Reason reason, int row) {
        QContextMenuEvent event(reason, InputTree::At(row),
                                tree.viewport()->mapToGlobal(InputTree::At(row)));
        QApplication::sendEvent(tree.viewport(), &event);
        return event.isAccepted();
    };
    const auto action = [&](const QString &text) {
        for (QAction *each : tree.PopupMenu()->actions()) {
            if (each->text().remove('&') == text) {
                return each;
            }
        }
        throw std::out_of_range(text.toStdString());
    };
    EXPECT_TRUE(open(QContextMenuEvent::Mouse, 4));
    EXPECT_EQ(tree.PopupEntity(), tree.Row(4));
    EXPECT_TRUE(action("Edit")->isEnabled());
    EXPECT_FALSE(action("Delete")->isVisible());
    action("Sort")->menu()->actions().at(1)->trigger();
    EXPECT_EQ(tree.Rows(), "ed[a*]bc");
    tree.PopupMenu()->close();
    tree.SetAllowDelete(true);
    open(QContextMenuEvent::Mouse, 0);
    action("Delete")->trigger();
    EXPECT_EQ(tree.Rows(), "d[a*]bc");
    open(QContextMenuEvent::Keyboard, 0);
    EXPECT_EQ(tree.PopupEntity(), tree.Row(1));
    tree.Row(1)->SetCanEdit(false);
    tree.PopupMenu()->close();
    open(QContextMenuEvent::Keyboard, 0);
    EXPECT_FALSE(action("Edit")->isEnabled());
    action("Collapse All")->trigger();
    EXPECT_EQ(tree.Rows(), "d[a*]");
    action("Expand to Level")->menu()->actions().at(1)->trigger();
    EXPECT_EQ(tree.Rows(), "d[a*]bc");
    tree.PopupMenu()->close();
    QMenu own;
    tree.SetPopupMenu(&own);
    EXPECT_EQ(tree.PopupMenu(), &own);
    tree.SetPopupMenu(nullptr);
    EXPECT_EQ(tree.PopupMenu(), nullptr);
    EXPECT_FALSE(open(QContextMenuEvent::Mouse, 0));
}

TEST(TreeInput, TheApplicationDecidesHowARowLooks)
{
    InputTree tree;
    tree.OnCustomDrawItem = [](TObject *, auto *entity, TTreeItemLook &look) {
        if (entity->GetText() == "d") {
            look.BackColor = Rgb(1, 200, 3);
        }
    };
    const QImage picture = tree.Picture();
    EXPECT_EQ(picture.pixelColor(250, 70), QColor(1, 200, 3));
    EXPECT_NE(picture.pixelColor(250, 90), QColor(1, 200, 3));
    tree.OnCustomDrawItem = [&](TObject *, auto *, TTreeItemLook &) {
        tree.OnCustomDrawItem = nullptr;
        tree.Clear();
        tree.EnsureDisplayUpToDate();
    };
    tree.Picture(); // a handler that does away with what is drawn
    EXPECT_EQ(tree.Rows(), "");
}

TEST(TreeInput, ManyRowsInManyGroupsAreSelectedSortedAndDeselected)
{
    InputTree tree;
    tree.SetMultiSelect(true);
    for (int i = 0; i < 20000; ++i) {
        TzuDataEntity_Tree *group = tree.AddDataEntity();
        tree.AddDataEntity(group);
        group->SetExpanded(true);
    }
    tree.SelectAll();
    tree.SelectAll();
    tree.Picture();
    EXPECT_EQ(tree.SelectedCount(), 40005);
    tree.Sort({nullptr, TSortDirection::Descending, true});
    tree.EnsureLayout();
    EXPECT_EQ(tree.SelectedCount(), 40005);
    tree.Click(1);
    EXPECT_EQ(tree.SelectedCount(), 1);
}

} // namespace
} // namespace korvane::test
