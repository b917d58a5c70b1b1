// What stands beside the axis of a printed chart.
#pragma once

#include "gantt/zuGantRowList.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QPainter;
class QSizeF;

namespace korvane {

class TPrintLabels;
class TzuGant_ComBasic;

/// The rows of a chart, printed at its side: those of its tree, or of the grid that stands in for
/// it.
class IGanttSide
{
public:
    /// Rows as they are shown, also those scrolled away; places are not filled in.
    struct TRows
    {
        std::vector<TVisibleNode> Nodes; ///< top to bottom
        std::vector<int> Parents;        ///< index of each one's heading among them, or -1
    };
    /// Whether a row is printed; numbers count from 0 among those that are shown.
    using TIsWanted = std::function<bool(int number, const TVisibleNode &node, bool isSelected)>;

    virtual ~IGanttSide() = default;

    /// The rows that are wanted.
    virtual TRows Collect(const TIsWanted &isWanted) = 0;
    /// Takes no more than this room, in pixels, as far as columns may become narrower for it; the
    /// heights of the rows that were collected last.
    virtual std::vector<int> FitInto(double room) = 0;
    /// What a bookmark of the row says.
    virtual QString CaptionOf(const TVisibleNode &node) const = 0;
    /// In pixels, for the rows that were collected last.
    virtual int Width() const = 0;
    /// Draws the head, so high, and below it the rows, whose places are those in the area.
    virtual void Paint(QPainter &painter, double head, double areaHeight,
                       const std::vector<TVisibleNode> &rows) = 0;
};

/// Everything is observed.
std::unique_ptr<IGanttSide> MakeTreeSide(TzuGant_ComBasic &gant, TPrintLabels &labels);
/// With columns of the grid by their real indexes; those that are shown when nothing is given.
std::unique_ptr<IGanttSide> MakeGridSide(TzuGant_ComBasic &gant,
                                         const std::optional<std::vector<int>> &columns);

} // namespace korvane
