#include "schema/qt/zuSchemaComBasic.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuGraphStuff.h"
#include "foundation/qt/zuToolkit.h"
#include "foundation/qt/zuXYSizer.h"
#include "foundation/zuDateUtils.h"
#include "schema/qt/zuSchemaAccessible.h"
#include "schema/qt/zuSchemaAreaInput.h"
#include "schema/qt/zuSchemaHint.h"
#include "schema/qt/zuSchemaPrintView.h"

#include <QEvent>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

constexpr int kDaysAhead = 31;

} // namespace

TzuSchema_ComBasic::TzuSchema_ComBasic(QWidget *parent, TConstruction construction)
    : QFrame(parent)
    , TSchemaKeys(static_cast<ISchemaHost &>(*this), static_cast<ISchemaInputHost &>(*this), this)
{
    InstallToolkitServices();
    InstallSchemaAccessibility();
    if (construction == TConstruction::Complete) {
        InitializeInConstructor();
    }
}

TzuSchema_ComBasic::~TzuSchema_ComBasic()
{
    // Handlers that run while the data goes still see all parts.
    FinalizeData();
}

void TzuSchema_ComBasic::InitializeInConstructor()
{
    InitializeData();
    CreateParts();
    TSchemaPartSizes sizes = PartSizes();
    m_headerHint = m_header->sizeHint().height();
    sizes.HeaderHeight = m_headerHint;
    SetPartSizes(sizes);
    UpdatePartSize();
    UpdateColumnScrollerLater();
}

void TzuSchema_ComBasic::CreateParts()
{
    m_scaler = CreateDateScaler(this);
    m_scaler->setObjectName(QStringLiteral("Scaler"));
    m_scaler->SetRange(Now(), Now() + kDaysAhead);
    m_scaler->OnChange = [this](TObject *) { ScaleChanged(); };
    m_scaler->OnPrintResizeFont =
        TzuOffscreenPaint::TOnPrintResizeFont::Bind<&TzuSchema_ComBasic::_OnPrintResizeFont>(this);
    m_header = new THeaderControl_MouseControl(*this);
    m_header->setObjectName(QStringLiteral("Header"));
    m_flippedHeader = new TDrawGrid_Schema(*this);
    m_flippedHeader->setObjectName(QStringLiteral("FlippedHeader"));
    m_flippedHeader->hide();
    m_area = new TzuOffscreenPaint(this);
    m_area->setObjectName(QStringLiteral("SchemaArea"));
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->SetTabStop(true);
    m_area->setMouseTracking(true);
    m_area->OnPaint = [this](TzuOffscreenPaint *) { SchemaPaint(); };
    m_area->OnPrintResizeFont = m_scaler->OnPrintResizeFont;
    m_input = std::make_unique<TSchemaAreaInput>(*this, *m_area);
    m_smallHint = new TGraphHintWindow(this);
    m_bigHint = new TzuSchema_ComBasicHintWindow(*this);
    m_scroller = new TSchemaColumnScroller(this);
    connect(m_scroller, &TSchemaColumnScroller::stepped, this,
            &TzuSchema_ComBasic::ColumnUpDownOnClick);
    m_sizer = new TXYSizer(this);
    m_sizer->setObjectName(QStringLiteral("itsXYSizer"));
    m_sizer->OnResize = [this](TXYSizer *, TPoint delta) { PartResize(delta); };
    setTabOrder(m_area, m_scaler);
    setFocusProxy(m_area);
}

TzuDateScaler *TzuSchema_ComBasic::CreateDateScaler(QWidget *parent)
{
    return new TzuDateScaler(parent);
}

QString TzuSchema_ComBasic::ScalerDateFormat() const
{
    return ToQt(m_scaler->TDateScalerCore::DateFormat());
}

void TzuSchema_ComBasic::SetScalerDateFormat(const QString &format)
{
    m_scaler->TDateScalerCore::SetDateFormat(FromQt(format));
}

QString TzuSchema_ComBasic::ScalerTimeFormat() const
{
    return ToQt(m_scaler->TDateScalerCore::TimeFormat());
}

void TzuSchema_ComBasic::SetScalerTimeFormat(const QString &format)
{
    m_scaler->TDateScalerCore::SetTimeFormat(FromQt(format));
}

void TzuSchema_ComBasic::RePaint()
{
    update();
    m_scaler->Invalidate();
    ColumnsChanged();
}

void TzuSchema_ComBasic::_RefreshEverything()
{
    UpdatePartSize();
    UpdateSubColumns();
    RePaint();
}

void TzuSchema_ComBasic::ScrollColumnsByWheel(int units)
{
    m_wheelUnits += units;
    const int columns = m_wheelUnits / QWheelEvent::DefaultDeltasPerStep;
    m_wheelUnits -= columns * QWheelEvent::DefaultDeltasPerStep;
    if (columns != 0) {
        ScrollColumns(columns);
    }
}

// --- layout --------------------------------------------------------------------------------------

void TzuSchema_ComBasic::PlaceParts()
{
    if (m_sizer == nullptr) { // not all are there yet
        return;
    }
    const TSchemaPartRects rects = Parts();
    TSchemaHeaderControl *shown =
        FlipView() ? static_cast<TSchemaHeaderControl *>(m_flippedHeader) : m_header;
    TSchemaHeaderControl *hidden =
        FlipView() ? static_cast<TSchemaHeaderControl *>(m_header) : m_flippedHeader;
    hidden->hide();
    hidden->lower();
    m_scaler->setGeometry(ToQt(rects.Scaler));
    m_area->setGeometry(ToQt(rects.Area));
    shown->setGeometry(ToQt(rects.Header));
    shown->show();
    UpdateScrollPos();
    m_sizer->setGeometry(ToQt(rects.Sizer));
    m_sizer->raise();
}

void TzuSchema_ComBasic::UpdateScrollPos()
{
    const QRect corner = ToQt(Parts().Corner);
    const QSize size = m_scroller->sizeHint().boundedTo(corner.size());
    m_scroller->SetFlip(FlipView());
    m_scroller->setGeometry(
        QRect(corner.bottomRight() - QPoint(size.width() - 1, size.height() - 1), size));
    m_scroller->raise();
}

void TzuSchema_ComBasic::ShowColumnScroller(bool show)
{
    if (m_sizer == nullptr) {
        return;
    }
    m_scroller->setVisible(show);
    m_scroller->SetReach(Columns().TopLeftCol() > 0,
                         Columns().TopLeftCol()
                             < Columns().LastTopLeftCol(FlipView(), ColumnRoom()));
}

void TzuSchema_ComBasic::resizeEvent(QResizeEvent *event)
{
    QFrame::resizeEvent(event);
    if (m_sizer == nullptr) {
        return;
    }
    UpdatePartSize();
    // Columns that have room now come back.
    const int last = Columns().LastTopLeftCol(FlipView(), ColumnRoom());
    if (Columns().TopLeftCol() > last) {
        Columns().SetTopLeftCol(last);
        UpdateColumnScroller();
    }
}

void TzuSchema_ComBasic::changeEvent(QEvent *event)
{
    QFrame::changeEvent(event);
    const bool seen = event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange
                      || event->type() == QEvent::StyleChange;
    if (!seen || m_sizer == nullptr) {
        return;
    }
    const int header = m_header->sizeHint().height();
    if (const int former = std::exchange(m_headerHint, header);
        former != header && PartSizes().HeaderHeight == former) { // nobody has chosen another
        TSchemaPartSizes sizes = PartSizes();
        sizes.HeaderHeight = header;
        SetPartSizes(sizes);
    } else {
        HeaderChanged();
    }
    RePaint();
}

void TzuSchema_ComBasic::_OnPrintResizeFont(TzuOffscreenPaint *caller, int &fontSize,
                                            bool &defaultResize)
{
    OnPrintResizeFont(caller, fontSize, defaultResize);
}

// --- ISchemaHost ---------------------------------------------------------------------------------

void TzuSchema_ComBasic::InvalidateArea()
{
    if (m_area != nullptr) {
        m_area->Invalidate();
    }
}

TzuDateScaler &TzuSchema_ComBasic::DrawnAxis() const
{
    return m_printView != nullptr ? m_printView->Axis() : *m_scaler;
}

TzuOffscreenPaint &TzuSchema_ComBasic::DrawnArea() const
{
    return m_printView != nullptr ? m_printView->Area() : *m_area;
}

TSize TzuSchema_ComBasic::AreaSize() const
{
    return {DrawnArea().Width(), DrawnArea().Height()};
}

TPrintScale TzuSchema_ComBasic::AreaPrintScale() const
{
    return {DrawnArea().GetScalex(), DrawnArea().GetScaley()};
}

bool TzuSchema_ComBasic::AreaHasFocus() const
{
    return m_area->hasFocus() && !DrawnArea().GetIsPrinting();
}

TFont TzuSchema_ComBasic::ComponentFont() const
{
    return FromQt(font());
}

void TzuSchema_ComBasic::HeaderOutOfDate()
{
    if (m_sizer != nullptr) {
        m_header->update();
        m_flippedHeader->update();
    }
}

int TzuSchema_ComBasic::HeaderTextWidth(std::string_view text, bool flip) const
{
    const QWidget *header = flip ? static_cast<QWidget *>(m_flippedHeader) : m_header;
    return header->fontMetrics().horizontalAdvance(ToQt(text));
}

void TzuSchema_ComBasic::ActiveTimeChanged()
{
    TellActiveTime(*this);
}

void TzuSchema_ComBasic::EntityLeft(const TzuDataEntity *entity)
{
    if (m_bigHint != nullptr) {
        m_bigHint->Forget(entity);
        TellEntityLeft(*this, entity);
    }
}

// --- ISchemaInputHost ----------------------------------------------------------------------------

void TzuSchema_ComBasic::FocusArea()
{
    m_area->setFocus(Qt::MouseFocusReason);
}

void TzuSchema_ComBasic::SetAreaCursor(TSchemaCursor cursor)
{
    Qt::CursorShape shape = Qt::ArrowCursor;
    switch (cursor) {
    case TSchemaCursor::Resize:
        shape = FlipView() ? Qt::SizeHorCursor : Qt::SizeVerCursor;
        break;
    case TSchemaCursor::Move:
        shape = Qt::ClosedHandCursor;
        break;
    case TSchemaCursor::Copy:
        shape = Qt::DragCopyCursor;
        break;
    case TSchemaCursor::Area:
        break;
    }
    if (m_area->cursor().shape() != shape) {
        m_area->setCursor(shape);
    }
}

void TzuSchema_ComBasic::SetGestureTimer(bool on)
{
    m_input->SetTimer(on);
}

void TzuSchema_ComBasic::ShowGestureHint(const TGestureHint &hint, TPoint at)
{
    m_smallHint->ShowMoveInfo(ToQt(hint[0]), ToQt(hint[1]), ToQt(hint[2]),
                              m_area->mapToGlobal(ToQt(at)));
}

void TzuSchema_ComBasic::HideGestureHint()
{
    m_smallHint->DoHide();
}

void TzuSchema_ComBasic::PointAtTime(TzuDataEntity_SchemaTime *time, TPoint at)
{
    m_bigHint->PointAt(time, m_area->mapToGlobal(ToQt(at)));
}

bool TzuSchema_ComBasic::PopUpMenu(bool onTime, TPoint at)
{
    QMenu *menu = onTime ? PopupSchema() : nullptr;
    menu = menu != nullptr ? menu : PopupMenu();
    if (menu != nullptr) {
        menu->popup(m_area->mapToGlobal(ToQt(at)));
    }
    return menu != nullptr;
}

void TzuSchema_ComBasic::StartTimeDrag(const TItemDragData &times)
{
    m_input->StartTimeDrag(times);
}

void TzuSchema_ComBasic::SelectionChanged()
{
    TellTimeSelection(*this);
}

} // namespace korvane
