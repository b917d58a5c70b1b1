#include "schema/qt/zuSchemaHeader.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/zuReport.h"
#include "schema/qt/zuSchemaComBasic.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionHeader>
#include <QToolButton>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <exception>
#include <utility>

namespace korvane {

namespace {

/// How near to an edge the mouse takes hold of it.
constexpr int kEdgeReach = 3;
constexpr int kButtonSize = 16;

} // namespace

TSchemaHeaderControl::TSchemaHeaderControl(TzuSchema_ComBasic &schema, bool flip)
    : QWidget(&schema)
    , m_schema(schema)
    , m_flip(flip)
{
    setMouseTracking(true);
    setAcceptDrops(true);
}

/// The event loop cannot carry exceptions.
template <typename Call>
void TSchemaHeaderControl::Guarded(const Call &call)
{
    try {
        call();
    } catch (const std::exception &error) {
        Report(error.what());
    }
}

QSize TSchemaHeaderControl::sizeHint() const
{
    QStyleOptionHeader option;
    option.initFrom(this);
    option.text = QStringLiteral("X");
    option.orientation = m_flip ? Qt::Vertical : Qt::Horizontal;
    return style()->sizeFromContents(QStyle::CT_HeaderSection, &option, {}, this);
}

int TSchemaHeaderControl::ColumnAt(QPoint at) const
{
    const int column = m_schema.Columns().ColumnAt(m_flip, Along(at));
    return m_schema.Columns().IsCol(column) ? column : -1;
}

/// Ends with the line that the area has at the column's far side.
QRect TSchemaHeaderControl::SectionRect(int column) const
{
    const TPixelSpan pixels = m_schema.ColumnToPixels_fw(m_flip, column);
    if (pixels.Length() <= 0) {
        return {};
    }
    const bool isFirst = column == m_schema.Columns().TopLeftCol();
    const int line = m_flip ? 1 : 0; // the grid line goes with the column before it
    const int from = isFirst ? 0 : pixels.From - line + 1;
    const int length = pixels.To + 1 - from;
    return m_flip ? QRect(0, from, width(), length) : QRect(from, 0, length, height());
}

/// The column whose far edge lies at the place, or -1.
int TSchemaHeaderControl::EdgeAt(QPoint at) const
{
    const TDataListColumns &columns = m_schema.Columns();
    // Where two edges are close, the one behind is taken, so that no column stays too small.
    for (int reach = kEdgeReach; reach > -kEdgeReach; --reach) {
        const int column = columns.ColumnAt(m_flip, Along(at) + reach);
        const int before = std::min(column, columns.Count()) - 1;
        if (before >= columns.TopLeftCol()
            && std::abs(columns.GetFarSideOffset_FW(m_flip, before) - Along(at)) <= kEdgeReach) {
            return before;
        }
    }
    return -1;
}

// --- painting ------------------------------------------------------------------------------------

void TSchemaHeaderControl::DrawSection(QPainter &painter, int column)
{
    const TDataListColumns &columns = m_schema.Columns();
    QStyleOptionHeader option;
    option.initFrom(this);
    option.rect = SectionRect(column);
    option.orientation = m_flip ? Qt::Vertical : Qt::Horizontal;
    option.section = column;
    option.textAlignment = m_flip ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignCenter;
    option.state.setFlag(QStyle::State_Raised, true);
    option.state.setFlag(QStyle::State_MouseOver, column == m_hoverColumn);
    option.state.setFlag(QStyle::State_On, columns.GetCol(column).GetSelected());
    option.position =
        column == columns.TopLeftCol() ? QStyleOptionHeader::Beginning : QStyleOptionHeader::Middle;
    const int margin = style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, this);
    option.text =
        option.fontMetrics.elidedText(ToQt(columns.HeaderFromColumn(column)), Qt::ElideRight,
                                      option.rect.width() - 2 * std::max(margin, 2));
    style()->drawControl(QStyle::CE_Header, &option, &painter, this);
}

void TSchemaHeaderControl::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    const int length = Along(QPoint(width(), height()));
    const TDataListColumns &columns = m_schema.Columns();
    int far = 0;
    for (int column = columns.TopLeftCol(); columns.IsCol(column) && far < length; ++column) {
        far = columns.GetFarSideOffset_FW(m_flip, column);
        const QRect section = SectionRect(column);
        if (!section.isEmpty()) {
            painter.save();
            painter.setClipRect(section);
            DrawSection(painter, column);
            painter.restore();
        }
    }
    QStyleOptionHeader rest;
    rest.initFrom(this);
    const int after = far > 0 ? far + 1 : 0;
    rest.rect = m_flip ? rect().adjusted(0, after, 0, 0) : rect().adjusted(after, 0, 0, 0);
    rest.orientation = m_flip ? Qt::Vertical : Qt::Horizontal;
    if (!rest.rect.isEmpty()) {
        style()->drawControl(QStyle::CE_HeaderEmptyArea, &rest, &painter, this);
    }
}

// --- resizing ------------------------------------------------------------------------------------

void TSchemaHeaderControl::Resize(int column, int size)
{
    Guarded([&] {
        if (m_flip) {
            m_schema.Columns().FlippedHeaderResize(column, size);
        } else {
            m_schema.Columns().HeaderControlSectionResize(column, size);
        }
    });
}

void TSchemaHeaderControl::BeginResize(int column, QPoint at)
{
    m_resizing = {column, Along(at), {}};
    const TDataListColumns &columns = m_schema.Columns();
    for (int i = 0; i < columns.Count(); ++i) {
        m_resizing->Sizes.push_back(columns.GetCol(i).Saved_FW(m_flip));
    }
    grabKeyboard(); // for Escape
}

void TSchemaHeaderControl::EndResize()
{
    if (std::exchange(m_resizing, std::nullopt)) {
        releaseKeyboard();
    }
}

void TSchemaHeaderControl::CancelResize()
{
    if (!m_resizing) {
        return;
    }
    const std::vector<int> sizes = m_resizing->Sizes;
    EndResize();
    TDataListColumns &columns = m_schema.Columns();
    columns.BeginUpdate();
    for (int i = 0; i < std::min(columns.Count(), static_cast<int>(sizes.size())); ++i) {
        columns.SetColumnSize(m_flip, i, sizes[static_cast<std::size_t>(i)]);
    }
    columns.EndUpdate();
}

void TSchemaHeaderControl::mousePressEvent(QMouseEvent *event)
{
    event->accept();
    CancelResize();
    if (event->button() != Qt::LeftButton) {
        return;
    }
    const QPoint at = event->position().toPoint();
    m_pressedAt = at;
    if (const int edge = EdgeAt(at); edge >= 0) {
        BeginResize(edge, at);
    } else {
        m_pressedColumn = ColumnAt(at);
    }
}

void TSchemaHeaderControl::mouseMoveEvent(QMouseEvent *event)
{
    event->accept();
    const QPoint at = event->position().toPoint();
    if (m_resizing && !event->buttons().testFlag(Qt::LeftButton)) { // the release went elsewhere
        CancelResize();
    }
    if (m_resizing) {
        const auto column = static_cast<std::size_t>(m_resizing->Column);
        Resize(m_resizing->Column, m_resizing->Sizes[column] + Along(at) - m_resizing->PressedAt);
        return;
    }
    if (m_pressedColumn >= 0
        && (at - m_pressedAt).manhattanLength() >= QApplication::startDragDistance()) {
        StartDrag(std::exchange(m_pressedColumn, -1));
        return;
    }
    const bool onEdge = EdgeAt(at) >= 0;
    setCursor(!onEdge ? Qt::ArrowCursor : m_flip ? Qt::SplitVCursor : Qt::SplitHCursor);
    if (const int column = ColumnAt(at); std::exchange(m_hoverColumn, column) != column) {
        update();
    }
}

void TSchemaHeaderControl::mouseReleaseEvent(QMouseEvent *event)
{
    event->accept();
    if (event->button() != Qt::LeftButton) {
        return;
    }
    EndResize();
    const int column = std::exchange(m_pressedColumn, -1);
    if (column >= 0) {
        Guarded([&] { m_schema.OnHeaderClick(&m_schema, column); });
    }
}

void TSchemaHeaderControl::mouseDoubleClickEvent(QMouseEvent *event)
{
    event->accept();
    EndResize();
    const int edge = event->button() == Qt::LeftButton ? EdgeAt(event->position().toPoint()) : -1;
    if (edge < 0) {
        return;
    }
    const int margin =
        2 * std::max(style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, this), 4);
    const QString caption = ToQt(m_schema.Columns().HeaderFromColumn(edge));
    Resize(edge, m_flip ? sizeHint().height() : fontMetrics().horizontalAdvance(caption) + margin);
}

void TSchemaHeaderControl::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && m_resizing) {
        CancelResize();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void TSchemaHeaderControl::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    CancelResize();
    m_pressedColumn = -1;
}

void TSchemaHeaderControl::leaveEvent(QEvent *event)
{
    QWidget::leaveEvent(event);
    m_hoverColumn = -1;
    update();
}

bool TSchemaHeaderControl::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto &help = static_cast<QHelpEvent &>(*event);
        const int column = ColumnAt(help.pos());
        const std::string caption =
            column >= 0 ? m_schema.Columns().HeaderFromColumn(column) : std::string();
        if (column >= 0 && !m_schema.Columns().WillFit(caption, column)) {
            QToolTip::showText(help.globalPos(), ToQt(caption), this, SectionRect(column));
        } else {
            QToolTip::hideText();
            event->ignore();
        }
        return true;
    }
    if (event->type() == QEvent::ShortcutOverride && m_resizing
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void TSchemaHeaderControl::wheelEvent(QWheelEvent *event)
{
    const QPoint turn = event->angleDelta();
    const int units = std::abs(turn.x()) > std::abs(turn.y()) ? turn.x() : turn.y();
    m_schema.ScrollColumnsByWheel(-units);
    event->accept();
}

void TSchemaHeaderControl::contextMenuEvent(QContextMenuEvent *event)
{
    if (QMenu *menu = m_schema.HeaderPopupmenu()) {
        menu->popup(event->globalPos());
    } else {
        event->ignore();
    }
}

// --- drag and drop -------------------------------------------------------------------------------

void TSchemaHeaderControl::StartDrag(int column)
{
    if (!m_schema.OnHeaderStartDrag) {
        return;
    }
    const QPointer<TSchemaHeaderControl> self(this);
    const QPointer<QDrag> drag(new QDrag(this));
    auto *mime = new QMimeData;
    mime->setText(ToQt(m_schema.Columns().HeaderFromColumn(column)));
    drag->setMimeData(mime);
    Guarded([&] { m_schema.OnHeaderStartDrag(&m_schema, column, *drag); });
    if (self.isNull() || drag.isNull() || drag->mimeData() == nullptr) {
        delete drag;
        return;
    }
    const Qt::DropAction action = drag->exec(Qt::MoveAction | Qt::CopyAction, Qt::MoveAction);
    if (!self.isNull()) {
        Guarded([&] { m_schema.OnHeaderEndDrag(&m_schema, column, action); });
    }
}

void TSchemaHeaderControl::dragEnterEvent(QDragEnterEvent *event)
{
    dragMoveEvent(event);
}

void TSchemaHeaderControl::dragMoveEvent(QDragMoveEvent *event)
{
    event->ignore();
    const int column = ColumnAt(event->position().toPoint());
    if (m_schema.OnHeaderDragOver) {
        Guarded([&] { m_schema.OnHeaderDragOver(&m_schema, column, *event); });
    } else if (m_schema.OnHeaderDragDrop) {
        event->acceptProposedAction();
    }
}

void TSchemaHeaderControl::dropEvent(QDropEvent *event)
{
    const int column = ColumnAt(event->position().toPoint());
    Guarded([&] { m_schema.OnHeaderDragDrop(&m_schema, column, *event); });
}

// --- column scroller -----------------------------------------------------------------------------

TSchemaColumnScroller::TSchemaColumnScroller(QWidget *parent)
    : QWidget(parent)
    , m_back(nullptr)
    , m_forward(nullptr)
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_back = AddButton(-1);
    m_forward = AddButton(+1);
    m_back->setAccessibleName(tr("Previous column"));
    m_forward->setAccessibleName(tr("Next column"));
    SetFlip(false);
}

QToolButton *TSchemaColumnScroller::AddButton(int step)
{
    auto *button = new QToolButton(this);
    button->setAutoRepeat(true);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    connect(button, &QToolButton::clicked, this, [this, step] { Q_EMIT stepped(step); });
    layout()->addWidget(button);
    return button;
}

void TSchemaColumnScroller::SetFlip(bool flip)
{
    m_back->setArrowType(flip ? Qt::UpArrow : Qt::LeftArrow);
    m_forward->setArrowType(flip ? Qt::DownArrow : Qt::RightArrow);
}

void TSchemaColumnScroller::SetReach(bool back, bool forward)
{
    m_back->setEnabled(back);
    m_forward->setEnabled(forward);
}

QSize TSchemaColumnScroller::sizeHint() const
{
    return {2 * kButtonSize, kButtonSize};
}

} // namespace korvane
