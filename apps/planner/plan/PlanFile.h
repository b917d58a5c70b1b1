// Opens plan files of all known formats.
#pragma once

#include "plan/PlanReader.h"

#include <memory>
#include <vector>

namespace korvane::planner {

/// The known formats, in the order in which they are tried.
class PlanReaders
{
public:
    /// With all formats that the planner brings along.
    static PlanReaders Builtin(const ReadOptions &options = {});

    void Add(std::unique_ptr<IPlanReader> reader);
    /// By content; where that says nothing, by the file name's patterns. Null when neither fits.
    const IPlanReader *Find(const QByteArray &head, const QString &fileName) const;
    /// Null for a folder that is of no known format.
    const IPlanReader *FindForFolder(const QString &path) const;
    /// Filter of a file dialog: all formats together, then one by one, then all files.
    QString DialogFilter() const;

private:
    std::vector<std::unique_ptr<IPlanReader>> m_readers;
};

/// Reads a file, decompressing it where its content is gzip, or a folder.
PlanResult LoadPlan(const QString &fileName, const PlanReaders &readers, IProgress &progress);

/// "file:line: reason" on one line, whatever the file name and the reason contain.
QString ErrorLine(const QString &fileName, const PlanError &error);

} // namespace korvane::planner
