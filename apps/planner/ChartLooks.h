// The colours of a plan's chart, derived from a palette.
#pragma once

#include "foundation/zuTypes.h"

#include <QColor>
#include <QPalette>

#include <initializer_list>

namespace korvane::planner {

/// One set serves light and dark palettes alike: every colour is mixed from the palette's own.
struct ChartLooks
{
    explicit ChartLooks(const QPalette &palette);

    TColor Back;      ///< of rows and axis
    TColor Header;    ///< behind the axis
    TColor Text;      ///< captions and labels
    TColor MutedText; ///< names beside bars
    TColor Task;      ///< what is still to be done of a task
    TColor Summary;   ///< what is still to be done of a summary task
    TColor Milestone; ///< not yet reached
    TColor Link;
    TColor Baseline; ///< what was planned once
    TColor Deadline; ///< one that is met
    TColor MissedDeadline;
    QColor Grid;     ///< lines between rows and between the axis' large periods; translucent
    QColor FineGrid; ///< lines between the axis' small periods; translucent
    QColor DayOff;   ///< laid over what is not working time; translucent
    QColor Now;      ///< line at the present time
    QColor Overload; ///< what marks more work than a resource can do

    /// A plan's own colour as it is drawn: one that can hardly be told from the background comes
    /// nearer to the text.
    TColor Seen(TColor color) const;
    /// The colour of what is done of something in `color`: further from the background, or nearer
    /// where there is nothing further.
    TColor Done(TColor color) const;

private:
    bool m_dark;
};

/// Whether light text reads better than dark text on all of the colours.
bool NeedsLightText(std::initializer_list<TColor> colors);

} // namespace korvane::planner
