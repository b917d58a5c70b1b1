// What data lists cost: changes, questions after a change, sorting, memory.
#include "data/zuDataEntityPack.h"
#include "data/zuDataTraveser.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdint>
#include <cstdlib>
#include <malloc.h>
#include <memory>
#include <new>
#include <random>
#include <vector>

namespace {

/// What is allocated now, as the allocator rounds it.
std::size_t g_allocated = 0;

} // namespace

// Not inlined, or the compiler takes malloc and delete for a mismatch.
[[gnu::noinline]] void *operator new(std::size_t size)
{
    void *memory = std::malloc(size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    g_allocated += malloc_usable_size(memory);
    return memory;
}
[[gnu::noinline]] void operator delete(void *memory) noexcept
{
    g_allocated -= malloc_usable_size(memory);
    std::free(memory);
}
[[gnu::noinline]] void operator delete(void *memory, std::size_t /*size*/) noexcept
{
    operator delete(memory);
}

namespace {

using namespace korvane;

struct Release
{
    void operator()(TzuExposable *object) const { object->FreeWheneverPossible(); }
};
using ListOwner = std::unique_ptr<TzuDataList, Release>;

TzuListController g_controller;

ListOwner NewList()
{
    ListOwner list(new TzuDataList);
    list->AfterCreate(&g_controller, EntityClass::Of<TzuDataEntity>());
    return list;
}

ListOwner Filled(int count)
{
    ListOwner list = NewList();
    for (int i = 0; i < count; ++i) {
        list->Add();
    }
    return list;
}

std::vector<TzuDataEntity *> Shuffled(TzuDataList &list)
{
    std::vector<TzuDataEntity *> entities;
    for (int i = 0; i < list.Count(); ++i) {
        entities.push_back(list.GetItems(i));
    }
    std::shuffle(entities.begin(), entities.end(), std::mt19937(1));
    return entities;
}

/// One iteration does something to each of the items; only that is timed.
template <typename Setup, typename Each>
void PerItem(benchmark::State &state, const Setup &setup, const Each &each)
{
    const int count = static_cast<int>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        auto subject = setup(count);
        state.ResumeTiming();
        each(subject, count);
        state.PauseTiming();
        subject = {};
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * count);
    state.counters["per_item"] =
        benchmark::Counter(static_cast<double>(state.iterations() * count),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void Add(benchmark::State &state)
{
    PerItem(
        state, [](int) { return NewList(); },
        [](ListOwner &list, int count) {
            for (int i = 0; i < count; ++i) {
                list->Add();
            }
        });
}

void InsertAtFront(benchmark::State &state)
{
    PerItem(
        state, [](int) { return NewList(); },
        [](ListOwner &list, int count) {
            for (int i = 0; i < count; ++i) {
                list->Insert(0);
            }
        });
}

void LoadOneByOne(benchmark::State &state)
{
    PerItem(
        state,
        [](int count) {
            ListOwner list = NewList();
            list->AddUnloaded(count);
            return list;
        },
        [](ListOwner &list, int count) {
            for (int i = 0; i < count; ++i) {
                list->GetItems(i);
            }
        });
}

void DeleteFromFront(benchmark::State &state)
{
    PerItem(state, Filled, [](ListOwner &list, int count) {
        for (int i = 0; i < count; ++i) {
            list->Delete(0);
        }
    });
}

void DeleteFromBack(benchmark::State &state)
{
    PerItem(state, Filled, [](ListOwner &list, int count) {
        for (int i = count; i > 0; --i) {
            list->Delete(i - 1);
        }
    });
}

void RemoveFromFront(benchmark::State &state)
{
    PerItem(state, Filled, [](ListOwner &list, int count) {
        for (int i = 0; i < count; ++i) {
            list->Remove(list->GetLoaded(0));
        }
    });
}

struct ListInRandomOrder
{
    ListOwner List;
    std::vector<TzuDataEntity *> Order;
};

ListInRandomOrder FilledInRandomOrder(int count)
{
    ListInRandomOrder result{Filled(count), {}};
    result.Order = Shuffled(*result.List);
    return result;
}

void RemoveAtRandom(benchmark::State &state)
{
    PerItem(state, FilledInRandomOrder, [](ListInRandomOrder &subject, int) {
        for (TzuDataEntity *entity : subject.Order) {
            subject.List->Remove(entity);
        }
    });
}

void ListIndexAfterChange(benchmark::State &state)
{
    PerItem(state, FilledInRandomOrder, [](ListInRandomOrder &subject, int) {
        for (const TzuDataEntity *entity : subject.Order) {
            subject.List->ListIndexesOutOfDate(0);
            benchmark::DoNotOptimize(entity->ListIndex());
        }
    });
}

void ReleaseList(benchmark::State &state)
{
    PerItem(state, Filled, [](ListOwner &list, int) { list.reset(); });
}

void Sort(benchmark::State &state)
{
    g_controller.OnEntityCompare = [](TzuDataEntity *a, TzuDataEntity *b) {
        return a->GetUserReference() < b->GetUserReference() ? -1 : 1;
    };
    PerItem(
        state,
        [](int count) {
            ListOwner list = Filled(count);
            std::uintptr_t key = 0;
            for (TzuDataEntity *entity : Shuffled(*list)) {
                entity->SetUserReference(reinterpret_cast<void *>(++key));
            }
            return list;
        },
        [](ListOwner &list, int) { list->Sort(); });
    g_controller.OnEntityCompare = nullptr;
}

void RemoveMemberLists(benchmark::State &state)
{
    struct Members
    {
        std::vector<ListOwner> Lists;
        std::unique_ptr<TzuDataList2lev> Container;
    };
    PerItem(
        state,
        [](int count) {
            Members members{{}, std::make_unique<TzuDataList2lev>()};
            for (int i = 0; i < count; ++i) {
                members.Lists.push_back(NewList());
                members.Container->Add(members.Lists.back().get());
            }
            std::shuffle(members.Lists.begin(), members.Lists.end(), std::mt19937(1));
            return members;
        },
        [](Members &members, int) {
            for (const ListOwner &list : members.Lists) {
                members.Container->Remove(list.get());
            }
        });
}

/// Heap per entity, its slot in the list included.
void Memory(benchmark::State &state)
{
    const int count = static_cast<int>(state.range(0));
    double perEntity = 0;
    for (auto _ : state) {
        const ListOwner list = NewList();
        const std::size_t before = g_allocated;
        for (int i = 0; i < count; ++i) {
            list->Add();
        }
        perEntity = static_cast<double>(g_allocated - before) / count;
    }
    state.counters["bytes_per_entity"] = perEntity;
    state.counters["sizeof_entity"] = sizeof(TzuDataEntity);
    state.counters["sizeof_list"] = sizeof(TzuDataList);
}

void Sizes(benchmark::internal::Benchmark *bench)
{
    bench->RangeMultiplier(10)->Range(1000, 1'000'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(Add)->Apply(Sizes);
BENCHMARK(InsertAtFront)->Apply(Sizes);
BENCHMARK(LoadOneByOne)->Apply(Sizes);
BENCHMARK(DeleteFromFront)->Apply(Sizes);
BENCHMARK(DeleteFromBack)->Apply(Sizes);
BENCHMARK(RemoveFromFront)->Apply(Sizes);
BENCHMARK(RemoveAtRandom)->Apply(Sizes);
BENCHMARK(ListIndexAfterChange)->Apply(Sizes);
BENCHMARK(ReleaseList)->Apply(Sizes);
BENCHMARK(Sort)->Apply(Sizes);
BENCHMARK(RemoveMemberLists)->Apply(Sizes);
BENCHMARK(Memory)->Arg(1)->Arg(10)->Apply(Sizes);

} // namespace

BENCHMARK_MAIN();
