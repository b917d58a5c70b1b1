// Files in a zip archive.
#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QString>

#include <memory>
#include <vector>

namespace korvane::planner {

/// Finds files by their names, whatever folder of the archive they are in. Stored and deflated
/// files are read, decompressed on the way; encrypted ones, archives of several parts and those
/// beyond 4 GB are not.
class ZipArchive
{
public:
    static bool IsZip(const QByteArray &head);

    /// Throws PlanRefusal when there is no list of files, or it is damaged.
    explicit ZipArchive(QByteArray content);

    /// Sequential and open; it refers to the archive. Reading it fails with a reason in
    /// errorString() when the file is damaged. Null when there is no such file; throws PlanRefusal
    /// when it is packed in another way.
    std::unique_ptr<QIODevice> Open(const QString &name) const;

private:
    struct Entry
    {
        QString Name;
        quint32 Flags = 0;
        quint32 Method = 0;
        quint32 Checksum = 0;
        quint32 PackedSize = 0;
        quint32 Size = 0;
        quint32 Offset = 0;
    };

    /// Little-endian; 0 beyond the end of the archive.
    quint32 Number(qsizetype offset, int bytes) const;
    void ReadList();

    QByteArray m_content;
    std::vector<Entry> m_entries;
};

} // namespace korvane::planner
