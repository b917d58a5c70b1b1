#include "gantt/zuGantHint.h"

#include "foundation/zuTranslate.h"
#include "gantt/zuGantDescribe.h"

namespace korvane {

TGestureHint HintOfDependency(const TzuDataEntity_Spanbar *first,
                              const TzuDataEntity_Spanbar *second)
{
    const auto caption = [](const TzuDataEntity_Spanbar *item) {
        return item != nullptr ? OnOneLine(CaptionOf(*item)) : std::string();
    };
    return {HintLine(Translate("TGestureHint", "From", "first item of a link"), caption(first)),
            HintLine(Translate("TGestureHint", "To", "second item of a link"), caption(second)),
            {}};
}

TItemDragData DragDataOf(std::span<TzuDataEntity_Spanbar *const> items, bool copy)
{
    TItemDragData data;
    data.Copy = copy;
    for (const TzuDataEntity_Spanbar *item : items) {
        data.Add(CaptionOf(*item), item->GetStartDateTime(), item->GetStopDateTime());
    }
    return data;
}

} // namespace korvane
