// Events that a component publishes: behind the application's handler come the receivers of a
// signal.
#pragma once

#include "foundation/zuMethod.h"

#include <cstddef>
#include <memory>
#include <utility>

namespace korvane {

template <typename Slot>
class TPublished;

/// A published event. It is assigned, cleared and called as the TMethod that it holds.
///
/// A component with signals ties the event to one of them (TSignalTies). A call then runs the
/// handler first, and after it the receivers of the signal: not when the handler throws, nor when
/// it has released the component or a data object that the event tells of. The application's
/// handler and the signal do not know of each other; whoever fires the event cares for neither.
///
/// An event is tied unless it asks for an answer by value (a result, a truth value, a number or a
/// text by reference) or lets the application draw: of those there is one handler. An answer that
/// is given through an object, as through a drag or an edit, a receiver can give as well.
///
/// It is not copied, since a copy would leave out the receivers.
template <typename... Args>
class TPublished<TMethod<void(Args...)>>
{
public:
    /// What the application assigns.
    using TSlot = TMethod<void(Args...)>;

    /// What a call goes through when there are receivers.
    class ITie
    {
    public:
        ITie() = default;
        ITie(const ITie &) = delete;
        ITie &operator=(const ITie &) = delete;
        virtual ~ITie() = default;

        /// Whether anybody receives the signal now.
        virtual bool Heard() const = 0;
        /// Runs the handler, then the receivers. Both may destroy the event.
        virtual void Call(const TSlot &handler, Args... args) = 0;
    };

    TPublished() = default;
    TPublished(const TPublished &) = delete;
    TPublished &operator=(const TPublished &) = delete;
    ~TPublished() = default;

    /// In place of the handler before; receivers stay.
    TPublished &operator=(TSlot handler)
    {
        m_handler = std::move(handler);
        return *this;
    }
    /// Clears the handler; so does assigning {}.
    TPublished &operator=(std::nullptr_t)
    {
        m_handler = nullptr;
        return *this;
    }
    /// The application's handler alone; may be empty.
    const TSlot &Handler() const { return m_handler; }
    /// In place of the tie before.
    void SetTie(std::shared_ptr<ITie> tie) { m_tie = std::move(tie); }

    /// Whether there is a handler or a receiver.
    explicit operator bool() const { return static_cast<bool>(m_handler) || IsHeard(); }

    /// Runs the handler, then the receivers; nothing without any. What the handler throws goes to
    /// the caller.
    void operator()(Args... args) const
    {
        if (!IsHeard()) {
            m_handler(std::forward<Args>(args)...);
            return;
        }
        const auto tie = m_tie; // a handler may destroy the component
        const TSlot handler = m_handler;
        tie->Call(handler, std::forward<Args>(args)...);
    }

private:
    bool IsHeard() const { return m_tie != nullptr && m_tie->Heard(); }

    TSlot m_handler;
    std::shared_ptr<ITie> m_tie;
};

} // namespace korvane
