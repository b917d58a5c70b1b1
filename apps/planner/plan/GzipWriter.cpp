#include "plan/GzipWriter.h"

#include <algorithm>
#include <array>
#include <zlib.h>

namespace korvane::planner {

namespace {

constexpr int kBufferSize = 64 * 1024;
constexpr int kGzipWindow = 16 + MAX_WBITS; // 16: writes the gzip header
constexpr int kMemoryLevel = 8;

} // namespace

struct GzipWriter::Stream
{
    z_stream Z{};
    std::array<char, kBufferSize> Output{};
    bool HasFailed = false;
};

GzipWriter::GzipWriter(QIODevice &target, Effort effort)
    : m_target(target)
    , m_stream(std::make_unique<Stream>())
{
    m_stream->HasFailed = deflateInit2(&m_stream->Z, static_cast<int>(effort), Z_DEFLATED,
                                       kGzipWindow, kMemoryLevel, Z_DEFAULT_STRATEGY)
                          != Z_OK;
    open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

GzipWriter::~GzipWriter()
{
    deflateEnd(&m_stream->Z);
}

bool GzipWriter::Finish()
{
    const bool isComplete = Deflate(nullptr, 0, Z_FINISH);
    m_stream->HasFailed = true;
    return isComplete;
}

qint64 GzipWriter::writeData(const char *data, qint64 size)
{
    constexpr qint64 kMost = 1 << 30; // zlib counts in 32 bits
    for (qint64 done = 0; done < size; done += kMost) {
        if (!Deflate(data + done, std::min(kMost, size - done), Z_NO_FLUSH)) {
            return -1;
        }
    }
    return size;
}

bool GzipWriter::Deflate(const char *data, qint64 size, int flush)
{
    Stream &stream = *m_stream;
    stream.Z.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(data)); // zlib only reads it
    stream.Z.avail_in = static_cast<uInt>(size);
    do {
        if (stream.HasFailed) {
            return false;
        }
        stream.Z.next_out = reinterpret_cast<Bytef *>(stream.Output.data());
        stream.Z.avail_out = kBufferSize;
        deflate(&stream.Z, flush);
        const qint64 made = kBufferSize - stream.Z.avail_out;
        if (m_target.write(stream.Output.data(), made) != made) {
            stream.HasFailed = true;
            setErrorString(m_target.errorString());
            return false;
        }
    } while (stream.Z.avail_out == 0);
    return true;
}

} // namespace korvane::planner
