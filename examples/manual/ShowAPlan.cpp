// A plan: groups of tasks, bars with their names, and a link.
#include "foundation/zuDateUtils.h"
#include "gantt/qt/zuGant.h"

using namespace korvane;

QWidget *ShowAPlan()
{
    auto *gant = new TzuGant;
    const TDateTime monday = EncodeDate(2026, 3, 2);
    gant->SetStart(monday - 1);
    gant->SetStop(monday + 20);
    gant->SetGantBackColor(clWindow); // plain paper instead of a pattern
    gant->SetGantPyjamasColor(clWindow);

    const auto addTask = [&](TzuDataEntity_Tree *group, const char *name, int fromDay, int toDay) {
        TzuDataEntity_Spanbar *bar = gant->AddSpanbar(gant->AddDataEntityTree(group, name), 0);
        bar->SetStartDateTime(monday + fromDay);
        bar->SetStopDateTime(monday + toDay);
        bar->SetColor(Rgb(0x5b, 0x8f, 0xc7));
        bar->SetInsetTop(3);
        bar->SetInsetBottom(3);
        return bar;
    };

    gant->BeginUpdate(); // one repaint for all that follows
    TzuDataEntity_Tree *design = gant->AddRootDataEntityTree("Design");
    addTask(design, "Interviews", 0, 3);
    TzuDataEntity_Spanbar *drawings = addTask(design, "Drawings", 3, 8);
    TzuDataEntity_Tree *work = gant->AddRootDataEntityTree("Work");
    TzuDataEntity_Spanbar *walls = addTask(work, "Walls", 9, 14);
    TzuDataEntity_Spanbar *roof = addTask(work, "Roof", 15, 18);
    for (auto [first, second] : {std::pair(drawings, walls), std::pair(walls, roof)}) {
        TzuDataEntity_Link &link = gant->AddLink();
        link.SetFirst(first);
        link.SetSecond(second);
    }
    design->SetExpanded(true);
    work->SetExpanded(true);
    gant->EndUpdate();
    return gant;
}
