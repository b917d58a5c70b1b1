// Real plans, where a folder of them is at hand: its path stands in the variable KORVANE_DATA.
#include "PlanText.h"
#include "plan/GzipDevice.h"
#include "plan/PlanSummary.h"

#include <QDir>
#include <QHash>
#include <QSet>
#include <QXmlStreamReader>

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

/// All elements of a name with the texts of their children and the links inside: a plain count that
/// shares nothing with the readers.
struct Element
{
    QHash<QString, QString> Fields;
    QStringList Predecessors;
};

std::vector<Element> ElementsOf(const QByteArray &text, const QString &list, const QString &name)
{
    std::vector<Element> elements;
    QStringList path;
    QXmlStreamReader xml(text);
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement()) {
            path.append(xml.name().toString());
            if (path.size() == 3 && path[1] == list && path[2] == name) {
                elements.emplace_back();
            }
        } else if (xml.isEndElement()) {
            path.removeLast();
        } else if (xml.isCharacters() && path.size() >= 4 && path[1] == list && path[2] == name) {
            if (path.size() == 4) {
                elements.back().Fields[path[3]] += xml.text();
            } else if (path[3] == u"PredecessorLink" && path[4] == u"PredecessorUID") {
                elements.back().Predecessors.append(xml.text().toString());
            }
        }
    }
    return elements;
}

bool IsCounted(const Element &element)
{
    return element.Fields[u"IsNull"_s] != u"1" && element.Fields[u"UID"_s] != u"0";
}

QJsonObject PlainCount(const QByteArray &text)
{
    int milestones = 0;
    int summaries = 0;
    int links = 0;
    QSet<QString> uids;
    QStringList starts;
    QStringList finishes;
    std::vector<Element> tasks = ElementsOf(text, u"Tasks"_s, u"Task"_s);
    std::erase_if(tasks, [](const Element &task) { return !IsCounted(task); });
    for (const Element &task : tasks) {
        uids.insert(task.Fields[u"UID"_s]);
        milestones += task.Fields[u"Milestone"_s] == u"1" ? 1 : 0;
        summaries += task.Fields[u"Summary"_s] == u"1" ? 1 : 0;
        starts.append(task.Fields[u"Start"_s]);
        finishes.append(task.Fields[u"Finish"_s]);
    }
    for (const Element &task : tasks) {
        for (const QString &predecessor : task.Predecessors) {
            links += uids.contains(predecessor) ? 1 : 0;
        }
    }
    starts.removeAll(QString());
    finishes.removeAll(QString());
    const auto resources = ElementsOf(text, u"Resources"_s, u"Resource"_s);
    const auto orNull = [](const QStringList &texts, auto least) {
        return texts.isEmpty() ? QJsonValue() : QJsonValue(*least(texts.begin(), texts.end()));
    };
    return {
        {u"tasks"_s, qint64(tasks.size())},
        {u"milestones"_s, milestones},
        {u"summaries"_s, summaries},
        {u"links"_s, links},
        {u"resources"_s, qint64(std::ranges::count_if(resources, IsCounted))},
        {u"start"_s, orNull(starts, [](auto a, auto b) { return std::min_element(a, b); })},
        {u"finish"_s, orNull(finishes, [](auto a, auto b) { return std::max_element(a, b); })},
    };
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
