#include "ScheduleDocument.h"

#include "agenda/AgendaWriter.h"

#include <QFileInfo>

#include <algorithm>
#include <ranges>
#include <set>

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
        Q_EMIT m_document.changed();
    }

    void undo() override
    {
        m_isDone = false;
        for (AgendaEdit &edit : m_edits | std::views::reverse) {
            m_document.Swap(edit);
        }
        Q_EMIT m_document.changed();
    }

private:
    ScheduleDocument &m_document;
    std::vector<AgendaEdit> m_edits;
    bool m_isDone = true;
};

namespace {

const ScheduleBlock &BlockOf(const SchedulePage &page, const ScheduleMove &move)
{
    return page.Blocks.at(static_cast<std::size_t>(move.Block));
}

const AgendaOccurrence &OccurrenceOf(const SchedulePage &page, const ScheduleMove &move)
{
    return page.Occurrences.at(static_cast<std::size_t>(BlockOf(page, move).Occurrence));
}

} // namespace

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

std::vector<AgendaScope> ScheduleDocument::ScopesOf(const SchedulePage &page,
                                                    const std::vector<ScheduleMove> &moves) const
{
    std::set<AgendaScope> scopes;
    for (const ScheduleMove &move : moves) {
        const auto its = planner::ScopesOf(m_agenda, OccurrenceOf(page, move));
        scopes.insert(its.begin(), its.end());
    }
    return {scopes.begin(), scopes.end()};
}

std::optional<QString> ScheduleDocument::Move(const SchedulePage &page,
                                              const std::vector<ScheduleMove> &moves,
                                              AgendaScope scope)
{
    // In order of time, so that of a series the first one is taken.
    std::vector<ScheduleMove> ordered = moves;
    std::ranges::stable_sort(
        ordered, {}, [&](const ScheduleMove &move) { return OccurrenceOf(page, move).Start.Wall; });
    std::vector<AgendaEdit> edits;
    std::set<int> occurrences;
    std::set<int> series;
    std::optional<QString> reason;
    for (const ScheduleMove &move : ordered) {
        const AgendaOccurrence &occurrence = OccurrenceOf(page, move);
        const bool isMore = planner::ScopesOf(m_agenda, occurrence).size() > 1;
        if (!occurrences.insert(BlockOf(page, move).Occurrence).second
            || (isMore && scope != AgendaScope::Occurrence
                && !series.insert(occurrence.Series).second)) {
            continue;
        }
        auto edit = m_pages.Moved(page, move, scope);
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
        m_history.push(new Step(*this, std::move(edits), TextOf(page, moves, scope)));
        Q_EMIT changed();
    }
    return std::nullopt;
}

QString ScheduleDocument::TextOf(const SchedulePage &page, const std::vector<ScheduleMove> &moves,
                                 AgendaScope scope) const
{
    const ScheduleMove &first = moves.front();
    const ScheduleBlock &block = BlockOf(page, first);
    std::set<int> occurrences;
    for (const ScheduleMove &move : moves) {
        occurrences.insert(BlockOf(page, move).Occurrence);
    }
    if (occurrences.size() > 1) {
        return tr("Move %1 events").arg(occurrences.size());
    }
    constexpr qsizetype kMostCharacters = 40;
    QString name = block.Title;
    if (name.size() > kMostCharacters) {
        name = name.left(kMostCharacters).trimmed() + u'…';
    }
    const bool isMove = first.Times.To - first.Times.From == block.Stop - block.Start;
    const QString what = isMove ? tr("Move “%1”") : tr("Stretch “%1”");
    switch (planner::ScopesOf(m_agenda, OccurrenceOf(page, first)).size() > 1
                ? scope
                : AgendaScope::Occurrence) {
    case AgendaScope::Following:
        return tr("%1 and those that follow").arg(what.arg(name));
    case AgendaScope::Series:
        return isMove ? tr("Move all of “%1”").arg(name) : tr("Stretch all of “%1”").arg(name);
    case AgendaScope::Occurrence:
        break;
    }
    return what.arg(name);
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
