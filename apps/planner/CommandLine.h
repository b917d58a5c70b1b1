// What the planner is asked to do when it is started.
#pragma once

#include "foundation/zuTypes.h"
#include "plan/PlanReader.h"

#include <QSize>
#include <QString>
#include <QStringList>

#include <optional>

class QCommandLineParser;

namespace korvane::planner {

/// Exit codes of the planner.
enum class ExitCode : int { Ok = 0, UnusableFile = 1, WrongUsage = 2 };

enum class ViewKind : std::uint8_t { Tasks, Resources };

/// What --render is asked for.
struct RenderRequest
{
    QString Picture; ///< file to write; its suffix tells the format
    QSize Size{1400, 900};
    /// Which view; by default resources for timetables and the like, else tasks.
    std::optional<ViewKind> View;
    bool Table = false; ///< beside the chart of tasks, in place of the tree
    double Ratio = 1;   ///< device pixels per pixel, for PNG
    /// The ends of the time shown; by default the plan's, with a margin. From < To.
    std::optional<TDateTime> From;
    std::optional<TDateTime> To;
};

/// What --print is asked for.
struct PrintRequest
{
    QString File;          ///< to write; its suffix tells the format
    QSize Paper{210, 297}; ///< millimetres
    bool Landscape = false;
    /// Pages at most, across and down; 0: as many as it takes. By default what suits the document.
    std::optional<QSize> Pages;
    std::optional<double> Percent; ///< of the size on screen; not together with Pages
    bool Enlarge = false;          ///< so that the pages are filled
};

/// The parsed command line. Needs no application object, so that it can be parsed before it is
/// known whether a display is wanted.
class CommandLine
{
public:
    enum class Action : std::uint8_t {
        ShowWindow,
        PrintSummary,
        Convert, ///< into Output()
        RenderPicture,
        PrintPages,
        PrintHelp,
        PrintVersion,
        ReportError, ///< Error() says what is wrong with the command line
    };

    /// `arguments` begin with the program's own name.
    explicit CommandLine(const QStringList &arguments);

    Action GetAction() const { return m_action; }
    /// Empty when no file is named, which only ShowWindow allows.
    const QString &FileName() const { return m_fileName; }
    /// The file to write; filled for Convert.
    const QString &Output() const { return m_output; }
    /// How the file is to be read.
    const ReadOptions &Reading() const { return m_reading; }
    /// Filled for RenderPicture; its range for PrintSummary and PrintPages, too.
    const RenderRequest &Request() const { return m_request; }
    /// Filled for PrintPages.
    const PrintRequest &Pages() const { return m_pages; }
    /// As --lang names it; empty for the user's own.
    const QString &Language() const { return m_language; }
    /// The same before anything else is known, since errors are told in that language, too.
    static QString LanguageIn(const QStringList &arguments);
    /// Whether dark colours are asked for rather than the system's.
    bool Dark() const { return m_dark; }
    /// One line.
    const QString &Error() const { return m_error; }
    const QString &HelpText() const { return m_helpText; }

private:
    Action Fail(const QString &error);
    Action ReadRequest(const QCommandLineParser &parser);
    bool ReadView(const QCommandLineParser &parser); ///< with its table
    Action ReadPrintRequest(const QCommandLineParser &parser);
    bool ReadScale(const QCommandLineParser &parser);
    Action ReadFileOptions(const QCommandLineParser &parser);
    /// The action, when the ends of the range make sense.
    Action ReadRange(const QCommandLineParser &parser, Action action);

    Action m_action = Action::ShowWindow;
    QString m_fileName;
    QString m_output;
    ReadOptions m_reading;
    RenderRequest m_request;
    PrintRequest m_pages;
    QString m_language;
    bool m_dark = false;
    QString m_error;
    QString m_helpText;
};

/// Prints "planner: " and the line on standard error.
void PrintError(const QString &line);
/// The plan in a file; for one that cannot be used, prints a line on standard error.
std::optional<PlanResult> LoadOrPrintError(const QString &fileName, const ReadOptions &options);
/// Prints the plan's figures as JSON on standard output, or one line on standard error.
ExitCode PrintSummary(const QString &fileName, const ReadOptions &options);
/// Reads a plan and writes it as project XML.
ExitCode Convert(const QString &fileName, const ReadOptions &options, const QString &output);

} // namespace korvane::planner
