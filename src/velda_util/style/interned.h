#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace velda {

/// How values of a type are looked up in a pool: by themselves, with a hash of their own.
template <class T>
struct InternTraits {
    using View = const T&;
    static std::size_t Hash(const T& value) { return value.Hash(); }
};

template <>
struct InternTraits<std::string> {
    using View = std::string_view;
    static std::size_t Hash(std::string_view text) { return std::hash<std::string_view>{}(text); }
};

/// Keeps each value once, under a number from 1. References are counted: a value that nobody holds any more is dropped,
/// since lists of names change with the model and would pile up. A value never moves while it is held.
/// For the thread of the user interface alone, like the tables that it serves.
template <class T>
class InternPool {
public:
    using View = typename InternTraits<T>::View;

    InternPool() : ids_(0, HashOf{this}, EqualIn{this}) {}
    InternPool(const InternPool&) = delete;
    InternPool& operator=(const InternPool&) = delete;

    /// The pool of all handles Interned<T>. Never destroyed, so that handles in static objects may outlive everything.
    static InternPool& Shared() {
        static InternPool& pool = *new InternPool;
        return pool;
    }

    /// Number of `value`, with one reference more.
    std::uint32_t Acquire(View value) {
        const auto found = ids_.find(value);
        if (found != ids_.end()) {
            ++NodeOf(*found).references;
            return *found;
        }
        const std::uint32_t id = FreeId();
        NodeOf(id) = Node{T(value), InternTraits<T>::Hash(value), 1};
        ids_.insert(id);
        return id;
    }
    void AddReference(std::uint32_t id) { ++NodeOf(id).references; }
    /// Gives a reference back. True when it was the last one and the number is free again.
    bool Release(std::uint32_t id) {
        Node& node = NodeOf(id);
        if (--node.references > 0) return false;
        ids_.erase(id);
        node.value = T{};
        free_.push_back(id);
        return true;
    }
    const T& At(std::uint32_t id) const { return nodes_[id - 1].value; }
    /// Distinct values held.
    std::size_t Count() const { return ids_.size(); }
    void Clear() {
        ids_.clear();
        free_.clear();
        nodes_.clear();
    }

private:
    struct Node {
        T value;
        std::size_t hash = 0;
        std::uint32_t references = 0;
    };
    struct HashOf {
        using is_transparent = void;
        const InternPool* pool;
        std::size_t operator()(std::uint32_t id) const { return pool->nodes_[id - 1].hash; }
        std::size_t operator()(View value) const { return InternTraits<T>::Hash(value); }
    };
    struct EqualIn {
        using is_transparent = void;
        const InternPool* pool;
        bool operator()(std::uint32_t a, std::uint32_t b) const { return a == b; }
        bool operator()(View value, std::uint32_t id) const { return pool->At(id) == value; }
        bool operator()(std::uint32_t id, View value) const { return pool->At(id) == value; }
    };

    Node& NodeOf(std::uint32_t id) { return nodes_[id - 1]; }
    std::uint32_t FreeId() {
        if (free_.empty()) {
            nodes_.emplace_back();
            return static_cast<std::uint32_t>(nodes_.size());
        }
        const std::uint32_t id = free_.back();
        free_.pop_back();
        return id;
    }

    std::deque<Node> nodes_;
    std::vector<std::uint32_t> free_;
    std::unordered_set<std::uint32_t, HashOf, EqualIn> ids_;
};

/// A handle of four bytes to a value of the shared pool, or to none. Equal values have equal handles.
template <class T>
class Interned {
public:
    Interned() = default;
    explicit Interned(typename InternPool<T>::View value) : id_(Pool().Acquire(value)) {}
    Interned(const Interned& other) : id_(other.id_) {
        if (id_ != 0) Pool().AddReference(id_);
    }
    Interned(Interned&& other) noexcept : id_(std::exchange(other.id_, 0)) {}
    Interned& operator=(Interned other) noexcept {
        std::swap(id_, other.id_);
        return *this;
    }
    ~Interned() {
        if (id_ != 0) Pool().Release(id_);
    }

    bool IsSet() const { return id_ != 0; }
    /// The value; a default one when none is set.
    const T& Get() const {
        static const T& none = *new T{};
        return id_ != 0 ? Pool().At(id_) : none;
    }
    std::uint32_t Id() const { return id_; }

    friend bool operator==(const Interned&, const Interned&) = default;

private:
    static InternPool<T>& Pool() { return InternPool<T>::Shared(); }

    std::uint32_t id_ = 0;
};

using InternedText = Interned<std::string>;

}  // namespace velda
