// Compresses what is written into gzip.
#pragma once

#include <QIODevice>

#include <memory>

namespace korvane::planner {

/// A sequential device over another one, which gets the compressed data.
class GzipWriter final : public QIODevice
{
public:
    enum class Effort : int { Least = 1, Usual = 6 };

    /// Opens itself for writing. `target` is observed and has to live as long.
    explicit GzipWriter(QIODevice &target, Effort effort = Effort::Usual);
    ~GzipWriter() override;

    bool isSequential() const override { return true; }
    /// Writes what is still held back, and the end; nothing can be written afterwards. False when
    /// the target did not take everything.
    bool Finish();

protected:
    qint64 readData(char * /*data*/, qint64 /*maxSize*/) override { return -1; }
    qint64 writeData(const char *data, qint64 size) override;

private:
    struct Stream;

    bool Deflate(const char *data, qint64 size, int flush);

    QIODevice &m_target;
    std::unique_ptr<Stream> m_stream;
};

} // namespace korvane::planner
