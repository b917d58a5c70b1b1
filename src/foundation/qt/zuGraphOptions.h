// Menus of options, and bitmaps on paper.
#pragma once

#include "foundation/qt/zuPainterCanvas.h"
#include "foundation/zuExport.h"
#include "foundation/zuGraphStuffDraw.h"

#include <QPoint>
#include <QString>
#include <QStringList>

class QActionGroup;
class QMenu;
class QPixmap;

namespace korvane {

class TzuImageList;

/// GStuff with what needs the toolkit.
class KORVANE_WIDGETS_API GWidgetStuff : public GStuff
{
public:
    /// Appends an item per option, of which one can be checked; an action's data is the option's
    /// index. An option "-" is a separator. The group belongs to the menu.
    static QActionGroup *CreateMenuOptions(QMenu &menu, const QStringList &options,
                                           int checked = -1);
    /// Shows the options in a menu at a point of the screen and waits. The index of the chosen one,
    /// -1 when none was.
    static int UserOption(const QStringList &options, QPoint position, int checked = -1);
    /// The same by text; empty when none was chosen.
    static QString UserOptionStrings(const QStringList &options, QPoint position,
                                     const QString &checked = {});

    /// Draws a picture as large as fits into the rectangle, in its middle, at the device's
    /// resolution. Printing enlarges the rectangle, and the picture with it.
    static void PrintBitmap(TPainterCanvas &canvas, const TRect &rect, const QPixmap &bitmap);
    /// The same with an image of a list; an index outside of it draws nothing.
    static void PrintBitmap_ImageList(TPainterCanvas &canvas, const TRect &rect,
                                      const TzuImageList &images, int index);
};

} // namespace korvane
