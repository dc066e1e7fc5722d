#pragma once

#include <array>
#include <memory>
#include <span>
#include <vector>

#include "velda_lib/flat_index.h"
#include "zt_db/core/database.h"
#include "zt_db/post/result_source.h"

namespace zt {

class StoryModel;

/// A result database: the model that was analysed, and what the analysis stored of it. Nothing that results depend on
/// can change while they are current, so that the model itself is what was analysed. Without a model it is empty; with
/// a model and no results it serves what can be told before an analysis.
class CPostDataBase {
public:
    CPostDataBase() = default;
    CPostDataBase(CDataBase* model, std::shared_ptr<const ResultSource> results);

    CDataBase* Model() const { return model_; }
    /// Null when there are no results.
    const ResultSource* Results() const { return results_.get(); }

    /// Place of a node, by its number, in the arrays of nodes; `kNoPlace` when it has none. Likewise of a supported
    /// node in those of supports, and of a link.
    static constexpr std::uint32_t kNoPlace = velda::FlatIndex::kNone;
    std::uint32_t PlaceOfNode(std::uint32_t no) const {
        return no - firstNode_ < nodesInRow_ ? no - firstNode_ : nodes_.Find(no);
    }
    std::uint32_t PlaceOfSupport(std::uint32_t no) const { return supports_.Find(no); }
    std::uint32_t PlaceOfLink(std::uint32_t key) const { return links_.Find(key); }
    /// Place of a node of a slab, by their numbers.
    std::uint32_t PlaceOfSlabNode(std::uint32_t slab, std::uint32_t node) const;
    /// Numbers of the nodes that have a reaction, ascending.
    const std::vector<std::uint32_t>& SupportedNodes() const { return supported_; }
    const std::vector<std::uint32_t>& Links() const { return linkKeys_; }
    /// Numbers of the nodes of a link, by its place; 0 where the results do not tell them.
    std::array<std::uint32_t, 2> NodesOfLink(std::uint32_t place) const {
        const std::size_t at = 2 * std::size_t{place};
        return at + 1 < linkEnds_.size() ? std::array{linkEnds_[at], linkEnds_[at + 1]}
                                         : std::array<std::uint32_t, 2>{};
    }

    /// An element of the analysis: the stretch of a member between two nodes.
    struct Element {
        std::uint32_t member = 0;              ///< number
        std::array<std::uint32_t, 2> nodes{};  ///< numbers
        double start = 0.0;                    ///< where along the member it lies, 0 to 1
        double end = 1.0;
    };
    const std::vector<Element>& Elements() const { return elements_; }
    /// The elements of a member, by its number, one behind the other; none where it was not analysed.
    std::span<const Element> ElementsOfMember(std::uint32_t no) const;
    /// Place of an element of ElementsOfMember in Elements.
    std::size_t PlaceOfElement(const Element& element) const {
        return static_cast<std::size_t>(&element - elements_.data());
    }

    /// Whether a member, by its number, was designed: design forces of it are stored.
    bool IsDesigned(std::uint32_t no) const { return designed_.Contains(no); }

    /// Numbers of all nodes, of all members of the model, ascending. They are sorted once where there are results,
    /// since the model cannot change then.
    std::vector<std::uint32_t> NodeNumbers() const;
    std::vector<std::uint32_t> MemberNumbers() const;

    /// Stories, made when they are first asked for; none without results, since the model may change then.
    const StoryModel& Stories() const;

private:
    void PutNodes(const std::vector<std::uint32_t>& numbers);
    void ReadElements();
    void ReadSlabs();

    CDataBase* model_ = nullptr;
    std::shared_ptr<const ResultSource> results_;
    velda::FlatIndex nodes_;
    // The nodes at the beginning whose numbers follow each other, mostly all: their places need no look into the index.
    std::uint32_t firstNode_ = 0;
    std::uint32_t nodesInRow_ = 0;
    velda::FlatIndex supports_;
    velda::FlatIndex links_;
    std::vector<std::uint32_t> supported_;
    std::vector<std::uint32_t> linkKeys_;
    std::vector<std::uint32_t> linkEnds_;
    std::vector<Element> elements_;
    velda::FlatIndex firstElement_;
    velda::FlatIndex designed_;
    std::vector<std::array<std::uint32_t, 3>> slabNodes_;  ///< slab, node, place; sorted
    mutable std::shared_ptr<const StoryModel> stories_;
    mutable std::vector<std::uint32_t> nodeNumbers_;    ///< sorted; made when first asked for
    mutable std::vector<std::uint32_t> memberNumbers_;  ///< likewise
};

}  // namespace zt
