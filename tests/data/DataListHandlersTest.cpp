// Handlers that change or release what they are being told about.
#include "DataListFixture.h"

#include <functional>
#include <optional>
#include <tuple>

namespace korvane::test {
namespace {

class DataListHandlers : public testing::Test
{
protected:
    std::optional<TzuListController> m_controller{std::in_place};
    ListOwner m_list = NewList(*m_controller);

    /// A new list with a new controller, which takes the old one's place before the old list goes.
    void Restart()
    {
        m_controller.emplace();
        m_list.reset();
        m_list = NewList(*m_controller);
    }

    void AddItems(int count)
    {
        for (int i = 0; i < count; ++i) {
            m_list->Add();
        }
    }
    void TearDown() override
    {
        m_controller.emplace();
        m_list.reset();
        EXPECT_EQ(NumberedEntity::Alive(), 0);
    }
};

TEST_F(DataListHandlers, SeeOnlyLivingEntitiesWhileAListIsReleased)
{
    for (const auto &release : std::vector<std::function<void(TzuDataList &)>>{
             [](TzuDataList &list) { list.Clear(); },
             [](TzuDataList &list) { list.CleanForFree(); }}) {
        Restart();
        AddItems(1000);
        m_list->AddUnloaded(5);
        int left = 1000;
        m_controller->OnDeleteItem = [&](TzuDataEntity *entity) {
            --left;
            EXPECT_EQ(m_list->IndexOf(entity), -1);
            EXPECT_EQ(entity->GetDataList(), m_list.get());
        };
        m_controller->OnContentChanged = [&](TzuDataList *list) {
            ASSERT_EQ(list->LoadedCount(), left);
            for (int i = 0; i < left; i += 100) {
                ASSERT_EQ(list->GetItems(i)->GetDataList(), list);
                ASSERT_EQ(list->GetItems(i)->ListIndex(), i);
            }
        };
        release(*m_list);
        EXPECT_EQ(std::tuple(left, m_list->Count()), std::tuple(0, 0));
    }
}

TEST_F(DataListHandlers, MayDeleteOrAddToAListThatIsReleasedWhichEmptiesAllTheSame)
{
    for (const bool clear : {true, false}) {
        for (const bool add : {true, false}) {
            Restart();
            AddItems(100);
            m_controller->OnDeleteItem = [this, add](TzuDataEntity *) {
                add ? static_cast<void>(m_list->Add()) : m_list->Delete(m_list->Count() / 2);
            };
            clear ? m_list->Clear() : m_list->CleanForFree();
            EXPECT_EQ(m_list->Count(), 0);
        }
    }
}

TEST_F(DataListHandlers, MayReleaseTheListFromAnyEvent)
{
    using TInstall = std::function<void(TzuListController &, std::function<void()>)>;
    using TAct = std::function<void(TzuDataList &)>;
    const auto entityEvent = [](TOnDataEntityNotify TzuListController::*slot) {
        return [slot](TzuListController &controller, std::function<void()> release) {
            controller.*slot = [release](TzuDataEntity *) { release(); };
        };
    };
    const auto listEvent = [](TOnDataListNotify TzuListController::*slot) {
        return [slot](TzuListController &controller, std::function<void()> release) {
            controller.*slot = [release](TzuDataList *) { release(); };
        };
    };
    using C = TzuListController;
    const auto add = [](TzuDataList &list) { list.Add(); };
    const auto load = [](TzuDataList &list) { list.GetItems(30); };
    const std::vector<std::tuple<const char *, TInstall, TAct>> cases = {
        {"insert", entityEvent(&C::OnInsertItem), add},
        {"content at insert", listEvent(&C::OnContentChanged), add},
        {"visible at insert", entityEvent(&C::OnVisibleChanged), add},
        {"delete", entityEvent(&C::OnDeleteItem), [](auto &list) { list.Delete(1); }},
        {"content at delete", listEvent(&C::OnContentChanged), [](auto &list) { list.Delete(1); }},
        {"clear", entityEvent(&C::OnDeleteItem), [](auto &list) { list.Clear(); }},
        {"count", listEvent(&C::OnCountChanged), [](auto &list) { list.Clear(); }},
        {"content at announcing", listEvent(&C::OnContentChanged),
         [](auto &list) { list.AddUnloaded(3); }},
        {"load", entityEvent(&C::OnLoadItem), load},
        {"visible at load", entityEvent(&C::OnVisibleChanged), load},
        {"load at a search", entityEvent(&C::OnLoadItem),
         [](auto &list) { list.VisibleIndexToListIndex(99); }},
        {"load at a count", entityEvent(&C::OnLoadItem),
         [](auto &list) { list.ListIndexToVisibleIndex(99); }},
        {"can edit", entityEvent(&C::OnBeforeCanEditItem),
         [](auto &list) { EXPECT_FALSE(list.GetItems(0)->GetCanEdit()); }},
        {"selection",
         [](C &controller, const auto &release) {
             controller.OnSelectionChanged = [release](auto *, auto *) { release(); };
         },
         [](auto &list) { list.ClearSelections(); }},
        {"unload",
         [](C &controller, const auto &release) {
             controller.OnCanUnload = [release](auto *, bool &canUnload) {
                 canUnload = true;
                 release();
             };
         },
         [](auto &list) { list.GetItems(999); }},
        {"compare",
         [](C &controller, const auto &release) {
             controller.OnEntityCompare = [release](auto *, auto *) {
                 release();
                 return 1;
             };
         },
         [](auto &list) { list.Sort(); }},
        {"move",
         [](C &controller, const auto &release) {
             controller.OnHandlePerformedMove = [release](auto *, int, int) { release(); };
         },
         [](auto &list) { list.GetItems(0)->Move(3); }},
        {"move that loads", entityEvent(&C::OnLoadItem),
         [](auto &list) { EXPECT_THROW(list.GetItems(0)->Move(40), std::out_of_range); }},
    };
    for (const auto &[name, install, act] : cases) {
        SCOPED_TRACE(name);
        Restart();
        AddItems(5);
        m_list->AddUnloaded(1000);
        m_list->GetItems(2)->SetSelected(true);
        bool released = false;
        install(*m_controller, [&] {
            released = true;
            m_list.reset();
        });
        act(*m_list);
        EXPECT_TRUE(released);
        EXPECT_EQ(NumberedEntity::Alive(), 0);
    }
}

TEST_F(DataListHandlers, MayDeleteTheEntityThatTheyAreToldOf)
{
    m_controller->OnInsertItem = [this](TzuDataEntity *entity) { m_list->Remove(entity); };
    EXPECT_EQ(m_list->Add(), nullptr);
    EXPECT_EQ(m_list->Count(), 0);

    Restart();
    AddItems(5);
    m_controller->OnBeforeCanEditItem = [this](TzuDataEntity *entity) { m_list->Remove(entity); };
    EXPECT_FALSE(m_list->GetItems(2)->GetCanEdit());
    EXPECT_EQ(LoadedIds(*m_list).size(), 4U);

    m_list->AddUnloaded(5);
    m_controller->OnLoadItem = [this](TzuDataEntity *entity) { m_list->Remove(entity); };
    m_list->GetItems(6);
    EXPECT_EQ(m_list->LoadedCount(), 5) << "the one that took a deleted one's place is not told of";
}

TEST_F(DataListHandlers, AnEntityBeingDeletedIsNeitherDeletedAgainNorHandedOver)
{
    const ListOwner other = NewList(*m_controller);
    AddItems(5);
    m_controller->OnDeleteItem = [&](TzuDataEntity *entity) {
        m_list->Remove(entity);
        entity->ChangeOwner(other.get(), 0);
    };
    m_list->Delete(1);
    EXPECT_EQ(LoadedIds(*m_list), (std::vector{0, 2, 3, 4}));
    EXPECT_EQ(other->Count(), 0);
}

TEST_F(DataListHandlers, LeavingMayBeUndone)
{
    ListOwner other = NewList(*m_controller);
    AddItems(4);
    m_controller->OnBeforeChangeOwner = [&](TzuDataEntity *entity) { m_list->Remove(entity); };
    m_list->GetItems(1)->ChangeOwner(other.get(), 0);
    m_controller->OnBeforeChangeOwner = [&](TzuDataEntity *) { other.reset(); };
    m_list->GetItems(1)->ChangeOwner(other.get(), 0);
    EXPECT_EQ(LoadedIds(*m_list), (std::vector{0, 2, 3}));
}

TEST_F(DataListHandlers, EachSelectedEntityIsVisitedOnceWhateverBecomesOfIt)
{
    const std::vector<std::function<void(TzuDataEntity *)>> deeds = {
        [](auto *) {},
        [this](auto *entity) { m_list->Remove(entity); },
        [this](auto *) { m_list->Insert(0)->SetSelected(true); },
        [](auto *entity) { entity->SetSelected(false); },
        [](auto *entity) { entity->SetVisible(false); },
    };
    for (const auto &deed : deeds) {
        Restart();
        AddItems(9);
        for (const int index : {0, 3, 4, 8}) {
            m_list->GetItems(index)->SetSelected(true);
        }
        std::vector<int> visited;
        m_list->IteratorOfSelectedDataEntities([&](TzuDataList *list, TzuDataEntity *entity) {
            EXPECT_EQ(list, m_list.get());
            visited.push_back(IdOf(entity));
            deed(entity);
        });
        EXPECT_EQ(visited, (std::vector{0, 3, 4, 8}));
    }
}

TEST_F(DataListHandlers, AComparisonThatChangesTheListLeavesTheOrder)
{
    AddItems(100);
    m_controller->OnEntityCompare = [this](TzuDataEntity *a, TzuDataEntity *b) {
        if (m_list->Count() == 100) {
            m_list->Delete(50);
        }
        return IdOf(b) - IdOf(a);
    };
    m_list->Sort();
    ASSERT_EQ(m_list->Count(), 99);
    EXPECT_EQ(IdOf(m_list->GetItems(0)), 0);
    m_list->Sort();
    EXPECT_EQ(IdOf(m_list->GetItems(0)), 99);
}

TEST_F(DataListHandlers, AnEntityFreedByItselfLeavesItsList)
{
    AddItems(1200);
    m_list->GetItems(700)->FreeWheneverPossible();
    delete m_list->GetItems(1);
    EXPECT_EQ(m_list->Count(), 1198);
    EXPECT_EQ(m_list->GetItems(1197)->ListIndex(), 1197);
}

TEST_F(DataListHandlers, AMoveThatUnloadsTheEntityIsAnIndexError)
{
    m_controller->OnCanUnload = [](TzuDataEntity *, bool &canUnload) { canUnload = true; };
    AddItems(3);
    m_list->AddUnloaded(1000);
    EXPECT_THROW(m_list->GetItems(1)->Move(900), std::out_of_range);
    EXPECT_EQ(std::tuple(m_list->Count(), m_list->LoadedCount()), std::tuple(1003, 1));
}

TEST_F(DataListHandlers, APurgeEndsThoughItsHandlerAddsItems)
{
    AddItems(5);
    int asked = 0;
    m_controller->OnCanUnload = [&](TzuDataEntity *, bool &canUnload) {
        canUnload = true;
        ++asked;
        m_list->InsertItem(0);
    };
    m_list->Purge();
    EXPECT_EQ(asked, 5 + 10) << "once for each entity there was, from the front and from the back";
}

} // namespace
} // namespace korvane::test
