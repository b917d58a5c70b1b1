#include "tree/qt/zuTreeModel.h"

#include "foundation/qt/zuConvert.h"
#include "tree/zuTreeData.h"

#include <QFont>

namespace korvane {

namespace {

/// The font of a caption that has one of its own, else nothing.
QVariant CaptionFont(const TzuDataEntity_Tree &entity)
{
    const TFontStyles style = entity.GetFontStyle();
    if (entity.GetFontName().empty() && style == TFontStyles{}) {
        return {};
    }
    QFont font;
    if (!entity.GetFontName().empty()) {
        font.setFamily(ToQt(entity.GetFontName()));
    }
    font.setBold(style.Bold);
    font.setItalic(style.Italic);
    font.setUnderline(style.Underline);
    font.setStrikeOut(style.StrikeOut);
    return font;
}

} // namespace

TTreeNodeModel::TTreeNodeModel(QObject *parent)
    : QAbstractItemModel(parent)
{
}

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

QModelIndex TTreeNodeModel::IndexOf(const TTreeNode_zuSub *node) const
{
    if (m_root == nullptr || node == nullptr || node == m_root) {
        return {};
    }
    return createIndex(node->Index(), 0, node);
}

TTreeNode_zuSub *TTreeNodeModel::NodeAt(const QModelIndex &index) const
{
    return m_root != nullptr && index.isValid()
               ? static_cast<TTreeNode_zuSub *>(index.internalPointer())
               : nullptr;
}

const TTreeNode_zuSub *TTreeNodeModel::NodeOrRoot(const QModelIndex &index) const
{
    return index.isValid() ? NodeAt(index) : m_root;
}

void TTreeNodeModel::BeforeChange(const TNodeChangeInfo &change)
{
    if (m_root == nullptr) {
        return;
    }
    const QModelIndex parent = IndexOf(change.Parent);
    const int last = change.First + change.Count - 1;
    switch (change.Change) {
    case TNodeChange::Insert:
        beginInsertRows(parent, change.First, last);
        break;
    case TNodeChange::Remove:
        beginRemoveRows(parent, change.First, last);
        break;
    case TNodeChange::Move:
        // The destination counts the row that moves when that lies before it.
        beginMoveRows(parent, change.First, change.First, parent,
                      change.To > change.First ? change.To + 1 : change.To);
        break;
    case TNodeChange::Reorder:
        Q_EMIT layoutAboutToBeChanged({parent}, VerticalSortHint);
        m_reordered = persistentIndexList();
        break;
    }
}

void TTreeNodeModel::AfterChange(const TNodeChangeInfo &change)
{
    if (m_root == nullptr) {
        return;
    }
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
    case TNodeChange::Reorder:
        MovePersistentIndexes();
        Q_EMIT layoutChanged({IndexOf(change.Parent)}, VerticalSortHint);
        break;
    }
}

void TTreeNodeModel::MovePersistentIndexes()
{
    QModelIndexList now;
    now.reserve(m_reordered.size());
    for (const QModelIndex &before : std::as_const(m_reordered)) {
        now.append(IndexOf(NodeAt(before)));
    }
    changePersistentIndexList(m_reordered, now);
    m_reordered.clear();
}

void TTreeNodeModel::CaptionChanged(const TTreeNode_zuSub &node)
{
    const QModelIndex index = IndexOf(&node);
    if (index.isValid()) {
        Q_EMIT dataChanged(index, index);
    }
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

QVariant TTreeNodeModel::data(const QModelIndex &index, int role) const
{
    const TTreeNode_zuSub *node = NodeAt(index);
    if (node == nullptr) {
        return {};
    }
    const TzuDataEntity_Tree *entity = node->Data();
    if (entity == nullptr) {
        return role == Qt::DisplayRole && node->IsPlaceholder()
                   ? QVariant(QStringLiteral("Not initiated"))
                   : QVariant();
    }
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return ToQt(entity->GetText());
    case Qt::DecorationRole:
        return m_images != nullptr && entity->GetImageIndex() >= 0
                       && entity->GetImageIndex() < m_images->size()
                   ? QVariant(m_images->at(entity->GetImageIndex()))
                   : QVariant();
    case Qt::FontRole:
        return CaptionFont(*entity);
    default:
        return {};
    }
}

bool TTreeNodeModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    TTreeNode_zuSub *node = NodeAt(index);
    return node != nullptr && role == Qt::EditRole && m_edit && m_edit(*node, value.toString());
}

Qt::ItemFlags TTreeNodeModel::flags(const QModelIndex &index) const
{
    const TTreeNode_zuSub *node = NodeAt(index);
    if (node == nullptr) {
        return Qt::NoItemFlags;
    }
    const Qt::ItemFlags shown = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return node->Data() != nullptr && node->Data()->GetCanEdit() ? shown | Qt::ItemIsEditable
                                                                 : shown;
}

} // namespace korvane
