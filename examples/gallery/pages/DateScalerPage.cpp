// The time axis at several zooms, with hidden and coloured times of day, marked positions, and
// upright.
#include "Pages.h"
#include "foundation/zuDateUtils.h"
#include "scaler/qt/zuScaler.h"

#include <QFormLayout>
#include <QHBoxLayout>

using namespace korvane;

namespace {

constexpr int kMarkedPixel = 260;

TzuDateScaler *AddScaler(QFormLayout &form, const QString &caption, TDateTime start, TDateTime days)
{
    auto *scaler = new TzuDateScaler;
    scaler->SetHorizontal(true);
    scaler->setFixedHeight(scaler->sizeHint().height());
    scaler->SetColor(clWindow);
    scaler->SetStart(start);
    scaler->SetStop(start + days);
    form.addRow(caption, scaler);
    return scaler;
}

void AddZooms(QFormLayout &form)
{
    const TDateTime start = EncodeDate(2026, 3, 2);
    AddScaler(form, "Ten years", start, 3652);
    AddScaler(form, "A year", start, 365);
    AddScaler(form, "A quarter", start, 91);
    AddScaler(form, "A week", start, 7);
    AddScaler(form, "A day", start, 1);
    AddScaler(form, "An hour", start + 9 * kScale1Hour, kScale1Hour);
    AddScaler(form, "Ten seconds", start + 9 * kScale1Hour, kScale1Sec * 10);
    AddScaler(form, "Week numbers", start, 91)->SetWeekNumbers(true);
}

// Working hours only, with the lunch break in another colour.
void AddWorkingHours(QFormLayout &form)
{
    TzuDateScaler *scaler = AddScaler(form, "No nights", EncodeDate(2026, 3, 2), 2);
    scaler->GetPassList(0) = {.Active = true,
                              .FromTime = EncodeTime(18, 0, 0, 0),
                              .ToTime = EncodeTime(7, 59, 59, 999),
                              .Hide = true};
    scaler->GetPassList(1) = {.Active = true,
                              .FromTime = EncodeTime(12, 0, 0, 0),
                              .ToTime = EncodeTime(12, 59, 59, 999),
                              .Color = Rgb(0xf2, 0xd0, 0x8c)};
    scaler->CalcDrawMode();
}

void AddIndicators(QFormLayout &form)
{
    const TDateTime start = EncodeDate(2026, 3, 2);
    TzuDateScaler *normal = AddScaler(form, "A marked time", start, 2);
    normal->SetIndicatorPixel(kMarkedPixel);
    TzuDateScaler *colourful = AddScaler(form, "in colour", start, 2);
    colourful->SetIndicatorStyle(TIndicatorStyle::isColorfull);
    colourful->SetIndicatorPixel(kMarkedPixel);
}

} // namespace

QWidget *CreateDateScalerPage()
{
    auto *page = new QWidget;
    auto *layout = new QHBoxLayout(page);
    auto *form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    layout->addLayout(form, 1);
    AddZooms(*form);
    AddWorkingHours(*form);
    AddIndicators(*form);

    auto *upright = new TzuDateScaler;
    upright->SetColor(clWindow);
    upright->SetHorizontal(false);
    upright->setFixedWidth(90);
    upright->SetStart(EncodeDate(2026, 3, 2));
    upright->SetStop(EncodeDate(2026, 3, 5));
    layout->addWidget(upright);
    return page;
}
