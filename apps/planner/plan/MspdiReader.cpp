#include "plan/MspdiReader.h"

#include "plan/MspdiCalendar.h"
#include "plan/MspdiFormat.h"
#include "plan/PlanFields.h"
#include "plan/PlanRefusal.h"
#include "plan/PlanXml.h"
#include "plan/PlannerText.h"

namespace korvane::planner {

using namespace mspdi;

namespace {

std::optional<PlanLinkType> LinkTypeOf(QStringView text)
{
    const auto number = ParseInteger(text);
    if (!number || *number < 0 || *number >= std::ssize(kLinkTypes)) {
        return std::nullopt;
    }
    return kLinkTypes[*number];
}

PlanConstraint ConstraintOf(QStringView text)
{
    const auto number = ParseInteger(text);
    const auto last = static_cast<std::int64_t>(PlanConstraint::FinishNoLaterThan);
    return number && *number >= 0 && *number <= last ? static_cast<PlanConstraint>(*number)
                                                     : PlanConstraint::AsSoonAsPossible;
}

/// Everything of one `Task` element; whether the plan wants it shows only at its end.
struct RawTask
{
    PlanTask Task;
    TaskTimes Times;
    QString Notes;
    std::optional<int> Level;
    std::optional<int> BaselineNumber;
    std::vector<PendingLink> Links;
    qint64 Line = 0;
    bool IsNull = false;

    bool IsWanted() const { return !IsNull && Task.Uid != kProjectUid; }
};

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

    void CheckRoot();
    void ReadProject();
    /// Calls `read` for every child of that name and skips the others.
    void ReadList(QStringView name, ReadItem read);
    void ReadCustomField();
    void ReadCustomValue(PlanTask &task);
    void ReadCalendar() { ReadMspdiCalendar(m_xml, m_builder); }
    void ReadTask();
    bool ReadTaskIdentity(RawTask &raw);
    bool ReadTaskTimes(RawTask &raw);
    bool ReadTaskState(RawTask &raw);
    void ReadBaseline(RawTask &raw);
    PendingLink ReadLink();
    void Keep(RawTask raw);
    void ReadResource();
    void ReadAssignment();
    void ReadTimephased(std::int64_t task);
    FieldReader Fields() { return {m_builder, m_xml.Line()}; }
    std::optional<TDateTime> Date() { return Fields().Date(m_xml.Text()); }

    PlanXml m_xml;
    PlanBuilder m_builder;
    QString m_colorField; ///< identifiers of the custom fields; empty where there are none
    QString m_collapsedField;
};

Plan Parser::Read()
{
    m_xml.EnterRoot();
    CheckRoot();
    ReadProject();
    if (!m_xml.LeaveRoot()) {
        m_builder.Remark(m_xml.Line(), PlannerText::tr("What follows the end of the project is not "
                                                       "well-formed; it is ignored."));
    }
    return m_builder.Finish();
}

void Parser::CheckRoot()
{
    if (!m_xml.Is(u"Project")) {
        throw PlanRefusal(
            m_xml.Line(),
            PlannerText::tr("the root element is <%1>, not <Project>").arg(m_xml.Name()));
    }
    const QString &space = m_xml.RootNamespace();
    if (!space.isEmpty() && space != kNamespace) {
        throw PlanRefusal(m_xml.Line(),
                          PlannerText::tr("another schema: the namespace is \"%1\", not \"%2\"")
                              .arg(space, kNamespace));
    }
}

void Parser::ReadProject()
{
    QString name;
    QString title;
    std::optional<TDateTime> start;
    std::optional<TDateTime> finish;
    bool hasTasks = false;
    while (m_xml.NextChild()) {
        if (m_xml.Is(u"Name")) {
            name = m_xml.Text();
        } else if (m_xml.Is(u"Title")) {
            title = m_xml.Text();
        } else if (m_xml.Is(u"StartDate")) {
            start = Date();
        } else if (m_xml.Is(u"FinishDate")) {
            finish = Date();
        } else if (m_xml.Is(u"CalendarUID")) {
            m_builder.UseCalendar(Fields().Uid(m_xml.Text()));
        } else if (m_xml.Is(u"ExtendedAttributes")) {
            ReadList(u"ExtendedAttribute", &Parser::ReadCustomField);
        } else if (m_xml.Is(u"Calendars")) {
            ReadList(u"Calendar", &Parser::ReadCalendar);
        } else if (m_xml.Is(u"Tasks")) {
            hasTasks = true;
            ReadList(u"Task", &Parser::ReadTask);
        } else if (m_xml.Is(u"Resources")) {
            ReadList(u"Resource", &Parser::ReadResource);
        } else if (m_xml.Is(u"Assignments")) {
            ReadList(u"Assignment", &Parser::ReadAssignment);
        } else {
            m_xml.Skip();
        }
    }
    if (!hasTasks && m_xml.RootNamespace().isEmpty()) {
        throw PlanRefusal(0, PlannerText::tr("no project plan: there is no <Tasks> element"));
    }
    m_builder.SetProject(title.trimmed().isEmpty() ? name : title, start, finish);
}

void Parser::ReadList(QStringView name, ReadItem read)
{
    while (m_xml.NextChild()) {
        if (m_xml.Is(name)) {
            (this->*read)();
        } else {
            m_xml.Skip();
        }
    }
}

void Parser::ReadCustomField()
{
    QString id;
    QString alias;
    while (m_xml.NextChild()) {
        if (m_xml.Is(u"FieldID")) {
            id = m_xml.Text();
        } else if (m_xml.Is(u"Alias")) {
            alias = m_xml.Text();
        } else {
            m_xml.Skip();
        }
    }
    if (alias == kColorAlias) {
        m_colorField = id;
    } else if (alias == kCollapsedAlias) {
        m_collapsedField = id;
    }
}

void Parser::ReadCustomValue(PlanTask &task)
{
    QString id;
    QString value;
    while (m_xml.NextChild()) {
        if (m_xml.Is(u"FieldID")) {
            id = m_xml.Text();
        } else if (m_xml.Is(u"Value")) {
            value = m_xml.Text();
        } else {
            m_xml.Skip();
        }
    }
    if (!id.isEmpty() && id == m_colorField) {
        task.Color = ParseColor(value);
    } else if (!id.isEmpty() && id == m_collapsedField) {
        task.Collapsed = ParseFlag(value);
    }
}

void Parser::ReadTask()
{
    RawTask raw;
    raw.Line = m_xml.Line();
    while (m_xml.NextChild()) {
        if (!ReadTaskIdentity(raw) && !ReadTaskTimes(raw) && !ReadTaskState(raw)) {
            m_xml.Skip();
        }
    }
    if (raw.IsWanted()) {
        Keep(std::move(raw));
    }
}

bool Parser::ReadTaskIdentity(RawTask &raw)
{
    if (m_xml.Is(u"UID")) {
        raw.Task.Uid = Fields().Uid(m_xml.Text());
    } else if (m_xml.Is(u"Name")) {
        raw.Task.Name = m_xml.Text();
    } else if (m_xml.Is(u"IsNull")) {
        raw.IsNull = ParseFlag(m_xml.Text());
    } else if (m_xml.Is(u"OutlineLevel")) {
        raw.Level = Fields().Integer(
            m_xml.Text(), QT_TRANSLATE_NOOP("Planner", "\"%1\" is not an outline level."));
    } else if (m_xml.Is(u"OutlineNumber")) {
        // "1.2.3" is of level 3; of use where there is no level.
        const QString number = m_xml.Text();
        if (!raw.Level && !number.isEmpty()) {
            raw.Level = static_cast<int>(number.count(u'.')) + 1;
        }
    } else if (m_xml.Is(u"Notes")) {
        raw.Notes = m_xml.Text();
    } else if (m_xml.Is(u"PredecessorLink")) {
        raw.Links.push_back(ReadLink());
    } else if (m_xml.Is(u"ExtendedAttribute")) {
        ReadCustomValue(raw.Task);
    } else {
        return false;
    }
    return true;
}

bool Parser::ReadTaskTimes(RawTask &raw)
{
    if (m_xml.Is(u"Start")) {
        raw.Times.Start = Date();
    } else if (m_xml.Is(u"Finish")) {
        raw.Times.Finish = Date();
    } else if (m_xml.Is(u"ManualStart")) {
        raw.Times.FallbackStart = Date();
    } else if (m_xml.Is(u"ManualFinish")) {
        raw.Times.FallbackFinish = Date();
    } else if (m_xml.Is(u"Duration")) {
        raw.Times.Minutes = Fields().Duration(m_xml.Text());
    } else if (m_xml.Is(u"DurationFormat")) {
        const auto format = ParseInteger(m_xml.Text()).value_or(0);
        raw.Times.IsElapsed = TimeFormatOf(static_cast<int>(format)) == TimeFormat::Elapsed;
    } else if (m_xml.Is(u"Deadline")) {
        raw.Task.Deadline = Date();
    } else if (m_xml.Is(u"ConstraintDate")) {
        raw.Task.ConstraintDate = Date();
    } else if (m_xml.Is(u"Baseline")) {
        ReadBaseline(raw);
    } else {
        return false;
    }
    return true;
}

bool Parser::ReadTaskState(RawTask &raw)
{
    if (m_xml.Is(u"Milestone")) {
        raw.Task.Milestone = ParseFlag(m_xml.Text());
    } else if (m_xml.Is(u"Summary")) {
        raw.Task.MarkedSummary = ParseFlag(m_xml.Text());
    } else if (m_xml.Is(u"Manual")) {
        raw.Task.Manual = ParseFlag(m_xml.Text());
    } else if (m_xml.Is(u"PercentComplete")) {
        raw.Task.PercentComplete = Fields().Percent(m_xml.Text());
    } else if (m_xml.Is(u"ConstraintType")) {
        raw.Task.Constraint = ConstraintOf(m_xml.Text());
    } else {
        return false;
    }
    return true;
}

/// Of several baselines the one with the lowest number is kept.
void Parser::ReadBaseline(RawTask &raw)
{
    int number = 0;
    std::optional<TDateTime> start;
    std::optional<TDateTime> finish;
    while (m_xml.NextChild()) {
        if (m_xml.Is(u"Number")) {
            number = Fields()
                         .Integer(m_xml.Text(),
                                  QT_TRANSLATE_NOOP("Planner", "\"%1\" is not a baseline number."))
                         .value_or(0);
        } else if (m_xml.Is(u"Start")) {
            start = Date();
        } else if (m_xml.Is(u"Finish")) {
            finish = Date();
        } else {
            m_xml.Skip();
        }
    }
    if (start && finish && *start <= *finish && number < raw.BaselineNumber.value_or(number + 1)) {
        raw.BaselineNumber = number;
        raw.Task.Baseline = PlanSpan{*start, *finish};
    }
}

PendingLink Parser::ReadLink()
{
    PendingLink link;
    link.Line = m_xml.Line();
    double lag = 0;
    int lagFormat = 0;
    while (m_xml.NextChild()) {
        if (m_xml.Is(u"PredecessorUID")) {
            link.OtherUid = Fields().Uid(m_xml.Text());
        } else if (m_xml.Is(u"Type")) {
            const QString text = m_xml.Text();
            const auto type = LinkTypeOf(text);
            if (!type) {
                m_builder.Remark(m_xml.Line(),
                                 PlannerText::tr("\"%1\" is not a type of link; it is "
                                                 "taken as finish to start.")
                                     .arg(text.left(40)));
            }
            link.Type = type.value_or(PlanLinkType::FinishToStart);
        } else if (m_xml.Is(u"LinkLag")) {
            lag = Fields()
                      .Number(m_xml.Text(), QT_TRANSLATE_NOOP("Planner", "\"%1\" is not a lag."))
                      .value_or(0);
        } else if (m_xml.Is(u"LagFormat")) {
            lagFormat = Fields()
                            .Integer(m_xml.Text(),
                                     QT_TRANSLATE_NOOP("Planner", "\"%1\" is not a lag format."))
                            .value_or(0);
        } else {
            m_xml.Skip();
        }
    }
    link.Lag = LagOf(lag, lagFormat);
    return link;
}

void Parser::Keep(RawTask raw)
{
    const int task =
        m_builder.AddTask(std::move(raw.Task), raw.Level.value_or(1), raw.Times, raw.Line);
    m_builder.SetNotes(task, raw.Notes, raw.Line);
    for (PendingLink &link : raw.Links) {
        link.Known = task;
        m_builder.AddLink(link);
    }
}

void Parser::ReadResource()
{
    constexpr std::int64_t kWork = 1;
    const qint64 line = m_xml.Line();
    PlanResource resource;
    std::int64_t calendar = kNoUid;
    bool isNull = false;
    bool isWork = true;
    while (m_xml.NextChild()) {
        if (m_xml.Is(u"UID")) {
            resource.Uid = Fields().Uid(m_xml.Text());
        } else if (m_xml.Is(u"Name")) {
            resource.Name = m_xml.Text();
        } else if (m_xml.Is(u"IsNull")) {
            isNull = ParseFlag(m_xml.Text());
        } else if (m_xml.Is(u"Type")) {
            isWork = ParseInteger(m_xml.Text()).value_or(kWork) == kWork;
        } else if (m_xml.Is(u"MaxUnits")) {
            resource.MaxUnits = ParseNumber(m_xml.Text()).value_or(1);
        } else if (m_xml.Is(u"CalendarUID")) {
            calendar = ParseInteger(m_xml.Text()).value_or(kNoUid);
        } else {
            m_xml.Skip();
        }
    }
    if (!isWork) { // material and costs know no limit
        resource.MaxUnits.reset();
    }
    if (!isNull && resource.Uid != kProjectUid) {
        m_builder.AddResource(std::move(resource), line, calendar);
    }
}

void Parser::ReadAssignment()
{
    const qint64 line = m_xml.Line();
    std::int64_t task = kNoUid;
    std::int64_t resource = kNoUid;
    double units = 1;
    while (m_xml.NextChild()) {
        if (m_xml.Is(u"TaskUID")) {
            task = Fields().Uid(m_xml.Text());
        } else if (m_xml.Is(u"ResourceUID")) {
            resource = Fields().Uid(m_xml.Text());
        } else if (m_xml.Is(u"Units")) {
            units = Fields()
                        .Number(m_xml.Text(),
                                QT_TRANSLATE_NOOP("Planner", "\"%1\" is not a number of units."))
                        .value_or(1);
        } else if (m_xml.Is(u"TimephasedData")) {
            ReadTimephased(task);
        } else {
            m_xml.Skip();
        }
    }
    // Work that nobody is assigned to has a negative resource.
    if (task != kProjectUid && resource > kProjectUid) {
        m_builder.AddAssignment(task, resource, units, line);
    }
}

/// Only work, remaining or done, tells something about the task's dates. The task's UID stands
/// before this element.
void Parser::ReadTimephased(std::int64_t task)
{
    constexpr std::int64_t kRemainingWork = 1;
    constexpr std::int64_t kActualWork = 2;
    std::int64_t type = 0;
    std::optional<TDateTime> start;
    std::optional<TDateTime> finish;
    std::optional<double> minutes;
    while (m_xml.NextChild()) {
        if (m_xml.Is(u"Type")) {
            type = ParseInteger(m_xml.Text()).value_or(0);
        } else if (m_xml.Is(u"Start")) {
            start = Date();
        } else if (m_xml.Is(u"Finish")) {
            finish = Date();
        } else if (m_xml.Is(u"Value")) {
            minutes = ParseIsoDuration(m_xml.Text());
        } else {
            m_xml.Skip();
        }
    }
    const bool isWork = type == kRemainingWork || type == kActualWork;
    if (isWork && task != kNoUid && start && finish && *start < *finish && minutes) {
        m_builder.AddWork(task, {*start, *finish},
                          *minutes > 0 ? WorkKind::Work : WorkKind::NoWork);
    }
}

} // namespace

QString MspdiReader::Name() const
{
    return PlannerText::tr("Project XML");
}

QStringList MspdiReader::FilePatterns() const
{
    return {QStringLiteral("*.xml"), QStringLiteral("*.xml.gz")};
}

bool MspdiReader::CanRead(const QByteArray &head) const
{
    const XmlRoot root = RootOf(head);
    return root.Name == u"Project" && (root.Namespace.isEmpty() || root.Namespace == kNamespace);
}

PlanResult MspdiReader::Read(QIODevice &source, IProgress &progress) const
{
    return ResultOf([&] { return Parser(source, progress).Read(); });
}

} // namespace korvane::planner
