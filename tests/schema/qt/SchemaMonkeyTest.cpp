// Random input on a whole schedule, with what must always hold checked after every event.
#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuXYSizer.h"
#include "schema/qt/zuSchema.h"
#include "support/RecordingCanvas.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

using namespace korvane;

namespace {

constexpr int kTimes = 300;
constexpr int kColumns = 12;
constexpr TDateTime kFirstDay = 40000;

/// KORVANE_MONKEY_EVENTS asks for a longer run, KORVANE_MONKEY_SEED for another one.
int NumberFromEnvironment(const char *name, int otherwise)
{
    bool given = false;
    const int number = qEnvironmentVariableIntValue(name, &given);
    return given ? number : otherwise;
}

class Monkey
{
public:
    explicit Monkey(unsigned seed)
        : m_random(seed)
        , m_schema(std::make_unique<TzuSchema>())
    {
        m_schema->resize(700, 500);
        m_schema->DateScaler().SetRange(kFirstDay, kFirstDay + 1);
        WireHandlers();
        for (int i = 0; i < kColumns; ++i) {
            AddColumn();
        }
        while (static_cast<int>(m_times.size()) < kTimes) {
            AddTime();
        }
        m_schema->show();
        QCoreApplication::processEvents();
    }

    void Play()
    {
        const int dice = Pick(99);
        if (dice < 45) {
            Move();
        } else if (dice < 62) {
            m_pressed == Qt::NoButton ? Press() : Release();
        } else if (dice < 74) {
            Key();
        } else if (dice < 79) {
            Wheel();
        } else if (dice < 90) {
            ChangeContent();
        } else if (dice < 95) {
            ChangeView();
        } else {
            QCoreApplication::processEvents();
        }
    }

    /// What is wrong, or nothing.
    std::string Complaint()
    {
        for (const TzuDataEntity_SchemaTime *time : m_times) {
            if (!(time->GetStartDateTime() <= time->GetStopDateTime())) {
                return "a time is inverted";
            }
        }
        for (const TzuDataEntity_SchemaTime *time : m_schema->SelectedTimes()) {
            if (!m_live.contains(time) || !time->GetSelected()) {
                return "the selection holds a time that is gone or not selected";
            }
        }
        const auto *active = m_schema->GetActiveDataEntity();
        if (active != nullptr && !m_live.contains(active)) {
            return "the active time is gone";
        }
        for (int i = 0; i < m_schema->Columns().Count(); ++i) {
            const auto &column = m_schema->Columns().GetCol(i);
            if ((column.GetWidth() == 0) != (i < m_schema->Columns().TopLeftCol())) {
                return "a column is shown and scrolled away at once";
            }
        }
        if (m_schema->GestureRunning()) {
            return {};
        }
        test::TRecordingCanvas canvas{m_schema->SchemaArea().ClientArea()};
        m_schema->SchemaPaintOverlay(canvas);
        return canvas.Calls().empty() ? std::string() : "an outline is left over";
    }

    int Changes() const { return m_changes; }

private:
    int Pick(int most) { return std::uniform_int_distribution(0, most)(m_random); }
    TzuDataEntity_SchemaTime *AnyTime()
    {
        return m_times.empty() ? nullptr
                               : m_times[static_cast<std::size_t>(Pick(int(m_times.size()) - 1))];
    }

    void WireHandlers()
    {
        m_schema->OnInsertItem_SchemaTime = [this](TObject *, TzuDataEntity *item) {
            m_times.push_back(&DataEntity_Schema(*item));
            m_live.insert(m_times.back());
        };
        m_schema->OnDeleteItem_SchemaTime = [this](TObject *, TzuDataEntity *item) {
            std::erase(m_times, item);
            m_live.erase(&DataEntity_Schema(*item));
        };
        m_schema->OnTimeCopy = [this](TzuSchema_ComBasic *, TzuDataEntity_SchemaTime *, int col,
                                      TDateTime start, TDateTime stop) {
            if (m_times.size() < 2 * kTimes) {
                Fill(*m_schema->AddSchemaTime(0), col, start, stop);
            }
        };
        m_schema->OnSwitchCol = [this](TzuSchema_ComBasic *, TzuDataEntity_SchemaTime *time, int,
                                       int) {
            if (Pick(9) == 0) {
                m_schema->RemoveSchemaTime(time);
            }
        };
        m_schema->OnAskDelete = [this](auto *, const auto &, bool &allow) {
            allow = m_times.size() > kTimes / 2;
        };
        m_schema->OnEndUserChange = [this](TzuSchema_ComBasic *, TSchemaUserChange, bool changed) {
            m_changes += changed ? 1 : 0;
        };
    }

    static void Fill(TzuDataEntity_SchemaTime &time, int col, TDateTime start, TDateTime stop)
    {
        time.SetCol(col);
        time.SetStartDateTime(start);
        time.SetStopDateTime(stop);
    }
    void AddColumn()
    {
        TzuDataEntity_SchemaColumn *column = m_schema->AddColumn();
        column->SetText("Column");
        column->BaseDate = m_schema->Columns().Count() % 3 == 0 ? 1 : 0;
    }
    void AddTime()
    {
        const TDateTime start = kFirstDay + Pick(100) * 0.01;
        Fill(*m_schema->AddSchemaTime(Pick(2)), Pick(kColumns) - 1, start, start + Pick(20) * 0.01);
    }

    QWidget *Target() const
    {
        const std::array<QWidget *, 4> parts{
            &m_schema->DateScaler(),
            m_schema->FlipView() ? static_cast<QWidget *>(&m_schema->FlippedHeader())
                                 : &m_schema->Header(),
            &m_schema->Sizer(), &m_schema->SchemaArea()};
        return parts[static_cast<std::size_t>(std::min(m_part, 3))];
    }

    void SendMouse(QEvent::Type type, Qt::MouseButton button)
    {
        QWidget *target = Target();
        const QPointF at = ToQt(m_at);
        QMouseEvent event(type, at, target->mapToGlobal(at), button, m_pressed, m_modifiers);
        QCoreApplication::sendEvent(target, &event);
    }

    void ChooseModifiers()
    {
        constexpr std::array<Qt::KeyboardModifiers, 6> kChoices{
            Qt::NoModifier,    Qt::NoModifier,  Qt::ControlModifier,
            Qt::ShiftModifier, Qt::AltModifier, Qt::ControlModifier | Qt::ShiftModifier};
        m_modifiers = kChoices[static_cast<std::size_t>(Pick(5))];
    }

    /// Near a time as often as anywhere, so that there is something to drag.
    void ChoosePlace()
    {
        const QWidget *target = Target();
        m_at = {Pick(target->width() + 100) - 50, Pick(target->height() + 100) - 50};
        TzuDataEntity_SchemaTime *time = AnyTime();
        if (time == nullptr || m_part < 3 || Pick(1) == 0) {
            return;
        }
        if (const auto rect = m_schema->RectFromDataEntity(*time); rect && !rect->IsEmpty()) {
            m_at = {rect->Left + Pick(rect->Width() - 1), rect->Top + Pick(rect->Height() - 1)};
        }
    }

    void Press()
    {
        ChooseModifiers();
        m_part = Pick(12);
        ChoosePlace();
        const Qt::MouseButton button = Pick(4) == 0 ? Qt::RightButton : Qt::LeftButton;
        m_pressed = button;
        SendMouse(Pick(15) == 0 ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress, button);
    }

    void Move()
    {
        if (Pick(5) == 0) {
            ChoosePlace();
        } else {
            m_at = {m_at.X + Pick(20) - 10, m_at.Y + Pick(20) - 10};
        }
        SendMouse(QEvent::MouseMove, Qt::NoButton);
    }

    void Release()
    {
        const Qt::MouseButtons pressed = std::exchange(m_pressed, Qt::NoButton);
        if (Pick(40) == 0) {
            return; // the release got lost
        }
        SendMouse(QEvent::MouseButtonRelease,
                  pressed.testFlag(Qt::LeftButton) ? Qt::LeftButton : Qt::RightButton);
    }

    void Key()
    {
        ChooseModifiers();
        constexpr std::array kKeys{Qt::Key_Left, Qt::Key_Right, Qt::Key_Up,     Qt::Key_Down,
                                   Qt::Key_Home, Qt::Key_End,   Qt::Key_PageUp, Qt::Key_PageDown,
                                   Qt::Key_A,    Qt::Key_Space, Qt::Key_Delete, Qt::Key_Return,
                                   Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Menu,   Qt::Key_Escape};
        QWidget *target = Pick(4) == 0 ? Target() : &m_schema->SchemaArea();
        const int key = kKeys[static_cast<std::size_t>(Pick(int(kKeys.size()) - 1))];
        QKeyEvent press(QEvent::KeyPress, key, m_modifiers);
        QCoreApplication::sendEvent(target, &press);
        QKeyEvent release(QEvent::KeyRelease, key, m_modifiers);
        QCoreApplication::sendEvent(target, &release);
    }

    void Wheel()
    {
        ChooseModifiers();
        QWidget *target = Target();
        const QPointF at = ToQt(m_at);
        QWheelEvent event(at, target->mapToGlobal(at), {},
                          {Pick(2) == 0 ? Pick(240) - 120 : 0, Pick(240) - 120}, Qt::NoButton,
                          m_modifiers, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(target, &event);
    }

    void ChangeContent()
    {
        TzuDataEntity_SchemaTime *time = AnyTime();
        TDataListColumns &columns = m_schema->Columns();
        const int dice = Pick(9);
        if (dice < 3 || time == nullptr) {
            AddTime();
        } else if (dice < 6 && m_times.size() > kTimes / 2) {
            m_schema->RemoveSchemaTime(time);
        } else if (dice == 6) {
            time->SetSelected(!time->GetSelected());
        } else if (dice == 7) {
            time->SetVisible(Pick(3) > 0);
        } else if (Pick(1) == 0 && columns.Count() > 2) {
            m_schema->RemoveColumn(&columns.GetCol(Pick(columns.Count() - 1)));
        } else if (columns.Count() < 2 * kColumns) {
            AddColumn();
        }
    }

    void ChangeView()
    {
        switch (Pick(9)) {
        case 0:
            m_schema->resize(100 + Pick(900), 100 + Pick(500));
            break;
        case 1:
            m_schema->SetFlipView(Pick(1) == 0);
            break;
        case 2:
            m_schema->Columns().SetTopLeftCol(Pick(kColumns));
            break;
        case 3: {
            QEvent leave(QEvent::Leave);
            QCoreApplication::sendEvent(&m_schema->SchemaArea(), &leave);
            break;
        }
        case 4: {
            QEvent deactivate(QEvent::WindowDeactivate);
            QCoreApplication::sendEvent(&m_schema->SchemaArea(), &deactivate);
            break;
        }
        case 5:
            m_schema->GestureTick();
            m_schema->DateScaler().ScrollButtonPressed(nullptr);
            break;
        case 6:
            m_schema->DateScaler().SetRange(kFirstDay, kFirstDay + 0.1 * (1 + Pick(30)));
            break;
        case 7:
            m_schema->SetMoveInTimeWhenColSwitch(Pick(1) == 0);
            m_schema->SetCollisionDetectBetweenDataList(Pick(3) == 0);
            break;
        case 8:
            m_schema->SetLeastSubColWidth(Pick(1) * 30);
            m_schema->SetCollisionDetect(Pick(3) > 0);
            break;
        default:
            m_schema->SchemaArea().Repaint();
            break;
        }
    }

    std::mt19937 m_random;
    std::vector<TzuDataEntity_SchemaTime *> m_times;
    std::set<const TzuDataEntity_SchemaTime *> m_live;
    TPoint m_at;
    Qt::MouseButtons m_pressed = Qt::NoButton;
    Qt::KeyboardModifiers m_modifiers = Qt::NoModifier;
    int m_part = 9; ///< 0: the axis, 1: the header, 2: the sizer, else the area
    int m_changes = 0;
    std::unique_ptr<TzuSchema> m_schema; ///< goes first: its end still calls the handlers
};

TEST(SchemaMonkey, RandomInputNeverBreaksTheSchedule)
{
    const int events = NumberFromEnvironment("KORVANE_MONKEY_EVENTS", 4000);
    const auto seed = static_cast<unsigned>(NumberFromEnvironment("KORVANE_MONKEY_SEED", 1));
    Monkey monkey(seed);
    for (int i = 0; i < events; ++i) {
        monkey.Play();
        const std::string complaint = monkey.Complaint();
        ASSERT_TRUE(complaint.empty()) << complaint << " after event " << i << " of seed " << seed;
    }
    // A monkey that changes nothing proves nothing.
    EXPECT_GT(monkey.Changes(), events / 500);
}

} // namespace
