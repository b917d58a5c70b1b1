// What the user does in the tree's view: mouse, keys, editing, dragging.
#include "foundation/qt/zuConvert.h"
#include "foundation/zuReport.h"
#include "tree/qt/zuTreeAccessible.h"
#include "tree/qt/zuTreeComBasic.h"
#include "tree/qt/zuTreeEdit.h"
#include "tree/qt/zuTreeModel.h"
#include "tree/qt/zuTreePopup.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <utility>

namespace korvane {

namespace {

std::optional<TTreeKey> TreeKeyOf(const QKeyEvent &event, bool rightToLeft)
{
    if (event.matches(QKeySequence::SelectAll)) {
        return TTreeKey::SelectAll;
    }
    if ((event.modifiers() & (Qt::AltModifier | Qt::MetaModifier)) != 0) {
        return {};
    }
    switch (event.key()) {
    case Qt::Key_Up:
        return TTreeKey::Up;
    case Qt::Key_Down:
        return TTreeKey::Down;
    case Qt::Key_Left:
        return rightToLeft ? TTreeKey::Right : TTreeKey::Left;
    case Qt::Key_Right:
        return rightToLeft ? TTreeKey::Left : TTreeKey::Right;
    case Qt::Key_Home:
        return TTreeKey::Home;
    case Qt::Key_End:
        return TTreeKey::End;
    case Qt::Key_PageUp:
        return TTreeKey::PageUp;
    case Qt::Key_PageDown:
        return TTreeKey::PageDown;
    case Qt::Key_Plus:
        return TTreeKey::Expand;
    case Qt::Key_Minus:
        return TTreeKey::Collapse;
    case Qt::Key_Asterisk:
        return TTreeKey::ExpandAll;
    case Qt::Key_Space:
    case Qt::Key_Select:
        return TTreeKey::Select;
    default:
        return {};
    }
}

} // namespace

// --- what the view tells -------------------------------------------------------------------------

void TzuTree_ComBasic::ToggleNode(TTreeNode_zuSub &node, bool expand)
{
    NodeExpandedByUser(node, expand);
}

void TzuTree_ComBasic::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    TCustomTreeView::currentChanged(current, previous);
    TellCurrentRow(*this);
    if (m_mirroring > 0 || m_pressing) {
        return;
    }
    TTreeNode_zuSub *node = Nodes().NodeAt(current);
    if (node != nullptr && node->Data() != nullptr) {
        MousePressed(*node, {}, TMouseButton::mbLeft); // by an assistive program, say
        ForgetPress();
    } else {
        NodeSelectedByUser(node);
    }
}

void TzuTree_ComBasic::selectionChanged(const QItemSelection &selected,
                                        const QItemSelection &deselected)
{
    TCustomTreeView::selectionChanged(selected, deselected);
    if (m_mirroring == 0) {
        MarkSelected(deselected, false);
        MarkSelected(selected, true);
    }
}

void TzuTree_ComBasic::MarkSelected(const QItemSelection &selection, bool selected)
{
    const unsigned structure = m_structure;
    const auto unchanged = [this, structure] {
        m_selectionOutOfDate = m_selectionOutOfDate || structure != m_structure;
        return structure == m_structure; // no handler changed the nodes
    };
    for (const QItemSelectionRange &range : selection) {
        if (!unchanged() || !range.isValid()) {
            return;
        }
        const TTreeNode_zuSub *parent =
            range.parent().isValid() ? Nodes().NodeAt(range.parent()) : &RootNode();
        for (int row = range.top(); row <= range.bottom() && unchanged(); ++row) {
            NodeMarkedByUser(*parent->Child(row), selected);
        }
    }
}

QItemSelectionModel::SelectionFlags
TzuTree_ComBasic::selectionCommand(const QModelIndex & /*index*/, const QEvent * /*event*/) const
{
    return QItemSelectionModel::NoUpdate;
}

// --- mouse ---------------------------------------------------------------------------------------

void TzuTree_ComBasic::mousePressEvent(QMouseEvent *event)
{
    const bool right = event->button() == Qt::RightButton;
    if (right && !RightClickSelect()) {
        event->accept(); // the menu comes without a change of the selection
        return;
    }
    const QPoint point = event->position().toPoint();
    ForgetPress();
    m_pressedItem = false;
    if (const TTreeNode_zuSub *node = NodeAtPoint(point)) {
        m_pressedAgain = node->Data() != nullptr && IsOnlySelected(*node->Data());
    }
    const QPointer<TzuTree_ComBasic> lives(this);
    {
        const QScopedValueRollback pressing(m_pressing, true);
        TCustomTreeView::mousePressEvent(event);
        if (!lives) {
            return;
        }
    }
    TTreeNode_zuSub *node = NodeAtPoint(point);
    const TShiftState shift = FromQt(event->modifiers());
    if (node != nullptr && node->Data() != nullptr && IsOnItem(*node, point)) {
        m_pressedItem = !right;
        m_pressPoint = point;
        MousePressed(*node, shift, right ? TMouseButton::mbRight : TMouseButton::mbLeft);
    } else if (node == nullptr && !right && MultiSelect() && shift == TShiftState()) {
        ClearSelection();
    }
}

void TzuTree_ComBasic::mouseMoveEvent(QMouseEvent *event)
{
    if ((event->buttons() & Qt::LeftButton) == 0) {
        TCustomTreeView::mouseMoveEvent(event);
        return;
    }
    const QPoint point = event->position().toPoint();
    if (!m_pressedItem
        || (point - m_pressPoint).manhattanLength() < QApplication::startDragDistance()) {
        return;
    }
    if (m_dragMode == TDragMode::dmAutomatic) {
        m_pressedItem = false;
        ForgetPress();
        BeginDrag();
        return;
    }
    const int y = std::clamp(point.y(), 0, viewport()->height() - 1);
    TTreeNode_zuSub *node = NodeAtPoint({point.x(), y});
    if (MultiSelect() && node != nullptr && node->Data() != nullptr) {
        TShiftState shift = FromQt(event->modifiers());
        shift.Shift = true;
        MousePressed(*node, shift, TMouseButton::mbLeft);
        ScrollTowards(point.y());
    }
}

/// While rows are being selected outside of the client area.
void TzuTree_ComBasic::ScrollTowards(int y)
{
    if (y < 0 || y >= viewport()->height()) {
        SetTopRow(Geometry().TopRow + (y < 0 ? -1 : 1));
    }
}

void TzuTree_ComBasic::mouseReleaseEvent(QMouseEvent *event)
{
    const QPointer<TzuTree_ComBasic> lives(this);
    if (event->button() == Qt::LeftButton) {
        m_pressedItem = false;
        MouseReleased();
    }
    if (lives) {
        TCustomTreeView::mouseReleaseEvent(event);
    }
}

// --- keys ----------------------------------------------------------------------------------------

void TzuTree_ComBasic::keyPressEvent(QKeyEvent *event)
{
    const bool searching = !m_search.isEmpty() && m_searched.isValid()
                           && !m_searched.hasExpired(QApplication::keyboardInputInterval());
    if (searching && event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier) {
        keyboardSearch(event->text());
        return;
    }
    if (event->matches(QKeySequence::Delete) && AllowDelete() && state() != EditingState) {
        DeleteSelected();
        return;
    }
    const std::optional<TTreeKey> key = TreeKeyOf(*event, isRightToLeft());
    if (key && KeyDown(*key, FromQt(event->modifiers()))) {
        m_search.clear();
        return;
    }
    TCustomTreeView::keyPressEvent(event);
}

void TzuTree_ComBasic::keyboardSearch(const QString &typed)
{
    if (typed.isEmpty()) { // a key without a letter begins anew
        m_search.clear();
        return;
    }
    EnsureDisplayUpToDate();
    if (!m_searched.isValid() || m_searched.hasExpired(QApplication::keyboardInputInterval())) {
        m_search.clear();
    }
    m_searched.start();
    m_search += typed;
    // One letter again and again goes from row to row.
    const bool repeated = m_search.count(m_search.at(0)) == m_search.size();
    const QString wanted = repeated ? m_search.left(1) : m_search;
    const TTreeNode_zuSub *current = SelectedNode();
    const TTreeNode_zuSub *start =
        current != nullptr && current->IsShown() ? current : RootNode().NodeAtRow(0);
    if (start == nullptr) {
        return;
    }
    const TTreeNode_zuSub *node = start;
    if (repeated && current != nullptr) {
        node = node->NextShown();
    }
    for (int left = RootNode().RowCount() - 1; left > 0; --left) {
        node = node != nullptr ? node : RootNode().NodeAtRow(0);
        if (node->Data() != nullptr
            && ToQt(node->Data()->GetText()).startsWith(wanted, Qt::CaseInsensitive)) {
            TzuDataEntity_Tree &entity = *node->Data();
            MousePressed(*entity.Node(), {}, TMouseButton::mbLeft);
            MouseReleased();
            MakeVisibleIfCurrent();
            return;
        }
        node = node->NextShown();
    }
}

/// After a handler may have changed the tree.
void TzuTree_ComBasic::MakeVisibleIfCurrent()
{
    if (SelectedNode() != nullptr && SelectedNode()->Data() != nullptr) {
        MakeVisible(*SelectedNode()->Data());
    }
}

// --- editing in place ----------------------------------------------------------------------------

void TzuTree_ComBasic::EditNode(TTreeNode_zuSub &node)
{
    if (TzuDataEntity_Tree *entity = node.Data()) {
        MakeVisible(*entity);
        EnsureLayout();
        if (entity->Node() != nullptr) {
            edit(Nodes().IndexOf(entity->Node()), AllEditTriggers, nullptr);
        }
    }
}

bool TzuTree_ComBasic::edit(const QModelIndex &index, EditTrigger trigger, QEvent *event)
{
    if ((trigger & editTriggers()) == 0 && trigger != AllEditTriggers) {
        return TCustomTreeView::edit(index, trigger, event);
    }
    const TTreeNode_zuSub *node = Nodes().NodeAt(index);
    if (node == nullptr || node->Data() == nullptr || ReadOnly()) {
        return false;
    }
    if (indexWidget(index) != nullptr || state() == EditingState) {
        return TCustomTreeView::edit(index, trigger, event);
    }
    if (trigger == SelectedClicked) {
        // The view waits whether it becomes a double click, and then edits the current node.
        const auto *click = static_cast<const QMouseEvent *>(event);
        return std::exchange(m_pressedAgain, false) && click != nullptr
               && IsOnCaption(*node, click->position().toPoint())
               && TCustomTreeView::edit(index, trigger, event);
    }
    const unsigned structure = m_structure;
    return CanEdit(*node->Data()) && structure == m_structure
           && TCustomTreeView::edit(index, trigger, event);
}

void TzuTree_ComBasic::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint)
{
    auto *field = qobject_cast<TTreeCaptionEdit *>(editor);
    if (field != nullptr && field->IsRefused() && hint != QAbstractItemDelegate::RevertModelCache
        && indexAt(field->geometry().center()).isValid()) {
        field->setFocus();
        return;
    }
    if (m_mirroring == 0) {
        m_editedEntity = nullptr;
    } // otherwise its node goes, and it is yet to be seen what becomes of the text
    TCustomTreeView::closeEditor(editor, hint);
}

void TzuTree_ComBasic::commitData(QWidget *editor)
{
    if (m_mirroring == 0) {
        TCustomTreeView::commitData(editor);
    }
}

void TzuTree_ComBasic::EditorOpened(TTreeCaptionEdit &editor, TzuDataEntity_Tree *entity)
{
    m_editedEntity = entity;
    if (m_rescuedText) {
        editor.setText(*m_rescuedText);
        editor.setModified(true);
    }
}

void TzuTree_ComBasic::EditorGone(const TTreeCaptionEdit &editor)
{
    if (m_editedEntity != nullptr && editor.isModified()) {
        m_rescuedText = editor.text();
        PostUpdate();
    }
}

/// Of a caption whose editor went with its node.
void TzuTree_ComBasic::ResumeEditing()
{
    if (!m_rescuedText || m_editedEntity == nullptr) {
        m_rescuedText.reset();
        return;
    }
    TzuDataEntity_Tree &entity = *std::exchange(m_editedEntity, nullptr);
    if (entity.Node() != nullptr && entity.Node()->IsShown()) {
        setState(NoState);
        TCustomTreeView::edit(Nodes().IndexOf(entity.Node()), AllEditTriggers, nullptr);
        m_rescuedText.reset();
        return;
    }
    try {
        Edit(entity, FromQt(*std::exchange(m_rescuedText, {})));
    } catch (const std::length_error &error) {
        Report(error.what());
    }
}

// --- dragging ------------------------------------------------------------------------------------

void TzuTree_ComBasic::BeginDrag()
{
    m_dragging->Begin(TopmostSelected());
}

Qt::DropAction TzuTree_ComBasic::ExecDrag(QDrag &drag)
{
    return drag.exec(Qt::MoveAction | Qt::CopyAction, Qt::MoveAction);
}

void TzuTree_ComBasic::dragEnterEvent(QDragEnterEvent *event)
{
    m_dragging->Enter(*event);
}

void TzuTree_ComBasic::dragMoveEvent(QDragMoveEvent *event)
{
    m_dragging->Over(*event);
}

void TzuTree_ComBasic::dragLeaveEvent(QDragLeaveEvent * /*event*/)
{
    m_dragging->Leave();
}

void TzuTree_ComBasic::dropEvent(QDropEvent *event)
{
    m_dragging->Drop(*event);
}

void TzuTree_ComBasic::EntityLeaves(TzuDataEntity_Tree &entity, bool forGood)
{
    TTreeUserCore::EntityLeaves(entity, forGood);
    if (forGood) {
        m_dragging->Forget(entity);
        m_popupEntity = m_popupEntity == &entity ? nullptr : m_popupEntity;
        m_editedEntity = m_editedEntity == &entity ? nullptr : m_editedEntity;
    }
}

// --- menu ----------------------------------------------------------------------------------------

QMenu *TzuTree_ComBasic::PopupMenu()
{
    if (m_namedMenu.IsSet()) {
        return m_namedMenu.Menu(*this);
    }
    if (m_ownPopup && m_popupMenu == nullptr) {
        m_popupMenu = new TzuTreePopup(*this);
    }
    return m_popupMenu;
}

void TzuTree_ComBasic::SetPopupMenu(QMenu *menu)
{
    m_namedMenu.SetNames({});
    if (m_ownPopup && menu != m_popupMenu) {
        delete m_popupMenu;
    }
    m_ownPopup = m_ownPopup && menu != nullptr && menu == m_popupMenu;
    m_popupMenu = menu;
}

TzuDataEntity_Tree *TzuTree_ComBasic::PopupEntity()
{
    return m_popupEntity != nullptr ? m_popupEntity : GetCurrentDataEntity();
}

void TzuTree_ComBasic::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu *menu = PopupMenu();
    if (menu == nullptr) {
        event->ignore();
        return;
    }
    BringViewUpToDate();
    QPoint at = event->globalPos();
    if (event->reason() == QContextMenuEvent::Keyboard) {
        MakeVisibleIfCurrent();
        const TTreeNode_zuSub *current = SelectedNode();
        const QRect item = current != nullptr ? ItemRect(*current, RowRect(*current)) : QRect();
        at = viewport()->mapToGlobal(isRightToLeft() ? item.bottomRight() : item.bottomLeft());
        m_popupEntity = nullptr;
    } else {
        const TTreeNode_zuSub *node = NodeAtPoint(event->pos());
        m_popupEntity = node != nullptr ? node->Data() : nullptr;
    }
    viewport()->update();
    menu->popup(at);
    connect(
        menu, &QMenu::aboutToHide, this, [this] { viewport()->update(); },
        Qt::SingleShotConnection);
}

} // namespace korvane
