#include "design/zuRegStuff.h"

#include "foundation/zuTranslate.h"

#include <array>

namespace korvane {

namespace {

constexpr std::string_view kGridClass = "TzuGrid";

constexpr std::array kComponents{
    TPaletteComponent{
        "TzuSchema",
        "schema/qt/zuSchema.h",
        KORVANE_TRANSLATE_NOOP("TzuDesign", "Schedule view: columns of times under a time axis"),
        KORVANE_TRANSLATE_NOOP(
            "TzuDesign", "Shows times as blocks in columns, one column for each resource, room or "
                         "day, along a time axis. The user moves, stretches and copies them."),
        {480, 320}},
    TPaletteComponent{
        "TzuGant",
        "gantt/qt/zuGant.h",
        KORVANE_TRANSLATE_NOOP("TzuDesign", "Gantt chart: bars on rows beside a tree"),
        KORVANE_TRANSLATE_NOOP(
            "TzuDesign",
            "Shows what happens when: bars, milestones and links on the rows of a tree, "
            "under a time axis that zooms and scrolls."),
        {560, 300}},
    TPaletteComponent{"TzuDateScaler",
                      "scaler/qt/zuScaler.h",
                      KORVANE_TRANSLATE_NOOP("TzuDesign", "Time axis that zooms and scrolls"),
                      KORVANE_TRANSLATE_NOOP(
                          "TzuDesign",
                          "Shows a range of time with its calendar, in two rows of labels, from "
                          "milliseconds to centuries."),
                      {420, 45}},
    TPaletteComponent{
        "TzuTree",
        "tree/qt/zuTree.h",
        KORVANE_TRANSLATE_NOOP("TzuDesign", "Tree of entities, loaded when needed"),
        KORVANE_TRANSLATE_NOOP(
            "TzuDesign", "Shows a hierarchy of entities whose children may be loaded when they are "
                         "first seen. The user edits, sorts and moves them."),
        {220, 240}},
    TPaletteComponent{
        kGridClass,
        "grid/qt/zuGrid.h",
        KORVANE_TRANSLATE_NOOP("TzuDesign", "Data grid with columns of many kinds"),
        KORVANE_TRANSLATE_NOOP(
            "TzuDesign", "Shows rows of cells in columns of text, check boxes, dates, times, grids "
                         "and trees. Its columns are edited in the form designer."),
        {400, 240}},
};

} // namespace

std::span<const TPaletteComponent> PaletteComponents()
{
    return kComponents;
}

void Register(IDesignerPackage &package)
{
    for (const TPaletteComponent &component : kComponents) {
        package.RegisterComponents(kPalettePage, {&component, 1});
    }
    package.RegisterGridEditor(kGridClass);
}

} // namespace korvane
