#include "DataListFixture.h"

#include <algorithm>
#include <functional>
#include <random>
#include <tuple>

namespace korvane::test {
namespace {

class DataList : public testing::Test
{
protected:
    Log m_log;
    LoggingController m_controller{m_log};
    ListOwner m_list = NewList(m_controller);

    void AddItems(int count)
    {
        for (int i = 0; i < count; ++i) {
            m_list->Add();
        }
        m_log.clear();
    }
    Log Logged() { return std::exchange(m_log, {}); }
};

TEST_F(DataList, AnEmptyListHasNothingToOffer)
{
    EXPECT_EQ(m_list->Count(), 0);
    EXPECT_EQ(m_list->GetItems(0), nullptr);
    EXPECT_EQ(m_list->GetItems(-1), nullptr);
    EXPECT_FALSE(m_list->ValidIndexDataEntity(0));
    EXPECT_EQ(m_list->FindDataEntity([](TzuDataEntity *) { return true; }), nullptr);
    EXPECT_EQ(m_list->VisibleIndexToListIndex(-1), -1);
    m_list->Delete(0);
    m_list->Sort();
    EXPECT_EQ(Logged(), Log{});
    m_list->Clear();
    EXPECT_EQ(Logged(), Log{"count"});
}

TEST_F(DataList, AnAddedEntityIsVisibleUnselectedAndKnowsItsPlace)
{
    TzuDataEntity *entity = m_list->Add();
    EXPECT_EQ(Logged(), (Log{"visible 0", "insert 0", "content"}));
    EXPECT_EQ(entity->ListIndex(), 0);
    EXPECT_EQ(entity->GetDataList(), m_list.get());
    EXPECT_TRUE(entity->GetVisible());
    EXPECT_FALSE(entity->GetSelected());
    EXPECT_FALSE(entity->GetCanEdit());
    EXPECT_EQ(entity->GetUserReference(), nullptr);
}

TEST_F(DataList, SettersTellOnlyOfChanges)
{
    TzuDataEntity *entity = m_list->Add();
    m_log.clear();
    entity->SetSelected(false);
    entity->SetVisible(true);
    EXPECT_EQ(Logged(), Log{});
    entity->SetSelected(true);
    entity->SetSelected(true);
    entity->SetVisible(false);
    entity->DoInfoPush();
    EXPECT_EQ(Logged(), (Log{"select 0", "visible 0", "push 0"}));

    m_controller.OnBeforeCanEditItem = [](TzuDataEntity *e) { e->SetCanEdit(!e->GetVisible()); };
    EXPECT_TRUE(entity->GetCanEdit());
    entity->SetVisible(true);
    EXPECT_FALSE(entity->GetCanEdit());
}

/// An entity that arrives selected, as a copy of another may.
class BornSelected : public NumberedEntity
{
public:
    using NumberedEntity::NumberedEntity;
    void AfterCreate(TzuDataList *list) override
    {
        NumberedEntity::AfterCreate(list);
        SetSelected(true);
        SetCanEdit(true);
    }
};

TEST_F(DataList, AnEntityCreatedSelectedIsSelectedAfterItWasAnnounced)
{
    m_list =
        NewList(m_controller,
                EntityClass::Of<BornSelected>([] { return std::make_unique<BornSelected>(5); }));
    m_controller.OnInsertItem = [this](TzuDataEntity *entity) {
        m_log.push_back(entity->GetSelected() ? "insert selected" : "insert");
    };
    EXPECT_TRUE(m_list->Add()->GetSelected());
    EXPECT_EQ(Logged(), (Log{"visible 5", "select 5", "insert", "content", "select 5"}));
    EXPECT_EQ(m_list->SelectedCount(), 1);
}

TEST_F(DataList, LoadsWhatIsAskedForFromAnAnnouncedStretch)
{
    m_list->AddUnloaded(10);
    EXPECT_EQ(Logged(), (Log{"content", "count"}));
    EXPECT_EQ(std::tuple(m_list->Count(), m_list->LoadedCount()), std::tuple(10, 0));

    EXPECT_EQ(IdOf(m_list->GetItems(5)), 0);
    EXPECT_EQ(std::tuple(m_list->UnloadedBefore(), m_list->UnloadedAfter()), std::tuple(5, 4));
    EXPECT_EQ(Logged(), (Log{"visible 0", "load 0"}));

    // Items 2, 3, 4 are made in this order and each is put to the front; 4 is told of first.
    EXPECT_EQ(IdOf(m_list->GetItems(2)), 3);
    EXPECT_EQ(LoadedIds(*m_list), (std::vector{3, 2, 1, 0}));
    EXPECT_EQ(Logged(), (Log{"visible 1", "visible 2", "visible 3", "load 1", "load 2", "load 3"}));

    EXPECT_EQ(IdOf(m_list->GetItems(7)), 5);
    EXPECT_EQ(std::tuple(m_list->UnloadedBefore(), m_list->UnloadedAfter()), std::tuple(2, 2));
    EXPECT_EQ(m_list->GetItems(10), nullptr);
}

TEST_F(DataList, IndexesOfAFrontLoadStayReversedUntilAChangeBelow)
{
    const auto indexes = [this] {
        std::vector<int> result;
        for (int p = 0; p < m_list->LoadedCount(); ++p) {
            result.push_back(m_list->GetLoaded(p)->ListIndex());
        }
        return result;
    };
    AddItems(5);
    m_list->EnsureListIndexes();
    for (const int index : {0, 1, 2}) {
        m_list->Unload(index, TBlockEnd::Front);
    }
    m_list->GetItems(0);
    EXPECT_FALSE(m_list->IndexesOutOfDate());
    EXPECT_EQ(indexes(), (std::vector{2, 1, 0, 3, 4}));
    m_list->Delete(1);
    EXPECT_EQ(indexes(), (std::vector{2, 1, 2, 3}));
    m_list->ListIndexesOutOfDate(0);
    EXPECT_EQ(indexes(), (std::vector{0, 1, 2, 3}));
}

TEST_F(DataList, AStaleIndexInTheUnloadedHeadIsAnIndexError)
{
    m_list->AddUnloaded(10);
    TzuDataEntity *entity = m_list->GetItems(5);
    EXPECT_EQ(m_list->FirstStaleIndex(), 0);
    EXPECT_THROW(entity->ListIndex(), std::out_of_range);
    EXPECT_TRUE(m_list->IndexesOutOfDate());
    m_list->GetItems(0);
    EXPECT_EQ(entity->ListIndex(), 5);
    EXPECT_FALSE(m_list->IndexesOutOfDate());
    EXPECT_EQ(m_list->FirstStaleIndex(), m_list->Count());
}

TEST_F(DataList, AJumpBeyondFiveHundredItemsPurgesFirst)
{
    struct Case
    {
        const char *Name;
        std::function<bool(int id)> MayUnload;
        int Before, Loaded, After;
    };
    const std::vector<Case> cases = {
        {"all may go", [](int) { return true; }, 610, 1, 389},
        {"none may go", [](int) { return false; }, 0, 611, 389},
        {"one in the middle stays", [](int id) { return id != 4; }, 4, 607, 389},
        {"the last one stays", [](int id) { return id != 9; }, 9, 602, 389},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.Name);
        m_list = NewList(m_controller);
        m_controller.OnCanUnload = [&c](TzuDataEntity *entity, bool &canUnload) {
            EXPECT_FALSE(canUnload);
            canUnload = c.MayUnload(IdOf(entity));
        };
        m_list->AddUnloaded(1000);
        m_list->GetItems(0);
        m_list->GetItems(9)->SetSelected(true);
        const TzuDataEntity *wanted = m_list->GetItems(610);
        ASSERT_NE(wanted, nullptr);
        EXPECT_EQ(m_list->UnloadedBefore(), c.Before);
        EXPECT_EQ(m_list->LoadedCount(), c.Loaded);
        EXPECT_EQ(m_list->UnloadedAfter(), c.After);
        EXPECT_EQ(m_list->GetLoaded(610 - c.Before), wanted);
        EXPECT_EQ(m_list->SelectedCount(), 0);
    }
}

TEST_F(DataList, DeletingWhatIsNotLoadedOnlyCounts)
{
    m_list->AddUnloaded(10);
    m_list->GetItems(5);
    m_log.clear();
    for (const auto &[index, before, after] :
         {std::tuple(0, 4, 4), {4, 4, 4}, {8, 4, 3}, {-1, 4, 3}, {99, 4, 3}}) {
        if (index != 4) {
            m_list->Delete(index);
        }
        EXPECT_EQ(std::tuple(m_list->UnloadedBefore(), m_list->UnloadedAfter()),
                  std::tuple(before, after));
    }
    EXPECT_EQ(Logged(), Log{});
    m_list->Delete(4);
    EXPECT_EQ(Logged(), (Log{"delete 0", "content"}));
    EXPECT_EQ(m_list->Count(), 7);
    m_list->AddUnloaded(-100);
    EXPECT_EQ(m_list->Count(), 4) << "no more is taken back than was announced";
}

TEST_F(DataList, VisibleIndexesPassOverHiddenItems)
{
    AddItems(5);
    m_list->GetItems(0)->SetVisible(false);
    m_list->GetItems(3)->SetVisible(false);
    EXPECT_EQ(m_list->VisibleCount(), 3);
    EXPECT_TRUE(m_list->VisibleIndexDataEntity(1));
    EXPECT_FALSE(m_list->VisibleIndexDataEntity(3));
    const std::vector<int> visibleOf = {-1, 0, 1, 1, 2, 2};
    for (int i = -1; i < 6; ++i) {
        EXPECT_EQ(m_list->ListIndexToVisibleIndex(i), i < 0 ? -1 : visibleOf[i]) << i;
    }
    for (const auto &[visible, index] :
         {std::pair(-1, 0), {0, 1}, {1, 2}, {2, 4}, {3, -1}, {-2, -1}}) {
        EXPECT_EQ(m_list->VisibleIndexToListIndex(visible), index) << visible;
    }
}

TEST_F(DataList, SearchesOnlyWhatIsLoaded)
{
    m_list->AddUnloaded(10);
    m_list->GetItems(5);
    m_list->GetItems(6);
    int asked = 0;
    const auto found = m_list->FindDataEntity([&](TzuDataEntity *entity) {
        ++asked;
        return IdOf(entity) == 1;
    });
    EXPECT_EQ(IdOf(found), 1);
    EXPECT_EQ(m_list->FindDataEntity([](TzuDataEntity *) { return false; }), nullptr);
    EXPECT_EQ(m_list->FindDataEntity({}), nullptr);
    EXPECT_EQ(std::tuple(asked, m_list->LoadedCount()), std::tuple(2, 2));
}

TEST_F(DataList, MovingShiftsWhatLiesBetween)
{
    AddItems(5);
    m_list->GetItems(1)->Move(3);
    EXPECT_EQ(LoadedIds(*m_list), (std::vector{0, 2, 3, 1, 4}));
    m_list->GetItems(4)->Move(0);
    EXPECT_EQ(LoadedIds(*m_list), (std::vector{4, 0, 2, 3, 1}));
    EXPECT_EQ(Logged(), (Log{"move 1 1 3", "move 4 4 0"}));
    EXPECT_EQ(m_list->GetItems(2)->ListIndex(), 2);
    EXPECT_THROW(m_list->GetItems(0)->Move(5), std::out_of_range);
    EXPECT_THROW(m_list->GetItems(0)->Move(-1), std::out_of_range);
    EXPECT_EQ(LoadedIds(*m_list), (std::vector{4, 0, 2, 3, 1}));
}

class OtherEntity : public TzuDataEntity
{
};

TEST_F(DataList, AnEntityGoesOverOnlyToAListOfItsKind)
{
    Log otherLog;
    LoggingController otherController(otherLog);
    const ListOwner same = NewList(otherController);
    const ListOwner base = NewList(otherController, EntityClass::Of<TzuDataEntity>());
    const ListOwner foreign = NewList(otherController, EntityClass::Of<OtherEntity>());
    AddItems(3);

    TzuDataEntity *entity = m_list->GetItems(1);
    entity->ChangeOwner(nullptr, 0);
    entity->ChangeOwner(m_list.get(), 0);
    entity->ChangeOwner(foreign.get(), 0);
    EXPECT_EQ(LoadedIds(*m_list), (std::vector{0, 1, 2}));
    EXPECT_EQ(Logged(), Log{});
    EXPECT_THROW(entity->ChangeOwner(same.get(), 1), std::out_of_range);
    EXPECT_EQ(entity->GetDataList(), m_list.get());
    EXPECT_EQ(Logged(), (Log{"leaving 1"}));

    entity->SetSelected(true);
    m_log.clear();
    entity->ChangeOwner(same.get(), 0);
    EXPECT_EQ(Logged(), (Log{"leaving 1", "content"}));
    EXPECT_EQ(otherLog, (Log{"arrived 1", "content"}));
    EXPECT_EQ(std::tuple(m_list->SelectedCount(), same->SelectedCount()), std::tuple(0, 1));
    EXPECT_EQ(entity->ListIndex(), 0);
    EXPECT_EQ(m_list->GetItems(1)->ListIndex(), 1);

    entity->ChangeOwner(base.get(), 0);
    EXPECT_EQ(entity->GetDataList(), base.get());
}

TEST_F(DataList, SortingLoadsEverythingAndFollowsTheComparison)
{
    m_controller.OnLoadItem = [](TzuDataEntity *) {};
    m_controller.OnVisibleChanged = {};
    m_list->AddUnloaded(700);
    m_controller.OnCanUnload = [](TzuDataEntity *, bool &canUnload) { canUnload = true; };
    m_list->GetItems(300);
    m_log.clear();
    m_list->Sort();
    EXPECT_EQ(std::tuple(m_list->LoadedCount(), m_log.size()), std::tuple(1, 0U));

    m_controller.OnEntityCompare = [](TzuDataEntity *a, TzuDataEntity *b) {
        return IdOf(a) * 13 % 700 - IdOf(b) * 13 % 700;
    };
    for (const auto direction : {TSortDirection::Ascending, TSortDirection::Descending}) {
        m_list->Sort(direction);
        EXPECT_EQ(Logged(), Log{"content"});
        ASSERT_EQ(m_list->LoadedCount(), 700);
        for (int i = 0; i < 700; ++i) {
            const int key = direction == TSortDirection::Ascending ? i : 699 - i;
            ASSERT_EQ(IdOf(m_list->GetItems(i)) * 13 % 700, key);
            ASSERT_EQ(m_list->GetItems(i)->ListIndex(), i);
        }
    }
}

TEST_F(DataList, AnInconsistentComparisonLosesNothing)
{
    AddItems(2000);
    std::mt19937 random(7);
    const std::vector<std::function<int(TzuDataEntity *, TzuDataEntity *)>> comparisons = {
        [&random](auto *, auto *) { return static_cast<int>(random() % 3) - 1; },
        [](auto *, auto *) { return -1; },
        [](auto *, auto *) { return 1; },
        [](auto *a, auto *b) { return (IdOf(a) - IdOf(b) + 2001) % 3 - 1; },
    };
    for (const auto &comparison : comparisons) {
        m_controller.OnEntityCompare = comparison;
        m_list->Sort();
        auto ids = LoadedIds(*m_list);
        std::sort(ids.begin(), ids.end());
        for (int i = 0; i < 2000; ++i) {
            ASSERT_EQ(ids[i], i);
        }
        ASSERT_EQ(m_list->IndexOf(m_list->GetLoaded(1234)), 1234);
    }
}

TEST_F(DataList, AlternatingChangesAndQuestionsComeToAnEnd)
{
    // With a pass over all indexes per question each of these would take hours.
    constexpr int kCount = 200'000;
    TzuListController silent;
    const ListOwner list = NewList(silent);
    for (int i = 0; i < kCount; ++i) {
        ASSERT_EQ(list->Add()->ListIndex(), i);
    }
    for (int i = 0; i < kCount / 4; ++i) {
        ASSERT_EQ(list->Insert(i * 2)->ListIndex(), i * 2);
    }
    std::mt19937 random(3);
    for (int i = 0; i < kCount / 4; ++i) {
        list->Remove(list->GetLoaded(static_cast<int>(random() % list->Count())));
    }
    while (list->Count() > 1) {
        TzuDataEntity *last = list->GetLoaded(list->Count() - 1);
        ASSERT_EQ(last->ListIndex(), list->Count() - 1);
        list->Remove(list->GetLoaded(0));
    }
    list->AddUnloaded(kCount);
    for (int i = kCount; i > 0; --i) {
        ASSERT_NE(list->GetItems(i), nullptr);
    }
}

TEST_F(DataList, ReleasingTheListReleasesEveryEntityWithNotice)
{
    AddItems(3);
    m_list->AddUnloaded(5);
    m_log.clear();
    m_list.reset();
    EXPECT_EQ(m_log, (Log{"delete 0", "content", "delete 1", "content", "delete 2", "content"}));
    EXPECT_EQ(NumberedEntity::Alive(), 0);
}

TEST(EntityClass, CreatesAndRecognises)
{
    EXPECT_FALSE(EntityClass());
    EXPECT_THROW(EntityClass().Create(), std::bad_function_call);
    const auto other = EntityClass::Of<OtherEntity>();
    const auto entity = other.Create();
    EXPECT_TRUE(other.IsClassOf(*entity));
    EXPECT_TRUE(EntityClass::Of<TzuDataEntity>().IsClassOf(*entity));
    EXPECT_FALSE(NumberedClass().IsClassOf(*entity));
    EXPECT_EQ(CheckedCast<OtherEntity>(entity.get()), entity.get());
    EXPECT_EQ(CheckedCast<OtherEntity>(static_cast<TzuDataEntity *>(nullptr)), nullptr);
    EXPECT_THROW(CheckedCast<NumberedEntity>(entity.get()), std::bad_cast);
}

} // namespace
} // namespace korvane::test
