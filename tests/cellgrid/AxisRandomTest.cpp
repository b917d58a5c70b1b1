#include "cellgrid/zuBabGridCell.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <numeric>
#include <random>
#include <set>
#include <vector>

namespace korvane::test {
namespace {

/// What the application knows of a row; the grid's items point at it.
struct Record : TObject
{
    int Size = 0; ///< as the axis should see it; 0 hidden
    bool Hidden = false;
};

/// An axis beside a plain vector of what it should hold, loaded or not.
class AxisModel
{
public:
    explicit AxisModel(unsigned seed)
        : m_random(seed)
    {
        m_grid.OnVirtualLoad = [this](TBabGridCell *, TAxisContentItem *item, bool) {
            Record *record = m_expected[static_cast<std::size_t>(item->ListIndex())];
            item->SetValue(record);
            record->Hidden = false; // which an unloaded row forgets
            record->Size = kDefault;
        };
        m_grid.OnCanUnload = [this](TBabGridCell *, TAxisContentItem *, bool, bool &can) {
            can = Below(10) != 0;
        };
        m_grid.OnVirtualUnLoad = [](TBabGridCell *, TAxisContentItem *item, bool, bool &) {
            auto *record = static_cast<Record *>(item->Value());
            record->Hidden = false;
            record->Size = kDefault;
        };
    }

    void Step()
    {
        const int count = m_rows.Count();
        switch (Below(13)) {
        case 0:
            m_rows.AddNew(NewRecord(count));
            break;
        case 1:
        case 2: {
            const int index = Below(count + 1);
            Record *record = NewRecord(-1);
            m_rows.EnsureLoadedItem(index); // before the model has it
            m_rows.EnsureLoadedItem(std::max(0, index - 1));
            m_rows.InsertNew(index, record);
            m_expected.insert(m_expected.begin() + index, record);
            break;
        }
        case 3:
            if (count > 0) {
                Move(Below(count), Below(count));
            }
            break;
        case 4:
        case 5:
            if (count > 0) {
                Drop(Below(count));
            }
            break;
        case 6:
            if (count > 0) {
                TAxisContentItem *item = m_rows.getAxisContentItem(Below(count));
                auto &record = static_cast<Record &>(*item->Value());
                record.Hidden = !record.Hidden;
                record.Size = record.Hidden ? 0 : item->GetUserSizeActive() ? 33 : kDefault;
                item->SetHide(record.Hidden);
            }
            break;
        case 7:
            if (count > 0) {
                TAxisContentItem *item = m_rows.getAxisContentItem(Below(count));
                auto &record = static_cast<Record &>(*item->Value());
                record.Size = record.Hidden ? 0 : 33;
                item->SetUserSize(33);
                item->SetUserSizeActive(true);
            }
            break;
        case 8:
            for (int i = Below(300); i > 0; --i) {
                NewRecord(static_cast<int>(m_expected.size()));
                m_rows.AddUnloaded(1);
            }
            break;
        case 9:
            m_rows.getAxisContentItem(Below(count + 1));
            break;
        case 10:
            m_rows.UnloadAll();
            break;
        case 11:
            m_rows.AddToVisible(*AnyLoaded());
            break;
        default:
            if (Below(60) == 0) {
                m_rows.Clear();
                m_expected.clear();
            }
        }
        if (m_rows.Count() == 0) {
            m_rows.AddNew(NewRecord(0));
        }
    }

    void Check()
    {
        ASSERT_EQ(m_rows.Count(), static_cast<int>(m_expected.size()));
        int hidden = 0;
        std::int64_t offset = 0;
        for (int index = 0; index < m_rows.Count(); ++index) {
            const Record *record = m_expected[static_cast<std::size_t>(index)];
            ASSERT_EQ(m_rows.OffsetOf(index), offset) << index;
            ASSERT_EQ(m_rows.SizeAt(index), record->Size) << index;
            if (record->Size > 0) {
                ASSERT_EQ(m_rows.IndexAt(offset), index);
                ASSERT_EQ(m_rows.IndexAt(offset + record->Size - 1), index);
            }
            offset += record->Size;
            hidden += record->Hidden ? 1 : 0;
            if (TAxisContentItem *item = m_rows.FindLoaded(index)) {
                ASSERT_EQ(item->Value(), record) << index;
                ASSERT_EQ(m_rows.IndexOf(*item), index);
                ASSERT_EQ(item->ListIndex(), index);
                ASSERT_EQ(item->GetHide(), record->Hidden);
            }
        }
        ASSERT_EQ(m_rows.TotalSize(), offset);
        ASSERT_EQ(m_rows.GetHiddenRowCount(), hidden);
        for (int k = 0; k < m_rows.VisibleCount(); ++k) {
            ASSERT_TRUE(m_rows.getVisibleAxisContentItem(k)->InVisibleList());
        }
    }

private:
    static constexpr int kDefault = TBabGridCell::kDefaultHeight;

    int Below(int bound) { return static_cast<int>(m_random() % static_cast<unsigned>(bound)); }
    /// Placed at the index unless that is -1.
    Record *NewRecord(int index)
    {
        Record *record = m_records.emplace_back(std::make_unique<Record>()).get();
        record->Size = kDefault;
        if (index >= 0) {
            m_expected.insert(m_expected.begin() + index, record);
        }
        return record;
    }
    void Move(int from, int to)
    {
        m_rows.getAxisContentItem(from);
        m_rows.getAxisContentItem(to);
        if (!m_rows.IsPresent(from) || std::abs(from - to) > 300) {
            return;
        }
        m_rows.Move(from, to);
        Record *record = m_expected[static_cast<std::size_t>(from)];
        m_expected.erase(m_expected.begin() + from);
        m_expected.insert(m_expected.begin() + to, record);
    }
    void Drop(int index)
    {
        m_rows.Drop(index);
        m_expected.erase(m_expected.begin() + index);
    }
    TAxisContentItem *AnyLoaded()
    {
        return m_rows.LoadedCount() > 0
                   ? m_rows.getLoadedAxisContentItem(Below(m_rows.LoadedCount()))
                   : m_rows.getAxisContentItem(0);
    }

    std::mt19937 m_random;
    std::vector<std::unique_ptr<Record>> m_records;
    std::vector<Record *> m_expected;
    TBabGridCellForViewer m_grid;
    TAxisContentList &m_rows = m_grid.Rows();
};

TEST(AxisRandom, AgreesWithAPlainVector)
{
    for (unsigned seed = 1; seed <= 6; ++seed) {
        SCOPED_TRACE(seed);
        AxisModel model(seed);
        for (int step = 0; step < 1500; ++step) {
            model.Step();
            if (step % 10 == 0) {
                model.Check();
                if (testing::Test::HasFatalFailure()) {
                    return;
                }
            }
        }
    }
}

TEST(AxisRandom, RunsAgreeWithAPlainVector)
{
    std::mt19937 random(5);
    const auto below = [&](int bound) {
        return static_cast<int>(random() % static_cast<unsigned>(bound));
    };
    TRunSequence runs(20);
    std::vector<int> expected;
    for (int step = 0; step < 20000; ++step) {
        const int size = static_cast<int>(expected.size());
        const int at = below(size + 1);
        const int count = below(std::max(1, std::min(8, size - at + 1)));
        const int value = below(4) - 1;
        switch (below(size > 400 ? 5 : 4)) {
        case 0:
            runs.Insert(at, 3, value);
            expected.insert(expected.begin() + at, 3, value);
            break;
        case 1:
        case 2:
            runs.Fill(at, count, value);
            std::fill_n(expected.begin() + at, count, value);
            break;
        case 3:
            if (size > 0) {
                const int from = below(size);
                const int to = below(size);
                runs.Move(from, to);
                const int moved = expected[static_cast<std::size_t>(from)];
                expected.erase(expected.begin() + from);
                expected.insert(expected.begin() + to, moved);
            }
            break;
        default:
            runs.Erase(at, count);
            expected.erase(expected.begin() + at, expected.begin() + at + count);
        }
        if (step % 100 != 0) {
            continue;
        }
        runs.SetDefault(below(3));
        int breaks = expected.empty() ? 0 : 1;
        std::int64_t offset = 0;
        for (int i = 0; i < static_cast<int>(expected.size()); ++i) {
            const int entry = expected[static_cast<std::size_t>(i)];
            ASSERT_EQ(runs.ValueAt(i), entry);
            ASSERT_EQ(runs.OffsetOf(i), offset);
            const int extent = entry < 0 ? runs.Default() : entry;
            if (extent > 0) {
                ASSERT_EQ(runs.IndexAt(offset), i);
            }
            offset += extent;
            breaks += i > 0 && entry != expected[static_cast<std::size_t>(i) - 1] ? 1 : 0;
        }
        ASSERT_EQ(runs.Total(), offset);
        ASSERT_EQ(runs.RunCount(), breaks); // equal neighbours are one run
    }
}

TEST(AxisRandom, SelectionAgreesWithASetOfCells)
{
    std::mt19937 random(7);
    const auto below = [&](int bound) {
        return static_cast<int>(random() % static_cast<unsigned>(bound));
    };
    using TRow = std::vector<bool>;
    std::vector<TRow> expected(30, TRow(8));
    TCellSelection selection;
    for (int step = 0; step < 4000; ++step) {
        const int rows = static_cast<int>(expected.size());
        const int columns = static_cast<int>(expected[0].size());
        const int row = below(rows);
        const int column = below(columns);
        const auto move = [](auto &sequence, int from, int to) {
            const auto first = sequence.begin();
            from < to ? std::rotate(first + from, first + from + 1, first + to + 1)
                      : std::rotate(first + to, first + from, first + from + 1);
        };
        switch (below(8)) {
        case 0:
        case 1:
        case 2: {
            const bool select = below(2) == 0;
            const TCellRange range{column, row, column + below(columns - column),
                                   row + below(rows - row)};
            select ? selection.Select(range) : selection.Deselect(range);
            for (int r = range.FirstRow; r <= range.LastRow; ++r) {
                for (int c = range.FirstColumn; c <= range.LastColumn; ++c) {
                    expected[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)] = select;
                }
            }
            break;
        }
        case 3:
            selection.RowsChanged(row, rows > 20 ? -1 : 1);
            rows > 20 ? void(expected.erase(expected.begin() + row))
                      : void(expected.insert(expected.begin() + row, TRow(expected[0].size())));
            break;
        case 4:
            if (columns > 5) {
                selection.ColumnsChanged(column, -1);
                for (TRow &each : expected) {
                    each.erase(each.begin() + column);
                }
            }
            break;
        case 5:
            if (columns < 9) {
                selection.ColumnsChanged(column, 1);
                for (TRow &each : expected) { // within a block the new column joins it
                    const bool joins = column > 0 && each[static_cast<std::size_t>(column) - 1]
                                       && each[static_cast<std::size_t>(column)];
                    each.insert(each.begin() + column, joins);
                }
            }
            break;
        case 6: {
            const int to = below(rows);
            selection.RowMoved(row, to);
            move(expected, row, to);
            break;
        }
        default: {
            const int to = below(columns);
            selection.ColumnMoved(column, to);
            for (TRow &each : expected) {
                move(each, column, to);
            }
        }
        }
        int selectedRows = 0;
        for (int r = 0; r < static_cast<int>(expected.size()); ++r) {
            const TRow &each = expected[static_cast<std::size_t>(r)];
            selectedRows += std::count(each.begin(), each.end(), true) > 0 ? 1 : 0;
            for (int c = 0; c < static_cast<int>(each.size()); ++c) {
                ASSERT_EQ(selection.IsSelected(c, r), each[static_cast<std::size_t>(c)])
                    << step << " column " << c << " row " << r;
            }
        }
        ASSERT_EQ(selection.RowCount(), selectedRows);
    }
}

TEST(AxisRandom, TenMillionRowsCostWhatOneCosts)
{
    TBabGridCellForViewer grid;
    grid.OnCanUnload = [](TBabGridCell *, TAxisContentItem *, bool, bool &can) { can = true; };
    TAxisContentList &rows = grid.Rows();
    rows.AddUnloaded(10'000'000);
    for (int index = 5; index < 10'000'000; index += 99'991) {
        TAxisContentItem *item = rows.getAxisContentItem(index);
        ASSERT_EQ(rows.IndexAt(rows.OffsetOf(index) + 3), index);
        ASSERT_EQ(rows.IndexOf(*item), index);
        ASSERT_LE(rows.LoadedCount(), 500);
    }
    grid.Selection().Select({0, 0, TCellSelection::kAllColumns, 9'999'999});
    EXPECT_EQ(grid.Selection().Ranges().size(), 1U);
}

} // namespace
} // namespace korvane::test
