// The item model over a tree's nodes.
#pragma once

#include "foundation/zuExport.h"
#include "tree/zuTreeHost.h"
#include "tree/zuTreeNode.h"

#include <QAbstractItemModel>
#include <QFont>

#include <functional>
#include <string>
#include <vector>

namespace korvane {

/// Presents the nodes below a root. Internal ids are node pointers.
///
/// While it is detached the model is empty. Changes of captions are not announced: the tree
/// repaints their rows.
class KORVANE_WIDGETS_API TTreeNodeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    /// Takes the caption that the user entered for a node; false when it was refused.
    using TEdit = std::function<bool(TTreeNode_zuSub &node, const std::string &text)>;

    /// Detached.
    explicit TTreeNodeModel(QObject *parent);
    ~TTreeNodeModel() override;

    /// The root outlives the attachment. A model begins detached.
    void Attach(const TTreeNode_zuSub &root);
    void Detach();
    /// Nil while detached.
    const TTreeNode_zuSub *Root() const { return m_root; }
    /// Without it no caption can be edited.
    void SetEdit(TEdit edit) { m_edit = std::move(edit); }
    /// The font of captions that have none of their own.
    void SetFont(const QFont &font) { m_font = font; }

    /// Invalid for nil, for the root and while detached.
    QModelIndex IndexOf(const TTreeNode_zuSub *node) const;
    /// Nil for an invalid index and while detached.
    TTreeNode_zuSub *NodeAt(const QModelIndex &index) const;

    /// To be called around each structural change of the nodes.
    void BeforeChange(const TNodeChangeInfo &change);
    void AfterChange(const TNodeChangeInfo &change);

    using QObject::parent;
    /// As Qt asks for items: one column, captions as display and edit role, fonts of captions that
    /// have their own.
    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    bool hasChildren(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    const TTreeNode_zuSub *NodeOrRoot(const QModelIndex &index) const;
    QVariant FontOf(const TzuDataEntity_Tree &entity) const;

    const TTreeNode_zuSub *m_root = nullptr;
    TEdit m_edit;
    QFont m_font;
    /// Of a reordering that runs: the children's persistent indexes and their nodes.
    QModelIndexList m_indexesBefore;
    std::vector<const TTreeNode_zuSub *> m_nodesBefore;
};

} // namespace korvane
