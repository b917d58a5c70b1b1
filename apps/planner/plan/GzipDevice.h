// Reads gzip data as if it were not compressed.
#pragma once

#include <QIODevice>

#include <memory>

namespace korvane::planner {

/// A sequential device over another one. Several members one after the other read as one text, as
/// gzip itself does it; padding after the last one is ignored. Reading fails, with a reason in
/// errorString(), on damaged or truncated data, and when there is more of it than the limit.
class GzipDevice final : public QIODevice
{
public:
    static constexpr qint64 kDefaultLimit = qint64(2) << 30;

    /// Opens itself for reading. `source` is observed and has to live as long. `limit`: bytes after
    /// decompression.
    explicit GzipDevice(QIODevice &source, qint64 limit = kDefaultLimit);
    ~GzipDevice() override;

    static bool IsGzip(const QByteArray &head);

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char *data, qint64 maxSize) override;
    qint64 writeData(const char * /*data*/, qint64 /*size*/) override { return -1; }

private:
    struct Stream;

    /// Bytes got; 0 at the end of the source, negative when it fails.
    qint64 FillInput();
    bool StartNextMember();
    qint64 Fail(const QString &reason);

    QIODevice &m_source;
    qint64 m_limit = 0;
    qint64 m_written = 0;
    std::unique_ptr<Stream> m_stream;
};

} // namespace korvane::planner
