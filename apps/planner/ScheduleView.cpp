#include "ScheduleView.h"

#include "agenda/AgendaDates.h"
#include "foundation/qt/zuConvert.h"
#include "foundation/zuFormat.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <tuple>

namespace korvane::planner {

namespace {

constexpr int kLeastColumnWidth = 120;
constexpr int kLeastLaneWidth = 64;
constexpr int kAxisWidth = 84;
constexpr int kBarWidth = 3;
constexpr int kPadding = 4;
constexpr TDateTime kSnap = 1.0 / (24 * 4); // a quarter of an hour
/// Data lists; the first one lies on top.
enum Layer : std::uint8_t { kTimed = 0, kAllDay = 1 };

/// Colours of equal weight, for what has none of its own.
constexpr TColor kHues[] = {Rgb(0x3B, 0x7D, 0xD8), Rgb(0x2F, 0x9E, 0x77), Rgb(0xC2, 0x7A, 0x2C),
                            Rgb(0x8E, 0x5B, 0xC0), Rgb(0xC4, 0x50, 0x6B), Rgb(0x2E, 0x93, 0xA8),
                            Rgb(0x7C, 0x8A, 0x2E), Rgb(0x6B, 0x76, 0x85)};

TColor Mixed(TColor color, TColor base, double share)
{
    TColor mixed = 0;
    for (const unsigned shift : {0U, 8U, 16U}) {
        const double part = (color >> shift & 0xFF) * share + (base >> shift & 0xFF) * (1 - share);
        mixed |= static_cast<TColor>(part + 0.5) << shift;
    }
    return mixed;
}

/// The text in lines of a width, at most so many; the last one may end in an ellipsis.
QStringList Wrapped(const QString &text, const QFontMetrics &metrics, int width, int lines)
{
    QStringList result;
    QString line;
    for (const QString &word : text.split(u' ', Qt::SkipEmptyParts)) {
        const QString longer = line.isEmpty() ? word : line + u' ' + word;
        if (line.isEmpty() || metrics.horizontalAdvance(longer) <= width) {
            line = longer;
            continue;
        }
        result.append(std::exchange(line, word));
    }
    result.append(line);
    if (result.size() > lines) {
        const QString rest = result.mid(lines - 1).join(u' ');
        result = result.mid(0, lines - 1);
        result.append(rest);
    }
    for (QString &one : result) {
        one = metrics.elidedText(one, Qt::ElideRight, width);
    }
    return result;
}

} // namespace

ScheduleView::ScheduleView(QWidget *parent)
    : TzuSchema(parent)
    , m_looks(palette())
{
    setFrameShape(QFrame::NoFrame);
    // The axis says the time of day; the page's title and its columns say the date.
    DateScaler().OnUserStringShort = [](TDateTime date, TDateTime, std::string &text, TScalerFont) {
        text = FormatDateTime("hh:nn", date);
    };
    DateScaler().OnUserStringLong = [](TDateTime, TDateTime, std::string &text, TScalerFont) {
        text.clear();
    };
    SetDrawShortLines(true);
    SetLeastSubColWidth(kLeastLaneWidth);
    OnDrawTimeContent = TOnDrawTimeContent::Bind<&ScheduleView::DrawBlock>(this);
    SetMoveInTimeWhenColSwitch(true);
    SetStartSnap(kSnap);
    SetLengthSnap(kSnap);
    OnBeforeCanEditItem_SchemaTime = [this](auto *, TzuDataEntity *time) {
        time->SetCanEdit(m_isEditable && BlockOf(DataEntity_Schema(*time)).Occurrence >= 0);
    };
    OnGetDrawingRect = [this](auto *, TzuDataEntity_SchemaTime *time, TRect &rect) {
        if (time->GetStopDateTime() <= time->GetStartDateTime()) { // so that its title is seen
            rect.Bottom = std::max(rect.Bottom, rect.Top + fontMetrics().height() + kPadding);
        }
        return true;
    };
    ServeUser();
    SchemaArea().installEventFilter(this);
    ApplyLooks();
}

void ScheduleView::ServeUser()
{
    OnTimeCopy = [this](auto *, TzuDataEntity_SchemaTime *time, int col, TDateTime start,
                        TDateTime stop) {
        m_copies.push_back({IndexOf(*time), {SecondsOfDate(start), SecondsOfDate(stop)}, col});
    };
    OnEndUserChange = [this](auto *, TSchemaUserChange kind, bool changed) {
        if (kind == TSchemaUserChange::ucCopy) {
            Later([this, copies = std::exchange(m_copies, {})] { Q_EMIT copied(copies); });
        } else if (changed) {
            Later([this] { Q_EMIT moved(Moves()); });
        }
    };
    OnAskDelete = [this](auto *, const std::vector<TzuDataEntity_SchemaTime *> & /*times*/,
                         bool &allow) {
        allow = false; // the document takes them away, when the user has said which ones
        Later([this] { Q_EMIT removeWanted(SelectedBlocks()); });
    };
    OnSchemaDblClick = [this](auto *, TzuDataEntity_SchemaTime *time) {
        constexpr AgendaSeconds kUsualLength = 3600;
        constexpr AgendaSeconds kGrid = 1800;
        if (time != nullptr && time->GetCanEdit()) {
            Later([this, block = IndexOf(*time)] { Q_EMIT editWanted(block); });
        } else if (const int column = ClickedColumn();
                   time == nullptr && m_isEditable && column >= 0) {
            const AgendaSeconds at = SecondsOfDate(MouseDate() + MouseColumn()->BaseDate);
            const AgendaSeconds start = at / kGrid * kGrid;
            Later([this, column, start] {
                Q_EMIT newWanted(column, {start, start + kUsualLength});
            });
        }
    };
    OnSchemaMouseDown = [this](auto *, TMouseButton button, TShiftState shift, int x, int y) {
        m_pressedAt = {x, y};
        m_pressedBeside =
            button == TMouseButton::mbLeft && PressedTime() == nullptr && shift == TShiftState{};
    };
    OnSchemaMouseUp = [this](auto *, TMouseButton, TShiftState, int x, int y) {
        if (std::exchange(m_pressedBeside, false) && m_isEditable && SelectedCount() == 0) {
            NoteRelease(x, y);
        }
    };
}

/// A rubber band that holds nothing, within a column, is a new event.
void ScheduleView::NoteRelease(int x, int y)
{
    constexpr int kDragged = 8; // pixels
    const int column = ClickedColumn();
    if (column < 0 || PixelToColumn(x) != column || std::abs(y - m_pressedAt.y()) < kDragged) {
        return;
    }
    const auto snapped = [&](TDateTime date) {
        constexpr AgendaSeconds kGrid = 900;
        return (SecondsOfDate(date + Columns().GetCol(column).BaseDate) + kGrid / 2) / kGrid
               * kGrid;
    };
    const auto [from, to] =
        std::minmax({snapped(MouseDate()), snapped(DateScaler().PixelToDate(y))});
    if (from < to) {
        Later([this, column, times = AgendaRange{from, to}] { Q_EMIT newWanted(column, times); });
    }
}

std::vector<int> ScheduleView::SelectedBlocks()
{
    std::vector<int> blocks;
    for (const TzuDataEntity_SchemaTime *time : SelectedTimes()) {
        if (BlockOf(*time).Occurrence >= 0) {
            blocks.push_back(IndexOf(*time));
        }
    }
    return blocks;
}

void ScheduleView::SelectEvents(const std::vector<int> &events)
{
    ClearSelection();
    TzuDataEntity_SchemaTime *first = nullptr;
    ForEachTime([&](TzuDataEntity_SchemaTime &time) {
        const int occurrence = BlockOf(time).Occurrence;
        const bool isMeant =
            occurrence >= 0
            && std::ranges::find(events,
                                 m_page.Occurrences[static_cast<std::size_t>(occurrence)].Event)
                   != events.end();
        if (isMeant) {
            time.SetSelected(true);
            first = first == nullptr ? &time : first;
        }
    });
    if (first != nullptr) {
        SetActiveDataEntity(first);
        MakeSureInView(*first);
    }
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
    OnDrawTimeContent = {};
    OnGetDrawingRect = {};
}

template <typename Visit>
void ScheduleView::ForEachTime(const Visit &visit)
{
    for (int list = 0; list < DataLists().Count(); ++list) {
        TzuDataList &times = *DataLists().GetDataList(list);
        for (int i = 0; i < times.Count(); ++i) {
            visit(DataEntity_Schema(*times.GetItems(i)));
        }
    }
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
}

void ScheduleView::Update(SchedulePage page)
{
    using Key = std::tuple<int, AgendaSeconds, AgendaSeconds, QString>;
    const auto keyOf = [this](const TzuDataEntity_SchemaTime &time) {
        return Key(time.Col(), SecondsOfDate(time.GetStartDateTime()),
                   SecondsOfDate(time.GetStopDateTime()), BlockOf(time).Title);
    };
    std::set<Key> selected;
    ForEachTime([&](const TzuDataEntity_SchemaTime &time) {
        if (time.GetSelected()) {
            selected.insert(keyOf(time));
        }
    });
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
    ForEachTime([&](TzuDataEntity_SchemaTime &time) {
        if (selected.contains(keyOf(time))) {
            time.SetSelected(true);
            SetActiveDataEntity(&time);
        }
    });
    UpdateSubColumnsNow();
    EndUpdate();
}

std::vector<int> ScheduleView::SelectedOfAll()
{
    std::vector<int> blocks;
    for (const TzuDataEntity_SchemaTime *time : SelectedTimes()) {
        blocks.push_back(IndexOf(*time));
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
    for (std::size_t i = 0; i < m_page.Blocks.size(); ++i) {
        const ScheduleBlock &block = m_page.Blocks[i];
        TzuDataEntity_SchemaTime *time = AddSchemaTime(block.IsAllDay ? kAllDay : kTimed);
        time->SetUserReference(reinterpret_cast<void *>(i + 1));
        time->SetCol(block.Column);
        time->SetStartDateTime(DateOfSeconds(block.Start));
        time->SetStopDateTime(DateOfSeconds(block.Stop));
        time->SetNearMargin(1);
        time->SetFarMargin(2);
    }
}

std::vector<ScheduleMove> ScheduleView::Moves()
{
    std::vector<ScheduleMove> moves;
    ForEachTime([&](const TzuDataEntity_SchemaTime &time) {
        const ScheduleBlock &block = BlockOf(time);
        const AgendaRange times{SecondsOfDate(time.GetStartDateTime()),
                                SecondsOfDate(time.GetStopDateTime())};
        if (times != AgendaRange{block.Start, block.Stop} || time.Col() != block.Column) {
            moves.push_back({IndexOf(time), times, time.Col()});
        }
    });
    return moves;
}

bool ScheduleView::InGrowArea(TzuDataEntity_SchemaTime &time, int x, int y, TRect &rect,
                              bool &atStart) const
{
    return !BlockOf(time).IsAllDay && TzuSchema::InGrowArea(time, x, y, rect, atStart);
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
    m_looks = ChartLooks(palette());
    SetSchemaColor(m_looks.Back);
    SetSchemaPyjamasColor(Mixed(m_looks.Header, m_looks.Back, 0.5));
    SetLineColor(Mixed(m_looks.Text, m_looks.Back, 0.22));
    SetShortLineColor(Mixed(m_looks.Text, m_looks.Back, 0.1));
    DateScaler().SetColor(m_looks.Header);
    SetScalerWidth(kAxisWidth);
    TFont font = FromQt(this->font());
    font.Size = std::max(7, QFontInfo(this->font()).pointSize());
    font.Color = m_looks.Text;
    m_titleFont = font;
    m_titleFont.Bold = true;
    m_detailFont = font;
    m_detailFont.Color = m_looks.MutedText;
    font.Size = std::max(7, font.Size - 1);
    DateScaler().SetTextFont1(font);
    DateScaler().SetTextFont2(font);
    DateScaler().SetTextFont3(font);
    SchemaArea().Invalidate();
}

const ScheduleBlock &ScheduleView::BlockOf(const TzuDataEntity_SchemaTime &time) const
{
    const auto place = reinterpret_cast<std::uintptr_t>(time.GetUserReference());
    return m_page.Blocks[place - 1];
}

void ScheduleView::DrawBlock(TzuSchema_ComBasic * /*schema*/, TzuDataEntity_SchemaTime *time,
                             const TRect &rect, TCanvas &canvas)
{
    const ScheduleBlock &block = BlockOf(*time);
    const TColor color = block.Color.value_or(kHues[block.Hue % std::size(kHues)]);
    const bool isDark = NeedsLightText({m_looks.Back});
    const double share = block.IsAllDay ? 0.13 : isDark ? 0.38 : 0.22;
    const TColor fill = Mixed(color, m_looks.Back, block.IsCanceled ? share / 2 : share);
    canvas.FillRect(rect, fill);
    canvas.FillRect({rect.Left, rect.Top, std::min(rect.Left + kBarWidth, rect.Right), rect.Bottom},
                    block.IsAllDay || block.IsCanceled ? Mixed(color, m_looks.Back, 0.5) : color);
    if (rect.Bottom - rect.Top > kBarWidth) { // apart from what follows at once
        canvas.FillRect({rect.Left, rect.Bottom - 1, rect.Right, rect.Bottom}, m_looks.Back);
    }
    DrawTexts(block,
              {rect.Left + kBarWidth + kPadding, std::max(rect.Top, 0) + 2, rect.Right - 2,
               rect.Bottom - 1},
              canvas);
}

void ScheduleView::DrawTexts(const ScheduleBlock &block, const TRect &rect, TCanvas &canvas)
{
    const int width = rect.Right - rect.Left;
    int y = rect.Top;
    const auto draw = [&](const QString &text, TFont font) {
        font.StrikeOut = block.IsCanceled;
        const QFontMetrics metrics(ToQt(font));
        const int height = metrics.height();
        const int lines = std::max(y == rect.Top ? 1 : 0, (rect.Bottom - y) / height);
        if (text.isEmpty() || lines == 0 || width < 2 * kPadding) {
            return;
        }
        canvas.SetFont(font);
        for (const QString &line : Wrapped(text, metrics, width, lines)) {
            canvas.TextRect(rect, {rect.Left, y}, FromQt(line));
            y += height;
        }
    };
    draw(block.Title, m_titleFont);
    draw(block.Detail, m_detailFont);
}

void ScheduleView::changeEvent(QEvent *event)
{
    TzuSchema::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
        ApplyLooks();
    }
}

void ScheduleView::resizeEvent(QResizeEvent *event)
{
    TzuSchema::resizeEvent(event);
    SizeColumns();
}

bool ScheduleView::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        m_pressedBeside = false; // the rubber band is given up
    }
    if (event->type() != QEvent::ToolTip) {
        return TzuSchema::eventFilter(watched, event);
    }
    const auto *help = static_cast<QHelpEvent *>(event);
    const auto *time = GetDataEntityFromXY(help->pos().x(), help->pos().y());
    QToolTip::showText(help->globalPos(), time != nullptr ? BlockOf(*time).ToolTip : QString(),
                       &SchemaArea());
    return true;
}

} // namespace korvane::planner
