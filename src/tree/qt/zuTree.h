// The tree component as it is put on a form.
#pragma once

#include "foundation/zuExport.h"
#include "tree/qt/zuTreeComBasic.h"

#include <functional>

namespace korvane {

/// The component proper: publishes the tree for the designer.
class KORVANE_WIDGETS_API TzuTree : public TzuTree_ComBasic
{
    Q_OBJECT
    Q_PROPERTY(bool HideSelection READ HideSelection WRITE SetHideSelection)
    Q_PROPERTY(bool HotTrack READ HotTrack WRITE SetHotTrack)
    Q_PROPERTY(bool ToolTips READ ToolTips WRITE SetToolTips)
    Q_PROPERTY(bool MultiSelect READ MultiSelect WRITE SetMultiSelect)
    Q_PROPERTY(bool AutoExpand READ AutoExpand WRITE SetAutoExpand)
    Q_PROPERTY(bool RowSelect READ RowSelect WRITE SetRowSelect)
    Q_PROPERTY(bool ShowButtons READ ShowButtons WRITE SetShowButtons)
    Q_PROPERTY(bool ShowLines READ ShowLines WRITE SetShowLines)
    Q_PROPERTY(bool RightClickSelect READ RightClickSelect WRITE SetRightClickSelect)
    Q_PROPERTY(bool LoadOnDemand READ LoadOnDemand WRITE SetLoadOnDemand)
    Q_PROPERTY(int Indent READ Indent WRITE SetIndent)
    Q_PROPERTY(int AutoExpandLevels READ AutoExpandLevels WRITE SetAutoExpandLevels)
    Q_PROPERTY(int RowHeight READ RowHeight WRITE SetRowHeight)
    Q_PROPERTY(bool ReadOnly READ ReadOnly WRITE SetReadOnly)
    Q_PROPERTY(int MaxLevels READ MaxLevels WRITE SetMaxLevels)
    Q_PROPERTY(bool AllowSort READ AllowSort WRITE SetAllowSort)
    Q_PROPERTY(bool AllowDelete READ AllowDelete WRITE SetAllowDelete)
    Q_PROPERTY(TDragMode DragMode READ DragMode WRITE SetDragMode)
    Q_PROPERTY(QCursor DragCursor READ DragCursor WRITE setDragCursor)

public:
    using TzuTree_ComBasic::TzuTree_ComBasic;
    ~TzuTree() override;

    /// SetDragCursor by the name that code made of forms needs for cursors.
    void setDragCursor(const QCursor &cursor) { SetDragCursor(cursor); }

Q_SIGNALS:
    void entityInserted(korvane::TzuDataEntity_Tree *entity);
    /// The entity is about to go; do not keep it.
    void entityDeleted(korvane::TzuDataEntity_Tree *entity);
    /// One entity or many.
    void entityExpanded();
    void entityCollapsed();
    /// See GetCurrentDataEntity.
    void currentEntityChanged();
    /// Entities have come, gone or moved.
    void contentChanged();
    void entityChanged(korvane::TzuDataEntity_Tree *entity);
    /// Null when many were.
    void entitySelectionChanged(korvane::TzuDataEntity_Tree *entity);
    void entityVisibleChanged(korvane::TzuDataEntity_Tree *entity);

protected:
    void _InsertItem(TzuDataEntity_Tree *entity) override;
    void _DeleteItem(TzuDataEntity_Tree *entity) override;
    void Expand(TzuDataEntity_Tree *entity) override;
    void Collapse(TzuDataEntity_Tree *entity) override;
    void DoCurrentChanged() override;
    void _OnContentChanged(TzuDataList_Tree *list) override;
    void _OnSelectionChanged(TzuDataList *list, TzuDataEntity_Tree *entity) override;
    void _OnVisibleChanged(TzuDataEntity_Tree *entity) override;
    void _OnInfoPush(TzuDataEntity_Tree *entity) override;

private:
    /// Runs the handlers, then tells of an entity, unless it or the tree is gone.
    void TellOf(TzuDataEntity_Tree *entity, const std::function<void()> &handlers,
                void (TzuTree::*signal)(TzuDataEntity_Tree *));
};

} // namespace korvane
