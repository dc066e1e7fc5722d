#include "zt_tb/modelview/scene_loads.h"

#include <cmath>

#include "zt_db/core/change_test.h"
#include "zt_db/core/record_walk.h"
#include "zt_db/records/load_case_type.h"
#include "zt_db/records/member_load.h"
#include "zt_db/records/ptld.h"
#include "zt_db/records/sbla.h"
#include "zt_db/records/swgt.h"

namespace zt {
namespace {

/// The kind of a load type on members; IsKnownLoad tells whether the type has one.
LoadKind KindOf(int type) { return static_cast<LoadKind>(type - LoadType::ConcentratedForces); }

SlabPart PartOf(const std::string& type) {
    if (type == LoadCaseType::Dead) return SlabPart::Dead;
    return type == LoadCaseType::Live ? SlabPart::Live : SlabPart::None;
}

}  // namespace

void SceneLoads::Build(const CDataBase& database, std::uint32_t loadCase) {
    *this = {};
    T_STLD_D record;
    if (!ReadInBase<CClassStld>(database, loadCase, record)) return;
    loadCase_ = loadCase;
    name_ = record.name;
    slabPart_ = PartOf(record.type);
    ReadNodeLoads(database);
    ReadMemberLoads<CClassLnld>(database);
    ReadMemberLoads<CClassCmld>(database);
    if (slabPart_ != SlabPart::None) ReadSlabLoads(database);
    ReadSelfWeights(database);
}

void SceneLoads::Update(CDataBase& database) {
    if (loadCase_ == 0) return;
    if (Touches<T_STLD_D, T_PTLD_D, T_LNLD_D, T_CMLD_D, T_SBLA_D, T_SWGT_D>(*database.GetViewBuff())) {
        Build(database, loadCase_);
    }
}

void SceneLoads::ReadNodeLoads(const CDataBase& database) {
    for (const std::uint32_t key : KeysOf<CClassPtld>(database)) {
        T_PTLD_D load;
        if (!ReadInBase<CClassPtld>(database, key, load) || load.stld != loadCase_) continue;
        nodeLoads_.push_back({load.node, {load.fx, load.fy, load.fz}, {load.mx, load.my, load.mz}});
        Measure(LoadKind::Force, nodeLoads_.back().force);
        Measure(LoadKind::Moment, nodeLoads_.back().moment);
    }
}

template <class Class>
void SceneLoads::ReadMemberLoads(const CDataBase& database) {
    for (const std::uint32_t key : KeysOf<Class>(database)) {
        typename Class::Record load;
        if (!ReadInBase<Class>(database, key, load) || load.stld != loadCase_) continue;
        if (!IsKnownLoad(load.type, load.direction)) continue;
        const bool isDistributed = IsDistributedLoad(load.type);
        memberLoads_.push_back({load.memb, KindOf(load.type), isDistributed, load.direction, load.x, load.p});
        for (const double value : load.p) Measure(KindOf(load.type), value);
    }
}

void SceneLoads::ReadSlabLoads(const CDataBase& database) {
    for (const std::uint32_t key : KeysOf<CClassSbla>(database)) {
        T_SBLA_D load;
        if (!ReadInBase<CClassSbla>(database, key, load)) continue;
        const double value = slabPart_ == SlabPart::Dead ? load.dl : load.ll;
        if (value == 0.0 || !IsKnownLoad(LoadType::UniformLoads, load.direction)) continue;
        slabLoads_.push_back({key, load.direction, value});
        Measure(LoadKind::AreaLoad, value);
    }
}

void SceneLoads::ReadSelfWeights(const CDataBase& database) {
    for (const std::uint32_t key : KeysOf<CClassSwgt>(database)) {
        T_SWGT_D weight;
        if (!ReadInBase<CClassSwgt>(database, key, weight) || weight.stld != loadCase_) continue;
        if (weight.memb != 0) {
            ++ownSelfWeights_;
        } else {
            selfWeight_ = selfWeight_ + Vec3{weight.x, weight.y, weight.z};
        }
    }
}

void SceneLoads::Measure(LoadKind kind, double value) {
    double& greatest = greatest_[static_cast<std::size_t>(kind)];
    greatest = std::max(greatest, std::abs(value));
}

void SceneLoads::Measure(LoadKind kind, const Vec3& vector) {
    for (const double value : {vector.x, vector.y, vector.z}) Measure(kind, value);
}

}  // namespace zt
