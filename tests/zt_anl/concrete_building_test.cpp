#include <map>
#include <string>
#include <vector>

#include "zt_anl/real_frame_fixture.h"
#include "zt_db/core/record_walk.h"
#include "zt_db/records/offs.h"

namespace zt {
namespace {

/// A concrete building of three storeys with rigid joints, cracked sections, rigid floors and masses at their centres.
class ConcreteBuilding : public RealFrames {
protected:
    ConcreteBuilding() {
        Load("rc_building_3story_design");
        options.shearDeformation = false;
        options.selfWeightMass = false;
        options.modes = 9;
    }
    std::map<std::string, std::uint32_t> NodesByName() {
        std::map<std::string, std::uint32_t> nodes;
        for (const std::uint32_t key : KeysOf<CClassPont>(Db())) {
            T_PONT_D node;
            Records<CClassPont>().Get(key, node);
            nodes[node.name] = key;
        }
        return nodes;
    }
    /// The rigid lengths of the table of members, which the import leaves to the user.
    void PutRigidLengths() {
        const auto nodes = NodesByName();
        std::map<std::vector<std::uint32_t>, std::uint32_t> members;
        for (const std::uint32_t key : KeysOf<CClassMemb>(Db())) {
            T_MEMB_D member;
            Records<CClassMemb>().Get(key, member);
            members[member.nodes] = key;
        }
        for (const CsvRow& row : ReadTable(frame / "members.csv")) {
            T_RGDE_D rigid{std::stod(row.at("rigid_end_i_m")), std::stod(row.at("rigid_end_j_m"))};
            RecordToCurrent(rigid, Db().Units());
            const std::uint32_t member = members.at({nodes.at(row.at("node_i")), nodes.at(row.at("node_j"))});
            ASSERT_TRUE(Records<CClassRgde>().TR_Add(member, rigid)) << Db().GetLastReason();
        }
    }
};

TEST_F(ConcreteBuilding, SwingsLikeOneOfItsFrames) {
    PutRigidLengths();
    Solve();
    ASSERT_EQ(result.modal.modes.size(), 9u);
    // Recalculated for one of the five equal frames; in the building columns of the edges belong to two frames.
    constexpr double kPeriodOfFrame = 0.673;
    EXPECT_NEAR(result.modal.modes[0].period, kPeriodOfFrame, 0.02 * kPeriodOfFrame);
    // It is alike in both directions.
    EXPECT_NEAR(result.modal.modes[1].period, result.modal.modes[0].period, 1.0e-6);
}

TEST_F(ConcreteBuilding, SwingsMoreSlowlyWithoutRigidJoints) {
    Solve();
    EXPECT_GT(result.modal.modes[0].period, 0.72);
}

}  // namespace
}  // namespace zt
