#include "velda_util/cells/row_order.h"

#include <algorithm>

namespace velda {

std::uint32_t RowOrder::ChunkAt(std::size_t position) const {
    const auto above =
        std::upper_bound(sequence_.begin(), sequence_.end(), position,
                         [this](std::size_t p, std::uint32_t chunk) { return p < chunks_[chunk].start; });
    return *(above - 1);
}

RowId RowOrder::At(std::size_t position) const {
    const Chunk& chunk = chunks_[ChunkAt(position)];
    return chunk.rows[position - chunk.start];
}

std::size_t RowOrder::PositionOf(RowId row) const {
    if (!Contains(row)) return count_;
    const Chunk& chunk = chunks_[chunkOf_[row]];
    const auto found = std::find(chunk.rows.begin(), chunk.rows.end(), row);
    return chunk.start + static_cast<std::size_t>(found - chunk.rows.begin());
}

void RowOrder::Know(RowId row, std::uint32_t chunk) {
    if (row >= chunkOf_.size()) chunkOf_.resize(std::max<std::size_t>(row + 1, chunkOf_.size() * 3 / 2), kNoChunk);
    chunkOf_[row] = chunk;
}

std::uint32_t RowOrder::NewChunk() {
    if (freeChunks_.empty()) {
        chunks_.emplace_back();
        return static_cast<std::uint32_t>(chunks_.size() - 1);
    }
    const std::uint32_t chunk = freeChunks_.back();
    freeChunks_.pop_back();
    return chunk;
}

void RowOrder::Renumber(std::uint32_t fromPlace) {
    std::size_t start = 0;
    if (fromPlace > 0) {
        const Chunk& before = chunks_[sequence_[fromPlace - 1]];
        start = before.start + before.rows.size();
    }
    for (std::uint32_t place = fromPlace; place < sequence_.size(); ++place) {
        Chunk& chunk = chunks_[sequence_[place]];
        chunk.place = place;
        chunk.start = start;
        start += chunk.rows.size();
    }
}

void RowOrder::Insert(std::size_t position, RowId row) {
    if (sequence_.empty()) sequence_.push_back(NewChunk());
    const std::uint32_t number = ChunkAt(std::min(position, count_));
    Chunk& chunk = chunks_[number];
    const std::size_t at = std::min(position, count_) - chunk.start;
    chunk.rows.insert(chunk.rows.begin() + static_cast<std::ptrdiff_t>(at), row);
    Know(row, number);
    ++count_;
    if (chunk.rows.size() >= 2 * kChunkRows) Split(number);
    Renumber(chunks_[number].place);
}

void RowOrder::Split(std::uint32_t number) {
    const std::uint32_t added = NewChunk();
    Chunk& whole = chunks_[number];
    const auto middle = whole.rows.begin() + static_cast<std::ptrdiff_t>(whole.rows.size() / 2);
    chunks_[added].rows.assign(middle, whole.rows.end());
    whole.rows.erase(middle, whole.rows.end());
    for (const RowId row : chunks_[added].rows) chunkOf_[row] = added;
    sequence_.insert(sequence_.begin() + whole.place + 1, added);
}

void RowOrder::Remove(RowId row) {
    if (!Contains(row)) return;
    const std::uint32_t number = chunkOf_[row];
    Chunk& chunk = chunks_[number];
    chunk.rows.erase(std::find(chunk.rows.begin(), chunk.rows.end(), row));
    chunkOf_[row] = kNoChunk;
    --count_;
    const std::uint32_t place = chunk.place;
    if (chunk.rows.empty()) RemoveChunk(number);
    Renumber(place);
}

void RowOrder::RemoveChunk(std::uint32_t number) {
    sequence_.erase(sequence_.begin() + chunks_[number].place);
    freeChunks_.push_back(number);
}

void RowOrder::Assign(std::span<const RowId> rows) {
    for (const std::uint32_t number : sequence_) {
        for (const RowId row : chunks_[number].rows) chunkOf_[row] = kNoChunk;
    }
    const std::size_t needed = (rows.size() + kChunkRows - 1) / kChunkRows;
    chunks_.resize(needed);
    freeChunks_.clear();
    sequence_.resize(needed);
    if (!rows.empty()) Know(*std::max_element(rows.begin(), rows.end()), kNoChunk);
    for (std::uint32_t number = 0; number < needed; ++number) {
        const std::size_t start = number * kChunkRows;
        const auto part = rows.subspan(start, std::min(kChunkRows, rows.size() - start));
        chunks_[number].rows.assign(part.begin(), part.end());
        chunks_[number].start = start;
        chunks_[number].place = number;
        sequence_[number] = number;
        for (const RowId row : part) chunkOf_[row] = number;
    }
    count_ = rows.size();
}

void RowOrder::CopyTo(std::size_t position, std::size_t count, RowId* rows) const {
    while (count > 0 && position < count_) {
        const Chunk& chunk = chunks_[ChunkAt(position)];
        const std::size_t at = position - chunk.start;
        const std::size_t part = std::min(count, chunk.rows.size() - at);
        std::copy_n(chunk.rows.begin() + static_cast<std::ptrdiff_t>(at), part, rows);
        rows += part;
        position += part;
        count -= part;
    }
}

std::vector<RowId> RowOrder::ToVector() const {
    std::vector<RowId> rows(count_);
    CopyTo(0, count_, rows.data());
    return rows;
}

std::size_t RowOrder::MemoryBytes() const {
    std::size_t bytes = chunkOf_.capacity() * sizeof(std::uint32_t) + chunks_.capacity() * sizeof(Chunk);
    for (const Chunk& chunk : chunks_) bytes += chunk.rows.capacity() * sizeof(RowId);
    return bytes;
}

}  // namespace velda
