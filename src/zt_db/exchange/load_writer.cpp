#include <algorithm>
#include <array>
#include <map>

#include "velda_lib/number_text.h"
#include "zt_db/exchange/record_batch.h"
#include "zt_db/exchange/table_reader.h"
#include "zt_db/exchange/written_model.h"
#include "zt_db/records/record_list.h"

namespace zt {
namespace {

constexpr int kColumn = 101;
constexpr int kSlab = 301;
constexpr std::size_t kPlaces = 4;  ///< positions in one record
constexpr double kMostRepeats = 10'000.0;

/// Index of an axis in a direction such as "X" or "Mz"; -1 for another text.
int AxisOf(const std::string& direction) {
    const std::string word = Comparable(direction);
    if (word.empty() || word.size() > 2) return -1;
    const std::size_t axis = std::string("xyz").find(word.back());
    return axis == std::string::npos ? -1 : static_cast<int>(axis);
}

int DirectionOf(int axis, const std::string& axes) {
    return (Comparable(axes) == "local" ? LoadDirection::LocalX : LoadDirection::GlobalX) + axis;
}

/// The parts of a load along the axes: one for a direction, up to three for a vector.
struct Part {
    int axis;
    double first;
    double second;
};
std::vector<Part> PartsOf(const std::string& direction, double first, double second,
                          const std::vector<double>& firstVector, const std::vector<double>& secondVector) {
    std::vector<Part> parts;
    if (Comparable(direction) == "vector") {
        for (std::size_t i = 0; i < 3 && i < firstVector.size(); ++i) {
            const double end = i < secondVector.size() ? secondVector[i] : firstVector[i];
            if (firstVector[i] != 0.0 || end != 0.0) parts.push_back({static_cast<int>(i), firstVector[i], end});
        }
    } else if (const int axis = AxisOf(direction); axis >= 0) {
        parts.push_back({axis, first, second});
    }
    return parts;
}

template <class Load>
std::string LoadText(const Load& load) {
    return velda::FormatLong(load.memb) + ' ' + velda::FormatLong(load.stld);
}
std::string NodalText(const T_PTLD_D& load) {
    return velda::FormatLong(load.node) + ' ' + velda::FormatLong(load.stld);
}

/// Loads on members of one record class.
template <class Class>
class MemberLoads {
public:
    explicit MemberLoads(DB_CDataBase& database)
        : batch_(database), known_(database, LoadText<typename Class::Record>) {}

    void Put(const T_LNLD_D& load) {
        typename Class::Record record;
        record.memb = load.memb;
        record.stld = load.stld;
        record.type = load.type;
        record.direction = load.direction;
        record.projection = load.projection;
        record.x = load.x;
        record.p = load.p;
        record.description = load.description;
        if (known_.Find(record) == 0) batch_.Add(std::move(record));
    }
    bool Write() { return batch_.Write(); }

private:
    RecordBatch<Class> batch_;
    KnownRecords<Class> known_;
};

class LoadWriter {
public:
    explicit LoadWriter(WrittenModel& written)
        : written_(written), model_(written.model), beams_(written.database), columns_(written.database) {}

    bool Run() {
        PutSelfWeights();
        for (const auto& load : model_.pointForces) PutPoint(load, LoadType::ConcentratedForces);
        for (const auto& load : model_.pointMoments) PutPoint(load, LoadType::ConcentratedMoments);
        for (const auto& load : model_.lineForces) PutLine(load, LoadType::UniformLoads);
        for (const auto& load : model_.lineMoments) PutLine(load, LoadType::UniformMoments);
        for (const auto& load : model_.surfaceLoads) PutSurface(load);
        return WriteNodal() && beams_.Write() && columns_.Write() && WriteSlabs() && weights_.Write();
    }

private:
    void LeaveOut(const ExchangeOrigin& origin, std::string_view key, std::string value = {}) {
        written_.Tell(FindingLevel::LeftOut, origin, key, std::move(value));
    }
    void PutSelfWeights();
    void PutPoint(const ExchangePointLoad& load, int type);
    void PutAtNode(const ExchangePointLoad& load, const std::vector<Part>& parts, int type);
    void PutOnMember(const ExchangePointLoad& load, const std::vector<Part>& parts, int type);
    std::vector<double> PositionsOf(const ExchangePointLoad& load, double length);
    void PutLine(const ExchangeLineLoad& load, int type);
    bool RangeOf(const ExchangeLineLoad& load, const WrittenMember& member, double& start, double& end);
    void PutSurface(const ExchangeSurfaceLoad& load);
    void Put(const WrittenMember& member, const T_LNLD_D& load) {
        member.type == kColumn ? columns_.Put(load) : beams_.Put(load);
    }
    bool WriteNodal();
    bool WriteSlabs();

    WrittenModel& written_;
    const ExchangeModel& model_;
    MemberLoads<CClassLnld> beams_;
    MemberLoads<CClassCmld> columns_;
    RecordBatch<CClassSwgt> weights_{written_.database};
    std::map<std::pair<std::uint32_t, std::uint32_t>, std::array<double, 6>> nodal_;
    std::map<std::uint32_t, T_SBLA_D> slabs_;
};

void LoadWriter::PutSelfWeights() {
    const KnownRecords<CClassSwgt> known(written_.database, LoadText<T_SWGT_D>);
    for (const ExchangeLoadCase& loadCase : model_.loadCases) {
        const bool named = Comparable(loadCase.loadType) == "selfweight";
        const double factor = loadCase.selfWeightZ.value_or(named ? -1.0 : 0.0);
        if (factor == 0.0) continue;
        const T_SWGT_D record{.stld = written_.loadCases.at(loadCase.name), .z = factor};
        if (known.Find(record) == 0) weights_.Add(record);
    }
}

void LoadWriter::PutPoint(const ExchangePointLoad& load, int type) {
    const double value = load.value.value_or(0.0);
    const std::vector<Part> parts = PartsOf(load.direction, value, value, load.vector, load.vector);
    if (parts.empty()) return LeaveOut(load.origin, "IDS_XCH_WRONG_WORD", load.direction);
    load.member.empty() ? PutAtNode(load, parts, type) : PutOnMember(load, parts, type);
}

void LoadWriter::PutAtNode(const ExchangePointLoad& load, const std::vector<Part>& parts, int type) {
    if (Comparable(load.axes) == "local") return LeaveOut(load.origin, "IDS_XCH_LOCAL_AXES_NOT_KEPT", load.name);
    auto& values = nodal_[{written_.nodes.at(load.node), written_.loadCases.at(load.loadCase)}];
    const std::size_t first = type == LoadType::ConcentratedForces ? 0 : 3;
    for (const Part& part : parts) values[first + static_cast<std::size_t>(part.axis)] += part.first;
    written_.CountKept(load.origin);
}

/// Positions along the member from 0 to 1.
std::vector<double> LoadWriter::PositionsOf(const ExchangePointLoad& load, double length) {
    const bool absolute = Comparable(load.measure) == "absolute";
    const double unit = absolute ? (length > 0.0 ? 1.0 / length : 0.0) : 1.0;
    const double count = std::clamp(load.repeat.value_or(1.0), 1.0, kMostRepeats);
    std::vector<double> positions;
    for (double i = 0.0; i < count; i += 1.0) {
        double at = (load.position.value_or(0.0) + i * load.spacing.value_or(0.0)) * unit;
        if (Comparable(load.from) == "fromend") at = 1.0 - at;
        positions.push_back(velda::RoundToShown(at));
    }
    return positions;
}

void LoadWriter::PutOnMember(const ExchangePointLoad& load, const std::vector<Part>& parts, int type) {
    const WrittenMember& member = written_.members.at(load.member);
    const std::vector<double> positions = PositionsOf(load, member.length);
    const auto inside = [](double at) { return at >= 0.0 && at <= 1.0; };
    if (!std::all_of(positions.begin(), positions.end(), inside)) {
        return LeaveOut(load.origin, "IDS_XCH_POSITION_OUTSIDE", load.name);
    }
    for (const Part& part : parts) {
        for (std::size_t begin = 0; begin < positions.size(); begin += kPlaces) {
            T_LNLD_D record{.memb = member.key, .stld = written_.loadCases.at(load.loadCase), .type = type};
            record.direction = DirectionOf(part.axis, load.axes);
            for (std::size_t i = 0; i < kPlaces && begin + i < positions.size(); ++i) {
                record.x[i] = positions[begin + i];
                record.p[i] = part.first;
            }
            Put(member, record);
        }
    }
    written_.CountKept(load.origin);
}

/// Where a line load begins and ends, from 0 to 1. False, and that is reported, when it cannot be told.
bool LoadWriter::RangeOf(const ExchangeLineLoad& load, const WrittenMember& member, double& start, double& end) {
    const bool absolute = Comparable(load.measure) == "absolute";
    const double unit = absolute ? (member.length > 0.0 ? 1.0 / member.length : 0.0) : 1.0;
    start = velda::RoundToShown(load.start.value_or(0.0) * unit);
    end = load.end ? velda::RoundToShown(*load.end * unit) : 1.0;
    if (Comparable(load.extent) == "span" && member.hasInnerNodes && (start != 0.0 || end != 1.0)) {
        LeaveOut(load.origin, "IDS_XCH_SPAN_NOT_KEPT", load.name);
        return false;
    }
    if (start >= 0.0 && end <= 1.0 && start <= end) return true;
    LeaveOut(load.origin, "IDS_XCH_POSITION_OUTSIDE", load.name);
    return false;
}

void LoadWriter::PutLine(const ExchangeLineLoad& load, int type) {
    if (load.member.empty()) return LeaveOut(load.origin, "IDS_XCH_LOAD_TARGET_NOT_KEPT", load.target);
    const WrittenMember& member = written_.members.at(load.member);
    const double first = load.first.value_or(0.0);
    const bool uniform = Comparable(load.distribution) == "uniform";
    const std::vector<Part> parts = PartsOf(load.direction, first, uniform ? first : load.second.value_or(first),
                                            load.firstVector, uniform ? load.firstVector : load.secondVector);
    if (parts.empty()) return LeaveOut(load.origin, "IDS_XCH_WRONG_WORD", load.direction);
    double start = 0.0;
    double end = 1.0;
    if (!RangeOf(load, member, start, end)) return;
    const bool fromEnd = Comparable(load.from) == "fromend";
    for (const Part& part : parts) {
        T_LNLD_D record{.memb = member.key, .stld = written_.loadCases.at(load.loadCase), .type = type};
        record.direction = DirectionOf(part.axis, load.axes);
        record.projection = Comparable(load.location) == "projection" && record.direction > LoadDirection::LocalZ;
        record.x = {fromEnd ? velda::RoundToShown(1.0 - end) : start, fromEnd ? velda::RoundToShown(1.0 - start) : end};
        record.p = {fromEnd ? part.second : part.first, fromEnd ? part.first : part.second};
        Put(member, record);
    }
    written_.CountKept(load.origin);
}

void LoadWriter::PutSurface(const ExchangeSurfaceLoad& load) {
    if (load.surface.empty()) return LeaveOut(load.origin, "IDS_XCH_LOAD_TARGET_NOT_KEPT", load.target);
    const WrittenMember& surface = written_.surfaces.at(load.surface);
    if (surface.type != kSlab) return LeaveOut(load.origin, "IDS_XCH_LOAD_NO_SLAB", load.surface);
    const std::string& type = written_.loadCaseTypes.at(load.loadCase);
    const bool dead = type == LoadCaseType::Dead;
    const int axis = AxisOf(load.direction);
    if (axis != 2 || (!dead && type != LoadCaseType::Live))
        return LeaveOut(load.origin, "IDS_XCH_SLAB_LOAD_NOT_KEPT", load.loadCase);
    if (written_.database.GetClass<CClassSbla>()->Exist(surface.key)) {
        return LeaveOut(load.origin, "IDS_XCH_SLAB_LOAD_EXISTS", load.surface);
    }
    const int direction = DirectionOf(axis, load.axes);
    const auto [at, isNew] = slabs_.try_emplace(surface.key);
    T_SBLA_D& record = at->second;
    const int projection = Comparable(load.location) == "projection" && direction > LoadDirection::LocalZ;
    if (!isNew && (record.direction != direction || record.projection != projection)) {
        return LeaveOut(load.origin, "IDS_XCH_SLAB_LOAD_EXISTS", load.surface);
    }
    record.direction = direction;
    record.projection = projection;
    // Loads of slabs count downward.
    (dead ? record.dl : record.ll) -= load.value.value_or(0.0);
    written_.CountKept(load.origin);
}

bool LoadWriter::WriteNodal() {
    RecordBatch<CClassPtld> batch(written_.database);
    const KnownRecords<CClassPtld> known(written_.database, NodalText);
    for (const auto& [place, v] : nodal_) {
        const T_PTLD_D record{place.first, place.second, v[0], v[1], v[2], v[3], v[4], v[5]};
        if (known.Find(record) == 0) batch.Add(record);
    }
    return batch.Write();
}

bool LoadWriter::WriteSlabs() {
    RecordBatch<CClassSltp> types(written_.database);
    const KnownRecords<CClassSltp> known(written_.database, [](const T_SLTP_D&) { return std::string(); });
    RecordBatch<CClassSbla> batch(written_.database);
    std::map<std::pair<double, double>, std::uint32_t> keys;
    for (auto& [member, record] : slabs_) {
        std::uint32_t& type = keys[{record.dl, record.ll}];
        const T_SLTP_D values{.dl = record.dl, .ll = record.ll};
        if (type == 0) type = known.Find(values);
        if (type == 0) type = types.Add(values);
        record.type = type;
        batch.Add(record, member);
    }
    return types.Write() && batch.Write();
}

}  // namespace

bool WriteLoads(WrittenModel& written) { return LoadWriter(written).Run(); }

}  // namespace zt
