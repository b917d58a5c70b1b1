#include "gantt/zuGantRow.h"

#include "foundation/zuRound.h"
#include "gantt/zuGant.h"
#include "gantt/zuGantDensity.h"
#include "grid/zuGridTreeData.h"
#include "scaler/zuScalerGestures.h"
#include "tree/zuTreeData.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <utility>

namespace korvane {

namespace {

constexpr TRect kScrolledAway{-1, -1, -1, -1};
/// Days from the origin of time beyond which nothing is told apart.
constexpr TDateTime kFarTime = 1e9;
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TPixelSpan Scaled(TPixelSpan span, double factor)
{
    return {RoundToPixel(span.From * factor), RoundToPixel(span.To * factor)};
}

} // namespace

TGantRow::TGantRow(TGantRowList &rowList, TzuDataEntity_Tree *treeNode,
                   TzuDataEntity_GridTreeNode *gridNode)
    : m_gant(rowList.Gant())
    , m_rowList(rowList)
    , m_treeNode(treeNode)
    , m_gridNode(gridNode)
    , m_layers(m_gant.CreateDataList2Lev())
{
    m_layers->OnMissingIndex = TOnMissingIndex::Bind<&TGantRow::OnMissingIndex>(this);
    m_gant.AllTimeItems().Add(m_layers);
}

TGantRow::~TGantRow()
{
    if (m_kept) {
        TGantDataKeeper::Freed(this);
    }
}

void TGantRow::CleanForFree()
{
    if (m_treeNode != nullptr && m_treeNode->Companion() == this) {
        m_treeNode->SetCompanion(nullptr);
    }
    if (m_gridNode != nullptr && m_gridNode->Companion() == this) {
        m_gridNode->SetCompanion(nullptr);
    }
    if (m_layers == nullptr) {
        return;
    }
    SetCollisionDetection(false);
    while (m_layers->Count() > 0) {
        TzuDataList *layer = m_layers->GetDataList(m_layers->Count() - 1);
        m_layers->Delete(m_layers->Count() - 1);
        layer->FreeWheneverPossible();
    }
    m_gant.AllTimeItems().Remove(m_layers);
    m_layers->FreeWheneverPossible();
    m_layers = nullptr;
}

TzuDataEntity *TGantRow::Node() const
{
    return m_treeNode != nullptr ? static_cast<TzuDataEntity *>(m_treeNode) : m_gridNode;
}

void TGantRow::SetDrawLayerStart(int layer)
{
    if (layer != m_drawLayerStart) {
        m_drawLayerStart = layer;
        m_gant.Host().InvalidateArea();
    }
}

void TGantRow::SetUseSubCols(int count)
{
    if (count != m_useSubCols) {
        m_useSubCols = count;
        m_gant.Host().InvalidateArea();
    }
}

void TGantRow::DataListOnSubCol(int layer, int subCol)
{
    if (layer < 0 || layer >= kLayersWithSubRow) {
        throw std::out_of_range("layer index out of bounds");
    }
    if (m_layerSubCols == nullptr) {
        m_layerSubCols = std::make_unique<std::array<int, kLayersWithSubRow>>();
    }
    m_layerSubCols->at(static_cast<std::size_t>(layer)) = subCol;
    m_gant.Host().InvalidateArea();
}

TzuDataList_GantRow &TGantRow::AddDataList()
{
    TzuDataList_GantRow *layer = m_gant.CreateDataList_GantRow();
    layer->SetRow(this);
    m_layers->Add(layer);
    return *layer;
}

void TGantRow::OnMissingIndex(TzuExposable * /*list*/, int index, bool &fixable)
{
    while (m_layers->Count() <= index) {
        AddDataList();
    }
    fixable = true;
}

bool TGantRow::GetVisible() const
{
    const bool asksGrid =
        m_treeNode == nullptr || (m_gant.UseGridNotTree() && m_gridNode != nullptr);
    return asksGrid ? m_gridNode != nullptr && m_gridNode->GetVisible() : m_treeNode->GetVisible();
}

bool TGantRow::IsOnScreen() const
{
    return m_rectFrame == m_rowList.Frame();
}

TRect TGantRow::GetRect() const
{
    return IsOnScreen() ? m_rect : kScrolledAway;
}

void TGantRow::UpdateRect()
{
    m_gant.UpdateRects();
}

void TGantRow::SetNodeRect(const TRect &nodeRect)
{
    m_rect = {0, nodeRect.Top, m_gant.Host().AreaSize().Width, nodeRect.Bottom};
    m_rectFrame = m_rowList.Frame();
}

TPixelSpan TGantRow::XStartStopFromDataEntity(const TzuDataEntity_Spanbar &item) const
{
    return XSpan(item, item.GetStartDateTime(), item.GetStopDateTime());
}

TPixelSpan TGantRow::XSpan(const TzuDataEntity_Spanbar &item, TDateTime start, TDateTime stop) const
{
    const TDateScalerCore &scaler = m_gant.Host().Scaler();
    TPixelSpan span;
    span.From = scaler.DateToPixel(start);
    if (item.IsResizable()) {
        span.To = scaler.DateToPixel(stop);
    } else {
        span.From -= item.FixedSize() / 2;
        span.To = span.From + item.FixedSize();
    }
    return Scaled(span, m_gant.Host().AreaPrintScale().X);
}

std::optional<TPixelSpan>
TGantRow::YStartStopFromDataEntity(const TzuDataEntity_Spanbar &item) const
{
    if (!IsOnScreen() || !GetVisible()) {
        return std::nullopt;
    }
    return YWithin(item, {m_rect.Top, m_rect.Bottom});
}

TPixelSpan TGantRow::YWithin(const TzuDataEntity_Spanbar &item, TPixelSpan rowY) const
{
    TPixelSpan span{rowY.From + 1, rowY.To - 1};
    if (m_useSubCols > 1) {
        span = SubRowSpan(item, span);
    }
    return Scaled(span, m_gant.RowPrintScale());
}

TPixelSpan TGantRow::SubRowSpan(const TzuDataEntity_Spanbar &item, TPixelSpan row) const
{
    const std::optional<int> subRow = SubRowOf(item);
    if (!subRow) {
        return row;
    }
    const int height = (row.To - row.From) / m_useSubCols;
    return {row.From + *subRow * height, row.From + (*subRow + 1) * height};
}

std::optional<int> TGantRow::SubRowOf(const TzuDataEntity_Spanbar &item) const
{
    if (m_collisionDetection) {
        return item.SubCol() > 0 ? std::optional(item.SubCol() - 1) : std::nullopt;
    }
    const int layer = LayerOf(item);
    if (m_layerSubCols == nullptr || layer < 0 || layer >= kLayersWithSubRow) {
        return 0;
    }
    return m_layerSubCols->at(static_cast<std::size_t>(layer));
}

int TGantRow::LayerOf(const TzuDataEntity_Spanbar &item) const
{
    return m_layers->IndexOf(item.GetDataList());
}

std::optional<TRect> TGantRow::RectFromDataEntity(const TzuDataEntity_Spanbar &item) const
{
    if (!IsOnScreen() || !GetVisible()) {
        return std::nullopt;
    }
    return RectAt(item, {m_rect.Top, m_rect.Bottom}, item.GetStartDateTime(),
                  item.GetStopDateTime());
}

TRect TGantRow::RectFromDataEntity(const TzuDataEntity_Spanbar &item, TPixelSpan rowY) const
{
    return RectAt(item, rowY, item.GetStartDateTime(), item.GetStopDateTime());
}

TRect TGantRow::RectAt(const TzuDataEntity_Spanbar &item, TPixelSpan rowY, TDateTime start,
                       TDateTime stop) const
{
    const TPixelSpan y = YWithin(item, rowY);
    const TPixelSpan x = XSpan(item, start, stop);
    // The sum is taken wide: items far beyond the axis have saturated coordinates.
    const auto leastRight = static_cast<std::int64_t>(x.From) + kLeastItemWidth;
    const auto right = std::min<std::int64_t>(std::max<std::int64_t>(x.To, leastRight),
                                              std::numeric_limits<int>::max());
    return {x.From, y.From, static_cast<int>(right), y.To};
}

TzuDataEntity_Spanbar *TGantRow::FindDataEntityFromXY(int x, int y)
{
    TzuDataEntity_Spanbar *hit = nullptr;
    const int firstLayer = std::max(m_drawLayerStart, 0);
    if (IsOnScreen() && GetVisible()) {
        for (int layer = m_layers->Count() - 1; hit == nullptr && layer >= firstLayer; --layer) {
            hit = TopmostOf(*m_layers->GetDataList(layer), {x, y});
        }
    }
    return hit;
}

TzuDataEntity_Spanbar *TGantRow::TopmostOf(TzuDataList &layer, TPoint at) const
{
    const TPixelSpan rowY{m_rect.Top, m_rect.Bottom};
    if (TzuDataList_GantRow *items = AsLong(layer)) {
        TGantTopmost topmost(*this, layer, rowY, at);
        const auto [from, to] = TimesAround({at.X, at.X + 1}, items->GreatestFixedSize());
        items->TimeIndex().Visit(from, to, topmost);
        return topmost.Item();
    }
    for (int i = layer.Count() - 1; i >= 0; --i) {
        auto *item = static_cast<TzuDataEntity_Spanbar *>(layer.GetItems(i));
        if (item != nullptr && item->GetVisible() && RectFromDataEntity(*item, rowY).Contains(at)) {
            return item;
        }
    }
    return nullptr;
}

/// The layer when its items are picked by time, or null.
TzuDataList_GantRow *TGantRow::AsLong(TzuDataList &layer)
{
    auto *items = dynamic_cast<TzuDataList_GantRow *>(&layer);
    return items != nullptr && items->PicksByTime() ? items : nullptr;
}

/// The times that items must touch to reach into some columns of the area.
TGantRow::TTimes TGantRow::TimesAround(TPixelSpan x, int greatestFixedSize) const
{
    // Symbols reach to both sides of their time, and short items are widened.
    const int margin = greatestFixedSize / 2 + kLeastItemWidth + 1;
    const double scale = m_gant.Host().AreaPrintScale().X;
    return TimesOf({static_cast<int>(std::floor(x.From / scale)) - margin,
                    static_cast<int>(std::ceil(x.To / scale)) + margin});
}

/// The times at some pixels of the axis, found by halving: between marks the axis may be bent.
TGantRow::TTimes TGantRow::TimesOf(TPixelSpan x) const
{
    const TDateScalerCore &axis = m_gant.Host().Scaler();
    if (!(axis.GetStart() < axis.GetStop())) {
        return {-kInfinity, kInfinity};
    }
    // The last time at a pixel before the one asked for, as near as numbers come.
    const auto lastBefore = [&axis](int pixel) {
        TDateTime before = -kFarTime;
        TDateTime after = kFarTime;
        for (TDateTime middle = 0; before < middle && middle < after;
             middle = before + (after - before) / 2) {
            (axis.DateToPixel(middle) < pixel ? before : after) = middle;
        }
        return std::pair(before, after);
    };
    const TDateTime from = lastBefore(x.From).first;
    const TDateTime to = lastBefore(x.To).second;
    return {from <= -kFarTime ? -kInfinity : from, to >= kFarTime ? kInfinity : to};
}

TzuDataEntity_Spanbar *TGantRow::FindDataEntityFromX(int x)
{
    return FindDataEntityFromXY(x, m_rect.Top + 1);
}

void TGantRow::DrawContent()
{
    if (IsOnScreen() && GetVisible()) {
        for (int layer = std::max(m_drawLayerStart, 0); layer < m_layers->Count(); ++layer) {
            DrawLayer(*m_layers->GetDataList(layer));
        }
    }
}

void TGantRow::DrawLayer(TzuDataList &layer)
{
    const TRect clip = m_gant.Host().AreaCanvas().ClipRect();
    const TPixelSpan rowY{m_rect.Top, m_rect.Bottom};
    if (TzuDataList_GantRow *items = AsLong(layer)) {
        TGantDensity density(m_gant, *this, layer, rowY);
        const auto [from, to] = TimesAround({clip.Left, clip.Right}, items->GreatestFixedSize());
        items->TimeIndex().Visit(from, to, density);
        density.Draw();
        return;
    }
    for (int i = 0; i < layer.Count(); ++i) {
        auto *item = static_cast<TzuDataEntity_Spanbar *>(layer.GetItems(i));
        if (item == nullptr || !item->GetVisible()) {
            continue;
        }
        const TRect rect = RectFromDataEntity(*item, rowY);
        if (rect.Left < clip.Right && rect.Right > clip.Left) {
            m_gant.DrawContent(*item, rect);
        }
    }
}

} // namespace korvane
