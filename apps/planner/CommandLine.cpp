#include "CommandLine.h"

#include "plan/PlanFile.h"
#include "plan/PlanSummary.h"

#include <QCommandLineParser>
#include <QJsonDocument>

#include <cstdio>

namespace korvane::planner {

namespace {

void PrintLine(std::FILE *stream, const QByteArray &text)
{
    std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), stream);
    std::fputc('\n', stream);
}

} // namespace

CommandLine::CommandLine(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Shows project plans as Gantt charts."));
    parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("The plan to open."),
                                 QStringLiteral("[file]"));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    const QCommandLineOption summary(QStringLiteral("summary"),
                                     QStringLiteral("Print the plan's figures as JSON and exit."));
    parser.addOption(summary);

    const bool isParsed = parser.parse(arguments);
    m_helpText = parser.helpText();
    const QStringList files = parser.positionalArguments();
    m_fileName = files.value(0);
    if (!isParsed) {
        m_action = Fail(parser.errorText());
    } else if (parser.isSet(help)) {
        m_action = Action::PrintHelp;
    } else if (parser.isSet(version)) {
        m_action = Action::PrintVersion;
    } else if (files.size() > 1) {
        m_action = Fail(QStringLiteral("only one file can be opened"));
    } else if (parser.isSet(summary)) {
        m_action = m_fileName.isEmpty() ? Fail(QStringLiteral("--summary needs a file"))
                                        : Action::PrintSummary;
    }
}

CommandLine::Action CommandLine::Fail(const QString &error)
{
    m_error = error;
    return Action::ReportError;
}

ExitCode PrintSummary(const QString &fileName)
{
    NoProgress progress;
    const PlanResult result = LoadPlan(fileName, PlanReaders::Builtin(), progress);
    if (result.Status != PlanStatus::Loaded) {
        PrintLine(stderr, "planner: " + ErrorLine(fileName, result.Error).toLocal8Bit());
        return ExitCode::UnusableFile;
    }
    PrintLine(stdout, QJsonDocument(Summarize(result.Value)).toJson(QJsonDocument::Compact));
    return ExitCode::Ok;
}

} // namespace korvane::planner
