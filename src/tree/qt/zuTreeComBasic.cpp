#include "tree/qt/zuTreeComBasic.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuToolkit.h"
#include "foundation/zuReport.h"
#include "tree/qt/zuTreeAccessible.h"
#include "tree/qt/zuTreeDelegate.h"
#include "tree/qt/zuTreeMirroring.h"
#include "tree/qt/zuTreeModel.h"

#include <QCollator>
#include <QScrollBar>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace korvane {

namespace {

/// The view's own selection, which only assistive programs look at, holds no more than this: it
/// searches its ranges one by one.
constexpr int kShownSelection = 100;

} // namespace

TzuTree_ComBasic::TzuTree_ComBasic(QWidget *parent)
    : TCustomTreeView(parent)
    , TTreeUserCore(static_cast<ITreeHost &>(*this), static_cast<ITreeNodeObserver &>(*this))
    , m_delegate(new TTreeNodeDelegate(*this))
    , m_dragging(std::make_unique<TTreeDragging>(*this))
{
    InstallToolkitServices();
    InstallAccessible<TzuTree_ComBasic, TTreeAccessible>();
    setSelectionBehavior(SelectItems);
    setEditTriggers(EditKeyPressed | SelectedClicked);
    setAcceptDrops(true);
    viewport()->setMouseTracking(true);
    Nodes().SetFont(font());
    Nodes().SetEdit([this](TTreeNode_zuSub &node, const std::string &text) {
        try {
            return node.Data() != nullptr && Edit(*node.Data(), text);
        } catch (const std::length_error &error) {
            Report(error.what());
            return false;
        }
    });
    Nodes().Attach(RootNode());
    TCustomTreeView::setItemDelegate(m_delegate);
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
            ResumeEditing();
            DoUpdateTopItem();
        },
        Qt::QueuedConnection);
}

void TzuTree_ComBasic::BringViewUpToDate()
{
    EnsureDisplayUpToDate();
    if (std::exchange(m_selectionOutOfDate, false)) {
        ShowSelection();
    }
}

void TzuTree_ComBasic::EnsureLayout()
{
    BringViewUpToDate();
    ResumeEditing();
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

void TzuTree_ComBasic::ShowSelection()
{
    const TMirroring mirroring(*this);
    QItemSelection selection;
    if (SelectedCount() <= kShownSelection) {
        for (const TzuDataEntity_Tree *entity : Selected()) {
            if (entity->Node() != nullptr && !entity->Node()->Deleting()) {
                selection.append(QItemSelectionRange(Nodes().IndexOf(entity->Node())));
            }
        }
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

// --- following the nodes -------------------------------------------------------------------------

void TzuTree_ComBasic::BeginNodes(int /*changes*/) {}

void TzuTree_ComBasic::BeforeChange(const TNodeChangeInfo &change)
{
    ++m_structure;
    const TMirroring mirroring(*this);
    Nodes().BeforeChange(change);
}

void TzuTree_ComBasic::AfterChange(const TNodeChangeInfo &change)
{
    const TMirroring mirroring(*this);
    Nodes().AfterChange(change);
    m_selectionOutOfDate =
        m_selectionOutOfDate || (change.Change == TNodeChange::Insert && SelectedCount() > 0);
}

void TzuTree_ComBasic::EndNodes()
{
    RowsChanged();
}

void TzuTree_ComBasic::NodeChanged(TTreeNode_zuSub &node, TNodeAspect aspect)
{
    switch (aspect) {
    case TNodeAspect::Caption:
        RepaintRow(node);
        break;
    case TNodeAspect::Expansion:
        RowsChanged();
        break;
    case TNodeAspect::Selection:
        m_selectionOutOfDate = true;
        RepaintRow(node);
        PostUpdate();
        break;
    }
}

void TzuTree_ComBasic::AllExpansionsChanged()
{
    RowsChanged();
}

void TzuTree_ComBasic::BeforeRelease()
{
    m_released = true;
    m_editedEntity = nullptr;
    const TMirroring mirroring(*this);
    Nodes().Detach();
}

// --- current node and rows -----------------------------------------------------------------------

void TzuTree_ComBasic::SelectNode(TTreeNode_zuSub *node)
{
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
    const TMirroring mirroring(*this);
    selectionModel()->setCurrentIndex(Nodes().IndexOf(&node), QItemSelectionModel::NoUpdate);
}

void TzuTree_ComBasic::LoseCurrent()
{
    const TMirroring mirroring(*this);
    selectionModel()->setCurrentIndex({}, QItemSelectionModel::NoUpdate);
}

TTreeGeometry TzuTree_ComBasic::Geometry() const
{
    return {TopRow(), RowHeight(), viewport()->width(), viewport()->height()};
}

void TzuTree_ComBasic::SetTopRow(int row)
{
    ScrollToRow(row);
}

TScrollInfo TzuTree_ComBasic::ScrollInfo() const
{
    return {0, LastTopRow(), PageRows(), TopRow()};
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
    const std::int64_t row = std::int64_t{TopRow()} + delta;
    SetTopRow(static_cast<int>(std::clamp<std::int64_t>(row, 0, LastTopRow())));
}

} // namespace korvane
