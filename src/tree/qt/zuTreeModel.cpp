#include "tree/qt/zuTreeModel.h"

#include "foundation/qt/zuConvert.h"
#include "tree/zuTreeData.h"

namespace korvane {

TTreeNodeModel::TTreeNodeModel(QObject *parent)
    : QAbstractItemModel(parent)
{
}

TTreeNodeModel::~TTreeNodeModel() = default;

void TTreeNodeModel::Attach(const TTreeNode_zuSub &root)
{
    beginResetModel();
    m_root = &root;
    endResetModel();
}

void TTreeNodeModel::Detach()
{
    beginResetModel();
    m_root = nullptr;
    endResetModel();
}

// --- nodes and indexes ---------------------------------------------------------------------------

QModelIndex TTreeNodeModel::IndexOf(const TTreeNode_zuSub *node) const
{
    if (node == nullptr || node == m_root || m_root == nullptr) {
        return {};
    }
    return createIndex(node->Index(), 0, node);
}

TTreeNode_zuSub *TTreeNodeModel::NodeAt(const QModelIndex &index) const
{
    return index.isValid() && m_root != nullptr
               ? static_cast<TTreeNode_zuSub *>(index.internalPointer())
               : nullptr;
}

const TTreeNode_zuSub *TTreeNodeModel::NodeOrRoot(const QModelIndex &index) const
{
    return index.isValid() ? NodeAt(index) : m_root;
}

QModelIndex TTreeNodeModel::index(int row, int column, const QModelIndex &parent) const
{
    const TTreeNode_zuSub *node = NodeOrRoot(parent);
    if (node == nullptr || column != 0 || row < 0 || row >= node->ChildCount()) {
        return {};
    }
    return createIndex(row, 0, node->Child(row));
}

QModelIndex TTreeNodeModel::parent(const QModelIndex &child) const
{
    const TTreeNode_zuSub *node = NodeAt(child);
    return node != nullptr ? IndexOf(node->Parent()) : QModelIndex();
}

int TTreeNodeModel::rowCount(const QModelIndex &parent) const
{
    const TTreeNode_zuSub *node = NodeOrRoot(parent);
    return node != nullptr ? node->ChildCount() : 0;
}

int TTreeNodeModel::columnCount(const QModelIndex & /*parent*/) const
{
    return 1;
}

bool TTreeNodeModel::hasChildren(const QModelIndex &parent) const
{
    return rowCount(parent) > 0;
}

// --- content -------------------------------------------------------------------------------------

QVariant TTreeNodeModel::data(const QModelIndex &index, int role) const
{
    const TTreeNode_zuSub *node = NodeAt(index);
    if (node == nullptr) {
        return {};
    }
    const TzuDataEntity_Tree *entity = node->Data();
    if (entity == nullptr) {
        return node->IsPlaceholder() && role == Qt::DisplayRole ? QVariant("Not initiated")
                                                                : QVariant();
    }
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return ToQt(entity->GetText());
    case Qt::FontRole:
        return FontOf(*entity);
    default:
        return {};
    }
}

QVariant TTreeNodeModel::FontOf(const TzuDataEntity_Tree &entity) const
{
    const TFontStyles style = entity.GetFontStyle();
    if (entity.GetFontName().empty() && style == TFontStyles()) {
        return {};
    }
    QFont font = m_font;
    if (!entity.GetFontName().empty()) {
        font.setFamilies({ToQt(entity.GetFontName())});
    }
    font.setBold(font.bold() || style.Bold);
    font.setItalic(font.italic() || style.Italic);
    font.setUnderline(font.underline() || style.Underline);
    font.setStrikeOut(font.strikeOut() || style.StrikeOut);
    return font;
}

bool TTreeNodeModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    TTreeNode_zuSub *node = NodeAt(index);
    return node != nullptr && role == Qt::EditRole && m_edit
           && m_edit(*node, FromQt(value.toString()));
}

Qt::ItemFlags TTreeNodeModel::flags(const QModelIndex &index) const
{
    const TTreeNode_zuSub *node = NodeAt(index);
    if (node == nullptr) {
        return Qt::NoItemFlags;
    }
    // Whether an entity can be edited is asked when editing is to begin.
    return node->Data() == nullptr ? Qt::ItemFlags(Qt::ItemIsEnabled)
                                   : Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable;
}

// --- changes -------------------------------------------------------------------------------------

void TTreeNodeModel::BeforeChange(const TNodeChangeInfo &change)
{
    const QModelIndex parent = IndexOf(change.Parent);
    switch (change.Change) {
    case TNodeChange::Insert:
        beginInsertRows(parent, change.First, change.First + change.Count - 1);
        break;
    case TNodeChange::Remove:
        beginRemoveRows(parent, change.First, change.First + change.Count - 1);
        break;
    case TNodeChange::Move:
        beginMoveRows(parent, change.First, change.First, parent,
                      change.To > change.First ? change.To + 1 : change.To);
        break;
    case TNodeChange::Reorder:
        Q_EMIT layoutAboutToBeChanged({QPersistentModelIndex(parent)}, VerticalSortHint);
        for (const QModelIndex &index : persistentIndexList()) {
            if (NodeAt(index)->Parent() == change.Parent) {
                m_indexesBefore.append(index);
                m_nodesBefore.push_back(NodeAt(index));
            }
        }
        break;
    }
}

void TTreeNodeModel::AfterChange(const TNodeChangeInfo &change)
{
    switch (change.Change) {
    case TNodeChange::Insert:
        endInsertRows();
        break;
    case TNodeChange::Remove:
        endRemoveRows();
        break;
    case TNodeChange::Move:
        endMoveRows();
        break;
    case TNodeChange::Reorder: {
        QModelIndexList after;
        for (const TTreeNode_zuSub *node : m_nodesBefore) {
            after.append(IndexOf(node));
        }
        changePersistentIndexList(m_indexesBefore, after);
        m_indexesBefore.clear();
        m_nodesBefore.clear();
        Q_EMIT layoutChanged({QPersistentModelIndex(IndexOf(change.Parent))}, VerticalSortHint);
        break;
    }
    }
}

} // namespace korvane
