// Moving the visible time by whole steps, pages and zoom notches.
#pragma once

#include "foundation/zuExport.h"
#include "scaler/zuScaler.h"

namespace korvane {

/// A stretch of time; Stop does not belong to it.
struct TTimePeriod
{
    /// Instants.
    TDateTime Start = 0;
    TDateTime Stop = 0;

    friend bool operator==(const TTimePeriod &, const TTimePeriod &) = default;
};

/// What keys, assistive tools and buttons let an axis do.
enum class TScalerCommand : unsigned char {
    Earlier, ///< by a tenth of the length
    Later,
    PageEarlier, ///< by nine tenths of the length, so that some of what was seen stays
    PageLater,
    ZoomIn, ///< by a notch, about the middle
    ZoomOut,
    Today ///< the present instant in the middle, at the same zoom
};

/// The operations on the visible time that every way of input shares, also that of the components
/// which embed the scaler.
///
/// A move keeps the length of the range and stops at either bound of the axis; where it would begin
/// within hidden time, it goes on to the nearest visible instant (MoveTo does not). Zooming ends at
/// a minute and at the whole axis. None of them does anything while the axis has no length or shows
/// no time.
class KORVANE_CORE_API TDateScalerNavigation : public TDateScalerCore
{
public:
    using TDateScalerCore::TDateScalerCore;

    /// Multiplies the days per pixel, so that factors below 1 zoom in; the instant at the pixel
    /// stays there.
    void ZoomBy(double factor, int pixel);
    /// Zooms by notches of a wheel about the pixel: in when positive, by ZoomFactor each, or by
    /// fractions. A ZoomFactor of 1 switches that off.
    void ZoomAround(double notches, int pixel);
    /// Moves by so many pixels of time, to later times when positive.
    void PanPixels(double pixels);
    /// Moves by notches of a wheel, a tenth of the length each; to later times when positive.
    void PanNotches(double notches) { PanPixels(notches * GetScaleLen() / 10); }
    /// Begins the range at another instant.
    void MoveTo(TDateTime start);
    /// Moves so that the instant is in the middle.
    void GoTo(TDateTime date) { KeepAt(date, GetScaleLen() / 2); }
    /// Does what a command says.
    void Execute(TScalerCommand command);

    /// Lets the period fill the axis. Nothing happens when it is shorter than a minute.
    void Fit(const TTimePeriod &period);
    /// The calendar period of a row's step that holds the date.
    TTimePeriod PeriodAt(TScaleRow row, TDateTime date) const;

protected:
    /// Where steps from Start end: after the first one that does not end in hidden time.
    TDateTime StepPastHidden(TDateTime step) const;

private:
    /// The date, or the nearest visible instant in the direction of the sign.
    TDateTime PastHidden(TDateTime date, double direction) const;
    void KeepAt(TDateTime date, int pixel);
    TDateTime HiddenUntil(TDateTime date) const;
};

} // namespace korvane
