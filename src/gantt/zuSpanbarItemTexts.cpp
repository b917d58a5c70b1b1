#include "gantt/zuSpanbarItemTexts.h"

#include <stdexcept>

namespace korvane {

TzuTimeItemText &TzuTimeItemTextCollection::AddText(std::string_view text, int x, int y, int style)
{
    return m_texts.emplace_back(text, TPoint{x, y}, style);
}

void TzuTimeItemTextCollection::DropText(int index)
{
    if (index < 0 || index >= GetCount()) {
        throw std::out_of_range("time item text index out of bounds");
    }
    m_texts.erase(m_texts.begin() + index);
}

void TzuTimeItemTextCollection::DrawToCanvasInsideRect(const TRect &rect, TCanvas &canvas,
                                                       const TOnStyleSet &onStyleSet) const
{
    for (const TzuTimeItemText &text : m_texts) {
        if (text.Text().empty()) {
            continue;
        }
        onStyleSet(*this, canvas, text.Style());
        const TPoint at{rect.Left + text.Pos().X, rect.Top + text.Pos().Y};
        const TRect clip{at.X, at.Y, rect.Right - 1, rect.Bottom - 1};
        if (!clip.IsEmpty()) {
            canvas.TextRect(clip, at, text.Text());
        }
    }
}

} // namespace korvane
