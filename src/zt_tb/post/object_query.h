#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "zt_db/post/post_classes.h"

namespace zt {

/// What objects of result tables can be picked by.
enum class QueryKind { MemberType, Material, Section, Thickness, Story };

/// A kind of query and the text key of its name.
struct QueryKindName {
    QueryKind kind;
    std::string_view nameKey;
};
/// All of them, in the order in which they are offered.
inline constexpr QueryKindName kQueryKinds[] = {
    {QueryKind::MemberType, "IDS_DB_QUERY_MEMB_TYPE"}, {QueryKind::Material, "IDS_DB_QUERY_MATERIAL"},
    {QueryKind::Section, "IDS_DB_QUERY_SECTION"},      {QueryKind::Thickness, "IDS_DB_QUERY_THICKNESS"},
    {QueryKind::Story, "IDS_DB_DATA_NAME_STOR"},
};

/// Picks objects of a result table by what they are made of and where they stand. Nodes have the types, materials,
/// sections and thicknesses of the members that they belong to, elements those of their member.
class ObjectQuery {
public:
    /// A value that objects share: the type code, or the key of the record.
    struct Choice {
        std::uint32_t key = 0;
        std::string name{};
    };

    /// `objects` are ascending numbers of a key domain.
    ObjectQuery(const CPostDataBase& database, std::uint32_t domain, std::span<const std::uint32_t> objects);

    /// The values that occur: types, materials, sections and thicknesses by key, stories from the topmost down.
    std::vector<Choice> Choices(QueryKind kind) const;
    /// The objects of a value, ascending.
    std::vector<std::uint32_t> Objects(QueryKind kind, std::uint32_t key) const;

private:
    /// What an object has of each kind; 0 for none.
    struct Traits {
        std::uint32_t object = 0;
        std::array<std::uint32_t, std::size(kQueryKinds)> keys{};

        std::uint32_t& Of(QueryKind kind) { return keys[static_cast<std::size_t>(kind)]; }
        std::uint32_t Of(QueryKind kind) const { return keys[static_cast<std::size_t>(kind)]; }
    };
    static Traits TraitsOf(std::uint32_t object, const T_PMEMB_D& member);
    void ReadNodes(std::span<const std::uint32_t> nodes);
    void ReadMember(std::uint32_t object, std::uint32_t member);
    std::string NameOf(QueryKind kind, std::uint32_t key) const;

    const CPostDataBase& database_;
    std::vector<Traits> traits_;
};

}  // namespace zt
