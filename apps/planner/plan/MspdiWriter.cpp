#include "plan/MspdiWriter.h"

#include "plan/MspdiAssignments.h"
#include "plan/MspdiCalendarFields.h"
#include "plan/MspdiReader.h"
#include "plan/MspdiTaskFields.h"
#include "plan/PlanFields.h"
#include "plan/PlannerText.h"

#include <QBuffer>

#include <algorithm>

namespace korvane::planner {

namespace {

constexpr int kRowDepth = 2; ///< of a task, a resource, an assignment

std::string_view View(const QByteArray &text)
{
    return {text.constData(), static_cast<std::size_t>(text.size())};
}

/// A child of one of the lists.
struct Row
{
    XmlElement Element;
    std::string_view Gap;    ///< before it
    int Index = kNoIndex;    ///< of the item in the plan as read; none for what it left out
    bool IsNumbered = false; ///< a blank row, which counts among the tasks
};

class Writer
{
public:
    Writer(const Plan &plan, const Plan &before, const QByteArray &text, QIODevice &target,
           IProgress &progress)
        : m_difference(before, plan)
        , m_text(text)
        , m_root(RootElement(View(m_text)))
        , m_children(ChildrenOf(m_root.Content))
        , m_markup(m_root)
        , m_output(&target)
        , m_progress(progress)
    {
    }

    /// False when the target does not take everything.
    bool Write();

private:
    const Plan &Now() const { return m_difference.Now(); }
    XmlFields ProjectFields();
    void AddListField(XmlFields &fields, std::string_view name, bool isNeeded) const;
    void AddHead(XmlFields &fields) const;
    void AddCalendars(XmlFields &fields);
    bool AreCalendarsSame() const;
    void AddCustomFields(XmlFields &fields);
    QString FreeTextField(const QStringList &taken) const;
    void WriteList(const XmlField &field, const XmlElement *list);

    std::vector<Row> RowsOf(std::string_view list, std::string_view item) const;
    std::vector<Row> TaskRows() const;
    std::vector<Row> ResourceRows() const;
    void WriteRow(std::string_view gap, std::string_view text);
    void WriteTasks();
    void WriteTask(int task, const Row *row);
    void WriteBlankRow(const Row &row);
    void WriteResources();
    void WriteAssignments();

    PlanDifference m_difference;
    QByteArray m_text;
    XmlElement m_root;
    std::vector<XmlElement> m_children;
    MspdiMarkup m_markup;
    MspdiCustomFields m_custom;
    MspdiTaskFields m_taskFields{m_difference, m_markup, m_custom};
    XmlOutput m_output;
    IProgress &m_progress;
    std::vector<QString> m_outlineNumbers; ///< empty when the outline is as before
    std::int64_t m_row = 0;
};

bool Writer::Write()
{
    const XmlFields fields = ProjectFields();
    m_output.Write(View(m_text).substr(0, m_root.Raw.data() - m_text.constData()));
    WriteOpenTag(m_output, m_root);
    const XmlSpacing spacing = m_markup.SpacingAt(1);
    for (const XmlPart &part : MergedParts(m_root, m_children, fields, mspdi::kProjectOrder)) {
        m_output.Write(part.Child != nullptr || part.Field == nullptr ? part.Gap
                                                                      : View(spacing.BeforeChild));
        if (part.Field == nullptr) {
            m_output.Write(part.Child != nullptr ? part.Child->Raw : std::string_view());
        } else if (part.Field->Elements.front().isEmpty()) {
            WriteList(*part.Field, part.Child);
        } else {
            m_output.Write(View(part.Field->Elements.front()));
        }
    }
    m_output.Write(m_children.empty() ? View(spacing.BeforeEnd)
                                      : GapBefore(m_root, m_children, m_children.size()));
    WriteCloseTag(m_output, m_root);
    m_output.Write("\n");
    return m_output.Flush();
}

/// Lists that are written row by row have an empty text.
XmlFields Writer::ProjectFields()
{
    XmlFields fields;
    AddHead(fields);
    AddCustomFields(fields);
    AddCalendars(fields);
    AddListField(fields, "Tasks", true);
    AddListField(fields, "Resources", !Now().Resources.empty());
    const bool isSplit =
        std::ranges::any_of(Now().Tasks, [](const PlanTask &task) { return !task.Parts.empty(); });
    AddListField(fields, "Assignments", isSplit || !Now().Assignments.empty());
    return fields;
}

void Writer::AddListField(XmlFields &fields, std::string_view name, bool isNeeded) const
{
    if (isNeeded || std::ranges::any_of(m_children, [&](const XmlElement &child) {
            return m_markup.Is(child, name);
        })) {
        fields.push_back({name, {QByteArray()}});
    }
}

void Writer::AddHead(XmlFields &fields) const
{
    constexpr int kSaveVersion = 14;
    constexpr int kDaysPerMonth = 20;
    const Plan &before = m_difference.Before();
    const bool isNew = m_children.empty();
    if (Now().Name != before.Name) {
        fields.push_back(m_markup.Field("Title", Now().Name));
    }
    const auto addDate = [&](std::string_view name, const std::optional<TDateTime> &date,
                             const std::optional<TDateTime> &former) {
        if (date != former) {
            fields.push_back(date ? m_markup.Date(name, *date) : MspdiMarkup::NoField(name));
        }
    };
    const auto range = isNew ? Now().Range() : std::nullopt;
    addDate("StartDate", Now().Start || !range ? Now().Start : range->Start, before.Start);
    addDate("FinishDate", Now().Finish || !range ? Now().Finish : range->Finish, before.Finish);
    if (!isNew) {
        return;
    }
    int minutesPerDay = 0;
    int minutesPerWeek = 0;
    for (const DayTimes &day : Now().ProjectCalendar().WeekDays()) {
        minutesPerDay = std::max(minutesPerDay, day.Minutes());
        minutesPerWeek += day.Minutes();
    }
    fields.push_back(m_markup.Field("SaveVersion", kSaveVersion));
    fields.push_back(m_markup.Flag("ScheduleFromStart", true));
    fields.push_back(m_markup.Field("MinutesPerDay", minutesPerDay));
    fields.push_back(m_markup.Field("MinutesPerWeek", minutesPerWeek));
    fields.push_back(m_markup.Field("DaysPerMonth", kDaysPerMonth));
}

bool Writer::AreCalendarsSame() const
{
    const auto isSame = [](const PlanCalendar &calendar, const PlanCalendar &other) {
        const auto areEqual = [](const CalendarException &a, const CalendarException &b) {
            return a.FirstDay == b.FirstDay && a.LastDay == b.LastDay && a.Times == b.Times;
        };
        return calendar.Uid == other.Uid && calendar.Name == other.Name
               && calendar.Times.WeekDays() == other.Times.WeekDays()
               && std::ranges::equal(calendar.Times.Exceptions(), other.Times.Exceptions(),
                                     areEqual);
    };
    return std::ranges::equal(Now().Calendars, m_difference.Before().Calendars, isSame);
}

/// Calendars are written all or none.
void Writer::AddCalendars(XmlFields &fields)
{
    const bool isSame = AreCalendarsSame();
    if (Now().Calendar != m_difference.Before().Calendar && Now().Calendar != kNoIndex) {
        const PlanCalendar &used = Now().Calendars.at(Now().Calendar);
        fields.push_back(m_markup.Field("CalendarUID", isSame ? used.Uid : Now().Calendar + 1));
    }
    if (isSame) {
        return;
    }
    std::vector<QByteArray> items;
    for (PlanCalendar calendar : Now().Calendars) {
        calendar.Uid = static_cast<std::int64_t>(items.size()) + 1;
        items.push_back(m_markup.Element("Calendar", MspdiCalendarFields(calendar, m_markup),
                                         mspdi::kCalendarOrder, kRowDepth));
    }
    fields.push_back({"Calendars", {m_markup.List("Calendars", items, 1)}});
}

/// A custom field is defined when a task has a value for it.
void Writer::AddCustomFields(XmlFields &fields)
{
    static constexpr std::string_view kOrder[] = {"FieldID", "FieldName", "Alias"};
    std::vector<QByteArray> items;
    QStringList taken;
    for (const XmlElement &child : m_children) {
        if (!m_markup.Is(child, "ExtendedAttributes")) {
            continue;
        }
        for (const XmlElement &item : ChildrenOf(child.Content)) {
            items.push_back(QByteArray(item.Raw.data(), static_cast<qsizetype>(item.Raw.size())));
            const auto parts = ChildrenOf(item.Content);
            taken.append(m_markup.Text(parts, "FieldID").value_or(QString()));
            const auto alias = m_markup.Text(parts, "Alias");
            if (alias == mspdi::kColorAlias) {
                m_custom.Color = taken.back();
            } else if (alias == mspdi::kCollapsedAlias) {
                m_custom.Collapsed = taken.back();
            }
        }
    }
    const std::size_t count = items.size();
    const auto define = [&](QString &id, QStringView alias, auto hasValue) {
        if (id.isEmpty() && std::ranges::any_of(Now().Tasks, hasValue)) {
            id = FreeTextField(taken);
            taken.append(id);
            items.push_back(m_markup.Element(
                "ExtendedAttribute",
                {m_markup.Field("FieldID", id), m_markup.Field("Alias", alias.toString())}, kOrder,
                kRowDepth));
        }
    };
    define(m_custom.Color, mspdi::kColorAlias,
           [](const PlanTask &task) { return task.Color.has_value(); });
    define(m_custom.Collapsed, mspdi::kCollapsedAlias,
           [](const PlanTask &task) { return task.Collapsed; });
    if (items.size() > count) {
        fields.push_back({"ExtendedAttributes", {m_markup.List("ExtendedAttributes", items, 1)}});
    }
}

/// One of the tasks' text fields 30 to 11, which stand one after the other.
QString Writer::FreeTextField(const QStringList &taken) const
{
    constexpr int kText30 = 188744016;
    constexpr int kText11 = 188743997;
    int id = kText30;
    while (id > kText11 && taken.contains(QString::number(id))) {
        --id;
    }
    return QString::number(id);
}

void Writer::WriteList(const XmlField &field, const XmlElement *list)
{
    const QByteArray fresh = m_markup.List(field.Name, {}, 1);
    const XmlElement created = RootElement(View(fresh));
    const XmlElement &element = list != nullptr ? *list : created;
    const auto children = ChildrenOf(element.Content);
    const auto end = GapBefore(element, children, children.size());
    const bool hasEnd = end.find('\n') != std::string_view::npos || !children.empty();
    WriteOpenTag(m_output, element);
    if (field.Name == "Tasks") {
        WriteTasks();
    } else if (field.Name == "Resources") {
        WriteResources();
    } else {
        WriteAssignments();
    }
    m_output.Write(hasEnd ? end : View(m_markup.SpacingAt(kRowDepth).BeforeEnd));
    WriteCloseTag(m_output, element);
}

std::vector<Row> Writer::RowsOf(std::string_view list, std::string_view item) const
{
    std::vector<Row> rows;
    for (const XmlElement &child : m_children) {
        if (!m_markup.Is(child, list)) {
            continue;
        }
        const auto children = ChildrenOf(child.Content);
        for (std::size_t i = 0; i < children.size(); ++i) {
            rows.push_back({children[i], GapBefore(child, children, i), kNoIndex,
                            m_markup.Is(children[i], item)});
        }
    }
    return rows;
}

/// The rows with the indices that the reader has given them.
std::vector<Row> Writer::TaskRows() const
{
    std::vector<Row> rows = RowsOf("Tasks", "Task");
    int count = 0;
    for (Row &row : rows) {
        if (row.IsNumbered) {
            const auto children = ChildrenOf(row.Element.Content);
            const bool isProject = m_markup.Number(children, "UID") == mspdi::kProjectUid;
            const bool isNull = ParseFlag(m_markup.Text(children, "IsNull").value_or(QString()));
            row.IsNumbered = !isProject;
            row.Index = isProject || isNull ? kNoIndex : count++;
        }
    }
    return rows;
}

std::vector<Row> Writer::ResourceRows() const
{
    std::vector<Row> rows = RowsOf("Resources", "Resource");
    int count = 0;
    for (Row &row : rows) {
        if (row.IsNumbered) {
            const auto children = ChildrenOf(row.Element.Content);
            const bool isNobody = m_markup.Number(children, "UID") == mspdi::kProjectUid;
            const bool isNull = ParseFlag(m_markup.Text(children, "IsNull").value_or(QString()));
            row.Index = isNobody || isNull ? kNoIndex : count++;
        }
    }
    return rows;
}

void Writer::WriteRow(std::string_view gap, std::string_view text)
{
    m_output.Write(gap);
    m_output.Write(text);
}

/// In the plan's order; what is no task of the plan follows the one that it followed.
void Writer::WriteTasks()
{
    const std::vector<Row> rows = TaskRows();
    std::vector<std::vector<std::size_t>> companions(Now().Tasks.size());
    std::vector<std::size_t> atBeginning;
    std::vector<const Row *> rowOf(Now().Tasks.size());
    int last = kNoIndex;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const int task = rows[i].Index == kNoIndex ? kNoIndex : m_difference.TaskNow(rows[i].Index);
        if (rows[i].Index == kNoIndex) {
            (last == kNoIndex ? atBeginning : companions[last]).push_back(i);
        } else if (task != kNoIndex) {
            last = task;
            rowOf[task] = &rows[i];
        }
    }
    if (!m_difference.IsOutlineSame()) {
        std::vector<int> counts(Now().Tasks.size() + 1);
        for (const PlanTask &task : Now().Tasks) {
            const int number = ++counts[task.Parent + 1];
            const QString parent =
                task.Parent == kNoIndex ? QString() : m_outlineNumbers[task.Parent] + u'.';
            m_outlineNumbers.push_back(parent + QString::number(number));
        }
    }
    const auto writeCompanions = [&](const std::vector<std::size_t> &indices) {
        for (const std::size_t index : indices) {
            WriteBlankRow(rows[index]);
        }
    };
    writeCompanions(atBeginning);
    const auto count = std::ssize(Now().Tasks);
    for (int task = 0; task < count; ++task) {
        m_progress.Report(count + task, 2 * count);
        WriteTask(task, rowOf[task]);
        writeCompanions(companions[task]);
    }
}

void Writer::WriteTask(int task, const Row *row)
{
    ++m_row;
    MspdiPlace place{m_row, m_outlineNumbers.empty() ? QString() : m_outlineNumbers[task]};
    const auto children =
        row != nullptr ? ChildrenOf(row->Element.Content) : std::vector<XmlElement>();
    const XmlFields made =
        m_taskFields.Of(task, children, m_outlineNumbers.empty() ? nullptr : &place);
    if (row == nullptr) {
        WriteRow(View(m_markup.SpacingAt(kRowDepth).BeforeChild),
                 View(m_markup.Element("Task", made, mspdi::kTaskOrder, kRowDepth)));
    } else if (made.empty()) {
        WriteRow(row->Gap, row->Element.Raw);
    } else {
        WriteRow(row->Gap, View(m_markup.Merged(row->Element, made, mspdi::kTaskOrder, kRowDepth)));
    }
}

void Writer::WriteBlankRow(const Row &row)
{
    m_row += row.IsNumbered ? 1 : 0;
    const auto id = m_markup.Number(ChildrenOf(row.Element.Content), "ID");
    if (row.IsNumbered && !m_outlineNumbers.empty() && id && *id != m_row) {
        WriteRow(row.Gap, View(m_markup.Merged(row.Element, {m_markup.Field("ID", m_row)},
                                               mspdi::kTaskOrder, kRowDepth)));
    } else {
        WriteRow(row.Gap, row.Element.Raw);
    }
}

void Writer::WriteResources()
{
    for (const Row &row : ResourceRows()) {
        const int resource = row.Index == kNoIndex ? kNoIndex : m_difference.ResourceNow(row.Index);
        if (row.Index != kNoIndex && resource == kNoIndex) {
            continue;
        }
        XmlFields fields;
        if (resource != kNoIndex) {
            const PlanResource &before = m_difference.Before().Resources.at(row.Index);
            const PlanResource &now = Now().Resources.at(resource);
            if (now.Name != before.Name) {
                fields.push_back(m_markup.Field("Name", now.Name));
            }
            if (m_difference.ResourceUid(resource) != before.Uid) {
                fields.push_back(m_markup.Field("UID", m_difference.ResourceUid(resource)));
            }
        }
        WriteRow(row.Gap, fields.empty() ? row.Element.Raw
                                         : View(m_markup.Merged(row.Element, fields,
                                                                mspdi::kResourceOrder, kRowDepth)));
    }
    for (int resource = 0; resource < std::ssize(Now().Resources); ++resource) {
        if (m_difference.ResourceBefore(resource) == kNoIndex) {
            const std::int64_t uid = m_difference.ResourceUid(resource);
            const XmlFields fields{m_markup.Field("UID", uid),
                                   m_markup.Field("ID", uid),
                                   m_markup.Field("Name", Now().Resources.at(resource).Name),
                                   m_markup.Field("Type", 1),
                                   m_markup.Flag("IsNull", false),
                                   m_markup.Field("MaxUnits", 1)};
            WriteRow(View(m_markup.SpacingAt(kRowDepth).BeforeChild),
                     View(m_markup.Element("Resource", fields, mspdi::kResourceOrder, kRowDepth)));
        }
    }
}

void Writer::WriteAssignments()
{
    MspdiAssignments assignments(m_difference, m_markup, m_taskFields);
    for (const Row &row : RowsOf("Assignments", "Assignment")) {
        if (!row.IsNumbered) {
            WriteRow(row.Gap, row.Element.Raw);
        } else if (const auto text = assignments.Renewed(row.Element)) {
            WriteRow(row.Gap, View(*text));
        }
    }
    for (const QByteArray &text : assignments.Added()) {
        WriteRow(View(m_markup.SpacingAt(kRowDepth).BeforeChild), View(text));
    }
}

/// The reading of the source as the first half of a save.
class HalfProgress final : public IProgress
{
public:
    explicit HalfProgress(IProgress &whole)
        : m_whole(whole)
    {
    }

    void Report(qint64 done, qint64 total) override { m_whole.Report(done, 2 * total); }
    bool IsCanceled() const override { return false; }

private:
    IProgress &m_whole;
};

/// The plan as it was read.
std::optional<Plan> Reread(const QByteArray &text, IProgress &progress)
{
    QBuffer buffer;
    buffer.setData(text);
    buffer.open(QIODevice::ReadOnly);
    HalfProgress half(progress);
    PlanResult result = MspdiReader().Read(buffer, half);
    return result.Status == PlanStatus::Loaded ? std::optional(std::move(result.Value))
                                               : std::nullopt;
}

} // namespace

std::optional<QString> WriteMspdi(const Plan &plan, const PlanSource *source, QIODevice &target,
                                  IProgress &progress)
{
    static const QByteArray kEmptyProject =
        "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n<Project xmlns=\""
        + mspdi::kNamespace.toUtf8() + "\"></Project>";
    const QByteArray text = source != nullptr ? InUtf8(source->Text()) : kEmptyProject;
    const auto before = source != nullptr ? Reread(text, progress) : Plan();
    if (!before) {
        return PlannerText::tr("what the plan was read from is damaged");
    }
    return Writer(plan, *before, text, target, progress).Write() ? std::nullopt
                                                                 : std::optional(WriteFailure());
}

QString WriteFailure()
{
    return PlannerText::tr("not everything could be written; the disk may be full");
}

} // namespace korvane::planner
