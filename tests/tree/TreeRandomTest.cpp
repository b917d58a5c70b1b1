// The display against a walk over all entities, after random changes.
#include "TestTree.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <random>
#include <set>
#include <unordered_map>

namespace korvane::test {
namespace {

/// What a full walk displays. Of its history only the placeholders matter: one stays until a child
/// takes its place or its parent's node goes.
class FullWalk
{
public:
    bool Placeholders = true;
    int AutoExpandLevels = -1;
    std::function<int(TzuDataEntity_Tree *, TzuDataEntity_Tree *)> Compare;

    std::string Nodes;
    std::vector<TzuDataEntity_Tree *> Rows; ///< nil for a placeholder
    std::set<TzuDataEntity_Tree *> Displayed;

    void Walk(TzuDataList_Tree &root)
    {
        const auto before = std::exchange(Displayed, {});
        Rows.clear();
        Nodes = Children(root, 0, true, before);
    }
    void Forget(TzuDataEntity_Tree *entity)
    {
        Displayed.erase(entity);
        m_placeholders.erase(entity);
    }
    void BeginAfresh()
    {
        Displayed.clear();
        m_placeholders.clear();
    }

private:
    std::string Children(TzuDataList_Tree &list, int level, bool shown,
                         const std::set<TzuDataEntity_Tree *> &before)
    {
        std::vector<TzuDataEntity_Tree *> entities;
        for (int i = 0; i < list.Count(); ++i) {
            if (!list.Entity(i)->Get_HideNode()) {
                entities.push_back(list.Entity(i));
            }
        }
        if (Compare) {
            std::stable_sort(entities.begin(), entities.end(),
                             [this](auto *a, auto *b) { return Compare(a, b) < 0; });
        }
        std::string text;
        for (TzuDataEntity_Tree *entity : entities) {
            text += (text.empty() ? "" : " ") + Node(*entity, level, shown, before);
        }
        return text;
    }
    std::string Node(TzuDataEntity_Tree &entity, int level, bool shown,
                     const std::set<TzuDataEntity_Tree *> &before)
    {
        Displayed.insert(&entity);
        if (before.count(&entity) == 0) {
            m_placeholders.erase(&entity);
            if (level < AutoExpandLevels - 1) {
                EXPECT_TRUE(entity.GetExpanded());
            }
        }
        if (shown) {
            Rows.push_back(&entity);
        }
        const bool showsBelow = shown && entity.GetExpanded();
        std::string below;
        TzuDataList_Tree *list = entity.HasChildren() ? entity.ChildList() : nullptr;
        if (list != nullptr) {
            below = Children(*list, level + 1, showsBelow, before);
        } else if (Placeholders && (AutoExpandLevels < 0 || level < AutoExpandLevels - 1)) {
            m_placeholders.insert(&entity);
        }
        if (!below.empty()) {
            m_placeholders.erase(&entity);
        } else if (m_placeholders.count(&entity) > 0) {
            below = "?";
            if (showsBelow) {
                Rows.push_back(nullptr);
            }
        }
        return entity.GetText() + (below.empty() ? "" : "(" + below + ")");
    }

    std::set<TzuDataEntity_Tree *> m_placeholders;
};

class RandomTree
{
public:
    explicit RandomTree(unsigned seed)
        : m_random(seed)
    {
        Tree.AfterUpdate = [this] {
            m_walk.Walk(*Tree.DataList());
            std::erase_if(m_nodes,
                          [this](auto &n) { return m_walk.Displayed.count(n.first) == 0; });
        };
        Tree.OnDeleteItem_Tree = [this](TObject *, TzuDataEntity_Tree *entity) {
            m_all.erase(std::find(m_all.begin(), m_all.end(), entity));
            m_nodes.erase(entity);
            m_walk.Forget(entity);
        };
    }
    ~RandomTree() { Tree.OnDeleteItem_Tree = nullptr; }
    RandomTree(const RandomTree &) = delete;
    RandomTree &operator=(const RandomTree &) = delete;

    FakeTreeHost Host;
    TestTree Tree{Host};

    void Step()
    {
        const int what = Below(16);
        if (what < 5) {
            Add();
        } else if (what < 7) {
            if (Below(2) == 0) {
                With([&](TzuDataEntity_Tree &entity) { Tree.RemoveDataEntity(&entity); });
            }
        } else if (what < 9) {
            With([&](TzuDataEntity_Tree &entity) { entity.Set_HideNode(Below(3) == 0); });
        } else if (what < 11) {
            With([&](TzuDataEntity_Tree &entity) { entity.SetExpanded(Below(3) != 0); });
        } else if (what == 11) {
            With([&](TzuDataEntity_Tree &entity) { entity.Move(Below(ListOf(entity).Count())); });
        } else if (what == 12) {
            ChangeOwner();
        } else if (what == 13) {
            With([&](TzuDataEntity_Tree &entity) {
                ListOf(entity).Sort(Below(2) == 0 ? TSortDirection::Ascending
                                                  : TSortDirection::Descending);
            });
        } else {
            Rarely();
        }
    }
    void Check()
    {
        const std::string nodes = Tree.Nodes();
        m_walk.Walk(*Tree.DataList()); // again: rows come and go without an update
        ASSERT_EQ(nodes, m_walk.Nodes);
        ASSERT_EQ(Tree.CountVisible(), static_cast<int>(m_walk.Rows.size()));
        for (int row = 0; row < Tree.CountVisible(); ++row) {
            ASSERT_EQ(Tree.GetDataEntityFromRow(row), m_walk.Rows[static_cast<std::size_t>(row)]);
        }
        for (TzuDataEntity_Tree *entity : m_all) {
            const bool displayed = m_walk.Displayed.count(entity) > 0;
            ASSERT_EQ(entity->Node() != nullptr, displayed);
            const auto known = m_nodes.find(entity);
            if (displayed && known != m_nodes.end()) {
                ASSERT_EQ(entity->Node(), known->second) << "a node was made anew";
            }
        }
        m_nodes.clear();
        for (TzuDataEntity_Tree *entity : m_walk.Displayed) {
            ASSERT_EQ(entity->Node()->Data(), entity);
            ASSERT_EQ(entity->Node()->Expanded(), entity->GetExpanded());
            m_nodes[entity] = entity->Node();
        }
    }

private:
    int Below(int end) { return std::uniform_int_distribution(0, end - 1)(m_random); }
    TzuDataEntity_Tree *Any()
    {
        return m_all.empty()
                   ? nullptr
                   : m_all[static_cast<std::size_t>(Below(static_cast<int>(m_all.size())))];
    }
    template <typename Act>
    void With(const Act &act)
    {
        if (TzuDataEntity_Tree *entity = Any()) {
            act(*entity);
        }
    }
    static TzuDataList_Tree &ListOf(TzuDataEntity_Tree &entity)
    {
        return dynamic_cast<TzuDataList_Tree &>(*entity.GetDataList());
    }
    TzuDataList_Tree &ListBelow(TzuDataEntity_Tree *parent)
    {
        return dynamic_cast<TzuDataList_Tree &>(parent != nullptr ? *parent->ChildList()
                                                                  : *Tree.DataList());
    }
    void Add()
    {
        TzuDataEntity_Tree *parent = Below(4) == 0 ? nullptr : Any();
        TzuDataList_Tree &list = ListBelow(parent);
        const int at = Below(3) == 0 ? Below(list.Count() + 1) : list.Count();
        for (int i = 0, count = Below(8) == 0 ? 5 : 1; i < count; ++i) {
            TzuDataEntity_Tree *entity = Tree.InsertDataEntity(list, at);
            entity->SetText(std::to_string(m_next++));
            m_all.push_back(entity);
        }
    }
    void ChangeOwner()
    {
        TzuDataEntity_Tree *entity = Any();
        TzuDataEntity_Tree *parent = Below(4) == 0 ? nullptr : Any();
        if (entity == nullptr) {
            return;
        }
        TzuDataList_Tree &list = ListBelow(parent);
        if (&list == entity->GetDataList()) {
            return;
        }
        entity->ChangeOwner(&list, Below(list.Count() + 1));
        for (TzuDataEntity_Tree *other : m_all) { // its branch is displayed anew
            for (auto *above = other; above != nullptr; above = above->ParentNode()) {
                if (above == entity) {
                    m_nodes.erase(other);
                    m_walk.Forget(other);
                }
            }
        }
    }
    void Rarely()
    {
        switch (Below(60)) {
        case 0:
            m_walk.Placeholders = !m_walk.Placeholders;
            Tree.SetLoadOnDemand(m_walk.Placeholders);
            BeginAfresh();
            break;
        case 1:
            if (const int levels = Below(5) - 1; levels != m_walk.AutoExpandLevels) {
                m_walk.AutoExpandLevels = levels;
                Tree.SetAutoExpandLevels(levels);
                BeginAfresh();
            }
            break;
        case 2:
        case 3:
            m_walk.Compare = m_walk.Compare ? nullptr : &ByLastDigit;
            Tree.SetSortCompare(m_walk.Compare
                                    ? TOnEntityCompare([](TzuDataEntity *a, TzuDataEntity *b) {
                                          return ByLastDigit(static_cast<TzuDataEntity_Tree *>(a),
                                                             static_cast<TzuDataEntity_Tree *>(b));
                                      })
                                    : TOnEntityCompare());
            break;
        case 4:
            With([&](TzuDataEntity_Tree &entity) { ListBelow(&entity).Clear(); });
            break;
        default:
            break;
        }
    }
    static int ByLastDigit(TzuDataEntity_Tree *a, TzuDataEntity_Tree *b)
    {
        return a->GetText().back() - b->GetText().back();
    }
    void BeginAfresh()
    {
        m_nodes.clear();
        m_walk.BeginAfresh();
    }

    std::mt19937 m_random;
    std::vector<TzuDataEntity_Tree *> m_all;
    std::unordered_map<TzuDataEntity_Tree *, TTreeNode_zuSub *> m_nodes;
    FullWalk m_walk;
    int m_next = 0;
};

TEST(TreeRandom, TheDisplayIsThatOfAFullWalkOverAllEntities)
{
    for (unsigned seed = 1; seed <= 40; ++seed) {
        RandomTree random(seed);
        for (int step = 0; step < 400; ++step) {
            random.Step();
            if (step % 7 == 0 || step > 300) {
                ASSERT_NO_FATAL_FAILURE(random.Check()) << "seed " << seed << " step " << step;
            }
        }
    }
}

} // namespace
} // namespace korvane::test
