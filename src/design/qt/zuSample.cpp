#include "design/qt/zuSample.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/zuTranslate.h"
#include "gantt/qt/zuGant.h"
#include "grid/qt/zuGrid.h"
#include "schema/qt/zuSchema.h"
#include "tree/qt/zuTree.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLocale>
#include <QPainter>

#include <array>
#include <functional>
#include <utility>
#include <vector>

namespace korvane {

namespace {

constexpr TColor kBlue = Rgb(0x5B, 0x8F, 0xC9);
constexpr TColor kGreen = Rgb(0x7F, 0xB0, 0x69);
constexpr TColor kSand = Rgb(0xE0, 0xB0, 0x5C);
constexpr TColor kRed = Rgb(0xC9, 0x6A, 0x5A);

/// Says above a component that its content is a sample. Seen only: the mouse goes through it.
class TSampleMark : public QWidget
{
public:
    TSampleMark(QWidget &component, std::function<QString()> text)
        : QWidget(&component)
        , m_text(std::move(text))
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
        component.installEventFilter(this);
        Cover();
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Resize || event->type() == QEvent::Show) {
            Cover();
        }
        return QWidget::eventFilter(watched, event);
    }

    void paintEvent(QPaintEvent * /*event*/) override
    {
        constexpr int kMargin = 6;
        constexpr int kPadding = 8;
        constexpr int kOpacity = 200;
        constexpr int kWrapped = Qt::AlignCenter | Qt::TextWordWrap;
        const QString text = m_text();
        if (text.isEmpty()) {
            return;
        }
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const int room = std::max(1, width() - 2 * (kMargin + kPadding));
        QSize size = fontMetrics().boundingRect(QRect(0, 0, room, height()), kWrapped, text).size();
        size = QSize(size.width() + 2 * kPadding, size.height() + kPadding / 2);
        const QRect tag(
            QPoint(width() - size.width() - kMargin, height() - size.height() - kMargin), size);
        QColor back = palette().color(QPalette::ToolTipBase);
        back.setAlpha(kOpacity);
        painter.setBrush(back);
        painter.setPen(palette().color(QPalette::Mid));
        const double round = (fontMetrics().height() + kPadding / 2) / 2.0;
        painter.drawRoundedRect(QRectF(tag).adjusted(0.5, 0.5, -0.5, -0.5), round, round);
        painter.setPen(palette().color(QPalette::ToolTipText));
        painter.drawText(tag.adjusted(kPadding, 0, -kPadding, 0), kWrapped, text);
    }

private:
    void Cover()
    {
        setGeometry(parentWidget()->rect());
        raise();
    }

    std::function<QString()> m_text;
};

void Mark(
    QWidget &component, std::function<QString()> text = [] {
        return QCoreApplication::translate("TzuDesign", "Sample");
    })
{
    (new TSampleMark(component, std::move(text)))->show();
}

/// Where a time lies on the axis, in hundredths of it.
template <typename Entity>
struct TPlacedTime
{
    Entity *Time;
    double From;
    double To;
};

std::string Sample(const char *text)
{
    return Translate("TzuDesign", text);
}

template <typename Entity>
void Place(const std::vector<TPlacedTime<Entity>> &times, TDateTime start, TDateTime stop)
{
    const TDateTime unit = (stop - start) / 100;
    for (const TPlacedTime<Entity> &each : times) {
        each.Time->SetStartDateTime(start + each.From * unit);
        each.Time->SetStopDateTime(start + each.To * unit);
    }
}

struct TSampleBar
{
    const char *Task; ///< nil: on the row of the one before
    double From;
    double To;
    TColor Color;
};

constexpr std::array kBars{
    TSampleBar{QT_TRANSLATE_NOOP("TzuDesign", "Plan"), 4, 28, kBlue},
    TSampleBar{QT_TRANSLATE_NOOP("TzuDesign", "Build"), 30, 56, kGreen},
    TSampleBar{nullptr, 58, 80, kGreen},
    TSampleBar{QT_TRANSLATE_NOOP("TzuDesign", "Test"), 44, 78, kSand},
    TSampleBar{QT_TRANSLATE_NOOP("TzuDesign", "Deliver"), 82, 96, kRed},
};

/// Rows of the tree or of the grid, with bars that are linked one after the other.
void AddBars(TzuGant &gant, std::vector<TPlacedTime<TzuDataEntity_Spanbar>> &bars,
             const auto &addRow, const auto &addBar)
{
    TzuDataEntity_Spanbar *before = nullptr;
    decltype(addRow(std::string())) row = nullptr;
    for (const TSampleBar &each : kBars) {
        row = each.Task != nullptr ? addRow(Sample(each.Task)) : row;
        TzuDataEntity_Spanbar *bar = addBar(row);
        bar->SetColor(each.Color);
        bar->SetInsetTop(3);
        bar->SetInsetBottom(3);
        if (before != nullptr) {
            TzuDataEntity_Link &link = gant.AddLink();
            link.SetFirst(before);
            link.SetSecond(bar);
        }
        before = bar;
        bars.push_back({bar, each.From, each.To});
    }
}

struct TSampleTime
{
    int Column;
    double From;
    double To;
    const char *Text;
    TColor Color;
};

constexpr std::array kTimes{
    TSampleTime{0, 8, 30, QT_TRANSLATE_NOOP("TzuDesign", "Early"), kBlue},
    TSampleTime{0, 40, 70, QT_TRANSLATE_NOOP("TzuDesign", "Late"), kSand},
    TSampleTime{1, 15, 60, QT_TRANSLATE_NOOP("TzuDesign", "Long"), kGreen},
    TSampleTime{2, 5, 25, QT_TRANSLATE_NOOP("TzuDesign", "Short"), kRed},
    TSampleTime{2, 18, 45, QT_TRANSLATE_NOOP("TzuDesign", "Beside"), kSand},
};

TzuDataEntity_Tree *AddNode(TzuTree &tree, TzuDataEntity_Tree *parent, const std::string &text)
{
    TzuDataEntity_Tree *node = tree.AddDataEntity(parent);
    node->SetText(text);
    return node;
}

std::string SampleText(const TzuGrid_Column &column, int row)
{
    switch (column.Kind()) {
    case TColumnKind::tckDate:
        return FromQt(QLocale().toString(QDate::currentDate().addDays(row), QLocale::ShortFormat));
    case TColumnKind::tckTime:
        return FromQt(QLocale().toString(QTime(8 + row, 30), QLocale::ShortFormat));
    case TColumnKind::tckBool:
        return row % 2 == 0 ? "1" : "0";
    default:
        return column.NumericSort()
                   ? std::to_string(100 * (row + 1))
                   : WithArguments(Translate("TzuDesign", "Text %1"), {std::to_string(row + 1)});
    }
}

} // namespace

void ShowSample(TzuGant &gant)
{
    std::vector<TPlacedTime<TzuDataEntity_Spanbar>> bars;
    AddBars(
        gant, bars, [&](const std::string &text) { return gant.AddRootDataEntityTree(text); },
        [&](TzuDataEntity_Tree *row) { return gant.AddSpanbar(row, 0); });
    AddBars(
        gant, bars,
        [&](const std::string &text) {
            TzuDataEntity_GridTreeNode *row = gant.Grid().GetTree()->AddDataEntity();
            row->SetText(text);
            return row;
        },
        [&](TzuDataEntity_GridTreeNode *row) { return gant.GridNode_AddSpanbar(row, 0); });
    const auto place = [&gant, bars] {
        Place(bars, gant.Start(), gant.Stop());
        gant.RefreshOthers(nullptr);
    };
    place();
    QObject::connect(&gant, &TzuGant::scalerChanged, &gant, place);
    Mark(gant);
}

void ShowSample(TzuSchema &schema)
{
    for (const char *room :
         {QT_TRANSLATE_NOOP("TzuDesign", "Room A"), QT_TRANSLATE_NOOP("TzuDesign", "Room B"),
          QT_TRANSLATE_NOOP("TzuDesign", "Room C")}) {
        schema.AddColumn()->SetText(Sample(room));
    }
    std::vector<TPlacedTime<TzuDataEntity_SchemaTime>> times;
    for (const TSampleTime &each : kTimes) {
        TzuDataEntity_SchemaTime *time = schema.AddSchemaTime(0);
        time->SetCol(each.Column);
        time->SetColor(each.Color);
        time->AddText(Sample(each.Text), 4, 3, 1);
        times.push_back({time, each.From, each.To});
    }
    const auto place = [&schema, times] {
        Place(times, schema.ScalerStart(), schema.ScalerStop());
    };
    place();
    QObject::connect(&schema, &TzuSchema::scalerChanged, &schema, place);
    Mark(schema);
}

void ShowSample(TzuTree &tree)
{
    for (const char *text :
         {QT_TRANSLATE_NOOP("TzuDesign", "First"), QT_TRANSLATE_NOOP("TzuDesign", "Second")}) {
        TzuDataEntity_Tree *node = AddNode(tree, nullptr, Sample(text));
        for (const char *child : {QT_TRANSLATE_NOOP("TzuDesign", "Part"),
                                  QT_TRANSLATE_NOOP("TzuDesign", "Another part")}) {
            AddNode(tree, node, Sample(child));
        }
        node->SetExpanded(true);
    }
    AddNode(tree, nullptr, Translate("TzuDesign", "Third"));
    Mark(tree);
}

void ShowSample(TzuGrid &grid)
{
    ShowSample(grid, QCoreApplication::translate(
                         "TzuDesign", "No columns yet: see \"Columns\" in the context menu"));
}

void ShowSample(TzuGrid &grid, const QString &hint)
{
    constexpr int kRows = 8;
    grid.AddRows(kRows);
    grid.OnGetCellText = [&grid](TBabGridCell *cell, TAxisContentItem *columnItem,
                                 TAxisContentItem *row, std::string &text) {
        const auto *column = dynamic_cast<TzuGrid_Column *>(columnItem->Value());
        if (column != nullptr) {
            text = SampleText(*column, cell->Rows().IndexOf(*row) - cell->Rows().FixedCount());
        }
    };
    Mark(grid, [&grid, hint] {
        return grid.Columns().Count() > 0 ? QCoreApplication::translate("TzuDesign", "Sample")
                                          : hint;
    });
}

} // namespace korvane
