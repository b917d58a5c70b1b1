#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuLocale.h"
#include "foundation/qt/zuToolkit.h"
#include "foundation/zuDateUtils.h"
#include "foundation/zuDoLater.h"
#include "foundation/zuReport.h"

#include <QCoreApplication>
#include <QLocale>

#include <gmock/gmock.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace korvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ToolkitTest : public testing::Test
{
protected:
    ToolkitTest()
    {
        InstallToolkitServices();
        InstallToolkitServices();
    }

    std::vector<std::string> m_log;
};

TEST_F(ToolkitTest, DeferredCallsRunWhenTheEventLoopComesRound)
{
    TDoLater::DoLater([&](TObject *) {
        m_log.emplace_back("first");
        TDoLater::DoLater([&](TObject *) { m_log.emplace_back("queued meanwhile"); });
    });
    TDoLater::DoLater([&](TObject *) { m_log.emplace_back("second"); });
    const TDoLaterCall withdrawn = [&](TObject *) { m_log.emplace_back("withdrawn"); };
    TDoLater::DoLater(withdrawn);
    TDoLater::NeverMind(withdrawn);
    EXPECT_THAT(m_log, IsEmpty());
    QCoreApplication::sendPostedEvents();
    EXPECT_THAT(m_log, ElementsAre("first", "second", "queued meanwhile"));
}

TEST_F(ToolkitTest, AFreedWindowIsMadeAnewByTheNextDeferredCall)
{
    TDoLater::DoLater([&](TObject *) { m_log.emplace_back("left over"); });
    TDoLater::FreeDoLaterWindow();
    QCoreApplication::sendPostedEvents();
    EXPECT_THAT(m_log, IsEmpty());
    TDoLater::DoLater([&](TObject *) {
        m_log.emplace_back("frees the window");
        TDoLater::FreeDoLaterWindow();
    });
    QCoreApplication::sendPostedEvents();
    TDoLater::DoLater([&](TObject *) { m_log.emplace_back("again"); });
    QCoreApplication::sendPostedEvents();
    EXPECT_THAT(m_log, ElementsAre("left over", "frees the window", "again"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TEST_F(ToolkitTest, AFailingDeferredCallIsReportedAndStaysQueued)
{
    const TReportHook before =
        SetReportHook([&](std::string_view text) { m_log.emplace_back(text); });
    bool fail = true;
    TDoLater::DoLater([&](TObject *) {
        if (fail) {
            throw std::runtime_error("failed");
        }
        m_log.emplace_back("done");
    });
    QCoreApplication::sendPostedEvents();
    EXPECT_THAT(m_log, ElementsAre("failed"));
    fail = false;
    TDoLater::DoLater([](TObject *) {});
    QCoreApplication::sendPostedEvents();
    EXPECT_THAT(m_log, ElementsAre("failed", "done"));
    SetReportHook(before);
}

TEST_F(ToolkitTest, ReportsWithoutAScreenGoToStandardError)
{
    testing::internal::CaptureStderr();
    Report("nothing to show a box on");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "nothing to show a box on\n");
}

TEST(Locale, PatternsMeanTheSame)
{
    struct Case
    {
        const char *Qt;
        const char *Pattern;
    };
    const std::vector<Case> cases = {
        {"dd.MM.yy", "dd.mm.yy"},
        {"M/d/yyyy", "m/d/yyyy"},
        {"dddd, d. MMMM yyyy", "dddd, d. mmmm yyyy"},
        {"HH:mm:ss.zzz", "hh:nn:ss.zzz"},
        {"h:mm AP", "h:nn ampm"},
        {"h:mm Ap", "h:nn ampm"},
        {"APh:mm", "ampmh:nn"},
        {"h:mm a", "h:nn ampm"},
        {"HH:mm:ss t", "hh:nn:ss"},
        {"d 'de' MMMM", "d 'de' mmmm"},
        {"h 'o''clock'", "h \"o'clock\""},
        {"yyyy''MM", "yyyy\"'\"mm"},
        {"yyyy年M月d日", "yyyy'年'm'月'd'日'"},
        {"d 'open", "d 'open'"},
        {"", ""},
    };
    for (const Case &c : cases) {
        EXPECT_EQ(PatternFromQt(QString::fromUtf8(c.Qt)), c.Pattern) << c.Qt;
    }
}

TEST(Locale, DatesReadAsTheLocaleWritesThem)
{
    const TFormatSettings before = FormatSettings();
    const QDateTime moment(QDate(2024, 3, 9), QTime(17, 5, 8));
    const TDateTime value = FromQt(moment);
    for (const char *name : {"en_US", "de_DE", "fr_FR", "sv_SE", "ja_JP", "pt_BR", "C"}) {
        const QLocale locale(name);
        SetFormatSettings(FormatSettingsOf(locale));
        EXPECT_EQ(FormatDate("", value),
                  locale.toString(moment.date(), QLocale::ShortFormat).toStdString())
            << name;
        EXPECT_EQ(FormatTime("", value),
                  locale.toString(moment.time(), QLocale::ShortFormat).toStdString())
            << name;
        EXPECT_EQ(FormatDateTime("ddd", value),
                  locale.standaloneDayName(6, QLocale::ShortFormat).toStdString())
            << name;
        EXPECT_EQ(FormatDateTime("mmmm", value),
                  locale.standaloneMonthName(3, QLocale::LongFormat).toStdString())
            << name;
    }
    SetFormatSettings(before);
}

} // namespace
} // namespace korvane
