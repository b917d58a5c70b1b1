#include "foundation/qt/zuXYSizer.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/zuReport.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <exception>
#include <utility>

namespace korvane {

namespace {

constexpr int kSize = 5;
constexpr int kGuideWidth = 2;
/// Left free at both ends of a guide.
constexpr int kGuideMargin = 5;

} // namespace

TXYSizer::TXYSizer(QWidget *parent)
    : QFrame(parent)
    , m_horizontalGuide(CreateGuide())
    , m_verticalGuide(CreateGuide())
{
    resize(kSize, kSize);
    setCursor(Qt::SizeAllCursor);
    setAccessibleName(tr("Resize scale and header"));
}

TXYSizer::~TXYSizer()
{
    delete m_horizontalGuide;
    delete m_verticalGuide;
}

/// The owner's, so that it spans the whole parent.
QWidget *TXYSizer::CreateGuide()
{
    auto *guide = new QFrame(parentWidget());
    guide->setAutoFillBackground(true);
    guide->setBackgroundRole(QPalette::Highlight);
    guide->setAttribute(Qt::WA_TransparentForMouseEvents);
    guide->hide();
    return guide;
}

bool TXYSizer::event(QEvent *event)
{
    // Escape must not close a dialog while the handle is dragged.
    if (event->type() == QEvent::ShortcutOverride && m_pressed
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return QFrame::event(event);
}

void TXYSizer::mousePressEvent(QMouseEvent *event)
{
    QFrame::mousePressEvent(event);
    event->accept();
    if (event->button() != Qt::LeftButton) {
        return;
    }
    m_pressed = true;
    m_pressPoint = event->position().toPoint();
    m_pressPosition = pos();
    grabKeyboard();
}

void TXYSizer::mouseMoveEvent(QMouseEvent *event)
{
    QFrame::mouseMoveEvent(event);
    event->accept();
    if (!m_pressed || parentWidget() == nullptr) {
        return;
    }
    if (!event->buttons().testFlag(Qt::LeftButton)) { // the release went elsewhere
        Cancel();
        return;
    }
    const QPoint mouse = parentWidget()->mapFromGlobal(event->globalPosition().toPoint());
    const QRect allowed =
        parentWidget()->rect().adjusted(m_leftMargin, m_topMargin, -m_rightMargin, -m_bottomMargin);
    if (allowed.contains(mouse)) {
        move(mouse - m_pressPoint);
        PlaceGuides();
    }
}

void TXYSizer::PlaceGuides()
{
    QWidget *parent = parentWidget();
    const QPoint corner = pos() + m_pressPoint;
    const auto show = [parent](QWidget *guide, const QRect &place) {
        if (guide == nullptr) {
            return;
        }
        if (guide->parentWidget() != parent) {
            guide->setParent(parent);
        }
        guide->setGeometry(place);
        guide->raise();
        guide->show();
    };
    show(m_horizontalGuide,
         {kGuideMargin, corner.y(), parent->width() - 2 * kGuideMargin, kGuideWidth});
    show(m_verticalGuide,
         {corner.x(), kGuideMargin, kGuideWidth, parent->height() - 2 * kGuideMargin});
}

void TXYSizer::EndDrag()
{
    m_pressed = false;
    releaseKeyboard();
    for (QWidget *guide : {m_horizontalGuide.data(), m_verticalGuide.data()}) {
        if (guide != nullptr) {
            guide->hide();
        }
    }
}

void TXYSizer::Cancel()
{
    if (m_pressed) {
        EndDrag();
        move(m_pressPosition);
    }
}

void TXYSizer::mouseReleaseEvent(QMouseEvent *event)
{
    QFrame::mouseReleaseEvent(event);
    event->accept();
    if (event->button() != Qt::LeftButton || !m_pressed) {
        return;
    }
    const QPoint delta = pos() - m_pressPosition;
    EndDrag();
    const QPointer<TXYSizer> self(this);
    try {
        OnResize(this, FromQt(delta));
    } catch (const std::exception &error) {
        Report(error.what());
    }
    if (!self.isNull()) {
        Q_EMIT resized(delta);
    }
}

void TXYSizer::keyPressEvent(QKeyEvent *event)
{
    if (m_pressed && event->key() == Qt::Key_Escape) {
        Cancel();
    } else {
        QFrame::keyPressEvent(event);
    }
}

void TXYSizer::hideEvent(QHideEvent *event)
{
    QFrame::hideEvent(event);
    Cancel();
}

void TXYSizer::paintEvent(QPaintEvent *event)
{
    QFrame::paintEvent(event);
    QPainter(this).fillRect(rect(), Qt::black);
}

} // namespace korvane
