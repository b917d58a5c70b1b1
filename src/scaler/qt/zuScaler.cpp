#include "scaler/qt/zuScaler.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuSignalTiesImpl.h"
#include "foundation/zuDateUtils.h"
#include "foundation/zuReport.h"
#include "scaler/qt/zuScalerAccessible.h"

#include <QCoreApplication>
#include <QCursor>
#include <QEvent>
#include <QPointer>

#include <exception>

namespace korvane {

TDateTime TPaintedScalerHost::Now() const
{
    return korvane::Now();
}

void TPaintedScalerHost::PostChange()
{
    QCoreApplication::postEvent(&m_control, new QEvent(static_cast<QEvent::Type>(kChangeMessage)));
}

void TPaintedScalerHost::SetStepTimer(bool on)
{
    constexpr int kInterval = 50;
    if (on) {
        m_stepTimer.start(kInterval, &m_control);
    } else {
        m_stepTimer.stop();
    }
}

TPoint TPaintedScalerHost::PointerPosition() const
{
    return FromQt(m_control.mapFromGlobal(QCursor::pos()));
}

TzuDateScaler::TzuDateScaler(QWidget *parent)
    : TzuOffscreenPaint(parent)
    , TPaintedScalerHost(static_cast<TzuOffscreenPaint &>(*this))
    , TDateScalerGestures(static_cast<IDateScalerHost &>(*this),
                          static_cast<IScalerInputHost &>(*this))
{
    m_signals.Tie(OnChange, *this, &TzuDateScaler::changed);
    setMouseTracking(true);
    SetTabStop(true);
    grabGesture(Qt::PinchGesture);
    InstallAccessible<TzuDateScaler, TScalerAccessible>();
}

void TzuDateScaler::BeginUpdate()
{
    TzuOffscreenPaint::BeginUpdate();
    TDateScalerGestures::BeginUpdate();
}

void TzuDateScaler::EndUpdate()
{
    TzuOffscreenPaint::EndUpdate();
    TDateScalerGestures::EndUpdate();
}

QSize TzuDateScaler::sizeHint() const
{
    return Horizontal() ? QSize(400, 45) : QSize(50, 400);
}

bool TzuDateScaler::HasChangeListener() const
{
    return TDateScalerGestures::HasChangeListener() || QAccessible::isActive();
}

void TzuDateScaler::CallChange()
{
    const QPointer<TzuDateScaler> alive(this);
    TDateScalerGestures::CallChange();
    if (alive != nullptr) {
        TellVisibleTime(*this);
    }
}

void TzuDateScaler::OffscreenPaint()
{
    DoThePaint(GetOffscreenCanvas(), ClientArea());
}

void TzuDateScaler::OverlayPaint(TCanvas &canvas)
{
    if (hasFocus()) {
        canvas.SetBrushColor(clHighlight);
        canvas.FrameRect(ClientArea());
    }
}

void TzuDateScaler::resizeEvent(QResizeEvent *event)
{
    try {
        Resize();
    } catch (const std::exception &error) {
        Report(error.what());
    }
    TzuOffscreenPaint::resizeEvent(event);
}

QString TzuDateScaler::DateFormatText() const
{
    return ToQt(DateFormat());
}

void TzuDateScaler::SetDateFormatText(const QString &text)
{
    SetDateFormat(FromQt(text));
}

QString TzuDateScaler::TimeFormatText() const
{
    return ToQt(TimeFormat());
}

void TzuDateScaler::SetTimeFormatText(const QString &text)
{
    SetTimeFormat(FromQt(text));
}

QString TzuDateScaler::WeekPrefixText() const
{
    return ToQt(WeekPrefix());
}

void TzuDateScaler::SetWeekPrefixText(const QString &text)
{
    SetWeekPrefix(FromQt(text));
}

QString TzuDateScaler::WeekYearFormatText() const
{
    return ToQt(WeekYearFormat());
}

void TzuDateScaler::SetWeekYearFormatText(const QString &text)
{
    SetWeekYearFormat(FromQt(text));
}

QString TzuDateScaler::QuarterPrefixText() const
{
    return ToQt(QuarterPrefix());
}

void TzuDateScaler::SetQuarterPrefixText(const QString &text)
{
    SetQuarterPrefix(FromQt(text));
}

QDateTime TzuDateScaler::StartDateTime() const
{
    return ToQDateTime(GetStart());
}

void TzuDateScaler::SetStartDateTime(const QDateTime &start)
{
    SetStart(FromQt(start));
}

QDateTime TzuDateScaler::StopDateTime() const
{
    return ToQDateTime(GetStop());
}

void TzuDateScaler::SetStopDateTime(const QDateTime &stop)
{
    SetStop(FromQt(stop));
}

QFont TzuDateScaler::TextQFont1() const
{
    return ToQt(TextFont1());
}

void TzuDateScaler::SetTextQFont1(const QFont &font)
{
    SetTextFont1(FromQt(font, TextFont1()));
}

QFont TzuDateScaler::TextQFont2() const
{
    return ToQt(TextFont2());
}

void TzuDateScaler::SetTextQFont2(const QFont &font)
{
    SetTextFont2(FromQt(font, TextFont2()));
}

QFont TzuDateScaler::TextQFont3() const
{
    return ToQt(TextFont3());
}

void TzuDateScaler::SetTextQFont3(const QFont &font)
{
    SetTextFont3(FromQt(font, TextFont3()));
}

} // namespace korvane
