#include "tree/qt/zuTreeDelegate.h"

#include "foundation/qt/zuImageList.h"
#include "tree/qt/zuTree.h"
#include "tree/qt/zuTreeModel.h"

namespace korvane {

TTreeNodeDelegate::TTreeNodeDelegate(TzuTree_ComBasic &tree)
    : QStyledItemDelegate(&tree)
    , m_tree(tree)
{
}

QSize TTreeNodeDelegate::sizeHint(const QStyleOptionViewItem &option,
                                  const QModelIndex &index) const
{
    return {CaptionWidth(option, index), m_tree.RowHeight()};
}

int TTreeNodeDelegate::CaptionWidth(const QStyleOptionViewItem &option,
                                    const QModelIndex &index) const
{
    return QStyledItemDelegate::sizeHint(option, index).width();
}

void TTreeNodeDelegate::initStyleOption(QStyleOptionViewItem *option,
                                        const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    const TTreeNode_zuSub *node = m_tree.m_model->NodeAt(index);
    if (node == nullptr) {
        return;
    }
    if (node->Data() == nullptr) {
        option->palette.setColor(QPalette::Text,
                                 option->palette.color(QPalette::Disabled, QPalette::Text));
        return;
    }
    if (m_tree.HotTrack() && (option->state & QStyle::State_MouseOver) != 0) {
        option->font.setUnderline(true);
    }
    if (const TzuImageList *images = m_tree.Images()) {
        const TzuDataEntity_Tree &entity = *node->Data();
        const bool selected = (option->state & QStyle::State_Selected) != 0;
        const int image = selected && entity.GetSelectedIndex() >= 0 ? entity.GetSelectedIndex()
                                                                     : entity.GetImageIndex();
        const double ratio = m_tree.devicePixelRatioF();
        const TSize size = images->Size();
        const QPixmap pixmap = images->Pixmap(image, size, ratio);
        option->features |= QStyleOptionViewItem::HasDecoration; // captions stay in one column
        option->decorationSize = {size.Width, size.Height};
        option->icon = QIcon(pixmap);
        option->icon.addPixmap(pixmap, QIcon::Selected); // not tinted
    }
}

} // namespace korvane
