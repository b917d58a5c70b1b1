#include "ResourceChart.h"

#include "PlanDocument.h"
#include "PlanTree.h"
#include "ResourceToolTip.h"
#include "TaskToolTip.h"
#include "foundation/qt/zuConvert.h"
#include "gantt/zuTimeDraw.h"

#include <QHelpEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QToolTip>

#include <algorithm>

namespace korvane::planner {

ResourceChart::ResourceChart(PlanDocument &document, QWidget *parent)
    : PlanView(document, parent)
{
    OnUserDrawTime = [this](auto *, TzuDataEntity_Spanbar *bar, TCanvas &canvas,
                            const TRect &rect) { PaintBar(*bar, canvas, rect); };
    ApplyLooks();
    ConnectInput();
    // Once for all changes of an edit.
    m_followTimer.setSingleShot(true);
    m_followTimer.setInterval(0);
    connect(&m_followTimer, &QTimer::timeout, this, &ResourceChart::BringUpToDate);
    connect(&m_document, &PlanDocument::changed, this, [this] {
        m_isStale = true;
        if (isVisible()) {
            m_followTimer.start();
        }
    });
}

void ResourceChart::ConnectInput()
{
    m_tree->SetAllowSort(false);
    m_tree->SetReadOnly(true);
    m_tree->viewport()->installEventFilter(this);
    m_tree->OnCustomDrawItem = [this](TObject *, TzuDataEntity_Tree *node, TTreeItemLook &look) {
        const auto *row = static_cast<const Row *>(node->GetUserReference());
        if (row != nullptr && !row->Over.empty()) {
            look.Style.Bold = true;
            if (!look.Selected) {
                look.TextColor = FromQt(m_looks.Overload);
            }
        }
    };
    OnDblClickGantArea = [this](auto *, TzuDataEntity_Spanbar *bar) {
        if (bar != nullptr) {
            Q_EMIT taskActivated(TaskOfBar(*bar));
        }
    };
    OnEditDataEntity_Spanbar = [this](auto *, TzuDataEntity_Spanbar *bar) {
        Q_EMIT taskActivated(TaskOfBar(*bar));
    };
    OnAskDelete = [this](auto *, const auto &, const auto &, bool &) { Q_EMIT deleteWanted(); };
    OnAfterSelectionChanged = [this](auto *) {
        if (!m_selecting) {
            Q_EMIT selectionChanged();
        }
    };
}

void ResourceChart::showEvent(QShowEvent *event)
{
    BringUpToDate();
    PlanView::showEvent(event);
}

TGantRow *ResourceChart::RowOf(int row) const
{
    return GantRows().FindRowFromTreeNode(m_rows.at(static_cast<std::size_t>(row))->Node);
}

const ResourceChart::Row &ResourceChart::RowOf(const TGantRow &row)
{
    return *static_cast<const Row *>(row.TreeNode()->GetUserReference());
}

int ResourceChart::TaskOfBar(const TzuDataEntity_Spanbar &bar) const
{
    return static_cast<const Place *>(bar.GetUserReference())->Task;
}

int ResourceChart::TaskAt(QPoint areaPoint) const
{
    const TzuDataEntity_Spanbar *bar = GetDataEntityFromXY(areaPoint.x(), areaPoint.y());
    return bar != nullptr ? TaskOfBar(*bar) : kNoIndex;
}

// Selection.

std::vector<int> ResourceChart::SelectedTasks() const
{
    std::vector<int> tasks;
    for (const TzuDataEntity_Spanbar *bar : SelectedItems()) {
        tasks.push_back(TaskOfBar(*bar));
    }
    std::ranges::sort(tasks);
    tasks.erase(std::ranges::unique(tasks).begin(), tasks.end());
    return tasks;
}

void ResourceChart::SelectTasks(const std::vector<int> &tasks)
{
    BringUpToDate();
    const QScopedValueRollback selecting(m_selecting, true);
    ClearSelection();
    for (const int task : tasks) {
        for (const Place &place : PlacesOf(task)) {
            if (place.Bar != nullptr) {
                place.Bar->SetSelected(true);
            }
        }
    }
    if (!tasks.empty()) {
        ShowTask(tasks.front());
    }
    GantArea().Invalidate();
}

void ResourceChart::ShowTask(int task)
{
    for (const Place &place : PlacesOf(task)) {
        if (place.Bar != nullptr) {
            const TzuDataEntity_Tree &node = *m_rows.at(static_cast<std::size_t>(place.Row))->Node;
            m_tree->EnsureLayout();
            UpdateRects();
            const TGantRow *line = GantRows().FindRowFromTreeNode(&node);
            if (line == nullptr || !line->IsOnScreen()) {
                m_tree->MakeVisible(*m_rows.at(static_cast<std::size_t>(place.Row))->Node);
            }
            SetActiveDataEntity(place.Bar);
            return;
        }
    }
}

// Painting.

int ResourceChart::RowHeightFor(int textHeight) const
{
    constexpr int kMostInFull = 3; // sub-rows whose bars have room for a name
    constexpr int kBarSpare = 6;
    return 4 + std::clamp(m_mostAtOnce, 1, kMostInFull) * (textHeight + kBarSpare);
}

template <typename Paint>
void ResourceChart::ForOverloads(const TRect &area, const Paint &paint)
{
    for (const TGantRow *line : GantRows().RowsOnScreen()) {
        const std::vector<LoadStretch> &over = RowOf(*line).Over;
        TRect run = line->GetRect();
        run.Right = run.Left = area.Left;
        for (std::size_t i = FirstAfter(over, Start()); i < over.size() && over[i].From < Stop();) {
            const int left = std::max(DateScaler().DateToPixel(over[i].From), area.Left);
            const int right = std::min(DateScaler().DateToPixel(over[i].To), area.Right);
            if (left > run.Right) {
                paint(run);
                run.Left = left;
            }
            run.Right = std::max({run.Right, right, left + 1});
            // Those within the pixels painted already are skipped in one go.
            i = std::max(i + 1, FirstAfter(over, DateScaler().PixelToDate(run.Right - 1)));
        }
        paint(run);
    }
}

void ResourceChart::PaintBackground(const TRect &rect, TCanvas &canvas)
{
    DefaultBackGround(rect, canvas);
    PaintGrid(rect, canvas);
    ShadeDaysOff(rect, canvas);
    QPainter *painter = PainterOf(canvas);
    if (painter == nullptr) {
        return;
    }
    constexpr float kTint = 0.14F;
    constexpr float kHatch = 0.55F;
    QColor tint = m_looks.Overload;
    QColor hatch = m_looks.Overload;
    tint.setAlphaF(kTint);
    hatch.setAlphaF(kHatch);
    ForOverloads(rect, [&](const TRect &run) {
        painter->fillRect(ToQt(run), tint);
        painter->fillRect(ToQt(run), QBrush(hatch, Qt::BDiagPattern));
    });
}

void ResourceChart::PaintForeground(const TRect &rect, TCanvas &canvas)
{
    constexpr int kLine = 3;
    if (QPainter *painter = PainterOf(canvas)) {
        ForOverloads(rect, [&](TRect run) {
            run.Top = run.Bottom - kLine - 1;
            --run.Bottom;
            painter->fillRect(ToQt(run), m_looks.Overload);
        });
    }
    PaintNow(rect, canvas);
}

/// With its name, where there is room for it.
void ResourceChart::PaintBar(const TzuDataEntity_Spanbar &bar, TCanvas &canvas, const TRect &rect)
{
    constexpr int kPadding = 4;
    constexpr int kLeastWidth = 16;
    if (bar.FixedSize() > 0) { // a milestone stays as high as it is wide
        const int spare = std::max(rect.Height() - rect.Width(), 0);
        TzuTimeDraw::RombOutline(
            bar.GetColor(),
            {rect.Left, rect.Top + spare / 2, rect.Right, rect.Bottom - (spare - spare / 2)},
            canvas);
        return;
    }
    TzuTimeDraw::DrawTime(bar.GetColor(), rect, canvas);
    const TRect area = WholeArea();
    TRect shown = rect;
    shown.Left = std::max(rect.Left, area.Left) + kPadding;
    shown.Right = std::min(rect.Right, area.Right) - kPadding;
    if (shown.Width() < kLeastWidth) {
        return;
    }
    const PlanTask &task = GetPlan().Tasks.at(static_cast<std::size_t>(TaskOfBar(bar)));
    canvas.SetFont(FontTimeItemStyle(NeedsLightText({bar.GetColor()}) ? kLightLabel : kDarkLabel));
    const std::string name = Caption(task.Name);
    const TSize size = canvas.TextExtent(name);
    if (size.Width <= shown.Width() && size.Height <= rect.Height()) {
        canvas.TextOut({shown.Left, rect.Top + (rect.Height() - size.Height) / 2}, name);
    }
}

// Tooltips.

QString ResourceChart::ToolTipOf(const Row &row) const
{
    return row.Resource != kNoIndex ? ResourceToolTip(ResourceOf(row), row.Over) : QString();
}

void ResourceChart::HandleToolTip(QHelpEvent &event)
{
    const TGantRow *line = GantRows().FindRowFromY(event.pos().y());
    if (line == nullptr) {
        QToolTip::hideText();
        return;
    }
    const int task = TaskAt(event.pos());
    const TDateTime instant = DateScaler().PixelToDate(event.pos().x());
    const Row &row = RowOf(*line);
    const std::size_t at = FirstAfter(row.Over, instant);
    const bool isOver = at < row.Over.size() && row.Over[at].From <= instant;
    QString text = task != kNoIndex ? TaskToolTip(GetPlan(), task) : QString();
    if (isOver) {
        text += ResourceToolTip(ResourceOf(row), std::span(row.Over).subspan(at, 1));
    }
    QToolTip::showText(event.globalPos(), text, &GantArea(), QRect(event.pos(), QSize(3, 3)));
}

void ResourceChart::ShowTreeToolTip(const QHelpEvent &event)
{
    const TzuDataEntity_Tree *node = m_tree->GetDataEntityAt(event.pos().x(), event.pos().y());
    const QString text = node != nullptr
                             ? ToolTipOf(*static_cast<const Row *>(node->GetUserReference()))
                             : QString();
    QToolTip::showText(event.globalPos(), text, m_tree->viewport(),
                       QRect(event.pos(), QSize(3, 3)));
}

bool ResourceChart::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_tree->viewport() && event->type() == QEvent::ToolTip) {
        ShowTreeToolTip(*static_cast<QHelpEvent *>(event));
        return true;
    }
    return PlanView::eventFilter(watched, event);
}

} // namespace korvane::planner
