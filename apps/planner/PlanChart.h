// The Gantt chart of a plan.
#pragma once

#include "ChartLooks.h"
#include "LinkRoute.h"
#include "gantt/qt/zuGant.h"
#include "plan/Plan.h"

#include <QBasicTimer>

#include <optional>
#include <span>
#include <vector>

class QHelpEvent;
class QWheelEvent;

namespace korvane::planner {

class PlanDocument;
class PlanTitle;
class PlanTree;

/// Shows a document's plan: its outline in the row tree, a bar per task, and the links between
/// them. What is shown cannot be edited. Another plan is shown in its whole length.
///
/// With Ctrl the wheel zooms about the pointer, with Shift it moves along the time.
class PlanChart : public TzuGant
{
    Q_OBJECT

public:
    /// `document` is observed and has to live as long.
    explicit PlanChart(PlanDocument &document, QWidget *parent = nullptr);
    ~PlanChart() override;

    const Plan &GetPlan() const;

    /// Shows the plan's whole length with a margin; without any date the days around today.
    void FitPlan();
    void Show(PlanSpan span);
    /// Makes what is shown larger (factor > 1) or smaller; the instant at the area's pixel stays.
    void Zoom(double factor, int pixel);
    /// Zooms by one step about the middle.
    void ZoomIn();
    void ZoomOut();
    /// Brings the instant to the middle.
    void GoTo(TDateTime instant);
    /// Moves the visible time by so many pixels, to later times when positive.
    void Pan(int pixels);
    /// Whether there is room on the right for the scroll bar. There is, initially.
    void SetScrollBarShown(bool shown);
    bool IsScrollBarShown() const { return m_scrollBarShown; }

    /// The present time, which is marked by a line.
    TDateTime GetNow() const { return m_now; }
    void SetNow(TDateTime now);

    /// Index of the task whose bar is at the point of the area, or kNoIndex.
    int TaskAt(QPoint areaPoint) const;
    /// Null for a task without dates.
    const TzuDataEntity_Spanbar *BarOf(int task) const { return Items(task).Bar; }
    const TzuDataEntity_Tree *NodeOf(int task) const { return Items(task).Node; }

Q_SIGNALS:
    /// The instant under the pointer has changed.
    void pointedAt(double instant);
    /// The pointer has left the area.
    void pointerLeft();

protected:
    TGantTree *CreateTree(QWidget *parent) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    struct TaskItems
    {
        TzuDataEntity_Tree *Node = nullptr;
        TzuDataEntity_Spanbar *Bar = nullptr; ///< spans the task; links end at it
        /// Carries the name where it fits into the bar; null where it never does.
        TzuDataEntity_Spanbar *Label = nullptr;
    };

    /// A name that did not fit into its bar.
    struct OutsideLabel
    {
        int Task = kNoIndex;
        TRect Rect;
    };

    /// What lies on a row, lowest first. Split tasks have parts, over a bar that is a mere line.
    enum Layer : int { kBarLayer, kPartLayer, kDoneLayer, kLabelLayer };

    /// Which of the chart's item fonts a name is drawn in.
    enum LabelStyle : int { kDarkLabel = 1, kLightLabel = 2, kMutedLabel = 3 };

    const PlanTask &Task(int task) const
    {
        return GetPlan().Tasks.at(static_cast<std::size_t>(task));
    }
    const TaskItems &Items(int task) const { return m_items.at(static_cast<std::size_t>(task)); }
    /// Of a bar or another item of a task.
    int TaskOf(const TzuDataEntity_Spanbar &item) const;

    // Filling, PlanChart.cpp.
    void ShowPlan();
    void Fill();
    void AddTask(int task);
    void AddBars(const PlanTask &task, TaskItems &items);
    void AddDone(const PlanTask &task, TGantRow *row, std::span<const PlanSpan> parts);
    TzuDataEntity_Spanbar *AddItem(const PlanTask &task, TGantRow *row, int layer,
                                   const PlanSpan &span);
    void AddLinks();
    void FitTree();

    // Looks, PlanChartLooks.cpp.
    void ApplyLooks();
    void ApplyFonts();
    void ColorItems();
    TColor ColorOf(const PlanTask &task) const;

    // Painting, PlanChartPaint.cpp.
    void PaintBackground(const TRect &rect, TCanvas &canvas);
    void PaintForeground(const TRect &rect, TCanvas &canvas);
    void ShadeDaysOff(const TRect &rect, TCanvas &canvas) const;
    void PlaceLabels(const TRect &rect, TCanvas &canvas);
    void PlaceLabel(int task, TGantRow &row, const TRect &area, TCanvas &canvas);
    void PaintGrid(const TRect &rect, TCanvas &canvas) const;
    void PaintLink(const TzuDataEntity_Link &link, TCanvas &canvas);
    LinkEnd EndOf(const TzuDataEntity_Spanbar &bar, const TzuDataEntity_Spanbar &other);
    void PaintNow(const TRect &rect, TCanvas &canvas) const;

    // Input, PlanChartInput.cpp.
    bool HandleWheel(QWheelEvent &event);
    void TurnRows(int turn);
    void HandleToolTip(QHelpEvent &event);
    void PointAt(int pixel);
    void PointerLeft();

    static constexpr double kZoomStep = 1.5;

    PlanDocument &m_document;
    PlanTree *m_tree = nullptr; ///< is Tree()
    PlanTitle *m_title = nullptr;
    std::vector<TaskItems> m_items;            ///< one per task
    std::vector<OutsideLabel> m_outsideLabels; ///< of the paint that runs
    ChartLooks m_looks;
    TDateTime m_now;
    QBasicTimer m_nowTimer;
    std::optional<int> m_pointerPixel;
    int m_wheelRest = 0;
    bool m_scrollBarShown = true;
};

} // namespace korvane::planner
