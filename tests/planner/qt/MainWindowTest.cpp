#include "MainWindow.h"
#include "PlanChart.h"
#include "PlanLoader.h"
#include "RecentFiles.h"
#include "RemarksPanel.h"
#include "SmallPlan.h"

#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QSignalSpy>
#include <QToolButton>

namespace korvane::planner::test {
namespace {

class MainWindowTest : public testing::Test
{
protected:
    static void SetUpTestSuite() { QCoreApplication::setApplicationName(u"planner"_s); }
    MainWindowTest()
    {
        m_window = std::make_unique<MainWindow>();
        m_window->show();
    }

    void Open(const QString &fileName)
    {
        QSignalSpy finished(&m_window->Loader(), &PlanLoader::finished);
        m_window->Open(fileName);
        ASSERT_TRUE(finished.wait(60'000));
    }
    std::size_t TaskCount() const { return m_window->Chart().GetPlan().Tasks.size(); }
    QString MessageText() const
    {
        const auto *box = m_window->findChild<QMessageBox *>();
        return box != nullptr ? box->informativeText() : QString();
    }
    QAction *ActionOf(const QString &text) const
    {
        for (QAction *action : m_window->findChildren<QAction *>()) {
            if (action->text().remove(u'&') == text) {
                return action;
            }
        }
        return nullptr;
    }

    PlanFolder m_folder;
    std::unique_ptr<MainWindow> m_window;
};

TEST_F(MainWindowTest, OpensAPlanAndNamesIt)
{
    EXPECT_FALSE(ActionOf(u"Zoom in"_s)->isEnabled());
    const QString file = m_folder.Write(u"a.xml"_s, ProjectText(3));
    Open(file);
    EXPECT_EQ(TaskCount(), 3U);
    EXPECT_TRUE(m_window->windowTitle().contains(u"a.xml"));
    EXPECT_TRUE(m_window->Chart().isVisible());
    EXPECT_TRUE(ActionOf(u"Zoom in"_s)->isEnabled());
    EXPECT_EQ(RecentFiles::Names(), QStringList(file));
    EXPECT_EQ(MessageText(), QString());
}

TEST_F(MainWindowTest, ABadFileShowsAMessageAndKeepsThePlan)
{
    Open(m_folder.Write(u"a.xml"_s, ProjectText(3)));
    Open(m_folder.Write(u"bad.xml"_s, "<Project>\n<Tasks>"));
    EXPECT_TRUE(MessageText().startsWith(u"bad.xml:2: ")) << MessageText().toStdString();
    EXPECT_EQ(TaskCount(), 3U);
    EXPECT_TRUE(m_window->windowTitle().contains(u"a.xml"));
    EXPECT_EQ(RecentFiles::Names().size(), 1);
}

TEST_F(MainWindowTest, ListsWhatWasOdd)
{
    QByteArray text = ProjectText(2);
    text.replace("<Finish>2026-11-02T17:00:00</Finish></Task>\n</Tasks>",
                 "<Finish>2026-10-02T17:00:00</Finish></Task>\n</Tasks>");
    Open(m_folder.Write(u"odd.xml"_s, text));
    auto *panel = m_window->findChild<RemarksPanel *>();
    EXPECT_EQ(panel->CountText(), u"1 remark");
    for (QToolButton *button : m_window->findChildren<QToolButton *>()) {
        if (button->text() == panel->CountText()) {
            button->click();
        }
    }
    EXPECT_TRUE(panel->isVisible());
    Open(m_folder.Write(u"a.xml"_s, ProjectText(1)));
    EXPECT_EQ(panel->CountText(), QString());
    EXPECT_FALSE(panel->isVisible());
}

TEST_F(MainWindowTest, OpensAFileThatIsDropped)
{
    const QString file = m_folder.Write(u"a.xml"_s, ProjectText(2));
    QMimeData data;
    data.setUrls({QUrl(u"https://example.org/b.xml"_s), QUrl::fromLocalFile(file)});
    QSignalSpy finished(&m_window->Loader(), &PlanLoader::finished);
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &drop);
    ASSERT_TRUE(finished.wait(60'000));
    EXPECT_EQ(TaskCount(), 2U);
}

TEST_F(MainWindowTest, ASecondFileTakesThePlaceOfOneThatIsBeingRead)
{
    m_window->Open(m_folder.Write(u"large.xml"_s, ProjectText(20'000)));
    Open(m_folder.Write(u"small.xml"_s, ProjectText(1)));
    QApplication::processEvents();
    EXPECT_EQ(TaskCount(), 1U);
    EXPECT_TRUE(m_window->windowTitle().contains(u"small.xml"));
}

TEST_F(MainWindowTest, ClosesWhileAFileIsBeingRead)
{
    const QString large = m_folder.Write(u"large.xml"_s, ProjectText(20'000));
    m_window->Open(large);
    EXPECT_TRUE(m_window->close());
    EXPECT_FALSE(m_window->Loader().IsLoading());
    m_window->Open(large);
    m_window.reset();
    QApplication::processEvents();
}

TEST_F(MainWindowTest, EveryShortcutIsUsedOnce)
{
    QStringList seen;
    for (const QAction *action : m_window->findChildren<QAction *>()) {
        for (const QKeySequence &shortcut : action->shortcuts()) {
            if (action->shortcutContext() == Qt::WindowShortcut) {
                EXPECT_FALSE(seen.contains(shortcut.toString()))
                    << shortcut.toString().toStdString();
                seen.append(shortcut.toString());
            }
        }
    }
    EXPECT_GE(seen.size(), 12);
}

} // namespace
} // namespace korvane::planner::test
