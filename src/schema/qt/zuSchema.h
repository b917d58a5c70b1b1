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
    Q_PROPERTY(int LeastSubColWidth READ LeastSubColWidth WRITE SetLeastSubColWidth)
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
    void timeEditWanted(korvane::TzuDataEntity_SchemaTime *time);
    /// All that one action selects or not (OnAfterSelectionChanged).
    void selectedTimesChanged();
    void columnsChanged();
    void columnInserted(korvane::TzuDataEntity_SchemaColumn *column);
    void columnDeleted(korvane::TzuDataEntity_SchemaColumn *column);
    void columnChanged(korvane::TzuDataEntity_SchemaColumn *column);
    void columnSelectionChanged(korvane::TzuDataEntity_SchemaColumn *column);
    void columnEditAsked(korvane::TzuDataEntity_SchemaColumn *column);
    /// The axis shows another time; after a paint.
    void scalerChanged(const QDateTime &start, const QDateTime &stop);
    /// OnSchemaHintInfo; the length in days.
    void hintInfo(korvane::TzuDataEntity_SchemaTime *time, const QDateTime &start, double length,
                  QPoint at);
    void userChangeBegun(korvane::TSchemaUserChange kind);
    void userChangeEnded(korvane::TSchemaUserChange kind, bool changed);
    // Of the area, in its pixels.
    void areaDoubleClicked(korvane::TzuDataEntity_SchemaTime *time);
    void areaMousePressed(Qt::MouseButton button, Qt::KeyboardModifiers modifiers, QPoint at);
    void areaMouseMoved(Qt::KeyboardModifiers modifiers, QPoint at);
    void areaMouseReleased(Qt::MouseButton button, Qt::KeyboardModifiers modifiers, QPoint at);
    // The receiver may change the drag, and accepts the event, as the handler does.
    void areaDragStarted(QDrag *drag);
    void areaDragEnded(Qt::DropAction action);
    void areaDraggedOver(QDragMoveEvent *event);
    void areaDropped(QDropEvent *event);
    // Of the headers.
    void headerClicked(int column);
    void headerDragStarted(int column, QDrag *drag);
    void headerDragEnded(int column, Qt::DropAction action);
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
