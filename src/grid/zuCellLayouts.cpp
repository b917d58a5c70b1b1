#include "grid/zuCellLayouts.h"

#include <algorithm>
#include <utility>

namespace korvane {

bool SameName(std::string_view a, std::string_view b)
{
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [lower](char x, char y) { return lower(x) == lower(y); });
}

void TzuCellLayout::SetName(std::string name)
{
    if (name != m_name) {
        m_name = std::move(name);
        m_layouts.Changed();
    }
}

void TzuCellLayout::Apply(TBabCell *cell) const
{
    if (cell != nullptr) {
        cell->SetLayoutProp(m_prop);
    }
}

void TzuCellLayout::TellChanged() const
{
    m_layouts.m_host.ModelChanged();
}

const TzuCellLayout *TzuCellLayouts::LayoutByName(std::string_view name) const
{
    for (int index = 0; index < Count(); ++index) {
        if (SameName(At(index).Name(), name)) {
            return &At(index);
        }
    }
    return nullptr;
}

void TzuCellLayouts::ApplyFromLayoutName(std::string_view name, TBabCell *cell) const
{
    if (const TzuCellLayout *layout = LayoutByName(name)) {
        layout->Apply(cell);
    }
}

void TzuCellLayouts::Changed()
{
    ++m_nameChanges;
    m_host.ModelChanged();
}

} // namespace korvane
