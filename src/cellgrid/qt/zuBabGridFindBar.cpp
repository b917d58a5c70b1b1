#include "cellgrid/qt/zuBabGridFindBar.h"

#include "cellgrid/qt/zuBabGridView.h"
#include "foundation/qt/zuConvert.h"

#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QStyle>
#include <QTimerEvent>
#include <QToolButton>

namespace korvane {

namespace {

constexpr int kCellsPerLook = 200;
constexpr int kSliceMilliseconds = 8;
constexpr int kFieldWidth = 220;

QToolButton *CreateButton(QWidget *bar, Qt::ArrowType arrow)
{
    auto *button = new QToolButton(bar);
    button->setArrowType(arrow);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

} // namespace

TBabGridFindBar::TBabGridFindBar(TBabGridView_Custom &view)
    : QFrame(&view)
    , m_view(view)
    , m_field(new QLineEdit(this))
    , m_message(new QLabel(this))
    , m_previous(CreateButton(this, Qt::UpArrow))
    , m_next(CreateButton(this, Qt::DownArrow))
    , m_close(CreateButton(this, Qt::NoArrow))
{
    setAutoFillBackground(true);
    m_close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    setCursor(Qt::ArrowCursor);
    m_field->setClearButtonEnabled(true);
    m_field->setMaximumWidth(kFieldWidth);
    m_field->installEventFilter(this);
    m_message->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    setFocusProxy(m_field);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(4, 3, 4, 3);
    row->setSpacing(3);
    row->addWidget(m_field, 3);
    row->addWidget(m_previous);
    row->addWidget(m_next);
    row->addWidget(m_message, 2);
    row->addWidget(m_close);
    connect(m_field, &QLineEdit::textEdited, this, [this] { Find(TGridFindFrom::Here); });
    connect(m_previous, &QToolButton::clicked, this, [this] { Find(TGridFindFrom::Previous); });
    connect(m_next, &QToolButton::clicked, this, [this] { Find(TGridFindFrom::Next); });
    connect(m_close, &QToolButton::clicked, this, &TBabGridFindBar::Close);
    Retranslate();
}

void TBabGridFindBar::Retranslate()
{
    m_field->setPlaceholderText(tr("Find"));
    m_field->setAccessibleName(tr("Find"));
    m_previous->setToolTip(tr("Find Previous"));
    m_next->setToolTip(tr("Find Next"));
    m_close->setToolTip(tr("Close"));
    for (QToolButton *button : {m_previous, m_next, m_close}) {
        button->setAccessibleName(button->toolTip());
    }
}

QString TBabGridFindBar::Text() const
{
    return m_field->text();
}

void TBabGridFindBar::Open(const QString &text)
{
    show();
    if (!text.isEmpty()) {
        m_field->setText(text);
    }
    m_field->selectAll();
    m_field->setFocus(Qt::ShortcutFocusReason);
}

void TBabGridFindBar::Close()
{
    m_timer.stop();
    m_view.BeginFind({}, TGridFindFrom::Here);
    const bool hadFocus = m_field->hasFocus();
    hide();
    ShowState(TGridFindState::Idle);
    if (hadFocus) {
        m_view.setFocus(Qt::OtherFocusReason);
    }
}

void TBabGridFindBar::Find(TGridFindFrom from)
{
    const QPointer<TBabGridFindBar> self(this);
    m_view.BeginFind(FromQt(m_field->text()), from);
    if (self.isNull()) {
        return;
    }
    ShowState(m_view.FindState());
    if (m_view.FindState() == TGridFindState::Searching) {
        m_timer.start(0, this);
    }
}

void TBabGridFindBar::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_timer.timerId()) {
        QFrame::timerEvent(event);
        return;
    }
    const QPointer<TBabGridFindBar> self(this); // handlers may destroy the view
    QElapsedTimer time;
    time.start();
    while (m_view.FindOn(kCellsPerLook) == TGridFindState::Searching && !self.isNull()
           && time.elapsed() < kSliceMilliseconds) {
    }
    if (self.isNull()) {
        return;
    }
    if (m_view.FindState() != TGridFindState::Searching) {
        m_timer.stop();
    }
    ShowState(m_view.FindState());
}

void TBabGridFindBar::ShowState(TGridFindState state)
{
    const bool notFound = state == TGridFindState::NotFound;
    QString message;
    if (notFound) {
        message = tr("Not found");
    } else if (state == TGridFindState::Found && m_view.FindWentRound()) {
        message = tr("Went on from the other end");
    }
    if (state != TGridFindState::Searching) { // what was said stays until there is something new
        m_message->setText(message);
        m_message->setToolTip(message);
    }
    QPalette palette = this->palette();
    if (notFound) {
        const bool dark = palette.color(QPalette::Base).lightness() < 128;
        palette.setColor(QPalette::Base,
                         dark ? QColor(0x60, 0x28, 0x28) : QColor(0xff, 0xdc, 0xdc));
    }
    m_field->setPalette(palette);
}

bool TBabGridFindBar::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride) {
        return QFrame::eventFilter(object, event);
    }
    auto &key = *static_cast<QKeyEvent *>(event);
    const bool enter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
    const bool shift = key.modifiers().testFlag(Qt::ShiftModifier);
    const bool next = key.matches(QKeySequence::FindNext) || (enter && !shift);
    const bool previous = key.matches(QKeySequence::FindPrevious) || (enter && shift);
    const bool again = key.matches(QKeySequence::Find);
    if (!next && !previous && !again && key.key() != Qt::Key_Escape) {
        return QFrame::eventFilter(object, event);
    }
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
    } else if (key.key() == Qt::Key_Escape) {
        Close();
    } else if (again) {
        m_field->selectAll();
    } else {
        Find(next ? TGridFindFrom::Next : TGridFindFrom::Previous);
    }
    return true;
}

void TBabGridFindBar::changeEvent(QEvent *event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        Retranslate();
    }
}

} // namespace korvane
