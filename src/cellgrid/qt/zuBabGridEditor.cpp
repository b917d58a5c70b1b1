#include "cellgrid/qt/zuBabGridEditor.h"

#include "cellgrid/qt/zuBabGridView.h"
#include "foundation/qt/zuConvert.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <optional>

namespace korvane {

namespace {

constexpr int kHintGap = 2;
constexpr int kHintTime = 8000;

std::optional<TEditKey> EditKeyOf(const QKeyEvent &event)
{
    const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const bool shift = modifiers == Qt::ShiftModifier;
    if (modifiers != Qt::NoModifier && !shift) {
        return std::nullopt;
    }
    const auto plain = [shift](TEditKey key) {
        return shift ? std::nullopt : std::optional<TEditKey>(key);
    };
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return shift ? TEditKey::ShiftEnter : TEditKey::Enter;
    case Qt::Key_Tab:
        return shift ? TEditKey::ShiftTab : TEditKey::Tab;
    case Qt::Key_Backtab:
        return TEditKey::ShiftTab;
    case Qt::Key_Escape:
        return plain(TEditKey::Escape);
    case Qt::Key_F2:
        return plain(TEditKey::F2);
    case Qt::Key_Left:
        return plain(TEditKey::Left);
    case Qt::Key_Right:
        return plain(TEditKey::Right);
    case Qt::Key_Up:
        return plain(TEditKey::Up);
    case Qt::Key_Down:
        return plain(TEditKey::Down);
    case Qt::Key_PageUp:
        return plain(TEditKey::PageUp);
    case Qt::Key_PageDown:
        return plain(TEditKey::PageDown);
    default:
        return std::nullopt;
    }
}

TEditKey Mirrored(TEditKey key)
{
    return key == TEditKey::Left ? TEditKey::Right : key == TEditKey::Right ? TEditKey::Left : key;
}

} // namespace

// --- the editor ----------------------------------------------------------------------------------

TBabGridEditor::TBabGridEditor(TBabGridView_Custom &view, const TEditStart &start)
    : QWidget(&view)
    , m_view(view)
    , m_start(start)
{
    const TAxisContentItem *column = start.At.Grid->Columns().FindLoaded(start.At.Column);
    const TAxisContentItem *row = start.At.Grid->Rows().FindLoaded(start.At.Row);
    TLayoutProp layout;
    if (column != nullptr && row != nullptr) {
        const TLayoutProp &own = view.LayoutOf(*start.At.Grid, *column, *row);
        layout.HorzAlignRight = own.HorzAlignRight;
        layout.VertAlignCenter = own.VertAlignCenter;
        setFont(own.UseFontInfo ? ToQt(own.Font) : view.font());
    }
    m_field = CreateGridField(start, layout.HorzAlignRight, this);
    m_field->OnResizeWanted = [this] { Changed(); };
    // Not from within the field, which a handler may do away with.
    m_field->OnPicked = [this] {
        QMetaObject::invokeMethod(
            this, [this] { m_view.CommitEdit(); }, Qt::QueuedConnection);
    };
    QWidget &field = m_field->Widget();
    field.setObjectName(QStringLiteral("gridField"));
    field.setAutoFillBackground(true);
    field.installEventFilter(this);
    setFocusProxy(&field);
    setCursor(Qt::IBeamCursor);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    m_field->Begin(ToQt(start.Text), start.How);
}

TBabGridEditor::~TBabGridEditor()
{
    m_field->Widget().removeEventFilter(this); // losing the focus now is no end of an edit
    delete m_hint;
}

void TBabGridEditor::Place(const TRect &cell, const TRect &clip)
{
    const TRect content = m_view.ContentRect(m_start.At, cell);
    const int left = std::max(cell.Left, content.Left - TBabGridLayoutCore::kPadding);
    TRect wanted{left - 1, cell.Top - 1, cell.Right, cell.Bottom};
    const QSize size = m_field->WantedSize(wanted.Width() - 2);
    // Beside the cell as far as there is room, to the side to which the text runs.
    if (size.width() + 2 > wanted.Width()) {
        wanted.Right = std::min(std::max(wanted.Right, clip.Right), wanted.Left + size.width() + 2);
    }
    wanted.Bottom = std::min(std::max(wanted.Bottom, clip.Bottom),
                             std::max(wanted.Bottom, wanted.Top + 2 + size.height()));
    const TRect shown = wanted.Intersected({clip.Left - 1, clip.Top - 1, clip.Right, clip.Bottom});
    const QRect place = m_view.FromGrid(shown);
    setGeometry(shown.IsEmpty() ? QRect(-1, -1, 0, 0) : place);
    const int rowHeight = m_view.RootCell().Rows().DefaultSize();
    const bool line = m_start.Kind != TColumnKind::tckMemo;
    const int height = wanted.Height() - 2;
    const QRect whole = m_view.FromGrid(wanted);
    const QRect field(whole.left() - place.left() + 1, whole.top() - place.top() + 1,
                      whole.width() - 2,
                      line ? std::min(height, std::max(rowHeight, size.height())) : height);
    m_field->Widget().setGeometry(field);
    PlaceHint();
}

void TBabGridEditor::Changed()
{
    if (m_hint != nullptr) {
        m_hint->deleteLater();
        m_hint = nullptr;
        m_field->Widget().setAccessibleDescription({});
        update();
    }
    m_view.PlaceEditor();
}

void TBabGridEditor::Refuse(const QString &reason)
{
    delete m_hint;
    auto *hint = new QLabel(reason, &m_view);
    hint->setObjectName(QStringLiteral("gridHint"));
    hint->setPalette(QToolTip::palette());
    hint->setForegroundRole(QPalette::ToolTipText);
    hint->setBackgroundRole(QPalette::ToolTipBase);
    hint->setAutoFillBackground(true);
    hint->setFrameShape(QFrame::Box);
    hint->setMargin(3);
    hint->setWordWrap(true);
    m_hint = hint;
    m_field->Widget().setAccessibleDescription(reason);
    PlaceHint();
    hint->show();
    hint->raise();
    update();
}

/// Below the field, or above it where there is no room.
void TBabGridEditor::PlaceHint()
{
    QLabel *hint = m_hint.data();
    if (hint == nullptr) {
        return;
    }
    const QRect room = m_view.rect();
    const int natural = hint->fontMetrics().horizontalAdvance(hint->text()) + 16;
    const int width = std::min(natural, room.width());
    const QSize size(width, hint->heightForWidth(width));
    int top = geometry().bottom() + 1 + kHintGap;
    if (top + size.height() > room.height()) {
        top = std::max(geometry().top() - kHintGap - size.height(), 0);
    }
    const int left = std::clamp(geometry().left(), 0, std::max(room.width() - width, 0));
    hint->setGeometry(QRect(QPoint(left, top), size));
}

void TBabGridEditor::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    const QColor refused(0xC8, 0x28, 0x28);
    painter.setPen(m_hint != nullptr ? refused : palette().color(QPalette::Highlight));
    const QRect field = m_field->Widget().geometry();
    painter.drawRect(field.left() - 1, field.top() - 1, field.width() + 1,
                     std::max(field.height() + 1, height() - 1 - (field.top() - 1)));
}

bool TBabGridEditor::KeyPressed(const QKeyEvent &event)
{
    const auto key = EditKeyOf(event);
    if (key && m_view.EditorKey(m_view.isRightToLeft() ? Mirrored(*key) : *key)) {
        return true;
    }
    m_view.ShowEditedCell();
    return m_field->OwnKey(event.key(), event.modifiers());
}

/// Whether a widget is the field or in it; choices are in a window of their own.
bool TBabGridEditor::IsOfField(const QWidget *widget) const
{
    while (widget != nullptr && widget != &m_field->Widget()) {
        widget = widget->parentWidget();
    }
    return widget != nullptr;
}

bool TBabGridEditor::eventFilter(QObject *object, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        if (EditKeyOf(*static_cast<QKeyEvent *>(event))) {
            event->accept(); // no shortcut while editing
            return true;
        }
        break;
    case QEvent::KeyPress:
        return KeyPressed(*static_cast<QKeyEvent *>(event));
    case QEvent::FocusOut: {
        // Popups are the editor's own, and menus above it. From another window the user comes back;
        // if he does not, because this one is being destroyed, nobody can mend what is refused.
        const auto reason = static_cast<QFocusEvent *>(event)->reason();
        if (reason != Qt::PopupFocusReason && reason != Qt::MenuBarFocusReason
            && reason != Qt::ActiveWindowFocusReason && !IsOfField(QApplication::focusWidget())) {
            const QPointer<QWidget> self(this);
            m_view.CommitEdit();
            return self.isNull();
        }
        break;
    }
    default:
        break;
    }
    return QWidget::eventFilter(object, event);
}

// --- opening -------------------------------------------------------------------------------------

TBabGridEditOpener::~TBabGridEditOpener()
{
    delete m_editor.data();
}

void TBabGridEditOpener::OpenEditor(const TEditStart &start)
{
    m_editor = new TBabGridEditor(m_view, start);
}

std::string TBabGridEditOpener::EditorText() const
{
    return m_editor != nullptr ? FromQt(m_editor->Text()) : std::string();
}

void TBabGridEditOpener::PlaceEditor(const TRect &cell, const TRect &clip)
{
    TBabGridEditor *editor = m_editor.data();
    if (editor == nullptr) {
        return;
    }
    editor->Place(cell, clip);
    if (editor->isHidden()) {
        editor->show();
        editor->setFocus();
    }
}

void TBabGridEditOpener::CloseEditor()
{
    TBabGridEditor *editor = m_editor;
    m_editor = nullptr;
    if (editor == nullptr) {
        return;
    }
    if (editor->IsOfField(m_view.window()->focusWidget())) {
        m_view.setFocus(); // rather than the next one in the order of tabs
    }
    editor->hide();
    editor->deleteLater();
    m_view.Invalidate();
}

void TBabGridEditOpener::ShowRefusal(const TRect &cell, std::string_view reason)
{
    if (m_editor != nullptr) {
        m_editor->Refuse(ToQt(reason));
        return;
    }
    const QPoint below = m_view.FromGrid(cell).bottomLeft();
    QToolTip::showText(m_view.mapToGlobal(below), ToQt(reason).toHtmlEscaped().prepend("<qt>"),
                       &m_view, {}, kHintTime);
}

} // namespace korvane
