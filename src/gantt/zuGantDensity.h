// Long layers of a row: what is on top at a point, and the drawing of many items on few pixels.
#pragma once

#include "foundation/zuExport.h"
#include "gantt/zuGantRow.h"
#include "gantt/zuGantTimeIndex.h"

#include <cstddef>
#include <vector>

namespace korvane {

class TGantCore;

/// Places of a layer's items in the order of drawing. Asking for neighbours one after the other
/// costs little.
class KORVANE_CORE_API TGantRanks
{
public:
    /// The layer is observed, and must stay as it is meanwhile.
    explicit TGantRanks(const TzuDataList &layer)
        : m_layer(layer)
    {
    }

    /// 0-based place of an item in the layer.
    int Of(const TzuDataEntity_Spanbar &item) const;

private:
    const TzuDataList &m_layer;
    mutable int m_last = -1;
};

/// Finds the topmost item at a point. Where many items lie on the same pixels it costs the groups
/// of them.
class KORVANE_CORE_API TGantTopmost final : public TGantGroupVisitor
{
public:
    /// `rowY` is the row's height in area pixels.
    TGantTopmost(const TGantRow &row, const TzuDataList &layer, TPixelSpan rowY, TPoint at);

    /// Null when there is none.
    TzuDataEntity_Spanbar *Item() const { return m_top; }

    bool TakeGroup(const TGantItemGroup &group) override;
    void TakeItem(TzuDataEntity_Spanbar &item) override;
    int RankOf(const TzuDataEntity_Spanbar &item) const override { return m_ranks.Of(item); }

private:
    void Offer(TzuDataEntity_Spanbar &item);

    const TGantRow &m_row;
    TGantRanks m_ranks;
    TPixelSpan m_rowY;
    TPoint m_at;
    TzuDataEntity_Spanbar *m_top = nullptr;
    int m_rank = -1;
};

/// Draws a layer. Items that are at their least width and overlap others of that kind are not drawn
/// one by one but as a strip: each pixel column that any of them covers is filled, in the colour of
/// the topmost one there. The strength of the colour says how much of the time is taken, from a
/// half of it for next to nothing to the full colour for all of it, and darker where several items
/// share the time; an item without a length counts as a quarter of a pixel. Parts of strips with
/// selected items carry the mark of a selection.
///
/// All others are drawn as ever, in the order of the layer; a strip lies where its topmost items
/// do, but never over a symbol. What the application draws and symbols of different looks are
/// never part of a group, symbols that lie exactly below an equal one are left out. So a frame
/// costs the pixels and the groups, which hold up to some hundred items each.
class KORVANE_CORE_API TGantDensity final : public TGantGroupVisitor
{
public:
    /// `rowY` is the row's height in area pixels. All are observed; nothing is drawn before Draw.
    TGantDensity(TGantCore &gant, const TGantRow &row, const TzuDataList &layer, TPixelSpan rowY);

    bool TakeGroup(const TGantItemGroup &group) override;
    void TakeItem(TzuDataEntity_Spanbar &item) override;
    int RankOf(const TzuDataEntity_Spanbar &item) const override { return m_ranks.Of(item); }

    /// Draws what was taken.
    void Draw();

private:
    struct TColumn
    {
        const TzuDataEntity_Spanbar *Top = nullptr; ///< null: nothing covers the column
        int Rank = -1;
        int Items = 0;
        float Load = 0; ///< time taken, in parts of the column's
        bool Selected = false;
    };
    /// Columns of items at one height.
    struct TStrip
    {
        int Top;
        int Bottom;
        std::vector<TColumn> Columns; ///< of the clip rectangle
        /// Rank of the topmost item that is drawn by itself; empty when there is none.
        std::vector<int> Covered;
    };
    /// What the strip of an item depends on.
    struct TPlace
    {
        int Top;
        int Bottom;
        int InsetTop;
        int InsetBottom;
        int SubCol;

        friend bool operator==(const TPlace &, const TPlace &) = default;
    };
    struct TSingle
    {
        TzuDataEntity_Spanbar *Item;
        TRect Rect;
        int Rank;
    };
    /// An item in a strip that may be alone there.
    struct TShort
    {
        TSingle Single;
        std::size_t Strip;
    };
    enum class TPass : unsigned char { Below, Above };

    TRect RectOf(const TzuDataEntity_Spanbar &item) const;
    std::size_t StripOf(const TzuDataEntity_Spanbar &item, const TRect &rect);
    void Cover(TStrip &strip, const TSingle &item) const;
    void AddLoad(TStrip &strip, TPixelSpan x, double load) const;
    TPixelSpan ColumnsOf(TPixelSpan x) const;
    double PixelsOf(TDateTime busy, int instants) const;
    void AddSingle(const TSingle &single);
    void PartLonely();
    void DropHiddenTwins();
    void NoteCovered(TStrip &strip) const;
    void DrawStrip(const TStrip &strip, TPass pass);
    void FillRuns(const std::vector<TColor> &colors, TPixelSpan y);
    void DrawMarks(const TStrip &strip);
    void DrawFocus();
    TColor ColorOf(const TColumn &column) const;

    TGantCore &m_gant;
    const TGantRow &m_row;
    const TzuDataList &m_layer;
    TGantRanks m_ranks;
    TPixelSpan m_rowY;
    TCanvas &m_canvas;
    TRect m_clip;
    double m_pixelsPerDay;
    std::vector<TStrip> m_strips;
    TPlace m_lastPlace{}; ///< for which StripOf was asked last
    std::size_t m_lastStrip = 0;
    std::vector<TShort> m_shorts;
    std::vector<TSingle> m_singles;
};

} // namespace korvane
