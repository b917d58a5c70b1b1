#include "cellgrid/zuBabGridLayout.h"

#include "cellgrid/zuBabGridChanges.h"
#include "cellgrid/zuKeepSelection.h"

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

/// Passes after which a layout whose rows keep changing their heights is taken as it is.
constexpr int kMaxPasses = 4;

} // namespace

TBabGridLayoutCore::TBabGridLayoutCore(IBabGridHost &host)
    : m_host(host)
    , m_root(std::make_unique<TBabGridCellForViewer>())
    , m_axisListener(m_root->AxisEvent, TOnEvent::Bind<&TBabGridLayoutCore::OnAxisEvent>(this),
                     false)
    , m_hideListener(m_root->HideEvent, TOnEvent::Bind<&TBabGridLayoutCore::OnHideEvent>(this),
                     false)
    , m_sizeListener(m_root->UserSizeEvent, TOnEvent::Bind<&TBabGridLayoutCore::OnAxisEvent>(this),
                     false)
    , m_cellListener(m_root->CellEvent, TOnEvent::Bind<&TBabGridLayoutCore::OnCellEvent>(this),
                     false)
    , m_selectionListener(m_root->SelectionEvent,
                          TOnEvent::Bind<&TBabGridLayoutCore::OnSelectionEvent>(this), false)
{
    m_root->OnCountChanged = [this](TAxisContentList *list, int index, int by) {
        CountChanged(list, index, by);
    };
    m_root->OnMoved = [this](TAxisContentList *list, int from, int to, int count) {
        ItemsMoved(list, from, to, count);
    };
    m_root->OnRowsReordered = [this](TAxisContentList *list, int first, const auto &order) {
        RowsReordered(list, first, order);
    };
    m_root->OnSubGridGoes = [this](TBabGridCell *grid) { SubGridGoes(grid); };
    m_root->OnSelectRow = [this](TBabGridCell *grid, int row, bool selected) {
        SelectRow({grid, 0, row}, selected);
    };
}

TBabGridLayoutCore::~TBabGridLayoutCore()
{
    m_root->OnCountChanged = nullptr;
    m_root->OnMoved = nullptr;
    m_root->OnRowsReordered = nullptr;
    m_root->OnSubGridGoes = nullptr;
    m_root->OnSelectRow = nullptr;
}

/// While a layout is made, columns and rows are loaded, which are painted as they come.
void TBabGridLayoutCore::OnAxisEvent(TSingleEventListener * /*listener*/)
{
    if (!m_layingOut) {
        m_picture.Forget();
    }
    LoseLayout();
}

void TBabGridLayoutCore::OnCellEvent(TSingleEventListener * /*listener*/)
{
    LayoutOutOfDate();
}

void TBabGridLayoutCore::InvalidatePicture()
{
    m_picture.Forget();
    m_host.InvalidateGrid();
}

void TBabGridLayoutCore::OnHideEvent(TSingleEventListener * /*listener*/)
{
    LayoutOutOfDate();
    HiddenChanged();
}

void TBabGridLayoutCore::OnSelectionEvent(TSingleEventListener *listener)
{
    InvalidatePicture();
    // Nodes may do away with the view.
    const std::weak_ptr<char> lives = m_lives;
    if (auto *grid = dynamic_cast<TBabGridCell *>(listener->Data())) {
        SelectionEventOf(*grid);
        grid->TellTreeSelection();
    }
    if (!lives.expired()) {
        SelectionEventFired();
    }
}

void TBabGridLayoutCore::SetExtendLastColumnToWidth(bool extend)
{
    if (extend != m_root->ExtendLastColumnToWidth()) {
        m_root->SetExtendLastColumnToWidth(extend);
        LayoutOutOfDate();
    }
}

void TBabGridLayoutCore::LayoutOutOfDate()
{
    m_picture.Forget();
    LoseLayout();
}

void TBabGridLayoutCore::LoseLayout()
{
    const bool lost = !std::exchange(m_outOfDate, true);
    if (!m_layingOut) {
        m_host.InvalidateGrid();
        if (lost) {
            LayoutLost();
        }
    }
}

// --- looks ---------------------------------------------------------------------------------------

TBabColumn *TBabGridLayoutCore::ColumnOf(const TAxisContentItem &item)
{
    return dynamic_cast<TBabColumn *>(item.Value());
}

const TLayoutProp &TBabGridLayoutCore::LayoutOf(const TBabGridCell &grid,
                                                const TAxisContentItem &column,
                                                const TAxisContentItem &row) const
{
    const TBabCell *cell = grid.FindCell(column, row);
    if (cell != nullptr && cell->LayoutProp() != nullptr) {
        return *cell->LayoutProp();
    }
    const TBabColumn *info = ColumnOf(column);
    const TLayoutProp *layout = info != nullptr ? info->LayoutProp() : nullptr;
    return layout != nullptr ? *layout : m_defaultLayout;
}

TFont TBabGridLayoutCore::FontOf(const TLayoutProp &layout) const
{
    if (layout.UseFontInfo) {
        return layout.Font;
    }
    TFont font = m_host.GridFont();
    font.Color = layout.FrontColor;
    return font;
}

// --- laying out ----------------------------------------------------------------------------------

std::int64_t TBabGridLayoutCore::ScrollOf(const TAxisContentList &list) const
{
    return &list == &m_root->Columns() ? m_scrollX : &list == &m_root->Rows() ? m_scrollY : 0;
}

void TBabGridLayoutCore::UpdateDefaultHeight()
{
    int height = m_defaultLayout.MinHeight;
    for (int p = 0; p < m_root->Columns().LoadedCount(); ++p) {
        const TBabColumn *column = ColumnOf(*m_root->Columns().getLoadedAxisContentItem(p));
        if (column != nullptr && column->LayoutProp() != nullptr) {
            height = std::max(height, column->LayoutProp()->MinHeight);
        }
    }
    TCanvas &canvas = m_host.MeasureCanvas();
    canvas.SetFont(m_host.GridFont());
    m_textHeight = canvas.TextExtent("Xg").Height;
    m_root->Rows().SetDefaultSize(std::max(height, m_textHeight + kPadding));
}

void TBabGridLayoutCore::EnsureLayout()
{
    if (m_layingOut || !m_outOfDate) {
        return;
    }
    m_layingOut = true;
    struct TDone
    {
        bool &LayingOut;
        ~TDone() { LayingOut = false; }
    } const done{m_layingOut};
    UpdateDefaultHeight();
    bool again = true;
    for (int pass = 0; again && pass < kMaxPasses; ++pass) {
        m_outOfDate = false;
        m_shown = BlockOfView();
        again = MeasureRows(m_shown) || m_outOfDate;
    }
    if (again) {
        m_shown = BlockOfView();
    }
    m_outOfDate = false;
    for (TAxisContentList *list : {&m_root->Columns(), &m_root->Rows()}) {
        list->ClearVisibles();
        for (const TGridBand &band : list->IsRowAxis() ? m_shown.Rows : m_shown.Columns) {
            list->AddToVisible(*band.Item);
        }
    }
}

std::optional<TGridPictureMove> TBabGridLayoutCore::PictureMove()
{
    EnsureLayout();
    auto move = m_outOfDate ? std::nullopt : m_picture.MoveTo(m_shown);
    if (!move) {
        return move;
    }
    // The marks of the rows, and the texts of groups, stand in what is shown of them.
    const TRect &area = m_shown.Area;
    const TRect head{area.Left, m_shown.FixedEnd.Y, m_shown.FixedEnd.X, area.Bottom};
    if (!head.IsEmpty()) {
        move->Anew.push_back(head);
    }
    for (const TGridBand &column : m_shown.Columns) {
        const TBabColumn *info = ColumnOf(*column.Item);
        if (info != nullptr && !column.Fixed && info->GroupsIn(m_root->ShowsTree())) {
            move->Anew.push_back(TRect{std::max(column.Near, m_shown.FixedEnd.X),
                                       m_shown.FixedEnd.Y, column.Far, area.Bottom}
                                     .Intersected(area));
        }
    }
    AddToPictureMove(*move);
    return move;
}

TGridBlock TBabGridLayoutCore::BlockOfView()
{
    if (m_printSlice != nullptr) {
        return BlockOfPrint();
    }
    ClampScroll();
    const TSize size = m_host.GridSize();
    const TRect area{0, 0, size.Width, size.Height};
    return BlockOf(*m_root, area, area);
}

TGridBlock TBabGridLayoutCore::BlockOfPrint()
{
    TAxisContentList &rows = m_root->Rows();
    TAxisContentList &columns = m_root->Columns();
    const int last = std::min(m_printSlice->LastRow, rows.Count() - 1);
    Load(rows, m_printSlice->FirstRow, last);
    TGridBlock block{m_root.get(), {}, {}, {}, {}};
    int y = 0;
    for (int index = m_printSlice->FirstRow; index <= last; ++index) {
        TAxisContentItem *row = rows.FindLoaded(index);
        const int height = rows.SizeAt(index);
        if (row != nullptr && height > 0) {
            const bool fixed = index < rows.FixedCount();
            block.Rows.push_back({row, index, y, y + height, fixed});
            y += height;
            block.FixedEnd.Y = fixed ? y : block.FixedEnd.Y;
        }
    }
    int x = 0;
    for (const auto &[index, width] : m_printSlice->Columns) {
        if (TAxisContentItem *column = columns.FindLoaded(index)) {
            block.Columns.push_back({column, index, x, x + width, false});
            x += width;
        }
    }
    block.Area = {0, 0, x, y};
    return block;
}

void TBabGridLayoutCore::SetPrintSlice(const TGridPrintSlice *slice)
{
    m_printSlice = slice;
    m_outOfDate = true;
    if (slice == nullptr) {
        LayoutOutOfDate();
    }
}

const TGridBlock &TBabGridLayoutCore::Shown()
{
    EnsureLayout();
    return m_shown;
}

/// Loads a range of items that is small enough to be shown. The block is contiguous, so that with
/// the ends everything between them is there; loading one end may have cost the other.
void TBabGridLayoutCore::Load(TAxisContentList &list, int first, int last)
{
    if (list.IsFullyLoaded()) {
        return;
    }
    first = std::max(first, list.FixedCount());
    if (list.HasGaps()) {
        list.KeepForLayout(first, last);
        for (int index = list.NearestShown(first, 1); index >= 0 && index <= last;
             index = list.NearestShown(index + 1, 1)) {
            list.EnsureLoadedItem(index);
        }
        return;
    }
    if (first > last || (list.IsPresent(first) && list.IsPresent(last))) {
        return;
    }
    const TKeepSelection keep(list.getGridCell());
    list.EnsureLoadedItem(first);
    list.EnsureLoadedItem(last);
    list.EnsureLoadedItem(first);
}

TGridBands TBabGridLayoutCore::BandsOf(TAxisContentList &list, const TAxisView &view)
{
    TGridBands bands;
    const auto add = [&](int index, std::int64_t near, bool fixed) {
        TAxisContentItem *item = list.FindLoaded(index);
        const int size = list.SizeAt(index);
        if (item != nullptr && size > 0) {
            bands.push_back({item, index, ToPixel(near), ToPixel(near + size), fixed});
        }
        return near + size;
    };
    const int fixed = std::min(list.FixedCount(), list.Count());
    std::int64_t near = view.Origin;
    for (int index = 0; index < fixed && near < view.Shown.Far; ++index) {
        near = add(index, near, true);
    }
    const std::int64_t fixedEnd = near;
    const std::int64_t base = view.Origin - view.Scroll;
    const std::int64_t from = std::max<std::int64_t>(fixedEnd, view.Shown.Near) - base;
    const int first = std::max(fixed, list.IndexAt(from));
    if (view.Shown.Far > fixedEnd && first < list.Count()
        && list.TotalSize() > list.OffsetOf(fixed)) {
        const int last = std::max(first, list.IndexAt(view.Shown.Far - 1 - base));
        Load(list, first, last);
        // Loading may have changed how many there are.
        for (int index = first; index >= 0 && index <= std::min(last, list.Count() - 1);
             index = list.NearestShown(index + 1, 1)) {
            add(index, base + list.OffsetOf(index), false);
        }
    }
    if (view.ExtendTo > 0 && !bands.empty()
        && bands.back().Index == list.NearestShown(list.Count() - 1, -1)) {
        bands.back().Far = std::max(bands.back().Far, view.ExtendTo);
    }
    return bands;
}

TGridBlock TBabGridLayoutCore::BlockOf(TBabGridCell &grid, const TRect &area, const TRect &clip)
{
    TGridBlock block{&grid, area.Intersected(clip), {}, {}, {}};
    grid.Rows().SetDefaultSize(m_root->Rows().DefaultSize());
    TAxisContentList &columns = grid.Columns();
    TAxisContentList &rows = grid.Rows();
    block.Columns = BandsOf(columns, {area.Left,
                                      ScrollOf(columns),
                                      {block.Area.Left, block.Area.Right},
                                      grid.ExtendLastColumnToWidth() ? area.Right : 0});
    block.Rows = BandsOf(rows, {area.Top, ScrollOf(rows), {block.Area.Top, block.Area.Bottom}, 0});
    const auto fixedSize = [](const TAxisContentList &list) {
        return ToPixel(list.OffsetOf(std::min(list.FixedCount(), list.Count())));
    };
    block.FixedEnd = {area.Left + fixedSize(columns), area.Top + fixedSize(rows)};
    return block;
}

TGridBlock TBabGridLayoutCore::ShownIn(TBabGridCell &grid, const TRect &area, const TRect &clip)
{
    // A handler that changes what the grid is in may have released the grid.
    const TGridChanges outside(grid.GridCell() != nullptr ? *grid.GridCell() : grid);
    TGridBlock block = BlockOf(grid, area, clip);
    const bool again = !outside.Happened() && MeasureRows(block);
    if (outside.Happened()) {
        return {};
    }
    return again ? BlockOf(grid, area, clip) : block;
}

// --- scrolling -----------------------------------------------------------------------------------

TSize TBabGridLayoutCore::PageSize() const
{
    const auto fixedSize = [](const TAxisContentList &list) {
        return ToPixel(list.OffsetOf(std::min(list.FixedCount(), list.Count())));
    };
    const TSize size = m_host.GridSize();
    return {std::max(0, size.Width - fixedSize(m_root->Columns())),
            std::max(0, size.Height - fixedSize(m_root->Rows()))};
}

std::int64_t TBabGridLayoutCore::MaxScrollX() const
{
    return std::max<std::int64_t>(0, m_root->Columns().TotalSize() - m_host.GridSize().Width);
}

std::int64_t TBabGridLayoutCore::MaxScrollY() const
{
    return std::max<std::int64_t>(0, m_root->Rows().TotalSize() - m_host.GridSize().Height);
}

void TBabGridLayoutCore::ClampScroll()
{
    m_scrollX = std::clamp<std::int64_t>(m_scrollX, 0, MaxScrollX());
    m_scrollY = std::clamp<std::int64_t>(m_scrollY, 0, MaxScrollY());
}

void TBabGridLayoutCore::ScrollTo(std::int64_t x, std::int64_t y)
{
    const auto before = std::pair(m_scrollX, m_scrollY);
    m_scrollX = x;
    m_scrollY = y;
    ClampScroll();
    if (before == std::pair(m_scrollX, m_scrollY)) {
        return;
    }
    const bool lost = !std::exchange(m_outOfDate, true);
    // What is not in the area tells a request to paint everything from this one.
    const TSize size = m_host.GridSize();
    const TSize page = PageSize();
    const bool sideways = m_scrollX != before.first;
    const TRect area{sideways ? size.Width - page.Width : 0,
                     sideways ? 0 : size.Height - page.Height, size.Width, size.Height};
    const bool both = sideways && m_scrollY != before.second;
    if (both || area == TRect{0, 0, size.Width, size.Height}) {
        m_host.InvalidateGrid();
    } else {
        m_host.ScrollGrid(area);
    }
    if (lost) {
        LayoutLost();
    }
    TopLeftChanged();
}

void TBabGridLayoutCore::ScrollRows(int rows)
{
    const TAxisContentList &list = m_root->Rows();
    const int fixed = std::min(list.FixedCount(), list.Count());
    int index = std::max(fixed, list.IndexAt(list.OffsetOf(fixed) + m_scrollY));
    for (; rows != 0 && index >= fixed && index<list.Count(); rows += rows> 0 ? -1 : 1) {
        const int next = list.NearestShown(index + (rows > 0 ? 1 : -1), rows);
        if (next < fixed) {
            break;
        }
        index = next;
    }
    if (index < list.Count()) {
        ScrollTo(m_scrollX, list.OffsetOf(index) - list.OffsetOf(fixed));
    }
}

TGridCellAt TBabGridLayoutCore::GetTopLeftCell()
{
    EnsureLayout();
    const auto firstOf = [](const TGridBands &bands) {
        const auto found = std::find_if(bands.begin(), bands.end(),
                                        [](const TGridBand &band) { return !band.Fixed; });
        return found == bands.end() ? -1 : found->Index;
    };
    const TGridCellAt at{m_root.get(), firstOf(m_shown.Columns), firstOf(m_shown.Rows)};
    return at.Column < 0 || at.Row < 0 ? TGridCellAt() : at;
}

void TBabGridLayoutCore::MakeVisible(const TGridCellAt &at)
{
    const TRect rect = CellRect(at);
    if (rect.IsEmpty()) {
        return;
    }
    const TSize size = m_host.GridSize();
    const TSize page = PageSize();
    const auto scroll = [](std::int64_t from, int near, int far, int pageNear, int pageFar) {
        if (near < pageNear || far - near > pageFar - pageNear) {
            return from + near - pageNear;
        }
        return far > pageFar ? from + far - pageFar : from;
    };
    const bool fixedColumn = at.Grid == m_root.get() && at.Column < m_root->Columns().FixedCount();
    const bool fixedRow = at.Grid == m_root.get() && at.Row < m_root->Rows().FixedCount();
    ScrollTo(
        fixedColumn ? m_scrollX
                    : scroll(m_scrollX, rect.Left, rect.Right, size.Width - page.Width, size.Width),
        fixedRow
            ? m_scrollY
            : scroll(m_scrollY, rect.Top, rect.Bottom, size.Height - page.Height, size.Height));
}

} // namespace korvane
