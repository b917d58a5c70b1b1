// Tells whether a data object outlived the handlers that were called meanwhile.
#pragma once

namespace korvane {

class TzuExposable;

/// Watches one data object from the construction of the watch on. For locals only: watches of a
/// thread end in the reverse order of their beginning. A watch sees releases by its own thread.
class TzuLifeWatch
{
public:
    explicit TzuLifeWatch(const TzuExposable &object)
        : m_object(&object)
        , m_outer(s_innermost)
    {
        s_innermost = this;
    }
    TzuLifeWatch(const TzuLifeWatch &) = delete;
    TzuLifeWatch &operator=(const TzuLifeWatch &) = delete;
    ~TzuLifeWatch() { s_innermost = m_outer; }

    /// Whether the object still exists.
    explicit operator bool() const { return m_object != nullptr; }

private:
    friend class TzuExposable;

    static void Released(const TzuExposable *object)
    {
        for (auto *watch = s_innermost; watch != nullptr; watch = watch->m_outer) {
            if (watch->m_object == object) {
                watch->m_object = nullptr;
            }
        }
    }

    const TzuExposable *m_object;
    TzuLifeWatch *m_outer;

    static inline constinit thread_local TzuLifeWatch *s_innermost = nullptr;
};

} // namespace korvane
