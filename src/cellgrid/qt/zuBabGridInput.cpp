// Mouse, keyboard and tooltips of the grid view.
#include "cellgrid/qt/zuBabGridFindBar.h"
#include "cellgrid/qt/zuBabGridView.h"
#include "foundation/qt/zuConvert.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <QTimerEvent>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <array>
#include <optional>

namespace korvane {

namespace {

constexpr int kAutoScrollInterval = 30;
constexpr int kTypingPause = 1000;
constexpr int kWheelStep = 120;
constexpr int kRowsPerWheelStep = 3;

std::optional<TGridMove> MoveOf(int key, bool ctrl)
{
    switch (key) {
    case Qt::Key_Left:
        return ctrl ? TGridMove::RowBegin : TGridMove::Left;
    case Qt::Key_Right:
        return ctrl ? TGridMove::RowEnd : TGridMove::Right;
    case Qt::Key_Up:
        return TGridMove::Up;
    case Qt::Key_Down:
        return TGridMove::Down;
    case Qt::Key_PageUp:
        return TGridMove::PageUp;
    case Qt::Key_PageDown:
        return TGridMove::PageDown;
    case Qt::Key_Home:
        return ctrl ? TGridMove::First : TGridMove::RowBegin;
    case Qt::Key_End:
        return ctrl ? TGridMove::Last : TGridMove::RowEnd;
    default:
        return std::nullopt;
    }
}

} // namespace

// --- mouse ---------------------------------------------------------------------------------------

void TBabGridView_Custom::mousePressEvent(QMouseEvent *event)
{
    const QPointer<QWidget> self(this); // handlers may destroy the control
    TzuOffscreenPaint::mousePressEvent(event);
    const auto button = MouseButtonFromQt(event->button());
    // A text that is refused is mended first.
    if (!self.isNull() && button && CommitEdit() && !self.isNull()) {
        MouseDown(*button, FromQt(event->modifiers()), ToGrid(event->position().toPoint()));
    }
    if (!self.isNull() && InGesture()) {
        m_autoScroll.start(kAutoScrollInterval, this);
    }
}

void TBabGridView_Custom::mouseMoveEvent(QMouseEvent *event)
{
    const QPointer<QWidget> self(this);
    TzuOffscreenPaint::mouseMoveEvent(event);
    if (!self.isNull()) {
        const TPoint place = ToGrid(event->position().toPoint());
        SetMousePlace(event->buttons() == Qt::NoButton ? std::optional(place) : std::nullopt);
        MouseMove(FromQt(event->modifiers()), place);
    }
}

void TBabGridView_Custom::mouseReleaseEvent(QMouseEvent *event)
{
    m_autoScroll.stop();
    const QPointer<QWidget> self(this);
    TzuOffscreenPaint::mouseReleaseEvent(event);
    const auto button = MouseButtonFromQt(event->button());
    if (!self.isNull() && button) {
        MouseUp(*button, FromQt(event->modifiers()), ToGrid(event->position().toPoint()));
    }
}

void TBabGridView_Custom::mouseDoubleClickEvent(QMouseEvent *event)
{
    const QPointer<QWidget> self(this);
    TzuOffscreenPaint::mouseDoubleClickEvent(event);
    if (self.isNull() || event->button() != Qt::LeftButton) {
        return;
    }
    const TPoint point = ToGrid(event->position().toPoint());
    const TGridPart part = HitTest(point).Part;
    if (part == TGridPart::CheckBox || part == TGridPart::TreeButton) {
        MouseDown(TMouseButton::mbLeft, FromQt(event->modifiers()), point); // a second click
    } else {
        DblClick(point);
    }
}

void TBabGridView_Custom::leaveEvent(QEvent *event)
{
    TzuOffscreenPaint::leaveEvent(event);
    SetMousePlace(std::nullopt);
    if (!InGesture()) {
        SetGridCursor(TGridCursor::Arrow);
    }
}

void TBabGridView_Custom::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_autoScroll.timerId()) {
        AutoScroll();
    } else {
        TzuOffscreenPaint::timerEvent(event);
    }
}

void TBabGridView_Custom::wheelEvent(QWheelEvent *event)
{
    TzuOffscreenPaint::wheelEvent(event);
    QPoint turn = event->angleDelta();
    if (event->modifiers().testFlag(Qt::ShiftModifier) && turn.x() == 0) {
        turn = turn.transposed();
    }
    QPoint pixels = event->pixelDelta();
    if (isRightToLeft()) {
        turn.rx() *= -1;
        pixels.rx() *= -1;
    }
    const int rowHeight = RootCell().Rows().DefaultSize();
    if (!pixels.isNull()) {
        ScrollTo(ScrollX() - pixels.x(), ScrollY() - pixels.y());
    } else if (m_smoothScrolling) {
        const int step = kRowsPerWheelStep * rowHeight;
        ScrollTo(ScrollX() - turn.x() * step / kWheelStep,
                 ScrollY() - turn.y() * step / kWheelStep);
    } else {
        m_wheelRest += turn;
        const int rows = m_wheelRest.y() * kRowsPerWheelStep / kWheelStep;
        m_wheelRest.ry() -= rows * kWheelStep / kRowsPerWheelStep;
        ScrollRows(-rows);
        ScrollTo(ScrollX() - turn.x() * rowHeight / kWheelStep, ScrollY());
    }
    event->accept();
}

bool TBabGridView_Custom::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        ShowToolTip(*static_cast<QHelpEvent *>(event));
        return true;
    }
    if (ScrolledByFinger(*event)) {
        return true;
    }
    return TzuOffscreenPaint::event(event);
}

/// The whole text of a cell in which it is cut.
void TBabGridView_Custom::ShowToolTip(const QHelpEvent &help)
{
    const TGridHit hit = HitTest(ToGrid(help.pos()));
    const std::string text = hit.At ? CutText(hit.At) : std::string();
    if (text.empty()) {
        QToolTip::showText(help.globalPos(), toolTip(), this);
    } else {
        QToolTip::showText(help.globalPos(), ToQt(text).toHtmlEscaped().prepend("<qt>"), this,
                           FromGrid(hit.Rect));
    }
}

// --- keyboard ------------------------------------------------------------------------------------

bool TBabGridView_Custom::focusNextPrevChild(bool next)
{
    // Tab goes from cell to cell, and past the last one out of the grid.
    const QPointer<QWidget> self(this);
    if (hasFocus() && FocusCell() && (TabMove(!next) || self.isNull())) {
        return true;
    }
    return TzuOffscreenPaint::focusNextPrevChild(next);
}

void TBabGridView_Custom::keyPressEvent(QKeyEvent *event)
{
    int key = event->key();
    const QPointer<QWidget> self(this);
    OnKeyDown(this, key, FromQt(event->modifiers()));
    if (self.isNull() || key == 0) {
        return;
    }
    using TKey = bool (TBabGridView_Custom::*)(const QKeyEvent &);
    constexpr std::array<TKey, 5> kKeys{
        &TBabGridView_Custom::KeyMoves, &TBabGridView_Custom::KeyActs,
        &TBabGridView_Custom::KeyFinds, &TBabGridView_Custom::KeyExpands,
        &TBabGridView_Custom::KeyEdits};
    const bool used = std::any_of(kKeys.begin(), kKeys.end(), [&](TKey handle) {
        return self.isNull() || (this->*handle)(*event);
    });
    if (used) {
        event->accept();
    } else if (!self.isNull()) {
        QWidget::keyPressEvent(event);
    }
}

bool TBabGridView_Custom::KeyMoves(const QKeyEvent &event)
{
    const bool ctrl = event.modifiers().testFlag(Qt::ControlModifier);
    const auto move = MoveOf(event.key(), ctrl);
    if (!move) {
        return false;
    }
    if (event.modifiers().testFlag(Qt::AltModifier)) {
        const bool sideways = event.key() == Qt::Key_Left || event.key() == Qt::Key_Right;
        return sideways
               && ExpandNode(FocusCell(), (event.key() == Qt::Key_Right) != isRightToLeft());
    }
    const TGridMove logical = isRightToLeft() && move == TGridMove::Left    ? TGridMove::Right
                              : isRightToLeft() && move == TGridMove::Right ? TGridMove::Left
                                                                            : *move;
    const bool shift = event.modifiers().testFlag(Qt::ShiftModifier);
    if (shift || !MoveInTree(logical)) {
        MoveFocus(logical, shift && MultiSelect() ? TGridChoice::Extend : TGridChoice::Set);
    }
    return true;
}

bool TBabGridView_Custom::KeyActs(const QKeyEvent &event)
{
    if (event.matches(QKeySequence::SelectAll)) {
        SelectAll();
        return true;
    }
    if (event.matches(QKeySequence::Copy)) {
        CopyToClipboard();
        return true;
    }
    switch (event.key()) {
    case Qt::Key_Escape:
        if (InGesture()) {
            CancelGesture();
            return true;
        }
        return MoveFocus(TGridMove::Leave, TGridChoice::Set);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return MoveFocus(TGridMove::Enter, TGridChoice::Set)
               || EnterMove(event.modifiers().testFlag(Qt::ShiftModifier));
    default:
        return false;
    }
}

bool TBabGridView_Custom::KeyFinds(const QKeyEvent &event)
{
    const bool next = event.matches(QKeySequence::FindNext);
    if (!m_findEnable
        || (!next && !event.matches(QKeySequence::FindPrevious)
            && !event.matches(QKeySequence::Find))) {
        return false;
    }
    if (event.matches(QKeySequence::Find) || FindBar().Text().isEmpty()) {
        ShowFindBar();
    } else {
        FindBar().Find(next ? TGridFindFrom::Next : TGridFindFrom::Previous);
    }
    return true;
}

bool TBabGridView_Custom::KeyExpands(const QKeyEvent &event)
{
    const TGridCellAt at = FocusCell();
    const QString text = event.text();
    if (!at || !at.Grid->ShowsTree() || text.size() != 1 || !QStringLiteral("+-*").contains(text)) {
        return false;
    }
    const bool keypad = event.modifiers().testFlag(Qt::KeypadModifier);
    const bool types = AutoEditMode() && MayEdit(at);
    if (!keypad && (types || TreeNodeAt(at) == nullptr)) {
        return false;
    }
    if (text == QStringLiteral("*")) {
        ExpandNodeBelow(at);
    } else {
        ExpandNode(at, text == QStringLiteral("+"));
    }
    return true;
}

bool TBabGridView_Custom::KeyEdits(const QKeyEvent &event)
{
    if (event.matches(QKeySequence::Paste)) {
        PasteFromClipboard();
        return true;
    }
    if (event.matches(QKeySequence::Cut)) {
        CopyToClipboard();
        ClearCells();
        return true;
    }
    if (event.matches(QKeySequence::Delete)) {
        ClearCells();
        return true;
    }
    const bool plain = (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
    if (!plain) {
        return false;
    }
    if (event.key() == Qt::Key_F2) {
        return BeginEdit(FocusCell(), TEditBegin::AtEnd);
    }
    if (event.key() == Qt::Key_Backspace && AutoEditMode()) {
        return BeginEdit(FocusCell(), TEditBegin::Replace);
    }
    return !event.text().isEmpty() && event.text().at(0).isPrint() && KeyTypes(event.text());
}

bool TBabGridView_Custom::KeyTypes(const QString &text)
{
    const TGridCellAt at = FocusCell();
    const TAxisContentItem *item = at ? at.Grid->Columns().FindLoaded(at.Column) : nullptr;
    const TBabColumn *column = item != nullptr ? ColumnOf(*item) : nullptr;
    const bool checkBox = column != nullptr && column->Kind() == TColumnKind::tckBool;
    const QPointer<QWidget> self(this);
    if (checkBox && text == QStringLiteral(" ")) {
        ToggleCheckBox(at);
    } else if (!AutoEditMode() || !BeginEdit(at, TEditBegin::Replace, FromQt(text))) {
        if (!self.isNull()) {
            TypeToFind(text);
        }
    }
    return true;
}

void TBabGridView_Custom::TypeToFind(const QString &text)
{
    const bool again = !m_sinceTyped.isValid() || m_sinceTyped.elapsed() > kTypingPause;
    const bool fromNext = again || m_typed == text; // one letter repeated goes on
    m_typed = again ? text : m_typed == text ? text : m_typed + text;
    m_sinceTyped.restart();
    FindText(FromQt(m_typed), fromNext);
}

} // namespace korvane
