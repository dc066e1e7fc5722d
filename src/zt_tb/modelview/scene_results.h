#pragma once

#include <string>
#include <vector>

#include "zt_db/post/post_ctrl.h"
#include "zt_tb/modelview/model_scene.h"
#include "zt_tb/post/load_choice.h"

namespace zt {

/// How a node moves, in m, and turns, in rad.
struct NodeShift {
    std::uint32_t no = 0;  ///< number of the node
    Vec3 move{};
    Vec3 turn{};
};

/// How a model moves under a load case, as it is handed to the model view.
struct DeformedShape {
    std::string title{};
    std::vector<NodeShift> nodes{};
};

/// The displacements of all nodes in a load case or combination: the greatest, the least or the governing values, as
/// the choice says. No nodes when there are no such results.
DeformedShape DeformedShapeOf(const CPostCtrl& results, const LoadChoice& choice);

/// The value of a node or a member of a number.
struct NumberedValue {
    std::uint32_t no = 0;
    double value = 0.0;
};

/// Values that the model view draws as colours, as they are handed to it. A node or member without a value is grey.
struct ResultColours {
    std::string title{};
    std::string unit{};
    std::vector<NumberedValue> nodes{};
    std::vector<NumberedValue> members{};
};

/// A deformed shape at the places of a scene's nodes.
class SceneDeformation {
public:
    /// Takes the nodes of a shape to their places; nodes that the model does not have are left out.
    void Build(const CDataBase& database, const ModelScene& scene, const DeformedShape& shape);

    void Clear() { moves_.clear(); }
    bool IsEmpty() const { return moves_.empty(); }
    /// What displacements are drawn larger by: a round number, so that the greatest is about a twentieth of the
    /// building, times the factor of the user.
    double Scale() const { return scale_ * factor_; }
    void SetFactor(double factor) { factor_ = factor; }
    double Factor() const { return factor_; }
    /// The greatest displacement, in m.
    double Greatest() const { return greatest_; }
    /// Where the node at a place is drawn.
    Vec3 PlaceOf(const SceneNode& node, std::uint32_t at) const {
        return at < moves_.size() ? node.place + moves_[at].move * Scale() : node.place;
    }
    /// A place on a member, from 0 to 1 along it: a cubic curve between the moves and turns of its nodes.
    Vec3 PlaceOn(const ModelScene& scene, const SceneLine& line, double along) const;

private:
    struct Shift {
        Vec3 move{};
        Vec3 turn{};
    };

    std::vector<Shift> moves_;
    double greatest_ = 0.0;
    double scale_ = 1.0;
    double factor_ = 1.0;
};

/// Steps of colour from the least value to the greatest.
inline constexpr std::uint8_t kColorSteps = 9;
/// What has no value.
inline constexpr std::uint8_t kNoColor = kColorSteps;

/// The steps of colour of a scene's nodes and members, by their places.
class SceneColors {
public:
    void Build(const CDataBase& database, const ModelScene& scene, const ResultColours& values);

    bool IsEmpty() const { return nodes_.empty(); }
    /// The title with the unit.
    std::string Title() const;
    double Least() const { return least_; }
    double Greatest() const { return greatest_; }
    /// Values at the ends of the steps, from the least to the greatest; empty when nothing has a value.
    std::vector<double> Limits() const;

    std::uint8_t StepOfNode(std::size_t at) const { return At(nodes_, at); }
    std::uint8_t StepOfLine(std::size_t at) const { return At(lines_, at); }
    std::uint8_t StepOfFace(std::size_t at) const { return At(faces_, at); }

private:
    static std::uint8_t At(const std::vector<std::uint8_t>& steps, std::size_t at) {
        return at < steps.size() ? steps[at] : kNoColor;
    }
    std::uint8_t StepOf(double value) const;

    std::string title_;
    std::string unit_;
    bool hasValues_ = false;
    double least_ = 0.0;
    double greatest_ = 0.0;
    std::vector<std::uint8_t> nodes_;
    std::vector<std::uint8_t> lines_;
    std::vector<std::uint8_t> faces_;
};

/// A value beside a step of colour, rounded to four digits.
std::string ColorText(double value);

}  // namespace zt
