// How TSignalTies ties an event to a signal.
#pragma once

#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuSignalTies.h"
#include "foundation/zuLifeWatch.h"

#include <QMetaMethod>
#include <QObject>

#include <algorithm>
#include <array>
#include <cstddef>
#include <deque>
#include <tuple>
#include <type_traits>
#include <utility>

namespace korvane {

/// Watches any number of data objects, for locals.
class TLifeWatches
{
public:
    TLifeWatches() = default;
    TLifeWatches(const TLifeWatches &) = delete;
    TLifeWatches &operator=(const TLifeWatches &) = delete;
    ~TLifeWatches()
    {
        while (!m_watches.empty()) {
            m_watches.pop_back();
        }
    }

    /// Watches the object from now on; nothing for null.
    void Add(const TzuLifeWatched *object)
    {
        if (object != nullptr) {
            m_watches.emplace_back(*object);
        }
    }
    /// Whether none of the objects is gone; true without any.
    bool AllLive() const
    {
        return std::all_of(m_watches.begin(), m_watches.end(),
                           [](const TzuLifeWatch &each) { return static_cast<bool>(each); });
    }

private:
    std::deque<TzuLifeWatch> m_watches;
};

/// What an argument refers to, to be watched. There may be overloads for structs of pointers.
template <typename T>
void WatchArgument(TLifeWatches &watches, const T &argument)
{
    if constexpr (std::is_pointer_v<T>) {
        if constexpr (std::is_convertible_v<T, const TzuLifeWatched *>) {
            watches.Add(argument);
        } else if constexpr (std::is_base_of_v<TObject, std::remove_pointer_t<T>>) {
            watches.Add(dynamic_cast<const TzuLifeWatched *>(argument));
        }
    }
}

/// An argument of an event as a signal gives it on.
template <typename Param, typename Arg>
decltype(auto) ToSignal(Arg &argument)
{
    using TParam = std::remove_cvref_t<Param>;
    using TArg = std::remove_cv_t<Arg>;
    if constexpr (std::is_pointer_v<TParam> && !std::is_pointer_v<TArg>) {
        return static_cast<TParam>(&argument);
    } else if constexpr (std::is_pointer_v<TParam>) {
        return static_cast<TParam>(argument);
    } else if constexpr (std::is_same_v<TParam, QDateTime>) {
        return ToQDateTime(argument);
    } else if constexpr (std::is_convertible_v<const TArg &, TParam>) {
        return (argument);
    } else {
        return ToQt(argument);
    }
}

/// Where in an event's arguments those of a signal begin.
template <typename... Params>
struct TSignalPlaces
{
    /// Whether the parameter takes two arguments of the event, an x and a y.
    template <typename Param>
    static constexpr bool kIsPoint = std::is_same_v<std::remove_cvref_t<Param>, QPoint>;

    /// Index of the first argument that the parameter with the index `param` takes, when the
    /// parameters take the last ones.
    static constexpr std::size_t Of(std::size_t param, std::size_t eventArguments)
    {
        constexpr std::array<std::size_t, sizeof...(Params)> kTakes{
            (kIsPoint<Params> ? 2U : 1U)...};
        std::size_t place = eventArguments;
        for (std::size_t i = param; i < kTakes.size(); ++i) {
            place -= kTakes[i]; // NOLINT(*-constant-array-index): bounded above
        }
        return place;
    }
};

/// What a signal's parameter gets of a tuple of the event's arguments, from `place` on.
template <typename Param, std::size_t place>
decltype(auto) SignalArgument(const auto &eventArguments)
{
    if constexpr (TSignalPlaces<>::kIsPoint<Param>) {
        return QPoint(std::get<place>(eventArguments), std::get<place + 1>(eventArguments));
    } else {
        return ToSignal<Param>(std::get<place>(eventArguments));
    }
}

/// Calls the handler of an event and then emits a signal of a component, unless the handler has
/// released the component or a data object among the arguments.
template <typename Emit, typename... Args>
class TSignalTie : public TPublished<TMethod<void(Args...)>>::ITie
{
public:
    /// `alive` turns false before the component goes; `emitSignal` is called with the event's
    /// arguments. Who is connected to `signal` hears the event.
    TSignalTie(std::shared_ptr<const bool> alive, const QObject &component, QMetaMethod signal,
               Emit emitSignal)
        : m_alive(std::move(alive))
        , m_component(component)
        , m_signal(std::move(signal))
        , m_emit(std::move(emitSignal))
    {
    }

    bool Heard() const override
    {
        return *m_alive && (m_component.*(&TAccess::isSignalConnected))(m_signal);
    }
    void Call(const TMethod<void(Args...)> &handler, Args... args) override
    {
        TLifeWatches watches;
        (WatchArgument(watches, args), ...);
        handler(args...);
        if (*m_alive && watches.AllLive()) {
            m_emit(args...);
        }
    }

private:
    /// Opens what QObject keeps to its subclasses.
    struct TAccess : QObject
    {
        using QObject::isSignalConnected;
    };

    std::shared_ptr<const bool> m_alive;
    const QObject &m_component; ///< only while it is alive
    QMetaMethod m_signal;
    Emit m_emit;
};

template <typename Component, typename... Args, typename... Params>
void TSignalTies::Tie(TPublished<TMethod<void(Args...)>> &event, Component &component,
                      void (Component::*signal)(Params...))
{
    Tie(event, component, signal, [&component, signal](Args... args) {
        const auto emitWith = [&]<std::size_t... index>(const auto &all,
                                                        std::index_sequence<index...>)
        {
            Q_EMIT(component.*signal)
            (SignalArgument<Params, TSignalPlaces<Params...>::Of(index, sizeof...(Args))>(all)...);
        };
        emitWith(std::tuple<Args &...>(args...), std::index_sequence_for<Params...>());
    });
}

template <typename Component, typename... Args, typename... Params, typename Emit>
void TSignalTies::Tie(TPublished<TMethod<void(Args...)>> &event, Component &component,
                      void (Component::*signal)(Params...), Emit emitSignal)
{
    event.SetTie(std::make_shared<TSignalTie<Emit, Args...>>(
        m_alive, component, QMetaMethod::fromSignal(signal), std::move(emitSignal)));
}

} // namespace korvane
