#include "MainWindow.h"
#include "PlanDocument.h"
#include "PlanText.h"
#include "PrintActions.h"
#include "PrintCommand.h"
#include "plan/PlanFile.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QSettings>
#include <QSpinBox>
#include <QTest>

namespace korvane::planner::test {
namespace {

TEST(Printing, ThePreviewFollowsItsFieldsAndIsRememberedPerFile)
{
    QSettings().remove(QStringLiteral("print"));
    NoProgress progress;
    PlanResult result = LoadPlan(QStringLiteral(KORVANE_SAMPLES "/observatory.xml"),
                                 PlanReaders::Builtin(), progress);
    PlanDocument document;
    PlanChart chart(document);
    document.SetPlan(std::move(result.Value), QStringLiteral("observatory.xml"));
    QWidget window;
    window.resize(900, 600);
    QMenu menu;
    PrintActions actions(
        menu, [&] { return std::make_unique<PlanPrint>(chart, document); }, window);
    const auto open = [&] {
        actions.Actions().front()->trigger();
        auto *dialog = window.findChild<QPrintPreviewDialog *>();
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return dialog->findChild<QPrintPreviewWidget *>()->pageCount() > 0; }));
        return dialog;
    };
    const auto close = [&](QDialog *dialog) {
        const QPointer<QDialog> watched(dialog);
        dialog->reject();
        EXPECT_TRUE(QTest::qWaitFor([&] { return watched.isNull(); }));
    };
    QPrintPreviewDialog *dialog = open();
    auto *preview = dialog->findChild<QPrintPreviewWidget *>();
    const int narrow = preview->pageCount();
    const QList<QSpinBox *> fields = dialog->findChildren<QSpinBox *>();
    ASSERT_EQ(fields.size(), 2);
    fields[0]->setValue(4);
    EXPECT_GT(preview->pageCount(), narrow);
    fields[1]->setValue(1);
    EXPECT_LE(preview->pageCount(), 4);
    close(dialog);

    dialog = open();
    EXPECT_EQ(dialog->findChildren<QSpinBox *>()[1]->value(), 1);
    close(dialog);
    document.SetSaved(QStringLiteral("another.xml"), document.Revision());
    dialog = open();
    EXPECT_EQ(dialog->findChildren<QSpinBox *>()[1]->value(), 0);
    close(dialog);
}

TEST(Printing, ShowsThePlanAsItsChartDoes)
{
    NoProgress progress;
    PlanDocument document;
    PlanChart chart(document);
    document.SetPlan(LoadPlan(QStringLiteral(KORVANE_SAMPLES "/observatory.xml"),
                              PlanReaders::Builtin(), progress)
                         .Value);
    const auto rows = [](PlanChart &shown) {
        int count = 0;
        for (auto *node = shown.Tree().GetNextVisible(nullptr); node != nullptr;
             node = shown.Tree().GetNextVisible(node)) {
            ++count;
        }
        return count;
    };
    chart.Tree().FullCollapse();
    chart.SetBaselinesShown(true);
    const int task = chart.TaskOfNode(*chart.Tree().GetNextVisible(nullptr));
    chart.SelectTasks({task});
    PlanPrint print(chart, document);
    EXPECT_EQ(rows(print.Chart()), rows(chart));
    EXPECT_LT(rows(chart), static_cast<int>(document.GetPlan().Tasks.size()));
    EXPECT_TRUE(print.Chart().AreBaselinesShown());
    EXPECT_EQ(print.Chart().SelectedTasks(), std::vector{task});
}

} // namespace
} // namespace korvane::planner::test
