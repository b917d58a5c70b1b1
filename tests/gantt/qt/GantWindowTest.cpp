// The chart in a window: the way of the focus, and fingers.
#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuSplitter.h"
#include "gantt/qt/zuGant.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QNativeGestureEvent>
#include <QTabBar>
#include <QTest>

#include <gtest/gtest.h>
#include <memory>

using namespace korvane;

namespace {

/// A chart with one item.
struct GantWindow : testing::Test
{
    QWidget Window;
    TzuGant *Chart = new TzuGant(&Window);
    TzuOffscreenPaint &Area = Chart->GantArea();
    TzuDataEntity_Spanbar *Item = nullptr;

    GantWindow()
    {
        auto *layout = new QHBoxLayout(&Window);
        layout->addWidget(Chart);
        Window.resize(900, 300);
        Chart->SetStart(40000);
        Chart->SetStop(40030);
        Item = Chart->AddSpanbar(Chart->AddRootDataEntityTree("Foundations"), 0);
        Item->SetStartDateTime(40005);
        Item->SetStopDateTime(40010);
        Window.show();
        Window.activateWindow();
        Settle();
    }

    static void Settle()
    {
        for (int i = 0; i < 5; ++i) {
            QCoreApplication::processEvents();
        }
    }
    QPoint Middle() const
    {
        return ToQt(Item->GetRow()->RectFromDataEntity(*Item).value()).center();
    }
};

TEST_F(GantWindow, TheTreeHasTheFirstFocusAndTabGoesOnToTheSplitterLast)
{
    const QList<QWidget *> order{&Chart->Tree(), &Area, &Chart->DateScaler(), &Chart->Splitter(),
                                 &Chart->Tree()};
    for (QWidget *expected : order) {
        EXPECT_EQ(QApplication::focusWidget(), expected);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    Chart->SetTabSheetsONOFF(true);
    Chart->DateScaler().setFocus();
    QTest::keyClick(&Chart->DateScaler(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &Chart->PageControl().Tabs());
    Chart->setFocus();
    EXPECT_TRUE(Area.hasFocus());
}

TEST_F(GantWindow, TwoFingersZoomAboutThePlaceBetweenThem)
{
    const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    const auto touch = [&] { return QTest::touchEvent(&Area, screen.get()); };
    const TDateTime between = Chart->DateScaler().PixelToDate(350);
    const double scale = Chart->Scale();
    touch().press(0, Middle(), &Area);
    touch().move(0, {300, 50}, &Area).press(1, {400, 50}, &Area);
    for (int spread = 10; spread <= 100; spread += 10) {
        touch().move(0, {300 - spread, 50}, &Area).move(1, {400 + spread, 50}, &Area);
    }
    EXPECT_FALSE(Chart->MouseIsDown()) << "the first finger drags no longer";
    touch().release(0, {200, 50}, &Area).release(1, {500, 50}, &Area);
    EXPECT_NEAR(Chart->Scale(), scale / 3, scale * 1e-6) << "from 100 to 300 pixels apart";
    EXPECT_NEAR(Chart->DateScaler().DateToPixel(between), 350, 3);
    EXPECT_EQ(Item->GetStartDateTime(), 40005);

    QNativeGestureEvent touchpad(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(), 2,
                                 QPointF(350, 50), QPointF(350, 50),
                                 Area.mapToGlobal(QPointF(350, 50)), 0.25, {});
    QCoreApplication::sendEvent(&Area, &touchpad);
    EXPECT_NEAR(Chart->Scale(), scale / 3 / 1.25, scale * 1e-6);
    EXPECT_NEAR(Chart->DateScaler().DateToPixel(between), 350, 3);
}

} // namespace
