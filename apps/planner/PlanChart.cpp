#include "PlanChart.h"

#include "AxisLabels.h"
#include "PlanDocument.h"
#include "PlanTitle.h"
#include "PlanTree.h"
#include "foundation/qt/zuConvert.h"
#include "foundation/zuDateUtils.h"
#include "plan/PlanDates.h"

#include <QFontMetrics>
#include <QLocale>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace korvane::planner {

namespace {

constexpr int kDaysPerWeek = 7;
constexpr int kLeastMarkDistance = 24; // pixels, for labels of two digits
constexpr int kScalerHeight = 44;
constexpr int kTaskInset = 3;
constexpr int kSummaryInset = 4;
constexpr int kMilestoneInset = 3;
constexpr int kNowInterval = 20'000; // milliseconds

/// What a tree caption may hold of a name.
std::string Caption(const QString &name)
{
    const QString line = name.simplified();
    if (line.size() <= kMaxTreeText) {
        return FromQt(line);
    }
    const auto codePoints = line.toUcs4();
    return FromQt(QString::fromUcs4(reinterpret_cast<const char32_t *>(codePoints.constData()),
                                    std::min<qsizetype>(codePoints.size(), kMaxTreeText)));
}

bool IsShownAsMilestone(const PlanTask &task)
{
    return task.Milestone && !task.HasChildren;
}

bool IsPartlyDone(const PlanTask &task)
{
    return task.PercentComplete > 0 && task.PercentComplete < 100 && !IsShownAsMilestone(task);
}

int InsetOf(const PlanTask &task)
{
    if (IsShownAsMilestone(task)) {
        return kMilestoneInset;
    }
    return task.IsSummary() ? kSummaryInset : kTaskInset;
}

} // namespace

PlanChart::PlanChart(PlanDocument &document, QWidget *parent)
    : TzuGant(parent, TConstruction::WithoutParts)
    , m_document(document)
    , m_looks(palette())
    , m_now(Now())
{
    InitializeInConstructor();
    setFrameShape(QFrame::NoFrame);
    SetScalerHeight(kScalerHeight);
    SetDefaultLinkStyle(TLinkStyle::tlsUserDraw);
    SetLinkShow(TLinkShow::lsAlways);
    SetFirstDayOfWeekScaler(QLocale().firstDayOfWeek() % kDaysPerWeek + 1);
    DateScaler().SetPixelsForModeSwitch(kLeastMarkDistance);
    LabelAxis(DateScaler());
    m_title = new PlanTitle(&TreeSpacer());
    auto *corner = new QVBoxLayout(&TreeSpacer());
    corner->setContentsMargins(0, 0, 0, 0);
    corner->addWidget(m_title);
    Tree().SetShowLines(false);
    Tree().SetHideSelection(false);
    GantArea().installEventFilter(this);
    Tree().viewport()->installEventFilter(this);
    OnUserDrawBackground = [this](auto *, const TRect &rect, TCanvas &canvas) {
        PaintBackground(rect, canvas);
    };
    OnUserDrawForeground = [this](auto *, const TRect &rect, TCanvas &canvas) {
        PaintForeground(rect, canvas);
    };
    OnUserDrawLinks = [this](auto *, TzuDataEntity_Link *link, TCanvas &canvas, TPoint, TPoint) {
        PaintLink(*link, canvas);
    };
    OnScalerChange = [this](auto *, TDateTime, TDateTime) {
        if (m_pointerPixel) {
            PointAt(*m_pointerPixel);
        }
    };
    m_nowTimer.start(kNowInterval, this);
    ApplyLooks();
    connect(&m_document, &PlanDocument::replaced, this, &PlanChart::ShowPlan);
}

TGantTree *PlanChart::CreateTree(QWidget *parent)
{
    m_tree = new PlanTree(*this, parent);
    return m_tree;
}

PlanChart::~PlanChart()
{
    GantArea().removeEventFilter(this);
    Tree().viewport()->removeEventFilter(this);
}

const Plan &PlanChart::GetPlan() const
{
    return m_document.GetPlan();
}

void PlanChart::ShowPlan()
{
    BeginUpdate();
    GetLinks().Clear();
    Tree().Clear();
    m_items.clear();
    m_outsideLabels.clear();
    m_title->SetPlan(GetPlan());
    Fill();
    FitTree();
    FitPlan();
    EndUpdate();
}

void PlanChart::Fill()
{
    m_items.resize(GetPlan().Tasks.size());
    for (std::size_t task = 0; task < m_items.size(); ++task) {
        AddTask(static_cast<int>(task));
    }
    AddLinks();
    ColorItems();
}

void PlanChart::AddTask(int index)
{
    const PlanTask &task = Task(index);
    TaskItems &items = m_items.at(static_cast<std::size_t>(index));
    TzuDataEntity_Tree *parent = task.Parent == kNoIndex ? nullptr : Items(task.Parent).Node;
    items.Node = AddDataEntityTree(parent, Caption(task.Name));
    items.Node->SetExpanded(task.HasChildren && !task.Collapsed);
    if (task.IsSummary()) {
        items.Node->SetFontStyle({.Bold = true});
    }
    if (task.Dates) {
        AddBars(task, items);
    }
}

void PlanChart::AddBars(const PlanTask &task, TaskItems &items)
{
    TGantRow *row = GantRows().FindRowFromTreeNode(items.Node);
    if (IsShownAsMilestone(task)) {
        const PlanSpan reached{task.Dates->Finish, task.Dates->Finish};
        items.Bar = AddItem(task, row, kBarLayer, reached);
        items.Bar->SetStyle(TSpanbarStyle::sbsRomb);
        items.Bar->SetFixedSize(Tree().RowHeight() - 2 * kMilestoneInset - 2);
        return;
    }
    items.Bar = AddItem(task, row, kBarLayer, *task.Dates);
    if (task.IsSummary()) {
        items.Bar->SetStyle(TSpanbarStyle::sbsSpan);
    } else if (!task.Parts.empty()) {
        items.Bar->SetStyle(TSpanbarStyle::sbsLine);
        for (const PlanSpan &part : task.Parts) {
            AddItem(task, row, kPartLayer, part);
        }
        AddDone(task, row, task.Parts);
        return;
    }
    items.Label = items.Bar;
    if (IsPartlyDone(task)) {
        AddDone(task, row, {&*task.Dates, 1});
        // An item for the name alone, above the bars that it may lie across.
        items.Label = AddItem(task, row, kLabelLayer, *task.Dates);
        items.Label->SetStyle(TSpanbarStyle::sbsUser);
    }
}

/// Bars over the finished share of the parts, counted from the first one on.
void PlanChart::AddDone(const PlanTask &task, TGantRow *row, std::span<const PlanSpan> parts)
{
    if (!IsPartlyDone(task)) {
        return;
    }
    TDateTime done = 0;
    for (const PlanSpan &part : parts) {
        done += (part.Finish - part.Start) * task.PercentComplete / 100;
    }
    for (const PlanSpan &part : parts) {
        const TDateTime length = std::min(done, part.Finish - part.Start);
        if (length > 0) {
            AddItem(task, row, kDoneLayer, {part.Start, part.Start + length});
        }
        done -= length;
    }
}

TzuDataEntity_Spanbar *PlanChart::AddItem(const PlanTask &task, TGantRow *row, int layer,
                                          const PlanSpan &span)
{
    TzuDataEntity_Spanbar *item = AddSpanbarToGantRow(row, layer);
    item->SetStartDateTime(span.Start);
    item->SetStopDateTime(span.Finish);
    item->SetInsetTop(InsetOf(task));
    item->SetInsetBottom(InsetOf(task));
    item->SetCanEdit(false);
    item->SetUserReference(const_cast<PlanTask *>(&task)); // only ever read, in TaskOf
    return item;
}

void PlanChart::AddLinks()
{
    for (const PlanLink &link : GetPlan().Links) {
        TzuDataEntity_Spanbar *first = Items(link.Predecessor).Bar;
        TzuDataEntity_Spanbar *second = Items(link.Successor).Bar;
        if (first != nullptr && second != nullptr && first != second) {
            TzuDataEntity_Link &line = AddLink();
            line.SetFirst(first);
            line.SetSecond(second);
            line.SetUserReference(const_cast<PlanLink *>(&link)); // only ever read, in PaintLink
        }
    }
}

void PlanChart::FitTree()
{
    constexpr std::size_t kMeasured = 500;
    constexpr int kLeastWidth = 210;
    constexpr int kSpare = 28;
    const QFontMetrics metrics(ToQt(Tree().Font()));
    int wanted = kLeastWidth;
    const std::size_t count = std::min(kMeasured, m_items.size());
    for (std::size_t task = 0; task < count; ++task) {
        const int indent = GetPlan().Tasks.at(task).Level * Tree().Indent();
        const int width = metrics.horizontalAdvance(ToQt(m_items.at(task).Node->GetText()));
        wanted = std::max(wanted, indent + width + kSpare);
    }
    SetTreeWidth(std::min(wanted, std::max(kLeastWidth, width() / 3)));
}

void PlanChart::FitPlan()
{
    constexpr double kMarginBefore = 0.03;
    constexpr double kMarginAfter = 0.09; // names stand beside the last bars
    constexpr TDateTime kDaysAround = 15;
    const PlanSpan range = GetPlan().Range().value_or(
        PlanSpan{DateOf(m_now) - kDaysAround, DateOf(m_now) + kDaysAround});
    const TDateTime length = std::max(range.Finish - range.Start, 1.0);
    Show({range.Start - length * kMarginBefore, range.Start + length * (1 + kMarginAfter)});
}

void PlanChart::Show(PlanSpan span)
{
    DateScaler().BeginUpdate();
    SetStart(std::max(span.Start, kFirstPlanDate));
    SetStop(std::min(span.Finish, kLastPlanDate));
    DateScaler().EndUpdate();
}

void PlanChart::Zoom(double factor, int pixel)
{
    constexpr TDateTime kShortestSpan = 2.0 / kMinutesPerDay;
    const double scale = Scale();
    const int length = DateScaler().GetScaleLen();
    if (scale <= 0 || length <= 0) {
        return;
    }
    const double wanted = std::clamp(scale / factor, kShortestSpan / length,
                                     (kLastPlanDate - kFirstPlanDate) / length);
    DateScaler().SetCenterScale(wanted, DateScaler().PixelToDate(pixel), pixel);
}

void PlanChart::ZoomIn()
{
    Zoom(kZoomStep, DateScaler().GetScaleLen() / 2);
}

void PlanChart::ZoomOut()
{
    Zoom(1 / kZoomStep, DateScaler().GetScaleLen() / 2);
}

void PlanChart::GoTo(TDateTime instant)
{
    const TDateTime half = (Stop() - Start()) / 2;
    const TDateTime middle = std::clamp(instant, kFirstPlanDate + half, kLastPlanDate - half);
    Show({middle - half, middle + half});
}

void PlanChart::Pan(int pixels)
{
    GoTo((Start() + Stop()) / 2 + Scale() * pixels);
}

void PlanChart::SetScrollBarShown(bool shown)
{
    m_scrollBarShown = shown;
    QWidget *holder = VertScrollBar().parentWidget();
    holder->setFixedWidth(shown ? VertScrollBar().sizeHint().width() : 0);
}

void PlanChart::SetNow(TDateTime now)
{
    if (now != m_now) {
        m_now = now;
        GantArea().Invalidate();
    }
}

int PlanChart::TaskOf(const TzuDataEntity_Spanbar &item) const
{
    const auto *task = static_cast<const PlanTask *>(item.GetUserReference());
    return static_cast<int>(task - GetPlan().Tasks.data());
}

int PlanChart::TaskAt(QPoint areaPoint) const
{
    const TzuDataEntity_Spanbar *item = GetDataEntityFromXY(areaPoint.x(), areaPoint.y());
    return item != nullptr ? TaskOf(*item) : kNoIndex;
}

} // namespace korvane::planner
