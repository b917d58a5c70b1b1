#include "foundation/qt/zuCanvasFonts.h"

#include "foundation/qt/zuConvert.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>
#include <QTextLayout>

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

constexpr std::size_t kMaxTexts = 4096; ///< per generation, of which a font keeps two
constexpr std::size_t kMaxFonts = 64;

QFont FontInPixels(const TFont &font, int dotsPerInch)
{
    constexpr int kPointsPerInch = 72;
    QFont result = ToQt(font);
    result.setPixelSize(
        std::max(1, (font.Size * dotsPerInch + kPointsPerInch / 2) / kPointsPerInch));
    return result;
}

/// Line breaks and tabs have no meaning in a single line; layouts would give them one.
QString SingleLine(std::string_view text)
{
    QString result = ToQt(text);
    for (QChar &c : result) {
        if (c < u' ' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator) {
            c = u' ';
        }
    }
    return result;
}

} // namespace

TCanvasFont::TCanvasFont(const TFont &font, int dotsPerInch)
    : m_key(font)
    , m_font(FontInPixels(font, dotsPerInch))
{
    const QFontMetrics metrics(m_font);
    m_ascent = metrics.ascent();
    m_height = metrics.height();
}

void TCanvasFont::Draw(QPainter &painter, TPoint topLeft, std::string_view text, TMedium medium)
{
    TKnownText &known = Find(text);
    if (medium == TMedium::Raster && std::exchange(known.Drawn, true)) {
        LayOut(known);
        painter.drawStaticText(QPointF(topLeft.X, topLeft.Y + known.LayoutOffset), *known.Layout);
        return;
    }
    const QPoint base(topLeft.X, topLeft.Y + m_ascent);
    if (medium == TMedium::Shapes) {
        QPainterPath shapes;
        shapes.addText(base, m_font, known.Text);
        painter.fillPath(shapes, painter.pen().brush());
    } else {
        painter.drawText(base, known.Text);
    }
}

TCanvasFont::TKnownText &TCanvasFont::Find(std::string_view text)
{
    if (const auto recent = m_recent.find(text); recent != m_recent.end()) {
        return recent->second;
    }
    if (m_recent.size() >= kMaxTexts) {
        m_older = std::exchange(m_recent, {});
    }
    if (const auto older = m_older.find(text); older != m_older.end()) {
        return m_recent.insert(m_older.extract(older)).position->second;
    }
    TKnownText &added = m_recent[std::string(text)];
    added.Text = SingleLine(text);
    return added;
}

TSize TCanvasFont::Extent(std::string_view text)
{
    TKnownText &known = Find(text);
    if (known.Width < 0) {
        known.Width = QFontMetrics(m_font).horizontalAdvance(known.Text);
    }
    return {known.Width, m_height};
}

void TCanvasFont::LayOut(TKnownText &text) const
{
    if (text.Layout) {
        return;
    }
    // A layout's base line depends on the fonts that stand in for missing glyphs; ours does not.
    QTextLayout layout(text.Text, m_font);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    text.LayoutOffset = m_ascent - line.ascent();
    text.Layout = std::make_unique<QStaticText>(text.Text);
    text.Layout->setTextFormat(Qt::PlainText);
}

void TCanvasFonts::SetDotsPerInch(int dotsPerInch)
{
    if (dotsPerInch != m_dotsPerInch) {
        m_dotsPerInch = dotsPerInch;
        m_fonts.clear();
    }
}

std::shared_ptr<TCanvasFont> TCanvasFonts::Find(const TFont &font)
{
    const auto found = std::find_if(m_fonts.begin(), m_fonts.end(),
                                    [&](const auto &known) { return known->Key() == font; });
    if (found != m_fonts.end()) {
        return *found;
    }
    if (m_fonts.size() >= kMaxFonts) {
        m_fonts.erase(m_fonts.begin());
    }
    return m_fonts.emplace_back(std::make_shared<TCanvasFont>(font, m_dotsPerInch));
}

} // namespace korvane
