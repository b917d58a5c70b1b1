#include "scaler/zuScalerLabels.h"

#include "foundation/zuFormat.h"
#include "scaler/zuScalerSteps.h"

namespace korvane {

TScalerLabels::TScalerLabels()
{
    m_textFonts.fill({.Name = "Arial", .Size = 7});
}

void TScalerLabels::AssignLabels(const TScalerLabels &other)
{
    m_dateFormat = other.m_dateFormat;
    m_timeFormat = other.m_timeFormat;
    m_firstDayOfWeek = other.m_firstDayOfWeek;
    m_weekNumbers = other.m_weekNumbers;
    m_weekPrefix = other.m_weekPrefix;
    m_weekYearFormat = other.m_weekYearFormat;
    m_quarterPrefix = other.m_quarterPrefix;
    m_textFonts = other.m_textFonts;
    OnUserStringShort = other.OnUserStringShort;
    OnUserStringLong = other.OnUserStringLong;
    LabelsChanged();
}

void TScalerLabels::SetLabelText(std::string &property, std::string value)
{
    if (value != property) {
        property = std::move(value);
        LabelsChanged();
    }
}

void TScalerLabels::SetFirstDayOfWeek(int day)
{
    if (day != m_firstDayOfWeek && day >= 1 && day <= 7) {
        m_firstDayOfWeek = day;
        LabelsChanged();
    }
}

void TScalerLabels::SetWeekNumbers(bool on)
{
    if (on != m_weekNumbers) {
        m_weekNumbers = on;
        LabelsChanged();
    }
}

void TScalerLabels::SetTextFont(TScalerFont font, const TFont &value)
{
    TFont &owned = m_textFonts[static_cast<std::size_t>(font)];
    if (value != owned) {
        owned = value;
        LabelFontsChanged();
    }
}

std::string TScalerLabels::GetWeekString(std::string_view format, TDateTime date) const
{
    if (!m_weekNumbers) {
        return FormatDate(format, date) + " - " + FormatDate(format, date + 6);
    }
    const TWeekNum week = GetWeekNum(date);
    const TDateTime inYear = week.NextYear ? date + kYear : date;
    const std::string year =
        m_weekYearFormat.empty() ? std::string() : FormatDateTime(m_weekYearFormat, inYear);
    return year + m_weekPrefix + std::to_string(week.Number);
}

TScaleLabel TScalerLabels::GetApprioateStringShort(TDateTime step, TDateTime date) const
{
    TScaleLabel label;
    if (step == kScale10Hun) {
        label.Text = FormatDate(m_dateFormat, date) + ' ' + FormatTime(m_timeFormat, date);
    } else if (step == kScale1Sec || step == kScale10Sec) {
        label.Text = FormatDateTime("SS", date);
    } else if (step == kScale1Min || step == kScale10Min) {
        label.Text = FormatDateTime("NN", date);
    } else if (step == kScale1Hour) {
        label.Text = FormatDateTime("HH", date);
    } else if (step == kScale1Day) {
        label.Text = FormatDateTime("ddd", date);
    } else if (step == kScale1Week) {
        label.Text = GetWeekString(m_dateFormat, date);
    } else if (step == kScale1Month || step == kScale3Month) {
        label.Text = FormatDateTime("mmm", date);
    } else if (step >= kScale1Year) {
        label.Text = FormatDateTime("yy", date);
    }
    AskUser(OnUserStringShort, step, date, label);
    return label;
}

TScaleLabel TScalerLabels::GetApprioateStringLong(TDateTime step, TDateTime date) const
{
    TScaleLabel label;
    if (step == kScale10Hun) {
        label.Text = FormatDate(m_dateFormat, date) + ' ' + FormatTime(m_timeFormat, date);
    } else if (step < kScale1Day) {
        label.Text = FormatTime(m_timeFormat, date);
    } else if (step == kScale1Day) {
        label.Text = FormatDateTime("ddd", date);
    } else if (step == kScale1Week) {
        label.Text = GetWeekString(m_dateFormat, date);
    } else if (step == kScale1Month) {
        label.Text = FormatDateTime("yyyy mmm", date);
    } else if (step == kScale3Month) {
        label.Text =
            FormatDateTime("yyyy", date) + m_quarterPrefix + std::to_string(DateToQuarter(date));
    } else if (step == kScale1Year) {
        label.Text = FormatDateTime("yyyy", date);
    } else if (step > kScale1Year) {
        label.Text = FormatDateTime("yyyy", date) + " - " + FormatDateTime("yyyy", date + step);
    }
    AskUser(OnUserStringLong, step, date, label);
    return label;
}

void TScalerLabels::AskUser(const TOnUserStringEvent &event, TDateTime step, TDateTime date,
                            TScaleLabel &label) const
{
    if (!m_ignoreOverrides) {
        event(date, step, label.Text, label.Font);
    }
}

} // namespace korvane
