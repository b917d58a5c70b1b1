// A reference to a class of entities: creates them and recognises them.
#pragma once

#include "data/zuDataEntity.h"

#include <concepts>
#include <functional>
#include <memory>
#include <utility>

namespace korvane {

/// A small value that stands for TzuDataEntity or a class derived from it. The default value stands
/// for no class.
class EntityClass
{
public:
    EntityClass() = default;

    /// The class T; entities are created by its default constructor.
    template <std::derived_from<TzuDataEntity> T>
    requires std::default_initializable<T>
    static EntityClass Of()
    {
        static const Description description{[] { return std::make_unique<T>(); }, &IsInstance<T>};
        // An alias of nothing: no reference count for what lives forever.
        return EntityClass({std::shared_ptr<const void>(), &description});
    }
    /// The class T, created by a factory that returns std::unique_ptr<T> (or of a derived class).
    template <std::derived_from<TzuDataEntity> T, std::invocable Factory>
    static EntityClass Of(Factory factory)
    {
        return EntityClass(
            std::make_shared<const Description>(Description{std::move(factory), &IsInstance<T>}));
    }

    /// Whether it stands for a class.
    explicit operator bool() const { return m_description != nullptr; }

    /// A new entity. Throws std::bad_function_call when the value stands for no class.
    std::unique_ptr<TzuDataEntity> Create() const
    {
        return m_description ? m_description->Create() : throw std::bad_function_call();
    }
    /// Whether the entity is of this class or of one derived from it.
    bool IsClassOf(const TzuDataEntity &entity) const
    {
        return m_description && m_description->IsInstance(&entity);
    }

private:
    struct Description
    {
        std::function<std::unique_ptr<TzuDataEntity>()> Create;
        bool (*IsInstance)(const TzuDataEntity *);
    };

    explicit EntityClass(std::shared_ptr<const Description> description)
        : m_description(std::move(description))
    {
    }

    template <typename T>
    static bool IsInstance(const TzuDataEntity *entity)
    {
        return dynamic_cast<const T *>(entity) != nullptr;
    }

    std::shared_ptr<const Description> m_description;
};

} // namespace korvane
