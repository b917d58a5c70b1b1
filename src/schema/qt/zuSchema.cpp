#include "schema/qt/zuSchema.h"

#include "foundation/qt/zuConvert.h"

namespace korvane {

QColor TzuSchema::BackColor() const
{
    return ToQt(SchemaColor(), palette());
}

void TzuSchema::SetBackColor(const QColor &color)
{
    SetSchemaColor(FromQt(color));
}

QColor TzuSchema::PyjamasColor() const
{
    return ToQt(SchemaPyjamasColor(), palette());
}

void TzuSchema::SetPyjamasColor(const QColor &color)
{
    SetSchemaPyjamasColor(FromQt(color));
}

QFont TzuSchema::TextQFont(int style) const
{
    return ToQt(TextFont(style));
}

void TzuSchema::SetTextQFont(int style, const QFont &font)
{
    SetTextFont(style, FromQt(font, TextFont(style)));
}

QDateTime TzuSchema::ScalerStartDateTime() const
{
    return ToQDateTime(ScalerStart());
}

void TzuSchema::SetScalerStartDateTime(const QDateTime &start)
{
    SetScalerStart(FromQt(start));
}

QDateTime TzuSchema::ScalerStopDateTime() const
{
    return ToQDateTime(ScalerStop());
}

void TzuSchema::SetScalerStopDateTime(const QDateTime &stop)
{
    SetScalerStop(FromQt(stop));
}

} // namespace korvane
