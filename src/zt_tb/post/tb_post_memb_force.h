#pragma once

#include <array>
#include <variant>

#include "zt_db/post/post_ctrl4dgn.h"
#include "zt_tb/post/tb_post_ds_memb2.h"

namespace zt {

/// What the forces of a member are read with: those that it was designed for, tried in order, before those of the
/// analysis.
template <class Record>
struct ForceGetters {
    using Getter = int (CPostCtrl::*)(std::uint32_t, Record*, Record*, Record*) const;
    using DesignGetter = int (CPostCtrl4Dgn::*)(std::uint32_t, Record*, Record*, Record*) const;

    Getter analysis;
    std::array<DesignGetter, 2> design{};
};

/// A type of members that a table of forces shows, and how their forces are read.
struct ForceOfType {
    int type = 0;
    std::variant<ForceGetters<T_FBEM_D>, ForceGetters<T_FCOL_D>, ForceGetters<T_FBRC_D>> getters;
};

/// How a table of member forces differs from the others.
struct MemberForceTable {
    ResultDeclaration declaration;
    std::span<const ForceOfType> types;
    /// The parts that are shown at first; none for all of them.
    std::span<const std::int16_t> defaultParts{};
    /// Part numbers are multiples of it; their quotient is the place of a part among those that are read.
    std::int16_t partStep = 1;
    bool hasLength = false;
    /// Which components of a part are shown, in the order of their columns.
    std::span<const std::size_t> components;
};

/// Forces of members: a record is a member under a load case, with a row for each chosen part.
class MemberForceSource : public CTBPostDSMemb2 {
public:
    /// The table outlives the source.
    MemberForceSource(int kind, const MemberForceTable& table);

    void Initialize(velda::CTBCore& grid) override;
    void GetRecTexts(velda::RecordCells& cells) override;

protected:
    void ReadRecord() override;

private:
    void ReadForces(int type);
    /// Whether the current member was designed under the load case of the record.
    template <class Record>
    bool ReadDesignForces(const ForceGetters<Record>& getters, Record& record);
    void WritePart(velda::RecordCells& cells, std::int16_t part, int recRow);
    std::string PartName(std::int16_t part) const;
    /// The forces of a part; null for a number that is none.
    const T_FORCE_D* ForcesOf(std::int16_t part) const;

    const MemberForceTable& table_;
    std::optional<ShownStory> story_;
    double length_ = 0.0;
    std::vector<T_FORCE_D> forces_;  ///< in the order of the getters
    bool areDesignForces_ = false;
};

enum class MemberForces { Beam, Column, Brace, WallBeam, WallColumn };
const MemberForceTable& MemberForceTableOf(MemberForces members);

template <MemberForces kMembers>
class MemberForceSourceOf : public MemberForceSource {
public:
    explicit MemberForceSourceOf(int kind) : MemberForceSource(kind, MemberForceTableOf(kMembers)) {}
    static const ResultDeclaration& Declared() { return MemberForceTableOf(kMembers).declaration; }
};

using CTBPostBeamForce = MemberForceSourceOf<MemberForces::Beam>;
using CTBPostColmForce = MemberForceSourceOf<MemberForces::Column>;
using CTBPostBraceForce = MemberForceSourceOf<MemberForces::Brace>;
using CTBPostWBeamForce = MemberForceSourceOf<MemberForces::WallBeam>;
using CTBPostWColmForce = MemberForceSourceOf<MemberForces::WallColumn>;

}  // namespace zt
