#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "velda_lib/flat_index.h"

namespace zt {

class CDBUpdateConnector;

/// A set of selected keys with what the last step changed in it.
class Selection {
public:
    bool Contains(std::uint32_t key) const { return places_.Contains(key); }
    /// The selected keys, in the order in which they were selected.
    const std::vector<std::uint32_t>& Keys() const { return keys_; }

    /// Adds or removes keys; returns those that were not there, or were there, before.
    std::vector<std::uint32_t> Add(const std::vector<std::uint32_t>& keys);
    std::vector<std::uint32_t> Remove(const std::vector<std::uint32_t>& keys);

private:
    std::vector<std::uint32_t> keys_;
    velda::FlatIndex places_;
};

/// A selection pushed into the model view, with the view that pushed it.
struct SelectionPush {
    CDBUpdateConnector* sender = nullptr;
    std::vector<std::uint32_t> nodes;
    std::vector<std::uint32_t> members;
};

/// The view state of a database: the nodes and members that are selected, and those that the last step of the selection
/// concerned. Views are told of a removal (code 6) and then of an addition (code 5).
class CViewCtrl {
public:
    /// Whether a node or member is in the current set, that is, selected.
    int IsExistPont(std::uint32_t key) const { return nodes_.Contains(key) ? 1 : 0; }
    int IsExistMemb(std::uint32_t key) const { return members_.Contains(key) ? 1 : 0; }

    /// All selected nodes or members; the number of them.
    int GetAllSelectedPont(std::vector<std::uint32_t>& keys) const;
    int GetAllSelectedMemb(std::vector<std::uint32_t>& keys) const;
    /// The nodes or members that the current step of the selection adds or removes; the number of them.
    int GetCurrentPont(std::vector<std::uint32_t>& keys) const;
    int GetCurrentMemb(std::vector<std::uint32_t>& keys) const;

    /// Makes exactly these nodes, members, or both the selection. The sender is null when no view pushes.
    void SelectPont(CDBUpdateConnector* sender, const std::vector<std::uint32_t>& nodes);
    void SelectMemb(CDBUpdateConnector* sender, const std::vector<std::uint32_t>& members);
    /// The same for members of the result side, which a result database knows by their own keys.
    void SelectPMemb(CDBUpdateConnector* sender, const std::vector<std::uint32_t>& members);
    void Select(CDBUpdateConnector* sender, const std::vector<std::uint32_t>& nodes,
                const std::vector<std::uint32_t>& members);

    /// The last push, and how many there were.
    const SelectionPush& GetLastPush() const { return lastPush_; }
    std::uint64_t GetPushCount() const { return pushCount_; }

    /// Takes deleted records out of the selection without a word: their deletion is told by the change buffer.
    void ForgetPont(const std::vector<std::uint32_t>& keys) { nodes_.Remove(keys); }
    void ForgetMemb(const std::vector<std::uint32_t>& keys) { members_.Remove(keys); }

    /// Called with the sender and the hint code of each step.
    using Listener = std::function<void(CDBUpdateConnector* sender, int code)>;
    void SetListener(Listener listener) { listener_ = std::move(listener); }

private:
    void Push(CDBUpdateConnector* sender, const std::vector<std::uint32_t>* nodes,
              const std::vector<std::uint32_t>* members);
    void Step(CDBUpdateConnector* sender, int code, std::vector<std::uint32_t> nodes,
              std::vector<std::uint32_t> members);

    Selection nodes_;
    Selection members_;
    std::vector<std::uint32_t> currentNodes_;
    std::vector<std::uint32_t> currentMembers_;
    SelectionPush lastPush_;
    std::uint64_t pushCount_ = 0;
    Listener listener_;
};

}  // namespace zt
