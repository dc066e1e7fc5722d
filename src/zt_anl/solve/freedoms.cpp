#include "zt_anl/solve/freedoms.h"

#include <algorithm>
#include <array>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"

namespace zt {

using velda::FormatText;
using velda::Outcome;

std::string NumberText(const FrameModel& model, std::size_t node) { return velda::FormatLong(model.nodes[node].no); }

std::string FreedomText(std::size_t freedom) {
    constexpr std::array<const char*, kFreedoms> kNames{"Dx", "Dy", "Dz", "Rx", "Ry", "Rz"};
    return kNames[freedom];
}

Outcome Freedoms::Build(const FrameModel& model) {
    const std::size_t count = model.nodes.size() * kFreedoms;
    linkOf_.assign(count, nullptr);
    terms_.assign(count, {});
    states_.assign(count, State::Open);
    independent_.clear();
    for (const FrameLink& link : model.links) {
        for (const std::size_t slave : link.slaves) {
            for (std::size_t i = 0; i < kFreedoms; ++i) {
                const FrameLink*& tie = linkOf_[slave * kFreedoms + i];
                if (!link.isTied[i] || tie == &link) continue;
                if (tie)
                    return Outcome::Refused(
                        FormatText("IDS_ANL_TIED_TWICE", {NumberText(model, slave), FreedomText(i)}));
                tie = &link;
            }
        }
    }
    for (std::size_t at = 0; at < count; ++at) {
        if (!Resolve(model, at / kFreedoms, at % kFreedoms)) {
            return Outcome::Refused(FormatText("IDS_ANL_LINK_RING", {NumberText(model, at / kFreedoms)}));
        }
    }
    return Support(model);
}

/// False when a freedom follows itself.
bool Freedoms::Resolve(const FrameModel& model, std::size_t node, std::size_t freedom) {
    const std::size_t at = node * kFreedoms + freedom;
    if (states_[at] != State::Open) return states_[at] == State::Done;
    states_[at] = State::AtWork;
    if (!linkOf_[at]) {
        terms_[at] = {{static_cast<int>(independent_.size()), 1.0}};
        independent_.push_back({node, freedom});
    } else if (!Follow(model, *linkOf_[at], node, freedom)) {
        return false;
    }
    states_[at] = State::Done;
    return true;
}

/// The displacement of a slave is that of its master and, where the link ties rotations too, the rotation of the master
/// times the distance: u = um + r x d. A rotation that is not tied moves no slave, so that a link of displacements
/// alone makes them equal.
bool Freedoms::Follow(const FrameModel& model, const FrameLink& link, std::size_t node, std::size_t freedom) {
    std::vector<Term>& terms = terms_[node * kFreedoms + freedom];
    const auto follow = [&](std::size_t masterFreedom, double factor) {
        if (!Resolve(model, link.master, masterFreedom)) return false;
        if (factor != 0.0) AddTerms(terms, terms_[link.master * kFreedoms + masterFreedom], factor);
        return true;
    };
    if (!follow(freedom, 1.0)) return false;
    if (freedom >= 3) return true;
    const Vector3 distance = Minus(model.nodes[node].place, model.nodes[link.master].place);
    const std::size_t next = (freedom + 1) % 3;
    const std::size_t last = (freedom + 2) % 3;
    if (link.isTied[3 + next] && !follow(3 + next, distance[last])) return false;
    return !link.isTied[3 + last] || follow(3 + last, -distance[next]);
}

void Freedoms::AddTerms(std::vector<Term>& terms, const std::vector<Term>& of, double factor) {
    for (const Term& term : of) {
        const auto same =
            std::find_if(terms.begin(), terms.end(), [&](const Term& other) { return other.place == term.place; });
        if (same != terms.end()) {
            same->factor += factor * term.factor;
        } else {
            terms.push_back({term.place, factor * term.factor});
        }
    }
}

Outcome Freedoms::Support(const FrameModel& model) {
    isFixed_.assign(independent_.size(), false);
    const auto forEachFixed = [&](auto visit) {
        for (const FrameSupport& support : model.supports) {
            for (std::size_t i = 0; i < kFreedoms; ++i) {
                if (support.isFixed[i]) visit(support.node, i);
            }
        }
    };
    forEachFixed([&](std::size_t node, std::size_t freedom) {
        if (!linkOf_[node * kFreedoms + freedom])
            isFixed_[static_cast<std::size_t>(TermsOf(node, freedom)[0].place)] = true;
    });
    Outcome outcome = Outcome::Done();
    forEachFixed([&](std::size_t node, std::size_t freedom) {
        for (const Term& term : TermsOf(node, freedom)) {
            if (term.factor == 0.0 || isFixed_[static_cast<std::size_t>(term.place)]) continue;
            outcome = Outcome::Refused(
                FormatText("IDS_ANL_TIED_AND_SUPPORTED", {NumberText(model, node), FreedomText(freedom)}));
        }
    });
    return outcome;
}

}  // namespace zt
