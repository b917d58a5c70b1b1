// The planner: opens project plans and shows them.
#include "CommandLine.h"

#include <QCoreApplication>

#include <cstdio>

using namespace korvane::planner;

namespace {

int Run(const CommandLine &commandLine)
{
    switch (commandLine.GetAction()) {
    case CommandLine::Action::PrintSummary:
        return static_cast<int>(PrintSummary(commandLine.FileName()));
    case CommandLine::Action::PrintHelp:
        std::fputs(qPrintable(commandLine.HelpText()), stdout);
        return static_cast<int>(ExitCode::Ok);
    case CommandLine::Action::PrintVersion:
        std::printf("planner %s\n", qPrintable(QCoreApplication::applicationVersion()));
        return static_cast<int>(ExitCode::Ok);
    case CommandLine::Action::ShowWindow:
        std::fputs("planner: only --summary is available\n", stderr);
        return static_cast<int>(ExitCode::WrongUsage);
    case CommandLine::Action::ReportError:
        break;
    }
    std::fprintf(stderr, "planner: %s\n", qPrintable(commandLine.Error()));
    return static_cast<int>(ExitCode::WrongUsage);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("planner"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KORVANE_VERSION));
    return Run(CommandLine(QCoreApplication::arguments()));
}
