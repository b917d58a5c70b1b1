// A bar between two widgets that resizes one of them.
#pragma once

#include "foundation/zuCanvas.h"
#include "foundation/zuExport.h"
#include "foundation/zuMethod.h"

#include <QWidget>

#include <memory>

class QBoxLayout;

namespace korvane {

/// A splitter in a row or column of widgets, a QBoxLayout. It gives the neighbour on its one side a
/// fixed size; the widget on its other side takes what is left, also when the whole is resized.
///
/// It is dragged with the left button; Escape ends a drag and leaves all as it was. With the focus,
/// arrow keys move it by 10 pixels, with Shift by 1, Home and End to its limits. A double click
/// returns to the size that the program set last.
class KORVANE_WIDGETS_API TzuSplitter : public QWidget
{
    Q_OBJECT
    /// Published properties; each is described at the function that it reads.
    Q_PROPERTY(int MinSize READ MinSize WRITE SetMinSize)
    Q_PROPERTY(TResizeStyle ResizeStyle READ ResizeStyle WRITE SetResizeStyle)
    Q_PROPERTY(bool Beveled READ Beveled WRITE SetBeveled)

public:
    /// What is seen during a drag.
    enum TResizeStyle {
        rsNone,   ///< nothing
        rsLine,   ///< a line where the bar would come to lie
        rsUpdate, ///< the bar and its neighbours move along
        rsPattern ///< a hatched bar
    };
    Q_ENUM(TResizeStyle)

    /// Which side the resized neighbour is on.
    enum class TSide { Before, After };

    /// May change the new size of the neighbour, in pixels, or refuse it.
    using TCanResizeEvent = TMethod<void(TzuSplitter *sender, int &newSize, bool &accept)>;
    /// The user has moved the bar.
    using TNotifyEvent = TMethod<void(TzuSplitter *sender)>;
    /// Draws on the bar.
    using TPaintEvent = TMethod<void(TzuSplitter *sender, TCanvas &canvas)>;

    /// `side` is where the neighbour is that is given its size. The parent's layout must be a
    /// QBoxLayout.
    explicit TzuSplitter(QWidget *parent = nullptr, TSide side = TSide::Before);
    ~TzuSplitter() override;

    /// Neither of the two neighbours is made smaller by the user, in pixels; 30 by default.
    int MinSize() const { return m_minSize; }
    void SetMinSize(int pixels);
    /// rsUpdate by default.
    TResizeStyle ResizeStyle() const { return m_resizeStyle; }
    void SetResizeStyle(TResizeStyle style) { m_resizeStyle = style; }
    /// Whether the bar has a raised edge; false by default.
    bool Beveled() const { return m_beveled; }
    void SetBeveled(bool on);

    /// The neighbour's size along the row, in pixels; 0 without a neighbour.
    int Size() const;
    /// Sets the size, whatever MinSize is. No event.
    void SetSize(int pixels);
    /// From the press on; until the release, Escape or what hides the bar.
    bool IsDragging() const { return m_dragging; }

    /// 4 by 4 pixels: the bar is that thick, and as long as its neighbours.
    QSize sizeHint() const override;

    /// Asked for every size that a drag, a key or a double click would give, after it was brought
    /// into the limits.
    TCanResizeEvent OnCanResize;
    TNotifyEvent OnMoved; ///< the user has moved the bar
    TPaintEvent OnPaint;  ///< draws on the bar, in its pixels, after it has been drawn

Q_SIGNALS:
    /// As OnMoved.
    void moved();

protected:
    /// Drag, keys and double click; see above.
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    struct TLimits
    {
        int Min = 0;
        int Max = 0;
    };
    class TGhost;

    QBoxLayout *Row() const;
    bool Horizontal() const;
    QWidget *Neighbour(TSide side) const;
    /// +1 when the neighbour grows to the right or downwards, -1 otherwise.
    int GrowthDirection() const;
    int Along(QSize size) const { return Horizontal() ? size.width() : size.height(); }
    int SmallestSize(const QWidget *widget) const;
    TLimits Limits() const;
    int Allowed(int size);
    void Apply(int size);
    void MoveByUser(int size);
    void DragTo(int size);
    void EndDrag();
    void ShowGhost(int size);
    void TellMoved();

    std::unique_ptr<TGhost> m_ghost;
    TSide m_side;
    TResizeStyle m_resizeStyle = rsUpdate;
    int m_minSize = 30;
    int m_setSize = -1;    ///< by the program; -1 when it has not
    int m_pressedAt = 0;   ///< pointer along the row, on the screen
    int m_sizeAtPress = 0; ///< of the neighbour
    int m_dragSize = 0;    ///< that a release would give
    bool m_beveled = false;
    bool m_dragging = false;
};

} // namespace korvane
