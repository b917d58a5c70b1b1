#include "cellgrid/zuBabGridLayout.h"

#include "cellgrid/zuCellText.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace korvane {

namespace {

/// Passes after which a layout whose rows keep changing their heights is taken as it is.
constexpr int kMaxPasses = 4;
constexpr int kFar = 1 << 28;

int Pixel(std::int64_t value)
{
    return static_cast<int>(std::clamp<std::int64_t>(value, -kFar, kFar));
}

/// Tells whether handlers changed a grid, or one that it is in, and with that the items at hand.
class TGridChanges
{
public:
    explicit TGridChanges(const TBabGridCell &grid)
    {
        for (const TBabGridCell *each = &grid; each != nullptr; each = each->GridCell()) {
            m_seen.push_back({each, CountOf(*each)});
        }
    }
    /// From the outermost grid on, since what is in a changed one may be gone.
    bool Happened() const
    {
        return std::any_of(m_seen.rbegin(), m_seen.rend(),
                           [](const auto &seen) { return CountOf(*seen.first) != seen.second; });
    }

private:
    static std::uint64_t CountOf(const TBabGridCell &grid)
    {
        return grid.Columns().Changes() + grid.Rows().Changes();
    }
    std::vector<std::pair<const TBabGridCell *, std::uint64_t>> m_seen;
};

/// While it lives the cells of a grid count as deselected, so that rows may be unloaded; the
/// selection by indexes is none of theirs.
class TKeepSelection
{
public:
    explicit TKeepSelection(TBabGridCell &grid)
        : m_grid(grid)
        , m_kept(std::exchange(grid.Selection(), TCellSelection()))
    {
    }
    TKeepSelection(const TKeepSelection &) = delete;
    TKeepSelection &operator=(const TKeepSelection &) = delete;
    ~TKeepSelection() { m_grid.Selection() = std::move(m_kept); }

private:
    TBabGridCell &m_grid;
    TCellSelection m_kept;
};

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
    , m_cellListener(m_root->CellEvent, TOnEvent::Bind<&TBabGridLayoutCore::OnAxisEvent>(this),
                     false)
    , m_selectionListener(m_root->SelectionEvent,
                          TOnEvent::Bind<&TBabGridLayoutCore::OnSelectionEvent>(this), false)
{
    m_root->OnCountChanged = [this](TAxisContentList *list, int index, int by) {
        CountChanged(list, index, by);
    };
    m_root->OnMoved = [this](TAxisContentList *list, int from, int to) {
        ItemMoved(list, from, to);
    };
    m_root->OnSubGridGoes = [this](TBabGridCell *grid) { SubGridGoes(grid); };
}

TBabGridLayoutCore::~TBabGridLayoutCore()
{
    m_root->OnCountChanged = nullptr;
    m_root->OnMoved = nullptr;
    m_root->OnSubGridGoes = nullptr;
}

void TBabGridLayoutCore::OnAxisEvent(TSingleEventListener * /*listener*/)
{
    LayoutOutOfDate();
}

void TBabGridLayoutCore::OnHideEvent(TSingleEventListener * /*listener*/)
{
    LayoutOutOfDate();
    HiddenChanged();
}

void TBabGridLayoutCore::OnSelectionEvent(TSingleEventListener * /*listener*/)
{
    m_host.InvalidateGrid();
    SelectionEventFired();
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
    const bool lost = !std::exchange(m_outOfDate, true);
    if (!m_layingOut) {
        m_host.InvalidateGrid();
        if (lost) {
            LayoutLost();
        }
    }
}

// --- looks
// ----------------------------------------------------------------------------------------

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

// --- laying out
// -----------------------------------------------------------------------------------

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
    m_root->Rows().SetDefaultSize(std::max(height, canvas.TextExtent("Xg").Height + kPadding));
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
    const TSize size = m_host.GridSize();
    const TRect area{0, 0, size.Width, size.Height};
    bool again = true;
    for (int pass = 0; again && pass < kMaxPasses; ++pass) {
        m_outOfDate = false;
        ClampScroll();
        m_shown = BlockOf(*m_root, area, area);
        again = MeasureRows(m_shown) || m_outOfDate;
    }
    if (again) {
        ClampScroll();
        m_shown = BlockOf(*m_root, area, area);
    }
    m_outOfDate = false;
    for (TAxisContentList *list : {&m_root->Columns(), &m_root->Rows()}) {
        list->ClearVisibles();
        for (const TGridBand &band : list->IsRowAxis() ? m_shown.Rows : m_shown.Columns) {
            list->AddToVisible(*band.Item);
        }
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
    if (list.UnloadedBefore() == 0 && list.UnloadedAfter() == 0) {
        return;
    }
    first = std::max(first, list.FixedCount());
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
            bands.push_back({item, index, Pixel(near), Pixel(near + size), fixed});
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
        for (int index = first; index >= 0 && index <= last;
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
        return Pixel(list.OffsetOf(std::min(list.FixedCount(), list.Count())));
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

/// Gives the shown rows the heights that their contents ask for. True when one changed.
bool TBabGridLayoutCore::MeasureRows(TGridBlock &block)
{
    TBabGridCell &grid = *block.Grid;
    std::vector<TAxisContentItem *> measured;
    for (int p = grid.Columns().FixedCount(); p < grid.Columns().LoadedCount(); ++p) {
        TAxisContentItem *item = grid.Columns().getLoadedAxisContentItem(p);
        const TBabColumn *column = ColumnOf(*item);
        const TLayoutProp *layout = column != nullptr ? column->LayoutProp() : nullptr;
        const bool wraps = (layout != nullptr ? *layout : m_defaultLayout).WrapTextAndFit;
        if (!item->GetHide()
            && (wraps || (column != nullptr && HoldsGrids(column->Kind(), grid.ShowsTree())))) {
            measured.push_back(item);
        }
    }
    bool changed = false;
    const bool cellsDiffer = grid.Matris().CellCount() > 0;
    for (const TGridBand &row : block.Rows) {
        if (row.Fixed || row.Item->GetUserSizeActive()) {
            continue;
        }
        int height = grid.Rows().DefaultSize();
        const TGridChanges changes(grid);
        for (TAxisContentItem *column : measured) {
            const int width = grid.Columns().SizeAt(grid.Columns().IndexOf(*column));
            height = std::max(
                height, MeasuredHeight(grid, *column, *row.Item, {0, row.Near, width, row.Far}));
            if (changes.Happened()) {
                return true;
            }
        }
        for (std::size_t i = 0; cellsDiffer && i < block.Columns.size(); ++i) {
            const TBabCell *cell = grid.FindCell(*block.Columns[i].Item, *row.Item);
            if (cell != nullptr && cell->LayoutProp() != nullptr) {
                const TRect rect{block.Columns[i].Near, row.Near, block.Columns[i].Far, row.Far};
                height =
                    std::max(height, MeasuredHeight(grid, *block.Columns[i].Item, *row.Item, rect));
                if (changes.Happened()) {
                    return true;
                }
            }
        }
        const bool isDefault = height == grid.Rows().DefaultSize();
        if (height != row.Far - row.Near) {
            row.Item->SetAutoSize(isDefault ? TAxisContentItem::kNotMeasured : height);
            changed = changed || row.Item->Size() != row.Far - row.Near;
        }
    }
    return changed;
}

int TBabGridLayoutCore::MeasuredHeight(TBabGridCell &grid, TAxisContentItem &column,
                                       TAxisContentItem &row, const TRect &cell)
{
    const TBabColumn *info = ColumnOf(column);
    if (info != nullptr && HoldsGrids(info->Kind(), grid.ShowsTree())) {
        const TGridChanges before(grid);
        TBabCell &made = grid.GetCell(column, row);
        auto *subGrid = before.Happened() ? nullptr : dynamic_cast<TBabGridCell *>(&made);
        if (subGrid == nullptr) {
            return 0;
        }
        // What of it is in view is measured first.
        const TRect area{cell.Left, cell.Top, cell.Right, kFar};
        const TSize size = m_host.GridSize();
        const TGridChanges changes(grid);
        ShownIn(*subGrid, area, {cell.Left, std::max(0, cell.Top), cell.Right, size.Height});
        if (changes.Happened()) {
            return 0;
        }
        return Pixel(subGrid->Rows().TotalSize()) + 1;
    }
    const TLayoutProp &layout = LayoutOf(grid, column, row);
    if (!layout.WrapTextAndFit) {
        return layout.MinHeight;
    }
    TCanvas &canvas = m_host.MeasureCanvas();
    canvas.SetFont(FontOf(layout));
    const int width = cell.Width() - 1 - 2 * kPadding;
    const auto lines = std::ssize(WrappedText(canvas, grid.CellText(column, row), width));
    const int height = static_cast<int>(lines) * canvas.TextExtent("Xg").Height + kPadding + 1;
    return std::max(layout.MinHeight, height);
}

// --- scrolling
// ------------------------------------------------------------------------------------

TSize TBabGridLayoutCore::PageSize() const
{
    const auto fixedSize = [](const TAxisContentList &list) {
        return Pixel(list.OffsetOf(std::min(list.FixedCount(), list.Count())));
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
    if (before != std::pair(m_scrollX, m_scrollY)) {
        LayoutOutOfDate();
        TopLeftChanged();
    }
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

// --- geometry
// -------------------------------------------------------------------------------------

TBabGridLayoutCore::TSpan TBabGridLayoutCore::SpanOf(const TAxisContentList &list, int index,
                                                     const TAxisView &view) const
{
    if (index < 0 || index >= list.Count() || list.SizeAt(index) == 0) {
        return {};
    }
    const std::int64_t near =
        view.Origin + list.OffsetOf(index) - (index < list.FixedCount() ? 0 : view.Scroll);
    std::int64_t far = near + list.SizeAt(index);
    if (view.ExtendTo > 0 && index == list.NearestShown(list.Count() - 1, -1)) {
        far = std::max<std::int64_t>(far, view.ExtendTo);
    }
    return {Pixel(near), Pixel(far)};
}

TRect TBabGridLayoutCore::AreaOf(TBabGridCell &grid)
{
    if (&grid == m_root.get()) {
        const TSize size = m_host.GridSize();
        return {0, 0, size.Width, size.Height};
    }
    TBabGridCell *parent = grid.GridCell();
    if (parent == nullptr) {
        return {};
    }
    return CellRect(
        {parent, parent->Columns().IndexOf(*grid.Column()), parent->Rows().IndexOf(*grid.Row())});
}

TRect TBabGridLayoutCore::CellRect(const TGridCellAt &at)
{
    EnsureLayout();
    if (at.Grid == nullptr) {
        return {};
    }
    const TRect area = AreaOf(*at.Grid);
    TAxisContentList &columns = at.Grid->Columns();
    TAxisContentList &rows = at.Grid->Rows();
    const TSpan x = SpanOf(
        columns, at.Column,
        {area.Left, ScrollOf(columns), {}, at.Grid->ExtendLastColumnToWidth() ? area.Right : 0});
    const TSpan y = SpanOf(rows, at.Row, {area.Top, ScrollOf(rows), {}, 0});
    return x.Near == x.Far || y.Near == y.Far ? TRect() : TRect{x.Near, y.Near, x.Far, y.Far};
}

const TGridBand *TBabGridLayoutCore::BandAt(const TGridBands &bands, int pixel)
{
    // The fixed ones come first and cover what is scrolled under them.
    const auto found = std::find_if(bands.begin(), bands.end(), [pixel](const TGridBand &band) {
        return pixel >= band.Near && pixel < band.Far;
    });
    return found == bands.end() ? nullptr : &*found;
}

/// The band that ends near the pixel.
const TGridBand *TBabGridLayoutCore::BorderAt(const TGridBands &bands, int pixel)
{
    const auto found = std::find_if(bands.begin(), bands.end(), [pixel](const TGridBand &band) {
        return pixel >= band.Far - kGrip && pixel < band.Far + kGrip;
    });
    return found == bands.end() ? nullptr : &*found;
}

TGridHit TBabGridLayoutCore::HitTest(TPoint point)
{
    EnsureLayout();
    return m_shown.Area.Contains(point) ? HitIn(m_shown, point) : TGridHit();
}

TGridHit TBabGridLayoutCore::HitIn(const TGridBlock &block, TPoint point)
{
    const TGridBand *column = BandAt(block.Columns, point.X);
    const TGridBand *row = BandAt(block.Rows, point.Y);
    const bool inHeader = row != nullptr && row->Fixed;
    const TGridBand *border = inHeader ? BorderAt(block.Columns, point.X) : nullptr;
    if (border != nullptr && (!border->Fixed || column == nullptr || column->Fixed)) {
        return {TGridPart::ColumnBorder,
                {block.Grid, border->Index, row->Index},
                {border->Near, row->Near, border->Far, row->Far}};
    }
    if (column != nullptr && column->Fixed) {
        border = BorderAt(block.Rows, point.Y);
        if (border != nullptr && (!border->Fixed || inHeader)) {
            return {TGridPart::RowBorder,
                    {block.Grid, column->Index, border->Index},
                    {column->Near, border->Near, column->Far, border->Far}};
        }
    }
    if (column == nullptr || row == nullptr) {
        return {TGridPart::Nothing, {block.Grid, -1, -1}, {}};
    }
    TGridHit hit{TGridPart::Cell,
                 {block.Grid, column->Index, row->Index},
                 {column->Near, row->Near, column->Far, row->Far}};
    if (row->Fixed || column->Fixed) {
        hit.Part = !row->Fixed     ? TGridPart::RowHeader
                   : column->Fixed ? TGridPart::Corner
                                   : TGridPart::ColumnHeader;
        return hit;
    }
    const TBabColumn *info = ColumnOf(*column->Item);
    if (info != nullptr && info->Kind() == TColumnKind::tckBool
        && CheckBoxRect(hit.Rect).Contains(point)) {
        hit.Part = TGridPart::CheckBox;
    }
    if (TreeButtonRect(hit.At, hit.Rect).Contains(point)) {
        hit.Part = TGridPart::TreeButton;
        return hit;
    }
    auto *subGrid = dynamic_cast<TBabGridCell *>(block.Grid->FindCell(*column->Item, *row->Item));
    if (subGrid != nullptr) {
        const TGridHit inner =
            HitIn(BlockOf(*subGrid, hit.Rect,
                          {hit.Rect.Left, point.Y - kGrip, hit.Rect.Right, point.Y + kGrip}),
                  point);
        return inner.Part == TGridPart::Nothing ? hit : inner;
    }
    return hit;
}

TRect TBabGridLayoutCore::CheckBoxRect(const TRect &cell) const
{
    const int left = (cell.Left + cell.Right - 1 - kCheckBox) / 2;
    const int top = (cell.Top + cell.Bottom - 1 - kCheckBox) / 2;
    return {left, top, left + kCheckBox, top + kCheckBox};
}

IBabTreeRow *TBabGridLayoutCore::TreeNodeAt(const TGridCellAt &at)
{
    const TAxisContentItem *column =
        at.Grid->ShowsTree() ? at.Grid->Columns().FindLoaded(at.Column) : nullptr;
    const TBabColumn *info = column != nullptr ? ColumnOf(*column) : nullptr;
    const TAxisContentItem *row =
        info != nullptr && info->IsTreeColumn() ? at.Grid->Rows().FindLoaded(at.Row) : nullptr;
    return row != nullptr ? at.Grid->TreeRowOf(*row) : nullptr;
}

TRect TBabGridLayoutCore::TreeButtonRect(const TGridCellAt &at, const TRect &cell) const
{
    const IBabTreeRow *node = TreeNodeAt(at);
    if (node == nullptr || !node->HasTreeButton()) {
        return {};
    }
    // Beside the line that the text begins with.
    const int left = cell.Left + kPadding + node->TreeLevel() * kTreeIndent;
    const int bottom = std::min(cell.Bottom, cell.Top + at.Grid->Rows().DefaultSize());
    return TRect{left, cell.Top, left + kTreeIndent, bottom - 1}.Intersected(cell);
}

TRect TBabGridLayoutCore::ContentRect(const TGridCellAt &at, const TRect &cell) const
{
    TRect rect{cell.Left + kPadding, cell.Top + kPadding / 2, cell.Right - 1 - kPadding,
               cell.Bottom - 1 - kPadding / 2};
    if (const IBabTreeRow *node = TreeNodeAt(at)) {
        rect.Left += (node->TreeLevel() + 1) * kTreeIndent;
    }
    const TAxisContentItem *item = at.Grid->Columns().FindLoaded(at.Column);
    const TBabColumn *column = item != nullptr ? ColumnOf(*item) : nullptr;
    if (column != nullptr && column->HasIcon() && m_host.GridImages() != nullptr
        && at.Row >= at.Grid->Rows().FixedCount()) {
        rect.Left += kImage + kPadding;
    }
    rect.Left = std::min(rect.Left, rect.Right);
    return rect;
}

int TBabGridLayoutCore::BestColumnWidth(const TGridCellAt &at)
{
    EnsureLayout();
    TAxisContentItem *column = at.Grid->Columns().FindLoaded(at.Column);
    if (column == nullptr) {
        return 0;
    }
    const TRect area = AreaOf(*at.Grid);
    const TSize size = m_host.GridSize();
    const TGridBlock block = at.Grid == m_root.get()
                                 ? m_shown
                                 : BlockOf(*at.Grid, area, {0, 0, size.Width, size.Height});
    TCanvas &canvas = m_host.MeasureCanvas();
    int width = 0;
    for (const TGridBand &row : block.Rows) {
        const TLayoutProp &layout = LayoutOf(*at.Grid, *column, *row.Item);
        canvas.SetFont(FontOf(layout));
        const std::string text = at.Grid->CellText(*column, *row.Item);
        const TRect cell{0, 0, kFar, row.Far - row.Near};
        const TRect content = ContentRect({at.Grid, at.Column, row.Index}, cell);
        constexpr int kSortMark = 14;
        for (const std::string_view line : WrappedText(canvas, text, kFar)) {
            width = std::max(width, canvas.TextExtent(line).Width + kFar - content.Width()
                                        + (row.Fixed ? kSortMark : 0));
        }
        width = std::max(width, row.Fixed ? 0 : layout.MinWidth);
    }
    return width;
}

int TBabGridLayoutCore::BestRowHeight(const TGridCellAt &at)
{
    TAxisContentItem *row = at.Grid->Rows().FindLoaded(at.Row);
    int height = at.Grid->Rows().DefaultSize();
    for (int p = at.Grid->Columns().FixedCount();
         row != nullptr && p < at.Grid->Columns().LoadedCount(); ++p) {
        TAxisContentItem *column = at.Grid->Columns().getLoadedAxisContentItem(p);
        height = std::max(height,
                          MeasuredHeight(*at.Grid, *column, *row, {0, 0, column->Size(), height}));
    }
    return height;
}

std::string TBabGridLayoutCore::CutText(const TGridCellAt &at)
{
    const TRect cell = CellRect(at);
    if (cell.IsEmpty()) {
        return {};
    }
    TAxisContentItem *column = at.Grid->Columns().FindLoaded(at.Column);
    TAxisContentItem *row = at.Grid->Rows().FindLoaded(at.Row);
    const TBabColumn *info = column != nullptr ? ColumnOf(*column) : nullptr;
    const bool header = at.Row < at.Grid->Rows().FixedCount();
    if (row == nullptr || column == nullptr
        || (!header && info != nullptr
            && (info->Kind() == TColumnKind::tckBool
                || HoldsGrids(info->Kind(), at.Grid->ShowsTree())))) {
        return {};
    }
    std::string text = at.Grid->CellText(*column, *row);
    const TLayoutProp &layout = LayoutOf(*at.Grid, *column, *row);
    TCanvas &canvas = m_host.MeasureCanvas();
    canvas.SetFont(FontOf(layout));
    const TRect content = ContentRect(at, cell);
    if (layout.WrapTextAndFit && !header) {
        const auto lines = std::ssize(WrappedText(canvas, text, content.Width()));
        const bool fits = lines * canvas.TextExtent("Xg").Height <= content.Height();
        return fits ? std::string() : text;
    }
    const bool fits = canvas.TextExtent(FirstLine(text)).Width <= content.Width()
                      && FirstLine(text).size() == text.size();
    return fits ? std::string() : text;
}

} // namespace korvane
