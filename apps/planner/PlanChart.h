// The Gantt chart of a plan.
#pragma once

#include "LinkRoute.h"
#include "PlanView.h"
#include "plan/PlanEditor.h"

#include <memory>
#include <span>
#include <unordered_map>
#include <vector>

class QMenu;

namespace korvane::planner {

class PlanTable;

/// Shows a document's plan: its outline in the row tree, a bar per task, and the links between
/// them. Another plan is shown in its whole length. As the watcher of edits the chart follows the
/// plan at the cost of what has changed; selection, expansion and scroll position stay.
///
/// What the user does in area and tree is handed to the edits. Bars are moved and resized, summary
/// bars only moved; rows are changed in the tree. With Ctrl a drag copies the task below the
/// original. Times change by whole days as long as hours are too narrow to be told apart, so that
/// times of day stay. A chart without edits only shows.
///
/// A table of the tasks can stand in for the tree. Both have the same rows; what is expanded in one
/// is so in the other when they change places. The table is made when it is first shown.
///
/// A notch of the wheel zooms so little that two of them are a step of the menu.
class PlanChart : public PlanView, public IPlanWatcher
{
    Q_OBJECT

public:
    /// `document` is observed and has to live as long.
    explicit PlanChart(PlanDocument &document, QWidget *parent = nullptr);
    ~PlanChart() override;

    /// Lets the user edit the plans to come; observed.
    void SetEdits(PlanEdits *edits);

    /// Whether the dates that were planned once are drawn below the bars. They are not, initially.
    void SetBaselinesShown(bool shown);
    bool AreBaselinesShown() const { return m_baselinesShown; }
    /// Whether arrows mark deadlines. They do, initially.
    void SetDeadlinesShown(bool shown);
    bool AreDeadlinesShown() const { return m_deadlinesShown; }

    /// Whether the table stands beside the area, rather than the tree. It does not, initially.
    void SetTableShown(bool shown);
    bool IsTableShown() const { return UseGridNotTree(); }
    /// Shows the table with the columns and the order of rows of another chart's table.
    void ShowTableOf(PlanChart &other);
    /// Stores what is being typed into the table. False when it is refused and still there.
    bool CommitEdit();
    /// Adds an item per column of the table, by which it is shown or hidden.
    void FillColumnMenu(QMenu &menu);
    void ExpandAll();
    void CollapseAll();

    /// Index of the task whose bar is at the point of the area, or kNoIndex.
    int TaskAt(QPoint areaPoint) const;
    /// Null for a task without dates.
    const TzuDataEntity_Spanbar *BarOf(int task) const { return Items(task).Bar; }
    const TzuDataEntity_Tree *NodeOf(int task) const { return Items(task).Node; }
    /// Of a node of the tree or of the table.
    static int TaskOfNode(const TzuDataEntity &node) { return TaskOf(node); }

    /// Those of the selected bars; without any the one of the tree's current row while that is
    /// shown. Ascending.
    std::vector<int> SelectedTasks();
    std::vector<int> SelectedPlanLinks() const;
    /// Selects the tasks and, when none of them is in view, scrolls to the first one.
    void SelectTasks(const std::vector<int> &tasks);
    /// Whether a drag from one bar to another links the tasks, instead of moving the first one.
    void SetLinking(bool on);
    bool IsLinking() const { return m_linking; }
    /// Begins to edit the task's name in the tree, or in the table the cell with the focus.
    void EditName(int task);

    // IPlanWatcher
    void TaskChanged(int task) override;
    void TasksInserted(std::span<const int> tasks) override;
    void TasksRemoved(std::span<const int> tasks) override;
    void SubtreeMoved(int from, int count, int to) override;
    void LinkChanged(int link) override;
    void LinksInserted(std::span<const int> links) override;
    void LinksRemoved(std::span<const int> links) override;

Q_SIGNALS:
    /// The only selected link was double-clicked, or the Enter key pressed for it.
    void linkActivated(int link);
    /// The menu of tasks is wanted in the table.
    void tableMenuWanted(QPoint globalPoint);

protected:
    TGantRow *CreateRow(TzuDataEntity_Tree *treeNode,
                        TzuDataEntity_GridTreeNode *gridNode) override;

private:
    /// What shows a task. Node and bar refer to it, so that they need not be told when tasks
    /// before theirs come and go.
    struct TaskItems
    {
        int Task = kNoIndex;
        std::int64_t Uid = kNoUid;
        TzuDataEntity_Tree *Node = nullptr;
        TzuDataEntity_GridTreeNode *GridNode = nullptr; ///< once there is a table
        TzuDataEntity_Spanbar *Bar = nullptr;           ///< the task in full; links end at it
    };

    /// What shows a link, null while one of its tasks has no bar.
    struct LinkItems
    {
        int Link = kNoIndex;
        TzuDataEntity_Link *Line = nullptr;
    };

    /// A name that did not fit into its bar.
    struct OutsideLabel
    {
        int Task = kNoIndex;
        TRect Rect;
    };

    const PlanTask &Task(int task) const
    {
        return GetPlan().Tasks.at(static_cast<std::size_t>(task));
    }
    const TaskItems &Items(int task) const { return *m_items.at(static_cast<std::size_t>(task)); }
    static int TaskOf(const TzuDataEntity &barOrNode);
    int TaskOfBar(const TzuDataEntity_Spanbar &bar) const override { return TaskOf(bar); }
    static bool IsShownAsMilestone(const PlanTask &task)
    {
        return task.Milestone && !task.HasChildren;
    }
    static bool IsPartlyDone(const PlanTask &task)
    {
        return task.PercentComplete > 0 && task.PercentComplete < 100 && !task.IsSummary()
               && !IsShownAsMilestone(task);
    }
    static int LinkOf(const TzuDataEntity_Link &line);

    // Filling, PlanChart.cpp.
    void ShowPlan() override;
    void Fill();

    // Items, PlanChartItems.cpp.
    TzuDataList_Tree &ChildrenOf(int parent);
    int PlaceAmongSiblings(int task) const;
    void AddNode(int task);
    void UpdateNode(int task);
    void UpdateBar(int task) override;
    void FillBar(const PlanTask &task, TzuDataEntity_Spanbar &bar) const;
    void AddBarOf(int task);
    void RemoveBarOf(int task);
    void AddLine(int link);
    void NumberTasks(int first);
    void NumberLinks(int first);
    void PlacesChanged();

    // Editing, PlanChartEdit.cpp.
    void ConnectGestures();
    void ConnectTree();
    void MoveInTree(const TTreeMove &move);
    std::vector<int> TasksOf(const std::vector<TzuDataEntity_Tree *> &nodes) const;
    void AreaSelectionChanged();
    void TreeSelectionChanged();
    void FollowTree();
    bool OutlineHasFocus();
    std::vector<int> TasksInOutline();
    int CurrentTask();
    void NameEdited(TzuDataEntity_Tree &node);
    void ShowTask(const std::vector<int> &tasks);

    // The table, PlanChartTable.cpp.
    void MakeTable();
    void FillTable();
    void AddGridNode(int task);
    void ItemsAdded(std::span<const int> added, std::size_t count);
    void TextsChanged();
    void MoveGridNode(int task);
    void CopyExpansions();
    void ApplyTableLooks();
    void OpenTableMenu(QPoint at);
    int WidthOfTable();

    // Looks, PlanChartLooks.cpp.
    void ColorItems() override;

    // Painting, PlanChartPaint.cpp.
    void PaintBackground(const TRect &rect, TCanvas &canvas) override;
    void PaintForeground(const TRect &rect, TCanvas &canvas) override;
    void PlaceLabels(const TRect &rect, TCanvas &canvas);
    void PlaceLabel(int task, TGantRow &row, const TRect &area, TCanvas &canvas);
    void PaintTask(const TzuDataEntity_Spanbar &bar, TCanvas &canvas, const TRect &rect) const;
    void PaintLink(const TzuDataEntity_Link &link, TCanvas &canvas);
    LinkRoute RouteOf(const TzuDataEntity_Link &link);
    LinkEnd EndOf(const TzuDataEntity_Spanbar &bar, const TzuDataEntity_Spanbar &other);

    // Baselines and deadlines, PlanChartMarks.cpp.
    int RowHeightFor(int textHeight) const override;
    /// What rows are higher by, and bars keep clear of, for the baselines.
    int BaselineRoom() const;
    /// Calls `function(task, row's rectangle)`.
    template <typename Function>
    void ForTasksOnScreen(const Function &function);
    void PaintBaselines(const TRect &area, TCanvas &canvas);
    void PaintDeadlines(TCanvas &canvas);
    /// Where the arrow of a deadline ends that stands just behind the bar; or else the bar does.
    int DeadlineBeside(int task, const TRect &bar) const;

    void HandleToolTip(QHelpEvent &event) override;

    std::vector<std::unique_ptr<TaskItems>> m_items;     ///< one per task
    std::vector<std::unique_ptr<LinkItems>> m_lines;     ///< one per link
    std::unordered_map<std::int64_t, bool> m_expansions; ///< of tasks removed, by UID
    PlanTable *m_table = nullptr;                        ///< null until it is shown
    int m_treeWidth = 0; ///< while the table is shown; 0 for what fits
    bool m_linking = false;
    bool m_selecting = false;                  ///< area and tree are being brought in step
    bool m_followingTree = false;              ///< FollowTree is about to run
    std::vector<OutsideLabel> m_outsideLabels; ///< of the paint that runs
    bool m_baselinesShown = false;
    bool m_deadlinesShown = true;
};

} // namespace korvane::planner
