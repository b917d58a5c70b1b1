// Something on its way to paper.
#pragma once

#include "PrintOptions.h"
#include "printing/qt/zuPrinting.h"

#include <QString>

namespace korvane::planner {

/// A print together with everything it is made from, so that a view may change while it runs.
class PrintJob
{
public:
    PrintJob() = default;
    PrintJob(const PrintJob &) = delete;
    PrintJob &operator=(const PrintJob &) = delete;
    virtual ~PrintJob() = default;

    virtual TzuPrinting &Printing() = 0;
    /// Where the printed document lies; empty when it lies in no file.
    virtual QString FileName() const = 0;
    virtual PrintFeatures Features() const = 0;
    /// What suits the document while nothing is chosen.
    virtual PrintOptions StandardOptions() const { return {}; }
    virtual void Apply(const PrintOptions &options) = 0;
};

} // namespace korvane::planner
