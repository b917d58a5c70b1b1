#include "gantt/zuGantDescribe.h"

#include "foundation/zuFormat.h"
#include "gantt/zuGantRow.h"
#include "tree/zuTreeData.h"

namespace korvane {

std::string CaptionOf(TzuDataEntity_Spanbar &item)
{
    if (item.HasTexts()) {
        const TzuTimeItemTextCollection &texts = item.Texts();
        for (int i = 0; i < texts.GetCount(); ++i) {
            if (!texts.GetTimeItemText(i).Text().empty()) {
                return texts.GetTimeItemText(i).Text();
            }
        }
    }
    const TGantRow *row = item.GetRow();
    return row != nullptr ? CaptionOf(*row) : std::string();
}

std::string CaptionOf(const TGantRow &row)
{
    return row.TreeNode() != nullptr ? row.TreeNode()->GetText() : std::string();
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
