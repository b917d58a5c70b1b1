#include "tree/qt/zuTreeEdit.h"

#include "foundation/qt/zuConvert.h"
#include "tree/zuTreeData.h"

#include <QLabel>
#include <QPainter>
#include <QToolTip>
#include <QValidator>

#include <algorithm>

namespace korvane {

namespace {

constexpr int kHintGap = 2;

/// Lets anything be typed, but nothing be finished that is refused.
class TCaptionValidator : public QValidator
{
public:
    explicit TCaptionValidator(TTreeCaptionEdit &edit)
        : QValidator(&edit)
        , m_edit(edit)
    {
    }

    State validate(QString &text, int & /*position*/) const override
    {
        const bool same = text == m_edit.text();
        return CodePoints(FromQt(text)) > kMaxTreeText || (same && m_edit.IsRefused())
                   ? Intermediate
                   : Acceptable;
    }

private:
    TTreeCaptionEdit &m_edit;
};

} // namespace

TTreeCaptionEdit::TTreeCaptionEdit(QWidget *parent)
    : QLineEdit(parent)
{
    setFrame(false);
    setAutoFillBackground(true);
    setValidator(new TCaptionValidator(*this));
    connect(this, &QLineEdit::textChanged, this, &TTreeCaptionEdit::CheckLength);
}

TTreeCaptionEdit::~TTreeCaptionEdit()
{
    delete m_hint; // a sibling
}

void TTreeCaptionEdit::CheckLength()
{
    m_refused = false;
    const int length = CodePoints(FromQt(text()));
    if (length > kMaxTreeText) {
        Refuse(tr("A caption has at most %1 characters; this text has %2.")
                   .arg(kMaxTreeText)
                   .arg(length));
    } else if (m_hint != nullptr) {
        m_hint->hide();
    }
    update();
}

void TTreeCaptionEdit::Refuse(const QString &reason)
{
    m_refused = true;
    if (m_hint == nullptr) {
        m_hint = new QLabel(parentWidget());
        m_hint->setObjectName(QStringLiteral("captionHint"));
        m_hint->setPalette(QToolTip::palette());
        m_hint->setAutoFillBackground(true);
        m_hint->setFrameShape(QFrame::Box);
        m_hint->setMargin(3);
        m_hint->setWordWrap(true);
        m_hint->setForegroundRole(QPalette::ToolTipText);
        m_hint->setBackgroundRole(QPalette::ToolTipBase);
    }
    m_hint->setText(reason);
    setAccessibleDescription(reason);
    PlaceHint();
    m_hint->show();
    m_hint->raise();
    update();
}

/// Below the field, or above it where there is no room.
void TTreeCaptionEdit::PlaceHint()
{
    if (m_hint == nullptr) {
        return;
    }
    const QRect room = parentWidget()->rect();
    const int natural = m_hint->fontMetrics().horizontalAdvance(m_hint->text()) + 16;
    const int width = std::min(natural, room.width());
    const QSize size(width, m_hint->heightForWidth(width));
    int top = geometry().bottom() + 1 + kHintGap;
    if (top + size.height() > room.height()) {
        top = std::max(geometry().top() - kHintGap - size.height(), 0);
    }
    const int left = std::clamp(geometry().left(), 0, std::max(room.width() - width, 0));
    m_hint->setGeometry(QRect(QPoint(left, top), size));
}

void TTreeCaptionEdit::paintEvent(QPaintEvent *event)
{
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    const QColor refused(0xC8, 0x28, 0x28);
    painter.setPen(IsRefused() ? refused : palette().color(QPalette::Highlight));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void TTreeCaptionEdit::moveEvent(QMoveEvent *event)
{
    QLineEdit::moveEvent(event);
    PlaceHint();
}

void TTreeCaptionEdit::resizeEvent(QResizeEvent *event)
{
    QLineEdit::resizeEvent(event);
    PlaceHint();
}

} // namespace korvane
