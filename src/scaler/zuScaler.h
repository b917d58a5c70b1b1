// The time axis: visible range, zoom, marks, and the mapping between time and pixels.
#pragma once

#include "foundation/zuCanvas.h"
#include "foundation/zuExport.h"
#include "foundation/zuMethod.h"
#include "foundation/zuPublished.h"
#include "foundation/zuTypes.h"
#include "scaler/zuScaleMark.h"
#include "scaler/zuScalePass.h"
#include "scaler/zuScalerHost.h"
#include "scaler/zuScalerLabels.h"
#include "scaler/zuScalerSteps.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// How the indicator is drawn: not at all, as a thin line with a pointer, or as a band with the
/// time in words.
enum class TIndicatorStyle : unsigned char { isNone, isNormal, isColorfull };

/// Where and how much larger DoThePaint draws: pixels along an axis are multiplied by its factor.
struct TScaleTarget
{
    TCanvas &Canvas; ///< observed
    TRect Rect;      ///< the whole scaler
    /// Whole factors of a print; 1 on screen.
    int XFactor = 1;
    int YFactor = 1;
    std::optional<TColor> Background = {}; ///< put behind labels where ticks would cross them
};

/// The row of the finer marks and that of the coarser ones.
enum class TScaleRow : unsigned char { Minor, Major };

/// The toolkit-free half of the date scaler.
///
/// It shows the time from Start to Stop along its length, which is the width when Horizontal and
/// else the height; pixels count from the axis' start. Times that active passes hide are cut out:
/// the axis then reaches Stop + HiddenSpan and is linear only between marks.
///
/// Whatever recomputes the marks (range, size, label properties, EndUpdate, CalcDrawMode) throws
/// std::runtime_error with a text that begins "Scale error:" when that fails; the range is then one
/// day long and has marks. Handlers may change the scaler but not destroy it, except from OnChange.
class KORVANE_CORE_API TDateScalerCore : public TObject, public TScalerLabels
{
public:
    /// What OnChange is; the sender is the scaler.
    using TNotify = TMethod<void(TObject *sender)>;

    /// The number of passes; the pixel of an indicator that is not shown.
    static constexpr int kPassCount = 10;
    static constexpr int kNoIndicator = -1;

    /// Shows a week from today. The host is observed and must outlive the scaler.
    explicit TDateScalerCore(IDateScalerHost &host);

    /// The visible time, half-open; infinite and undefined values are ignored. From 1899-12-30 on:
    /// an earlier start gives that date.
    TDateTime GetStart() const { return m_start; }
    void SetStart(TDateTime start);
    TDateTime GetStop() const { return m_stop; }
    /// Up to 4000-01-01, and not compared with Start: a range may be empty or inverted.
    void SetStop(TDateTime stop);
    /// Both at once: one change.
    void SetRange(TDateTime start, TDateTime stop);
    /// Days per pixel; 0 for an axis without length and for an inverted range.
    double GetScale() const;
    /// Keeps Start and moves Stop; a range below a minute becomes two minutes long.
    virtual void SetScale(double daysPerPixel);
    /// Zooms so that `date` stays at `pixel`.
    virtual void SetCenterScale(double newScale, TDateTime date, int pixel);

    /// Takes over everything that decides how times are shown, but for range and size: labels,
    /// fonts, passes, label handlers.
    void AssignLook(const TDateScalerCore &other);

    /// Whether time runs from left to right rather than down; false by default.
    bool Horizontal() const { return m_horizontal; }
    void SetHorizontal(bool horizontal);
    /// The least distance of two minor marks, in pixels; 15 by default. Below 1 there are no marks.
    int PixelsForModeSwitch() const { return m_pixelsForModeSwitch; }
    void SetPixelsForModeSwitch(int pixels);
    /// Whether the indicator is drawn, and how; true and isNormal by default.
    bool IndicatorOn() const { return m_indicatorOn; }
    void SetIndicatorOn(bool on);
    TIndicatorStyle IndicatorStyle() const { return m_indicatorStyle; }
    void SetIndicatorStyle(TIndicatorStyle style);
    /// The pixel of the axis that the indicator marks, for example the pointer's; kNoIndicator by
    /// default, and for what is less.
    int IndicatorPixel() const { return m_indicatorPixel; }
    void SetIndicatorPixel(int pixel);
    /// By what a notch of the wheel multiplies the scale; 0.9 by default.
    double ZoomFactor() const { return m_zoomFactor; }
    void SetZoomFactor(double factor) { m_zoomFactor = factor; }

    // Mapping.

    /// Length of the axis in pixels.
    virtual int GetScaleLen() const;
    /// Saturates at the 32-bit range; -1 where the axis has no length in time.
    int DateToPixel(TDateTime date) const;
    /// Inverse to DateToPixel between marks only.
    TDateTime PixelToDate(int pixel) const;
    /// The time that so many pixels cover.
    virtual TDateTime PixelLenToDate(int pixels) const { return GetScale() * pixels; }
    /// Pixels from Start's time of day to that of `time`; dates do not count.
    virtual int TimeToPixel(TDateTime time) const;

    /// Like the free function; when that throws, the range is set to one day first.
    TDateTime Snap(TDateTime step, TDateTime date);

    // Passes and marks.

    /// Pass 0..9, earlier ones first; throws std::out_of_range for others. Changes of a pass show
    /// after CalcDrawMode or EndUpdate.
    TDateScalePass &GetPassList(int index) { return m_passes.at(static_cast<std::size_t>(index)); }
    /// What the passes say about the time of day of an instant at the present minor step; colour 0
    /// where none applies.
    TPassInfo GetPassInfoFromDateTime(TDateTime date) const;
    /// Recomputes steps, marks and labels from range, length and passes.
    void CalcDrawMode();
    /// Days between marks of the rows, as StepFork counts them, and the names of these steps.
    TDateTime MinorStep() const { return m_minorStep.Length; }
    std::string_view MinorStepName() const { return m_minorStep.Name; }
    TDateTime MajorStep() const { return m_majorStep.Length; }
    std::string_view MajorStepName() const { return m_majorStep.Name; }
    /// The time that 10 pixels cover.
    TDateTime ScrollStep() const { return m_scrollStep; }
    /// Days cut out of the visible range.
    TDateTime HiddenSpan() const { return m_hiddenSpan; }
    /// Marks in order of time. Valid until the next recomputation.
    const TScaleMarkList &PrimaryMarks() const { return m_primaryMarks; }
    const TScaleMarkList &SecondaryMarks() const { return m_secondaryMarks; }
    /// A: the last minor mark at or before the date, B: the one after.
    TScaleMarkPair FindScaleMarksFromDate(TDateTime date) const;
    /// B: the first minor mark beyond the pixel, A: the one before it.
    TScaleMarkPair FindScaleMarksFromPixel(int pixel) const;
    /// Where the mark is on an axis of the present length.
    int GetPixelFromScaleMark(const TScaleMark &mark) const;

    // Painting.

    /// Draws the scaler on a canvas whose brush has the background's colour and, when a change is
    /// due, asks for its notification.
    void DoThePaint(TCanvas &canvas, const TRect &rect);
    /// Ticks of one row of marks.
    void DrawScaleMarks(TScaleMarkList &marks, const TScaleTarget &target);
    /// Labels of one row of marks; those that would overlap an earlier one are left out.
    void DrawScaleMarksText(const TScaleMarkList &marks, const TScaleTarget &target, TScaleRow row);
    /// Distance of a row's labels from the edge where the scroll buttons are, in pixels.
    int RowOffset(TScaleRow row) const
    {
        return (m_horizontal ? 15 : 20) * (row == TScaleRow::Major ? 1 : 2);
    }
    /// Pixels of the minor and major marks, as last painted.
    const std::vector<int> &MinorPixels() const { return m_minorPixels; }
    const std::vector<int> &MajorPixels() const { return m_majorPixels; }
    /// Number of the first major period among its kind: its parity stays with the calendar period
    /// while the axis scrolls.
    int GetOddOrEventStartForVerticalBack() const { return m_oddEvenStart; }
    /// Client rectangles of the scroll buttons, as last painted.
    const TRect &StepDownRect() const { return m_stepDownRect; }
    const TRect &StepUpRect() const { return m_stepUpRect; }

    // Updates and notification.

    /// Brackets nest; the marks are computed once, at the end of the outermost.
    virtual void BeginUpdate();
    virtual void EndUpdate();
    /// The control's size has changed.
    void Resize();
    /// A change waits for the next paint or for CallChange.
    bool ChangePending() const { return m_changePending; }
    /// Delivers a change that PostChange has announced.
    virtual void CallChange();
    /// A zoom drag runs; no change is announced meanwhile.
    bool Interacting() const { return m_interaction.Interacting; }
    /// A mouse button is down on the scaler.
    bool Dragging() const { return m_interaction.Dragging; }
    /// The scroll button for later or earlier times is held down.
    bool StepUpPressed() const { return m_interaction.StepUpPressed; }
    bool StepDownPressed() const { return m_interaction.StepDownPressed; }

    /// The visible range has changed: once per paint, from the event loop, never within a zoom
    /// drag.
    TPublished<TNotify> OnChange;

protected:
    /// What the mouse is doing with the scaler.
    struct TInteraction
    {
        /// As the public functions of these names tell.
        bool Interacting = false;
        bool Dragging = false;
        bool StepUpPressed = false;
        bool StepDownPressed = false;
    };

    /// Whether anybody listens to the change notification.
    virtual bool HasChangeListener() const { return static_cast<bool>(OnChange); }
    /// As the release of a mouse button does; a failed computation of marks calls it.
    virtual void EndInteraction();
    /// A pending change is not announced.
    void ForgetChange() { m_changePending = false; }
    /// As given to the constructor, and the passes at the present minor step.
    IDateScalerHost &AxisHost() const { return m_host; }
    TDayPattern DayPattern() const { return {m_passes, MinorStep()}; }

    /// Kept by the gestures.
    TInteraction m_interaction;

private:
    void LabelsChanged() override;
    void LabelFontsChanged() override { m_host.Refresh(); }
    void RangeChanged();
    void UpdateMarks();
    void AnnounceChange();

    void ComputeMarks();
    void ComputeOnce();
    void RecoverFromScaleError();
    TScaleMarkList MinorMarks(const TDayPattern &pattern, TDateTime &hiddenSpan);
    TScaleMarkList MajorMarks(const TDayPattern &pattern, TDateTime hiddenSpan) const;
    [[noreturn]] void DropOutError();
    void CalcOddOrEventStartForVerticalBack();
    int PeriodNumber(TDateTime step, TDateTime date) const;
    TScaleMarkPair PairAround(TScaleMarkList::const_iterator after) const;
    void UpdatePixels() const;
    int MarkPixel(const TScaleMark &mark) const;

    void DrawTick(const TScaleTarget &target, std::int64_t pixel, int length) const;
    void SetLabelFont(TCanvas &canvas, TScalerFont font) const;
    std::optional<TColor> BackgroundOf(const TCanvas &canvas) const;
    void DrawScrollButtons(TCanvas &canvas);
    void DrawScaleIndicator(const TScaleTarget &target);
    std::string IndicatorText() const;
    void NormalIndicator(const TScaleTarget &target) const;
    void ColorFullIndicator(const TScaleTarget &target) const;

    IDateScalerHost &m_host;
    TDateTime m_start = 0;
    TDateTime m_stop = 0;
    bool m_horizontal = false;
    int m_pixelsForModeSwitch = 15;
    bool m_indicatorOn = true;
    TIndicatorStyle m_indicatorStyle = TIndicatorStyle::isNormal;
    int m_indicatorPixel = kNoIndicator;
    double m_zoomFactor = 0.9;

    std::array<TDateScalePass, kPassCount> m_passes;
    TScaleStep m_minorStep;
    TScaleStep m_majorStep;
    TDateTime m_scrollStep = kDay;
    TDateTime m_hiddenSpan = 0;
    // Their pixels belong to the axis length for which they were worked out last.
    mutable TScaleMarkList m_primaryMarks;
    mutable TScaleMarkList m_secondaryMarks;
    mutable int m_pixelsLength = 0;
    int m_oddEvenStart = 0;
    bool m_computing = false;
    bool m_computeAgain = false;

    std::vector<int> m_minorPixels;
    std::vector<int> m_majorPixels;
    TRect m_stepDownRect;
    TRect m_stepUpRect;

    int m_updateCount = 0;
    bool m_changePending = false;
};

} // namespace korvane
