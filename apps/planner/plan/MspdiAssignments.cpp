#include "plan/MspdiAssignments.h"

#include <algorithm>

namespace korvane::planner {

namespace {

constexpr int kRowDepth = 2;

std::optional<int> TakeFrom(QHash<std::pair<std::int64_t, std::int64_t>, std::vector<int>> &left,
                            const std::pair<std::int64_t, std::int64_t> &key)
{
    const auto found = left.find(key);
    if (found == left.end() || found->empty()) {
        return std::nullopt;
    }
    const int index = found->back();
    found->pop_back();
    return index;
}

} // namespace

MspdiAssignments::MspdiAssignments(const PlanDifference &difference, const MspdiMarkup &markup,
                                   const MspdiTaskFields &tasks)
    : m_difference(difference)
    , m_markup(markup)
    , m_tasks(tasks)
    , m_hasAssignment(difference.Now().Tasks.size())
{
    const Plan &before = difference.Before();
    const Plan &now = difference.Now();
    for (int task = static_cast<int>(before.Tasks.size()); task-- > 0;) {
        m_formerTask.insert(before.Tasks[task].Uid, task);
    }
    for (int index = static_cast<int>(before.Assignments.size()); index-- > 0;) {
        const PlanAssignment &item = before.Assignments[index];
        m_former[{before.Tasks[item.Task].Uid, before.Resources[item.Resource].Uid}].push_back(
            index);
    }
    for (int index = static_cast<int>(now.Assignments.size()); index-- > 0;) {
        const PlanAssignment &item = now.Assignments[index];
        m_current[{difference.TaskUid(item.Task), difference.ResourceUid(item.Resource)}].push_back(
            index);
    }
}

std::optional<QByteArray> MspdiAssignments::Renewed(const XmlElement &element)
{
    const auto children = ChildrenOf(element.Content);
    const QByteArray raw(element.Raw.data(), static_cast<qsizetype>(element.Raw.size()));
    const std::int64_t uid = m_markup.Number(children, "UID").value_or(0);
    m_lastUid = std::max(m_lastUid, uid);
    const Key key{m_markup.Number(children, "TaskUID").value_or(kNoUid),
                  m_markup.Number(children, "ResourceUID").value_or(kNoUid)};
    const auto formerTask = m_formerTask.find(key.first);
    if (formerTask == m_formerTask.end()) {
        return raw;
    }
    const int task = m_difference.TaskNow(*formerTask);
    if (task == kNoIndex) {
        return std::nullopt;
    }
    XmlFields fields;
    double units = 1;
    if (const auto former = TakeFrom(m_former, key)) {
        const auto current = TakeFrom(m_current, key);
        if (!current) {
            return std::nullopt;
        }
        units = m_difference.Now().Assignments.at(*current).Units;
        if (units != m_difference.Before().Assignments.at(*former).Units) {
            fields.push_back(m_markup.Field("Units", QString::number(units, 'g', 15)));
        }
    }
    m_hasAssignment[task] = true;
    if (m_difference.AreDatesChanged(task)) {
        XmlField kept{"TimephasedData", {}};
        for (const XmlElement &child : children) {
            const bool isWork =
                m_markup.Is(child, "TimephasedData")
                && m_markup.Number(ChildrenOf(child.Content), "Type").value_or(0) <= 2;
            if (m_markup.Is(child, "TimephasedData") && !isWork) {
                kept.Elements.emplace_back(child.Raw.data(),
                                           static_cast<qsizetype>(child.Raw.size()));
            }
        }
        fields.push_back(std::move(kept));
        AddTimes(fields, task, uid, units);
    }
    return fields.empty() ? raw
                          : m_markup.Merged(element, fields, mspdi::kAssignmentOrder, kRowDepth);
}

std::vector<QByteArray> MspdiAssignments::Added()
{
    std::vector<QByteArray> added;
    const Plan &now = m_difference.Now();
    for (const PlanAssignment &item : now.Assignments) {
        const std::int64_t resource = m_difference.ResourceUid(item.Resource);
        if (TakeFrom(m_current, {m_difference.TaskUid(item.Task), resource})) {
            added.push_back(New(item.Task, resource, item.Units));
        }
    }
    for (int task = 0; task < std::ssize(now.Tasks); ++task) {
        if (!now.Tasks[task].Parts.empty() && !m_hasAssignment[task]) {
            added.push_back(New(task, mspdi::kUnassignedUid, 1));
        }
    }
    return added;
}

QByteArray MspdiAssignments::New(int task, std::int64_t resourceUid, double units)
{
    m_hasAssignment[task] = true;
    XmlFields fields{m_markup.Field("UID", ++m_lastUid),
                     m_markup.Field("TaskUID", m_difference.TaskUid(task)),
                     m_markup.Field("ResourceUID", resourceUid),
                     m_markup.Field("Units", QString::number(units, 'g', 15)),
                     {"TimephasedData", {}}};
    AddTimes(fields, task, m_lastUid, units);
    return m_markup.Element("Assignment", fields, mspdi::kAssignmentOrder, kRowDepth);
}

/// Start and finish, and the parts and pauses of a split task in the field that there is for them.
void MspdiAssignments::AddTimes(XmlFields &fields, int task, std::int64_t uid, double units) const
{
    const PlanTask &item = m_difference.Task(task);
    const WorkCalendar &calendar = m_difference.Now().ProjectCalendar();
    const auto list = std::ranges::find(fields, "TimephasedData", &XmlField::Name);
    const PlanSpan *former = nullptr;
    for (const PlanSpan &part : item.Parts) {
        if (former != nullptr) {
            list->Elements.push_back(Timephased({former->Finish, part.Start}, 0, uid));
        }
        const double minutes = calendar.MinutesBetween(part.Start, part.Finish) * units;
        list->Elements.push_back(Timephased(part, std::max(1.0, minutes), uid));
        former = &part;
    }
    if (item.Dates) {
        fields.push_back(m_markup.Date("Start", item.Dates->Start));
        fields.push_back(m_markup.Date("Finish", item.Dates->Finish));
    }
}

QByteArray MspdiAssignments::Timephased(const PlanSpan &span, double minutes,
                                        std::int64_t uid) const
{
    static constexpr std::string_view kOrder[] = {"Type",   "UID",  "Start",
                                                  "Finish", "Unit", "Value"};
    constexpr int kRemainingWork = 1;
    constexpr int kDays = 2;
    return m_markup.Element("TimephasedData",
                            {m_markup.Field("Type", kRemainingWork), m_markup.Field("UID", uid),
                             m_markup.Date("Start", span.Start),
                             m_markup.Date("Finish", span.Finish), m_markup.Field("Unit", kDays),
                             m_markup.Duration("Value", minutes)},
                            kOrder, kRowDepth + 1);
}

} // namespace korvane::planner
