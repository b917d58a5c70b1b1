#include "cellgrid/qt/zuBabGridEditFields.h"

#include "cellgrid/zuBabCell.h"
#include "foundation/qt/zuConvert.h"
#include "foundation/zuFormat.h"

#include <QAbstractItemView>
#include <QAction>
#include <QCalendarWidget>
#include <QCompleter>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace korvane {

namespace {

constexpr int kTextMargin = 2; ///< with the field's own, text stands where the cell draws it
constexpr int kCaretRoom = 14;
constexpr int kButtonRoom = 26;
constexpr int kMemoLines = 3;
constexpr int kMinutesPerChoice = 30;

void PlaceCaret(QLineEdit &edit, TEditBegin how)
{
    if (how == TEditBegin::Whole) {
        edit.selectAll();
    } else {
        edit.end(false);
    }
}

class TLineField : public QLineEdit, public IGridField
{
public:
    explicit TLineField(QWidget *parent)
        : QLineEdit(parent)
    {
        setFrame(false);
        setTextMargins(kTextMargin, 0, kTextMargin, 0);
        connect(this, &QLineEdit::textChanged, this, [this] { OnResizeWanted(); });
    }
    QWidget &Widget() override { return *this; }
    QString Text() const override { return text(); }
    void Begin(const QString &text, TEditBegin how) override
    {
        setText(text);
        PlaceCaret(*this, how);
    }
    QSize WantedSize(int /*cellWidth*/) const override
    {
        return {fontMetrics().horizontalAdvance(text()) + kCaretRoom, fontMetrics().height() + 2};
    }
};

class TMemoField : public QPlainTextEdit, public IGridField
{
public:
    explicit TMemoField(QWidget *parent)
        : QPlainTextEdit(parent)
    {
        setFrameShape(NoFrame);
        setTabChangesFocus(true);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        document()->setDocumentMargin(TBabGridLayoutCore::kPadding);
        connect(this, &QPlainTextEdit::textChanged, this, [this] { OnResizeWanted(); });
    }
    QWidget &Widget() override { return *this; }
    QString Text() const override { return toPlainText(); }
    void Begin(const QString &text, TEditBegin how) override
    {
        setPlainText(text);
        if (how == TEditBegin::Whole) {
            selectAll();
        } else {
            moveCursor(QTextCursor::End);
        }
    }
    QSize WantedSize(int cellWidth) const override
    {
        const int margin = TBabGridLayoutCore::kPadding;
        const QRect text = fontMetrics().boundingRect(
            QRect(0, 0, std::max(cellWidth - 2 * margin - 2, 1), 1 << 20),
            Qt::TextWrapAnywhere | Qt::TextWordWrap, toPlainText() + QChar(u'|'));
        const int lines =
            std::max(kMemoLines, text.height() / std::max(1, fontMetrics().lineSpacing()) + 1);
        return {0, lines * fontMetrics().lineSpacing() + 2 * margin};
    }
    bool OwnKey(int key, Qt::KeyboardModifiers modifiers) override
    {
        const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
        if (!enter || (modifiers & (Qt::AltModifier | Qt::ControlModifier)) == 0) {
            return false;
        }
        insertPlainText(QStringLiteral("\n"));
        return true;
    }
};

class TComboField : public QComboBox, public IGridField
{
public:
    TComboField(const QStringList &items, QWidget *parent)
        : QComboBox(parent)
    {
        setEditable(true);
        setInsertPolicy(NoInsert);
        setFrame(false);
        addItems(items);
        lineEdit()->setFrame(false);
        completer()->setCompletionMode(QCompleter::PopupCompletion);
        completer()->setFilterMode(Qt::MatchContains);
        completer()->setCaseSensitivity(Qt::CaseInsensitive);
        connect(this, &QComboBox::activated, this, [this] { OnPicked(); });
    }
    QWidget &Widget() override { return *this; }
    QString Text() const override { return currentText(); }
    void Begin(const QString &text, TEditBegin how) override
    {
        setCurrentIndex(findText(text));
        setEditText(text);
        PlaceCaret(*lineEdit(), how);
    }
    QSize WantedSize(int /*cellWidth*/) const override
    {
        return {minimumSizeHint().width(), fontMetrics().height() + 2};
    }

protected:
    void wheelEvent(QWheelEvent *event) override
    {
        event->ignore(); // scrolls the grid rather than changing the choice
    }
};

/// A line with a calendar behind it.
class TDateField : public TLineField
{
public:
    explicit TDateField(QWidget *parent)
        : TLineField(parent)
    {
        auto *open = addAction(Icon(), TrailingPosition);
        open->setToolTip(QCoreApplication::translate("TzuGrid", "Calendar"));
        connect(open, &QAction::triggered, this, [this] { ShowCalendar(); });
    }
    QSize WantedSize(int cellWidth) const override
    {
        return TLineField::WantedSize(cellWidth) + QSize(kButtonRoom, 0);
    }
    bool OwnKey(int key, Qt::KeyboardModifiers modifiers) override
    {
        const bool opens =
            key == Qt::Key_F4 || (key == Qt::Key_Down && modifiers.testFlag(Qt::AltModifier));
        if (opens) {
            ShowCalendar();
        }
        return opens;
    }

private:
    QIcon Icon() const;
    void ShowCalendar();
};

QIcon TDateField::Icon() const
{
    constexpr int kSide = 16;
    const qreal ratio = devicePixelRatioF();
    QPixmap picture(QSize(kSide, kSide) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    QColor ink = palette().color(QPalette::Text);
    ink.setAlphaF(0.7F);
    painter.setPen(ink);
    painter.drawRect(QRect(2, 3, 11, 10));
    painter.fillRect(QRect(2, 3, 12, 3), ink);
    for (const int y : {8, 10}) {
        for (const int x : {4, 7, 10}) {
            painter.fillRect(QRect(x, y, 2, 1), ink);
        }
    }
    return QIcon(picture);
}

void TDateField::ShowCalendar()
{
    auto *popup = new QWidget(this, Qt::Popup);
    popup->setAttribute(Qt::WA_DeleteOnClose);
    auto *layout = new QVBoxLayout(popup);
    layout->setContentsMargins(1, 1, 1, 1);
    auto *calendar = new QCalendarWidget;
    calendar->setObjectName(QStringLiteral("gridCalendar"));
    layout->addWidget(calendar);
    TBabCellData_DateTime typed(TDateTimePart::Date);
    if (typed.SetText(FromQt(text())) && !typed.IsEmpty()) {
        calendar->setSelectedDate(ToQDateTime(typed.Value()).date());
    }
    const auto pick = [this, popup](QDate date) {
        setText(ToQt(FormatDate({}, FromQt(QDateTime(date, QTime(0, 0))))));
        popup->close();
        OnPicked();
    };
    connect(calendar, &QCalendarWidget::clicked, this, pick);
    connect(calendar, &QCalendarWidget::activated, this, pick);
    popup->adjustSize();
    const QRect screen = this->screen()->availableGeometry();
    QPoint at = mapToGlobal(QPoint(0, height()));
    if (at.y() + popup->height() > screen.bottom()) {
        at.setY(mapToGlobal(QPoint()).y() - popup->height());
    }
    at.setX(std::clamp(at.x(), screen.left(),
                       std::max(screen.left(), screen.right() - popup->width())));
    popup->move(at);
    popup->show();
    calendar->setFocus(Qt::PopupFocusReason); // no end of the edit
}

QStringList TimesOfDay()
{
    QStringList times;
    constexpr int kMinutesPerDay = 24 * 60;
    for (int minute = 0; minute < kMinutesPerDay; minute += kMinutesPerChoice) {
        times << ToQt(FormatTime({}, static_cast<double>(minute) / kMinutesPerDay));
    }
    return times;
}

/// A combo of the times of a day that opens near the one that is typed.
class TTimeField : public TComboField
{
public:
    explicit TTimeField(QWidget *parent)
        : TComboField(TimesOfDay(), parent)
    {
        completer()->setFilterMode(Qt::MatchStartsWith);
        completer()->setCompletionMode(QCompleter::InlineCompletion);
        setCompleter(nullptr); // "1" is to stay a one
    }
    void showPopup() override
    {
        TBabCellData_DateTime typed(TDateTimePart::Time);
        if (typed.SetText(FromQt(currentText())) && !typed.IsEmpty()) {
            constexpr int kChoices = 24 * 60 / kMinutesPerChoice;
            const QString text = currentText();
            setCurrentIndex(static_cast<int>(typed.Value() * kChoices + 1e-6) % kChoices);
            setEditText(text);
        }
        TComboField::showPopup();
    }
};

} // namespace

IGridField *CreateGridField(const TEditStart &start, bool right, QWidget *parent)
{
    switch (start.Kind) {
    case TColumnKind::tckMemo:
        return new TMemoField(parent);
    case TColumnKind::tckCombo: {
        QStringList items;
        for (const std::string &item : start.Items) {
            items << ToQt(item);
        }
        return new TComboField(items, parent);
    }
    case TColumnKind::tckDate:
        return new TDateField(parent);
    case TColumnKind::tckTime:
        return new TTimeField(parent);
    default: {
        auto *line = new TLineField(parent);
        line->setAlignment((right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
        return line;
    }
    }
}

} // namespace korvane
