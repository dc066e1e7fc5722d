#include "zt_db/post/story/member_weight.h"

#include <algorithm>
#include <cmath>

#include "zt_db/core/record_walk.h"
#include "zt_db/library/sect_util.h"
#include "zt_db/records/member_load.h"
#include "zt_db/records/record_list.h"

namespace zt {
namespace {

Vector3 Times(const Vector3& a, double factor) { return {a[0] * factor, a[1] * factor, a[2] * factor}; }

void AddTo(Vector3& sum, const Vector3& force) {
    for (std::size_t i = 0; i < 3; ++i) sum[i] += force[i];
}

double AreaOf(const std::vector<Vector3>& corners, const Vector3& normal) {
    double area = 0.0;
    for (std::size_t i = 2; i < corners.size(); ++i) {
        area += 0.5 * Dot(Cross(Minus(corners[i - 1], corners[0]), Minus(corners[i], corners[0])), normal);
    }
    return area;
}

/// The area of the section of a frame member; a record without values of its own has those of its sizes.
double AreaOfSection(const CDataBase& model, std::uint32_t key) {
    T_SECT_D section;
    if (!ReadInBase<CClassSect>(model, key, section)) return 0.0;
    return section.stiffness.area > 0.0 ? section.stiffness.area : CSectUtil::GetProperStiffPosition(section, 0).area;
}

double WeightOf(const CDataBase& model, const T_MEMB_D& member, const MemberShape& shape) {
    T_MATL_D material;
    if (!ReadInBase<CClassMatl>(model, member.matl, material)) return 0.0;
    const double density = material.analysis[0].density;
    if (shape.isFrame) return density * AreaOfSection(model, member.prop) * shape.length;
    T_THIK_D thickness;
    const bool hasThickness =
        T_MEMB_D::UsesThickness(member.type) && ReadInBase<CClassThik>(model, member.prop, thickness);
    return hasThickness ? density * thickness.thickness * shape.area : 0.0;
}

void PutSpans(MemberShape& shape, const std::vector<Vector3>& places) {
    for (std::size_t i = 1; i < places.size(); ++i) shape.length += Length(Minus(places[i], places[i - 1]));
    double behind = 0.0;
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (i > 0) behind += Length(Minus(places[i], places[i - 1]));
        shape.starts.push_back(shape.length > 0.0 ? behind / shape.length : 0.0);
    }
}

/// The direction of a load in global axes.
Vector3 DirectionOf(int direction, const MemberAxes& axes) {
    switch (direction) {
        case LoadDirection::LocalX: return axes.x;
        case LoadDirection::LocalY: return axes.y;
        case LoadDirection::LocalZ: return axes.z;
        default: break;
    }
    Vector3 global{};
    global[static_cast<std::size_t>(direction - LoadDirection::GlobalX)] = 1.0;
    return global;
}

/// Reads the loads of one case.
class ForceReader {
public:
    ForceReader(const CDataBase& model, const StoryGeometry& geometry, std::uint32_t stld)
        : model_(model), geometry_(geometry), stld_(stld), nodes_(geometry.Nodes().size()) {}

    std::vector<Vector3> Read() {
        ForEachInOrder<CClassPtld>(model_, [&](std::uint32_t, const T_PTLD_D& load) {
            const std::uint32_t place = geometry_.PlaceOfNode(load.node);
            if (load.stld == stld_ && place < nodes_.size()) AddTo(nodes_[place], {load.fx, load.fy, load.fz});
        });
        ReadMemberLoads<CClassLnld>();
        ReadMemberLoads<CClassCmld>();
        ReadSelfWeights();
        ReadSlabLoads();
        return std::move(nodes_);
    }

private:
    MemberShape ShapeOf(std::uint32_t member) const {
        T_MEMB_D record;
        return ReadInBase<CClassMemb>(model_, member, record) ? ShapeOfMember(model_, geometry_, record)
                                                              : MemberShape{};
    }
    template <class Class>
    void ReadMemberLoads() {
        ForEachInOrder<Class>(model_, [&](std::uint32_t, const typename Class::Record& load) {
            if (load.stld != stld_ || !IsKnownLoad(load.type, load.direction) || IsMomentLoad(load.type)) return;
            const MemberShape shape = ShapeOf(load.memb);
            if (!shape.nodes.empty()) PutLoad(shape, load);
        });
    }
    template <class Load>
    void PutLoad(const MemberShape& shape, const Load& load);
    void ReadSelfWeights();
    void ReadSlabLoads();

    const CDataBase& model_;
    const StoryGeometry& geometry_;
    const std::uint32_t stld_;
    std::vector<Vector3> nodes_;
};

/// Projected loads are told per length of the shadow that the member throws along a global direction.
template <class Load>
void ForceReader::PutLoad(const MemberShape& shape, const Load& load) {
    const Vector3 direction = DirectionOf(load.direction, shape.axes);
    if (!IsDistributedLoad(load.type)) {
        for (const LoadPoint& point : PointsOf(load.x, load.p)) {
            AddToNodes(shape, point.at, Times(direction, point.value), nodes_);
        }
        return;
    }
    double share = shape.length;
    if (load.projection != 0 && load.direction >= LoadDirection::GlobalX) {
        const double cosine = Dot(shape.axes.x, direction);
        share *= std::sqrt(std::max(0.0, 1.0 - cosine * cosine));
    }
    for (const LoadStretch& stretch : StretchesOf(load.x, load.p)) {
        // A trapezium is the sum of two triangles, each acting at a third of its length.
        const double run = stretch.to - stretch.from;
        AddToNodes(shape, stretch.from + run / 3.0, Times(direction, 0.5 * run * share * stretch.first), nodes_);
        AddToNodes(shape, stretch.to - run / 3.0, Times(direction, 0.5 * run * share * stretch.last), nodes_);
    }
}

/// Factors for all members and factors for one add up.
void ForceReader::ReadSelfWeights() {
    ForEachInOrder<CClassSwgt>(model_, [&](std::uint32_t, const T_SWGT_D& load) {
        if (load.stld != stld_) return;
        const auto put = [&](const MemberShape& shape) {
            SpreadOverNodes(shape, {load.x * shape.weight, load.y * shape.weight, load.z * shape.weight}, nodes_);
        };
        if (load.memb != 0) return put(ShapeOf(load.memb));
        for (const std::uint32_t key : KeysOf<CClassMemb>(model_)) put(ShapeOf(key));
    });
}

/// Loads of slabs stand in no load case: their dead part belongs to all cases of dead loads, their live part to all of
/// live loads. Values count against their direction.
void ForceReader::ReadSlabLoads() {
    T_STLD_D loadCase;
    if (!ReadInBase<CClassStld>(model_, stld_, loadCase)) return;
    ForEachInOrder<CClassSbla>(model_, [&](std::uint32_t key, const T_SBLA_D& load) {
        const double value = loadCase.type == LoadCaseType::Dead   ? load.dl
                             : loadCase.type == LoadCaseType::Live ? load.ll
                                                                   : 0.0;
        if (value == 0.0 || !IsKnownLoad(LoadType::UniformLoads, load.direction)) return;
        const MemberShape shape = ShapeOf(key);
        if (shape.nodes.empty()) return;
        const Vector3 direction = DirectionOf(load.direction, shape.axes);
        const bool isShadow = load.projection != 0 && load.direction >= LoadDirection::GlobalX;
        const double area = shape.area * (isShadow ? std::abs(Dot(shape.axes.z, direction)) : 1.0);
        SpreadOverNodes(shape, Times(direction, -value * area), nodes_);
    });
}

}  // namespace

MemberShape ShapeOfMember(const CDataBase& model, const StoryGeometry& geometry, const T_MEMB_D& member) {
    MemberShape shape{.isFrame = PropertyOfMemberType(member.type) == MemberProperty::Section};
    std::vector<Vector3> places;
    for (const std::uint32_t key : member.nodes) {
        const std::uint32_t place = geometry.PlaceOfNode(key);
        if (place == CPostDataBase::kNoPlace) continue;
        shape.nodes.push_back(place);
        places.push_back(geometry.Nodes()[place].at);
    }
    if (places.size() < 2) return {};
    if (shape.isFrame) {
        PutSpans(shape, places);
        shape.axes = TurnedAbout(AxesOfLine(places[0], places[1]), member.beta);
    } else if (places.size() > 2) {
        shape.length = Length(Minus(places[1], places[0]));
        shape.axes = AxesOfFace(places);
        shape.area = AreaOf(places, shape.axes.z);
    } else {
        shape.length = Length(Minus(places[1], places[0]));
        shape.axes = TurnedAbout(AxesOfLine(places[0], places[1]), member.beta);
    }
    shape.weight = WeightOf(model, member, shape);
    return shape;
}

void AddToNodes(const MemberShape& shape, double place, const Vector3& force, std::vector<Vector3>& nodes) {
    if (!shape.isFrame) return SpreadOverNodes(shape, force, nodes);
    std::size_t end = 1;
    while (end + 1 < shape.nodes.size() && shape.starts[end] < place) ++end;
    const double run = shape.starts[end] - shape.starts[end - 1];
    const double share = run > 0.0 ? std::clamp((place - shape.starts[end - 1]) / run, 0.0, 1.0) : 0.5;
    AddTo(nodes[shape.nodes[end - 1]], Times(force, 1.0 - share));
    AddTo(nodes[shape.nodes[end]], Times(force, share));
}

void SpreadOverNodes(const MemberShape& shape, const Vector3& force, std::vector<Vector3>& nodes) {
    if (shape.nodes.empty()) return;
    if (!shape.isFrame) {
        const double share = 1.0 / static_cast<double>(shape.nodes.size());
        for (const std::uint32_t node : shape.nodes) AddTo(nodes[node], Times(force, share));
        return;
    }
    for (std::size_t i = 1; i < shape.nodes.size(); ++i) {
        const Vector3 half = Times(force, 0.5 * (shape.starts[i] - shape.starts[i - 1]));
        AddTo(nodes[shape.nodes[i - 1]], half);
        AddTo(nodes[shape.nodes[i]], half);
    }
}

std::vector<Vector3> NodalForces(const CDataBase& model, const StoryGeometry& geometry, std::uint32_t stld) {
    return ForceReader(model, geometry, stld).Read();
}

}  // namespace zt
