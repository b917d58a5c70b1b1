// The behaviour of the schedule view: scaler, headers, sizer and drawn area.
#pragma once

#include "foundation/qt/zuNamedMenu.h"
#include "foundation/qt/zuOffscreenPaint.h"
#include "foundation/zuExport.h"
#include "scaler/qt/zuScaler.h"
#include "schema/qt/zuSchemaHeader.h"
#include "schema/zuSchemaKeys.h"

#include <QFrame>
#include <QPointer>
#include <QString>

#include <memory>

class QDrag;
class QDragMoveEvent;
class QDropEvent;

namespace korvane {

class ISchemaPrintView;
class TGraphHintWindow;
class TSchemaAreaInput;
class TXYSizer;
class TzuSchema_ComBasicHintWindow;

/// `column` is the number of the column under the mouse, or -1 for none.
using TOnHeaderClick = TMethod<void(TzuSchema_ComBasic *theSchema, int column)>;
using TOnHeaderStartDrag = TMethod<void(TzuSchema_ComBasic *theSchema, int column, QDrag &drag)>;
using TOnHeaderEndDrag =
    TMethod<void(TzuSchema_ComBasic *theSchema, int column, Qt::DropAction action)>;
using TOnHeaderDragOver =
    TMethod<void(TzuSchema_ComBasic *theSchema, int column, QDragMoveEvent &event)>;
using TOnHeaderDragDrop =
    TMethod<void(TzuSchema_ComBasic *theSchema, int column, QDropEvent &event)>;

/// Times are carried out of the schedule, and were dropped.
using TOnSchemaStartDrag = TMethod<void(TzuSchema_ComBasic *theSchema, QDrag &drag)>;
using TOnSchemaEndDrag = TMethod<void(TzuSchema_ComBasic *theSchema, Qt::DropAction action)>;
/// Positions of the events are in area pixels.
using TOnSchemaDragOver = TMethod<void(TzuSchema_ComBasic *theSchema, QDragMoveEvent &event)>;
using TOnSchemaDragDrop = TMethod<void(TzuSchema_ComBasic *theSchema, QDropEvent &event)>;

/// All behaviour of the schedule view.
///
/// The date scaler stands at the left and the header of the columns at the top; in the flipped view
/// it is the other way round. The sizer moves the corner between them; the buttons in the corner
/// scroll the columns. The date scaler is the only owner of the visible time. It shows the 31 days
/// from now on until told otherwise.
///
/// Parts are created through virtual factories. A subclass that overrides one constructs its base
/// with TConstruction::WithoutParts and calls InitializeInConstructor() first thing in its own
/// constructor.
class KORVANE_WIDGETS_API TzuSchema_ComBasic : public QFrame,
                                               public TSchemaKeys,
                                               private ISchemaHost,
                                               private ISchemaInputHost
{
    Q_OBJECT

public:
    /// Whether a constructor makes the parts, or leaves that to the subclass.
    enum class TConstruction { Complete, WithoutParts };

    /// Without columns; a focus on the schedule goes to its area.
    explicit TzuSchema_ComBasic(QWidget *parent = nullptr,
                                TConstruction construction = TConstruction::Complete);
    ~TzuSchema_ComBasic() override;

    /// The parts; owned by the schedule. One of the headers is hidden.
    TzuDateScaler &DateScaler() { return *m_scaler; }
    const TzuDateScaler &DateScaler() const { return *m_scaler; }
    TzuOffscreenPaint &SchemaArea() { return *m_area; }
    THeaderControl_MouseControl &Header() { return *m_header; }
    TDrawGrid_Schema &FlippedHeader() { return *m_flippedHeader; }
    TXYSizer &Sizer() { return *m_sizer; }
    TSchemaColumnScroller &ColumnScroller() { return *m_scroller; }
    /// Tells what a gesture changes.
    TGraphHintWindow &SmallHint() { return *m_smallHint; }
    /// The enlargement of the time that the pointer rests on.
    TzuSchema_ComBasicHintWindow &BigHint() { return *m_bigHint; }

    /// The visible time, half-open; the 31 days from construction on by default.
    TDateTime ScalerStart() const { return m_scaler->GetStart(); }
    void SetScalerStart(TDateTime start) { m_scaler->SetStart(start); }
    TDateTime ScalerStop() const { return m_scaler->GetStop(); }
    void SetScalerStop(TDateTime stop) { m_scaler->SetStop(stop); }
    /// Formats of the axis' labels of dates and times; empty by default, see TScalerLabels.
    QString ScalerDateFormat() const;
    void SetScalerDateFormat(const QString &format);
    QString ScalerTimeFormat() const;
    void SetScalerTimeFormat(const QString &format);
    /// Whether a drag on the axis with Ctrl zooms and one without it pans; false by default.
    bool RescaleWithCtrl() const { return m_scaler->RescaleWithCtrl(); }
    void SetRescaleWithCtrl(bool on) { m_scaler->SetRescaleWithCtrl(on); }

    /// The menu of both headers; observed.
    QMenu *HeaderPopupmenu() const { return m_headerMenu.Menu(*this); }
    void SetHeaderPopupmenu(QMenu *menu) { m_headerMenu.SetMenu(menu); }
    /// The menu of times; observed.
    QMenu *PopupSchema() const { return m_popupSchema.Menu(*this); }
    void SetPopupSchema(QMenu *menu) { m_popupSchema.SetMenu(menu); }
    /// The menu elsewhere in the area, and where there is no PopupSchema; observed.
    QMenu *PopupMenu() const { return m_popupMenu.Menu(*this); }
    void SetPopupMenu(QMenu *menu) { m_popupMenu.SetMenu(menu); }
    /// The same by name, as forms store them, see TNamedMenu; empty by default. Names take the
    /// place of a menu, and the other way round.
    QByteArray HeaderPopupmenuNames() const { return m_headerMenu.Names(); }
    void SetHeaderPopupmenuNames(const QByteArray &names) { m_headerMenu.SetNames(names); }
    QByteArray PopupSchemaNames() const { return m_popupSchema.Names(); }
    void SetPopupSchemaNames(const QByteArray &names) { m_popupSchema.SetNames(names); }
    QByteArray PopupMenuNames() const { return m_popupMenu.Names(); }
    void SetPopupMenuNames(const QByteArray &names) { m_popupMenu.SetNames(names); }

    /// Brackets nest on the drawn area.
    void BeginUpdate() { m_area->BeginUpdate(); }
    void EndUpdate() { m_area->EndUpdate(); }
    /// Requests a paint of everything.
    void RePaint();
    /// Everything anew: layout, headers, axis and area.
    void _RefreshEverything();
    /// While a view is given, it is drawn on in place of the parts on screen; see ISchemaPrintView.
    /// Observed; null returns to the screen.
    void SetPrintView(ISchemaPrintView *view) { m_printView = view; }
    /// Scrolls by the units of a wheel, 120 to the column, forward when positive; what is less adds
    /// up.
    void ScrollColumnsByWheel(int units);

    /// A click of the left button on a caption, not on an edge that resizes; `column` is never -1.
    TPublished<TOnHeaderClick> OnHeaderClick;
    /// The user drags a caption. Without a handler there is no drag; the handler may fill in what
    /// is offered.
    TPublished<TOnHeaderStartDrag> OnHeaderStartDrag;
    TPublished<TOnHeaderEndDrag> OnHeaderEndDrag;
    /// Something is dragged over a header; the handler accepts it or not. Without a handler
    /// everything is accepted, if there is one of OnHeaderDragDrop.
    TPublished<TOnHeaderDragOver> OnHeaderDragOver;
    TPublished<TOnHeaderDragDrop> OnHeaderDragDrop;
    /// Times are about to be carried out of the schedule. The handler may change what is offered;
    /// with no data set there is no drag. The end tells what the place of the drop has made of it.
    TPublished<TOnSchemaStartDrag> OnSchemaStartDrag;
    TPublished<TOnSchemaEndDrag> OnSchemaEndDrag;
    /// Something is dragged over the area; the handler accepts it or not. Without a handler
    /// everything is accepted, if there is one of OnSchemaDragDrop.
    TPublished<TOnSchemaDragOver> OnSchemaDragOver;
    TPublished<TOnSchemaDragDrop> OnSchemaDragDrop;
    /// Axis or area enlarges a font for printing.
    TzuOffscreenPaint::TOnPrintResizeFont OnPrintResizeFont;

protected:
    /// Creates the parts through the factories.
    void InitializeInConstructor();
    /// The parent owns the result.
    virtual TzuDateScaler *CreateDateScaler(QWidget *parent);

    /// The buttons in the corner scroll the columns.
    virtual void ColumnUpDownOnClick(int columns) { ScrollColumns(columns); }
    /// Places them, in the corner and close to the columns.
    virtual void UpdateScrollPos();

    /// Keep the parts in their places and looks.
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    TzuDateScaler &DrawnAxis() const;
    TzuOffscreenPaint &DrawnArea() const;
    void CreateParts();
    void _OnPrintResizeFont(TzuOffscreenPaint *caller, int &fontSize, bool &defaultResize);

    // ISchemaHost
    TDateScalerGestures &Scaler() override { return DrawnAxis(); }
    const TDateScalerGestures &Scaler() const override { return DrawnAxis(); }
    void InvalidateArea() override;
    TSize AreaSize() const override;
    TCanvas &AreaCanvas() override { return DrawnArea().GetOffscreenCanvas(); }
    TPrintScale AreaPrintScale() const override;
    bool AreaIsPrinting() const override { return DrawnArea().GetIsPrinting(); }
    bool AreaHasFocus() const override;
    void PrintResizeAreaFont() override { DrawnArea().PrintResizeFont(); }
    bool DrawsForScreen() const override { return m_printView == nullptr; }
    TFont ComponentFont() const override;
    TSize ComponentSize() const override { return {width(), height()}; }
    void PlaceParts() override;
    void HeaderOutOfDate() override;
    int HeaderTextWidth(std::string_view text, bool flip) const override;
    void ShowColumnScroller(bool show) override;
    void ActiveTimeChanged() override;
    void EntityLeft(const TzuDataEntity *entity) override;

    // ISchemaInputHost
    void FocusArea() override;
    void SetAreaCursor(TSchemaCursor cursor) override;
    void InvalidateOverlay(const TRect &rect) override { m_area->InvalidateOverlay(rect); }
    void SetGestureTimer(bool on) override;
    void ShowGestureHint(const TGestureHint &hint, TPoint at) override;
    void HideGestureHint() override;
    void PointAtTime(TzuDataEntity_SchemaTime *time, TPoint at) override;
    bool PopUpMenu(bool onTime, TPoint at) override;
    void StartTimeDrag(const TItemDragData &times) override;
    void SelectionChanged() override;

    TzuDateScaler *m_scaler = nullptr;
    TXYSizer *m_sizer = nullptr;
    THeaderControl_MouseControl *m_header = nullptr;
    TDrawGrid_Schema *m_flippedHeader = nullptr;
    TzuOffscreenPaint *m_area = nullptr;
    TSchemaColumnScroller *m_scroller = nullptr;
    TGraphHintWindow *m_smallHint = nullptr;
    TzuSchema_ComBasicHintWindow *m_bigHint = nullptr;
    std::unique_ptr<TSchemaAreaInput> m_input;
    TNamedMenu m_headerMenu;
    TNamedMenu m_popupSchema;
    TNamedMenu m_popupMenu;
    ISchemaPrintView *m_printView = nullptr;
    int m_headerHint = 0; ///< the height that the header needs
    int m_wheelUnits = 0; ///< not yet a whole column
};

} // namespace korvane
