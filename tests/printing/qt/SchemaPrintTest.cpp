#include "PrintedPages.h"
#include "printing/qt/zuSchemaPrinting.h"
#include "schema/qt/zuSchema.h"

#include <gmock/gmock.h>

namespace korvane {
namespace {

constexpr TDateTime kDay = 40000;
constexpr int kColumnWidth = 100;

/// Notes where it is asked to draw its band.
class TBandPrinting : public TzuSchemaPrinting
{
public:
    explicit TBandPrinting(TzuSchema &schema)
        : TzuSchemaPrinting(schema)
        , m_schema(schema)
    {
    }

    int Thickness = 30;
    std::vector<std::tuple<int, int, int>> Bands; ///< first shown column, width, height

protected:
    int BandThickness() const override { return Thickness; }
    void PaintBand(TCanvas &canvas, TSize size) override
    {
        Bands.emplace_back(m_schema.Columns().TopLeftCol(), size.Width, size.Height);
        canvas.FillRect({0, 0, size.Width, size.Height}, clRed);
    }

private:
    TzuSchema &m_schema;
};

struct SchemaPrint : testing::Test
{
    TzuSchema Schema;

    SchemaPrint()
    {
        Schema.resize(400, 300);
        Schema.DateScaler().SetRange(kDay, kDay + 1);
        for (int i = 0; i < 4; ++i) {
            Schema.AddColumn();
            Schema.Columns().SetColumnSize(false, i, kColumnWidth);
        }
    }
    void AddTime(TDateTime start, TDateTime stop)
    {
        TzuDataEntity_SchemaTime *time = Schema.AddSchemaTime(0);
        time->SetStartDateTime(kDay + start);
        time->SetStopDateTime(kDay + stop);
    }
};

TEST_F(SchemaPrint, ABandStandsBelowTheCaptionsOfItsColumns)
{
    for (const bool flip : {false, true}) {
        Schema.SetFlipView(flip);
        TBandPrinting printing(Schema);
        printing.Scaling().Percent = 100;
        printing.Scaling().Fit = TPrintFit::pfPercent;
        SetBareSheet(printing, 300, flip ? 100 : 400);
        printing.LayOut();
        PageImage(printing, 0);
        ASSERT_EQ(printing.Bands.size(), 1U) << flip;
        const auto &[first, width, height] = printing.Bands.front();
        EXPECT_EQ(first, 0);
        EXPECT_EQ(flip ? width : height, 30);
        EXPECT_EQ((flip ? height : width) % (flip ? 19 : kColumnWidth), 0) << "whole columns";
        printing.Thickness = 0;
        printing.LayOut();
        printing.Bands.clear();
        PageImage(printing, 0);
        EXPECT_TRUE(printing.Bands.empty());
    }
}

/// Whatever the axis on screen shows; and there all is as before.
TEST_F(SchemaPrint, TimesThatOverlapInThePrintedTimeStandSideBySide)
{
    AddTime(1.2, 1.5);
    AddTime(1.4, 1.7);
    AddTime(0.2, 0.5);
    AddTime(0.4, 0.7);
    AddTime(0.45, 0.6);
    Schema.SetLeastSubColWidth(60);
    Schema.UpdateSubColumnsNow();
    const int width = Schema.Columns().GetCol(0).SavedWidth();
    std::vector<int> widths;
    Schema.OnDrawTimeContent = [&](auto *, auto *, const TRect &rect, TCanvas &) {
        widths.push_back(rect.Width());
    };
    TzuSchemaPrinting printing(Schema);
    printing.SetRange(kDay + 1, kDay + 2);
    SetBareSheet(printing, 600, 900);
    printing.LayOut();
    PageImage(printing, 0);
    EXPECT_THAT(widths, testing::ElementsAre(width / 2 - 1, width / 2 - 1));
    EXPECT_EQ(Schema.Columns().GetCol(0).SubColCount(), 3);
    EXPECT_EQ(Schema.Columns().GetCol(0).SavedWidth(), width);
}

} // namespace
} // namespace korvane
