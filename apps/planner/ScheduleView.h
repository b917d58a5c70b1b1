// A page of a calendar or a programme in a schedule view.
#pragma once

#include "ChartLooks.h"
#include "agenda/SchedulePage.h"
#include "schema/qt/zuSchema.h"

namespace korvane::planner {

/// Shows one page at a time, in calm colours of the palette. All-day events are pale blocks as high
/// as the view, below the others. Moves to another column go to its day.
class ScheduleView : public TzuSchema
{
    Q_OBJECT

public:
    explicit ScheduleView(QWidget *parent = nullptr);
    ~ScheduleView() override;

    /// Another page, from its beginning.
    void Show(SchedulePage page);
    /// The same page after a change: what is shown of it stays, and so does the selection.
    void Update(SchedulePage page);
    const SchedulePage &Page() const { return m_page; }
    /// Whether the user may move and stretch what has an occurrence. What comes of it is up to
    /// whoever shows the page: until the next Show or Update the blocks stand where they were put.
    void SetEditable(bool on) { m_isEditable = on; }
    /// Blocks that are selected, by their indices.
    std::vector<int> SelectedBlocks();
    /// The same with those that cannot be edited.
    std::vector<int> SelectedOfAll();
    /// Selects these alone.
    void SelectBlocks(const std::vector<int> &blocks);
    /// Selects alone what takes place of some events, and shows it.
    void SelectEvents(const std::vector<int> &events);
    /// The column that was clicked last, or that of the active block, or the first one.
    int TargetColumn();
    /// An all-day event is stretched by its first and last day, not within them.
    bool InGrowArea(TzuDataEntity_SchemaTime &time, int x, int y, TRect &rect,
                    bool &atStart) const override;

Q_SIGNALS:
    // What the user wants, sent when the gesture is over.
    void moved(const std::vector<korvane::planner::ScheduleMove> &moves);
    void copied(const std::vector<korvane::planner::ScheduleMove> &moves);
    void removeWanted(const std::vector<int> &blocks);
    void editWanted(int block);
    /// A new event, in an empty stretch of a column.
    void newWanted(int column, const korvane::planner::AgendaRange &times);

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void ServeUser();
    void NoteRelease(int x, int y);
    int ClickedColumn() { return MouseColumn() != nullptr ? Columns().IndexOf(MouseColumn()) : -1; }
    void ApplyLooks();
    void SizeColumns();
    void Fill(SchedulePage page);
    AgendaSeconds FirstDate() const
    {
        return m_page.Columns.empty() ? 0 : m_page.Columns.front().BaseDate;
    }
    std::vector<ScheduleMove> Moves();
    template <typename Visit>
    void ForEachTime(const Visit &visit);
    const ScheduleBlock &BlockOf(const TzuDataEntity_SchemaTime &time) const;
    int IndexOf(const TzuDataEntity_SchemaTime &time) const
    {
        return static_cast<int>(&BlockOf(time) - m_page.Blocks.data());
    }
    /// Later, when the times are not in use any more.
    template <typename Signal>
    void Later(const Signal &signal)
    {
        QMetaObject::invokeMethod(this, signal, Qt::QueuedConnection);
    }
    void DrawBlock(TzuSchema_ComBasic *schema, TzuDataEntity_SchemaTime *time, const TRect &rect,
                   TCanvas &canvas);
    void DrawTexts(const ScheduleBlock &block, const TRect &rect, TCanvas &canvas);

    SchedulePage m_page;
    std::vector<ScheduleMove> m_copies; ///< of the gesture that goes on
    QPoint m_pressedAt;
    bool m_pressedBeside = false; ///< beside all blocks
    bool m_isEditable = false;
    ChartLooks m_looks;
    TFont m_titleFont;
    TFont m_detailFont;
};

} // namespace korvane::planner
