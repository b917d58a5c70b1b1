// The Qt signals behind the published events of a component.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuPublished.h"

#include <memory>

namespace korvane {

/// The ties between the events of a component and its signals. A member of the class that has the
/// signals: what its bases still tell of while they are destroyed, no receiver hears.
///
/// Sources that tie include zuSignalTiesImpl.h.
class KORVANE_WIDGETS_API TSignalTies
{
public:
    TSignalTies() = default;
    TSignalTies(const TSignalTies &) = delete;
    TSignalTies &operator=(const TSignalTies &) = delete;
    ~TSignalTies() { *m_alive = false; }

    /// The signal has the event's last arguments, or fewer: objects by address, entities in the
    /// class that the signal says, the library's values as Qt's; a QPoint takes two numbers.
    template <typename Component, typename... Args, typename... Params>
    void Tie(TPublished<TMethod<void(Args...)>> &event, Component &component,
             void (Component::*signal)(Params...));
    /// `emitSignal` is called with the event's arguments.
    template <typename Component, typename... Args, typename... Params, typename Emit>
    void Tie(TPublished<TMethod<void(Args...)>> &event, Component &component,
             void (Component::*signal)(Params...), Emit emitSignal);

private:
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace korvane
