// The edge below a strip, to be dragged.
#pragma once

#include <QWidget>

namespace korvane::planner {

/// Lies over the edge between two parts of its parent. Escape takes a drag back.
class StripEdge : public QWidget
{
    Q_OBJECT

public:
    explicit StripEdge(QWidget *parent);

    /// Over the parent's whole width, on top of what lies there.
    void PlaceAt(int y);

Q_SIGNALS:
    /// Where the edge is to lie, in the parent; throughout a drag.
    void moved(int y);
    /// It was clicked twice.
    void fitWanted();

protected:
    bool event(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void EndDrag();

    int m_place = 0;      ///< of the edge
    int m_pressPlace = 0; ///< of the edge at the press
    int m_pressedAt = 0;  ///< of the mouse in the parent
    bool m_dragging = false;
};

} // namespace korvane::planner
