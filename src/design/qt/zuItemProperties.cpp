#include "design/qt/zuItemProperties.h"

namespace korvane {

namespace {

using enum TItemPropertyKind;

constexpr TItemProperty kColumn[] = {
    {"HeaderText", Text, QT_TRANSLATE_NOOP("TzuDesign", "Caption in the header row")},
    {"Width", Number, QT_TRANSLATE_NOOP("TzuDesign", "Width in pixels")},
    {"Kind", ColumnKind, QT_TRANSLATE_NOOP("TzuDesign", "Content and editor of the cells")},
    {"SortEnable", Flag,
     QT_TRANSLATE_NOOP("TzuDesign", "A click on the header may sort by the column")},
    {"NumericSort", Flag,
     QT_TRANSLATE_NOOP("TzuDesign", "Sorts by numeric value rather than by text")},
    {"ReadOnly", Flag, QT_TRANSLATE_NOOP("TzuDesign", "The cells cannot be edited")},
    {"Hidden", Flag, QT_TRANSLATE_NOOP("TzuDesign", "The column is not shown")},
    {"LayoutName", LayoutName,
     QT_TRANSLATE_NOOP("TzuDesign", "The cell layout of the column's cells")},
    {"SubGridName", SubGridName,
     QT_TRANSLATE_NOOP("TzuDesign", "The sub-grid that cells of kind tckSubGrid show")},
    {"TreeButton", Flag, QT_TRANSLATE_NOOP("TzuDesign", "Shows the expand buttons of the tree")},
    {"HasIcon", Flag,
     QT_TRANSLATE_NOOP("TzuDesign", "Cells show an image of the grid's image list")},
    {"Groupcells", Flag,
     QT_TRANSLATE_NOOP("TzuDesign", "Neighbouring cells with equal content are shown as one")},
};

constexpr TItemProperty kSubGrid[] = {
    {"Name", Text, QT_TRANSLATE_NOOP("TzuDesign", "By which columns refer to the sub-grid")},
    {"Columns", Columns, QT_TRANSLATE_NOOP("TzuDesign", "Its columns")},
    {"HasHeaders", Flag, QT_TRANSLATE_NOOP("TzuDesign", "Has a row of headers")},
    {"HasInfoCol", Flag, QT_TRANSLATE_NOOP("TzuDesign", "Has the narrow column at the left")},
    {"ExtendLastColumnToWidth", Flag,
     QT_TRANSLATE_NOOP("TzuDesign", "The last column takes the room that is left")},
};

constexpr TItemProperty kLayout[] = {
    {"Name", Text,
     QT_TRANSLATE_NOOP("TzuDesign", "By which columns and cells refer to the layout")},
    {"BackColor", Color, QT_TRANSLATE_NOOP("TzuDesign", "Background")},
    {"FrontColor", Color, QT_TRANSLATE_NOOP("TzuDesign", "Colour of the text")},
    {"UseFontInfo", Flag,
     QT_TRANSLATE_NOOP("TzuDesign", "Uses Font rather than the font of the grid")},
    {"Font", Font, QT_TRANSLATE_NOOP("TzuDesign", "Font of the text, when UseFontInfo is set")},
    {"MinWidth", Number, QT_TRANSLATE_NOOP("TzuDesign", "Least width in pixels")},
    {"MinHeight", Number, QT_TRANSLATE_NOOP("TzuDesign", "Least height in pixels")},
    {"WrapTextAndFit", Flag,
     QT_TRANSLATE_NOOP("TzuDesign", "Wraps the text; the cell grows to fit it")},
    {"HorzAlignRight", Flag, QT_TRANSLATE_NOOP("TzuDesign", "Text at the right")},
    {"HorzAlignCenter", Flag, QT_TRANSLATE_NOOP("TzuDesign", "Text in the middle of the width")},
    {"VertAlignCenter", Flag, QT_TRANSLATE_NOOP("TzuDesign", "Text in the middle of the height")},
    {"EndEllipsis", Flag,
     QT_TRANSLATE_NOOP("TzuDesign", "Text that does not fit ends with an ellipsis")},
    {"WindowsFlagDraw", Flag, QT_TRANSLATE_NOOP("TzuDesign", "Places the text by WindowsFlags")},
    {"WindowsFlags", TextFlags,
     QT_TRANSLATE_NOOP("TzuDesign", "Where the text stands, when WindowsFlagDraw is set")},
    {"FrameOptionsUse", Flag,
     QT_TRANSLATE_NOOP("TzuDesign", "Has a frame at the sides in FrameOptions")},
    {"FrameOptions", FrameSides,
     QT_TRANSLATE_NOOP("TzuDesign", "The sides with a frame, when FrameOptionsUse is set")},
    {"FrameKind", FrameKind, QT_TRANSLATE_NOOP("TzuDesign", "Look of the frame")},
    {"FrameColor", Color, QT_TRANSLATE_NOOP("TzuDesign", "Colour of the frame")},
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
