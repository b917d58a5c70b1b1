#include "SchemaFixture.h"
#include "data/zuTimeDistinctGeneric.h"
#include "foundation/zuDateUtils.h"
#include "support/WaitUntil.h"

#include <random>
#include <set>

namespace korvane {
namespace {

/// Notes the columns whose times it is asked about.
struct TCuriousSchema : test::TestSchema
{
    using test::TestSchema::TestSchema;

    bool IsVisible(TzuDataEntity_SchemaTime &time) const override
    {
        Asked.insert(time.Col());
        return test::TestSchema::IsVisible(time);
    }

    mutable std::set<int> Asked;
};

/// Forty columns of which three and a part are in view, two data lists.
struct SchemaSubCols : testing::Test
{
    static constexpr int kColumns = 40;

    test::TDayAxis Day;
    test::FakeSchemaHost Host{*Day.Axis};
    TCuriousSchema Schema{Host};
    std::mt19937 Random{7};
    std::vector<TzuDataEntity_SchemaTime *> Times;

    SchemaSubCols()
    {
        for (int col = 0; col < kColumns; ++col) {
            Schema.AddColumn();
        }
        for (int i = 0; i < 300; ++i) {
            AddTime();
        }
    }

    int Any(int count) { return static_cast<int>(Random() % static_cast<unsigned>(count)); }
    /// Within three days, of which the axis shows one.
    TDateTime AnyTime() { return (Any(3 * 24 * 60) - 24 * 60) * test::kMinuteLength; }
    void AddTime()
    {
        Times.push_back(Schema.AddSchemaTime(Any(2)));
        Times.back()->SetCol(Any(kColumns + 2) - 1);
        Times.back()->SetStartDateTime(AnyTime());
        Times.back()->SetStopDateTime(Times.back()->GetStartDateTime() + 0.1 * Any(4));
    }
    void ChangeSomething()
    {
        const auto which = static_cast<std::size_t>(Any(static_cast<int>(Times.size())));
        TzuDataEntity_SchemaTime &time = *Times[which];
        switch (Any(9)) {
        case 0:
            return time.SetCol(Any(kColumns));
        case 1:
            return time.SetStartDateTime(AnyTime());
        case 2:
            return time.SetStopDateTime(time.GetStartDateTime() + 0.2);
        case 3:
            return time.SetVisible(!time.GetVisible());
        case 4:
            return AddTime();
        case 5:
            Times.erase(Times.begin() + static_cast<std::ptrdiff_t>(which));
            return Schema.RemoveSchemaTime(&time);
        case 6:
            Day.Axis->SetRange(0.1 * Any(10) - 0.5, 0.1 * Any(10) + 0.6);
            return Schema.ScaleChanged();
        case 7:
            Schema.Columns().GetCol(Any(kColumns)).BaseDate = 0.25 * Any(3);
            return;
        default:
            return Schema.Columns().SetTopLeftCol(Any(kColumns));
        }
    }

    /// The times whose sub-column is not what comes out when all are separated in one go, and the
    /// columns with another number of them.
    int Differences()
    {
        TDistinctTimeHolderList holders;
        const bool oneGroup = Schema.CollisionDetectBetweenDataList();
        for (int list = 0; list < Schema.DataLists().Count(); ++list) {
            for (int i = 0; i < Schema.DataLists().GetDataList(list)->Count(); ++i) {
                auto &time = DataEntity_Schema(*Schema.DataLists().GetDataList(list)->GetItems(i));
                if (Schema.IsVisible(time)) {
                    const std::string key = std::to_string(list) + '*' + std::to_string(time.Col());
                    const TDateTime start = time.GetStartDateTime();
                    const bool isMoment = time.GetStopDateTime() <= start; // drawn 5 pixels long
                    const TDateTime stop = isMoment ? start + Host.Scaler().PixelToDate(5)
                                                          - Host.Scaler().PixelToDate(0)
                                                    : time.GetStopDateTime();
                    holders.Add(NearestSecond(start), NearestSecond(stop), oneGroup ? "" : key,
                                &time);
                }
            }
        }
        TTimeDistinctGeneric(holders).ResolveConflicts();
        std::vector<int> counts(kColumns, 1);
        int differences = 0;
        for (int i = 0; i < holders.Count(); ++i) {
            const TDistinctTimeHolder &holder = holders.Get(i);
            const auto &time = DataEntity_Schema(*holder.Reference);
            int &count = counts[static_cast<std::size_t>(time.Col())];
            count = std::max(count, holder.SubCol);
            differences += time.InSubCol() != (holder.SubCol != 0)
                           || (time.InSubCol() && time.SubCol() != holder.SubCol - 1);
        }
        for (int col = 0; col < kColumns; ++col) {
            differences +=
                Schema.Columns().GetCol(col).SubColCount() != counts[static_cast<std::size_t>(col)];
        }
        return differences;
    }
    bool Settles()
    {
        TDoLater::DoAllNow();
        return test::WaitUntil([this] { return Differences() == 0; });
    }
};

TEST_F(SchemaSubCols, WhoeverAsksGetsWhatSeparatingAllGives)
{
    for (int round = 0; round < 400; ++round) {
        if (round % 100 == 50) {
            Schema.SetCollisionDetectBetweenDataList(!Schema.CollisionDetectBetweenDataList());
        }
        for (int changes = Any(4); changes >= 0; --changes) {
            ChangeSomething();
            if (Any(3) == 0) { // a look before the change has been taken up must not spoil it
                Schema.SchemaPaint();
            }
        }
        ASSERT_TRUE(Settles()) << "round " << round;
    }
}

TEST_F(SchemaSubCols, OnlyColumnsThatSomebodyLooksAtAreWorkedOut)
{
    ASSERT_TRUE(Settles());
    const auto askedBy = [this](const auto &step) {
        Schema.Asked.clear();
        step();
        return Schema.Asked;
    };
    const auto settle = [this] { TDoLater::DoAllNow(); };
    using testing::AllOf;
    using testing::Each;
    using testing::ElementsAre;
    using testing::Ge;
    using testing::IsEmpty;
    using testing::Le;
    using testing::Not;
    const auto isIn = [](int from, int to) {
        return AllOf(Not(IsEmpty()), Each(AllOf(Ge(from), Le(to))));
    };
    const auto look = [this] { (void)Schema.Columns().GetCol(20).SubColCount(); };
    Schema.ScaleChanged();
    EXPECT_THAT(askedBy(settle), isIn(0, 4)) << "400 pixels hold three columns and a part";
    EXPECT_THAT(askedBy(look), ElementsAre(20));
    EXPECT_THAT(askedBy(look), IsEmpty());
    Schema.Columns().SetTopLeftCol(30);
    EXPECT_THAT(askedBy([this] { Schema.SchemaPaint(); }), isIn(29, 34));
    for (TzuDataEntity_SchemaTime *time : {Times[0], Times[1]}) { // which need sub-columns there
        time->SetCol(31);
        time->SetStartDateTime(0.3);
        time->SetStopDateTime(0.6);
    }
    ASSERT_TRUE(Settles());
    Times[0]->SetCol(32);
    EXPECT_THAT(askedBy(settle), ElementsAre(31, 32)) << "the others in view have not changed";
}

TEST_F(SchemaSubCols, ColumnsWidenAsTheyComeIntoView)
{
    Schema.SetLeastSubColWidth(100);
    ASSERT_TRUE(Settles());
    for (int col = 0; col < kColumns; ++col) {
        const auto &column = Schema.Columns().GetCol(col);
        EXPECT_EQ(column.SavedWidth(), std::max(120, 100 * column.SubColCount())) << col;
    }
    // No column is wider than all that is seen, until there is more to see.
    Schema.SetLeastSubColWidth(300);
    TzuDataEntity_SchemaColumn &wide = Schema.Columns().GetCol(31);
    for (int i = 0; i < 3; ++i) {
        Schema.AddSchemaTime(0)->SetCol(31);
    }
    Schema.UpdateSubColumnsNow();
    ASSERT_GE(wide.SubColCount(), 3);
    EXPECT_EQ(wide.SavedWidth(), 400);
    Host.Area.Width = 800;
    Schema.UpdatePartSize();
    EXPECT_EQ(wide.SavedWidth(), 800);
}

} // namespace
} // namespace korvane
