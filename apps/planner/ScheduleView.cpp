#include "ScheduleView.h"

#include "agenda/AgendaDates.h"
#include "foundation/qt/zuConvert.h"
#include "foundation/zuFormat.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QToolTip>

#include <algorithm>
#include <cstdint>
#include <map>

namespace korvane::planner {

namespace {

constexpr int kLeastColumnWidth = 120;
constexpr int kLeastLaneWidth = 64;
constexpr int kAxisWidth = 92;
constexpr int kBarWidth = 3;
constexpr int kPadding = 4;
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
    OnBeforeCanEditItem_SchemaTime = [](auto *, TzuDataEntity *time) { time->SetCanEdit(false); };
    SchemaArea().installEventFilter(this);
    ApplyLooks();
}

ScheduleView::~ScheduleView()
{
    OnDrawTimeContent = {};
}

void ScheduleView::Show(SchedulePage page)
{
    BeginUpdate();
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
    const AgendaSeconds first = m_page.Columns.empty() ? 0 : m_page.Columns.front().BaseDate;
    for (const ScheduleColumn &column : m_page.Columns) {
        TzuDataEntity_SchemaColumn *added = AddColumn();
        added->BaseDate = DateOfSeconds(column.BaseDate - first) - kAgendaEpoch;
        added->SetText(FromQt(column.Caption));
    }
    Columns().EndUpdate();
    DateScaler().SetRange(DateOfSeconds(first + m_page.Axis.From),
                          DateOfSeconds(first + m_page.Axis.To));
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
    SizeColumns();
    Columns().SetTopLeftCol(0);
    EndUpdate();
}

bool ScheduleView::IsSettled()
{
    std::map<std::pair<int, bool>, std::vector<const ScheduleBlock *>> columns;
    for (const ScheduleBlock &block : m_page.Blocks) {
        columns[{block.Column, block.IsAllDay}].push_back(&block);
    }
    for (auto &[key, blocks] : columns) {
        std::ranges::sort(blocks, {}, [](const ScheduleBlock *block) { return block->Start; });
        const auto overlap = std::ranges::adjacent_find(
            blocks, [](const auto *a, const auto *b) { return b->Start < a->Stop; });
        if (overlap != blocks.end()) {
            const auto index = static_cast<std::size_t>(*overlap - m_page.Blocks.data());
            const auto *time =
                FindSchemaTimeObjectFromUserReference(reinterpret_cast<void *>(index + 1));
            return time == nullptr || time->InSubCol();
        }
    }
    return true;
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
