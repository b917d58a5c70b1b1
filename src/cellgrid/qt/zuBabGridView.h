// The control that shows a grid of cells.
#pragma once

#include "cellgrid/qt/zuBabGridEditor.h"
#include "cellgrid/zuBabGridFind.h"
#include "foundation/qt/zuOffscreenPaint.h"
#include "foundation/zuExport.h"

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QPoint>
#include <QString>

class QHelpEvent;
class QScrollBar;

namespace korvane {

class TBabGridFindBar;

/// A view of cells with scroll bars, mouse and keyboard. What is shown lives in its grid cell
/// (RootCell); columns of kinds and looks come with TzuGrid.
///
/// Keys: arrows, Page Up and Down, Home and End (with Ctrl: first and last cell), Tab and Shift+Tab
/// from cell to cell, Enter down or into a grid in a cell and Escape out of it, with Shift
/// selecting; Left and Right in the column of a tree, and with Alt in any column, collapse and
/// expand the row, as do + and -, and * all below it, on the keypad or where typing does not edit
/// the tree's column; Ctrl+F opens a bar to find text, F3 and Shift+F3 go on; Ctrl+A, Ctrl+C,
/// Ctrl+X and Ctrl+V; Delete empties the selected cells. Space turns a check box. F2 edits the
/// cell; with AutoEditMode typing does, and Backspace beginning with an empty text. Elsewhere typed
/// letters look for the row that begins with them.
///
/// In an editor Enter and Tab store and go on, Escape gives up, Up and Down store, and after
/// typing on the cell Left and Right, too; F2 changes between both. Another control that gets the
/// focus stores, another window does not: before a command that needs what is typed, the program
/// calls CommitEdit. Alt+Enter breaks the line of a
/// memo, Alt+Down opens choices and calendars.
class KORVANE_WIDGETS_API TBabGridView_Custom : public TzuOffscreenPaint,
                                                public TBabGridFind,
                                                private IBabGridHost
{
    Q_OBJECT
    /// Published properties; each is described at the function that it reads.
    Q_PROPERTY(bool RowSelect READ RowSelect WRITE SetRowSelect)
    Q_PROPERTY(bool MultiSelect READ MultiSelect WRITE SetMultiSelect)
    Q_PROPERTY(bool AutoEditMode READ AutoEditMode WRITE SetAutoEditMode)
    Q_PROPERTY(bool ReadOnly READ ReadOnly WRITE SetReadOnly)
    Q_PROPERTY(bool FocusRects READ FocusRects WRITE SetFocusRects)
    Q_PROPERTY(
        bool ExtendLastColumnToWidth READ ExtendLastColumnToWidth WRITE SetExtendLastColumnToWidth)
    Q_PROPERTY(bool SmoothScrolling READ SmoothScrolling WRITE SetSmoothScrolling)
    Q_PROPERTY(bool RowMoving READ RowMoving WRITE SetRowMoving)
    Q_PROPERTY(bool HotTrack READ HotTrack WRITE SetHotTrack)
    Q_PROPERTY(bool TreeLines READ TreeLines WRITE SetTreeLines)
    Q_PROPERTY(bool FindEnable READ FindEnable WRITE SetFindEnable)

public:
    /// An empty grid that takes the focus, mouse moves and touch gestures.
    explicit TBabGridView_Custom(QWidget *parent = nullptr);
    ~TBabGridView_Custom() override;

    /// Whether the vertical scroll bar and the wheel move by pixels rather than by whole rows; true
    /// by default.
    bool SmoothScrolling() const { return m_smoothScrolling; }
    void SetSmoothScrolling(bool value) { m_smoothScrolling = value; }
    /// Whether the user can look for text.
    bool FindEnable() const { return m_findEnable; }
    void SetFindEnable(bool value);
    /// Opens the bar in which the user looks for text.
    void ShowFindBar();
    /// Without, the scroll bars stay away, as in pictures; what they show can still be scrolled.
    bool ScrollBarsShown() const { return m_scrollBarsShown; }
    void SetScrollBarsShown(bool value);
    /// Images of columns with icons; observed, nil for none.
    const TImageList *ImageList() const { return m_images; }
    void SetImageList(const TImageList *images);

    /// Brings the layout and the scroll bars up to date, and paints when something changed.
    void RedrawIfNeeded();
    /// Puts the selected cells on the clipboard as text and as an HTML table.
    void CopyToClipboard();
    /// Pastes the clipboard's text.
    void PasteFromClipboard();
    /// From right to left, columns run from the right edge, and so do the points and rectangles of
    /// the grid's geometry: from and to places in the control.
    TPoint ToGrid(QPoint place) const;
    QRect FromGrid(const TRect &rect) const;
    /// The field of the cell that is being edited, or null.
    QWidget *EditorField() const;

    /// The bars; owned by the view, hidden while all fits.
    QScrollBar &VertScrollBar() const { return *m_vertical; }
    QScrollBar &HorzScrollBar() const { return *m_horizontal; }
    /// 400 by 300 pixels.
    QSize sizeHint() const override;

protected:
    void OffscreenPaint() override;
    void OverlayPaint(TCanvas &canvas) override;
    void FocusCellMoved() override;
    void SelectionEventFired() override;
    std::string FoldCase(std::string text) const override;

    /// Mouse, keys and wheel, as the class comment says. Tab goes from cell to cell, and on to
    /// other controls where there is none.
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void InvalidateGrid() override;
    void ScrollGrid(const TRect &area) override;
    void QueueUpdate();
    std::optional<TImageMove> KeepImage() override;
    void InvalidateGridOverlay() override { InvalidateOverlay(); }
    TSize GridSize() const override;
    TCanvas &MeasureCanvas() override { return GetOffscreenCanvas(); }
    TFont GridFont() const override { return Font(); }
    const TImageList *GridImages() const override { return m_images; }
    bool GridHasFocus() const override;
    void SetGridCursor(TGridCursor cursor) override;

    void PaintOn(TCanvas &canvas);
    void UpdateScrollBars();
    void PlaceScrollBars(bool vertical, bool horizontal);
    void TellCounts();
    void ScrolledByBar();
    bool ScrolledByFinger(QEvent &event);
    void ShowToolTip(const QHelpEvent &help);
    TBabGridFindBar &FindBar();
    int FindBarHeight() const;
    bool KeyFinds(const QKeyEvent &event);
    bool KeyExpands(const QKeyEvent &event);
    bool KeyMoves(const QKeyEvent &event);
    bool KeyActs(const QKeyEvent &event);
    bool KeyEdits(const QKeyEvent &event);
    bool KeyTypes(const QString &text);
    void TypeToFind(const QString &text);

    TBabGridEditOpener m_editOpener{*this};
    QScrollBar *m_vertical;
    QScrollBar *m_horizontal;
    TBabGridFindBar *m_findBar = nullptr; ///< made when it is first wanted
    const TImageList *m_images = nullptr;
    QBasicTimer m_autoScroll;
    QElapsedTimer m_sinceTyped;
    QString m_typed;
    QPoint m_wheelRest; ///< turns of the wheel that were too small to scroll
    bool m_smoothScrolling = true;
    bool m_findEnable = true;
    bool m_scrollBarsShown = true;
    int m_toldRows = 0; ///< to assistive tools
    int m_toldColumns = 0;
    bool m_updateQueued = false;
    bool m_settingBars = false;
};

} // namespace korvane
