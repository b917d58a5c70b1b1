#include "foundation/qt/zuXYSizer.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <gmock/gmock.h>
#include <vector>

namespace korvane {

// Printed by tests.
static void PrintTo(TPoint point, std::ostream *out)
{
    *out << '(' << point.X << ',' << point.Y << ')';
}

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A handle at (100, 80) in a parent of 300 by 200 pixels.
struct XYSizer : testing::Test
{
    QWidget Parent;
    TXYSizer Sizer{&Parent};
    std::vector<TPoint> Resizes;

    XYSizer()
    {
        Parent.resize(300, 200);
        Sizer.move(100, 80);
        Sizer.OnResize = [this](TXYSizer *, TPoint delta) { Resizes.push_back(delta); };
        Parent.show();
    }

    /// A mouse event at a place of the parent.
    void Send(QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::MouseButtons held)
    {
        QMouseEvent event(type, Sizer.mapFrom(&Parent, at), Parent.mapToGlobal(at), button, held,
                          {});
        QCoreApplication::sendEvent(&Sizer, &event);
    }
    void Press(QPoint at, Qt::MouseButton button = Qt::LeftButton)
    {
        Send(QEvent::MouseButtonPress, at, button, button);
    }
    void MoveTo(QPoint at) { Send(QEvent::MouseMove, at, Qt::NoButton, Qt::LeftButton); }
    void Release(QPoint at, Qt::MouseButton button = Qt::LeftButton)
    {
        Send(QEvent::MouseButtonRelease, at, button, Qt::NoButton);
    }
    std::vector<QRect> Guides()
    {
        std::vector<QRect> guides;
        for (const auto *child : Parent.findChildren<QFrame *>(Qt::FindDirectChildrenOnly)) {
            if (child != &Sizer && child->isVisible()) {
                guides.push_back(child->geometry());
            }
        }
        return guides;
    }
};

TEST_F(XYSizer, FollowsTheMouseUnderGuidesAndTellsTheWholeDeltaOnce)
{
    EXPECT_EQ(Sizer.size(), QSize(5, 5));
    Press({102, 83});
    EXPECT_THAT(Guides(), IsEmpty());
    MoveTo({120, 90});
    MoveTo({140, 70});
    EXPECT_EQ(Sizer.pos(), QPoint(138, 67));
    EXPECT_THAT(Guides(), ElementsAre(QRect(5, 70, 290, 2), QRect(140, 5, 2, 190)));
    Release({140, 70});
    EXPECT_THAT(Guides(), IsEmpty());
    EXPECT_THAT(Resizes, ElementsAre(TPoint{38, -13}));
}

TEST_F(XYSizer, StaysWithinTheMargins)
{
    Sizer.SetRightMargin(50);
    Press({100, 80});
    MoveTo({249, 194});
    MoveTo({250, 100});
    MoveTo({100, 195});
    MoveTo({4, 100});
    EXPECT_EQ(Sizer.pos(), QPoint(249, 194));
    Release({4, 100});
    EXPECT_THAT(Resizes, ElementsAre(TPoint{149, 114}));
}

TEST_F(XYSizer, OnlyADragWithTheLeftButtonCounts)
{
    Press({100, 80});
    Release({100, 80});
    EXPECT_THAT(Resizes, ElementsAre(TPoint{0, 0}));
    Press({100, 80}, Qt::RightButton);
    MoveTo({150, 90});
    Release({150, 90}, Qt::RightButton);
    EXPECT_EQ(Resizes.size(), 1U);
    EXPECT_EQ(Sizer.pos(), QPoint(100, 80));
}

TEST_F(XYSizer, EscapeAndHidingTakeADragBack)
{
    const auto escape = [this] {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Escape, {});
        QCoreApplication::sendEvent(&Sizer, &key);
    };
    for (const bool byKey : {true, false}) {
        Press({100, 80});
        MoveTo({150, 90});
        byKey ? escape() : Sizer.hide();
        EXPECT_EQ(Sizer.pos(), QPoint(100, 80));
        EXPECT_THAT(Guides(), IsEmpty());
        Release({150, 90});
    }
    EXPECT_THAT(Resizes, IsEmpty());
}

TEST_F(XYSizer, MayBeDestroyedByItsHandler)
{
    auto *sizer = new TXYSizer(&Parent);
    sizer->OnResize = [](TXYSizer *sender, TPoint) { delete sender; };
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(1, 1), sizer->mapToGlobal(QPointF(1, 1)),
                      Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(sizer, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, QPointF(1, 1), QPointF(1, 1), Qt::LeftButton,
                        Qt::NoButton, {});
    QCoreApplication::sendEvent(sizer, &release);
    EXPECT_EQ(Parent.findChildren<TXYSizer *>(), QList<TXYSizer *>{&Sizer});
}

} // namespace
} // namespace korvane
