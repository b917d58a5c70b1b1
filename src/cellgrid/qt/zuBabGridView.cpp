#include "cellgrid/qt/zuBabGridView.h"

#include "cellgrid/qt/zuBabGridAccessible.h"
#include "cellgrid/qt/zuBabGridFindBar.h"
#include "foundation/qt/zuAccessible.h"
#include "foundation/qt/zuConvert.h"
#include "foundation/zuMirrorCanvas.h"
#include "foundation/zuScaledCanvas.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QScrollBar>
#include <QScrollEvent>
#include <QScrollPrepareEvent>
#include <QScroller>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>
#include <limits>

namespace korvane {

namespace {

int BarValue(std::int64_t pixels)
{
    return static_cast<int>(std::clamp<std::int64_t>(pixels, 0, std::numeric_limits<int>::max()));
}

} // namespace

TBabGridView_Custom::TBabGridView_Custom(QWidget *parent)
    : TzuOffscreenPaint(parent)
    , TBabGridFind(static_cast<IBabGridHost &>(*this), m_editOpener)
    , m_vertical(new QScrollBar(Qt::Vertical, this))
    , m_horizontal(new QScrollBar(Qt::Horizontal, this))
{
    SetColor(clWindow);
    SetTabStop(true);
    setMouseTracking(true);
    InstallAccessible<TBabGridView_Custom, TBabGridAccessible>();
    QScroller::grabGesture(this, QScroller::TouchGesture);
    for (const int key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_Home,
                          Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown}) {
        WantedSpecialKeys.insert(key);
    }
    for (QScrollBar *bar : {m_vertical, m_horizontal}) {
        bar->hide();
        bar->setCursor(Qt::ArrowCursor);
        bar->installEventFilter(this);
        connect(bar, &QScrollBar::valueChanged, this, &TBabGridView_Custom::ScrolledByBar);
    }
}

TBabGridView_Custom::~TBabGridView_Custom() = default;

void TBabGridView_Custom::SetImageList(const TImageList *images)
{
    if (images != m_images) {
        m_images = images;
        LayoutOutOfDate();
    }
}

void TBabGridView_Custom::SetScrollBarsShown(bool value)
{
    if (value != m_scrollBarsShown) {
        m_scrollBarsShown = value;
        UpdateScrollBars();
    }
}

// --- finding -------------------------------------------------------------------------------------

TBabGridFindBar &TBabGridView_Custom::FindBar()
{
    if (m_findBar == nullptr) {
        m_findBar = new TBabGridFindBar(*this);
        m_findBar->hide();
        m_findBar->installEventFilter(this);
    }
    return *m_findBar;
}

int TBabGridView_Custom::FindBarHeight() const
{
    return m_findBar != nullptr && !m_findBar->isHidden() ? m_findBar->sizeHint().height() : 0;
}

void TBabGridView_Custom::SetFindEnable(bool value)
{
    m_findEnable = value;
    if (!value && FindBarHeight() > 0) {
        m_findBar->Close();
    }
}

void TBabGridView_Custom::ShowFindBar()
{
    if (m_findEnable && CommitEdit()) {
        FindBar().Open(m_typed);
        m_typed.clear();
    }
}

std::string TBabGridView_Custom::FoldCase(std::string text) const
{
    return FromQt(ToQt(text).toCaseFolded());
}

bool TBabGridView_Custom::eventFilter(QObject *object, QEvent *event)
{
    const bool shows = event->type() == QEvent::Show || event->type() == QEvent::Hide;
    if (shows && object == m_findBar) {
        UpdateScrollBars();
    } else if (event->type() == QEvent::Enter && object != m_findBar) {
        SetMousePlace(std::nullopt); // onto a scroll bar
    }
    return TzuOffscreenPaint::eventFilter(object, event);
}

QSize TBabGridView_Custom::sizeHint() const
{
    return {400, 300};
}

// --- host ----------------------------------------------------------------------------------------

void TBabGridView_Custom::InvalidateGrid()
{
    Invalidate();
    QueueUpdate();
}

void TBabGridView_Custom::ScrollGrid(const TRect &area)
{
    InvalidateMoved(area);
    QueueUpdate();
}

std::optional<TBabGridView_Custom::TImageMove> TBabGridView_Custom::KeepImage()
{
    auto move = PictureMove();
    if (!move) {
        return std::nullopt;
    }
    if (isRightToLeft()) {
        move->Area = FromQt(FromGrid(move->Area));
        move->By.X *= -1;
        for (TRect &rect : move->Anew) {
            rect = FromQt(FromGrid(rect));
        }
    }
    return TImageMove{move->Area, move->By, std::move(move->Anew)};
}

void TBabGridView_Custom::QueueUpdate()
{
    if (!m_updateQueued) {
        // Before the paint, which has a lower priority.
        m_updateQueued = true;
        QMetaObject::invokeMethod(
            this, [this] { UpdateScrollBars(); }, Qt::QueuedConnection);
    }
}

TSize TBabGridView_Custom::GridSize() const
{
    return {std::max(0, width() - ReservedRight()), std::max(0, height() - ReservedBottom())};
}

bool TBabGridView_Custom::GridHasFocus() const
{
    const QWidget *focus = QApplication::focusWidget();
    return hasFocus() || (focus != nullptr && isAncestorOf(focus));
}

void TBabGridView_Custom::SetGridCursor(TGridCursor cursor)
{
    const Qt::CursorShape shape = cursor == TGridCursor::ColumnResize ? Qt::SplitHCursor
                                  : cursor == TGridCursor::RowResize  ? Qt::SplitVCursor
                                                                      : Qt::ArrowCursor;
    if (this->cursor().shape() != shape) {
        setCursor(shape);
    }
}

// --- painting and scrolling ----------------------------------------------------------------------

void TBabGridView_Custom::OffscreenPaint()
{
    if (!GetIsPrinting()) {
        PaintOn(GetOffscreenCanvas());
        PlaceEditor();
    } else if (Width() > 0 && Height() > 0) {
        EnsureLayout(); // measures with the canvas
        TScaledCanvas enlarged(GetOffscreenCanvas(), {GetScalex(), GetScaley()},
                               [this] { PrintResizeFont(); });
        enlarged.SetFont(Font());
        PaintOn(enlarged);
    }
    if (IsLayoutOutOfDate()) {
        Invalidate(); // a handler changed the grid meanwhile
    }
}

void TBabGridView_Custom::PaintOn(TCanvas &canvas)
{
    const bool prints = GetIsPrinting();
    const TPaintOn on = prints ? TPaintOn::Paper : TPaintOn::Screen;
    if (isRightToLeft()) {
        // On screen the strip of the scroll bar is at the left.
        TMirrorCanvas mirrored(canvas, prints ? GridSize().Width : width());
        TBabGridSelectCore::Paint(mirrored, on);
    } else {
        TBabGridSelectCore::Paint(canvas, on);
    }
}

void TBabGridView_Custom::OverlayPaint(TCanvas &canvas)
{
    if (isRightToLeft()) {
        TMirrorCanvas mirrored(canvas, width());
        TBabGridGestures::PaintOverlay(mirrored);
    } else {
        TBabGridGestures::PaintOverlay(canvas);
    }
    TzuOffscreenPaint::OverlayPaint(canvas);
}

void TBabGridView_Custom::RedrawIfNeeded()
{
    if (IsLayoutOutOfDate()) {
        UpdateScrollBars();
        Repaint();
    }
}

void TBabGridView_Custom::PlaceScrollBars(bool vertical, bool horizontal)
{
    const int right = vertical ? m_vertical->sizeHint().width() : 0;
    const int barHeight = horizontal ? m_horizontal->sizeHint().height() : 0;
    const int bottom = barHeight + FindBarHeight();
    const bool mirrored = isRightToLeft();
    m_vertical->setGeometry(mirrored ? 0 : width() - right, 0, right, height() - bottom);
    m_horizontal->setGeometry(mirrored ? right : 0, height() - bottom, width() - right, barHeight);
    m_vertical->setVisible(vertical);
    m_horizontal->setVisible(horizontal);
    if (FindBarHeight() > 0) {
        m_findBar->setGeometry(0, height() - FindBarHeight(), width(), FindBarHeight());
    }
    if (right != ReservedRight() || bottom != ReservedBottom()) {
        SetReserved(right, bottom);
        LayoutOutOfDate();
    }
}

/// Tells assistive tools when there are other rows or columns.
void TBabGridView_Custom::TellCounts()
{
    const int rows = RootCell().Rows().Count();
    const int columns = RootCell().Columns().Count();
    if (rows != m_toldRows || columns != m_toldColumns) {
        m_toldRows = rows;
        m_toldColumns = columns;
        TellGridReset(*this);
    }
}

void TBabGridView_Custom::FocusCellMoved()
{
    TellGridFocus(*this);
}

void TBabGridView_Custom::SelectionEventFired()
{
    TellGridSelection(*this);
    TBabGridEdit::SelectionEventFired();
}

/// What a finger drags and throws.
bool TBabGridView_Custom::ScrolledByFinger(QEvent &event)
{
    if (event.type() == QEvent::ScrollPrepare) {
        auto &prepare = static_cast<QScrollPrepareEvent &>(event);
        const TSize page = PageSize();
        prepare.setViewportSize(QSizeF(page.Width, page.Height));
        prepare.setContentPosRange(
            QRectF(0, 0, static_cast<qreal>(MaxScrollX()), static_cast<qreal>(MaxScrollY())));
        const auto x = isRightToLeft() ? MaxScrollX() - ScrollX() : ScrollX();
        prepare.setContentPos(QPointF(static_cast<qreal>(x), static_cast<qreal>(ScrollY())));
        prepare.accept();
        return true;
    }
    if (event.type() == QEvent::Scroll) {
        const QPointF at = static_cast<QScrollEvent &>(event).contentPos();
        const std::int64_t x = std::llround(at.x());
        ScrollTo(isRightToLeft() ? MaxScrollX() - x : x, std::llround(at.y()));
        event.accept();
        return true;
    }
    return false;
}

void TBabGridView_Custom::UpdateScrollBars()
{
    m_updateQueued = false;
    EnsureLayout();
    TellCounts();
    const std::int64_t contentWidth = RootCell().Columns().TotalSize();
    const std::int64_t contentHeight = RootCell().Rows().TotalSize();
    const int forGrid = height() - FindBarHeight();
    bool vertical = contentHeight > forGrid;
    const bool horizontal =
        contentWidth > width() - (vertical ? m_vertical->sizeHint().width() : 0);
    vertical = contentHeight > forGrid - (horizontal ? m_horizontal->sizeHint().height() : 0);
    PlaceScrollBars(m_scrollBarsShown && vertical, m_scrollBarsShown && horizontal);
    EnsureLayout();
    m_settingBars = true;
    const TSize page = PageSize();
    m_vertical->setRange(0, BarValue(MaxScrollY()));
    m_vertical->setPageStep(std::max(1, page.Height));
    m_vertical->setSingleStep(std::max(1, RootCell().Rows().DefaultSize()));
    m_vertical->setValue(BarValue(ScrollY()));
    m_horizontal->setRange(0, BarValue(MaxScrollX()));
    m_horizontal->setPageStep(std::max(1, page.Width));
    m_horizontal->setSingleStep(std::max(1, RootCell().Rows().DefaultSize()));
    m_horizontal->setValue(BarValue(ScrollX()));
    m_settingBars = false;
}

void TBabGridView_Custom::ScrolledByBar()
{
    if (m_settingBars) {
        return;
    }
    const auto before = ScrollY();
    ScrollTo(m_horizontal->value(), m_vertical->value());
    if (!m_smoothScrolling && ScrollY() != before && ScrollY() < MaxScrollY()) {
        ScrollRows(0); // to the beginning of its row
    }
}

void TBabGridView_Custom::resizeEvent(QResizeEvent *event)
{
    TzuOffscreenPaint::resizeEvent(event);
    LayoutOutOfDate();
    UpdateScrollBars();
    PlaceEditor();
}

void TBabGridView_Custom::showEvent(QShowEvent *event)
{
    TzuOffscreenPaint::showEvent(event);
    UpdateScrollBars();
}

void TBabGridView_Custom::changeEvent(QEvent *event)
{
    TzuOffscreenPaint::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange
        || event->type() == QEvent::LayoutDirectionChange) {
        LayoutOutOfDate();
        UpdateScrollBars();
    }
}

void TBabGridView_Custom::CopyToClipboard()
{
    auto *copied = new QMimeData;
    copied->setText(ToQt(SelectionAsText()));
    copied->setHtml(ToQt(SelectionAsHtml()));
    QApplication::clipboard()->setMimeData(copied);
}

void TBabGridView_Custom::PasteFromClipboard()
{
    PasteText(FromQt(QApplication::clipboard()->text()));
}

TPoint TBabGridView_Custom::ToGrid(QPoint place) const
{
    return {isRightToLeft() ? width() - 1 - place.x() : place.x(), place.y()};
}

QRect TBabGridView_Custom::FromGrid(const TRect &rect) const
{
    const int left = isRightToLeft() ? width() - rect.Right : rect.Left;
    return {left, rect.Top, rect.Width(), rect.Height()};
}

QWidget *TBabGridView_Custom::EditorField() const
{
    const TBabGridEditor *editor = m_editOpener.Editor();
    return editor != nullptr ? &editor->Field().Widget() : nullptr;
}

} // namespace korvane
