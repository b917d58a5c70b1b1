#include "gantt/zuGantDescribe.h"

#include "foundation/zuFormat.h"
#include "gantt/zuGantRow.h"
#include "grid/zuGridTreeData.h"
#include "tree/zuTreeData.h"

namespace korvane {

std::string CaptionOf(const TzuDataEntity_Spanbar &item)
{
    const TzuTimeItemTextCollection *texts = item.TextsIfAny();
    for (int i = 0; texts != nullptr && i < texts->GetCount(); ++i) {
        if (const std::string &text = texts->GetTimeItemText(i).Text(); !text.empty()) {
            return text;
        }
    }
    const TGantRow *row = item.GetRow();
    return row != nullptr ? CaptionOf(*row) : std::string();
}

std::string CaptionOf(const TGantRow &row)
{
    if (row.TreeNode() != nullptr) {
        return row.TreeNode()->GetText();
    }
    return row.GridNode() != nullptr ? row.GridNode()->GetText() : std::string();
}

std::string CaptionOf(const TzuDataEntity_Link &link)
{
    if (link.First() == nullptr || link.Second() == nullptr) {
        return {};
    }
    return CaptionOf(*link.First()) + " \u2192 " + CaptionOf(*link.Second());
}

std::string TimesOf(const TzuDataEntity_Spanbar &item)
{
    const std::string start = FormatDateTime("c", item.GetStartDateTime());
    if (item.GetStopDateTime() == item.GetStartDateTime()) {
        return start;
    }
    return start + " \u2013 " + FormatDateTime("c", item.GetStopDateTime());
}

} // namespace korvane
