#include "PlanText.h"

#include <QImage>
#include <QProcess>
#include <QProcessEnvironment>

namespace korvane::planner::test {
namespace {

struct Outcome
{
    int ExitCode = -1;
    QByteArray Errors;
};

/// Runs without any display, and without a platform chosen from outside.
Outcome RunPlanner(const QStringList &arguments)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR"}) {
        environment.remove(QLatin1String(name));
    }
    QProcess planner;
    planner.setProcessEnvironment(environment);
    planner.start(QStringLiteral(KORVANE_PLANNER), arguments);
    EXPECT_TRUE(planner.waitForFinished(60'000));
    EXPECT_EQ(planner.exitStatus(), QProcess::NormalExit);
    return {planner.exitCode(), planner.readAllStandardError()};
}

class PictureTest : public testing::Test
{
protected:
    /// Renders the bundled plan into a file and returns its content.
    QByteArray Render(const QString &name, QStringList options = {})
    {
        const QString picture = m_folder.Path(name);
        options = QStringList{u"--render"_s, picture} + options + QStringList(m_sample);
        const Outcome outcome = RunPlanner(options);
        EXPECT_EQ(outcome.ExitCode, 0);
        EXPECT_EQ(outcome.Errors, "");
        QFile file(picture);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    PlanFolder m_folder;
    QString m_sample = QStringLiteral(KORVANE_SAMPLES "/observatory.xml");
};

TEST_F(PictureTest, PngPicturesHaveTheSizeAskedForInDevicePixels)
{
    const QImage usual = QImage::fromData(Render(u"usual.png"_s));
    EXPECT_EQ(usual.size(), QSize(1400, 900));
    const QImage fine =
        QImage::fromData(Render(u"fine.PNG"_s, {u"--size"_s, u"600x300"_s, u"--dpr"_s, u"1.5"_s}));
    EXPECT_EQ(fine.size(), QSize(900, 450));
    const QImage dark = QImage::fromData(Render(u"dark.png"_s, {u"--dark"_s}));
    EXPECT_GT(usual.pixelColor(5, 890).lightness(), 200);
    EXPECT_LT(dark.pixelColor(5, 890).lightness(), 60);
}

TEST_F(PictureTest, TheRangeAskedForIsShown)
{
    const QByteArray all = Render(u"all.svg"_s);
    const QByteArray day =
        Render(u"day.svg"_s, {u"--from"_s, u"2026-08-03"_s, u"--to"_s, u"2026-08-04T12:00"_s});
    EXPECT_TRUE(all.contains(">Mar 2027</text>"));
    EXPECT_TRUE(day.contains(">Mon 3 Aug 2026</text>"));
    EXPECT_FALSE(day.contains(">Mar 2027</text>"));
}

TEST_F(PictureTest, DocumentsConsistOfTextAndLines)
{
    const QByteArray svg = Render(u"plan.svg"_s);
    EXPECT_TRUE(svg.contains(">Building permit granted</text>"));
    EXPECT_TRUE(svg.contains("ü"));
    EXPECT_GT(svg.count("<path"), 30);
    const QByteArray pdf = Render(u"plan.pdf"_s);
    EXPECT_TRUE(pdf.startsWith("%PDF"));
    EXPECT_TRUE(pdf.contains("/Type /Font"));
    EXPECT_TRUE(pdf.contains("/MediaBox [0 0 1050"));
    // No picture of the whole: what images there are, are small.
    EXPECT_LT(pdf.size(), 200'000);
}

TEST_F(PictureTest, FailsWithOneLine)
{
    struct Case
    {
        QStringList Arguments;
        int ExitCode;
    };
    const QString out = m_folder.Path(u"out.png"_s);
    const Case cases[] = {
        {{u"--render"_s, out, m_folder.Path(u"none.xml"_s)}, 1},
        {{u"--render"_s, m_folder.Path(u"no/such/folder.png"_s), m_sample}, 1},
        {{u"--render"_s, m_folder.Path(u"out.bmp"_s), m_sample}, 2},
        {{u"--render"_s, out}, 2},
        {{u"--render"_s, out, u"--size"_s, u"10x10"_s, m_sample}, 2},
        {{u"--render"_s, out, u"--size"_s, u"800"_s, m_sample}, 2},
        {{u"--render"_s, out, u"--size"_s, u"20000x20000"_s, u"--dpr"_s, u"8"_s, m_sample}, 2},
        {{u"--render"_s, out, u"--dpr"_s, u"nan"_s, m_sample}, 2},
        {{u"--render"_s, out, u"--from"_s, u"yesterday"_s, m_sample}, 2},
        {{u"--render"_s, out, u"--from"_s, u"2027-01-01"_s, u"--to"_s, u"2026-01-01"_s, m_sample},
         2},
        {{m_sample}, 2}, // a window, without a display
    };
    for (const Case &wrong : cases) {
        const Outcome outcome = RunPlanner(wrong.Arguments);
        EXPECT_EQ(outcome.ExitCode, wrong.ExitCode) << wrong.Arguments.join(u' ').toStdString();
        EXPECT_TRUE(outcome.Errors.startsWith("planner: ")) << outcome.Errors.data();
        EXPECT_EQ(outcome.Errors.count('\n'), 1) << outcome.Errors.data();
    }
    EXPECT_FALSE(QFile::exists(out));
}

} // namespace
} // namespace korvane::planner::test
