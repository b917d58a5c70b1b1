#include "foundation/qt/zuConvert.h"

#include "foundation/zuDateUtils.h"

#include <algorithm>

namespace korvane {

namespace {

QPalette::ColorRole RoleOf(TColor systemColor)
{
    switch (systemColor) {
    case clBackground:
        return QPalette::Mid;
    case clWindow:
        return QPalette::Base;
    case clWindowText:
        return QPalette::Text;
    case clHighlight:
        return QPalette::Highlight;
    case clHighlightText:
        return QPalette::HighlightedText;
    case clBtnShadow:
        return QPalette::Dark;
    case clGrayText:
        return QPalette::PlaceholderText;
    case clBtnText:
        return QPalette::ButtonText;
    case clBtnHighlight:
        return QPalette::Light;
    case clInfoText:
        return QPalette::ToolTipText;
    case clInfoBk:
        return QPalette::ToolTipBase;
    default:
        return QPalette::Button;
    }
}

} // namespace

Qt::PenStyle ToQt(TPenStyle style)
{
    switch (style) {
    case TPenStyle::psDash:
        return Qt::DashLine;
    case TPenStyle::psDot:
        return Qt::DotLine;
    case TPenStyle::psClear:
        return Qt::NoPen;
    default:
        return Qt::SolidLine;
    }
}

Qt::MouseButton ToQt(TMouseButton button)
{
    switch (button) {
    case TMouseButton::mbRight:
        return Qt::RightButton;
    case TMouseButton::mbMiddle:
        return Qt::MiddleButton;
    default:
        return Qt::LeftButton;
    }
}

Qt::KeyboardModifiers ToQt(TShiftState shift)
{
    Qt::KeyboardModifiers result;
    result.setFlag(Qt::ShiftModifier, shift.Shift);
    result.setFlag(Qt::ControlModifier, shift.Ctrl);
    result.setFlag(Qt::AltModifier, shift.Alt);
    return result;
}

std::optional<TMouseButton> MouseButtonFromQt(Qt::MouseButton button)
{
    switch (button) {
    case Qt::LeftButton:
        return TMouseButton::mbLeft;
    case Qt::RightButton:
        return TMouseButton::mbRight;
    case Qt::MiddleButton:
        return TMouseButton::mbMiddle;
    default:
        return std::nullopt;
    }
}

QColor ToQt(TColor color, const QPalette &palette)
{
    if (IsSystemColor(color)) {
        return palette.color(QPalette::Active, RoleOf(color));
    }
    return {static_cast<int>(RedOf(color)), static_cast<int>(GreenOf(color)),
            static_cast<int>(BlueOf(color))};
}

TColor FromQt(const QColor &color)
{
    return Rgb(static_cast<unsigned>(color.red()), static_cast<unsigned>(color.green()),
               static_cast<unsigned>(color.blue()));
}

QFont ToQt(const TFont &font)
{
    QFont result(ToQt(font.Name), font.Size);
    result.setBold(font.Bold);
    result.setItalic(font.Italic);
    result.setUnderline(font.Underline);
    result.setStrikeOut(font.StrikeOut);
    return result;
}

TFont FromQt(const QFont &font, const TFont &base)
{
    TFont result = base;
    result.Name = FromQt(font.family());
    result.Size = font.pointSize() > 0 ? font.pointSize() : base.Size;
    result.Bold = font.bold();
    result.Italic = font.italic();
    result.Underline = font.underline();
    result.StrikeOut = font.strikeOut();
    return result;
}

QDateTime ToQDateTime(TDateTime value)
{
    const TDateTimeParts parts = DecodeDateTime(value);
    return {QDate(parts.Date.Year, parts.Date.Month, parts.Date.Day),
            QTime(parts.Time.Hour, parts.Time.Minute, parts.Time.Second, parts.Time.Millisecond)};
}

TDateTime FromQt(const QDateTime &value)
{
    if (!value.isValid()) {
        return 0;
    }
    const QDateTime local = value.toLocalTime();
    const QDate first(1, 1, 1);
    const QDate last(9999, 12, 31);
    const QDate date = std::clamp(local.date(), first, last);
    const QTime time = local.time();
    return EncodeDate(date.year(), date.month(), date.day())
           + EncodeTime(time.hour(), time.minute(), time.second(), time.msec());
}

} // namespace korvane
