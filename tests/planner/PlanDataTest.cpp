// Real plans, where a folder of them is at hand: its path stands in the variable KORVANE_DATA.
#include "PlanText.h"
#include "plan/GzipDevice.h"
#include "plan/PlanSummary.h"

#include <QDir>

namespace korvane::planner::test {
namespace {

QStringList FilesOf(const QString &folder, const QStringList &patterns)
{
    const QDir dir(qEnvironmentVariable("KORVANE_DATA") + u'/' + folder);
    QStringList paths;
    for (const QString &name : dir.entryList(patterns, QDir::Files)) {
        paths.append(dir.filePath(name));
    }
    return paths;
}

QByteArray ContentOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    if (!GzipDevice::IsGzip(file.peek(2))) {
        return file.readAll();
    }
    return GzipDevice(file).readAll();
}

/// What stands between the tags of a field, where it first occurs.
QString Field(const QByteArray &element, const QByteArray &name)
{
    const qsizetype at = element.indexOf("<" + name + ">") + name.size() + 2;
    const qsizetype end = element.indexOf("</" + name + ">");
    return end < 0 ? QString() : QString::fromUtf8(element.mid(at, end - at));
}

/// The elements of a name that count, each as the text from its tag on.
QByteArrayList ElementsOf(const QByteArray &text, const QByteArray &name)
{
    QByteArrayList elements;
    for (qsizetype at = 0; (at = text.indexOf("<" + name + ">", at)) >= 0; ++at) {
        const QByteArray element = text.mid(at, text.indexOf("</" + name + ">", at) - at);
        if (Field(element, "IsNull") != u"1" && Field(element, "UID") != u"0") {
            elements.append(element);
        }
    }
    return elements;
}

/// A plain count that shares nothing with the readers.
QJsonObject PlainCount(const QByteArray &text)
{
    const QByteArrayList tasks = ElementsOf(text, "Task");
    const auto marked = [&](const QByteArray &field) {
        return std::ranges::count_if(tasks, [&](auto &task) { return Field(task, field) == u"1"; });
    };
    const auto sorted = [&](const QByteArray &field) {
        QStringList texts{QString()};
        for (const QByteArray &task : tasks) {
            texts.append(Field(task, field));
        }
        texts.removeAll(QString());
        texts.sort();
        return texts;
    };
    const QStringList uids = sorted("UID");
    int links = 0;
    for (const QByteArray &task : tasks) {
        for (const QByteArray &link : ElementsOf(task, "PredecessorLink")) {
            links += std::ranges::binary_search(uids, Field(link, "PredecessorUID")) ? 1 : 0;
        }
    }
    const QStringList starts = sorted("Start");
    const QStringList finishes = sorted("Finish");
    return {{u"tasks"_s, qint64(tasks.size())},
            {u"milestones"_s, qint64(marked("Milestone"))},
            {u"summaries"_s, qint64(marked("Summary"))},
            {u"links"_s, links},
            {u"resources"_s, qint64(ElementsOf(text, "Resource").size())},
            {u"start"_s, starts.isEmpty() ? QJsonValue() : starts.front()},
            {u"finish"_s, finishes.isEmpty() ? QJsonValue() : finishes.back()}};
}

class PlanData : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!QDir(qEnvironmentVariable("KORVANE_DATA", u"/nowhere"_s)).exists()) {
            GTEST_SKIP() << "KORVANE_DATA names no folder";
        }
    }
};

TEST_F(PlanData, ProjectXmlIsCountedAsItsElementsAre)
{
    const QStringList paths = FilesOf(u"mspdi"_s, {u"*.xml"_s, u"*.xml.gz"_s});
    EXPECT_FALSE(paths.isEmpty());
    for (const QString &path : paths) {
        NoProgress progress;
        const PlanResult result = LoadPlan(path, PlanReaders::Builtin(), progress);
        ASSERT_EQ(result.Status, PlanStatus::Loaded) << path.toStdString();
        EXPECT_EQ(Summarize(result.Value), PlainCount(ContentOf(path))) << path.toStdString();
    }
}

TEST_F(PlanData, GanttProjectPlansNeedNoRemarks)
{
    const QStringList paths = FilesOf(u"ganttproject"_s, {u"*.gan"_s});
    EXPECT_FALSE(paths.isEmpty());
    for (const QString &path : paths) {
        NoProgress progress;
        const PlanResult result = LoadPlan(path, PlanReaders::Builtin(), progress);
        ASSERT_EQ(result.Status, PlanStatus::Loaded) << path.toStdString();
        EXPECT_EQ(result.Value.Tasks.size(), std::size_t(ContentOf(path).count("<task ")));
        EXPECT_EQ(result.Value.Links.size(), std::size_t(ContentOf(path).count("<depend ")));
        EXPECT_TRUE(result.Value.Remarks.IsEmpty()) << AllRemarks(result.Value);
    }
}

} // namespace
} // namespace korvane::planner::test
