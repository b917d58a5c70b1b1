// What a file format has to offer to be opened as a plan.
#pragma once

#include "plan/Plan.h"
#include "plan/PlanSource.h"

#include <QByteArray>
#include <QIODevice>
#include <QStringList>

namespace korvane::planner {

/// Watches a load and may end it. Called from the thread that loads.
class IProgress
{
public:
    IProgress() = default;
    IProgress(const IProgress &) = delete;
    IProgress &operator=(const IProgress &) = delete;
    virtual ~IProgress() = default;

    /// Bytes of the file read so far and in all (as stored, so compressed where the file is).
    virtual void Report(qint64 done, qint64 total) = 0;
    /// Asked often; true ends the load soon.
    virtual bool IsCanceled() const = 0;
};

/// A load that nobody watches.
class NoProgress final : public IProgress
{
public:
    void Report(qint64 /*done*/, qint64 /*total*/) override {}
    bool IsCanceled() const override { return false; }
};

/// Why a file cannot be used.
struct PlanError
{
    qint64 Line = 0; ///< 1-based; 0 when the reason is not in a line
    QString Reason;
};

enum class PlanStatus : std::uint8_t { Loaded, Refused, Canceled };

struct PlanResult
{
    PlanStatus Status = PlanStatus::Refused;
    Plan Value;      ///< complete when loaded, else of no use
    PlanError Error; ///< filled when refused
    /// What the plan is to be saved with; null for formats that are not written.
    std::shared_ptr<const PlanSource> Source = {};
};

/// How files are read that can be read in more than one way.
struct ReadOptions
{
    /// What a row stands for, as one of the format's choices; empty for its own default.
    QString Rows;
    /// The day of a timetable; without it the format chooses.
    std::optional<int> Day;
};

/// One format of files or folders. Readers have no state: one object reads any number of files,
/// also at once.
class IPlanReader
{
public:
    IPlanReader() = default;
    IPlanReader(const IPlanReader &) = delete;
    IPlanReader &operator=(const IPlanReader &) = delete;
    virtual ~IPlanReader() = default;

    /// For the file dialog, for example "Project XML".
    virtual QString Name() const = 0;
    /// For the file dialog, for example "*.xml". Compressed files match their own patterns.
    virtual QStringList FilePatterns() const = 0;
    /// Whether the content may be of this format, by its first bytes (decompressed, up to 4 kB).
    virtual bool CanRead(const QByteArray &head) const = 0;
    /// Whether a folder is of this format as a whole. Then it can also be opened by a file in it
    /// that matches the patterns.
    virtual bool CanReadFolder(const QString & /*path*/) const { return false; }
    /// As Read, for such a folder.
    virtual PlanResult ReadFolder(const QString & /*path*/, IProgress & /*progress*/) const
    {
        return {};
    }
    /// Whether plans are saved in this format, too.
    virtual bool IsWritten() const { return false; }
    /// `source` is open, possibly sequential, and stands at its beginning. Whatever its bytes are,
    /// this ends, throws nothing, and needs memory in proportion to its length at most.
    virtual PlanResult Read(QIODevice &source, IProgress &progress) const = 0;
};

} // namespace korvane::planner
