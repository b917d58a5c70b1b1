#include "cellgrid/zuBabCell.h"

#include "cellgrid/zuBabGridCell.h"
#include "foundation/zuDateUtils.h"
#include "foundation/zuFormat.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <utility>

namespace korvane {

namespace {

/// Up to three numbers with anything but digits between them; false when there are more.
bool ReadNumbers(std::string_view text, std::array<int, 3> &numbers, int &count)
{
    count = 0;
    while (true) {
        const std::size_t digit = text.find_first_of("0123456789");
        if (digit == std::string_view::npos) {
            return true;
        }
        if (count == 3) {
            return false;
        }
        text.remove_prefix(digit);
        int &number = numbers[static_cast<std::size_t>(count++)];
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (error != std::errc()) {
            return false;
        }
        text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    }
}

bool Contains(std::string_view text, std::string_view part)
{
    const auto same = [](char a, char b) {
        return std::tolower(static_cast<unsigned char>(a))
               == std::tolower(static_cast<unsigned char>(b));
    };
    return !part.empty()
           && std::search(text.begin(), text.end(), part.begin(), part.end(), same) != text.end();
}

/// The hour of a day of two halves in which the text names one of them; else the hour as it is.
int HourOf(std::string_view text, int hour)
{
    const TFormatSettings &settings = FormatSettings();
    if (hour < 12 && (Contains(text, settings.PmText) || Contains(text, "pm"))) {
        return hour + 12;
    }
    const bool morning = Contains(text, settings.AmText) || Contains(text, "am");
    return hour == 12 && morning ? 0 : hour;
}

/// The month that the text names, from 1 on; 0 for none.
int NamedMonth(std::string_view text)
{
    const TFormatSettings &settings = FormatSettings();
    for (const auto *names : {&settings.LongMonthNames, &settings.ShortMonthNames}) {
        for (std::size_t month = 0; month < names->size(); ++month) {
            const std::string &name = (*names)[month];
            const bool isNumber = name.find_first_of("0123456789") != std::string::npos;
            if (!isNumber && Contains(text, name)) {
                return static_cast<int>(month) + 1;
            }
        }
    }
    return 0;
}

/// Which of the three numbers of a short date is the year, the month and the day.
std::array<std::size_t, 3> DateOrder()
{
    const std::string &format = FormatSettings().ShortDateFormat;
    const auto place = [&format](const char *letter) { return format.find_first_of(letter); };
    const std::array places{place("yY"), place("mM"), place("dD")};
    std::array<std::size_t, 3> order{};
    for (std::size_t part = 0; part < 3; ++part) {
        for (const std::size_t other : places) {
            order[part] += other < places[part] ? 1 : 0;
        }
    }
    return order;
}

} // namespace

std::string TBabCellData_DateTime::Text() const
{
    if (m_empty) {
        return {};
    }
    return m_part == TDateTimePart::Date ? FormatDate({}, m_value) : FormatTime({}, m_value);
}

bool TBabCellData_DateTime::SetText(std::string_view text)
{
    if (text.find_first_not_of(" \t") == std::string_view::npos) {
        m_empty = true;
        return true;
    }
    std::array<int, 3> numbers{};
    int count = 0;
    if (!ReadNumbers(text, numbers, count)) {
        return false;
    }
    if (m_part == TDateTimePart::Time) {
        const bool valid = count >= 1 && numbers[0] < 24 && numbers[1] < 60 && numbers[2] < 60;
        if (valid) {
            const int hour = HourOf(text, numbers[0]);
            SetValue(std::floor(m_value) + EncodeTime(hour, numbers[1], numbers[2], 0));
        }
        return valid;
    }
    // What begins with a year is in the international order, whatever the locale's is.
    constexpr int kLastDay = 31;
    const auto order = numbers[0] > kLastDay ? std::array<std::size_t, 3>{0, 1, 2} : DateOrder();
    const int named = NamedMonth(text);
    if (named > 0 && count == 2) {
        // The numbers are year and day in their order; the month takes its place between them.
        const bool yearFirst = numbers[1] <= kLastDay && order[0] < order[2];
        const int year = numbers[yearFirst ? 0 : 1];
        const int day = numbers[yearFirst ? 1 : 0];
        numbers[order[0]] = year;
        numbers[order[1]] = named;
        numbers[order[2]] = day;
        count = 3;
    }
    const int year = numbers[order[0]] < 100 ? numbers[order[0]] + 2000 : numbers[order[0]];
    const int month = numbers[order[1]];
    const int day = numbers[order[2]];
    if (count != 3 || year > 9999 || month < 1 || month > 12 || day < 1
        || day > DaysInMonth(year, month)) {
        return false;
    }
    SetValue(EncodeDate(year, month, day) + (m_value - std::floor(m_value)));
    return true;
}

bool TBabCellData_DateTime::Understand(std::string &text) const
{
    TBabCellData_DateTime tried(m_part);
    const bool understood = tried.SetText(text);
    if (understood) {
        text = tried.Text();
    }
    return understood;
}

void TBabCell::SetLayoutProp(std::shared_ptr<const TLayoutProp> layout)
{
    if (layout != m_layoutProp) {
        m_layoutProp = std::move(layout);
        Changed();
    }
}

bool TBabCell::GetSelected() const
{
    return m_gridCell != nullptr
           && m_gridCell->Selection().IsSelected(m_gridCell->Columns().IndexOf(*m_column),
                                                 m_gridCell->Rows().IndexOf(*m_row));
}

void TBabCell::SetSelected(bool selected)
{
    if (m_gridCell == nullptr || selected == GetSelected()) {
        return;
    }
    const int column = m_gridCell->Columns().IndexOf(*m_column);
    const int row = m_gridCell->Rows().IndexOf(*m_row);
    TCellSelection &selection = m_gridCell->Selection();
    selected ? selection.Select({column, row, column, row})
             : selection.Deselect({column, row, column, row});
    if (TBabGridCellForViewer *viewer = m_gridCell->GetViewerGridCell()) {
        viewer->SelectionEvent.TriggerEvent(m_gridCell);
    }
}

void TBabCell::Changed()
{
    TBabGridCellForViewer *viewer =
        m_gridCell != nullptr ? m_gridCell->GetViewerGridCell() : nullptr;
    if (viewer != nullptr) {
        m_row->SetAutoSize(TAxisContentItem::kNotMeasured);
        viewer->CellEvent.TriggerEvent(this);
    }
}

void TBabSimpleCell::SetData(std::unique_ptr<TBabCellData> data)
{
    m_data = std::move(data);
    Changed();
}

bool TBabSimpleCell::SetText(std::string_view text)
{
    const std::string before = m_data->Text();
    if (!m_data->SetText(text)) {
        return false;
    }
    if (m_data->Text() != before) {
        Changed();
    }
    return true;
}

void TBabSimpleCell::SetImageIndex(int index)
{
    if (index != m_imageIndex) {
        m_imageIndex = index;
        Changed();
    }
}

} // namespace korvane
