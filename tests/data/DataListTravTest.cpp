#include "DataListFixture.h"
#include "data/zuDataTraveser.h"

#include <span>

namespace korvane::test {
namespace {

/// Two-level lists whose member lists have the given sizes; ids count on through all of them.
class DataListTrav : public testing::Test
{
protected:
    TzuListController m_controller;
    std::vector<ListOwner> m_lists;
    TzuDataList2lev m_level2;
    int m_nextId = 0;

    void Build(const std::vector<int> &sizes)
    {
        m_level2.Clear();
        m_lists.clear();
        m_nextId = 0;
        m_level2.AfterCreate();
        for (const int size : sizes) {
            AddList(m_level2, size);
        }
    }
    void AddList(TzuDataList2lev &level2, int size)
    {
        m_lists.push_back(NewList(m_controller, NumberedClass(m_nextId)));
        for (int i = 0; i < size; ++i) {
            m_lists.back()->Add();
        }
        m_nextId += size;
        level2.Add(m_lists.back().get());
    }
    TzuDataEntity *Entity(int id)
    {
        for (const auto &list : m_lists) {
            if (auto *e = list->FindDataEntity([id](auto *item) { return IdOf(item) == id; })) {
                return e;
            }
        }
        return nullptr;
    }
    std::vector<int> SelectedIds()
    {
        std::vector<int> ids;
        for (const auto &list : m_lists) {
            list->IteratorOfSelectedDataEntities(
                [&](TzuDataList *, TzuDataEntity *entity) { ids.push_back(IdOf(entity)); });
        }
        return ids;
    }
};

std::vector<int> Forward(TDataListTrav &walk)
{
    std::vector<int> ids;
    for (walk.First(); !walk.Eof(); walk.Next()) {
        ids.push_back(IdOf(walk.DataEntity()));
    }
    return ids;
}

std::vector<int> Backward(TDataListTrav &walk)
{
    std::vector<int> ids;
    for (walk.Last(); !walk.BOF(); walk.Prev()) {
        ids.push_back(IdOf(walk.DataEntity()));
    }
    return ids;
}

TEST_F(DataListTrav, WalksTheNonEmptyListsInTheOrderAskedFor)
{
    Build({2, 1, 0, 2}); // ids 0 1 | 2 | | 3 4
    struct Case
    {
        std::vector<int> Indexes; // one: the start index
        std::vector<int> Ids;
    };
    const std::vector<Case> cases = {
        {{0}, {0, 1, 2, 3, 4}},
        {{1}, {2, 3, 4, 0, 1}},
        {{2}, {3, 4, 0, 1, 2}},
        {{3}, {3, 4, 0, 1, 2}},
        {{4}, {0, 1, 2, 3, 4}},
        {{-1}, {0, 1, 2, 3, 4}},
        {{3, -1, 0}, {3, 4, 0, 1}},
        {{1, 1, 2, 1}, {2, 2, 2}},
        {{9, 1}, {2}},
        {{-1, -1}, {}},
        {{0, 1, 2, 3, 3, 3}, {0, 1, 2, 3, 4}}, // no more indexes than lists
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.Indexes));
        TDataListTrav started(&m_level2, c.Indexes.front());
        TDataListTrav chosen(&m_level2, std::span<const int>(c.Indexes));
        TDataListTrav &walk = c.Indexes.size() == 1 ? started : chosen;
        EXPECT_EQ(Forward(walk), c.Ids);
        const auto backward = Backward(walk);
        EXPECT_EQ(std::vector(backward.rbegin(), backward.rend()), c.Ids);
    }
}

TEST_F(DataListTrav, WalksOneListAndThreeLevels)
{
    Build({2, 0});
    TDataListTrav one(m_lists[0].get());
    EXPECT_EQ(Forward(one), (std::vector{0, 1}));
    TDataListTrav none(m_lists[1].get());
    EXPECT_EQ(Forward(none), std::vector<int>());

    TzuDataList2lev second;
    AddList(second, 1);
    AddList(second, 0);
    AddList(second, 2);
    TzuDataList2lev empty;
    TzuDataList3lev level3;
    level3.AfterCreate();
    for (auto *level2 : {&second, &empty, &m_level2}) {
        level3.Add(level2);
    }
    TDataListTrav three(&level3);
    EXPECT_EQ(Forward(three), (std::vector{2, 3, 4, 0, 1}));
    EXPECT_EQ(Backward(three), (std::vector{1, 0, 4, 3, 2}));
    EXPECT_EQ(three.Mode(), TDataListTrav::TMode::ThreeLevel);
}

TEST_F(DataListTrav, KnowsItsEndsAndTurnsRoundThere)
{
    Build({0, 0});
    TDataListTrav nothing(&m_level2);
    nothing.First();
    EXPECT_TRUE(nothing.Eof());
    nothing.Last();
    EXPECT_TRUE(nothing.BOF());
    EXPECT_FALSE(nothing.Eof());

    Build({1, 2});
    TDataListTrav walk(&m_level2);
    walk.First();
    walk.Prev();
    EXPECT_TRUE(walk.BOF());
    EXPECT_FALSE(walk.Eof());
    EXPECT_THROW(walk.DataEntity(), std::out_of_range);
    walk.Prev();
    walk.Next();
    EXPECT_EQ(IdOf(walk.DataEntity()), 0);
    walk.Last();
    walk.Next();
    walk.Next();
    EXPECT_TRUE(walk.Eof());
    EXPECT_THROW(walk.DataEntity(), std::out_of_range);
    EXPECT_THROW(walk.GetObsCountInList(2), std::out_of_range);
    EXPECT_EQ(walk.GetObsCountInList(1), 2);
}

TEST_F(DataListTrav, NoticesNothingOfTheStructureBeforeTheNextStart)
{
    Build({1, 0, 2});
    TDataListTrav walk(&m_level2);
    walk.First();
    m_lists[1]->Add();
    AddList(m_level2, 1);
    walk.Next();
    EXPECT_EQ(IdOf(walk.DataEntity()), 1);
    walk.First();
    EXPECT_EQ(Forward(walk).size(), 5U);
}

TEST_F(DataListTrav, AListFreedOnTheWayCountsAsEmptied)
{
    Build({1, 1, 1});
    const std::vector<int> twice = {1, 0, 1};
    TDataListTrav walk(&m_level2, std::span<const int>(twice));
    walk.First();
    m_level2.Remove(m_lists[1].get());
    m_lists.erase(m_lists.begin() + 1);
    EXPECT_TRUE(walk.Eof());
    EXPECT_EQ(walk.DataEntity(), nullptr);
    walk.Next();
    EXPECT_EQ(IdOf(walk.DataEntity()), 0);
    walk.Next();
    EXPECT_EQ(walk.DataEntity(), nullptr);
}

TEST_F(DataListTrav, LoadsWhatItPasses)
{
    Build({0, 1});
    m_lists[0]->AddUnloaded(3);
    TDataListTrav walk(&m_level2);
    EXPECT_EQ(Forward(walk).size(), 4U);
    EXPECT_EQ(m_lists[0]->LoadedCount(), 3);
}

TEST_F(DataListTrav, SelectionStepsThroughAllListsAndGoesRound)
{
    struct Case
    {
        std::vector<int> Sizes;
        std::vector<int> Selected;
        std::vector<int> Next;
        std::vector<int> Prev;
    };
    const std::vector<Case> cases = {
        {{0, 0}, {}, {}, {}},
        {{2, 0, 2}, {}, {0}, {3}},
        {{2, 0, 2}, {0}, {1}, {3}},
        {{2, 0, 2}, {1}, {2}, {0}},
        {{2, 0, 2}, {2}, {3}, {1}},
        {{2, 0, 2}, {3}, {0}, {2}},
        {{2, 0, 2}, {1, 2, 3}, {2}, {0}},
        {{0, 1}, {0}, {0}, {0}},
    };
    for (const Case &c : cases) {
        for (const bool next : {true, false}) {
            SCOPED_TRACE(testing::PrintToString(c.Selected) + (next ? " next" : " prev"));
            Build(c.Sizes);
            for (const int id : c.Selected) {
                m_level2.SelectDataEntity(Entity(id));
            }
            EXPECT_EQ(IdOf(m_level2.FindSelected()), c.Selected.empty() ? -1 : c.Selected[0]);
            next ? m_level2.SelectNext() : m_level2.SelectPrev();
            EXPECT_EQ(SelectedIds(), next ? c.Next : c.Prev);
        }
    }
}

TEST_F(DataListTrav, SelectionReachesWhatIsNotLoaded)
{
    Build({1});
    m_lists[0]->AddUnloaded(4);
    EXPECT_EQ(m_level2.FindSelected(), nullptr);
    EXPECT_EQ(m_lists[0]->LoadedCount(), 5);
    m_lists[0]->AddUnloaded(4);
    Entity(0)->SetSelected(true);
    m_level2.SelectPrev();
    EXPECT_EQ(SelectedIds(), std::vector{8});
}

TEST_F(DataListTrav, ASelectionHandlerMayFreeEverything)
{
    for (const bool next : {true, false}) {
        Build({1, 2, 1});
        Entity(1)->SetSelected(true);
        auto container = std::make_unique<TzuDataList2lev>();
        for (const auto &list : m_lists) {
            container->Add(list.get());
        }
        m_controller.OnSelectionChanged = [&](TzuDataList *, TzuDataEntity *) {
            m_controller.OnSelectionChanged = nullptr;
            container.reset();
            m_level2.Clear();
            m_lists.clear();
        };
        next ? container->SelectNext() : container->SelectPrev();
        EXPECT_EQ(NumberedEntity::Alive(), 0);
    }
}

TEST_F(DataListTrav, AContainerAsksForMissingListsAsLongAsThatHelps)
{
    Build({});
    EXPECT_EQ(m_level2.GetDataList(0), nullptr);
    EXPECT_THROW(m_level2.GetDataList(-1), std::out_of_range);
    int asked = 0;
    m_level2.OnMissingIndex = [&](TzuExposable *caller, int index, bool &fixable) {
        EXPECT_EQ(caller, &m_level2);
        EXPECT_EQ(index, 2);
        EXPECT_FALSE(fixable);
        ++asked;
        fixable = true;
        if (asked != 3) {
            AddList(m_level2, 0);
        }
    };
    EXPECT_EQ(m_level2.GetDataList(2), nullptr) << "the third call fixed nothing";
    const TzuDataList *third = m_level2.GetDataList(2);
    EXPECT_EQ(third, m_lists[2].get());
    EXPECT_EQ(asked, 4);
}

TEST_F(DataListTrav, ContainersHoldTheSameListsWithoutOwningThem)
{
    Build({1, 1});
    TzuDataList2lev other;
    for (int i = 0; i < 2000; ++i) {
        other.Add(m_lists[i % 2].get());
    }
    EXPECT_EQ(other.IndexOf(m_lists[1].get()), 1);
    other.Remove(m_lists[0].get());
    other.SetDataList(0, m_lists[0].get());
    EXPECT_EQ(other.IndexOf(m_lists[1].get()), 2);
    EXPECT_EQ(other.Count(), 1999);
    EXPECT_THROW(other.SetDataList(1999, m_lists[0].get()), std::out_of_range);
    EXPECT_THROW(other.Delete(-1), std::out_of_range);
    EXPECT_THROW(other.Add(nullptr), std::invalid_argument);
    other.CleanForFree();
    EXPECT_EQ(other.Count(), 0);
    EXPECT_EQ(m_level2.Count(), 2);
    EXPECT_EQ(IdOf(m_lists[1]->GetItems(0)), 1);
}

} // namespace
} // namespace korvane::test
