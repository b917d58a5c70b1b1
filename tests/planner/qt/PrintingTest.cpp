#include "PlanChart.h"
#include "PlanDocument.h"
#include "PlanPrint.h"
#include "PrintDialog.h"
#include "PrintForm.h"
#include "PrintJob.h"
#include "PrintOptions.h"
#include "ResourceChart.h"
#include "foundation/qt/zuConvert.h"
#include "plan/PlanFile.h"
#include "printing/qt/zuPrintPreview.h"

#include <QDir>
#include <QDoubleSpinBox>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>
#include <stdexcept>

namespace korvane::planner::test {
namespace {

/// The sample plan in a chart.
struct Printing : testing::Test
{
    PlanDocument Document;
    PlanChart Chart{Document};
    QTemporaryDir Folder;

    Printing()
    {
        NoProgress progress;
        PlanResult result = LoadPlan(QStringLiteral(KORVANE_SAMPLES "/observatory.xml"),
                                     PlanReaders::Builtin(), progress);
        Document.SetPlan(std::move(result.Value), QStringLiteral("observatory.xml"));
    }
    int ShownRows(PlanView &chart)
    {
        int count = 0;
        for (auto *node = chart.Tree().GetNextVisible(nullptr); node != nullptr;
             node = chart.Tree().GetNextVisible(node)) {
            ++count;
        }
        return count;
    }
    std::unique_ptr<PrintJob> MakeJob() { return std::make_unique<PlanPrint>(Chart, Document); }
};

template <typename Field>
Field *FieldNamed(PrintDialog &dialog, const char *name)
{
    for (auto *field : dialog.findChildren<Field *>()) {
        if (field->accessibleName() == QLatin1String(name)) {
            return field;
        }
    }
    ADD_FAILURE() << "there is no field " << name;
    return nullptr;
}

TEST_F(Printing, ThePreviewFollowsItsFieldsAndIsRememberedPerFile)
{
    {
        PrintDialog dialog(MakeJob());
        const int narrow = dialog.Preview().PageCount();
        auto *across = FieldNamed<QSpinBox>(dialog, "Pages across, at most");
        across->setValue(4);
        EXPECT_TRUE(QTest::qWaitFor([&] { return dialog.Preview().PageCount() > narrow; }));
        FieldNamed<QSpinBox>(dialog, "Pages down, at most")->setValue(1);
        dialog.ShowChanges();
        EXPECT_LE(dialog.Preview().PageCount(), 4);
        FieldNamed<QDoubleSpinBox>(dialog, "Left margin")->setValue(100);
        FieldNamed<QDoubleSpinBox>(dialog, "Right margin")->setValue(100);
        FieldNamed<QDoubleSpinBox>(dialog, "Top margin")->setValue(100);
        FieldNamed<QDoubleSpinBox>(dialog, "Bottom margin")->setValue(100);
        dialog.ShowChanges(); // landscape A4 is 210 high
        EXPECT_EQ(dialog.Preview().PageCount(), 0);
        EXPECT_NE(dialog.Preview().Error(), QString());
        EXPECT_FALSE(dialog.findChild<QPushButton *>(QStringLiteral("export"))->isEnabled());
        dialog.reject();
    }
    PrintDialog again(MakeJob());
    EXPECT_EQ(again.Form().Options().Scaling.PagesDown, 1);
    EXPECT_EQ(again.Form().Options().Margins.left(), 100);
    Document.SetSaved(QStringLiteral("another.xml"), Document.Revision());
    PrintDialog other(MakeJob());
    EXPECT_EQ(other.Form().Options().Scaling.PagesDown, 0);
}

TEST_F(Printing, OptionsChooseWhatIsPrinted)
{
    PlanPrint print(Chart, Document);
    const auto lengths = [&](const PrintOptions &options) {
        print.Apply(options);
        print.Printing().LayOut();
        const TPrintLayout &layout = print.Printing().Layout();
        return std::pair(layout.Across().back().To, layout.Down().back().To);
    };
    const PrintOptions all;
    const auto [width, height] = lengths(all);
    PrintOptions some = all;
    some.Rows = {2, 4};
    EXPECT_EQ(lengths(some).second, 3 * print.Chart().Tree().RowHeight());
    some = all;
    some.SelectionOnly = true;
    EXPECT_THROW(lengths(some), std::runtime_error);
    some = all;
    const TDateTime start = print.Chart().Start();
    some.Days = {ToQDateTime(start).date(), ToQDateTime(start).date()};
    lengths(some);
    EXPECT_GT(print.Printing().Layout().Across().back().To,
              500); // a single day is as wide as the plan
    EXPECT_EQ(lengths(all), std::pair(width, height));
    some = all;
    some.HiddenColumns = {QStringLiteral("Start"), QStringLiteral("Finish")};
    const double columns = print.Printing().ContentSize(print.Printing().Layout().Page(0)).width();
    lengths(some);
    EXPECT_LT(print.Printing().ContentSize(print.Printing().Layout().Page(0)).width(), columns);
}

TEST_F(Printing, ExportsIntoFilesAndTellsWhatGoesWrong)
{
    PrintDialog dialog(MakeJob());
    for (const char *suffix : {"pdf", "svg", "png"}) {
        const QString file = Folder.filePath(QStringLiteral("plan.") + QLatin1String(suffix));
        EXPECT_TRUE(dialog.ExportTo(file)) << suffix;
    }
    const auto pages = static_cast<qsizetype>(dialog.Preview().PageCount());
    EXPECT_EQ(QDir(Folder.path()).entryList(QDir::Files).size(), 1 + 2 * pages);
    EXPECT_FALSE(dialog.ExportTo(QStringLiteral("/nowhere/plan.pdf")));
    auto *message = dialog.findChild<QMessageBox *>();
    ASSERT_NE(message, nullptr);
    EXPECT_TRUE(message->text().contains(QLatin1String("/nowhere/plan.pdf")));
}

TEST_F(Printing, ShowsThePlanAsItsChartDoes)
{
    Chart.Tree().FullCollapse();
    Chart.SetBaselinesShown(true);
    const int task = PlanChart::TaskOfNode(*Chart.Tree().GetNextVisible(nullptr));
    Chart.SelectTasks({task});
    PlanPrint print(Chart, Document);
    EXPECT_EQ(ShownRows(print.Chart()), ShownRows(Chart));
    EXPECT_LT(ShownRows(Chart), static_cast<int>(Document.GetPlan().Tasks.size()));
    auto &printed = static_cast<PlanChart &>(print.Chart());
    EXPECT_TRUE(printed.AreBaselinesShown());
    EXPECT_EQ(printed.SelectedTasks(), std::vector{task});

    ResourceChart resources(Document);
    resources.BringUpToDate();
    PlanPrint byResource(resources, Document);
    EXPECT_EQ(byResource.Features().Rows, resources.RowCount());
    byResource.Apply({});
    byResource.Printing().LayOut();
    EXPECT_GT(byResource.Printing().PageCount(), 0);
}

} // namespace
} // namespace korvane::planner::test
