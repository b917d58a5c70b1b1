#include "schema/zuSchemaDescribe.h"

#include "foundation/zuDateUtils.h"
#include "foundation/zuFormat.h"

#include <algorithm>

namespace korvane {

std::string CaptionOf(const TzuDataEntity_SchemaTime &time)
{
    const auto &texts = time.Texts();
    const auto found =
        std::ranges::find_if(texts, [](const auto &text) { return !text.Text().empty(); });
    return found != texts.end() ? found->Text() : std::string();
}

std::string TimesOf(const TzuDataEntity_SchemaTime &time)
{
    const TDateTime start = time.GetStartDateTime();
    const TDateTime stop = time.GetStopDateTime();
    std::string text = FormatDateTime("ddddd t", start);
    if (stop != start) {
        text += " \u2013 " + FormatDateTime(DateOf(start) == DateOf(stop) ? "t" : "ddddd t", stop);
    }
    return text;
}

} // namespace korvane
