// The date scaler as a control.
#pragma once

#include "foundation/qt/zuOffscreenPaint.h"
#include "foundation/zuExport.h"
#include "scaler/zuScalerGestures.h"

#include <QBasicTimer>
#include <QDateTime>
#include <QFont>
#include <QString>

class QGestureEvent;
class QNativeGestureEvent;

namespace korvane {

/// Connects a scaler to the painted control that shows it.
class KORVANE_WIDGETS_API TPaintedScalerHost : public IDateScalerHost, public IScalerInputHost
{
public:
    /// The event type that a posted change arrives with.
    static constexpr int kChangeMessage = 3022;

    /// The control is observed.
    explicit TPaintedScalerHost(TzuOffscreenPaint &control)
        : m_control(control)
    {
    }

    TSize ClientSize() const override { return {m_control.Width(), m_control.Height()}; }
    TDateTime Now() const override;
    void Refresh() override { m_control.Invalidate(); }
    void PostChange() override;

    bool GetIsPrinting() const override { return m_control.GetIsPrinting(); }
    double GetScalex() const override { return m_control.GetScalex(); }
    double GetScaley() const override { return m_control.GetScaley(); }
    void PrintResizeFont() override { m_control.PrintResizeFont(); }

    /// The timer's events go to the control.
    void SetStepTimer(bool on) override;

    TPoint PointerPosition() const override;
    void TakeFocus() override { m_control.setFocus(Qt::MouseFocusReason); }

protected:
    ~TPaintedScalerHost() = default;

    /// For the control's timer events.
    bool IsStepTimer(int id) const { return id == m_stepTimer.timerId(); }

private:
    TzuOffscreenPaint &m_control;
    QBasicTimer m_stepTimer;
};

/// The time axis of charts and schedules: shows a range of time with two rows of calendar marks.
///
/// Besides the mouse on the scaler itself: the wheel zooms about the pointer; with Shift, and where
/// it turns sideways, it moves the range. Two fingers zoom about the place between them. With the
/// keyboard focus, the arrow keys along the axis move by a tenth of it, with Ctrl or Shift and as
/// PageUp and PageDown by nine tenths; plus and minus zoom about the middle, Home brings the
/// present to it. Escape takes back a drag, which also ends with the focus, the window or the
/// mouse.
///
/// What goes wrong while the control itself reacts to the window system is reported instead of
/// thrown.
class KORVANE_WIDGETS_API TzuDateScaler : public TzuOffscreenPaint,
                                          private TPaintedScalerHost,
                                          public TDateScalerGestures
{
    Q_OBJECT
    /// Published properties: TDateScalerCore says what they are. A QDateTime is local time.
    Q_PROPERTY(QString DateFormat READ DateFormatText WRITE SetDateFormatText)
    Q_PROPERTY(QString TimeFormat READ TimeFormatText WRITE SetTimeFormatText)
    Q_PROPERTY(int FirstDayOfWeek READ FirstDayOfWeek WRITE SetFirstDayOfWeek)
    Q_PROPERTY(bool WeekNumbers READ WeekNumbers WRITE SetWeekNumbers)
    Q_PROPERTY(QString WeekPrefix READ WeekPrefixText WRITE SetWeekPrefixText)
    Q_PROPERTY(QString WeekYearFormat READ WeekYearFormatText WRITE SetWeekYearFormatText)
    Q_PROPERTY(QString QuarterPrefix READ QuarterPrefixText WRITE SetQuarterPrefixText)
    Q_PROPERTY(bool IndicatorOn READ IndicatorOn WRITE SetIndicatorOn)
    Q_PROPERTY(bool Horizontal READ Horizontal WRITE SetHorizontal)
    Q_PROPERTY(int PixelsForModeSwitch READ PixelsForModeSwitch WRITE SetPixelsForModeSwitch)
    Q_PROPERTY(double Scale READ GetScale)
    Q_PROPERTY(QDateTime Start READ StartDateTime WRITE SetStartDateTime)
    Q_PROPERTY(QDateTime Stop READ StopDateTime WRITE SetStopDateTime)
    Q_PROPERTY(double ZoomFactor READ ZoomFactor WRITE SetZoomFactor)
    Q_PROPERTY(Indicator IndicatorStyle READ IndicatorKind WRITE SetIndicatorKind)
    Q_PROPERTY(bool RescaleWithCtrl READ RescaleWithCtrl WRITE SetRescaleWithCtrl)
    Q_PROPERTY(QFont TextFont1 READ TextQFont1 WRITE SetTextQFont1)
    Q_PROPERTY(QFont TextFont2 READ TextQFont2 WRITE SetTextQFont2)
    Q_PROPERTY(QFont TextFont3 READ TextQFont3 WRITE SetTextQFont3)

public:
    /// TIndicatorStyle for the designer.
    enum Indicator {
        isNone = static_cast<int>(TIndicatorStyle::isNone),
        isNormal = static_cast<int>(TIndicatorStyle::isNormal),
        isColorfull = static_cast<int>(TIndicatorStyle::isColorfull)
    };
    Q_ENUM(Indicator)

    /// Vertical, showing a week from today; takes the focus, and zooms by two fingers.
    explicit TzuDateScaler(QWidget *parent = nullptr);

    void BeginUpdate() override;
    void EndUpdate() override;
    void CallChange() override;
    /// 400 by 45 pixels when Horizontal, else 50 by 400.
    QSize sizeHint() const override;

    /// Two fingers have moved on a touch screen or touchpad, over the axis or over a control along
    /// it: zooms about the place between them. False when they do something else.
    bool Pinch(QGestureEvent &event);
    bool Pinch(const QNativeGestureEvent &event);

Q_SIGNALS:
    /// As OnChange.
    void changed();

protected:
    bool HasChangeListener() const override;
    void OffscreenPaint() override;
    void OverlayPaint(TCanvas &canvas) override;
    /// Translated for the gestures; see above.
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

    bool ToolkitMouseDown(TMouseButton button, const TShiftState &shift, TPoint at) override;
    bool ToolkitMouseMove(const TShiftState &shift, TPoint at) override;
    bool ToolkitMouseUp(TMouseButton button, const TShiftState &shift, TPoint at) override;

private:
    using TMouseHandler = void (TDateScalerGestures::*)(TMouseButton, const TShiftState &, int,
                                                        int);

    // Input, zuScalerInput.cpp.
    void ShowCursor(TScalerCursor shown) override;
    void PassOn(QMouseEvent &event, TMouseHandler handler);
    int PixelOf(QPointF position) const;
    void TurnWheel(const QWheelEvent &event);
    bool TakesKey(const QKeyEvent &event) const;
    bool DoKey(const QKeyEvent &event);
    void CtrlChanged(const QKeyEvent &event);

    QString DateFormatText() const;
    void SetDateFormatText(const QString &text);
    QString TimeFormatText() const;
    void SetTimeFormatText(const QString &text);
    QString WeekPrefixText() const;
    void SetWeekPrefixText(const QString &text);
    QString WeekYearFormatText() const;
    void SetWeekYearFormatText(const QString &text);
    QString QuarterPrefixText() const;
    void SetQuarterPrefixText(const QString &text);
    QDateTime StartDateTime() const;
    void SetStartDateTime(const QDateTime &start);
    QDateTime StopDateTime() const;
    void SetStopDateTime(const QDateTime &stop);
    Indicator IndicatorKind() const { return static_cast<Indicator>(IndicatorStyle()); }
    void SetIndicatorKind(Indicator kind) { SetIndicatorStyle(static_cast<TIndicatorStyle>(kind)); }
    QFont TextQFont1() const;
    void SetTextQFont1(const QFont &font);
    QFont TextQFont2() const;
    void SetTextQFont2(const QFont &font);
    QFont TextQFont3() const;
    void SetTextQFont3(const QFont &font);

    TSignalTies m_signals;
    QMouseEvent *m_mouseEvent = nullptr; ///< on its way through the axis
};

} // namespace korvane
