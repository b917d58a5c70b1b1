#include "foundation/qt/zuXYSizer.h"
#include "foundation/zuDoLater.h"
#include "schema/qt/zuSchema.h"

#include <QAccessible>
#include <QApplication>
#include <QMouseEvent>
#include <QWheelEvent>

#include <gmock/gmock.h>

namespace korvane {
namespace {

constexpr TColor kTimeColor = 0x3366CC;
const QColor kTimeFill(0xCC, 0x66, 0x33);
constexpr TDateTime kDay = 40000;

void Settle()
{
    for (int i = 0; i < 5; ++i) {
        QCoreApplication::processEvents();
    }
}

/// Five columns with a time each, in a window that has room for three.
struct SchemaControl : testing::Test
{
    TzuSchema Schema;
    std::vector<TzuDataEntity_SchemaTime *> Times;

    SchemaControl()
    {
        Schema.resize(430, 500);
        Schema.SetScalerStart(kDay);
        Schema.SetScalerStop(kDay + 1);
        for (int i = 0; i < 5; ++i) {
            Schema.AddColumn()->SetText("Column " + std::to_string(i));
            auto *time = Schema.AddSchemaTime(0);
            time->SetCol(i);
            time->SetStartDateTime(kDay + 0.25);
            time->SetStopDateTime(kDay + 0.5);
            time->SetColor(kTimeColor);
            Times.push_back(time);
        }
        Schema.show();
        Settle();
    }

    void Drag(QWidget &widget, QPoint from, QPoint to)
    {
        const auto send = [&](QEvent::Type type, QPoint at, Qt::MouseButtons held) {
            QMouseEvent event(type, at, widget.mapToGlobal(at), Qt::LeftButton, held, {});
            QCoreApplication::sendEvent(&widget, &event);
        };
        send(QEvent::MouseButtonPress, from, Qt::LeftButton);
        send(QEvent::MouseMove, to, Qt::LeftButton);
        send(QEvent::MouseButtonRelease, to, Qt::NoButton);
        Settle();
    }
};

TEST_F(SchemaControl, PartsMeetAtTheCornerInBothViews)
{
    for (const bool flip : {false, true}) {
        Schema.SetFlipView(flip);
        Settle();
        const QRect axis = Schema.DateScaler().geometry();
        const QRect area = Schema.SchemaArea().geometry();
        QWidget &header = flip ? static_cast<QWidget &>(Schema.FlippedHeader()) : Schema.Header();
        QWidget &other = flip ? static_cast<QWidget &>(Schema.Header()) : Schema.FlippedHeader();
        EXPECT_TRUE(header.isVisible());
        EXPECT_FALSE(other.isVisible());
        EXPECT_EQ(area.bottomRight(), Schema.rect().bottomRight());
        EXPECT_EQ(flip ? axis.left() : axis.top(), flip ? area.left() : area.top());
        EXPECT_EQ(flip ? header.y() : header.x(), flip ? area.y() : area.x());
        EXPECT_EQ(Schema.Sizer().pos(), area.topLeft() - QPoint(3, 3));
        const auto rect = Schema.RectFromDataEntity(*Times[1]);
        ASSERT_TRUE(rect);
        const QImage picture = Schema.SchemaArea().grab().toImage();
        EXPECT_EQ(
            picture.pixelColor((rect->Left + rect->Right) / 2, (rect->Top + rect->Bottom) / 2),
            kTimeFill);
    }
}

TEST_F(SchemaControl, TheSizerMovesTheCorner)
{
    Drag(Schema.Sizer(), {2, 2}, {22, 12});
    EXPECT_EQ(Schema.PartSizes().ScalerWidth, 70);
    EXPECT_EQ(Schema.Sizer().pos(), Schema.SchemaArea().pos() - QPoint(3, 3));
}

TEST_F(SchemaControl, ColumnsScrollByTheButtonsInTheCorner)
{
    EXPECT_TRUE(Schema.ColumnScroller().isVisible());
    Schema.ScrollColumns(1);
    EXPECT_EQ(Schema.Columns().TopLeftCol(), 1);
    EXPECT_EQ(Schema.RectFromDataEntity(*Times[0]), std::nullopt);
    Schema.ScrollColumns(100);
    EXPECT_EQ(Schema.Columns().TopLeftCol(), 2) << "the last three have room";
    Schema.resize(800, 500);
    Schema.ScrollColumns(-100);
    EXPECT_FALSE(Schema.ColumnScroller().isVisible());
    Schema.SetScrollVisibility(TScrollVisibility::svAlways);
    EXPECT_TRUE(Schema.ColumnScroller().isVisible());
}

TEST_F(SchemaControl, TheEdgeBetweenTwoCaptionsResizes)
{
    Schema.SetResizeAllCol(false);
    for (const bool flip : {false, true}) {
        Schema.SetFlipView(flip);
        Settle();
        TSchemaHeaderControl &header =
            flip ? static_cast<TSchemaHeaderControl &>(Schema.FlippedHeader()) : Schema.Header();
        const int edge = Schema.ColumnToPixels_fw(flip, 1).To;
        const int before = Schema.ColumnToPixels_fw(flip, 1).Length();
        const auto at = [flip](int along) { return flip ? QPoint(5, along) : QPoint(along, 5); };
        Drag(header, at(edge - 1), at(edge + 29));
        EXPECT_EQ(Schema.ColumnToPixels_fw(flip, 1).Length(), before + 30) << flip;
        EXPECT_EQ(Schema.ColumnToPixels_fw(flip, 0).Length(), before) << flip;
        EXPECT_FALSE(header.IsResizing());
    }
}

TEST_F(SchemaControl, TheMouseInTheAreaMovesTimes)
{
    const auto rect = Schema.RectFromDataEntity(*Times[1]).value();
    const QPoint middle((rect.Left + rect.Right) / 2, (rect.Top + rect.Bottom) / 2);
    const TDateTime start = Times[1]->GetStartDateTime();
    Drag(Schema.SchemaArea(), middle, middle + QPoint(0, 50));
    EXPECT_GT(Times[1]->GetStartDateTime(), start + 0.05);
    EXPECT_EQ(Times[1]->Col(), 1);
    EXPECT_TRUE(Schema.SchemaArea().hasFocus() || !Schema.isActiveWindow());
}

TEST_F(SchemaControl, TheWheelTurnsWhatRunsAlongIt)
{
    struct TCase
    {
        bool Flip;
        Qt::KeyboardModifiers Modifiers;
        bool Time;
        bool Columns;
        bool Zoom;
    };
    Schema.resize(430, 100);
    const TCase cases[]{
        {false, Qt::NoModifier, true, false, false},
        {false, Qt::ShiftModifier, false, true, false},
        {true, Qt::NoModifier, false, true, false},
        {true, Qt::ShiftModifier, true, false, false},
        {false, Qt::ControlModifier, true, false, true},
    };
    for (const TCase &test : cases) {
        Schema.SetFlipView(test.Flip);
        Schema.Columns().SetTopLeftCol(0);
        Schema.DateScaler().SetRange(kDay, kDay + 1);
        Settle();
        const QPointF at(20, 20);
        QWheelEvent event(at, Schema.SchemaArea().mapToGlobal(at), {}, {0, -120}, Qt::NoButton,
                          test.Modifiers, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&Schema.SchemaArea(), &event);
        EXPECT_EQ(Schema.ScalerStart() != kDay, test.Time) << test.Flip;
        EXPECT_EQ(Schema.ScalerStop() - Schema.ScalerStart() > 1.01, test.Zoom);
        EXPECT_EQ(Schema.Columns().TopLeftCol(), test.Columns ? 1 : 0) << test.Flip;
    }
}

TEST_F(SchemaControl, AssistiveToolsSeeColumnsAndTimes)
{
    Times[1]->AddText("Talk", 0, 0, 1);
    QAccessibleInterface *area = QAccessible::queryAccessibleInterface(&Schema.SchemaArea());
    ASSERT_NE(area, nullptr);
    ASSERT_EQ(area->childCount(), 5);
    QAccessibleInterface *column = area->child(1);
    EXPECT_EQ(column->text(QAccessible::Name), "Column 1");
    EXPECT_EQ(area->indexOfChild(column), 1);
    ASSERT_EQ(column->childCount(), 1);
    QAccessibleInterface *time = column->child(0);
    EXPECT_EQ(time->text(QAccessible::Name), "Talk");
    EXPECT_EQ(time->parent(), column);
    const QRect place = time->rect();
    EXPECT_EQ(column->childAt(place.center().x(), place.center().y()), time);
    EXPECT_FALSE(time->state().selected);
    time->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(time->state().selected);
    Schema.RemoveSchemaTime(Times[1]);
    EXPECT_FALSE(time->isValid());
    EXPECT_EQ(column->childCount(), 0);
    Schema.ClearColumns();
    EXPECT_FALSE(column->isValid());
    EXPECT_EQ(area->childCount(), 0);
}

} // namespace
} // namespace korvane
