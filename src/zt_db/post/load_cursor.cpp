#include "zt_db/post/load_cursor.h"

#include <algorithm>

namespace zt {
namespace {

/// Names of the arrays, in the order of ResultQuantity.
constexpr std::string_view kNames[] = {ResultName::Displacement, ResultName::Reaction,  ResultName::ReactionSum,
                                       ResultName::ElementForce, ResultName::LinkForce, ResultName::SlabForce,
                                       ResultName::DesignForce};

Bounds Times(const Bounds& bounds, double factor) {
    const Bounds product{bounds.max * factor, bounds.min * factor};
    return factor < 0.0 ? Bounds{product.min, product.max} : product;
}

}  // namespace

bool LoadCursor::Open(const CPostDataBase& database, const T_PLCOM_D& combination) {
    *this = {};
    const auto leafOf = [&](int kind, std::uint32_t key) { return LeafOf(database, kind, key); };
    const bool good = OpenCaseTree(database, combination, leafOf, root_);
    if (!good) *this = {};
    hasEnvelope_ = root_.HasEnvelope() || std::any_of(leaves_.begin(), leaves_.end(),
                                                      [](const Leaf& leaf) { return HasEnvelopes(leaf.kind); });
    isPlain_ = !hasEnvelope_ && root_.parts.size() == 1 && root_.parts[0].leaf == 0 && root_.parts[0].factor == 1.0;
    return good;
}

int LoadCursor::LeafOf(const CPostDataBase& database, int kind, std::uint32_t key) {
    if (!HasResultsOf(*database.Results(), kind, key)) return -1;
    const auto found = std::find_if(leaves_.begin(), leaves_.end(),
                                    [&](const Leaf& leaf) { return leaf.kind == kind && leaf.key == key; });
    if (found != leaves_.end()) return static_cast<int>(found - leaves_.begin());
    Leaf leaf{.kind = kind, .key = key};
    static_assert(std::size(kNames) == kQuantities);
    for (std::size_t i = 0; i < kQuantities; ++i) {
        leaf.arrays[i].first = database.Results()->Array(CasePath(kind, key, kNames[i]));
        if (leaf.arrays[i].first) continue;
        leaf.arrays[i].first = database.Results()->Array(CasePath(kind, key, kNames[i], ResultName::Max));
        leaf.arrays[i].second = database.Results()->Array(CasePath(kind, key, kNames[i], ResultName::Min));
    }
    leaves_.push_back(std::move(leaf));
    return static_cast<int>(leaves_.size()) - 1;
}

bool LoadCursor::Read(ResultQuantity quantity, std::size_t row, std::size_t columns, Row& bounds) const {
    const auto at = static_cast<std::size_t>(quantity);
    if (root_.parts.size() == 1 && root_.parts[0].leaf >= 0) {
        const CaseTree& only = root_.parts[0];
        return ReadLeaf(leaves_[static_cast<std::size_t>(only.leaf)], at, row, columns, only.factor, bounds);
    }
    return Add(root_, at, row, columns, bounds);
}

bool LoadCursor::Has(ResultQuantity quantity) const { return Rows(quantity) > 0; }

std::size_t LoadCursor::Rows(ResultQuantity quantity) const {
    std::size_t rows = 0;
    for (const Leaf& leaf : leaves_) {
        rows = std::max(rows, leaf.arrays[static_cast<std::size_t>(quantity)].first.Rows());
    }
    return rows;
}

bool LoadCursor::ReadLeaf(const Leaf& leaf, std::size_t quantity, std::size_t row, std::size_t columns, double factor,
                          Row& bounds) const {
    const Arrays& arrays = leaf.arrays[quantity];
    const double* first = arrays.first.Columns() >= columns ? arrays.first.Row(row) : nullptr;
    if (!first) return false;
    const double* second = first;
    if (arrays.second) {
        // Both may come from one buffer.
        std::array<double, kMostColumns> greatest{};
        std::copy_n(first, columns, greatest.begin());
        second = arrays.second.Columns() >= columns ? arrays.second.Row(row) : nullptr;
        if (!second) return false;
        for (std::size_t i = 0; i < columns; ++i) bounds[i] = Times({greatest[i], second[i]}, factor);
        return true;
    }
    const bool hasBothSigns = leaf.kind == LoadCaseKind::Spectrum || leaf.kind == LoadCaseKind::EsSpectrum;
    for (std::size_t i = 0; i < columns; ++i) {
        bounds[i] = Times({first[i], hasBothSigns ? -first[i] : first[i]}, factor);
    }
    return true;
}

/// The bounds of a node, its factor included. A part without rows of this quantity counts as 0; there must be one that
/// has some.
bool LoadCursor::Add(const CaseTree& node, std::size_t quantity, std::size_t row, std::size_t columns,
                     Row& bounds) const {
    if (node.leaf >= 0) {
        return ReadLeaf(leaves_[static_cast<std::size_t>(node.leaf)], quantity, row, columns, node.factor, bounds);
    }
    bool isAny = false;
    bool isFirst = true;
    Row whole{};
    for (const CaseTree& part : node.parts) {
        Row own{};
        isAny = Add(part, quantity, row, columns, own) || isAny;
        for (std::size_t i = 0; i < columns; ++i) {
            if (node.isEnvelope && !isFirst) {
                whole[i] = {std::max(whole[i].max, own[i].max), std::min(whole[i].min, own[i].min)};
            } else {
                whole[i] = {whole[i].max + own[i].max, whole[i].min + own[i].min};
            }
        }
        isFirst = false;
    }
    for (std::size_t i = 0; i < columns; ++i) bounds[i] = Times(whole[i], node.factor);
    return isAny;
}

}  // namespace zt
