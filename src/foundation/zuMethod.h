// Event slots: a comparable pair of code and object that also takes lambdas.
#pragma once

#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

namespace korvane {

template <typename Signature>
class TMethod;

/// A handler slot. Empty slots are skipped when called and yield a default-constructed result.
///
/// Two slots are equal when they run the same code on the same object. A lambda's identity is its
/// closure: copies of one slot are equal, two lambdas never are. A handler may replace or clear the
/// slot it is being called through.
template <typename R, typename... Args>
class TMethod<R(Args...)>
{
public:
    TMethod() = default;
    /// An empty slot.
    TMethod(std::nullptr_t) {} // NOLINT(google-explicit-constructor): slot = nullptr clears it

    /// Takes any callable; the slot shares ownership of it with its copies. Implicit for
    /// slot = [](...) { ... }; the constraint leaves copies to the copy constructor.
    template <typename F>
    requires(!std::is_same_v<std::remove_cvref_t<F>, TMethod> && std::is_invocable_v<F &, Args...>)
        TMethod(F &&callable) // NOLINT(*-explicit-constructor,*-forwarding-reference-overload)
        : m_closure(std::make_shared<std::decay_t<F>>(std::forward<F>(callable)))
    {
        m_object = m_closure.get();
        m_code = [](void *object, Args... args) -> R {
            return static_cast<R>(
                std::invoke(*static_cast<std::decay_t<F> *>(object), std::forward<Args>(args)...));
        };
    }

    /// The slot that calls `(object->*Member)(args...)`. The object is observed, not owned.
    template <auto Member, typename C>
    static TMethod Bind(C *object)
    {
        TMethod result;
        result.m_object = const_cast<std::remove_const_t<C> *>(object);
        result.m_code = [](void *target, Args... args) -> R {
            return static_cast<R>(
                std::invoke(Member, static_cast<C *>(target), std::forward<Args>(args)...));
        };
        return result;
    }

    /// Whether a call runs anything.
    explicit operator bool() const { return m_code != nullptr; }

    /// Calls the handler; what it throws goes to the caller.
    R operator()(Args... args) const
    {
        if (m_code == nullptr) {
            return R();
        }
        const auto keepAlive = m_closure;
        return m_code(m_object, std::forward<Args>(args)...);
    }

    friend bool operator==(const TMethod &a, const TMethod &b)
    {
        return a.m_code == b.m_code && a.m_object == b.m_object;
    }

    /// Hash that agrees with equality, for keyed containers of calls.
    std::size_t Hash() const
    {
        const std::size_t code = std::hash<const void *>()(reinterpret_cast<const void *>(m_code));
        return code * 31U + std::hash<const void *>()(m_object);
    }

private:
    using Code = R (*)(void *, Args...);

    Code m_code = nullptr;
    void *m_object = nullptr;
    std::shared_ptr<void> m_closure;
};

} // namespace korvane
