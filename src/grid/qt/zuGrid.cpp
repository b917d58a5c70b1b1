#include "grid/qt/zuGrid.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuSignalTiesImpl.h"
#include "grid/qt/zuGridColumnMenu.h"
#include "grid/qt/zuGridJson.h"

#include <QContextMenuEvent>
#include <QPointer>

#include <algorithm>
#include <vector>

namespace korvane {

TzuGrid::TzuGrid(QWidget *parent)
    : TBabGridView_Custom(parent)
    , TzuGridCore(RootCell(), [this] { LayoutOutOfDate(); })
{
    TieSignals();
    TBabGridCellForViewer &root = RootCell();
    root.OnVirtualLoad = [this](TBabGridCell *grid, TAxisContentItem *item, bool isRow) {
        if (isRow) {
            OnVirtualLoad(Self(), grid, item);
        }
    };
    root.OnCanUnload = [this](TBabGridCell *, TAxisContentItem *, bool isRow, bool &canUnload) {
        canUnload = isRow && OnVirtualLoad;
    };
    root.OnVirtualUnLoad = [this](TBabGridCell *grid, TAxisContentItem *item, bool isRow, bool &) {
        if (isRow) {
            OnVirtualUnLoad(Self(), grid, item);
        }
    };
}

/// An edit ends with what it is about.
static void WatchArgument(TLifeWatches &watches, const TCellEdit &edit)
{
    watches.Add(edit.At.Grid);
    watches.Add(edit.Column);
    watches.Add(edit.Row);
    watches.Add(edit.Cell);
}

void TzuGrid::TieSignals()
{
    const auto tie = [this](auto &event, auto signal) { m_signals.Tie(event, *this, signal); };
    tie(OnTopLeftChanged, &TzuGrid::topLeftChanged);
    tie(OnSelectionChanged, &TzuGrid::selectionChanged);
    tie(OnFocusCellChanged, &TzuGrid::focusCellChanged);
    tie(OnAfterUserSize, &TzuGrid::userSized);
    tie(OnColumnResized, &TzuGrid::columnResized);
    tie(OnRowResized, &TzuGrid::rowResized);
    tie(OnColumnSort, &TzuGrid::columnSorted);
    tie(OnEditStop, &TzuGrid::editStopping);
    tie(OnCellEdited, &TzuGrid::cellEdited);
    tie(OnBeforeEditWithCombo, &TzuGrid::comboEditStarting);
    tie(OnAddRowsForPaste, &TzuGrid::rowsForPasteWanted);
    tie(OnFind, &TzuGrid::findStarting);
    tie(OnBeginUserChange, &TzuGrid::userChangeBegun);
    tie(OnEndUserChange, &TzuGrid::userChangeEnded);
    tie(OnVirtualLoad, &TzuGrid::rowWanted);
    tie(OnVirtualUnLoad, &TzuGrid::rowUnloading);
    tie(OnInitSubGrid, &TzuGrid::subGridWanted);
    tie(OnInitTreeSubDataList, &TzuGrid::childrenWanted);
    tie(OnColumnMenu, &TzuGrid::columnMenuOpening);
}

TzuGrid::~TzuGrid()
{
    SetImageList(nullptr);
    TBabGridCellForViewer &root = RootCell();
    root.OnVirtualLoad = nullptr;
    root.OnCanUnload = nullptr;
    root.OnVirtualUnLoad = nullptr;
}

TzuDataEntity_GridTreeNode *TzuGrid::GetCurrentDataEntity()
{
    const TGridCellAt focus = FocusCell();
    return focus.Grid == &RootCell() && GetTree() != nullptr
               ? GetTree()->GetDataEntityFromRow(focus.Row)
               : nullptr;
}

void TzuGrid::SetCurrentDataEntity(TzuDataEntity_GridTreeNode *node)
{
    if (node == nullptr) {
        ClearSelection();
        return;
    }
    const TzuLifeWatch lives(*node);
    if (GetTree() == nullptr || node->Tree() != GetTree()) {
        return;
    }
    GetTree()->ExpandAncestors(*node);
    if (lives && node->GetVisible()) {
        const TAxisContentList &columns = RootCell().Columns();
        const int column = FocusCell().Grid == &RootCell()
                               ? FocusCell().Column
                               : columns.NearestShown(columns.FixedCount(), 1);
        ChooseCell({&RootCell(), column, GetTree()->GetRow(*node)}, TGridChoice::Set);
    }
}

TRect TzuGrid::GetRect(const TzuDataEntity_GridTreeNode &node)
{
    const TGridCellAt first = GetTopLeftCell(); // brings the layout up to date
    const bool shown =
        first && node.Row() != nullptr && node.Tree() == GetTree() && node.Row()->InVisibleList();
    return shown ? CellRect({&RootCell(), first.Column, GetTree()->GetRow(node)})
                 : TRect{-1, -1, -1, -1};
}

QByteArray TzuGrid::ColumnsText() const
{
    return GridCollectionToText(*this, QStringLiteral("Columns"));
}

void TzuGrid::SetColumnsText(const QByteArray &text)
{
    SetGridCollectionText(*this, "Columns", text);
}

QByteArray TzuGrid::SubGridsText() const
{
    return GridCollectionToText(*this, QStringLiteral("SubGrids"));
}

void TzuGrid::SetSubGridsText(const QByteArray &text)
{
    SetGridCollectionText(*this, "SubGrids", text);
}

QByteArray TzuGrid::CellLayoutsText() const
{
    return GridCollectionToText(*this, QStringLiteral("CellLayouts"));
}

void TzuGrid::SetCellLayoutsText(const QByteArray &text)
{
    SetGridCollectionText(*this, "CellLayouts", text);
}

void TzuGrid::HeaderClicked(const TGridCellAt &at, TShiftState shift)
{
    const TAxisContentItem *item = at.Grid->Columns().FindLoaded(at.Column);
    auto *column = item != nullptr ? dynamic_cast<TzuGrid_Column *>(item->Value()) : nullptr;
    const bool sorts =
        at.Grid == &RootCell() && column != nullptr && UserSortEnable() && column->SortEnable();
    if (sorts) {
        SortByUser(*column, shift.Ctrl);
    } else {
        SelectColumn(at, shift.Shift  ? TGridChoice::Extend
                         : shift.Ctrl ? TGridChoice::Toggle
                                      : TGridChoice::Set);
    }
}

void TzuGrid::MoveColumn(TBabGridCell &grid, int from, int to)
{
    const TAxisContentItem *item = grid.Columns().FindLoaded(from);
    auto *column = item != nullptr ? dynamic_cast<TzuGrid_Column *>(item->Value()) : nullptr;
    if (column == nullptr) {
        TBabGridView_Custom::MoveColumn(grid, from, to);
        return;
    }
    const int fixed = grid.Columns().FixedCount();
    column->Columns().Move(from - fixed, std::clamp(to - fixed, 0, column->Columns().Count() - 1));
}

namespace {

std::vector<TzuGrid_Column *> ColumnsOf(const TzuGrid_Columns &columns)
{
    std::vector<TzuGrid_Column *> result;
    for (int index = 0; index < columns.Count(); ++index) {
        result.push_back(&columns.At(index));
    }
    return result;
}

std::vector<TzuGrid_Column *> ColumnsOf(const TzuGrid_SubGrids &subGrids)
{
    std::vector<TzuGrid_Column *> result;
    for (int index = 0; index < subGrids.Count(); ++index) {
        const auto columns = ColumnsOf(subGrids.At(index).Columns());
        result.insert(result.end(), columns.begin(), columns.end());
    }
    return result;
}

QString CaptionsOf(const std::vector<TzuGrid_Column *> &columns)
{
    QStringList lines;
    for (const TzuGrid_Column *column : columns) {
        lines.append(ToQt(column->HeaderText())
                         .replace(u'\\', QStringLiteral("\\\\"))
                         .replace(u'\n', QStringLiteral("\\n")));
    }
    return lines.join(u'\n');
}

QString CaptionOf(const QString &line)
{
    QString caption;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const bool escaped = line[i] == u'\\' && i + 1 < line.size();
        i += escaped ? 1 : 0;
        caption.append(escaped && line[i] == u'n' ? QChar(u'\n') : line[i]);
    }
    return caption;
}

void SetCaptions(const std::vector<TzuGrid_Column *> &columns, const QString &texts)
{
    if (texts.isEmpty()) {
        return;
    }
    const QStringList lines = texts.split(u'\n');
    const auto count = std::min(lines.size(), static_cast<qsizetype>(columns.size()));
    for (qsizetype i = 0; i < count; ++i) {
        columns[static_cast<std::size_t>(i)]->SetHeaderText(FromQt(CaptionOf(lines[i])));
    }
}

} // namespace

QString TzuGrid::HeaderTexts() const
{
    return CaptionsOf(ColumnsOf(Columns()));
}

void TzuGrid::SetHeaderTexts(const QString &texts)
{
    SetCaptions(ColumnsOf(Columns()), texts);
}

QString TzuGrid::SubGridHeaderTexts() const
{
    return CaptionsOf(ColumnsOf(SubGrids()));
}

void TzuGrid::SetSubGridHeaderTexts(const QString &texts)
{
    SetCaptions(ColumnsOf(SubGrids()), texts);
}

void TzuGrid::SetImageListText(const QByteArray &text)
{
    const bool shown = m_namedImages.Text() != text;
    m_namedImages.SetText(text);
    if (shown) {
        SetImageList(nullptr); // the list is the same object
        SetImageList(m_namedImages.List());
    }
}

bool TzuGrid::IsOnHeader(QPoint at)
{
    const TGridHit hit = HitTest(ToGrid(at));
    return hit.At.Grid == &RootCell()
           && (hit.Part == TGridPart::ColumnHeader || hit.Part == TGridPart::ColumnBorder);
}

bool TzuGrid::PopupMenuIsFor(const QContextMenuEvent &event)
{
    const bool byKey = event.reason() == QContextMenuEvent::Keyboard;
    return byKey || !m_columnMenu || !IsOnHeader(event.pos());
}

void TzuGrid::contextMenuEvent(QContextMenuEvent *event)
{
    const QPointer<TzuGrid> self(this);
    TBabGridView_Custom::contextMenuEvent(event);
    if (self.isNull() || event->isAccepted() || !m_columnMenu) {
        return;
    }
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    if (!byKey && !IsOnHeader(event->pos())) {
        return;
    }
    TGridCellAt at = byKey ? FocusCell() : HitTest(ToGrid(event->pos())).At;
    QPoint where = event->pos();
    if (byKey && at) {
        MakeVisible(at);
        where = FromGrid(CellRect(at)).bottomLeft();
    }
    auto *menu = new TzuGridColumnMenu(*this, at);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const TAxisContentItem *item = at ? at.Grid->Columns().FindLoaded(at.Column) : nullptr;
    OnColumnMenu(Self(), item != nullptr ? dynamic_cast<TzuGrid_Column *>(item->Value()) : nullptr,
                 *menu);
    menu->popup(mapToGlobal(where));
    event->accept();
}

std::string TzuGrid::UpperCase(std::string text) const
{
    const bool ascii = std::all_of(text.begin(), text.end(),
                                   [](char c) { return static_cast<unsigned char>(c) < 0x80U; });
    return ascii ? TzuGridCore::UpperCase(std::move(text)) : FromQt(ToQt(text).toUpper());
}

} // namespace korvane
