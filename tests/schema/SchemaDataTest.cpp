#include "SchemaFixture.h"

#include <cmath>

namespace korvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct SchemaData : test::TSchemaFixture
{
    int Pushes = 0;

    SchemaData()
    {
        Schema.OnValueChanged_SchemaTime = [this](TObject *, TzuDataEntity *) { ++Pushes; };
    }
};

TEST_F(SchemaData, AddingATimeCreatesTheMissingDataLists)
{
    auto *time = Schema.AddSchemaTime(3);
    EXPECT_EQ(Schema.DataLists().Count(), 4);
    EXPECT_EQ(time->GetDataList(), Schema.DataLists().GetDataList(3));
    EXPECT_EQ(time->Color(), clWhite);
    EXPECT_EQ(time->FrameColor(), clBlack);
    EXPECT_THAT(time->Texts(), IsEmpty());
    EXPECT_TRUE(time->GetCanEdit());
    EXPECT_THROW(Schema.AddSchemaTime(-1), std::out_of_range);
}

TEST_F(SchemaData, SettersAnnounceOnlyChanges)
{
    auto *time = AddTime(1, 60, 90);
    time->SetInSubCol(true);
    Pushes = 0;
    time->SetCol(1);
    time->SetStartDateTime(60 * test::kMinuteLength);
    time->SetStopDateTime(90 * test::kMinuteLength);
    EXPECT_EQ(Pushes, 0);
    EXPECT_TRUE(time->InSubCol());
    time->SetStartDateTime(0.5);
    EXPECT_EQ(Pushes, 1);
    EXPECT_TRUE(time->InSubCol());
    time->SetCol(2);
    EXPECT_EQ(Pushes, 2);
    EXPECT_FALSE(time->InSubCol());
}

TEST_F(SchemaData, TimesAreRelativeToTheBaseDateOfTheirColumn)
{
    Schema.Columns().GetCol(1).BaseDate = 40000;
    auto *time = Schema.AddSchemaTime(0);
    time->SetStartDateTime(40000.25);
    time->SetStopDateTime(40000.75);
    for (const int col : {1, -1, 3}) {
        time->SetCol(col);
        const auto place = Schema.GetStartStopDateAndCol(*time);
        EXPECT_EQ(place.Start, col == 1 ? 0.25 : 0) << col;
        EXPECT_EQ(place.Stop, col == 1 ? 0.75 : 0) << col;
        EXPECT_EQ(place.Col, col);
        EXPECT_EQ(Schema.IsVisible(*time), col == 1);
        EXPECT_EQ(Schema.RectFromDataEntity(*time).has_value(), col == 1);
    }
}

TEST_F(SchemaData, TextsAreAlteredByIndex)
{
    auto *time = Schema.AddSchemaTime(0);
    time->AddText("a", 1, 2, 3);
    time->AddText("b", 0, 0, 0);
    for (const int index : {-1, 2, 1}) {
        time->AlterText(index, "c", 5, 6, 1);
    }
    ASSERT_EQ(time->Texts().size(), 2U);
    EXPECT_EQ(time->Texts()[0].Text(), "a");
    EXPECT_EQ(time->Texts()[1].Text(), "c");
    EXPECT_EQ(time->Texts()[1].Pos(), (TPoint{5, 6}));
}

TEST_F(SchemaData, AColumnOwnsItsDataObject)
{
    struct TCounted : TObject
    {
        explicit TCounted(int &count)
            : Count(count)
        {
            ++Count;
        }
        ~TCounted() override { --Count; }
        int &Count;
    };
    int alive = 0;
    Schema.OnInitColumnDataObject = [&](TzuSchema_ComBasic *,
                                        TzuDataEntity_SchemaColumn *) -> TObject * {
        return new TCounted(alive);
    };
    auto *column = Schema.AddColumn();
    EXPECT_NE(column->DataObject(), nullptr);
    EXPECT_EQ(alive, 1);
    Schema.RemoveColumn(column);
    EXPECT_EQ(alive, 0);
    EXPECT_EQ(Schema.Columns().Count(), 3);
}

TEST_F(SchemaData, NothingIsKeptOfATimeThatIsGone)
{
    auto *removed = AddTime(0, 60, 90);
    auto *unloaded = AddTime(0, 70, 100);
    auto *destroyed = AddTime(0, 80, 110);
    Schema.SetActiveDataEntity(removed);
    Schema.OnDeleteItem_SchemaTime = [this](TObject *, TzuDataEntity *item) {
        Schema.SetActiveDataEntity(&DataEntity_Schema(*item)); // too late
    };
    Schema.RemoveSchemaTime(removed);
    EXPECT_EQ(Schema.GetActiveDataEntity(), nullptr);
    Schema.SetActiveDataEntity(destroyed);
    delete destroyed;
    EXPECT_EQ(Schema.GetActiveDataEntity(), nullptr);
    EXPECT_THAT(Schema.TimesIn({0, 0, 400, 400}), ElementsAre(unloaded));
    Schema.SetActiveDataEntity(unloaded);
    Schema.DataLists().GetDataList(0)->Unload(0, TBlockEnd::Back);
    EXPECT_EQ(Schema.GetActiveDataEntity(), nullptr);
    EXPECT_THAT(Schema.TimesIn({0, 0, 400, 400}), ElementsAre(testing::Ne(nullptr)))
        << "painting loads the item again";
}

TEST_F(SchemaData, FindsATimeByItsUserReference)
{
    int first = 0;
    auto *time = AddTime(0, 0, 1, 2);
    AddTime(0, 0, 1);
    time->SetUserReference(&first);
    EXPECT_EQ(Schema.FindSchemaTimeObjectFromUserReference(&first), time);
    EXPECT_EQ(Schema.FindSchemaTimeObjectFromUserReference(&Schema), nullptr);
}

TEST_F(SchemaData, ColumnsAreResizedAllAtOnceOrAlone)
{
    auto &columns = Schema.Columns();
    const auto sizes = [&](bool flip) {
        std::vector<int> result;
        for (int i = 0; i < columns.Count(); ++i) {
            result.push_back(columns.GetCol(i).GetWidth_FW(flip));
        }
        return result;
    };
    columns.HeaderControlSectionResize(1, 3);
    EXPECT_THAT(sizes(false), ElementsAre(7, 7, 7));
    EXPECT_EQ(columns.DefaultWidth(), 7);
    EXPECT_THAT(sizes(true), ElementsAre(18, 18, 18));
    Schema.SetResizeAllCol(false);
    columns.HeaderControlSectionResize(1, 50);
    EXPECT_THAT(sizes(false), ElementsAre(7, 50, 7));

    Schema.SetResizeAllCol(true);
    std::vector<int> current;
    Schema.OnUserDecideColSize = [&](TzuSchema_ComBasic *, TzuDataEntity_SchemaColumn *initiating,
                                     TzuDataEntity_SchemaColumn *column, int size, int &newSize) {
        EXPECT_EQ(initiating, &columns.GetCol(2));
        current.push_back(size);
        newSize = column == initiating ? newSize : size + 1;
    };
    columns.HeaderControlSectionResize(2, 90);
    EXPECT_THAT(current, ElementsAre(7, 50, 7));
    EXPECT_THAT(sizes(false), ElementsAre(8, 51, 90));
    Schema.OnUserDecideColSize = {};
    Schema.SetFlipView(true);
    columns.FlippedHeaderResize(0, 30);
    EXPECT_THAT(sizes(true), ElementsAre(30, 30, 30));
    EXPECT_THAT(sizes(false), ElementsAre(8, 51, 90));
}

TEST_F(SchemaData, CaptionsComeFromTheColumnOrTheHandler)
{
    auto &columns = Schema.Columns();
    EXPECT_EQ(columns.HeaderFromColumn(1), "Column 1");
    EXPECT_EQ(columns.HeaderFromColumn(3), "???");
    Schema.OnHeaderFromColumn = [](int index, std::string &text) {
        text += " (" + std::to_string(index) + ")";
    };
    EXPECT_EQ(columns.HeaderFromColumn(1), "Column 1 (1)");
    // Six pixels a letter, and four of margin.
    EXPECT_TRUE(columns.WillFit(std::string(19, 'x'), 0));
    EXPECT_FALSE(columns.WillFit(std::string(20, 'x'), 0));
}

TEST_F(SchemaData, PartSizesAreThoseOfTheScalerInEitherView)
{
    const auto settle = [] { TDoLater::DoAllNow(); };
    EXPECT_EQ(Schema.GetScalerWidth(), 50);
    Schema.SetScalerWidth(64);
    Schema.SetScalerHeight(Host.Whole.Height - 30);
    settle();
    EXPECT_EQ(Schema.Parts().Scaler, (TRect{0, 30, 64, 1460}));
    EXPECT_EQ(Schema.Parts().Header, (TRect{64, 0, 450, 30}));
    EXPECT_EQ(Schema.Parts().Area, (TRect{64, 30, 450, 1460}));
    EXPECT_EQ(Schema.Parts().Sizer, (TRect{61, 27, 66, 32}));
    Schema.SetFlipView(true);
    EXPECT_TRUE(Day.Axis->Horizontal());
    EXPECT_EQ(Schema.Parts().Scaler, (TRect{70, 0, 450, 50}));
    EXPECT_EQ(Schema.Parts().Header, (TRect{0, 50, 70, 1460}));
    Schema.SetScalerWidth(400);
    Schema.SetScalerHeight(40);
    settle();
    EXPECT_EQ(Schema.GetScalerWidth(), 400);
    EXPECT_EQ(Schema.Parts().Area, (TRect{50, 40, 450, 1460}));
    Schema.PartResize({-60, 5});
    EXPECT_EQ(Schema.PartSizes().FlippedHeaderWidth, 0) << "never below zero";
    EXPECT_EQ(Schema.PartSizes().ScalerHeight, 45);
    EXPECT_EQ(Schema.PartSizes().ScalerWidth, 64) << "of the other view";
}

} // namespace
} // namespace korvane
