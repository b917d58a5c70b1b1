#include "plan/GanttProjectReader.h"

#include "plan/GanttProjectCalendar.h"
#include "plan/PlanFields.h"
#include "plan/PlanRefusal.h"
#include "plan/PlanXml.h"
#include "plan/PlannerText.h"

#include <array>
#include <utility>

namespace korvane::planner {

namespace {

std::optional<PlanLinkType> LinkTypeOf(QStringView text)
{
    // Numbered from 1.
    constexpr std::array kTypes{PlanLinkType::StartToStart, PlanLinkType::FinishToStart,
                                PlanLinkType::FinishToFinish, PlanLinkType::StartToFinish};
    const auto number = ParseInteger(text);
    if (!number || *number < 1 || *number > std::ssize(kTypes)) {
        return std::nullopt;
    }
    return kTypes[*number - 1];
}

class Parser
{
public:
    Parser(QIODevice &source, IProgress &progress)
        : m_xml(source, progress)
    {
    }

    Plan Read();

private:
    using ReadItem = void (Parser::*)();

    void ReadProject();
    void ReadTasks();
    int ReadTask(int level);
    TaskTimes ReadTimes(const FieldReader &fields, bool isMilestone);
    void ReadLink(int predecessor);
    /// Calls `read` for every child of that name and skips the others.
    void ReadList(QStringView name, ReadItem read);
    void ReadResource();
    void ReadAllocation();

    PlanXml m_xml;
    PlanBuilder m_builder;
};

Plan Parser::Read()
{
    m_xml.EnterRoot();
    if (!m_xml.Is(u"project") || !m_xml.RootNamespace().isEmpty()) {
        throw PlanRefusal(m_xml.Line(),
                          PlannerText::tr("the root element is not a <project> without "
                                          "a namespace"));
    }
    ReadProject();
    if (!m_xml.LeaveRoot()) {
        m_builder.Remark(m_xml.Line(), PlannerText::tr("What follows the end of the project is not "
                                                       "well-formed; it is ignored."));
    }
    return m_builder.Finish();
}

void Parser::ReadProject()
{
    m_builder.SetProject(m_xml.Attribute(u"name").toString(), std::nullopt, std::nullopt);
    bool hasCalendar = false;
    bool hasTasks = false;
    while (m_xml.NextChild()) {
        if (m_xml.Is(u"calendars") && !hasCalendar) {
            hasCalendar = true;
            ReadGanttProjectCalendar(m_xml, m_builder);
        } else if (m_xml.Is(u"tasks")) {
            hasTasks = true;
            if (!std::exchange(hasCalendar, true)) {
                AddGanttProjectCalendar(m_builder);
            }
            ReadTasks();
        } else if (m_xml.Is(u"resources")) {
            ReadList(u"resource", &Parser::ReadResource);
        } else if (m_xml.Is(u"allocations")) {
            ReadList(u"allocation", &Parser::ReadAllocation);
        } else {
            m_xml.Skip();
        }
    }
    if (!hasTasks) {
        throw PlanRefusal(0, PlannerText::tr("no project plan: there is no <tasks> element"));
    }
}

/// Tasks nest; the ones that are open stand on a stack, so that depth costs no calls.
void Parser::ReadTasks()
{
    std::vector<int> open;
    for (;;) {
        if (!m_xml.NextChild()) {
            if (open.empty()) {
                return;
            }
            open.pop_back();
        } else if (m_xml.Is(u"task")) {
            if (!open.empty()) {
                m_builder.Task(open.back()).MarkedSummary = true;
            }
            open.push_back(ReadTask(static_cast<int>(open.size()) + 1));
        } else if (m_xml.Is(u"depend") && !open.empty()) {
            ReadLink(open.back());
        } else if (m_xml.Is(u"notes") && !open.empty()) {
            const qint64 line = m_xml.Line();
            m_builder.SetNotes(open.back(), m_xml.Text(), line);
        } else {
            m_xml.Skip();
        }
    }
}

/// The attributes only; the children are the caller's.
int Parser::ReadTask(int level)
{
    const qint64 line = m_xml.Line();
    const FieldReader fields(m_builder, line);
    PlanTask task;
    task.Uid = fields.Uid(m_xml.Attribute(u"id"));
    task.Name = m_xml.Attribute(u"name").toString();
    task.Milestone = ParseFlag(m_xml.Attribute(u"meeting"));
    task.Color = ParseColor(m_xml.Attribute(u"color"));
    task.Collapsed = m_xml.Attribute(u"expand") == u"false";
    if (const QStringView complete = m_xml.Attribute(u"complete"); !complete.isEmpty()) {
        task.PercentComplete = fields.Percent(complete);
    }
    const TaskTimes times = ReadTimes(fields, task.Milestone);
    return m_builder.AddTask(std::move(task), level, times, line);
}

TaskTimes Parser::ReadTimes(const FieldReader &fields, bool isMilestone)
{
    TaskTimes times;
    times.Start = fields.Date(m_xml.Attribute(u"start"));
    if (!times.Start) {
        return times;
    }
    const auto days =
        isMilestone ? 0.0
                    : fields.Number(m_xml.Attribute(u"duration"),
                                    QT_TRANSLATE_NOOP("Planner", "\"%1\" is not a duration."));
    times.Finish =
        m_builder.Calendar().FinishAfter(*times.Start, days.value_or(0) * kMinutesPerDay);
    return times;
}

void Parser::ReadLink(int predecessor)
{
    const qint64 line = m_xml.Line();
    const FieldReader fields(m_builder, line);
    PendingLink link;
    link.Known = predecessor;
    link.KnownEnd = LinkEnd::Predecessor;
    link.OtherUid = fields.Uid(m_xml.Attribute(u"id"));
    link.Line = line;
    const auto type = LinkTypeOf(m_xml.Attribute(u"type"));
    if (!type) {
        m_builder.Remark(line, PlannerText::tr("A link has no known type; it is taken as finish to "
                                               "start."));
    }
    link.Type = type.value_or(PlanLinkType::FinishToStart);
    if (const QStringView days = m_xml.Attribute(u"difference"); !days.isEmpty()) {
        link.Lag.Amount =
            fields.Number(days, QT_TRANSLATE_NOOP("Planner", "\"%1\" is not a lag.")).value_or(0)
            * kMinutesPerDay;
    }
    m_xml.Skip();
    m_builder.AddLink(link);
}

void Parser::ReadList(QStringView name, ReadItem read)
{
    while (m_xml.NextChild()) {
        if (m_xml.Is(name)) {
            (this->*read)();
        }
        m_xml.Skip();
    }
}

void Parser::ReadResource()
{
    const qint64 line = m_xml.Line();
    PlanResource resource;
    resource.Uid = FieldReader(m_builder, line).Uid(m_xml.Attribute(u"id"));
    resource.Name = m_xml.Attribute(u"name").toString();
    m_builder.AddResource(std::move(resource), line);
}

void Parser::ReadAllocation()
{
    constexpr double kPercent = 100;
    const qint64 line = m_xml.Line();
    const FieldReader fields(m_builder, line);
    const auto task = fields.Uid(m_xml.Attribute(u"task-id"));
    const auto resource = fields.Uid(m_xml.Attribute(u"resource-id"));
    const auto load = fields.Number(m_xml.Attribute(u"load"),
                                    QT_TRANSLATE_NOOP("Planner", "\"%1\" is not a load."));
    m_builder.AddAssignment(task, resource, load.value_or(kPercent) / kPercent, line);
}

} // namespace

QString GanttProjectReader::Name() const
{
    return QStringLiteral("GanttProject");
}

QStringList GanttProjectReader::FilePatterns() const
{
    return {QStringLiteral("*.gan"), QStringLiteral("*.gan.gz")};
}

bool GanttProjectReader::CanRead(const QByteArray &head) const
{
    const XmlRoot root = RootOf(head);
    return root.Name == u"project" && root.Namespace.isEmpty();
}

PlanResult GanttProjectReader::Read(QIODevice &source, IProgress &progress) const
{
    return ResultOf([&] { return Parser(source, progress).Read(); });
}

} // namespace korvane::planner
