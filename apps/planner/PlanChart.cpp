#include "PlanChart.h"

#include "AxisLabels.h"
#include "PlanDocument.h"
#include "PlanTitle.h"
#include "PlanTree.h"
#include "foundation/qt/zuConvert.h"
#include "foundation/zuDateUtils.h"

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
constexpr double kZoomPerNotch = 0.8165; // two notches make 1.5
constexpr int kNowInterval = 20'000;     // milliseconds
constexpr int kDatesDelay = 150;         // milliseconds

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
    OnUserDrawTime = [this](auto *, TzuDataEntity_Spanbar *bar, TCanvas &canvas,
                            const TRect &rect) { PaintTask(*bar, canvas, rect); };
    OnUserDrawLinks = [this](auto *, TzuDataEntity_Link *link, TCanvas &canvas, TPoint, TPoint) {
        PaintLink(*link, canvas);
    };
    OnLinkRoute = [this](auto *, TzuDataEntity_Link *link, TPoint, TPoint,
                         std::vector<TPoint> &points) {
        const LinkRoute route = RouteOf(*link);
        points.assign(route.Line().begin(), route.Line().end());
    };
    OnScalerChange = [this](auto *, TDateTime, TDateTime) {
        if (m_pointerPixel) {
            PointAt(*m_pointerPixel);
        }
    };
    m_nowTimer.start(kNowInterval, this);
    ApplyLooks();
    ConnectGestures();
    ConnectTree();
    connect(&m_document, &PlanDocument::replaced, this, &PlanChart::ShowPlan);
    // The plan's range takes a walk over all tasks: not for every step of a key that repeats.
    m_datesTimer.setSingleShot(true);
    m_datesTimer.setInterval(kDatesDelay);
    connect(&m_document, &PlanDocument::changed, &m_datesTimer, qOverload<>(&QTimer::start));
    connect(&m_datesTimer, &QTimer::timeout, this, &PlanChart::ShowDates);
}

TGantTree *PlanChart::CreateTree(QWidget *parent)
{
    m_tree = new PlanTree(*this, parent);
    return m_tree;
}

PlanChart::~PlanChart()
{
    GantArea().removeEventFilter(this);
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
    m_lines.clear();
    m_expansions.clear();
    m_outsideLabels.clear();
    ShowDates();
    Fill();
    FitTree();
    FitPlan();
    EndUpdate();
}

void PlanChart::Fill()
{
    const Plan &plan = GetPlan();
    m_items.resize(plan.Tasks.size());
    for (auto &items : m_items) {
        items = std::make_unique<TaskItems>();
    }
    NumberTasks(0);
    for (std::size_t task = 0; task < m_items.size(); ++task) {
        AddNode(static_cast<int>(task));
    }
    m_lines.resize(plan.Links.size());
    for (auto &line : m_lines) {
        line = std::make_unique<LinkItems>();
    }
    NumberLinks(0);
    for (std::size_t link = 0; link < m_lines.size(); ++link) {
        AddLine(static_cast<int>(link));
    }
}

void PlanChart::ShowDates()
{
    m_title->SetPlan(GetPlan());
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
        const int width = metrics.horizontalAdvance(ToQt(m_items.at(task)->Node->GetText()));
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
    DateScaler().SetRange(range.Start - length * kMarginBefore,
                          range.Start + length * (1 + kMarginAfter));
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

int PlanChart::TaskAt(QPoint areaPoint) const
{
    const TzuDataEntity_Spanbar *item = GetDataEntityFromXY(areaPoint.x(), areaPoint.y());
    return item != nullptr ? TaskOf(*item) : kNoIndex;
}

} // namespace korvane::planner
