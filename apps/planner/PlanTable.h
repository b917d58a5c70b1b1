// The table of a plan's tasks that stands beside the chart in place of the tree.
#pragma once

#include "ChartLooks.h"
#include "cellgrid/zuBabGridEdit.h"
#include "foundation/zuCanvas.h"
#include "plan/TaskCells.h"

#include <QObject>

#include <array>
#include <cstdint>
#include <vector>

class QMenu;

namespace korvane {

class TAxisContentItem;
class TzuDataEntity_GridTreeNode;
class TzuGrid;
class TzuGrid_Column;

} // namespace korvane

namespace korvane::planner {

class PlanDocument;
class PlanEdits;

/// Columns, texts, editing and sorting of a grid whose nodes are the tasks of PlanChart. The texts
/// come from the plan whenever they are shown, so that nothing has to be kept in step.
///
/// What the user types, pastes or clears goes to the edits, each action as one step. The Delete key
/// empties selected cells; on rows selected by their numbers it deletes the tasks, as elsewhere. A
/// text that is refused stays in its editor, with the reason. Sorting orders the rows alone; by
/// number they stand in the order of the plan again. Width, order and visibility of the columns are
/// kept in the settings.
class PlanTable : public QObject
{
    Q_OBJECT

public:
    /// Both are observed and have to live as long.
    PlanTable(TzuGrid &grid, PlanDocument &document, QObject *parent);
    ~PlanTable() override;

    /// Lets the user edit; observed. Without edits the table only shows, and as it is by default.
    void SetEdits(PlanEdits *edits);
    /// Shows the columns of another table in its order and widths, and the rows sorted as there.
    void ShowLike(const PlanTable &other);
    void ApplyLooks(const ChartLooks &looks, const TFont &font, int rowHeight);

    /// Something that is shown has changed.
    void PlanChanged();
    /// Links were changed, added or removed, or tasks have got other numbers.
    void LinksChanged() { m_links.OutOfDate(); }
    /// The tasks with a selected cell, ascending.
    std::vector<int> SelectedTasks() const;
    /// Selects whole rows and makes one the current one, without a signal.
    void SelectRows(const std::vector<TzuDataEntity_GridTreeNode *> &nodes,
                    TzuDataEntity_GridTreeNode *current);
    /// Begins to edit a cell of the task: the one with the focus, or else in the given column.
    void Edit(TzuDataEntity_GridTreeNode &node, TaskColumn column);
    /// Adds an item per column, by which it is shown or hidden.
    void FillColumnMenu(QMenu &menu);
    /// Pixels that all columns on show take.
    int WantedWidth() const;

    bool eventFilter(QObject *object, QEvent *event) override;

Q_SIGNALS:
    /// The user has selected other cells.
    void selectionChanged();

private:
    const Plan &GetPlan() const;
    TaskColumn ColumnOf(const TAxisContentItem &item) const;
    TzuGrid_Column &Column(TaskColumn column) const
    {
        return *m_columns.at(static_cast<std::size_t>(column));
    }
    static int TaskOf(const TAxisContentItem &row);
    void AddColumns();
    void RestoreColumns();
    void StoreColumns();
    QString TextOf(int task, TaskColumn column);
    double NumberOf(int index, TaskColumn column) const;
    void Sort(bool &handled);
    void ConnectEditing();
    void SetCell(int task, TaskColumn column, const QString &text);
    QString StepText(TGridUserChange kind, int count) const;
    bool IsAboutCells() const;

    TzuGrid &m_grid;
    PlanDocument &m_document;
    PlanEdits *m_edits = nullptr;
    std::array<TzuGrid_Column *, kTaskColumns> m_columns{};
    TaskCells m_cells;
    PredecessorIndex m_links;
    int m_editedTask = kNoIndex; ///< of the last cell that was set
    TaskColumn m_editedColumn = TaskColumn::Name;
};

} // namespace korvane::planner
