// The grid component.
#pragma once

#include "cellgrid/qt/zuBabGridView.h"
#include "foundation/qt/zuNamedImages.h"
#include "foundation/qt/zuSignalTies.h"
#include "foundation/zuExport.h"
#include "grid/zuGrid.h"

#include <QByteArray>

class QMenu;

namespace korvane {

/// A grid of columns of eight kinds, with sub-grids in cells and named cell layouts.
///
/// The rows are those of RootCell().Rows(), behind the header: added with AddRows, or only counted
/// with AddUnloaded and given to OnVirtualLoad when they come into view. Texts are put into cells
/// or come from OnGetCellText.
class KORVANE_WIDGETS_API TzuGrid : public TBabGridView_Custom, public TzuGridCore
{
    Q_OBJECT
    /// Published properties; each is described at the function that it reads.
    Q_PROPERTY(bool HasHeaders READ HasHeaders WRITE SetHasHeaders)
    Q_PROPERTY(bool HasInfoCol READ HasInfoCol WRITE SetHasInfoCol)
    Q_PROPERTY(QByteArray Columns READ ColumnsText WRITE SetColumnsText)
    Q_PROPERTY(QByteArray SubGrids READ SubGridsText WRITE SetSubGridsText)
    Q_PROPERTY(QByteArray CellLayouts READ CellLayoutsText WRITE SetCellLayoutsText)
    Q_PROPERTY(QString HeaderTexts READ HeaderTexts WRITE SetHeaderTexts)
    Q_PROPERTY(QString SubGridHeaderTexts READ SubGridHeaderTexts WRITE SetSubGridHeaderTexts)
    Q_PROPERTY(QByteArray ImageList READ ImageListText WRITE SetImageListText)
    Q_PROPERTY(bool UserSortEnable READ UserSortEnable WRITE SetUserSortEnable)
    Q_PROPERTY(bool ColumnMenu READ ColumnMenu WRITE SetColumnMenu)

public:
    /// A row of a grid is to be filled, or is about to go.
    using TOnVirtualNotify =
        TMethod<void(TObject *theGrid, TBabGridCell *theGridCell, TAxisContentItem *theItem)>;

    using TBabGridView_Custom::RootCell;

    /// Without columns and rows, with a row of headers and an info column.
    explicit TzuGrid(QWidget *parent = nullptr);
    ~TzuGrid() override;

    /// The node of the row with the focus, or nil.
    TzuDataEntity_GridTreeNode *GetCurrentDataEntity();
    /// Gives the node's row the focus, expanding what hides it; nil selects nothing.
    void SetCurrentDataEntity(TzuDataEntity_GridTreeNode *node);
    /// The node's cell in the first column behind the fixed ones that is shown, in pixels of the
    /// control; (-1, -1, -1, -1) when the node is hidden or scrolled away.
    TRect GetRect(const TzuDataEntity_GridTreeNode &node);

    /// The collections as forms store them, see GridCollectionToText; bytes, so that they are not
    /// translated. A text that is none is reported as a warning and changes nothing.
    QByteArray ColumnsText() const;
    void SetColumnsText(const QByteArray &text);
    QByteArray SubGridsText() const;
    void SetSubGridsText(const QByteArray &text);
    QByteArray CellLayoutsText() const;
    void SetCellLayoutsText(const QByteArray &text);

    /// The captions of all columns, one per line, as forms store them for translation; in them a
    /// line break is "\\n" and a backslash "\\\\". Lines without a column are left out, columns
    /// without a line keep their caption.
    QString HeaderTexts() const;
    void SetHeaderTexts(const QString &texts);
    /// The same of the columns of all sub-grids, in their order.
    QString SubGridHeaderTexts() const;
    void SetSubGridHeaderTexts(const QString &texts);

    /// The images of columns with icons by name, as forms store them, see TNamedImages. They take
    /// the place of ImageList, unless they are none.
    QByteArray ImageListText() const { return m_namedImages.Text(); }
    void SetImageListText(const QByteArray &text);

    /// Whether a right click on a header, or the menu key, opens a menu for sorting, sizing, moving
    /// and hiding columns; true by default. OnContextPopup comes first and may use the click up.
    bool ColumnMenu() const { return m_columnMenu; }
    void SetColumnMenu(bool value) { m_columnMenu = value; }

    /// The menu of a column, nil for none, is about to open; entries may be added.
    TPublished<TMethod<void(TObject *theGrid, TzuGrid_Column *theColumn, QMenu &theMenu)>>
        OnColumnMenu;
    /// A row of the grid, or of a grid in it, came into view and is to be filled. Rows that can be
    /// filled again are dropped when they are far from view.
    TPublished<TOnVirtualNotify> OnVirtualLoad;
    /// A row is about to be dropped.
    TPublished<TOnVirtualNotify> OnVirtualUnLoad;

Q_SIGNALS:
    // Each comes behind the handler of its event, see TPublished.
    /// Other rows or columns have come to the top left corner.
    void topLeftChanged();
    void selectionChanged();
    void focusCellChanged();
    /// The user has changed a size; the resizing is over (OnAfterUserSize).
    void userSized();
    void columnResized(korvane::TAxisContentItem *column, int size);
    void rowResized(korvane::TAxisContentItem *row, int size);
    void columnSorted(korvane::TzuGrid_Column *column);
    /// Before a text is stored; the receiver may change or refuse it (OnEditStop).
    void editStopping(korvane::TCellEdit *edit);
    void cellEdited(const korvane::TCellEdit &edit);
    /// The cell's choices are about to be shown (OnBeforeEditWithCombo).
    void comboEditStarting(korvane::TBabCell *cell);
    /// A pasted block reaches that many rows beyond the last one (OnAddRowsForPaste).
    void rowsForPasteWanted(korvane::TBabGridCell *grid, int count);
    /// A search begins; the receiver may do it (OnFind).
    void findStarting(korvane::TGridFind *find);
    void userChangeBegun(korvane::TGridUserChange kind);
    void userChangeEnded(korvane::TGridUserChange kind, bool changed);
    /// A row came into view and is to be filled (OnVirtualLoad).
    void rowWanted(korvane::TBabGridCell *grid, korvane::TAxisContentItem *row);
    void rowUnloading(korvane::TBabGridCell *grid, korvane::TAxisContentItem *row);
    /// A sub-grid has its columns; its rows are to be added now (OnInitSubGrid).
    void subGridWanted(korvane::TBabSubGridCell *grid, korvane::TAxisContentItem *column,
                       korvane::TAxisContentItem *row);
    /// OnInitTreeSubDataList.
    void childrenWanted(korvane::TzuDataEntity_GridTreeNode *parent,
                        korvane::TzuDataList_GridTree *list);
    /// The column may be null; entries may be added to the menu.
    void columnMenuOpening(korvane::TzuGrid_Column *column, QMenu *menu);

protected:
    /// Sorts by the column or, where it cannot be sorted by, selects it.
    void HeaderClicked(const TGridCellAt &at, TShiftState shift) override;
    void MoveColumn(TBabGridCell &grid, int from, int to) override;
    /// By the rules of the user's language.
    std::string UpperCase(std::string text) const override;

    TObject *Self() override { return static_cast<TBabGridLayoutCore *>(this); }
    /// Opens the menu of a column, unless OnContextPopup or ColumnMenu says otherwise.
    void contextMenuEvent(QContextMenuEvent *event) override;
    /// Headers have their own.
    bool PopupMenuIsFor(const QContextMenuEvent &event) override;

private:
    void TieSignals();
    bool IsOnHeader(QPoint at);

    TSignalTies m_signals;
    TNamedImages m_namedImages;
    bool m_columnMenu = true;
};

} // namespace korvane
