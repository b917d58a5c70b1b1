#include "foundation/qt/zuConvert.h"
#include "gantt/qt/zuGant.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMetaProperty>
#include <QSet>

#include <gtest/gtest.h>
#include <memory>
#include <string>

using namespace korvane;

namespace {

/// A value other than the one given, in the range of the property.
QVariant Another(const QMetaProperty &property, const QVariant &now)
{
    if (property.isEnumType()) {
        const int key = property.enumerator().value(0) == now.toInt() ? 1 : 0;
        return property.enumerator().value(key);
    }
    switch (now.typeId()) {
    case QMetaType::Bool:
        return !now.toBool();
    case QMetaType::Int:
        return now.toInt() + 2;
    case QMetaType::Double:
        return now.toDouble() * 2;
    case QMetaType::QString:
        return QStringLiteral("DD MM YYYY");
    case QMetaType::QByteArray:
        return QByteArrayLiteral("[{}]"); // one item
    case QMetaType::QColor:
        return QColor(12, 34, 56);
    case QMetaType::QFont: {
        QFont font = now.value<QFont>();
        font.setPointSize(17);
        font.setBold(true);
        return font;
    }
    case QMetaType::QCursor:
        return QVariant::fromValue(QCursor(Qt::WhatsThisCursor));
    case QMetaType::QDateTime:
        return now.toDateTime().addDays(1);
    default:
        return {};
    }
}

QString TextOf(const QVariant &value)
{
    if (value.typeId() == QMetaType::QCursor) {
        return QString::number(value.value<QCursor>().shape());
    }
    if (value.typeId() == QMetaType::QFont) {
        const QFont font = value.value<QFont>();
        return font.family() + QString::number(font.pointSize()) + QString::number(font.bold());
    }
    return value.toString();
}

TEST(GantProperties, EveryOneIsStoredAndReadBackByItsName)
{
    const QMetaObject &meta = TzuGant::staticMetaObject;
    EXPECT_GE(meta.propertyCount() - meta.propertyOffset(), 45);
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        const QMetaProperty property = meta.property(i);
        TzuGant chart;
        chart.SetGrid_SubGridsText(R"([{"Columns":[{}]}])"); // whose captions are one
        const QVariant wanted = Another(property, property.read(&chart));
        ASSERT_TRUE(wanted.isValid()) << property.name();
        EXPECT_TRUE(property.write(&chart, wanted)) << property.name();
        QVariant now = property.read(&chart);
        if (property.isEnumType()) {
            now = now.toInt();
        }
        if (now.typeId() == QMetaType::Double) {
            EXPECT_NEAR(now.toDouble(), wanted.toDouble(), 1e-6) << property.name();
        } else {
            EXPECT_EQ(TextOf(now), TextOf(wanted)) << property.name();
        }
    }
}

TEST(GantProperties, EnumerationsOfTheDesignerAreThoseOfTheLibrary)
{
    TzuGant chart;
    chart.SetLinkKind(TzuGant::tlsUserDraw);
    EXPECT_EQ(chart.DefaultLinkStyle(), TLinkStyle::tlsUserDraw);
    chart.SetLinksShown(TzuGant::lsAlways);
    EXPECT_EQ(chart.LinkShow(), TLinkShow::lsAlways);
    chart.SetBorderStyleTree(TzuGant::bsSingle);
    EXPECT_EQ(chart.Tree().BorderStyle(), TBorderStyle::bsSingle);
}

TEST(GantProperties, APartShowsItsMenuAndTheChartThatOfTheRest)
{
    TzuGant chart;
    chart.resize(400, 200);
    chart.show();
    QMenu whole;
    QMenu ofArea;
    whole.addAction(QStringLiteral("whole"));
    ofArea.addAction(QStringLiteral("area"));
    chart.SetPopupMenu(&whole);
    chart.SetPopupMenuGantArea(&ofArea);
    const auto askFor = [](QWidget &widget) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, {3, 3}, widget.mapToGlobal(QPoint(3, 3)));
        QCoreApplication::sendEvent(&widget, &event);
    };
    askFor(chart.GantArea());
    EXPECT_TRUE(ofArea.isVisible());
    EXPECT_FALSE(whole.isVisible());
    ofArea.close();
    chart.SetPopupMenuGantArea(nullptr);
    askFor(chart.GantArea());
    EXPECT_FALSE(ofArea.isVisible());
    {
        QMenu gone;
        chart.SetPopupMenuScaler(&gone);
    }
    EXPECT_EQ(chart.PopupMenuScaler(), nullptr);
    askFor(chart.DateScaler());
}

TEST(GantSignals, RepeatWhatTheEventsTell)
{
    auto chart = std::make_unique<TzuGant>();
    std::string heard;
    const auto note = [&](const char *text) { return [&heard, text] { heard += text; }; };
    QObject::connect(chart.get(), &TzuGant::rowAdded, note("row+ "));
    QObject::connect(chart.get(), &TzuGant::rowRemoved, note("row- "));
    QObject::connect(chart.get(), &TzuGant::timeItemInserted, note("item+ "));
    QObject::connect(chart.get(), &TzuGant::timeItemDeleted, note("item- "));
    QObject::connect(chart.get(), &TzuGant::timeItemChanged, note("item! "));
    QObject::connect(chart.get(), &TzuGant::timeItemSelectionChanged, note("select "));
    QObject::connect(chart.get(), &TzuGant::areaClicked, note("click "));
    QObject::connect(chart.get(), &TzuGant::areaRightClicked, note("right "));
    QObject::connect(chart.get(), &TzuGant::areaDoubleClicked, note("double "));
    QObject::connect(chart.get(), &TzuGant::scalerChanged, note("axis "));
    TzuDataEntity_Tree *node = chart->AddRootDataEntityTree("row");
    TzuDataEntity_Spanbar *item = chart->AddSpanbar(node, 0);
    item->SetSelected(true);
    item->DoInfoPush();
    chart->RemoveSpanbar(item);
    chart->Tree().RemoveDataEntity(node);
    EXPECT_EQ(std::exchange(heard, {}), "row+ item+ select item! item- row- ");
    chart->GantAreaMouseDown(TMouseButton::mbRight, {}, 5, 5);
    chart->GantAreaMouseUp(TMouseButton::mbRight, {}, 5, 5);
    chart->OnGADblClick();
    chart->DateScaler().CallChange();
    EXPECT_EQ(std::exchange(heard, {}), "click right double axis ");

    node = chart->AddRootDataEntityTree("row");
    chart->OnInsertItem_Spanbar = [&](TObject *, TzuDataEntity *inserted) {
        chart->RemoveSpanbar(static_cast<TzuDataEntity_Spanbar *>(inserted));
    };
    heard.clear();
    chart->AddSpanbar(node, 0);
    EXPECT_EQ(heard, "item- ") << "nobody is told of what the handler has removed";
    chart->OnInsertItem_Spanbar = nullptr;
    chart.reset();
    EXPECT_EQ(heard, "item- ") << "nor of what goes with the chart";
}

} // namespace
