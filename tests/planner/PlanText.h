// Small plan files as texts, for tests of the readers.
#pragma once

#include "plan/PlanFile.h"

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <zlib.h>

namespace korvane::planner::test {

using namespace Qt::StringLiterals;

inline PlanResult ReadText(const IPlanReader &reader, const QByteArray &text)
{
    QBuffer buffer;
    buffer.setData(text);
    buffer.open(QIODevice::ReadOnly);
    NoProgress progress;
    return reader.Read(buffer, progress);
}

template <typename Reader>
Plan Loaded(const QByteArray &text)
{
    PlanResult result = ReadText(Reader(), text);
    EXPECT_EQ(result.Status, PlanStatus::Loaded)
        << result.Error.Line << ": " << result.Error.Reason.toStdString();
    return std::move(result.Value);
}

/// Whether one of the remarks contains the text; its line is that, unless 0 is given.
inline bool HasRemark(const Plan &plan, const QString &text, qint64 line = 0)
{
    for (const PlanRemark &remark : plan.Remarks.Items()) {
        if (remark.Text.contains(text) && (line == 0 || remark.Line == line)) {
            return true;
        }
    }
    return false;
}

inline std::string AllRemarks(const Plan &plan)
{
    QString all;
    for (const QString &line : plan.Remarks.Lines()) {
        all += line + u'\n';
    }
    return all.toStdString();
}

inline QByteArray Gzip(QByteArray text)
{
    z_stream stream{};
    deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, 16 + MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
    QByteArray packed(static_cast<qsizetype>(deflateBound(&stream, uLong(text.size()))), '\0');
    stream.next_in = reinterpret_cast<Bytef *>(text.data());
    stream.avail_in = uInt(text.size());
    stream.next_out = reinterpret_cast<Bytef *>(packed.data());
    stream.avail_out = uInt(packed.size());
    deflate(&stream, Z_FINISH);
    packed.truncate(static_cast<qsizetype>(stream.total_out));
    deflateEnd(&stream);
    return packed;
}

/// A folder of files that vanishes with the test.
class PlanFolder
{
public:
    QString Write(const QString &name, const QByteArray &content) const
    {
        const QString path = m_folder.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return path;
    }
    QString Path() const { return m_folder.path(); }
    QString Path(const QString &name) const { return m_folder.filePath(name); }

private:
    QTemporaryDir m_folder;
};

} // namespace korvane::planner::test
