#include "foundation/zuBeginUpdate.h"

#include <utility>

namespace korvane {

TzuBeginUpdate::TzuBeginUpdate(TMethod<void()> onBegin, TMethod<void()> onEnd)
    : m_onBegin(std::move(onBegin))
    , m_onEnd(std::move(onEnd))
{
}

TzuBeginUpdate::~TzuBeginUpdate()
{
    if (m_marked) {
        m_onEnd();
    }
}

void TzuBeginUpdate::Mark()
{
    if (m_marked) {
        return;
    }
    // Set first, so that a begin callback that marks in turn does not run without end.
    m_marked = true;
    try {
        m_onBegin();
    } catch (...) {
        m_marked = false;
        throw;
    }
}

} // namespace korvane
