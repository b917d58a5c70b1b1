#include "foundation/qt/zuGraphOptions.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuImageList.h"

#include <QActionGroup>
#include <QMenu>
#include <QPainter>
#include <QPixmap>

#include <algorithm>
#include <cmath>

namespace korvane {

QActionGroup *GWidgetStuff::CreateMenuOptions(QMenu &menu, const QStringList &options, int checked)
{
    auto *group = new QActionGroup(&menu);
    for (int i = 0; i < options.size(); ++i) {
        if (options[i] == QStringLiteral("-")) {
            menu.addSeparator();
            continue;
        }
        QAction *action = menu.addAction(options[i]);
        action->setCheckable(true);
        action->setChecked(i == checked);
        action->setData(i);
        group->addAction(action);
    }
    return group;
}

int GWidgetStuff::UserOption(const QStringList &options, QPoint position, int checked)
{
    QMenu menu;
    CreateMenuOptions(menu, options, checked);
    const QAction *chosen = menu.exec(position);
    return chosen != nullptr ? chosen->data().toInt() : -1;
}

QString GWidgetStuff::UserOptionStrings(const QStringList &options, QPoint position,
                                        const QString &checked)
{
    return options.value(UserOption(options, position, static_cast<int>(options.indexOf(checked))));
}

void GWidgetStuff::PrintBitmap(TPainterCanvas &canvas, const TRect &rect, const QPixmap &bitmap)
{
    QPainter *painter = canvas.Painter();
    if (painter == nullptr || bitmap.isNull() || rect.IsEmpty()) {
        return;
    }
    QRect target(QPoint(), bitmap.size().scaled(rect.Width(), rect.Height(), Qt::KeepAspectRatio));
    target.moveCenter(ToQt(rect).center());
    const bool smooth = painter->testRenderHint(QPainter::SmoothPixmapTransform);
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawPixmap(target, bitmap);
    painter->setRenderHint(QPainter::SmoothPixmapTransform, smooth);
}

void GWidgetStuff::PrintBitmap_ImageList(TPainterCanvas &canvas, const TRect &rect,
                                         const TzuImageList &images, int index)
{
    const TSize size = images.ImageSize(index);
    if (canvas.Painter() == nullptr || size.Width <= 0 || size.Height <= 0) {
        return;
    }
    // An icon that has larger pictures than its size says gives one that is sharp on paper.
    const double enlarged =
        std::min(double(rect.Width()) / size.Width, double(rect.Height()) / size.Height)
        * std::abs(canvas.Painter()->combinedTransform().m11());
    PrintBitmap(canvas, rect, images.Pixmap(index, size, std::max(enlarged, 1.0)));
}

} // namespace korvane
