#include "zt_anl/model/model_reader.h"

#include <algorithm>
#include <cmath>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "zt_anl/model/member_ends.h"
#include "zt_anl/model/vector_math.h"
#include "zt_db/core/record_walk.h"
#include "zt_db/library/sect_util.h"
#include "zt_db/records/record_list.h"

namespace zt {
namespace {

using velda::FormatLong;
using velda::Outcome;

/// Freedoms of a link as digits: the first of six tells of Dx.
std::array<bool, kFreedoms> FreedomsOfDigits(int digits) {
    std::array<bool, kFreedoms> isTied{};
    for (std::size_t i = kFreedoms; i-- > 0; digits /= 10) isTied[i] = digits % 10 != 0;
    return isTied;
}

bool IsFlagged(const std::string& flags, std::size_t freedom) {
    return freedom < flags.size() && flags[freedom] == '1';
}

/// A share of the whole length that must be left between rigid lengths.
constexpr double kLeastLength = 1.0e-6;

/// Of the choices of a brace that carries in one sense: 2 is compression, others are tension.
constexpr int kCompressionOnly = 2;

/// Of braces alone; other members carry both.
AxialSense SenseOf(const T_MEMB_D& member) {
    if (member.type != MembType::Brace || member.tensionOnly == 0) return AxialSense::Both;
    return member.tensionOnly == kCompressionOnly ? AxialSense::CompressionOnly : AxialSense::TensionOnly;
}

/// A record without values of its own has those of its sizes.
T_SECT_STIFFNESS StiffnessOf(const T_SECT_D& section) {
    return section.stiffness.area > 0.0 ? section.stiffness : CSectUtil::GetProperStiffPosition(section, 0);
}

class ModelReader {
public:
    ModelReader(const CDataBase& database, FrameModel& model, AnalysisLog& log)
        : database_(database), model_(model), log_(log) {}

    Outcome Read() {
        ReadNodes();
        ForEachInOrder<CClassMemb>(database_,
                                   [&](std::uint32_t key, const T_MEMB_D& member) { ReadMember(key, member); });
        ReadSupports();
        ReadLinks();
        ReadMasses();
        TellSizes();
        return reason_.empty() ? Outcome::Done() : Outcome::Refused(reason_);
    }

private:
    void ReadNodes();
    void ReadMember(std::uint32_t key, const T_MEMB_D& member);
    void ReadSpans(std::uint32_t key, const T_MEMB_D& member, const std::vector<std::size_t>& nodes);
    bool PutProperties(const T_MEMB_D& member, FrameSpan& span);
    bool PutLine(FrameSpan& span, double beta, const MemberEnds& ends, std::size_t at, std::size_t of);
    void PutReleases(std::uint32_t key, std::size_t first, std::size_t last);
    void ReadBearer(std::uint32_t key, const T_MEMB_D& member, std::vector<std::size_t> nodes);
    void ReadSupports();
    void ReadLinks();
    void ReadMasses();
    void TellSizes();
    /// The first reason why the model cannot be analysed is the one that is told.
    void Refuse(std::string_view key, std::uint32_t number) {
        if (reason_.empty()) reason_ = velda::FormatText(key, {FormatLong(number)});
    }

    const CDataBase& database_;
    FrameModel& model_;
    AnalysisLog& log_;
    std::string reason_;
    bool hasOffsetsByMember_ = false;
};

void ModelReader::ReadNodes() {
    const CClassPont& records = *database_.GetClass<CClassPont>();
    std::vector<std::uint32_t> keys;
    records.GetKeyList(keys);
    for (const std::uint32_t key : keys) {
        T_PONT_D record;
        records.Get3DPos(key, record);
        RecordToBase(record, database_.Units());
        model_.nodeOfKey[key] = model_.nodes.size();
        model_.nodes.push_back({key, record.no, {record.x, record.y, record.z}});
    }
}

void ModelReader::ReadMember(std::uint32_t key, const T_MEMB_D& member) {
    std::vector<std::size_t> nodes;
    for (const std::uint32_t node : member.nodes) {
        if (const auto at = model_.nodeOfKey.find(node); at != model_.nodeOfKey.end()) nodes.push_back(at->second);
    }
    if (nodes.size() < 2) return;
    PropertyOfMemberType(member.type) == MemberProperty::Section ? ReadSpans(key, member, nodes)
                                                                 : ReadBearer(key, member, std::move(nodes));
}

bool ModelReader::PutProperties(const T_MEMB_D& member, FrameSpan& span) {
    T_SECT_D section;
    T_MATL_D material;
    if (ReadInBase<CClassSect>(database_, member.prop, section)) span.section = StiffnessOf(section);
    if (span.section.area <= 0.0) {
        Refuse("IDS_ANL_NO_SECTION", member.no);
        return false;
    }
    const bool hasMaterial = ReadInBase<CClassMatl>(database_, member.matl, material);
    const T_MATL_ANALYSIS& values = material.analysis[0];
    if (!hasMaterial || values.elasticity <= 0.0 || values.poisson <= -1.0) {
        Refuse("IDS_ANL_NO_MATERIAL", member.no);
        return false;
    }
    span.elasticity = values.elasticity;
    span.shearModulus = values.elasticity / (2.0 * (1.0 + values.poisson));
    span.weight = values.density * span.section.area;
    span.thermal = values.thermal;
    return true;
}

void ModelReader::ReadSpans(std::uint32_t key, const T_MEMB_D& member, const std::vector<std::size_t>& nodes) {
    FrameSpan span{.member = key, .no = member.no};
    if (!PutProperties(member, span)) return;
    span.isTruss = member.type == MembType::Brace && member.considerBending == 0;
    span.sense = SenseOf(member);
    std::vector<Vector3> places;
    for (const std::size_t node : nodes) places.push_back(model_.nodes[node].place);
    const MemberEnds ends = ReadMemberEnds(database_, key, member, places);
    hasOffsetsByMember_ = hasOffsetsByMember_ || ends.isByMember;
    const std::size_t first = model_.spans.size();
    double whole = 0.0;
    for (std::size_t i = 1; i < nodes.size(); ++i) {
        span.ends = {nodes[i - 1], nodes[i]};
        if (!PutLine(span, member.beta, ends, i - 1, nodes.size() - 1)) return;
        span.start = whole;
        whole += span.WholeLength();
        span.end = whole;
        model_.spans.push_back(span);
    }
    for (std::size_t at = first; at < model_.spans.size(); ++at) {
        model_.spans[at].start /= whole;
        model_.spans[at].end /= whole;
    }
    model_.spans.back().end = 1.0;
    model_.spansOfMember[key] = {first, model_.spans.size()};
    PutReleases(key, first, model_.spans.size() - 1);
}

/// Puts one span of a member where its offsets and rigid lengths let it lie. False when no length is left.
bool ModelReader::PutLine(FrameSpan& span, double beta, const MemberEnds& ends, std::size_t at, std::size_t of) {
    const std::array<Vector3, 2> nodes{model_.nodes[span.ends[0]].place, model_.nodes[span.ends[1]].place};
    span.arms = {ends.offsets[at], ends.offsets[at + 1]};
    span.rigid = {at == 0 ? ends.rigid[0] : 0.0, at + 1 == of ? ends.rigid[1] : 0.0};
    const Vector3 from = Plus(nodes[0], span.arms[0]);
    const Vector3 to = Plus(nodes[1], span.arms[1]);
    const double whole = Length(Minus(to, from));
    if (whole == 0.0) {
        Refuse("IDS_ANL_NO_LENGTH", span.no);
        return false;
    }
    span.length = whole - span.rigid[0] - span.rigid[1];
    if (span.length <= kLeastLength * whole) {
        Refuse("IDS_ANL_RIGID_LENGTHS", span.no);
        return false;
    }
    span.axes = TurnedAbout(AxesOfLine(from, to), beta);
    span.arms[0] = Plus(span.arms[0], Times(span.axes.x, span.rigid[0]));
    span.arms[1] = Plus(span.arms[1], Times(span.axes.x, -span.rigid[1]));
    return true;
}

/// The releases of a member are those of its first and of its last span.
void ModelReader::PutReleases(std::uint32_t key, std::size_t first, std::size_t last) {
    T_FRLS_D record;
    if (!ReadInBase<CClassFrls>(database_, key, record)) return;
    for (std::size_t i = 0; i < kFreedoms; ++i) {
        EndReleases& begin = model_.spans[first].releases;
        EndReleases& end = model_.spans[last].releases;
        begin.isFraction = end.isFraction = record.type != T_FRLS_D::kValue;
        begin.isReleased[i] = IsFlagged(record.flagsI, i);
        begin.left[i] = record.valuesI[i];
        end.isReleased[kFreedoms + i] = IsFlagged(record.flagsJ, i);
        end.left[kFreedoms + i] = record.valuesJ[i];
    }
}

void ModelReader::ReadBearer(std::uint32_t key, const T_MEMB_D& member, std::vector<std::size_t> nodes) {
    FrameBearer bearer{.member = key, .nodes = std::move(nodes)};
    std::vector<Vector3> corners;
    for (const std::size_t node : bearer.nodes) corners.push_back(model_.nodes[node].place);
    const bool isFace = corners.size() > 2;
    bearer.axes = isFace ? AxesOfFace(corners) : TurnedAbout(AxesOfLine(corners[0], corners[1]), member.beta);
    bearer.length = Length(Minus(corners[1], corners[0]));
    bearer.along = isFace ? AxesOfLine(corners[0], corners[1]).x : bearer.axes.x;
    for (std::size_t i = 2; isFace && i < corners.size(); ++i) {
        const Vector3 part = Cross(Minus(corners[i - 1], corners[0]), Minus(corners[i], corners[0]));
        bearer.area += 0.5 * Dot(part, bearer.axes.z);
    }
    T_THIK_D thickness;
    T_MATL_D material;
    if (T_MEMB_D::UsesThickness(member.type) && ReadInBase<CClassThik>(database_, member.prop, thickness) &&
        ReadInBase<CClassMatl>(database_, member.matl, material)) {
        bearer.weight = bearer.area * thickness.thickness * material.analysis[0].density;
    }
    model_.bearerOfMember[key] = model_.bearers.size();
    model_.bearers.push_back(std::move(bearer));
}

void ModelReader::ReadSupports() {
    ForEachInOrder<CClassSpts>(database_, [&](std::uint32_t key, const T_SPTS_D& record) {
        const auto node = model_.nodeOfKey.find(key);
        if (node == model_.nodeOfKey.end()) return;
        FrameSupport support{.node = node->second};
        for (std::size_t i = 0; i < kFreedoms; ++i) {
            support.isFixed[i] = IsFlagged(record.flags, i);
            if (!support.isFixed[i]) support.spring[i] = std::max(record.value[i], 0.0);
        }
        for (std::size_t i = 0; i < support.sense.size(); ++i) {
            const int sense = record.compressionType[i];
            support.sense[i] = sense == T_SPTS_D::kPositive ? 1 : sense == T_SPTS_D::kNegative ? -1 : 0;
        }
        model_.supports.push_back(support);
    });
}

void ModelReader::ReadLinks() {
    ForEachInOrder<CClassRigd>(database_, [&](std::uint32_t, const T_RIGD_D& record) {
        const auto master = model_.nodeOfKey.find(record.master);
        if (master == model_.nodeOfKey.end()) return;
        FrameLink link{.master = master->second, .isTied = FreedomsOfDigits(record.freedoms)};
        for (const std::uint32_t slave : record.slaves) {
            const auto node = model_.nodeOfKey.find(slave);
            if (node != model_.nodeOfKey.end() && node->second != link.master) link.slaves.push_back(node->second);
        }
        model_.links.push_back(std::move(link));
    });
}

void ModelReader::ReadMasses() {
    ForEachInOrder<CClassPmas>(database_, [&](std::uint32_t key, const T_PMAS_D& record) {
        const auto node = model_.nodeOfKey.find(key);
        if (node == model_.nodeOfKey.end()) return;
        model_.masses.push_back({node->second, {record.mx, record.my, record.mz, record.rmx, record.rmy, record.rmz}});
    });
}

void ModelReader::TellSizes() {
    const auto text = [](std::size_t count) { return FormatLong(static_cast<std::int64_t>(count)); };
    log_.Note("IDS_ANL_SIZES", {text(model_.nodes.size()), text(model_.spans.size()), text(model_.supports.size()),
                                text(model_.links.size())});
    if (hasOffsetsByMember_) log_.Note("IDS_ANL_OFFSETS_BY_MEMBER");
    if (!model_.bearers.empty()) log_.Note("IDS_ANL_BEARERS", {text(model_.bearers.size())});
}

}  // namespace

Outcome ReadFrameModel(const CDataBase& database, FrameModel& model, AnalysisLog& log) {
    model = {};
    return ModelReader(database, model, log).Read();
}

}  // namespace zt
