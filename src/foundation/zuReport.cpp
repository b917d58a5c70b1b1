#include "foundation/zuReport.h"

#include <iostream>
#include <utility>

namespace korvane {

namespace {

TReportHook &Hook()
{
    static TReportHook hook;
    return hook;
}

} // namespace

void Report(std::string_view text)
{
    if (Hook()) {
        Hook()(text);
    } else {
        std::cerr << text << '\n';
    }
}

TReportHook SetReportHook(TReportHook hook)
{
    return std::exchange(Hook(), std::move(hook));
}

} // namespace korvane
