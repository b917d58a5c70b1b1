// The first plan that a window shows.
#include "MainWindow.h"
#include "PlanChart.h"
#include "PlanLoader.h"
#include "SmallPlan.h"

#include <QSignalSpy>

namespace korvane::planner::test {
namespace {

TEST(FirstPlan, NamesHaveTheRoomThatTheWindowHasForThem)
{
    PlanFolder folder;
    QByteArray text = ProjectText(2);
    text.replace("Task 1", "Agreement with the municipality about dark nights");
    MainWindow window;
    window.resize(1500, 700);
    window.show();
    for (const QString &name : {u"first.xml"_s, u"second.xml"_s}) {
        QSignalSpy finished(&window.Loader(), &PlanLoader::finished);
        window.Open(folder.Write(name, text));
        ASSERT_TRUE(finished.wait(60'000));
        const int wanted = window.Chart().fontMetrics().horizontalAdvance(
            u"Agreement with the municipality about dark nights"_s);
        ASSERT_LT(wanted, window.width() / 3) << "the font of this machine is too large";
        EXPECT_GT(window.Chart().TreeWidth(), wanted) << name.toStdString();
    }
}

} // namespace
} // namespace korvane::planner::test
