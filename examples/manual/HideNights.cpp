// Working hours only: the nights take no room on the axis, breaks have another colour.
#include "foundation/zuDateUtils.h"
#include "foundation/zuFormat.h"
#include "gantt/qt/zuGant.h"

using namespace korvane;

QWidget *HideNights()
{
    auto *gant = new TzuGant;
    const TDateTime monday = EncodeDate(2026, 3, 2);
    constexpr TDateTime kHour = 1.0 / 24;
    TzuDateScaler &axis = gant->DateScaler();
    axis.GetPassList(0) = {.Active = true,
                           .FromTime = EncodeTime(18, 0, 0, 0),
                           .ToTime = EncodeTime(7, 59, 59, 999),
                           .Hide = true};
    axis.GetPassList(1) = {.Active = true,
                           .FromTime = EncodeTime(12, 0, 0, 0),
                           .ToTime = EncodeTime(12, 59, 59, 999),
                           .Color = Rgb(0xf2, 0xd0, 0x8c)};
    axis.CalcDrawMode(); // the pass list is read here
    // The midnights that days are named at are hidden, so each day is named at its noon.
    axis.OnUserStringShort = [](TDateTime date, TDateTime, std::string &text, TScalerFont) {
        if (text == "12") {
            text = FormatDateTime("ddd", date);
        }
    };
    gant->SetStart(monday + 8 * kHour);
    gant->SetStop(monday + 28 * kHour); // and as much more as is hidden
    gant->SetGantBackColor(clWindow);   // plain paper instead of a pattern
    gant->SetGantPyjamasColor(clWindow);

    int hour = 8;
    for (const char *name : {"Lathe", "Mill", "Saw"}) {
        TzuDataEntity_Tree *machine = gant->AddRootDataEntityTree(name);
        for (int day = 0; day < 2; ++day) {
            TzuDataEntity_Spanbar *job = gant->AddSpanbar(machine, 0);
            job->SetStartDateTime(monday + day + hour * kHour);
            job->SetStopDateTime(monday + day + (hour + 5) * kHour);
            job->SetColor(Rgb(0x5b, 0x8f, 0xc7));
        }
        hour += 2;
    }
    return gant;
}
