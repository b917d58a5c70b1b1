#include "ScheduleBoard.h"

#include "agenda/AgendaDates.h"
#include "foundation/qt/zuConvert.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>

#include <algorithm>
#include <cstdint>
#include <set>

namespace korvane::planner {

namespace {

constexpr int kBarWidth = 3;
constexpr int kPadding = 4;

/// Colours of equal weight, for what has none of its own.
constexpr TColor kHues[] = {Rgb(0x3B, 0x7D, 0xD8), Rgb(0x2F, 0x9E, 0x77), Rgb(0xC2, 0x7A, 0x2C),
                            Rgb(0x8E, 0x5B, 0xC0), Rgb(0xC4, 0x50, 0x6B), Rgb(0x2E, 0x93, 0xA8),
                            Rgb(0x7C, 0x8A, 0x2E), Rgb(0x6B, 0x76, 0x85)};

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

TColor Mixed(TColor color, TColor base, double share)
{
    TColor mixed = 0;
    for (const unsigned shift : {0U, 8U, 16U}) {
        const double part = (color >> shift & 0xFF) * share + (base >> shift & 0xFF) * (1 - share);
        mixed |= static_cast<TColor>(part + 0.5) << shift;
    }
    return mixed;
}

ScheduleBoard::ScheduleBoard(QWidget *parent)
    : TzuSchema(parent)
    , m_looks(palette())
{
    setFrameShape(QFrame::NoFrame);
    OnDrawTimeContent = TOnDrawTimeContent::Bind<&ScheduleBoard::DrawBlock>(this);
    SetMoveInTimeWhenColSwitch(true);
    SetSubColsInListOrder(true);
    SetShowBigONOFF(false); // the tooltip says more
    OnBeforeCanEditItem_SchemaTime = [this](auto *, TzuDataEntity *time) {
        time->SetCanEdit(m_isEditable && BlockOf(DataEntity_Schema(*time)).Occurrence >= 0);
    };
    ServeUser();
    SchemaArea().installEventFilter(this);
    ApplyFonts();
}

ScheduleBoard::~ScheduleBoard()
{
    OnDrawTimeContent = {};
}

void ScheduleBoard::ServeUser()
{
    OnTimeCopy = [this](auto *, TzuDataEntity_SchemaTime *time, int col, TDateTime start,
                        TDateTime stop) {
        m_copies.push_back(MoveOf(*time, {SecondsOfDate(start), SecondsOfDate(stop)}, col));
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
        if (time != nullptr && time->GetCanEdit()) {
            Later([this, block = IndexOf(*time)] { Q_EMIT editWanted(block); });
        } else if (time == nullptr && m_isEditable) {
            WantNew(PlaceOfPress());
        }
    };
    OnSchemaMouseDown = [this](auto *, TMouseButton button, TShiftState shift, int x, int y) {
        m_pressedAt = {x, y};
        m_pressedBeside =
            button == TMouseButton::mbLeft && PressedTime() == nullptr && shift == TShiftState{};
    };
    OnSchemaMouseMove = [this](auto *, TShiftState, int x, int y) {
        if (m_pressedBeside && m_isEditable && SelectedCount() == 0) {
            const auto place = PlaceOfBand(m_pressedAt, {x, y});
            QToolTip::showText(SchemaArea().mapToGlobal(QPoint(x, y)),
                               place ? TextOf(*place) : QString(), &SchemaArea());
        }
    };
    OnSchemaMouseUp = [this](auto *, TMouseButton, TShiftState, int x, int y) {
        if (std::exchange(m_pressedBeside, false) && m_isEditable && SelectedCount() == 0) {
            WantNew(PlaceOfBand(m_pressedAt, {x, y}));
        }
    };
}

void ScheduleBoard::WantNew(const std::optional<NewPlace> &place)
{
    if (place) {
        Later([this, place] { Q_EMIT newWanted(place->Column, place->Times); });
    }
}

std::vector<int> ScheduleBoard::SelectedBlocks()
{
    std::vector<int> blocks;
    for (const TzuDataEntity_SchemaTime *time : SelectedTimes()) {
        if (BlockOf(*time).Occurrence >= 0) {
            blocks.push_back(IndexOf(*time));
        }
    }
    return blocks;
}

bool ScheduleBoard::SelectEvents(const std::vector<int> &events)
{
    ClearSelection();
    TzuDataEntity_SchemaTime *first = nullptr;
    ForEachTime([&](TzuDataEntity_SchemaTime &time) {
        const int occurrence = BlockOf(time).Occurrence;
        const bool isMeant =
            occurrence >= 0
            && std::ranges::find(events,
                                 Page().Occurrences[static_cast<std::size_t>(occurrence)].Event)
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
    return first != nullptr;
}

std::vector<ScheduleMove> ScheduleBoard::Moves()
{
    std::vector<ScheduleMove> moves;
    ForEachTime([&](const TzuDataEntity_SchemaTime &time) {
        const AgendaRange times{SecondsOfDate(time.GetStartDateTime()),
                                SecondsOfDate(time.GetStopDateTime())};
        const ScheduleMove move = MoveOf(time, times, time.Col());
        const ScheduleBlock &block = Page().Blocks[static_cast<std::size_t>(move.Block)];
        if (move.Times != AgendaRange{block.Start, block.Stop} || move.Column != block.Column) {
            moves.push_back(move);
        }
    });
    return moves;
}

std::set<ScheduleBoard::Key> ScheduleBoard::SelectedKeys()
{
    std::set<Key> keys;
    for (const TzuDataEntity_SchemaTime *time : SelectedTimes()) {
        keys.emplace(time->Col(), SecondsOfDate(time->GetStartDateTime()),
                     SecondsOfDate(time->GetStopDateTime()), BlockOf(*time).Title);
    }
    return keys;
}

void ScheduleBoard::SelectKeys(const std::set<Key> &keys)
{
    ForEachTime([&](TzuDataEntity_SchemaTime &time) {
        if (keys.contains(Key(time.Col(), SecondsOfDate(time.GetStartDateTime()),
                              SecondsOfDate(time.GetStopDateTime()), BlockOf(time).Title))) {
            time.SetSelected(true);
            SetActiveDataEntity(&time);
        }
    });
}

TzuDataEntity_SchemaTime &ScheduleBoard::AddTime(int layer, int block, int col,
                                                 const AgendaRange &times)
{
    TzuDataEntity_SchemaTime *time = AddSchemaTime(layer);
    time->SetUserReference(reinterpret_cast<void *>(static_cast<std::uintptr_t>(block) + 1));
    time->SetCol(col);
    time->SetStartDateTime(DateOfSeconds(times.From));
    time->SetStopDateTime(DateOfSeconds(times.To));
    const QString &title = Page().Blocks[static_cast<std::size_t>(block)].Title;
    time->AddText(FromQt(title), 0, 0, 0); // what assistive tools call it
    return *time;
}

void ScheduleBoard::DrawBlock(TzuSchema_ComBasic * /*schema*/, TzuDataEntity_SchemaTime *time,
                              const TRect &rect, TCanvas &canvas)
{
    const ScheduleBlock &block = BlockOf(*time);
    const TColor color = block.Color.value_or(kHues[block.Hue % std::size(kHues)]);
    const bool isDark = NeedsLightText({m_looks.Back});
    const double share = IsPale(block) ? 0.13 : isDark ? 0.38 : 0.22;
    const TColor fill = Mixed(color, m_looks.Back, block.IsCanceled ? share / 2 : share);
    canvas.FillRect(rect, fill);
    canvas.FillRect({rect.Left, rect.Top, std::min(rect.Left + kBarWidth, rect.Right), rect.Bottom},
                    IsPale(block) || block.IsCanceled ? Mixed(color, m_looks.Back, 0.5) : color);
    if (rect.Bottom - rect.Top > kBarWidth) { // apart from what follows at once
        canvas.FillRect({rect.Left, rect.Bottom - 1, rect.Right, rect.Bottom}, m_looks.Back);
    }
    // What begins before the area says in it what it is.
    DrawTexts(block,
              {std::max(rect.Left + kBarWidth, 0) + kPadding, std::max(rect.Top, 0), rect.Right - 2,
               rect.Bottom - 1},
              canvas);
}

int ScheduleBoard::TitleHeight() const
{
    return QFontMetrics(ToQt(m_titleFont)).height() - 1; // above most letters there is more room
}

void ScheduleBoard::DrawTexts(const ScheduleBlock &block, const TRect &rect, TCanvas &canvas)
{
    constexpr int kTopMargin = 2;
    const int width = rect.Right - rect.Left;
    // A block that is hardly as high as its title has it in its middle.
    const int spare = rect.Bottom - rect.Top - QFontMetrics(ToQt(m_titleFont)).height();
    const int top = rect.Top + std::min(kTopMargin, spare / 2);
    int y = top;
    const auto draw = [&](const QString &text, TFont font) {
        font.StrikeOut = block.IsCanceled;
        const QFontMetrics metrics(ToQt(font));
        const int height = metrics.height();
        const int lines = std::max(y == top ? 1 : 0, (rect.Bottom - y) / height);
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

void ScheduleBoard::ApplyFonts()
{
    m_looks = ChartLooks(palette());
    TFont font = FromQt(this->font());
    font.Size = std::max(7, QFontInfo(this->font()).pointSize());
    font.Color = m_looks.Text;
    m_titleFont = font;
    m_titleFont.Bold = true;
    m_detailFont = font;
    m_detailFont.Color = m_looks.MutedText;
    SetSchemaColor(m_looks.Back);
    SetLineColor(Mixed(m_looks.Text, m_looks.Back, 0.22));
    SchemaArea().Invalidate();
}

bool ScheduleBoard::eventFilter(QObject *watched, QEvent *event)
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
