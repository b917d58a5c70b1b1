// How large content is printed, and what each page shows of it.
#pragma once

#include "foundation/zuExport.h"
#include "printing/zuPageBreaks.h"

#include <vector>

namespace korvane {

/// By what the size of a print is decided.
enum class TPrintFit : unsigned char {
    pfPercent, ///< as large as Percent says
    pfWidth,   ///< one page wide
    pfHeight,  ///< one page high
    pfPages    ///< at most PagesAcross by PagesDown pages
};

/// How large something is printed.
struct TPrintScaling
{
    /// See the type; the numbers count only where it says so.
    TPrintFit Fit = TPrintFit::pfPercent;
    double Percent = 100; ///< of the size on screen, at 96 pixels per inch
    int PagesAcross = 1;  ///< 0: as many as it takes
    int PagesDown = 0;    ///< 0: as many as it takes
    bool Enlarge = false; ///< whether fitting may also make things larger than on screen
};

/// Content that needs several pages in both directions. Every page repeats what stands at its sides
/// (labels at the left), and at its top and bottom (the head at the top).
struct TPrintContent
{
    /// What is cut into pages; observed. Extents are pixels of content.
    const IPrintAxis &Across;
    const IPrintAxis &Down;
    double LabelWidth = 0; ///< both sides together
    double HeadHeight = 0; ///< top and bottom together
};

/// The part of a page within margins, header and footer, in pixels at 96 per inch.
struct TPrintRoom
{
    /// Paper pixels.
    double Width = 0;
    double Height = 0;
};

/// How wide labels may be so that they leave most of a page's width to the content, in pixels of
/// content at the scale that follows. What the content says of labels does not count.
KORVANE_CORE_API double RoomForLabels(const TPrintContent &content, const TPrintRoom &room,
                                      const TPrintScaling &scaling);

/// One page: a column of pages by a row of pages.
struct TPrintPage
{
    /// Both from 0.
    int Column = 0;
    int Row = 0;
    /// What the page shows of the content.
    TPageSpan Across;
    TPageSpan Down;
};

/// What is printed on which page. Pages go down first, then across.
class KORVANE_CORE_API TPrintLayout
{
public:
    TPrintLayout() = default;
    /// Throws std::runtime_error when there is nothing to print or no room for it.
    TPrintLayout(const TPrintContent &content, const TPrintRoom &room,
                 const TPrintScaling &scaling);

    /// Paper pixels (96 per inch) per pixel of content.
    double Scale() const { return m_scale; }
    /// What every page repeats, in pixels of content.
    double LabelWidth() const { return m_labelWidth; }
    double HeadHeight() const { return m_headHeight; }
    /// Pages beside and below each other, and all of them.
    int Columns() const { return static_cast<int>(m_across.size()); }
    int Rows() const { return static_cast<int>(m_down.size()); }
    int PageCount() const { return Columns() * Rows(); }
    /// Page 0 .. PageCount() - 1; throws std::out_of_range for others.
    TPrintPage Page(int index) const;
    /// The page of a column and a row of pages, both from 0; not checked.
    int PageIndex(int column, int row) const { return column * Rows() + row; }
    /// The pages of the two axes, in order.
    const std::vector<TPageSpan> &Across() const { return m_across; }
    const std::vector<TPageSpan> &Down() const { return m_down; }

private:
    double m_scale = 1;
    double m_labelWidth = 0;
    double m_headHeight = 0;
    std::vector<TPageSpan> m_across;
    std::vector<TPageSpan> m_down;
};

} // namespace korvane
