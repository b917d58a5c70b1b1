// A chart whose items have letters for names, so that a test can say in a string which they are.
#pragma once

#include "support/FakeGantHost.h"

#include <gtest/gtest.h>
#include <map>
#include <string>
#include <string_view>

namespace korvane::test {

struct NamedItems : testing::Test
{
    TestChart Chart;
    TestGant &Gant = *Chart.Gant;
    std::map<const TzuDataEntity_Spanbar *, char> Names;
    std::map<char, TzuDataEntity_Spanbar *> Items;

    TzuDataEntity_Spanbar *Add(char name, TGantRow *row, int from, int to, int layer = 0)
    {
        TzuDataEntity_Spanbar *item = Chart.AddItem(row, from, to, layer);
        Names[item] = name;
        Items[name] = item;
        return item;
    }
    /// '-' stands for none.
    char NameOf(const TzuDataEntity_Spanbar *item) const
    {
        return item != nullptr ? Names.at(item) : '-';
    }
    TzuDataEntity_Spanbar *At(char name) const { return name == '-' ? nullptr : Items.at(name); }
    /// The selected items in chart order.
    std::string Selected() const
    {
        std::string names;
        for (TzuDataEntity_Spanbar *item : Gant.SelectedItems()) {
            EXPECT_TRUE(item->GetSelected());
            names += NameOf(item);
        }
        return names;
    }
    void Select(std::string_view names)
    {
        Gant.ClearSelection();
        for (const char name : names) {
            Items.at(name)->SetSelected(true);
        }
    }
};

} // namespace korvane::test
