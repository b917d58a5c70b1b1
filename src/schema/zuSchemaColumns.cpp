#include "schema/zuSchemaColumns.h"

#include "schema/zuSchema.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace korvane {

namespace {

/// Left free on both sides of a caption, together.
constexpr int kCaptionMargin = 4;

std::size_t Of(bool flip)
{
    return flip ? 1 : 0;
}

} // namespace

TzuDataEntity_SchemaColumn &TDataListColumns::GetCol(int index)
{
    TzuDataEntity *entity = GetItems(index);
    return entity != nullptr ? dynamic_cast<TzuDataEntity_SchemaColumn &>(*entity)
                             : throw std::out_of_range("No such column");
}

const TzuDataEntity_SchemaColumn &TDataListColumns::GetCol(int index) const
{
    return dynamic_cast<const TzuDataEntity_SchemaColumn &>(*GetLoaded(index));
}

void TDataListColumns::EndUpdate()
{
    if (m_updates > 0 && --m_updates == 0 && std::exchange(m_changedInUpdate, false)) {
        m_schema.ColumnsChanged();
    }
}

void TDataListColumns::SetDefaultWidth(int pixels)
{
    m_defaultSize[0] = pixels;
}

void TDataListColumns::SetDefaultHeight(int pixels)
{
    m_defaultSize[1] = pixels;
}

std::string TDataListColumns::HeaderFromColumn(int index) const
{
    if (!IsCol(index)) {
        return "???";
    }
    std::string text = GetCol(index).GetText();
    m_schema.OnHeaderFromColumn(index, text);
    return text;
}

bool TDataListColumns::WillFit(std::string_view text, int index) const
{
    const bool flip = m_schema.FlipView();
    const int room =
        flip ? m_schema.PartSizes().FlippedHeaderWidth : GetCol(index).GetWidth_FW(false);
    return m_schema.Host().HeaderTextWidth(text, flip) < room - kCaptionMargin;
}

// --- geometry ------------------------------------------------------------------------------------

const TDataListColumns::TPlaces &TDataListColumns::Places(bool flip) const
{
    const auto count = static_cast<std::size_t>(Count());
    if (m_placesStale || m_places[0].Far.size() != count) {
        for (const bool view : {false, true}) {
            TPlaces &places = m_places[Of(view)];
            const int line = view ? 1 : 0;
            const auto size = [&](int index, int pixels) {
                return At(index).GetVisible() ? pixels + line : 0;
            };
            places.Far.assign(count, 0);
            places.VirtualFar.assign(count, 0);
            const int first = std::min(m_first, Count());
            for (int i = first, far = 0; i < Count(); ++i) {
                far += size(i, At(i).GetWidth_FW(view));
                places.Far[static_cast<std::size_t>(i)] = far;
                places.VirtualFar[static_cast<std::size_t>(i)] = far;
            }
            for (int i = first - 1, far = 0; i >= 0; --i) {
                places.VirtualFar[static_cast<std::size_t>(i)] = far;
                far -= size(i, At(i).Saved_FW(view));
            }
        }
        m_placesStale = false;
    }
    return m_places[Of(flip)];
}

int TDataListColumns::GetFarSideOffset_FW(bool flip, int index) const
{
    return Count() == 0 || index < m_first
               ? 0
               : Places(flip).Far[static_cast<std::size_t>(std::min(index, Count() - 1))];
}

int TDataListColumns::GetFarSideOffset(int index) const
{
    return GetFarSideOffset_FW(m_schema.FlipView(), index);
}

TPixelSpan TDataListColumns::VirtualSpan(bool flip, int index) const
{
    const int far = Places(flip).VirtualFar[static_cast<std::size_t>(index)];
    const TzuDataEntity_SchemaColumn &column = At(index);
    const int size = index < m_first ? column.Saved_FW(flip) : column.GetWidth_FW(flip);
    return {far - (column.GetVisible() ? size : 0), far};
}

int TDataListColumns::ColumnAt(bool flip, int pixel) const
{
    const std::vector<int> &far = Places(flip).Far;
    const auto begin = far.begin() + std::min(m_first, Count());
    const auto found =
        std::partition_point(begin, far.end(), [pixel](int pixels) { return pixels <= pixel; });
    if (found == far.end()) {
        return Count();
    }
    const int index = static_cast<int>(found - far.begin());
    if (pixel >= *found - At(index).GetWidth_FW(flip)) {
        return index;
    }
    return found == begin ? -1 : index - 1;
}

int TDataListColumns::VirtualColumnAt(bool flip, int pixel) const
{
    const std::vector<int> &far = Places(flip).VirtualFar;
    const auto found = std::partition_point(far.begin(), far.end(),
                                            [pixel](int pixels) { return pixels <= pixel; });
    return std::min(static_cast<int>(found - far.begin()), Count() - 1);
}

int TDataListColumns::GetColumnSpace(bool flip) const
{
    int space = 0;
    for (int i = 0; i < Count(); ++i) {
        space += At(i).Saved_FW(flip);
    }
    return space;
}

// --- scrolling -----------------------------------------------------------------------------------

void TDataListColumns::SetTopLeftCol(int first)
{
    first = std::clamp(first, 0, std::max(Count() - 1, 0));
    if (first == m_first) {
        const bool asSaved = [&] {
            for (int i = 0; i < Count(); ++i) {
                for (const bool flip : {false, true}) {
                    if (At(i).GetWidth_FW(flip) != (i < first ? 0 : At(i).Saved_FW(flip))) {
                        return false;
                    }
                }
            }
            return true;
        }();
        if (asSaved) {
            m_resizeCol = first;
            return;
        }
    }
    Scroll(first);
}

void TDataListColumns::Scroll(int first)
{
    m_settingTopLeft = true;
    m_first = first;
    m_resizeCol = first;
    for (int i = 0; i < Count(); ++i) {
        for (const bool flip : {false, true}) {
            At(i).m_shownSize[Of(flip)] = i < first ? 0 : At(i).Saved_FW(flip);
        }
    }
    m_settingTopLeft = false;
    SizesChanged();
}

TDataListColumns::TPrintScroll::TPrintScroll(TDataListColumns &columns, int first)
    : m_columns(columns)
    , m_first(std::exchange(columns.m_first, first))
{
    for (int i = 0; i < columns.Count(); ++i) {
        TzuDataEntity_SchemaColumn &column = columns.At(i);
        m_shownSizes.push_back(column.m_shownSize);
        column.m_shownSize = i < first ? std::array<int, 2>{} : column.m_savedSize;
    }
    columns.m_placesStale = true;
}

TDataListColumns::TPrintScroll::~TPrintScroll()
{
    m_columns.m_first = m_first;
    // A handler may have added or removed columns meanwhile.
    const bool same = m_columns.Count() == static_cast<int>(m_shownSizes.size());
    for (int i = 0; i < m_columns.Count(); ++i) {
        TzuDataEntity_SchemaColumn &column = m_columns.At(i);
        column.m_shownSize = same          ? m_shownSizes[static_cast<std::size_t>(i)]
                             : i < m_first ? std::array<int, 2>{}
                                           : column.m_savedSize;
    }
    m_columns.m_placesStale = true;
}

int TDataListColumns::LastTopLeftCol(bool flip, int pixels) const
{
    const int line = flip ? 1 : 0;
    int first = Count() - 1;
    for (int space = 0; first >= 0; --first) {
        space += At(first).Saved_FW(flip) + line;
        if (space > pixels) {
            break;
        }
    }
    return std::clamp(first + 1, 0, std::max(Count() - 1, 0));
}

void TDataListColumns::MakeColumnVisible(int index)
{
    if (!IsCol(index)) {
        return;
    }
    const bool flip = m_schema.FlipView();
    if (index < m_first) {
        SetTopLeftCol(index);
        return;
    }
    const int room = m_schema.ColumnRoom();
    int first = m_first;
    int far = VirtualSpan(flip, index).To;
    while (far > room && first < index) {
        far -= At(first).GetWidth_FW(flip) + (flip ? 1 : 0);
        ++first;
    }
    SetTopLeftCol(first);
}

void TDataListColumns::ChangeTopLeft(int topRow)
{
    if (!m_settingTopLeft) {
        SetTopLeftCol(topRow);
    }
}

// --- sizes ---------------------------------------------------------------------------------------

void TDataListColumns::SetColumnSize(bool flip, int index, int size)
{
    TzuDataEntity_SchemaColumn &column = GetCol(index);
    column.m_savedSize[Of(flip)] = size;
    column.m_shownSize[Of(flip)] = index < m_first ? 0 : size;
    SizesChanged();
}

void TDataListColumns::HeaderControlSectionResize(int section, int width)
{
    Resized(false, section, width);
}

void TDataListColumns::FlippedHeaderResize(int row, int height)
{
    Resized(true, row, height);
}

void TDataListColumns::Resized(bool flip, int index, int size)
{
    if (flip != m_schema.FlipView()) {
        return;
    }
    m_headerResizing = true;
    m_resizeCol = index;
    HeaderCellReSize(size);
    m_headerResizing = false;
    m_schema.LayoutLater();
}

void TDataListColumns::HeaderCellReSize(int size)
{
    if (m_settingTopLeft || Count() == 0) {
        return;
    }
    BeginUpdate();
    const bool flip = m_schema.FlipView();
    m_resizeCol = std::min(m_resizeCol, Count() - 1);
    const bool all = m_schema.ResizeAllCol();
    for (int i = all ? 0 : m_resizeCol; IsCol(m_resizeCol) && i < Count(); ++i) {
        int newSize = size;
        m_schema.OnUserDecideColSize(m_schema.Component(), &GetCol(m_resizeCol), &GetCol(i),
                                     GetCol(i).Saved_FW(flip), newSize);
        if (!IsCol(i) || !IsCol(m_resizeCol)) { // a handler has removed it
            break;
        }
        newSize = std::max(newSize, kLeastSize);
        SetColumnSize(flip, i, newSize);
        m_defaultSize[Of(flip)] = newSize;
        if (!all) {
            break;
        }
    }
    EndUpdate();
}

// --- what happens to the columns -----------------------------------------------------------------

void TDataListColumns::CaptionsChanged()
{
    SizesChanged();
}

void TDataListColumns::SizesChanged()
{
    m_placesStale = true;
    if (m_updates > 0) {
        m_changedInUpdate = true;
    } else {
        m_schema.ColumnsChanged();
    }
}

void TDataListColumns::_OnColumnsInsertItem(TzuDataEntity *item)
{
    auto &column = dynamic_cast<TzuDataEntity_SchemaColumn &>(*item);
    const TzuLifeWatch lives(column);
    if (m_schema.OnInitColumnDataObject) {
        std::unique_ptr<TObject> object(
            m_schema.OnInitColumnDataObject(m_schema.Component(), &column));
        if (!lives) {
            return;
        }
        column.SetDataObject(std::move(object));
    }
    column.m_savedSize = m_defaultSize;
    if (IndexOf(&column) < m_first) {
        ++m_first; // the same columns stay scrolled away, and this one with them
    } else {
        column.m_shownSize = m_defaultSize;
    }
    SizesChanged();
    m_schema.UpdateSubColumns();
    m_schema.OnInsertItem_Column(&m_schema, item);
}

void TDataListColumns::_OnColumnsDeleteItem(TzuDataEntity *item)
{
    m_placesStale = true;
    if (m_schema.HasData()) {
        const bool noneShown = m_first >= Count();
        m_first = std::clamp(m_first, 0, Count());
        while (m_first > 0 && At(m_first - 1).m_shownSize != std::array<int, 2>{}) {
            --m_first; // one of those before it is gone
        }
        if (noneShown && m_first >= Count()) {
            Scroll(std::max(Count() - 1, 0));
        }
        SizesChanged();
        m_schema.UpdateSubColumns();
    }
    m_schema.OnDeleteItem_Column(&m_schema, item);
}

void TDataListColumns::_OnColumnsContentChanged(TzuDataList *list)
{
    if (!m_schema.HasData()) {
        return;
    }
    m_placesStale = true;
    if (Count() > 0) {
        TzuDataEntity_SchemaColumn &last = At(Count() - 1);
        last.m_savedSize = m_defaultSize;
    }
    SizesChanged();
    m_schema.OnContentChanged_Column(&m_schema, list);
}

void TDataListColumns::_OnColumnsInfoPush(TzuDataEntity *item)
{
    SizesChanged();
    m_schema.OnValueChanged_Column(&m_schema, item);
}

void TDataListColumns::_OnColumnsSelectionChanged(TzuDataList *list, TzuDataEntity *item)
{
    m_schema.ColumnsChanged();
    m_schema.OnSelectionChanged_Column(&m_schema, list, item);
}

} // namespace korvane
