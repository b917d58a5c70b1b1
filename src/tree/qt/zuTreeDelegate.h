// How the tree's rows look, and how their captions are edited.
#pragma once

#include "foundation/zuExport.h"

#include <QStyledItemDelegate>

namespace korvane {

class TzuTree_ComBasic;
struct TTreeItemLook;

/// Draws captions and images of a tree's nodes, all in rows of the tree's height.
class KORVANE_WIDGETS_API TTreeNodeDelegate : public QStyledItemDelegate
{
public:
    /// Owned by the tree.
    explicit TTreeNodeDelegate(TzuTree_ComBasic &tree);

    /// As wide as the caption with its image, as high as the tree's rows.
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    /// Width of the whole caption with its image, in pixels.
    int CaptionWidth(const QStyleOptionViewItem &option, const QModelIndex &index) const;
    /// Draws icon and caption into the option's rectangle.
    void Draw(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index,
              const TTreeItemLook &look) const;

    /// The editor is a TTreeCaptionEdit that holds the caption.
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void destroyEditor(QWidget *editor, const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    /// The caption's place, up to the right edge of the tree.
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;
    /// What cannot be stored stays in the editor, with the reason.
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;

protected:
    /// Fonts and colours of the tree; Return and Escape in the editor.
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void SetImage(QStyleOptionViewItem &option, int imageIndex) const;

    TzuTree_ComBasic &m_tree;
};

} // namespace korvane
