#include "zt_tb/post/object_query.h"

#include <algorithm>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "zt_tb/post/active_param.h"

namespace zt {
namespace {

using Keys = std::vector<std::uint32_t>;

/// Braces and bars are one type to choose by, whatever they are part of.
constexpr std::uint32_t kBraceAndTruss = MembType::Brace;
constexpr int kTrussBrace = 252;

std::uint32_t TypeOf(int code) { return code == kTrussBrace ? kBraceAndTruss : static_cast<std::uint32_t>(code); }

/// Types that results call otherwise than the model, or that only results have.
struct TypeName {
    std::uint32_t type;
    std::string_view nameKey;
};
constexpr TypeName kTypeNames[] = {
    {kBraceAndTruss, "IDS_TB_MEMB_TYPE_BRTR"},
    {204, "IDS_TB_MEMB_TYPE_TGIRDER"},
    {209, "IDS_TB_MEMB_TYPE_WCOLM"},
    {210, "IDS_TB_MEMB_TYPE_WBEAM"},
};

std::string NameOfType(std::uint32_t type) {
    const auto* own = std::find_if(std::begin(kTypeNames), std::end(kTypeNames),
                                   [&](const TypeName& one) { return one.type == type; });
    if (own != std::end(kTypeNames)) return velda::CMsgDll::pfuncLoadStr(own->nameKey, 0);
    const MemberType* known = FindMemberType(static_cast<int>(type));
    return known ? velda::CMsgDll::pfuncLoadStr(known->nameKey, 0) : velda::FormatLong(type);
}

template <class Class>
std::string NameOfRecord(const CPostDataBase& database, std::uint32_t key) {
    typename Class::Record record;
    return PostTwinOf<Class>(&database).Get(key, record) ? record.name : std::string{};
}

void SortUnique(Keys& keys) {
    std::sort(keys.begin(), keys.end());
    keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
}

}  // namespace

ObjectQuery::ObjectQuery(const CPostDataBase& database, std::uint32_t domain, std::span<const std::uint32_t> objects)
    : database_(database) {
    if (domain == KeyDomain::Nodes) ReadNodes(objects);
    if (domain == KeyDomain::Members) {
        for (const std::uint32_t member : objects) ReadMember(member, member);
    }
    if (domain == KeyDomain::Elements) {
        for (const std::uint32_t key : objects) {
            T_PELEM_D element;
            if (CClassPElem(&database_).Get(key, element)) ReadMember(key, element.memb);
        }
    }
}

ObjectQuery::Traits ObjectQuery::TraitsOf(std::uint32_t object, const T_PMEMB_D& member) {
    Traits traits{.object = object};
    traits.Of(QueryKind::MemberType) = TypeOf(member.kind);
    traits.Of(QueryKind::Material) = member.matl;
    traits.Of(QueryKind::Story) = member.story;
    const MemberProperty property = PropertyOfMemberType(member.kind);
    if (property == MemberProperty::Section) traits.Of(QueryKind::Section) = member.prop;
    if (property == MemberProperty::Thickness) traits.Of(QueryKind::Thickness) = member.prop;
    return traits;
}

void ObjectQuery::ReadMember(std::uint32_t object, std::uint32_t member) {
    T_PMEMB_D record;
    if (CClassPMemb(&database_).Get(member, record)) traits_.push_back(TraitsOf(object, record));
}

/// A node stands in its own story, not in those of its members.
void ObjectQuery::ReadNodes(std::span<const std::uint32_t> nodes) {
    for (const std::uint32_t no : nodes) {
        T_PNODE_D node;
        if (!CClassPNode(&database_).Get(no, node)) continue;
        traits_.push_back({.object = no});
        traits_.back().Of(QueryKind::Story) = node.story;
    }
    const CClassPMemb members(&database_);
    for (const std::uint32_t no : members.Keys()) {
        T_PMEMB_D member;
        members.Get(no, member);
        for (const std::uint32_t node : member.nodes) {
            if (!std::binary_search(nodes.begin(), nodes.end(), node)) continue;
            traits_.push_back(TraitsOf(node, member));
            traits_.back().Of(QueryKind::Story) = 0;
        }
    }
}

std::string ObjectQuery::NameOf(QueryKind kind, std::uint32_t key) const {
    switch (kind) {
        case QueryKind::MemberType: return NameOfType(key);
        case QueryKind::Material: return NameOfRecord<CClassMatl>(database_, key);
        case QueryKind::Section: return NameOfRecord<CClassSect>(database_, key);
        case QueryKind::Thickness: return NameOfRecord<CClassThik>(database_, key);
        case QueryKind::Story: break;
    }
    T_PSTOR_D story;
    if (!CClassPStor(&database_).Get(key, story)) return {};
    const std::string module = NameOfRecord<CClassMdul>(database_, story.mdul);
    return module.empty() ? story.name : module + " : " + story.name;
}

std::vector<ObjectQuery::Choice> ObjectQuery::Choices(QueryKind kind) const {
    Keys keys;
    for (const Traits& traits : traits_) {
        if (traits.Of(kind) != 0) keys.push_back(traits.Of(kind));
    }
    SortUnique(keys);
    if (kind == QueryKind::Story) {
        Keys inOrder;
        CClassPStor(&database_).GetKeyListReverse(inOrder);
        std::erase_if(inOrder, [&](std::uint32_t key) { return !std::binary_search(keys.begin(), keys.end(), key); });
        keys = std::move(inOrder);
    }
    std::vector<Choice> choices;
    for (const std::uint32_t key : keys) choices.push_back({key, NameOf(kind, key)});
    return choices;
}

Keys ObjectQuery::Objects(QueryKind kind, std::uint32_t key) const {
    Keys objects;
    for (const Traits& traits : traits_) {
        if (key != 0 && traits.Of(kind) == key) objects.push_back(traits.object);
    }
    SortUnique(objects);
    return objects;
}

}  // namespace zt
