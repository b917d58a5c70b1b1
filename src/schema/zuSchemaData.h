// Entities of the schedule view: times, their texts, and columns.
#pragma once

#include "data/zuDataEntityPack.h"
#include "foundation/zuExport.h"
#include "schema/zuSchemaTypes.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvane {

class TDataListColumns;
class TSchemaCore;
class TSchemaTimeIndex;

/// One line of text inside a time.
class TzuSchemaText
{
public:
    TzuSchemaText() = default;
    /// See Text, Pos and Style.
    TzuSchemaText(std::string_view text, TPoint pos, int style)
        : m_text(text)
        , m_pos(pos)
        , m_style(style)
    {
    }

    /// 1, 2 or 3: the component's TextFont1 to 3; any other: its own font.
    int Style() const { return m_style; }
    void SetStyle(int style) { m_style = style; }
    /// UTF-8; an empty text is not drawn.
    const std::string &Text() const { return m_text; }
    void SetText(std::string_view text) { m_text = text; }
    /// Of the text's top left corner, in pixels from that of the time.
    TPoint Pos() const { return m_pos; }
    void SetPos(TPoint pos) { m_pos = pos; }

private:
    std::string m_text;
    TPoint m_pos;
    int m_style = 0;
};

/// A time: one block in one column of the schedule.
///
/// Start, stop and column announce their change; the other setters only store, so that DoInfoPush
/// (inherited) shows what they changed.
class KORVANE_CORE_API TzuDataEntity_SchemaTime : public TzuDataEntity
{
public:
    /// Lines of text in the order in which they were added.
    using TTexts = std::vector<TzuSchemaText>;

    TzuDataEntity_SchemaTime() = default;
    ~TzuDataEntity_SchemaTime() override;
    void AfterCreate(TzuDataList *list) override;

    /// When it starts and stops, in absolute times, whatever the column's base date; 0 until set.
    /// The stop may lie before the start; the time is then drawn at its least length. A change
    /// calls DoInfoPush.
    TDateTime GetStartDateTime() const { return m_start; }
    void SetStartDateTime(TDateTime start);
    TDateTime GetStopDateTime() const { return m_stop; }
    void SetStopDateTime(TDateTime stop);
    /// Number of the column; any number that there is no column for puts the time in none. Another
    /// column takes the time out of its sub-column. A change calls DoInfoPush; 0 until set.
    int Col() const { return m_col; }
    void SetCol(int col);

    /// The sub-column, 0-based, that separates the time from those that overlap it. Without
    /// InSubCol the time is drawn across the whole column. Both hold for a time that is visible.
    int SubCol() const;
    /// For the separation alone; whether that is a change.
    bool SetSubCol(int subCol) { return std::exchange(m_subCol, subCol) != subCol; }
    /// See SubCol; false while the time is drawn across the whole column.
    bool InSubCol() const;
    /// As SetSubCol.
    bool SetInSubCol(bool on) { return std::exchange(m_inSubCol, on) != on; }

    /// Of the block and of its frame; white and black until set.
    TColor Color() const { return m_color; }
    void SetColor(TColor color) { m_color = color; }
    TColor FrameColor() const { return m_frameColor; }
    void SetFrameColor(TColor color) { m_frameColor = color; }
    /// Pixels left free across the column, at its near and at its far side; 0 until set.
    int NearMargin() const { return m_nearMargin; }
    void SetNearMargin(int pixels) { m_nearMargin = pixels; }
    int FarMargin() const { return m_farMargin; }
    void SetFarMargin(int pixels) { m_farMargin = pixels; }

    /// None until one is added.
    const TTexts &Texts() const;
    /// Appends a line; x and y are those of TzuSchemaText::Pos.
    void AddText(std::string_view text, int x, int y, int style);
    /// Replaces a line; an index that does not exist is ignored.
    void AlterText(int index, std::string_view text, int x, int y, int style);
    /// Removes all lines.
    void ClearTexts() { m_texts.reset(); }

private:
    friend class TSchemaTimeIndex;
    friend class TzuDataList_Schema;
    friend struct TSchemaSelectionPlace;
    friend struct TSchemaPendingPlace;

    /// How the index of the schedule knows the time.
    enum class TIndexed : std::uint8_t { No, Pending, Yes };

    TSchemaCore *KnownTo() const;
    void BeforeIndexedChange();

    TDateTime m_start = 0;
    TDateTime m_stop = 0;
    std::unique_ptr<TTexts> m_texts;
    int m_col = 0;
    int m_subCol = 0;
    int m_nearMargin = 0;
    int m_farMargin = 0;
    TColor m_color = clWhite;
    TColor m_frameColor = clBlack;
    // Places in the sets that hold the time.
    std::uint32_t m_selectionSlot = 0;
    std::uint32_t m_pendingSlot = 0;
    TIndexed m_indexed = TIndexed::No;
    bool m_inSubCol = false;
};

/// Where sets of times keep a time's number; for the sets alone to write.
struct TSchemaSelectionPlace
{
    template <typename Time>
    /// The number that the selection keeps.
    static auto &Of(Time &time)
    {
        return time.m_selectionSlot;
    }
};
/// As TSchemaSelectionPlace, for times that wait to be put in order.
struct TSchemaPendingPlace
{
    template <typename Time>
    /// The number that the index keeps.
    static auto &Of(Time &time)
    {
        return time.m_pendingSlot;
    }
};

/// A column of the schedule. Its number is its index in the list.
class KORVANE_CORE_API TzuDataEntity_SchemaColumn : public TzuDataEntity
{
public:
    TzuDataEntity_SchemaColumn() = default;
    ~TzuDataEntity_SchemaColumn() override;

    /// The list that holds the column; null once the column was cleaned. Throws std::bad_cast when
    /// the list is of another class.
    TDataListColumns *Columns() const;

    /// The header's caption, UTF-8; see TDataListColumns::HeaderFromColumn.
    const std::string &GetText() const { return m_text; }
    void SetText(std::string_view text);
    /// The shown size in the current view, in pixels: 0 while the column is scrolled away.
    int GetWidth() const;
    /// Sets it until the columns are scrolled; TDataListColumns::SetColumnSize sets it for good.
    void SetWidth(int value);
    /// The same in the flipped view (the height of the column's row) or in the normal one.
    int GetWidth_FW(bool flip) const;
    void SetWidth_FW(bool flip, int value);

    /// The size that a column gets when it is scrolled into view, in the normal and in the flipped
    /// view.
    int SavedWidth() const { return m_savedSize[0]; }
    void SetSavedWidth(int pixels) { SetSaved(false, pixels); }
    int SavedHeight() const { return m_savedSize[1]; }
    void SetSavedHeight(int pixels) { SetSaved(true, pixels); }
    int Saved_FW(bool flip) const { return m_savedSize[flip ? 1 : 0]; }

    /// Into how many sub-columns times that overlap split the column; at least 1.
    int SubColCount() const;
    /// When they were worked out last.
    int KnownSubColCount() const { return m_subColCount; }
    /// Whether that is a change.
    bool SetSubColCount(int count) { return std::exchange(m_subColCount, count) != count; }

    /// What OnInitColumnDataObject made for the column, which owns it; null without a handler.
    TObject *DataObject() const { return m_dataObject.get(); }
    void SetDataObject(std::unique_ptr<TObject> object) { m_dataObject = std::move(object); }

    /// The date that the column stands for, or 0: a time is shown at its absolute times less this.
    TDateTime BaseDate = 0;

private:
    friend class TDataListColumns;

    void SetSaved(bool flip, int pixels);
    TDataListColumns *Holder() const;

    std::unique_ptr<TObject> m_dataObject;
    std::string m_text;
    int m_subColCount = 1;
    std::array<int, 2> m_savedSize{}; ///< in the normal, in the flipped view
    std::array<int, 2> m_shownSize{};
};

/// The times of one data list of a schedule.
class KORVANE_CORE_API TzuDataList_Schema : public TzuDataList
{
public:
    ~TzuDataList_Schema() override;

    /// The schedule that knows the list's times; null for a list of its own.
    TSchemaCore *Schema() const { return m_schema; }
    /// Once, before the list holds times.
    void SetSchema(TSchemaCore *schema) { m_schema = schema; }

protected:
    void Joined(TzuDataEntity &entity) override;
    void Left(TzuDataEntity &entity) override;

private:
    TSchemaCore *m_schema = nullptr;
};

/// The entity as a time. Throws std::bad_cast when it is of another class.
KORVANE_CORE_API TzuDataEntity_SchemaTime &DataEntity_Schema(TObject &object);

} // namespace korvane
