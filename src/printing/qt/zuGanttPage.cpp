#include "printing/qt/zuGanttPage.h"

#include "foundation/qt/zuConvert.h"
#include "gantt/qt/zuGantComBasic.h"
#include "printing/qt/zuPrintParts.h"

#include <QPainter>
#include <QScopeGuard>

#include <algorithm>
#include <array>
#include <cmath>
#include <set>

namespace korvane {

namespace {

constexpr TColor kPaleLines = static_cast<TColor>(0x00D8D8D8);

} // namespace

TGanttPage::TGanttPage(TzuGanttPrinting &printing, const TPrintPage &page)
    : m_printing(printing)
    , m_page(page)
{
    const int from = static_cast<int>(page.Across.From);
    const int width = static_cast<int>(page.Across.To) - from;
    const int height =
        static_cast<int>(std::ceil(page.Down.To - page.Down.From) + page.Down.Repeated);
    UsePaper(m_axis);
    UsePaper(m_area);
    m_axis.SetUp(*printing.m_axis, *printing.m_axisLabels, page.Across,
                 printing.m_gant.GetScalerHeight());
    m_area.resize(width, height);
    m_axis.OnPrintResizeFont = printing.m_gant.GantArea().OnPrintResizeFont;
    m_area.OnPrintResizeFont = printing.m_gant.GantArea().OnPrintResizeFont;
    m_area.OnPaint = [this](TzuOffscreenPaint *area) {
        const QRectF own = OwnTexts(
            {0, m_page.Down.Repeated, double(m_area.width()), double(m_area.height())}, m_page);
        const int fine = m_printing.m_fineness;
        area->GetOffscreenCanvas().SetTextPage(
            FromQt(QRectF(own.topLeft() * fine, own.size() * fine).toAlignedRect()));
        m_printing.m_gant.GantAreaPaint();
    };
    m_area.OnAfterPrint = printing.m_gant.GantArea().OnAfterPrint;
    PlaceRows();
}

TVisibleNode TGanttPage::Placed(int row, int y) const
{
    TVisibleNode node = m_printing.m_rows[static_cast<std::size_t>(row)];
    node.Rect = {0, y, m_area.width(), y + m_printing.m_down->SizeOf(row)};
    return node;
}

void TGanttPage::PlaceRows()
{
    const TPrintRows &rows = *m_printing.m_down;
    const int first = rows.RowAt(m_page.Down.From);
    int y = 0;
    if (m_page.Down.Repeated > 0) {
        for (const int heading : rows.HeadingsAt(first)) {
            m_rows.push_back(Placed(heading, y));
            y += rows.SizeOf(heading);
        }
    }
    // A row higher than the page goes on where the page before ended.
    y -= static_cast<int>(m_page.Down.From);
    const int after = rows.RowFrom(m_page.Down.To);
    for (int row = first; row < after; ++row) {
        m_rows.push_back(Placed(row, y + rows.TopOf(row)));
    }
}

void TGanttPage::CollectRows(std::vector<TVisibleNode> &rows)
{
    const TPrintRows &all = *m_printing.m_down;
    const int first = all.RowAt(m_page.Down.From);
    const int after = all.RowFrom(m_page.Down.To);
    std::set<int> elsewhere;
    m_printing.ForEachLink(m_page.Row, [&](const auto &link) {
        elsewhere.insert({link.First, link.Second});
    });
    if (m_page.Down.Repeated > 0) {
        for (const int heading : all.HeadingsAt(first)) {
            elsewhere.erase(heading);
        }
    }
    std::vector<TVisibleNode> below;
    for (const int row : elsewhere) {
        const int y = all.TopOf(row) - all.TopOf(first);
        if (row < first) { // above the page, not behind its headings
            rows.push_back(Placed(row, y));
        } else if (row >= after) {
            below.push_back(Placed(row, static_cast<int>(m_page.Down.Repeated) + y));
        }
    }
    rows.insert(rows.end(), m_rows.begin(), m_rows.end());
    rows.insert(rows.end(), below.begin(), below.end());
}

TRect TGanttPage::WholeArea()
{
    const int left = -static_cast<int>(m_page.Across.From);
    const int top = static_cast<int>(m_page.Down.Repeated - m_page.Down.From);
    return {left, top, left + m_printing.m_axis->width(),
            top + static_cast<int>(m_printing.m_down->Length())};
}

void TGanttPage::LinkDrawn(const TzuDataEntity_Link & /*link*/, std::span<const TPoint> line)
{
    const auto point = [&](TPoint at) { return QPointF(at.X, at.Y) / m_printing.m_fineness; };
    for (std::size_t i = 1; i < line.size(); ++i) {
        NoteCrossing(point(line[i - 1]), point(line[i]));
    }
}

/// Clips the segment to the area; where it enters or leaves the area is a crossing.
void TGanttPage::NoteCrossing(QPointF from, QPointF to)
{
    const QPointF way = to - from;
    double enter = 0;
    double leave = 1;
    TPageSide enterSide = TPageSide::Left;
    TPageSide leaveSide = TPageSide::Left;
    const auto clip = [&](double position, double step, double limit, TPageSide low,
                          TPageSide high) {
        if (step == 0) {
            if (position < 0 || position > limit) {
                leave = -1;
            }
            return;
        }
        double in = -position / step;
        double out = (limit - position) / step;
        TPageSide inSide = low;
        TPageSide outSide = high;
        if (in > out) {
            std::swap(in, out);
            std::swap(inSide, outSide);
        }
        if (in > enter) {
            enter = in;
            enterSide = inSide;
        }
        if (out < leave) {
            leave = out;
            leaveSide = outSide;
        }
    };
    clip(from.x(), way.x(), m_area.width(), TPageSide::Left, TPageSide::Right);
    clip(from.y(), way.y(), m_area.height(), TPageSide::Top, TPageSide::Bottom);
    if (enter > leave) {
        return;
    }
    if (enter > 0) {
        m_crossings.push_back({from + way * enter, enterSide});
    }
    if (leave < 1) {
        m_crossings.push_back({from + way * leave, leaveSide});
    }
}

void TGanttPage::Paint(QPainter &painter, QPoint at)
{
    TzuGant_ComBasic &gant = m_printing.m_gant;
    const TColor pyjamas = gant.GantPyjamasColor();
    const TColor back = gant.GantBackColor();
    const TLinkShow links = gant.LinkShow();
    const bool paper = !m_printing.PrintsBackground() && !gant.OnUserDrawBackground;
    const auto restore = qScopeGuard([&] {
        gant.SetPrintView(nullptr);
        gant.SetGantPyjamasColor(pyjamas);
        gant.SetGantBackColor(back);
        if (paper) {
            gant.OnUserDrawBackground = nullptr;
        }
        gant.SetLinkShow(links);
    });
    if (paper) {
        gant.SetGantPyjamasColor(kPaleLines);
        gant.SetGantBackColor(clWindow); // crowded items are tinted by it
        gant.OnUserDrawBackground = [&gant](TzuGant_ComBasic *, const TRect &rect,
                                            TCanvas &canvas) {
            gant.DrawRowBackgound(rect, canvas);
        };
    }
    // A link between two other pages may still run through this one.
    gant.SetLinkShow(TLinkShow::lsAlways);
    gant.SetPrintView(this);

    painter.save();
    const auto restorePainter = qScopeGuard([&] { painter.restore(); });
    const int fine = m_printing.m_fineness;
    painter.scale(1.0 / fine, 1.0 / fine);
    const int axisHeight = m_axis.height();
    const auto print = [&](TzuOffscreenPaint &control, int y) {
        control.Print(painter, at.x() * fine, (at.y() + y) * fine, fine, fine);
    };
    print(m_axis, 0);
    print(m_area, axisHeight);
    if (m_printing.IsAxisAtBothEdges()) {
        print(m_axis, axisHeight + m_area.height());
    }
}

} // namespace korvane
