// Conversions between the library's value types and Qt's. The only place where they are made.
#pragma once

#include "foundation/zuCanvas.h"
#include "foundation/zuExport.h"
#include "foundation/zuInput.h"
#include "foundation/zuTypes.h"

#include <QColor>
#include <QDateTime>
#include <QFont>
#include <QPalette>
#include <QPoint>
#include <QRect>
#include <QString>

#include <optional>
#include <string>
#include <string_view>

namespace korvane {

/// Exact both ways; texts are UTF-8, and bytes that are not become replacement characters.
inline QPoint ToQt(TPoint point)
{
    return {point.X, point.Y};
}
inline TPoint FromQt(QPoint point)
{
    return {point.x(), point.y()};
}
inline QRect ToQt(const TRect &rect)
{
    return {rect.Left, rect.Top, rect.Width(), rect.Height()};
}
inline TRect FromQt(const QRect &rect)
{
    return {rect.x(), rect.y(), rect.x() + rect.width(), rect.y() + rect.height()};
}
inline QString ToQt(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string FromQt(const QString &text)
{
    return text.toStdString();
}

/// Other modifiers are left out.
inline TShiftState FromQt(Qt::KeyboardModifiers modifiers)
{
    return {modifiers.testFlag(Qt::ShiftModifier), modifiers.testFlag(Qt::ControlModifier),
            modifiers.testFlag(Qt::AltModifier)};
}
/// Nothing for the buttons beyond the three.
KORVANE_WIDGETS_API std::optional<TMouseButton> MouseButtonFromQt(Qt::MouseButton button);
/// The same the other way, where nothing is left out.
KORVANE_WIDGETS_API Qt::MouseButton ToQt(TMouseButton button);
KORVANE_WIDGETS_API Qt::KeyboardModifiers ToQt(TShiftState shift);

/// System colours come from the palette's active group.
KORVANE_WIDGETS_API QColor ToQt(TColor color, const QPalette &palette);
/// Never a system colour; transparency is lost.
KORVANE_WIDGETS_API TColor FromQt(const QColor &color);
/// One for one.
KORVANE_WIDGETS_API Qt::PenStyle ToQt(TPenStyle style);
/// Size in points; the colour is lost.
KORVANE_WIDGETS_API QFont ToQt(const TFont &font);
/// Keeps the colour of `base`, since a QFont has none.
KORVANE_WIDGETS_API TFont FromQt(const QFont &font, const TFont &base = {});
/// Local time, to the nearest millisecond.
KORVANE_WIDGETS_API QDateTime ToQDateTime(TDateTime value);
/// An invalid date-time gives 0; dates outside years 1..9999 give the nearest one.
KORVANE_WIDGETS_API TDateTime FromQt(const QDateTime &value);

} // namespace korvane
