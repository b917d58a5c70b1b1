#include "plan/GzipDevice.h"

#include "plan/PlannerText.h"

#include <array>
#include <zlib.h>

namespace korvane::planner {

namespace {

constexpr int kInputSize = 64 * 1024;
constexpr int kOutputSize = 4 * kInputSize; // at most, per read
constexpr int kGzipWindow = 16 + MAX_WBITS; // 16: expects the gzip header

} // namespace

struct GzipDevice::Stream
{
    enum class State : std::uint8_t { Reading, AtEnd, Failed };

    z_stream Z{};
    std::array<char, kInputSize> Input{};
    State Current = State::Reading;
};

GzipDevice::GzipDevice(QIODevice &source, qint64 limit)
    : m_source(source)
    , m_limit(limit)
    , m_stream(std::make_unique<Stream>())
{
    if (inflateInit2(&m_stream->Z, kGzipWindow) != Z_OK) {
        Fail(PlannerText::tr("decompression cannot be started"));
    }
    open(QIODevice::ReadOnly);
}

GzipDevice::~GzipDevice()
{
    inflateEnd(&m_stream->Z);
}

bool GzipDevice::IsGzip(const QByteArray &head)
{
    return head.startsWith("\x1f\x8b");
}

qint64 GzipDevice::readData(char *data, qint64 maxSize)
{
    Stream &stream = *m_stream;
    if (stream.Current == Stream::State::Failed) {
        return -1;
    }
    stream.Z.next_out = reinterpret_cast<Bytef *>(data);
    stream.Z.avail_out = static_cast<uInt>(std::min<qint64>(maxSize, kOutputSize));
    const uInt wanted = stream.Z.avail_out;
    while (stream.Z.avail_out == wanted && wanted > 0 && stream.Current == Stream::State::Reading) {
        if (stream.Z.avail_in == 0) {
            const qint64 size = FillInput();
            if (size <= 0) {
                return Fail(size < 0 ? m_source.errorString()
                                     : PlannerText::tr("the compressed data ends too early"));
            }
        }
        const int code = inflate(&stream.Z, Z_NO_FLUSH);
        if (code == Z_STREAM_END) {
            stream.Current = StartNextMember() ? Stream::State::Reading : Stream::State::AtEnd;
        } else if (code != Z_OK && code != Z_BUF_ERROR) {
            return Fail(PlannerText::tr("the compressed data is damaged"));
        }
    }
    const qint64 size = wanted - stream.Z.avail_out;
    m_written += size;
    if (m_written > m_limit) {
        return Fail(PlannerText::tr("more than %1 MB after decompression").arg(m_limit >> 20));
    }
    return size;
}

qint64 GzipDevice::FillInput()
{
    Stream &stream = *m_stream;
    const qint64 size = m_source.read(stream.Input.data(), kInputSize);
    if (size > 0) {
        stream.Z.next_in = reinterpret_cast<Bytef *>(stream.Input.data());
        stream.Z.avail_in = static_cast<uInt>(size);
    }
    return size;
}

bool GzipDevice::StartNextMember()
{
    Stream &stream = *m_stream;
    if (stream.Z.avail_in == 0 && FillInput() <= 0) {
        return false;
    }
    constexpr Bytef kFirstMagicByte = 0x1f;
    return stream.Z.next_in[0] == kFirstMagicByte && inflateReset(&stream.Z) == Z_OK;
}

qint64 GzipDevice::Fail(const QString &reason)
{
    m_stream->Current = Stream::State::Failed;
    setErrorString(reason);
    return -1;
}

} // namespace korvane::planner
