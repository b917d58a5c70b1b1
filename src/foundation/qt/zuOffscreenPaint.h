// The base of every drawn area: paints into an image first, and prints with the same code.
#pragma once

#include "foundation/qt/zuNamedMenu.h"
#include "foundation/qt/zuPainterCanvas.h"
#include "foundation/qt/zuSignalTies.h"
#include "foundation/zuCanvas.h"
#include "foundation/zuExport.h"
#include "foundation/zuInput.h"
#include "foundation/zuMethod.h"
#include "foundation/zuPublished.h"

#include <QColor>
#include <QFrame>
#include <QImage>
#include <QRegion>
#include <QSet>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QDropEvent;
class QDragMoveEvent;
class QPainter;

namespace korvane {

/// A flicker-free control. A subclass overrides OffscreenPaint, or an application sets OnPaint, and
/// draws everything on GetOffscreenCanvas, within Width() by Height().
///
/// A paint draws the image anew and copies it to the window once. While printing, the same drawing
/// goes to the print device, and GetScalex / GetScaley tell by how much to enlarge it.
class KORVANE_WIDGETS_API TzuOffscreenPaint : public QFrame
{
    Q_OBJECT
    /// Published properties; each is described at the function that it reads.
    Q_PROPERTY(QColor Color READ ColorAsQColor WRITE SetColor)
    Q_PROPERTY(bool TabStop READ TabStop WRITE SetTabStop)
    Q_PROPERTY(QByteArray PopupMenu READ PopupMenuNames WRITE SetPopupMenuNames)
    Q_PROPERTY(bool MeasurePaintTime READ MeasurePaintTime WRITE SetMeasurePaintTime)

public:
    /// Positions in the events of the mouse are pixels of the control; buttons are the three that
    /// TMouseButton knows.
    using TNotifyEvent = TMethod<void(TzuOffscreenPaint *sender)>;
    using TOverlayPaintEvent = TMethod<void(TzuOffscreenPaint *sender, TCanvas &canvas)>;
    using TMouseButtonEvent = TMethod<void(TzuOffscreenPaint *sender, TMouseButton button,
                                           TShiftState shift, int x, int y)>;
    using TMouseMoveEvent =
        TMethod<void(TzuOffscreenPaint *sender, TShiftState shift, int x, int y)>;
    /// `key` is a Qt::Key; a handler that sets it to 0 has used it up.
    using TKeyEvent = TMethod<void(TzuOffscreenPaint *sender, int &key, TShiftState shift)>;
    /// A turn of the wheel, as Qt tells it.
    using TWheelMessageEvent = TMethod<void(QWheelEvent &message)>;
    /// A handler that sets `defaultResize` to false has chosen the size itself.
    using TOnPrintResizeFont =
        TMethod<void(TzuOffscreenPaint *caller, int &fontSize, bool &defaultResize)>;
    /// A menu is asked for at a position of the control; with `handled` set to true nothing else
    /// happens.
    using TContextPopupEvent =
        TMethod<void(TzuOffscreenPaint *sender, TPoint position, bool &handled)>;
    /// Something is dragged over the control, or dropped on it: accept the event or leave it.
    using TDragOverEvent = TMethod<void(TzuOffscreenPaint *sender, QDragMoveEvent &event)>;
    using TDragDropEvent = TMethod<void(TzuOffscreenPaint *sender, QDropEvent &event)>;

    /// Installs the toolkit's services; see InstallToolkitServices.
    explicit TzuOffscreenPaint(QWidget *parent = nullptr);
    ~TzuOffscreenPaint() override;

    /// Background that every paint starts with; initially clBtnFace.
    TColor Color() const { return m_color; }
    void SetColor(TColor value);

    /// The same for Qt; system colours are looked up in the palette.
    QColor ColorAsQColor() const;
    void SetColor(const QColor &value);
    /// The font that every paint starts with: the widget's font, in the colour set here.
    TFont Font() const;
    void SetFont(const TFont &value);
    /// Whether the control takes the keyboard focus by tab and click.
    bool TabStop() const { return focusPolicy() != Qt::NoFocus; }
    void SetTabStop(bool value);
    /// The context menu; observed. OnContextPopup comes first and may use the click up.
    QMenu *PopupMenu() const { return m_popupMenu.Menu(*this); }
    void SetPopupMenu(QMenu *menu) { m_popupMenu.SetMenu(menu); }
    /// The same by name, as forms store it, see TNamedMenu.
    QByteArray PopupMenuNames() const { return m_popupMenu.Names(); }
    void SetPopupMenuNames(const QByteArray &names) { m_popupMenu.SetNames(names); }
    /// Writes the average time of a paint, in nanoseconds, on the control; a developer's aid.
    bool MeasurePaintTime() const { return m_measurePaintTime; }
    void SetMeasurePaintTime(bool value) { m_measurePaintTime = value; }

    /// Size that drawing has to fill, in pixels: the control's, or while printing the enlarged one.
    int Width() const { return m_printSize ? m_printSize->Width : width(); }
    int Height() const { return m_printSize ? m_printSize->Height : height(); }
    /// From (0, 0) to Width and Height.
    TRect ClientArea() const { return {0, 0, Width(), Height()}; }
    /// Sets the bounds within the parent without a resize notification.
    void SetSizeDontTell(const TRect &bounds);

    /// Requests a paint; requests before it are one.
    virtual void Invalidate();
    /// Paints at once, except within an update.
    virtual void Repaint();
    /// Requests that OverlayPaint is called again for an area, without drawing the image anew.
    void InvalidateOverlay(const TRect &area);
    /// The same for all of it.
    void InvalidateOverlay() { InvalidateOverlay(ClientArea()); }

    /// Updates nest. The end of the outermost one, and an end without a beginning, invalidate.
    virtual void BeginUpdate();
    virtual void EndUpdate();
    /// How many updates are open.
    int UpdateCount() const { return m_updateCount; }

    /// The canvas to draw on. Outside of paints and prints it only measures.
    TPainterCanvas &GetOffscreenCanvas();
    const TPainterCanvas &GetOffscreenCanvas() const;
    /// The window's own canvas; it draws during a paint only.
    TPainterCanvas &GetDirectCanvas() { return m_directCanvas; }

    /// Paints onto a print device. X and Y are where the control's origin lies in the painter's
    /// coordinates; drawing is clipped to the enlarged control. The painter's state and the
    /// control's size are as before afterwards, also when painting throws. Throws
    /// std::invalid_argument for a painter that is not active.
    void Print(QPainter &device, int x, int y, double scaleX, double scaleY);
    /// Within Print, or between BeginPrint and EndPrint; with a print device within Print alone.
    bool GetIsPrinting() const { return m_printNesting >= 1; }
    bool GetAssignedPrintingCanvas() const { return m_printingCanvas != nullptr; }
    /// Print mode for the preparation of a print; nests. Not clamped.
    void BeginPrint() { ++m_printNesting; }
    void EndPrint() { --m_printNesting; }
    /// Enlargement of the print; 1 on screen.
    double GetScalex() const { return GetIsPrinting() ? m_printScaleX : 1.0; }
    double GetScaley() const { return GetIsPrinting() ? m_printScaleY : 1.0; }
    /// Enlarges the font that was just set on the offscreen canvas while printing: by half the
    /// scale plus one, so that text grows more slowly than the drawing.
    void PrintResizeFont();

    TNotifyEvent OnPaint;              ///< fired by OffscreenPaint unless a subclass overrides it
    TOverlayPaintEvent OnOverlayPaint; ///< fired by OverlayPaint unless a subclass overrides it
    TNotifyEvent OnAfterPrint;         ///< within Print, after the drawing
    TWheelMessageEvent OnWheelMessage; ///< every wheel event, after the control's own handling
    TOnPrintResizeFont OnPrintResizeFont;      ///< sets the size, in points, of a font for a print
    TPublished<TNotifyEvent> OnClick;          ///< left button released inside
    TPublished<TNotifyEvent> OnDblClick;       ///< of the left button; before OnMouseDown
    TPublished<TNotifyEvent> OnEnter;          ///< focus in
    TPublished<TNotifyEvent> OnExit;           ///< focus out
    TPublished<TNotifyEvent> OnResize;         ///< not by SetSizeDontTell
    TPublished<TMouseButtonEvent> OnMouseDown; ///< the second press of a double click, too
    TPublished<TMouseMoveEvent> OnMouseMove;   ///< while a button is down, or with mouse tracking
    TPublished<TMouseButtonEvent> OnMouseUp;   ///< after OnClick
    TKeyEvent OnKeyDown;                       ///< before the control's own handling
    TKeyEvent OnKeyUp;                         ///< before the control's own handling
    TContextPopupEvent OnContextPopup;         ///< by mouse or keyboard
    TPublished<TDragOverEvent> OnDragOver;     ///< needs setAcceptDrops(true)
    TPublished<TDragDropEvent> OnDragDrop;     ///< without OnDragOver, every drag may be dropped

Q_SIGNALS:
    // Each comes behind the handler of its event, see TPublished.
    /// OnClick and OnDblClick.
    void clicked();
    void doubleClicked();
    /// OnMouseDown, OnMouseMove and OnMouseUp; `at` is in pixels of the control.
    void mousePressed(Qt::MouseButton button, Qt::KeyboardModifiers modifiers, QPoint at);
    void mouseMoved(Qt::KeyboardModifiers modifiers, QPoint at);
    void mouseReleased(Qt::MouseButton button, Qt::KeyboardModifiers modifiers, QPoint at);
    /// OnEnter and OnExit.
    void focusEntered();
    void focusLeft();
    /// OnResize.
    void resized();
    /// The receiver accepts it or not, see OnDragOver.
    void draggedOver(QDragMoveEvent *event);
    void dropped(QDropEvent *event);

protected:
    /// Draws everything on GetOffscreenCanvas. The base fires OnPaint.
    virtual void OffscreenPaint();
    /// Copies the image to the window, except for the reserved strips.
    virtual void SmashPaint();
    /// Draws what lies above the image for now, such as the outline of a gesture; it is never kept.
    /// The base fires OnOverlayPaint.
    virtual void OverlayPaint(TCanvas &canvas);

    /// What of the image a paint can keep.
    struct TImageMove
    {
        TRect Area;              ///< moves within itself
        TPoint By;               ///< rightwards and down
        std::vector<TRect> Anew; ///< drawn anew, after the moving
    };
    /// Requests a paint that keeps what it can of the image, when nothing else requests one. The
    /// area is what may change on the control; it must not be all of it.
    void InvalidateMoved(const TRect &area);
    /// Called by a paint that InvalidateMoved requested. Nothing: the image is drawn anew.
    virtual std::optional<TImageMove> KeepImage() { return std::nullopt; }

    /// Whether PopupMenu is for a place; else the event goes on.
    virtual bool PopupMenuIsFor(const QContextMenuEvent & /*event*/) { return true; }

    /// Strips at the right edge, from right to left at the left one, and at the bottom edge that
    /// child scroll bars cover and the copy leaves alone, in pixels. The corner between two strips
    /// is filled with clBtnFace.
    void SetReserved(int right, int bottom);
    /// What SetReserved has set; 0 to begin with.
    int ReservedRight() const { return m_reservedRight; }
    int ReservedBottom() const { return m_reservedBottom; }

    /// Qt::Key values that the control takes even where they would move the focus or trigger a
    /// shortcut.
    QSet<int> WantedSpecialKeys;

    /// Fire the events above; a handler may destroy the control. Wanted special keys reach
    /// OnKeyDown like any other key.
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void Paint(QPainter &window, const QRegion &region);
    bool OnlyOverlayChanged(const QRegion &region, double ratio) const;
    void PaintImage();
    void PaintImage(const std::vector<TRect> &parts);
    bool MoveImage(const TImageMove &move);
    void PaintDirectly(QPainter &device);
    QRect UnreservedRect() const;
    void FillReservedCorner();
    bool UpdateOffscreenCanvas(double ratio);
    QSize ImageSize(double ratio) const;
    void BeginCanvas(TPainterCanvas &canvas, QPainter &painter);
    void DrawPaintTime(std::int64_t ticks);

    TColor m_color = clBtnFace;
    TColor m_fontColor = clWindowText;
    bool m_measurePaintTime = false;
    int m_updateCount = 0;
    int m_pendingInvalidates = 0;
    bool m_pendingMove = false;
    int m_reservedRight = 0;
    int m_reservedBottom = 0;

    QImage m_image; ///< in device pixels
    QRegion m_pendingOverlay;
    std::shared_ptr<TCanvasFonts> m_fonts;
    TPainterCanvas m_offscreenCanvas;
    TPainterCanvas m_directCanvas;

    std::unique_ptr<TPainterCanvas> m_printingCanvas;
    std::optional<TSize> m_printSize;
    double m_printScaleX = 1;
    double m_printScaleY = 1;
    int m_printNesting = 0;

    std::int64_t m_paintTicksTotal = 0;
    int m_paintCount = 0;
    bool m_resizeSilently = false;
    TSignalTies m_signals;
    TNamedMenu m_popupMenu;
    bool m_clicked = false; ///< a left press is waiting for its release
    std::string m_lastPaintError;
};

} // namespace korvane
