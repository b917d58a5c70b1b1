// Marks that the view is being made to follow its tree.
#pragma once

#include "tree/qt/zuTreeComBasic.h"

namespace korvane {

/// While it exists the view follows the tree and does not tell it anything.
class TzuTree_ComBasic::TMirroring
{
public:
    /// Marks nest.
    explicit TMirroring(TzuTree_ComBasic &tree)
        : m_tree(tree)
        , m_autoScroll(tree.hasAutoScroll())
    {
        ++m_tree.m_mirroring;
        m_tree.setAutoScroll(false); // a restored current row must not scroll the view
    }
    TMirroring(const TMirroring &) = delete;
    TMirroring &operator=(const TMirroring &) = delete;
    ~TMirroring()
    {
        m_tree.setAutoScroll(m_autoScroll);
        --m_tree.m_mirroring;
    }

private:
    TzuTree_ComBasic &m_tree;
    bool m_autoScroll;
};

} // namespace korvane
