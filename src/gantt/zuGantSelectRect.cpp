// Ranges of items and rectangles around them.
#include "gantt/zuGantSelectionImpl.h"

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

TRect Normalised(const TRect &rect)
{
    const int left = std::min(rect.Left, rect.Right);
    const int top = std::min(rect.Top, rect.Bottom);
    return {left, top, std::max({rect.Left, rect.Right, left + 1}),
            std::max({rect.Top, rect.Bottom, top + 1})};
}

} // namespace

TGantRow *TGantSelection::NextShownRow(const TGantRow &row) const
{
    return m_inputHost.Lines().Neighbour(&row, TGantStep::Forward);
}

TGantRow *TGantSelection::PrevShownRow(const TGantRow &row) const
{
    return m_inputHost.Lines().Neighbour(&row, TGantStep::Back);
}

TGantRow *TGantSelection::EdgeRow(TGantStep step) const
{
    return m_inputHost.Lines().Neighbour(nullptr, step == TGantStep::Back ? TGantStep::Forward
                                                                          : TGantStep::Back);
}

TGantSelection::TItems TGantSelection::ItemsBetween(TzuDataEntity_Spanbar &from,
                                                    TzuDataEntity_Spanbar &to) const
{
    const auto lineOf = [this](const TGantRow *row) {
        return row != nullptr ? m_inputHost.Lines().LineOf(*row) : -1;
    };
    TGantRow *top = from.GetRow();
    TGantRow *bottom = to.GetRow();
    if (lineOf(top) < 0 || lineOf(bottom) < 0) {
        return {&to};
    }
    if (lineOf(top) > lineOf(bottom)) {
        std::swap(top, bottom);
    }
    const auto [earliest, latest] = std::minmax({from.GetStartDateTime(), from.GetStopDateTime(),
                                                 to.GetStartDateTime(), to.GetStopDateTime()});
    TItems items;
    for (TGantRow *row = top; row != nullptr; row = NextShownRow(*row)) {
        row->ForEachShown([&, earliest = earliest, latest = latest](TzuDataEntity_Spanbar &item) {
            const auto [start, stop] =
                std::minmax({item.GetStartDateTime(), item.GetStopDateTime()});
            // What only touches an end of the range, as a successor does, lies outside.
            const bool overlaps =
                start < latest && (stop > earliest || (start == stop && stop == earliest));
            if (overlaps || &item == &from || &item == &to) {
                items.push_back(&item);
            }
        });
        if (row == bottom) {
            break;
        }
    }
    return items;
}

/// Rows with the vertical place that they have or would have, as far as they meet the rectangle.
std::vector<TGantSelection::TRowBand> TGantSelection::RowsIn(const TRect &rect) const
{
    const auto &onScreen = GantRows().RowsOnScreen();
    if (onScreen.empty()) {
        return {};
    }
    std::vector<TRowBand> rows;
    // False once the rows are beyond the rectangle.
    const auto add = [&](TGantRow *row, bool above) {
        const auto y = row != nullptr ? m_inputHost.Lines().SpanOf(*row) : std::nullopt;
        if (y && y->From < rect.Bottom && y->To > rect.Top) {
            rows.push_back({row, *y});
        }
        return y && (above ? y->From > rect.Top : y->To < rect.Bottom);
    };
    TGantRow *first = onScreen.front();
    for (TGantRow *row = first; add(row = PrevShownRow(*row), true);) {
    }
    for (TGantRow *row = first; add(row, false); row = NextShownRow(*row)) {
    }
    return rows;
}

TGantSelection::TItems TGantSelection::ItemsIn(const TRect &rect) const
{
    const TRect wanted = Normalised(rect);
    TItems items;
    for (const TRowBand &band : RowsIn(wanted)) {
        band.Row->ForEachShown([&](TzuDataEntity_Spanbar &item) {
            if (band.Row->RectFromDataEntity(item, band.Y).Intersects(wanted)) {
                items.push_back(&item);
            }
        });
    }
    return items;
}

void TGantSelection::BeginSelectInRect()
{
    m_band = std::make_unique<TBand>();
    m_band->Before.insert(m_selected.Items().begin(), m_selected.Items().end());
}

void TGantSelection::EndSelectInRect()
{
    m_band.reset();
}

void TGantSelection::SelectInRect(const TRect &rect, TSelectHow how)
{
    const bool single = m_band == nullptr;
    if (single) {
        BeginSelectInRect();
    }
    UpdateBand(ItemsIn(rect), how);
    if (single) {
        EndSelectInRect();
    }
}

void TGantSelection::CancelSelectInRect()
{
    if (m_band != nullptr) {
        // Nothing inside and everything added: what was selected before.
        UpdateBand({}, TSelectHow::Add);
        EndSelectInRect();
    }
}

void TGantSelection::UpdateBand(TItems inside, TSelectHow how)
{
    KeepAll(inside);
    std::ranges::sort(inside);
    TItems concerned = std::exchange(m_band->Inside, inside);
    concerned.insert(concerned.end(), inside.begin(), inside.end());
    if (std::exchange(m_band->How, how) != how || !std::exchange(m_band->Applied, true)) {
        const TItems &now = m_selected.Items();
        concerned.insert(concerned.end(), now.begin(), now.end());
        concerned.insert(concerned.end(), m_band->Before.begin(), m_band->Before.end());
    }
    std::ranges::sort(concerned);
    concerned.erase(std::ranges::unique(concerned).begin(), concerned.end());
    TItems on;
    TItems off;
    for (TzuDataEntity_Spanbar *item : concerned) {
        const bool wanted = m_band->Wants(item, std::ranges::binary_search(inside, item));
        if (wanted != item->GetSelected()) {
            (wanted ? on : off).push_back(item);
        }
    }
    ChangeSelection([&] {
        if (how == TSelectHow::Replace) {
            DeselectLinks(nullptr);
        }
        SetMarks(off, false);
        SetMarks(on, true);
    });
}

} // namespace korvane
