// Properties of the schedule, and where its parts lie.
#include "foundation/zuDoLater.h"
#include "scaler/zuScalerGestures.h"
#include "schema/zuSchema.h"

#include <algorithm>
#include <utility>

namespace korvane {

template <typename T>
void TSchemaCore::AssignPainted(T &field, const T &value)
{
    if (!(field == value)) {
        field = value;
        m_host.InvalidateArea();
    }
}

void TSchemaCore::SetFlipView(bool on)
{
    if (std::exchange(m_flipView, on) != on) {
        UpdatePartSize();
        UpdateColumnScrollerLater();
    }
}

void TSchemaCore::SetSchemaColor(TColor color)
{
    AssignPainted(m_color, color);
    ReInitBitmap();
}

void TSchemaCore::SetSchemaPyjamasColor(TColor color)
{
    AssignPainted(m_pyjamasColor, color);
    ReInitBitmap();
}

void TSchemaCore::SetDrawShortLines(bool on)
{
    AssignPainted(m_drawShortLines, on);
}

void TSchemaCore::SetLineColor(TColor color)
{
    AssignPainted(m_lineColor, color);
}

void TSchemaCore::SetShortLineColor(TColor color)
{
    AssignPainted(m_shortLineColor, color);
}

void TSchemaCore::SetTextFont(int style, const TFont &font)
{
    AssignPainted(m_textFonts.at(FontSlot(style)), font);
}

void TSchemaCore::SetDrawLayers(TDrawLayerArray layers)
{
    AssignPainted(m_drawLayers, layers);
}

void TSchemaCore::SetScrollVisibility(TScrollVisibility visibility)
{
    if (std::exchange(m_scrollVisibility, visibility) != visibility) {
        UpdateColumnScroller();
    }
}

void TSchemaCore::SetCollisionDetect(bool on)
{
    if (m_collisionDetect == on) {
        return;
    }
    if (on) {
        m_collisionDetect = true;
        UpdateSubColumns();
    } else {
        WorkOutSubCols({0, m_columns->Count()}); // the columns keep how many they have
        m_collisionDetect = false;
        StopSeparation();
        DropSubCols();
    }
}

void TSchemaCore::SetCollisionDetectBetweenDataList(bool on)
{
    if (std::exchange(m_collisionBetweenLists, on) != on) {
        UpdateSubColumns();
    }
}

void TSchemaCore::SetSubColsInListOrder(bool on)
{
    if (std::exchange(m_subColsInListOrder, on) != on) {
        UpdateSubColumns();
    }
}

void TSchemaCore::SetLeastSubColWidth(int pixels)
{
    if (std::exchange(m_leastSubColWidth, pixels) != pixels) {
        WidenColumns();
    }
}

void TSchemaCore::SetLeastTimeLength(int pixels)
{
    pixels = std::max(pixels, kLeastTimeLength);
    if (std::exchange(m_leastTimeLength, pixels) != pixels) {
        m_host.InvalidateArea();
        UpdateSubColumns();
    }
}

// --- parts ---------------------------------------------------------------------------------------

void TSchemaCore::SetPartSizes(const TSchemaPartSizes &sizes)
{
    if (sizes != m_partSizes) {
        m_partSizes = sizes;
        UpdatePartSize();
    }
}

TSchemaPartRects TSchemaCore::Parts() const
{
    return LayoutSchemaParts(m_partSizes, m_host.ComponentSize(), m_flipView);
}

int TSchemaCore::GetScalerWidth() const
{
    return m_flipView ? m_host.ComponentSize().Width - m_partSizes.FlippedHeaderWidth
                      : m_partSizes.ScalerWidth;
}

void TSchemaCore::SetScalerWidth(int value)
{
    m_newScalerWidth = value;
    TDoLater::DoLater(TDoLaterCall::Bind<&TSchemaCore::SetScalerWidth_Perform>(this));
}

void TSchemaCore::SetScalerWidth_Perform(TObject * /*sender*/)
{
    TSchemaPartSizes sizes = m_partSizes;
    (m_flipView ? sizes.FlippedHeaderWidth : sizes.ScalerWidth) =
        m_flipView ? m_host.ComponentSize().Width - m_newScalerWidth : m_newScalerWidth;
    SetPartSizes(sizes);
}

int TSchemaCore::GetScalerHeight() const
{
    return m_flipView ? m_partSizes.ScalerHeight
                      : m_host.ComponentSize().Height - m_partSizes.HeaderHeight;
}

void TSchemaCore::SetScalerHeight(int value)
{
    m_newScalerHeight = value;
    TDoLater::DoLater(TDoLaterCall::Bind<&TSchemaCore::SetScalerHeight_Perform>(this));
}

void TSchemaCore::SetScalerHeight_Perform(TObject * /*sender*/)
{
    TSchemaPartSizes sizes = m_partSizes;
    (m_flipView ? sizes.ScalerHeight : sizes.HeaderHeight) =
        m_flipView ? m_newScalerHeight : m_host.ComponentSize().Height - m_newScalerHeight;
    SetPartSizes(sizes);
}

void TSchemaCore::PartResize(TPoint delta)
{
    TSchemaPartSizes sizes = m_partSizes;
    const auto add = [](int &size, int pixels) { size = std::max(size + pixels, 0); };
    add(m_flipView ? sizes.FlippedHeaderWidth : sizes.ScalerWidth, delta.X);
    add(m_flipView ? sizes.ScalerHeight : sizes.HeaderHeight, delta.Y);
    SetPartSizes(sizes);
}

void TSchemaCore::UpdatePartSize()
{
    m_host.Scaler().SetHorizontal(m_flipView);
    m_host.PlaceParts();
    if (HasData()) {
        WidenColumns(); // as there may be more room
    }
    ColumnsChanged();
    UpdateColumnScroller();
}

void TSchemaCore::LayoutLater()
{
    TDoLater::DoLater(TDoLaterCall::Bind<&TSchemaCore::UpdatePartSizePerform>(this));
}

void TSchemaCore::UpdatePartSizePerform(TObject * /*sender*/)
{
    UpdatePartSize();
}

int TSchemaCore::ColumnRoom() const
{
    const TSize area = m_host.AreaSize();
    return m_flipView ? area.Height : area.Width;
}

void TSchemaCore::UpdateColumnScroller()
{
    if (!HasData()) {
        return;
    }
    const bool needed = m_columns->TopLeftCol() > 0 || GetColumnSpace() > ColumnRoom();
    m_host.ShowColumnScroller(m_scrollVisibility == TScrollVisibility::svAlways
                              || (m_scrollVisibility == TScrollVisibility::svWhenNeeded && needed));
}

void TSchemaCore::ScrollColumns(int columns)
{
    const int first = m_columns->TopLeftCol();
    const int last = std::max(m_columns->LastTopLeftCol(m_flipView, ColumnRoom()), first);
    m_columns->SetTopLeftCol(std::clamp(first + columns, 0, last));
    UpdateColumnScroller();
}

void TSchemaCore::UpdateColumnScrollerLater()
{
    TDoLater::DoLater(TDoLaterCall::Bind<&TSchemaCore::UpdateColumnScroller_Perform>(this));
}

void TSchemaCore::UpdateColumnScroller_Perform(TObject * /*sender*/)
{
    UpdateColumnScroller();
}

} // namespace korvane
