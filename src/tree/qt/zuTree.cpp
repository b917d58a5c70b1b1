#include "tree/qt/zuTree.h"

#include "foundation/zuLifeWatch.h"

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

} // namespace korvane
