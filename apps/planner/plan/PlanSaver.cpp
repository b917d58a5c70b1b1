#include "plan/PlanSaver.h"

#include "plan/GzipWriter.h"
#include "plan/MspdiWriter.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <new>

namespace korvane::planner {

namespace {

std::optional<QString> WriteTo(QIODevice &file, const Plan &plan, const PlanSource *source,
                               bool isCompressed)
{
    if (!isCompressed) {
        return WriteMspdi(plan, source, file);
    }
    GzipWriter zipped(file);
    const auto error = WriteMspdi(plan, source, zipped);
    return error || zipped.Finish() ? error : std::optional(WriteFailure());
}

} // namespace

std::optional<QString> SavePlan(const Plan &plan, const PlanSource *source, const QString &fileName)
{
    const QFileInfo info(fileName);
    if (info.isDir()) {
        return QStringLiteral("a folder, not a file");
    }
    if (!info.dir().exists()) {
        return QStringLiteral("the folder %1 does not exist").arg(info.path());
    }
    constexpr auto kWritable = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
    if (info.exists() && (!info.isWritable() || !(info.permissions() & kWritable))) {
        return QStringLiteral("the file is write-protected");
    }
    try {
        QSaveFile file(fileName);
        if (!file.open(QIODevice::WriteOnly)) {
            return file.errorString();
        }
        const bool isCompressed = fileName.endsWith(u".gz", Qt::CaseInsensitive);
        if (const auto error = WriteTo(file, plan, source, isCompressed)) {
            return error;
        }
        return file.commit() ? std::nullopt : std::optional(file.errorString());
    } catch (const std::bad_alloc &) {
        return QStringLiteral("not enough memory");
    }
}

} // namespace korvane::planner
