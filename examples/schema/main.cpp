// A schedule view: rooms as columns, talks as times that may be dragged; overlapping ones stand
// side by side.
#include "foundation/zuDateUtils.h"
#include "schema/qt/zuSchema.h"

#include <QApplication>

using namespace korvane;

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const TDateTime day = EncodeDate(2026, 3, 2);
    TzuSchema schema;
    schema.SetScalerStart(day + 8 * kScale1Hour);
    schema.SetScalerStop(day + 17 * kScale1Hour);
    schema.SetSchemaColor(clWindow); // calm colours that follow light and dark
    schema.SetSchemaPyjamasColor(clBtnFace);
    for (const char *room : {"Auditorium", "Garden terrace"}) {
        schema.AddColumn()->SetText(room);
    }

    const auto addTalk = [&](int room, double fromHour, double toHour, const char *title) {
        TzuDataEntity_SchemaTime *talk = schema.AddSchemaTime(0);
        talk->SetCol(room);
        talk->SetStartDateTime(day + fromHour * kScale1Hour);
        talk->SetStopDateTime(day + toHour * kScale1Hour);
        talk->SetColor(Rgb(0x7F, 0xB0, 0x69));
        talk->AddText(title, 4, 3, 1); // left and top in pixels, text style
    };
    addTalk(0, 9, 10.5, "Opening");
    addTalk(0, 11, 12, "Keynote");
    addTalk(1, 10, 12, "Workshop");
    addTalk(1, 11, 13, "Hands on");

    schema.resize(700, 500);
    schema.show();
    return QApplication::exec();
}
