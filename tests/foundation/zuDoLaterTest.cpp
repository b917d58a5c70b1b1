#include "foundation/zuDoLater.h"

#include <cstdio>
#include <cstdlib>
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

class DoLaterTest : public testing::Test
{
protected:
    DoLaterTest()
    {
        SetDoLaterTransport({.Post = [this] { ++m_posted; }, .Destroy = [this] { ++m_destroyed; }});
    }
    ~DoLaterTest() override
    {
        TDoLater::DoAllNow();
        SetDoLaterTransport({});
    }

    /// A call that logs its name and the letter of its parameter.
    TDoLaterCall Logging(std::string name)
    {
        return [this, name = std::move(name)](TObject *parameter) {
            m_log.push_back(name + Letter(parameter));
        };
    }

    std::string Letter(const TObject *parameter) const
    {
        return parameter == &m_a ? "a" : parameter == &m_b ? "b" : "";
    }

    TObject m_a;
    TObject m_b;
    std::vector<std::string> m_log;
    int m_posted = 0;
    int m_destroyed = 0;
};

struct Counter
{
    void Run(TObject * /*parameter*/) { ++Runs; }
    void RunOther(TObject * /*parameter*/) { ++OtherRuns; }
    int Runs = 0;
    int OtherRuns = 0;
};

TEST_F(DoLaterTest, RunsCallsInTheOrderOfTheRequestsAndEachPairOfCallAndParameterOnce)
{
    const TDoLaterCall one = Logging("one");
    const TDoLaterCall two = Logging("two");
    TDoLater::DoLater(one, &m_b);
    TDoLater::DoLater(two);
    TDoLater::DoLater(one, &m_a);
    TDoLater::DoLater(one, &m_b);
    TDoLater::DoLater(two);
    EXPECT_EQ(m_posted, 3) << "a suppressed request posts nothing";
    EXPECT_TRUE(TDoLater::AlreadyInList(one, &m_a));
    EXPECT_FALSE(TDoLater::AlreadyInList(one, nullptr));

    TDoLater::DoAllNow();
    EXPECT_THAT(m_log, ElementsAre("oneb", "two", "onea"));
    EXPECT_FALSE(TDoLater::AlreadyInList(one, &m_a));

    TDoLater::DoAllNow();
    EXPECT_EQ(m_log.size(), 3U) << "later messages find the queue empty";
}

TEST_F(DoLaterTest, TellsCallsApartByCodeAndByObject)
{
    Counter first;
    Counter second;
    const auto run = TDoLaterCall::Bind<&Counter::Run>(&first);
    const auto runSecond = TDoLaterCall::Bind<&Counter::Run>(&second);
    const auto other = TDoLaterCall::Bind<&Counter::RunOther>(&first);
    EXPECT_TRUE(TDoLater::CompareMethodPointer(run, TDoLaterCall::Bind<&Counter::Run>(&first)));
    EXPECT_FALSE(TDoLater::CompareMethodPointer(run, runSecond));
    EXPECT_FALSE(TDoLater::CompareMethodPointer(run, other));
    for (const auto &call : {run, runSecond, other, TDoLaterCall::Bind<&Counter::Run>(&first)}) {
        TDoLater::DoLater(call);
    }
    TDoLater::DoAllNow();
    EXPECT_EQ(first.Runs, 1);
    EXPECT_EQ(first.OtherRuns, 1);
    EXPECT_EQ(second.Runs, 1);
}

TEST_F(DoLaterTest, NeverMindWithdrawsEveryEntryOfTheCallWhateverItsParameter)
{
    const TDoLaterCall one = Logging("one");
    const TDoLaterCall two = Logging("two");
    TDoLater::DoLater(one);
    TDoLater::DoLater(two, &m_a);
    TDoLater::DoLater(one, &m_a);
    TDoLater::NeverMind(one);
    TDoLater::NeverMind(Logging("unknown"));
    EXPECT_FALSE(TDoLater::AlreadyInList(one, &m_a));
    TDoLater::DoLater(one, &m_b);
    TDoLater::DoAllNow();
    EXPECT_THAT(m_log, ElementsAre("twoa", "oneb"));
}

TEST_F(DoLaterTest, TheRunningEntryCountsAsQueued)
{
    TDoLaterCall call;
    call = [&](TObject *parameter) {
        m_log.push_back("run" + Letter(parameter));
        EXPECT_TRUE(TDoLater::AlreadyInList(call, parameter));
        TDoLater::DoLater(call, parameter);
        if (parameter == &m_a) {
            TDoLater::DoLater(call, &m_b);
        }
    };
    TDoLater::DoLater(call, &m_a);
    TDoLater::DoLater(Logging("next"));
    TDoLater::DoAllNow();
    EXPECT_THAT(m_log, ElementsAre("runa", "next", "runb"));
    call = nullptr;
}

TEST_F(DoLaterTest, NeverMindInsideACallLeavesTheRunningEntryAndTakesTheOthers)
{
    TDoLaterCall call;
    const TDoLaterCall other = Logging("other");
    call = [&](TObject *parameter) {
        m_log.push_back("run" + Letter(parameter));
        TDoLater::NeverMind(call);
        TDoLater::NeverMind(other);
        EXPECT_TRUE(TDoLater::AlreadyInList(call, parameter));
    };
    TDoLater::DoLater(call, &m_a);
    TDoLater::DoLater(other);
    TDoLater::DoLater(call, &m_b);
    TDoLater::DoLater(Logging("last"));
    TDoLater::DoAllNow();
    EXPECT_THAT(m_log, ElementsAre("runa", "last"));
    EXPECT_FALSE(TDoLater::AlreadyInList(call, &m_a));
    call = nullptr;
}

TEST_F(DoLaterTest, AThrowingCallStaysFirstAndIsRunAgain)
{
    int failures = 2;
    const TDoLaterCall failing = [&](TObject *) {
        m_log.emplace_back("try");
        if (failures-- > 0) {
            throw std::runtime_error("not yet");
        }
    };
    TDoLater::DoLater(failing);
    TDoLater::DoLater(Logging("next"));
    EXPECT_THROW(TDoLater::DoAllNow(), std::runtime_error);
    EXPECT_TRUE(TDoLater::AlreadyInList(failing, nullptr));
    EXPECT_THROW(TDoLater::DoAllNow(), std::runtime_error);
    TDoLater::DoAllNow();
    EXPECT_THAT(m_log, ElementsAre("try", "try", "try", "next"));
}

TEST_F(DoLaterTest, AFailedCallCanBeWithdrawn)
{
    const TDoLaterCall failing = [](TObject *) { throw std::runtime_error("never"); };
    TDoLater::DoLater(failing);
    EXPECT_THROW(TDoLater::DoAllNow(), std::runtime_error);
    TDoLater::NeverMind(failing);
    EXPECT_NO_THROW(TDoLater::DoAllNow());
}

TEST_F(DoLaterTest, ACallWithdrawnWhileItRunsIsNotKeptWhenItThrows)
{
    struct Owner
    {
        ~Owner() { TDoLater::NeverMind(TDoLaterCall::Bind<&Owner::DestroySelf>(this)); }
        void DestroySelf(TObject * /*parameter*/)
        {
            delete this;
            throw std::runtime_error("gone");
        }
    };
    TDoLater::DoLater(TDoLaterCall::Bind<&Owner::DestroySelf>(new Owner));
    EXPECT_THROW(TDoLater::DoAllNow(), std::runtime_error);
    EXPECT_NO_THROW(TDoLater::DoAllNow());
}

TEST_F(DoLaterTest, ACallThatRunsTheQueueItselfRunsOnlyTheOthers)
{
    TDoLaterCall outer;
    TDoLaterCall inner;
    outer = [&](TObject *) {
        m_log.emplace_back("outer{");
        TDoLater::DoAllNow();
        EXPECT_TRUE(TDoLater::AlreadyInList(outer, nullptr));
        m_log.emplace_back("}outer");
    };
    inner = [&](TObject *) {
        m_log.emplace_back("inner{");
        TDoLater::DoAllNow();
        m_log.emplace_back("}inner");
    };
    TDoLater::DoLater(outer);
    TDoLater::DoLater(inner);
    TDoLater::DoLater(Logging("last"));
    TDoLater::DoAllNow();
    EXPECT_THAT(m_log, ElementsAre("outer{", "inner{", "last", "}inner", "}outer"));
    outer = inner = nullptr;
}

TEST_F(DoLaterTest, AFailureInsideANestedRunKeepsTheFailedEntryOnly)
{
    bool fail = true;
    const TDoLaterCall outer = [&](TObject *) {
        EXPECT_THROW(TDoLater::DoAllNow(), std::runtime_error);
        m_log.emplace_back("outer");
    };
    const TDoLaterCall failing = [&](TObject *) {
        if (std::exchange(fail, false)) {
            throw std::runtime_error("once");
        }
        m_log.emplace_back("second try");
    };
    TDoLater::DoLater(outer);
    TDoLater::DoLater(failing);
    TDoLater::DoLater(Logging("last"));
    TDoLater::DoAllNow();
    EXPECT_THAT(m_log, ElementsAre("outer", "second try", "last"));
}

TEST_F(DoLaterTest, ReleasingAWithdrawnClosureMayWithdrawFurtherCalls)
{
    struct Owner
    {
        ~Owner() { TDoLater::NeverMind(Call); }
        TDoLaterCall Call;
    };
    auto owner = std::make_shared<Owner>();
    owner->Call = Logging("of the owner");
    TDoLater::DoLater(owner->Call);
    TDoLaterCall keeper = [owner](TObject *) {};
    owner.reset();
    TDoLater::DoLater(keeper, &m_a);
    TDoLater::DoLater(keeper, &m_b);
    TDoLater::NeverMind(std::exchange(keeper, nullptr));
    TDoLater::DoAllNow();
    EXPECT_THAT(m_log, IsEmpty());
}

TEST_F(DoLaterTest, FreeingTheWindowKeepsTheQueue)
{
    TDoLater::DoLater(Logging("kept"));
    TDoLater::FreeDoLaterWindow();
    EXPECT_EQ(m_destroyed, 1);
    TDoLater::DoLater(Logging("new"));
    EXPECT_EQ(m_posted, 2);
    TDoLater::DoAllNow();
    EXPECT_THAT(m_log, ElementsAre("kept", "new"));
}

void QueueAndExit()
{
    static TObject parameter;
    TDoLater::DoLater([](TObject *) { throw std::runtime_error("at the end"); });
    TDoLater::DoLater([](TObject *) { std::fputs("ran at the end\n", stderr); }, &parameter);
    std::exit(0);
}

TEST(DoLaterDeathTest, WhatIsQueuedAtTheEndOfTheProcessIsRunAndAFailureDoesNotHoldItUp)
{
    EXPECT_EXIT(QueueAndExit(), testing::ExitedWithCode(0), "ran at the end");
}

} // namespace
} // namespace korvane
