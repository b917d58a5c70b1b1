// How a TSequence finds the chunk that holds an item.
#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>

namespace korvane {

/// The chunk of an item that is in no sequence.
inline constexpr std::uint32_t kNoChunk = 0xFFFFFFFFU;

/// For items that are in one sequence at most: the item itself keeps its chunk, in the field that
/// `Field::Of(item)` returns; it is kNoChunk while no sequence holds the item.
template <typename T, typename Field>
class TPlaceInItem
{
protected:
    /// What the sequence tells: an item came into a chunk, left it, or moved from one to another.
    void Put(T *item, std::uint32_t chunk) { Field::Of(*item) = chunk; }
    void Take(T *item, std::uint32_t /*chunk*/) { Field::Of(*item) = kNoChunk; }
    void Move(T *item, std::uint32_t /*from*/, std::uint32_t to) { Field::Of(*item) = to; }
    /// Calls visit(chunk) for each chunk that may hold the item.
    template <typename Visit>
    void ForEachChunk(const T *item, const Visit &visit) const
    {
        visit(Field::Of(*const_cast<T *>(item)));
    }
    /// The sequence has become several chunks, or one again.
    void BeginChunks() {}
    void EndChunks() {}
};

/// For items that may be in several sequences, or in one several times: the sequence keeps a map,
/// which it has no need of as long as it is one chunk.
template <typename T>
class TPlaceInMap
{
protected:
    /// What the sequence tells: an item came into a chunk, left it, or moved from one to another.
    void Put(T *item, std::uint32_t chunk)
    {
        if (m_chunks) {
            m_chunks->emplace(item, chunk);
        }
    }
    void Take(T *item, std::uint32_t chunk)
    {
        if (m_chunks) {
            m_chunks->erase(Find(item, chunk));
        }
    }
    void Move(T *item, std::uint32_t from, std::uint32_t to)
    {
        if (m_chunks) {
            Find(item, from)->second = to;
        }
    }
    /// Calls visit(chunk) for each chunk that may hold the item.
    template <typename Visit>
    void ForEachChunk(const T *item, const Visit &visit) const
    {
        const auto [first, last] = m_chunks->equal_range(item);
        for (auto entry = first; entry != last; ++entry) {
            visit(entry->second);
        }
    }
    /// The sequence has become several chunks, or one again.
    void BeginChunks() { m_chunks = std::make_unique<Chunks>(); }
    void EndChunks() { m_chunks.reset(); }

private:
    using Chunks = std::unordered_multimap<const T *, std::uint32_t>;

    typename Chunks::iterator Find(T *item, std::uint32_t chunk)
    {
        auto entry = m_chunks->find(item);
        while (entry->second != chunk) {
            ++entry;
        }
        return entry;
    }

    std::unique_ptr<Chunks> m_chunks;
};

} // namespace korvane
