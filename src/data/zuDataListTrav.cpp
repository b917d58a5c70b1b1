#include "data/zuDataListTrav.h"

#include <algorithm>

namespace korvane {

TDataListTrav *TDataListTrav::s_first = nullptr;

TDataListTrav::TDataListTrav(TMode mode)
    : m_mode(mode)
    , m_next(s_first)
{
    if (m_next != nullptr) {
        m_next->m_previous = this;
    }
    s_first = this;
}

TDataListTrav::TDataListTrav(TzuDataList *list)
    : TDataListTrav(TMode::OneLevel)
{
    m_list = list;
}

TDataListTrav::TDataListTrav(TzuDataList2lev *lists)
    : TDataListTrav(lists, 0)
{
}

TDataListTrav::TDataListTrav(TzuDataList2lev *lists, int startIndex)
    : TDataListTrav(TMode::TwoLevel)
{
    m_list2lev = lists;
    m_startIndex = startIndex;
}

TDataListTrav::TDataListTrav(TzuDataList2lev *lists, std::span<const int> indexes)
    : TDataListTrav(TMode::TwoLevel)
{
    const auto taken = std::min(indexes.size(), static_cast<std::size_t>(lists->Count()));
    m_list2lev = lists;
    m_useIndexes = true;
    m_indexes.assign(indexes.begin(), indexes.begin() + static_cast<std::ptrdiff_t>(taken));
}

TDataListTrav::TDataListTrav(TzuDataList3lev *lists)
    : TDataListTrav(TMode::ThreeLevel)
{
    m_list3lev = lists;
}

TDataListTrav::~TDataListTrav()
{
    (m_previous != nullptr ? m_previous->m_next : s_first) = m_next;
    if (m_next != nullptr) {
        m_next->m_previous = m_previous;
    }
}

void TDataListTrav::ListReleased(TzuDataList *list)
{
    for (auto *trav = s_first; trav != nullptr; trav = trav->m_next) {
        if (trav->m_places.empty()) {
            for (std::size_t i = 0; i < trav->m_travList.size(); ++i) {
                trav->m_places.emplace(trav->m_travList[i], i);
            }
        }
        const auto [first, last] = trav->m_places.equal_range(list);
        std::for_each(first, last,
                      [&](const auto &entry) { trav->m_travList[entry.second] = nullptr; });
    }
}

void TDataListTrav::Visit(TzuDataList *list)
{
    if (list != nullptr && list->Count() > 0) {
        m_travList.push_back(list);
        list->m_travelled = true;
    }
}

void TDataListTrav::VisitAll(TzuDataList2lev &lists, int startIndex)
{
    const int count = lists.Count();
    const int start = startIndex < 0 || startIndex >= count ? 0 : startIndex;
    for (int i = 0; i < count; ++i) {
        Visit(lists.GetDataList((start + i) % count));
    }
}

void TDataListTrav::InitTravList()
{
    m_travList.clear();
    m_places.clear();
    if (m_mode == TMode::ThreeLevel) {
        for (int i = 0; i < m_list3lev->Count(); ++i) {
            VisitAll(*m_list3lev->GetDataListList(i), 0);
        }
    } else if (m_mode == TMode::OneLevel) {
        Visit(m_list);
    } else if (m_useIndexes) {
        for (const int index : m_indexes) {
            Visit(index == -1 ? nullptr : m_list2lev->GetDataList(index));
        }
    } else {
        VisitAll(*m_list2lev, m_startIndex);
    }
}

void TDataListTrav::First()
{
    InitTravList();
    m_itemIndex = 0;
    m_listIndex = 0;
}

void TDataListTrav::Last()
{
    InitTravList();
    m_listIndex = TravCount() - 1;
    m_itemIndex = m_listIndex >= 0 ? GetObsCountInList(m_listIndex) - 1 : -1;
    while (m_itemIndex < 0 && m_listIndex >= 0) {
        Prev();
    }
}

void TDataListTrav::Next()
{
    if (m_listIndex >= TravCount()) {
        return;
    }
    ++m_itemIndex;
    if (m_listIndex < 0 || m_itemIndex >= GetObsCountInList(m_listIndex)) {
        NextList();
    }
}

void TDataListTrav::NextList()
{
    if (m_listIndex < TravCount()) {
        ++m_listIndex;
    }
    if (m_listIndex < TravCount()) {
        m_itemIndex = 0;
    }
}

void TDataListTrav::Prev()
{
    --m_itemIndex;
    if (m_itemIndex < 0) {
        m_listIndex = std::max(m_listIndex - 1, -1);
        if (m_listIndex >= 0) {
            m_itemIndex = GetObsCountInList(m_listIndex) - 1;
        }
    }
}

bool TDataListTrav::Eof() const
{
    return m_listIndex >= TravCount()
           || (m_listIndex >= 0 && m_itemIndex >= GetObsCountInList(m_listIndex));
}

TzuDataList *TDataListTrav::DataList() const
{
    return m_listIndex >= 0 && m_listIndex < TravCount() ? m_travList[m_listIndex] : nullptr;
}

TzuDataEntity *TDataListTrav::DataEntity() const
{
    TzuDataList *list = m_travList.at(static_cast<std::size_t>(m_listIndex));
    return list != nullptr ? list->GetItems(m_itemIndex) : nullptr;
}

int TDataListTrav::GetObsCountInList(int index) const
{
    const TzuDataList *list = m_travList.at(static_cast<std::size_t>(index));
    return list != nullptr ? list->Count() : 0;
}

} // namespace korvane
