#include "gantt/qt/zuGant.h"

#include <QApplication>

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    korvane::TzuGant gant;
    auto addBar = [&gant](korvane::TzuDataEntity_Tree *row, int fromDay, int toDay) {
        auto *bar = gant.AddSpanbar(row, 0);
        bar->SetStartDateTime(gant.Start() + fromDay);
        bar->SetStopDateTime(gant.Start() + toDay);
        return bar;
    };
    auto *design = gant.AddRootDataEntityTree("Design");
    addBar(design, 3, 9);
    auto &link = gant.AddLink();
    link.SetFirst(addBar(design, 10, 15));
    link.SetSecond(addBar(gant.AddRootDataEntityTree("Build"), 16, 26));
    gant.resize(900, 300);
    gant.show();
    return QApplication::exec();
}
