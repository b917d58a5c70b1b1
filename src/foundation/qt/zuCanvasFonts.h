// Fonts and texts made ready for drawing, kept from one paint to the next.
#pragma once

#include "foundation/zuCanvas.h"
#include "foundation/zuExport.h"

#include <QFont>
#include <QStaticText>
#include <QString>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class QPainter;

namespace korvane {

/// A font as it is drawn, with its metrics and the texts that were drawn in it lately.
class KORVANE_WIDGETS_API TCanvasFont
{
public:
    /// Loads nothing before it is used.
    TCanvasFont(const TFont &font, int dotsPerInch);

    /// What it was made of, and what that became.
    const TFont &Key() const { return m_key; }
    const QFont &Font() const { return m_font; }

    /// Extent in logical pixels.
    TSize Extent(std::string_view text);
    int Height() const { return m_height; }
    /// How the painter's device takes text.
    enum class TMedium {
        Raster, ///< in pixels
        Vector, ///< as text, such as a print
        Shapes  ///< a vector medium that is not to know that it is text
    };
    /// Draws with the painter's pen and font, which must be this font. A text that is drawn again
    /// and again is laid out once, at least for raster media.
    void Draw(QPainter &painter, TPoint topLeft, std::string_view text, TMedium medium);

private:
    struct TKnownText
    {
        QString Text;
        int Width = -1; ///< measured when it is first asked for, which costs as much as drawing
        bool Drawn = false;
        std::unique_ptr<QStaticText> Layout; ///< from the second time on
        double LayoutOffset = 0;             ///< from our top edge to the layout's
    };
    struct TTextHash
    {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const
        {
            return std::hash<std::string_view>()(text);
        }
    };
    using TTextMap = std::unordered_map<std::string, TKnownText, TTextHash, std::equal_to<>>;

    TKnownText &Find(std::string_view text);
    void LayOut(TKnownText &text) const;

    TFont m_key;
    QFont m_font;
    int m_ascent;
    int m_height;
    TTextMap m_recent; ///< texts asked for since m_older was filled
    TTextMap m_older;
};

/// The fonts that a control draws with.
///
/// Sizes in points become whole pixels at a fixed resolution, so that text takes up the same share
/// of a drawing on every device. What is kept is bounded.
class KORVANE_WIDGETS_API TCanvasFonts
{
public:
    /// Of the device that font sizes count for.
    explicit TCanvasFonts(int dotsPerInch = 96)
        : m_dotsPerInch(dotsPerInch)
    {
    }

    /// A new resolution drops everything that is kept.
    void SetDotsPerInch(int dotsPerInch);

    /// The font ready for drawing, made when it is not kept. Holds as long as somebody keeps it.
    std::shared_ptr<TCanvasFont> Find(const TFont &font);

private:
    int m_dotsPerInch;
    std::vector<std::shared_ptr<TCanvasFont>> m_fonts; ///< most recently added last
};

} // namespace korvane
