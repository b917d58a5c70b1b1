// What of a plan or a programme the user chooses to print.
#include "PlanChart.h"
#include "PlanDocument.h"
#include "PlanPrint.h"
#include "PrintDialog.h"
#include "PrintForm.h"
#include "SchedulePages.h"
#include "SchedulePrint.h"
#include "grid/qt/zuGrid.h"
#include "plan/PlanFile.h"
#include "printing/qt/RecordedTexts.h"

#include <QApplication>
#include <QCheckBox>
#include <QSpinBox>
#include <QTime>

#include <gtest/gtest.h>
#include <stdexcept>

namespace korvane::planner::test {
namespace {

struct PrintChoice : testing::Test
{
    PlanDocument Document;
    PlanChart Chart{Document};

    PrintChoice()
    {
        NoProgress progress;
        PlanResult result = LoadPlan(QStringLiteral(KORVANE_SAMPLES "/observatory.xml"),
                                     PlanReaders::Builtin(), progress);
        Document.SetPlan(std::move(result.Value), QStringLiteral("observatory.xml"));
    }
};

TEST_F(PrintChoice, RangesAreRememberedAndTheSelectionIsNot)
{
    const auto makeJob = [this] { return std::make_unique<PlanPrint>(Chart, Document); };
    const auto check = [](PrintDialog &dialog, const char *text) {
        for (auto *box : dialog.findChildren<QCheckBox *>()) {
            if (box->text().remove(u'&') == QLatin1String(text)) {
                box->setChecked(true);
                return;
            }
        }
        ADD_FAILURE() << text;
    };
    const auto days = makeJob()->Features().Days;
    ASSERT_TRUE(days);
    EXPECT_LT(days->first, days->second);
    {
        PrintDialog dialog(makeJob());
        EXPECT_FALSE(dialog.Form().Options().Days || dialog.Form().Options().Rows);
        check(dialog, "Days from, to:");
        check(dialog, "Rows from, to:");
        check(dialog, "Selected rows only");
        for (auto *field : dialog.findChildren<QSpinBox *>()) {
            if (field->accessibleName() == QLatin1String("The first one")) {
                field->setValue(3);
            }
        }
        EXPECT_EQ(dialog.Form().Options().Days, days);
        dialog.reject();
    }
    PrintDialog dialog(makeJob());
    const PrintOptions options = dialog.Form().Options();
    EXPECT_EQ(options.Days, days);
    ASSERT_TRUE(options.Rows);
    EXPECT_EQ(options.Rows->first, 3);
    EXPECT_FALSE(options.SelectionOnly);
}

TEST_F(PrintChoice, TheTableIsPrintedAsItIsShown)
{
    Chart.resize(900, 500);
    Chart.show();
    Chart.SetTableShown(true);
    QApplication::processEvents();
    Chart.Grid().Columns().At(2).SetHidden(true);
    Chart.Grid().Columns().Move(4, 0);
    Chart.Grid().Columns().At(0).SetWidth(123);
    PlanPrint print(Chart, Document);
    QStringList titles;
    int width = 0;
    for (int i = 0; i < Chart.Grid().Columns().Count(); ++i) {
        const TzuGrid_Column &column = Chart.Grid().Columns().At(i);
        if (!column.Hidden()) {
            titles += QString::fromStdString(column.HeaderText());
            width += column.Width();
        }
    }
    EXPECT_EQ(print.Features().Columns, titles);
    print.Apply({});
    print.Printing().LayOut();
    EXPECT_EQ(print.Printing().Layout().LabelWidth(), width);
    PrintOptions options;
    options.HiddenColumns = titles.mid(1);
    print.Apply(options);
    print.Printing().LayOut();
    EXPECT_EQ(print.Printing().Layout().LabelWidth(), 123);
}

TEST_F(PrintChoice, OfAScheduleItsColumns)
{
    SchedulePage page;
    for (const char *name : {"A", "B", "C"}) {
        page.Columns.push_back({.Caption = QLatin1String(name)});
    }
    page.Axis = {0, 86400};
    page.Blocks.push_back({.Column = 2,
                           .Start = 36000,
                           .Stop = 40000,
                           .Title = {},
                           .Detail = {},
                           .ToolTip = {},
                           .Color = {}});
    SchedulePrint print(page, QStringLiteral("Days"), {}, {0});
    EXPECT_EQ(print.Features().Rows, 3);
    const auto width = [&](const PrintOptions &options) {
        print.Apply(options);
        print.Printing().LayOut();
        return print.Printing().Layout().Across().back().To;
    };
    const double all = width({});
    PrintOptions some;
    some.Rows = {1, 2};
    EXPECT_NEAR(width(some), all * 2 / 3, 2);
    some.SelectionOnly = true;
    EXPECT_THROW(width(some), std::runtime_error);
    some.Rows.reset();
    EXPECT_NEAR(width(some), all / 3, 2);

    // Some hours are as long as the whole day is otherwise.
    const auto hours = [&](int from, int to) {
        PrintOptions options;
        options.Hours.emplace(QTime(from, 0), QTime(to, 0));
        width(options);
        QStringList texts;
        for (const auto &[text, place] : korvane::test::TextsOf(print.Printing(), 0)) {
            texts += text;
        }
        return texts;
    };
    width({});
    const double day = print.Printing().Layout().Down().back().To;
    EXPECT_EQ(print.Features().Hours, std::pair(QTime(0, 0), QTime(0, 0)));
    const QStringList morning = hours(9, 12);
    EXPECT_NEAR(print.Printing().Layout().Down().back().To, day, 2);
    EXPECT_TRUE(morning.filter(QStringLiteral("10:00")).size() > 0
                && morning.filter(QStringLiteral("12:00")).isEmpty())
        << morning.join(u' ').toStdString();
    EXPECT_GT(hours(22, 4).filter(QStringLiteral("23:00")).size(), 0); // to the end of the day
}

} // namespace
} // namespace korvane::planner::test
