#include "grid/qt/zuGridColumnMenu.h"

#include "foundation/qt/zuConvert.h"
#include "grid/qt/zuGrid.h"

#include <algorithm>

namespace korvane {

namespace {

constexpr int kSizeStep = 20; ///< pixels
constexpr int kLeastWidth = 8;

} // namespace

TzuGridColumnMenu::TzuGridColumnMenu(TzuGrid &grid, const TGridCellAt &at)
    : QMenu(&grid)
    , m_grid(grid)
{
    setObjectName(QStringLiteral("gridColumnMenu"));
    if (at.Grid == &grid.RootCell()) {
        const TAxisContentItem *item = at.Grid->Columns().FindLoaded(at.Column);
        m_column = item != nullptr ? dynamic_cast<const TzuGrid_Column *>(item->Value()) : nullptr;
    }
    TzuGrid_Column *column = Column();
    if (column != nullptr) {
        BuildSort(*column);
        BuildSize();
        BuildMove();
    }
    BuildChooser(column);
}

int TzuGridColumnMenu::ColumnIndex() const
{
    return m_grid.Columns().IndexOf(m_column);
}

TzuGrid_Column *TzuGridColumnMenu::Column() const
{
    const int index = ColumnIndex();
    return index >= 0 ? m_grid.Columns().GetColumn(index) : nullptr;
}

void TzuGridColumnMenu::BuildSort(TzuGrid_Column &column)
{
    if (!m_grid.UserSortEnable() || !column.SortEnable()) {
        return;
    }
    const auto add = [&](const QString &text, TSortMark mark) {
        QAction *action = addAction(text, this, [this, mark] {
            TzuGrid_Column *sorted = Column();
            if (sorted != nullptr && m_grid.CommitEdit()) {
                m_grid.SetSortKeys(
                    mark == TSortMark::None
                        ? std::vector<TGridSortKey>()
                        : std::vector<TGridSortKey>{{sorted, mark == TSortMark::Descending}});
            }
        });
        action->setCheckable(mark != TSortMark::None);
        action->setChecked(mark != TSortMark::None && column.SortMark() == mark);
        return action;
    };
    add(tr("Sort &Ascending"), TSortMark::Ascending);
    add(tr("Sort &Descending"), TSortMark::Descending);
    add(tr("&No Sorting"), TSortMark::None)->setEnabled(!m_grid.SortKeys().empty());
    addSeparator();
}

void TzuGridColumnMenu::BuildSize()
{
    if (!m_grid.UserSizing()) {
        return;
    }
    const auto at = [this](int index) {
        TBabGridCell &root = m_grid.RootCell();
        return TGridCellAt{&root, root.Columns().FixedCount() + index, 0};
    };
    addAction(tr("&Fit Width"), this, [this, at] {
        if (Column() != nullptr) {
            m_grid.FitColumn(at(ColumnIndex()));
        }
    });
    addAction(tr("Fit A&ll Columns"), this, [this, at] {
        for (int index = 0; index < m_grid.Columns().Count(); ++index) {
            if (!m_grid.Columns().At(index).Hidden()) {
                m_grid.FitColumn(at(index));
            }
        }
    });
    addAction(tr("&Wider"), this, [this] { Resize(kSizeStep); });
    addAction(tr("Na&rrower"), this, [this] { Resize(-kSizeStep); });
    addSeparator();
}

void TzuGridColumnMenu::Resize(int by)
{
    if (TzuGrid_Column *column = Column()) {
        column->SetWidth(std::max(kLeastWidth, column->Width() + by));
        m_grid.OnAfterUserSize(&m_grid.RootCell());
    }
}

void TzuGridColumnMenu::BuildMove()
{
    if (!m_grid.ColumnMoving()) {
        return;
    }
    const int index = ColumnIndex();
    // Where the user sees them: mirrored, the first column is at the right.
    const int left = m_grid.isRightToLeft() ? 1 : -1;
    const auto isThere = [&](int step) {
        return index + step >= 0 && index + step < m_grid.Columns().Count();
    };
    addAction(tr("Move Le&ft"), this, [this, left] { Move(left); })->setEnabled(isThere(left));
    addAction(tr("Move Ri&ght"), this, [this, left] { Move(-left); })->setEnabled(isThere(-left));
    addSeparator();
}

/// Past hidden columns, which would make no difference.
void TzuGridColumnMenu::Move(int step)
{
    const int from = ColumnIndex();
    int to = from + step;
    const TzuGrid_Columns &columns = m_grid.Columns();
    while (from >= 0 && to >= 0 && to < columns.Count() && columns.At(to).Hidden()) {
        to += step;
    }
    if (from >= 0 && to >= 0 && to < columns.Count() && m_grid.CommitEdit()) {
        m_grid.Columns().Move(from, to);
    }
}

bool TzuGridColumnMenu::IsLastShown(const TzuGrid_Column &column) const
{
    int shown = 0;
    for (int index = 0; index < m_grid.Columns().Count(); ++index) {
        shown += m_grid.Columns().At(index).Hidden() ? 0 : 1;
    }
    return shown == 1 && !column.Hidden();
}

void TzuGridColumnMenu::BuildChooser(TzuGrid_Column *column)
{
    const auto hide = [this](const TzuGrid_Column *which, bool hidden) {
        const int index = m_grid.Columns().IndexOf(which);
        if (index >= 0 && m_grid.CommitEdit()) {
            m_grid.Columns().At(index).SetHidden(hidden);
        }
    };
    if (column != nullptr) {
        addAction(tr("&Hide"), this, [this, hide] {
            hide(m_column, true);
        })->setEnabled(!IsLastShown(*column));
    }
    QMenu *chooser = addMenu(tr("&Columns"));
    for (int index = 0; index < m_grid.Columns().Count(); ++index) {
        const TzuGrid_Column &each = m_grid.Columns().At(index);
        QString text = ToQt(each.HeaderText()).replace('&', QStringLiteral("&&"));
        if (text.isEmpty()) {
            text = tr("Column %1").arg(index + 1);
        }
        QAction *action = chooser->addAction(text);
        action->setCheckable(true);
        action->setChecked(!each.Hidden());
        action->setEnabled(!IsLastShown(each));
        connect(action, &QAction::toggled, this,
                [hide, which = &each](bool shown) { hide(which, !shown); });
    }
}

} // namespace korvane
