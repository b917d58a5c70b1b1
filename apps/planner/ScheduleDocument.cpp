#include "ScheduleDocument.h"

#include "agenda/AgendaWriter.h"

#include <QFileInfo>

#include <ranges>

namespace korvane::planner {

/// Edits that follow each other; they have been done when the step is made.
class ScheduleDocument::Step final : public QUndoCommand
{
public:
    Step(ScheduleDocument &document, std::vector<AgendaEdit> edits, const QString &text)
        : QUndoCommand(text)
        , m_document(document)
        , m_edits(std::move(edits))
    {
    }

    void redo() override
    {
        if (std::exchange(m_isDone, true)) {
            return;
        }
        for (AgendaEdit &edit : m_edits) {
            m_document.Swap(edit);
        }
        m_document.Touch(m_edits);
        Q_EMIT m_document.changed();
    }

    void undo() override
    {
        m_isDone = false;
        for (AgendaEdit &edit : m_edits | std::views::reverse) {
            m_document.Swap(edit);
        }
        m_document.Touch(m_edits);
        Q_EMIT m_document.changed();
    }

private:
    ScheduleDocument &m_document;
    std::vector<AgendaEdit> m_edits;
    bool m_isDone = true;
};

ScheduleDocument::ScheduleDocument(AgendaResult calendar, const QString &fileName, QObject *parent)
    : QObject(parent)
    , m_agenda(std::move(calendar.Value))
    , m_pages(m_agenda)
    , m_source(std::move(calendar.Text))
    , m_fileName(fileName)
    , m_fileState(StateOf(fileName))
{
}

ScheduleDocument::FileState ScheduleDocument::StateOf(const QString &fileName)
{
    const QFileInfo info(fileName);
    return {info.size(), info.lastModified()};
}

bool ScheduleDocument::IsOutdated() const
{
    return QFileInfo::exists(m_fileName) && StateOf(m_fileName) != m_fileState;
}

void ScheduleDocument::Touch(const std::vector<AgendaEdit> &edits)
{
    m_touched.clear();
    for (const AgendaEdit &edit : edits) {
        const std::vector<int> events = edit.Events();
        m_touched.insert(m_touched.end(), events.begin(), events.end());
    }
}

std::optional<QString> ScheduleDocument::Perform(const std::vector<Make> &makes,
                                                 const QString &text)
{
    std::vector<AgendaEdit> edits;
    std::optional<QString> reason;
    for (const Make &make : makes) {
        auto edit = make();
        if (auto *refusal = std::get_if<QString>(&edit)) {
            reason = *refusal;
            break;
        }
        if (!std::get<AgendaEdit>(edit).IsEmpty()) {
            edits.push_back(std::move(std::get<AgendaEdit>(edit)));
            Swap(edits.back());
        }
    }
    if (reason) {
        for (AgendaEdit &edit : edits | std::views::reverse) {
            Swap(edit);
        }
        return reason;
    }
    if (!edits.empty()) {
        Touch(edits);
        m_history.push(new Step(*this, std::move(edits), text));
        Q_EMIT changed();
    }
    return std::nullopt;
}

std::optional<QString> ScheduleDocument::Save(const QString &fileName)
{
    if (const auto error = SaveAgenda(m_agenda, m_source, fileName)) {
        return error;
    }
    m_fileName = fileName;
    m_fileState = StateOf(fileName);
    m_history.setClean();
    return std::nullopt;
}

} // namespace korvane::planner
