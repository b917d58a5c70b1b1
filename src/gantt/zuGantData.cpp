#include "gantt/zuGantData.h"

#include "gantt/zuGantDataKeeper.h"

#include <utility>

namespace korvane {

TzuDataEntity_Spanbar::~TzuDataEntity_Spanbar()
{
    if (m_kept) {
        TGantDataKeeper::Freed(this);
    }
    while (m_links != nullptr && !m_links->empty()) {
        const auto slot = static_cast<std::uint32_t>(m_links->size() - 1);
        TzuDataEntity_Link::Detach(m_links->back()->EndAt(this, slot));
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
    }
    end = {};
}

TzuDataEntity_Link::TEnd &TzuDataEntity_Link::EndAt(const TzuDataEntity_Spanbar *item,
                                                    std::uint32_t slot)
{
    return m_first.Item == item && m_first.Slot == slot ? m_first : m_second;
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
