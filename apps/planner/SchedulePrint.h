// Pages of calendars and programmes on paper.
#pragma once

#include "PrintJob.h"
#include "ScheduleView.h"
#include "printing/qt/zuSchemaPrinting.h"

namespace korvane::planner {

/// Prints the all-day events of a page in a band of their own below the captions, as they stand on
/// screen.
class ScheduleBandPrinting : public TzuSchemaPrinting
{
public:
    /// `selected` are the indexes of selected blocks.
    ScheduleBandPrinting(ScheduleView &view, const std::vector<int> &selected);

protected:
    std::vector<bool> SelectedColumns() const override;
    int BandThickness() const override;
    QString BandCaption() const override;
    void PaintBand(TCanvas &canvas, TSize size) override;

private:
    ScheduleView &m_view;
    std::vector<int> m_selected;
};

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
    void SetHours(QTime from, QTime to);

    QString m_fileName;
    ScheduleView m_view; ///< never seen
    ScheduleBandPrinting m_printing;
};

} // namespace korvane::planner
