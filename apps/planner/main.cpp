// The planner: opens project plans and shows them.
#include "CommandLine.h"
#include "Language.h"
#include "MainWindow.h"
#include "PictureFormat.h"
#include "PlanLoader.h"
#include "PrintCommand.h"
#include "RenderCommand.h"
#include "ScheduleCommands.h"
#include "ScheduleWindow.h"
#include "Theme.h"
#include "plan/PlanFile.h"
#include "plan/PlannerText.h"

#include <QApplication>
#include <QIcon>

#include <cstdio>
#include <optional>

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
    UseLanguage(commandLine.Language());
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
    const QApplication application(argc, argv);
    UseLanguage(commandLine.Language());
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

/// What needs no windows.
ExitCode RunInTerminal(const CommandLine &commandLine)
{
    switch (commandLine.GetAction()) {
    case CommandLine::Action::PrintSummary:
        return IsScheduleFile(commandLine.FileName())
                   ? PrintScheduleSummary(commandLine.FileName(), commandLine.Request())
                   : PrintSummary(commandLine.FileName(), commandLine.Reading());
    case CommandLine::Action::Convert:
        return Convert(commandLine.FileName(), commandLine.Reading(), commandLine.Output());
    case CommandLine::Action::PrintHelp:
        std::fputs(qPrintable(commandLine.HelpText()), stdout);
        return ExitCode::Ok;
    case CommandLine::Action::PrintVersion:
        std::printf("planner %s\n", KORVANE_VERSION);
        return ExitCode::Ok;
    case CommandLine::Action::ShowWindow: // without a display
        PrintError(PlannerText::tr("there is no display; --render and --summary need none"));
        return ExitCode::WrongUsage;
    default:
        PrintError(commandLine.Error());
        return ExitCode::WrongUsage;
    }
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
    // Texts need an application object; whether one with windows is wanted is not known before.
    std::optional<QCoreApplication> application(std::in_place, argc, argv);
    UseLanguage(CommandLine::LanguageIn(arguments));
    const CommandLine commandLine(arguments);
    const CommandLine::Action action = commandLine.GetAction();
    const bool draws =
        action == CommandLine::Action::RenderPicture || action == CommandLine::Action::PrintPages;
    const bool shows = action == CommandLine::Action::ShowWindow && HasDisplay();
    if (!draws && !shows) {
        return static_cast<int>(RunInTerminal(commandLine));
    }
    application.reset();
    return draws ? static_cast<int>(Render(argc, argv, commandLine))
                 : ShowWindow(argc, argv, commandLine);
}
