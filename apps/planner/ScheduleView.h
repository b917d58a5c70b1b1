// A page of a calendar or a programme in a schedule view.
#pragma once

#include "ScheduleBoard.h"

namespace korvane::planner {

class ScheduleStrip;
class StripEdge;

/// Shows one page at a time. Moves to another column go to its day.
///
/// All-day events of a page whose columns are days lie in a strip of their own below the captions,
/// across the days that they last; its lower edge is dragged, and clicked twice fits its rows
/// again. Elsewhere they are pale blocks as high as the view, below the others.
class ScheduleView : public ScheduleBoard
{
    Q_OBJECT

public:
    explicit ScheduleView(QWidget *parent = nullptr);
    ~ScheduleView() override;

    /// Another page, from its beginning.
    void Show(SchedulePage page);
    /// The next page has columns and strip as wide and as high as suits it, whatever the user has
    /// chosen before.
    void ForgetSizes();
    /// The same page after a change: what is shown of it stays, and so does the selection.
    void Update(SchedulePage page);
    const SchedulePage &Page() const override { return m_page; }
    /// Whether all-day events have their strip; false until set.
    void SetStrip(bool on) { m_wantsStrip = on; }
    /// Whether they have it on this page.
    bool HasStrip() const { return m_hasStrip; }
    ScheduleStrip &Strip() { return *m_strip; }
    void SetEditable(bool on) override;
    std::vector<int> SelectedBlocks() override;
    /// The same with those that cannot be edited.
    std::vector<int> SelectedOfAll();
    bool SelectEvents(const std::vector<int> &events) override;
    /// The column that was clicked last, or that of the active block, or the first one.
    int TargetColumn();
    /// As a full-height block an all-day event has no ends to stretch.
    bool InGrowArea(TzuDataEntity_SchemaTime &time, int x, int y, TRect &rect,
                    bool &atStart) const override;
    void SchemaPaint() override;

protected:
    std::optional<NewPlace> PlaceOfPress() override;
    std::optional<NewPlace> PlaceOfBand(QPoint from, QPoint to) override;
    QString TextOf(const NewPlace &place) const override;
    bool IsPale(const ScheduleBlock &block) const override { return block.IsAllDay; }
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void ApplyLooks();
    int LeastWidthOf(int column, int room) const;
    void SizeColumns();
    void FillStrip(const std::set<Key> &selected);
    void SizeStrip();
    void PlaceStrip();
    void KeepStripHeight(std::optional<int> height);
    void Fill(SchedulePage page);
    AgendaSeconds FirstDate() const
    {
        return m_page.Columns.empty() ? 0 : m_page.Columns.front().BaseDate;
    }

    SchedulePage m_page;
    ScheduleStrip *m_strip;
    StripEdge *m_edge;
    std::optional<int> m_stripHeight; ///< as the user wants it
    int m_userWidth = 0;              ///< of columns, once the user has sized one
    bool m_wantsStrip = false;
    bool m_hasStrip = false; ///< on this page
};

} // namespace korvane::planner
