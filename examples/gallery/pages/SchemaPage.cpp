// The schedule view: rooms as columns, talks as times, overlapping ones side by side.
#include "Pages.h"
#include "schema/qt/zuSchema.h"

#include <QHBoxLayout>

#include <string>

using namespace korvane;

namespace {

constexpr TDateTime kHour = 1.0 / 24;
constexpr TDateTime kDay = 45000; // 2023-03-15

constexpr TColor kSlate = Rgb(0x5B, 0x7D, 0xB1);
constexpr TColor kLeaf = Rgb(0x7F, 0xB0, 0x69);
constexpr TColor kSand = Rgb(0xE0, 0xB0, 0x5C);
constexpr TColor kBrick = Rgb(0xC9, 0x6A, 0x5A);

struct TTalk
{
    int Room;
    double From; ///< hours of the day
    double To;
    const char *Title;
    TColor Color;
};

constexpr TTalk kTalks[] = {
    {0, 9, 10, "Opening", kSlate},           {0, 10.5, 12, "Keynote", kSlate},
    {0, 13, 14.5, "Panel", kLeaf},           {0, 15, 16, "Closing", kSlate},
    {1, 10.5, 11.5, "Tutorial", kSand},      {1, 11, 12.5, "Its repetition", kSand},
    {1, 13, 15, "Workshop", kLeaf},          {1, 13.5, 14.5, "Questions", kBrick},
    {1, 14.25, 16, "Hands on", kSand},       {2, 10.5, 11.25, "Short talks", kBrick},
    {2, 11.5, 12.5, "Demonstration", kLeaf}, {2, 13, 13.5, "Poster session", kSand},
    {2, 14, 16.5, "Hackathon", kBrick},
};

/// How a calm look is set: by colours of the palette, which follow light and dark.
void LookCalm(TzuSchema &schema)
{
    schema.SetSchemaColor(clWindow);
    schema.SetSchemaPyjamasColor(clBtnFace);
    schema.SetDrawShortLines(true);
    schema.SetLineColor(clBtnShadow);
    schema.SetShortLineColor(clBtnFace);
    for (int style = 1; style <= 3; ++style) {
        TFont font = schema.TextFont(style);
        font.Color = clBlack; // times are light in dark palettes, too
        font.Bold = style == 2;
        schema.SetTextFont(style, font);
    }
}

void Fill(TzuSchema &schema)
{
    schema.SetScalerStart(kDay + 8.5 * kHour);
    schema.SetScalerStop(kDay + 17 * kHour);
    schema.SetScalerDateFormat(QStringLiteral("d MMM"));
    schema.SetScalerTimeFormat(QStringLiteral("hh:nn"));
    for (const char *room : {"Auditorium", "Seminar room", "Garden terrace, in the old orangery"}) {
        if (TzuDataEntity_SchemaColumn *column = schema.AddColumn()) {
            column->SetText(room);
        }
    }
    for (const TTalk &talk : kTalks) {
        TzuDataEntity_SchemaTime *time = schema.AddSchemaTime(0);
        time->SetCol(talk.Room);
        time->SetStartDateTime(kDay + talk.From * kHour);
        time->SetStopDateTime(kDay + talk.To * kHour);
        time->SetColor(talk.Color);
        time->SetNearMargin(2);
        time->SetFarMargin(2);
        time->AddText(talk.Title, 4, 3, 2);
    }
    schema.SetSubColsInListOrder(true);
    schema.UpdateSubColumnsNow(); // or soon, in the background
}

} // namespace

QWidget *CreateSchemaPage()
{
    auto *page = new QWidget;
    auto *layout = new QHBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const bool flip : {false, true}) {
        auto *schema = new TzuSchema;
        Fill(*schema);
        LookCalm(*schema);
        if (flip) {
            schema->SetFlipView(true);
            TSchemaPartSizes sizes = schema->PartSizes();
            sizes.FlippedHeaderWidth = 110;
            schema->SetPartSizes(sizes);
            schema->Columns().FlippedHeaderResize(0, 90);
        } else {
            schema->Columns().HeaderControlSectionResize(0, 150);
            schema->SetLeastSubColWidth(78); // for the captions of overlapping times
        }
        layout->addWidget(schema);
    }
    return page;
}
