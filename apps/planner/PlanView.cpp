#include "PlanView.h"

#include "AxisLabels.h"
#include "PlanDocument.h"
#include "PlanEdits.h"
#include "PlanTitle.h"
#include "PlanTree.h"
#include "foundation/qt/zuConvert.h"
#include "foundation/zuDateUtils.h"
#include "grid/qt/zuGrid.h"
#include "plan/PlanDates.h"

#include <QEvent>
#include <QFont>
#include <QFontInfo>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QLocale>
#include <QPainter>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <utility>

namespace korvane::planner {

namespace {

constexpr int kDaysPerWeek = 7;
constexpr int kLeastMarkDistance = 24; // pixels, for labels of two digits
constexpr int kScalerHeight = 44;
constexpr double kZoomPerNotch = 0.8165; // two notches make 1.5
constexpr int kNowInterval = 20'000;     // milliseconds
constexpr int kDatesDelay = 150;         // milliseconds

} // namespace

PlanView::PlanView(PlanDocument &document, QWidget *parent)
    : TzuGant(parent, TConstruction::WithoutParts)
    , m_document(document)
    , m_looks(palette())
    , m_now(Now())
{
    InitializeInConstructor();
    setFrameShape(QFrame::NoFrame);
    SetScalerHeight(kScalerHeight);
    SetFirstDayOfWeekScaler(QLocale().firstDayOfWeek() % kDaysPerWeek + 1);
    DateScaler().SetPixelsForModeSwitch(kLeastMarkDistance);
    DateScaler().SetZoomFactor(kZoomPerNotch);
    LabelAxis(DateScaler());
    m_title = new PlanTitle(&TreeSpacer());
    auto *corner = new QVBoxLayout(&TreeSpacer());
    corner->setContentsMargins(0, 0, 0, 0);
    corner->addWidget(m_title);
    Tree().SetShowLines(false);
    Tree().SetHideSelection(false);
    Tree().SetRowSelect(true);
    Tree().SetRightClickSelect(true);
    GantArea().installEventFilter(this);
    OnUserDrawBackground = [this](auto *, const TRect &rect, TCanvas &canvas) {
        PaintBackground(rect, canvas);
    };
    OnUserDrawForeground = [this](auto *, const TRect &rect, TCanvas &canvas) {
        PaintForeground(rect, canvas);
    };
    OnScalerChange = [this](auto *, TDateTime, TDateTime) {
        if (m_pointerPixel) {
            PointAt(*m_pointerPixel);
        }
    };
    ConnectGestures();
    m_nowTimer.start(kNowInterval, this);
    connect(&m_document, &PlanDocument::replaced, this, [this] {
        ShowDates();
        ShowPlan();
    });
    // The plan's range takes a walk over all tasks: not for every step of a key that repeats.
    m_datesTimer.setSingleShot(true);
    m_datesTimer.setInterval(kDatesDelay);
    connect(&m_document, &PlanDocument::changed, &m_datesTimer, qOverload<>(&QTimer::start));
    connect(&m_datesTimer, &QTimer::timeout, this, &PlanView::ShowDates);
}

TGantTree *PlanView::CreateTree(QWidget *parent)
{
    m_tree = new PlanTree(*this, parent);
    return m_tree;
}

PlanView::~PlanView()
{
    GantArea().removeEventFilter(this);
}

const Plan &PlanView::GetPlan() const
{
    return m_document.GetPlan();
}

void PlanView::ShowDates()
{
    m_title->SetPlan(GetPlan());
}

std::string PlanView::Caption(const QString &name)
{
    const QString line = name.simplified();
    if (line.size() <= kMaxTreeText) {
        return FromQt(line);
    }
    const auto codePoints = line.toUcs4();
    return FromQt(QString::fromUcs4(reinterpret_cast<const char32_t *>(codePoints.constData()),
                                    std::min<qsizetype>(codePoints.size(), kMaxTreeText)));
}

void PlanView::FitTree()
{
    constexpr int kMeasured = 500;
    constexpr int kLeastWidth = 210;
    constexpr int kSpare = 28;
    QFont font = ToQt(Tree().Font());
    font.setBold(true); // as some captions are
    const QFontMetrics metrics(font);
    int wanted = kLeastWidth;
    const int count = std::min(kMeasured, GantRows().Count());
    for (int row = 0; row < count; ++row) {
        const TzuDataEntity_Tree &node = *GantRows().GetGantRow(row)->TreeNode();
        const int indent = (node.GetLevel() + 1) * Tree().Indent();
        wanted =
            std::max(wanted, indent + metrics.horizontalAdvance(ToQt(node.GetText())) + kSpare);
    }
    // A page that is yet to be shown has not been given its size.
    const int room = isVisible() || parentWidget() == nullptr ? width() : parentWidget()->width();
    SetTreeWidth(std::min(wanted, std::max(kLeastWidth, room / 3)));
}

void PlanView::FitPlan()
{
    constexpr double kMarginBefore = 0.03;
    constexpr double kMarginAfter = 0.09; // names stand beside the last bars
    constexpr TDateTime kDaysAround = 15;
    const PlanSpan range = GetPlan().Range().value_or(
        PlanSpan{DateOf(m_now) - kDaysAround, DateOf(m_now) + kDaysAround});
    const TDateTime length = std::max(range.Finish - range.Start, 1.0);
    DateScaler().SetRange(range.Start - length * kMarginBefore,
                          range.Start + length * (1 + kMarginAfter));
}

void PlanView::SetScrollBarShown(bool shown)
{
    m_scrollBarShown = shown;
    QWidget *holder = VertScrollBar().parentWidget();
    holder->setFixedWidth(shown ? VertScrollBar().sizeHint().width() : 0);
    Grid().SetScrollBarsShown(shown);
}

bool PlanView::IsSeparated() const
{
    for (int row = 0; row < GantRows().Count(); ++row) {
        if (GantRows().GetGantRow(row)->IsSeparating()) {
            return false;
        }
    }
    return true;
}

void PlanView::SetNow(TDateTime now)
{
    if (now != m_now) {
        m_now = now;
        GantArea().Invalidate();
    }
}

TDateTime PlanView::EditStep() const
{
    constexpr double kMinutesWidth = 4000;
    const double dayWidth = Scale() > 0 ? 1 / Scale() : 0;
    return dayWidth < kHoursWidth     ? 1.0
           : dayWidth < kMinutesWidth ? 1.0 / 24
                                      : 5.0 / kMinutesPerDay;
}

/// The times change by steps; what they are beside these stays.
void PlanView::SnapTimes(const TzuDataEntity_Spanbar &bar, TGantMouseMoveMode mode,
                         TDateTime &start, TDateTime &stop) const
{
    const TDateTime step = EditStep();
    const auto snapped = [step](TDateTime from, TDateTime to) {
        return from + std::round((to - from) / step) * step;
    };
    const TDateTime oldStart = bar.GetStartDateTime();
    const TDateTime oldStop = bar.GetStopDateTime();
    if (mode == TGantMouseMoveMode::mmGrowRight) {
        stop = std::max(snapped(oldStop, stop), start);
    } else if (mode == TGantMouseMoveMode::mmGrowLeft) {
        start = std::min(snapped(oldStart, start), stop);
    } else {
        start = snapped(oldStart, start);
        stop = oldStop + (start - oldStart);
    }
}

void PlanView::ConnectGestures()
{
    OnSnapTimes = [this](auto *, const TzuDataEntity_Spanbar *bar, TGantMouseMoveMode mode,
                         TDateTime &start, TDateTime &stop) { SnapTimes(*bar, mode, start, stop); };
    OnBeginUserChange = [this](auto *, TGantUserChange) {
        m_inGesture = true;
        m_draggedDates.clear();
        m_copiedTasks.clear();
    };
    OnChangeDataEntity_Spanbar = [this](auto *, TzuDataEntity_Spanbar *bar) {
        if (m_inGesture) {
            m_draggedDates.push_back(
                {TaskOfBar(*bar), {bar->GetStartDateTime(), bar->GetStopDateTime()}});
        }
    };
    OnTimeCopy = [this](auto *, TzuDataEntity_Spanbar *bar, auto *, auto *, TDateTime start,
                        TDateTime) {
        m_copiedTasks.push_back(TaskOfBar(*bar));
        m_copyOffset = start - bar->GetStartDateTime();
    };
    OnEndUserChange = [this](auto *, TGantUserChange kind, bool changed) {
        m_inGesture = false;
        if (changed && m_edits != nullptr) {
            GestureEnded(kind);
        }
    };
}

/// The bars stand where the user left them. Whatever comes of that, they show the plan afterwards.
/// A task may have several bars; the last one that was changed counts.
void PlanView::GestureEnded(TGantUserChange kind)
{
    std::vector<TaskDates> dragged = std::exchange(m_draggedDates, {});
    std::vector<int> copied = std::exchange(m_copiedTasks, {});
    std::ranges::sort(copied);
    copied.erase(std::ranges::unique(copied).begin(), copied.end());
    if (!copied.empty()) {
        m_edits->Duplicate(copied, m_copyOffset);
    }
    std::ranges::reverse(dragged);
    std::ranges::stable_sort(dragged, {}, &TaskDates::Task);
    dragged.erase(std::ranges::unique(dragged, {}, &TaskDates::Task).begin(), dragged.end());
    if (!dragged.empty()) {
        m_edits->SetDates(dragged, kind == TGantUserChange::ucOther
                                       ? PlanEdits::DateSource::Keyboard
                                       : PlanEdits::DateSource::Gesture);
        for (const TaskDates &each : dragged) {
            UpdateBar(each.Task);
        }
    }
}

// Looks.

void PlanView::ApplyLooks()
{
    m_looks = ChartLooks(palette());
    BeginUpdate();
    SetGantBackColor(m_looks.Back);
    SetGantPyjamasColor(m_looks.Back); // plain: PaintGrid draws the lines
    SetDefaultLinkColor(m_looks.Link);
    DateScaler().SetColor(m_looks.Header);
    ApplyFonts();
    ColorItems();
    EndUpdate();
}

void PlanView::ApplyFonts()
{
    TFont font = FromQt(this->font());
    font.Size = std::max(7, QFontInfo(this->font()).pointSize());
    font.Color = m_looks.Text;
    Tree().SetFont(font);
    Tree().SetColor(m_looks.Back);
    m_tree->SetRowLineColor(m_looks.Grid);
    Tree().SetRowHeight(RowHeightFor(QFontMetrics(ToQt(font)).height()));

    font.Size = std::max(7, font.Size - 1);
    TDateScalerCore &scaler = DateScaler();
    scaler.SetTextFont1(font);
    scaler.SetTextFont2(font);
    scaler.SetTextFont3(font);
    font.Color = Rgb(0x18, 0x1C, 0x22);
    SetFontTimeItemStyle(kDarkLabel, font);
    font.Color = Rgb(0xF6, 0xF7, 0xF9);
    SetFontTimeItemStyle(kLightLabel, font);
    font.Color = m_looks.MutedText;
    SetFontTimeItemStyle(kMutedLabel, font);
}

int PlanView::RowHeightFor(int textHeight) const
{
    constexpr int kLeastRowHeight = 24;
    constexpr int kRowSpare = 8;
    return std::max(kLeastRowHeight, textHeight + kRowSpare);
}

TColor PlanView::ColorOf(const PlanTask &task) const
{
    if (task.Color) {
        return m_looks.Seen(*task.Color);
    }
    if (task.IsSummary()) {
        return m_looks.Summary;
    }
    return task.Milestone ? m_looks.Milestone : m_looks.Task;
}

void PlanView::changeEvent(QEvent *event)
{
    TzuGant::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
        ApplyLooks();
    }
}

// Painting.

QPainter *PlanView::PainterOf(TCanvas &canvas)
{
    return dynamic_cast<TPainterCanvas &>(canvas).Painter();
}

double PlanView::LineWidthOf(const TCanvas &canvas)
{
    return dynamic_cast<const TPainterCanvas &>(canvas).LineWidth(1);
}

void PlanView::PaintGrid(const TRect &rect, TCanvas &canvas) const
{
    QPainter *painter = PainterOf(canvas);
    if (painter == nullptr) {
        return;
    }
    const double line = LineWidthOf(canvas);
    for (const TScaleMarkList *marks :
         {&DateScaler().PrimaryMarks(), &DateScaler().SecondaryMarks()}) {
        for (const TScaleMark &mark : *marks) {
            const int x = DateScaler().DateToPixel(mark.Date);
            painter->fillRect(QRectF(x, rect.Top, line, rect.Height()),
                              mark.IsMajor ? m_looks.Grid : m_looks.FineGrid);
        }
    }
    for (const TGantRow *row : GantRows().RowsOnScreen()) {
        painter->fillRect(QRectF(rect.Left, row->GetRect().Bottom - 1, rect.Width(), line),
                          m_looks.Grid);
    }
}

void PlanView::ShadeDaysOff(const TRect &rect, TCanvas &canvas) const
{
    constexpr double kLeastDayWidth = 4;
    const double dayWidth = Scale() > 0 ? 1 / Scale() : 0;
    QPainter *painter = PainterOf(canvas);
    if (painter == nullptr || dayWidth < kLeastDayWidth) {
        return;
    }
    const auto shade = [&](TDateTime from, TDateTime to) {
        const int left = std::max(DateScaler().DateToPixel(from), rect.Left);
        const int right = std::min(DateScaler().DateToPixel(to), rect.Right);
        if (left < right) {
            painter->fillRect(left, rect.Top, right - left, rect.Height(), m_looks.DayOff);
        }
    };
    const WorkCalendar &calendar = GetPlan().ProjectCalendar();
    const TDateTime end = std::min(DateScaler().PixelToDate(rect.Right), Stop());
    const int lastDay = static_cast<int>(std::ceil(end));
    TDateTime offSince = std::max(DateScaler().PixelToDate(rect.Left), Start());
    for (int day = static_cast<int>(std::floor(offSince)); day < lastDay; ++day) {
        if (dayWidth >= kHoursWidth) {
            for (const DayStretch &stretch : calendar.TimesOf(day).Stretches()) {
                shade(offSince, day + stretch.From / double(kMinutesPerDay));
                offSince = day + stretch.To / double(kMinutesPerDay);
            }
        } else if (calendar.IsWorkingDay(day)) {
            shade(offSince, day);
            offSince = day + 1;
        }
    }
    shade(offSince, end);
}

void PlanView::PaintNow(const TRect &rect, TCanvas &canvas) const
{
    QPainter *painter = PainterOf(canvas);
    const int pixel = DateScaler().DateToPixel(m_now);
    if (painter != nullptr && m_now >= Start() && m_now <= Stop() && pixel >= rect.Left
        && pixel < rect.Right) {
        painter->fillRect(QRectF(pixel, rect.Top, LineWidthOf(canvas), rect.Height()), m_looks.Now);
    }
}

// Input.

bool PlanView::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == &GantArea()) {
        switch (event->type()) {
        case QEvent::MouseMove:
            PointAt(static_cast<QMouseEvent *>(event)->position().toPoint().x());
            break;
        case QEvent::Leave:
            PointerLeft();
            break;
        case QEvent::ToolTip:
            HandleToolTip(*static_cast<QHelpEvent *>(event));
            return true;
        default:
            break;
        }
    }
    return TzuGant::eventFilter(watched, event);
}

void PlanView::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_nowTimer.timerId()) {
        SetNow(Now());
    } else {
        TzuGant::timerEvent(event);
    }
}

void PlanView::PointAt(int pixel)
{
    m_pointerPixel = pixel;
    DateScaler().SetIndicatorPixel(pixel);
    Q_EMIT pointedAt(DateScaler().PixelToDate(pixel));
}

void PlanView::PointerLeft()
{
    m_pointerPixel.reset();
    DateScaler().SetIndicatorPixel(TDateScalerCore::kNoIndicator);
    Q_EMIT pointerLeft();
}

} // namespace korvane::planner
