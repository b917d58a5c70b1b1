#include "foundation/zuEventHandling.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

namespace korvane {

/// A walk over the listeners, on the stack of TriggerEvent; the event tells it when it goes.
struct TEvent::Delivery
{
    explicit Delivery(TEvent &event)
        : Event(&event)
        , Outer(std::exchange(event.m_delivery, this))
    {
    }
    Delivery(const Delivery &) = delete;
    Delivery &operator=(const Delivery &) = delete;
    ~Delivery()
    {
        if (Event != nullptr) {
            Event->m_delivery = Outer;
        }
    }

    TEvent *Event; ///< nil once the event is destroyed
    Delivery *Outer;
};

TEvent::~TEvent()
{
    for (Delivery *delivery = m_delivery; delivery != nullptr; delivery = delivery->Outer) {
        delivery->Event = nullptr;
    }
    // Taken from the list one by one: freeing a listener may free others with it.
    std::reverse(m_listeners.begin(), m_listeners.end());
    while (!m_listeners.empty()) {
        TSingleEventListener *listener = m_listeners.back();
        m_listeners.pop_back();
        std::erase(listener->m_subscriptions, this);
        listener->m_event = nullptr;
        if (listener->m_freeWithEvent) {
            delete listener;
        }
    }
}

void TEvent::AddListener(TSingleEventListener &listener)
{
    auto &subscriptions = listener.m_subscriptions;
    if (std::find(subscriptions.begin(), subscriptions.end(), this) != subscriptions.end()) {
        return;
    }
    subscriptions.push_back(this);
    m_listeners.push_back(&listener);
    listener.m_event = this;
}

void TEvent::RemoveListener(TSingleEventListener &listener)
{
    if (std::erase(listener.m_subscriptions, this) > 0) {
        m_listeners.erase(std::find(m_listeners.begin(), m_listeners.end(), &listener));
    }
    listener.m_event = nullptr;
}

void TEvent::TriggerEvent(TObject *data)
{
    const Delivery delivery(*this);
    const std::size_t count = m_listeners.size();
    for (std::size_t i = 0; i < count && delivery.Event != nullptr; ++i) {
        if (i >= m_listeners.size()) {
            throw std::out_of_range("List index out of bounds (" + std::to_string(i) + ')');
        }
        m_listeners[i]->Trigger(m_owner, this, data);
    }
}

TSingleEventListener::TSingleEventListener(TEvent &event, TOnEvent onEvent, bool freeWithEvent)
    : m_freeWithEvent(freeWithEvent)
{
    event.AddListener(*this);
    OnEvent = std::move(onEvent);
}

TSingleEventListener::~TSingleEventListener()
{
    while (!m_subscriptions.empty()) {
        m_subscriptions.back()->RemoveListener(*this);
    }
}

void TSingleEventListener::Trigger(TObject *sender, TEvent *event, TObject *data)
{
    m_sender = sender;
    m_triggeredBy = event;
    m_data = data;
    OnEvent(this);
}

} // namespace korvane
