#include "foundation/zuBeginUpdate.h"
#include "foundation/zuEventHandling.h"

#include <gmock/gmock.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace korvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class EventTest : public testing::Test
{
protected:
    std::unique_ptr<TSingleEventListener> Listen(const std::string &name)
    {
        return std::make_unique<TSingleEventListener>(
            *m_event, [this, name](TSingleEventListener *) { m_log.push_back(name); }, false);
    }

    TObject m_owner;
    TObject m_data;
    std::unique_ptr<TEvent> m_event = std::make_unique<TEvent>(&m_owner);
    std::vector<std::string> m_log;
};

TEST_F(EventTest, DeliversInTheOrderOfSubscriptionWithSenderEventAndData)
{
    m_event->TriggerEvent(&m_data); // nobody listens yet
    const auto first = Listen("first");
    const auto second = Listen("second");
    m_event->AddListener(*first); // a second subscription has no effect
    EXPECT_EQ(first->Sender(), nullptr);
    m_event->TriggerEvent(&m_data);
    EXPECT_THAT(m_log, ElementsAre("first", "second"));
    EXPECT_EQ(second->Sender(), &m_owner);
    EXPECT_EQ(second->TriggeredBy(), m_event.get());
    EXPECT_EQ(second->Data(), &m_data);
    second->OnEvent = nullptr;
    m_event->TriggerEvent(nullptr);
    EXPECT_THAT(m_log, ElementsAre("first", "second", "first"));
    EXPECT_EQ(second->Data(), nullptr) << "the values are kept without a callback, too";
}

TEST_F(EventTest, RemovingUnsubscribesAndAlwaysClearsTheEvent)
{
    const auto listener = Listen("listener");
    m_event->RemoveListener(*listener);
    m_event->TriggerEvent(nullptr);
    EXPECT_THAT(m_log, IsEmpty());
    TEvent other(nullptr);
    other.AddListener(*listener);
    EXPECT_EQ(listener->Event(), &other);
    m_event->RemoveListener(*listener);
    EXPECT_EQ(listener->Event(), nullptr) << "also when it is subscribed elsewhere";
}

TEST_F(EventTest, AListenerOfSeveralEventsLeavesNoneBehind)
{
    TEvent other(nullptr);
    auto listener = Listen("heard");
    other.AddListener(*listener);
    EXPECT_EQ(listener->Event(), &other);
    m_event->TriggerEvent(nullptr);
    other.TriggerEvent(nullptr);
    EXPECT_EQ(listener->TriggeredBy(), &other);
    EXPECT_EQ(m_log.size(), 2U);
    m_event->RemoveListener(*listener);
    listener.reset();
    EXPECT_EQ(other.ListenerCount(), 0U);
    other.TriggerEvent(nullptr);
    EXPECT_EQ(m_log.size(), 2U);
}

TEST_F(EventTest, ADestroyedEventFreesTheListenersThatAskForItAndReleasesTheOthers)
{
    struct Counting : TSingleEventListener
    {
        Counting(TEvent &event, int &count)
            : TSingleEventListener(event, nullptr, true)
            , Count(count)
        {
        }
        ~Counting() override { ++Count; }
        int &Count;
    };
    int freed = 0;
    new Counting(*m_event, freed);
    const auto kept = Listen("kept");
    (new Counting(*m_event, freed))->SetFreeWithEvent(true);
    m_event.reset();
    EXPECT_EQ(freed, 2);
    EXPECT_EQ(kept->Event(), nullptr);
}

TEST_F(EventTest, FreeingAListenerWithItsEventMayFreeOthers)
{
    struct Owning : TSingleEventListener
    {
        explicit Owning(TEvent &event)
            : TSingleEventListener(event, nullptr, true)
        {
        }
        std::unique_ptr<TSingleEventListener> Other;
    };
    auto *owning = new Owning(*m_event);
    owning->Other = Listen("other");
    const auto last = Listen("last");
    m_event.reset();
    EXPECT_EQ(last->Event(), nullptr);
}

TEST_F(EventTest, AListenerThatJoinsDuringADeliveryIsNotCalledInThatRound)
{
    std::unique_ptr<TSingleEventListener> late;
    const TSingleEventListener joining(
        *m_event,
        [&](TSingleEventListener *) {
            m_log.emplace_back("joining");
            if (!late) {
                late = Listen("late");
            }
        },
        false);
    m_event->TriggerEvent(nullptr);
    EXPECT_THAT(m_log, ElementsAre("joining"));
    m_event->TriggerEvent(nullptr);
    EXPECT_THAT(m_log, ElementsAre("joining", "joining", "late"));
}

TEST_F(EventTest, RemovingDuringADeliveryPassesOverTheNextAndEndsInAnIndexError)
{
    const auto first = Listen("first");
    std::unique_ptr<TSingleEventListener> leaving = std::make_unique<TSingleEventListener>(
        *m_event,
        [&](TSingleEventListener *) {
            m_log.emplace_back("leaving");
            leaving.reset();
        },
        false);
    const auto passedOver = Listen("passed over");
    const auto last = Listen("last");
    EXPECT_THROW(m_event->TriggerEvent(nullptr), std::out_of_range);
    EXPECT_THAT(m_log, ElementsAre("first", "leaving", "last"));
    m_event->TriggerEvent(nullptr);
    EXPECT_EQ(m_log.size(), 6U) << "the next round is whole again";
}

TEST_F(EventTest, TheLastListenerThatLeavesRaisesNothing)
{
    const auto first = Listen("first");
    const TSingleEventListener leaving(
        *m_event, [&](TSingleEventListener *listener) { m_event->RemoveListener(*listener); },
        false);
    EXPECT_NO_THROW(m_event->TriggerEvent(nullptr));
    EXPECT_EQ(m_event->ListenerCount(), 1U);
}

TEST_F(EventTest, DestroyingTheEventDuringNestedDeliveriesEndsThemAll)
{
    int depth = 0;
    new TSingleEventListener(
        *m_event,
        [&](TSingleEventListener *) {
            if (++depth < 3) {
                m_event->TriggerEvent(nullptr);
            } else {
                m_event.reset();
            }
        },
        true);
    const auto second = Listen("second");
    m_event->TriggerEvent(nullptr);
    EXPECT_EQ(depth, 3);
    EXPECT_THAT(m_log, IsEmpty());
    EXPECT_EQ(second->Event(), nullptr);
}

TEST(BeginUpdate, OpensAtTheFirstMarkAndClosesAtItsEnd)
{
    for (const auto &[marks, expected] :
         {std::pair(0, ""), {1, "begin change end "}, {3, "begin change change change end "}}) {
        std::string log;
        {
            TzuBeginUpdate update([&] { log += "begin "; }, [&] { log += "end "; });
            for (int i = 0; i < marks; ++i) {
                update.Mark();
                log += "change ";
            }
            EXPECT_EQ(update.Marked(), marks > 0);
        }
        EXPECT_EQ(log, expected);
    }
}

TEST(BeginUpdate, EmptyCallbacksAreSkippedAndAMarkInsideTheBeginDoesNotRepeatIt)
{
    TzuBeginUpdate empty(nullptr, nullptr);
    empty.Mark();
    EXPECT_TRUE(empty.Marked());

    int begins = 0;
    TzuBeginUpdate *self = nullptr;
    TzuBeginUpdate nested(
        [&] {
            ++begins;
            self->Mark();
        },
        nullptr);
    self = &nested;
    nested.Mark();
    EXPECT_EQ(begins, 1);
}

TEST(BeginUpdate, ABeginThatThrowsOpensNothing)
{
    int ends = 0;
    {
        TzuBeginUpdate update([] { throw std::runtime_error("locked"); }, [&] { ++ends; });
        EXPECT_THROW(update.Mark(), std::runtime_error);
    }
    EXPECT_EQ(ends, 0);
}

} // namespace
} // namespace korvane
