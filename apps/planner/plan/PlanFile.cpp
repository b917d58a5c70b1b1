#include "plan/PlanFile.h"

#include "plan/ClusterTraceReader.h"
#include "plan/GanttProjectReader.h"
#include "plan/GzipDevice.h"
#include "plan/MspdiReader.h"
#include "plan/PlannerText.h"
#include "plan/TimetableReader.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace korvane::planner {

namespace {

constexpr qint64 kHeadSize = 4096;

PlanResult Refused(const QString &reason)
{
    return {PlanStatus::Refused, {}, {0, reason}};
}

bool Matches(const IPlanReader &reader, const QString &fileName)
{
    return QDir::match(reader.FilePatterns(), QFileInfo(fileName).fileName());
}

/// The file as it is stored; keeps a copy of it, tells the watcher how far it has been read, and
/// fails when the watcher does not want to go on.
class WatchedFile final : public QIODevice
{
public:
    WatchedFile(QIODevice &file, IProgress &progress)
        : m_file(file)
        , m_progress(progress)
    {
        open(QIODevice::ReadOnly);
    }

    bool isSequential() const override { return true; }
    std::shared_ptr<const PlanSource> Source()
    {
        readAll(); // padding, say
        return m_recorder.Finish();
    }

protected:
    qint64 readData(char *data, qint64 maxSize) override
    {
        if (m_progress.IsCanceled()) {
            return -1;
        }
        const qint64 size = m_file.read(data, maxSize);
        if (size < 0) {
            setErrorString(m_file.errorString());
        } else {
            m_done += size;
            m_recorder.Add(data, size);
            m_progress.Report(m_done, m_file.isSequential() ? 0 : m_file.size());
        }
        return size;
    }
    qint64 writeData(const char * /*data*/, qint64 /*size*/) override { return -1; }

private:
    QIODevice &m_file;
    IProgress &m_progress;
    PlanSourceRecorder m_recorder;
    qint64 m_done = 0;
};

/// A plan without a name is called as its file.
PlanResult Named(PlanResult result, const QString &name)
{
    if (result.Value.Name.trimmed().isEmpty()) {
        result.Value.Name = name;
    }
    return result;
}

PlanResult ReadFolder(const IPlanReader &reader, const QString &path, IProgress &progress)
{
    return Named(reader.ReadFolder(path, progress), QDir(path).dirName());
}

/// `content` is the file's, decompressed where that is needed.
PlanResult ReadContent(QIODevice &content, WatchedFile &file, const QString &fileName,
                       const PlanReaders &readers, IProgress &progress)
{
    const QByteArray head = content.peek(kHeadSize);
    if (progress.IsCanceled()) {
        return {PlanStatus::Canceled, {}, {}};
    }
    if (const IPlanReader *reader = readers.Find(head, fileName)) {
        const QString folder = QFileInfo(fileName).path();
        if (!reader->CanRead(head) && reader->CanReadFolder(folder)) {
            return ReadFolder(*reader, folder, progress);
        }
        PlanResult result = reader->Read(content, progress);
        if (result.Status == PlanStatus::Loaded && reader->IsWritten()) {
            result.Source = file.Source();
        }
        return Named(std::move(result), QFileInfo(fileName).completeBaseName());
    }
    return Refused(PlannerText::tr("not a plan of a known format"));
}

} // namespace

PlanReaders PlanReaders::Builtin(const ReadOptions &options)
{
    PlanReaders readers;
    readers.Add(std::make_unique<MspdiReader>());
    readers.Add(std::make_unique<GanttProjectReader>());
    readers.Add(std::make_unique<TimetableReader>(options));
    readers.Add(std::make_unique<ClusterTraceReader>(options));
    return readers;
}

void PlanReaders::Add(std::unique_ptr<IPlanReader> reader)
{
    m_readers.push_back(std::move(reader));
}

const IPlanReader *PlanReaders::Find(const QByteArray &head, const QString &fileName) const
{
    for (const auto &reader : m_readers) {
        if (reader->CanRead(head)) {
            return reader.get();
        }
    }
    for (const auto &reader : m_readers) {
        if (Matches(*reader, fileName)) {
            return reader.get();
        }
    }
    return nullptr;
}

const IPlanReader *PlanReaders::FindForFolder(const QString &path) const
{
    const auto found =
        std::ranges::find_if(m_readers, [&](const auto &r) { return r->CanReadFolder(path); });
    return found != m_readers.end() ? found->get() : nullptr;
}

QString PlanReaders::DialogFilter() const
{
    QStringList all;
    QStringList filters;
    for (const auto &reader : m_readers) {
        const QString patterns = reader->FilePatterns().join(u' ');
        all.append(patterns);
        filters.append(QStringLiteral("%1 (%2)").arg(reader->Name(), patterns));
    }
    filters.prepend(PlannerText::tr("All plans (%1)").arg(all.join(u' ')));
    filters.append(PlannerText::tr("All files (*)"));
    return filters.join(QStringLiteral(";;"));
}

PlanResult LoadPlan(const QString &fileName, const PlanReaders &readers, IProgress &progress)
{
    const QFileInfo info(fileName);
    if (!info.exists()) {
        return Refused(PlannerText::tr("no such file"));
    }
    if (info.isDir()) {
        const IPlanReader *reader = readers.FindForFolder(fileName);
        return reader != nullptr ? ReadFolder(*reader, fileName, progress)
                                 : Refused(PlannerText::tr("a folder, not a file"));
    }
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        return Refused(file.errorString());
    }
    if (!file.isSequential() && file.size() == 0 && file.atEnd()) {
        return Refused(PlannerText::tr("the file is empty"));
    }
    WatchedFile watched(file, progress);
    if (!GzipDevice::IsGzip(watched.peek(kHeadSize))) {
        return ReadContent(watched, watched, fileName, readers, progress);
    }
    GzipDevice unzipped(watched);
    return ReadContent(unzipped, watched, fileName, readers, progress);
}

QString ErrorLine(const QString &fileName, const PlanError &error)
{
    const QString place =
        error.Line > 0 ? QStringLiteral("%1:%2").arg(fileName).arg(error.Line) : fileName;
    QString line = QStringLiteral("%1: %2").arg(place, error.Reason);
    std::ranges::replace_if(
        line, [](QChar character) { return character.category() == QChar::Other_Control; }, u' ');
    return line;
}

} // namespace korvane::planner
