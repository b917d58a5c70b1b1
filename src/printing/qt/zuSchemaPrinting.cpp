#include "printing/qt/zuSchemaPrinting.h"

#include "foundation/qt/zuConvert.h"
#include "printing/qt/zuPrintParts.h"
#include "schema/qt/zuSchemaComBasic.h"
#include "schema/qt/zuSchemaPrintView.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QLocale>
#include <QPainter>
#include <QScopeGuard>

#include <algorithm>
#include <cmath>

namespace korvane {

namespace {

constexpr TColor kPaleStripe = Rgb(246, 246, 246);

QFont CaptionFont(const TzuSchema_ComBasic &schema)
{
    QFont font = schema.font();
    font.setPixelSize(QFontInfo(font).pixelSize());
    return font;
}

} // namespace

/// Axis and area of a page, in controls of their own that are never shown.
class TSchemaPage : public ISchemaPrintView
{
public:
    TSchemaPage(TzuSchemaPrinting &printing, const TPrintPage &page);

    TzuDateScaler &Axis() override { return m_axis; }
    TzuOffscreenPaint &Area() override { return m_area; }
    /// Draws axis and area; the room's upper left corner is the origin.
    void Paint(QPainter &painter);

private:
    TzuSchemaPrinting &m_printing;
    TzuDateScaler m_axis;
    TzuOffscreenPaint m_area;
    int m_first;    ///< column
    double m_begun; ///< by how much the first column begins before the page
};

TSchemaPage::TSchemaPage(TzuSchemaPrinting &printing, const TPrintPage &page)
    : m_printing(printing)
{
    const TPageSpan &columns = printing.ColumnSpan(page);
    const TPageSpan &time = printing.TimeSpan(page);
    const int row = printing.m_columnAxis->RowAt(columns.From);
    m_first = printing.m_columns[static_cast<std::size_t>(row)];
    m_begun = columns.From - printing.m_columnAxis->TopOf(row);
    UsePaper(m_axis);
    UsePaper(m_area);
    SetUpPageAxis(m_axis, *printing.m_axis, time, printing.AxisThickness());
    const int across = static_cast<int>(columns.To - columns.From + m_begun);
    const int along = static_cast<int>(time.To - time.From);
    m_area.resize(printing.IsFlipped() ? along : across, printing.IsFlipped() ? across : along);
    TzuSchema_ComBasic &schema = printing.m_schema;
    m_axis.OnPrintResizeFont = schema.SchemaArea().OnPrintResizeFont;
    m_area.OnPrintResizeFont = schema.SchemaArea().OnPrintResizeFont;
    m_area.OnAfterPrint = schema.SchemaArea().OnAfterPrint;
    m_area.OnPaint = [&schema](TzuOffscreenPaint *) { schema.SchemaPaint(); };
}

void TSchemaPage::Paint(QPainter &painter)
{
    TzuSchema_ComBasic &schema = m_printing.m_schema;
    const TColor stripes = schema.SchemaPyjamasColor();
    const TColor back = schema.SchemaColor();
    const bool paper = !m_printing.m_printBackground;
    const TDataListColumns::TPrintScroll scroll(schema.Columns(), m_first);
    const auto restore = qScopeGuard([&] {
        schema.SetPrintView(nullptr);
        if (paper) {
            schema.SetSchemaPyjamasColor(stripes);
            schema.SetSchemaColor(back);
        }
    });
    if (paper) {
        schema.SetSchemaPyjamasColor(kPaleStripe);
        schema.SetSchemaColor(clWindow);
    }
    schema.SetPrintView(this);
    const QPoint corner(m_printing.LabelWidth(), m_printing.HeadHeight());
    painter.save();
    const auto restorePainter = qScopeGuard([&] { painter.restore(); });
    const bool flipped = m_printing.IsFlipped();
    m_axis.Print(painter, flipped ? corner.x() : 0, flipped ? 0 : corner.y(), 1, 1);
    painter.setClipRect(
        QRectF(corner, QSizeF(m_area.size()) - (flipped ? QSizeF(0, m_begun) : QSizeF(m_begun, 0))),
        Qt::IntersectClip);
    painter.translate(corner - (flipped ? QPointF(0, m_begun) : QPointF(m_begun, 0)));
    m_area.Print(painter, 0, 0, 1, 1);
}

TzuSchemaPrinting::TzuSchemaPrinting(TzuSchema_ComBasic &schema)
    : m_schema(schema)
{
}

TzuSchemaPrinting::~TzuSchemaPrinting() = default;

bool TzuSchemaPrinting::IsFlipped() const
{
    return m_schema.FlipView();
}

const TPageSpan &TzuSchemaPrinting::ColumnSpan(const TPrintPage &page) const
{
    return IsFlipped() ? page.Down : page.Across;
}

const TPageSpan &TzuSchemaPrinting::TimeSpan(const TPrintPage &page) const
{
    return IsFlipped() ? page.Across : page.Down;
}

int TzuSchemaPrinting::AxisThickness() const
{
    return IsFlipped() ? m_schema.GetScalerHeight() : m_schema.GetScalerWidth();
}

int TzuSchemaPrinting::LabelWidth() const
{
    return IsFlipped() ? m_captionRoom : AxisThickness();
}

int TzuSchemaPrinting::HeadHeight() const
{
    return IsFlipped() ? AxisThickness() : m_captionRoom;
}

TPrintLayout TzuSchemaPrinting::LayOutContent(const TPrintRoom &room, const TPrintScaling &scaling)
{
    const bool flipped = IsFlipped();
    const TDataListColumns &columns = m_schema.Columns();
    const QFontMetricsF metrics(CaptionFont(m_schema));
    double widest = 0;
    m_columns.clear();
    std::vector<int> sizes;
    const int first = m_columnRange ? std::max(m_columnRange->first, 0) : 0;
    const int last =
        m_columnRange ? std::min(m_columnRange->second, columns.Count() - 1) : columns.Count() - 1;
    for (int i = first; i <= last; ++i) {
        const TzuDataEntity_SchemaColumn &column = columns.GetCol(i);
        const int size = column.Saved_FW(flipped) + (flipped ? 1 : 0); // with the grid line
        if (column.GetVisible() && column.Saved_FW(flipped) > 0) {
            m_columns.push_back(i);
            sizes.push_back(size);
            widest = std::max(widest, metrics.horizontalAdvance(ToQt(columns.HeaderFromColumn(i))));
        }
    }
    m_columnAxis = std::make_unique<TPrintRows>(sizes);
    constexpr int kWidestCaption = 240;
    m_captionRoom =
        flipped ? std::min(static_cast<int>(std::ceil(widest)) + 2 * kPrintPadding, kWidestCaption)
                : static_cast<int>(std::ceil(metrics.height())) + 2 * kPrintPadding;

    const TzuDateScaler &shown = m_schema.DateScaler();
    m_axis = MakeWholeAxis(
        shown, m_range.value_or(std::pair(shown.GetStart(), shown.GetStop() + shown.HiddenSpan())),
        m_timeScale > 0 ? m_timeScale : shown.GetScale(), AxisThickness());
    TzuDateScaler &axis = *m_axis;
    const TPrintTime time({[&](TDateTime date) { return axis.DateToPixel(date); },
                           [&](int pixel) { return axis.PixelToDate(pixel); }},
                          m_columns.empty() ? 0 : axis.GetScaleLen(), axis.FirstDayOfWeek());
    const IPrintAxis &byColumns = *m_columnAxis;
    const IPrintAxis &byTime = time;
    return {{flipped ? byTime : byColumns, flipped ? byColumns : byTime,
             static_cast<double>(LabelWidth()), static_cast<double>(HeadHeight())},
            room,
            scaling};
}

QSizeF TzuSchemaPrinting::ContentSize(const TPrintPage &page) const
{
    return {LabelWidth() + page.Across.To - page.Across.From,
            HeadHeight() + page.Down.To - page.Down.From};
}

/// The columns, where each stands for a date of its own; else the time.
std::string TzuSchemaPrinting::RangeOf(const TPrintPage &page) const
{
    const TDataListColumns &columns = m_schema.Columns();
    const TPageSpan &span = ColumnSpan(page);
    const int first = m_columns[static_cast<std::size_t>(m_columnAxis->RowAt(span.From))];
    const int last = m_columns[static_cast<std::size_t>(m_columnAxis->RowFrom(span.To) - 1)];
    const auto joined = [](const QString &from, const QString &to) {
        return FromQt(from == to ? from : from + QStringLiteral(" \u2013 ") + to);
    };
    if (columns.GetCol(first).BaseDate != 0) {
        return joined(ToQt(columns.HeaderFromColumn(first)), ToQt(columns.HeaderFromColumn(last)));
    }
    const TPageSpan &time = TimeSpan(page);
    const auto day = [this](double pixel) {
        const TDateTime date = m_axis->PixelToDate(static_cast<int>(pixel));
        return QLocale().toString(ToQDateTime(date).date(), QLocale::ShortFormat);
    };
    return joined(day(time.From), day(time.To - 1));
}

void TzuSchemaPrinting::PaintContent(QPainter &painter, const TPrintPage &page)
{
    TSchemaPage(*this, page).Paint(painter);
    PaintCaptions(painter, page);
    PaintFrame(painter, ContentSize(page), LabelWidth(), HeadHeight());
}

void TzuSchemaPrinting::PaintCaptions(QPainter &painter, const TPrintPage &page) const
{
    const bool flipped = IsFlipped();
    const TPageSpan &span = ColumnSpan(page);
    const double length = span.To - span.From;
    painter.save();
    painter.setClipRect(flipped ? QRectF(0, HeadHeight(), LabelWidth(), length)
                                : QRectF(LabelWidth(), 0, length, HeadHeight()),
                        Qt::IntersectClip);
    painter.setFont(CaptionFont(m_schema));
    const int after = m_columnAxis->RowFrom(span.To);
    for (int row = m_columnAxis->RowAt(span.From); row < after; ++row) {
        const double at = m_columnAxis->TopOf(row) - span.From;
        const double size = m_columnAxis->SizeOf(row);
        const QRectF cell = flipped ? QRectF(0, HeadHeight() + at, LabelWidth(), size)
                                    : QRectF(LabelWidth() + at, 0, size, HeadHeight());
        const int column = m_columns[static_cast<std::size_t>(row)];
        PaintHeadCell(painter, cell, ToQt(m_schema.Columns().HeaderFromColumn(column)),
                      flipped ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignCenter);
    }
    painter.restore();
}

} // namespace korvane
