#pragma once

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <numeric>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

/// A million nodes in nine columns, sorted by level and number, and the table of them that a careful developer writes
/// by hand: an array of structures with a sorted order and a hash of the keys, without validation, undo, texts or
/// widths.
namespace bench {

inline constexpr std::uint32_t kRows = 1'000'000;
inline constexpr std::uint32_t kBatch = 10'000;
inline constexpr long kScale = 100'000;

inline std::uint64_t Mix(std::uint64_t v) {
    v += 0x9e3779b97f4a7c15ull;
    v = (v ^ (v >> 30)) * 0xbf58476d1ce4e5b9ull;
    v = (v ^ (v >> 27)) * 0x94d049bb133111ebull;
    return v ^ (v >> 31);
}

/// The peer's row, and the source of ours.
struct Node {
    std::uint32_t key = 0;
    std::int32_t number = 0;
    std::uint16_t story = 0;
    std::uint16_t plan = 0;
    double level = 0.0;
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    std::string name;
};

inline constexpr std::uint32_t kFirstKey = 100'000;
inline constexpr std::uint64_t kStories = 200;

inline double Coordinate(std::uint64_t seed) {
    return std::round(static_cast<double>(Mix(seed) % 1'000'000'000)) / 1e6;
}

inline Node MakeNode(std::uint32_t i) {
    Node node;
    node.key = kFirstKey + i;
    node.number = static_cast<std::int32_t>(2 * (i + 1));
    node.story = static_cast<std::uint16_t>(Mix(i) % kStories);
    node.plan = static_cast<std::uint16_t>(Mix(i + 77) % 24);
    node.level = (node.story + 1) * 3.3;
    node.x = Coordinate(i * 3u + 1);
    node.y = Coordinate(i * 5u + 2);
    node.z = node.level;
    node.name = "N" + std::to_string(1'000'000 + i);
    return node;
}

inline const std::vector<Node>& Nodes() {
    static const std::vector<Node> nodes = [] {
        std::vector<Node> made;
        for (std::uint32_t i = 0; i < kRows; ++i) made.push_back(MakeNode(i));
        return made;
    }();
    return nodes;
}

inline const std::string& StoryName(std::uint64_t story) {
    static const std::vector<std::string> names = [] {
        std::vector<std::string> made;
        for (std::uint64_t i = 0; i < kStories; ++i) made.push_back(std::to_string(i + 1) + "F");
        return made;
    }();
    return names[story];
}

/// The keys of one batch: every hundredth node.
inline std::vector<std::uint32_t> BatchKeys(std::uint32_t rows = kRows) {
    std::vector<std::uint32_t> keys;
    for (std::uint32_t i = 0; i < kBatch; ++i) keys.push_back(kFirstKey + i * (rows / kBatch) + 1);
    return keys;
}

class PeerTable {
public:
    auto Less() const {
        return [this](std::uint32_t a, std::uint32_t b) {
            return rows[a].level != rows[b].level ? rows[a].level < rows[b].level : rows[a].number < rows[b].number;
        };
    }
    void Fill(std::uint32_t count) {
        rows.clear();
        byKey.clear();
        order.clear();
        rows.reserve(count);
        byKey.reserve(count);
        for (std::uint32_t i = 0; i < count; ++i) {
            byKey.emplace(Nodes()[i].key, i);
            rows.push_back(Nodes()[i]);
        }
        order.resize(count);
        std::iota(order.begin(), order.end(), 0u);
        std::sort(order.begin(), order.end(), Less());
    }
    void MoveBatch(std::span<const std::uint32_t> keys) {
        std::vector<char> mark(rows.size());
        std::vector<std::uint32_t> moved;
        for (const std::uint32_t key : keys) {
            const std::uint32_t id = byKey.at(key);
            rows[id].story = static_cast<std::uint16_t>((rows[id].story + 71) % kStories);
            rows[id].level = (rows[id].story + 1) * 3.3;
            mark[id] = 1;
            moved.push_back(id);
        }
        std::erase_if(order, [&](std::uint32_t id) { return mark[id] != 0; });
        Join(moved);
    }
    void DeleteBatch(std::span<const std::uint32_t> keys) {
        std::vector<char> mark(rows.size());
        for (const std::uint32_t key : keys) {
            mark[byKey.at(key)] = 1;
            byKey.erase(key);
        }
        std::erase_if(order, [&](std::uint32_t id) { return mark[id] != 0; });
    }
    void InsertBatch(std::span<const std::uint32_t> keys) {
        std::vector<std::uint32_t> fresh;
        for (const std::uint32_t key : keys) {
            byKey.emplace(key, static_cast<std::uint32_t>(rows.size()));
            fresh.push_back(static_cast<std::uint32_t>(rows.size()));
            rows.push_back(Nodes()[key - kFirstKey]);
        }
        Join(fresh);
    }
    void SortByX() {
        std::sort(order.begin(), order.end(),
                  [this](std::uint32_t a, std::uint32_t b) { return rows[a].x < rows[b].x; });
    }
    void SortByLevel() { std::sort(order.begin(), order.end(), Less()); }

    /// Position of the row with a text in one of its cells; -1 when there is none.
    int Find(const std::string& text) const {
        char buffer[512];
        for (std::size_t at = 0; at < order.size(); ++at) {
            char* end = PutRow(buffer, buffer + sizeof buffer, rows[order[at]]);
            if (memmem(buffer, static_cast<std::size_t>(end - buffer), text.data(), text.size())) {
                return static_cast<int>(at);
            }
        }
        return -1;
    }
    /// Gives one node another story.
    void Edit(std::uint32_t key) {
        const std::uint32_t id = byKey.at(key);
        order.erase(std::lower_bound(order.begin(), order.end(), id, Less()));
        rows[id].story = static_cast<std::uint16_t>((rows[id].story + 71) % kStories);
        rows[id].level = (rows[id].story + 1) * 3.3;
        order.insert(std::lower_bound(order.begin(), order.end(), id, Less()), id);
    }
    /// Pastes lines of story, x, y, z, plan over the rows from `top` on.
    void Paste(const std::string& text, std::size_t top) {
        std::unordered_map<std::string_view, std::uint16_t> stories;
        for (std::uint64_t i = 0; i < kStories; ++i) stories.emplace(StoryName(i), static_cast<std::uint16_t>(i));
        std::vector<char> mark(rows.size());
        std::vector<std::uint32_t> moved;
        const char* p = text.data();
        const char* end = p + text.size();
        while (p < end && top < order.size()) {
            const std::uint32_t id = order[top++];
            Node& row = rows[id];
            const char* lineEnd = static_cast<const char*>(std::memchr(p, '\n', static_cast<std::size_t>(end - p)));
            for (int c = 0; c < 5; ++c) {
                const char* stop =
                    static_cast<const char*>(std::memchr(p, '\t', static_cast<std::size_t>(lineEnd - p)));
                if (!stop) stop = lineEnd;
                int plan = 0;
                switch (c) {
                    case 0:
                        row.story = stories[std::string_view(p, static_cast<std::size_t>(stop - p))];
                        row.level = (row.story + 1) * 3.3;
                        break;
                    case 1: std::from_chars(p, stop, row.x); break;
                    case 2: std::from_chars(p, stop, row.y); break;
                    case 3: std::from_chars(p, stop, row.z); break;
                    default:
                        std::from_chars(p, stop, plan);
                        row.plan = static_cast<std::uint16_t>(plan);
                        break;
                }
                p = stop + 1;
            }
            mark[id] = 1;
            moved.push_back(id);
        }
        std::erase_if(order, [&](std::uint32_t id) { return mark[id] != 0; });
        Join(moved);
    }

private:
    static char* PutRow(char* p, char* end, const Node& row) {
        const auto tab = [&] {
            if (p < end) *p++ = '\t';
        };
        const auto put = [&](const auto& value) {
            p = std::to_chars(p, end, value).ptr;
            tab();
        };
        const auto text = [&](const std::string& value) {
            if (static_cast<std::size_t>(end - p) > value.size()) p = std::copy(value.begin(), value.end(), p);
            tab();
        };
        put(row.key);
        put(row.number);
        text(StoryName(row.story));
        for (const double d : {row.level, row.x, row.y, row.z}) {
            p = std::to_chars(p, end, d, std::chars_format::fixed, 3).ptr;
            tab();
        }
        text(row.name);
        put(row.plan);
        return p;
    }
    void Join(std::vector<std::uint32_t>& fresh) {
        std::sort(fresh.begin(), fresh.end(), Less());
        std::vector<std::uint32_t> merged(order.size() + fresh.size());
        std::merge(order.begin(), order.end(), fresh.begin(), fresh.end(), merged.begin(), Less());
        order.swap(merged);
    }

    std::vector<Node> rows;
    std::vector<std::uint32_t> order;
    std::unordered_map<std::uint32_t, std::uint32_t> byKey;
};

}  // namespace bench
