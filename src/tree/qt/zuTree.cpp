#include "tree/qt/zuTree.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuToolkit.h"
#include "foundation/zuReport.h"
#include "tree/qt/zuTreeModel.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QToolTip>

#include <stdexcept>

namespace korvane {

namespace {

/// From this many changes on it is cheaper to show the nodes anew.
constexpr int kChangesForReset = 64;
/// Space above and below a caption, in pixels, both together.
constexpr int kRowPadding = 4;

class TCountScope
{
public:
    explicit TCountScope(int &count)
        : m_count(count)
    {
        ++m_count;
    }
    TCountScope(const TCountScope &) = delete;
    TCountScope &operator=(const TCountScope &) = delete;
    ~TCountScope() { --m_count; }

private:
    int &m_count;
};

} // namespace

/// Gives every row the tree's height, and selected rows their own image.
class TTreeNodeDelegate : public QStyledItemDelegate
{
public:
    explicit TTreeNodeDelegate(TzuTree_ComBasic &tree)
        : QStyledItemDelegate(&tree)
        , m_tree(tree)
    {
    }

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        return {QStyledItemDelegate::sizeHint(option, index).width(), m_tree.RowHeight()};
    }

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const TzuDataEntity_Tree *entity =
            TTreeCore::GetDataEntityFromNode(m_tree.m_model->NodeAt(index));
        if (entity == nullptr) {
            return;
        }
        const int image = entity->GetSelectedIndex();
        if ((option->state & QStyle::State_Selected) != 0 && image >= 0
            && image < m_tree.m_images.size()) {
            option->icon = m_tree.m_images.at(image);
        }
        if (m_tree.m_hotTrack && (option->state & QStyle::State_MouseOver) != 0) {
            option->font.setUnderline(true);
        }
    }

private:
    TzuTree_ComBasic &m_tree;
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
    setEditTriggers(NoEditTriggers);
    setTextElideMode(Qt::ElideRight);
    setMouseTracking(true);
    QTreeView::setItemDelegate(m_delegate);
    m_model->SetImages(&m_images);
    m_model->SetEdit([this](TTreeNode_zuSub &node, const QString &text) {
        try {
            NodeEditedByUser(node, FromQt(text));
            return true;
        } catch (const std::length_error &error) {
            Report(error.what());
            return false;
        }
    });
    QTreeView::setModel(m_model);
    m_model->Attach(RootNode());
    connect(this, &QTreeView::expanded, this,
            [this](const QModelIndex &index) { ExpansionByUser(index, true); });
    connect(this, &QTreeView::collapsed, this,
            [this](const QModelIndex &index) { ExpansionByUser(index, false); });
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this,
            &TzuTree_ComBasic::HandleScrollInfo);
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this,
            &TzuTree_ComBasic::HandleScrollInfo);
}

TzuTree_ComBasic::~TzuTree_ComBasic()
{
    m_model->Detach();
    DestroyContent();
}

void TzuTree_ComBasic::SetColor(TColor color)
{
    if (color == m_color) {
        return;
    }
    m_color = color;
    QPalette colors = palette();
    colors.setColor(QPalette::Base, ToQt(color, colors));
    setPalette(colors);
}

void TzuTree_ComBasic::SetFont(const TFont &font)
{
    if (font == m_font) {
        return;
    }
    m_font = font;
    setFont(ToQt(font));
    QPalette colors = palette();
    colors.setColor(QPalette::Text, ToQt(font.Color, colors));
    setPalette(colors);
}

TBorderStyle TzuTree_ComBasic::BorderStyle() const
{
    return frameShape() == QFrame::NoFrame ? TBorderStyle::bsNone : TBorderStyle::bsSingle;
}

void TzuTree_ComBasic::SetBorderStyle(TBorderStyle style)
{
    setFrameShape(style == TBorderStyle::bsNone ? QFrame::NoFrame : QFrame::StyledPanel);
}

TDragMode TzuTree_ComBasic::DragMode() const
{
    return dragEnabled() ? TDragMode::dmAutomatic : TDragMode::dmManual;
}

void TzuTree_ComBasic::SetDragMode(TDragMode mode)
{
    setDragEnabled(mode == TDragMode::dmAutomatic);
}

void TzuTree_ComBasic::SetHideSelection(bool hide)
{
    m_hideSelection = hide;
    viewport()->update();
}

void TzuTree_ComBasic::SetHotTrack(bool track)
{
    m_hotTrack = track;
    viewport()->update();
}

bool TzuTree_ComBasic::MultiSelect() const
{
    return selectionMode() == ExtendedSelection;
}

void TzuTree_ComBasic::SetMultiSelect(bool multi)
{
    setSelectionMode(multi ? ExtendedSelection : SingleSelection);
}

void TzuTree_ComBasic::SetRowSelect(bool select)
{
    m_rowSelect = select;
    setAllColumnsShowFocus(select);
    viewport()->update();
}

void TzuTree_ComBasic::SetShowButtons(bool show)
{
    m_showButtons = show;
    viewport()->update();
}

void TzuTree_ComBasic::SetShowLines(bool show)
{
    m_showLines = show;
    viewport()->update();
}

void TzuTree_ComBasic::SetImages(QList<QIcon> images)
{
    m_images = std::move(images);
    RowHeightChanged();
}

int TzuTree_ComBasic::RowHeight() const
{
    if (m_rowHeight > 0) {
        return m_rowHeight;
    }
    if (m_autoRowHeight == 0) {
        const int icon = m_images.isEmpty() ? 0 : style()->pixelMetric(QStyle::PM_SmallIconSize);
        m_autoRowHeight = qMax(fontMetrics().height(), icon) + kRowPadding;
    }
    return m_autoRowHeight;
}

void TzuTree_ComBasic::SetRowHeight(int height)
{
    if (height != m_rowHeight) {
        m_rowHeight = qMax(height, 0);
        RowHeightChanged();
    }
}

void TzuTree_ComBasic::RowHeightChanged()
{
    m_autoRowHeight = 0;
    scheduleDelayedItemsLayout();
}

TScrollInfo TzuTree_ComBasic::ScrollInfo() const
{
    const QScrollBar *bar = verticalScrollBar();
    return {bar->minimum(), bar->maximum(), bar->pageStep(), bar->value()};
}

void TzuTree_ComBasic::Scroll(int delta)
{
    verticalScrollBar()->setValue(verticalScrollBar()->value() + delta);
}

void TzuTree_ComBasic::EnsureLayout()
{
    EnsureDisplayUpToDate();
    executeDelayedItemsLayout();
}

void TzuTree_ComBasic::doItemsLayout()
{
    QTreeView::doItemsLayout();
    if (m_wantedTopRow >= 0) {
        verticalScrollBar()->setValue(std::exchange(m_wantedTopRow, -1));
    }
    HandleScrollInfo();
}

void TzuTree_ComBasic::HandleScrollInfo()
{
    const TScrollInfo info = ScrollInfo();
    if (info == m_scrollInfo || Destroying()) {
        return;
    }
    m_scrollInfo = info;
    DoUpdateTopItem();
    ScrollInfoChanged();
}

void TzuTree_ComBasic::ScrollInfoChanged() {}

void TzuTree_ComBasic::CurrentChanged()
{
    TTreeCore::CurrentChanged();
}

// ITreeHost

void TzuTree_ComBasic::InvalidateTree()
{
    viewport()->update();
    if (!m_updateTimer.isActive()) {
        m_updateTimer.start(0, this);
    }
}

TTreeGeometry TzuTree_ComBasic::Geometry() const
{
    const int top = m_wantedTopRow >= 0 ? m_wantedTopRow : verticalScrollBar()->value();
    return {top, RowHeight(), viewport()->width(), viewport()->height()};
}

void TzuTree_ComBasic::SetTopRow(int row)
{
    // The range belongs to the layout; while one is due the row waits for it.
    m_wantedTopRow = row;
    scheduleDelayedItemsLayout();
}

void TzuTree_ComBasic::SelectNode(TTreeNode_zuSub *node)
{
    const TCountScope mirroring(m_mirroring);
    const QModelIndex index = m_model->IndexOf(node);
    if (!index.isValid()) {
        selectionModel()->clear();
        return;
    }
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect
                                                 | QItemSelectionModel::Rows);
    scrollTo(index);
}

void TzuTree_ComBasic::EditNode(TTreeNode_zuSub &node)
{
    edit(m_model->IndexOf(&node));
}

// ITreeNodeObserver

void TzuTree_ComBasic::BeginNodes(int changes)
{
    ++m_mirroring;
    if (changes >= kChangesForReset && m_model->IsAttached()) {
        m_model->Detach();
    }
}

void TzuTree_ComBasic::BeforeChange(const TNodeChangeInfo &change)
{
    m_model->BeforeChange(change);
}

void TzuTree_ComBasic::AfterChange(const TNodeChangeInfo &change)
{
    m_model->AfterChange(change);
    if (!m_model->IsAttached() || change.Change != TNodeChange::Insert) {
        return;
    }
    // A parent that was expanded while it had no children is only now expanded in the view.
    ShowExpansion(*change.Parent);
    for (int i = 0; i < change.Count; ++i) {
        ShowExpansions(*change.Parent->Child(change.First + i));
    }
}

void TzuTree_ComBasic::EndNodes()
{
    if (!m_model->IsAttached()) {
        AttachModel();
    }
    --m_mirroring;
}

void TzuTree_ComBasic::AttachModel()
{
    const TCountScope mirroring(m_mirroring);
    m_wantedTopRow = Geometry().TopRow;
    m_model->Attach(RootNode());
    ShowExpansions(RootNode());
    ShowSelection();
}

void TzuTree_ComBasic::ShowExpansion(const TTreeNode_zuSub &node)
{
    if (node.Parent() != nullptr && node.Expanded() && node.ChildCount() > 0) {
        setExpanded(m_model->IndexOf(&node), true);
    }
}

void TzuTree_ComBasic::ShowExpansions(const TTreeNode_zuSub &top)
{
    ShowExpansion(top);
    for (const TTreeNode_zuSub *node = top.NextInside(top); node != nullptr;
         node = node->NextInside(top)) {
        ShowExpansion(*node);
    }
}

void TzuTree_ComBasic::ShowSelection()
{
    QItemSelection selection;
    for (const TTreeNode_zuSub *node = RootNode().NextInside(RootNode()); node != nullptr;
         node = node->NextInside(RootNode())) {
        if (node->Data() != nullptr && node->Data()->GetSelected()) {
            const QModelIndex index = m_model->IndexOf(node);
            selection.append(QItemSelectionRange(index, index));
        }
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    selectionModel()->setCurrentIndex(m_model->IndexOf(SelectedNode()),
                                      QItemSelectionModel::NoUpdate);
}

void TzuTree_ComBasic::NodeChanged(TTreeNode_zuSub &node, TNodeAspect aspect)
{
    const QModelIndex index = m_model->IndexOf(&node);
    if (!index.isValid()) {
        return;
    }
    const TCountScope mirroring(m_mirroring);
    switch (aspect) {
    case TNodeAspect::Caption:
        m_model->CaptionChanged(node);
        break;
    case TNodeAspect::Expansion:
        setExpanded(index, node.Expanded());
        break;
    case TNodeAspect::Selection:
        if (node.Data() != nullptr) {
            selectionModel()->select(index, node.Data()->GetSelected()
                                                ? QItemSelectionModel::Select
                                                : QItemSelectionModel::Deselect);
        }
        break;
    }
}

void TzuTree_ComBasic::AllExpansionsChanged()
{
    const TCountScope mirroring(m_mirroring);
    m_model->Detach();
    AttachModel();
}

// What the user does

void TzuTree_ComBasic::ExpansionByUser(const QModelIndex &index, bool expanded)
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
    NodeSelectedByUser(node);
    if (m_autoExpand && node != nullptr && node->ChildCount() > 0) {
        setExpanded(current, true);
    }
}

void TzuTree_ComBasic::selectionChanged(const QItemSelection &selected,
                                        const QItemSelection &deselected)
{
    QTreeView::selectionChanged(selected, deselected);
    if (m_mirroring > 0) {
        return;
    }
    const auto mark = [this](const QItemSelection &selection, bool on) {
        const QModelIndexList indexes = selection.indexes();
        for (const QModelIndex &index : indexes) {
            if (TTreeNode_zuSub *node = m_model->NodeAt(index)) {
                NodeMarkedByUser(*node, on);
            }
        }
    };
    mark(deselected, false);
    mark(selected, true);
}

void TzuTree_ComBasic::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::RightButton && m_rightClickSelect) {
        setCurrentIndex(indexAt(event->position().toPoint()));
    }
    QTreeView::mousePressEvent(event);
}

// Painting and layout

bool TzuTree_ComBasic::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::Paint) {
        EnsureLayout();
    } else if (event->type() == QEvent::ToolTip) {
        return ShowCaptionTip(*static_cast<QHelpEvent *>(event));
    }
    return QTreeView::viewportEvent(event);
}

bool TzuTree_ComBasic::ShowCaptionTip(const QHelpEvent &event)
{
    const QModelIndex index = indexAt(event.pos());
    const QString caption = index.data().toString();
    const QRect row = visualRect(index);
    const int needed = m_delegate->sizeHint(viewOptionFor(index), index).width();
    if (!m_toolTips || !index.isValid() || needed <= row.width()) {
        QToolTip::hideText();
        return true;
    }
    QToolTip::showText(event.globalPos(), caption, viewport(), row);
    return true;
}

QStyleOptionViewItem TzuTree_ComBasic::viewOptionFor(const QModelIndex & /*index*/) const
{
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    return option;
}

void TzuTree_ComBasic::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_updateTimer.timerId()) {
        QTreeView::timerEvent(event);
        return;
    }
    m_updateTimer.stop();
    EnsureLayout();
}

void TzuTree_ComBasic::resizeEvent(QResizeEvent *event)
{
    QTreeView::resizeEvent(event);
    HandleScrollInfo();
}

void TzuTree_ComBasic::changeEvent(QEvent *event)
{
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        RowHeightChanged();
    }
}

void TzuTree_ComBasic::drawBranches(QPainter *painter, const QRect &rect,
                                    const QModelIndex &index) const
{
    if (m_showButtons || m_showLines) {
        QTreeView::drawBranches(painter, rect, index);
    }
}

void TzuTree_ComBasic::initViewItemOption(QStyleOptionViewItem *option) const
{
    QTreeView::initViewItemOption(option);
    option->showDecorationSelected = m_rowSelect;
    if (m_hideSelection && !hasFocus()) {
        option->state &= ~QStyle::State_Active;
    }
}

// TzuTree

TzuTree::~TzuTree()
{
    DestroyContent();
}

void TzuTree::_InsertItem(TzuDataEntity_Tree *entity)
{
    TzuTree_ComBasic::_InsertItem(entity);
    Q_EMIT entityInserted(entity);
}

void TzuTree::_DeleteItem(TzuDataEntity_Tree *entity)
{
    Q_EMIT entityDeleted(entity);
    TzuTree_ComBasic::_DeleteItem(entity);
}

void TzuTree::Expand(TzuDataEntity_Tree *entity)
{
    TzuTree_ComBasic::Expand(entity);
    Q_EMIT entityExpanded(entity);
}

void TzuTree::Collapse(TzuDataEntity_Tree *entity)
{
    TzuTree_ComBasic::Collapse(entity);
    Q_EMIT entityCollapsed(entity);
}

void TzuTree::CurrentChanged()
{
    TzuTree_ComBasic::CurrentChanged();
    Q_EMIT currentEntityChanged(GetDataEntityFromNode(SelectedNode()));
}

} // namespace korvane
