// Events of the window system on a real date scaler.
#include "foundation/qt/zuConvert.h"
#include "foundation/zuDateUtils.h"
#include "foundation/zuReport.h"
#include "scaler/qt/zuScaler.h"
#include "scaler/qt/zuScalerAccessible.h"

#include <QApplication>
#include <QNativeGestureEvent>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <cmath>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>

namespace korvane::test {
namespace {

constexpr TDateTime kMonday = 36892; // 2001-01-01
constexpr QPoint kMiddle{350, 40};

/// A week on 700 pixels, in an active window, with the focus.
struct ScalerInput : testing::Test
{
    ScalerInput()
    {
        auto *layout = new QVBoxLayout(&Window);
        layout->setContentsMargins(0, 0, 0, 0);
        Scaler = new TzuDateScaler;
        Scaler->setFixedSize(700, 45);
        Scaler->SetHorizontal(true);
        layout->addWidget(Scaler);
        layout->addWidget(&Other);
        Other.setFocusPolicy(Qt::StrongFocus);
        ShowWeek();
        Activate();
    }

    void Activate()
    {
        Scaler->setEnabled(true);
        Window.show();
        QApplication::setActiveWindow(&Window);
        Scaler->setFocus();
        RunEvents();
    }
    /// Lets everything happen that is due, also what that posts.
    static void RunEvents()
    {
        for (int i = 0; i < 5; ++i) {
            QCoreApplication::sendPostedEvents();
            QCoreApplication::processEvents();
        }
    }

    void ShowWeek() { Scaler->SetRange(kMonday, kMonday + 7); }
    TDateTime Span() const { return Scaler->GetStop() - Scaler->GetStart(); }
    void Move(QPoint to, Qt::MouseButtons buttons, Qt::KeyboardModifiers keys = {}) const
    {
        QMouseEvent event(QEvent::MouseMove, to, Scaler->mapToGlobal(to), Qt::NoButton, buttons,
                          keys);
        QCoreApplication::sendEvent(Scaler, &event);
    }
    void Wheel(QPoint turn, Qt::KeyboardModifiers keys = {}, QPoint pixels = {}) const
    {
        QWheelEvent event(kMiddle, Scaler->mapToGlobal(kMiddle), pixels, turn, Qt::NoButton, keys,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(Scaler, &event);
        EXPECT_TRUE(event.isAccepted());
    }
    void Press(QPoint at, Qt::KeyboardModifiers keys = {}) const
    {
        QTest::mousePress(Scaler, Qt::LeftButton, keys, at);
    }
    void Release(QPoint at) const { QTest::mouseRelease(Scaler, Qt::LeftButton, {}, at); }

    QWidget Window;
    QWidget Other;
    TzuDateScaler *Scaler = nullptr;
};

TEST_F(ScalerInput, TheWheelZoomsAndSidewaysPans)
{
    const struct
    {
        QPoint Turn;
        Qt::KeyboardModifiers Keys;
        QPoint Pixels;
        TDateTime Middle; // relative to Thursday noon
        double Zoom;
    } cases[] = {
        {{0, 120}, Qt::NoModifier, {}, 0, 0.9},
        {{0, -120}, Qt::NoModifier, {}, 0, 1 / 0.9},
        {{0, 30}, Qt::ControlModifier, {}, 0, std::pow(0.9, 0.25)},
        {{0, 120}, Qt::ShiftModifier, {}, -0.7, 1},
        {{-240, 10}, Qt::NoModifier, {}, 1.4, 1},
        {{0, 60}, Qt::ShiftModifier, {0, 20}, -0.2, 1},
        {{0, 0}, Qt::NoModifier, {}, 0, 1},
    };
    int told = 0;
    Scaler->OnWheelMessage = [&](QWheelEvent &) { ++told; };
    for (const auto &[turn, keys, pixels, middle, zoom] : cases) {
        ShowWeek();
        Wheel(turn, keys, pixels);
        EXPECT_NEAR(Span(), 7 * zoom, 1e-9) << turn.x() << ' ' << turn.y();
        EXPECT_NEAR(Scaler->GetStart() + Span() / 2, kMonday + 3.5 + middle, 0.051) << turn.x();
    }
    EXPECT_EQ(told, std::ssize(cases));
}

TEST_F(ScalerInput, ADragZoomsAndIsToldAtItsEnd)
{
    const QSignalSpy changes(Scaler, &TzuDateScaler::changed);
    const auto before = changes.count();
    Press(kMiddle);
    EXPECT_TRUE(Scaler->hasFocus());
    Move(kMiddle + QPoint(10, 0), Qt::LeftButton);
    RunEvents();
    EXPECT_NEAR(Span(), 7.7, 1e-9);
    EXPECT_EQ(changes.count(), before);
    Wheel({0, 120}); // not within a drag
    EXPECT_NEAR(Span(), 7.7, 1e-9);
    Release(kMiddle + QPoint(10, 0));
    RunEvents();
    EXPECT_EQ(changes.count(), before + 1);
}

TEST_F(ScalerInput, WhateverTakesTheMouseAwayEndsTheDrag)
{
    const std::pair<const char *, void (*)(ScalerInput &)> cases[] = {
        {"hidden", [](ScalerInput &test) { test.Window.hide(); }},
        {"disabled", [](ScalerInput &test) { test.Scaler->setEnabled(false); }},
        {"focus", [](ScalerInput &test) { test.Other.setFocus(); }},
        {"window",
         [](ScalerInput &test) {
             QEvent event(QEvent::WindowDeactivate);
             QCoreApplication::sendEvent(test.Scaler, &event);
         }},
        {"grab",
         [](ScalerInput &test) {
             QEvent event(QEvent::UngrabMouse);
             QCoreApplication::sendEvent(test.Scaler, &event);
         }},
        {"release elsewhere", [](ScalerInput &test) { test.Move(kMiddle, Qt::NoButton); }},
    };
    for (const auto &[name, happen] : cases) {
        SCOPED_TRACE(name);
        for (const QPoint at : {kMiddle, QPoint(690, 10)}) {
            Activate();
            ShowWeek();
            Press(at);
            ASSERT_TRUE(Scaler->Dragging());
            EXPECT_EQ(Scaler->StepUpPressed(), at.x() == 690);
            happen(*this);
            EXPECT_FALSE(Scaler->Dragging() || Scaler->StepUpPressed());
            const TDateTime start = Scaler->GetStart();
            Scaler->ScrollButtonPressed(nullptr);
            Move(QPoint(300, 40), Qt::LeftButton);
            EXPECT_EQ(Scaler->GetStart(), start);
            QTest::mouseRelease(&Other, Qt::LeftButton);
        }
    }
}

TEST_F(ScalerInput, TheStepTimerRunsWhileAButtonIsHeld)
{
    const QPoint button{690, 10};
    QCursor::setPos(Scaler->mapToGlobal(button));
    RunEvents();
    Press(button);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Scaler->GetStart() > kMonday; }));
    EXPECT_NEAR(Span(), 7, 1e-9);
    Release(button);
    EXPECT_FALSE(Scaler->StepUpPressed());
}

TEST_F(ScalerInput, KeysMoveAndZoomAlongTheAxis)
{
    const struct
    {
        int Key;
        Qt::KeyboardModifiers Held;
        TDateTime Start; // relative
        double Span;
    } cases[] = {
        {Qt::Key_Left, Qt::NoModifier, -0.7, 7},
        {Qt::Key_Right, Qt::NoModifier, 0.7, 7},
        {Qt::Key_Right, Qt::KeypadModifier, 0.7, 7},
        {Qt::Key_Left, Qt::ControlModifier, -6.3, 7},
        {Qt::Key_Right, Qt::ShiftModifier, 6.3, 7},
        {Qt::Key_PageUp, Qt::NoModifier, -6.3, 7},
        {Qt::Key_PageDown, Qt::NoModifier, 6.3, 7},
        {Qt::Key_Plus, Qt::ShiftModifier, 0.35, 6.3},
        {Qt::Key_Equal, Qt::NoModifier, 0.35, 6.3},
        {Qt::Key_Minus, Qt::KeypadModifier, 3.5 - 3.5 / 0.9, 7 / 0.9},
        // For others: shortcuts, and the arrows across the axis.
        {Qt::Key_Left, Qt::AltModifier, 0, 7},
        {Qt::Key_Plus, Qt::ControlModifier, 0, 7},
        {Qt::Key_Up, Qt::NoModifier, 0, 7},
        {Qt::Key_Escape, Qt::NoModifier, 0, 7},
    };
    for (const auto &[key, held, start, span] : cases) {
        SCOPED_TRACE(key);
        ShowWeek();
        QKeyEvent claim(QEvent::ShortcutOverride, key, held);
        claim.ignore();
        QCoreApplication::sendEvent(Scaler, &claim);
        QKeyEvent press(QEvent::KeyPress, key, held);
        QCoreApplication::sendEvent(Scaler, &press);
        const bool taken = start != 0;
        EXPECT_EQ(claim.isAccepted(), taken);
        EXPECT_EQ(press.isAccepted(), taken);
        EXPECT_NEAR(Scaler->GetStart(), kMonday + start, 0.011);
        EXPECT_NEAR(Span(), span, 1e-9);
    }
    QTest::keyClick(Scaler, Qt::Key_Home);
    EXPECT_NEAR(Scaler->GetStart() + Span() / 2, Now(), Span() / 700 + kMinute);
    ShowWeek();
    Scaler->OnKeyDown = [](TzuOffscreenPaint *, int &key, TShiftState) { key = 0; };
    QTest::keyClick(Scaler, Qt::Key_Left); // the application has used it up
    EXPECT_EQ(Scaler->GetStart(), kMonday);
    Scaler->OnKeyDown = nullptr;
    Scaler->SetHorizontal(false);
    const TDateTime start = Scaler->GetStart();
    QTest::keyClick(Scaler, Qt::Key_Down);
    EXPECT_GT(Scaler->GetStart(), start);
}

TEST_F(ScalerInput, EscapeTakesADragBack)
{
    Press(kMiddle);
    Move(kMiddle + QPoint(50, 0), Qt::LeftButton);
    QTest::keyClick(Scaler, Qt::Key_Left); // keys wait
    QTest::keyClick(Scaler, Qt::Key_Escape);
    EXPECT_EQ(Scaler->GetStart(), kMonday);
    EXPECT_EQ(Scaler->GetStop(), kMonday + 7);
    Release(kMiddle);
}

TEST_F(ScalerInput, ADoubleClickShowsThePeriodAndIsToldOnce)
{
    int clicks = 0;
    int presses = 0;
    Scaler->OnDblClick = [&](TzuOffscreenPaint *) { ++clicks; };
    Scaler->OnMouseDown = [&](TzuOffscreenPaint *, TMouseButton, TShiftState, int, int) {
        ++presses;
    };
    QTest::mouseDClick(Scaler, Qt::LeftButton, {}, QPoint(250, 40));
    EXPECT_EQ(Scaler->GetStart(), kMonday + 2);
    EXPECT_EQ(Scaler->GetStop(), kMonday + 3);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(presses, 1);
    EXPECT_FALSE(Scaler->Dragging());
    // On a scroll button it is a second press.
    QMouseEvent again(QEvent::MouseButtonDblClick, QPointF(690, 10), QPointF(690, 10),
                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(Scaler, &again);
    EXPECT_TRUE(Scaler->StepUpPressed());
}

TEST_F(ScalerInput, TwoFingersZoomAboutThePlaceBetweenThem)
{
    const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    const auto at = [&](int x) { return QPoint(x, 30); };
    QTest::touchEvent(Scaler, screen.get()).press(0, at(300), Scaler);
    QTest::touchEvent(Scaler, screen.get()).move(0, at(300), Scaler).press(1, at(400), Scaler);
    for (int spread = 10; spread <= 100; spread += 10) {
        QTest::touchEvent(Scaler, screen.get())
            .move(0, at(300 - spread), Scaler)
            .move(1, at(400 + spread), Scaler);
    }
    QTest::touchEvent(Scaler, screen.get()).release(0, at(200), Scaler).release(1, at(500), Scaler);
    EXPECT_NEAR(Span(), 7 / 3.0, 1e-6); // from 100 to 300 pixels apart
    EXPECT_NEAR(Scaler->DateToPixel(kMonday + 3.5), 350, 3);
    EXPECT_FALSE(Scaler->Dragging());

    ShowWeek();
    QNativeGestureEvent touchpad(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(), 2,
                                 kMiddle, kMiddle, Scaler->mapToGlobal(kMiddle), 0.25, {});
    QCoreApplication::sendEvent(Scaler, &touchpad);
    EXPECT_NEAR(Span(), 7 / 1.25, 1e-9);
}

TEST_F(ScalerInput, ThePointerTellsWhatADragDoes)
{
    Move(kMiddle, Qt::NoButton);
    EXPECT_EQ(Scaler->cursor().shape(), Qt::SplitHCursor);
    Move(kMiddle, Qt::NoButton, Qt::ControlModifier);
    EXPECT_EQ(Scaler->cursor().shape(), Qt::SizeHorCursor);
    Move({690, 10}, Qt::NoButton);
    EXPECT_EQ(Scaler->cursor().shape(), Qt::PointingHandCursor);
    Scaler->SetHorizontal(false);
    Move({40, 30}, Qt::NoButton);
    EXPECT_EQ(Scaler->cursor().shape(), Qt::SplitVCursor);
}

TEST_F(ScalerInput, AFrameShowsTheFocus)
{
    const auto corner = [&] { return Scaler->grab().toImage().pixelColor(0, 44); };
    const QColor frame = Scaler->palette().color(QPalette::Highlight);
    EXPECT_EQ(corner(), frame);
    Other.setFocus();
    EXPECT_NE(corner(), frame);
}

TEST_F(ScalerInput, HandlersMayDestroyTheScalerOrThrow)
{
    const auto press = [](TzuDateScaler &scaler) {
        QTest::mousePress(&scaler, Qt::LeftButton, {}, kMiddle);
    };
    auto own = std::make_unique<TzuDateScaler>();
    own->OnMouseDown = [&](TzuOffscreenPaint *, TMouseButton, TShiftState, int, int) {
        own.reset();
    };
    press(*own);
    EXPECT_EQ(own, nullptr);
    own = std::make_unique<TzuDateScaler>();
    own->OnMouseUp = [&](TzuOffscreenPaint *, TMouseButton, TShiftState, int, int) { own.reset(); };
    press(*own);
    QTest::mouseRelease(own.get(), Qt::LeftButton, {}, kMiddle);
    EXPECT_EQ(own, nullptr);
    own = std::make_unique<TzuDateScaler>();
    own->OnWheelMessage = [&](QWheelEvent &) { own.reset(); };
    QWheelEvent wheel(kMiddle, kMiddle, {}, {0, 120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(own.get(), &wheel);
    EXPECT_EQ(own, nullptr);

    std::string reported;
    const TReportHook before =
        SetReportHook([&](std::string_view text) { reported = std::string(text); });
    Scaler->OnMouseUp = [](TzuOffscreenPaint *, TMouseButton, TShiftState, int, int) {
        throw std::runtime_error("not today");
    };
    press(*Scaler);
    Release(kMiddle);
    SetReportHook(before);
    EXPECT_EQ(reported, "not today");
    EXPECT_FALSE(Scaler->Dragging());
}

TEST_F(ScalerInput, AssistiveToolsReadTheVisibleTimeAndMoveIt)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    QAccessibleInterface *axis = QAccessible::queryAccessibleInterface(Scaler);
    ASSERT_NE(axis, nullptr);
    EXPECT_EQ(axis->role(), QAccessible::Slider);
    EXPECT_EQ(axis->text(QAccessible::Name), QString::fromUtf8("01.01.01 \u2013 07.01.01"));
    EXPECT_EQ(axis->text(QAccessible::Value), axis->text(QAccessible::Name));
    Scaler->setAccessibleName("Plan");
    EXPECT_EQ(axis->text(QAccessible::Name), "Plan");
    QLocale::setDefault(before);

    QAccessibleValueInterface *value = axis->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->currentValue().toDouble(), kMonday);
    value->setCurrentValue(kMonday + 7);
    EXPECT_EQ(Scaler->GetStop(), kMonday + 14);
    value->setCurrentValue(1e9);
    EXPECT_EQ(Scaler->GetStart(), value->maximumValue().toDouble());
    EXPECT_EQ(value->minimumValue().toDouble(), 0);

    QAccessibleActionInterface *actions = axis->actionInterface();
    ASSERT_NE(actions, nullptr);
    for (const char *name : {"Zoom in", "Zoom out", "Scroll earlier", "Scroll later",
                             "Page earlier", "Page later", "Today"}) {
        ShowWeek();
        EXPECT_TRUE(actions->actionNames().contains(name)) << name;
        EXPECT_FALSE(actions->localizedActionName(name).isEmpty()) << name;
        actions->doAction(name);
        EXPECT_NE(Scaler->GetStart(), kMonday) << name;
    }
}

TEST_F(ScalerInput, AssistiveToolsWalkTheMajorPeriods)
{
    Scaler->SetRange(kMonday + 3, kMonday + 17); // parts of three weeks
    QAccessibleInterface *axis = QAccessible::queryAccessibleInterface(Scaler);
    ASSERT_EQ(axis->childCount(), 3);
    int end = 0;
    for (int index = 0; index < 3; ++index) {
        QAccessibleInterface *week = axis->child(index);
        ASSERT_NE(week, nullptr);
        EXPECT_EQ(axis->child(index), week);
        EXPECT_EQ(axis->indexOfChild(week), index);
        EXPECT_EQ(week->parent(), axis);
        EXPECT_TRUE(week->isValid());
        EXPECT_EQ(week->text(QAccessible::Name).toStdString(),
                  Scaler->SecondaryMarks()[static_cast<std::size_t>(index)].Text);
        const QRect place(Scaler->mapFromGlobal(week->rect().topLeft()), week->rect().size());
        EXPECT_EQ(place.left(), end); // side by side
        EXPECT_EQ(place.top(), 15);
        EXPECT_EQ(place.height(), 15);
        end = place.right() + 1;
        const QPoint inside = week->rect().center();
        EXPECT_EQ(axis->childAt(inside.x(), inside.y()), week);
    }
    EXPECT_EQ(end, 700);
    EXPECT_EQ(axis->child(3), nullptr);
    EXPECT_EQ(axis->child(-1), nullptr);

    QAccessibleInterface *last = axis->child(2);
    ShowWeek();
    EXPECT_EQ(axis->childCount(), 1);
    EXPECT_FALSE(last->isValid());
    EXPECT_TRUE(last->rect().isEmpty());
    EXPECT_TRUE(last->text(QAccessible::Name).isEmpty());
    Scaler->SetRange(kMonday + 3, kMonday + 17);
    EXPECT_TRUE(last->isValid());
}

} // namespace
} // namespace korvane::test
