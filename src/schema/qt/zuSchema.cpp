#include "schema/qt/zuSchema.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/zuLifeWatch.h"

#include <QPointer>

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

QColor TzuSchema::LinesColor() const
{
    return ToQt(LineColor(), palette());
}

void TzuSchema::SetLinesColor(const QColor &color)
{
    SetLineColor(FromQt(color));
}

QColor TzuSchema::ShortLinesColor() const
{
    return ToQt(ShortLineColor(), palette());
}

void TzuSchema::SetShortLinesColor(const QColor &color)
{
    SetShortLineColor(FromQt(color));
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

void TzuSchema::TellOf(TzuDataEntity *item, const std::function<void()> &handlers,
                       void (TzuSchema::*signal)(TzuDataEntity_SchemaTime *))
{
    const QPointer<TzuSchema> self(this);
    const TzuLifeWatch lives(*item);
    handlers();
    if (signal != nullptr && !self.isNull() && lives) {
        Q_EMIT(this->*signal)(&DataEntity_Schema(*item));
    }
}

void TzuSchema::_OnInsertItem(TzuDataEntity *item)
{
    TellOf(
        item, [&] { TzuSchema_ComBasic::_OnInsertItem(item); }, &TzuSchema::timeInserted);
}

void TzuSchema::_OnDeleteItem(TzuDataEntity *item)
{
    TellOf(
        item, [&] { TzuSchema_ComBasic::_OnDeleteItem(item); }, &TzuSchema::timeDeleted);
}

void TzuSchema::_OnContentChanged(TzuDataList *list)
{
    const QPointer<TzuSchema> self(this);
    TzuSchema_ComBasic::_OnContentChanged(list);
    if (!self.isNull()) {
        Q_EMIT timesChanged();
    }
}

void TzuSchema::_OnInfoPush(TzuDataEntity *item)
{
    const bool storing = SettingTimes(); // the last announcement alone counts
    TellOf(
        item, [&] { TzuSchema_ComBasic::_OnInfoPush(item); },
        storing ? nullptr : &TzuSchema::timeChanged);
}

void TzuSchema::_OnSelectionChanged(TzuDataList *list, TzuDataEntity *item)
{
    TellOf(
        item, [&] { TzuSchema_ComBasic::_OnSelectionChanged(list, item); },
        &TzuSchema::timeSelectionChanged);
}

void TzuSchema::DoScalerChange()
{
    const QPointer<TzuSchema> self(this);
    TzuSchema_ComBasic::DoScalerChange();
    if (!self.isNull()) {
        Q_EMIT scalerChanged(ScalerStartDateTime(), ScalerStopDateTime());
    }
}

} // namespace korvane
