// What the labels of a time axis say, and in which fonts.
#pragma once

#include "foundation/zuCanvas.h"
#include "foundation/zuExport.h"
#include "foundation/zuMethod.h"
#include "scaler/zuScaleMark.h"
#include "scaler/zuScalerWeeks.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace korvane {

/// A label and the font it is drawn in.
struct TScaleLabel
{
    /// The text is empty where a step has no label; the font is the first one unless a handler has
    /// said otherwise.
    std::string Text;
    TScalerFont Font = TScalerFont::sTextFont1;
};

/// Formats, fonts and the calendar of a time axis, and the labels that follow from them.
class KORVANE_CORE_API TScalerLabels
{
public:
    /// A label override: may replace the text of the label that `step` puts at `date`.
    using TOnUserStringEvent =
        TMethod<void(TDateTime date, TDateTime step, std::string &text, TScalerFont font)>;

    /// Patterns of FormatDate and FormatTime; empty by default, which means the short forms of the
    /// locale.
    const std::string &DateFormat() const { return m_dateFormat; }
    void SetDateFormat(std::string format) { SetLabelText(m_dateFormat, std::move(format)); }
    const std::string &TimeFormat() const { return m_timeFormat; }
    void SetTimeFormat(std::string format) { SetLabelText(m_timeFormat, std::move(format)); }
    /// 1 (Sunday) to 7, 2 by default; other values are ignored.
    int FirstDayOfWeek() const { return m_firstDayOfWeek; }
    void SetFirstDayOfWeek(int day);
    /// Whether weeks are numbered rather than named by their days; false by default.
    bool WeekNumbers() const { return m_weekNumbers; }
    void SetWeekNumbers(bool on);
    /// What stands before the number of a week, " w " by default, and the pattern of FormatDateTime
    /// for the year before that, "YYYY" by default.
    const std::string &WeekPrefix() const { return m_weekPrefix; }
    void SetWeekPrefix(std::string prefix) { SetLabelText(m_weekPrefix, std::move(prefix)); }
    const std::string &WeekYearFormat() const { return m_weekYearFormat; }
    void SetWeekYearFormat(std::string format)
    {
        SetLabelText(m_weekYearFormat, std::move(format));
    }
    /// What stands before the number of a quarter; " Q" by default.
    const std::string &QuarterPrefix() const { return m_quarterPrefix; }
    void SetQuarterPrefix(std::string prefix) { SetLabelText(m_quarterPrefix, std::move(prefix)); }
    /// The three fonts that a label can have; Arial of 7 points by default.
    const TFont &TextFont1() const { return m_textFonts[0]; }
    void SetTextFont1(const TFont &font) { SetTextFont(TScalerFont::sTextFont1, font); }
    const TFont &TextFont2() const { return m_textFonts[1]; }
    void SetTextFont2(const TFont &font) { SetTextFont(TScalerFont::sTextFont2, font); }
    const TFont &TextFont3() const { return m_textFonts[2]; }
    void SetTextFont3(const TFont &font) { SetTextFont(TScalerFont::sTextFont3, font); }

    // Calendar.

    /// As the free functions of these names, with FirstDayOfWeek.
    TDateTime TruncToFirstDayOfWeek(TDateTime date) const
    {
        return korvane::TruncToFirstDayOfWeek(date, m_firstDayOfWeek);
    }
    TFirstWeek FirstWeekOfYear(TDateTime date) const
    {
        return korvane::FirstWeekOfYear(date, m_firstDayOfWeek);
    }
    TWeekNum GetWeekNum(TDateTime date) const
    {
        return korvane::GetWeekNum(date, m_firstDayOfWeek);
    }
    /// Year and week number, or the range of days by `format` unless WeekNumbers.
    std::string GetWeekString(std::string_view format, TDateTime date) const;
    /// As the free function.
    int DateToQuarter(TDateTime date) const { return korvane::DateToQuarter(date); }

    /// The label of a minor mark.
    TScaleLabel GetApprioateStringShort(TDateTime step, TDateTime date) const;
    /// The label of a major mark.
    TScaleLabel GetApprioateStringLong(TDateTime step, TDateTime date) const;

    /// Called for each minor or major mark whenever marks are computed.
    TOnUserStringEvent OnUserStringShort;
    TOnUserStringEvent OnUserStringLong;

protected:
    TScalerLabels();
    ~TScalerLabels() = default;
    TScalerLabels(const TScalerLabels &) = delete;
    TScalerLabels &operator=(const TScalerLabels &) = delete;

    /// Takes over formats, fonts, calendar and handlers of other labels.
    void AssignLabels(const TScalerLabels &other);
    /// Texts have changed, and have to be asked for again.
    virtual void LabelsChanged() = 0;
    /// Only the looks have changed.
    virtual void LabelFontsChanged() = 0;

    /// One of the three.
    const TFont &FontOf(TScalerFont font) const
    {
        return m_textFonts[static_cast<std::size_t>(font)];
    }

    bool m_ignoreOverrides = false; ///< labels are made without the application's handlers

private:
    void SetTextFont(TScalerFont font, const TFont &value);
    void SetLabelText(std::string &property, std::string value);
    void AskUser(const TOnUserStringEvent &event, TDateTime step, TDateTime date,
                 TScaleLabel &label) const;

    std::string m_dateFormat;
    std::string m_timeFormat;
    int m_firstDayOfWeek = 2;
    bool m_weekNumbers = false;
    std::string m_weekPrefix = " w ";
    std::string m_weekYearFormat = "YYYY";
    std::string m_quarterPrefix = " Q";
    std::array<TFont, 3> m_textFonts;
};

} // namespace korvane
