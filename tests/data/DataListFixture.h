// Entities with an identity, and a controller that logs what it is told.
#pragma once

#include "data/zuDataEntityPack.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace korvane::test {

/// An entity that knows how many of its kind came before it.
class NumberedEntity : public TzuDataEntity
{
public:
    explicit NumberedEntity(int id)
        : Id(id)
    {
        ++s_alive;
    }
    ~NumberedEntity() override { --s_alive; }

    static int Alive() { return s_alive; }

    const int Id;

private:
    static inline int s_alive = 0;
};

inline int IdOf(const TzuDataEntity *entity)
{
    return entity == nullptr ? -1 : CheckedCast<const NumberedEntity>(entity)->Id;
}

/// A class whose entities are numbered in the order of their creation.
inline EntityClass NumberedClass(int firstId = 0)
{
    return EntityClass::Of<NumberedEntity>(
        [next = firstId]() mutable { return std::make_unique<NumberedEntity>(next++); });
}

/// Frees a list as its owner would.
struct Release
{
    void operator()(TzuExposable *object) const { object->FreeWheneverPossible(); }
};
using ListOwner = std::unique_ptr<TzuDataList, Release>;

inline ListOwner NewList(TzuListController &controller, EntityClass entityClass)
{
    ListOwner list(new TzuDataList);
    list->AfterCreate(&controller, std::move(entityClass));
    return list;
}

inline ListOwner NewList(TzuListController &controller)
{
    return NewList(controller, NumberedClass());
}

inline std::vector<int> LoadedIds(const TzuDataList &list)
{
    std::vector<int> ids;
    for (int p = 0; p < list.LoadedCount(); ++p) {
        ids.push_back(IdOf(list.GetLoaded(p)));
    }
    return ids;
}

using Log = std::vector<std::string>;

/// Every slot writes a line: the event, then the ids of its entities and its numbers.
struct LoggingController : TzuListController
{
    explicit LoggingController(Log &log)
    {
        const auto entityLine = [&log](const char *event) {
            return [&log, event](TzuDataEntity *entity) {
                log.push_back(std::string(event) + ' ' + std::to_string(IdOf(entity)));
            };
        };
        OnDeleteItem = entityLine("delete");
        OnInsertItem = entityLine("insert");
        OnAfterChangeOwner = entityLine("arrived");
        OnBeforeChangeOwner = entityLine("leaving");
        OnVisibleChanged = entityLine("visible");
        OnInfoPush = entityLine("push");
        OnLoadItem = entityLine("load");
        OnHandlePerformedMove = [&log](TzuDataEntity *entity, int from, int to) {
            log.push_back("move " + std::to_string(IdOf(entity)) + ' ' + std::to_string(from) + ' '
                          + std::to_string(to));
        };
        OnSelectionChanged = [&log](TzuDataList *, TzuDataEntity *entity) {
            log.push_back("select " + std::to_string(IdOf(entity)));
        };
        OnContentChanged = [&log](TzuDataList *) { log.emplace_back("content"); };
        OnCountChanged = [&log](TzuDataList *) { log.emplace_back("count"); };
    }
};

} // namespace korvane::test
