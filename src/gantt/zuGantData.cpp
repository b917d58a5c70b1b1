#include "gantt/zuGantData.h"

#include "gantt/zuGantDataKeeper.h"
#include "gantt/zuGantTimeIndex.h"

#include <algorithm>
#include <utility>

namespace korvane {

TzuDataEntity_Spanbar::~TzuDataEntity_Spanbar()
{
    if (m_kept) {
        TGantDataKeeper::Freed(this);
    }
    if (std::exchange(m_inTimeIndex, false)) {
        IndexedLayer().m_timeIndex->Remove(*this);
    }
    while (m_links != nullptr && !m_links->empty()) {
        const auto slot = static_cast<std::uint32_t>(m_links->size() - 1);
        TzuDataEntity_Link::Detach(m_links->back()->EndAt(this, slot));
    }
}

TzuDataList_GantRow &TzuDataEntity_Spanbar::IndexedLayer() const
{
    return static_cast<TzuDataList_GantRow &>(HoldingList());
}

void TzuDataEntity_Spanbar::SetTimesInIndex(TDateTime start, TDateTime stop)
{
    TGantTimeIndex &index = *IndexedLayer().m_timeIndex;
    index.Remove(*this);
    m_start = start;
    m_stop = stop;
    index.Add(*this);
}

void TzuDataEntity_Spanbar::TouchInIndex()
{
    IndexedLayer().m_timeIndex->Touch(*this);
}

void TzuDataEntity_Spanbar::SetVisible(bool visible)
{
    if (visible != GetVisible()) {
        Touch();
    }
    TzuDataEntity::SetVisible(visible);
}

void TzuDataEntity_Spanbar::SetFixedSize(int pixels)
{
    Assign(m_fixedSize, pixels);
    if (m_inTimeIndex) {
        int &greatest = IndexedLayer().m_greatestFixedSize;
        greatest = std::max(greatest, pixels);
    }
}

TzuTimeItemTextCollection &TzuDataEntity_Spanbar::Texts()
{
    if (m_texts == nullptr) {
        m_texts = std::make_unique<TzuTimeItemTextCollection>();
    }
    return *m_texts;
}

TGantRow *TzuDataEntity_Spanbar::GetRow() const
{
    const auto *list = dynamic_cast<const TzuDataList_GantRow *>(GetDataList());
    return list != nullptr ? list->GetRow() : nullptr;
}

const std::vector<TzuDataEntity_Link *> &TzuDataEntity_Spanbar::Links() const
{
    static const std::vector<TzuDataEntity_Link *> kNone;
    return m_links != nullptr ? *m_links : kNone;
}

TzuDataEntity_Link::~TzuDataEntity_Link()
{
    if (m_kept) {
        TGantDataKeeper::Freed(this);
    }
    Detach(m_first);
    Detach(m_second);
}

void TzuDataEntity_Link::SetFirst(TzuDataEntity_Spanbar *item)
{
    Attach(m_first, item);
}

void TzuDataEntity_Link::SetSecond(TzuDataEntity_Spanbar *item)
{
    Attach(m_second, item);
}

bool TzuDataEntity_Link::EnterPass(unsigned pass)
{
    return std::exchange(m_pass, pass) != pass;
}

void TzuDataEntity_Link::Attach(TEnd &end, TzuDataEntity_Spanbar *item)
{
    if (end.Item == item) {
        return;
    }
    Detach(end);
    if (item == nullptr) {
        return;
    }
    if (item->m_links == nullptr) {
        item->m_links = std::make_unique<std::vector<TzuDataEntity_Link *>>();
        item->Touch();
    }
    end = {item, static_cast<std::uint32_t>(item->m_links->size())};
    item->m_links->push_back(this);
}

void TzuDataEntity_Link::Detach(TEnd &end)
{
    if (end.Item == nullptr) {
        return;
    }
    auto &links = *end.Item->m_links;
    const auto last = static_cast<std::uint32_t>(links.size() - 1);
    if (end.Slot != last) {
        TzuDataEntity_Link *moved = links.back();
        moved->EndAt(end.Item, last).Slot = end.Slot;
        links[end.Slot] = moved;
    }
    links.pop_back();
    if (links.empty()) {
        end.Item->m_links.reset();
        end.Item->Touch();
    }
    end = {};
}

TzuDataEntity_Link::TEnd &TzuDataEntity_Link::EndAt(const TzuDataEntity_Spanbar *item,
                                                    std::uint32_t slot)
{
    return m_first.Item == item && m_first.Slot == slot ? m_first : m_second;
}

TzuDataList_GantRow::TzuDataList_GantRow() = default;

TzuDataList_GantRow::~TzuDataList_GantRow()
{
    if (m_timeIndex != nullptr) {
        for (TzuDataEntity_Spanbar *item : m_timeIndex->Items()) {
            item->m_inTimeIndex = false;
        }
    }
}

bool TzuDataList_GantRow::IsLong() const
{
    constexpr int kLong = 256;
    return LoadedCount() >= kLong;
}

void TzuDataList_GantRow::Joined(TzuDataEntity &entity)
{
    if (m_timeIndex != nullptr) {
        auto &item = static_cast<TzuDataEntity_Spanbar &>(entity);
        m_timeIndex->Add(item);
        m_greatestFixedSize = std::max(m_greatestFixedSize, item.FixedSize());
        item.m_inTimeIndex = true;
    }
}

void TzuDataList_GantRow::Left(TzuDataEntity &entity)
{
    auto &item = static_cast<TzuDataEntity_Spanbar &>(entity);
    if (std::exchange(item.m_inTimeIndex, false)) {
        m_timeIndex->Remove(item);
    }
}

void TzuDataList_GantRow::Reordered()
{
    if (m_timeIndex != nullptr) {
        m_timeIndex->TouchAll();
    }
}

TGantTimeIndex &TzuDataList_GantRow::TimeIndex()
{
    if (m_timeIndex == nullptr) {
        auto index = std::make_unique<TGantTimeIndex>(AllItems());
        m_timeIndex = std::move(index);
        for (TzuDataEntity_Spanbar *item : m_timeIndex->Items()) {
            item->m_inTimeIndex = true;
            m_greatestFixedSize = std::max(m_greatestFixedSize, item->FixedSize());
        }
    }
    return *m_timeIndex;
}

int TzuDataList_GantRow::GreatestFixedSize()
{
    TimeIndex();
    return m_greatestFixedSize;
}

std::vector<TzuDataEntity_Spanbar *> TzuDataList_GantRow::AllItems()
{
    std::vector<TzuDataEntity_Spanbar *> items;
    items.reserve(static_cast<std::size_t>(Count()));
    for (int i = 0; i < LoadedCount(); ++i) {
        items.push_back(static_cast<TzuDataEntity_Spanbar *>(GetLoaded(i)));
    }
    return items;
}

void TzuDataList_GantRow::CleanForFree()
{
    m_row = nullptr;
    TzuDataList::CleanForFree();
}

TzuDataEntity_Spanbar &TimeDataEntity(TObject &object)
{
    return dynamic_cast<TzuDataEntity_Spanbar &>(object);
}

} // namespace korvane
