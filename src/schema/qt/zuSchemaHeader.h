// The column headers of the schedule view, and the buttons that scroll the columns.
#pragma once

#include "foundation/zuExport.h"

#include <QMenu>
#include <QPointer>
#include <QWidget>

#include <optional>
#include <vector>

class QPainter;
class QToolButton;

namespace korvane {

class TzuSchema_ComBasic;

/// Shows the captions of the columns beside the area, level with them; too long ones are cut off
/// with an ellipsis, and a tooltip tells them.
///
/// The edge between two columns is dragged to resize the one before it; a double click on the edge
/// makes the column as large as its caption needs. Escape takes a drag back. A drag that begins on
/// a caption is the application's, which may reorder the columns: OnHeaderStartDrag and its kin.
class KORVANE_WIDGETS_API TSchemaHeaderControl : public QWidget
{
    Q_OBJECT

public:
    /// A child of the schedule; `flip` is for the header beside the columns.
    TSchemaHeaderControl(TzuSchema_ComBasic &schema, bool flip);

    /// The column at a place of the header, or -1.
    int ColumnAt(QPoint at) const;
    /// The place of a column's caption.
    QRect SectionRect(int column) const;
    /// From the press on an edge to its release.
    bool IsResizing() const { return m_resizing.has_value(); }

    /// As high as the style makes a header with a line of text.
    QSize sizeHint() const override;

protected:
    /// Draws the caption of a column into its section, which the painter is clipped to.
    virtual void DrawSection(QPainter &painter, int column);
    /// What the class comment says of mouse, keys and drags; the wheel scrolls the columns.
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    struct TResizing
    {
        int Column;
        int PressedAt;          ///< along the columns
        std::vector<int> Sizes; ///< of all columns at the press
    };

    template <typename Call>
    void Guarded(const Call &call);
    int Along(QPoint at) const { return m_flip ? at.y() : at.x(); }
    int EdgeAt(QPoint at) const;
    void Resize(int column, int size);
    void BeginResize(int column, QPoint at);
    void EndResize();
    void CancelResize();
    void StartDrag(int column);

    TzuSchema_ComBasic &m_schema;
    std::optional<TResizing> m_resizing;
    QPoint m_pressedAt;
    int m_pressedColumn = -1; ///< a press on a caption that may become a drag
    int m_hoverColumn = -1;
    bool m_flip;
};

/// The header above the columns of the normal view.
class KORVANE_WIDGETS_API THeaderControl_MouseControl : public TSchemaHeaderControl
{
    Q_OBJECT

public:
    /// A child of the schedule.
    explicit THeaderControl_MouseControl(TzuSchema_ComBasic &schema)
        : TSchemaHeaderControl(schema, false)
    {
    }
};

/// The header beside the columns of the flipped view.
class KORVANE_WIDGETS_API TDrawGrid_Schema : public TSchemaHeaderControl
{
    Q_OBJECT

public:
    /// A child of the schedule.
    explicit TDrawGrid_Schema(TzuSchema_ComBasic &schema)
        : TSchemaHeaderControl(schema, true)
    {
    }

protected:
    /// Draws the caption of the column in a row.
    virtual void DrawFlippedCell(QPainter &painter, int row)
    {
        TSchemaHeaderControl::DrawSection(painter, row);
    }
    void DrawSection(QPainter &painter, int column) override { DrawFlippedCell(painter, column); }
};

/// Two buttons that scroll the first shown column.
class KORVANE_WIDGETS_API TSchemaColumnScroller : public QWidget
{
    Q_OBJECT

public:
    /// For columns side by side; both buttons are enabled.
    explicit TSchemaColumnScroller(QWidget *parent);

    /// Whether the columns lie one below the other.
    void SetFlip(bool flip);
    /// Which of the buttons have somewhere to go.
    void SetReach(bool back, bool forward);
    /// Room for both buttons.
    QSize sizeHint() const override;

Q_SIGNALS:
    /// -1 or +1.
    void stepped(int columns);

private:
    QToolButton *AddButton(int step);

    QToolButton *m_back;
    QToolButton *m_forward;
};

} // namespace korvane
