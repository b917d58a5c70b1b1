// How the tree's rows look.
#pragma once

#include <QStyledItemDelegate>

namespace korvane {

class TzuTree_ComBasic;

/// Draws captions and images of a tree's nodes, all in rows of the tree's height.
class TTreeNodeDelegate : public QStyledItemDelegate
{
public:
    /// Owned by the tree.
    explicit TTreeNodeDelegate(TzuTree_ComBasic &tree);

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    /// Width of the whole caption with its image, in pixels.
    int CaptionWidth(const QStyleOptionViewItem &option, const QModelIndex &index) const;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    TzuTree_ComBasic &m_tree;
};

} // namespace korvane
