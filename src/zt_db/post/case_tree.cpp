#include "zt_db/post/case_tree.h"

#include <algorithm>

namespace zt {
namespace {

using LeafOf = velda::FunctionRef<int(int, std::uint32_t)>;

/// Deeper nesting than any user makes is a ring in damaged records.
constexpr std::size_t kDeepest = 32;

bool Open(const CPostDataBase& database, const T_PLCOM_D& combination, const LeafOf& leafOf, CaseTree& node,
          std::size_t depth) {
    if (depth > kDeepest || combination.items.empty()) return false;
    node.isEnvelope = combination.type == LoadCombinationType::Envelope;
    for (const T_LCOM_ITEM& item : combination.items) {
        CaseTree part{.factor = item.factor};
        if (item.kind == LoadCaseKind::Combination) {
            T_PLCOM_D inner;
            if (!CClassPLcom(&database).Get(item.key, inner)) return false;
            if (!Open(database, inner, leafOf, part, depth + 1)) return false;
        } else {
            part.leaf = leafOf(item.kind, item.key);
            if (part.leaf < 0) return false;
        }
        node.parts.push_back(std::move(part));
    }
    return true;
}

}  // namespace

bool CaseTree::HasEnvelope() const {
    return isEnvelope ||
           std::any_of(parts.begin(), parts.end(), [](const CaseTree& part) { return part.HasEnvelope(); });
}

bool OpenCaseTree(const CPostDataBase& database, const T_PLCOM_D& combination, LeafOf leafOf, CaseTree& root) {
    return database.Results() && Open(database, combination, leafOf, root, 0);
}

}  // namespace zt
