// A window with a small calendar, and a user.
#pragma once

#include "RemarksPanel.h"
#include "ScheduleDocument.h"
#include "ScheduleStrip.h"
#include "ScheduleView.h"
#include "ScheduleWindow.h"
#include "SmallPlan.h"
#include "foundation/qt/zuConvert.h"

#include <QAbstractButton>
#include <QFile>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTest>

namespace korvane::planner::test {

/// A week of a calendar with one single event, one that is repeated, and one for whole days.
class ScheduleWindowTest : public testing::Test
{
protected:
    static void SetUpTestSuite() { QCoreApplication::setApplicationName(u"planner"_s); }
    ScheduleWindowTest()
    {
        Write("BEGIN:VCALENDAR\nVERSION:2.0\n"
              "BEGIN:VEVENT\nUID:s\nSUMMARY:Single\nX-Keep:1\nDTSTART:20260303T100000\n"
              "DTEND:20260303T120000\nLOCATION:Hall\nEND:VEVENT\n"
              "BEGIN:VEVENT\nUID:r\nSUMMARY:Daily\nDTSTART:20260302T130000\n"
              "DTEND:20260302T140000\nRRULE:FREQ=DAILY;COUNT=5\nEND:VEVENT\n"
              "BEGIN:VEVENT\nUID:w\nSUMMARY:Whole\nDTSTART;VALUE=DATE:20260305\nEND:VEVENT\n"
              "END:VCALENDAR\n");
        Open();
    }

    QString Path() const { return m_folder.Path(u"week.ics"_s); }
    void Write(const QByteArray &text)
    {
        QFile file(Path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    QByteArray Text() const
    {
        QFile file(Path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void Open()
    {
        m_window = std::make_unique<ScheduleWindow>();
        m_window->show();
        QSignalSpy opened(m_window.get(), &ScheduleWindow::opened);
        m_window->Open(Path());
        if (opened.wait(60'000)) {
            m_window->View().DateScaler().SetRange(Start(7), Start(19));
            QCoreApplication::processEvents();
        }
    }
    TDateTime Start(int hour) { return std::floor(m_window->View().ScalerStart()) + hour / 24.0; }

    /// The first block with a title.
    TzuDataEntity_SchemaTime *TimeOf(const QString &title)
    {
        const auto &blocks = m_window->View().Page().Blocks;
        const auto block = std::ranges::find(blocks, title, &ScheduleBlock::Title);
        return m_window->View().FindSchemaTimeObjectFromUserReference(
            reinterpret_cast<void *>(block - blocks.begin() + 1));
    }
    /// The same in the strip of all-day events.
    ScheduleStrip &Strip() { return m_window->View().Strip(); }
    TzuDataEntity_SchemaTime *StripTimeOf(const QString &title)
    {
        const auto &blocks = Strip().Page().Blocks;
        const auto block = std::ranges::find(blocks, title, &ScheduleBlock::Title);
        return Strip().FindSchemaTimeObjectFromUserReference(
            reinterpret_cast<void *>(block - blocks.begin() + 1));
    }
    /// Drags there, from pixels within the event's left end, or with negative ones its right end.
    void DragInStrip(const QString &title, int fromEnd, int days, Qt::KeyboardModifiers keys = {})
    {
        const TRect rect = Strip().RectFromDataEntity(*StripTimeOf(title)).value_or(TRect{});
        const QPoint from(fromEnd > 0 ? rect.Left + fromEnd : rect.Right + fromEnd, rect.Top + 5);
        const QPoint to = from + QPoint(days * m_window->View().Columns().GetCol(0).GetWidth(), 0);
        QTest::mousePress(&Strip().SchemaArea(), Qt::LeftButton, keys, from);
        QTest::mouseMove(&Strip().SchemaArea(), (from + to) / 2);
        QTest::mouseMove(&Strip().SchemaArea(), to);
        QTest::mouseRelease(&Strip().SchemaArea(), Qt::LeftButton, keys, to);
        QCoreApplication::processEvents();
    }
    /// Drags from the block's upper end on, by columns and hours.
    void Drag(const QString &title, int fromTop, int columns, double hours,
              Qt::KeyboardModifiers keys = {})
    {
        ScheduleView &view = m_window->View();
        const TRect rect = view.RectFromDataEntity(*TimeOf(title)).value_or(TRect{});
        const QPoint from(rect.Left + 10, rect.Top + fromTop);
        const int x = columns * view.Columns().GetCol(0).GetWidth();
        const auto y =
            view.DateScaler().DateToPixel(Start(8)) - view.DateScaler().DateToPixel(Start(7));
        const QPoint to = from + QPoint(x, int(hours * double(y)));
        QTest::mousePress(&view.SchemaArea(), Qt::LeftButton, keys, from);
        QTest::mouseMove(&view.SchemaArea(), (from + to) / 2);
        QTest::mouseMove(&view.SchemaArea(), to);
        QTest::mouseRelease(&view.SchemaArea(), Qt::LeftButton, keys, to);
        QCoreApplication::processEvents();
    }
    QMessageBox *Box() const { return m_window->findChild<QMessageBox *>(); }
    void Answer(const QString &text)
    {
        ASSERT_NE(Box(), nullptr);
        for (QAbstractButton *button : Box()->buttons()) {
            if (button->text().remove(u'&') == text) {
                button->click();
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                return;
            }
        }
        ADD_FAILURE() << text.toStdString();
    }
    /// "Tue 10:00", of the blocks with a title.
    QStringList StartsOf(const QString &title)
    {
        QStringList starts;
        for (const ScheduleBlock &block : m_window->View().Page().Blocks) {
            if (block.Title == title) {
                starts.append(QLocale::c().toString(
                    QDateTime::fromSecsSinceEpoch(block.Start, Qt::UTC), u"ddd hh:mm"_s));
            }
        }
        return starts;
    }
    QUndoStack &History() { return m_window->Pages()->Document()->History(); }

    PlanFolder m_folder;
    std::unique_ptr<ScheduleWindow> m_window;
};

} // namespace korvane::planner::test
