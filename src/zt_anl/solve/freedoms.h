#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "velda_lib/outcome.h"
#include "zt_anl/model/frame_model.h"

namespace zt {

/// A freedom of a node of the model.
struct NodeFreedom {
    std::size_t node = 0;
    std::size_t freedom = 0;
};

/// The freedoms of the nodes as sums of independent ones: those that rigid links tie follow the freedoms of their
/// masters.
class Freedoms {
public:
    struct Term {
        int place = 0;  ///< of an independent freedom
        double factor = 1.0;
    };

    /// Refused when links run in a ring, or tie a freedom that a support holds to one that is free.
    velda::Outcome Build(const FrameModel& model);

    std::span<const Term> TermsOf(std::size_t node, std::size_t freedom) const {
        return terms_[node * kFreedoms + freedom];
    }
    /// Whether a freedom of a node is an independent one and follows no other.
    bool IsOwn(std::size_t node, std::size_t freedom) const { return !linkOf_[node * kFreedoms + freedom]; }
    std::size_t Count() const { return independent_.size(); }
    const NodeFreedom& At(std::size_t place) const { return independent_[place]; }
    /// Whether a support holds an independent freedom.
    bool IsFixed(std::size_t place) const { return isFixed_[place]; }

private:
    enum class State : unsigned char { Open, AtWork, Done };

    bool Resolve(const FrameModel& model, std::size_t node, std::size_t freedom);
    bool Follow(const FrameModel& model, const FrameLink& link, std::size_t node, std::size_t freedom);
    void AddTerms(std::vector<Term>& terms, const std::vector<Term>& of, double factor);
    velda::Outcome Support(const FrameModel& model);

    std::vector<const FrameLink*> linkOf_;  ///< that ties a freedom; null for one that is free of links
    std::vector<std::vector<Term>> terms_;
    std::vector<State> states_;
    std::vector<NodeFreedom> independent_;
    std::vector<bool> isFixed_;
};

/// "12" and "Dz" of a freedom, for texts.
std::string NumberText(const FrameModel& model, std::size_t node);
std::string FreedomText(std::size_t freedom);

}  // namespace zt
