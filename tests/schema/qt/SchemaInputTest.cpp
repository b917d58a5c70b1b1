#include "schema/qt/zuSchema.h"
#include "schema/qt/zuSchemaHint.h"

#include <QApplication>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>

#include <gtest/gtest.h>

namespace korvane {
namespace {

/// Two columns with a time in the second one.
struct SchemaInput : testing::Test
{
    TzuSchema Schema;
    TzuDataEntity_SchemaTime *Time = nullptr;

    SchemaInput()
    {
        Schema.resize(430, 500);
        Schema.DateScaler().SetRange(40000, 40001);
        Schema.SetResizeAllCol(false);
        Schema.AddColumn()->SetText("A");
        Schema.AddColumn()->SetText("B");
        Time = Schema.AddSchemaTime(0);
        Time->SetCol(1);
        Time->SetStartDateTime(40000.25);
        Time->SetStopDateTime(40000.5);
        Time->AddText("Talk", 2, 2, 0);
        Schema.show();
        Schema.activateWindow();
        Settle();
    }
    static void Settle()
    {
        for (int i = 0; i < 5; ++i) {
            QCoreApplication::processEvents();
        }
    }
    static void Send(QWidget &widget, QEvent::Type type, QPoint at, Qt::MouseButtons held)
    {
        QMouseEvent event(type, at, widget.mapToGlobal(at), Qt::LeftButton, held, {});
        QCoreApplication::sendEvent(&widget, &event);
    }
    static void Press(QWidget &widget, int key, Qt::KeyboardModifiers modifiers = {})
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QCoreApplication::sendEvent(&widget, &event);
        Settle();
    }
    int Size(bool flip, int column) { return Schema.Columns().GetCol(column).Saved_FW(flip); }
    TSchemaHeaderControl &HeaderOf(bool flip)
    {
        return flip ? static_cast<TSchemaHeaderControl &>(Schema.FlippedHeader()) : Schema.Header();
    }
};

TEST_F(SchemaInput, EscapeTakesTheDragOfAnEdgeBack)
{
    for (const bool flip : {false, true}) {
        Schema.SetFlipView(flip);
        Settle();
        TSchemaHeaderControl &header = HeaderOf(flip);
        const int before = Size(flip, 0);
        const int edge = Schema.ColumnToPixels_fw(flip, 0).To;
        const auto at = [flip](int along) { return flip ? QPoint(5, along) : QPoint(along, 5); };
        Send(header, QEvent::MouseButtonPress, at(edge), Qt::LeftButton);
        Send(header, QEvent::MouseMove, at(edge + 40), Qt::LeftButton);
        EXPECT_EQ(Size(flip, 0), before + 40);
        Press(header, Qt::Key_Escape);
        EXPECT_EQ(Size(flip, 0), before);
        Send(header, QEvent::MouseMove, at(edge + 60), Qt::LeftButton);
        Send(header, QEvent::MouseButtonRelease, at(edge + 60), Qt::NoButton);
        EXPECT_EQ(Size(flip, 0), before) << "the drag is over";
    }
}

TEST_F(SchemaInput, AltWithArrowsAcrossResizesTheActiveColumn)
{
    Schema.SetActiveDataEntity(Time);
    for (const bool flip : {false, true}) {
        Schema.SetFlipView(flip);
        const int before = Size(flip, 1);
        const int larger = flip ? Qt::Key_Down : Qt::Key_Right;
        const int smaller = flip ? Qt::Key_Up : Qt::Key_Left;
        Press(Schema.SchemaArea(), larger, Qt::AltModifier);
        EXPECT_EQ(Size(flip, 1), before + 8);
        Press(Schema.SchemaArea(), smaller, Qt::AltModifier | Qt::ShiftModifier);
        EXPECT_EQ(Size(flip, 1), before + 7);
        for (int i = 0; i < 20; ++i) {
            Press(Schema.SchemaArea(), smaller, Qt::AltModifier);
        }
        EXPECT_EQ(Size(flip, 1), TDataListColumns::kLeastSize);
        EXPECT_NE(Size(flip, 0), TDataListColumns::kLeastSize);
    }
}

TEST_F(SchemaInput, TheEnlargementStaysAsLongAsItsTime)
{
    TzuSchema_ComBasicHintWindow &hint = Schema.BigHint();
    const auto hover = [this] {
        const auto rect = Schema.RectFromDataEntity(*Time).value();
        Send(Schema.SchemaArea(), QEvent::MouseMove, {rect.Left + 20, rect.Top + 20}, {});
    };
    hover();
    EXPECT_FALSE(hint.isVisible()) << "it waits";
    hint.DoShowMeBig();
    ASSERT_TRUE(hint.isVisible());
    EXPECT_GT(hint.height(), 20);
    EXPECT_EQ(hint.grab().toImage().pixelColor(hint.width() / 2, hint.height() - 3),
              QColor(Qt::white))
        << "in the colour of the time";
    Send(Schema.SchemaArea(), QEvent::MouseMove, {5, 5}, {});
    EXPECT_FALSE(hint.isVisible());
    hover();
    hint.DoShowMeBig();
    Schema.RemoveSchemaTime(Time);
    EXPECT_FALSE(hint.isVisible());
    hint.DoShowMeBig();
    EXPECT_FALSE(hint.isVisible());
}

TEST_F(SchemaInput, DropsGoToTheHandlers)
{
    QMimeData data;
    data.setText("dropped");
    const auto drop = [&](QWidget &widget, QPoint at) {
        QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&widget, &enter);
        if (!enter.isAccepted()) {
            return false;
        }
        QDropEvent event(at, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&widget, &event);
        return true;
    };
    EXPECT_FALSE(drop(Schema.SchemaArea(), {10, 20})) << "nobody takes it";
    EXPECT_FALSE(drop(Schema.Header(), {130, 5}));
    std::vector<QString> dropped;
    Schema.OnSchemaDragDrop = [&](auto *, QDropEvent &event) {
        dropped.push_back(event.mimeData()->text()
                          + QString::number(event.position().toPoint().y()));
    };
    Schema.OnHeaderDragDrop = [&](auto *, int column, QDropEvent &) {
        dropped.push_back(QString::number(column));
    };
    EXPECT_TRUE(drop(Schema.SchemaArea(), {10, 20}));
    EXPECT_TRUE(drop(Schema.Header(), {130, 5}));
    EXPECT_TRUE(drop(Schema.Header(), {400, 5}));
    EXPECT_EQ(dropped, (std::vector<QString>{"dropped20", "1", "-1"}));
    Schema.OnSchemaDragOver = [](auto *, QDragMoveEvent &event) { event.ignore(); };
    EXPECT_FALSE(drop(Schema.SchemaArea(), {10, 20}));
}

} // namespace
} // namespace korvane
