#include "plan/PlanSource.h"

#include "plan/GzipDevice.h"
#include "plan/GzipWriter.h"

#include <algorithm>

namespace korvane::planner {

QByteArray PlanSource::Text() const
{
    QBuffer buffer;
    buffer.setData(m_packed);
    buffer.open(QIODevice::ReadOnly);
    return GzipDevice(buffer).readAll();
}

PlanSourceRecorder::PlanSourceRecorder()
{
    m_target.open(QIODevice::WriteOnly);
}

PlanSourceRecorder::~PlanSourceRecorder() = default;

void PlanSourceRecorder::Add(const char *data, qint64 size)
{
    constexpr qint64 kMarkSize = 2;
    if (m_target.data().isEmpty() && m_writer == nullptr
        && !GzipDevice::IsGzip(QByteArray::fromRawData(data, std::min(size, kMarkSize)))) {
        m_writer = std::make_unique<GzipWriter>(m_target, GzipWriter::Effort::Least);
    }
    QIODevice &target = m_writer != nullptr ? static_cast<QIODevice &>(*m_writer) : m_target;
    target.write(data, size);
}

std::shared_ptr<const PlanSource> PlanSourceRecorder::Finish()
{
    if (m_writer != nullptr) {
        m_writer->Finish();
    }
    QByteArray packed = m_target.data();
    packed.squeeze();
    return std::make_shared<PlanSource>(std::move(packed));
}

} // namespace korvane::planner
