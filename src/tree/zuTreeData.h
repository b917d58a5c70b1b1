// The tree's entities, their lists and the controller that joins them to a tree.
#pragma once

#include "foundation/zuExport.h"
#include "tree/zuTreeItem.h"
#include "tree/zuTreeNode.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace korvane {

class TTreeCore;
class TzuDataEntity_Tree;
class TzuDataList_Tree;

/// See TTreeItemController.
class TzuListController_Tree : public TTreeItemController<TTreeCore>
{
public:
    using TTreeItemController::TTreeItemController;
};

/// Longest caption, in Unicode code points.
inline constexpr int kMaxTreeText = 255;
/// What is said when a caption is longer.
inline constexpr std::string_view kTreeTextTooLong =
    "Treenodes only allow strings smaller than 255 chars";
/// Length of a UTF-8 text in Unicode code points; a stray byte counts as one when it does not
/// continue another.
KORVANE_CORE_API int CodePoints(std::string_view text);

/// Font styles of a caption, on top of those of the tree's font.
struct TFontStyles
{
    /// All false: the font as it is.
    bool Bold = false;
    bool Italic = false;
    bool Underline = false;
    bool StrikeOut = false;

    friend bool operator==(const TFontStyles &, const TFontStyles &) = default;
};

/// One item of a tree. Its node only displays it; the node comes and goes as the tree brings its
/// display up to date.
class KORVANE_CORE_API TzuDataEntity_Tree
    : public TTreeItem<TzuDataEntity_Tree, TzuDataList_Tree, TTreeCore>
{
public:
    TzuDataEntity_Tree() = default;
    ~TzuDataEntity_Tree() override;

    void CleanForFree() override;
    void AfterCreate(TzuDataList *list) override;
    /// Marks the display out of date; the node stays, see SetHideNode.
    void SetVisible(bool visible) override;
    /// Whether the node exists and all its ancestors are expanded. Scrolled away is still visible.
    bool GetVisible() const override;

    /// Throws std::length_error, and changes nothing, beyond kMaxTreeText code points.
    void SetText(std::string_view text);
    /// Shown with the next paint.
    void SetImageIndex(int index);
    void SetSelectedIndex(int index);
    /// Expands or collapses the node at once. Without a node the state is kept for the node to
    /// come; true also brings the display up to date. The tree's OnExpanded and OnCollapsed tell of
    /// nodes that change: they fire once when the entity has a node or got it by this call, and not
    /// when the node is made later.
    void SetExpanded(bool expanded);
    /// False to have the children asked for again (see TTreeCore::OnLoadChildren) once there are
    /// none.
    void SetChildrenLoaded(bool loaded);
    /// A hidden entity gets no node, and nothing below it does.
    void Set_HideNode(bool hide);
    /// An empty name stands for the tree's own font.
    const std::string &GetFontName() const;
    void SetFontName(std::string_view name);
    /// On top of the styles of the tree's font.
    TFontStyles GetFontStyle() const;
    void SetFontStyle(TFontStyles style);

    /// Nil while the entity is not displayed.
    TTreeNode_zuSub *Node() const { return m_node; }
    /// The placeholder below the node, or nil.
    TTreeNode_zuSub *DummyNode() const;
    /// The list of the entity's children, made when it is first asked for; nil for an entity that
    /// is in no tree or is being deleted. Owned by the entity.
    TzuDataList_Tree *ChildList();
    /// Starts in-place editing of the caption, when there is a node.
    void EditText();

private:
    friend class TTreeCore;
    friend class TTreeDisplay;
    friend class TTreeNode_zuSub;

    struct TCaptionFont
    {
        std::string Name;
        TFontStyles Style;
    };

    TCaptionFont &CaptionFont();
    void CaptionChanged();
    void ReleaseChildList();

    TTreeNode_zuSub *m_node = nullptr;
    std::unique_ptr<TCaptionFont> m_captionFont;
    std::uint32_t m_queuePlace = 0; ///< 1-based place among those to look at; 0 when in none
    bool m_moved = false;           ///< within its list, since the last update of the display
};

/// The children of one entity, or the roots of a tree.
class KORVANE_CORE_API TzuDataList_Tree
    : public TTreeItemList<TzuDataEntity_Tree, TzuListController_Tree, TTreeCore>
{
public:
    TzuDataList_Tree() = default;
    ~TzuDataList_Tree() override;

    /// See ParentEntity.
    void SetParentEntity(TzuDataEntity_Tree *entity) { m_parentEntity = entity; }
    /// Set when an entity was inserted, until the list's nodes have been sorted.
    bool NeedsSort() const { return m_needsSort; }
    void SetNeedsSort(bool needsSort) { m_needsSort = needsSort; }
    /// In which the tree's comparison orders the nodes.
    TSortDirection SortDirection() const { return m_sortDirection; }
    void SetSortDirection(TSortDirection direction) { m_sortDirection = direction; }
    /// GetItems with the entity's own class.
    TzuDataEntity_Tree *Entity(int index)
    {
        return static_cast<TzuDataEntity_Tree *>(GetItems(index));
    }

private:
    friend class TTreeCore;
    friend class TTreeDisplay;

    std::uint32_t m_queuePlace = 0; ///< as of an entity
    TSortDirection m_sortDirection = TSortDirection::Ascending;
    bool m_needsSort = false;
    bool m_orderUnknown = false;    ///< nodes may stand in another order than entities
    bool m_changeExplained = false; ///< the next change of content is an insertion or a deletion
};

} // namespace korvane
