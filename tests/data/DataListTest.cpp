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
    for (int round = 0; round < 2; ++round) {
        entity->SetSelected(true);
        entity->SetVisible(false);
    }
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

TEST_F(DataList, AJumpBeyondFiveHundredItemsPurgesFirst)
{
    // Which of the ids 0 to 9 may not go, and what is loaded before, of and after the jump.
    for (const auto &[kept, before, loaded] :
         {std::tuple(-1, 610, 1), {0, 0, 611}, {4, 4, 607}, {9, 9, 602}}) {
        SCOPED_TRACE(kept);
        m_list = NewList(m_controller);
        m_controller.OnCanUnload = [kept = kept](TzuDataEntity *entity, bool &canUnload) {
            EXPECT_FALSE(canUnload);
            canUnload = IdOf(entity) != kept;
        };
        m_list->AddUnloaded(1000);
        m_list->GetItems(0);
        m_list->GetItems(9)->SetSelected(true);
        const TzuDataEntity *wanted = m_list->GetItems(610);
        EXPECT_EQ(std::tuple(m_list->UnloadedBefore(), m_list->LoadedCount(), m_list->Count()),
                  std::tuple(before, loaded, 1000));
        EXPECT_EQ(m_list->GetLoaded(610 - before), wanted);
        EXPECT_EQ(m_list->SelectedCount(), 0);
    }
}

TEST_F(DataList, NoMoreIsTakenBackThanWasAnnounced)
{
    m_list->AddUnloaded(10);
    m_list->GetItems(5);
    m_list->AddUnloaded(-100);
    EXPECT_EQ(m_list->Count(), 6);
}

TEST_F(DataList, VisibleIndexesPassOverHiddenItems)
{
    AddItems(5);
    m_list->GetItems(0)->SetVisible(false);
    m_list->GetItems(3)->SetVisible(false);
    EXPECT_EQ(m_list->VisibleCount(), 3);
    EXPECT_TRUE(m_list->VisibleIndexDataEntity(1));
    EXPECT_FALSE(m_list->VisibleIndexDataEntity(3));
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

class OtherEntity : public TzuDataEntity
{
};

TEST_F(DataList, AnEntityGoesOverOnlyToAListOfItsKind)
{
    const ListOwner same = NewList(m_controller);
    const ListOwner base = NewList(m_controller, EntityClass::Of<TzuDataEntity>());
    const ListOwner foreign = NewList(m_controller, EntityClass::Of<OtherEntity>());
    AddItems(3);
    TzuDataEntity *entity = m_list->GetItems(1);
    for (TzuDataList *refused :
         {static_cast<TzuDataList *>(nullptr), m_list.get(), foreign.get()}) {
        entity->ChangeOwner(refused, 0);
    }
    EXPECT_EQ(LoadedIds(*m_list), (std::vector{0, 1, 2}));
    EXPECT_EQ(Logged(), Log{});

    entity->SetSelected(true);
    entity->ChangeOwner(same.get(), 0);
    EXPECT_EQ(std::tuple(m_list->SelectedCount(), same->SelectedCount()), std::tuple(0, 1));
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
