#include "foundation/qt/zuGraphOptions.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuImageList.h"

#include <QActionGroup>
#include <QMenu>
#include <QPainter>
#include <QPixmap>

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
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawPixmap(target, bitmap);
}

void GWidgetStuff::PrintBitmap_ImageList(TPainterCanvas &canvas, const TRect &rect,
                                         const TzuImageList &images, int index)
{
    // The image in its own size; it is enlarged with the rectangle, as bitmaps are.
    PrintBitmap(canvas, rect, images.Pixmap(index, images.ImageSize(index), 1));
}

} // namespace korvane
