#include "tree/qt/zuTreeComBasic.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuToolkit.h"
#include "foundation/zuReport.h"
#include "tree/qt/zuTreeDelegate.h"
#include "tree/qt/zuTreeMirroring.h"
#include "tree/qt/zuTreeModel.h"

#include <QCollator>
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
/// The view's own selection, which only assistive programs look at, holds no more than this: it
/// searches its ranges one by one.
constexpr int kShownSelection = 100;
/// How long a drag rests on a node before it is expanded, in milliseconds.
constexpr int kHoverExpandDelay = 700;

} // namespace

TzuTree_ComBasic::TzuTree_ComBasic(QWidget *parent)
    : QTreeView(parent)
    , TTreeUserCore(static_cast<ITreeHost &>(*this), static_cast<ITreeNodeObserver &>(*this))
    , m_model(new TTreeNodeModel(this))
    , m_delegate(new TTreeNodeDelegate(*this))
    , m_dragging(std::make_unique<TTreeDragging>(*this))
{
    InstallToolkitServices();
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setVerticalScrollMode(ScrollPerItem);
    setSelectionBehavior(SelectItems);
    setEditTriggers(EditKeyPressed | SelectedClicked);
    setAcceptDrops(true);
    setAutoExpandDelay(kHoverExpandDelay);
    viewport()->setMouseTracking(true);
    header()->setMinimumSectionSize(0);
    m_model->SetFont(font());
    m_model->SetEdit([this](TTreeNode_zuSub &node, const std::string &text) {
        try {
            return node.Data() != nullptr && Edit(*node.Data(), text);
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
    TTreeUserCore::AfterUpdateDisplay();
    HandleScrollInfo();
}

int TzuTree_ComBasic::CompareCaptions(std::string_view the1, std::string_view the2) const
{
    static const QCollator collator = [] {
        QCollator byReader; // as a reader expects it: 9 before 10, "a" beside "A"
        byReader.setNumericMode(true);
        byReader.setCaseSensitivity(Qt::CaseInsensitive);
        return byReader;
    }();
    return collator.compare(ToQt(the1), ToQt(the2));
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
    m_selectionOutOfDate = SelectedCount() > 0;
}

/// Gives the rows shown below a node their expansion. What lies below collapsed nodes gets its own
/// when it is shown.
void TzuTree_ComBasic::ShowStates(const TTreeNode_zuSub &top)
{
    const TTreeNode_zuSub *node = &top;
    for (int left = top.RowCount() - 1; left > 0; --left) {
        node = node->NextShown();
        if (!node->Expanded() || node->ChildCount() == 0) {
            continue;
        }
        const QModelIndex index = m_model->IndexOf(node);
        if (!isExpanded(index)) {
            scheduleDelayedItemsLayout(); // with a layout to come the view only notes it
            expand(index);
        }
    }
    m_selectionOutOfDate = m_selectionOutOfDate || SelectedCount() > 0;
}

void TzuTree_ComBasic::ShowSelection()
{
    const TMirroring mirroring(*this);
    QItemSelection selection;
    if (SelectedCount() <= kShownSelection) {
        for (const TzuDataEntity_Tree *entity : Selected()) {
            if (entity->Node() != nullptr && !entity->Node()->Deleting()) {
                selection.append(QItemSelectionRange(m_model->IndexOf(entity->Node())));
            }
        }
    }
    m_selectionsSinceLayout = 0;
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
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
    m_selectionOutOfDate = m_selectionOutOfDate || SelectedCount() > 0;
    if (node.Expanded() && node.ChildCount() > 0) {
        scheduleDelayedItemsLayout();
        expand(m_model->IndexOf(&node));
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
        m_selectionOutOfDate = true;
        if (++m_selectionsSinceLayout > kChangesInPlace) {
            viewport()->update();
        } else {
            RepaintRow(node);
        }
        PostUpdate();
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

// --- current node and rows -----------------------------------------------------------------------

void TzuTree_ComBasic::SelectNode(TTreeNode_zuSub *node)
{
    AttachModel();
    if (node == nullptr) {
        LoseCurrent();
        ClearSelection();
        return;
    }
    ShowCurrent(*node);
    UpdateMultiSelect(*node, {});
    if (SelectedNode() != node) {
        return; // by a handler
    }
    const int row = node->Row();
    const int top = Geometry().TopRow;
    if (row < top) {
        SetTopRow(row);
    } else if (row >= top + PageRows()) {
        SetTopRow(row - PageRows() + 1);
    }
}

void TzuTree_ComBasic::ShowCurrent(TTreeNode_zuSub &node)
{
    AttachModel();
    const TMirroring mirroring(*this);
    selectionModel()->setCurrentIndex(m_model->IndexOf(&node), QItemSelectionModel::NoUpdate);
}

void TzuTree_ComBasic::LoseCurrent()
{
    if (m_model->IsAttached()) {
        const TMirroring mirroring(*this);
        selectionModel()->setCurrentIndex({}, QItemSelectionModel::NoUpdate);
    }
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
