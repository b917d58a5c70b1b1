// What the planner is asked to do when it is started.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace korvane::planner {

/// Exit codes of the planner.
enum class ExitCode : int { Ok = 0, UnusableFile = 1, WrongUsage = 2 };

/// The parsed command line. Needs no application object, so that it can be parsed before it is
/// known whether a display is wanted.
class CommandLine
{
public:
    enum class Action : std::uint8_t {
        ShowWindow,
        PrintSummary,
        PrintHelp,
        PrintVersion,
        ReportError, ///< Error() says what is wrong with the command line
    };

    /// `arguments` begin with the program's own name.
    explicit CommandLine(const QStringList &arguments);

    Action GetAction() const { return m_action; }
    /// Empty when no file is named, which only ShowWindow allows.
    const QString &FileName() const { return m_fileName; }
    /// One line.
    const QString &Error() const { return m_error; }
    const QString &HelpText() const { return m_helpText; }

private:
    Action Fail(const QString &error);

    Action m_action = Action::ShowWindow;
    QString m_fileName;
    QString m_error;
    QString m_helpText;
};

/// Prints the plan's figures as JSON on standard output, or one line on standard error.
ExitCode PrintSummary(const QString &fileName);

} // namespace korvane::planner
