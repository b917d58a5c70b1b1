#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuGraphStuff.h"
#include "foundation/zuReport.h"
#include "gantt/qt/zuGant.h"

#include <QApplication>
#include <QDrag>
#include <QDragMoveEvent>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>

#include <gmock/gmock.h>
#include <memory>

using namespace korvane;

namespace {

void Settle()
{
    for (int i = 0; i < 5; ++i) {
        QCoreApplication::processEvents();
    }
}

/// A chart of 40 rows with an item on each, and a mouse over its area.
struct GantGestureControl : testing::Test
{
    std::unique_ptr<TzuGant> Owner = std::make_unique<TzuGant>();
    TzuGant &Chart = *Owner;
    TzuOffscreenPaint &Area = Chart.GantArea();
    std::vector<TzuDataEntity_Spanbar *> Items;

    GantGestureControl()
    {
        Chart.resize(900, 400);
        Chart.SetTreeWidth(200);
        Chart.SetStart(40000);
        Chart.SetStop(40030);
        for (int i = 0; i < 40; ++i) {
            TzuDataEntity_Tree *node = Chart.AddRootDataEntityTree("Row " + std::to_string(i));
            TzuDataEntity_Spanbar *item = Chart.AddSpanbar(node, 0);
            item->SetStartDateTime(40005 + i % 5);
            item->SetStopDateTime(40010 + i % 5);
            item->SetColor(Rgb(90, 140, 200));
            item->SetInsetTop(2);
            item->SetInsetBottom(2);
            Items.push_back(item);
        }
        Chart.show();
        Chart.activateWindow();
        Settle();
    }

    void Mouse(QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::MouseButtons buttons,
               Qt::KeyboardModifiers modifiers = {})
    {
        QMouseEvent event(type, at, Area.mapToGlobal(at), button, buttons, modifiers);
        QCoreApplication::sendEvent(&Area, &event);
    }
    void Press(QPoint at, Qt::KeyboardModifiers modifiers = {})
    {
        Mouse(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton, modifiers);
    }
    void Move(QPoint at, Qt::MouseButtons buttons = Qt::LeftButton)
    {
        Mouse(QEvent::MouseMove, at, Qt::NoButton, buttons);
    }
    void Release(QPoint at) { Mouse(QEvent::MouseButtonRelease, at, Qt::LeftButton, {}); }
    void Turn(QPoint delta, Qt::KeyboardModifiers modifiers, QPoint at)
    {
        QWheelEvent event(at, Area.mapToGlobal(at), {}, delta, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&Area, &event);
        Settle();
    }
    QRect RectOf(int index) const
    {
        const TzuDataEntity_Spanbar &item = *Items[static_cast<std::size_t>(index)];
        return ToQt(item.GetRow()->RectFromDataEntity(item).value());
    }
};

TEST_F(GantGestureControl, AMoveIsShownAboveTheAreaAndDroppedOnce)
{
    int changes = 0;
    Chart.OnChangeDataEntity_Spanbar = [&](auto...) { ++changes; };
    const QRect rect = RectOf(2);
    const QPoint middle = rect.center();
    const QImage before = Area.grab().toImage();
    Press(middle);
    EXPECT_TRUE(Area.hasFocus());
    Move(middle + QPoint(60, 1));
    EXPECT_EQ(Area.cursor().shape(), Qt::ClosedHandCursor);
    EXPECT_TRUE(Chart.HintWindow().isVisible());
    EXPECT_TRUE(Chart.HintWindow().Text().contains("Length"))
        << Chart.HintWindow().Text().toStdString();
    Settle();
    const QImage shown = Area.grab().toImage();
    int x = rect.right() + 55;
    while (x < rect.right() + 65 && shown.pixelColor(x, middle.y()) != QColor(0x20, 0x20, 0x20)) {
        ++x;
    }
    EXPECT_LT(x, rect.right() + 65) << "the outline's right edge";
    EXPECT_NE(before, shown);
    EXPECT_EQ(changes, 0);
    Release(middle + QPoint(60, 1));
    Settle();
    EXPECT_EQ(changes, 1);
    EXPECT_FALSE(Chart.HintWindow().isVisible());
    EXPECT_NEAR(RectOf(2).left(), rect.left() + 60, 2);
    EXPECT_EQ(Area.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(GantGestureControl, GesturesEndWhenTheMouseIsTakenAway)
{
    const QPoint middle = RectOf(2).center();
    const std::pair<const char *, std::function<void()>> ways[] = {
        {"escape",
         [&] {
             QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, {});
             QCoreApplication::sendEvent(&Area, &escape);
             EXPECT_TRUE(escape.isAccepted());
         }},
        {"a move without its button", [&] { Move(middle + QPoint(90, 0), Qt::NoButton); }},
        {"deactivation",
         [&] {
             QEvent deactivate(QEvent::WindowDeactivate);
             QCoreApplication::sendEvent(&Area, &deactivate);
         }},
        {"a menu",
         [&] {
             QFocusEvent popup(QEvent::FocusOut, Qt::PopupFocusReason);
             QCoreApplication::sendEvent(&Area, &popup);
         }},
        {"disabling",
         [&] {
             Area.setEnabled(false);
             Area.setEnabled(true);
         }},
        {"hiding",
         [&] {
             Chart.hide();
             Chart.show();
         }},
    };
    for (const auto &[what, end] : ways) {
        const TDateTime start = Items[2]->GetStartDateTime();
        Press(middle);
        Move(middle + QPoint(60, 0));
        ASSERT_TRUE(Chart.GestureRunning()) << what;
        end();
        EXPECT_FALSE(Chart.GestureRunning()) << what;
        EXPECT_FALSE(Chart.HintWindow().isVisible()) << what;
        Release(middle + QPoint(60, 0));
        EXPECT_EQ(Items[2]->GetStartDateTime(), start) << what;
    }
}

TEST_F(GantGestureControl, PointersTellWhatAPressWouldDo)
{
    const QRect rect = RectOf(2);
    const auto shapeAt = [&](QPoint at) {
        Move(at, Qt::NoButton);
        return Area.cursor().shape();
    };
    EXPECT_EQ(shapeAt(rect.center()), Qt::ArrowCursor);
    EXPECT_EQ(shapeAt({rect.left() + 1, rect.center().y()}), Qt::SizeHorCursor);
    EXPECT_EQ(shapeAt({rect.right(), rect.center().y()}), Qt::SizeHorCursor);
    EXPECT_EQ(shapeAt({rect.right() + 1, rect.center().y()}), Qt::ArrowCursor);
    Chart.SetStickyMode(TGantStickyMode::smDependency);
    EXPECT_EQ(shapeAt(rect.center()), Qt::CrossCursor);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&Area, &leave);
    EXPECT_EQ(Area.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(GantGestureControl, ADropAfterScrollingPastTheBottomHitsTheRowUnderTheMouse)
{
    TGantRow *target = nullptr;
    Chart.OnTimeChangeRow = [&](TzuGant_ComBasic *, TzuDataEntity_Spanbar *, TGantRow *,
                                TGantRow *newRow, TDateTime, TDateTime) { target = newRow; };
    const QPoint middle = RectOf(2).center();
    Press(middle);
    Move({middle.x(), Area.height() + 300});
    for (int i = 0; i < 3; ++i) {
        Chart.GestureTick();
        Settle();
    }
    ASSERT_GT(Chart.VertScrollBar().value(), 3);
    const QPoint drop(middle.x(), RectOf(Chart.VertScrollBar().value() + 4).center().y());
    Move(drop);
    Release(drop);
    ASSERT_NE(target, nullptr);
    EXPECT_EQ(target, Items[static_cast<std::size_t>(Chart.VertScrollBar().value() + 4)]->GetRow());
}

TEST_F(GantGestureControl, WheelWithCtrlZoomsAboutThePointerAndSidewaysPans)
{
    const TDateTime at = Chart.DateScaler().PixelToDate(300);
    const double scale = Chart.Scale();
    Turn({0, 240}, Qt::ControlModifier, {300, 50});
    EXPECT_LT(Chart.Scale(), scale * 0.9);
    EXPECT_NEAR(Chart.DateScaler().PixelToDate(300), at, 2 * scale);
    Turn({0, -240}, Qt::ControlModifier, {300, 50});
    EXPECT_NEAR(Chart.Scale(), scale, scale * 1e-6);
    const TDateTime start = Chart.Start();
    Turn({0, -120}, Qt::ShiftModifier, {300, 50});
    EXPECT_GT(Chart.Start(), start);
    Turn({120, 0}, {}, {300, 50});
    EXPECT_NEAR(Chart.Start(), start, 2 * scale);
    EXPECT_EQ(Chart.VertScrollBar().value(), 0);
}

TEST_F(GantGestureControl, ItemsDraggedOutCarryTextAndJson)
{
    Chart.SetStartDragWhenTimeMoveOutside(true);
    Items[2]->Texts().AddText("Gr\xc3\xbc\xc3\x9f\x65 \"x\"", 0, 0, 1);
    QJsonArray json;
    QString text;
    Chart.OnGantAreaStartDrag = [&](TzuGant_ComBasic *gant, QDrag &drag) {
        EXPECT_EQ(gant, &Chart);
        text = drag.mimeData()->text();
        json = QJsonDocument::fromJson(drag.mimeData()->data("application/x-korvane-timeitems"))
                   .array();
        drag.setMimeData(nullptr); // no window system carries it here
    };
    const QPoint middle = RectOf(2).center();
    Press(middle);
    Move({middle.x(), 1000});
    EXPECT_TRUE(json.isEmpty()) << "not within the mouse event";
    Settle();
    ASSERT_EQ(json.size(), 1);
    EXPECT_EQ(json[0].toObject()["caption"].toString(),
              QString::fromUtf8("Gr\xc3\xbc\xc3\x9f\x65 \"x\""));
    EXPECT_EQ(json[0].toObject()["start"].toString(), "2009-07-13T00:00:00.000");
    EXPECT_TRUE(text.startsWith(json[0].toObject()["caption"].toString() + '\t'));
}

TEST_F(GantGestureControl, TheEndOfADragOutIsToldWithWhatBecameOfIt)
{
    Chart.SetStartDragWhenTimeMoveOutside(true);
    Chart.OnGantAreaStartDrag = [&](auto *, QDrag &) {
        QTimer::singleShot(0, &Area, [this] {
            QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, {});
            QCoreApplication::sendEvent(Chart.windowHandle(), &escape);
        });
    };
    std::vector<Qt::DropAction> ends;
    Chart.OnGantAreaEndDrag = [&](TzuGant_ComBasic *, Qt::DropAction action) {
        ends.push_back(action);
    };
    const QPoint middle = RectOf(2).center();
    Press(middle);
    Move({middle.x(), 1000});
    Settle();
    EXPECT_THAT(ends, testing::ElementsAre(Qt::IgnoreAction));
}

TEST_F(GantGestureControl, TheApplicationDecidesAboutForeignDrags)
{
    QMimeData data;
    data.setText("task");
    const auto offer = [&] {
        QDragEnterEvent event({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, {});
        event.ignore();
        QCoreApplication::sendEvent(&Area, &event);
        return event.isAccepted();
    };
    EXPECT_FALSE(offer());
    QString dropped;
    Chart.OnGantAreaDragDrop = [&](TzuGant_ComBasic *, QDropEvent &event) {
        dropped = event.mimeData()->text();
    };
    EXPECT_TRUE(offer());
    QDropEvent drop({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&Area, &drop);
    EXPECT_EQ(dropped, "task");
    Chart.OnGantAreaDragOver = [](TzuGant_ComBasic *, QDragMoveEvent &event) { event.ignore(); };
    EXPECT_FALSE(offer());
}

TEST_F(GantGestureControl, WhatHandlersThrowIsReportedAndTheGestureIsOver)
{
    std::string told;
    const TReportHook hook = SetReportHook([&](std::string_view text) { told = text; });
    Chart.OnChangeDataEntity_Spanbar = [](auto...) { throw std::runtime_error("not today"); };
    const QPoint middle = RectOf(2).center();
    Press(middle);
    Move(middle + QPoint(60, 0));
    Release(middle + QPoint(60, 0));
    SetReportHook(hook);
    EXPECT_EQ(told, "not today");
    EXPECT_FALSE(Chart.MouseIsDown());
}

TEST_F(GantGestureControl, AChartThatItsClickDestroysIsTouchedNoMore)
{
    Chart.OnRightClickGantArea = [this](auto...) { Owner.reset(); };
    const QPoint middle = RectOf(2).center();
    Mouse(QEvent::MouseButtonPress, middle, Qt::RightButton, Qt::RightButton);
    EXPECT_EQ(Owner, nullptr);
}

} // namespace
