#include "plan/MspdiTaskFields.h"

#include "plan/PlanFields.h"

#include <algorithm>
#include <cmath>

namespace korvane::planner {

namespace {

constexpr int kItemDepth = 3; ///< of a task's children

QString ColorText(TColor color)
{
    constexpr int kDigits = 6;
    const auto part = [color](unsigned shift) {
        return (static_cast<uint>(color) >> shift) & 0xFFU;
    };
    const uint value = (part(0) << 16U) | (part(8) << 8U) | part(16);
    return u'#' + QString::number(value, 16).rightJustified(kDigits, u'0');
}

QByteArray Copy(std::string_view text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

} // namespace

/// One task on its way.
struct MspdiTaskFields::Job
{
    int Index = 0;
    const PlanTask &Task;
    const PlanTask *Former = nullptr; ///< null for a new task
    const std::vector<XmlElement> &Children;
    XmlFields Fields;

    bool IsNew() const { return Former == nullptr; }
    /// Whether a field has to be written: it is different, or the task is new and has it.
    template <typename Get>
    bool Differs(Get get) const
    {
        static const PlanTask kPlain;
        return std::invoke(get, Task) != std::invoke(get, Former != nullptr ? *Former : kPlain);
    }
    void Add(XmlField field) { Fields.push_back(std::move(field)); }
};

MspdiTaskFields::MspdiTaskFields(const PlanDifference &difference, const MspdiMarkup &markup,
                                 const MspdiCustomFields &custom)
    : m_difference(difference)
    , m_markup(markup)
    , m_custom(custom)
{
    for (const PlanTask &task : difference.Before().Tasks) {
        m_formerUids.insert(task.Uid);
    }
    for (int task = 0; task < std::ssize(difference.Now().Tasks); ++task) {
        m_uids.insert(difference.TaskUid(task));
    }
}

double MspdiTaskFields::WorkingMinutes(const PlanTask &task) const
{
    const WorkCalendar &calendar = m_difference.Now().ProjectCalendar();
    double minutes = 0;
    for (const PlanSpan &part : task.Parts) {
        minutes += calendar.MinutesBetween(part.Start, part.Finish);
    }
    return task.Parts.empty() && task.Dates
               ? calendar.MinutesBetween(task.Dates->Start, task.Dates->Finish)
               : minutes;
}

XmlFields MspdiTaskFields::Of(int task, const std::vector<XmlElement> &children,
                              const MspdiPlace *place) const
{
    Job job{task, m_difference.Task(task), m_difference.Former(task), children, {}};
    AddIdentity(job);
    if (place != nullptr) {
        AddPlace(job, *place);
    }
    AddTexts(job);
    AddDates(job);
    AddDone(job);
    AddLimits(job);
    AddFlags(job);
    AddLinks(job);
    AddCustomValues(job);
    AddBaseline(job);
    return std::move(job.Fields);
}

void MspdiTaskFields::AddIdentity(Job &job) const
{
    constexpr int kUsualPriority = 500;
    const std::int64_t uid = m_difference.TaskUid(job.Index);
    if (job.IsNew() || uid != job.Former->Uid) {
        job.Add(m_markup.Field("UID", uid));
    }
    if (job.IsNew()) {
        job.Add(m_markup.Field("Type", 0));
        job.Add(m_markup.Flag("IsNull", false));
        job.Add(m_markup.Field("Priority", kUsualPriority));
    }
}

/// A WBS code that is the outline number goes on being that; others were given by somebody.
void MspdiTaskFields::AddPlace(Job &job, const MspdiPlace &place) const
{
    const auto number = m_markup.Text(job.Children, "OutlineNumber");
    const auto wbs = m_markup.Text(job.Children, "WBS");
    const auto put = [&](std::string_view name, const QString &wanted) {
        const auto present = m_markup.Text(job.Children, name);
        if (present ? *present != wanted : job.IsNew()) {
            job.Add(m_markup.Field(name, wanted));
        }
    };
    put("ID", QString::number(place.Row));
    put("OutlineNumber", place.OutlineNumber);
    if (job.IsNew() || (wbs && wbs == number)) {
        put("WBS", place.OutlineNumber);
    }
    if (m_markup.Number(job.Children, "OutlineLevel") != job.Task.Level) {
        job.Add(m_markup.Field("OutlineLevel", job.Task.Level));
    }
}

void MspdiTaskFields::AddTexts(Job &job) const
{
    if (job.IsNew() || job.Differs(&PlanTask::Name)) {
        job.Add(m_markup.Field("Name", job.Task.Name));
    }
    if (job.Differs(&PlanTask::Notes)) {
        job.Add(job.Task.Notes.isEmpty() ? MspdiMarkup::NoField("Notes")
                                         : m_markup.Field("Notes", job.Task.Notes));
    }
}

void MspdiTaskFields::AddDates(Job &job) const
{
    const bool isManualNew = job.Differs([](const PlanTask &task) { return task.Manual; });
    if (isManualNew || job.IsNew()) {
        job.Add(m_markup.Flag("Manual", job.Task.Manual));
    }
    const bool areChanged = m_difference.AreDatesChanged(job.Index);
    if (!areChanged && !isManualNew) {
        return;
    }
    if (!job.Task.Dates) {
        for (const auto *name : {"Start", "Finish", "Duration", "ManualStart", "ManualFinish"}) {
            job.Add(MspdiMarkup::NoField(name));
        }
        return;
    }
    const auto &[start, finish] = *job.Task.Dates;
    const auto format = m_markup.Number(job.Children, "DurationFormat");
    const bool isElapsed =
        format && mspdi::TimeFormatOf(static_cast<int>(*format)) == mspdi::TimeFormat::Elapsed;
    const double minutes = isElapsed ? (finish - start) * kMinutesPerDay : WorkingMinutes(job.Task);
    if (areChanged) {
        job.Add(m_markup.Date("Start", start));
        job.Add(m_markup.Date("Finish", finish));
        job.Add(m_markup.Duration("Duration", minutes));
    }
    if (!format) {
        job.Add(m_markup.Field("DurationFormat", NumberOf(mspdi::TimeFormat::Working)));
    }
    if (job.Task.Manual || m_markup.Text(job.Children, "ManualStart")) {
        job.Add(m_markup.Date("ManualStart", start));
        job.Add(m_markup.Date("ManualFinish", finish));
        job.Add(m_markup.Duration("ManualDuration", minutes));
    }
}

/// The format knows whole percents only.
void MspdiTaskFields::AddDone(Job &job) const
{
    constexpr int kAll = 100;
    const bool isNew = job.Differs(&PlanTask::PercentComplete);
    const int percent = static_cast<int>(std::lround(job.Task.PercentComplete));
    if (isNew || job.IsNew()) {
        job.Add(m_markup.Field("PercentComplete", percent));
    }
    if (!job.Task.Dates || (!isNew && !m_difference.AreDatesChanged(job.Index))) {
        return;
    }
    const double minutes = WorkingMinutes(job.Task);
    const double done = minutes * percent / kAll;
    job.Add(percent > 0 ? m_markup.Date("ActualStart", job.Task.Dates->Start)
                        : MspdiMarkup::NoField("ActualStart"));
    job.Add(percent == kAll ? m_markup.Date("ActualFinish", job.Task.Dates->Finish)
                            : MspdiMarkup::NoField("ActualFinish"));
    job.Add(m_markup.Duration("ActualDuration", done));
    job.Add(m_markup.Duration("RemainingDuration", minutes - done));
    job.Add(MspdiMarkup::NoField("Stop"));
    job.Add(MspdiMarkup::NoField("Resume"));
}

void MspdiTaskFields::AddLimits(Job &job) const
{
    const auto addDate = [&](std::string_view name, const std::optional<TDateTime> &date) {
        job.Add(date ? m_markup.Date(name, *date) : MspdiMarkup::NoField(name));
    };
    if (job.IsNew() || job.Differs(&PlanTask::Constraint)) {
        job.Add(m_markup.Field("ConstraintType", static_cast<int>(job.Task.Constraint)));
    }
    if (job.Differs(&PlanTask::ConstraintDate)) {
        addDate("ConstraintDate", job.Task.ConstraintDate);
    }
    if (job.Differs(&PlanTask::Deadline)) {
        addDate("Deadline", job.Task.Deadline);
    }
}

/// What has subtasks is written as a summary task, unless the file had it otherwise all along.
void MspdiTaskFields::AddFlags(Job &job) const
{
    if (job.IsNew() || job.Differs([](const PlanTask &task) { return task.Milestone; })) {
        job.Add(m_markup.Flag("Milestone", job.Task.Milestone));
    }
    if (job.IsNew() || job.Differs(&PlanTask::IsSummary)
        || job.Differs([](const PlanTask &task) { return task.MarkedSummary; })) {
        job.Add(m_markup.Flag("Summary", job.Task.IsSummary()));
    }
}

/// The plan knows the one with the lowest number.
void MspdiTaskFields::AddBaseline(Job &job) const
{
    if (!job.Differs(&PlanTask::Baseline)) {
        return;
    }
    if (!job.Task.Baseline) {
        job.Add(MspdiMarkup::NoField("Baseline"));
        return;
    }
    XmlFields dates{m_markup.Date("Start", job.Task.Baseline->Start),
                    m_markup.Date("Finish", job.Task.Baseline->Finish)};
    XmlField all{"Baseline", {}};
    std::optional<std::size_t> known;
    std::int64_t lowest = 0;
    for (const XmlElement &child : job.Children) {
        if (!m_markup.Is(child, "Baseline")) {
            continue;
        }
        const auto parts = ChildrenOf(child.Content);
        const auto number = m_markup.Number(parts, "Number").value_or(0);
        const auto start = ParseIsoDateTime(m_markup.Text(parts, "Start").value_or(QString()));
        const auto finish = ParseIsoDateTime(m_markup.Text(parts, "Finish").value_or(QString()));
        if (start && finish && *start <= *finish && (!known || number < lowest)) {
            known = all.Elements.size();
            lowest = number;
        }
        all.Elements.push_back(Copy(child.Raw));
    }
    if (known) {
        QByteArray &text = all.Elements.at(*known);
        const QByteArray former = text;
        text = m_markup.Merged(
            RootElement({former.constData(), static_cast<std::size_t>(former.size())}), dates,
            mspdi::kBaselineOrder, kItemDepth);
    } else {
        dates.push_back(m_markup.Field("Number", 0));
        all.Elements.insert(all.Elements.begin(),
                            m_markup.Element("Baseline", dates, mspdi::kBaselineOrder, kItemDepth));
    }
    job.Add(std::move(all));
}

void MspdiTaskFields::AddCustomValues(Job &job) const
{
    const auto isCollapsed = [](const PlanTask &task) { return task.Collapsed; };
    if (!job.Differs(&PlanTask::Color) && !job.Differs(isCollapsed)) {
        return;
    }
    XmlField all{"ExtendedAttribute", {}};
    for (const XmlElement &child : job.Children) {
        if (m_markup.Is(child, "ExtendedAttribute")) {
            const auto id = m_markup.Text(ChildrenOf(child.Content), "FieldID");
            if (id != m_custom.Color && id != m_custom.Collapsed) {
                all.Elements.push_back(Copy(child.Raw));
            }
        }
    }
    if (job.Task.Color) {
        all.Elements.push_back(CustomValue(m_custom.Color, ColorText(*job.Task.Color)));
    }
    if (job.Task.Collapsed) {
        all.Elements.push_back(CustomValue(m_custom.Collapsed, QStringLiteral("1")));
    }
    job.Add(std::move(all));
}

QByteArray MspdiTaskFields::CustomValue(const QString &field, const QString &value) const
{
    static constexpr std::string_view kOrder[] = {"FieldID", "Value"};
    return m_markup.Element("ExtendedAttribute",
                            {m_markup.Field("FieldID", field), m_markup.Field("Value", value)},
                            kOrder, kItemDepth);
}

/// Elements of links that are still there are kept, and so are those that name no task of the plan
/// and never did.
void MspdiTaskFields::AddLinks(Job &job) const
{
    const auto now = m_difference.LinksNow(job.Index);
    const auto before = job.IsNew() ? std::span<const int>()
                                    : m_difference.LinksBefore(m_difference.TaskBefore(job.Index));
    const auto linkNow = [&](int index) { return m_difference.Now().Links.at(index); };
    const auto linkBefore = [&](int index) { return m_difference.Before().Links.at(index); };
    const auto uidBefore = [&](int index) {
        return m_difference.Before().Tasks.at(linkBefore(index).Predecessor).Uid;
    };
    const bool areSame = std::ranges::equal(now, before, [&](int index, int former) {
        const PlanLink link = linkNow(index);
        const PlanLink old = linkBefore(former);
        return m_difference.TaskUid(link.Predecessor) == uidBefore(former) && link.Type == old.Type
               && link.Lag == old.Lag;
    });
    if (areSame) {
        return;
    }
    std::vector<const XmlElement *> known;
    std::vector<QByteArray> unknown;
    for (const XmlElement &child : job.Children) {
        if (m_markup.Is(child, "PredecessorLink")) {
            const auto uid = m_markup.Number(ChildrenOf(child.Content), "PredecessorUID");
            if (uid && m_formerUids.contains(*uid)) {
                known.push_back(&child);
            } else if (!uid || !m_uids.contains(*uid)) {
                unknown.push_back(Copy(child.Raw));
            }
        }
    }
    // From the back, so that the first one of each UID is taken first.
    QHash<std::int64_t, std::vector<std::size_t>> left;
    for (std::size_t at = std::min(known.size(), before.size()); at-- > 0;) {
        left[uidBefore(before[at])].push_back(at);
    }
    XmlField all{"PredecessorLink", {}};
    for (const int index : now) {
        const PlanLink link = linkNow(index);
        const auto found = left.find(m_difference.TaskUid(link.Predecessor));
        if (found == left.end() || found->empty()) {
            all.Elements.push_back(Link(link, nullptr, nullptr));
        } else {
            const std::size_t at = found->back();
            found->pop_back();
            const PlanLink former = linkBefore(before[at]);
            all.Elements.push_back(Link(link, known[at], &former));
        }
    }
    std::ranges::move(unknown, std::back_inserter(all.Elements));
    job.Add(std::move(all));
}

QByteArray MspdiTaskFields::Link(const PlanLink &link, const XmlElement *element,
                                 const PlanLink *former) const
{
    XmlFields fields;
    if (former == nullptr) {
        fields.push_back(m_markup.Field("PredecessorUID", m_difference.TaskUid(link.Predecessor)));
        fields.push_back(m_markup.Flag("CrossProject", false));
    }
    if (former == nullptr || former->Type != link.Type) {
        const auto number = std::ranges::find(mspdi::kLinkTypes, link.Type);
        fields.push_back(m_markup.Field("Type", number - mspdi::kLinkTypes.begin()));
    }
    if (former == nullptr || former->Lag.Amount != link.Lag.Amount
        || former->Lag.Unit != link.Lag.Unit) {
        fields.push_back(m_markup.Field("LinkLag", mspdi::LagNumber(link.Lag)));
    }
    if (former == nullptr || former->Lag.Unit != link.Lag.Unit) {
        fields.push_back(m_markup.Field("LagFormat", NumberOf(mspdi::TimeFormatOf(link.Lag.Unit))));
    }
    return element != nullptr
               ? m_markup.Merged(*element, fields, mspdi::kLinkOrder, kItemDepth)
               : m_markup.Element("PredecessorLink", fields, mspdi::kLinkOrder, kItemDepth);
}

} // namespace korvane::planner
