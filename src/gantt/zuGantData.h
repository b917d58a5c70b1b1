// Entities of the Gantt chart: time items, links between them, and the lists of a row's layers.
#pragma once

#include "data/zuDataEntityPack.h"
#include "foundation/zuExport.h"
#include "gantt/zuGantTypes.h"
#include "gantt/zuSpanbarItemTexts.h"

#include <memory>
#include <vector>

namespace korvane {

class TGantTimeIndex;
class TzuDataList_GantRow;

/// A time item: one bar, line, diamond or image on one row of the chart.
///
/// Setters store and announce nothing; DoInfoPush (inherited) announces that the values have
/// changed.
class KORVANE_CORE_API TzuDataEntity_Spanbar : public TzuDataEntity
{
public:
    TzuDataEntity_Spanbar() = default;
    /// Links that still refer to the item lose that end.
    ~TzuDataEntity_Spanbar() override;

    /// When the item starts; 0 until it is set.
    TDateTime GetStartDateTime() const { return m_start; }
    void SetStartDateTime(TDateTime start) { SetTimes(start, m_stop); }
    /// When the item stops; 0 until it is set. May lie before the start; the item is then drawn at
    /// its least width.
    TDateTime GetStopDateTime() const { return m_stop; }
    void SetStopDateTime(TDateTime stop) { SetTimes(m_start, stop); }

    void SetVisible(bool visible) override;

    /// sbsSquare until it is set.
    TSpanbarStyle GetStyle() const { return m_style; }
    void SetStyle(TSpanbarStyle style) { Assign(m_style, style); }
    /// Fill or line colour; black until it is set, white when AddSpanbar has made the item.
    TColor GetColor() const { return m_color; }
    void SetColor(TColor color) { m_color = color; }
    /// Pixels left free between the row's (or sub-row's) top edge and the item.
    int InsetTop() const { return m_insetTop; }
    void SetInsetTop(int pixels) { Assign(m_insetTop, pixels); }
    /// Pixels left free between the item and the row's (or sub-row's) bottom edge.
    int InsetBottom() const { return m_insetBottom; }
    void SetInsetBottom(int pixels) { Assign(m_insetBottom, pixels); }
    /// Width in pixels of a symbol centred on the start; below 1 the item spans start to stop.
    int FixedSize() const { return m_fixedSize; }
    void SetFixedSize(int pixels);
    /// Whether the item spans its times, so that its ends can be dragged.
    bool IsResizable() const { return m_fixedSize < 1; }
    /// Index into the chart's ImageList, for sbsImage.
    int ImageIndex() const { return m_imageIndex; }
    void SetImageIndex(int index) { Assign(m_imageIndex, index); }
    /// Sub-row assigned by the overlap separation, 1 = topmost; 0 = none, the item spans the row.
    int SubCol() const { return m_subCol; }
    void SetSubCol(int subCol) { Assign(m_subCol, subCol); }

    /// The texts drawn inside the item. The collection is allocated when first asked for.
    TzuTimeItemTextCollection &Texts();
    /// The same without allocating it; null when there is none.
    const TzuTimeItemTextCollection *TextsIfAny() const { return m_texts.get(); }
    /// Whether it has any text; allocates nothing.
    bool HasTexts() const { return m_texts != nullptr && m_texts->GetCount() > 0; }

    /// Whether the item is drawn, and how, has changed by other means than a setter.
    void Touch()
    {
        if (m_inTimeIndex) {
            TouchInIndex();
        }
    }

    /// The row that the item lies on; null while it is in no row's list.
    TGantRow *GetRow() const;
    /// Links that start or end at the item, in no particular order.
    const std::vector<TzuDataEntity_Link *> &Links() const;

private:
    friend class TGantDataKeeper;
    friend struct TSpanbarSetPlace;
    friend class TzuDataEntity_Link;
    friend class TzuDataList_GantRow;

    void SetTimes(TDateTime start, TDateTime stop)
    {
        if (m_inTimeIndex) {
            SetTimesInIndex(start, stop);
        } else {
            m_start = start;
            m_stop = stop;
        }
    }
    void SetTimesInIndex(TDateTime start, TDateTime stop);
    template <typename T>
    void Assign(T &field, T value)
    {
        if (field != value) {
            field = value;
            Touch();
        }
    }
    void TouchInIndex();
    TzuDataList_GantRow &IndexedLayer() const;

    TDateTime m_start = 0;
    TDateTime m_stop = 0;
    std::unique_ptr<TzuTimeItemTextCollection> m_texts;
    std::unique_ptr<std::vector<TzuDataEntity_Link *>> m_links;
    TColor m_color = clBlack;
    int m_insetTop = 0;
    int m_insetBottom = 0;
    int m_fixedSize = 0;
    int m_imageIndex = 0;
    int m_subCol = 0;
    std::uint32_t m_setSlot = 0; ///< place in the set that holds the item
    TSpanbarStyle m_style = TSpanbarStyle::sbsSquare;
    bool m_kept = false;        ///< keepers are to be told when the item is freed
    bool m_inTimeIndex = false; ///< of its layer
};

/// Where a set of time items finds its number in the item.
struct TSpanbarSetPlace
{
    /// The item's number in the set that holds it; for the set alone to write.
    static std::uint32_t &Of(TzuDataEntity_Spanbar &item) { return item.m_setSlot; }
    static std::uint32_t Of(const TzuDataEntity_Spanbar &item) { return item.m_setSlot; }
};

/// A dependency line between two time items. Never drawn while either end is missing.
class KORVANE_CORE_API TzuDataEntity_Link : public TzuDataEntity
{
public:
    TzuDataEntity_Link() = default;
    ~TzuDataEntity_Link() override;

    /// The item the link starts at; observed, null for none.
    TzuDataEntity_Spanbar *First() const { return m_first.Item; }
    void SetFirst(TzuDataEntity_Spanbar *item);
    /// The item the link ends at; observed, null for none.
    TzuDataEntity_Spanbar *Second() const { return m_second.Item; }
    void SetSecond(TzuDataEntity_Spanbar *item);

    /// tlsDefault and blue until they are set; AddLink gives a link the chart's defaults.
    TLinkStyle GetStyle() const { return m_style; }
    void SetStyle(TLinkStyle style) { m_style = style; }
    TColor GetColor() const { return m_color; }
    void SetColor(TColor color) { m_color = color; }

    /// Marks the link as handled in a pass over several items' links; false when it already was.
    bool EnterPass(unsigned pass);

private:
    friend class TGantDataKeeper;
    friend class TzuDataEntity_Spanbar;

    /// An end knows its place in the item's links, so that letting go costs the same however many
    /// links the item has.
    struct TEnd
    {
        TzuDataEntity_Spanbar *Item = nullptr;
        std::uint32_t Slot = 0;
    };

    void Attach(TEnd &end, TzuDataEntity_Spanbar *item);
    static void Detach(TEnd &end);
    TEnd &EndAt(const TzuDataEntity_Spanbar *item, std::uint32_t slot);

    TEnd m_first;
    TEnd m_second;
    TColor m_color = clBlue;
    unsigned m_pass = 0;
    TLinkStyle m_style = TLinkStyle::tlsDefault;
    bool m_kept = false;
};

/// The items of one layer of a row.
class KORVANE_CORE_API TzuDataList_GantRow : public TzuDataList
{
public:
    TzuDataList_GantRow();
    ~TzuDataList_GantRow() override;

    /// The row whose layer it is, which tells its layers so; null for a list in no row.
    TGantRow *GetRow() const { return m_row; }
    void SetRow(TGantRow *row) { m_row = row; }

    /// Whether the layer is long and all its items are loaded.
    bool PicksByTime() const { return IsFullyLoaded() && (m_timeIndex != nullptr || IsLong()); }
    /// The items in order of time; of a layer that picks by time.
    TGantTimeIndex &TimeIndex();
    /// Width in pixels of the largest symbol; of a layer that picks by time.
    int GreatestFixedSize();

    void CleanForFree() override;

protected:
    void Joined(TzuDataEntity &entity) override;
    void Left(TzuDataEntity &entity) override;
    void Reordered() override;

private:
    friend class TzuDataEntity_Spanbar;

    bool IsLong() const;
    std::vector<TzuDataEntity_Spanbar *> AllItems();

    TGantRow *m_row = nullptr;
    std::unique_ptr<TGantTimeIndex> m_timeIndex; ///< made when a long layer is asked
    int m_greatestFixedSize = 0;                 ///< of all that were ever in the index
};

/// The object as a time item. Throws std::bad_cast when it is of another class.
KORVANE_CORE_API TzuDataEntity_Spanbar &TimeDataEntity(TObject &object);

} // namespace korvane
