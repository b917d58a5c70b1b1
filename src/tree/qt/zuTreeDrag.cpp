#include "tree/qt/zuTreeDrag.h"

#include "foundation/qt/zuConvert.h"
#include "tree/qt/zuTreeComBasic.h"

#include <QDrag>
#include <QDropEvent>
#include <QFontMetrics>
#include <QMimeData>
#include <QPainter>
#include <QPixmap>
#include <QStringList>
#include <QTimerEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace korvane {

namespace {

constexpr int kScrollInterval = 60; ///< milliseconds
constexpr int kMarkWidth = 2;       ///< of the line between rows
constexpr int kMarkKnob = 3;        ///< radius at its start
/// More captions than these are counted in the picture that follows the pointer.
constexpr int kPictureCaptions = 1;

/// A label with the caption, or the number of captions, that are dragged.
QPixmap Picture(const QWidget &tree, const QStringList &captions)
{
    const QString text =
        captions.size() > kPictureCaptions
            ? TzuTree_ComBasic::tr("%n entries", nullptr, static_cast<int>(captions.size()))
            : captions.join(' ');
    const QFontMetrics metrics(tree.font());
    const int width = std::min(metrics.horizontalAdvance(text), 240);
    const QSize size(width + 16, metrics.height() + 8);
    const double ratio = tree.devicePixelRatioF();
    QPixmap picture(size * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(tree.palette().highlight());
    painter.setOpacity(0.9);
    painter.drawRoundedRect(QRectF(QPointF(), QSizeF(size)), 4, 4);
    painter.setFont(tree.font());
    painter.setPen(tree.palette().color(QPalette::HighlightedText));
    painter.drawText(QRect(8, 4, width, metrics.height()), Qt::AlignVCenter,
                     metrics.elidedText(text, Qt::ElideRight, width));
    return picture;
}

} // namespace

TTreeDragging::TTreeDragging(TzuTree_ComBasic &tree)
    : m_tree(tree)
{
}

TTreeDragging::~TTreeDragging() = default;

// --- the tree's own drags ------------------------------------------------------------------------

void TTreeDragging::Begin(TTreeEntities entities)
{
    if (entities.empty() || !m_entities.empty()) {
        return;
    }
    QStringList captions;
    for (const TzuDataEntity_Tree *entity : entities) {
        captions.append(ToQt(entity->GetText()));
    }
    auto *data = new QMimeData;
    data->setText(captions.join('\n'));
    // Owned by the drag, which deletes itself once it ran.
    auto *drag = new QDrag(&m_tree);
    drag->setMimeData(data);
    m_entities = std::move(entities);
    TTreeDrag start{m_entities, data, &m_tree, {}, true, false};
    const QPointer<TTreeDragging> lives(this);
    m_tree.OnStartDrag(&m_tree, start);
    if (!lives) {
        return;
    }
    if (!start.Accept || m_entities.empty()) {
        m_entities.clear();
        drag->deleteLater();
        return;
    }
    drag->setPixmap(Picture(m_tree, captions));
    drag->setHotSpot({-12, -8});
    if (const QPixmap cursor = m_tree.DragCursor().pixmap(); !cursor.isNull()) {
        drag->setDragCursor(cursor, Qt::MoveAction);
        drag->setDragCursor(cursor, Qt::CopyAction);
    }
    const Qt::DropAction action = m_tree.ExecDrag(*drag);
    if (lives) {
        Leave();
        TTreeDrag end{std::exchange(m_entities, {}), nullptr, &m_tree, {}, false, false};
        end.Accept = action != Qt::IgnoreAction;
        m_tree.OnEndDrag(&m_tree, end);
    }
}

/// An entity that goes while it is dragged is dragged no longer.
void TTreeDragging::Forget(TzuDataEntity_Tree &entity)
{
    std::erase(m_entities, &entity);
    if (m_drop.Target == &entity) {
        m_drop = {};
        m_accept = false;
    }
}

// --- a drag over the tree ------------------------------------------------------------------------

TTreeDrag TTreeDragging::DragOf(const QDropEvent &event) const
{
    const QPoint point = event.position().toPoint();
    TTreeDrag drag;
    drag.Entities = m_entities;
    drag.Data = const_cast<QMimeData *>(event.mimeData());
    drag.Source = m_entities.empty() ? event.source() : &m_tree;
    drag.Drop = m_tree.DropAt(point.x(), point.y());
    drag.Accept = !m_entities.empty() && m_tree.CanMove(m_tree.MoveTo(drag.Drop, m_entities));
    return drag;
}

void TTreeDragging::Enter(QDropEvent &event)
{
    m_over = true;
    Over(event);
    if (m_tree.OnDragOver || !m_entities.empty()) {
        event.accept(); // moves are wanted, wherever it may be dropped
    }
}

void TTreeDragging::Over(QDropEvent &event)
{
    m_point = event.position().toPoint();
    TTreeDrag drag = DragOf(event);
    const TTreeDrop drop = drag.Drop;
    m_tree.OnDragOver(&m_tree, drag);
    if (drag.Accept) {
        event.setDropAction(m_entities.empty() ? event.proposedAction() : Qt::MoveAction);
        event.accept();
    } else {
        event.ignore();
    }
    Show(drop, drag.Accept);
    ScrollAt(m_point.y());
}

void TTreeDragging::Show(const TTreeDrop &drop, bool accept)
{
    if (m_over && drop == m_drop && accept == m_accept) {
        return;
    }
    m_tree.viewport()->update(MarkRect());
    if (!m_over || drop.Target != m_drop.Target || drop.Place != m_drop.Place) {
        m_expandTimer.stop();
        if (drop.Target != nullptr && drop.Place == TTreeDropPlace::On) {
            m_expandTimer.start(std::max(m_tree.autoExpandDelay(), 0), this);
        }
    }
    m_over = true;
    m_drop = drop;
    m_accept = accept;
    m_tree.viewport()->update(MarkRect());
}

void TTreeDragging::Leave()
{
    m_expandTimer.stop();
    m_scrollTimer.stop();
    m_tree.viewport()->update(MarkRect());
    m_over = false;
    m_drop = {};
    m_accept = false;
}

void TTreeDragging::Drop(QDropEvent &event)
{
    TTreeDrag drag = DragOf(event);
    m_tree.OnDragOver(&m_tree, drag);
    Leave();
    if (!drag.Accept) {
        event.ignore();
        return;
    }
    event.setDropAction(m_entities.empty() ? event.proposedAction() : Qt::MoveAction);
    event.accept();
    const QPointer<TTreeDragging> lives(this);
    m_tree.OnDragDrop(&m_tree, drag);
    if (lives && !drag.Handled && !m_entities.empty()) {
        // Asked anew: a handler may have changed the tree.
        const QPoint point = event.position().toPoint();
        const TTreeDrop drop = m_tree.DropAt(point.x(), point.y());
        if (!m_tree.MoveByUser(m_tree.MoveTo(drop, m_entities))) {
            event.setDropAction(Qt::IgnoreAction);
        }
    }
}

/// Near the upper and lower edge the tree scrolls, the faster the nearer.
void TTreeDragging::ScrollAt(int y)
{
    const int height = m_tree.viewport()->height();
    const int margin = std::min(m_tree.autoScrollMargin(), height / 3);
    const auto rows = [margin](int depth) {
        return depth <= 0 ? 0 : 1 + (depth * 3) / std::max(margin, 1);
    };
    m_scrollRows = rows(y - (height - margin)) - rows(margin - y);
    if (m_scrollRows == 0) {
        m_scrollTimer.stop();
    } else if (!m_scrollTimer.isActive()) {
        m_scrollTimer.start(kScrollInterval, this);
    }
}

void TTreeDragging::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_expandTimer.timerId()) {
        m_expandTimer.stop();
        if (m_drop.Target != nullptr && m_drop.Target->Node() != nullptr
            && m_drop.Target->Node()->ChildCount() > 0) {
            m_tree.viewport()->update(MarkRect());
            m_drop.Target->SetExpanded(true);
        }
    } else if (event->timerId() == m_scrollTimer.timerId()) {
        const TTreeGeometry before = m_tree.Geometry();
        m_tree.SetTopRow(before.TopRow + m_scrollRows);
        if (m_tree.Geometry().TopRow == before.TopRow) {
            m_scrollTimer.stop();
            return;
        }
        Show(m_tree.DropAt(m_point.x(), m_point.y()), m_accept);
        m_tree.viewport()->update();
    } else {
        QObject::timerEvent(event);
    }
}

// --- the mark ------------------------------------------------------------------------------------

/// The row, or the line between rows, in viewport pixels, with room for its outline.
QRect TTreeDragging::MarkRect() const
{
    const TTreeNode_zuSub *node = m_drop.Target != nullptr ? m_drop.Target->Node() : nullptr;
    if (m_over && m_drop.Target == nullptr) {
        const TTreeGeometry view = m_tree.Geometry();
        const int y = (m_tree.CountVisible() - view.TopRow) * view.RowHeight;
        return {0, y - kMarkKnob - 1, view.Width, 2 * kMarkKnob + 3};
    }
    if (!m_over || node == nullptr || !node->IsShown()) {
        return {};
    }
    const QRect row = m_tree.RowRect(*node);
    QRect mark = m_tree.ItemRect(*node, row);
    if (m_drop.Place == TTreeDropPlace::Below && node->Expanded() && node->ChildCount() > 0) {
        mark.setLeft(std::min(mark.left() + m_tree.indentation(), mark.right()));
    }
    if (m_drop.Place != TTreeDropPlace::On) {
        const int y = m_drop.Place == TTreeDropPlace::Above ? row.top() : row.bottom() + 1;
        mark.setTop(y - kMarkKnob - 1);
        mark.setBottom(y + kMarkKnob + 1);
    }
    return mark.adjusted(-kMarkKnob - 1, 0, 1, 0);
}

void TTreeDragging::Draw(QPainter &painter) const
{
    const QRectF rect = MarkRect();
    if (rect.isEmpty() || !m_accept) {
        return;
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QColor color = m_tree.palette().color(QPalette::Active, QPalette::Highlight);
    painter.setPen(QPen(color, kMarkWidth));
    if (m_drop.Place == TTreeDropPlace::On) {
        color.setAlphaF(0.15F);
        painter.setBrush(color);
        painter.drawRoundedRect(rect.adjusted(kMarkKnob + 1, 1, -2, -1), 2, 2);
    } else {
        const double y = rect.center().y();
        const double left = rect.left() + kMarkKnob + 1;
        painter.drawLine(QPointF(left + kMarkKnob, y), QPointF(rect.right(), y));
        painter.drawEllipse(QPointF(left, y), kMarkKnob - 0.5, kMarkKnob - 0.5);
    }
    painter.restore();
}

} // namespace korvane
