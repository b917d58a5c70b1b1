// Random input for a whole control.
#pragma once

#include "foundation/qt/zuConvert.h"
#include "foundation/zuTypes.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QWidget>

#include <algorithm>
#include <array>
#include <cstddef>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace korvane::test {

/// Plays with mouse, keys and wheel. What it plays with, what else happens to that meanwhile, and
/// what must always hold is a subclass' to say. The same seed does the same again.
class TMonkey
{
public:
    explicit TMonkey(unsigned seed)
        : m_random(seed)
    {
    }
    TMonkey(const TMonkey &) = delete;
    TMonkey &operator=(const TMonkey &) = delete;
    virtual ~TMonkey() = default;

    /// One event or change.
    void Play();
    /// What is wrong, or nothing.
    virtual std::string Complaint() = 0;
    /// How much the user has changed so far.
    int Changes() const { return m_changes; }

protected:
    /// Where the mouse is; asked for each event.
    virtual QWidget *Target() const = 0;
    /// Where a key goes.
    virtual QWidget *KeyTarget() = 0;
    /// Before a press: another target, and a place on it.
    virtual void ChooseTarget() = 0;
    /// Where the mouse jumps to: near something to drag as often as anywhere.
    virtual void ChoosePlace() = 0;
    /// The application changes what is shown, and how.
    virtual void ChangeContent() = 0;
    virtual void ChangeView() = 0;

    /// From 0 to `most`, both included.
    int Pick(int most) { return std::uniform_int_distribution(0, most)(m_random); }
    template <typename T>
    T *AnyOf(const std::vector<T *> &all)
    {
        return all.empty() ? nullptr : all[static_cast<std::size_t>(Pick(int(all.size()) - 1))];
    }
    template <typename T, std::size_t N>
    T AnyOf(const std::array<T, N> &all)
    {
        return all[static_cast<std::size_t>(Pick(int(N) - 1))];
    }
    /// Of rectangles wider than any screen, near the side that is close to the origin.
    TPoint AnyPlaceIn(const TRect &rect)
    {
        constexpr int kFar = 10000;
        const int left = std::clamp(rect.Left, -kFar, kFar);
        const int top = std::clamp(rect.Top, -kFar, kFar);
        return {left + Pick(std::clamp(rect.Right, left + 1, kFar + 1) - left - 1),
                top + Pick(std::clamp(rect.Bottom, top + 1, kFar + 1) - top - 1)};
    }
    TPoint AnyPlaceOn(const QWidget &widget)
    {
        return {Pick(widget.width() + 100) - 50, Pick(widget.height() + 100) - 50};
    }
    static void SendEvent(QWidget &widget, QEvent::Type type)
    {
        QEvent event(type);
        QCoreApplication::sendEvent(&widget, &event);
    }

    TPoint m_at; ///< in the target's pixels
    int m_changes = 0;

private:
    void ChooseModifiers();
    void SendMouse(QEvent::Type type, Qt::MouseButton button);
    void Press();
    void Move();
    void Release();
    void Key();
    void Wheel();

    std::mt19937 m_random;
    Qt::MouseButton m_pressed = Qt::NoButton;
    Qt::KeyboardModifiers m_modifiers = Qt::NoModifier;
};

inline void TMonkey::Play()
{
    const int dice = Pick(99);
    if (dice < 45) {
        Move();
    } else if (dice < 61) {
        m_pressed == Qt::NoButton ? Press() : Release();
    } else if (dice < 74) {
        Key();
    } else if (dice < 80) {
        Wheel();
    } else if (dice < 92) {
        ChangeContent();
    } else if (dice < 96) {
        ChangeView();
    } else {
        QCoreApplication::processEvents();
    }
}

inline void TMonkey::ChooseModifiers()
{
    m_modifiers = AnyOf(std::array<Qt::KeyboardModifiers, 6>{
        Qt::NoModifier, Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier, Qt::AltModifier,
        Qt::ControlModifier | Qt::ShiftModifier});
}

inline void TMonkey::SendMouse(QEvent::Type type, Qt::MouseButton button)
{
    QWidget *target = Target();
    const QPointF at = ToQt(m_at);
    QMouseEvent event(type, at, target->mapToGlobal(at), button, m_pressed, m_modifiers);
    QCoreApplication::sendEvent(target, &event);
}

inline void TMonkey::Press()
{
    ChooseModifiers();
    ChooseTarget();
    ChoosePlace();
    m_pressed = AnyOf(std::array{Qt::LeftButton, Qt::LeftButton, Qt::LeftButton, Qt::LeftButton,
                                 Qt::RightButton, Qt::MiddleButton});
    SendMouse(Pick(15) == 0 ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress, m_pressed);
}

inline void TMonkey::Move()
{
    if (Pick(5) == 0) {
        ChoosePlace();
    } else {
        m_at = {m_at.X + Pick(20) - 10, m_at.Y + Pick(20) - 10};
    }
    SendMouse(QEvent::MouseMove, Qt::NoButton);
}

inline void TMonkey::Release()
{
    const Qt::MouseButton pressed = std::exchange(m_pressed, Qt::NoButton);
    if (Pick(40) > 0) { // or else the release got lost
        SendMouse(QEvent::MouseButtonRelease, pressed);
    }
}

inline void TMonkey::Key()
{
    ChooseModifiers();
    const int key = AnyOf(std::array{
        Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End,
        Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_A, Qt::Key_Space, Qt::Key_Delete, Qt::Key_Return,
        Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Asterisk, Qt::Key_Menu, Qt::Key_Escape});
    QWidget *target = KeyTarget();
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, m_modifiers);
        QCoreApplication::sendEvent(target, &event);
    }
}

inline void TMonkey::Wheel()
{
    ChooseModifiers();
    const QPoint turn(Pick(2) == 0 ? Pick(240) - 120 : 0, Pick(240) - 120);
    QWidget *target = Target();
    const QPointF at = ToQt(m_at);
    QWheelEvent event(at, target->mapToGlobal(at), {}, turn, Qt::NoButton, m_modifiers,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(target, &event);
}

/// Lets a monkey play. KORVANE_MONKEY_EVENTS asks for a longer run, KORVANE_MONKEY_SEED for another
/// one.
template <typename Monkey>
void LetPlay()
{
    const auto numberFromEnvironment = [](const char *name, int otherwise) {
        bool given = false;
        const int number = qEnvironmentVariableIntValue(name, &given);
        return given ? number : otherwise;
    };
    const int events = numberFromEnvironment("KORVANE_MONKEY_EVENTS", 4000);
    const auto seed = static_cast<unsigned>(numberFromEnvironment("KORVANE_MONKEY_SEED", 1));
    Monkey monkey(seed);
    for (int i = 0; i < events; ++i) {
        monkey.Play();
        const std::string complaint = monkey.Complaint();
        ASSERT_TRUE(complaint.empty()) << complaint << " after event " << i << " of seed " << seed;
    }
    // A monkey that changes nothing proves nothing.
    EXPECT_GT(monkey.Changes(), events / 500);
}

} // namespace korvane::test
