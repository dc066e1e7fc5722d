#pragma once

#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "zt_anl/analysis.h"
#include "zt_db/records/member_load.h"
#include "zt_db/test_support.h"

namespace zt {

/// Values of the material and the section that the models of the tests are made of, in SI units.
inline constexpr double kE = 2.0e11;
inline constexpr double kG = 8.0e10;
inline constexpr double kArea = 0.01;
inline constexpr double kAsy = 0.004;
inline constexpr double kAsz = 0.006;
inline constexpr double kIxx = 2.0e-5;
inline constexpr double kIyy = 3.0e-4;
inline constexpr double kIzz = 1.0e-4;
inline constexpr double kDensity = 8000.0;  ///< kg/m3

/// Freedoms of a node.
enum Freedom { kDx, kDy, kDz, kRx, kRy, kRz };

/// A small model made by hand and its results. Lengths are in m, loads in kN; results are in SI units.
class FrameTest : public ModelTest {
protected:
    FrameTest() {
        SetUnits(CUnitCtrl::FindChoice(UnitQuantity::Force, "kN"), CUnitCtrl::FindChoice(UnitQuantity::Length, "m"));
        T_MATL_D steel;
        steel.name = "Steel";
        steel.analysis[0].elasticity = kE * 1.0e-6;
        steel.analysis[0].poisson = kE / (2.0 * kG) - 1.0;
        steel.analysis[0].density = kDensity;
        Add<CClassMatl>(1, steel);
        PutSection(1, {kArea, kAsy, kAsz, kIxx, kIyy, kIzz});
        PutSection(2, {kArea, 0.0, 0.0, kIxx, kIyy, kIzz});
        for (std::uint32_t key = 1; key <= 2; ++key) AddCase(key, "C" + std::to_string(key), "U");
        options.modal = false;
    }

    template <class Class>
    void Add(std::uint32_t key, const typename Class::Record& record) {
        ASSERT_TRUE(Records<Class>().TR_Add(key, record)) << Db().GetLastReason();
    }
    void PutSection(std::uint32_t key, const T_SECT_STIFFNESS& values) {
        T_SECT_D section;
        section.name = "S" + std::to_string(key);
        section.kind = 3;
        section.stiffness = values;
        Add<CClassSect>(key, section);
    }
    void AddCase(std::uint32_t key, const std::string& name, const std::string& type) {
        Add<CClassStld>(key, {.name = name, .type = type});
    }
    /// Adds a node; its number is its key.
    std::uint32_t Node(double x, double y, double z) {
        const std::uint32_t key = nextNode_++;
        T_PONT_D node;
        node.x = x;
        node.y = y;
        node.z = z;
        node.no = key;
        Add<CClassPont>(key, node);
        return key;
    }
    /// Adds a beam, or a member of another type; section 1 has shear areas, section 2 has none.
    std::uint32_t Member(const std::vector<std::uint32_t>& nodes, std::uint32_t section = 1, int type = 201,
                         double beta = 0.0) {
        const std::uint32_t key = nextMember_++;
        T_MEMB_D member;
        member.type = type;
        member.no = key;
        member.prop = section;
        member.matl = 1;
        member.beta = beta;
        member.nodes = nodes;
        member.considerBending = 1;
        Add<CClassMemb>(key, member);
        return key;
    }
    std::uint32_t Bar(std::uint32_t from, std::uint32_t to, bool isTensionOnly = false) {
        const std::uint32_t key = Member({from, to}, 1, MembType::Brace);
        T_MEMB_D member;
        Records<CClassMemb>().Get(key, member);
        member.considerBending = 0;
        member.tensionOnly = isTensionOnly;
        EXPECT_TRUE(Records<CClassMemb>().TR_Modify(key, key, member));
        return key;
    }
    void UseKilograms() {
        T_UNIT_INDEX units;
        doc->GetUnitCtrl()->GetUnitIndexCurrent(units);
        units.mass = CUnitCtrl::FindChoice(UnitQuantity::Mass, "kg");
        EXPECT_TRUE(doc->GetUnitCtrl()->SetUnitIndexCurrent(units));
    }
    void Support(std::uint32_t node, const std::string& flags) { Add<CClassSpts>(node, {.flags = flags}); }
    void Force(std::uint32_t node, int freedom, double value, std::uint32_t stld = 1) {
        T_PTLD_D load{.node = node, .stld = stld};
        double* const values[] = {&load.fx, &load.fy, &load.fz, &load.mx, &load.my, &load.mz};
        *values[freedom] = value;
        Add<CClassPtld>(nextLoad_++, load);
    }
    void MemberLoad(std::uint32_t member, int type, int direction, const std::array<double, 4>& x,
                    const std::array<double, 4>& p, int projection = 0) {
        T_LNLD_D load{.memb = member, .stld = 1, .type = type, .direction = direction};
        load.projection = projection;
        load.x = x;
        load.p = p;
        Add<CClassLnld>(nextLoad_++, load);
    }
    void Uniform(std::uint32_t member, double value, int direction = LoadDirection::GlobalZ) {
        MemberLoad(member, LoadType::UniformLoads, direction, {0.0, 1.0}, {value, value});
    }

    velda::Outcome Run() {
        log = {};
        return Analyse(Db(), options, result, log);
    }
    void Solve() {
        const velda::Outcome outcome = Run();
        ASSERT_TRUE(outcome) << outcome.Reason();
    }
    double Displacement(std::uint32_t node, int freedom, std::size_t place = 0) const {
        return result.cases[place].displacements[result.model.nodeOfKey.at(node)][static_cast<std::size_t>(freedom)];
    }
    double Reaction(std::uint32_t node, int freedom, std::size_t place = 0) const {
        for (std::size_t i = 0; i < result.model.supports.size(); ++i) {
            if (result.model.nodes[result.model.supports[i].node].key != node) continue;
            return result.cases[place].reactions[i][static_cast<std::size_t>(freedom)];
        }
        ADD_FAILURE() << "no support";
        return 0.0;
    }
    const ElementForces& Forces(std::uint32_t member, std::size_t span = 0) const {
        return result.cases[0].elements[result.model.spansOfMember.at(member)[0] + span];
    }
    /// Expects two values that agree in their first digits.
    static void ExpectClose(double value, double wanted, double tolerance = 1.0e-9) {
        EXPECT_NEAR(value, wanted, tolerance * std::max(std::abs(wanted), 1.0e-12));
    }

    AnalysisOptions options;
    AnalysisResult result;
    AnalysisLog log;

private:
    std::uint32_t nextNode_ = 1;
    std::uint32_t nextMember_ = 1;
    std::uint32_t nextLoad_ = 1;
};

}  // namespace zt
