#include "foundation/qt/zuGraphStuff.h"
#include "foundation/zuDoLater.h"

#include <QApplication>
#include <QProxyStyle>
#include <QScreen>

#include <gtest/gtest.h>
#include <memory>

using namespace korvane;

namespace {

class TNoDelay : public QProxyStyle
{
public:
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *data) const override
    {
        return hint == SH_ToolTip_WakeUpDelay ? 0
                                              : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

struct GraphHint : testing::Test
{
    std::unique_ptr<QWidget> Form = std::make_unique<QWidget>();
    QWidget *Area = new QWidget(Form.get());
    TGraphHintWindow *Hint = new TGraphHintWindow(Area);
    QPoint Pointer{60, 70};

    GraphHint()
    {
        Form->setGeometry(20, 30, 300, 200);
        Area->setGeometry(10, 10, 200, 100);
        Form->show();
        Form->activateWindow();
        QCoreApplication::processEvents();
    }
};

TEST_F(GraphHint, StandsBesideThePointerAndOnItsScreen)
{
    const QRect screen = Form->screen()->availableGeometry();
    for (const QPoint at : {screen.center(), screen.topLeft(), screen.topRight(),
                            screen.bottomLeft(), screen.bottomRight()}) {
        Hint->ShowMoveInfo("Start\t08:00", "Stop\t17:00", "Length\t9 hours", at);
        ASSERT_TRUE(Hint->isVisible());
        EXPECT_TRUE(screen.contains(Hint->geometry())) << at.x() << ' ' << at.y();
        EXPECT_FALSE(Hint->geometry().contains(at));
    }
    Hint->SetPos(Pointer);
    const QPoint offset = Hint->pos() - Pointer;
    Hint->SetPos(Pointer + QPoint(5, 6));
    EXPECT_EQ(Hint->pos() - offset, Pointer + QPoint(5, 6));
    EXPECT_TRUE(Form->isActiveWindow()) << "takes no focus";
}

TEST_F(GraphHint, TakesTheSizeOfItsText)
{
    Hint->ShowMoveInfo("one", {}, {}, Pointer);
    const QSize one = Hint->size();
    Hint->ShowMoveInfo("one", "two", "three", Pointer);
    EXPECT_EQ(Hint->height() - one.height(), 2 * Hint->fontMetrics().lineSpacing());
    const int narrow = Hint->width();
    Hint->SetText("a label\tthree");
    EXPECT_GT(Hint->width(), narrow);
    Hint->SetText(QString(5000, u'w'));
    EXPECT_LE(Hint->width(), Form->screen()->availableGeometry().width());
    Hint->ShowMoveInfo({}, {}, {}, Pointer);
    EXPECT_FALSE(Hint->isVisible()) << "nothing to say";
}

TEST_F(GraphHint, IsGoneWithItsWindow)
{
    const auto expectShown = [&](bool shown, const char *when) {
        EXPECT_EQ(Hint->isVisible(), shown) << when;
        Form->show();
        Area->show();
        Form->activateWindow();
        QCoreApplication::processEvents();
        Hint->ShowDirect("text", Pointer);
    };
    expectShown(false, "before");
    expectShown(true, "active");
    {
        QWidget other;
        other.show();
        other.activateWindow();
        QCoreApplication::processEvents();
        EXPECT_FALSE(Hint->isVisible());
        Hint->ShowDirect("text", Pointer);
        expectShown(false, "another window active");
    }
    expectShown(true, "active again");
    Form->close();
    expectShown(false, "closed");
    Area->hide();
    expectShown(false, "owner hidden");
    Hint->SetShowFlag(false);
    expectShown(false, "switched off");
    EXPECT_FALSE(Hint->isVisible());
}

TEST_F(GraphHint, TheLastOfSeveralDeferredRequestsHolds)
{
    Hint->SetText("text");
    Hint->DoShowAsync();
    EXPECT_FALSE(Hint->isVisible());
    TDoLater::DoAllNow();
    EXPECT_TRUE(Hint->isVisible());
    Hint->DoHideAsync();
    Hint->DoShowAsync();
    TDoLater::DoAllNow();
    EXPECT_TRUE(Hint->isVisible());
    Hint->DoShowAsync();
    Hint->DoHideAsync();
    TDoLater::DoAllNow();
    EXPECT_FALSE(Hint->isVisible());
    Hint->DoShowAsync();
    Form.reset();
    TDoLater::DoAllNow();
}

TEST_F(GraphHint, ASlowHintAsksForItsTextOnceThePointerRests)
{
    TNoDelay style;
    Hint->setStyle(&style);
    int asked = 0;
    Hint->OnWantsNewText = [&](TGraphHintWindow *, QPoint at, QString &text) {
        ++asked;
        text = at.x() < 100 ? "left" : "";
    };
    const auto rest = [] { QCoreApplication::processEvents(); };
    const QRect item(50, 50, 40, 40);
    Hint->ShowSlowHintFor(item, Pointer);
    EXPECT_FALSE(Hint->isVisible());
    rest();
    EXPECT_TRUE(Hint->isVisible());
    EXPECT_EQ(Hint->Text(), "left");
    Hint->ShowSlowHintFor(item, Pointer + QPoint(1, 1));
    rest();
    EXPECT_EQ(asked, 1) << "the same target";
    EXPECT_TRUE(Hint->isVisible());
    Hint->ShowSlowHintFor({120, 50, 40, 40}, {130, 60});
    EXPECT_FALSE(Hint->isVisible());
    rest();
    EXPECT_EQ(asked, 2);
    EXPECT_FALSE(Hint->isVisible()) << "no text, no hint";
    Hint->ShowSlowHintFor(item, Pointer);
    Hint->ShowSlowHintFor({}, {0, 0});
    rest();
    EXPECT_EQ(asked, 2) << "left before it woke up";
    Hint->OnWantsNewText = [&](TGraphHintWindow *, QPoint, QString &) { Form.reset(); };
    Hint->ShowSlowHintFor(item, Pointer);
    rest();
    EXPECT_EQ(Form, nullptr);
}

TEST_F(GraphHint, AStaticHintStaysInItsCornerOfTheOwner)
{
    Hint->SetBoundsRect({3, 4, 150, 90});
    Hint->SetStaticPos(true);
    Hint->ShowMoveInfo("one", "two", "three", Pointer);
    EXPECT_EQ(Hint->geometry(), QRect(Area->mapToGlobal(QPoint(3, 4)), QSize(150, 90)));
    Form->move(Form->pos() + QPoint(40, 50));
    QCoreApplication::processEvents();
    EXPECT_EQ(Hint->pos(), Area->mapToGlobal(QPoint(3, 4)));
    Hint->SetBoundsRect({0, 0, 1, 1});
    EXPECT_EQ(Hint->size(), Hint->sizeHint()) << "never smaller than its text";
}

} // namespace
