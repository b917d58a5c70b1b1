#include "foundation/qt/zuGraphOptions.h"
#include "foundation/qt/zuImageList.h"

#include <QActionGroup>
#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QTimer>

#include <gtest/gtest.h>

namespace korvane {
namespace {

const QStringList kOptions{QStringLiteral("Day"), QStringLiteral("Week"), QStringLiteral("-"),
                           QStringLiteral("Month")};

TEST(MenuOptions, AreCheckedAndNumberedAsTheyStandInTheList)
{
    QMenu menu;
    menu.addAction(QStringLiteral("Before"));
    const QActionGroup *group = GWidgetStuff::CreateMenuOptions(menu, kOptions, 3);
    ASSERT_EQ(menu.actions().size(), 5);
    EXPECT_TRUE(menu.actions()[3]->isSeparator());
    ASSERT_NE(group->checkedAction(), nullptr);
    EXPECT_EQ(group->checkedAction()->text(), kOptions[3]);
    EXPECT_EQ(group->checkedAction()->data(), 3);
    menu.actions()[1]->trigger();
    EXPECT_EQ(group->checkedAction()->data(), 0) << "one option at a time";
}

/// Presses keys in the menu that comes up next.
void PressInNextMenu(std::initializer_list<int> keys)
{
    QTimer::singleShot(0, [keys = std::vector(keys)] {
        for (const int key : keys) {
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
            QCoreApplication::sendEvent(QApplication::activePopupWidget(), &press);
        }
    });
}

TEST(MenuOptions, TheChosenOneIsTheAnswer)
{
    PressInNextMenu({Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return});
    EXPECT_EQ(GWidgetStuff::UserOption(kOptions, {5, 5}), 3);
    PressInNextMenu({Qt::Key_Escape});
    EXPECT_EQ(GWidgetStuff::UserOption(kOptions, {5, 5}, 1), -1);
    PressInNextMenu({Qt::Key_Down, Qt::Key_Return});
    EXPECT_EQ(GWidgetStuff::UserOptionStrings(kOptions, {5, 5}, kOptions[3]), kOptions[0]);
    PressInNextMenu({Qt::Key_Escape});
    EXPECT_EQ(GWidgetStuff::UserOptionStrings(kOptions, {5, 5}), QString());
}

/// What lies on white paper once `draw` has been there.
QImage Printed(const std::function<void(TPainterCanvas &)> &draw)
{
    QImage paper(100, 60, QImage::Format_RGB32);
    paper.fill(Qt::white);
    QPainter painter(&paper);
    TPainterCanvas canvas(painter, {0, 0, 100, 60}, QGuiApplication::palette());
    draw(canvas);
    return paper;
}

TEST(PrintBitmap, FillsTheRectangleAsFarAsItsShapeAllows)
{
    QPixmap bitmap(20, 10);
    bitmap.fill(Qt::red);
    const QImage paper = Printed([&](TPainterCanvas &canvas) {
        GWidgetStuff::PrintBitmap(canvas, {10, 10, 50, 50}, bitmap); // 40 by 20 in its middle
        GWidgetStuff::PrintBitmap(canvas, {60, 10, 60, 50}, bitmap);
        GWidgetStuff::PrintBitmap(canvas, {60, 10, 90, 50}, QPixmap());
    });
    for (int y = 0; y < paper.height(); ++y) {
        for (int x = 0; x < paper.width(); ++x) {
            const bool inside = QRect(10, 20, 40, 20).contains(x, y);
            ASSERT_EQ(QColor(paper.pixel(x, y)), QColor(inside ? Qt::red : Qt::white))
                << x << ',' << y;
        }
    }
}

TEST(PrintBitmap, IconsAreSharpOnPaper)
{
    QPixmap stripes(40, 40); // finer than the list's size can show
    stripes.fill(Qt::white);
    QPainter painter(&stripes);
    for (int x = 0; x < 40; x += 2) {
        painter.fillRect(x, 0, 1, 40, Qt::black);
    }
    painter.end();
    TzuImageList images;
    images.SetSize({10, 10});
    images.Add(QIcon(stripes));
    const QImage paper = Printed([&](TPainterCanvas &canvas) {
        GWidgetStuff::PrintBitmap_ImageList(canvas, {20, 10, 60, 50}, images, 0);
        GWidgetStuff::PrintBitmap_ImageList(canvas, {60, 10, 100, 50}, images, 1);
    });
    for (int x = 0; x < paper.width(); ++x) {
        const bool black = x >= 20 && x < 60 && x % 2 == 0;
        ASSERT_EQ(QColor(paper.pixel(x, 30)), QColor(black ? Qt::black : Qt::white)) << x;
    }
}

} // namespace
} // namespace korvane
