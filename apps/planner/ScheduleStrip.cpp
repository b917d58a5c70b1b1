#include "ScheduleStrip.h"

#include "ScheduleView.h"
#include "agenda/AgendaDates.h"
#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuXYSizer.h"
#include "foundation/zuRound.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace korvane::planner {

namespace {

constexpr int kRowGap = 3;
constexpr int kDragged = 8; ///< pixels, from which on a rubber band is one
constexpr int kMargin = 2;  ///< above the first row and below the last

} // namespace

ScheduleStrip::ScheduleStrip(ScheduleView &view)
    : ScheduleBoard(&view)
    , m_view(view)
    , m_rows(new QScrollBar(Qt::Vertical, this))
{
    setObjectName(QStringLiteral("AllDayStrip"));
    SetFlipView(true);
    SetScrollVisibility(TScrollVisibility::svNever);
    SetStartSnap(1);
    SetLengthSnap(1);
    SetResizeAllCol(false);
    OnGetDrawingRect = [this](auto *, TzuDataEntity_SchemaTime *time, TRect &rect) {
        rect = RectOfRow(*time).Translated({0, -m_rows->value()});
        return true;
    };
    // Rows hold for the whole page, however much of it is in view.
    OnIsVisible = [](auto *, TzuDataEntity_SchemaTime *, bool &runDefault) {
        runDefault = false;
        return true;
    };
    OnDrawBackground = [this](auto *, const TRect &, TCanvas &canvas) {
        DrawDays(canvas, {SchemaArea().width(), SchemaArea().height()});
    };
    connect(m_rows, &QScrollBar::valueChanged, &SchemaArea(),
            [this] { SchemaArea().Invalidate(); });
    TzuDataEntity_SchemaColumn *column = AddColumn();
    column->SetText(FromQt(Caption()));
    AddDataList();
    Sizer().hide(); // the view's stands for both
    hide();
}

ScheduleStrip::~ScheduleStrip()
{
    OnGetDrawingRect = {};
    OnIsVisible = {};
    OnDrawBackground = {};
}

const SchedulePage &ScheduleStrip::Page() const
{
    return m_view.Page();
}

void ScheduleStrip::Fill(const std::set<Key> &selected)
{
    BeginUpdate();
    DataLists().GetDataList(0)->Clear();
    const std::vector<ScheduleBlock> &blocks = Page().Blocks;
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        const bool isFirst =
            blocks[i].IsAllDay && (i == 0 || blocks[i - 1].Occurrence != blocks[i].Occurrence);
        if (isFirst) {
            const int block = static_cast<int>(i);
            AddTime(0, block, 0, {blocks[i].Start, LastBlockOf(block).Stop});
        }
    }
    SelectKeys(selected);
    UpdateSubColumnsNow();
    EndUpdate();
    Follow();
}

/// The blocks of an occurrence follow each other, a day each.
const ScheduleBlock &ScheduleStrip::LastBlockOf(int first) const
{
    const std::vector<ScheduleBlock> &blocks = Page().Blocks;
    auto last = static_cast<std::size_t>(first);
    while (last + 1 < blocks.size() && blocks[last + 1].Occurrence == blocks[last].Occurrence) {
        ++last;
    }
    return blocks[last];
}

int ScheduleStrip::RowHeight() const
{
    return fontMetrics().height() + 2 + kRowGap;
}

int ScheduleStrip::HeightOfRows() const
{
    const int rows = Columns().GetCol(0).KnownSubColCount();
    return rows * RowHeight() + 2 * kMargin;
}

int ScheduleStrip::LeastHeight() const
{
    return RowHeight() + 2 * kMargin;
}

QString ScheduleStrip::Caption() const
{
    return tr("All day");
}

TRect ScheduleStrip::RectOfRow(const TzuDataEntity_SchemaTime &time) const
{
    const TPixelSpan pixels = PixelsOf(time);
    const int row = time.InSubCol() ? time.SubCol() : 0;
    const int top = kMargin + row * RowHeight();
    return {pixels.From, top, pixels.To, top + RowHeight() - kRowGap};
}

/// Beside the caption, so that it hides no event.
void ScheduleStrip::PlaceScrollBar()
{
    const int axisWidth = Parts().Area.Left;
    const int width = std::min(m_rows->sizeHint().width(), axisWidth);
    m_rows->setGeometry(axisWidth - width, 0, width, height());
    m_rows->setSingleStep(RowHeight());
    m_rows->setPageStep(height());
    m_rows->setRange(0, std::max(HeightOfRows() - height(), 0));
    m_rows->setVisible(m_rows->maximum() > 0);
    m_rows->raise();
    if (Columns().GetCol(0).SavedHeight() != height() - 1) { // for the caption
        Columns().SetColumnSize(true, 0, height() - 1);
    }
}

void ScheduleStrip::ShowActive()
{
    const TzuDataEntity_SchemaTime *active = GetActiveDataEntity();
    if (active == nullptr || isHidden()) {
        return;
    }
    const TRect row = RectOfRow(*active);
    m_rows->setValue(std::clamp(m_rows->value(), row.Bottom + kMargin - height(),
                                std::max(row.Top - kMargin, row.Bottom + kMargin - height())));
    const int last = m_view.Columns().Count() - 1;
    m_view.Columns().MakeColumnVisible(std::clamp(DayOfAxis(active->GetStartDateTime()), 0, last));
    m_view.UpdateColumnScroller();
}

// --- days ----------------------------------------------------------------------------------------

void ScheduleStrip::Follow()
{
    TakeDays();
    SchemaArea().Invalidate();
}

void ScheduleStrip::SchemaPaint()
{
    TakeDays(); // whatever has been done here
    ScheduleBoard::SchemaPaint();
}

void ScheduleStrip::TakeDays()
{
    const TDataListColumns &columns = m_view.Columns();
    const int first = columns.TopLeftCol();
    if (!columns.IsCol(first) || isHidden()) {
        return;
    }
    const int size = std::max(1, columns.GetCol(first).GetWidth_FW(false));
    const TDateTime start = MidnightOf(first);
    const TDateTime stop = start + double(SchemaArea().width()) / size;
    const bool isSame =
        std::abs(ScalerStart() - start) < 1e-6 && std::abs(ScalerStop() - stop) < 1e-6;
    if (!isSame) {
        DateScaler().SetRange(start, stop);
    }
}

void ScheduleStrip::PaintDays(TCanvas &canvas, TSize size)
{
    DrawDays(canvas, size);
    ForEachTime([&](TzuDataEntity_SchemaTime &time) {
        const TRect rect = RectOfRow(time);
        if (rect.Intersects({0, 0, size.Width, size.Height})) {
            DrawBlock(nullptr, &time, rect, canvas);
        }
    });
}

/// The column of a moment, as the axis runs; also beyond the columns.
int ScheduleStrip::DayOfAxis(TDateTime date) const
{
    const AgendaSeconds first = Page().Columns.front().BaseDate;
    return static_cast<int>(DayOf(SecondsOfDate(date)) - DayOf(first));
}

int ScheduleStrip::DateToPixel(TDateTime date) const
{
    const int last = m_view.Columns().Count() - 1;
    if (last < 0) {
        return 0;
    }
    const int day = std::clamp(DayOfAxis(date), 0, last);
    const TPixelSpan pixels = m_view.Columns().VirtualSpan(false, day);
    return pixels.From + RoundToPixel((date - MidnightOf(day)) * pixels.Length());
}

TDateTime ScheduleStrip::PixelToDate(int pixel) const
{
    const int day = std::max(m_view.Columns().VirtualColumnAt(false, pixel), 0);
    if (day >= m_view.Columns().Count()) {
        return 0;
    }
    const TPixelSpan pixels = m_view.Columns().VirtualSpan(false, day);
    return MidnightOf(day) + double(pixel - pixels.From) / std::max(pixels.Length(), 1);
}

TDateTime ScheduleStrip::MidnightOf(int day) const
{
    return DateOfSeconds(Page().Columns[static_cast<std::size_t>(day)].BaseDate);
}

/// Beside the lines between the days.
TPixelSpan ScheduleStrip::PixelsOf(const TzuDataEntity_SchemaTime &time) const
{
    const int last = m_view.Columns().Count() - 1;
    const int from = std::clamp(DayOfAxis(time.GetStartDateTime()), 0, last);
    const int to = std::clamp(DayOfAxis(time.GetStopDateTime()) - 1, from, last);
    return {m_view.Columns().VirtualSpan(false, from).From + 1,
            m_view.Columns().VirtualSpan(false, to).To - 2};
}

void ScheduleStrip::DrawDays(TCanvas &canvas, TSize size)
{
    const auto [width, height] = size;
    canvas.FillRect({0, 0, width, height}, Looks().Back);
    canvas.SetPen({LineColor(), 1, TPenStyle::psSolid});
    for (int col = m_view.Columns().TopLeftCol(); m_view.Columns().IsCol(col); ++col) {
        const int far = m_view.Columns().GetFarSideOffset_FW(false, col);
        canvas.Line({far, 0}, {far, height});
    }
    canvas.Line({0, height - 1}, {width, height - 1});
}

void ScheduleStrip::ApplyLooks(int axisWidth)
{
    ApplyFonts();
    SetSchemaPyjamasColor(Looks().Back);
    TSchemaPartSizes sizes = PartSizes();
    sizes.FlippedHeaderWidth = axisWidth;
    sizes.ScalerHeight = 0;
    SetPartSizes(sizes);
    PlaceScrollBar();
}

// --- what the user wants -------------------------------------------------------------------------

/// Ends that lie on other pages stay where they are.
ScheduleMove ScheduleStrip::MoveOf(const TzuDataEntity_SchemaTime &time, const AgendaRange &times,
                                   int /*col*/) const
{
    const int first = IndexOf(time);
    const ScheduleBlock &block = Page().Blocks[static_cast<std::size_t>(first)];
    const ScheduleBlock &last = LastBlockOf(first);
    const AgendaSeconds startShift = times.From - block.Start;
    const AgendaSeconds stopShift = times.To - last.Stop;
    if (startShift == 0 && stopShift != 0) {
        return {static_cast<int>(&last - Page().Blocks.data()),
                {last.Start, last.Stop + stopShift},
                last.Column};
    }
    return {first,
            {block.Start + startShift, block.Stop + (startShift == stopShift ? stopShift : 0)},
            block.Column};
}

std::optional<ScheduleBoard::NewPlace> ScheduleStrip::PlaceOfPress()
{
    const int day = DayOfAxis(MouseDate());
    if (!m_view.Columns().IsCol(day)) {
        return std::nullopt;
    }
    const AgendaSeconds start = Page().Columns[static_cast<std::size_t>(day)].BaseDate;
    return NewPlace{day, {start, start + kSecondsPerDay}};
}

std::optional<ScheduleBoard::NewPlace> ScheduleStrip::PlaceOfBand(QPoint from, QPoint to)
{
    if (std::abs(to.x() - from.x()) < kDragged) {
        return std::nullopt;
    }
    const auto [first, last] =
        std::minmax({DayOfAxis(MouseDate()), DayOfAxis(PixelToDate(to.x()))});
    if (!m_view.Columns().IsCol(first) || !m_view.Columns().IsCol(last)) {
        return std::nullopt;
    }
    const AgendaSeconds start = Page().Columns[static_cast<std::size_t>(first)].BaseDate;
    return NewPlace{first, {start, start + (last - first + 1) * kSecondsPerDay}};
}

QString ScheduleStrip::TextOf(const NewPlace &place) const
{
    const auto captionOf = [this](AgendaSeconds day) {
        const auto &columns = Page().Columns;
        const auto found = std::ranges::find(columns, day, &ScheduleColumn::BaseDate);
        return found != columns.end() ? found->Caption : QString();
    };
    const QString from = captionOf(place.Times.From);
    const QString to = captionOf(place.Times.To - kSecondsPerDay);
    return from == to ? from : from + QStringLiteral(" – ") + to;
}

bool ScheduleStrip::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Wheel) { // there is nothing to zoom here
        auto *wheel = static_cast<QWheelEvent *>(event);
        const QPoint turn = wheel->angleDelta();
        if (turn.y() != 0 && wheel->modifiers() == Qt::NoModifier && m_rows->maximum() > 0) {
            QCoreApplication::sendEvent(m_rows, event);
        } else {
            m_view.ScrollColumnsByWheel(-(turn.x() != 0 ? turn.x() : turn.y()));
        }
        return true;
    }
    if (event->type() == QEvent::KeyPress) {
        constexpr int kKeysOfTheAxis[] = {Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Plus,
                                          Qt::Key_Minus};
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (std::ranges::find(kKeysOfTheAxis, key) != std::end(kKeysOfTheAxis)) {
            return QCoreApplication::sendEvent(&m_view.SchemaArea(), event);
        }
    }
    return ScheduleBoard::eventFilter(watched, event);
}

} // namespace korvane::planner
