#include "PlanText.h"
#include "plan/PlanSaver.h"
#include "support/SmallDisk.h"

#include <QDir>

namespace korvane::planner::test {
namespace {

QByteArray ContentOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

Plan PlanWithTasks(int count)
{
    Plan plan;
    plan.Name = u"Plan"_s;
    plan.Tasks.resize(count);
    for (int i = 0; i < count; ++i) {
        plan.Tasks[i].Uid = i + 1;
    }
    return plan;
}

TEST(PlanSaver, NamesWhatCannotBeWrittenAndLeavesItAlone)
{
    const PlanFolder folder;
    const QString locked = folder.Write(u"locked.xml"_s, "old");
    QFile::setPermissions(locked, QFile::ReadOwner);
    const Plan plan = PlanWithTasks(3);
    const std::pair<QString, QString> cases[] = {
        {folder.Path(), u"a folder"_s},
        {folder.Path(u"none/a.xml"_s), u"does not exist"_s},
        {locked, u"write-protected"_s},
    };
    for (const auto &[path, reason] : cases) {
        const auto error = SavePlan(plan, nullptr, path);
        ASSERT_TRUE(error.has_value()) << path.toStdString();
        EXPECT_TRUE(error->contains(reason)) << error->toStdString();
    }
    EXPECT_EQ(ContentOf(locked), "old");
}

#ifdef Q_OS_UNIX
TEST(PlanSaver, AFullDiskKeepsTheFormerFile)
{
    for (const auto &[name, tasks] : {std::pair(u"a.xml"_s, 20'000),
                                      {u"a.xml.gz"_s, 20'000},
                                      {u"a.xml"_s, 20},
                                      {u"a.xml.gz"_s, 500}}) {
        const PlanFolder folder;
        const QString path = folder.Write(name, "old");
        std::optional<QString> error;
        {
            const SmallDisk disk(2000);
            error = SavePlan(PlanWithTasks(tasks), nullptr, path);
        }
        ASSERT_TRUE(error.has_value()) << tasks;
        EXPECT_TRUE(error->contains(u"disk may be full")) << error->toStdString();
        EXPECT_EQ(ContentOf(path), "old");
        EXPECT_EQ(QDir(folder.Path()).entryList(QDir::Files).size(), 1) << "nothing is left over";
    }
}

TEST(PlanSaver, KeepsPermissionsAndLinks)
{
    const PlanFolder folder;
    const QString path = folder.Write(u"a.xml"_s, "old");
    const auto permissions = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
    QFile::setPermissions(path, permissions);
    const QString link = folder.Path(u"link.xml"_s);
    QFile::link(path, link);
    EXPECT_EQ(SavePlan(PlanWithTasks(3), nullptr, link), std::nullopt);
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_TRUE(ContentOf(path).contains("<Task>"));
    EXPECT_EQ(QFile::permissions(path) & ~(QFile::ReadUser | QFile::WriteUser), permissions);
}
#endif

} // namespace
} // namespace korvane::planner::test
