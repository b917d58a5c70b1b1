// A Gantt chart: rows, bars that may be moved, a link between them, and a word on each change.
#include "foundation/zuDateUtils.h"
#include "gantt/qt/zuGant.h"

#include <QApplication>

using namespace korvane;

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const TDateTime monday = EncodeDate(2026, 3, 2);
    TzuGant gant;
    gant.SetStart(monday - 1);
    gant.SetStop(monday + 20);
    gant.SetGantBackColor(clWindow); // plain paper instead of a pattern
    gant.SetGantPyjamasColor(clWindow);

    const auto addTask = [&](const char *name, int fromDay, int toDay) {
        TzuDataEntity_Spanbar *bar = gant.AddSpanbar(gant.AddRootDataEntityTree(name), 0);
        bar->SetStartDateTime(monday + fromDay);
        bar->SetStopDateTime(monday + toDay);
        bar->SetColor(Rgb(0x5b, 0x8f, 0xc7));
        return bar;
    };
    TzuDataEntity_Link &link = gant.AddLink();
    link.SetFirst(addTask("Drawings", 0, 5));
    link.SetSecond(addTask("Walls", 7, 12));

    QObject::connect(&gant, &TzuGant::timeItemChanged, [&gant](TzuDataEntity_Spanbar *bar) {
        const double days = bar->GetStopDateTime() - bar->GetStartDateTime();
        gant.setWindowTitle(QStringLiteral("Now %1 days").arg(days, 0, 'f', 1));
    });
    gant.resize(900, 300);
    gant.show();
    return QApplication::exec();
}
