// Fonts and texts made ready for drawing, kept from one paint to the next.
#pragma once

#include "foundation/zuCanvas.h"

#include <QFont>
#include <QStaticText>
#include <QString>

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace korvane {

/// The fonts that a control draws with, their metrics, and the texts that it drew lately.
///
/// Sizes in points become whole pixels at a fixed resolution, so that text takes up the same share
/// of a drawing on every device. The texts kept are bounded in number.
class TCanvasFonts
{
public:
    /// A text with its extent, laid out for repeated drawing.
    struct TPreparedText
    {
        QString Text;
        QStaticText Layout;
        TSize Extent; ///< in logical pixels
    };

    /// A font as it is drawn, with its texts.
    class TEntry
    {
    public:
        TEntry(const TFont &font, int dotsPerInch);

        const TFont &Key() const { return m_key; }
        const QFont &Font() const { return m_font; }
        int Ascent() const { return m_ascent; }

        /// The reference stays valid until the next call.
        const TPreparedText &Prepare(std::string_view text);

    private:
        struct TTextHash
        {
            using is_transparent = void;
            std::size_t operator()(std::string_view text) const
            {
                return std::hash<std::string_view>()(text);
            }
        };
        using TTextMap = std::unordered_map<std::string, TPreparedText, TTextHash, std::equal_to<>>;

        TFont m_key;
        QFont m_font;
        int m_ascent;
        int m_height;
        TTextMap m_recent; ///< texts used since m_older was filled
        TTextMap m_older;
    };

    /// The resolution by which points become pixels.
    explicit TCanvasFonts(int dotsPerInch = 96)
        : m_dotsPerInch(dotsPerInch)
    {
    }

    int DotsPerInch() const { return m_dotsPerInch; }
    /// A new resolution drops everything that is kept.
    void SetDotsPerInch(int dotsPerInch);

    /// The entry stays valid as long as it is held.
    std::shared_ptr<TEntry> Find(const TFont &font);
    void Clear() { m_entries.clear(); }

private:
    int m_dotsPerInch;
    std::vector<std::shared_ptr<TEntry>> m_entries; ///< most recently added last
};

} // namespace korvane
