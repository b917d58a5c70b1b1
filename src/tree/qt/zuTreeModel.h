// The item model over a tree's nodes.
#pragma once

#include "tree/zuTreeHost.h"
#include "tree/zuTreeNode.h"

#include <QAbstractItemModel>
#include <QIcon>
#include <QList>

#include <functional>

namespace korvane {

/// Presents the nodes below a root. Internal ids are node pointers.
///
/// While it is detached the model is empty; so a burst of changes costs two resets, and nothing
/// asks for nodes meanwhile.
class TTreeNodeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    /// Called with the caption that the user entered; false when it was refused.
    using TEdit = std::function<bool(TTreeNode_zuSub &node, const QString &text)>;

    explicit TTreeNodeModel(QObject *parent);

    /// The root outlives the model's attachment to it. Until attached the model is empty.
    void Attach(const TTreeNode_zuSub &root);
    void Detach();
    bool IsAttached() const { return m_root != nullptr; }
    void SetEdit(TEdit edit) { m_edit = std::move(edit); }
    /// What the entities' image indexes refer to; observed.
    void SetImages(const QList<QIcon> *images) { m_images = images; }

    /// Invalid for nil, for the root and while detached.
    QModelIndex IndexOf(const TTreeNode_zuSub *node) const;
    /// Nil for an invalid index and while detached.
    TTreeNode_zuSub *NodeAt(const QModelIndex &index) const;

    void BeforeChange(const TNodeChangeInfo &change);
    void AfterChange(const TNodeChangeInfo &change);
    void CaptionChanged(const TTreeNode_zuSub &node);

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    bool hasChildren(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    using QObject::parent;

private:
    const TTreeNode_zuSub *NodeOrRoot(const QModelIndex &index) const;
    void MovePersistentIndexes();

    const TTreeNode_zuSub *m_root = nullptr;
    const QList<QIcon> *m_images = nullptr;
    TEdit m_edit;
    QModelIndexList m_reordered; ///< persistent indexes as they were before a reordering
};

} // namespace korvane
