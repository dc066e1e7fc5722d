#include <unordered_set>

#include "zt_db/exchange/record_batch.h"
#include "zt_db/exchange/table_reader.h"
#include "zt_db/exchange/written_model.h"
#include "zt_db/records/record_list.h"

namespace zt {
namespace {

/// What a word for a freedom means.
enum class Hold { Free, Rigid, Spring, CompressionOnly, TensionOnly, Unknown };

Hold HoldOf(const std::string& kind) {
    const std::string word = Comparable(kind);
    if (word == "free" || word == "0" || word.empty()) return Hold::Free;
    if (word == "rigid" || word == "1" || word == "fixed") return Hold::Rigid;
    if (word == "flexible" || word == "nonlinear") return Hold::Spring;
    if (word.ends_with("compressiononly")) return Hold::CompressionOnly;
    if (word.ends_with("tensiononly")) return Hold::TensionOnly;
    return Hold::Unknown;
}

class SupportWriter {
public:
    explicit SupportWriter(WrittenModel& written) : written_(written), model_(written.model) {}

    bool Run() { return PutSupports() && PutReleases() && PutLinks() && PutMasses(); }

private:
    template <class Class>
    bool HasRecord(std::uint32_t key) const {
        return written_.database.GetClass<Class>()->Exist(key) != 0;
    }
    void LeaveOut(const ExchangeOrigin& origin, std::string_view key, std::string value = {}) {
        written_.Tell(FindingLevel::LeftOut, origin, key, std::move(value));
    }

    bool PutSupports();
    T_SPTS_D RecordOf(const ExchangeSupport& support);
    bool PutReleases();
    void TakeHinge(const ExchangeHinge& hinge, T_FRLS_D& record);
    bool PutLinks();
    void TakeLink(std::uint32_t master, int freedoms, const NameList& slaves, const ExchangeOrigin& origin);
    int FreedomsOf(const ExchangeRigidLink& link);
    int FreedomsOf(const ExchangeDiaphragm& diaphragm);
    bool PutMasses();

    WrittenModel& written_;
    const ExchangeModel& model_;
    std::vector<std::uint32_t> masters_;
    std::unordered_map<std::uint32_t, T_RIGD_D> links_;
};

T_SPTS_D SupportWriter::RecordOf(const ExchangeSupport& support) {
    T_SPTS_D record;
    for (std::size_t i = 0; i < 6; ++i) {
        const ExchangeFreedom& freedom = support.freedoms[i];
        const Hold hold = HoldOf(freedom.kind);
        const bool oneWay = hold == Hold::CompressionOnly || hold == Hold::TensionOnly;
        record.flags[i] = hold == Hold::Rigid || oneWay ? '1' : '0';
        if (hold != Hold::Free && hold != Hold::Rigid) record.value[i] = freedom.stiffness.value_or(0.0);
        // A support that takes compression alone pushes the structure up.
        if (oneWay && i < 3) {
            record.compressionType[i] = hold == Hold::CompressionOnly ? T_SPTS_D::kPositive : T_SPTS_D::kNegative;
        }
        if (hold == Hold::Unknown || Comparable(freedom.kind) == "nonlinear") {
            written_.Tell(FindingLevel::Converted, support.origin, "IDS_XCH_FREEDOM_CONVERTED", freedom.kind);
        }
        if (freedom.stiffness.value_or(0.0) < 0.0) {
            written_.Tell(FindingLevel::Warning, support.origin, "IDS_XCH_STIFFNESS_NEGATIVE", support.name);
        }
    }
    return record;
}

bool SupportWriter::PutSupports() {
    RecordBatch<CClassSpts> batch(written_.database);
    std::unordered_set<std::uint32_t> done;
    for (const ExchangeSupport& support : model_.supports) {
        if (support.node.empty()) {
            LeaveOut(support.origin, "IDS_XCH_SUPPORT_ON_MEMBER", support.member);
            continue;
        }
        const std::uint32_t node = written_.nodes.at(support.node);
        if (HasRecord<CClassSpts>(node) || !done.insert(node).second) {
            LeaveOut(support.origin, "IDS_XCH_SUPPORT_TWICE", support.node);
            continue;
        }
        if (Comparable(support.axes) == "local") LeaveOut(support.origin, "IDS_XCH_LOCAL_AXES_NOT_KEPT", support.name);
        batch.Add(RecordOf(support), node);
        written_.CountKept(support.origin);
    }
    return batch.Write();
}

void SupportWriter::TakeHinge(const ExchangeHinge& hinge, T_FRLS_D& record) {
    const std::string position = Comparable(hinge.position);
    for (std::size_t i = 0; i < 6; ++i) {
        const ExchangeFreedom& freedom = hinge.freedoms[i];
        const Hold hold = HoldOf(freedom.kind);
        if (hold == Hold::Rigid) continue;
        if (hold != Hold::Free && hold != Hold::Spring) {
            written_.Tell(FindingLevel::Converted, hinge.origin, "IDS_XCH_FREEDOM_CONVERTED", freedom.kind);
        }
        const double stiffness = hold == Hold::Spring ? freedom.stiffness.value_or(0.0) : 0.0;
        if (stiffness != 0.0) record.type = T_FRLS_D::kValue;
        if (position != "end") {
            record.flagsI[i] = '1';
            record.valuesI[i] = stiffness;
        }
        if (position != "begin") {
            record.flagsJ[i] = '1';
            record.valuesJ[i] = stiffness;
        }
    }
}

bool SupportWriter::PutReleases() {
    std::vector<std::uint32_t> members;
    std::unordered_map<std::uint32_t, T_FRLS_D> records;
    for (const ExchangeHinge& hinge : model_.hinges) {
        const std::uint32_t member = written_.members.at(hinge.member).key;
        if (HasRecord<CClassFrls>(member)) {
            LeaveOut(hinge.origin, "IDS_XCH_RELEASE_EXISTS", hinge.member);
            continue;
        }
        const auto [at, isNew] = records.try_emplace(member);
        if (isNew) members.push_back(member);
        TakeHinge(hinge, at->second);
        written_.CountKept(hinge.origin);
    }
    RecordBatch<CClassFrls> batch(written_.database);
    for (const std::uint32_t member : members) batch.Add(records.at(member), member);
    return batch.Write();
}

/// The freedoms that a link ties, as six digits. Those with a spring are tied too, since a link has none.
int SupportWriter::FreedomsOf(const ExchangeRigidLink& link) {
    const std::string hinges = Comparable(link.hinges);
    int freedoms = 0;
    for (const ExchangeFreedom& freedom : link.freedoms) {
        const Hold hold = HoldOf(freedom.kind);
        const bool tied = hinges == "none" || hold != Hold::Free;
        freedoms = freedoms * 10 + (tied ? 1 : 0);
        if (hinges != "none" && hold != Hold::Rigid && hold != Hold::Free) {
            written_.Tell(FindingLevel::Converted, link.origin, "IDS_XCH_FREEDOM_CONVERTED", freedom.kind);
        }
        if (freedom.stiffness.value_or(0.0) < 0.0) {
            written_.Tell(FindingLevel::Warning, link.origin, "IDS_XCH_STIFFNESS_NEGATIVE", link.name);
        }
    }
    return freedoms;
}

int SupportWriter::FreedomsOf(const ExchangeDiaphragm& diaphragm) {
    constexpr int kFloor = 110001;
    constexpr int kAlongX = 100000;
    constexpr int kAlongY = 10000;
    const std::string kind = Comparable(diaphragm.kind);
    if (kind == "equal_ux") return kAlongX;
    if (kind == "equal_uy") return kAlongY;
    const bool digits = kind.size() == 6 && kind.find_first_not_of("01") == std::string::npos;
    if (digits) return std::stoi(kind);
    if (kind != "rigid_xy" && !kind.empty()) {
        written_.Tell(FindingLevel::Warning, diaphragm.origin, "IDS_XCH_DIAPHRAGM_KIND", diaphragm.kind, "type");
    }
    return kFloor;
}

/// A node is the master of one link only, so that links of the same freedoms are joined.
void SupportWriter::TakeLink(std::uint32_t master, int freedoms, const NameList& slaves, const ExchangeOrigin& origin) {
    const auto [at, isNew] = links_.try_emplace(master);
    T_RIGD_D& record = at->second;
    if (HasRecord<CClassRigd>(master) || (!isNew && record.freedoms != freedoms) || freedoms == 0) {
        if (isNew) links_.erase(at);
        return LeaveOut(origin, freedoms == 0 ? "IDS_XCH_LINK_TIES_NOTHING" : "IDS_XCH_LINK_MASTER_TWICE");
    }
    if (isNew) masters_.push_back(master);
    record.master = master;
    record.freedoms = freedoms;
    for (const std::string& slave : slaves) {
        const std::uint32_t key = written_.nodes.at(slave);
        if (key != master) record.slaves.push_back(key);
    }
    written_.CountKept(origin);
}

bool SupportWriter::PutLinks() {
    for (const ExchangeDiaphragm& diaphragm : model_.diaphragms) {
        TakeLink(written_.nodes.at(diaphragm.master), FreedomsOf(diaphragm), diaphragm.nodes, diaphragm.origin);
    }
    for (const ExchangeRigidLink& link : model_.rigidLinks) {
        TakeLink(written_.nodes.at(link.nodes.front()), FreedomsOf(link), {link.nodes.begin() + 1, link.nodes.end()},
                 link.origin);
    }
    RecordBatch<CClassRigd> batch(written_.database);
    for (const std::uint32_t master : masters_) batch.Add(links_.at(master), master);
    return batch.Write();
}

bool SupportWriter::PutMasses() {
    RecordBatch<CClassPmas> batch(written_.database);
    std::unordered_set<std::uint32_t> done;
    for (const ExchangeMass& mass : model_.masses) {
        const std::uint32_t node = written_.nodes.at(mass.node);
        if (HasRecord<CClassPmas>(node) || !done.insert(node).second) {
            LeaveOut(mass.origin, "IDS_XCH_MASS_TWICE", mass.node);
            continue;
        }
        const auto value = [&](std::size_t i) { return mass.values[i].value_or(0.0); };
        batch.Add({value(0), value(1), value(2), value(3), value(4), value(5)}, node);
        written_.CountKept(mass.origin);
    }
    return batch.Write();
}

}  // namespace

bool WriteSupports(WrittenModel& written) { return SupportWriter(written).Run(); }

}  // namespace zt
