// The columns of a schedule: their order, sizes and captions.
#pragma once

#include "foundation/zuExport.h"
#include "schema/zuSchemaData.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// The list of a schedule's columns, which also knows how large each is and which are shown.
///
/// Columns have a size of their own in each view: a width in the normal one, a height in the
/// flipped one. From the first shown column on all are laid out one after the other; those before
/// it are scrolled away and have the shown size 0.
class KORVANE_CORE_API TDataListColumns : public TzuDataList
{
public:
    /// No column is made smaller by the user, in pixels.
    static constexpr int kLeastSize = 7;

    /// The schedule outlives the columns.
    explicit TDataListColumns(TSchemaCore &schema)
        : m_schema(schema)
    {
    }

    /// The schedule whose columns these are.
    TSchemaCore &Schema() const { return m_schema; }
    /// Throws std::bad_cast for an item of another class, std::out_of_range for no item.
    TzuDataEntity_SchemaColumn &GetCol(int index);
    const TzuDataEntity_SchemaColumn &GetCol(int index) const;
    /// Whether there is a column of that number.
    bool IsCol(int index) const { return index >= 0 && index < Count(); }
    /// Removes all columns.
    void ClearColumns() { Clear(); }

    /// Brackets nest; header and area are refreshed once, at the end.
    void BeginUpdate() { ++m_updates; }
    void EndUpdate();

    /// Of new columns and of the stripes beyond the last one, in pixels; 120 and 18 to begin with,
    /// then what the user gave the last column that he resized. Columns that exist keep theirs.
    int DefaultWidth() const { return m_defaultSize[0]; }
    void SetDefaultWidth(int pixels);
    int DefaultHeight() const { return m_defaultSize[1]; }
    void SetDefaultHeight(int pixels);
    int DefaultSize_FW(bool flip) const { return m_defaultSize[flip ? 1 : 0]; }

    /// The caption that the header shows: the column's text, as OnHeaderFromColumn changes it;
    /// "???" for no column.
    std::string HeaderFromColumn(int index) const;
    /// Whether the text has room in the column's header.
    bool WillFit(std::string_view text, int index) const;

    // Geometry along the columns, in pixels of the area.

    /// Where the column ends; 0 for one that is scrolled away. In the flipped view each column is
    /// followed by a grid line of one pixel.
    int GetFarSideOffset_FW(bool flip, int index) const;
    int GetFarSideOffset(int index) const;
    /// Where the column would lie if those before the first shown one stood before it, at negative
    /// pixels.
    TPixelSpan VirtualSpan(bool flip, int index) const;
    /// The column at a pixel: -1 before the first shown one, the count behind the last. A grid line
    /// belongs to the column before it.
    int ColumnAt(bool flip, int pixel) const;
    /// The same among all columns, as VirtualSpan places them; the nearest one beyond either end,
    /// -1 without columns.
    int VirtualColumnAt(bool flip, int pixel) const;
    /// Sum of the sizes of all columns, also of those scrolled away.
    int GetColumnSpace(bool flip) const;

    /// The first shown column.
    int TopLeftCol() const { return m_first; }
    /// Scrolls the columns before `first` away and gives the others their saved sizes.
    void SetTopLeftCol(int first);
    /// The first column from which on all have room in so many pixels; the last column at most.
    int LastTopLeftCol(bool flip, int pixels) const;
    /// While it lives, columns before `first` are scrolled away, and the others have their saved
    /// sizes, without anybody being told; then all is as it was. For prints.
    class TPrintScroll
    {
    public:
        /// Nothing is drawn or announced by the scroll itself.
        TPrintScroll(TDataListColumns &columns, int first);
        TPrintScroll(const TPrintScroll &) = delete;
        TPrintScroll &operator=(const TPrintScroll &) = delete;
        ~TPrintScroll();

    private:
        TDataListColumns &m_columns;
        std::vector<std::array<int, 2>> m_shownSizes;
        int m_first;
    };
    /// Scrolls as little as shows the column.
    void MakeColumnVisible(int index);

    /// Gives a column its size for good, shown or not.
    void SetColumnSize(bool flip, int index, int size);
    /// The column whose size the user has changed last.
    int ResizeCol() const { return m_resizeCol; }
    /// Within a resizing by the user, and within a change of TopLeftCol.
    bool HeaderResizing() const { return m_headerResizing; }
    bool SettingTopLeft() const { return m_settingTopLeft; }

    /// The user has resized a column in the header, of the normal or the flipped view. It, or with
    /// ResizeAllCol every column, gets the size, at least kLeastSize; OnUserDecideColSize may
    /// change each.
    void HeaderControlSectionResize(int section, int width);
    void FlippedHeaderResize(int row, int height);
    /// The same for the column resized last, in the current view.
    void HeaderCellReSize(int size);
    /// The flipped header was scrolled to another top row.
    void ChangeTopLeft(int topRow);

    /// What changed is shown soon; within brackets at their end.
    void CaptionsChanged();
    void SizesChanged();

    /// Handlers of the list's controller; they fire the events of the schedule.
    void _OnColumnsInsertItem(TzuDataEntity *item);
    void _OnColumnsDeleteItem(TzuDataEntity *item);
    void _OnColumnsContentChanged(TzuDataList *list);
    void _OnColumnsInfoPush(TzuDataEntity *item);
    void _OnColumnsSelectionChanged(TzuDataList *list, TzuDataEntity *item);

private:
    struct TPlaces
    {
        std::vector<int> Far; ///< of every column; 0 for those scrolled away
        std::vector<int> VirtualFar;
    };

    TzuDataEntity_SchemaColumn &At(int index) const
    {
        return static_cast<TzuDataEntity_SchemaColumn &>(*GetLoaded(index));
    }
    const TPlaces &Places(bool flip) const;
    void Scroll(int first);
    void Resized(bool flip, int index, int size);

    TSchemaCore &m_schema;
    mutable std::array<TPlaces, 2> m_places;
    mutable bool m_placesStale = true;
    std::array<int, 2> m_defaultSize{120, 18};
    int m_first = 0;
    int m_resizeCol = 0;
    int m_updates = 0;
    bool m_changedInUpdate = false;
    bool m_headerResizing = false;
    bool m_settingTopLeft = false;
};

} // namespace korvane
