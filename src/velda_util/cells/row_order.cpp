#include "velda_util/cells/row_order.h"

#include <algorithm>
#include <iterator>
#include <limits>

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

// Only the chunks that lose or take rows are touched, and rows that stay know their chunk already.
void RowOrder::Merge(std::span<const RowId> removed, std::span<const Arrival> added) {
    if (sequence_.empty()) sequence_.push_back(NewChunk());
    std::vector<bool> loses(chunks_.size());
    std::vector<bool> leaves(chunkOf_.size());
    for (const RowId row : removed) {
        if (!Contains(row)) continue;
        loses[chunkOf_[row]] = true;
        leaves[row] = true;
        chunkOf_[row] = kNoChunk;
    }
    std::size_t next = 0;
    for (std::size_t place = 0; place < sequence_.size(); ++place) {
        const std::uint32_t number = sequence_[place];
        const bool isLast = place + 1 == sequence_.size();
        const std::size_t end = chunks_[number].start + chunks_[number].rows.size();
        const std::size_t first = next;
        while (next < added.size() && (isLast || added[next].position < end)) ++next;
        if (next > first || loses[number]) {
            MergeInto(number, added.subspan(first, next - first), loses[number] ? &leaves : nullptr);
        }
    }
    TidyChunks();
}

void RowOrder::MergeInto(std::uint32_t number, std::span<const Arrival> added, const std::vector<bool>* leaves) {
    Chunk& chunk = chunks_[number];
    std::vector<RowId> merged;
    merged.reserve(chunk.rows.size() + added.size());
    const auto stays = [&](std::size_t from, std::size_t to) {
        const auto first = chunk.rows.begin() + static_cast<std::ptrdiff_t>(from);
        const auto last = chunk.rows.begin() + static_cast<std::ptrdiff_t>(to);
        if (!leaves) {
            merged.insert(merged.end(), first, last);
        } else {
            std::copy_if(first, last, std::back_inserter(merged), [leaves](RowId row) { return !(*leaves)[row]; });
        }
    };
    std::size_t done = 0;
    for (const Arrival& arrival : added) {
        const std::size_t at = std::min(arrival.position - chunk.start, chunk.rows.size());
        stays(done, at);
        done = at;
        merged.push_back(arrival.row);
        Know(arrival.row, number);
    }
    stays(done, chunk.rows.size());
    chunk.rows = std::move(merged);
}

/// Splits chunks that have grown too large, gives back empty ones and counts anew.
void RowOrder::TidyChunks() {
    std::erase_if(sequence_, [this](std::uint32_t number) {
        const bool empty = chunks_[number].rows.empty();
        if (empty) freeChunks_.push_back(number);
        return empty;
    });
    Renumber(0);
    for (std::size_t place = 0; place < sequence_.size();) {
        if (chunks_[sequence_[place]].rows.size() < 2 * kChunkRows) {
            ++place;
        } else {
            Split(sequence_[place]);
            Renumber(static_cast<std::uint32_t>(place));
        }
    }
    count_ = sequence_.empty() ? 0 : chunks_[sequence_.back()].start + chunks_[sequence_.back()].rows.size();
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
