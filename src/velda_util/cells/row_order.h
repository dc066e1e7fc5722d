#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "velda_util/cells/cell_id.h"

namespace velda {

/// The order in which rows stand: positions counted from 0, each holding a row id. Ids are kept in chunks, so that a
/// row comes and goes in the middle at the cost of one chunk, and each id knows its chunk, so that its position is
/// found without a search.
class RowOrder {
public:
    std::size_t Count() const { return count_; }
    /// The row at a position below Count().
    RowId At(std::size_t position) const;
    /// The position of a row; Count() when it does not stand in the order.
    std::size_t PositionOf(RowId row) const;
    bool Contains(RowId row) const { return row < chunkOf_.size() && chunkOf_[row] != kNoChunk; }

    /// Puts a row that does not stand in the order before `position`; Count() appends.
    void Insert(std::size_t position, RowId row);
    void Remove(RowId row);
    /// Makes `rows` the order.
    void Assign(std::span<const RowId> rows);
    void Clear() { Assign({}); }

    /// Takes rows out, and puts each of `added` before the row that stands at its place in the order before the call,
    /// in one pass. `added` stands in the order of its places.
    struct Arrival {
        std::size_t position;
        RowId row;
    };
    void Merge(std::span<const RowId> removed, std::span<const Arrival> added);

    /// Copies `count` rows from `position` on.
    void CopyTo(std::size_t position, std::size_t count, RowId* rows) const;
    std::vector<RowId> ToVector() const;
    std::size_t MemoryBytes() const;

private:
    static constexpr std::size_t kChunkRows = 1024;  ///< rows of a chunk when it is made; it splits at twice as many
    static constexpr std::uint32_t kNoChunk = 0xFFFFFFFFu;

    struct Chunk {
        std::vector<RowId> rows;
        std::size_t start = 0;    ///< position of the first row
        std::uint32_t place = 0;  ///< place in the sequence
    };

    std::uint32_t ChunkAt(std::size_t position) const;
    std::uint32_t NewChunk();
    void Renumber(std::uint32_t fromPlace);
    void Split(std::uint32_t chunk);
    void RemoveChunk(std::uint32_t chunk);
    /// `leaves` tells by row id what leaves the chunk; null when nothing does.
    void MergeInto(std::uint32_t chunk, std::span<const Arrival> added, const std::vector<bool>* leaves);
    void TidyChunks();
    void Know(RowId row, std::uint32_t chunk);

    std::vector<Chunk> chunks_;            ///< by chunk number, which never changes
    std::vector<std::uint32_t> sequence_;  ///< chunk numbers in order
    std::vector<std::uint32_t> freeChunks_;
    std::vector<std::uint32_t> chunkOf_;  ///< by row id
    std::size_t count_ = 0;
};

}  // namespace velda
