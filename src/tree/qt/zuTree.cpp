#include "tree/qt/zuTree.h"

#include "foundation/zuLifeWatch.h"

#include <optional>

namespace korvane {

TzuTree::~TzuTree()
{
    DestroyContent();
}

void TzuTree::_InsertItem(TzuDataEntity_Tree *entity)
{
    const TzuLifeWatch entityLives(*entity);
    TzuTree_ComBasic::_InsertItem(entity);
    if (entityLives) {
        Q_EMIT entityInserted(entity);
    }
}

void TzuTree::_DeleteItem(TzuDataEntity_Tree *entity)
{
    const TzuLifeWatch entityLives(*entity);
    Q_EMIT entityDeleted(entity);
    if (entityLives) {
        TzuTree_ComBasic::_DeleteItem(entity);
    }
}

void TzuTree::Expand(TzuDataEntity_Tree *entity)
{
    TzuTree_ComBasic::Expand(entity);
    Q_EMIT entityExpanded();
}

void TzuTree::Collapse(TzuDataEntity_Tree *entity)
{
    TzuTree_ComBasic::Collapse(entity);
    Q_EMIT entityCollapsed();
}

void TzuTree::DoCurrentChanged()
{
    TzuTree_ComBasic::DoCurrentChanged();
    Q_EMIT currentEntityChanged();
}

void TzuTree::TellOf(TzuDataEntity_Tree *entity, const std::function<void()> &handlers,
                     void (TzuTree::*signal)(TzuDataEntity_Tree *))
{
    const QPointer<TzuTree> self(this);
    std::optional<TzuLifeWatch> lives;
    if (entity != nullptr) {
        lives.emplace(*entity);
    }
    handlers();
    if (!self.isNull() && (!lives || *lives)) {
        Q_EMIT(this->*signal)(entity);
    }
}

void TzuTree::_OnContentChanged(TzuDataList_Tree *list)
{
    const QPointer<TzuTree> self(this);
    TzuTree_ComBasic::_OnContentChanged(list);
    if (!self.isNull()) {
        Q_EMIT contentChanged();
    }
}

void TzuTree::_OnSelectionChanged(TzuDataList *list, TzuDataEntity_Tree *entity)
{
    TellOf(
        entity, [&] { TzuTree_ComBasic::_OnSelectionChanged(list, entity); },
        &TzuTree::entitySelectionChanged);
}

void TzuTree::_OnVisibleChanged(TzuDataEntity_Tree *entity)
{
    TellOf(
        entity, [&] { TzuTree_ComBasic::_OnVisibleChanged(entity); },
        &TzuTree::entityVisibleChanged);
}

void TzuTree::_OnInfoPush(TzuDataEntity_Tree *entity)
{
    TellOf(
        entity, [&] { TzuTree_ComBasic::_OnInfoPush(entity); }, &TzuTree::entityChanged);
}

} // namespace korvane
