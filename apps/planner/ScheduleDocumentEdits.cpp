// What the user does to the events of a calendar.
#include "ScheduleDocument.h"
#include "agenda/AgendaWriter.h"
#include "plan/PlanRefusal.h"

#include <algorithm>
#include <set>

namespace korvane::planner {

namespace {

const ScheduleBlock &BlockOf(const SchedulePage &page, int block)
{
    return page.Blocks.at(static_cast<std::size_t>(block));
}

std::vector<int> BlocksOf(const std::vector<ScheduleMove> &moves)
{
    std::vector<int> blocks;
    for (const ScheduleMove &move : moves) {
        blocks.push_back(move.Block);
    }
    return blocks;
}

QString NameOf(const ScheduleBlock &block)
{
    constexpr qsizetype kMostCharacters = 40;
    return block.Title.size() > kMostCharacters ? block.Title.left(kMostCharacters).trimmed() + u'…'
                                                : block.Title;
}

} // namespace

// --- scopes --------------------------------------------------------------------------------------

std::vector<AgendaScope>
ScheduleDocument::ScopesOfMoves(const SchedulePage &page,
                                const std::vector<ScheduleMove> &moves) const
{
    std::set<AgendaScope> scopes;
    for (const ScheduleMove &move : moves) {
        const AgendaOccurrence &occurrence = page.OccurrenceOf(move.Block);
        std::vector<AgendaScope> its = ScopesOf(m_agenda, occurrence);
        const auto calendar = page.Columns.at(static_cast<std::size_t>(move.Column)).Calendar;
        if (its.size() > 1 && calendar && *calendar != m_agenda.At(occurrence.Event).Calendar) {
            std::erase(its, AgendaScope::Occurrence); // which stays with its series
        }
        scopes.insert(its.begin(), its.end());
    }
    return {scopes.begin(), scopes.end()};
}

std::vector<AgendaScope> ScheduleDocument::ScopesOfRemoval(const SchedulePage &page,
                                                           const std::vector<int> &blocks) const
{
    using enum AgendaScope;
    const bool isAnyRepeated = std::ranges::any_of(
        blocks, [&](int block) { return page.OccurrenceOf(block).Series >= 0; });
    return isAnyRepeated ? std::vector{Occurrence, Following, Series} : std::vector{Occurrence};
}

std::vector<AgendaScope> ScheduleDocument::ScopesOfEdit(const SchedulePage &page, int block,
                                                        const ScheduleDraft &draft) const
{
    const AgendaOccurrence &occurrence = page.OccurrenceOf(block);
    const ScheduleDraft former = m_pages.DraftOf(occurrence);
    if (draft == former) {
        return {};
    }
    std::vector<AgendaScope> scopes = ScopesOf(m_agenda, occurrence);
    if (scopes.size() > 1 && (draft.Rule != former.Rule || draft.Calendar != former.Calendar)) {
        std::erase(scopes, AgendaScope::Occurrence);
    }
    return scopes;
}

// --- changes -------------------------------------------------------------------------------------

std::vector<int> ScheduleDocument::ChosenOf(const SchedulePage &page,
                                            const std::vector<int> &blocks, AgendaScope scope) const
{
    std::vector<int> ordered = blocks;
    std::ranges::stable_sort(ordered, {},
                             [&](int block) { return page.OccurrenceOf(block).Start.Wall; });
    std::set<int> occurrences;
    std::set<int> series;
    std::erase_if(ordered, [&](int block) {
        const AgendaOccurrence &occurrence = page.OccurrenceOf(block);
        const bool isMore = ScopesOf(m_agenda, occurrence).size() > 1;
        return !occurrences.insert(BlockOf(page, block).Occurrence).second
               || (isMore && scope != AgendaScope::Occurrence
                   && !series.insert(occurrence.Series).second);
    });
    return ordered;
}

std::optional<QString> ScheduleDocument::Move(const SchedulePage &page,
                                              const std::vector<ScheduleMove> &moves,
                                              AgendaScope scope)
{
    std::vector<Make> makes;
    for (const int block : ChosenOf(page, BlocksOf(moves), scope)) {
        const ScheduleMove &move = *std::ranges::find(moves, block, &ScheduleMove::Block);
        makes.emplace_back([&] { return m_pages.Moved(page, move, scope); });
    }
    return Perform(makes, TextOf(page, moves, scope));
}

std::optional<QString> ScheduleDocument::Copy(const SchedulePage &page,
                                              const std::vector<ScheduleMove> &moves)
{
    const auto scope = AgendaScope::Occurrence;
    std::vector<Make> makes;
    for (const int block : ChosenOf(page, BlocksOf(moves), scope)) {
        const ScheduleMove &move = *std::ranges::find(moves, block, &ScheduleMove::Block);
        makes.emplace_back([&] { return m_pages.Copied(page, move); });
    }
    return Perform(makes, TextOf(tr("Copy %1"), page, BlocksOf(moves), scope));
}

std::optional<QString> ScheduleDocument::Remove(const SchedulePage &page,
                                                const std::vector<int> &blocks, AgendaScope scope)
{
    std::vector<Make> makes;
    std::set<int> series;
    for (const int block : ChosenOf(page, blocks, scope)) {
        const AgendaOccurrence &occurrence = page.OccurrenceOf(block);
        const bool isDone = scope != AgendaScope::Occurrence && occurrence.Series >= 0
                            && !series.insert(occurrence.Series).second;
        if (!isDone) {
            makes.emplace_back([&] { return RemoveOccurrence(m_agenda, occurrence, scope); });
        }
    }
    return Perform(makes, TextOf(tr("Delete %1"), page, blocks, scope));
}

std::optional<QString> ScheduleDocument::Edit(const SchedulePage &page, int block,
                                              const ScheduleDraft &draft, AgendaScope scope)
{
    return Perform({[&] { return m_pages.Edited(page.OccurrenceOf(block), draft, scope); }},
                   TextOf(tr("Change %1"), page, {block}, scope));
}

std::optional<QString> ScheduleDocument::Add(const ScheduleDraft &draft)
{
    return Perform({[&] { return m_pages.Added(draft); }},
                   tr("New event “%1”").arg(draft.Title.simplified()));
}

// --- clipboard -----------------------------------------------------------------------------------

QByteArray ScheduleDocument::Clip(const SchedulePage &page, const std::vector<int> &blocks) const
{
    std::vector<AgendaEvent> events;
    for (const int block : ChosenOf(page, blocks, AgendaScope::Occurrence)) {
        const AgendaOccurrence &occurrence = page.OccurrenceOf(block);
        events.push_back(SingleEventLike(m_agenda, occurrence));
    }
    return WriteClip(m_agenda, m_source, events);
}

std::optional<QString> ScheduleDocument::Paste(const QByteArray &text, const ScheduleColumn &target,
                                               int calendar)
{
    NoProgress progress;
    try {
        const Agenda other = ReadAgenda(text, progress);
        const auto count = other.EventCount();
        return Perform({[&] { return m_pages.Pasted(text, other, target, calendar); }},
                       count == 1 ? tr("Paste “%1”").arg(other.Events.front().Title.simplified())
                                  : tr("Paste %n events", nullptr, static_cast<int>(count)));
    } catch (const PlanRefusal &refusal) {
        return refusal.Error().Reason;
    }
}

std::vector<std::pair<int, QString>> ScheduleDocument::Calendars() const
{
    std::vector<std::pair<int, QString>> names;
    for (std::size_t i = 0; i < m_agenda.Calendars.size(); ++i) {
        const AgendaCalendar &calendar = m_agenda.Calendars[i];
        if (!calendar.IsImplied) {
            const int number = static_cast<int>(i);
            const QString name = calendar.Name.simplified();
            names.emplace_back(number, name.isEmpty() ? tr("Calendar %1").arg(number + 1) : name);
        }
    }
    return names;
}

// --- texts of the steps --------------------------------------------------------------------------

QString ScheduleDocument::TextOf(const SchedulePage &page, const std::vector<ScheduleMove> &moves,
                                 AgendaScope scope) const
{
    const ScheduleBlock &block = BlockOf(page, moves.front().Block);
    const AgendaRange &times = moves.front().Times;
    const bool isMove = times.To - times.From == block.Stop - block.Start;
    return TextOf(isMove ? tr("Move %1") : tr("Stretch %1"), page, BlocksOf(moves), scope);
}

QString ScheduleDocument::TextOf(const QString &verb, const SchedulePage &page,
                                 const std::vector<int> &blocks, AgendaScope scope) const
{
    std::set<int> occurrences;
    for (const int block : blocks) {
        occurrences.insert(BlockOf(page, block).Occurrence);
    }
    if (occurrences.size() > 1) {
        return verb.arg(tr("%n events", nullptr, static_cast<int>(occurrences.size())));
    }
    const ScheduleBlock &block = BlockOf(page, blocks.front());
    const QString name = tr("“%1”").arg(NameOf(block));
    if (page.OccurrenceOf(blocks.front()).Series < 0) {
        return verb.arg(name);
    }
    switch (scope) {
    case AgendaScope::Following:
        return tr("%1 and those that follow").arg(verb.arg(name));
    case AgendaScope::Series:
        return verb.arg(tr("all of %1").arg(name));
    case AgendaScope::Occurrence:
        break;
    }
    return verb.arg(name);
}

} // namespace korvane::planner
