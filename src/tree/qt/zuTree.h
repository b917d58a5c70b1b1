// The tree component as it is put on a form.
#pragma once

#include "foundation/qt/zuNamedImages.h"
#include "foundation/qt/zuSignalTies.h"
#include "foundation/zuExport.h"
#include "tree/qt/zuTreeComBasic.h"

#include <QColor>

namespace korvane {

/// The component proper: publishes the tree for the designer.
class KORVANE_WIDGETS_API TzuTree : public TzuTree_ComBasic
{
    Q_OBJECT
    /// Published properties; each is described at the function that it reads.
    Q_PROPERTY(QColor Color READ ColorAsQColor WRITE SetColorAsQColor)
    Q_PROPERTY(BorderKind BorderStyle READ BorderStyleKind WRITE SetBorderStyleKind)
    Q_PROPERTY(QByteArray Images READ ImagesText WRITE SetImagesText)
    Q_PROPERTY(QByteArray PopupMenu READ PopupMenuNames WRITE SetPopupMenuNames)
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
    /// TBorderStyle for the designer.
    enum BorderKind { bsNone, bsSingle };
    Q_ENUM(BorderKind)

    /// Empty; the parent may be null.
    explicit TzuTree(QWidget *parent = nullptr);
    ~TzuTree() override;

    /// Color and BorderStyle in the types of the designer. System colours are looked up in the
    /// palette.
    QColor ColorAsQColor() const;
    void SetColorAsQColor(const QColor &color);
    BorderKind BorderStyleKind() const { return static_cast<BorderKind>(BorderStyle()); }
    void SetBorderStyleKind(BorderKind kind) { SetBorderStyle(static_cast<TBorderStyle>(kind)); }
    /// The images by name, as forms store them, see TNamedImages. They take the place of Images,
    /// unless they are none.
    QByteArray ImagesText() const { return m_namedImages.Text(); }
    void SetImagesText(const QByteArray &text);
    /// SetDragCursor by the name that code made of forms needs for cursors.
    void setDragCursor(const QCursor &cursor) { SetDragCursor(cursor); }

Q_SIGNALS:
    // Each comes behind the handler of its event, see TPublished.
    /// An entity has come (OnInsertItem).
    void entityInserted(korvane::TzuDataEntity_Tree *entity);
    /// The entity is about to go; do not keep it.
    void entityDeleted(korvane::TzuDataEntity_Tree *entity);
    /// An entity came with what was loaded (OnLoadItem).
    void entityLoaded(korvane::TzuDataEntity_Tree *entity);
    /// OnExpanded, OnCollapsed; null when many were.
    void entityExpanded(korvane::TzuDataEntity_Tree *entity);
    void entityCollapsed(korvane::TzuDataEntity_Tree *entity);
    /// See GetCurrentDataEntity.
    void currentEntityChanged();
    /// See GetTopItem.
    void topItemChanged();
    /// Entities have come, gone or moved.
    void contentChanged();
    /// DoInfoPush was called for the entity.
    void entityChanged(korvane::TzuDataEntity_Tree *entity);
    /// The entity was selected or deselected.
    void entitySelectionChanged(korvane::TzuDataEntity_Tree *entity);
    /// SetVisible was called for the entity.
    void entityVisibleChanged(korvane::TzuDataEntity_Tree *entity);
    /// OnBeforeCanEditItem: the receiver answers with SetCanEdit.
    void entityEditAsked(korvane::TzuDataEntity_Tree *entity);
    /// The user has edited the caption (OnValueChanged).
    void entityEdited(korvane::TzuDataEntity_Tree *entity);
    /// By the user (OnMoved).
    void entitiesMoved();
    /// OnStartDrag, OnDragOver, OnDragDrop and OnEndDrag, see TTreeDragEvents; the receiver may
    /// change the drag as the handler may.
    void dragStarted(korvane::TTreeDrag *drag);
    void draggedOver(korvane::TTreeDrag *drag);
    void dropped(korvane::TTreeDrag *drag);
    void dragEnded(korvane::TTreeDrag *drag);

protected:
    void Expand(TzuDataEntity_Tree *entity) override;
    void Collapse(TzuDataEntity_Tree *entity) override;

private:
    TSignalTies m_signals;
    TNamedImages m_namedImages;
};

} // namespace korvane
