// Short texts drawn inside a time item.
#pragma once

#include "foundation/zuCanvas.h"
#include "foundation/zuExport.h"
#include "foundation/zuMethod.h"
#include "foundation/zuTypes.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

class TzuTimeItemTextCollection;

/// One text at its own offset in one of the chart's item fonts.
class TzuTimeItemText
{
public:
    /// See Text, Pos and Style.
    TzuTimeItemText(std::string_view text, TPoint pos, int style)
        : m_text(text)
        , m_pos(pos)
        , m_style(style)
    {
    }

    /// UTF-8. An empty text is never drawn.
    const std::string &Text() const { return m_text; }
    void SetText(std::string_view text) { m_text = text; }
    /// Offset of the text's top-left corner from the item's, in pixels.
    TPoint Pos() const { return m_pos; }
    void SetPos(TPoint pos) { m_pos = pos; }
    /// 1, 2 or 3 select the chart's item fonts; any other value the first.
    int Style() const { return m_style; }
    void SetStyle(int style) { m_style = style; }

private:
    std::string m_text;
    TPoint m_pos;
    int m_style;
};

/// Sets the canvas font for a style, before every text that is drawn.
using TOnStyleSet =
    TMethod<void(const TzuTimeItemTextCollection &collection, TCanvas &canvas, int style)>;

/// The texts of one item, in insertion order.
class KORVANE_CORE_API TzuTimeItemTextCollection
{
public:
    /// Number of texts, empty ones included.
    int GetCount() const { return static_cast<int>(m_texts.size()); }
    /// Throws std::out_of_range outside 0..GetCount()-1.
    TzuTimeItemText &GetTimeItemText(int index) { return m_texts.at(static_cast<size_t>(index)); }
    const TzuTimeItemText &GetTimeItemText(int index) const
    {
        return m_texts.at(static_cast<size_t>(index));
    }

    /// Appends a text. The reference holds until the next AddText or DropText.
    TzuTimeItemText &AddText(std::string_view text, int x, int y, int style);
    /// Throws std::out_of_range outside 0..GetCount()-1.
    void DropText(int index);

    /// Draws the texts, each clipped to the part of the rectangle right of and below its offset
    /// less the rectangle's last pixel column and row. A text whose offset lies outside is skipped.
    void DrawToCanvasInsideRect(const TRect &rect, TCanvas &canvas,
                                const TOnStyleSet &onStyleSet) const;

private:
    std::vector<TzuTimeItemText> m_texts;
};

} // namespace korvane
