#include "foundation/zuLifeWatch.h"

namespace korvane {

namespace {

/// One for all libraries, which is why nothing here is inline.
constinit thread_local TzuLifeWatch *s_innermostWatch = nullptr;

} // namespace

TzuLifeWatch::TzuLifeWatch(const TzuLifeWatched &object)
    : m_object(&object)
    , m_outer(s_innermostWatch)
{
    s_innermostWatch = this;
}

TzuLifeWatch::~TzuLifeWatch()
{
    s_innermostWatch = m_outer;
}

TzuLifeWatched::~TzuLifeWatched()
{
    for (auto *watch = s_innermostWatch; watch != nullptr; watch = watch->m_outer) {
        if (watch->m_object == this) {
            watch->m_object = nullptr;
        }
    }
}

} // namespace korvane
