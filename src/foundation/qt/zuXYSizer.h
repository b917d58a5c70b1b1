// A handle that moves a corner which several parts of a control share.
#pragma once

#include "foundation/zuCanvas.h"
#include "foundation/zuExport.h"
#include "foundation/zuMethod.h"
#include "foundation/zuTypes.h"

#include <QFrame>
#include <QPointer>

namespace korvane {

/// A small square that is dragged with the left button. Two guide lines across the parent show
/// meanwhile where the corner will be; at the release the owner is told by how much the handle has
/// moved and lays out its parts. The sizer itself resizes nothing.
///
/// Escape, and whatever hides the handle, ends a drag: the handle is back where it was, and nobody
/// is told.
class KORVANE_WIDGETS_API TXYSizer : public QFrame
{
    Q_OBJECT
    /// Published properties; each is described at the function that it reads.
    Q_PROPERTY(int TopMargin READ TopMargin WRITE SetTopMargin)
    Q_PROPERTY(int LeftMargin READ LeftMargin WRITE SetLeftMargin)
    Q_PROPERTY(int RightMargin READ RightMargin WRITE SetRightMargin)
    Q_PROPERTY(int BottomMargin READ BottomMargin WRITE SetBottomMargin)

public:
    /// `delta` counts from the position at the press, in pixels.
    using TOnResize = TMethod<void(TXYSizer *sender, TPoint delta)>;

    /// Lies where the parent puts it.
    explicit TXYSizer(QWidget *parent);
    ~TXYSizer() override;

    /// The handle only moves while the mouse is inside the parent's rectangle less these margins,
    /// in pixels; 5 each at first.
    int TopMargin() const { return m_topMargin; }
    void SetTopMargin(int pixels) { m_topMargin = pixels; }
    int LeftMargin() const { return m_leftMargin; }
    void SetLeftMargin(int pixels) { m_leftMargin = pixels; }
    int RightMargin() const { return m_rightMargin; }
    void SetRightMargin(int pixels) { m_rightMargin = pixels; }
    int BottomMargin() const { return m_bottomMargin; }
    void SetBottomMargin(int pixels) { m_bottomMargin = pixels; }

    /// From the press to the release, Escape or what hides the handle.
    bool IsDragging() const { return m_pressed; }

    /// The end of a drag, also of one that has not moved.
    TOnResize OnResize;

Q_SIGNALS:
    /// As OnResize.
    void resized(QPoint delta);

protected:
    /// The drag; see above.
    bool event(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QWidget *CreateGuide();
    void PlaceGuides();
    void EndDrag();
    void Cancel();

    QPointer<QWidget> m_horizontalGuide;
    QPointer<QWidget> m_verticalGuide;
    QPoint m_pressPoint;    ///< of the mouse within the handle
    QPoint m_pressPosition; ///< of the handle
    int m_topMargin = 5;
    int m_leftMargin = 5;
    int m_rightMargin = 5;
    int m_bottomMargin = 5;
    bool m_pressed = false;
};

} // namespace korvane
