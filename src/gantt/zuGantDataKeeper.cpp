#include "gantt/zuGantDataKeeper.h"

#include "gantt/zuGantRow.h"

namespace korvane {

TGantDataKeeper *TGantDataKeeper::s_first = nullptr;

TGantDataKeeper::TGantDataKeeper()
    : m_next(s_first)
{
    if (m_next != nullptr) {
        m_next->m_previous = this;
    }
    s_first = this;
}

TGantDataKeeper::~TGantDataKeeper()
{
    (m_previous != nullptr ? m_previous->m_next : s_first) = m_next;
    if (m_next != nullptr) {
        m_next->m_previous = m_previous;
    }
}

void TGantDataKeeper::Keep(TzuDataEntity_Spanbar *item)
{
    if (item != nullptr) {
        item->m_kept = true;
    }
}

void TGantDataKeeper::Keep(TzuDataEntity_Link *link)
{
    if (link != nullptr) {
        link->m_kept = true;
    }
}

void TGantDataKeeper::Keep(TGantRow *row)
{
    if (row != nullptr) {
        row->m_kept = true;
    }
}

void TGantDataKeeper::Freed(const TzuDataEntity_Spanbar *item)
{
    for (auto *keeper = s_first; keeper != nullptr; keeper = keeper->m_next) {
        keeper->_OnItemFreed(item);
    }
}

void TGantDataKeeper::Freed(const TzuDataEntity_Link *link)
{
    for (auto *keeper = s_first; keeper != nullptr; keeper = keeper->m_next) {
        keeper->_OnLinkFreed(link);
    }
}

void TGantDataKeeper::Freed(const TGantRow *row)
{
    for (auto *keeper = s_first; keeper != nullptr; keeper = keeper->m_next) {
        keeper->_OnRowFreed(row);
    }
}

} // namespace korvane
