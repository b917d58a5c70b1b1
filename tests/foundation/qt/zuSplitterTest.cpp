#include "foundation/qt/zuSplitter.h"

#include <QApplication>
#include <QBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>

#include <gtest/gtest.h>
#include <memory>

using namespace korvane;

namespace {

/// Neighbour, bar and rest in a row of 400 pixels; the neighbour 100.
struct Splitter : testing::Test
{
    QWidget Form;
    QBoxLayout *Row = new QBoxLayout(QBoxLayout::LeftToRight, &Form);
    QWidget *Neighbour = new QWidget;
    QWidget *Rest = new QWidget;
    TzuSplitter *Bar = nullptr;
    int Moved = 0;

    Splitter() { Build(TzuSplitter::TSide::Before); }

    void Build(TzuSplitter::TSide side)
    {
        delete Bar;
        Bar = new TzuSplitter(&Form, side);
        const bool before = side == TzuSplitter::TSide::Before;
        Row->setContentsMargins(0, 0, 0, 0);
        Row->setSpacing(0);
        Row->addWidget(before ? Neighbour : Rest);
        Row->addWidget(Bar);
        Row->addWidget(before ? Rest : Neighbour);
        Form.resize(400, 300);
        Bar->SetSize(100);
        Bar->OnMoved = [this](TzuSplitter *) { ++Moved; };
        Form.show();
        Form.activateWindow();
        QCoreApplication::processEvents();
    }

    void Mouse(QEvent::Type type, QPoint at)
    {
        const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, at, at, button, Qt::LeftButton, {});
        QCoreApplication::sendEvent(Bar, &event);
    }
    void Press() { Mouse(QEvent::MouseButtonPress, {}); }
    void MoveTo(QPoint by) { Mouse(QEvent::MouseMove, by); }
    void Release() { Mouse(QEvent::MouseButtonRelease, {}); }
    void Drag(QPoint by)
    {
        Press();
        MoveTo(by);
        Release();
    }
    void Key(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QCoreApplication::sendEvent(Bar, &event);
    }
    QWidget *Ghost()
    {
        for (QObject *child : Form.children()) {
            auto *widget = qobject_cast<QWidget *>(child);
            if (widget != nullptr && widget != Bar && widget != Rest && widget != Neighbour) {
                return widget;
            }
        }
        return nullptr;
    }
};

TEST_F(Splitter, ADragGivesWhatTheRestLosesInEveryDirectionOfTheRow)
{
    struct TCase
    {
        QBoxLayout::Direction Direction;
        TzuSplitter::TSide Side;
        Qt::LayoutDirection Reading;
        QPoint By;
    };
    using enum TzuSplitter::TSide;
    for (const TCase &each : {TCase{QBoxLayout::LeftToRight, Before, Qt::LeftToRight, {40, 9}},
                              TCase{QBoxLayout::LeftToRight, After, Qt::LeftToRight, {-40, 9}},
                              TCase{QBoxLayout::LeftToRight, Before, Qt::RightToLeft, {-40, 9}},
                              TCase{QBoxLayout::TopToBottom, Before, Qt::LeftToRight, {9, 40}},
                              TCase{QBoxLayout::TopToBottom, After, Qt::LeftToRight, {9, -40}}}) {
        for (QWidget *widget : {Neighbour, Rest}) {
            widget->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
            Row->removeWidget(widget);
        }
        Row->setDirection(each.Direction);
        Form.setLayoutDirection(each.Reading);
        Build(each.Side);
        Moved = 0;
        Drag(each.By);
        EXPECT_EQ(Bar->Size(), 140);
        EXPECT_EQ(Moved, 1);
        Form.resize(500, 500);
        EXPECT_EQ(Bar->Size(), 140) << "the rest takes what the form gains";
        Form.resize(100, 100);
        EXPECT_LE(Bar->Size(), 100 - Bar->sizeHint().width()) << "and the neighbour gives way";
        EXPECT_EQ(Form.minimumSizeHint().boundedTo({100, 100}), Form.minimumSizeHint());
    }
}

TEST_F(Splitter, StopsWhereEitherNeighbourWouldBeTooSmall)
{
    Bar->SetMinSize(60);
    Drag({-1000, 0});
    EXPECT_EQ(Bar->Size(), 60);
    Drag({1000, 0});
    EXPECT_EQ(Rest->width(), 60);
    Rest->setMinimumWidth(90);
    Drag({1000, 0});
    EXPECT_EQ(Rest->width(), 90);
    Bar->SetSize(20);
    EXPECT_EQ(Bar->Size(), 20) << "a program may go below";
    Moved = 0;
    Drag({-5, 0});
    EXPECT_EQ(Bar->Size(), 20);
    EXPECT_EQ(Moved, 0);
}

TEST_F(Splitter, TheHandlerMayChangeOrRefuseASize)
{
    Bar->OnCanResize = [](TzuSplitter *, int &size, bool &accept) {
        size -= size % 50;
        accept = size != 150;
    };
    Drag({120, 0});
    EXPECT_EQ(Bar->Size(), 200);
    Drag({-30, 0});
    EXPECT_EQ(Bar->Size(), 200) << "150 is refused";
    Bar->OnCanResize = [](TzuSplitter *, int &size, bool &) { size = 100000; };
    Drag({1, 0});
    EXPECT_EQ(Rest->width(), Bar->MinSize()) << "the limits hold for handlers, too";
    Bar->OnCanResize = [](TzuSplitter *sender, int &, bool &) { delete sender; };
    Press();
    MoveTo({-10, 0});
    Bar = nullptr;
}

TEST_F(Splitter, StylesShowADragDifferentlyAndEscapeTakesAnyOfThemBack)
{
    using T = TzuSplitter;
    for (const T::TResizeStyle style : {T::rsNone, T::rsLine, T::rsUpdate, T::rsPattern}) {
        Bar->SetResizeStyle(style);
        Moved = 0;
        Press();
        MoveTo({50, 0});
        EXPECT_EQ(Bar->Size(), style == T::rsUpdate ? 150 : 100);
        const bool outlined = style == T::rsLine || style == T::rsPattern;
        const QWidget *ghost = Ghost();
        EXPECT_EQ(ghost != nullptr, outlined);
        if (ghost != nullptr) {
            EXPECT_NEAR(ghost->geometry().center().x(), 152, 1);
        }
        Key(Qt::Key_Escape);
        EXPECT_EQ(Bar->Size(), 100);
        EXPECT_EQ(Ghost(), nullptr);
        MoveTo({80, 0});
        Release();
        EXPECT_EQ(Bar->Size(), 100) << "the drag is over";
        EXPECT_EQ(Moved, 0);
        Drag({30, 0});
        EXPECT_EQ(Bar->Size(), 130);
        EXPECT_EQ(Moved, 1);
        Bar->SetSize(100);
    }
}

TEST_F(Splitter, FollowsTheKeysAndADoubleClickReturns)
{
    Key(Qt::Key_Right);
    EXPECT_EQ(Bar->Size(), 110);
    Key(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(Bar->Size(), 109);
    Key(Qt::Key_Home);
    EXPECT_EQ(Bar->Size(), Bar->MinSize());
    Key(Qt::Key_End);
    EXPECT_EQ(Rest->width(), Bar->MinSize());
    EXPECT_EQ(Moved, 4);
    Mouse(QEvent::MouseButtonDblClick, {});
    EXPECT_EQ(Bar->Size(), 100);
    EXPECT_EQ(Moved, 5);
}

TEST(SplitterAlone, DoesNothingWithoutARow)
{
    QWidget form;
    TzuSplitter bar(&form);
    bar.SetSize(50);
    QKeyEvent end(QEvent::KeyPress, Qt::Key_End, {});
    QCoreApplication::sendEvent(&bar, &end);
    EXPECT_EQ(bar.Size(), 0);
}

} // namespace
