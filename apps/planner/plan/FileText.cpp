#include "plan/FileText.h"

#include "plan/GzipDevice.h"
#include "plan/PlanRefusal.h"
#include "plan/PlannerText.h"

#include <QFile>
#include <QFileInfo>

namespace korvane::planner {

namespace {

constexpr qint64 kHeadSize = 4096;
constexpr qint64 kStep = qint64(1) << 20;
/// Texts that are kept whole; calendars and programmes are far from it.
constexpr qint64 kGreatestSize = qint64(256) << 20;

[[noreturn]] void Refuse(const QString &reason)
{
    throw PlanRefusal(0, reason);
}

/// `file` tells the progress, `content` is what it holds.
QByteArray AllOf(QIODevice &content, QFile &file, IProgress &progress)
{
    QByteArray text;
    QByteArray step(kStep, Qt::Uninitialized);
    for (;;) {
        if (progress.IsCanceled()) {
            throw PlanCanceled();
        }
        const qint64 size = content.read(step.data(), step.size());
        if (size < 0) {
            Refuse(content.errorString());
        }
        if (size == 0) {
            return text;
        }
        text.append(step.constData(), size);
        if (text.size() > kGreatestSize) {
            Refuse(PlannerText::tr("the file is too large"));
        }
        progress.Report(file.pos(), file.size());
    }
}

} // namespace

QByteArray HeadOfFile(const QString &fileName)
{
    QFile file(fileName);
    if (QFileInfo(fileName).isDir() || !file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QByteArray head = file.peek(kHeadSize);
    return GzipDevice::IsGzip(head) ? GzipDevice(file).read(kHeadSize) : head;
}

QByteArray TextOfFile(const QString &fileName, IProgress &progress)
{
    const QFileInfo info(fileName);
    if (!info.exists()) {
        Refuse(PlannerText::tr("no such file"));
    }
    if (info.isDir()) {
        Refuse(PlannerText::tr("a folder, not a file"));
    }
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        Refuse(file.errorString());
    }
    QByteArray text;
    if (GzipDevice::IsGzip(file.peek(kHeadSize))) {
        GzipDevice unzipped(file);
        text = AllOf(unzipped, file, progress);
    } else {
        text = AllOf(file, file, progress);
    }
    if (text.isEmpty()) {
        Refuse(PlannerText::tr("the file is empty"));
    }
    return text;
}

} // namespace korvane::planner
