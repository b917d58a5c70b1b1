#include "printing/qt/zuSchemaPrinting.h"

#include "foundation/qt/zuConvert.h"
#include "printing/qt/zuPageAxis.h"
#include "printing/qt/zuPrintParts.h"
#include "schema/qt/zuSchemaComBasic.h"
#include "schema/qt/zuSchemaPrintView.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QScopeGuard>

#include <algorithm>
#include <cmath>

namespace korvane {

namespace {

constexpr TColor kPaleStripe = Rgb(246, 246, 246);

QFont CaptionFont(const TzuSchema_ComBasic &schema)
{
    return PaperFont(schema.font());
}

} // namespace

/// Axis and area of a page, in controls of their own that are never shown.
class TSchemaPage : public ISchemaPrintView
{
public:
    TSchemaPage(TzuSchemaPrinting &printing, const TPrintPage &page);

    TzuDateScaler &Axis() override { return *m_usedAxis; }
    TzuOffscreenPaint &Area() override { return m_area; }
    /// Draws axis and area; the room's upper left corner is the origin.
    void Paint(QPainter &painter);

private:
    void WorkOutSubColumns();
    void PaintAxis(QPainter &painter);
    void PaintColumns(QPainter &painter, int first, int last);
    void PaintTimes(QPainter &painter, double begin, int across);
    void PaintBand(QPainter &painter, double begin, int across);

    TzuSchemaPrinting &m_printing;
    const TPrintPage m_page;
    TPageAxis m_axis;
    TzuOffscreenPaint m_area;
    TzuOffscreenPaint m_band;
    TzuDateScaler *m_usedAxis = &m_axis;
    QRectF m_body; ///< of the page
};

TSchemaPage::TSchemaPage(TzuSchemaPrinting &printing, const TPrintPage &page)
    : m_printing(printing)
    , m_page(page)
    , m_body(printing.LabelWidth(), printing.HeadHeight(), page.Across.To - page.Across.From,
             page.Down.To - page.Down.From)
{
    UsePaper(m_axis);
    UsePaper(m_area);
    UsePaper(m_band);
    m_axis.SetUp(*printing.m_axis, *printing.m_axisLabels, printing.TimeSpan(page),
                 printing.AxisThickness());
    TzuSchema_ComBasic &schema = printing.m_schema;
    m_axis.OnPrintResizeFont = schema.SchemaArea().OnPrintResizeFont;
    m_area.OnPrintResizeFont = schema.SchemaArea().OnPrintResizeFont;
    m_area.OnAfterPrint = schema.SchemaArea().OnAfterPrint;
}

void TSchemaPage::Paint(QPainter &painter)
{
    TzuSchema_ComBasic &schema = m_printing.m_schema;
    const TColor stripes = schema.SchemaPyjamasColor();
    const TColor back = schema.SchemaColor();
    const bool paper = !m_printing.PrintsBackground();
    const auto restore = qScopeGuard([&] {
        schema.SetPrintView(nullptr);
        schema.ForgetSubColumns();
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
    WorkOutSubColumns();
    PaintAxis(painter);
    // Columns that follow each other in the schedule as well are drawn at once.
    const TPageSpan &span = m_printing.ColumnSpan(m_page);
    const std::vector<int> &columns = m_printing.m_columns;
    const int after = m_printing.m_columnAxis->RowFrom(span.To);
    for (int first = m_printing.m_columnAxis->RowAt(span.From); first < after;) {
        int last = first;
        const auto numberOf = [&](int row) { return columns[static_cast<std::size_t>(row)]; };
        while (last + 1 < after && numberOf(last + 1) == numberOf(last) + 1) {
            ++last;
        }
        PaintColumns(painter, first, last);
        first = last + 1;
    }
}

/// Of all the printed time, so that a time stands in the same one on every page.
void TSchemaPage::WorkOutSubColumns()
{
    TzuSchema_ComBasic &schema = m_printing.m_schema;
    const auto restore = qScopeGuard([this] { m_usedAxis = &m_axis; });
    m_usedAxis = m_printing.m_axis.get();
    schema.ForgetSubColumns();
    const TPageSpan &span = m_printing.ColumnSpan(m_page);
    const TPrintRows &columns = *m_printing.m_columnAxis;
    for (int row = columns.RowAt(span.From); row < columns.RowFrom(span.To); ++row) {
        schema.SubColumnsNeeded(m_printing.m_columns[static_cast<std::size_t>(row)]);
    }
}

void TSchemaPage::PaintAxis(QPainter &painter)
{
    const bool flipped = m_printing.IsFlipped();
    const auto print = [&](double x, double y) {
        m_axis.Print(painter, qRound(x), qRound(y), 1, 1);
    };
    print(flipped ? m_body.left() : 0, flipped ? 0 : m_body.top());
    if (m_printing.IsAxisAtBothEdges()) {
        print(flipped ? m_body.left() : m_body.right(), flipped ? m_body.bottom() : m_body.top());
    }
}

/// Printed columns, by their numbers among these.
void TSchemaPage::PaintColumns(QPainter &painter, int first, int last)
{
    const TPrintRows &columns = *m_printing.m_columnAxis;
    const int across = columns.TopOf(last + 1) - columns.TopOf(first);
    const double begin = columns.TopOf(first) - m_printing.ColumnSpan(m_page).From;
    const TDataListColumns::TPrintScroll scroll(
        m_printing.m_schema.Columns(), m_printing.m_columns[static_cast<std::size_t>(first)]);
    PaintTimes(painter, begin, across);
    if (m_printing.m_bandThickness > 0) {
        PaintBand(painter, begin, across);
    }
}

/// Of columns that begin so far from the body's edge and are so large together.
void TSchemaPage::PaintTimes(QPainter &painter, double begin, int across)
{
    const bool flipped = m_printing.IsFlipped();
    const QSizeF size = flipped ? QSizeF(m_body.width(), across) : QSizeF(across, m_body.height());
    const QPointF at = m_body.topLeft() + (flipped ? QPointF(0, begin) : QPointF(begin, 0));
    m_area.resize(size.toSize());
    m_area.OnPaint = [&](TzuOffscreenPaint *area) {
        area->GetOffscreenCanvas().SetTextPage(
            FromQt(OwnTexts(m_body, m_page).translated(-at).toAlignedRect()));
        m_printing.m_schema.SchemaPaint();
    };
    painter.save();
    const auto restore = qScopeGuard([&] { painter.restore(); });
    painter.setClipRect(m_body, Qt::IntersectClip);
    painter.translate(at);
    m_area.Print(painter, 0, 0, 1, 1);
}

void TSchemaPage::PaintBand(QPainter &painter, double begin, int across)
{
    const bool flipped = m_printing.IsFlipped();
    const int thickness = m_printing.m_bandThickness;
    const QRectF band =
        flipped ? QRectF(m_body.left() - thickness, m_body.top(), thickness, m_body.height())
                : QRectF(m_body.left(), m_body.top() - thickness, m_body.width(), thickness);
    const QPointF at = band.topLeft() + (flipped ? QPointF(0, begin) : QPointF(begin, 0));
    m_band.resize(flipped ? thickness : across, flipped ? across : thickness);
    m_band.OnPaint = [&](TzuOffscreenPaint *paper) {
        TPainterCanvas &canvas = paper->GetOffscreenCanvas();
        canvas.SetTextPage(FromQt(OwnTexts(band, m_page).translated(-at).toAlignedRect()));
        m_printing.PaintBand(canvas, {paper->Width(), paper->Height()});
    };
    painter.save();
    const auto restore = qScopeGuard([&] { painter.restore(); });
    painter.setClipRect(band, Qt::IntersectClip);
    painter.translate(at);
    m_band.Print(painter, 0, 0, 1, 1);
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
    return IsFlipped() ? m_captionRoom + m_bandThickness : AxisThickness();
}

int TzuSchemaPrinting::HeadHeight() const
{
    return IsFlipped() ? AxisThickness() : m_captionRoom + m_bandThickness;
}

TPrintLayout TzuSchemaPrinting::LayOutContent(const TPrintRoom &room, const TPrintScaling &scaling)
{
    CollectColumns();
    const TzuDateScaler &shown = m_schema.DateScaler();
    m_axis = MakeWholeAxis(
        shown, Range().value_or(std::pair(shown.GetStart(), shown.GetStop() + shown.HiddenSpan())),
        TimeScaleOr(shown.GetScale()), AxisThickness());
    TzuDateScaler &axis = *m_axis;
    m_axisLabels = std::make_unique<TPageAxisLabels>(axis);
    const TPrintTime time({[&](TDateTime date) { return axis.DateToPixel(date); },
                           [&](int pixel) { return axis.PixelToDate(pixel); }},
                          m_columns.empty() ? 0 : axis.GetScaleLen(), axis.FirstDayOfWeek());
    const IPrintAxis &byColumns = *m_columnAxis;
    const IPrintAxis &byTime = time;
    const bool flipped = IsFlipped();
    const int farAxis = IsAxisAtBothEdges() ? AxisThickness() : 0;
    const TPrintContent content{flipped ? byTime : byColumns, flipped ? byColumns : byTime,
                                static_cast<double>(LabelWidth() + (flipped ? 0 : farAxis)),
                                static_cast<double>(HeadHeight() + (flipped ? farAxis : 0))};
    return {content, room, scaling};
}

void TzuSchemaPrinting::CollectColumns()
{
    const bool flipped = IsFlipped();
    const TDataListColumns &columns = m_schema.Columns();
    const QFontMetricsF metrics(CaptionFont(m_schema));
    const std::vector<bool> selected = SelectedColumns();
    double widest = 0;
    m_columns.clear();
    std::vector<int> sizes;
    const auto [first, last] = RowsOf(columns.Count());
    for (int i = first; i <= last; ++i) {
        const TzuDataEntity_SchemaColumn &column = columns.GetCol(i);
        const bool wanted = !IsSelectionOnly() || selected[static_cast<std::size_t>(i)];
        if (wanted && column.GetVisible() && column.Saved_FW(flipped) > 0) {
            m_columns.push_back(i);
            sizes.push_back(column.Saved_FW(flipped) + (flipped ? 1 : 0)); // with the grid line
            widest = std::max(widest, metrics.horizontalAdvance(ToQt(columns.HeaderFromColumn(i))));
        }
    }
    m_columnAxis = std::make_unique<TPrintRows>(sizes);
    constexpr int kWidestCaption = 240;
    m_captionRoom =
        flipped ? std::min(static_cast<int>(std::ceil(widest)) + 2 * kPrintPadding, kWidestCaption)
                : static_cast<int>(std::ceil(metrics.height())) + 2 * kPrintPadding;
    m_bandThickness = BandThickness();
}

std::vector<bool> TzuSchemaPrinting::SelectedColumns() const
{
    std::vector<bool> selected(static_cast<std::size_t>(m_schema.Columns().Count()));
    for (const TzuDataEntity_SchemaTime *time : m_schema.SelectedTimes()) {
        if (m_schema.Columns().IsCol(time->Col())) {
            selected[static_cast<std::size_t>(time->Col())] = true;
        }
    }
    return selected;
}

/// The columns, where each stands for a date of its own; else the time.
std::string TzuSchemaPrinting::RangeOf(const TPrintPage &page) const
{
    const TDataListColumns &columns = m_schema.Columns();
    const TPageSpan &span = ColumnSpan(page);
    const int first = m_columns[static_cast<std::size_t>(m_columnAxis->RowAt(span.From))];
    const int last = m_columns[static_cast<std::size_t>(m_columnAxis->RowFrom(span.To) - 1)];
    const TDateTime base = columns.GetCol(first).BaseDate;
    if (base != 0 || columns.GetCol(m_columns.front()).BaseDate != base
        || columns.GetCol(m_columns.back()).BaseDate != base) {
        return FromQt(
            RangeText(ToQt(columns.HeaderFromColumn(first)), ToQt(columns.HeaderFromColumn(last))));
    }
    return DayRangeText(*m_axis, TimeSpan(page));
}

void TzuSchemaPrinting::PaintContent(QPainter &painter, const TPrintPage &page)
{
    TSchemaPage(*this, page).Paint(painter);
    PaintCaptions(painter, page);
    const QSizeF size = ContentSize(page);
    PaintFrame(painter, size, LabelWidth(), HeadHeight());
    if (IsAxisAtBothEdges()) {
        PaintFrame(painter, size, IsFlipped() ? 0 : size.width() - AxisThickness(),
                   IsFlipped() ? size.height() - AxisThickness() : 0);
    }
}

void TzuSchemaPrinting::PaintCaptions(QPainter &painter, const TPrintPage &page) const
{
    const bool flipped = IsFlipped();
    const TPageSpan &span = ColumnSpan(page);
    const double length = span.To - span.From;
    painter.save();
    const auto restore = qScopeGuard([&] { painter.restore(); });
    painter.setFont(CaptionFont(m_schema));
    if (m_bandThickness > 0) {
        PaintHeadCell(painter,
                      flipped ? QRectF(m_captionRoom, 0, m_bandThickness, HeadHeight())
                              : QRectF(0, m_captionRoom, LabelWidth(), m_bandThickness),
                      BandCaption(), Qt::AlignCenter);
    }
    painter.setClipRect(flipped ? QRectF(0, HeadHeight(), m_captionRoom, length)
                                : QRectF(LabelWidth(), 0, length, m_captionRoom),
                        Qt::IntersectClip);
    const int after = m_columnAxis->RowFrom(span.To);
    for (int row = m_columnAxis->RowAt(span.From); row < after; ++row) {
        const double at = m_columnAxis->TopOf(row) - span.From;
        const double size = m_columnAxis->SizeOf(row);
        const QRectF cell = flipped ? QRectF(0, HeadHeight() + at, m_captionRoom, size)
                                    : QRectF(LabelWidth() + at, 0, size, m_captionRoom);
        const int column = m_columns[static_cast<std::size_t>(row)];
        PaintHeadCell(painter, cell, ToQt(m_schema.Columns().HeaderFromColumn(column)),
                      flipped ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignCenter);
    }
}

} // namespace korvane
