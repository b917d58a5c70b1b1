#include "Autosave.h"
#include "BackgroundSaver.h"
#include "MainWindow.h"
#include "PlanChart.h"
#include "PlanDocument.h"
#include "PlanEdits.h"
#include "PlanLoader.h"
#include "SmallPlan.h"
#include "support/SmallDisk.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>

namespace korvane::planner::test {
namespace {

class SavingTest : public testing::Test
{
protected:
    SavingTest()
    {
        QCoreApplication::setApplicationName(u"planner"_s);
        qputenv("XDG_DATA_HOME", m_folder.Path(u"data"_s).toUtf8());
        Start();
    }
    ~SavingTest() override { qunsetenv("XDG_DATA_HOME"); }

    void Start()
    {
        m_window = std::make_unique<MainWindow>();
        m_window->show();
    }
    /// Does what starts a load, which may end while it does so.
    template <typename Begin>
    void Load(const Begin &begin)
    {
        QSignalSpy finished(&m_window->Loader(), &PlanLoader::finished);
        begin();
        ASSERT_TRUE(!finished.isEmpty() || finished.wait(60'000));
        QApplication::processEvents();
    }
    void Open(const QString &file)
    {
        Load([&] { m_window->Open(file); });
    }
    QString OpenPlan()
    {
        const QString file = m_folder.Write(u"a.xml"_s, ProjectText(3));
        Open(file);
        return file;
    }
    void Rename(const QString &name) { EXPECT_TRUE(m_window->Edits().Rename(0, name)); }
    QString FirstName() const { return m_window->Document().GetPlan().Tasks.at(0).Name; }
    static QString NameIn(const QString &file)
    {
        NoProgress progress;
        const PlanResult result = LoadPlan(file, PlanReaders::Builtin(), progress);
        return result.Value.Tasks.empty() ? QString() : result.Value.Tasks[0].Name;
    }

    void WaitForSave()
    {
        m_window->Saver().Wait();
        QApplication::processEvents();
    }
    void Save()
    {
        m_window->Save();
        WaitForSave();
    }
    void SaveTo(const QString &file)
    {
        m_window->SaveTo(file);
        WaitForSave();
    }

    QMessageBox *Box() const
    {
        QMessageBox *shown = nullptr;
        for (auto *box : m_window->findChildren<QMessageBox *>()) {
            shown = box->isVisible() ? box : shown;
        }
        return shown;
    }
    void Answer(QMessageBox::StandardButton button)
    {
        QMessageBox *box = Box();
        ASSERT_NE(box, nullptr);
        ASSERT_NE(box->button(button), nullptr);
        box->button(button)->click();
        WaitForSave();
    }

    PlanFolder m_folder;
    std::unique_ptr<MainWindow> m_window;
};

TEST_F(SavingTest, SavesAndTellsWhatIsNotSaved)
{
    const QString file = OpenPlan();
    EXPECT_FALSE(m_window->isWindowModified());
    Rename(u"Other"_s);
    EXPECT_TRUE(m_window->isWindowModified());
    Save();
    EXPECT_FALSE(m_window->isWindowModified());
    EXPECT_EQ(NameIn(file), u"Other");
    m_window->Document().History().undo();
    EXPECT_TRUE(m_window->isWindowModified());
    Save();
    EXPECT_EQ(NameIn(file), u"Task 1");
    EXPECT_EQ(Box(), nullptr);
    const QString copy = m_folder.Path(u"b.xml.gz"_s);
    SaveTo(copy);
    EXPECT_EQ(m_window->Document().FileName(), copy);
    EXPECT_EQ(NameIn(copy), u"Task 1");
}

TEST_F(SavingTest, AsksBeforeChangesAreLost)
{
    const QString file = OpenPlan();
    Rename(u"Other"_s);
    EXPECT_FALSE(m_window->close());
    Answer(QMessageBox::Cancel);
    EXPECT_TRUE(m_window->isVisible());

    const QString second = m_folder.Write(u"second.xml"_s, ProjectText(1));
    m_window->Open(second);
    EXPECT_FALSE(m_window->Loader().IsLoading());
    Answer(QMessageBox::Cancel);
    EXPECT_EQ(FirstName(), u"Other");
    m_window->Open(second);
    Load([this] { Answer(QMessageBox::Save); });
    EXPECT_EQ(m_window->Document().FileName(), second);
    EXPECT_EQ(NameIn(file), u"Other");

    Rename(u"Lost"_s);
    EXPECT_FALSE(m_window->close());
    Answer(QMessageBox::Discard);
    EXPECT_FALSE(m_window->isVisible());
    EXPECT_EQ(NameIn(second), u"Task 1");
}

TEST_F(SavingTest, AFailureKeepsFileAndChanges)
{
    const QString file = OpenPlan();
    Rename(u"Other"_s);
    SaveTo(m_folder.Path(u"no/such/folder.xml"_s));
    ASSERT_NE(Box(), nullptr);
    EXPECT_TRUE(Box()->informativeText().contains(u"does not exist"));
    Answer(QMessageBox::Ok);
    QFile::setPermissions(file, QFile::ReadOwner);
    EXPECT_FALSE(m_window->close());
    Answer(QMessageBox::Save);
    ASSERT_NE(Box(), nullptr);
    EXPECT_TRUE(Box()->informativeText().contains(u"write-protected"));
    EXPECT_TRUE(m_window->isVisible());
    EXPECT_TRUE(m_window->isWindowModified());
    EXPECT_EQ(NameIn(file), u"Task 1");
    EXPECT_EQ(m_window->Document().FileName(), file);
}

TEST_F(SavingTest, ThePlanIsEditedWhileItIsSavedAndTheWindowWaitsToClose)
{
    const QString file = OpenPlan();
    Rename(u"First"_s);
    m_window->Save();
    ASSERT_TRUE(m_window->Saver().IsSaving());
    Rename(u"Second"_s);
    WaitForSave();
    EXPECT_EQ(NameIn(file), u"First");
    EXPECT_TRUE(m_window->isWindowModified()) << "the second change is still to be saved";

    m_window->Save();
    Rename(u"Third"_s);
    m_window->Save();
    WaitForSave(); // for the second one, which the first one is followed by
    WaitForSave();
    EXPECT_EQ(NameIn(file), u"Third");
    EXPECT_FALSE(m_window->isWindowModified());
    EXPECT_EQ(Box(), nullptr) << "nobody else has written the file";

    Rename(u"Fourth"_s);
    m_window->Save();
    Rename(u"Fifth"_s);
    EXPECT_FALSE(m_window->close());
    EXPECT_EQ(Box(), nullptr);
    WaitForSave();
    EXPECT_EQ(NameIn(file), u"Fourth");
    Answer(QMessageBox::Save);
    EXPECT_EQ(NameIn(file), u"Fifth");
    EXPECT_FALSE(m_window->isVisible());
}

TEST_F(SavingTest, NothingWaitsForACopyThatIsNoLongerWanted)
{
    const QString file = OpenPlan();
    Rename(u"Other"_s);
    m_window->Copies().WriteCopy();
    m_window->Document().History().undo();
    m_window->Copies().Wait();
    EXPECT_FALSE(QFile::exists(Autosave::CopyOf(file)));
}

#ifdef Q_OS_UNIX
TEST_F(SavingTest, AFullDiskLosesNeitherFileNorChangesNorCopy)
{
    const QString file = OpenPlan();
    Rename(u"Kept"_s);
    m_window->Copies().WriteCopy();
    m_window->Copies().Wait();
    Rename(u"Latest"_s);
    QSignalSpy failed(&m_window->Copies(), &Autosave::failed);
    {
        const SmallDisk disk(200);
        m_window->Copies().WriteCopy();
        m_window->Copies().Wait();
        EXPECT_FALSE(m_window->close());
        Answer(QMessageBox::Save);
    }
    EXPECT_EQ(failed.size(), 1);
    ASSERT_NE(Box(), nullptr);
    EXPECT_TRUE(Box()->informativeText().contains(u"disk may be full"));
    EXPECT_EQ(NameIn(file), u"Task 1");
    EXPECT_EQ(NameIn(Autosave::CopyOf(file)), u"Kept");
    EXPECT_TRUE(m_window->isVisible());
    EXPECT_TRUE(m_window->isWindowModified());
    Save();
    EXPECT_EQ(NameIn(file), u"Latest");
}
#endif

TEST_F(SavingTest, NoticesThatTheFileWasChangedElsewhere)
{
    const QString file = OpenPlan();
    Rename(u"Mine"_s);
    m_folder.Write(u"a.xml"_s, ProjectText(5));
    Save();
    Answer(QMessageBox::Cancel);
    EXPECT_EQ(NameIn(file), u"Task 1");
    Save();
    Answer(QMessageBox::Save);
    EXPECT_EQ(NameIn(file), u"Mine");
    Rename(u"Again"_s);
    Save();
    EXPECT_EQ(Box(), nullptr);
}

TEST_F(SavingTest, OtherFormatsAreSavedUnderAnotherName)
{
    Open(m_folder.Write(u"a.gan"_s, "<project name='a'><tasks><task id='0' name='t' "
                                    "start='2026-11-02' duration='1'/></tasks></project>"));
    Rename(u"Other"_s);
    Save();
    auto *dialog = m_window->findChild<QFileDialog *>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_TRUE(m_window->isWindowModified());
    dialog->reject();
    SaveTo(m_folder.Path(u"a.xml"_s));
    EXPECT_EQ(NameIn(m_folder.Path(u"a.xml"_s)), u"Other");
    Rename(u"Third"_s);
    Save();
    EXPECT_EQ(NameIn(m_folder.Path(u"a.xml"_s)), u"Third");
}

TEST_F(SavingTest, RecoversWhatAPlannerThatWasKilledHadNotSaved)
{
    const QString file = OpenPlan();
    Rename(u"Precious"_s);
    m_window->Copies().WriteCopy();
    m_window.reset(); // without being closed
    EXPECT_TRUE(QFile::exists(Autosave::CopyOf(file)));

    Start();
    Load([this] { m_window->OpenLeftBehind(); });
    EXPECT_EQ(FirstName(), u"Task 1");
    Load([this] { Answer(QMessageBox::Yes); });
    EXPECT_EQ(FirstName(), u"Precious");
    EXPECT_EQ(m_window->Document().FileName(), file);
    EXPECT_TRUE(m_window->isWindowModified());
    Save();
    EXPECT_EQ(NameIn(file), u"Precious");
    EXPECT_FALSE(QFile::exists(Autosave::CopyOf(file)));

    Rename(u"Unwanted"_s);
    m_window->Copies().WriteCopy();
    m_window.reset();
    Start();
    Open(file);
    Answer(QMessageBox::No);
    EXPECT_FALSE(QFile::exists(Autosave::CopyOf(file)));
    EXPECT_EQ(FirstName(), u"Precious");
    EXPECT_EQ(Autosave::LeftBehind(), QString());
}

TEST_F(SavingTest, TwoPlannersDoNotFight)
{
    const QString file = OpenPlan();
    Rename(u"First"_s);
    m_window->Copies().WriteCopy();
    m_window->Copies().Wait();
    const auto first = std::exchange(m_window, nullptr);
    Start();
    m_window->OpenLeftBehind(); // the other planner's copy is no business of this one
    EXPECT_FALSE(m_window->Loader().IsLoading());
    Open(file);
    EXPECT_EQ(Box(), nullptr);
    Rename(u"Second"_s);
    Save();
    ASSERT_NE(Box(), nullptr);
    EXPECT_TRUE(Box()->text().contains(u"another planner"));
    Answer(QMessageBox::Ok);
    EXPECT_EQ(NameIn(file), u"Task 1");
    first->Save();
    first->Saver().Wait();
    EXPECT_EQ(NameIn(file), u"First");
}

} // namespace
} // namespace korvane::planner::test
