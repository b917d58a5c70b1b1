#include "tree/zuTreeData.h"

#include "tree/zuTree.h"

#include <algorithm>
#include <stdexcept>

namespace korvane {

int CodePoints(std::string_view text)
{
    return static_cast<int>(std::count_if(text.begin(), text.end(), [](char unit) {
        return (static_cast<unsigned char>(unit) & 0xC0U) != 0x80U;
    }));
}

// --- entity --------------------------------------------------------------------------------------

TzuDataEntity_Tree::~TzuDataEntity_Tree()
{
    if (TTreeCore *tree = Tree()) {
        tree->Forget(*this); // freed without having been cleaned
    }
    ReleaseChildList();
}

void TzuDataEntity_Tree::CleanForFree()
{
    TTreeCore *tree = Tree();
    const TzuLifeWatch self(*this);
    TzuDataEntity::CleanForFree();
    if (!self) {
        return;
    }
    if (tree != nullptr) {
        tree->m_display.CleanTreeNode(*this);
    }
    m_node = nullptr;
    ReleaseChildList();
}

/// What is left of the children when no tree took care of them: the entity changed over to a list
/// outside of its tree.
void TzuDataEntity_Tree::ReleaseChildList()
{
    if (m_childList != nullptr) {
        TzuDataList_Tree *list = m_childList;
        m_childList = nullptr;
        list->Tree()->ReleaseList(list);
    }
}

void TzuDataEntity_Tree::AfterCreate(TzuDataList *list)
{
    TzuDataEntity::AfterCreate(list);
    SetCanEdit(true);
}

void TzuDataEntity_Tree::SetVisible(bool visible)
{
    TzuDataEntity::SetVisible(visible);
    if (TTreeCore *tree = Tree()) {
        tree->DisplayOutOfDate();
    }
}

bool TzuDataEntity_Tree::GetVisible() const
{
    return m_node != nullptr && m_node->IsShown();
}

void TzuDataEntity_Tree::SetText(std::string_view text)
{
    if (CodePoints(text) > kMaxTreeText) {
        throw std::length_error(std::string(kTreeTextTooLong));
    }
    if (m_text == text) {
        return;
    }
    m_text = text;
    CaptionChanged();
}

void TzuDataEntity_Tree::SetImageIndex(int index)
{
    if (m_imageIndex != index) {
        m_imageIndex = index;
        CaptionChanged();
    }
}

void TzuDataEntity_Tree::SetSelectedIndex(int index)
{
    if (m_selectedIndex != index) {
        m_selectedIndex = index;
        CaptionChanged();
    }
}

void TzuDataEntity_Tree::SetExpanded(bool expanded)
{
    TTreeCore *tree = Tree();
    if (tree == nullptr) {
        m_expanded = expanded;
    } else {
        tree->SetEntityExpanded(*this, expanded);
    }
}

void TzuDataEntity_Tree::SetChildrenLoaded(bool loaded)
{
    if (m_childrenLoaded == loaded) {
        return;
    }
    m_childrenLoaded = loaded;
    if (TTreeCore *tree = Tree()) {
        tree->m_display.QueuePlaceholder(*this);
        tree->DisplayOutOfDate();
    }
}

void TzuDataEntity_Tree::Set_HideNode(bool hide)
{
    if (m_hideNode == hide) {
        return;
    }
    m_hideNode = hide;
    if (TTreeCore *tree = Tree()) {
        tree->m_display.Queue(*this);
        tree->DisplayOutOfDate();
    }
}

const std::string &TzuDataEntity_Tree::GetFontName() const
{
    static const std::string kNone;
    return m_captionFont != nullptr ? m_captionFont->Name : kNone;
}

void TzuDataEntity_Tree::SetFontName(std::string_view name)
{
    if (GetFontName() != name) {
        CaptionFont().Name = name;
        CaptionChanged();
    }
}

TFontStyles TzuDataEntity_Tree::GetFontStyle() const
{
    return m_captionFont != nullptr ? m_captionFont->Style : TFontStyles();
}

void TzuDataEntity_Tree::SetFontStyle(TFontStyles style)
{
    if (GetFontStyle() != style) {
        CaptionFont().Style = style;
        CaptionChanged();
    }
}

TzuDataEntity_Tree::TCaptionFont &TzuDataEntity_Tree::CaptionFont()
{
    if (m_captionFont == nullptr) {
        m_captionFont = std::make_unique<TCaptionFont>();
    }
    return *m_captionFont;
}

void TzuDataEntity_Tree::CaptionChanged()
{
    if (TTreeCore *tree = m_node != nullptr ? Tree() : nullptr) {
        tree->m_observer.NodeChanged(*m_node, TNodeAspect::Caption);
    }
}

TTreeNode_zuSub *TzuDataEntity_Tree::DummyNode() const
{
    return m_node != nullptr ? m_node->PlaceholderChild() : nullptr;
}

TzuDataList_Tree *TzuDataEntity_Tree::ChildList()
{
    TTreeCore *tree = Tree();
    if (m_childList == nullptr && tree != nullptr && !m_leaving) {
        m_childList = tree->NewList(this);
    }
    return m_childList;
}

void TzuDataEntity_Tree::EditText()
{
    if (TTreeCore *tree = m_node != nullptr ? Tree() : nullptr) {
        tree->m_host.EditNode(*m_node);
    }
}

// --- list ----------------------------------------------------------------------------------------

TzuDataList_Tree::~TzuDataList_Tree()
{
    if (m_queuePlace != 0 && m_tree != nullptr) {
        m_tree->m_display.Unqueue(*this);
    }
}

} // namespace korvane
