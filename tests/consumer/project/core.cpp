// Uses the core of the installed package: links the library and hears a report.
#include "foundation/zuReport.h"

#include <cstdlib>
#include <string>
#include <string_view>

int main()
{
    std::string heard;
    korvane::SetReportHook([&heard](std::string_view text) { heard = text; });
    korvane::Report("installed");
    return heard == "installed" ? EXIT_SUCCESS : EXIT_FAILURE;
}
