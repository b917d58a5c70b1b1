// What is marked under the mouse.
#include "cellgrid/zuBabGridSelect.h"

#include <array>

namespace korvane {

void TBabGridSelectCore::SetHotTrack(bool value)
{
    if (value != m_hotTrack) {
        m_hotTrack = value;
        InvalidatePicture();
    }
}

void TBabGridSelectCore::SetMousePlace(std::optional<TPoint> place)
{
    m_mouse = place;
    // While the layout is out of date a paint is on its way, which looks itself.
    if (IsLayoutOutOfDate()) {
        return;
    }
    const TGridHot now = HotNow();
    if (now == m_hot) {
        return;
    }
    const TRect &all = Shown().Area;
    for (const TRect &strip : std::array{StripOf(m_hot), StripOf(now)}) {
        if (strip == all) {
            Host().InvalidateGrid();
        } else if (!strip.IsEmpty()) {
            Host().ScrollGrid(strip);
        }
    }
}

TGridHot TBabGridSelectCore::HotNow()
{
    if (!m_hotTrack || !m_mouse) {
        return {};
    }
    const TGridHit hit = HitTest(*m_mouse);
    switch (hit.Part) {
    case TGridPart::Cell:
    case TGridPart::RowHeader:
    case TGridPart::RowBorder:
        return {TGridPart::Cell, {hit.At.Grid, -1, hit.At.Row}};
    case TGridPart::ColumnHeader:
    case TGridPart::CheckBox:
    case TGridPart::TreeButton:
        return {hit.Part, hit.At};
    default:
        return {};
    }
}

/// What of the view a mark may change: from edge to edge, as high as the row.
TRect TBabGridSelectCore::StripOf(const TGridHot &hot)
{
    if (hot.At.Grid == nullptr) {
        return {};
    }
    const TRect &area = Shown().Area;
    const int column = hot.At.Grid->Columns().NearestShown(0, 1);
    const TRect cell = CellRect({hot.At.Grid, column, hot.At.Row});
    return TRect{area.Left, cell.Top, area.Right, cell.Bottom}.Intersected(area);
}

} // namespace korvane
