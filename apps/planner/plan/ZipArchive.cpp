#include "plan/ZipArchive.h"

#include "plan/GzipDevice.h"
#include "plan/PlanRefusal.h"
#include "plan/PlannerText.h"

#include <QBuffer>

#include <algorithm>
#include <utility>

namespace korvane::planner {

namespace {

constexpr char kLocalMagic[] = "PK\x03\x04";
constexpr char kEntryMagic[] = "PK\x01\x02";
constexpr char kEndMagic[] = "PK\x05\x06";
constexpr qsizetype kLocalSize = 30;
constexpr qsizetype kEntrySize = 46;
constexpr qsizetype kEndSize = 22;
constexpr quint32 kEncrypted = 1;
constexpr quint32 kStored = 0;
constexpr quint32 kDeflated = 8;

QByteArray LittleEndian(quint32 value)
{
    QByteArray bytes;
    for (int shift = 0; shift < 32; shift += 8) {
        bytes.append(static_cast<char>(value >> shift));
    }
    return bytes;
}

/// Deflated data, framed as gzip: both know the same checksum and size.
class DeflatedFile final : public QIODevice
{
public:
    explicit DeflatedFile(const QByteArray &gzip)
    {
        m_packed.setData(gzip);
        m_packed.open(QIODevice::ReadOnly);
        m_content = std::make_unique<GzipDevice>(m_packed);
        open(QIODevice::ReadOnly);
    }
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char *data, qint64 maxSize) override
    {
        const qint64 size = m_content->read(data, maxSize);
        setErrorString(m_content->errorString());
        return size;
    }
    qint64 writeData(const char * /*data*/, qint64 /*size*/) override { return -1; }

private:
    QBuffer m_packed;
    std::unique_ptr<GzipDevice> m_content;
};

} // namespace

bool ZipArchive::IsZip(const QByteArray &head)
{
    return head.startsWith(kLocalMagic) || head.startsWith(kEndMagic);
}

ZipArchive::ZipArchive(QByteArray content)
    : m_content(std::move(content))
{
    ReadList();
}

quint32 ZipArchive::Number(qsizetype offset, int bytes) const
{
    quint32 value = 0;
    for (int i = bytes; i-- > 0;) {
        const qsizetype at = offset + i;
        value = value << 8 | (at < m_content.size() ? static_cast<uchar>(m_content[at]) : 0U);
    }
    return value;
}

void ZipArchive::ReadList()
{
    const qsizetype end = m_content.lastIndexOf(kEndMagic);
    if (end < 0 || end + kEndSize > m_content.size()) {
        throw PlanRefusal(0, PlannerText::tr("the zip archive is incomplete"));
    }
    const quint32 count = Number(end + 10, 2);
    qsizetype at = Number(end + 16, 4);
    for (quint32 i = 0; i < count; ++i) {
        const QByteArrayView rest =
            QByteArrayView(m_content).sliced(std::min(at, m_content.size()));
        if (!rest.startsWith(kEntryMagic)) {
            throw PlanRefusal(0, PlannerText::tr("the zip archive's list of files is damaged"));
        }
        const quint32 nameSize = Number(at + 28, 2);
        const QString path = QString::fromUtf8(m_content.mid(at + kEntrySize, nameSize));
        m_entries.push_back({path.section(u'/', -1), Number(at + 8, 2), Number(at + 10, 2),
                             Number(at + 16, 4), Number(at + 20, 4), Number(at + 24, 4),
                             Number(at + 42, 4)});
        at += kEntrySize + nameSize + Number(at + 30, 2) + Number(at + 32, 2);
    }
}

std::unique_ptr<QIODevice> ZipArchive::Open(const QString &name) const
{
    const auto entry = std::ranges::find(m_entries, name, &Entry::Name);
    if (entry == m_entries.end()) {
        return nullptr;
    }
    const qsizetype header = entry->Offset;
    const qsizetype begin = header + kLocalSize + Number(header + 26, 2) + Number(header + 28, 2);
    if ((entry->Flags & kEncrypted) != 0
        || (entry->Method != kStored && entry->Method != kDeflated)) {
        throw PlanRefusal(0,
                          PlannerText::tr("%1 is encrypted or packed in an unknown way").arg(name));
    }
    if (begin + entry->PackedSize > m_content.size()) {
        throw PlanRefusal(0, PlannerText::tr("%1 is cut off in the zip archive").arg(name));
    }
    const auto packed = QByteArray::fromRawData(m_content.constData() + begin, entry->PackedSize);
    if (entry->Method == kStored) {
        auto file = std::make_unique<QBuffer>();
        file->setData(packed);
        file->open(QIODevice::ReadOnly);
        return file;
    }
    static const QByteArray kGzipHeader("\x1f\x8b\x08\0\0\0\0\0\0\xff", 10);
    return std::make_unique<DeflatedFile>(kGzipHeader + packed + LittleEndian(entry->Checksum)
                                          + LittleEndian(entry->Size));
}

} // namespace korvane::planner
