// The control that shows a grid of cells.
#pragma once

#include "cellgrid/zuBabGridGestures.h"
#include "foundation/qt/zuOffscreenPaint.h"

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QPoint>
#include <QString>

class QHelpEvent;
class QScrollBar;

namespace korvane {

/// A view of cells with scroll bars, mouse and keyboard. What is shown lives in its grid cell
/// (RootCell); columns of kinds and looks come with TzuGrid.
///
/// Keys: arrows, Page Up and Down, Home and End (with Ctrl: first and last cell), Tab and Shift+Tab
/// from cell to cell, Enter into a grid in a cell and Escape out of it, with Shift selecting;
/// Left and Right in the column of a tree, and with Alt in any column, collapse and expand the row;
/// Space turns a check box; Ctrl+A and Ctrl+C. Typed letters look for the row that begins with
/// them.
class TBabGridView_Custom : public TzuOffscreenPaint, public TBabGridGestures, private IBabGridHost
{
    Q_OBJECT
    Q_PROPERTY(bool RowSelect READ RowSelect WRITE SetRowSelect)
    Q_PROPERTY(bool MultiSelect READ MultiSelect WRITE SetMultiSelect)
    Q_PROPERTY(bool FocusRects READ FocusRects WRITE SetFocusRects)
    Q_PROPERTY(
        bool ExtendLastColumnToWidth READ ExtendLastColumnToWidth WRITE SetExtendLastColumnToWidth)
    Q_PROPERTY(bool SmoothScrolling READ SmoothScrolling WRITE SetSmoothScrolling)

public:
    explicit TBabGridView_Custom(QWidget *parent = nullptr);
    ~TBabGridView_Custom() override;

    /// Whether the vertical scroll bar and the wheel move by pixels rather than by whole rows.
    bool SmoothScrolling() const { return m_smoothScrolling; }
    void SetSmoothScrolling(bool value) { m_smoothScrolling = value; }
    /// Images of columns with icons; observed, nil for none.
    const TImageList *ImageList() const { return m_images; }
    void SetImageList(const TImageList *images);

    /// Brings the layout and the scroll bars up to date, and paints when something changed.
    void RedrawIfNeeded();
    /// Puts the selected cells on the clipboard as text and as an HTML table.
    void CopyToClipboard();

    QScrollBar &VertScrollBar() const { return *m_vertical; }
    QScrollBar &HorzScrollBar() const { return *m_horizontal; }
    QSize sizeHint() const override;

protected:
    void OffscreenPaint() override;
    void OverlayPaint(TCanvas &canvas) override;
    void CheckBoxClicked(const TGridCellAt &at) override;
    /// The cell's content was changed by the user.
    virtual void CellEdited(TBabCell & /*cell*/) {}

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

    void UpdateScrollBars();
    void PlaceScrollBars(bool vertical, bool horizontal);
    void ScrolledByBar();
    void ShowToolTip(const QHelpEvent &help);
    bool KeyMoves(const QKeyEvent &event);
    bool KeyActs(const QKeyEvent &event);
    void TypeToFind(const QString &text);

    QScrollBar *m_vertical;
    QScrollBar *m_horizontal;
    const TImageList *m_images = nullptr;
    QBasicTimer m_autoScroll;
    QElapsedTimer m_sinceTyped;
    QString m_typed;
    QPoint m_wheelRest; ///< turns of the wheel that were too small to scroll
    bool m_smoothScrolling = true;
    bool m_updateQueued = false;
    bool m_settingBars = false;
};

} // namespace korvane
