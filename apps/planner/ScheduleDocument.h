// The calendar that is worked on, with its file and the history of its changes.
#pragma once

#include "agenda/AgendaReader.h"
#include "agenda/SchedulePage.h"

#include <QDateTime>
#include <QObject>
#include <QUndoStack>

#include <functional>
#include <optional>
#include <vector>

namespace korvane::planner {

/// Owns an agenda and the text that it was read from. What the user does to it is one step of the
/// history each, with a text that names it; a step that is not possible changes nothing.
class ScheduleDocument : public QObject
{
    Q_OBJECT

public:
    ScheduleDocument(AgendaResult calendar, const QString &fileName, QObject *parent = nullptr);

    const Agenda &GetAgenda() const { return m_agenda; }
    const AgendaPages &Pages() const { return m_pages; }
    const QString &FileName() const { return m_fileName; }
    QUndoStack &History() { return m_history; }
    bool IsModified() const { return !m_history.isClean(); }

    // What can be meant by a change: for several blocks what holds for one of them at least.
    std::vector<AgendaScope> ScopesOfMoves(const SchedulePage &page,
                                           const std::vector<ScheduleMove> &moves) const;
    std::vector<AgendaScope> ScopesOfRemoval(const SchedulePage &page,
                                             const std::vector<int> &blocks) const;
    /// None where the form changes nothing.
    std::vector<AgendaScope> ScopesOfEdit(const SchedulePage &page, int block,
                                          const ScheduleDraft &draft) const;

    // Each returns why it cannot be done. Blocks that stand for the same event, or, as far as the
    // scope goes, for the same series, change it once.
    std::optional<QString> Move(const SchedulePage &page, const std::vector<ScheduleMove> &moves,
                                AgendaScope scope);
    std::optional<QString> Copy(const SchedulePage &page, const std::vector<ScheduleMove> &moves);
    std::optional<QString> Remove(const SchedulePage &page, const std::vector<int> &blocks,
                                  AgendaScope scope);
    std::optional<QString> Edit(const SchedulePage &page, int block, const ScheduleDraft &draft,
                                AgendaScope scope);
    std::optional<QString> Add(const ScheduleDraft &draft);
    /// The blocks' occurrences as a calendar.
    QByteArray Clip(const SchedulePage &page, const std::vector<int> &blocks) const;
    /// The events of such a text, the first one on the column's day.
    std::optional<QString> Paste(const QByteArray &text, const ScheduleColumn &target,
                                 int calendar);
    /// The events that the last step done or undone was about.
    const std::vector<int> &Touched() const { return m_touched; }
    /// Names of the calendars that events can be put into, by index.
    std::vector<std::pair<int, QString>> Calendars() const;

    /// Writes the calendar, which from then on is that file's. Returns what went wrong.
    std::optional<QString> Save(const QString &fileName);
    /// Whether another program has written the file since it was read or saved.
    bool IsOutdated() const;

Q_SIGNALS:
    /// Occurrences found before are of no use any more.
    void changed();

private:
    class Step;
    struct FileState
    {
        qint64 Size = 0;
        QDateTime Time;

        friend bool operator==(const FileState &, const FileState &) = default;
    };

    static FileState StateOf(const QString &fileName);
    using Make = std::function<std::variant<AgendaEdit, QString>()>;

    /// Makes edits one after the other; all of them, as one step, or none.
    std::optional<QString> Perform(const std::vector<Make> &makes, const QString &text);
    /// Of blocks those that are to be changed, in order of time.
    std::vector<int> ChosenOf(const SchedulePage &page, const std::vector<int> &blocks,
                              AgendaScope scope) const;
    QString TextOf(const SchedulePage &page, const std::vector<ScheduleMove> &moves,
                   AgendaScope scope) const;
    QString TextOf(const QString &verb, const SchedulePage &page, const std::vector<int> &blocks,
                   AgendaScope scope) const;
    void Swap(AgendaEdit &edit) { edit.SwapWith(m_agenda); }
    void Touch(const std::vector<AgendaEdit> &edits);

    Agenda m_agenda;
    AgendaPages m_pages;
    QByteArray m_source; ///< from which the agenda was read
    QString m_fileName;
    FileState m_fileState;
    QUndoStack m_history;
    std::vector<int> m_touched;
};

} // namespace korvane::planner
