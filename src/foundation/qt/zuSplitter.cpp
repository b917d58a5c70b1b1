#include "foundation/qt/zuSplitter.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuPainterCanvas.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QStyle>
#include <QStyleOption>
#include <QStylePainter>

#include <algorithm>

namespace korvane {

namespace {

constexpr int kThickness = 4;
constexpr int kKeyStep = 10;
/// Beside any other factor: the neighbour takes the size it is given before the rest is shared.
constexpr int kTakesFirst = 10000;
constexpr double kHoverOpacity = 0.45;
constexpr double kActiveOpacity = 0.85;

} // namespace

/// Shows where the bar would come to lie.
class TzuSplitter::TGhost : public QWidget
{
public:
    TGhost(QWidget *parent, Qt::BrushStyle pattern)
        : QWidget(parent)
        , m_pattern(pattern)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), QBrush(palette().color(QPalette::WindowText), m_pattern));
    }

private:
    Qt::BrushStyle m_pattern;
};

TzuSplitter::TzuSplitter(QWidget *parent, TSide side)
    : QWidget(parent)
    , m_side(side)
{
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

TzuSplitter::~TzuSplitter() = default;

void TzuSplitter::SetMinSize(int pixels)
{
    m_minSize = std::max(pixels, 0);
}

void TzuSplitter::SetBeveled(bool on)
{
    if (on != m_beveled) {
        m_beveled = on;
        update();
    }
}

QBoxLayout *TzuSplitter::Row() const
{
    const QWidget *parent = parentWidget();
    auto *row = parent != nullptr ? qobject_cast<QBoxLayout *>(parent->layout()) : nullptr;
    return row != nullptr && row->indexOf(this) >= 0 ? row : nullptr;
}

bool TzuSplitter::Horizontal() const
{
    const QBoxLayout *row = Row();
    return row == nullptr || row->direction() == QBoxLayout::LeftToRight
           || row->direction() == QBoxLayout::RightToLeft;
}

/// The nearest visible widget on that side.
QWidget *TzuSplitter::Neighbour(TSide side) const
{
    const QBoxLayout *row = Row();
    if (row == nullptr) {
        return nullptr;
    }
    const int step = side == TSide::Before ? -1 : 1;
    for (int i = row->indexOf(this) + step; i >= 0 && i < row->count(); i += step) {
        QWidget *widget = row->itemAt(i)->widget();
        if (widget != nullptr && !widget->isHidden()) {
            return widget;
        }
    }
    return nullptr;
}

int TzuSplitter::GrowthDirection() const
{
    const bool mirrored = Horizontal() && isRightToLeft();
    return (m_side == TSide::Before) != mirrored ? 1 : -1;
}

int TzuSplitter::Size() const
{
    QWidget *neighbour = Neighbour(m_side);
    if (neighbour == nullptr) {
        return 0;
    }
    Row()->activate();
    return Along(neighbour->size());
}

void TzuSplitter::SetSize(int pixels)
{
    m_setSize = std::max(pixels, 0);
    Apply(m_setSize);
}

void TzuSplitter::Apply(int size)
{
    QWidget *neighbour = Neighbour(m_side);
    if (neighbour == nullptr) {
        return;
    }
    // As a maximum that is taken first, not as a fixed size: the neighbour gives way when the whole
    // becomes too small for it.
    Row()->setStretchFactor(neighbour, kTakesFirst);
    if (Horizontal()) {
        neighbour->setMaximumWidth(size);
    } else {
        neighbour->setMaximumHeight(size);
    }
    Row()->activate();
}

int TzuSplitter::SmallestSize(const QWidget *widget) const
{
    return std::max(m_minSize, Along(widget->minimumSize()));
}

TzuSplitter::TLimits TzuSplitter::Limits() const
{
    const QWidget *neighbour = Neighbour(m_side);
    const QWidget *rest = Neighbour(m_side == TSide::Before ? TSide::After : TSide::Before);
    TLimits limits{SmallestSize(neighbour), QWIDGETSIZE_MAX};
    if (rest != nullptr) {
        limits.Max = Along(neighbour->size()) + Along(rest->size()) - SmallestSize(rest);
    }
    // Where there is no room for both, it stays.
    const int now = Along(neighbour->size());
    return {std::min(limits.Min, now), std::max(limits.Max, now)};
}

/// The size nearest to `size` that limits and handler permit, the present one when it is refused.
int TzuSplitter::Allowed(int size)
{
    const TLimits limits = Limits();
    int result = std::clamp(size, limits.Min, limits.Max);
    bool accept = true;
    const QPointer<TzuSplitter> self(this);
    OnCanResize(this, result, accept);
    if (self.isNull()) {
        return -1;
    }
    return accept ? std::clamp(result, limits.Min, limits.Max) : -1;
}

void TzuSplitter::TellMoved()
{
    const QPointer<TzuSplitter> self(this);
    OnMoved(this);
    if (!self.isNull()) {
        Q_EMIT moved();
    }
}

void TzuSplitter::MoveByUser(int size)
{
    if (Neighbour(m_side) == nullptr) {
        return;
    }
    const int allowed = Allowed(size);
    if (allowed >= 0 && allowed != Size()) {
        Apply(allowed);
        TellMoved();
    }
}

void TzuSplitter::DragTo(int size)
{
    const int allowed = Allowed(size);
    if (allowed < 0 || allowed == m_dragSize) {
        return;
    }
    m_dragSize = allowed;
    if (m_resizeStyle == rsUpdate) {
        Apply(allowed);
    } else {
        ShowGhost(allowed);
    }
}

void TzuSplitter::ShowGhost(int size)
{
    if (m_resizeStyle == rsNone) {
        return;
    }
    const bool line = m_resizeStyle == rsLine;
    if (m_ghost == nullptr) {
        m_ghost =
            std::make_unique<TGhost>(parentWidget(), line ? Qt::SolidPattern : Qt::Dense4Pattern);
    }
    const int shift = GrowthDirection() * (size - m_sizeAtPress);
    QRect where = geometry().translated(Horizontal() ? shift : 0, Horizontal() ? 0 : shift);
    if (line && Horizontal()) {
        where.setRect(where.center().x(), where.top(), 1, where.height());
    } else if (line) {
        where.setRect(where.left(), where.center().y(), where.width(), 1);
    }
    m_ghost->setGeometry(where);
    m_ghost->show();
    m_ghost->raise();
}

void TzuSplitter::EndDrag()
{
    if (!m_dragging) {
        return;
    }
    m_dragging = false;
    m_ghost.reset();
    releaseKeyboard();
    update();
}

namespace {

int PointerAlong(const QMouseEvent &event, bool horizontal)
{
    const QPoint at = event.globalPosition().toPoint();
    return horizontal ? at.x() : at.y();
}

} // namespace

void TzuSplitter::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || Neighbour(m_side) == nullptr) {
        return;
    }
    m_dragging = true;
    m_pressedAt = PointerAlong(*event, Horizontal());
    m_sizeAtPress = Size();
    m_dragSize = m_sizeAtPress;
    grabKeyboard(); // for Escape
    update();
}

void TzuSplitter::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_dragging || Neighbour(m_side) == nullptr) {
        return;
    }
    const int shift = PointerAlong(*event, Horizontal()) - m_pressedAt;
    DragTo(m_sizeAtPress + GrowthDirection() * shift);
}

void TzuSplitter::mouseReleaseEvent(QMouseEvent *event)
{
    if (!m_dragging || event->button() != Qt::LeftButton) {
        return;
    }
    EndDrag();
    if (m_dragSize != m_sizeAtPress) {
        Apply(m_dragSize);
        TellMoved();
    }
}

void TzuSplitter::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && m_setSize >= 0) {
        MoveByUser(m_setSize);
    }
}

void TzuSplitter::keyPressEvent(QKeyEvent *event)
{
    if (m_dragging) {
        if (event->key() == Qt::Key_Escape) {
            EndDrag();
            if (m_resizeStyle == rsUpdate) {
                Apply(m_sizeAtPress);
            }
        }
        return;
    }
    const int step = event->modifiers().testFlag(Qt::ShiftModifier) ? 1 : kKeyStep;
    const int grow = GrowthDirection() * step;
    const int key = event->key();
    if (Neighbour(m_side) != nullptr && key == (Horizontal() ? Qt::Key_Left : Qt::Key_Up)) {
        MoveByUser(Size() - grow);
    } else if (Neighbour(m_side) != nullptr
               && key == (Horizontal() ? Qt::Key_Right : Qt::Key_Down)) {
        MoveByUser(Size() + grow);
    } else if (key == Qt::Key_Home) {
        MoveByUser(0);
    } else if (key == Qt::Key_End) {
        MoveByUser(QWIDGETSIZE_MAX);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void TzuSplitter::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    EndDrag();
}

bool TzuSplitter::event(QEvent *event)
{
    if (event->type() == QEvent::Polish || event->type() == QEvent::ParentChange
        || event->type() == QEvent::Show) {
        setCursor(Horizontal() ? Qt::SplitHCursor : Qt::SplitVCursor);
        setSizePolicy(Horizontal() ? QSizePolicy::Fixed : QSizePolicy::Preferred,
                      Horizontal() ? QSizePolicy::Preferred : QSizePolicy::Fixed);
    }
    return QWidget::event(event);
}

QSize TzuSplitter::sizeHint() const
{
    return {kThickness, kThickness};
}

void TzuSplitter::paintEvent(QPaintEvent * /*event*/)
{
    QStylePainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    option.state.setFlag(QStyle::State_Horizontal, Horizontal());
    option.state.setFlag(QStyle::State_MouseOver, false); // shown in the highlight colour below
    if (m_beveled) {
        option.state |= QStyle::State_Raised;
        QStyleOptionFrame frame;
        frame.QStyleOption::operator=(option);
        frame.lineWidth = 1;
        painter.drawPrimitive(QStyle::PE_Frame, frame);
    } else {
        painter.drawControl(QStyle::CE_Splitter, option);
    }
    const bool active = m_dragging || hasFocus();
    if (active || underMouse()) {
        QColor tint = palette().color(QPalette::Highlight);
        tint.setAlphaF(active ? kActiveOpacity : kHoverOpacity);
        painter.fillRect(rect(), tint);
    }
    if (OnPaint) {
        TPainterCanvas canvas(painter, FromQt(rect()), palette());
        OnPaint(this, canvas);
    }
}

} // namespace korvane
