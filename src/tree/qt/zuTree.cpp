#include "tree/qt/zuTree.h"

#include "foundation/qt/zuToolkit.h"
#include "foundation/zuReport.h"
#include "tree/qt/zuTreeDelegate.h"
#include "tree/qt/zuTreeModel.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace korvane {

namespace {

/// Beyond this many changes between two layouts it is cheaper to let the view read all anew: a
/// change in place costs as much as there are expanded nodes.
constexpr int kChangesInPlace = 8;

} // namespace

/// While it exists the view follows the tree and does not tell it anything.
class TzuTree_ComBasic::TMirroring
{
public:
    explicit TMirroring(TzuTree_ComBasic &tree)
        : m_tree(tree)
        , m_autoScroll(tree.hasAutoScroll())
    {
        ++m_tree.m_mirroring;
        m_tree.setAutoScroll(false); // a restored current row must not scroll the view
    }
    TMirroring(const TMirroring &) = delete;
    TMirroring &operator=(const TMirroring &) = delete;
    ~TMirroring()
    {
        m_tree.setAutoScroll(m_autoScroll);
        --m_tree.m_mirroring;
    }

private:
    TzuTree_ComBasic &m_tree;
    bool m_autoScroll;
};

TzuTree_ComBasic::TzuTree_ComBasic(QWidget *parent)
    : QTreeView(parent)
    , TTreeCore(static_cast<ITreeHost &>(*this), static_cast<ITreeNodeObserver &>(*this))
    , m_model(new TTreeNodeModel(this))
    , m_delegate(new TTreeNodeDelegate(*this))
{
    InstallToolkitServices();
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setVerticalScrollMode(ScrollPerItem);
    setSelectionBehavior(SelectItems);
    setEditTriggers(NoEditTriggers);
    header()->setMinimumSectionSize(0);
    m_model->SetFont(font());
    m_model->SetEdit([this](TTreeNode_zuSub &node, const std::string &text) {
        try {
            NodeEditedByUser(node, text);
            return true;
        } catch (const std::length_error &error) {
            Report(error.what());
            return false;
        }
    });
    QTreeView::setModel(m_model);
    QTreeView::setItemDelegate(m_delegate);
    connect(this, &QTreeView::expanded, this,
            [this](const QModelIndex &index) { NodeToggled(index, true); });
    connect(this, &QTreeView::collapsed, this,
            [this](const QModelIndex &index) { NodeToggled(index, false); });
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this,
            &TzuTree_ComBasic::HandleScrollInfo);
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this,
            &TzuTree_ComBasic::HandleScrollInfo);
}

TzuTree_ComBasic::~TzuTree_ComBasic()
{
    DestroyContent();
}

// --- bringing the view up to date ----------------------------------------------------------------

void TzuTree_ComBasic::InvalidateTree()
{
    viewport()->update();
    if (isVisible()) {
        PostUpdate();
    }
}

/// Updates before the next paint, so that the paint itself changes nothing.
void TzuTree_ComBasic::PostUpdate()
{
    if (std::exchange(m_updatePosted, true)) {
        return;
    }
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_updatePosted = false;
            BringViewUpToDate();
            DoUpdateTopItem();
        },
        Qt::QueuedConnection);
}

void TzuTree_ComBasic::BringViewUpToDate()
{
    EnsureDisplayUpToDate();
    AttachModel();
    if (std::exchange(m_selectionOutOfDate, false)) {
        ShowSelection();
    }
}

void TzuTree_ComBasic::EnsureLayout()
{
    BringViewUpToDate();
    executeDelayedItemsLayout();
}

void TzuTree_ComBasic::AfterUpdateDisplay()
{
    HandleScrollInfo();
}

void TzuTree_ComBasic::DetachModel()
{
    if (m_model->IsAttached()) {
        const TMirroring mirroring(*this);
        m_model->Detach();
    }
}

void TzuTree_ComBasic::AttachModel()
{
    if (m_model->IsAttached() || m_released) {
        return;
    }
    const TMirroring mirroring(*this);
    m_model->Attach(RootNode());
    ShowStates(RootNode());
    if (SelectedNode() != nullptr) {
        selectionModel()->setCurrentIndex(m_model->IndexOf(SelectedNode()),
                                          QItemSelectionModel::NoUpdate);
    }
    m_selectionOutOfDate = false;
}

/// Gives the rows shown below a node their expansion and selection. What lies below collapsed nodes
/// gets its own when it is shown.
void TzuTree_ComBasic::ShowStates(const TTreeNode_zuSub &top)
{
    QItemSelection selection;
    const TTreeNode_zuSub *node = &top;
    for (int left = top.RowCount() - 1; left > 0; --left) {
        node = node->NextShown();
        const bool expands = node->Expanded() && node->ChildCount() > 0;
        const bool selects = node->Data() != nullptr && node->Data()->GetSelected();
        if (!expands && !selects) {
            continue;
        }
        const QModelIndex index = m_model->IndexOf(node);
        if (expands && !isExpanded(index)) {
            scheduleDelayedItemsLayout(); // with a layout to come the view only notes it
            expand(index);
        }
        if (selects) {
            selection.append(QItemSelectionRange(index));
        }
    }
    if (!selection.isEmpty()) {
        selectionModel()->select(selection, QItemSelectionModel::Select);
    }
}

void TzuTree_ComBasic::ShowSelection()
{
    const TMirroring mirroring(*this);
    selectionModel()->clearSelection();
    ShowStates(RootNode());
    viewport()->update();
}

void TzuTree_ComBasic::doItemsLayout()
{
    if (m_layouting) {
        QTreeView::doItemsLayout();
        return;
    }
    AttachModel();
    {
        const QScopedValueRollback layouting(m_layouting, true);
        QTreeView::doItemsLayout();
    }
    m_changesSinceLayout = 0;
    m_selectionsSinceLayout = 0;
    ApplyTopRow();
    HandleScrollInfo();
}

// --- following the nodes -------------------------------------------------------------------------

void TzuTree_ComBasic::BeginNodes(int changes)
{
    m_changesSinceLayout += changes;
    if (m_changesSinceLayout > kChangesInPlace) {
        DetachModel();
    }
}

void TzuTree_ComBasic::BeforeChange(const TNodeChangeInfo &change)
{
    ++m_structure;
    if (m_model->IsAttached()) {
        const TMirroring mirroring(*this);
        m_model->BeforeChange(change);
    }
}

void TzuTree_ComBasic::AfterChange(const TNodeChangeInfo &change)
{
    if (!m_model->IsAttached()) {
        return;
    }
    const TMirroring mirroring(*this);
    m_model->AfterChange(change);
    const TTreeNode_zuSub &parent = *change.Parent;
    if (change.Change != TNodeChange::Insert || !parent.Expanded() || !parent.IsShown()) {
        return;
    }
    const QModelIndex index = m_model->IndexOf(&parent);
    if (index.isValid() && !isExpanded(index)) {
        scheduleDelayedItemsLayout();
        expand(index);
        ShowStates(parent);
        return;
    }
    for (int i = 0; i < change.Count; ++i) {
        ShowInserted(*parent.Child(change.First + i));
    }
}

/// The states of a new node and of what is shown below it.
void TzuTree_ComBasic::ShowInserted(const TTreeNode_zuSub &node)
{
    const QModelIndex index = m_model->IndexOf(&node);
    if (node.Data() != nullptr && node.Data()->GetSelected()) {
        selectionModel()->select(index, QItemSelectionModel::Select);
    }
    if (node.Expanded() && node.ChildCount() > 0) {
        scheduleDelayedItemsLayout();
        expand(index);
        ShowStates(node);
    }
}

void TzuTree_ComBasic::EndNodes()
{
    viewport()->update();
}

void TzuTree_ComBasic::NodeChanged(TTreeNode_zuSub &node, TNodeAspect aspect)
{
    if (!m_model->IsAttached()) {
        return;
    }
    switch (aspect) {
    case TNodeAspect::Caption:
        RepaintRow(node);
        break;
    case TNodeAspect::Expansion:
        ShowExpansion(node);
        break;
    case TNodeAspect::Selection:
        if (m_selectionOutOfDate || ++m_selectionsSinceLayout > kChangesInPlace) {
            m_selectionOutOfDate = true;
            InvalidateTree();
        } else {
            const TMirroring mirroring(*this);
            const bool selected = node.Data() != nullptr && node.Data()->GetSelected();
            selectionModel()->select(m_model->IndexOf(&node), selected
                                                                  ? QItemSelectionModel::Select
                                                                  : QItemSelectionModel::Deselect);
        }
        break;
    }
}

void TzuTree_ComBasic::ShowExpansion(TTreeNode_zuSub &node)
{
    const TMirroring mirroring(*this);
    const QModelIndex index = m_model->IndexOf(&node);
    const bool expands = node.Expanded() && node.ChildCount() > 0 && node.IsShown();
    const bool collapses = !node.Expanded();
    if (isExpanded(index) ? collapses : expands) {
        if (++m_changesSinceLayout > kChangesInPlace) {
            scheduleDelayedItemsLayout();
        }
        setExpanded(index, node.Expanded());
    }
    if (expands) {
        ShowStates(node);
    }
    HandleScrollInfo();
}

void TzuTree_ComBasic::AllExpansionsChanged()
{
    DetachModel();
    viewport()->update();
    HandleScrollInfo();
}

void TzuTree_ComBasic::BeforeRelease()
{
    m_released = true;
    DetachModel();
}

// --- what the user does --------------------------------------------------------------------------

void TzuTree_ComBasic::NodeToggled(const QModelIndex &index, bool expanded)
{
    TTreeNode_zuSub *node = m_model->NodeAt(index);
    if (m_mirroring == 0 && node != nullptr) {
        NodeExpandedByUser(*node, expanded);
    }
}

void TzuTree_ComBasic::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTreeView::currentChanged(current, previous);
    if (m_mirroring > 0) {
        return;
    }
    TTreeNode_zuSub *node = m_model->NodeAt(current);
    if (m_autoExpand && node != nullptr && node->Data() != nullptr) {
        node->Data()->SetExpanded(true);
    }
    NodeSelectedByUser(node);
}

void TzuTree_ComBasic::selectionChanged(const QItemSelection &selected,
                                        const QItemSelection &deselected)
{
    QTreeView::selectionChanged(selected, deselected);
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
            range.parent().isValid() ? m_model->NodeAt(range.parent()) : &RootNode();
        for (int row = range.top(); row <= range.bottom() && unchanged(); ++row) {
            NodeMarkedByUser(*parent->Child(row), selected);
        }
    }
}

bool TzuTree_ComBasic::edit(const QModelIndex &index, EditTrigger trigger, QEvent *event)
{
    const TTreeNode_zuSub *node = m_model->NodeAt(index);
    if ((trigger & editTriggers()) == 0 && trigger != AllEditTriggers) {
        return QTreeView::edit(index, trigger, event);
    }
    return node != nullptr && node->Data() != nullptr && node->Data()->GetCanEdit()
           && QTreeView::edit(index, trigger, event);
}

// --- current node and rows -----------------------------------------------------------------------

void TzuTree_ComBasic::SelectNode(TTreeNode_zuSub *node)
{
    AttachModel();
    const bool autoScroll = hasAutoScroll();
    setAutoScroll(false); // it would search for the row
    selectionModel()->setCurrentIndex(m_model->IndexOf(node), QItemSelectionModel::ClearAndSelect
                                                                  | QItemSelectionModel::Rows);
    setAutoScroll(autoScroll);
    if (node == nullptr || SelectedNode() != node) {
        return;
    }
    const int row = node->Row();
    const int top = Geometry().TopRow;
    if (row < top) {
        SetTopRow(row);
    } else if (row >= top + PageRows()) {
        SetTopRow(row - PageRows() + 1);
    }
}

void TzuTree_ComBasic::LoseCurrent()
{
    if (m_model->IsAttached()) {
        const TMirroring mirroring(*this);
        selectionModel()->setCurrentIndex({}, QItemSelectionModel::NoUpdate);
    }
}

void TzuTree_ComBasic::EditNode(TTreeNode_zuSub &node)
{
    AttachModel();
    edit(m_model->IndexOf(&node), AllEditTriggers, nullptr);
}

int TzuTree_ComBasic::PageRows() const
{
    return std::max(1, viewport()->height() / RowHeight());
}

int TzuTree_ComBasic::LastTopRow() const
{
    return std::max(0, RootNode().RowCount() - 1 - PageRows());
}

TTreeGeometry TzuTree_ComBasic::Geometry() const
{
    const int top = m_wantedTopRow >= 0 ? m_wantedTopRow : verticalScrollBar()->value();
    return {std::clamp(top, 0, LastTopRow()), RowHeight(), viewport()->width(),
            viewport()->height()};
}

void TzuTree_ComBasic::SetTopRow(int row)
{
    m_wantedTopRow = std::clamp(row, 0, LastTopRow());
    ApplyTopRow();
    HandleScrollInfo();
}

/// A row beyond the present range waits for the layout.
void TzuTree_ComBasic::ApplyTopRow()
{
    if (m_wantedTopRow >= 0 && verticalScrollBar()->maximum() == LastTopRow()) {
        verticalScrollBar()->setValue(std::exchange(m_wantedTopRow, -1));
    }
}

TScrollInfo TzuTree_ComBasic::ScrollInfo() const
{
    return {0, LastTopRow(), PageRows(), Geometry().TopRow};
}

void TzuTree_ComBasic::HandleScrollInfo()
{
    const TScrollInfo info = ScrollInfo();
    if (m_released || info == m_scrollInfo) {
        return;
    }
    m_scrollInfo = info;
    ScrollInfoChanged();
    PostUpdate();
}

void TzuTree_ComBasic::Scroll(int delta)
{
    EnsureDisplayUpToDate();
    const std::int64_t row = std::int64_t{Geometry().TopRow} + delta;
    SetTopRow(static_cast<int>(std::clamp<std::int64_t>(row, 0, LastTopRow())));
}

} // namespace korvane
