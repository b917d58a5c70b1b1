// A page of a calendar or a programme in a schedule view.
#pragma once

#include "ChartLooks.h"
#include "agenda/SchedulePage.h"
#include "schema/qt/zuSchema.h"

namespace korvane::planner {

/// Shows one page at a time, in calm colours of the palette. All-day events are pale blocks as high
/// as the view, below the others.
class ScheduleView : public TzuSchema
{
    Q_OBJECT

public:
    explicit ScheduleView(QWidget *parent = nullptr);
    ~ScheduleView() override;

    void Show(SchedulePage page);
    const SchedulePage &Page() const { return m_page; }
    /// Whether times that overlap stand side by side by now; that is worked out in the background.
    bool IsSettled();

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void ApplyLooks();
    void SizeColumns();
    const ScheduleBlock &BlockOf(const TzuDataEntity_SchemaTime &time) const;
    void DrawBlock(TzuSchema_ComBasic *schema, TzuDataEntity_SchemaTime *time, const TRect &rect,
                   TCanvas &canvas);
    void DrawTexts(const ScheduleBlock &block, const TRect &rect, TCanvas &canvas);

    SchedulePage m_page;
    ChartLooks m_looks;
    TFont m_titleFont;
    TFont m_detailFont;
};

} // namespace korvane::planner
