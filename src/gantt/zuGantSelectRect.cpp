// Ranges of items and rectangles around them.
#include "gantt/zuGantSelectionImpl.h"
#include "tree/zuTree.h"

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

TGantRow *TGantSelection::ShownRow(const TGantRow &from, TNodeStep step) const
{
    const TzuDataEntity_Tree *node = from.TreeNode();
    TTreeCore *tree = node != nullptr ? node->Tree() : nullptr;
    TGantRow *row = nullptr;
    while (tree != nullptr && row == nullptr && (node = (tree->*step)(node)) != nullptr) {
        row = GantRows().FindRowFromTreeNode(node);
    }
    return row;
}

TGantRow *TGantSelection::NextShownRow(const TGantRow &row) const
{
    return ShownRow(row, &TTreeCore::GetNextVisible);
}

TGantRow *TGantSelection::PrevShownRow(const TGantRow &row) const
{
    return ShownRow(row, &TTreeCore::GetPrevVisible);
}

TGantRow *TGantSelection::EdgeRow(TGantStep step) const
{
    const TGantRow *any = GantRows().GetGantRow(0);
    TTreeCore *tree =
        any != nullptr && any->TreeNode() != nullptr ? any->TreeNode()->Tree() : nullptr;
    if (tree == nullptr) {
        return nullptr;
    }
    const bool first = step == TGantStep::Back;
    const TzuDataEntity_Tree *node = first ? tree->GetNextVisible(nullptr)
                                           : tree->GetDataEntityFromRow(tree->CountVisible() - 1);
    TGantRow *row = nullptr;
    while (node != nullptr && (row = GantRows().FindRowFromTreeNode(node)) == nullptr) {
        node = first ? tree->GetNextVisible(node) : tree->GetPrevVisible(node);
    }
    return row;
}

TGantSelection::TItems TGantSelection::ItemsBetween(TzuDataEntity_Spanbar &from,
                                                    TzuDataEntity_Spanbar &to) const
{
    const auto lineOf = [](const TGantRow *row) {
        TTreeCore *tree =
            row != nullptr && row->TreeNode() != nullptr ? row->TreeNode()->Tree() : nullptr;
        return tree != nullptr ? tree->GetRow(*row->TreeNode()) : -1;
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
    const auto add = [&](TGantRow *row, int top, int bottom) {
        if (top < rect.Bottom && bottom > rect.Top) {
            rows.push_back({row, {top, bottom}});
        }
    };
    const int height = std::max(CurrentRowHeight(), 1);
    int top = onScreen.front()->GetRect().Top;
    for (TGantRow *row = PrevShownRow(*onScreen.front()); row != nullptr && top > rect.Top;
         row = PrevShownRow(*row)) {
        add(row, top - height, top);
        top -= height;
    }
    for (TGantRow *row : onScreen) {
        add(row, row->GetRect().Top, row->GetRect().Bottom);
    }
    int bottom = onScreen.back()->GetRect().Bottom;
    for (TGantRow *row = NextShownRow(*onScreen.back()); row != nullptr && bottom < rect.Bottom;
         row = NextShownRow(*row)) {
        add(row, bottom, bottom + height);
        bottom += height;
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
