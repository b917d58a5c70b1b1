#include "DataListModel.h"

#include <array>
#include <optional>
#include <random>

namespace korvane::test {
namespace {

/// What a list refuses to unload, and the order in which it is sorted: arbitrary, but fixed.
bool MayUnload(int id)
{
    return id % 7 != 3;
}
int SortKey(int id)
{
    return id * 37 % 11;
}

/// The id of the item at an index, loaded when need be.
struct LoadedId
{
    int operator()(TzuDataList &list, int index) const { return IdOf(list.GetItems(index)); }
    int operator()(DataListModel &model, int index) const { return model.Load(index); }
};

/// Two lists that exchange entities, beside two models of them; every step is done to both.
class Duel
{
public:
    enum class Paging { None, Unloads };

    Duel(unsigned seed, Paging paging, int scale)
        : m_random(seed)
        , m_scale(scale)
    {
        m_controller.OnEntityCompare = [](TzuDataEntity *a, TzuDataEntity *b) {
            return SortKey(IdOf(a)) - SortKey(IdOf(b));
        };
        if (paging == Paging::Unloads) {
            m_controller.OnCanUnload = [](TzuDataEntity *entity, bool &canUnload) {
                canUnload = MayUnload(IdOf(entity));
            };
        }
        for (int side = 0; side < 2; ++side) {
            const int firstId = side * 10'000'000;
            m_lists[side] = NewList(m_controller, NumberedClass(firstId));
            m_models.emplace_back(m_expectedLog, [paging](int id) {
                return paging == Paging::Unloads && MayUnload(id);
            });
            m_models[side].NextId = firstId;
        }
    }

    void Step()
    {
        m_side = Below(2);
        m_log.clear();
        m_expectedLog.clear();
        switch (Below(20)) {
        case 0:
        case 1:
        case 2:
        case 3:
            return Do("insert", Below(4) == 0 ? List().Count() : AnyIndex(),
                      [](auto &side, int i) { return side.Insert(i), 0; });
        case 4:
            return Do("delete", AnyIndex(), [](auto &side, int i) { return side.Delete(i), 0; });
        case 5:
        case 6:
            return OnLoaded("remove", &Duel::Remove);
        case 7:
            return OnLoaded("move", &Duel::Move);
        case 8:
            return OnLoaded("change owner", &Duel::ChangeOwner);
        case 9:
        case 10:
            return Do("load", AnyIndex(), LoadedId{});
        case 11:
            return Do("announce", Below(2 * m_scale),
                      [](auto &side, int n) { return side.AddUnloaded(n), 0; });
        case 12:
            return OnLoaded("unload", &Duel::Unload);
        case 13:
            return Do("purge", 0, [](auto &side, int) { return side.Purge(), 0; });
        case 14:
            return Rarely(8, [&] { Sort(); });
        case 15:
            return Rarely(10,
                          [&] { Do("clear", 0, [](auto &side, int) { return side.Clear(), 0; }); });
        case 16:
            return OnLoaded("select", &Duel::Select);
        case 17:
            return OnLoaded("visible indexes", &Duel::VisibleIndexes);
        default:
            return OnLoaded("ask", &Duel::Ask);
        }
    }

    void CheckAll()
    {
        for (int side = 0; side < 2; ++side) {
            const TzuDataList &list = *m_lists[side];
            const DataListModel &model = m_models[side];
            ASSERT_EQ(m_log, m_expectedLog) << m_what;
            ASSERT_EQ(list.UnloadedBefore(), model.Before) << m_what;
            ASSERT_EQ(list.UnloadedAfter(), model.After) << m_what;
            ASSERT_EQ(list.Count(), model.Count()) << m_what;
            ASSERT_EQ(list.FirstStaleIndex(), model.FirstStale) << m_what;
            ASSERT_EQ(list.IndexesOutOfDate(), model.OutOfDate) << m_what;
            std::vector<int> ids;
            int selected = 0;
            for (const ModelItem &item : model.Block) {
                ids.push_back(item.Id);
                selected += item.Selected ? 1 : 0;
            }
            ASSERT_EQ(LoadedIds(list), ids) << m_what;
            ASSERT_EQ(list.SelectedCount(), selected) << m_what;
        }
    }

    /// Asks every loaded entity for its index; leaves the caches as any question does.
    void CheckIndexes()
    {
        for (int side = 0; side < 2; ++side) {
            m_side = side;
            for (int p = 0; p < List().LoadedCount(); ++p) {
                Both(
                    "index", p, [&] { return List().GetLoaded(p)->ListIndex(); },
                    [&] { return Model().ListIndexAt(p); });
            }
        }
    }

private:
    TzuDataList &List() { return *m_lists[m_side]; }
    DataListModel &Model() { return m_models[m_side]; }
    int Below(int bound) { return std::uniform_int_distribution<>(0, bound - 1)(m_random); }
    /// Now and then one that does not exist.
    int AnyIndex() { return Below(List().Count() + 3) - 1; }

    template <typename F>
    static std::optional<int> ResultOf(const F &f)
    {
        try {
            return f();
        } catch (const std::out_of_range &) {
            return std::nullopt;
        }
    }
    template <typename OnList, typename OnModel>
    void Both(const char *what, int argument, const OnList &onList, const OnModel &onModel)
    {
        m_what += std::string(" | ") + what + ' ' + std::to_string(argument) + " on "
                  + std::to_string(m_side);
        m_what.erase(0, m_what.size() > 400 ? m_what.size() - 400 : 0);
        const auto got = ResultOf(onList);
        EXPECT_EQ(got, ResultOf(onModel)) << m_what;
    }
    template <typename F>
    void Do(const char *what, int argument, const F &f)
    {
        Both(
            what, argument, [&] { return f(List(), argument); },
            [&] { return f(Model(), argument); });
    }
    template <typename F>
    void Rarely(int oneIn, const F &f)
    {
        if (Below(oneIn) == 0) {
            f();
        }
    }
    void OnLoaded(const char *what, void (Duel::*step)(const char *, int position))
    {
        if (List().LoadedCount() > 0) {
            (this->*step)(what, Below(List().LoadedCount()));
        }
    }
    void Remove(const char *what, int p)
    {
        Both(
            what, p, [&] { return List().Remove(List().GetLoaded(p)), 0; },
            [&] { return Model().RemoveAt(p), 0; });
    }
    void Move(const char *what, int p)
    {
        const int to = AnyIndex();
        Both(
            what, to, [&] { return List().GetLoaded(p)->Move(to), 0; },
            [&] { return Model().Move(p, to), 0; });
    }
    void ChangeOwner(const char *what, int p)
    {
        TzuDataList &target = *m_lists[1 - m_side];
        const int to = Below(target.LoadedCount() + 2);
        Both(
            what, to, [&] { return List().GetLoaded(p)->ChangeOwner(&target, to), 0; },
            [&] { return Model().ChangeOwner(p, m_models[1 - m_side], to), 0; });
    }
    void Unload(const char *what, int p)
    {
        const auto toward = Below(2) == 0 ? TBlockEnd::Front : TBlockEnd::Back;
        Do(what, p + List().UnloadedBefore(),
           [toward](auto &side, int index) { return side.Unload(index, toward), 0; });
    }
    void Sort()
    {
        const auto direction =
            Below(2) == 0 ? TSortDirection::Ascending : TSortDirection::Descending;
        Both(
            "sort", 0, [&] { return List().Sort(direction), 0; },
            [&] {
                Model().Sort([](int a, int b) { return SortKey(a) < SortKey(b); }, direction);
                return 0;
            });
    }
    void Select(const char *what, int p)
    {
        const bool on = Below(3) > 0;
        Both(
            what, p, [&] { return List().GetLoaded(p)->SetSelected(on), 0; },
            [&] { return Model().Select(Model().At(p), on), 0; });
        // Hiding belongs here too, but its event is the entity's own affair.
        m_controller.OnVisibleChanged = nullptr;
        List().GetLoaded(p)->SetVisible(on);
        Model().At(p).Visible = on;
        m_controller.OnVisibleChanged = LoggingController(m_log).OnVisibleChanged;
    }
    void VisibleIndexes(const char *what, int p)
    {
        if (List().Count() > 2 * m_scale) {
            return;
        }
        const int index = p + List().UnloadedBefore();
        Both(
            what, index, [&] { return List().ListIndexToVisibleIndex(index); },
            [&] { return Model().VisibleIndexOf(index); });
        Both(
            what, p, [&] { return List().VisibleIndexToListIndex(p - 1); },
            [&] { return Model().IndexOfVisible(p - 1); });
    }
    void Ask(const char *what, int p)
    {
        Both(
            what, p, [&] { return List().GetLoaded(p)->ListIndex(); },
            [&] { return Model().ListIndexAt(p); });
        EXPECT_EQ(List().IndexOf(List().GetLoaded(p)), p);
    }

    std::mt19937 m_random;
    int m_scale;
    int m_side = 0;
    std::string m_what;
    Log m_log;
    Log m_expectedLog;
    LoggingController m_controller{m_log};
    std::array<ListOwner, 2> m_lists;
    std::vector<DataListModel> m_models;
};

void Fight(unsigned seed, Duel::Paging paging, int scale, int steps)
{
    SCOPED_TRACE("seed " + std::to_string(seed));
    {
        Duel duel(seed, paging, scale);
        for (int step = 0; step < steps && !testing::Test::HasFailure(); ++step) {
            duel.Step();
            duel.CheckAll();
            if (step % 50 == 49) {
                duel.CheckIndexes();
            }
        }
    }
    EXPECT_EQ(NumberedEntity::Alive(), 0);
}

TEST(DataListRandom, ShortListsFollowTheRulesStepByStep)
{
    for (unsigned seed = 1; seed <= 60 && !HasFailure(); ++seed) {
        Fight(seed, seed % 2 == 0 ? Duel::Paging::None : Duel::Paging::Unloads, 8, 400);
    }
}

TEST(DataListRandom, ListsOfManyChunksFollowTheRulesStepByStep)
{
    for (unsigned seed = 1; seed <= 6 && !HasFailure(); ++seed) {
        Fight(seed, seed % 2 == 0 ? Duel::Paging::None : Duel::Paging::Unloads, 900, 500);
    }
}

} // namespace
} // namespace korvane::test
