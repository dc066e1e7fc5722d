#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "zt_db/core/database.h"
#include "zt_db/units/unit_codes.h"
#include "zt_tb/modelview/geometry.h"

namespace zt {

/// What a load is measured in. The arrows of one kind are measured by the greatest load of it.
enum class LoadKind { Force, Moment, LineLoad, LineMoment, AreaLoad };
inline constexpr std::size_t kLoadKinds = 5;
inline constexpr std::array<int, kLoadKinds> kLoadUnits = {Unit::Force, Unit::Moment, Unit::LineLoad,
                                                           Unit::MomentPerLength, Unit::AreaLoad};

constexpr bool IsMoment(LoadKind kind) { return kind == LoadKind::Moment || kind == LoadKind::LineMoment; }

/// A load on a node along global axes.
struct SceneNodeLoad {
    std::uint32_t node = 0;  ///< key
    Vec3 force;
    Vec3 moment;
};

/// A load on a member: single values at places from 0 to 1, or a line through the values wherever the places rise.
struct SceneMemberLoad {
    std::uint32_t member = 0;  ///< key
    LoadKind kind = LoadKind::LineLoad;
    bool isDistributed = true;
    int direction = 0;  ///< of LoadDirection
    std::array<double, 4> places{};
    std::array<double, 4> values{};
};

/// A load over a slab; positive against the direction, which is downward for the usual ones.
struct SceneSlabLoad {
    std::uint32_t member = 0;  ///< key
    int direction = 0;         ///< of LoadDirection
    double value = 0.0;
};

/// The part of the loads on slabs that goes with a load case.
enum class SlabPart { None, Dead, Live };

/// The loads of one load case, in SI units whatever the current ones are. Loads know members and nodes by key, so that
/// they follow them without being touched. Loads on slabs belong to no load case: their dead part is shown with the
/// cases of dead loads, their live part with those of live loads.
class SceneLoads {
public:
    /// Reads the loads of a load case anew. A key that no load case has leaves it empty.
    void Build(const CDataBase& database, std::uint32_t loadCase);
    /// Follows the step that is in the change buffer.
    void Update(CDataBase& database);

    /// Key of the load case; 0 when no loads are shown.
    std::uint32_t LoadCase() const { return loadCase_; }
    const std::string& Name() const { return name_; }
    const std::vector<SceneNodeLoad>& NodeLoads() const { return nodeLoads_; }
    const std::vector<SceneMemberLoad>& MemberLoads() const { return memberLoads_; }
    const std::vector<SceneSlabLoad>& SlabLoads() const { return slabLoads_; }
    /// Factors of the self-weight of the whole model, and how many members have factors of their own.
    const Vec3& SelfWeight() const { return selfWeight_; }
    std::size_t OwnSelfWeights() const { return ownSelfWeights_; }
    SlabPart Slabs() const { return slabPart_; }
    /// The greatest amount of a kind; 0 where there is no load of it.
    double Greatest(LoadKind kind) const { return greatest_[static_cast<std::size_t>(kind)]; }
    /// How many loads are drawn.
    std::size_t Count() const { return nodeLoads_.size() + memberLoads_.size() + slabLoads_.size(); }

private:
    void ReadNodeLoads(const CDataBase& database);
    template <class Class>
    void ReadMemberLoads(const CDataBase& database);
    void ReadSlabLoads(const CDataBase& database);
    void ReadSelfWeights(const CDataBase& database);
    void Measure(LoadKind kind, double value);
    void Measure(LoadKind kind, const Vec3& vector);

    std::uint32_t loadCase_ = 0;
    std::string name_;
    std::vector<SceneNodeLoad> nodeLoads_;
    std::vector<SceneMemberLoad> memberLoads_;
    std::vector<SceneSlabLoad> slabLoads_;
    Vec3 selfWeight_;
    std::size_t ownSelfWeights_ = 0;
    SlabPart slabPart_ = SlabPart::None;
    std::array<double, kLoadKinds> greatest_{};
};

}  // namespace zt
