#include "gantt/qt/zuGant.h"

#include <QApplication>

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    korvane::TzuGant gant;
    korvane::TzuDataEntity_Tree *row = gant.AddRootDataEntityTree("Design");
    korvane::TzuDataEntity_Spanbar *bar = gant.AddSpanbar(row, 0);
    bar->SetStartDateTime(gant.Start() + 3); // days
    bar->SetStopDateTime(gant.Start() + 9);
    gant.show();
    return QApplication::exec();
}
