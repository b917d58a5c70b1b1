#include "foundation/qt/zuXYSizer.h"
#include "foundation/zuDoLater.h"
#include "schema/qt/zuSchema.h"

#include <QApplication>
#include <QMouseEvent>

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

} // namespace
} // namespace korvane
