#include "foundation/qt/zuConvert.h"
#include "foundation/zuDateUtils.h"
#include "foundation/zuReport.h"
#include "scaler/qt/zuScaler.h"

#include <QApplication>
#include <QImage>
#include <QMetaProperty>
#include <QMouseEvent>
#include <QPainter>
#include <QPalette>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace korvane::test {
namespace {

/// Lets everything happen that is due, also what that posts.
void RunEvents()
{
    for (int i = 0; i < 5; ++i) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

QPalette PaletteOf(QColor face, QColor text)
{
    QPalette palette;
    palette.setColor(QPalette::Button, face);
    palette.setColor(QPalette::Window, face);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Text, text);
    return palette;
}

struct ScalerControl : testing::Test
{
    ScalerControl()
    {
        Scaler.resize(700, 45);
        Scaler.BeginUpdate();
        Scaler.SetHorizontal(true);
        Scaler.SetStart(EncodeDate(2001, 1, 1));
        Scaler.SetStop(EncodeDate(2001, 1, 8));
        Scaler.EndUpdate();
    }

    void Show()
    {
        Scaler.show();
        RunEvents();
    }
    QImage Rendered(double ratio)
    {
        QImage image(Scaler.size() * ratio, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::magenta);
        Scaler.render(&image);
        return image;
    }

    TzuDateScaler Scaler;
};

TEST_F(ScalerControl, TellsOfAChangeOncePerPaint)
{
    Show();
    int events = 0;
    int signalled = 0;
    Scaler.OnChange = [&](TObject *sender) {
        EXPECT_EQ(sender, static_cast<TDateScalerCore *>(&Scaler));
        ++events;
    };
    QObject::connect(&Scaler, &TzuDateScaler::changed, [&] { ++signalled; });
    RunEvents(); // what building it up left pending
    events = signalled = 0;

    Scaler.SetStart(Scaler.GetStart() + 1);
    Scaler.SetStart(Scaler.GetStart() + 1);
    EXPECT_EQ(events, 0);
    RunEvents();
    EXPECT_EQ(events, 1);
    EXPECT_EQ(signalled, 1);

    Scaler.resize(800, 45);
    RunEvents();
    EXPECT_EQ(events, 2);
    Scaler.Invalidate();
    RunEvents();
    EXPECT_EQ(events, 2);
}

TEST_F(ScalerControl, ASignalAloneIsAListener)
{
    int signalled = 0;
    QObject::connect(&Scaler, &TzuDateScaler::changed, [&] { ++signalled; });
    Show();
    EXPECT_EQ(signalled, 1);
}

TEST_F(ScalerControl, MayBeDestroyedByTheChangeItTells)
{
    auto scaler = std::make_unique<TzuDateScaler>();
    scaler->OnChange = [&](TObject *) { scaler.reset(); };
    scaler->resize(700, 45);
    scaler->show();
    RunEvents();
    EXPECT_EQ(scaler, nullptr);
}

TEST_F(ScalerControl, TicksAndLabelsShowOnEveryPaletteAndRatio)
{
    for (const bool dark : {false, true}) {
        const QColor face = dark ? QColor(40, 40, 44) : QColor(240, 240, 240);
        const QColor text = dark ? QColor(250, 250, 250) : QColor(10, 10, 10);
        Scaler.setPalette(PaletteOf(face, text));
        for (const int ratio : {1, 2}) {
            SCOPED_TRACE(testing::Message() << "dark " << dark << " ratio " << ratio);
            const QImage image = Rendered(ratio);
            const auto at = [&](int x, int y) { return image.pixelColor(x, y); };
            // The tick of Tuesday: a whole logical pixel wide, five high.
            for (int device = 0; device < ratio; ++device) {
                EXPECT_EQ(at(100 * ratio + device, 45 * ratio - 1), text);
                EXPECT_EQ(at(100 * ratio + device, 40 * ratio), text);
                EXPECT_EQ(at(100 * ratio + device, 40 * ratio - 1), face);
            }
            EXPECT_EQ(at(100 * ratio - 1, 44 * ratio), face);
            EXPECT_EQ(at(101 * ratio, 44 * ratio), face);
            int inked = 0;
            for (int x = 135 * ratio; x < 165 * ratio; ++x) {
                for (int y = 30 * ratio; y < 40 * ratio; ++y) {
                    inked += std::abs(at(x, y).lightness() - face.lightness()) > 80 ? 1 : 0;
                }
            }
            EXPECT_GT(inked, 10 * ratio) << "Tue";
        }
    }
}

TEST_F(ScalerControl, TheIndicatorFollowsThePointer)
{
    Show();
    const auto moveTo = [&](QPointF position) {
        QMouseEvent event(QEvent::MouseMove, position, Scaler.mapToGlobal(position), Qt::NoButton,
                          Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&Scaler, &event);
    };
    EXPECT_TRUE(Scaler.hasMouseTracking());
    moveTo({123, 7});
    EXPECT_EQ(Scaler.IndicatorPixel(), 123);
    Scaler.SetHorizontal(false);
    moveTo({123, 7});
    EXPECT_EQ(Scaler.IndicatorPixel(), 7);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&Scaler, &leave);
    EXPECT_EQ(Scaler.IndicatorPixel(), TzuDateScaler::kNoIndicator);
}

TEST_F(ScalerControl, PublishesItsPropertiesInOrder)
{
    const QMetaObject *meta = Scaler.metaObject();
    std::vector<std::string> names;
    for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i) {
        names.emplace_back(meta->property(i).name());
    }
    EXPECT_THAT(names,
                testing::ElementsAre("DateFormat", "TimeFormat", "FirstDayOfWeek", "WeekNumbers",
                                     "WeekPrefix", "WeekYearFormat", "QuarterPrefix", "IndicatorOn",
                                     "Horizontal", "PixelsForModeSwitch", "Scale", "Start", "Stop",
                                     "ZoomFactor", "IndicatorStyle", "RescaleWithCtrl", "TextFont1",
                                     "TextFont2", "TextFont3"));
}

TEST_F(ScalerControl, PropertiesReachTheAxisAndBack)
{
    const QDateTime start(QDate(2015, 8, 20), QTime(12, 0));
    const std::pair<const char *, QVariant> values[] = {
        {"DateFormat", QStringLiteral("d/m")},
        {"TimeFormat", QStringLiteral("hh")},
        {"FirstDayOfWeek", 1},
        {"WeekNumbers", true},
        {"WeekPrefix", QString::fromUtf8("\u00b7v")},
        {"WeekYearFormat", QStringLiteral("yy")},
        {"QuarterPrefix", QStringLiteral("/")},
        {"IndicatorOn", false},
        {"Horizontal", false},
        {"PixelsForModeSwitch", 30},
        {"Start", start},
        {"Stop", start.addDays(40)},
        {"ZoomFactor", 0.5},
        {"RescaleWithCtrl", true},
    };
    for (const auto &[name, value] : values) {
        EXPECT_NE(Scaler.property(name), value) << name;
        EXPECT_TRUE(Scaler.setProperty(name, value)) << name;
        EXPECT_EQ(Scaler.property(name), value) << name;
    }
    EXPECT_EQ(Scaler.DateFormat(), "d/m");
    EXPECT_EQ(Scaler.GetStart(), EncodeDate(2015, 8, 20) + 0.5);
    EXPECT_TRUE(Scaler.setProperty("IndicatorStyle", QByteArray("isColorfull")));
    EXPECT_EQ(Scaler.IndicatorStyle(), TIndicatorStyle::isColorfull);
    Scaler.SetTextFont2({.Name = "Arial", .Size = 7, .Color = clRed});
    QFont font = Scaler.property("TextFont2").value<QFont>();
    font.setBold(true);
    EXPECT_TRUE(Scaler.setProperty("TextFont2", font));
    EXPECT_TRUE(Scaler.TextFont2().Bold);
    EXPECT_EQ(Scaler.TextFont2().Color, clRed); // a QFont has none
}

TEST_F(ScalerControl, AFailureWhileResizingIsReportedNotThrown)
{
    Show();
    std::string reported;
    const TReportHook before =
        SetReportHook([&](std::string_view text) { reported = std::string(text); });
    Scaler.OnUserStringShort = [](TDateTime, TDateTime, std::string &, TScalerFont) {
        throw std::runtime_error("no such label");
    };
    Scaler.resize(600, 45);
    RunEvents();
    SetReportHook(before);
    EXPECT_EQ(reported, "Scale error:no such label");
    EXPECT_EQ(Scaler.GetStop(), Scaler.GetStart() + kDay);
}

TEST_F(ScalerControl, PrintsEnlargedAndWithoutItsButtons)
{
    Scaler.BeginUpdate();
    Scaler.SetStop(Scaler.GetStart() + 1);
    Scaler.EndUpdate();
    Scaler.GetPassList(0) = {.Active = true, .FromTime = 0.75, .ToTime = 0.25, .Hide = true};
    Scaler.CalcDrawMode();
    const int noon = Scaler.DateToPixel(Scaler.GetStart() + 0.5);
    QImage page(1400, 90, QImage::Format_ARGB32_Premultiplied);
    page.fill(Qt::white);
    QPainter painter(&page);
    Scaler.Print(painter, 0, 0, 2, 2);
    painter.end();
    EXPECT_EQ(page.pixelColor(10, 10), QColor(Qt::white));
    EXPECT_NE(page.pixelColor(Scaler.MinorPixels()[5], 88), QColor(Qt::white));
    EXPECT_NEAR(Scaler.MinorPixels()[5], 2 * noon, 2); // 12:00 is the sixth hour that shows
    EXPECT_EQ(Scaler.DateToPixel(Scaler.GetStart() + 0.5), noon);
}

} // namespace
} // namespace korvane::test
