// Blocks of time in a schedule view, and what the user wants of them.
#pragma once

#include "ChartLooks.h"
#include "agenda/SchedulePage.h"
#include "schema/qt/zuSchema.h"

#include <set>
#include <tuple>

namespace korvane::planner {

/// So much of a colour over another one.
TColor Mixed(TColor color, TColor base, double share);

/// Draws blocks in calm colours of the palette, and turns what the user does with them into
/// signals: until the page is shown anew the blocks stand where they were put.
class ScheduleBoard : public TzuSchema
{
    Q_OBJECT

public:
    explicit ScheduleBoard(QWidget *parent = nullptr);
    ~ScheduleBoard() override;

    virtual const SchedulePage &Page() const = 0;
    /// Whether the user may change what has an occurrence.
    virtual void SetEditable(bool on) { m_isEditable = on; }
    bool IsEditable() const { return m_isEditable; }
    /// Blocks that are selected, by their indices.
    virtual std::vector<int> SelectedBlocks();
    /// Selects alone what takes place of some events, and shows it. Whether there is any.
    virtual bool SelectEvents(const std::vector<int> &events);

Q_SIGNALS:
    // What the user wants, sent when the gesture is over.
    void moved(const std::vector<korvane::planner::ScheduleMove> &moves);
    void copied(const std::vector<korvane::planner::ScheduleMove> &moves);
    void removeWanted(const std::vector<int> &blocks);
    void editWanted(int block);
    /// A new event, in a column; of whole days when the times are.
    void newWanted(int column, const korvane::planner::AgendaRange &times);

protected:
    struct NewPlace
    {
        int Column = 0;
        AgendaRange Times;
    };
    /// Tells one block of several with the same title.
    using Key = std::tuple<int, AgendaSeconds, AgendaSeconds, QString>;

    std::set<Key> SelectedKeys();
    void SelectKeys(const std::set<Key> &keys);
    /// What it means that a block's time lies there.
    virtual ScheduleMove MoveOf(const TzuDataEntity_SchemaTime &time, const AgendaRange &times,
                                int col) const
    {
        return {IndexOf(time), times, col};
    }
    /// Where the user wants a new event who has clicked twice, or drawn a rubber band.
    virtual std::optional<NewPlace> PlaceOfPress() = 0;
    virtual std::optional<NewPlace> PlaceOfBand(QPoint from, QPoint to) = 0;
    /// The times of such an event, while it is drawn.
    virtual QString TextOf(const NewPlace &place) const = 0;
    /// All-day events that lie behind others.
    virtual bool IsPale(const ScheduleBlock &block) const = 0;

    const ChartLooks &Looks() const { return m_looks; }
    void ApplyFonts();
    /// That a block needs for a line of text, in pixels.
    int TitleHeight() const;
    void DrawBlock(TzuSchema_ComBasic *schema, TzuDataEntity_SchemaTime *time, const TRect &rect,
                   TCanvas &canvas);
    int ClickedColumn() { return MouseColumn() != nullptr ? Columns().IndexOf(MouseColumn()) : -1; }
    const ScheduleBlock &BlockOf(const TzuDataEntity_SchemaTime &time) const
    {
        return Page().Blocks[static_cast<std::size_t>(IndexOf(time))];
    }
    static int IndexOf(const TzuDataEntity_SchemaTime &time)
    {
        return static_cast<int>(reinterpret_cast<std::uintptr_t>(time.GetUserReference())) - 1;
    }
    /// Adds a time for a block.
    TzuDataEntity_SchemaTime &AddTime(int layer, int block, int col, const AgendaRange &times);
    template <typename Visit>
    void ForEachTime(const Visit &visit)
    {
        for (int list = 0; list < DataLists().Count(); ++list) {
            TzuDataList &times = *DataLists().GetDataList(list);
            for (int i = 0; i < times.Count(); ++i) {
                visit(DataEntity_Schema(*times.GetItems(i)));
            }
        }
    }
    /// Later, when the times are not in use any more.
    template <typename Call>
    void Later(const Call &call)
    {
        QMetaObject::invokeMethod(this, call, Qt::QueuedConnection);
    }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void ServeUser();
    void WantNew(const std::optional<NewPlace> &place);
    std::vector<ScheduleMove> Moves();
    void DrawTexts(const ScheduleBlock &block, const TRect &rect, TCanvas &canvas);

    bool m_isEditable = false;
    std::vector<ScheduleMove> m_copies; ///< of the gesture that goes on
    QPoint m_pressedAt;
    bool m_pressedBeside = false; ///< beside all blocks
    ChartLooks m_looks;
    TFont m_titleFont;
    TFont m_detailFont;
};

} // namespace korvane::planner
