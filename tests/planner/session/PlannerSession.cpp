// A session with the planner on a real display: mouse and keys come from xdotool, and what they did
// is read from the file that the planner saves after every step.
#include "Autosave.h"
#include "MainWindow.h"
#include "PlanChart.h"
#include "PlanCompare.h"
#include "PlanDocument.h"
#include "PlanText.h"
#include "foundation/qt/zuConvert.h"
#include "support/WaitUntil.h"

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QProcess>
#include <QScreen>
#include <QSettings>

namespace korvane::planner::test {
namespace {

constexpr int kPatience = 30'000; // milliseconds

Plan PlanIn(const QString &file)
{
    NoProgress progress;
    return LoadPlan(file, PlanReaders::Builtin(), progress).Value;
}

class PlannerSession : public testing::Test
{
protected:
    void SetUp() override
    {
        for (const char *variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"}) {
            qputenv(variable, m_folder.Path().toUtf8());
        }
        QCoreApplication::setOrganizationName(u"Korvane"_s);
        QCoreApplication::setApplicationName(u"planner"_s);
        ASSERT_TRUE(QFile::copy(QStringLiteral(KORVANE_SAMPLES "/observatory.xml"), m_file));
        QFile::setPermissions(m_file, QFile::ReadOwner | QFile::WriteOwner);
        m_original = PlanIn(m_file);
        ASSERT_FALSE(m_original.Tasks.empty());
        m_planner.setProcessChannelMode(QProcess::ForwardedChannels);
        Start({m_file});
        // The same window, where it can be asked what stands where.
        m_twin.setAttribute(Qt::WA_DontShowOnScreen);
        m_twin.show();
        QApplication::processEvents();
        m_twin.Document().SetPlan(m_original);
        QApplication::processEvents();
        m_twin.Chart().GantArea().grab();
    }
    void TearDown() override
    {
        m_planner.kill();
        m_planner.waitForFinished();
    }

    void Start(const QStringList &arguments)
    {
        m_planner.start(QStringLiteral(KORVANE_PLANNER), arguments);
        GoToWindow(m_original.Name, {u"windowmove"_s, u"0"_s, u"0"_s});
    }
    /// Waits for a window of the planner by a part of its title, and gives it the keyboard.
    void GoToWindow(const QString &title, const QStringList &commands = {})
    {
        Use(QStringList{u"search"_s, u"--sync"_s, u"--onlyvisible"_s, u"--all"_s, u"--pid"_s,
                        QString::number(m_planner.processId()), u"--name"_s, title}
            + commands + QStringList{u"windowfocus"_s, u"--sync"_s});
    }
    /// At the pace of a user: what one event brings about is there when the next one comes.
    static void Use(const QStringList &commands)
    {
        QProcess tool;
        tool.start(u"xdotool"_s, commands);
        ASSERT_TRUE(tool.waitForFinished(kPatience)) << commands.join(u' ').toStdString();
        ASSERT_EQ(tool.exitCode(), 0) << tool.readAllStandardError().toStdString();
    }
    static void Type(const QString &text) { Use({u"type"_s, text}); }
    static void Keys(const QStringList &keys)
    {
        Use(QStringList{u"sleep"_s, u"0.2"_s, u"key"_s, u"--delay"_s, u"100"_s} + keys);
    }
    static QStringList Move(QPoint to)
    {
        return {u"mousemove"_s,          u"--sync"_s, QString::number(to.x()),
                QString::number(to.y()), u"sleep"_s,  u"0.1"_s};
    }
    static void Click(QPoint at) { Use(Move(at) + QStringList{u"click"_s, u"1"_s}); }
    static void Drag(QPoint from, QPoint to)
    {
        Use(Move(from) + QStringList{u"mousedown"_s, u"1"_s} + Move((from + to) / 2) + Move(to)
            + QStringList{u"mouseup"_s, u"1"_s});
    }

    int Task(const QString &name) const
    {
        const auto found = std::ranges::find(m_original.Tasks, name, &PlanTask::Name);
        EXPECT_NE(found, m_original.Tasks.end()) << name.toStdString();
        return int(found - m_original.Tasks.begin());
    }
    /// On the screen; the plan's bars before all edits.
    QRect BarOf(const QString &name)
    {
        const TzuDataEntity_Spanbar &bar = *m_twin.Chart().BarOf(Task(name));
        const QRect rect = ToQt(bar.GetRow()->RectFromDataEntity(bar).value_or(TRect{}));
        EXPECT_TRUE(m_twin.Chart().GantArea().rect().contains(rect)) << name.toStdString();
        return rect.translated(m_twin.Chart().GantArea().mapTo(&m_twin, QPoint()));
    }

    /// Saves, and fails unless the file comes to hold what is expected. Leaves a picture.
    template <typename Condition>
    void Expect(const QString &step, const Condition &condition)
    {
        Keys({u"ctrl+s"_s});
        EXPECT_TRUE(korvane::test::WaitUntil([&] { return condition(PlanIn(m_file)); }))
            << step.toStdString();
        TakePicture(step);
    }
    void TakePicture(const QString &step)
    {
        const QDir folder(qEnvironmentVariable("KORVANE_SESSION_PICTURES"));
        if (folder.path() != u"."_s) {
            folder.mkpath(u"."_s);
            const QString name = u"%1 %2.png"_s.arg(++m_pictures).arg(step);
            QGuiApplication::primaryScreen()->grabWindow(0).save(folder.filePath(name));
        }
    }

    PlanFolder m_folder;
    const QString m_file = m_folder.Path(u"plan.xml"_s);
    Plan m_original;
    QProcess m_planner;
    MainWindow m_twin;
    int m_pictures = 0;
};

TEST_F(PlannerSession, EveryEditReachesTheFileAndUndoTakesAllBack)
{
    const QString moved = u"Application under review"_s;
    const QString resized = u"Dark-sky agreement with the municipality"_s;
    const QString linked = u"Walls and ring beam"_s;
    const QString renamed = u"Tender for civil works"_s;
    const QString deleted = u"Insulate and clad"_s;
    const auto before = [&](const QString &name) { return *m_original.Tasks[Task(name)].Dates; };
    const auto now = [&](const Plan &plan, const QString &name) {
        return *plan.Tasks.at(Task(name)).Dates;
    };
    constexpr QPoint kStep(30, 0);
    TakePicture(u"opened"_s);

    Drag(BarOf(moved).center(), BarOf(moved).center() + kStep);
    Expect(u"moved"_s, [&](const Plan &plan) {
        const PlanSpan dates = now(plan, moved);
        const PlanSpan old = before(moved);
        return dates.Start > old.Start + 1
               && std::abs(dates.Finish - dates.Start - old.Finish + old.Start) < 1e-6;
    });
    const QRect bar = BarOf(resized);
    const QPoint end(bar.right() - 1, bar.center().y());
    Drag(end, end + kStep);
    Expect(u"resized"_s, [&](const Plan &plan) {
        return now(plan, resized).Finish > before(resized).Finish + 1
               && now(plan, resized).Start == before(resized).Start;
    });
    Keys({u"ctrl+l"_s});
    Drag(BarOf(resized).center(), BarOf(linked).center());
    Keys({u"ctrl+l"_s});
    Expect(u"linked"_s, [&](const Plan &plan) {
        const PlanLink wanted{Task(resized), Task(linked), {}};
        return std::ranges::count(plan.Links, wanted) == 1
               && std::ranges::count(m_original.Links, wanted) == 0;
    });
    Click(BarOf(renamed).center());
    Keys({u"F2"_s, u"ctrl+a"_s});
    Type(u"Roofing"_s);
    Keys({u"Return"_s});
    Expect(u"renamed"_s,
           [&](const Plan &plan) { return plan.Tasks.at(Task(renamed)).Name == u"Roofing"; });
    Click(BarOf(deleted).center());
    Keys({u"Delete"_s});
    Expect(u"deleted"_s, [&](const Plan &plan) {
        return plan.Tasks.size() + 1 == m_original.Tasks.size()
               && std::ranges::count(plan.Tasks, deleted, &PlanTask::Name) == 0;
    });
    Keys(QStringList(5, u"ctrl+z"_s));
    Expect(u"undone"_s, [&](const Plan &plan) { return Difference(plan, m_original).empty(); });

    const QString copy = m_folder.Path(u"copy.xml"_s);
    Keys({u"ctrl+shift+s"_s});
    GoToWindow(u"Save the plan"_s);
    Keys({u"ctrl+a"_s});
    Type(copy);
    TakePicture(u"save as"_s);
    Keys({u"Return"_s});
    GoToWindow(u"copy.xml"_s);
    EXPECT_EQ(Difference(PlanIn(copy), m_original), "");
    TakePicture(u"saved as"_s);
}

TEST_F(PlannerSession, WhatAKilledPlannerHadNotSavedIsRecovered)
{
    const QString moved = u"Application under review"_s;
    const auto isMoved = [&](const Plan &plan) {
        const std::size_t task = Task(moved);
        return plan.Tasks.size() > task && *plan.Tasks[task].Dates != *m_original.Tasks[task].Dates;
    };
    Drag(BarOf(moved).center(), BarOf(moved).center() + QPoint(30, 0));
    TakePicture(u"dragged"_s);
    EXPECT_TRUE(
        korvane::test::WaitUntil([&] { return isMoved(PlanIn(Autosave::CopyOf(m_file))); }));
    m_planner.kill();
    m_planner.waitForFinished();
    EXPECT_EQ(Difference(PlanIn(m_file), m_original), "");
    Start({});
    GoToWindow(u"^Planner$"_s);
    TakePicture(u"offered"_s);
    Keys({u"alt+r"_s});
    GoToWindow(m_original.Name);
    Expect(u"recovered"_s, isMoved);
    EXPECT_FALSE(QFile::exists(Autosave::CopyOf(m_file)));
}

} // namespace
} // namespace korvane::planner::test
