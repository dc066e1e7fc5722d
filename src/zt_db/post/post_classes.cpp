#include "zt_db/post/post_classes.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zt {
namespace {

constexpr int kWallTypes[] = {202, 216, 217, 218, 219};

bool IsOneOf(int kind, std::span<const int> types) {
    return std::find(types.begin(), types.end(), kind) != types.end();
}

}  // namespace

// ---- nodes and members ----

int CClassPNode::Get(std::uint32_t no, T_PNODE_D& node) const {
    const CClassPont* nodes = OfModel<CClassPont>();
    return nodes ? nodes->Get3DPos(nodes->GetPontKeyByNo(no), node) : 0;
}

int CClassPNode::Exist(std::uint32_t no) const {
    const CClassPont* nodes = OfModel<CClassPont>();
    return nodes && nodes->GetPontKeyByNo(no) != 0 ? 1 : 0;
}

std::vector<std::uint32_t> CClassPNode::Keys() const {
    return database_ ? database_->NodeNumbers() : std::vector<std::uint32_t>{};
}

int CClassPMemb::Get(std::uint32_t no, T_PMEMB_D& member) const {
    const CClassMemb* members = OfModel<CClassMemb>();
    T_MEMB_D record;
    if (!members || !members->Get(members->GetMembKeyByNo(no), record)) return 0;
    member = {.kind = record.type, .story = record.story, .prop = record.prop, .matl = record.matl};
    T_STOR_D story;
    if (OfModel<CClassStor>()->Get(record.story, story)) member.mdul = story.mdul;
    for (const std::uint32_t node : record.nodes) member.nodes.push_back(OfModel<CClassPont>()->GetPontNoByKey(node));
    return 1;
}

int CClassPMemb::Exist(std::uint32_t no) const {
    const CClassMemb* members = OfModel<CClassMemb>();
    return members && members->GetMembKeyByNo(no) != 0 ? 1 : 0;
}

std::vector<std::uint32_t> CClassPMemb::Keys() const {
    return database_ ? database_->MemberNumbers() : std::vector<std::uint32_t>{};
}

int PostMembersOfTypes::Get(std::uint32_t no, T_PMEMB_D& member) const {
    T_PMEMB_D record;
    if (!CClassPMemb(database_).Get(no, record) || !IsOneOf(record.kind, types_)) return 0;
    member = std::move(record);
    return 1;
}

int PostMembersOfTypes::Exist(std::uint32_t no) const {
    T_PMEMB_D record;
    return Get(no, record);
}

std::vector<std::uint32_t> PostMembersOfTypes::Keys() const {
    std::vector<std::uint32_t> keys = CClassPMemb(database_).Keys();
    std::erase_if(keys, [this](std::uint32_t no) { return !Exist(no); });
    return keys;
}

CClassPWall::CClassPWall() : PostMembersOfTypes(kWallTypes) {}
CClassPSlab::CClassPSlab() : PostMembersOfTypes(kSlabTypes) {}

int CClassPSlab::GetNetLength(std::uint32_t no, double& length) const {
    T_PMEMB_D slab;
    if (!Get(no, slab) || slab.nodes.size() < 3) return 0;
    std::vector<T_PNODE_D> corners(slab.nodes.size());
    for (std::size_t i = 0; i < corners.size(); ++i) CClassPNode(database_).Get(slab.nodes[i], corners[i]);
    length = std::numeric_limits<double>::max();
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const T_PNODE_D& from = corners[i];
        const T_PNODE_D& to = corners[(i + 1) % corners.size()];
        length = std::min(length, std::hypot(to.x - from.x, to.y - from.y, to.z - from.z));
    }
    return 1;
}

// ---- elements and links ----

int CClassPElem::Get(std::uint32_t key, T_PELEM_D& element) const {
    if (!Exist(key)) return 0;
    const CPostDataBase::Element& found = database_->Elements()[key - 1];
    T_PMEMB_D member;
    CClassPMemb(database_).Get(found.member, member);
    element = {member.kind, found.member, found.nodes};
    return 1;
}

int CClassPElem::Exist(std::uint32_t key) const {
    return database_ && key > 0 && key <= database_->Elements().size() ? 1 : 0;
}

std::vector<std::uint32_t> CClassPElem::Keys() const {
    std::vector<std::uint32_t> keys(database_ ? database_->Elements().size() : 0);
    for (std::uint32_t i = 0; i < keys.size(); ++i) keys[i] = i + 1;
    return keys;
}

int CClassPElnk::Exist(std::uint32_t key) const {
    return database_ && database_->PlaceOfLink(key) != CPostDataBase::kNoPlace ? 1 : 0;
}

std::vector<std::uint32_t> CClassPElnk::Keys() const {
    return database_ ? database_->Links() : std::vector<std::uint32_t>{};
}

std::array<std::uint32_t, 2> CClassPElnk::NodesOf(std::uint32_t key) const {
    const std::uint32_t place = database_ ? database_->PlaceOfLink(key) : CPostDataBase::kNoPlace;
    return place == CPostDataBase::kNoPlace ? std::array<std::uint32_t, 2>{} : database_->NodesOfLink(place);
}

// ---- modules and stories ----

std::uint32_t CClassPMdul::GetKey(std::string_view name) const {
    const CClassMdul* modules = OfModel<CClassMdul>();
    return modules ? modules->GetKey(name) : 0;
}

int CClassPStor::GetKeyListReverse(std::vector<std::uint32_t>& keys, std::uint32_t moduleKey) const {
    keys.clear();
    const CClassStor* stories = OfModel<CClassStor>();
    if (!stories) return 0;
    if (moduleKey != 0) return stories->GetKeyListReverse(keys, moduleKey);
    for (const std::uint32_t module : CClassPMdul(database_).Keys()) {
        std::vector<std::uint32_t> ofModule;
        stories->GetKeyListReverse(ofModule, module);
        keys.insert(keys.end(), ofModule.begin(), ofModule.end());
    }
    return keys.empty() ? 0 : 1;
}

// ---- load cases ----

int CClassPStld::GetKeyList(std::vector<std::uint32_t>& keys, int others, int earthquakes) const {
    keys = Keys();
    std::erase_if(keys, [&](std::uint32_t key) {
        T_PSTLD_D record;
        return !Get(key, record) || !(record.type == LoadCaseType::Earthquake ? earthquakes : others);
    });
    return keys.empty() ? 0 : 1;
}

std::vector<std::uint32_t> CClassPStld::KeysOfType(std::string_view type) const {
    std::vector<std::uint32_t> keys = Keys();
    std::erase_if(keys, [&](std::uint32_t key) {
        T_PSTLD_D record;
        return !Get(key, record) || record.type != type;
    });
    return keys;
}

std::uint32_t CClassPThlc::GetPSplcKeyBySinglePThlcK(std::uint32_t key) const {
    const std::string name = GetDisplayName(key);
    const CClassPSplc spectra(database_);
    for (const std::uint32_t spectrum : spectra.Keys()) {
        if (!name.empty() && spectra.GetDisplayName(spectrum) == name) return spectrum;
    }
    return 0;
}

bool HasEnvelopes(int kind) {
    switch (kind) {
        case LoadCaseKind::Static:
        case LoadCaseKind::EsStatic: return false;
        default: return true;
    }
}

bool CClassPLcom::IsMaxMinComb(std::uint32_t key) const {
    T_PLCOM_D combination;
    return Get(key, combination) && IsMaxMinComb(combination);
}

bool CClassPLcom::IsMaxMinComb(const T_PLCOM_D& combination) const {
    return combination.type == LoadCombinationType::Envelope ||
           std::any_of(combination.items.begin(), combination.items.end(), [this](const T_LCOM_ITEM& item) {
               return item.kind == LoadCaseKind::Combination ? IsMaxMinComb(item.key) : HasEnvelopes(item.kind);
           });
}

// ---- pushover ----

CClassPPolc::Run CClassPPolc::RunOf(std::uint32_t key) const {
    constexpr std::size_t kWidth = 4;
    const std::vector<std::uint32_t> runs =
        Results() ? Results()->Keys(ResultName::PushoverCases) : std::vector<std::uint32_t>();
    for (std::size_t at = 0; at + kWidth <= runs.size(); at += kWidth) {
        if (runs[at] == key) return {runs[at + 1], runs[at + 2], runs[at + 3] != 0};
    }
    return {};
}

int CClassPoas::Get(T_POAS_D& record) const {
    record.stages = Results() ? Results()->Keys(ResultName::PushoverStages) : std::vector<std::uint32_t>();
    return record.stages.empty() ? 0 : 1;
}

// ---- modes ----

int CClassPEigv::Get(T_PEIGV_D& record) const {
    const int modes = GetNumEigv();
    if (modes == 0) return 0;
    T_ACTL_D control;
    if (const CClassActl* records = OfModel<CClassActl>()) records->Get(T_ACTL_D::kKey, control);
    record = {modes, control.massLimit};
    return 1;
}

int CClassPEigv::GetNumEigv() const {
    return Results() ? static_cast<int>(Results()->Array(ResultName::Frequency).Rows()) : 0;
}

}  // namespace zt
