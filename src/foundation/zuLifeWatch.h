// Tells whether a data object outlived the handlers that were called meanwhile.
#pragma once

#include "foundation/zuExport.h"

namespace korvane {

class TzuLifeWatched;

/// Watches one data object from the construction of the watch on. Watches of a thread end in the
/// reverse order of their beginning. A watch sees releases by its own thread.
class KORVANE_CORE_API TzuLifeWatch
{
public:
    /// The object may go while it is watched.
    explicit TzuLifeWatch(const TzuLifeWatched &object);
    TzuLifeWatch(const TzuLifeWatch &) = delete;
    TzuLifeWatch &operator=(const TzuLifeWatch &) = delete;
    ~TzuLifeWatch();

    /// Whether the object still exists.
    explicit operator bool() const { return m_object != nullptr; }

private:
    friend class TzuLifeWatched;

    const TzuLifeWatched *m_object;
    TzuLifeWatch *m_outer;
};

/// Base of what can be watched. Takes no room.
class KORVANE_CORE_API TzuLifeWatched
{
protected:
    TzuLifeWatched() = default;
    ~TzuLifeWatched();
};

} // namespace korvane
