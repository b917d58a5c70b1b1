// Multicast notification: an event and its listeners.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuMethod.h"
#include "foundation/zuTypes.h"

#include <cstddef>
#include <vector>

namespace korvane {

class TSingleEventListener;

/// What a listener calls; sender, event and data of the delivery are read from the listener.
using TOnEvent = TMethod<void(TSingleEventListener *listener)>;

/// Delivers to its listeners synchronously and in the order of their subscription.
class KORVANE_CORE_API TEvent : public TObject
{
public:
    /// The owner is passed to every listener as the sender; it is observed.
    explicit TEvent(TObject *owner)
        : m_owner(owner)
    {
    }
    /// Unsubscribes the listeners from first to last and frees those that ask for it.
    ~TEvent() override;

    /// The sender of every delivery, and the number of subscriptions.
    TObject *Owner() const { return m_owner; }
    std::size_t ListenerCount() const { return m_listeners.size(); }

    /// Appends a listener that is not yet subscribed here. A listener may be subscribed to several
    /// events; its Event is the last one.
    void AddListener(TSingleEventListener &listener);
    /// Sets the listener's Event to nil even when it is not subscribed here.
    void RemoveListener(TSingleEventListener &listener);

    /// Calls the listeners that are subscribed when it starts.
    ///
    /// Listeners must not be removed or destroyed meanwhile: the walk goes by position, so the
    /// listener after a removed one is passed over and std::out_of_range is thrown at the end.
    /// When a listener destroys the event itself, delivery ends quietly.
    void TriggerEvent(TObject *data);

private:
    struct Delivery;

    std::vector<TSingleEventListener *> m_listeners;
    TObject *m_owner;
    Delivery *m_delivery = nullptr; ///< the innermost one under way
};

/// Subscribes one callback to an event from its construction until it is destroyed or removed or
/// the event is destroyed.
class KORVANE_CORE_API TSingleEventListener : public TObject
{
public:
    /// With `freeWithEvent` the event owns the listener, which must live on the heap.
    TSingleEventListener(TEvent &event, TOnEvent onEvent, bool freeWithEvent);
    /// Ends the subscription.
    ~TSingleEventListener() override;

    /// The event subscribed to, or nil.
    TEvent *Event() const { return m_event; }
    /// Whether the event frees the listener at its own end.
    bool FreeWithEvent() const { return m_freeWithEvent; }
    void SetFreeWithEvent(bool value) { m_freeWithEvent = value; }

    /// Owner of the event that fired last, that event, and what it passed; nil before the first.
    TObject *Sender() const { return m_sender; }
    TEvent *TriggeredBy() const { return m_triggeredBy; }
    TObject *Data() const { return m_data; }

    /// Keeps the three values and calls OnEvent.
    void Trigger(TObject *sender, TEvent *event, TObject *data);

    /// Empty ones are skipped.
    TOnEvent OnEvent;

private:
    friend class TEvent;

    TEvent *m_event = nullptr;
    TObject *m_sender = nullptr;
    TEvent *m_triggeredBy = nullptr;
    TObject *m_data = nullptr;
    std::vector<TEvent *> m_subscriptions; ///< every event whose list holds this listener
    bool m_freeWithEvent;
};

} // namespace korvane
