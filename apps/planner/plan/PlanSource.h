// The text that a plan was read from.
#pragma once

#include <QBuffer>
#include <QByteArray>

#include <memory>

namespace korvane::planner {

class GzipWriter;

/// Kept beside the plan, so that whatever it does not take up from its file is written back as it
/// was; the file itself may change or vanish. Held compressed, an eighth to a thirtieth of the
/// text.
class PlanSource
{
public:
    /// `packed` is gzip.
    explicit PlanSource(QByteArray packed)
        : m_packed(std::move(packed))
    {
    }

    /// The text as the file has it, decompressed.
    QByteArray Text() const;
    qsizetype PackedSize() const { return m_packed.size(); }

private:
    QByteArray m_packed;
};

/// Takes a copy of a file while that is read.
class PlanSourceRecorder
{
public:
    PlanSourceRecorder();
    ~PlanSourceRecorder();

    void Add(const char *data, qint64 size);
    std::shared_ptr<const PlanSource> Finish();

private:
    QBuffer m_target;
    std::unique_ptr<GzipWriter> m_writer; ///< null before the first bytes, and where they are gzip
};

} // namespace korvane::planner
