// Dragging a tree's entities, and what is dropped on it.
#pragma once

#include "foundation/zuExport.h"
#include "tree/zuTreeUser.h"

#include <QBasicTimer>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QRect>

class QDropEvent;
class QMimeData;
class QPainter;

namespace korvane {

class TzuTree_ComBasic;

/// A drag over a tree. What a handler may change is said at the events.
struct TTreeDrag
{
    TTreeEntities Entities;    ///< of this tree; empty when the drag began elsewhere
    QMimeData *Data = nullptr; ///< to be changed at the start only
    QObject *Source = nullptr; ///< where it began; nil for another program
    TTreeDrop Drop;            ///< where a drop would go
    bool Accept = true;        ///< see the events
    bool Handled = false;      ///< by the handler; on entry false
};

/// A drag began, moves over the tree, was dropped there, or has ended.
using TOnTreeDrag = TMethod<void(TObject *theTree, TTreeDrag &drag)>;

/// What the application hears of drags. An accepted drop of the tree's own entities that no handler
/// dealt with is a move by the user (TTreeUserCore::MoveByUser).
struct TTreeDragEvents
{
    TPublished<TOnTreeDrag>
        OnStartDrag; ///< Accept = false: no drag begins. May add formats to Data
    /// Accept: whether a drop here is taken; on entry whether the entities can be moved there.
    /// Drags from elsewhere are taken only when a handler accepts them.
    TPublished<TOnTreeDrag> OnDragOver;
    TPublished<TOnTreeDrag> OnDragDrop; ///< Handled = true: nothing is moved
    TPublished<TOnTreeDrag> OnEndDrag;  ///< Accept: whether it was dropped somewhere
};

/// The drag that is over a tree: where it would drop, the mark that shows it, and the scrolling and
/// expanding on the way.
class KORVANE_WIDGETS_API TTreeDragging : public QObject
{
    Q_OBJECT

public:
    /// The tree outlives it.
    explicit TTreeDragging(TzuTree_ComBasic &tree);
    ~TTreeDragging() override;

    /// Drags entities until they are dropped.
    void Begin(TTreeEntities entities);
    /// A drag has come over the tree, moves there, leaves it, or is dropped.
    void Enter(QDropEvent &event);
    void Over(QDropEvent &event);
    void Leave();
    void Drop(QDropEvent &event);
    /// Draws the mark of the place where a drop would go.
    void Draw(QPainter &painter) const;
    /// The entity is about to go.
    void Forget(TzuDataEntity_Tree &entity);

protected:
    /// Expands and scrolls while the drag rests.
    void timerEvent(QTimerEvent *event) override;

private:
    TTreeDrag DragOf(const QDropEvent &event) const;
    void Show(const TTreeDrop &drop, bool accept);
    QRect MarkRect() const;
    void ScrollAt(int y);

    TzuTree_ComBasic &m_tree;
    TTreeEntities m_entities; ///< dragged from here
    TTreeDrop m_drop;
    QPoint m_point;
    QBasicTimer m_expandTimer;
    QBasicTimer m_scrollTimer;
    int m_scrollRows = 0; ///< per tick
    bool m_over = false;
    bool m_accept = false;
};

} // namespace korvane
