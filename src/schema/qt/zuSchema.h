// The schedule view as the form designer and applications know it.
#pragma once

#include "foundation/qt/zuSignalTies.h"
#include "foundation/zuExport.h"
#include "schema/qt/zuSchemaComBasic.h"

#include <QColor>
#include <QDateTime>
#include <QDrag>
#include <QFont>

namespace korvane {

/// The schedule view with its designer properties and signals. Properties named after the scaler
/// are those of the time axis.
class KORVANE_WIDGETS_API TzuSchema : public TzuSchema_ComBasic
{
    Q_OBJECT
    /// Published properties; each is described at the function that it reads.
    Q_PROPERTY(bool FlipView READ FlipView WRITE SetFlipView)
    Q_PROPERTY(QColor SchemaColor READ BackColor WRITE SetBackColor)
    Q_PROPERTY(QColor SchemaPyjamasColor READ PyjamasColor WRITE SetPyjamasColor)
    Q_PROPERTY(QColor LineColor READ LinesColor WRITE SetLinesColor)
    Q_PROPERTY(QColor ShortLineColor READ ShortLinesColor WRITE SetShortLinesColor)
    Q_PROPERTY(QFont TextFont1 READ TextFont1 WRITE SetTextFont1)
    Q_PROPERTY(QFont TextFont2 READ TextFont2 WRITE SetTextFont2)
    Q_PROPERTY(QFont TextFont3 READ TextFont3 WRITE SetTextFont3)
    Q_PROPERTY(bool CollisionDetectBetweenDataList READ CollisionDetectBetweenDataList WRITE
                   SetCollisionDetectBetweenDataList)
    Q_PROPERTY(bool CollisionDetect READ CollisionDetect WRITE SetCollisionDetect)
    Q_PROPERTY(bool SubColsInListOrder READ SubColsInListOrder WRITE SetSubColsInListOrder)
    Q_PROPERTY(int LeastSubColWidth READ LeastSubColWidth WRITE SetLeastSubColWidth)
    Q_PROPERTY(int LeastTimeLength READ LeastTimeLength WRITE SetLeastTimeLength)
    Q_PROPERTY(bool ResizeAllCol READ ResizeAllCol WRITE SetResizeAllCol)
    Q_PROPERTY(
        ScrollVisibilityKind ScrollVisibility READ ScrollVisibility WRITE SetScrollVisibilityKind)
    Q_PROPERTY(QString ScalerDateFormat READ ScalerDateFormat WRITE SetScalerDateFormat)
    Q_PROPERTY(QString ScalerTimeFormat READ ScalerTimeFormat WRITE SetScalerTimeFormat)
    Q_PROPERTY(QDateTime ScalerStart READ ScalerStartDateTime WRITE SetScalerStartDateTime)
    Q_PROPERTY(QDateTime ScalerStop READ ScalerStopDateTime WRITE SetScalerStopDateTime)
    Q_PROPERTY(int ScalerWidth READ GetScalerWidth WRITE SetScalerWidth)
    Q_PROPERTY(
        int ScalerHeight READ GetScalerHeight WRITE SetScalerHeight DESIGNABLE false STORED false)
    Q_PROPERTY(bool StartSnapONOFF READ StartSnapONOFF WRITE SetStartSnapONOFF)
    Q_PROPERTY(bool LengthSnapONOFF READ LengthSnapONOFF WRITE SetLengthSnapONOFF)
    Q_PROPERTY(double StartSnap READ StartSnap WRITE SetStartSnap)
    Q_PROPERTY(double LengthSnap READ LengthSnap WRITE SetLengthSnap)
    Q_PROPERTY(bool SnapMovedEndsOnly READ SnapMovedEndsOnly WRITE SetSnapMovedEndsOnly)
    Q_PROPERTY(bool ShowBigONOFF READ ShowBigONOFF WRITE SetShowBigONOFF)
    Q_PROPERTY(
        bool MoveInTimeWhenColSwitch READ MoveInTimeWhenColSwitch WRITE SetMoveInTimeWhenColSwitch)
    Q_PROPERTY(bool StartDragWhenTimeMoveOutside READ StartDragWhenTimeMoveOutside WRITE
                   SetStartDragWhenTimeMoveOutside)
    Q_PROPERTY(QByteArray HeaderPopupmenu READ HeaderPopupmenuNames WRITE SetHeaderPopupmenuNames)
    Q_PROPERTY(QByteArray PopupSchema READ PopupSchemaNames WRITE SetPopupSchemaNames)
    Q_PROPERTY(QByteArray PopupMenu READ PopupMenuNames WRITE SetPopupMenuNames)
    Q_PROPERTY(bool DrawShortLines READ DrawShortLines WRITE SetDrawShortLines)
    Q_PROPERTY(bool RescaleWithCtrl READ RescaleWithCtrl WRITE SetRescaleWithCtrl)

public:
    /// TScrollVisibility for the designer.
    enum ScrollVisibilityKind { svAlways, svWhenNeeded, svNever };
    Q_ENUM(ScrollVisibilityKind)

    /// Without columns; a subclass that asks for no parts makes them, see TzuSchema_ComBasic.
    explicit TzuSchema(QWidget *parent = nullptr,
                       TConstruction construction = TConstruction::Complete);

    /// What TSchemaCore says of its colours, fonts and the scroller, and the scaler of its range; a
    /// QDateTime is local time.
    QColor BackColor() const;
    void SetBackColor(const QColor &color);
    QColor PyjamasColor() const;
    void SetPyjamasColor(const QColor &color);
    QColor LinesColor() const;
    void SetLinesColor(const QColor &color);
    QColor ShortLinesColor() const;
    void SetShortLinesColor(const QColor &color);
    QFont TextFont1() const { return TextQFont(1); }
    void SetTextFont1(const QFont &font) { SetTextQFont(1, font); }
    QFont TextFont2() const { return TextQFont(2); }
    void SetTextFont2(const QFont &font) { SetTextQFont(2, font); }
    QFont TextFont3() const { return TextQFont(3); }
    void SetTextFont3(const QFont &font) { SetTextQFont(3, font); }
    ScrollVisibilityKind ScrollVisibility() const
    {
        return static_cast<ScrollVisibilityKind>(GetScrollVisibility());
    }
    void SetScrollVisibilityKind(ScrollVisibilityKind kind)
    {
        SetScrollVisibility(static_cast<TScrollVisibility>(kind));
    }
    QDateTime ScalerStartDateTime() const;
    void SetScalerStartDateTime(const QDateTime &start);
    QDateTime ScalerStopDateTime() const;
    void SetScalerStopDateTime(const QDateTime &stop);

Q_SIGNALS:
    // Each comes behind the handler of its event, see TPublished. What is deleted is about to go;
    // do not keep it. Times may be null where nothing lies under the pointer.
    /// Times have come, gone or moved.
    ///
    /// What is deleted is about to go: do not keep it.
    void timesChanged();
    /// A time has come, is about to go, has changed, was selected or deselected.
    void timeInserted(korvane::TzuDataEntity_SchemaTime *time);
    void timeDeleted(korvane::TzuDataEntity_SchemaTime *time);
    /// OnChangeDataEntity_SchemaTime and OnValueChanged_SchemaTime.
    void timeChanged(korvane::TzuDataEntity_SchemaTime *time);
    void timeSelectionChanged(korvane::TzuDataEntity_SchemaTime *time);
    /// OnBeforeCanEditItem_SchemaTime: the receiver answers with SetCanEdit.
    void timeEditAsked(korvane::TzuDataEntity_SchemaTime *time);
    /// OnSwitchCol.
    void timeColumnChanged(korvane::TzuDataEntity_SchemaTime *time, int from, int to);
    /// A copy was dropped; the receiver makes the new time (OnTimeCopy).
    void timeCopyWanted(korvane::TzuDataEntity_SchemaTime *time, int column, const QDateTime &start,
                        const QDateTime &stop);
    /// The user wants to edit a time (OnEditDataEntity_SchemaTime).
    void timeEditWanted(korvane::TzuDataEntity_SchemaTime *time);
    /// All that one action selects or not (OnAfterSelectionChanged).
    void selectedTimesChanged();
    /// Columns have come or gone; one has come, is about to go, has changed, was selected or
    /// deselected.
    void columnsChanged();
    void columnInserted(korvane::TzuDataEntity_SchemaColumn *column);
    void columnDeleted(korvane::TzuDataEntity_SchemaColumn *column);
    void columnChanged(korvane::TzuDataEntity_SchemaColumn *column);
    void columnSelectionChanged(korvane::TzuDataEntity_SchemaColumn *column);
    /// OnBeforeCanEditItem_Column: the receiver answers with SetCanEdit.
    void columnEditAsked(korvane::TzuDataEntity_SchemaColumn *column);
    /// The axis shows another time; after a paint.
    void scalerChanged(const QDateTime &start, const QDateTime &stop);
    /// OnSchemaHintInfo; the length in days.
    void hintInfo(korvane::TzuDataEntity_SchemaTime *time, const QDateTime &start, double length,
                  QPoint at);
    /// Bracket around one action of the user (OnBeginUserChange, OnEndUserChange); with `changed`
    /// false all is as before.
    void userChangeBegun(korvane::TSchemaUserChange kind);
    void userChangeEnded(korvane::TSchemaUserChange kind, bool changed);
    /// Of the area, in its pixels; after the component has done its part. `time` is null where
    /// there is none.
    void areaDoubleClicked(korvane::TzuDataEntity_SchemaTime *time);
    void areaMousePressed(Qt::MouseButton button, Qt::KeyboardModifiers modifiers, QPoint at);
    void areaMouseMoved(Qt::KeyboardModifiers modifiers, QPoint at);
    void areaMouseReleased(Qt::MouseButton button, Qt::KeyboardModifiers modifiers, QPoint at);
    /// Times are carried out of the schedule. The receiver may change the drag, but not keep it;
    /// with no data set there is none.
    void areaDragStarted(QDrag *drag);
    /// What the place of the drop has made of it; Qt::IgnoreAction for nothing.
    void areaDragEnded(Qt::DropAction action);
    /// Something is dragged over the area, or dropped on it; the receiver accepts the event or not.
    /// When only drops are received, every drag is accepted.
    void areaDraggedOver(QDragMoveEvent *event);
    void areaDropped(QDropEvent *event);
    /// A caption of the header was clicked (OnHeaderClick).
    void headerClicked(int column);
    /// A caption is dragged, which takes a receiver or a handler; otherwise as for the area. The
    /// drag offers the caption as text.
    void headerDragStarted(int column, QDrag *drag);
    void headerDragEnded(int column, Qt::DropAction action);
    /// As for the area; `column` is -1 where there is none.
    void headerDraggedOver(int column, QDragMoveEvent *event);
    void headerDropped(int column, QDropEvent *event);

private:
    void TieTimes();
    void TieArea();
    QFont TextQFont(int style) const;
    void SetTextQFont(int style, const QFont &font);

    TSignalTies m_signals;
};

} // namespace korvane
