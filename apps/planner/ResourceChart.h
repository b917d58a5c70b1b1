// Who does what, and who has too much to do.
#pragma once

#include "PlanView.h"
#include "plan/ResourceLoad.h"

#include <memory>

namespace korvane::planner {

/// Shows a document's plan by its resources: a row for each, a bar for each of its assignments, and
/// a last row with the tasks that nobody is assigned to. Bars that overlap are put into sub-rows.
/// Where a resource has more to do than it can, its row is hatched and underlined in red, and its
/// caption says by how much.
///
/// While it is hidden the chart costs nothing; it catches up when it is shown. It follows edits at
/// the cost of a walk over the tasks; only what assigns, adds or removes tasks fills it anew.
class ResourceChart : public PlanView
{
    Q_OBJECT

public:
    /// `document` is observed and has to live as long.
    explicit ResourceChart(PlanDocument &document, QWidget *parent = nullptr);

    /// Shows the plan as it is now, also while the chart is hidden.
    void BringUpToDate();

    /// Index of the task whose bar is at the point of the area, or kNoIndex.
    int TaskAt(QPoint areaPoint) const;
    /// Ascending, each once.
    std::vector<int> SelectedTasks() const;
    /// Selects all bars of the tasks and, when the first one is not in view, scrolls to it.
    void SelectTasks(const std::vector<int> &tasks);

    /// Resources, in the plan's order, and the row of what is not assigned, if there is any.
    int RowCount() const { return static_cast<int>(m_rows.size()); }
    TGantRow *RowOf(int row) const;
    /// Too much work of a row.
    const std::vector<LoadStretch> &OverloadOfRow(int row) const { return m_rows.at(row)->Over; }

protected:
    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// A bar; the bar refers to it.
    struct Place
    {
        int Task = 0;
        int Row = 0;
        double Units = 1;
        TzuDataEntity_Spanbar *Bar = nullptr;
        std::optional<PlanSpan> Measured = {}; ///< dates that the row's load counts
    };
    /// The node refers to it.
    struct Row
    {
        int Resource = kNoIndex; ///< none for what is not assigned
        TzuDataEntity_Tree *Node = nullptr;
        std::vector<int> Places;
        std::vector<LoadStretch> Over;
        double Peak = 0; ///< units, of the overload
    };

    void ShowPlan() override;
    void ColorItems() override;
    void PaintBackground(const TRect &rect, TCanvas &canvas) override;
    void PaintForeground(const TRect &rect, TCanvas &canvas) override;
    void HandleToolTip(QHelpEvent &event) override;
    int RowHeightFor(int textHeight) const override;
    int TaskOfBar(const TzuDataEntity_Spanbar &bar) const override;
    void UpdateBar(int task) override;

    // Following the plan, ResourceChartRows.cpp.
    bool IsSamePlan() const;
    void Fill();
    void MakePlaces();
    void AddRow(int row);
    void FillBar(const PlanTask &task, TzuDataEntity_Spanbar &bar) const;
    bool IsShownAs(const PlanTask &task, const TzuDataEntity_Spanbar &bar) const;
    TColor BarColorOf(const PlanTask &task) const;
    void Follow();
    int MeasureRow(Row &row);
    std::string CaptionOf(const Row &row) const;
    const PlanResource &ResourceOf(const Row &row) const
    {
        return GetPlan().Resources.at(static_cast<std::size_t>(row.Resource));
    }
    std::span<const Place> PlacesOf(int task) const;
    static const Row &RowOf(const TGantRow &row);

    void ConnectInput();
    void PaintBar(const TzuDataEntity_Spanbar &bar, TCanvas &canvas, const TRect &rect);
    /// Calls `paint(rect)` where the visible rows have too much work.
    template <typename Paint>
    void ForOverloads(const TRect &area, const Paint &paint);
    void ShowTreeToolTip(const QHelpEvent &event);
    QString ToolTipOf(const Row &row) const;
    void ShowTask(int task);

    bool m_isStale = true;
    bool m_selecting = false;
    int m_mostAtOnce = 1;        ///< bars in one row
    std::vector<Place> m_places; ///< by task
    std::vector<std::unique_ptr<Row>> m_rows;
    std::vector<std::int64_t> m_uids;          ///< of the tasks that are shown
    std::vector<PlanAssignment> m_assignments; ///< that are shown
    QTimer m_followTimer;
};

} // namespace korvane::planner
