// Labels of printed rows.
#pragma once

#include "foundation/zuExport.h"

#include <QFont>
#include <QString>

#include <functional>
#include <vector>

class QPainter;
class QRectF;

namespace korvane {

class TzuDataEntity_Tree;
class TzuTree_ComBasic;
struct TTreeItemLook;

/// A column of row labels.
struct TPrintColumn
{
    QString Title; ///< above the column; empty for none
    /// Nothing set: the row's caption, indented by its level, with its image.
    std::function<QString(const TzuDataEntity_Tree &)> Text;
    /// In pixels of the content; 0: as wide as needed, up to what the page can spare. Longer texts
    /// go on in further lines of a higher row.
    int Width = 0;
    /// Of captions and title, horizontally; from right to left, AlignLeft is at the right.
    Qt::Alignment Alignment = Qt::AlignLeft;
};

/// Where the rows of a print stand in an outline, from top to bottom: the index of each one's
/// heading among them, or -1.
class KORVANE_WIDGETS_API TPrintParents
{
public:
    /// The next row of the outline, by its level from 0, whether it is printed or not.
    void Add(int level, bool isPrinted);
    /// One for each row that is printed.
    const std::vector<int> &Indexes() const { return m_parents; }

private:
    std::vector<int> m_parents;
    std::vector<int> m_open; ///< by level: the last row on it, or -1
};

/// Rows of a tree.
struct TPrintOutline
{
    std::vector<TzuDataEntity_Tree *> Rows; ///< observed
    /// Indexes into Rows.
    std::vector<int> Parents;
};

/// The rows that a tree shows, also those scrolled away, as far as `isWanted(number, row)` says;
/// numbers count from 0.
KORVANE_WIDGETS_API TPrintOutline CollectOutline(
    TzuTree_ComBasic &tree, const std::function<bool(int, TzuDataEntity_Tree &)> &isWanted);

/// A row that has others of the print below it. Levels have no gaps.
struct TPrintGroup
{
    int Row;   ///< index among the rows of the print
    int Level; ///< from 0
};
/// The groups of an outline, top to bottom; `parents` is that of TPrintOutline.
KORVANE_WIDGETS_API std::vector<TPrintGroup> GroupsOf(const std::vector<int> &parents);

/// Draws the labels of a tree's rows as the tree looks, in ink for white paper: from right to left
/// where the tree does.
class KORVANE_WIDGETS_API TPrintLabels
{
public:
    /// One column of captions by default; an empty list prints no labels.
    std::vector<TPrintColumn> Columns{1};

    /// Finds the widths for these rows. The tree is observed from now on.
    void Measure(TzuTree_ComBasic &tree, const std::vector<TzuDataEntity_Tree *> &rows);
    /// Narrows the widest of the columns that have no width of their own, so that all of them
    /// together take this room, as far as that goes; anew after each Measure.
    void FitInto(double room);
    /// Narrows each of them that is wider; likewise.
    void LimitColumns(double widest);
    /// Of the columns, and their sum, in pixels of content, as last measured and narrowed.
    const std::vector<int> &Widths() const { return m_widths; }
    int Width() const;
    /// For each of the rows that were measured, in pixels of content. Where columns were narrowed,
    /// the tree's OnCustomDrawItem is asked for the looks.
    std::vector<int> Heights() const;
    /// Whether any column has a title.
    bool HasTitles() const;
    /// Room for one line, in pixels of content.
    int TitleHeight() const;

    /// Draw a title or a label into a cell, in pixels of content. The columns were measured. A
    /// label first asks the tree's OnCustomDrawItem for its look.
    void PaintTitle(QPainter &painter, const QRectF &cell, std::size_t column) const;
    void PaintCell(QPainter &painter, const QRectF &cell, std::size_t column,
                   TzuDataEntity_Tree &row) const;

private:
    int NeededWidth(const TPrintColumn &column) const;
    QFont Font() const;
    QFont FontOf(const TzuDataEntity_Tree &row, const TTreeItemLook &look) const;
    TTreeItemLook LookOf(TzuDataEntity_Tree &row) const;
    QString TextOf(std::size_t column, const TzuDataEntity_Tree &row) const;
    double Indent(std::size_t column, const TzuDataEntity_Tree &row) const;
    int LinesOf(TzuDataEntity_Tree &row) const;
    Qt::Alignment Aligned(std::size_t column) const;
    QRectF PaintLead(QPainter &painter, QRectF place, std::size_t column,
                     const TzuDataEntity_Tree &row, int image) const;
    void PaintExpander(QPainter &painter, const QRectF &place, bool expanded) const;

    TzuTree_ComBasic *m_tree = nullptr;
    std::vector<TzuDataEntity_Tree *> m_rows; ///< observed
    std::vector<int> m_needed;
    std::vector<int> m_widths;
};

} // namespace korvane
