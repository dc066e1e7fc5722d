#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "velda_lib/outcome.h"

namespace zt {

/// What tells results from others: the run that made them and the state of the model that they belong to.
struct ResultHead {
    std::string run{};          ///< different for every run
    std::string fingerprint{};  ///< of the model, see FingerprintOf
    std::string time{};         ///< when the run ended, as text
    std::string solver{};
    std::uint32_t stations = 9;  ///< evenly spaced along each element, its ends included
};

/// A load case that results exist of.
struct ResultCase {
    int kind = 0;  ///< one of LoadCaseKind
    std::uint32_t key = 0;
    std::string name{};
    std::string type{};
    bool operator==(const ResultCase&) const = default;
};

/// Rows of numbers of one array, read as they are asked for. An array that does not exist has no rows.
class ResultArray {
public:
    /// Brings rows to memory where they are not there already.
    class Loader {
    public:
        virtual ~Loader() = default;
        /// The row; it lasts until the next call. Null when it cannot be read.
        virtual const double* Row(std::size_t row) const = 0;
    };

    ResultArray() = default;
    /// `keeper` holds what the values lie in, where that may go before the array.
    ResultArray(const double* values, std::size_t rows, std::size_t columns, std::shared_ptr<const void> keeper = {})
        : values_(values), keeper_(std::move(keeper)), rows_(rows), columns_(columns) {}
    ResultArray(std::shared_ptr<const Loader> loader, std::size_t rows, std::size_t columns)
        : loader_(std::move(loader)), rows_(rows), columns_(columns) {}

    std::size_t Rows() const { return rows_; }
    std::size_t Columns() const { return columns_; }
    explicit operator bool() const { return rows_ > 0; }
    /// The values of a row; they last until the next call. Null when there is no such row or it cannot be read.
    const double* Row(std::size_t row) const {
        if (row >= rows_) return nullptr;
        return values_ ? values_ + row * columns_ : loader_->Row(row);
    }
    double At(std::size_t row, std::size_t column) const {
        const double* values = column < columns_ ? Row(row) : nullptr;
        return values ? values[column] : 0.0;
    }

private:
    const double* values_ = nullptr;
    std::shared_ptr<const void> keeper_;
    std::shared_ptr<const Loader> loader_;
    std::size_t rows_ = 0;
    std::size_t columns_ = 0;
};

/// Results as they were stored: a head, the load cases, and arrays that are known by names such as "modal/shape/1".
/// Values are in SI units. See docs/result-file.md for the names.
class ResultSource {
public:
    virtual ~ResultSource() = default;
    virtual const ResultHead& Head() const = 0;
    virtual const std::vector<ResultCase>& Cases() const = 0;
    virtual ResultArray Array(std::string_view name) const = 0;
    virtual std::vector<std::uint32_t> Keys(std::string_view name) const = 0;
    /// Names of all arrays and key lists, in the order of the alphabet.
    virtual std::vector<std::string> Names() const = 0;
};

/// Takes results. After the first refusal nothing more is taken.
class ResultSink {
public:
    virtual ~ResultSink() = default;
    virtual velda::Outcome PutHead(const ResultHead& head) = 0;
    virtual velda::Outcome PutCase(const ResultCase& loadCase) = 0;
    /// Row after row of `columns` values.
    virtual velda::Outcome PutArray(std::string_view name, std::size_t columns, std::span<const double> values) = 0;
    virtual velda::Outcome PutKeys(std::string_view name, std::span<const std::uint32_t> keys) = 0;
};

/// Names of what the arrays are about.
namespace ResultName {
inline constexpr std::string_view Nodes = "model/node";                     ///< keys: numbers of the nodes
inline constexpr std::string_view Supports = "model/support";               ///< keys: numbers of the supported nodes
inline constexpr std::string_view ElementMembers = "model/element_member";  ///< keys: number of each element's member
inline constexpr std::string_view ElementEnds = "model/element_node";       ///< keys: numbers of both end nodes
inline constexpr std::string_view ElementRanges = "model/element_range";    ///< where along its member it lies, 0 to 1
inline constexpr std::string_view Links = "model/link";                     ///< keys: numbers of elastic links
inline constexpr std::string_view LinkEnds = "model/link_node";      ///< keys: numbers of both nodes of each link
inline constexpr std::string_view SlabNodes = "model/slab_node";     ///< keys: number of a slab and of a node of it
inline constexpr std::string_view Designed = "model/design_member";  ///< keys: numbers of the designed members
/// Keys, four a pushover case: the case, the number of its load increments, the case that it starts from or 0, and 1
/// where it loads the structure before the others.
inline constexpr std::string_view PushoverCases = "model/pushover_case";
inline constexpr std::string_view PushoverStages = "model/pushover_stage";  ///< keys: the case of each stage

inline constexpr std::string_view Frequency = "modal/frequency";           ///< Hz, one a mode
inline constexpr std::string_view Participation = "modal/participation";   ///< factors, six a mode
inline constexpr std::string_view EffectiveMass = "modal/effective_mass";  ///< kg and kg m2, six a mode
inline constexpr std::string_view TotalMass = "modal/total_mass";          ///< one row
inline constexpr std::string_view Shape = "modal/shape/";                  ///< then the number of the mode

// Of a load case, behind CasePath.
inline constexpr std::string_view Displacement = "displacement";  ///< of all nodes
inline constexpr std::string_view Velocity = "velocity";
inline constexpr std::string_view RelativeAcceleration = "relative_acceleration";
inline constexpr std::string_view AbsoluteAcceleration = "absolute_acceleration";
inline constexpr std::string_view Reaction = "reaction";           ///< of all supports
inline constexpr std::string_view ReactionSum = "reaction_sum";    ///< one row
inline constexpr std::string_view LoadSum = "load_sum";            ///< one row
inline constexpr std::string_view ElementForce = "element_force";  ///< of all elements, a row a station
inline constexpr std::string_view DesignForce = "design_force";  ///< likewise, that designed members were designed for
inline constexpr std::string_view LinkForce = "link_force";      ///< of all links, twelve a row: ends i and j
inline constexpr std::string_view SlabForce = "slab_force";      ///< of all pairs of a slab and a node
inline constexpr std::string_view Coordinate = "coordinate";     ///< of the modes, a row a state
inline constexpr std::string_view CoordinateAcceleration = "coordinate_acceleration";
inline constexpr std::string_view Ground = "ground";  ///< acceleration, a row a state
inline constexpr std::string_view Step = "step";      ///< one value: s between two states
/// The peak of each mode in a spectrum case, with its sign, one row; and how modes go together, absent where not at
/// all.
inline constexpr std::string_view ModalCoordinate = "modal_coordinate";
inline constexpr std::string_view ModalCorrelation = "modal_correlation";
/// Of loads that drive a history: how much of each acts, a row a state; and, behind it the number of the load, what the
/// modes leave of its static displacements.
inline constexpr std::string_view LoadFactor = "load_factor";
inline constexpr std::string_view Remainder = "remainder/";

// Behind the name of a quantity that has a greatest and a least value.
inline constexpr std::string_view Max = "_max";
inline constexpr std::string_view Min = "_min";
inline constexpr std::string_view MaxTime = "_max_time";
inline constexpr std::string_view MinTime = "_min_time";
}  // namespace ResultName

/// Whether results of a load case are stored.
bool HasResultsOf(const ResultSource& results, int kind, std::uint32_t key);

/// "case/1_3/displacement" of a quantity of the case of kind 1 with key 3.
std::string CasePath(int kind, std::uint32_t key, std::string_view quantity, std::string_view suffix = {});

}  // namespace zt
