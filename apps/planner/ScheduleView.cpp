#include "ScheduleView.h"

#include "ScheduleStrip.h"
#include "agenda/AgendaDates.h"
#include "foundation/qt/zuConvert.h"
#include "foundation/zuFormat.h"

#include <QEvent>
#include <QFontInfo>

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace korvane::planner {

namespace {

constexpr int kLeastColumnWidth = 120;
constexpr int kLeastLaneWidth = 64;
constexpr int kAxisWidth = 84;
constexpr int kPadding = 4;
constexpr TDateTime kSnap = 1.0 / (24 * 4); // a quarter of an hour
/// Data lists; the first one lies on top.
enum Layer : std::uint8_t { kTimed = 0, kAllDay = 1 };

} // namespace

ScheduleView::ScheduleView(QWidget *parent)
    : ScheduleBoard(parent)
    , m_strip(new ScheduleStrip(*this))
{
    // The axis says the time of day; the page's title and its columns say the date.
    DateScaler().OnUserStringShort = [](TDateTime date, TDateTime, std::string &text, TScalerFont) {
        text = FormatDateTime("hh:nn", date);
    };
    DateScaler().OnUserStringLong = [](TDateTime, TDateTime, std::string &text, TScalerFont) {
        text.clear();
    };
    SetDrawShortLines(true);
    SetLeastSubColWidth(kLeastLaneWidth);
    SetStartSnap(kSnap);
    SetLengthSnap(kSnap);
    OnGetDrawingRect = [this](auto *, TzuDataEntity_SchemaTime *time, TRect &rect) {
        if (time->GetStopDateTime() <= time->GetStartDateTime()) { // so that its title is seen
            rect.Bottom = std::max(rect.Bottom, rect.Top + fontMetrics().height() + kPadding);
        }
        return true;
    };
    connect(m_strip, &ScheduleBoard::moved, this, &ScheduleBoard::moved);
    connect(m_strip, &ScheduleBoard::copied, this, &ScheduleBoard::copied);
    connect(m_strip, &ScheduleBoard::removeWanted, this, &ScheduleBoard::removeWanted);
    connect(m_strip, &ScheduleBoard::editWanted, this, &ScheduleBoard::editWanted);
    connect(m_strip, &ScheduleBoard::newWanted, this, &ScheduleBoard::newWanted);
    // What is selected is selected in one of both.
    OnAfterSelectionChanged = [this](auto *) {
        if (SelectedCount() > 0) {
            m_strip->ClearSelection();
        }
    };
    m_strip->OnAfterSelectionChanged = [this](auto *) {
        if (m_strip->SelectedCount() > 0) {
            ClearSelection();
        }
    };
    ApplyLooks();
}

std::optional<ScheduleBoard::NewPlace> ScheduleView::PlaceOfPress()
{
    constexpr AgendaSeconds kUsualLength = 3600;
    constexpr AgendaSeconds kGrid = 1800;
    const int column = ClickedColumn();
    if (column < 0) {
        return std::nullopt;
    }
    const AgendaSeconds at = SecondsOfDate(MouseDate() + MouseColumn()->BaseDate);
    const AgendaSeconds start = at / kGrid * kGrid;
    return NewPlace{column, {start, start + kUsualLength}};
}

/// A rubber band that holds nothing, within a column.
std::optional<ScheduleBoard::NewPlace> ScheduleView::PlaceOfBand(QPoint from, QPoint to)
{
    constexpr int kDragged = 8; // pixels
    const int column = ClickedColumn();
    if (column < 0 || PixelToColumn(to.x()) != column || std::abs(to.y() - from.y()) < kDragged) {
        return std::nullopt;
    }
    const auto snapped = [&](TDateTime date) {
        constexpr AgendaSeconds kGrid = 900;
        return (SecondsOfDate(date + Columns().GetCol(column).BaseDate) + kGrid / 2) / kGrid
               * kGrid;
    };
    const auto [start, stop] =
        std::minmax({snapped(MouseDate()), snapped(DateScaler().PixelToDate(to.y()))});
    return start < stop ? std::optional(NewPlace{column, {start, stop}}) : std::nullopt;
}

void ScheduleView::SetEditable(bool on)
{
    ScheduleBoard::SetEditable(on);
    m_strip->SetEditable(on);
}

std::vector<int> ScheduleView::SelectedBlocks()
{
    std::vector<int> blocks = ScheduleBoard::SelectedBlocks();
    const std::vector<int> others = m_strip->SelectedBlocks();
    blocks.insert(blocks.end(), others.begin(), others.end());
    return blocks;
}

bool ScheduleView::SelectEvents(const std::vector<int> &events)
{
    return ScheduleBoard::SelectEvents(events) || m_strip->SelectEvents(events);
}

int ScheduleView::TargetColumn()
{
    if (ClickedColumn() >= 0 && PressedTime() == nullptr) {
        return ClickedColumn();
    }
    const auto *active = GetActiveDataEntity();
    return active != nullptr && IsInColumn(*active) ? active->Col() : 0;
}

ScheduleView::~ScheduleView()
{
    OnGetDrawingRect = {};
    OnAfterSelectionChanged = {};
    delete m_strip; // which looks at this
}

void ScheduleView::Show(SchedulePage page)
{
    BeginUpdate();
    Fill(std::move(page));
    DateScaler().SetRange(DateOfSeconds(FirstDate() + m_page.Axis.From),
                          DateOfSeconds(FirstDate() + m_page.Axis.To));
    SizeColumns();
    Columns().SetTopLeftCol(0);
    UpdateSubColumnsNow(); // so that nothing jumps
    EndUpdate();
    FillStrip({});
}

void ScheduleView::Update(SchedulePage page)
{
    const std::set<Key> selected = SelectedKeys();
    const auto inStrip = m_strip->SelectedKeys();
    const int first = Columns().TopLeftCol();
    const bool sameColumns = page.Columns.size() == m_page.Columns.size();
    std::vector<int> widths;
    for (int i = 0; i < Columns().Count(); ++i) {
        widths.push_back(Columns().GetCol(i).SavedWidth());
    }
    BeginUpdate();
    Fill(std::move(page));
    SizeColumns();
    for (int i = 0; sameColumns && i < Columns().Count(); ++i) {
        Columns().SetColumnSize(false, i, widths[static_cast<std::size_t>(i)]);
    }
    Columns().SetTopLeftCol(first);
    SelectKeys(selected);
    UpdateSubColumnsNow();
    EndUpdate();
    FillStrip(inStrip);
}

std::vector<int> ScheduleView::SelectedOfAll()
{
    std::vector<int> blocks;
    for (TSchemaSelection *part :
         {static_cast<TSchemaSelection *>(this), static_cast<TSchemaSelection *>(m_strip)}) {
        for (const TzuDataEntity_SchemaTime *time : part->SelectedTimes()) {
            blocks.push_back(IndexOf(*time));
        }
    }
    return blocks;
}

void ScheduleView::SelectBlocks(const std::vector<int> &blocks)
{
    ForEachTime([&](TzuDataEntity_SchemaTime &time) {
        time.SetSelected(std::ranges::find(blocks, IndexOf(time)) != blocks.end());
    });
}

/// Columns and times of the page, in place of those before.
void ScheduleView::Fill(SchedulePage page)
{
    for (const Layer layer : {kTimed, kAllDay}) {
        while (DataLists().Count() <= layer) {
            AddDataList();
        }
        DataLists().GetDataList(layer)->Clear();
    }
    m_page = std::move(page);
    Columns().BeginUpdate();
    ClearColumns();
    // The axis runs through the first column's day; the others are laid over it.
    const AgendaSeconds first = FirstDate();
    for (const ScheduleColumn &column : m_page.Columns) {
        TzuDataEntity_SchemaColumn *added = AddColumn();
        added->BaseDate = DateOfSeconds(column.BaseDate - first) - kAgendaEpoch;
        added->SetText(FromQt(column.Caption));
    }
    Columns().EndUpdate();
    const bool hasAllDay = std::ranges::any_of(m_page.Blocks, &ScheduleBlock::IsAllDay);
    m_hasStrip = m_wantsStrip && m_page.HasDays && (hasAllDay || IsEditable());
    for (std::size_t i = 0; i < m_page.Blocks.size(); ++i) {
        const ScheduleBlock &block = m_page.Blocks[i];
        if (block.IsAllDay && m_hasStrip) {
            continue;
        }
        TzuDataEntity_SchemaTime &time =
            AddTime(block.IsAllDay ? kAllDay : kTimed, static_cast<int>(i), block.Column,
                    {block.Start, block.Stop});
        time.SetNearMargin(1);
        time.SetFarMargin(2);
    }
}

// --- the strip -----------------------------------------------------------------------------------

/// Below the captions, which keep their height; its own is that of its rows.
void ScheduleView::FillStrip(const std::set<Key> &selected)
{
    m_strip->setVisible(m_hasStrip);
    const int captions = Header().sizeHint().height();
    Header().setMaximumHeight(m_hasStrip ? captions : QWIDGETSIZE_MAX);
    TSchemaPartSizes sizes = PartSizes();
    sizes.HeaderHeight = captions;
    if (m_hasStrip) {
        m_strip->Fill(selected);
        sizes.HeaderHeight += std::min(m_strip->HeightOfRows(), height() / 3);
    }
    SetPartSizes(sizes);
    PlaceStrip();
}

void ScheduleView::PlaceStrip()
{
    if (m_hasStrip) {
        const int top = Header().maximumHeight();
        m_strip->setGeometry(0, top, width(), std::max(0, Parts().Area.Top - top));
        m_strip->ApplyLooks(Parts().Area.Left);
        m_strip->Follow();
    }
}

void ScheduleView::SchemaPaint()
{
    ScheduleBoard::SchemaPaint();
    PlaceStrip(); // columns may have been scrolled or resized, or the corner dragged
}

bool ScheduleView::InGrowArea(TzuDataEntity_SchemaTime &time, int x, int y, TRect &rect,
                              bool &atStart) const
{
    return !BlockOf(time).IsAllDay && ScheduleBoard::InGrowArea(time, x, y, rect, atStart);
}

/// As wide as there is room for, but never too narrow to be read.
void ScheduleView::SizeColumns()
{
    const int count = Columns().Count();
    if (count == 0) {
        return;
    }
    const int room = std::max(0, width() - kAxisWidth);
    const int size = std::max(kLeastColumnWidth, room / count);
    Columns().SetDefaultWidth(size);
    for (int i = 0; i < count; ++i) {
        const bool isLast = i == count - 1 && size > kLeastColumnWidth;
        Columns().SetColumnSize(false, i, isLast ? room - size * (count - 1) : size);
    }
}

void ScheduleView::ApplyLooks()
{
    ApplyFonts();
    const ChartLooks &looks = Looks();
    SetSchemaPyjamasColor(Mixed(looks.Header, looks.Back, 0.5));
    SetShortLineColor(Mixed(looks.Text, looks.Back, 0.1));
    DateScaler().SetColor(looks.Header);
    SetScalerWidth(kAxisWidth);
    TFont font = FromQt(this->font());
    font.Size = std::max(7, QFontInfo(this->font()).pointSize() - 1);
    font.Color = looks.Text;
    DateScaler().SetTextFont1(font);
    DateScaler().SetTextFont2(font);
    DateScaler().SetTextFont3(font);
}

void ScheduleView::changeEvent(QEvent *event)
{
    ScheduleBoard::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
        ApplyLooks();
    }
}

void ScheduleView::resizeEvent(QResizeEvent *event)
{
    ScheduleBoard::resizeEvent(event);
    SizeColumns();
    PlaceStrip();
}

} // namespace korvane::planner
