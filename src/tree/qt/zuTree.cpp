#include "tree/qt/zuTree.h"

#include "foundation/qt/zuSignalTiesImpl.h"

namespace korvane {

TzuTree::TzuTree(QWidget *parent)
    : TzuTree_ComBasic(parent)
{
    const auto tie = [this](auto &event, auto signal) { m_signals.Tie(event, *this, signal); };
    tie(OnInsertItem, &TzuTree::entityInserted);
    tie(OnDeleteItem, &TzuTree::entityDeleted);
    tie(OnLoadItem, &TzuTree::entityLoaded);
    tie(OnExpanded, &TzuTree::entityExpanded);
    tie(OnCollapsed, &TzuTree::entityCollapsed);
    tie(OnCurrentChanged, &TzuTree::currentEntityChanged);
    tie(OnTopItemChanged, &TzuTree::topItemChanged);
    tie(OnContentChanged, &TzuTree::contentChanged);
    tie(OnChangeDataEntity, &TzuTree::entityChanged);
    tie(OnSelectionChanged, &TzuTree::entitySelectionChanged);
    tie(OnVisibleChanged, &TzuTree::entityVisibleChanged);
    tie(OnBeforeCanEditItem, &TzuTree::entityEditAsked);
    tie(OnValueChanged, &TzuTree::entityEdited);
    tie(OnMoved, &TzuTree::entitiesMoved);
    tie(OnStartDrag, &TzuTree::dragStarted);
    tie(OnDragOver, &TzuTree::draggedOver);
    tie(OnDragDrop, &TzuTree::dropped);
    tie(OnEndDrag, &TzuTree::dragEnded);
}

TzuTree::~TzuTree()
{
    DestroyContent();
    SetImages(nullptr);
}

QColor TzuTree::ColorAsQColor() const
{
    return ToQt(Color(), palette());
}

void TzuTree::SetColorAsQColor(const QColor &color)
{
    SetColor(FromQt(color));
}

void TzuTree::SetImagesText(const QByteArray &text)
{
    const bool shown = m_namedImages.Text() != text;
    m_namedImages.SetText(text);
    if (shown) {
        SetImages(nullptr); // the list is the same object
        SetImages(m_namedImages.List());
    }
}

// The events tell of single entities only.

void TzuTree::Expand(TzuDataEntity_Tree *entity)
{
    TzuTree_ComBasic::Expand(entity);
    if (entity == nullptr) {
        Q_EMIT entityExpanded(nullptr);
    }
}

void TzuTree::Collapse(TzuDataEntity_Tree *entity)
{
    TzuTree_ComBasic::Collapse(entity);
    if (entity == nullptr) {
        Q_EMIT entityCollapsed(nullptr);
    }
}

} // namespace korvane
