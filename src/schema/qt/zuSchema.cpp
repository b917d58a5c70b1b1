#include "schema/qt/zuSchema.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuSignalTiesImpl.h"

#include <QDragMoveEvent>

namespace korvane {

TzuSchema::TzuSchema(QWidget *parent, TConstruction construction)
    : TzuSchema_ComBasic(parent, construction)
{
    TieTimes();
    TieArea();
}

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

void TzuSchema::TieTimes()
{
    const auto tie = [this](auto &event, auto signal) { m_signals.Tie(event, *this, signal); };
    tie(OnContentChanged_SchemaTime, &TzuSchema::timesChanged);
    tie(OnInsertItem_SchemaTime, &TzuSchema::timeInserted);
    tie(OnDeleteItem_SchemaTime, &TzuSchema::timeDeleted);
    tie(OnValueChanged_SchemaTime, &TzuSchema::timeChanged);
    tie(OnSelectionChanged_SchemaTime, &TzuSchema::timeSelectionChanged);
    tie(OnBeforeCanEditItem_SchemaTime, &TzuSchema::timeEditAsked);
    tie(OnSwitchCol, &TzuSchema::timeColumnChanged);
    tie(OnTimeCopy, &TzuSchema::timeCopyWanted);
    tie(OnEditDataEntity_SchemaTime, &TzuSchema::timeEditWanted);
    tie(OnAfterSelectionChanged, &TzuSchema::selectedTimesChanged);
    tie(OnContentChanged_Column, &TzuSchema::columnsChanged);
    tie(OnInsertItem_Column, &TzuSchema::columnInserted);
    tie(OnDeleteItem_Column, &TzuSchema::columnDeleted);
    tie(OnValueChanged_Column, &TzuSchema::columnChanged);
    tie(OnSelectionChanged_Column, &TzuSchema::columnSelectionChanged);
    tie(OnBeforeCanEditItem_Column, &TzuSchema::columnEditAsked);
    tie(OnBeginUserChange, &TzuSchema::userChangeBegun);
    tie(OnEndUserChange, &TzuSchema::userChangeEnded);
    m_signals.Tie(OnScalerChange, *this, &TzuSchema::scalerChanged, [this](auto &&.../*args*/) {
        Q_EMIT scalerChanged(ScalerStartDateTime(), ScalerStopDateTime());
    });
}

void TzuSchema::TieArea()
{
    const auto tie = [this](auto &event, auto signal) { m_signals.Tie(event, *this, signal); };
    tie(OnSchemaHintInfo, &TzuSchema::hintInfo);
    tie(OnSchemaDblClick, &TzuSchema::areaDoubleClicked);
    tie(OnSchemaMouseDown, &TzuSchema::areaMousePressed);
    tie(OnSchemaMouseMove, &TzuSchema::areaMouseMoved);
    tie(OnSchemaMouseUp, &TzuSchema::areaMouseReleased);
    tie(OnSchemaStartDrag, &TzuSchema::areaDragStarted);
    tie(OnSchemaEndDrag, &TzuSchema::areaDragEnded);
    tie(OnSchemaDragOver, &TzuSchema::areaDraggedOver);
    tie(OnSchemaDragDrop, &TzuSchema::areaDropped);
    tie(OnHeaderClick, &TzuSchema::headerClicked);
    tie(OnHeaderStartDrag, &TzuSchema::headerDragStarted);
    tie(OnHeaderEndDrag, &TzuSchema::headerDragEnded);
    tie(OnHeaderDragOver, &TzuSchema::headerDraggedOver);
    tie(OnHeaderDragDrop, &TzuSchema::headerDropped);
}

} // namespace korvane
