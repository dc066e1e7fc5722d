#pragma once

#include <array>

#include "zt_db/post/story/story_geometry.h"
#include "zt_db/post/story/story_response.h"

namespace zt {

/// Weights of the members of a story, in N.
struct StoryWeights {
    double column = 0.0;
    double beam = 0.0;
    double brace = 0.0;
    double wall = 0.0;
    double slab = 0.0;
};

/// Mass of a story, in kg and kg m2, and its centre in the plan.
struct StoryMass {
    Vector3 mass{};
    double rotational = 0.0;
    std::array<double, 2> center{};
};

/// All that the story services need of an analysed model besides its results. It is made once for a result database.
/// Directions are 0 for X and 1 for Y.
class StoryModel {
public:
    explicit StoryModel(const CPostDataBase& database);

    const StoryGeometry& Geometry() const { return geometry_; }
    const std::vector<StoryLevel>& Stories() const { return geometry_.Stories(); }
    const std::vector<Vector3>& Masses() const { return masses_; }  ///< of the nodes
    const std::vector<StoryWeights>& Weights() const { return weights_; }
    const std::vector<StoryMass>& StoryMasses() const { return storyMasses_; }
    /// Weight of the masses of a story and of those above it, in a direction.
    double WeightAtAndAbove(std::size_t story, std::size_t direction) const;
    /// The width of a story across a direction.
    double WidthAcross(std::size_t story, std::size_t direction) const;

    // ---- quantities of stories; displacements without nodes that have results give forms without terms

    ResponseForm Displacement(std::uint32_t node, std::size_t direction) const;
    /// The mean of the two edges of a story that lie farthest apart across the direction; each edge is the mean of its
    /// nodes (ASCE/SEI 7-16, 12.8.4.3: the average of the extreme points).
    ResponseForm AverageDisplacement(std::size_t story, std::size_t direction) const;
    ResponseForm CenterDisplacement(std::size_t story, std::size_t direction) const;
    ResponseForm Drift(const StoryLine& line, std::size_t direction) const;
    ResponseForm AverageDrift(std::size_t story, std::size_t direction) const;
    ResponseForm CenterDrift(std::size_t story, std::size_t direction) const;

    /// What frame members give to the forces that cross a story.
    enum class Carrier { All, Frame, Brace };
    /// The horizontal force that what is above a story gives to it.
    ResponseForm Shear(std::size_t story, std::size_t direction, Carrier carrier = Carrier::All) const;
    /// The vertical force that what is above gives to a story, pressure positive; factored by the place of each
    /// member along X (0) or Y (1), or plain (2).
    ResponseForm Pressure(std::size_t story, std::size_t lever) const;

private:
    void ReadMasses(const CPostDataBase& database);
    void ReadMembers(const CDataBase& model, bool isMass);
    void AddMassOfLoads(const CDataBase& model, std::uint32_t stld, double factor);
    void SumMasses();
    ResponseForm MeanOf(const std::vector<std::uint32_t>& nodes, std::size_t direction) const;

    StoryGeometry geometry_;
    std::size_t stations_ = 2;  ///< along each element
    std::vector<Vector3> masses_;
    std::vector<StoryWeights> weights_;
    std::vector<StoryMass> storyMasses_;
};

}  // namespace zt
