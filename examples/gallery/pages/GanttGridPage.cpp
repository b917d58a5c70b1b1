// The Gantt chart with a grid in place of its row tree: columns that sort, rows of their own
// height, nodes that expand and can be dragged to other places, cells that are edited.
#include "Pages.h"
#include "foundation/zuDateUtils.h"
#include "gantt/qt/zuGant.h"
#include "grid/qt/zuGrid.h"

#include <string>
#include <vector>

using namespace korvane;

namespace {

constexpr TColor kSlate = Rgb(0x5b, 0x7f, 0xa6);
constexpr TColor kLeaf = Rgb(0x7f, 0xb0, 0x69);
constexpr int kRowHeight = 26;

struct TJob
{
    const char *Name;
    const char *Who;
    int FirstDay;
    int Days;
    int Level;
};

constexpr TJob kJobs[] = {
    {"Survey", "", 0, 9, 0},           {"Site visit", "Ines", 0, 3, 1},
    {"Soil samples", "Omar", 2, 5, 1}, {"Report", "Ines", 7, 2, 1},
    {"Design", "", 9, 12, 0},          {"Sketches", "Lena", 9, 5, 1},
    {"Structure", "Omar", 12, 7, 1},   {"Drawings", "Lena", 15, 6, 1},
    {"Approval", "Ines", 21, 4, 0},
};

enum { kName, kWho, kDays };

void AddColumns(TzuGant &gant)
{
    TzuCellLayout &right = gant.Grid_CellLayouts().Add();
    right.SetName("Right");
    right.SetHorzAlignRight(true);
    right.SetVertAlignCenter(true);
    right.SetMinHeight(kRowHeight);
    TzuGrid_Columns &columns = gant.Grid_Columns();
    columns.At(kName).SetHeaderText("Job");
    columns.At(kName).SetWidth(170);
    TzuGrid_Column &who = columns.Add();
    who.SetHeaderText("Who");
    who.SetWidth(80);
    TzuGrid_Column &days = columns.Add();
    days.SetHeaderText("Days");
    days.SetWidth(60);
    days.SetNumericSort(true);
    days.SetLayoutName("Right");
    days.SetReadOnly(true);
    for (int i = 0; i < columns.Count(); ++i) {
        columns.At(i).SetSortEnable(true);
    }
    gant.SetGrid_UserSortEnable(true);
    gant.SetGrid_HasInfoCol(false);
    gant.SetGrid_RowSelect(true);
    gant.Grid().SetRowMoving(true);
    gant.SetGrid_ExtendLastColumnToWidth(true);
    gant.Grid().DefaultLayoutProp().MinHeight = kRowHeight;
    gant.Grid().DefaultLayoutProp().VertAlignCenter = true;
}

void AddJobs(TzuGant &gant)
{
    TzuGridTree &tree = *gant.Grid().GetTree();
    TzuDataEntity_GridTreeNode *group = nullptr;
    const TDateTime first = EncodeDate(2026, 3, 2);
    for (const TJob &job : kJobs) {
        TzuDataEntity_GridTreeNode *node = tree.AddDataEntity(job.Level > 0 ? group : nullptr);
        node->SetText(job.Name);
        node->SetExpanded(true);
        group = job.Level > 0 ? group : node;
        gant.Grid().SetCellText(kWho, node->Row()->ListIndex() - 1, job.Who);
        gant.Grid().SetCellText(kDays, node->Row()->ListIndex() - 1, std::to_string(job.Days));
        TzuDataEntity_Spanbar *bar = gant.GridNode_AddSpanbar(node, 0);
        bar->SetStartDateTime(first + job.FirstDay);
        bar->SetStopDateTime(first + job.FirstDay + job.Days);
        bar->SetColor(job.Level > 0 ? kSlate : kLeaf);
        bar->SetStyle(job.Level > 0 ? TSpanbarStyle::sbsSquare : TSpanbarStyle::sbsSpan);
        bar->SetInsetTop(4);
        bar->SetInsetBottom(4);
    }
    TAxisContentItem &high = *tree.GetDataEntityFromRow(3)->Row();
    high.SetUserSizeActive(true);
    high.SetUserSize(2 * kRowHeight);
}

} // namespace

QWidget *CreateGanttGridPage()
{
    auto *gant = new TzuGant;
    gant->SetUseGridNotTree(true);
    gant->SetTreeWidth(320);
    gant->SetGantBackColor(clWindow);
    gant->SetGantPyjamasColor(clBtnFace);
    AddColumns(*gant);
    AddJobs(*gant);
    gant->SetStart(EncodeDate(2026, 2, 27));
    gant->SetStop(EncodeDate(2026, 3, 31));
    return gant;
}
