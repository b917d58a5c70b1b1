#include "ScheduleView.h"

#include "ScheduleStrip.h"
#include "StripEdge.h"
#include "agenda/AgendaDates.h"
#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuXYSizer.h"
#include "foundation/zuFormat.h"

#include <QEvent>
#include <QFontInfo>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <numeric>
#include <vector>

namespace korvane::planner {

namespace {

constexpr int kLeastColumnWidth = 120;
constexpr int kLeastLaneWidth = 64;
constexpr int kAxisWidth = 84;
constexpr int kLeastTimesHeight = 60;       ///< left below the strip
constexpr TDateTime kSnap = 1.0 / (24 * 4); // a quarter of an hour
/// Data lists; the first one lies on top.
enum Layer : std::uint8_t { kTimed = 0, kAllDay = 1 };

/// Makes the smaller ones larger, all alike, until there is no room left.
void ShareRoom(std::vector<int> &sizes, int room)
{
    std::vector<std::size_t> order(sizes.size());
    std::iota(order.begin(), order.end(), 0U);
    std::ranges::stable_sort(order, std::greater(), [&](std::size_t i) { return sizes[i]; });
    int left = static_cast<int>(sizes.size());
    for (const std::size_t i : order) {
        sizes[i] = std::max(sizes[i], room / left);
        room = std::max(room - sizes[i], 0);
        --left;
    }
}

} // namespace

ScheduleView::ScheduleView(QWidget *parent)
    : ScheduleBoard(parent)
    , m_strip(new ScheduleStrip(*this))
    , m_edge(new StripEdge(this))
{
    // The axis says the time of day; the page's title and its columns say the date.
    DateScaler().OnUserStringShort = [](TDateTime date, TDateTime, std::string &text, TScalerFont) {
        text = FormatDateTime("hh:nn", date);
    };
    DateScaler().OnUserStringLong = [](TDateTime, TDateTime, std::string &text, TScalerFont) {
        text.clear();
    };
    TSchemaPartSizes sizes = PartSizes();
    sizes.ScalerWidth = kAxisWidth;
    SetPartSizes(sizes);
    SetDrawShortLines(true);
    SetLeastSubColWidth(kLeastLaneWidth);
    SetStartSnap(kSnap);
    SetLengthSnap(kSnap);
    SetSnapMovedEndsOnly(true);
    OnUserDecideColSize = [this](auto *, auto *, auto *, int, int &size) { m_userWidth = size; };
    connect(m_edge, &StripEdge::moved, this,
            [this](int y) { KeepStripHeight(y - Header().maximumHeight()); });
    connect(m_edge, &StripEdge::fitWanted, this, [this] { KeepStripHeight({}); });
    connect(&Sizer(), &TXYSizer::resized, this, [this](QPoint delta) {
        if (m_hasStrip && delta.y() != 0) {
            KeepStripHeight(PartSizes().HeaderHeight - Header().maximumHeight());
        }
    });
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
            m_strip->ShowActive();
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
    const auto [start, stop] = std::minmax({snapped(MouseDate()), snapped(PixelToDate(to.y()))});
    return start < stop ? std::optional(NewPlace{column, {start, stop}}) : std::nullopt;
}

/// "13:00 – 14:30"
QString ScheduleView::TextOf(const NewPlace &place) const
{
    return TimesText(place.Times.From, place.Times.To);
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
    OnAfterSelectionChanged = {};
    OnUserDecideColSize = {};
    delete m_strip; // which looks at this
}

void ScheduleView::Show(SchedulePage page)
{
    BeginUpdate();
    Fill(std::move(page));
    DateScaler().SetRange(DateOfSeconds(FirstDate() + m_page.Axis.From),
                          DateOfSeconds(FirstDate() + m_page.Axis.To));
    UpdateSubColumnsNow(); // so that nothing jumps
    SizeColumns();
    Columns().SetTopLeftCol(0);
    EndUpdate();
    FillStrip({});
}

void ScheduleView::ForgetSizes()
{
    m_userWidth = 0;
    m_stripHeight.reset();
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
    UpdateSubColumnsNow();
    Columns().SetTopLeftCol(first);
    SelectKeys(selected);
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

/// Below the captions, which keep their height.
void ScheduleView::FillStrip(const std::set<Key> &selected)
{
    m_strip->setVisible(m_hasStrip);
    m_edge->setVisible(m_hasStrip);
    if (m_hasStrip) {
        m_strip->Fill(selected);
    }
    SizeStrip();
}

/// As high as its rows, within reason, or as the user has made it.
void ScheduleView::SizeStrip()
{
    const int captions = Header().sizeHint().height();
    Header().setMaximumHeight(m_hasStrip ? captions : QWIDGETSIZE_MAX);
    TSchemaPartSizes sizes = PartSizes();
    sizes.HeaderHeight = captions;
    if (m_hasStrip) {
        const int usual = std::min(m_strip->HeightOfRows(), height() / 3);
        const int most = std::max(height() - captions - kLeastTimesHeight, 0);
        sizes.HeaderHeight +=
            std::min(std::max(m_stripHeight.value_or(usual), m_strip->LeastHeight()), most);
    }
    SetPartSizes(sizes);
    PlaceStrip();
}

void ScheduleView::KeepStripHeight(std::optional<int> height)
{
    m_stripHeight = height;
    SizeStrip();
}

void ScheduleView::PlaceStrip()
{
    if (m_hasStrip) {
        const int top = Header().maximumHeight();
        const int bottom = Parts().Area.Top;
        m_strip->setGeometry(0, top, width(), std::max(0, bottom - top));
        m_strip->ApplyLooks(Parts().Area.Left);
        m_strip->Follow();
        m_edge->PlaceAt(bottom);
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

/// As wide as its lanes need, so that it can be read, but not beyond what is seen at once.
int ScheduleView::LeastWidthOf(int column, int room) const
{
    const int lanes = Columns().GetCol(column).KnownSubColCount();
    return std::max(kLeastColumnWidth, std::min(lanes * kLeastLaneWidth, room));
}

/// Columns share the room equally, as far as those with many lanes do not need more of it. Once the
/// user has sized them they are as he wants them.
void ScheduleView::SizeColumns()
{
    const int count = Columns().Count();
    if (count == 0) {
        return;
    }
    const int room = std::max(0, width() - PartSizes().ScalerWidth);
    std::vector<int> sizes(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        sizes[static_cast<std::size_t>(i)] = LeastWidthOf(i, room);
    }
    if (m_userWidth > 0) {
        std::ranges::transform(sizes, sizes.begin(), [this](int size) {
            return size > kLeastColumnWidth ? std::max(size, m_userWidth) : m_userWidth;
        });
    } else {
        ShareRoom(sizes, room);
        Columns().SetDefaultWidth(*std::ranges::min_element(sizes));
    }
    Columns().BeginUpdate();
    for (int i = 0; i < count; ++i) {
        Columns().SetColumnSize(false, i, sizes[static_cast<std::size_t>(i)]);
    }
    Columns().EndUpdate();
}

void ScheduleView::ApplyLooks()
{
    ApplyFonts();
    SetLeastTimeLength(TitleHeight());
    const ChartLooks &looks = Looks();
    SetSchemaPyjamasColor(Mixed(looks.Header, looks.Back, 0.5));
    SetShortLineColor(Mixed(looks.Text, looks.Back, 0.1));
    DateScaler().SetColor(looks.Header);
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
