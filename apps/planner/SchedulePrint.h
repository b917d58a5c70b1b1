// Pages of calendars and programmes on paper.
#pragma once

#include "PrintJob.h"
#include "ScheduleView.h"
#include "printing/qt/zuSchemaPrinting.h"

namespace korvane::planner {

/// The print of one page, in colours for white paper whatever the theme on screen.
class SchedulePrint : public PrintJob
{
public:
    /// `name` is that of the calendar or conference, `selected` the indexes of selected blocks.
    SchedulePrint(SchedulePage page, const QString &name, const QString &fileName,
                  const std::vector<int> &selected = {});

    TzuSchemaPrinting &Printing() override { return m_printing; }
    QString FileName() const override { return m_fileName; }
    PrintFeatures Features() const override;
    /// As high as a page, as wide as its columns need.
    PrintOptions StandardOptions() const override;
    void Apply(const PrintOptions &options) override;

private:
    QString m_fileName;
    ScheduleView m_view; ///< never seen
    TzuSchemaPrinting m_printing;
};

} // namespace korvane::planner
