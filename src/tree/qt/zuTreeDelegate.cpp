#include "tree/qt/zuTreeDelegate.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuImageList.h"
#include "tree/qt/zuTreeComBasic.h"
#include "tree/qt/zuTreeEdit.h"
#include "tree/qt/zuTreeModel.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>
#include <stdexcept>

namespace korvane {

TTreeNodeDelegate::TTreeNodeDelegate(TzuTree_ComBasic &tree)
    : QStyledItemDelegate(&tree)
    , m_tree(tree)
{
}

// --- looks ---------------------------------------------------------------------------------------

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
    const TTreeNode_zuSub *node = m_tree.Nodes().NodeAt(index);
    if (node == nullptr) {
        return;
    }
    if (node->Data() == nullptr) {
        option->palette.setColor(QPalette::Text,
                                 option->palette.color(QPalette::Disabled, QPalette::Text));
        return;
    }
    SetImage(*option, node->Data()->GetImageIndex());
}

void TTreeNodeDelegate::SetImage(QStyleOptionViewItem &option, int imageIndex) const
{
    const TzuImageList *images = m_tree.Images();
    if (images == nullptr) {
        return;
    }
    const TSize size = images->Size();
    const QPixmap pixmap = images->Pixmap(imageIndex, size, m_tree.devicePixelRatioF());
    option.features |= QStyleOptionViewItem::HasDecoration; // captions stay in one column
    option.decorationSize = {size.Width, size.Height};
    option.icon = QIcon(pixmap);
    option.icon.addPixmap(pixmap, QIcon::Selected); // not tinted
}

void TTreeNodeDelegate::Draw(QPainter &painter, const QStyleOptionViewItem &option,
                             const QModelIndex &index, const TTreeItemLook &look) const
{
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    if (m_tree.Nodes().NodeAt(index)->Data() != nullptr) {
        SetImage(item, look.ImageIndex);
        item.font.setBold(item.font.bold() || look.Style.Bold);
        item.font.setItalic(item.font.italic() || look.Style.Italic);
        item.font.setUnderline(item.font.underline() || look.Style.Underline);
        item.font.setStrikeOut(item.font.strikeOut() || look.Style.StrikeOut);
        item.fontMetrics = QFontMetrics(item.font);
    }
    if (look.TextColor && !look.Selected && m_tree.isEnabled()) {
        item.palette.setColor(QPalette::Text, ToQt(*look.TextColor, item.palette));
    }
    m_tree.style()->drawControl(QStyle::CE_ItemViewItem, &item, &painter, &m_tree);
}

// --- editing -------------------------------------------------------------------------------------

QWidget *TTreeNodeDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem & /*option*/,
                                         const QModelIndex &index) const
{
    auto *field = new TTreeCaptionEdit(parent);
    field->setFont(m_tree.font());
    const TTreeNode_zuSub *node = m_tree.Nodes().NodeAt(index);
    m_tree.EditorOpened(*field, node != nullptr ? node->Data() : nullptr);
    return field;
}

void TTreeNodeDelegate::destroyEditor(QWidget *editor, const QModelIndex &index) const
{
    m_tree.EditorGone(*static_cast<TTreeCaptionEdit *>(editor));
    QStyledItemDelegate::destroyEditor(editor, index);
}

void TTreeNodeDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    auto *field = static_cast<TTreeCaptionEdit *>(editor);
    if (!field->isModified()) { // what is being typed wins
        field->setText(index.data(Qt::EditRole).toString());
        field->selectAll();
    }
}

void TTreeNodeDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                             const QModelIndex &index) const
{
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    QRect rect = m_tree.style()->subElementRect(QStyle::SE_ItemViewItemText, &item, &m_tree);
    if (m_tree.isRightToLeft()) {
        rect.setLeft(0);
    } else {
        rect.setRight(m_tree.viewport()->width() - 1);
    }
    rect.setTop(option.rect.top());
    rect.setHeight(std::max(option.rect.height(), editor->fontMetrics().height() + 2));
    editor->setGeometry(rect);
}

void TTreeNodeDelegate::setModelData(QWidget *editor, QAbstractItemModel * /*model*/,
                                     const QModelIndex &index) const
{
    auto *field = static_cast<TTreeCaptionEdit *>(editor);
    const TTreeNode_zuSub *node = m_tree.Nodes().NodeAt(index);
    if (node == nullptr || node->Data() == nullptr || field->IsRefused()) {
        return;
    }
    const QPointer<TTreeCaptionEdit> lives(field); // handlers may do away with node and editor
    try {
        m_tree.Edit(*node->Data(), FromQt(field->text()));
    } catch (const std::length_error &error) {
        if (lives) {
            field->Refuse(ToQt(error.what()));
        }
    }
}

bool TTreeNodeDelegate::eventFilter(QObject *object, QEvent *event)
{
    const auto *field = qobject_cast<TTreeCaptionEdit *>(object);
    if (field != nullptr && event->type() == QEvent::FocusOut && field->IsRefused()) {
        return false; // and the field stays
    }
    return QStyledItemDelegate::eventFilter(object, event);
}

} // namespace korvane
