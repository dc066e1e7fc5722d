#include "zt_db/core/view_ctrl.h"

#include "zt_db/doc/hint_codes.h"

namespace zt {
namespace {

int CopyTo(const std::vector<std::uint32_t>& from, std::vector<std::uint32_t>& to) {
    to = from;
    return static_cast<int>(to.size());
}

/// Keys of `a` that are not in `b`.
std::vector<std::uint32_t> Without(const std::vector<std::uint32_t>& a, const std::vector<std::uint32_t>& b) {
    velda::FlatIndex known;
    for (const std::uint32_t key : b) known.Put(key, 0);
    std::vector<std::uint32_t> rest;
    for (const std::uint32_t key : a) {
        if (!known.Contains(key)) rest.push_back(key);
    }
    return rest;
}

}  // namespace

std::vector<std::uint32_t> Selection::Add(const std::vector<std::uint32_t>& keys) {
    std::vector<std::uint32_t> added;
    for (const std::uint32_t key : keys) {
        if (key == 0 || places_.Contains(key)) continue;
        places_.Put(key, 0);
        keys_.push_back(key);
        added.push_back(key);
    }
    return added;
}

std::vector<std::uint32_t> Selection::Remove(const std::vector<std::uint32_t>& keys) {
    std::vector<std::uint32_t> removed;
    for (const std::uint32_t key : keys) {
        if (places_.Erase(key)) removed.push_back(key);
    }
    if (!removed.empty()) std::erase_if(keys_, [this](std::uint32_t key) { return !places_.Contains(key); });
    return removed;
}

int CViewCtrl::GetAllSelectedPont(std::vector<std::uint32_t>& keys) const { return CopyTo(nodes_.Keys(), keys); }
int CViewCtrl::GetAllSelectedMemb(std::vector<std::uint32_t>& keys) const { return CopyTo(members_.Keys(), keys); }
int CViewCtrl::GetCurrentPont(std::vector<std::uint32_t>& keys) const { return CopyTo(currentNodes_, keys); }
int CViewCtrl::GetCurrentMemb(std::vector<std::uint32_t>& keys) const { return CopyTo(currentMembers_, keys); }

void CViewCtrl::SelectPont(CDBUpdateConnector* sender, const std::vector<std::uint32_t>& nodes) {
    Push(sender, &nodes, nullptr);
}
void CViewCtrl::SelectMemb(CDBUpdateConnector* sender, const std::vector<std::uint32_t>& members) {
    Push(sender, nullptr, &members);
}
void CViewCtrl::SelectPMemb(CDBUpdateConnector* sender, const std::vector<std::uint32_t>& members) {
    Push(sender, nullptr, &members);
}
void CViewCtrl::Select(CDBUpdateConnector* sender, const std::vector<std::uint32_t>& nodes,
                       const std::vector<std::uint32_t>& members) {
    Push(sender, &nodes, &members);
}

// A null list leaves that part of the selection as it is.
void CViewCtrl::Push(CDBUpdateConnector* sender, const std::vector<std::uint32_t>* nodes,
                     const std::vector<std::uint32_t>* members) {
    lastPush_ = {sender, nodes ? *nodes : std::vector<std::uint32_t>{},
                 members ? *members : std::vector<std::uint32_t>{}};
    ++pushCount_;
    const SelectionPush wanted = lastPush_;
    const auto none = std::vector<std::uint32_t>{};
    Step(sender, HintCode::SelectionRemoved, nodes ? nodes_.Remove(Without(nodes_.Keys(), wanted.nodes)) : none,
         members ? members_.Remove(Without(members_.Keys(), wanted.members)) : none);
    Step(sender, HintCode::SelectionAdded, nodes ? nodes_.Add(wanted.nodes) : none,
         members ? members_.Add(wanted.members) : none);
}

void CViewCtrl::Step(CDBUpdateConnector* sender, int code, std::vector<std::uint32_t> nodes,
                     std::vector<std::uint32_t> members) {
    if (nodes.empty() && members.empty()) return;
    currentNodes_ = std::move(nodes);
    currentMembers_ = std::move(members);
    if (listener_) listener_(sender, code);
}

}  // namespace zt
