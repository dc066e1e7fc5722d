#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "zt_db/core/field.h"

namespace zt {

// Records that the story services give, one for each story. The numbers of a record, in the order of its field list,
// are also the columns of an array that a run may store for it. `part` has an entry for each direction: X, then Y.

/// Status words. Each kind of check has those of its table.
namespace StoryStatus {
inline constexpr int Regular = 0;
inline constexpr int Irregular = 1;
inline constexpr int TorsionExtreme = 2;      ///< second word of the torsion check
inline constexpr int TorsionPairUnknown = 3;  ///< second word of the torsion check: not checked
inline constexpr int NotCompared = 2;         ///< stiffness and weight: there is no story to compare with
inline constexpr int NoStiffness = 3;         ///< stiffness: the story has no drift or no shear
inline constexpr int NotChecked = 4;          ///< torsion and strength: what the check needs is not there
inline constexpr int Bad = 0;                 ///< ratio of shear and weight
inline constexpr int Good = 1;
inline constexpr int Open = 2;    ///< ratio of shear and weight, frame shear: nothing to hold it against
inline constexpr int Absent = 3;  ///< ratio of shear and weight, yield strength: no value
}  // namespace StoryStatus

/// What all records begin with.
struct T_STHEAD_D {
    std::uint32_t seq = 0;  ///< from 1
    std::uint32_t mdul = 0;
    std::uint32_t story = 0;
    double level = 0.0;   ///< length
    double height = 0.0;  ///< length
    int direction = 0;    ///< the direction in which the load case moves the building more: 0 X, 1 Y
};
template <>
struct Fields<T_STHEAD_D> {
    static constexpr auto list = std::tuple{
        Plain("seq", &T_STHEAD_D::seq),
        Plain("mdul", &T_STHEAD_D::mdul),
        Plain("story", &T_STHEAD_D::story),
        Measured("level", &T_STHEAD_D::level, Unit::Length),
        Measured("height", &T_STHEAD_D::height, Unit::Length),
        Plain("direction", &T_STHEAD_D::direction),
    };
};

/// Story displacement in X, in Y, and of both together.
struct T_STDSP_PART {
    double maximum = 0.0;    ///< length
    double average = 0.0;    ///< length, of the extreme points
    std::uint32_t node = 0;  ///< number of the node of the maximum
};
template <>
struct Fields<T_STDSP_PART> {
    static constexpr auto list = std::tuple{
        Measured("maximum", &T_STDSP_PART::maximum, Unit::Length),
        Measured("average", &T_STDSP_PART::average, Unit::Length),
        Plain("node", &T_STDSP_PART::node),
    };
};
struct T_STDSP_D {
    T_STHEAD_D head{};
    std::array<T_STDSP_PART, 3> part{};
};
template <>
struct Fields<T_STDSP_D> {
    static constexpr auto list = std::tuple{Grouped("head", &T_STDSP_D::head), Grouped("part", &T_STDSP_D::part)};
};

/// The drift of a place of a story.
struct T_STDFT_POINT {
    double drift = 0.0;      ///< length
    double angle = 0.0;      ///< drift by story height
    std::uint32_t node = 0;  ///< number of the upper node; 0 for the centre of mass
    double modified = 0.0;   ///< length, amplified by Cd / Ie and for second-order effects
    double ratio = 0.0;      ///< modified drift by story height
    double pDelta = 1.0;     ///< amplification for second-order effects
};
template <>
struct Fields<T_STDFT_POINT> {
    static constexpr auto list = std::tuple{
        Measured("drift", &T_STDFT_POINT::drift, Unit::Length),
        Plain("angle", &T_STDFT_POINT::angle),
        Plain("node", &T_STDFT_POINT::node),
        Measured("modified", &T_STDFT_POINT::modified, Unit::Length),
        Plain("ratio", &T_STDFT_POINT::ratio),
        Plain("pDelta", &T_STDFT_POINT::pDelta),
    };
};
struct T_STDFT_PART {
    int inUse = 0;  ///< 0: the story has no vertical line of nodes
    T_STDFT_POINT maximum{};
    T_STDFT_POINT center{};
};
template <>
struct Fields<T_STDFT_PART> {
    static constexpr auto list = std::tuple{
        Plain("inUse", &T_STDFT_PART::inUse),
        Grouped("maximum", &T_STDFT_PART::maximum),
        Grouped("center", &T_STDFT_PART::center),
    };
};
/// Story drift.
struct T_STDFT_D {
    T_STHEAD_D head{};
    int type = 0;  ///< 1: the story has walls
    std::array<T_STDFT_PART, 2> part{};
};
template <>
struct Fields<T_STDFT_D> {
    static constexpr auto list = std::tuple{
        Grouped("head", &T_STDFT_D::head),
        Plain("type", &T_STDFT_D::type),
        Grouped("part", &T_STDFT_D::part),
    };
};

/// The greatest drift of a time history.
struct T_STDFTTH_PART {
    int inUse = 0;
    std::uint32_t node = 0;     ///< number of the upper node
    double time = 0.0;          ///< s
    double drift = 0.0;         ///< length
    double angle = 0.0;         ///< drift by story height
    double allowable = 0.0;     ///< reciprocal of the allowable angle; below 0 for none
    int isFailed = 0;           ///< 1: the angle exceeds what is allowed
    double averageAngle = 0.0;  ///< greatest angle of the average of the extreme points
    double angleRatio = 0.0;    ///< angle by average angle
};
template <>
struct Fields<T_STDFTTH_PART> {
    static constexpr auto list = std::tuple{
        Plain("inUse", &T_STDFTTH_PART::inUse),
        Plain("node", &T_STDFTTH_PART::node),
        Plain("time", &T_STDFTTH_PART::time),
        Measured("drift", &T_STDFTTH_PART::drift, Unit::Length),
        Plain("angle", &T_STDFTTH_PART::angle),
        Plain("allowable", &T_STDFTTH_PART::allowable),
        Plain("isFailed", &T_STDFTTH_PART::isFailed),
        Plain("averageAngle", &T_STDFTTH_PART::averageAngle),
        Plain("angleRatio", &T_STDFTTH_PART::angleRatio),
    };
};
struct T_STDFTTH_D {
    T_STHEAD_D head{};
    std::array<T_STDFTTH_PART, 2> part{};
};
template <>
struct Fields<T_STDFTTH_D> {
    static constexpr auto list = std::tuple{Grouped("head", &T_STDFTTH_D::head), Grouped("part", &T_STDFTTH_D::part)};
};

/// Torsional irregularity.
struct T_STTIC_PART {
    double averageDrift = 0.0;         ///< length, of the extreme lines
    std::uint32_t node = 0;            ///< number of the upper node of the line that drifts most
    double drift = 0.0;                ///< length, of that line
    double driftRatio = 0.0;           ///< greatest by average
    double averageDisplacement = 0.0;  ///< length
    double displacement = 0.0;         ///< length, the greatest
    double displacementRatio = 0.0;
    int status = StoryStatus::NotChecked;
    int status2 = StoryStatus::TorsionPairUnknown;  ///< tells extreme irregularity besides
};
template <>
struct Fields<T_STTIC_PART> {
    static constexpr auto list = std::tuple{
        Measured("averageDrift", &T_STTIC_PART::averageDrift, Unit::Length),
        Plain("node", &T_STTIC_PART::node),
        Measured("drift", &T_STTIC_PART::drift, Unit::Length),
        Plain("driftRatio", &T_STTIC_PART::driftRatio),
        Measured("averageDisplacement", &T_STTIC_PART::averageDisplacement, Unit::Length),
        Measured("displacement", &T_STTIC_PART::displacement, Unit::Length),
        Plain("displacementRatio", &T_STTIC_PART::displacementRatio),
        Plain("status", &T_STTIC_PART::status),
        Plain("status2", &T_STTIC_PART::status2),
    };
};
struct T_STTIC_D {
    T_STHEAD_D head{};
    std::array<T_STTIC_PART, 2> part{};
};
template <>
struct Fields<T_STTIC_D> {
    static constexpr auto list = std::tuple{Grouped("head", &T_STTIC_D::head), Grouped("part", &T_STTIC_D::part)};
};

/// Stiffness irregularity by one method of taking the drift.
struct T_STSIC_BLOCK {
    double drift = 0.0;       ///< length
    double stiffness = 0.0;   ///< force by length
    double upper07 = 0.0;     ///< 0.7 of the stiffness of the story above
    double upper08 = 0.0;     ///< 0.8 of the mean stiffness of the three stories above
    double ratio = 0.0;       ///< stiffness by that of the story above
    double angleRatio = 0.0;  ///< drift angle by that of the story above
    int status = StoryStatus::NoStiffness;
    int isExtreme = 0;            ///< 1: below 0.6 of the story above or 0.7 of the three above
    int hasNoStiffness = 1;       ///< hides the stiffness
    int hasNoUpper = 1;           ///< hides what belongs to the story above
    int hasNoUpperThree = 1;      ///< hides what belongs to the three stories above
    double shear = 0.0;           ///< force
    double upperStiffness = 0.0;  ///< force by length
    double angle = 0.0;
    double angle13 = 0.0;          ///< 1.3 of the angle of the story above
    double angle12 = 0.0;          ///< 1.2 of the mean angle of the three stories above
    double angleRatioThree = 0.0;  ///< angle by that mean
    int angleStatus = StoryStatus::NotCompared;
};
template <>
struct Fields<T_STSIC_BLOCK> {
    static constexpr auto list = std::tuple{
        Measured("drift", &T_STSIC_BLOCK::drift, Unit::Length),
        Measured("stiffness", &T_STSIC_BLOCK::stiffness, Unit::Stiffness),
        Measured("upper07", &T_STSIC_BLOCK::upper07, Unit::Stiffness),
        Measured("upper08", &T_STSIC_BLOCK::upper08, Unit::Stiffness),
        Plain("ratio", &T_STSIC_BLOCK::ratio),
        Plain("angleRatio", &T_STSIC_BLOCK::angleRatio),
        Plain("status", &T_STSIC_BLOCK::status),
        Plain("isExtreme", &T_STSIC_BLOCK::isExtreme),
        Plain("hasNoStiffness", &T_STSIC_BLOCK::hasNoStiffness),
        Plain("hasNoUpper", &T_STSIC_BLOCK::hasNoUpper),
        Plain("hasNoUpperThree", &T_STSIC_BLOCK::hasNoUpperThree),
        Measured("shear", &T_STSIC_BLOCK::shear, Unit::Force),
        Measured("upperStiffness", &T_STSIC_BLOCK::upperStiffness, Unit::Stiffness),
        Plain("angle", &T_STSIC_BLOCK::angle),
        Plain("angle13", &T_STSIC_BLOCK::angle13),
        Plain("angle12", &T_STSIC_BLOCK::angle12),
        Plain("angleRatioThree", &T_STSIC_BLOCK::angleRatioThree),
        Plain("angleStatus", &T_STSIC_BLOCK::angleStatus),
    };
};
struct T_STSIC_PART {
    std::array<T_STSIC_BLOCK, 2> method{};  ///< by DriftMethod
};
template <>
struct Fields<T_STSIC_PART> {
    static constexpr auto list = std::tuple{Grouped("method", &T_STSIC_PART::method)};
};
struct T_STSIC_D {
    T_STHEAD_D head{};
    std::array<T_STSIC_PART, 2> part{};
};
template <>
struct Fields<T_STSIC_D> {
    static constexpr auto list = std::tuple{Grouped("head", &T_STSIC_D::head), Grouped("part", &T_STSIC_D::part)};
};

/// Weight irregularity; the status words are numbers with a fraction, as their table reads them.
struct T_STWIC_PART {
    double weight = 0.0;       ///< force
    double upperWeight = 0.0;  ///< force
    double lowerWeight = 0.0;  ///< force
    double ratio = 0.0;        ///< by the lighter neighbour that counts
    double angleRatio = 0.0;   ///< drift angle by that of the story above, the greatest drifts
    double status = StoryStatus::NotCompared;
    double angleRatioCenter = 0.0;  ///< the same of the centre of mass
    double statusCenter = StoryStatus::NotCompared;
    int hasNoUpper = 1;
    int hasNoLower = 1;
};
template <>
struct Fields<T_STWIC_PART> {
    static constexpr auto list = std::tuple{
        Measured("weight", &T_STWIC_PART::weight, Unit::Force),
        Measured("upperWeight", &T_STWIC_PART::upperWeight, Unit::Force),
        Measured("lowerWeight", &T_STWIC_PART::lowerWeight, Unit::Force),
        Plain("ratio", &T_STWIC_PART::ratio),
        Plain("angleRatio", &T_STWIC_PART::angleRatio),
        Plain("status", &T_STWIC_PART::status),
        Plain("angleRatioCenter", &T_STWIC_PART::angleRatioCenter),
        Plain("statusCenter", &T_STWIC_PART::statusCenter),
        Plain("hasNoUpper", &T_STWIC_PART::hasNoUpper),
        Plain("hasNoLower", &T_STWIC_PART::hasNoLower),
    };
};
struct T_STWIC_D {
    T_STHEAD_D head{};
    std::array<T_STWIC_PART, 2> part{};
};
template <>
struct Fields<T_STWIC_D> {
    static constexpr auto list = std::tuple{Grouped("head", &T_STWIC_D::head), Grouped("part", &T_STWIC_D::part)};
};

/// Strength irregularity.
struct T_STCIC_PART {
    double strength = 0.0;       ///< force
    double upperStrength = 0.0;  ///< force
    double ratio = 0.0;
    int status = StoryStatus::NotChecked;
    int hide = 1;
};
template <>
struct Fields<T_STCIC_PART> {
    static constexpr auto list = std::tuple{
        Measured("strength", &T_STCIC_PART::strength, Unit::Force),
        Measured("upperStrength", &T_STCIC_PART::upperStrength, Unit::Force),
        Plain("ratio", &T_STCIC_PART::ratio),
        Plain("status", &T_STCIC_PART::status),
        Plain("hide", &T_STCIC_PART::hide),
    };
};
struct T_STCIC_D {
    T_STHEAD_D head{};
    std::array<T_STCIC_PART, 2> part{};
};
template <>
struct Fields<T_STCIC_D> {
    static constexpr auto list = std::tuple{Grouped("head", &T_STCIC_D::head), Grouped("part", &T_STCIC_D::part)};
};

/// How much of a story shear is told.
namespace ShearStatus {
inline constexpr int WithShares = 0;
inline constexpr int SumOnly = 1;
inline constexpr int None = 2;
}  // namespace ShearStatus

/// Story shear and who carries it.
struct T_STSFR_PART {
    double frame = 0.0;  ///< force
    double brace = 0.0;  ///< force
    double wall = 0.0;   ///< force; 0 while walls are not analysed
    double sum = 0.0;    ///< force
    double frameRatio = 0.0;
    double braceRatio = 0.0;
    double wallRatio = 0.0;
    int status = ShearStatus::None;
};
template <>
struct Fields<T_STSFR_PART> {
    static constexpr auto list = std::tuple{
        Measured("frame", &T_STSFR_PART::frame, Unit::Force), Measured("brace", &T_STSFR_PART::brace, Unit::Force),
        Measured("wall", &T_STSFR_PART::wall, Unit::Force),   Measured("sum", &T_STSFR_PART::sum, Unit::Force),
        Plain("frameRatio", &T_STSFR_PART::frameRatio),       Plain("braceRatio", &T_STSFR_PART::braceRatio),
        Plain("wallRatio", &T_STSFR_PART::wallRatio),         Plain("status", &T_STSFR_PART::status),
    };
};
struct T_STSFR_D {
    T_STHEAD_D head{};
    std::array<T_STSFR_PART, 2> part{};
};
template <>
struct Fields<T_STSFR_D> {
    static constexpr auto list = std::tuple{Grouped("head", &T_STSFR_D::head), Grouped("part", &T_STSFR_D::part)};
};

/// Torsional amplification of accidental torsion.
struct T_STTAF_PART {
    double average = 0.0;       ///< length
    std::uint32_t node = 0;     ///< number
    double displacement = 0.0;  ///< length, of that node
    double factor = 1.0;
};
template <>
struct Fields<T_STTAF_PART> {
    static constexpr auto list = std::tuple{
        Measured("average", &T_STTAF_PART::average, Unit::Length),
        Plain("node", &T_STTAF_PART::node),
        Measured("displacement", &T_STTAF_PART::displacement, Unit::Length),
        Plain("factor", &T_STTAF_PART::factor),
    };
};
struct T_STTAF_D {
    T_STHEAD_D head{};
    std::array<T_STTAF_PART, 2> part{};
};
template <>
struct Fields<T_STTAF_D> {
    static constexpr auto list = std::tuple{Grouped("head", &T_STTAF_D::head), Grouped("part", &T_STTAF_D::part)};
};

/// Stability coefficient; the arrays are by DriftMethod.
struct T_STBCF_PART {
    double verticalLoad = 0.0;      ///< force, at and above the story
    double shear = 0.0;             ///< force
    std::array<double, 2> drift{};  ///< length, amplified by Cd / Ie
    double beta = 1.0;              ///< shear demand by capacity
    double limit = 0.0;             ///< greatest coefficient that is allowed
    std::array<double, 2> theta{};
    std::array<double, 2> increment{1.0, 1.0};  ///< amplification for second-order effects
    int isChecked = 0;                          ///< 0: vertical loads, shear or drift are missing
};
template <>
struct Fields<T_STBCF_PART> {
    static constexpr auto list = std::tuple{
        Measured("verticalLoad", &T_STBCF_PART::verticalLoad, Unit::Force),
        Measured("shear", &T_STBCF_PART::shear, Unit::Force),
        Measured("drift", &T_STBCF_PART::drift, Unit::Length),
        Plain("beta", &T_STBCF_PART::beta),
        Plain("limit", &T_STBCF_PART::limit),
        Plain("theta", &T_STBCF_PART::theta),
        Plain("increment", &T_STBCF_PART::increment),
        Plain("isChecked", &T_STBCF_PART::isChecked),
    };
};
struct T_STBCF_D {
    T_STHEAD_D head{};
    std::array<T_STBCF_PART, 2> part{};
};
template <>
struct Fields<T_STBCF_D> {
    static constexpr auto list = std::tuple{Grouped("head", &T_STBCF_D::head), Grouped("part", &T_STBCF_D::part)};
};

/// Words of the check of structural stability.
namespace StabilityWord {
inline constexpr int No = 0;   ///< unstable; second-order effects need no account
inline constexpr int Yes = 1;  ///< stable; second-order effects need account
inline constexpr int NotChecked = 2;
}  // namespace StabilityWord

/// Structural stability of one story, or of the whole building. The unit of the stiffness differs.
template <int StiffnessUnit>
struct T_STSTC_CHECK {
    double stiffness = -1.0;  ///< exactly -1 for none, whatever the units are
    double height = 0.0;      ///< length
    double gravity = 0.0;     ///< force, the gravity loads at and above
    double ratio = 0.0;       ///< of stiffness to gravity
    int stability = StabilityWord::NotChecked;
    int secondOrder = StabilityWord::NotChecked;
};
template <int StiffnessUnit>
struct Fields<T_STSTC_CHECK<StiffnessUnit>> {
    using Check = T_STSTC_CHECK<StiffnessUnit>;
    static constexpr auto list = std::tuple{
        Measured("stiffness", &Check::stiffness, StiffnessUnit),
        Measured("height", &Check::height, Unit::Length),
        Measured("gravity", &Check::gravity, Unit::Force),
        Plain("ratio", &Check::ratio),
        Plain("stability", &Check::stability),
        Plain("secondOrder", &Check::secondOrder),
    };
};
struct T_STSTC_PART {
    T_STSTC_CHECK<Unit::Stiffness> frame{};         ///< of this story, in a building of frames: Di
    T_STSTC_CHECK<Unit::FlexuralRigidity> whole{};  ///< of the whole building, one of walls: EJd, not checked
};
template <>
struct Fields<T_STSTC_PART> {
    static constexpr auto list = std::tuple{
        Grouped("frame", &T_STSTC_PART::frame),
        Grouped("whole", &T_STSTC_PART::whole),
    };
};
struct T_STSTC_D {
    T_STHEAD_D head{};
    std::array<T_STSTC_PART, 2> part{};
};
template <>
struct Fields<T_STSTC_D> {
    static constexpr auto list = std::tuple{Grouped("head", &T_STSTC_D::head), Grouped("part", &T_STSTC_D::part)};
};

/// Overturning moment at the foot of a story; the arrays are by the method of the drift restriction: as it is, and
/// reduced from the top of the building downwards.
struct T_STOTM_PART {
    double frame = 0.0;  ///< moment that the frame carries
    double wall2 = 0.0;  ///< moment that braces carry
    double wall = 0.0;   ///< moment that walls carry; 0 while they are not analysed
    double sum = 0.0;    ///< moment
    double share = 0.0;  ///< of the frame in the sum
    double limitShare = 0.5;
    int check = 0;                              ///< 1: the share does not exceed the limit
    int shareHide = 2;                          ///< 2: shares are not known
    std::array<double, 2> modified{};           ///< moment
    std::array<double, 2> reduction{1.0, 1.0};  ///< its factor
    int hide = 2;                               ///< 2: no story shears
};
template <>
struct Fields<T_STOTM_PART> {
    static constexpr auto list = std::tuple{
        Measured("frame", &T_STOTM_PART::frame, Unit::Moment),
        Measured("wall2", &T_STOTM_PART::wall2, Unit::Moment),
        Measured("wall", &T_STOTM_PART::wall, Unit::Moment),
        Measured("sum", &T_STOTM_PART::sum, Unit::Moment),
        Plain("share", &T_STOTM_PART::share),
        Plain("limitShare", &T_STOTM_PART::limitShare),
        Plain("check", &T_STOTM_PART::check),
        Plain("shareHide", &T_STOTM_PART::shareHide),
        Measured("modified", &T_STOTM_PART::modified, Unit::Moment),
        Plain("reduction", &T_STOTM_PART::reduction),
        Plain("hide", &T_STOTM_PART::hide),
    };
};
struct T_STOTM_D {
    T_STHEAD_D head{};
    std::array<T_STOTM_PART, 2> part{};
};
template <>
struct Fields<T_STOTM_D> {
    static constexpr auto list = std::tuple{Grouped("head", &T_STOTM_D::head), Grouped("part", &T_STOTM_D::part)};
};

/// Eccentricity of a story; the arrays are by direction.
struct T_STECC_D {
    T_STHEAD_D head{};
    std::array<double, 2> mass{};          ///< length, place of the centre of mass
    std::array<double, 2> rigidity{};      ///< length, place of the centre of rigidity
    std::array<double, 2> eccentricity{};  ///< length, between both
    double torsion = 0.0;                  ///< moment by rad, about the centre of rigidity
    std::array<double, 2> radius{};        ///< length, elastic radius
    std::array<double, 2> ratio{};         ///< eccentricity by elastic radius of the loads along this axis
    int isChecked = 0;                     ///< 0: no mass or no stiffness
};
template <>
struct Fields<T_STECC_D> {
    static constexpr auto list = std::tuple{
        Grouped("head", &T_STECC_D::head),
        Measured("mass", &T_STECC_D::mass, Unit::Length),
        Measured("rigidity", &T_STECC_D::rigidity, Unit::Length),
        Measured("eccentricity", &T_STECC_D::eccentricity, Unit::Length),
        Measured("torsion", &T_STECC_D::torsion, Unit::RotationalStiffness),
        Measured("radius", &T_STECC_D::radius, Unit::Length),
        Plain("ratio", &T_STECC_D::ratio),
        Plain("isChecked", &T_STECC_D::isChecked),
    };
};

/// Weight of the members of a story by their kind; all forces.
struct T_STSWT_D {
    T_STHEAD_D head{};
    double column = 0.0;
    double beam = 0.0;
    double brace = 0.0;
    double wall = 0.0;
    double slab = 0.0;
    double sum = 0.0;
};
template <>
struct Fields<T_STSWT_D> {
    static constexpr auto list = std::tuple{
        Grouped("head", &T_STSWT_D::head),
        Measured("column", &T_STSWT_D::column, Unit::Force),
        Measured("beam", &T_STSWT_D::beam, Unit::Force),
        Measured("brace", &T_STSWT_D::brace, Unit::Force),
        Measured("wall", &T_STSWT_D::wall, Unit::Force),
        Measured("slab", &T_STSWT_D::slab, Unit::Force),
        Measured("sum", &T_STSWT_D::sum, Unit::Force),
    };
};

/// Mass of a story and its centre.
struct T_STSMS_D {
    T_STHEAD_D head{};
    std::array<double, 3> mass{};    ///< mass along X, Y, Z
    double rotational = 0.0;         ///< rotational mass about the vertical through the centre
    std::array<double, 2> center{};  ///< length
};
template <>
struct Fields<T_STSMS_D> {
    static constexpr auto list = std::tuple{
        Grouped("head", &T_STSMS_D::head),
        Measured("mass", &T_STSMS_D::mass, Unit::Mass),
        Measured("rotational", &T_STSMS_D::rotational, Unit::RotationalMass),
        Measured("center", &T_STSMS_D::center, Unit::Length),
    };
};

/// Loads of a static load case on a story: forces along X, Y, Z.
struct T_STSLD_D {
    T_STHEAD_D head{};
    std::array<double, 3> load{};
};
template <>
struct Fields<T_STSLD_D> {
    static constexpr auto list =
        std::tuple{Grouped("head", &T_STSLD_D::head), Measured("load", &T_STSLD_D::load, Unit::Force)};
};

/// Sum of the vertical forces that cross a story, pressure positive, and where it acts.
struct T_STAFS_D {
    T_STHEAD_D head{};
    double force = 0.0;
    std::array<double, 2> center{};  ///< length
};
template <>
struct Fields<T_STAFS_D> {
    static constexpr auto list = std::tuple{
        Grouped("head", &T_STAFS_D::head),
        Measured("force", &T_STAFS_D::force, Unit::Force),
        Measured("center", &T_STAFS_D::center, Unit::Length),
    };
};

/// Yield strength against the shear of an earthquake.
struct T_STYSC_PART {
    double strength = 0.0;  ///< force
    double shear = 0.0;     ///< force
    double ratio = 0.0;
    int status = StoryStatus::Absent;
};
template <>
struct Fields<T_STYSC_PART> {
    static constexpr auto list = std::tuple{
        Measured("strength", &T_STYSC_PART::strength, Unit::Force),
        Measured("shear", &T_STYSC_PART::shear, Unit::Force),
        Plain("ratio", &T_STYSC_PART::ratio),
        Plain("status", &T_STYSC_PART::status),
    };
};
struct T_STYSC_D {
    T_STHEAD_D head{};
    std::array<T_STYSC_PART, 2> part{};
};
template <>
struct Fields<T_STYSC_D> {
    static constexpr auto list = std::tuple{Grouped("head", &T_STYSC_D::head), Grouped("part", &T_STYSC_D::part)};
};

/// Least shear that the frame of a dual system is designed for.
struct T_ST02Q_PART {
    double frame = 0.0;        ///< force
    double shareOfBase = 0.0;  ///< force, 0.2 (or 0.25) of the base shear
    double shareOfMost = 0.0;  ///< force, 1.5 (or 1.8) of the greatest frame shear of all stories
    double least = 0.0;        ///< force, the smaller of both
    double userFactor = 0.0;
    int isAbsent = 1;  ///< not 0: no frame shears
    int status = StoryStatus::Open;
};
template <>
struct Fields<T_ST02Q_PART> {
    static constexpr auto list = std::tuple{
        Measured("frame", &T_ST02Q_PART::frame, Unit::Force),
        Measured("shareOfBase", &T_ST02Q_PART::shareOfBase, Unit::Force),
        Measured("shareOfMost", &T_ST02Q_PART::shareOfMost, Unit::Force),
        Measured("least", &T_ST02Q_PART::least, Unit::Force),
        Plain("userFactor", &T_ST02Q_PART::userFactor),
        Plain("isAbsent", &T_ST02Q_PART::isAbsent),
        Plain("status", &T_ST02Q_PART::status),
    };
};
struct T_ST02Q_D {
    T_STHEAD_D head{};
    std::array<T_ST02Q_PART, 2> part{};
};
template <>
struct Fields<T_ST02Q_D> {
    static constexpr auto list = std::tuple{Grouped("head", &T_ST02Q_D::head), Grouped("part", &T_ST02Q_D::part)};
};

/// Ratio of story shear to the weight at and above.
struct T_STSFC_PART {
    double shear = 0.0;   ///< force
    double weight = 0.0;  ///< force
    double ratio = 0.0;
    double allowable = 0.0;
    double coefficient = 0.0;  ///< what raises the shear to the allowable ratio; 0 where it need not
    int status = StoryStatus::Absent;
};
template <>
struct Fields<T_STSFC_PART> {
    static constexpr auto list = std::tuple{
        Measured("shear", &T_STSFC_PART::shear, Unit::Force),
        Measured("weight", &T_STSFC_PART::weight, Unit::Force),
        Plain("ratio", &T_STSFC_PART::ratio),
        Plain("allowable", &T_STSFC_PART::allowable),
        Plain("coefficient", &T_STSFC_PART::coefficient),
        Plain("status", &T_STSFC_PART::status),
    };
};
struct T_STSFC_D {
    T_STHEAD_D head{};
    std::array<T_STSFC_PART, 2> part{};
};
template <>
struct Fields<T_STSFC_D> {
    static constexpr auto list = std::tuple{Grouped("head", &T_STSFC_D::head), Grouped("part", &T_STSFC_D::part)};
};

/// Extreme story shears of a time history.
struct T_STSHRTH_PART {
    double maximum = 0.0;      ///< force
    double minimum = 0.0;      ///< force
    double maximumTime = 0.0;  ///< s
    double minimumTime = 0.0;  ///< s
};
template <>
struct Fields<T_STSHRTH_PART> {
    static constexpr auto list = std::tuple{
        Measured("maximum", &T_STSHRTH_PART::maximum, Unit::Force),
        Measured("minimum", &T_STSHRTH_PART::minimum, Unit::Force),
        Plain("maximumTime", &T_STSHRTH_PART::maximumTime),
        Plain("minimumTime", &T_STSHRTH_PART::minimumTime),
    };
};
struct T_STSHRTH_D {
    T_STHEAD_D head{};
    std::array<T_STSHRTH_PART, 2> part{};
};
template <>
struct Fields<T_STSHRTH_D> {
    static constexpr auto list = std::tuple{Grouped("head", &T_STSHRTH_D::head), Grouped("part", &T_STSHRTH_D::part)};
};

/// Story shear of a spectrum case and the accidental torsion that goes with it.
struct T_STSHRRS_PART {
    double shear = 0.0;         ///< force
    double force = 0.0;         ///< force, between this story and the one above
    double eccentricity = 0.0;  ///< length, accidental
    double moment = 0.0;        ///< moment of the force at the eccentricity
};
template <>
struct Fields<T_STSHRRS_PART> {
    static constexpr auto list = std::tuple{
        Measured("shear", &T_STSHRRS_PART::shear, Unit::Force),
        Measured("force", &T_STSHRRS_PART::force, Unit::Force),
        Measured("eccentricity", &T_STSHRRS_PART::eccentricity, Unit::Length),
        Measured("moment", &T_STSHRRS_PART::moment, Unit::Moment),
    };
};
struct T_STSHRRS_D {
    T_STHEAD_D head{};
    std::array<T_STSHRRS_PART, 2> part{};
};
template <>
struct Fields<T_STSHRRS_D> {
    static constexpr auto list = std::tuple{Grouped("head", &T_STSHRRS_D::head), Grouped("part", &T_STSHRRS_D::part)};
};

/// Story shears of up to three time histories beside that of a spectrum case.
struct T_STSSF_PART {
    std::array<double, 3> history{};  ///< force, the greatest magnitudes
    double mean = 0.0;                ///< force, of the histories there are
    double spectrum = 0.0;            ///< force
};
template <>
struct Fields<T_STSSF_PART> {
    static constexpr auto list = std::tuple{
        Measured("history", &T_STSSF_PART::history, Unit::Force),
        Measured("mean", &T_STSSF_PART::mean, Unit::Force),
        Measured("spectrum", &T_STSSF_PART::spectrum, Unit::Force),
    };
};
struct T_STSSF_D {
    T_STHEAD_D head{};
    std::array<T_STSSF_PART, 2> part{};
};
template <>
struct Fields<T_STSSF_D> {
    static constexpr auto list = std::tuple{Grouped("head", &T_STSSF_D::head), Grouped("part", &T_STSSF_D::part)};
};

/// A mode at the centre of mass of a story, as the run scaled it.
struct T_STMODE_D {
    T_STHEAD_D head{};
    std::array<double, 2> center{};  ///< length
    int mode = 0;
    std::array<double, 6> value{};  ///< means of the translations; of the rotations that about the vertical
};
template <>
struct Fields<T_STMODE_D> {
    static constexpr auto list = std::tuple{
        Grouped("head", &T_STMODE_D::head),
        Measured("center", &T_STMODE_D::center, Unit::Length),
        Plain("mode", &T_STMODE_D::mode),
        Plain("value", &T_STMODE_D::value),
    };
};

/// Shear stiffness of a story against that of the one above.
struct T_SSIT_D {
    std::string module{};
    std::string story{};
    double ga1 = 0.0;
    double ga2 = 0.0;
    double h1 = 0.0;
    double h2 = 0.0;
};

}  // namespace zt
