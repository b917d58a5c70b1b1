// Pages side by side have the labels of the whole axis, and each can be read by itself.
#include "PrintedComponents.h"
#include "PrintedPages.h"
#include "RecordedTexts.h"
#include "printing/qt/zuGanttPrinting.h"
#include "printing/qt/zuSchemaPrinting.h"

#include <algorithm>
#include <gtest/gtest.h>

using namespace korvane;
using namespace korvane::test;

namespace {

struct TLabel
{
    QString Text;
    double Row; ///< across the axis
    double From;
    double To;
};

/// The labels of a page, as places on the whole axis; `body` is where the content begins.
std::vector<TLabel> LabelsOf(TzuPrinting &printing, int page, QPointF body, Qt::Orientation axis)
{
    const TPrintPage shown = printing.Layout().Page(page);
    std::vector<TLabel> labels;
    for (const auto &[text, place] : TextsOf(printing, page)) {
        if (axis == Qt::Horizontal && place.bottom() < body.y()) {
            const double shift = shown.Across.From - body.x();
            labels.push_back({text, place.top(), place.left() + shift, place.right() + shift});
        } else if (axis == Qt::Vertical && place.left() < body.x() && place.top() > body.y() - 6) {
            const double shift = shown.Down.From - body.y();
            labels.push_back({text, place.left(), place.top() + shift, place.bottom() + shift});
        }
    }
    return labels;
}

const TLabel *Find(const std::vector<TLabel> &labels, const TLabel &wanted, double tolerance)
{
    const auto found = std::ranges::find_if(labels, [&](const TLabel &label) {
        return label.Text == wanted.Text && std::abs(label.Row - wanted.Row) < 1
               && std::abs(label.From - wanted.From) <= tolerance;
    });
    return found == labels.end() ? nullptr : &*found;
}

/// Such a label may be moved there already.
bool IsAtEnd(const std::vector<TLabel> &labels, const TLabel &label)
{
    const auto isBeyond = [&](const TLabel &other, double way) {
        return other.Row == label.Row && (other.From - label.From) * way > 0;
    };
    return std::ranges::none_of(labels, [&](const TLabel &other) { return isBeyond(other, 1); })
           || std::ranges::none_of(labels,
                                   [&](const TLabel &other) { return isBeyond(other, -1); });
}

/// `labels` are those of a page that shows `span` of the axis.
void ExpectOwnLabels(const std::vector<TLabel> &labels, const std::vector<TLabel> &whole,
                     const TPageSpan &span)
{
    constexpr double kFar = 1e6;
    for (const TLabel &label : labels) {
        const std::string name = label.Text.toStdString();
        EXPECT_GE(label.From, span.From - 0.5) << name;
        EXPECT_LE(label.To, span.To + 1.5) << name;
        EXPECT_TRUE(Find(whole, label, kFar) || IsAtEnd(labels, label)) << name;
        for (const TLabel &other : labels) {
            EXPECT_TRUE(&other == &label || other.Row != label.Row || other.From >= label.To
                        || label.From >= other.To)
                << name << " on " << other.Text.toStdString();
        }
    }
    for (const TLabel &label : whole) {
        if (label.From > span.From + 1 && label.To < span.To - 1) {
            EXPECT_TRUE(Find(labels, label, IsAtEnd(whole, label) ? kFar : 1))
                << "lost: " << label.Text.toStdString();
        }
    }
}

/// How many labels had to be moved.
int ExpectLabelsOfTheWhole(TzuPrinting &printing, Qt::Orientation axis)
{
    SetBareSheet(printing, 6000, 4000);
    printing.LayOut();
    EXPECT_EQ(printing.PageCount(), 1);
    const TPrintPage all = printing.Layout().Page(0);
    const QSizeF size = printing.ContentSize(all);
    const QPointF body(size.width() - all.Across.To, size.height() - all.Down.To);
    const std::vector<TLabel> whole = LabelsOf(printing, 0, body, axis);
    EXPECT_GT(whole.size(), 8U);
    int moved = 0;
    for (const int side : {260, 300, 345}) {
        SetBareSheet(printing, side, side);
        printing.LayOut();
        const TPrintLayout &layout = printing.Layout();
        const auto &pages = axis == Qt::Horizontal ? layout.Across() : layout.Down();
        EXPECT_GT(pages.size(), 2U);
        std::vector<TLabel> together;
        for (std::size_t i = 0; i < pages.size(); ++i) {
            SCOPED_TRACE("paper of " + std::to_string(side) + ", page " + std::to_string(i));
            const auto number = static_cast<int>(i);
            const int page =
                axis == Qt::Horizontal ? layout.PageIndex(number, 0) : layout.PageIndex(0, number);
            const std::vector<TLabel> labels = LabelsOf(printing, page, body, axis);
            ExpectOwnLabels(labels, whole, pages[i]);
            together.insert(together.end(), labels.begin(), labels.end());
        }
        // One that an edge would cut is on a page beside it, or another stands where it would.
        for (const TLabel &label : whole) {
            const double length = label.To - label.From;
            const bool isThere = std::ranges::any_of(together, [&](const TLabel &other) {
                return std::abs(other.Row - label.Row) < 1 && other.From < label.To + length
                       && other.To > label.From - length;
            });
            EXPECT_TRUE(isThere || IsAtEnd(whole, label)) << "lost: " << label.Text.toStdString();
            moved += Find(together, label, 0.5) == nullptr && Find(together, label, length);
        }
    }
    return moved;
}

TEST(AxisLabels, OfAChart)
{
    TzuGant chart;
    FillChart(chart);
    TzuGanttPrinting printing(chart);
    printing.SetLinkMarks(false);
    int moved = 0;
    for (const int fineness : {1, 2}) {
        printing.SetFineness(fineness);
        for (const double scale : {0.0015, 0.03, 0.4}) { // hours, days, weeks
            SCOPED_TRACE(scale);
            printing.SetTimeScale(scale);
            printing.SetRange(kFrom + 0.3, kFrom + 0.3 + 900 * scale);
            moved += ExpectLabelsOfTheWhole(printing, Qt::Horizontal);
        }
    }
    EXPECT_GT(moved, 0);
}

TEST(AxisLabels, OfAScheduleInBothViews)
{
    TzuSchema schema;
    FillSchedule(schema);
    TzuSchemaPrinting printing(schema);
    int moved = 0;
    for (const double scale : {1.0 / 600, 1.0 / 64}) {
        SCOPED_TRACE(scale);
        printing.SetTimeScale(scale);
        printing.SetRange(kFrom, kFrom + 900 * scale);
        schema.SetFlipView(false);
        moved += ExpectLabelsOfTheWhole(printing, Qt::Vertical);
        schema.SetFlipView(true);
        moved += ExpectLabelsOfTheWhole(printing, Qt::Horizontal);
    }
    EXPECT_GT(moved, 0);
}

/// What a single page of a day shows.
TEST(AxisLabels, ATimeOfDayAtTheEdgeIsRead)
{
    TzuSchema schema;
    FillSchedule(schema);
    TzuSchemaPrinting printing(schema);
    printing.SetRange(kFrom + 8 / 24.0, kFrom + 20 / 24.0);
    printing.SetTimeScale(1.0 / 1440);
    SetBareSheet(printing, 2000, 2000);
    printing.LayOut();
    QStringList texts;
    for (const auto &[text, place] : TextsOf(printing, 0)) {
        texts += text;
    }
    EXPECT_TRUE(texts.contains(QStringLiteral("08")));
    EXPECT_TRUE(texts.contains(QStringLiteral("19")));
}

} // namespace
