// The planner: opens project plans and shows them.
#include "CommandLine.h"
#include "MainWindow.h"
#include "PictureFormat.h"
#include "PlanLoader.h"
#include "PrintCommand.h"
#include "RenderCommand.h"
#include "ScheduleCommands.h"
#include "ScheduleWindow.h"
#include "Theme.h"
#include "plan/PlanFile.h"

#include <QApplication>
#include <QIcon>

#include <cstdio>

using namespace korvane::planner;

namespace {

/// Whether there is anything that a window could come to; always true where that cannot be told.
bool HasDisplay()
{
#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)
    for (const char *variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (!qEnvironmentVariableIsEmpty(variable)) {
            return true;
        }
    }
    return false;
#else
    return true;
#endif
}

void ApplyTheme(const CommandLine &commandLine)
{
    if (commandLine.Dark()) {
        QApplication::setPalette(DarkPalette());
    }
}

ExitCode Render(int argc, char **argv, const CommandLine &commandLine)
{
    // The same picture everywhere, with a display or without.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    // Widgets draw their own details as finely as the picture is.
    if (PictureFormatOf(commandLine.Request().Picture) == PictureFormat::Png) {
        qputenv("QT_SCALE_FACTOR", QByteArray::number(commandLine.Request().Ratio));
    }
    // What the toolkit has to say about a missing desktop is of no interest here.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    const QApplication application(argc, argv);
    if (commandLine.GetAction() == CommandLine::Action::PrintPages) {
        if (IsScheduleFile(commandLine.FileName())) {
            return PrintSchedule(commandLine.FileName(), commandLine.Pages(),
                                 commandLine.Request());
        }
        return PrintPlan(commandLine.FileName(), commandLine.Reading(), commandLine.Pages(),
                         commandLine.Request());
    }
    ApplyTheme(commandLine);
    if (IsScheduleFile(commandLine.FileName())) {
        return RenderSchedule(commandLine.FileName(), commandLine.Request());
    }
    return RenderPlan(commandLine.FileName(), commandLine.Reading(), commandLine.Request());
}

int ShowSchedule(const QString &fileName)
{
    ScheduleWindow window;
    window.show();
    window.Open(fileName);
    return QApplication::exec();
}

int ShowWindow(int argc, char **argv, const CommandLine &commandLine)
{
    if (!HasDisplay()) {
        PrintError(QStringLiteral("there is no display; --render and --summary need none"));
        return static_cast<int>(ExitCode::WrongUsage);
    }
    const QApplication application(argc, argv);
    QGuiApplication::setDesktopFileName(QStringLiteral("korvane-planner"));
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/korvane-planner.svg")));
    ApplyTheme(commandLine);
    if (!commandLine.FileName().isEmpty() && IsScheduleFile(commandLine.FileName())) {
        return ShowSchedule(commandLine.FileName());
    }
    MainWindow window;
    window.Loader().SetOptions(commandLine.Reading());
    window.show();
    if (!commandLine.FileName().isEmpty()) {
        window.Open(commandLine.FileName());
    } else {
        window.OpenLeftBehind();
    }
    return QApplication::exec();
}

int Run(int argc, char **argv, const CommandLine &commandLine)
{
    switch (commandLine.GetAction()) {
    case CommandLine::Action::PrintSummary:
        return static_cast<int>(
            IsScheduleFile(commandLine.FileName())
                ? PrintScheduleSummary(commandLine.FileName(), commandLine.Request())
                : PrintSummary(commandLine.FileName(), commandLine.Reading()));
    case CommandLine::Action::Convert:
        return static_cast<int>(
            Convert(commandLine.FileName(), commandLine.Reading(), commandLine.Output()));
    case CommandLine::Action::RenderPicture:
    case CommandLine::Action::PrintPages:
        return static_cast<int>(Render(argc, argv, commandLine));
    case CommandLine::Action::PrintHelp:
        std::fputs(qPrintable(commandLine.HelpText()), stdout);
        return static_cast<int>(ExitCode::Ok);
    case CommandLine::Action::PrintVersion:
        std::printf("planner %s\n", KORVANE_VERSION);
        return static_cast<int>(ExitCode::Ok);
    case CommandLine::Action::ShowWindow:
        return ShowWindow(argc, argv, commandLine);
    case CommandLine::Action::ReportError:
        break;
    }
    PrintError(commandLine.Error());
    return static_cast<int>(ExitCode::WrongUsage);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication::setOrganizationName(QStringLiteral("Korvane"));
    QCoreApplication::setApplicationName(QStringLiteral("planner"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KORVANE_VERSION));
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments.append(QString::fromLocal8Bit(argv[i]));
    }
    return Run(argc, argv, CommandLine(arguments));
}
