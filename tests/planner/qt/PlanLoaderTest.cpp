#include "PlanLoader.h"
#include "SmallPlan.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSignalSpy>

namespace korvane::planner::test {
namespace {

/// Long enough to be busy reading for a while.
constexpr int kManyTasks = 20'000;

std::shared_ptr<PlanResult> ResultOf(const QSignalSpy &finished)
{
    return finished.at(0).at(1).value<std::shared_ptr<PlanResult>>();
}

TEST(PlanLoader, HandsThePlanBackAndTellsHowFarItIs)
{
    const PlanFolder folder;
    const QString file = folder.Write(u"a.xml"_s, ProjectText(kManyTasks));
    PlanLoader loader;
    QSignalSpy finished(&loader, &PlanLoader::finished);
    const QSignalSpy progressed(&loader, &PlanLoader::progressed);
    loader.Start(file);
    EXPECT_TRUE(loader.IsLoading());
    EXPECT_EQ(loader.FileName(), file);
    ASSERT_TRUE(finished.wait(60'000));
    EXPECT_FALSE(loader.IsLoading());
    EXPECT_EQ(finished.at(0).at(0).toString(), file);
    EXPECT_EQ(ResultOf(finished)->Value.Tasks.size(), std::size_t(kManyTasks));
    qint64 last = 0;
    for (const QList<QVariant> &progress : progressed) {
        EXPECT_GE(progress.at(0).toLongLong(), last);
        EXPECT_LE(progress.at(0).toLongLong(), progress.at(1).toLongLong());
        last = progress.at(0).toLongLong();
    }
    EXPECT_EQ(last, QFileInfo(file).size());
    EXPECT_LE(progressed.count(), 201);
}

TEST(PlanLoader, RefusesWhatIsNoPlan)
{
    const PlanFolder folder;
    PlanLoader loader;
    QSignalSpy finished(&loader, &PlanLoader::finished);
    loader.Start(folder.Path(u"none.xml"_s));
    ASSERT_TRUE(finished.wait(60'000));
    EXPECT_EQ(ResultOf(finished)->Status, PlanStatus::Refused);
    EXPECT_EQ(ResultOf(finished)->Error.Reason, u"no such file");
}

TEST(PlanLoader, NothingIsHeardOfALoadThatWasGivenUp)
{
    const PlanFolder folder;
    const QString large = folder.Write(u"large.xml"_s, ProjectText(kManyTasks));
    const QString small = folder.Write(u"small.xml"_s, ProjectText(1));
    PlanLoader loader;
    QSignalSpy finished(&loader, &PlanLoader::finished);
    loader.Start(large);
    loader.Cancel();
    EXPECT_FALSE(loader.IsLoading());
    loader.Start(large);
    loader.Start(small);
    ASSERT_TRUE(finished.wait(60'000));
    QCoreApplication::processEvents();
    ASSERT_EQ(finished.count(), 1);
    EXPECT_EQ(finished.at(0).at(0).toString(), small);
    EXPECT_EQ(ResultOf(finished)->Value.Tasks.size(), 1U);
}

TEST(PlanLoader, MayGoWhileItLoads)
{
    const PlanFolder folder;
    const QString large = folder.Write(u"large.xml"_s, ProjectText(kManyTasks));
    {
        PlanLoader loader;
        loader.Start(large);
    }
    QCoreApplication::processEvents();
}

TEST(PlanLoader, AReceiverMayStartTheNextLoad)
{
    const PlanFolder folder;
    const QString first = folder.Write(u"first.xml"_s, ProjectText(1));
    const QString second = folder.Write(u"second.xml"_s, ProjectText(2));
    PlanLoader loader;
    QObject::connect(&loader, &PlanLoader::finished, &loader, [&](const QString &fileName) {
        if (fileName == first) {
            loader.Start(second);
        }
    });
    QSignalSpy finished(&loader, &PlanLoader::finished);
    loader.Start(first);
    ASSERT_TRUE(finished.wait(60'000));
    ASSERT_TRUE(finished.count() == 2 || finished.wait(60'000));
    EXPECT_EQ(finished.at(1).at(0).toString(), second);
}

} // namespace
} // namespace korvane::planner::test
