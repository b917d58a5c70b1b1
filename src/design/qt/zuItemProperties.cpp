#include "design/qt/zuItemProperties.h"

namespace korvane {

namespace {

using enum TItemPropertyKind;

constexpr TItemProperty kColumn[] = {
    {"HeaderText", Text, "Caption in the header row"},
    {"Width", Number, "Width in pixels"},
    {"Kind", ColumnKind, "Content and editor of the cells"},
    {"SortEnable", Flag, "A click on the header may sort by the column"},
    {"NumericSort", Flag, "Sorts by numeric value rather than by text"},
    {"ReadOnly", Flag, "The cells cannot be edited"},
    {"Hidden", Flag, "The column is not shown"},
    {"LayoutName", LayoutName, "The cell layout of the column's cells"},
    {"SubGridName", SubGridName, "The sub-grid that cells of kind tckSubGrid show"},
    {"TreeButton", Flag, "Shows the expand buttons of the tree"},
    {"HasIcon", Flag, "Cells show an image of the grid's image list"},
    {"Groupcells", Flag, "Neighbouring cells with equal content are shown as one"},
};

constexpr TItemProperty kSubGrid[] = {
    {"Name", Text, "By which columns refer to the sub-grid"},
    {"Columns", Columns, "Its columns"},
    {"HasHeaders", Flag, "Has a row of headers"},
    {"HasInfoCol", Flag, "Has the narrow column at the left"},
    {"ExtendLastColumnToWidth", Flag, "The last column takes the room that is left"},
};

constexpr TItemProperty kLayout[] = {
    {"Name", Text, "By which columns and cells refer to the layout"},
    {"BackColor", Color, "Background"},
    {"FrontColor", Color, "Colour of the text"},
    {"UseFontInfo", Flag, "Uses Font rather than the font of the grid"},
    {"Font", Font, "Font of the text, when UseFontInfo is set"},
    {"MinWidth", Number, "Least width in pixels"},
    {"MinHeight", Number, "Least height in pixels"},
    {"WrapTextAndFit", Flag, "Wraps the text; the cell grows to fit it"},
    {"HorzAlignRight", Flag, "Text at the right"},
    {"HorzAlignCenter", Flag, "Text in the middle of the width"},
    {"VertAlignCenter", Flag, "Text in the middle of the height"},
    {"EndEllipsis", Flag, "Text that does not fit ends with an ellipsis"},
    {"WindowsFlagDraw", Flag, "Places the text by WindowsFlags"},
    {"WindowsFlags", TextFlags, "Where the text stands, when WindowsFlagDraw is set"},
    {"FrameOptionsUse", Flag, "Has a frame at the sides in FrameOptions"},
    {"FrameOptions", FrameSides, "The sides with a frame, when FrameOptionsUse is set"},
    {"FrameKind", FrameKind, "Look of the frame"},
    {"FrameColor", Color, "Colour of the frame"},
};

} // namespace

std::span<const TItemProperty> ItemProperties(const QString &collection)
{
    if (collection == u"Columns") {
        return kColumn;
    }
    if (collection == u"SubGrids") {
        return kSubGrid;
    }
    return collection == u"CellLayouts" ? std::span<const TItemProperty>(kLayout)
                                        : std::span<const TItemProperty>();
}

} // namespace korvane
