#include "foundation/qt/zuGraphStuff.h"

#include "foundation/qt/zuToolkit.h"
#include "foundation/zuDoLater.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QStylePainter>
#include <QTimerEvent>
#include <QToolTip>
#include <QtMath>

#include <algorithm>

namespace korvane {

namespace {

constexpr int kMarginX = 8;
constexpr int kMarginY = 5;
constexpr int kColumnGap = 10;
/// From the pointer's tip to the window, so that the arrow covers nothing of it.
constexpr QPoint kBesidePointer(14, 20);
constexpr double kLabelOpacity = 0.7;

using TLater = TDoLaterCall;

/// The near corner of a window of `length` beside a point, kept within [low, high).
int Beside(int point, int distance, int length, int low, int high)
{
    const int after = point + distance;
    const int wanted = after + length <= high ? after : point - distance / 2 - length;
    return std::max(low, std::min(wanted, high - length));
}

} // namespace

TGraphHintWindow::TGraphHintWindow(QWidget *owner)
    : QWidget(owner, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowTransparentForInput
                         | Qt::WindowDoesNotAcceptFocus | Qt::BypassGraphicsProxyWidget)
{
    InstallToolkitServices();
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setFont(QToolTip::font());
    owner->installEventFilter(this);
}

TGraphHintWindow::~TGraphHintWindow()
{
    TDoLater::NeverMind(TLater::Bind<&TGraphHintWindow::DoShow_Later>(this));
    TDoLater::NeverMind(TLater::Bind<&TGraphHintWindow::DoHide_Later>(this));
}

void TGraphHintWindow::SetShowFlag(bool show)
{
    m_showFlag = show;
    if (!show) {
        DoHide();
    }
}

void TGraphHintWindow::SetText(const QString &text)
{
    if (text == m_text) {
        return;
    }
    m_text = text;
    m_lines.clear();
    const QStringList lines = text.isEmpty() ? QStringList() : text.split(u'\n');
    for (const QString &line : lines) {
        const auto tab = line.indexOf(u'\t');
        m_lines.append(tab < 0 ? TLine{line, {}, false}
                               : TLine{line.left(tab), line.mid(tab + 1), true});
    }
    CMTextChanged();
}

void TGraphHintWindow::CMTextChanged()
{
    updateGeometry();
    Place();
    update();
}

void TGraphHintWindow::SetBoundsRect(const QRect &bounds)
{
    if (bounds == m_bounds) {
        return;
    }
    m_bounds = bounds;
    UpdateStaticPos();
}

void TGraphHintWindow::SetStaticPos(bool on)
{
    if (on == m_static) {
        return;
    }
    m_static = on;
    Place();
}

void TGraphHintWindow::ShowMoveInfo(const QString &first, const QString &second,
                                    const QString &third, QPoint position)
{
    QStringList lines{first, second, third};
    lines.removeAll(QString());
    ShowDirect(lines.join(u'\n'), position);
}

void TGraphHintWindow::ShowDirect(const QString &text, QPoint position)
{
    m_slowTimer.stop();
    m_slowTarget = {};
    m_position = position;
    SetText(text);
    DoShow();
}

void TGraphHintWindow::ShowSlowHintFor(const QRect &target, QPoint position)
{
    m_position = position;
    if (target != m_slowTarget || target.isEmpty()) {
        DoHide();
        m_slowTarget = target;
    }
    if (!target.isEmpty() && !isVisible()) {
        // Every move starts the wait anew: the pointer has to rest.
        m_slowTimer.start(style()->styleHint(QStyle::SH_ToolTip_WakeUpDelay, nullptr, this), this);
    }
}

void TGraphHintWindow::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_slowTimer.timerId()) {
        QWidget::timerEvent(event);
        return;
    }
    m_slowTimer.stop();
    const QPointer<TGraphHintWindow> self(this);
    QString text;
    OnWantsNewText(this, m_position, text);
    if (!self.isNull()) {
        SetText(text);
        DoShow();
    }
}

void TGraphHintWindow::SetPos(QPoint position)
{
    m_position = position;
    Place();
}

void TGraphHintWindow::UpdateStaticPos()
{
    if (m_static) {
        Place();
    }
}

QRect TGraphHintWindow::AvailableGeometry() const
{
    const QScreen *screen = QGuiApplication::screenAt(m_position);
    return (screen != nullptr ? screen : parentWidget()->screen())->availableGeometry();
}

void TGraphHintWindow::Place()
{
    const QRect screen = AvailableGeometry();
    const bool standing = m_static && m_slowTarget.isEmpty();
    const QSize wanted = standing ? sizeHint().expandedTo(m_bounds.size()) : sizeHint();
    const QSize size = wanted.boundedTo(screen.size());
    const QPoint corner = standing
                              ? parentWidget()->mapToGlobal(m_bounds.topLeft())
                              : QPoint(Beside(m_position.x(), kBesidePointer.x(), size.width(),
                                              screen.left(), screen.right() + 1),
                                       Beside(m_position.y(), kBesidePointer.y(), size.height(),
                                              screen.top(), screen.bottom() + 1));
    setGeometry(QRect(corner, size));
}

void TGraphHintWindow::Watch(QWidget *form)
{
    if (form == m_watched) {
        return;
    }
    if (m_watched != nullptr && m_watched != parentWidget()) {
        m_watched->removeEventFilter(this);
    }
    m_watched = form;
    if (form != nullptr && form != parentWidget()) {
        form->installEventFilter(this);
    }
}

void TGraphHintWindow::DoShow()
{
    TDoLater::NeverMind(TLater::Bind<&TGraphHintWindow::DoHide_Later>(this));
    if (!m_showFlag || m_text.isEmpty() || !parentWidget()->isVisible() || !ParentFormActive()) {
        DoHide();
        return;
    }
    Watch(ParentForm());
    Place();
    show();
}

void TGraphHintWindow::DoHide()
{
    TDoLater::NeverMind(TLater::Bind<&TGraphHintWindow::DoShow_Later>(this));
    m_slowTimer.stop();
    m_slowTarget = {};
    Watch(nullptr);
    hide();
}

void TGraphHintWindow::DoShowAsync()
{
    TDoLater::NeverMind(TLater::Bind<&TGraphHintWindow::DoHide_Later>(this));
    TDoLater::DoLater(TLater::Bind<&TGraphHintWindow::DoShow_Later>(this));
}

void TGraphHintWindow::DoHideAsync()
{
    TDoLater::NeverMind(TLater::Bind<&TGraphHintWindow::DoShow_Later>(this));
    TDoLater::DoLater(TLater::Bind<&TGraphHintWindow::DoHide_Later>(this));
}

void TGraphHintWindow::DoShow_Later(TObject * /*parameter*/)
{
    DoShow();
}

void TGraphHintWindow::DoHide_Later(TObject * /*parameter*/)
{
    DoHide();
}

bool TGraphHintWindow::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::WindowDeactivate:
    case QEvent::Hide:
    case QEvent::Close:
        DoHide();
        break;
    case QEvent::Move:
        UpdateStaticPos();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void TGraphHintWindow::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        CMTextChanged();
    }
}

int TGraphHintWindow::LabelWidth() const
{
    int width = 0;
    for (const TLine &line : m_lines) {
        if (line.Labelled) {
            width = std::max(width, fontMetrics().horizontalAdvance(line.Text));
        }
    }
    return width;
}

QSize TGraphHintWindow::sizeHint() const
{
    const int valueLeft = LabelWidth() + kColumnGap;
    int width = 0;
    for (const TLine &line : m_lines) {
        const QString &text = line.Labelled ? line.Value : line.Text;
        const int left = line.Labelled ? valueLeft : 0;
        // Rounded up: what is a fraction of a pixel too long would be cut.
        width = std::max(width, left + qCeil(QFontMetricsF(font()).horizontalAdvance(text)));
    }
    const int height = fontMetrics().lineSpacing() * static_cast<int>(m_lines.size());
    return {width + 2 * kMarginX, height + 2 * kMarginY};
}

void TGraphHintWindow::paintEvent(QPaintEvent * /*event*/)
{
    QStylePainter painter(this);
    QStyleOptionFrame frame;
    frame.initFrom(this);
    painter.fillRect(rect(), palette().toolTipBase());
    painter.drawPrimitive(QStyle::PE_PanelTipLabel, frame);

    const QColor text = palette().color(QPalette::ToolTipText);
    QColor label = text;
    label.setAlphaF(kLabelOpacity);
    const int valueLeft = LabelWidth() + kColumnGap;
    QRect line = rect().adjusted(kMarginX, kMarginY, -kMarginX, 0);
    line.setHeight(fontMetrics().lineSpacing());
    const auto drawText = [&](const QRect &where, const QColor &color, const QString &what) {
        painter.setPen(color);
        painter.drawText(where, Qt::AlignLeft | Qt::AlignVCenter,
                         fontMetrics().elidedText(what, Qt::ElideRight, where.width()));
    };
    for (const TLine &each : qAsConst(m_lines)) {
        drawText(line, each.Labelled ? label : text, each.Text);
        if (each.Labelled) {
            drawText(line.adjusted(valueLeft, 0, 0, 0), text, each.Value);
        }
        line.translate(0, line.height());
    }
}

} // namespace korvane
