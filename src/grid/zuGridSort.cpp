// Sorting of the grid's rows.
#include "grid/zuGrid.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <functional>
#include <utility>

namespace korvane {

namespace {

constexpr std::size_t kNumberLength = 17;
constexpr std::size_t kPositionLength = 10;
constexpr std::int64_t kPositions = 10'000'000'000;

std::size_t CharacterCount(std::string_view text)
{
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
    }));
}

/// The last 17 characters of 17 zeros followed by the key.
void PadNumber(std::string &key)
{
    const std::size_t length = CharacterCount(key);
    if (length <= kNumberLength) {
        key.insert(0, kNumberLength - length, '0');
        return;
    }
    std::size_t begin = 0;
    for (std::size_t skip = length - kNumberLength; skip > 0; --skip) {
        do {
            ++begin;
        } while ((static_cast<unsigned char>(key[begin]) & 0xC0U) == 0x80U);
    }
    key.erase(0, begin);
}

void AppendPosition(std::string &key, std::int64_t position)
{
    std::array<char, kPositionLength> digits{};
    digits.fill('0');
    std::array<char, 20> number{};
    const auto *end =
        std::to_chars(number.data(), number.data() + number.size(), position % kPositions).ptr;
    const auto length = end - number.data();
    std::copy_n(number.begin(), length, digits.end() - length);
    key.append("###").append(digits.data(), digits.size());
}

/// The positions from `fixed` on in the order in which their keys are to be made. By address, rows
/// whose cells lie together in memory go together: rows that were sorted before take half the time.
std::vector<std::size_t> PlacesToVisit(const std::vector<TAxisContentItem *> &rows,
                                       std::size_t fixed, bool byAddress)
{
    using TPlace = std::pair<const TAxisContentItem *, std::size_t>;
    std::vector<TPlace> visits;
    visits.reserve(rows.size());
    for (std::size_t position = fixed; position < rows.size(); ++position) {
        visits.emplace_back(rows[position], position);
    }
    const auto before = [](const TPlace &a, const TPlace &b) {
        return std::less<const TAxisContentItem *>()(a.first, b.first);
    };
    if (byAddress && !std::is_sorted(visits.begin(), visits.end(), before)) {
        std::sort(visits.begin(), visits.end(), before);
    }
    std::vector<std::size_t> places(visits.size());
    std::transform(visits.begin(), visits.end(), places.begin(),
                   [](const TPlace &visit) { return visit.second; });
    return places;
}

} // namespace

/// Keys in one piece of memory, compared by their first bytes as a number where these differ.
class TzuGridCore::TSortKeys
{
public:
    explicit TSortKeys(std::size_t count)
    {
        constexpr std::size_t kUsualLength = 32;
        m_keys.reserve(count);
        m_text.reserve(count * kUsualLength);
    }

    /// The key goes on with the position.
    void Add(std::string_view text, std::int64_t position, TAxisContentItem *row)
    {
        const std::size_t begin = m_text.size();
        m_text += text;
        AppendPosition(m_text, position);
        Added(begin, row);
    }
    void Add(std::string_view key, TAxisContentItem *row)
    {
        const std::size_t begin = m_text.size();
        m_text += key;
        Added(begin, row);
    }
    std::vector<TAxisContentItem *> Sorted(bool descending)
    {
        const auto less = [this](const TKey &a, const TKey &b) {
            return a.Prefix != b.Prefix ? a.Prefix < b.Prefix : TextOf(a) < TextOf(b);
        };
        if (descending) {
            std::stable_sort(m_keys.begin(), m_keys.end(),
                             [&less](const TKey &a, const TKey &b) { return less(b, a); });
        } else {
            std::stable_sort(m_keys.begin(), m_keys.end(), less);
        }
        std::vector<TAxisContentItem *> rows(m_keys.size());
        std::transform(m_keys.begin(), m_keys.end(), rows.begin(),
                       [](const TKey &key) { return key.Row; });
        return rows;
    }

private:
    struct TKey
    {
        std::uint64_t Prefix;
        std::size_t Begin;
        std::size_t Length;
        TAxisContentItem *Row;
    };
    void Added(std::size_t begin, TAxisContentItem *row)
    {
        const std::size_t length = m_text.size() - begin;
        std::array<unsigned char, sizeof(std::uint64_t)> first{};
        std::memcpy(first.data(), m_text.data() + begin, std::min(length, first.size()));
        std::uint64_t prefix = 0;
        for (const unsigned char byte : first) {
            prefix = prefix << 8U | byte;
        }
        m_keys.push_back({prefix, begin, length, row});
    }
    std::string_view TextOf(const TKey &key) const
    {
        return std::string_view(m_text).substr(key.Begin, key.Length);
    }

    std::string m_text;
    std::vector<TKey> m_keys;
};

std::string TzuGridCore::UpperCase(std::string text) const
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
    return text;
}

TzuGrid_Column *TzuGridCore::SortColumn() const
{
    return m_sortKeys.empty() ? nullptr : m_sortKeys.front().Column;
}

std::string TzuGridCore::GetSortString(TAxisContentItem &row)
{
    TzuGrid_Column *column = SortColumn();
    TAxisContentItem *columnItem = column != nullptr ? m_columns.ItemOf(*column, m_root) : nullptr;
    return columnItem != nullptr ? SortString(*column, *columnItem, row, m_root.Rows().IndexOf(row))
                                 : std::string();
}

/// The key without the position.
std::string TzuGridCore::SortText(const TzuGrid_Column &column, TAxisContentItem &columnItem,
                                  TAxisContentItem &row)
{
    std::string key;
    if (IsSimpleKind(column.Kind())) {
        key = UpperCase(m_root.CellText(columnItem, row));
    }
    if (column.NumericSort()) {
        PadNumber(key);
    }
    return key;
}

std::string TzuGridCore::SortString(TzuGrid_Column &column, TAxisContentItem &columnItem,
                                    TAxisContentItem &row, std::int64_t position)
{
    std::string key = SortText(column, columnItem, row);
    AppendPosition(key, position);
    if (OnGetUserSortCompareString) {
        OnGetUserSortCompareString(Self(), &column, key, m_root.FindCell(columnItem, row));
    }
    return key;
}

void TzuGridCore::SetSortKeys(std::vector<TGridSortKey> keys)
{
    for (int index = 0; index < m_columns.Count(); ++index) {
        m_columns.At(index).SetSortMark(TSortMark::None);
    }
    m_sortKeys = std::move(keys);
    int order = m_sortKeys.size() > 1 ? 1 : 0;
    for (const TGridSortKey &key : m_sortKeys) {
        key.Column->SetSortMark(key.Descending ? TSortMark::Descending : TSortMark::Ascending,
                                order == 0 ? 0 : order++);
    }
    DoInternalResortOfContent();
}

void TzuGridCore::SortByUser(TzuGrid_Column &column, bool add)
{
    if (!m_userSortEnable || !column.SortEnable()) {
        return;
    }
    auto keys = m_sortKeys;
    const auto known = std::find_if(keys.begin(), keys.end(),
                                    [&](const TGridSortKey &key) { return key.Column == &column; });
    if (add && known != keys.end()) {
        known->Descending = !known->Descending;
    } else if (add) {
        keys.push_back({&column, false});
    } else {
        keys = {{&column, known == keys.begin() && known != keys.end() && !known->Descending}};
    }
    SetSortKeys(std::move(keys));
}

void TzuGridCore::DoInternalResortOfContent()
{
    if (m_sortKeys.empty()) {
        m_changed();
        return;
    }
    bool handled = false;
    OnUserSort(Self(), SortColumn(), handled);
    if (!handled && m_root.Rows().IsFullyLoaded()) {
        // Each sorting keeps the order of the one before among equals.
        const auto keys = m_sortKeys;
        std::for_each(keys.rbegin(), keys.rend(), [this](const auto &key) { SortRows(key); });
    }
    OnColumnSort(Self(), SortColumn());
    m_changed();
}

void TzuGridCore::SortRows(const TGridSortKey &key)
{
    TAxisContentItem *columnItem = m_columns.ItemOf(*key.Column, m_root);
    if (columnItem == nullptr) {
        return;
    }
    const auto all = m_root.Rows().LoadedItems();
    const auto changes = m_root.Rows().Changes();
    const auto fixed = static_cast<std::size_t>(m_root.Rows().FixedCount());
    TSortKeys keys(all.size());
    // Keys that the application makes may be equal; then the rows' order counts.
    const bool byAddress = m_root.Matris().CellCount() > 0 && !OnGetUserSortCompareString;
    for (const std::size_t position : PlacesToVisit(all, fixed, byAddress)) {
        // Turned round, the positions of equals must rise from last to first.
        const auto place = static_cast<std::int64_t>(position);
        const auto counted = key.Descending ? kPositions - 1 - place : place;
        TAxisContentItem &row = *all[position];
        if (OnGetUserSortCompareString) {
            keys.Add(SortString(*key.Column, *columnItem, row, counted), &row);
        } else {
            keys.Add(SortText(*key.Column, *columnItem, row), counted, &row);
        }
        if (changes != m_root.Rows().Changes()) {
            return; // a handler changed the rows
        }
    }
    const auto sorted = keys.Sorted(key.Descending);
    if (m_tree != nullptr) {
        m_tree->Sort(sorted);
    } else {
        m_root.Rows().Reorder(sorted);
    }
}

} // namespace korvane
