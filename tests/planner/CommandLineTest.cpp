#include "CommandLine.h"
#include "PlanText.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

namespace korvane::planner::test {
namespace {

TEST(CommandLine, IsParsedIntoOneAction)
{
    using enum CommandLine::Action;
    struct Case
    {
        QStringList Arguments;
        CommandLine::Action Action;
        QString FileName;
    };
    const Case cases[] = {
        {{}, ShowWindow, {}},
        {{u"a.xml"_s}, ShowWindow, u"a.xml"_s},
        {{u"--summary"_s, u"a.xml"_s}, PrintSummary, u"a.xml"_s},
        {{u"a.xml"_s, u"--summary"_s}, PrintSummary, u"a.xml"_s},
        {{u"--summary"_s, u"--"_s, u"--odd"_s}, PrintSummary, u"--odd"_s},
        {{u"--summary"_s}, ReportError, {}},
        {{u"--summary"_s, u"a"_s, u"b"_s}, ReportError, u"a"_s},
        {{u"--sumary"_s, u"a"_s}, ReportError, u"a"_s},
        {{u"--print"_s, u"p.pdf"_s, u"a.xml"_s, u"--fit=2x0"_s}, PrintPages, u"a.xml"_s},
        {{u"--print"_s, u"p.pdf"_s, u"a"_s, u"--paper=200x300"_s}, PrintPages, u"a"_s},
        {{u"--print"_s, u"p.svg"_s, u"a"_s, u"--view=resources"_s}, PrintPages, u"a"_s},
        {{u"--print"_s, u"p.txt"_s, u"a"_s}, ReportError, u"a"_s},
        {{u"--print"_s, u"p.pdf"_s, u"a"_s, u"--paper=A9"_s}, ReportError, u"a"_s},
        {{u"--print"_s, u"p.pdf"_s, u"a"_s, u"--fit=2x"_s}, ReportError, u"a"_s},
        {{u"--print"_s, u"p.pdf"_s, u"a"_s, u"--fit=1x1"_s, u"--enlarge"_s}, PrintPages, u"a"_s},
        {{u"--print"_s, u"p.pdf"_s, u"a"_s, u"--table"_s}, PrintPages, u"a"_s},
        {{u"--render"_s, u"p.pdf"_s, u"a"_s, u"--table"_s}, RenderPicture, u"a"_s},
        {{u"--print"_s, u"p.pdf"_s, u"a"_s, u"--scale=60"_s}, PrintPages, u"a"_s},
        {{u"--print"_s, u"p.pdf"_s, u"a"_s, u"--scale=4"_s}, ReportError, u"a"_s},
        {{u"--print"_s, u"p.pdf"_s, u"a"_s, u"--scale=60"_s, u"--fit=1x1"_s}, ReportError, u"a"_s},
        {{u"--help"_s, u"--summary"_s}, PrintHelp, {}},
        {{u"--version"_s}, PrintVersion, {}},
    };
    for (const Case &expected : cases) {
        const CommandLine line(QStringList(u"planner"_s) + expected.Arguments);
        EXPECT_EQ(line.GetAction(), expected.Action) << expected.Arguments.join(u' ').toStdString();
        EXPECT_EQ(line.FileName(), expected.FileName);
        EXPECT_EQ(line.Error().isEmpty(), expected.Action != ReportError);
        EXPECT_EQ(line.Request().Table, expected.Arguments.contains(u"--table"_s));
    }
}

struct Outcome
{
    int ExitCode = -1;
    QByteArray Output;
    QByteArray Errors;
};

Outcome RunPlanner(const QStringList &arguments)
{
    QProcess planner;
    planner.start(QStringLiteral(KORVANE_PLANNER), arguments);
    EXPECT_TRUE(planner.waitForFinished());
    EXPECT_EQ(planner.exitStatus(), QProcess::NormalExit);
    return {planner.exitCode(), planner.readAllStandardOutput(), planner.readAllStandardError()};
}

TEST(Planner, PrintsASummaryAsOneJsonObject)
{
    const Outcome outcome =
        RunPlanner({u"--summary"_s, QStringLiteral(KORVANE_SAMPLES "/observatory.xml")});
    EXPECT_EQ(outcome.ExitCode, 0);
    EXPECT_EQ(outcome.Errors, "");
    EXPECT_EQ(QJsonDocument::fromJson(outcome.Output).object()[u"tasks"].toInt(), 86);
}

TEST(Planner, AnswersAnUnusableFileWithCodeOneAndOneLine)
{
    const PlanFolder folder;
    const QString paths[] = {folder.Path(), folder.Path(u"none.xml"_s),
                             folder.Write(u"cut.xml"_s, "<Project>\n<Tasks>")};
    for (const QString &path : paths) {
        const Outcome outcome = RunPlanner({u"--summary"_s, path});
        EXPECT_EQ(outcome.ExitCode, 1);
        EXPECT_EQ(outcome.Output, "");
        EXPECT_TRUE(outcome.Errors.startsWith("planner: " + path.toUtf8()))
            << outcome.Errors.data();
        EXPECT_EQ(outcome.Errors.count('\n'), 1);
    }
    EXPECT_EQ(RunPlanner({u"--summary"_s}).ExitCode, 2);
}

} // namespace
} // namespace korvane::planner::test
