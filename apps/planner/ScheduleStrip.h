// The all-day events of some days.
#pragma once

#include "ScheduleBoard.h"

class QScrollBar;

namespace korvane::planner {

class ScheduleView;

/// Shows each all-day event of a page once, across the days that it lasts, in as many rows as there
/// are at the same time. Rows that have no room are scrolled to, by the wheel too. Its days lie
/// under those of the view that it stands in; it takes its page from there.
class ScheduleStrip : public ScheduleBoard
{
    Q_OBJECT

public:
    explicit ScheduleStrip(ScheduleView &view);
    ~ScheduleStrip() override;

    const SchedulePage &Page() const override;
    /// The view's page anew; with what was selected.
    void Fill(const std::set<Key> &selected);
    using ScheduleBoard::Key;
    using ScheduleBoard::SelectedKeys;
    /// That all rows need, in pixels, and that one of them does.
    int HeightOfRows() const;
    int LeastHeight() const;
    QString Caption() const;
    /// Takes over where the view has its days.
    void Follow();
    void ApplyLooks(int axisWidth);
    /// Brings the active event into view.
    void ShowActive();
    void SchemaPaint() override;
    /// Level with the columns of the days, also where these are not all of one width.
    int DateToPixel(TDateTime date) const override;
    TDateTime PixelToDate(int pixel) const override;
    /// Draws all rows, and as many days from the view's first shown one as have room.
    void PaintDays(TCanvas &canvas, TSize size);

protected:
    ScheduleMove MoveOf(const TzuDataEntity_SchemaTime &time, const AgendaRange &times,
                        int col) const override;
    std::optional<NewPlace> PlaceOfPress() override;
    std::optional<NewPlace> PlaceOfBand(QPoint from, QPoint to) override;
    QString TextOf(const NewPlace &place) const override;
    bool IsPale(const ScheduleBlock & /*block*/) const override { return false; }
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void TakeDays();
    void PlaceScrollBar();
    int RowHeight() const;
    TRect RectOfRow(const TzuDataEntity_SchemaTime &time) const;
    int DayOfAxis(TDateTime date) const;
    TDateTime MidnightOf(int day) const;
    const ScheduleBlock &LastBlockOf(int first) const;
    TPixelSpan PixelsOf(const TzuDataEntity_SchemaTime &time) const;
    void DrawDays(TCanvas &canvas, TSize size);

    ScheduleView &m_view;
    QScrollBar *m_rows;
};

} // namespace korvane::planner
