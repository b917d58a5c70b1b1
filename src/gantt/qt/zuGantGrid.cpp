// The grid that may stand beside the area in place of the row tree.
#include "foundation/zuLifeWatch.h"
#include "gantt/qt/zuGantComBasic.h"
#include "gantt/qt/zuGantLines.h"
#include "grid/qt/zuGrid.h"

#include <QBoxLayout>
#include <QPointer>
#include <QScrollBar>

#include <utility>

namespace korvane {

TzuGrid *TzuGant_ComBasic::CreateGrid(QWidget *parent)
{
    return new TzuGrid(parent);
}

TzuGrid &TzuGant_ComBasic::Grid()
{
    if (m_grid == nullptr) {
        CreateGridSide();
    }
    return *m_grid;
}

void TzuGant_ComBasic::CreateGridSide()
{
    m_grid = CreateGrid(m_treeHolder);
    m_grid->setFrameShape(QFrame::NoFrame);
    m_grid->SetTabStop(true);
    m_grid->setVisible(false);
    m_treeHolder->layout()->addWidget(m_grid);
    setTabOrder(m_tree, m_grid);
    setTabOrder(m_grid, m_area);
    m_gridLines = MakeGridLines(*m_grid, *m_area, GantRows());

    m_grid->SetUseTree(true);
    m_grid->SetMultiSelect(true);
    m_grid->SetImageList(ImageList());
    TzuGrid_Column &column = m_grid->Columns().Add();
    column.SetTreeButton(true);
    column.OnGetIconIndex = TOnGetIconIndex::Bind<&TzuGant_ComBasic::DoGridGetIconIndex>(this);
    m_grid->GetTree()->OnIntegrationEvent =
        TOnGridTreeIntegrationEvent::Bind<&TzuGant_ComBasic::GridTreeIntegrationEvents>(this);
    using TNotify = TBabGridSelectCore::TNotify;
    m_grid->OnTopLeftChanged = TNotify::Bind<&TzuGant_ComBasic::GridtopLeftChanged>(this);
    m_grid->OnInvalidate = TNotify::Bind<&TzuGant_ComBasic::InvalidateGA>(this);
    m_grid->OnFocusCellChanged = TNotify::Bind<&TzuGant_ComBasic::GridFocusChanged>(this);
    m_grid->OnPrintResizeFont = m_scaler->OnPrintResizeFont;
    m_grid->OnColumnSort = [this](auto &&...args) { OnColumnSort_Grid(args...); };
    const TOnGridVirtualNotify load = [this](auto &&...args) { OnVirtualLoad_Grid(args...); };
    m_grid->OnVirtualLoad = load;
    m_grid->OnVirtualUnLoad = [this](auto &&...args) { OnVirtualUnLoad_Grid(args...); };
    // Rows go only where somebody can fill them again.
    m_grid->RootCell().OnCanUnload = [this, load](auto *, auto *, bool isRow, bool &canUnload) {
        canUnload =
            isRow
            && (m_grid->OnVirtualLoad.Handler() == load ? static_cast<bool>(OnVirtualLoad_Grid)
                                                        : static_cast<bool>(m_grid->OnVirtualLoad));
    };
}

/// The grid outlives what it tells.
void TzuGant_ComBasic::PartFromGrid()
{
    if (m_grid != nullptr) {
        m_grid->OnTopLeftChanged = nullptr;
        m_grid->OnInvalidate = nullptr;
        m_grid->OnFocusCellChanged = nullptr;
        m_grid->OnColumnSort = nullptr;
        m_grid->OnVirtualLoad = nullptr;
        m_grid->OnVirtualUnLoad = nullptr;
        m_grid->RootCell().OnCanUnload = nullptr;
        m_grid->SetUseTree(false);
    }
}

IGantLines &TzuGant_ComBasic::Lines() const
{
    return UseGridNotTree() ? *m_gridLines : *m_treeLines;
}

void TzuGant_ComBasic::SetUseGridNotTree(bool value)
{
    if (value == UseGridNotTree()) {
        return;
    }
    if (value) {
        Grid();
    }
    const bool hadFocus = m_tree->hasFocus() || (m_grid != nullptr && m_grid->hasFocus());
    TGantKeys::SetUseGridNotTree(value);
    m_tree->setVisible(!value);
    m_grid->setVisible(value);
    if (hadFocus) {
        (value ? static_cast<QWidget *>(m_grid) : m_tree)->setFocus();
    }
    UpdateGridFrame();
    RealignScrollbar(m_tree->ScrollInfo());
    ChangeInTree();
}

void TzuGant_ComBasic::SetImageList(const TImageList *images)
{
    const TImageList *before = ImageList();
    TGantKeys::SetImageList(images);
    if (m_grid != nullptr && m_grid->ImageList() == before) {
        m_grid->SetImageList(images);
    }
}

/// Keeps the header level with the axis, and the area as high as the rows of the grid.
void TzuGant_ComBasic::UpdateGridFrame()
{
    LevelTreeSpacer();
    const QScrollBar *bar = UseGridNotTree() ? &m_grid->HorzScrollBar() : nullptr;
    const bool shown = bar != nullptr && !bar->isHidden();
    if (shown) {
        m_areaFoot->setFixedHeight(bar->height());
    }
    m_areaFoot->setVisible(shown);
}

void TzuGant_ComBasic::InvalidateGA(TObject * /*sender*/)
{
    if (UseGridNotTree()) {
        InvalidateArea();
        UpdateGridFrame();
    }
}

void TzuGant_ComBasic::GridtopLeftChanged(TObject * /*sender*/)
{
    if (UseGridNotTree()) {
        InvalidateArea();
    }
    OnGridTopLeftChanged(this);
}

/// Told later: handlers may destroy the chart, and the grid is not done yet.
void TzuGant_ComBasic::GridFocusChanged(TObject * /*sender*/)
{
    if (std::exchange(m_tellingGridRow, true)) {
        return;
    }
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_tellingGridRow = false;
            TGantRow *row = m_gridLines->CurrentRow();
            if (row != m_seenGridRow) {
                m_seenGridRow = row;
                if (UseGridNotTree()) {
                    ChangeInTree();
                }
            }
        },
        Qt::QueuedConnection);
}

void TzuGant_ComBasic::GridTreeIntegrationEvents(TzuGridTree * /*tree*/, TGridTreeEvent event,
                                                 TzuDataEntity_GridTreeNode *node)
{
    if (!HasData()) {
        return; // the chart goes
    }
    if (event == TGridTreeEvent::RowInserted) {
        GridRowAdded(node);
    } else if (event == TGridTreeEvent::RowRemoved) {
        GridRowRemoved(node);
    }
    if (UseGridNotTree()) {
        InvalidateArea();
    }
}

void TzuGant_ComBasic::GridRowAdded(TzuDataEntity_GridTreeNode *node)
{
    GantRows().AddRow(nullptr, node);
}

void TzuGant_ComBasic::GridRowRemoved(TzuDataEntity_GridTreeNode *node)
{
    const QPointer<TzuGant_ComBasic> self(this);
    const TzuLifeWatch lives(*node);
    TGantRow *row = GantRows().FindRowFromGridNode(node);
    if (row != nullptr && row->TreeNode() == nullptr) {
        if (row == m_seenGridRow) {
            m_seenGridRow.reset(); // the next one may come to lie at the same address
            GridFocusChanged(m_grid);
        }
    }
    GantRows().RemoveRow(nullptr, node);
}

void TzuGant_ComBasic::DoGridGetIconIndex(TzuGrid_Column *column, TAxisContentItem *row,
                                          TBabCell *cell, int &index)
{
    if (const auto *node = TzuGridTree::NodeOf(row)) {
        index = node->GetImageIndex();
    }
    OnGridGetIconIndex(column, row, cell, index);
}

} // namespace korvane
