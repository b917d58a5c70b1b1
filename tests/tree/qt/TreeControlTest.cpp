#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuImageList.h"
#include "foundation/zuDoLater.h"
#include "tree/qt/zuTree.h"
#include "tree/qt/zuTreeModel.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QLineEdit>
#include <QPointer>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>
#include <random>

namespace korvane::test {
namespace {

class TestTree : public TzuTree
{
public:
    TestTree()
    {
        SetLoadOnDemand(false);
        SetRowHeight(20);
        SetBorderStyle(TBorderStyle::bsNone);
        resize(200, 100); // five rows
        show();
    }
    ~TestTree() override { DestroyContent(); }

    int ScrollInfoChanges = 0;

    TzuDataEntity_Tree *Add(const std::string &text, TzuDataEntity_Tree *parent = nullptr)
    {
        TzuDataEntity_Tree *entity = AddDataEntity(parent);
        entity->SetText(text);
        return entity;
    }
    void AddRows(int count)
    {
        for (int i = 0; i < count; ++i) {
            Add(std::to_string(i));
        }
    }
    TzuDataEntity_Tree *Root(int index) { return DataList()->Entity(index); }
    /// The captions in the view's own rows, top to bottom over the whole range, "+" before those of
    /// an expanded row.
    QString Shown()
    {
        EnsureLayout();
        QStringList rows;
        for (QModelIndex index = model()->index(0, 0); index.isValid(); index = indexBelow(index)) {
            rows.append((isExpanded(index) && model()->rowCount(index) > 0 ? "+" : "")
                        + index.data().toString());
        }
        return rows.join(' ');
    }
    QString Selected()
    {
        EnsureLayout();
        QStringList captions;
        for (const QModelIndex &index : selectionModel()->selectedIndexes()) {
            captions.append(index.data().toString());
        }
        captions.sort();
        return captions.join(' ');
    }
    QModelIndex IndexOf(const TzuDataEntity_Tree *entity)
    {
        EnsureLayout();
        return static_cast<TTreeNodeModel *>(model())->IndexOf(entity->Node());
    }
    void Click(const TzuDataEntity_Tree *entity, Qt::KeyboardModifiers modifiers = {},
               Qt::MouseButton button = Qt::LeftButton)
    {
        EnsureLayout();
        QTest::mouseClick(viewport(), button, modifiers, visualRect(IndexOf(entity)).center());
    }

protected:
    void ScrollInfoChanged() override { ++ScrollInfoChanges; }
};

void Settle()
{
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
}

// --- the view follows the tree -------------------------------------------------------------------

TEST(TreeControl, TheUserExpandsAndCollapsesInTheViewAndLoadsWhatIsBelow)
{
    TestTree tree;
    tree.SetLoadOnDemand(true);
    TzuDataEntity_Tree *a = tree.Add("a");
    EXPECT_EQ(tree.Shown(), "a");
    tree.OnExpanded = [&](TObject *, TzuDataEntity_Tree *entity) {
        tree.Add("b", entity);
        tree.Add("c", entity);
    };
    tree.expand(tree.IndexOf(a));
    EXPECT_TRUE(a->GetExpanded());
    EXPECT_EQ(tree.Shown(), "+a b c");
    tree.collapse(tree.IndexOf(a));
    EXPECT_FALSE(a->GetExpanded());
    EXPECT_EQ(tree.Shown(), "a");
    tree.OnExpanded = nullptr;
    tree.SetLoadOnDemand(false);
    tree.FullExpand();
    EXPECT_EQ(tree.Shown(), "+a b c");
    tree.FullCollapse();
    EXPECT_EQ(tree.Shown(), "a");
}

TEST(TreeControl, RandomChangesKeepViewAndModelInStep)
{
    std::vector<TzuDataEntity_Tree *> all;
    TestTree tree;
    const QAbstractItemModelTester tester(tree.model(),
                                          QAbstractItemModelTester::FailureReportingMode::Warning);
    std::mt19937 random(7);
    const auto below = [&](int end) { return std::uniform_int_distribution(0, end - 1)(random); };
    tree.OnDeleteItem_Tree = [&](TObject *, TzuDataEntity_Tree *entity) {
        all.erase(std::find(all.begin(), all.end(), entity));
    };
    const auto any = [&] { return all[static_cast<std::size_t>(below(int(all.size())))]; };
    for (int step = 0; step < 500; ++step) {
        for (int change = below(step % 50 == 0 ? 30 : 3); change >= 0; --change) {
            const int what = all.empty() ? 0 : below(10);
            if (what < 4) {
                TzuDataEntity_Tree *parent = all.empty() || below(3) == 0 ? nullptr : any();
                TzuDataList_Tree *list = parent != nullptr ? parent->ChildList() : tree.DataList();
                ASSERT_NE(list, nullptr);
                all.push_back(tree.InsertDataEntity(*list, below(list->Count() + 1)));
                all.back()->SetText(std::to_string(step));
            } else if (what == 4) {
                tree.RemoveDataEntity(any());
            } else if (what < 7) {
                any()->SetExpanded(below(4) != 0);
            } else if (what == 7) {
                any()->Set_HideNode(below(2) == 0);
            } else if (what == 8) {
                any()->SetSelected(below(2) == 0);
            } else {
                TzuDataEntity_Tree *entity = any();
                auto &list = dynamic_cast<TzuDataList_Tree &>(*entity->GetDataList());
                entity->Move(below(list.Count()));
            }
        }
        if (below(3) == 0) {
            QStringList rows;
            for (auto *e = tree.GetNextVisible(nullptr); e != nullptr; e = tree.GetNextVisible(e)) {
                rows.append((e->GetExpanded() && e->Node()->ChildCount() > 0 ? "+" : "")
                            + ToQt(e->GetText()));
            }
            ASSERT_EQ(tree.Shown(), rows.join(' ')) << step;
            ASSERT_EQ(tree.verticalScrollBar()->maximum(), tree.ScrollInfo().Max) << step;
            for (const QModelIndex &index : tree.selectionModel()->selectedIndexes()) {
                auto *node = static_cast<TTreeNodeModel *>(tree.model())->NodeAt(index);
                ASSERT_TRUE(node->Data()->GetSelected()) << step;
            }
        }
    }
    tree.OnDeleteItem_Tree = nullptr;
}

// --- rows ----------------------------------------------------------------------------------------

TEST(TreeControl, RowsLieWhereTheViewDrawsThem)
{
    TestTree tree;
    tree.AddRows(30);
    tree.Add("x", tree.Root(12));
    tree.Root(12)->SetExpanded(true);
    for (const int height : {0, 17, 33}) {
        tree.SetRowHeight(height);
        for (const int top : {0, 7, 100}) {
            tree.EnsureLayout();
            tree.verticalScrollBar()->setValue(top);
            const auto rows = tree.VisibleRowEntities();
            ASSERT_FALSE(rows.empty());
            for (const TTreeRow &row : rows) {
                const QRect drawn = tree.visualRect(tree.IndexOf(row.Entity));
                EXPECT_EQ(row.Rect.Top, drawn.top());
                EXPECT_EQ(row.Rect.Height(), drawn.height());
                EXPECT_EQ(tree.GetRect(*row.Entity), row.Rect);
                EXPECT_EQ(tree.GetDataEntityAt(3, drawn.top()), row.Entity);
            }
            const int room = tree.viewport()->height();
            EXPECT_GE(rows.back().Rect.Bottom, top == 100 ? room - tree.RowHeight() + 1 : room);
        }
    }
}

TEST(TreeControl, TheTopEntityAndTheScrollInfoFollowTheBarAndTheContent)
{
    int tops = 0;
    TestTree tree;
    tree.OnTopItemChanged = [&](TObject *) { ++tops; };
    tree.AddRows(20);
    Settle();
    EXPECT_EQ(tree.ScrollInfo(), (TScrollInfo{0, 15, 5, 0}));
    EXPECT_EQ(tops, 1);
    const int changes = tree.ScrollInfoChanges;
    tree.verticalScrollBar()->setValue(4);
    EXPECT_EQ(tree.ScrollInfoChanges, changes + 1);
    EXPECT_EQ(tree.GetTopItem(), tree.Root(4));
    Settle();
    EXPECT_EQ(tops, 2);
    tree.SetTopItem(tree.Root(9));
    EXPECT_EQ(tree.verticalScrollBar()->value(), 9);
    TzuDataEntity_Tree *top = tree.GetTopItem();
    // Rows before the top come and go, few and many.
    for (const int count : {2, 40}) {
        for (int i = 0; i < count; ++i) {
            tree.InsertDataEntity(*tree.DataList(), 0);
        }
        EXPECT_EQ(tree.GetTopItem(), top);
        EXPECT_EQ(tree.GetRect(*top).Top, 0); // before the view has its layout
        Settle();
        EXPECT_EQ(tree.GetTopItem(), top);
        EXPECT_EQ(tree.verticalScrollBar()->value(), 9 + (count == 2 ? 2 : 42));
    }
    tree.Scroll(-3);
    EXPECT_EQ(tree.ScrollInfo().Position, 48);
    tree.Scroll(1000);
    EXPECT_EQ(tree.ScrollInfo().Position, tree.ScrollInfo().Max);
    tree.Clear();
    Settle();
    EXPECT_EQ(tree.ScrollInfo(), (TScrollInfo{0, 0, 5, 0}));
}

TEST(TreeControl, AHiddenTreeKnowsItsRowsWithoutALayout)
{
    TestTree tree;
    tree.hide();
    tree.AddRows(50);
    tree.SetTopItem(tree.Root(20));
    EXPECT_EQ(tree.GetTopItem(), tree.Root(20));
    EXPECT_EQ(tree.GetRect(*tree.Root(21)).Top, 20);
    tree.show();
    Settle();
    EXPECT_EQ(tree.verticalScrollBar()->value(), 20);
}

// --- current node and selection ------------------------------------------------------------------

TEST(TreeControl, ClicksAndKeysMoveTheCurrentEntityAndMarkTheSelectedOnes)
{
    std::vector<std::string> log;
    TestTree tree;
    tree.OnSelectionChanged = [&](TObject *, TzuDataList *, TzuDataEntity *entity) {
        log.push_back((entity->GetSelected() ? "+" : "-")
                      + static_cast<TzuDataEntity_Tree *>(entity)->GetText());
    };
    const QSignalSpy spy(&tree, &TzuTree::currentEntityChanged);
    tree.AddRows(4);
    tree.Click(tree.Root(1));
    EXPECT_EQ(tree.GetCurrentDataEntity(), tree.Root(1));
    QTest::keyClick(&tree, Qt::Key_Down);
    EXPECT_EQ(tree.GetCurrentDataEntity(), tree.Root(2));
    EXPECT_EQ(log, (std::vector<std::string>{"+1", "-1", "+2"}));
    EXPECT_EQ(spy.size(), 2);
    tree.Click(tree.Root(0), {}, Qt::RightButton);
    EXPECT_EQ(tree.GetCurrentDataEntity(), tree.Root(2));
    tree.SetRightClickSelect(true);
    tree.Click(tree.Root(0), {}, Qt::RightButton);
    EXPECT_EQ(tree.GetCurrentDataEntity(), tree.Root(0));
    tree.SetMultiSelect(true);
    tree.Click(tree.Root(2), Qt::ControlModifier);
    EXPECT_EQ(tree.Selected(), "0 2");
    EXPECT_TRUE(tree.Root(0)->GetSelected() && tree.Root(2)->GetSelected());
    tree.Root(0)->SetSelected(false);
    tree.Root(3)->SetSelected(true);
    EXPECT_EQ(tree.Selected(), "2 3");
}

TEST(TreeControl, SelectionAndCurrentEntitySurviveChangesButNotTheirOwnDeletion)
{
    for (const int count : {1, 50}) { // in place, and by showing all anew
        TestTree tree;
        tree.SetMultiSelect(true);
        tree.AddRows(10);
        tree.Click(tree.Root(1));
        tree.Click(tree.Root(3), Qt::ControlModifier);
        TzuDataEntity_Tree *current = tree.Root(3);
        const int position = tree.verticalScrollBar()->value();
        for (int i = 0; i < count; ++i) {
            tree.InsertDataEntity(*tree.DataList(), 2);
            tree.Add("more");
        }
        EXPECT_EQ(tree.Selected(), "1 3");
        EXPECT_EQ(tree.GetCurrentDataEntity(), current);
        EXPECT_EQ(tree.currentIndex(), tree.IndexOf(current));
        EXPECT_EQ(tree.verticalScrollBar()->value(), position);
        for (int i = 0; i < count; ++i) {
            tree.RemoveDataEntity(tree.Root(2));
        }
        tree.RemoveDataEntity(current);
        EXPECT_EQ(tree.GetCurrentDataEntity(), nullptr);
        EXPECT_EQ(tree.Selected(), "1");
        EXPECT_FALSE(tree.currentIndex().isValid());
    }
}

TEST(TreeControl, TheDeferredSelectionExpandsAndScrollsToItsEntity)
{
    TestTree tree;
    tree.AddRows(40);
    TzuDataEntity_Tree *deep = tree.Add("deep", tree.Root(30));
    tree.SetCurrentDataEntity(deep);
    TDoLater::DoAllNow();
    EXPECT_TRUE(deep->GetSelected());
    EXPECT_EQ(tree.Selected(), "deep");
    EXPECT_EQ(tree.GetRect(*deep), (TRect{0, 80, tree.viewport()->width(), 100}));
    tree.SetCurrentDataEntity(tree.Root(2));
    TDoLater::DoAllNow();
    EXPECT_EQ(tree.GetRect(*tree.Root(2)).Top, 0);
    tree.SetCurrentDataEntity(nullptr);
    TDoLater::DoAllNow();
    EXPECT_EQ(tree.Selected(), "");
    EXPECT_FALSE(tree.Root(2)->GetSelected());
}

TEST(TreeControl, AHandlerOfTheSelectionMayClearTheTree)
{
    TestTree tree;
    tree.SetMultiSelect(true);
    tree.AddRows(5);
    tree.Click(tree.Root(0));
    tree.OnSelectionChanged = [&](TObject *, TzuDataList *, TzuDataEntity *) {
        tree.OnSelectionChanged = nullptr;
        tree.Clear();
        EXPECT_EQ(tree.CountVisible(), 0);
    };
    tree.Click(tree.Root(3), Qt::ShiftModifier);
    EXPECT_EQ(tree.Shown(), "");
    EXPECT_EQ(tree.GetCurrentDataEntity(), nullptr);
}

TEST(TreeControl, AutoExpandOpensTheEntityThatBecomesCurrent)
{
    TestTree tree;
    tree.SetAutoExpand(true);
    TzuDataEntity_Tree *a = tree.Add("a");
    tree.Add("b", a);
    tree.Click(a);
    EXPECT_TRUE(a->GetExpanded());
    EXPECT_EQ(tree.Shown(), "+a b");
}

// --- editing and looks ---------------------------------------------------------------------------

TEST(TreeControl, EditingInPlaceChangesTheCaptionWhenItIsAllowed)
{
    int edits = 0;
    TestTree tree;
    tree.OnValueChanged = [&](TObject *, auto *) { ++edits; };
    TzuDataEntity_Tree *a = tree.Add("a");
    tree.EnsureLayout();
    a->SetCanEdit(false);
    a->EditText();
    EXPECT_EQ(tree.findChild<QLineEdit *>(), nullptr);
    a->SetCanEdit(true);
    for (const int length : {255, 256}) {
        a->EditText();
        QPointer<QLineEdit> editor = tree.viewport()->findChild<QLineEdit *>();
        ASSERT_NE(editor, nullptr);
        editor->setText(QString(length, u'\u00e9'));
        QTest::keyClick(editor, Qt::Key_Return);
        Settle();
        EXPECT_EQ(ToQt(a->GetText()), QString(255, u'\u00e9'));
        const QLineEdit *left = editor;
        EXPECT_EQ(left != nullptr && left->isVisible(), length == 256);
    }
    EXPECT_EQ(edits, 1);
}

TEST(TreeControl, CaptionsShowTheirFontAndImages)
{
    TestTree tree;
    tree.SetRowHeight(0);
    const int plain = tree.RowHeight();
    TzuImageList images;
    for (const auto color : {Qt::red, Qt::blue}) {
        QPixmap picture(16, 16);
        picture.fill(color);
        images.Add(picture);
    }
    images.SetSize({32, 32});
    TzuDataEntity_Tree *a = tree.Add("a");
    a->SetFontName("Serif");
    a->SetFontStyle({.Bold = true});
    a->SetImageIndex(0);
    a->SetSelectedIndex(1);
    const auto font = tree.IndexOf(a).data(Qt::FontRole).value<QFont>();
    EXPECT_EQ(font.families(), QStringList("Serif"));
    EXPECT_TRUE(font.bold());
    tree.SetImages(&images);
    EXPECT_GT(tree.RowHeight(), plain);
    const auto count = [&](QColor color) {
        const QImage image = tree.viewport()->grab().toImage();
        int found = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                found += image.pixelColor(x, y) == color ? 1 : 0;
            }
        }
        return found;
    };
    EXPECT_GE(count(Qt::red), 250);
    EXPECT_EQ(count(Qt::blue), 0);
    a->SetSelected(true);
    EXPECT_GE(count(Qt::blue), 200);
}

TEST(TreeControl, FontAndColourAreKeptAndSystemColoursFollowThePalette)
{
    TestTree tree;
    const QColor base = tree.palette().color(QPalette::Base);
    tree.SetColor(Rgb(10, 20, 30));
    EXPECT_EQ(tree.palette().color(QPalette::Base), QColor(10, 20, 30));
    tree.SetColor(clWindow);
    EXPECT_EQ(tree.palette().color(QPalette::Base), base);
    TFont font = tree.Font();
    tree.SetRowHeight(0);
    const int before = tree.RowHeight();
    font.Size *= 2;
    font.Color = clRed;
    tree.SetFont(font);
    EXPECT_EQ(tree.Font(), font);
    EXPECT_GT(tree.RowHeight(), before);
}

} // namespace
} // namespace korvane::test
