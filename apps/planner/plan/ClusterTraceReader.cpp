#include "plan/ClusterTraceReader.h"

#include "foundation/zuDateUtils.h"
#include "foundation/zuTranslate.h"
#include "plan/NodeAllocation.h"
#include "plan/PlanFields.h"
#include "plan/PlanRefusal.h"
#include "plan/PlannerText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <string_view>
#include <utility>

namespace korvane::planner {

namespace {

constexpr double kSecondsPerDay = 86'400;
constexpr int kFields = 18;
constexpr qint64 kChunk = 1 << 14;
constexpr qsizetype kMaxLine = 10'000;
constexpr int kMostNodes = 4096;
constexpr std::int64_t kMostPlaces = PlanBuilder::kMaxItems; ///< of jobs on nodes

/// Places of the fields in a line.
enum Field : int {
    kJob = 0,
    kSubmitted,
    kWait,
    kRunTime,
    kProcessors,
    kRequested = 7,
    kUser = 11,
    kGroup,
    kQueue = 14,
    kPartition
};
constexpr int kLeastFields = kProcessors + 1;

using Fields = std::array<double, kFields>;

/// What rows may stand for besides nodes.
struct RowKind
{
    const char *Name;
    const char *Title;
    const char *NoTitle; ///< of the row of jobs that have none
    const char *Note;
    Field Place;
};
constexpr std::array kRowKinds{RowKind{"partition", QT_TRANSLATE_NOOP("Planner", "Partition %1"),
                                       QT_TRANSLATE_NOOP("Planner", "No partition"),
                                       QT_TRANSLATE_NOOP("Planner", "partition %1"), kPartition},
                               RowKind{"queue", QT_TRANSLATE_NOOP("Planner", "Queue %1"),
                                       QT_TRANSLATE_NOOP("Planner", "No queue"),
                                       QT_TRANSLATE_NOOP("Planner", "queue %1"), kQueue},
                               RowKind{"user", QT_TRANSLATE_NOOP("Planner", "User %1"),
                                       QT_TRANSLATE_NOOP("Planner", "No user"),
                                       QT_TRANSLATE_NOOP("Planner", "user %1"), kUser},
                               RowKind{"group", QT_TRANSLATE_NOOP("Planner", "Group %1"),
                                       QT_TRANSLATE_NOOP("Planner", "No group"),
                                       QT_TRANSLATE_NOOP("Planner", "group %1"), kGroup}};

/// In the user's language, asked for once and not for each job.
struct NoteTexts
{
    NoteTexts()
    {
        std::ranges::transform(kRowKinds, Kinds.begin(),
                               [](const RowKind &kind) { return PlannerText::tr(kind.Note); });
    }

    std::array<QString, kRowKinds.size()> Kinds;
    QString Waited = PlannerText::tr("waited %1 s");
    std::map<std::int64_t, QString> Processors; ///< filled where needed
};

struct Job
{
    Fields Values{};
    double Start = 0; ///< seconds of the trace
    double Finish = 0;
    std::int64_t Processors = 1;
};

/// What is not there is -1, as in the format; nothing when there is no such line.
std::optional<Fields> ParseFields(std::string_view line)
{
    Fields fields;
    fields.fill(-1);
    int count = 0;
    const char *at = line.data();
    const char *const end = at + line.size();
    while (true) {
        at = std::find_if_not(at, end, [](char c) { return c == ' ' || c == '\t' || c == '\r'; });
        if (at == end || count == kFields) {
            return at == end && count >= kLeastFields ? std::optional(fields) : std::nullopt;
        }
        const auto [next, error] = std::from_chars(at, end, fields[count]);
        if (error != std::errc()
            || (next != end && *next != ' ' && *next != '\t' && *next != '\r')) {
            return std::nullopt;
        }
        ++count;
        at = next;
    }
}

std::string_view Trimmed(std::string_view text)
{
    const std::size_t last = text.find_last_not_of(" \t\r\n");
    return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

class Parser
{
public:
    Parser(QIODevice &source, const ReadOptions &options, IProgress &progress)
        : m_source(source)
        , m_rows(options.Rows)
        , m_progress(progress)
    {
    }

    Plan Read();

private:
    void ReadLines();
    void ReadLine(std::string_view line);
    void ReadHeader(std::string_view line);
    void ReadJob(std::string_view line);
    int NodesOf(const Job &job) const;
    bool FitsNodes();
    void AddNodes();
    void AddRowsBy(const RowKind &kind);
    void AddJobs();
    QString NotesOf(const Job &job);
    TDateTime InstantOf(double second) const { return m_begin + second / kSecondsPerDay; }

    QIODevice &m_source;
    QString m_rows;
    IProgress &m_progress;
    PlanBuilder m_builder;
    NoteTexts m_notes;
    std::vector<Job> m_jobs;
    qint64 m_line = 0;
    TDateTime m_begin = EncodeDate(1970, 1, 1);
    std::int64_t m_nodes = 0;      ///< 0 until known
    std::int64_t m_processors = 0; ///< 0 until known
};

Plan Parser::Read()
{
    m_builder.SetIntervals();
    ReadLines();
    if (m_jobs.empty()) {
        throw PlanRefusal(0, PlannerText::tr("the trace has no jobs that can be shown"));
    }
    std::ranges::stable_sort(m_jobs, {}, &Job::Start);
    if (m_rows.isEmpty()) {
        m_rows = FitsNodes() ? QStringLiteral("node") : QStringLiteral("partition");
    }
    const auto kind = std::ranges::find(kRowKinds, m_rows, &RowKind::Name);
    if (kind != kRowKinds.end()) {
        AddJobs();
        AddRowsBy(*kind);
    } else if (m_rows != u"node") {
        throw PlanRefusal(0,
                          PlannerText::tr("a row of a job trace is a node, partition, queue, user "
                                          "or group, not a %1")
                              .arg(m_rows));
    } else if (!FitsNodes()) {
        throw PlanRefusal(0, PlannerText::tr("too many nodes to have a row each"));
    } else {
        AddJobs();
        AddNodes();
    }
    return m_builder.Finish();
}

void Parser::ReadLines()
{
    std::array<char, kChunk> chunk{};
    QByteArray rest;
    while (true) {
        const qint64 size = m_source.read(chunk.data(), kChunk);
        if (m_progress.IsCanceled()) {
            throw PlanCanceled();
        }
        if (size < 0) {
            throw PlanRefusal(0, m_source.errorString());
        }
        rest.append(chunk.data(), static_cast<qsizetype>(size));
        qsizetype from = 0;
        for (qsizetype to = rest.indexOf('\n'); to >= 0; to = rest.indexOf('\n', from)) {
            ReadLine({rest.data() + from, static_cast<std::size_t>(to - from)});
            from = to + 1;
        }
        rest.remove(0, from);
        if (size == 0) {
            ReadLine({rest.data(), static_cast<std::size_t>(rest.size())});
            return;
        }
        if (rest.size() > kMaxLine) {
            throw PlanRefusal(m_line + 1, PlannerText::tr("the line is too long for a job trace"));
        }
    }
}

void Parser::ReadLine(std::string_view line)
{
    ++m_line;
    const std::string_view text = Trimmed(line);
    if (text.starts_with(';')) {
        ReadHeader(text);
    } else if (!text.empty()) {
        ReadJob(text);
    }
}

/// Like "; MaxNodes: 256".
void Parser::ReadHeader(std::string_view line)
{
    const QString text =
        QString::fromUtf8(line.data() + 1, static_cast<qsizetype>(line.size()) - 1);
    const QString name = text.section(u':', 0, 0).trimmed();
    const QString value = text.section(u':', 1).trimmed();
    const auto number = ParseInteger(value.section(u' ', 0, 0));
    if (name == u"MaxNodes" && number && *number > 0) {
        m_nodes = *number;
    } else if (name == u"MaxProcs" && number && *number > 0) {
        m_processors = *number;
    } else if (name == u"UnixStartTime" && number && *number > 0) {
        const TDateTime begin = EncodeDate(1970, 1, 1) + double(*number) / kSecondsPerDay;
        if (IsPlanDate(begin)) {
            m_begin = begin;
        }
    } else if (name == u"Computer") {
        m_builder.SetProject(value, std::nullopt, std::nullopt);
    }
}

void Parser::ReadJob(std::string_view line)
{
    const auto fields = ParseFields(line);
    if (!fields) {
        m_builder.Remark(
            m_line,
            PlannerText::tr("The line is not one of %1 numbers; it is ignored.").arg(kFields));
        return;
    }
    Job job{*fields};
    const Fields &values = job.Values;
    job.Start = values[kSubmitted] + std::max(values[kWait], 0.0);
    job.Finish = job.Start + values[kRunTime];
    if (!(values[kRunTime] >= 0)) {
        m_builder.Remark(m_line, PlannerText::tr("The job has no run time; it is left out."));
        return;
    }
    if (!(values[kSubmitted] >= 0) || !IsPlanDate(InstantOf(job.Finish))) {
        m_builder.Remark(m_line, PlannerText::tr("The job's times make no sense; it is left out."));
        return;
    }
    const double processors = values[kProcessors] > 0 ? values[kProcessors] : values[kRequested];
    job.Processors = static_cast<std::int64_t>(std::clamp(processors, 1.0, 1e9));
    if (m_jobs.size() >= PlanBuilder::kMaxItems) {
        throw PlanRefusal(m_line, PlannerText::tr("more than %1 jobs").arg(PlanBuilder::kMaxItems));
    }
    m_jobs.push_back(job);
}

/// Also finds out how many nodes there are.
bool Parser::FitsNodes()
{
    if (m_nodes == 0) {
        m_nodes = m_processors;
    }
    if (m_nodes == 0) {
        m_nodes = std::ranges::max(m_jobs, {}, &Job::Processors).Processors;
    }
    std::int64_t places = 0;
    for (const Job &job : m_jobs) {
        places += NodesOf(job);
    }
    return m_nodes <= kMostNodes && places <= kMostPlaces;
}

int Parser::NodesOf(const Job &job) const
{
    const std::int64_t share = std::max<std::int64_t>(m_processors / m_nodes, 1);
    const std::int64_t wanted = (job.Processors + share - 1) / share;
    return static_cast<int>(std::min({wanted, m_nodes, std::int64_t(1) << 20}));
}

void Parser::AddNodes()
{
    for (int node = 0; node < m_nodes; ++node) {
        m_builder.AddResource({node, PlannerText::tr("Node %1").arg(node + 1), 1.0}, 0);
    }
    NodeAllocation allocation(static_cast<int>(m_nodes));
    std::int64_t uid = 0;
    for (const Job &job : m_jobs) {
        ++uid;
        for (const int node : allocation.Take(NodesOf(job), job.Start, job.Finish)) {
            m_builder.AddAssignment(uid, node, 1, 0);
        }
    }
}

void Parser::AddRowsBy(const RowKind &kind)
{
    std::map<double, std::vector<std::int64_t>> rows;
    std::int64_t uid = 0;
    for (const Job &job : m_jobs) {
        rows[job.Values[kind.Place]].push_back(++uid);
    }
    std::int64_t row = 0;
    for (const auto &[number, jobs] : rows) {
        m_builder.AddResource({row,
                               number < 0 ? PlannerText::tr(kind.NoTitle)
                                          : PlannerText::tr(kind.Title).arg(number, 0, 'g', 12),
                               std::nullopt},
                              0);
        for (const std::int64_t job : jobs) {
            m_builder.AddAssignment(job, row, 1, 0);
        }
        ++row;
    }
}

void Parser::AddJobs()
{
    std::int64_t uid = 0;
    const QString name = PlannerText::tr("Job %1");
    for (const Job &job : m_jobs) {
        PlanTask task;
        task.Uid = ++uid;
        task.Name = name.arg(job.Values[kJob], 0, 'f', 0);
        TaskTimes times;
        times.Start = InstantOf(job.Start);
        times.Finish = InstantOf(job.Finish);
        m_builder.SetNotes(m_builder.AddTask(std::move(task), 1, times, 0), NotesOf(job), 0);
    }
}

QString Parser::NotesOf(const Job &job)
{
    QStringList parts;
    QString &processors = m_notes.Processors[job.Processors];
    if (processors.isEmpty()) {
        const auto count = static_cast<int>(job.Processors);
        processors =
            QString::fromStdString(Translate("Planner", "%n processor(s)", nullptr, count));
    }
    parts.append(processors);
    for (std::size_t i = 0; i < kRowKinds.size(); ++i) {
        if (const double value = job.Values[kRowKinds[i].Place]; value > 0) {
            parts.append(m_notes.Kinds[i].arg(value, 0, 'f', 0));
        }
    }
    if (job.Values[kWait] > 0) {
        parts.append(m_notes.Waited.arg(job.Values[kWait], 0, 'f', 0));
    }
    return parts.join(QStringLiteral(", "));
}

} // namespace

ClusterTraceReader::ClusterTraceReader(ReadOptions options)
    : m_options(std::move(options))
{
}

QString ClusterTraceReader::Name() const
{
    return PlannerText::tr("Job trace");
}

QStringList ClusterTraceReader::FilePatterns() const
{
    return {QStringLiteral("*.swf"), QStringLiteral("*.swf.gz")};
}

/// Comments, and a line of numbers or a header of the format. The last line may be cut off.
bool ClusterTraceReader::CanRead(const QByteArray &head) const
{
    bool isKnown = false;
    for (const QByteArray &line :
         head.first(std::max<qsizetype>(head.lastIndexOf('\n'), 0)).split('\n')) {
        const QByteArray text = line.trimmed();
        if (text.startsWith(';')) {
            isKnown = isKnown || text.contains("MaxJobs:") || text.contains("MaxNodes:");
        } else if (!text.isEmpty()) {
            return ParseFields({text.data(), static_cast<std::size_t>(text.size())}).has_value();
        }
    }
    return isKnown;
}

PlanResult ClusterTraceReader::Read(QIODevice &source, IProgress &progress) const
{
    return ResultOf([&] { return Parser(source, m_options, progress).Read(); });
}

} // namespace korvane::planner
