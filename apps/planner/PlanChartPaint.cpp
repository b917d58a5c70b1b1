// What the chart draws besides bars and links: days off, names, the present.
#include "PlanChart.h"
#include "foundation/qt/zuConvert.h"
#include "gantt/zuTimeDraw.h"

#include <limits>

namespace korvane::planner {

namespace {

constexpr int kLabelPadding = 5;
constexpr int kOutsideGap = 10;
/// How far lines to what is scrolled away lead out of the area.
constexpr int kBeyond = 100;

} // namespace

void PlanChart::PaintBackground(const TRect &rect, TCanvas &canvas)
{
    DefaultBackGround(rect, canvas);
    PaintGrid(rect, canvas);
    ShadeDaysOff(rect, canvas);
    PaintBaselines(rect, canvas);
    const TRect whole = WholeArea(); // on paper, names do not depend on where pages end
    PlaceLabels({whole.Left, rect.Top, whole.Right, rect.Bottom}, canvas);
}

void PlanChart::PaintForeground(const TRect &rect, TCanvas &canvas)
{
    canvas.SetFont(FontTimeItemStyle(kMutedLabel));
    for (const OutsideLabel &label : m_outsideLabels) {
        // Links and the grid pass behind the name.
        canvas.FillRect(label.Rect, m_looks.Back);
        ShadeDaysOff(label.Rect, canvas);
        canvas.TextOut({label.Rect.Left, label.Rect.Top}, Items(label.Task).Node->GetText());
    }
    PaintDeadlines(canvas);
    PaintNow(rect, canvas);
}

/// The bar as the link meets it. One that is scrolled away lies above or below the area, on the
/// side where its row is: rows stand in the order of the tasks.
LinkEnd PlanChart::EndOf(const TzuDataEntity_Spanbar &bar, const TzuDataEntity_Spanbar &other)
{
    const TRect area = WholeArea();
    const TGantRow &row = *bar.GetRow();
    const TPixelSpan extent = row.XStartStopFromDataEntity(bar);
    const int y = TaskOf(bar) < TaskOf(other) ? area.Top - kBeyond : area.Bottom + kBeyond;
    TRect rect = row.RectFromDataEntity(bar).value_or(TRect{extent.From, y, extent.To, y + 1});
    rect.Left = std::clamp(rect.Left, area.Left - kBeyond, area.Right + kBeyond);
    rect.Right = std::clamp(rect.Right, area.Left - kBeyond, area.Right + kBeyond);
    rect.Top += bar.InsetTop();
    rect.Bottom -= bar.InsetBottom();
    return {rect, bar.FixedSize() > 0};
}

/// Split and partly done tasks: a line from start to finish, the parts over it, and over these what
/// is done, counted from the first part on.
void PlanChart::PaintTask(const TzuDataEntity_Spanbar &bar, TCanvas &canvas,
                          const TRect &rect) const
{
    const PlanTask &task = Task(TaskOf(bar));
    const TColor done = m_looks.Done(bar.GetColor());
    const PlanSpan whole{bar.GetStartDateTime(), bar.GetStopDateTime()};
    std::span<const PlanSpan> parts(&whole, 1);
    if (!task.Parts.empty()) {
        parts = task.Parts;
        TzuTimeDraw::LineOutline(bar.GetColor(), rect, canvas, TLineEnds::leNone);
    }
    TDateTime left = 0;
    for (const PlanSpan &part : parts) {
        left += (part.Finish - part.Start) * task.PercentComplete / 100;
    }
    const auto paint = [&](TDateTime from, TDateTime to, TColor color) {
        TRect piece = rect;
        piece.Left = from <= whole.Start ? rect.Left : DateScaler().DateToPixel(from);
        piece.Right = to >= whole.Finish ? rect.Right : DateScaler().DateToPixel(to);
        piece.Right = std::max(piece.Right, piece.Left + 1);
        TzuTimeDraw::DrawTime(color, piece, canvas);
    };
    for (const PlanSpan &part : parts) {
        paint(part.Start, part.Finish, bar.GetColor());
        const TDateTime length = std::min(left, part.Finish - part.Start);
        if (length > 0 && task.PercentComplete < 100) {
            paint(part.Start, part.Start + length, done);
        }
        left -= length;
    }
}

LinkRoute PlanChart::RouteOf(const TzuDataEntity_Link &link)
{
    const PlanLink &planLink = GetPlan().Links.at(static_cast<std::size_t>(LinkOf(link)));
    return {planLink.Type, EndOf(*link.First(), *link.Second()),
            EndOf(*link.Second(), *link.First())};
}

void PlanChart::PaintLink(const TzuDataEntity_Link &link, TCanvas &canvas)
{
    const LinkRoute route = RouteOf(link);
    canvas.SetPen({link.GetColor(), 1, TPenStyle::psSolid});
    canvas.Polyline(route.Line());
    canvas.SetBrushColor(link.GetColor());
    canvas.SetAntialiasing(true);
    canvas.Polygon(route.ArrowHead());
    canvas.SetAntialiasing(false);
}

void PlanChart::PlaceLabels(const TRect &rect, TCanvas &canvas)
{
    m_outsideLabels.clear();
    for (TGantRow *row : GantRows().RowsOnScreen()) {
        const TzuDataList &bars = *row->Layers().GetDataList(0);
        if (bars.LoadedCount() > 0) {
            PlaceLabel(TaskOf(TimeDataEntity(*bars.GetLoaded(0))), *row, rect, canvas);
        }
    }
}

void PlanChart::PlaceLabel(int index, TGantRow &row, const TRect &area, TCanvas &canvas)
{
    const TaskItems &items = Items(index);
    const std::string &name = items.Node->GetText();
    const auto bar = row.RectFromDataEntity(*items.Bar);
    if (!bar || bar->Right <= area.Left || bar->Left >= area.Right) {
        return;
    }
    const TColor open = items.Bar->GetColor();
    const TColor done = IsPartlyDone(Task(index)) ? m_looks.Done(open) : open;
    const int style = NeedsLightText({open, done}) ? kLightLabel : kDarkLabel;
    canvas.SetFont(FontTimeItemStyle(style));
    const TSize size = canvas.TextExtent(name);
    const int inner = bar->Height() - items.Bar->InsetTop() - items.Bar->InsetBottom();
    const int top = items.Bar->InsetTop() + (inner - size.Height) / 2;
    const int shownLeft = std::max(bar->Left, area.Left);
    const int shownRight = std::min(bar->Right, area.Right);
    // Not into a diamond, nor across the parts of a split task.
    const bool hasRoom = items.Bar->IsResizable() && Task(index).Parts.empty();
    const bool fits = hasRoom && shownRight - shownLeft >= size.Width + 2 * kLabelPadding
                      && bar->Left > std::numeric_limits<int>::min() / 2;
    if (hasRoom) {
        TzuTimeItemTextCollection &texts = items.Bar->Texts();
        TzuTimeItemText &text =
            texts.GetCount() > 0 ? texts.GetTimeItemText(0) : texts.AddText({}, 0, 0, style);
        text.SetText(fits ? name : std::string());
        text.SetStyle(style);
        // A bar that begins before the area has its name at the area's edge.
        text.SetPos({shownLeft - bar->Left + kLabelPadding, top - items.Bar->InsetTop()});
    }
    if (!fits) {
        const int right = DeadlineBeside(index, *bar) + kOutsideGap;
        const int left = bar->Left - kOutsideGap - size.Width;
        const bool before = right + size.Width > area.Right && left >= area.Left;
        const TPoint at{before ? left : right, bar->Top + top};
        m_outsideLabels.push_back({index, {at.X, at.Y, at.X + size.Width, at.Y + size.Height}});
    }
}

} // namespace korvane::planner
