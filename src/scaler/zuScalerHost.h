// What a time axis asks of the control that shows it.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuTypes.h"

namespace korvane {

/// Is called from the axis' constructor on, so it has to be complete before.
class KORVANE_CORE_API IDateScalerHost
{
public:
    /// Client size in pixels.
    virtual TSize ClientSize() const = 0;
    /// The present instant, in local time.
    virtual TDateTime Now() const = 0;
    /// Asks for a paint soon; requests before it are one.
    virtual void Refresh() = 0;
    /// Asks for one call of TDateScalerCore::CallChange from the event loop.
    virtual void PostChange() = 0;

    /// Whether the canvas is that of a print.
    virtual bool GetIsPrinting() const = 0;
    /// Horizontal and vertical enlargement of a print; 1 on screen.
    virtual double GetScalex() const = 0;
    virtual double GetScaley() const = 0;
    /// Adapts the font that was just set on the canvas to the print; nothing on screen.
    virtual void PrintResizeFont() = 0;

protected:
    IDateScalerHost() = default;
    /// For the classes derived from it alone.
    IDateScalerHost(const IDateScalerHost &) = default;
    IDateScalerHost &operator=(const IDateScalerHost &) = default;
    ~IDateScalerHost() = default;
};

} // namespace korvane
