#include "foundation/zuExposable.h"

#include <functional>
#include <gmock/gmock.h>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

namespace korvane {
namespace {

using testing::ElementsAre;

class TLogging : public TzuExposable
{
public:
    TLogging(std::vector<std::string> &log, std::function<void(TLogging *)> onClean = nullptr)
        : m_log(log)
        , m_onClean(std::move(onClean))
    {
    }
    ~TLogging() override { m_log.emplace_back("freed"); }

    void CleanForFree() override
    {
        m_log.emplace_back("cleaned");
        if (m_onClean) {
            std::exchange(m_onClean, nullptr)(this);
        }
    }

private:
    std::vector<std::string> &m_log;
    std::function<void(TLogging *)> m_onClean;
};

TEST(Exposable, IsCleanedThenFreed)
{
    std::vector<std::string> log;
    auto *object = new TLogging(log);
    EXPECT_TRUE(object->CanDelete());
    EXPECT_FALSE(object->FreeRequested());
    object->FreeWheneverPossible();
    EXPECT_THAT(log, ElementsAre("cleaned", "freed"));
}

TEST(Exposable, IsFreedOnceWhenAHandlerReleasesItAsWell)
{
    std::vector<std::string> log;
    (new TLogging(log, [](TLogging *object) {
        object->FreeWheneverPossible();
    }))->FreeWheneverPossible();
    EXPECT_THAT(log, ElementsAre("cleaned", "cleaned", "freed"));
}

TEST(Exposable, FreeCallTakesExposablesOnly)
{
    std::vector<std::string> log;
    TzuExposable::FreeCall(new TLogging(log));
    EXPECT_THAT(log, ElementsAre("freed")) << "without cleaning";
    TObject plain;
    EXPECT_THROW(TzuExposable::FreeCall(&plain), std::bad_cast);
    EXPECT_THROW(TzuExposable::FreeCall(nullptr), std::bad_cast);
}

} // namespace
} // namespace korvane
