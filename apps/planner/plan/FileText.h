// Files whose formats are read from their whole text.
#pragma once

#include "plan/PlanReader.h"

#include <QByteArray>

namespace korvane::planner {

/// The file's first bytes, decompressed where it is gzip; empty when it cannot be read.
QByteArray HeadOfFile(const QString &fileName);
/// The whole file, decompressed where it is gzip. Throws PlanRefusal when it cannot be read, and
/// PlanCanceled when the watcher wants that.
QByteArray TextOfFile(const QString &fileName, IProgress &progress);

} // namespace korvane::planner
