// One line of the chart: its layers of time items and their geometry.
#pragma once

#include "data/zuDataTraveser.h"
#include "foundation/zuExport.h"
#include "gantt/zuGantData.h"
#include "gantt/zuGantTypes.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>

namespace korvane {

class TDistinctTimeHolderList;
class TGantCore;
class TTimeDistinctGenericThread;

/// A row of the chart, bound to a node of the row tree or of the grid. It owns the layer lists of
/// its items.
///
/// A row takes its rectangle from its node while the node's line is on screen; otherwise it is
/// scrolled away and its items have no vertical place.
class KORVANE_CORE_API TGantRow : public TzuExposable
{
public:
    /// Makes the row's layers. The nodes are observed; either may be null.
    explicit TGantRow(TGantRowList &rowList, TzuDataEntity_Tree *treeNode,
                      TzuDataEntity_GridTreeNode *gridNode = nullptr);
    ~TGantRow() override;

    /// The chart and its list of rows; both outlive the row.
    TGantCore &Gant() const { return m_gant; }
    TGantRowList &RowList() const { return m_rowList; }
    /// The node of the row tree, or null.
    TzuDataEntity_Tree *TreeNode() const { return m_treeNode; }
    /// The node of the grid, or null.
    TzuDataEntity_GridTreeNode *GridNode() const { return m_gridNode; }
    /// The one of the two that the row has, the tree's first.
    TzuDataEntity *Node() const;

    /// Whether items may be moved in time with the mouse; true by default.
    bool TimeItems_CanMove() const { return m_canMove; }
    void SetTimeItems_CanMove(bool can) { m_canMove = can; }
    /// Whether items may be dragged to another row; true by default.
    bool TimeItems_CanChangeRow() const { return m_canChangeRow; }
    void SetTimeItems_CanChangeRow(bool can) { m_canChangeRow = can; }
    /// Whether items may be resized with the mouse; true by default.
    bool TimeItems_CanResize() const { return m_canResize; }
    void SetTimeItems_CanResize(bool can) { m_canResize = can; }

    /// First layer that is drawn and hit-tested.
    int GetDrawLayerStart() const { return m_drawLayerStart; }
    void SetDrawLayerStart(int layer);
    /// Number of sub-rows the row is divided into; 0 or 1 = none.
    int UseSubCols() const { return m_useSubCols; }
    void SetUseSubCols(int count);
    /// Sub-row, 0-based, of every item of a layer, while sub-rows come from layers.
    /// Throws std::out_of_range for a layer outside 0..9.
    void DataListOnSubCol(int layer, int subCol);
    /// Whether sub-rows come from each item's SubCol rather than from its layer.
    bool CollisionDetection() const { return m_collisionDetection; }
    /// Switched off, the row is no longer divided.
    void SetCollisionDetection(bool on);
    /// Whether the items of all layers are kept from overlapping each other, or those of one layer.
    bool OneGroup() const { return m_oneGroup; }
    void SetOneGroup(bool on);
    /// Works the sub-rows out afresh soon, in the background, if CollisionDetection is on.
    void UpdateSubColumns();
    /// Begins to do so at once, in place of the computation that runs.
    void UpdateSubColumnsAsync(TObject *sender);
    /// A computation runs.
    bool IsSeparating() const { return m_separation != nullptr; }

    /// The layer lists, 0-based. Asking for a layer beyond the last appends the layers up to it.
    TzuDataList2lev &Layers() { return *m_layers; }
    /// Calls `visit` with every item that is drawn, first layer to last, loading what it passes.
    /// It must leave the layers as they are.
    template <typename Visit>
    void ForEachShown(const Visit &visit);
    /// The layer that holds the item; -1 when none does.
    int LayerOf(const TzuDataEntity_Spanbar &item) const;
    /// Sub-row, 0-based, that the item lies in; nothing for an item that spans the row.
    std::optional<int> SubRowOf(const TzuDataEntity_Spanbar &item) const;
    /// Appends an empty layer.
    TzuDataList_GantRow &AddDataList();

    /// Whether the node is shown: not hidden and under no collapsed node. Scrolled away still
    /// counts.
    bool GetVisible() const;
    /// The row's rectangle in area pixels, (-1, -1, -1, -1) while the row is scrolled away.
    TRect GetRect() const;
    /// Whether the row has a rectangle: it is not scrolled away.
    bool IsOnScreen() const;
    /// Takes the rectangle afresh from the node.
    void UpdateRect();
    /// Places the row on screen. Left and right become those of the area.
    void SetNodeRect(const TRect &nodeRect);

    /// Horizontal extent of an item in area pixels.
    TPixelSpan XStartStopFromDataEntity(const TzuDataEntity_Spanbar &item) const;
    /// Vertical extent of an item in area pixels; nothing while the row is scrolled away or hidden.
    std::optional<TPixelSpan> YStartStopFromDataEntity(const TzuDataEntity_Spanbar &item) const;
    /// Least width of an item's rectangle, so that short items stay visible and can be hit.
    static constexpr int kLeastItemWidth = 5;
    /// Rectangle of an item in area pixels, at least that wide; nothing where it has no vertical
    /// place.
    std::optional<TRect> RectFromDataEntity(const TzuDataEntity_Spanbar &item) const;

    /// The rectangle that an item has when the row lies at `rowY` of the area.
    TRect RectFromDataEntity(const TzuDataEntity_Spanbar &item, TPixelSpan rowY) const;
    /// The same at other times.
    TRect RectAt(const TzuDataEntity_Spanbar &item, TPixelSpan rowY, TDateTime start,
                 TDateTime stop) const;

    /// The topmost visible item at a point of the area, or null.
    TzuDataEntity_Spanbar *FindDataEntityFromXY(int x, int y);
    /// The same at the row's first line of pixels.
    TzuDataEntity_Spanbar *FindDataEntityFromX(int x);
    /// Draws the visible items, first layer to last. In a long layer those that crowd on the same
    /// pixels become a strip; see TGantDensity.
    void DrawContent();

    void CleanForFree() override;

private:
    friend class TGantDataKeeper;
    friend class TGantRowList;

    struct TTimes
    {
        TDateTime From;
        TDateTime To;
    };

    TzuDataEntity_Spanbar *TopmostOf(TzuDataList &layer, TPoint at) const;
    void DrawLayer(TzuDataList &layer);
    static TzuDataList_GantRow *AsLong(TzuDataList &layer);
    TTimes TimesAround(TPixelSpan x, int greatestFixedSize) const;
    TTimes TimesOf(TPixelSpan x) const;
    TPixelSpan XSpan(const TzuDataEntity_Spanbar &item, TDateTime start, TDateTime stop) const;
    TPixelSpan YWithin(const TzuDataEntity_Spanbar &item, TPixelSpan rowY) const;
    TPixelSpan SubRowSpan(const TzuDataEntity_Spanbar &item, TPixelSpan row) const;
    void StopSeparation();
    void FillHolders(TzuDataList &layer, TDistinctTimeHolderList &holders) const;
    void TimeDistinctThreadDone(TTimeDistinctGenericThread *sender);
    template <typename Visitor>
    void VisitPlaced(TDistinctTimeHolderList &holders, const Visitor &visit);
    void TellCollisions(TDistinctTimeHolderList &holders);
    void ApplySubCols(TDistinctTimeHolderList &holders);
    void OnMissingIndex(TzuExposable *list, int index, bool &fixable);

    static constexpr int kLayersWithSubRow = 10;

    TGantCore &m_gant;
    TGantRowList &m_rowList;
    TzuDataEntity_Tree *m_treeNode;
    TzuDataEntity_GridTreeNode *m_gridNode;
    TzuDataList2lev *m_layers;                                          ///< released with the row
    std::unique_ptr<std::array<int, kLayersWithSubRow>> m_layerSubCols; ///< absent: all 0
    std::shared_ptr<TTimeDistinctGenericThread> m_separation;           ///< that runs
    std::uint32_t m_chunk = kNoChunk;                                   ///< place in the row list
    TRect m_rect;
    unsigned m_rectFrame = 0; ///< frame of the row list in which m_rect was taken
    int m_drawLayerStart = 0;
    int m_useSubCols = 0;
    bool m_canMove = true;
    bool m_canChangeRow = true;
    bool m_canResize = true;
    bool m_collisionDetection = false;
    bool m_oneGroup = false;
    bool m_kept = false; ///< keepers are to be told when the row is freed
};

template <typename Visit>
void TGantRow::ForEachShown(const Visit &visit)
{
    for (int layer = std::max(m_drawLayerStart, 0); layer < m_layers->Count(); ++layer) {
        TzuDataList *items = m_layers->GetDataList(layer);
        for (int i = 0; i < items->Count(); ++i) {
            auto *item = static_cast<TzuDataEntity_Spanbar *>(items->GetItems(i));
            if (item != nullptr && item->GetVisible()) {
                visit(*item);
            }
        }
    }
}

} // namespace korvane
