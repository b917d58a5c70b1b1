#include "plan/PlanSaver.h"

#include "plan/GzipWriter.h"
#include "plan/MspdiWriter.h"
#include "plan/PlannerText.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <new>

namespace korvane::planner {

std::optional<QString> SaveFile(const QString &fileName, const WriteFunction &write)
{
    const QFileInfo info(fileName);
    if (info.isDir()) {
        return PlannerText::tr("a folder, not a file");
    }
    if (!info.dir().exists()) {
        return PlannerText::tr("the folder %1 does not exist").arg(info.path());
    }
    constexpr auto kWritable = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
    if (info.exists() && (!info.isWritable() || !(info.permissions() & kWritable))) {
        return PlannerText::tr("the file is write-protected");
    }
    try {
        QSaveFile file(fileName);
        if (!file.open(QIODevice::WriteOnly)) {
            return file.errorString();
        }
        std::optional<QString> error;
        if (fileName.endsWith(u".gz", Qt::CaseInsensitive)) {
            GzipWriter zipped(file);
            error = write(zipped);
            if (!error && !zipped.Finish()) {
                error = WriteFailure();
            }
        } else {
            error = write(file);
        }
        if (error) {
            return error;
        }
        if (!file.flush()) { // commit() does not tell that the last bytes were not taken
            return WriteFailure();
        }
        return file.commit() ? std::nullopt : std::optional(file.errorString());
    } catch (const std::bad_alloc &) {
        return PlannerText::tr("not enough memory");
    }
}

std::optional<QString> SavePlan(const Plan &plan, const PlanSource *source, const QString &fileName,
                                IProgress &progress)
{
    return SaveFile(fileName,
                    [&](QIODevice &file) { return WriteMspdi(plan, source, file, progress); });
}

} // namespace korvane::planner
