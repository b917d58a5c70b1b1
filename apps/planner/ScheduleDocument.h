// The calendar that is worked on, with its file and the history of its changes.
#pragma once

#include "agenda/AgendaReader.h"
#include "agenda/SchedulePage.h"

#include <QDateTime>
#include <QObject>
#include <QUndoStack>

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

    /// What can be meant by moves of blocks: for each of them what holds for one of them at least.
    std::vector<AgendaScope> ScopesOf(const SchedulePage &page,
                                      const std::vector<ScheduleMove> &moves) const;
    /// Moves blocks of a page. Blocks that stand for the same event, or, as far as the scope goes,
    /// for the same series, move it once. Returns why that cannot be done.
    std::optional<QString> Move(const SchedulePage &page, const std::vector<ScheduleMove> &moves,
                                AgendaScope scope);

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
    QString TextOf(const SchedulePage &page, const std::vector<ScheduleMove> &moves,
                   AgendaScope scope) const;
    void Swap(AgendaEdit &edit) { edit.SwapWith(m_agenda); }

    Agenda m_agenda;
    AgendaPages m_pages;
    QByteArray m_source; ///< from which the agenda was read
    QString m_fileName;
    FileState m_fileState;
    QUndoStack m_history;
};

} // namespace korvane::planner
