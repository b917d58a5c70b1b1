#include "PlanTable.h"

#include "PlanChart.h"
#include "PlanDocument.h"
#include "PlanEdits.h"
#include "foundation/qt/zuConvert.h"
#include "foundation/zuTranslate.h"
#include "grid/qt/zuGrid.h"
#include "plan/PlannerText.h"

#include <QCollator>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>
#include <QSettings>
#include <QSignalBlocker>

#include <algorithm>
#include <numeric>
#include <stdexcept>

namespace korvane::planner {

namespace {

constexpr std::array<int, kTaskColumns> kWidths{44, 230, 96, 96, 72, 104, 140, 76};
constexpr auto kRightLayout = "right";
constexpr auto kSettings = "table";

TColumnKind KindOf(TaskColumn column)
{
    switch (column) {
    case TaskColumn::Start:
    case TaskColumn::Finish:
        return TColumnKind::tckDate;
    case TaskColumn::Resources:
        return TColumnKind::tckCombo;
    default:
        return TColumnKind::tckSimpleEdit;
    }
}

bool IsRightAligned(TaskColumn column)
{
    return column == TaskColumn::Number || column == TaskColumn::Duration
           || column == TaskColumn::PercentComplete;
}

/// A translucent colour as it looks on another one.
TColor Opaque(const QColor &color, TColor below)
{
    const QColor back = ToQt(below, QPalette());
    const auto mixed = [share = color.alphaF()](double over, double under) {
        return over * share + under * (1 - share);
    };
    return FromQt(QColor::fromRgbF(static_cast<float>(mixed(color.redF(), back.redF())),
                                   static_cast<float>(mixed(color.greenF(), back.greenF())),
                                   static_cast<float>(mixed(color.blueF(), back.blueF()))));
}

QString KeyOf(TaskColumn column)
{
    return QString::fromUtf8(TaskColumnKey(column));
}

} // namespace

PlanTable::PlanTable(TzuGrid &grid, PlanDocument &document, QObject *parent)
    : QObject(parent)
    , m_grid(grid)
    , m_document(document)
{
    m_grid.SetHasInfoCol(false);
    m_grid.SetUserSortEnable(true);
    m_grid.SetAutoEditMode(true);
    m_grid.SetReadOnly(true);
    AddColumns();
    m_grid.OnGetCellText = [this](auto *, TAxisContentItem *column, TAxisContentItem *row,
                                  std::string &text) {
        if (TzuGridTree::NodeOf(row) != nullptr) {
            text = FromQt(TextOf(TaskOf(*row), ColumnOf(*column)));
        }
    };
    m_grid.OnUserSort = [this](TObject *, TzuGrid_Column *, bool &handled) { Sort(handled); };
    m_grid.OnSelectionChanged = [this](TObject *) { Q_EMIT selectionChanged(); };
    m_grid.OnAfterUserSize = [this](TObject *) { StoreColumns(); };
    m_grid.OnBeforeRenderCell = [this](TObject *, TCellRender &cell) {
        const auto *node = TzuGridTree::NodeOf(cell.Row);
        if (node != nullptr && ColumnOf(*cell.Column) == TaskColumn::Name) {
            const auto task = static_cast<std::size_t>(PlanChart::TaskOfNode(*node));
            cell.Font.Bold = GetPlan().Tasks.at(task).HasChildren;
        }
    };
    ConnectEditing();
    m_grid.installEventFilter(this);
}

PlanTable::~PlanTable()
{
    StoreColumns();
}

// --- columns -------------------------------------------------------------------------------------

void PlanTable::AddColumns()
{
    TzuCellLayout &right = m_grid.CellLayouts().Add();
    right.SetName(kRightLayout);
    right.SetHorzAlignRight(true);
    for (int i = 0; i < kTaskColumns; ++i) {
        const auto column = static_cast<TaskColumn>(i);
        TzuGrid_Column &shown =
            i < m_grid.Columns().Count() ? m_grid.Columns().At(i) : m_grid.Columns().Add();
        shown.SetHeaderText(FromQt(TaskColumnTitle(column)));
        shown.SetKind(KindOf(column));
        shown.SetWidth(kWidths.at(static_cast<std::size_t>(i)));
        shown.SetSortEnable(true);
        shown.SetReadOnly(column == TaskColumn::Number);
        shown.SetTreeButton(column == TaskColumn::Name);
        if (IsRightAligned(column)) {
            shown.SetLayoutName(kRightLayout);
        }
        m_columns.at(static_cast<std::size_t>(i)) = &shown;
    }
}

TaskColumn PlanTable::ColumnOf(const TAxisContentItem &item) const
{
    const auto found = std::ranges::find(m_columns, item.Value());
    return static_cast<TaskColumn>(found - m_columns.begin());
}

void PlanTable::RestoreColumns()
{
    QSettings settings;
    settings.beginGroup(kSettings);
    const QStringList order = settings.value(QStringLiteral("order")).toStringList();
    for (int i = 0; i < kTaskColumns; ++i) {
        const auto which = static_cast<TaskColumn>(i);
        TzuGrid_Column &shown = Column(which);
        const int width = settings.value(KeyOf(which) + QStringLiteral("/width")).toInt();
        if (width > 0) {
            shown.SetWidth(width);
        }
        shown.SetHidden(which != TaskColumn::Name
                        && settings.value(KeyOf(which) + QStringLiteral("/hidden")).toBool());
    }
    // From the last to the first, each to the front.
    for (int place = kTaskColumns; place-- > 0;) {
        const auto found = std::ranges::find_if(m_columns, [&](const TzuGrid_Column *column) {
            const auto which = std::ranges::find(m_columns, column) - m_columns.begin();
            return place < order.size() && KeyOf(static_cast<TaskColumn>(which)) == order[place];
        });
        if (found != m_columns.end()) {
            m_grid.Columns().Move(m_grid.Columns().IndexOf(*found), 0);
        }
    }
}

void PlanTable::StoreColumns()
{
    if (m_edits == nullptr) {
        return;
    }
    QSettings settings;
    settings.beginGroup(kSettings);
    QStringList order;
    for (int i = 0; i < m_grid.Columns().Count(); ++i) {
        const auto found = std::ranges::find(m_columns, &m_grid.Columns().At(i));
        const QString key = KeyOf(static_cast<TaskColumn>(found - m_columns.begin()));
        order += key;
        settings.setValue(key + QStringLiteral("/width"), (*found)->Width());
        settings.setValue(key + QStringLiteral("/hidden"), (*found)->Hidden());
    }
    settings.setValue(QStringLiteral("order"), order);
}

void PlanTable::ShowLike(const PlanTable &other)
{
    const auto indexOf = [&other](const TzuGrid_Column *column) {
        return std::ranges::find(other.m_columns, column) - other.m_columns.begin();
    };
    for (int place = 0; place < other.m_grid.Columns().Count(); ++place) {
        const TzuGrid_Column &theirs = other.m_grid.Columns().At(place);
        TzuGrid_Column &ours = *m_columns.at(static_cast<std::size_t>(indexOf(&theirs)));
        ours.SetWidth(theirs.Width());
        ours.SetHidden(theirs.Hidden());
        m_grid.Columns().Move(m_grid.Columns().IndexOf(&ours), place);
    }
    std::vector<TGridSortKey> keys = other.m_grid.SortKeys();
    for (TGridSortKey &key : keys) {
        key.Column = m_columns.at(static_cast<std::size_t>(indexOf(key.Column)));
    }
    m_grid.SetSortKeys(std::move(keys));
}

void PlanTable::FillColumnMenu(QMenu &menu)
{
    for (int i = 0; i < m_grid.Columns().Count(); ++i) {
        TzuGrid_Column &column = m_grid.Columns().At(i);
        QAction *action = menu.addAction(ToQt(column.HeaderText()));
        action->setCheckable(true);
        action->setChecked(!column.Hidden());
        action->setEnabled(&column != &Column(TaskColumn::Name));
        connect(action, &QAction::toggled, this, [this, &column](bool on) {
            column.SetHidden(!on);
            StoreColumns();
        });
    }
}

int PlanTable::WantedWidth() const
{
    int width = m_grid.VertScrollBar().sizeHint().width();
    for (const TzuGrid_Column *column : m_columns) {
        width += column->Hidden() ? 0 : column->Width();
    }
    return width;
}

void PlanTable::ApplyLooks(const ChartLooks &looks, const TFont &font, int rowHeight)
{
    m_grid.SetFont(font);
    m_grid.SetColor(looks.Back);
    const TColor line = Opaque(looks.Grid, looks.Back);
    TLayoutProp &plain = m_grid.DefaultLayoutProp();
    plain.BackColor = looks.Back;
    plain.FrontColor = looks.Text;
    plain.FrameColor = line;
    plain.MinHeight = rowHeight;
    plain.VertAlignCenter = true;
    plain.EndEllipsis = true;
    for (int i = 0; i < m_grid.CellLayouts().Count(); ++i) {
        TzuCellLayout &layout = m_grid.CellLayouts().At(i);
        layout.SetBackColor(looks.Back);
        layout.SetFrontColor(looks.Text);
        layout.SetFrameColor(line);
        layout.SetMinHeight(rowHeight);
        layout.SetVertAlignCenter(true);
        layout.SetEndEllipsis(true);
    }
    m_grid.LayoutOutOfDate();
}

// --- texts ---------------------------------------------------------------------------------------

int PlanTable::TaskOf(const TAxisContentItem &row)
{
    return PlanChart::TaskOfNode(*TzuGridTree::NodeOf(&row));
}

const Plan &PlanTable::GetPlan() const
{
    return m_document.GetPlan();
}

QString PlanTable::TextOf(int task, TaskColumn column)
{
    return m_cells.Text(GetPlan(), task, column, m_links);
}

void PlanTable::PlanChanged()
{
    m_grid.LayoutOutOfDate();
}

// --- sorting -------------------------------------------------------------------------------------

namespace {

/// By which rows are sorted in one column: a number, or a text where that is not enough.
struct SortValues
{
    std::vector<double> Numbers;
    std::vector<QCollatorSortKey> Texts;
    bool Descending = false;

    int Compare(int a, int b) const
    {
        const auto first = static_cast<std::size_t>(a);
        const auto second = static_cast<std::size_t>(b);
        int order = 0;
        if (!Texts.empty()) {
            order = Texts[first].compare(Texts[second]);
        } else if (Numbers[first] != Numbers[second]) {
            order = Numbers[first] < Numbers[second] ? -1 : 1;
        }
        return Descending ? -order : order;
    }
};

} // namespace

double PlanTable::NumberOf(int index, TaskColumn column) const
{
    constexpr double kNone = -1e9; // before everything else
    const PlanTask &task = GetPlan().Tasks.at(static_cast<std::size_t>(index));
    switch (column) {
    case TaskColumn::Start:
        return task.Dates ? task.Dates->Start : kNone;
    case TaskColumn::Finish:
        return task.Dates ? task.Dates->Finish : kNone;
    case TaskColumn::Duration:
        return task.Dates ? GetPlan().ProjectCalendar().MinutesBetween(task.Dates->Start,
                                                                       task.Dates->Finish)
                          : kNone;
    case TaskColumn::PercentComplete:
        return task.PercentComplete;
    default:
        return index;
    }
}

void PlanTable::Sort(bool &handled)
{
    handled = true;
    const int count = static_cast<int>(GetPlan().Tasks.size());
    QCollator collator;
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::vector<SortValues> keys;
    for (const TGridSortKey &key : m_grid.SortKeys()) {
        const auto found = std::ranges::find(m_columns, key.Column);
        const auto column = static_cast<TaskColumn>(found - m_columns.begin());
        const bool isText = column == TaskColumn::Name || column == TaskColumn::Predecessors
                            || column == TaskColumn::Resources;
        SortValues &values = keys.emplace_back();
        values.Descending = key.Descending;
        for (int task = 0; task < count; ++task) {
            if (isText) {
                values.Texts.push_back(collator.sortKey(TextOf(task, column)));
            } else {
                values.Numbers.push_back(NumberOf(task, column));
            }
        }
    }
    std::vector<TAxisContentItem *> rows;
    const TAxisContentList &list = m_grid.RootCell().Rows();
    for (TAxisContentItem *row : list.LoadedItems()) {
        if (TzuGridTree::NodeOf(row) != nullptr) {
            rows.push_back(row);
        }
    }
    std::ranges::sort(rows, [&](const TAxisContentItem *a, const TAxisContentItem *b) {
        const int first = TaskOf(*a);
        const int second = TaskOf(*b);
        for (const SortValues &values : keys) {
            if (const int order = values.Compare(first, second)) {
                return order < 0;
            }
        }
        return first < second;
    });
    m_grid.GetTree()->Sort(rows);
}

// --- selection -----------------------------------------------------------------------------------

std::vector<int> PlanTable::SelectedTasks() const
{
    std::vector<int> tasks;
    TBabGridCellForViewer &root = m_grid.RootCell();
    const TCellSelection &selection = root.Selection();
    for (int row = selection.NextRow(root.Rows().FixedCount()); row >= 0;
         row = selection.NextRow(row + 1)) {
        const TzuDataEntity_GridTreeNode *node = m_grid.GetTree()->GetDataEntityFromRow(row);
        if (node == nullptr) {
            break; // a whole column reaches beyond the last row
        }
        if (node->GetVisible()) {
            tasks.push_back(PlanChart::TaskOfNode(*node));
        }
    }
    std::ranges::sort(tasks);
    return tasks;
}

void PlanTable::SelectRows(const std::vector<TzuDataEntity_GridTreeNode *> &nodes,
                           TzuDataEntity_GridTreeNode *current)
{
    const QSignalBlocker blocked(this);
    if (current != nullptr) {
        m_grid.SetCurrentDataEntity(current);
    }
    TBabGridCellForViewer &root = m_grid.RootCell();
    m_grid.ClearSelection();
    for (const auto *node : nodes) {
        const int row = m_grid.GetTree()->GetRow(*node);
        root.Selection().Select({0, row, TCellSelection::kAllColumns, row});
    }
    root.SelectionEvent.TriggerEvent(&root);
}

// --- editing -------------------------------------------------------------------------------------

void PlanTable::SetEdits(PlanEdits *edits)
{
    if (m_edits == nullptr && edits != nullptr) {
        RestoreColumns();
    }
    m_edits = edits;
    m_grid.SetReadOnly(edits == nullptr);
}

/// Whether cells are selected rather than tasks: neither whole rows nor their numbers.
bool PlanTable::IsAboutCells() const
{
    const TBabGridCellForViewer &root = m_grid.RootCell();
    const TCellSelection &selection = root.Selection();
    const TAxisContentItem *number =
        m_grid.Columns().ItemOf(Column(TaskColumn::Number), m_grid.RootCell());
    return m_edits != nullptr && !selection.Empty()
           && !selection.ColumnHasSelected(TCellSelection::kAllColumns)
           && (number == nullptr || !selection.ColumnHasSelected(root.Columns().IndexOf(*number)));
}

/// A key that the table is to have is no shortcut of the window.
bool PlanTable::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride
        && static_cast<QKeyEvent *>(event)->matches(QKeySequence::Delete) && IsAboutCells()) {
        event->accept();
        return true;
    }
    return QObject::eventFilter(object, event);
}

void PlanTable::ConnectEditing()
{
    // What the user types is understood here, not by the kinds of the columns.
    m_grid.RootCell().OnCreateCell = [this](auto *, TAxisContentItem *column, auto *) {
        auto cell = std::make_unique<TBabSimpleCell>();
        if (ColumnOf(*column) == TaskColumn::Resources) {
            auto choices = std::make_unique<TBabCellData_Combo>();
            choices->FreeText = true; // several may work on a task
            for (const PlanResource &resource : GetPlan().Resources) {
                choices->Items.push_back(FromQt(resource.Name));
            }
            cell = std::make_unique<TBabSimpleCell>(std::move(choices));
        }
        return cell;
    };
    m_grid.OnSetCellText = [this](auto *, TAxisContentItem *column, TAxisContentItem *row,
                                  const std::string &text, bool &stored) {
        SetCell(TaskOf(*row), ColumnOf(*column), ToQt(text));
        stored = true;
    };
    m_grid.OnAddRowsForPaste = [this](TObject *, TBabGridCell *, int count) {
        if (m_edits != nullptr) {
            m_edits->AppendTasks(count);
        }
    };
    m_grid.OnBeginUserChange = [this](TObject *, TGridUserChange) {
        if (m_edits != nullptr) {
            m_edits->BeginCells();
        }
    };
    m_grid.OnEndUserChange = [this](TObject *, TGridUserChange kind, bool) {
        if (m_edits != nullptr) {
            m_edits->EndCells(m_links, [this, kind](int count) { return StepText(kind, count); });
        }
    };
}

/// What is thrown tells the user why the text stays in its editor.
void PlanTable::SetCell(int task, TaskColumn column, const QString &text)
{
    try {
        m_edits->SetCell({task, column, text}, m_cells, m_links);
    } catch (const PlanEditRefusal &refusal) {
        throw std::runtime_error(FromQt(refusal.Reason()));
    }
    m_editedTask = task;
    m_editedColumn = column;
}

QString PlanTable::StepText(TGridUserChange kind, int count) const
{
    if (kind == TGridUserChange::ucPaste) {
        return ToQt(Translate("Planner", "Paste %n cell(s)", nullptr, count));
    }
    if (kind == TGridUserChange::ucClear) {
        return ToQt(Translate("Planner", "Clear %n cell(s)", nullptr, count));
    }
    const QString name = QuotedName(GetPlan().Tasks.at(static_cast<std::size_t>(m_editedTask)));
    return m_editedColumn == TaskColumn::Name
               ? PlannerText::tr("Rename %1").arg(name)
               : PlannerText::tr("Change %1 of %2").arg(TaskColumnName(m_editedColumn), name);
}

void PlanTable::Edit(TzuDataEntity_GridTreeNode &node, TaskColumn column)
{
    const TGridCellAt focus = m_grid.FocusCell();
    const int row = m_grid.GetTree()->GetRow(node);
    const TAxisContentItem *item = m_grid.Columns().ItemOf(Column(column), m_grid.RootCell());
    if (row >= 0 && item != nullptr) {
        const bool isThere = m_grid.hasFocus() && focus.Row == row;
        const int at = isThere ? focus.Column : m_grid.RootCell().Columns().IndexOf(*item);
        m_grid.setFocus();
        m_grid.BeginEdit({&m_grid.RootCell(), at, row}, TEditBegin::Whole);
    }
}

} // namespace korvane::planner
