// Tells which entities outlived the handlers that were called meanwhile.
#pragma once

#include "tree/zuTreeUser.h"

#include <unordered_set>
#include <utility>

namespace korvane {

/// Watches entities of one tree, for locals. Unlike TzuLifeWatch it holds any number of them.
class TTreeUserCore::TGuard
{
public:
    /// Watches these until its end; guards end in the reverse order of their beginning.
    TGuard(TTreeUserCore &tree, const TTreeEntities &entities)
        : m_tree(tree)
        , m_outer(std::exchange(tree.m_guard, this))
        , m_living(entities.begin(), entities.end())
    {
    }
    TGuard(const TGuard &) = delete;
    TGuard &operator=(const TGuard &) = delete;
    ~TGuard() { m_tree.m_guard = m_outer; }

    /// Whether a watched entity still exists.
    bool Lives(TzuDataEntity_Tree *entity) const { return m_living.contains(entity); }
    /// The entity goes.
    void Forget(TzuDataEntity_Tree &entity) { m_living.erase(&entity); }
    /// The guard around this one, or nil.
    TGuard *Outer() const { return m_outer; }

private:
    TTreeUserCore &m_tree;
    TGuard *m_outer;
    std::unordered_set<TzuDataEntity_Tree *> m_living;
};

} // namespace korvane
