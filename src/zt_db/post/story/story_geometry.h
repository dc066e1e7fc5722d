#pragma once

#include <cstdint>
#include <limits>
#include <vector>

#include "velda_lib/flat_index.h"
#include "zt_db/geometry/member_geometry.h"
#include "zt_db/post/post_database.h"

namespace zt {

/// A node as stories see it, in m.
struct StoryNode {
    std::uint32_t key = 0;
    std::uint32_t no = 0;
    std::uint32_t place = 0;  ///< in the arrays of results; kNoPlace when it has none
    std::uint32_t story = 0;
    Vector3 at{};
};

/// A vertical line from a node at the top level of a story to the node below it at its base; places in the list of
/// nodes.
struct StoryLine {
    std::uint32_t top = 0;
    std::uint32_t bottom = 0;
};

/// Where an element crosses the plane just below the top level of a story.
struct StoryCut {
    std::size_t element = 0;
    double position = 0.0;  ///< along the element, 0 to 1
    double sign = 1.0;      ///< -1 where the end i of the element is the upper one
    MemberAxes axes{};
    bool isBrace = false;
    std::uint32_t member = 0;  ///< key
    double length = 0.0;       ///< of the element
    Vector3 at{};
};

struct StoryLevel {
    static constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();

    std::uint32_t key = 0;
    std::uint32_t mdul = 0;
    double level = 0.0;
    double height = 0.0;
    double base = 0.0;          ///< level of the story below or, of the lowest one, of the ground
    std::size_t above = kNone;  ///< place of the next story of the module
    std::size_t below = kNone;
    std::size_t fromTop = 1;  ///< 1 for the topmost of its module
    bool hasWalls = false;
    std::vector<std::uint32_t> nodes{};   ///< at the top level
    std::vector<std::uint32_t> bases{};   ///< at the base
    std::vector<std::uint32_t> massed{};  ///< all nodes of the story above its base
    std::vector<StoryLine> lines{};
    std::vector<StoryCut> cuts{};
};

/// How the nodes and members of an analysed model make stories. Stories stand module by module, the topmost first. The
/// lowest level of a module is no story when it has no height: it is the ground that the module stands on.
class StoryGeometry {
public:
    /// Places nearer than this are one, in m.
    static constexpr double kTolerance = 1.0e-3;

    explicit StoryGeometry(const CPostDataBase& database);

    const std::vector<StoryNode>& Nodes() const { return nodes_; }
    const std::vector<StoryLevel>& Stories() const { return stories_; }
    /// Place of a node or a story in the lists, by its key; kNoPlace when there is none.
    std::uint32_t PlaceOfNode(std::uint32_t key) const { return placeOfNode_.Find(key); }
    std::uint32_t PlaceOfStory(std::uint32_t key) const { return placeOfStory_.Find(key); }

private:
    void ReadNodes(const CPostDataBase& database);
    void ReadStories(const CDataBase& model);
    void ReadModule(const CDataBase& model, std::uint32_t module);
    void PutNodes();
    void FindBases(StoryLevel& story);
    void FindLines(StoryLevel& story);
    void FindCuts(const CPostDataBase& database);
    void CutElement(const CDataBase& model, const CPostDataBase::Element& element, std::size_t at);

    std::vector<StoryNode> nodes_;
    std::vector<std::uint32_t> byHeight_;  ///< places of nodes, the lowest first
    std::vector<StoryLevel> stories_;
    velda::FlatIndex placeOfNode_;
    velda::FlatIndex placeOfStory_;
};

}  // namespace zt
