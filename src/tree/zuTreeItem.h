// What the entities and lists of all trees have in common.
#pragma once

#include "data/zuDataEntityPack.h"

#include <string>
#include <utility>

namespace korvane {

/// An entity that has children: an item of a tree, or a row of a grid that is one. TEntity is its
/// own class, TList that of the lists of children, TTree what they belong to.
template <typename TEntity, typename TList, typename TTree>
class TTreeItem : public TzuDataEntity
{
public:
    /// UTF-8, empty to begin with.
    const std::string &GetText() const { return m_text; }
    /// Indexes into the tree's images; -1, the default, shows none and, for a selected item, the
    /// same as else.
    int GetImageIndex() const { return m_imageIndex; }
    int GetSelectedIndex() const { return m_selectedIndex; }
    /// Whether what is below is shown; false to begin with.
    bool GetExpanded() const { return m_expanded; }
    /// Whether the children were asked for; false to begin with.
    bool ChildrenLoaded() const { return m_childrenLoaded; }
    /// Whether the item is hidden with everything below it; false to begin with.
    bool Get_HideNode() const { return m_hideNode; }

    /// The object that an embedding component keeps beside the item; observed, not owned.
    TzuExposable *Companion() const { return m_companion; }
    void SetCompanion(TzuExposable *companion) { m_companion = companion; }

    /// The children as far as they were asked for; nil before.
    const TList *LoadedChildren() const { return m_childList; }
    /// Children that are only counted are children, too.
    bool HasChildren() const { return m_childList != nullptr && m_childList->Count() > 0; }
    /// Nil for a root, and for an item in no tree.
    TEntity *ParentNode() const
    {
        const TList *list = ListOfTree();
        return list != nullptr ? list->ParentEntity() : nullptr;
    }
    /// 0 for a root. Costs the levels.
    int GetLevel() const
    {
        int level = 0;
        for (const TEntity *item = ParentNode(); item != nullptr; item = item->ParentNode()) {
            ++level;
        }
        return level;
    }
    /// Nil for an item in no tree.
    TTree *Tree() const
    {
        const TList *list = ListOfTree();
        return list != nullptr ? list->Tree() : nullptr;
    }

protected:
    TTreeItem() = default;

    // For the item and its tree.
    std::string m_text;                  ///< GetText
    TList *m_childList = nullptr;        ///< LoadedChildren
    TzuExposable *m_companion = nullptr; ///< Companion
    int m_imageIndex = -1;               ///< GetImageIndex
    int m_selectedIndex = -1;            ///< GetSelectedIndex
    bool m_expanded = false;             ///< GetExpanded
    bool m_childrenLoaded = false;       ///< ChildrenLoaded
    bool m_hideNode = false;             ///< Get_HideNode
    bool m_leaving = false;              ///< being deleted

private:
    /// Not every list that an entity may change over to is a tree's.
    const TList *ListOfTree() const { return dynamic_cast<const TList *>(GetDataList()); }
};

/// The children of one item, or the roots of a tree. TController tells the tree.
template <typename TEntity, typename TController, typename TTree>
class TTreeItemList : public TzuDataList
{
public:
    /// Learns the tree from its controller.
    void AfterCreate(TzuListController *controller, EntityClass entityClass) override
    {
        TzuDataList::AfterCreate(controller, std::move(entityClass));
        const auto *ofTree = dynamic_cast<TController *>(controller);
        m_tree = ofTree != nullptr ? &ofTree->Tree() : nullptr;
    }

    /// The item whose children the list holds; nil for the root list.
    TEntity *ParentEntity() const { return m_parentEntity; }
    /// The tree whose controller the list was created with, or nil.
    TTree *Tree() const { return m_tree; }

protected:
    TTreeItemList() = default;

    // For the list and its tree.
    TTree *m_tree = nullptr;           ///< Tree
    TEntity *m_parentEntity = nullptr; ///< ParentEntity
};

/// The controller of every list of one tree.
template <typename TTree>
class TTreeItemController : public TzuListController
{
public:
    /// The tree outlives the controller.
    explicit TTreeItemController(TTree &tree)
        : m_tree(tree)
    {
    }

    /// The tree whose lists it serves.
    TTree &Tree() const { return m_tree; }

private:
    TTree &m_tree;
};

} // namespace korvane
