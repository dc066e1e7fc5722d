#pragma once

#include <array>

#include "zt_db/post/case_tree.h"

namespace zt {

/// Quantities that load cases have rows of.
enum class ResultQuantity { Displacement, Reaction, ReactionSum, ElementForce, LinkForce, SlabForce, DesignForce };

/// The greatest and the least of a value; equal where it has no envelope.
struct Bounds {
    double max = 0.0;
    double min = 0.0;

    /// The one of greater magnitude.
    double Governing() const { return std::abs(max) >= std::abs(min) ? max : min; }
};

/// Reads rows of a load case or a combination: cases are superposed as they are asked for. Of a spectrum case, which
/// has magnitudes only, both signs count; of a time history the greatest and the least value.
class LoadCursor {
public:
    static constexpr std::size_t kMostColumns = 12;
    using Row = std::array<Bounds, kMostColumns>;

    /// Opens a combination; false when one of its cases has no results, or it holds none.
    bool Open(const CPostDataBase& database, const T_PLCOM_D& combination);
    /// The bounds of the first `columns` values of a row; false when there is none.
    bool Read(ResultQuantity quantity, std::size_t row, std::size_t columns, Row& bounds) const;
    /// The row of the one static case that is open with factor 1; null where more than that is to be read. It lasts
    /// until the next call.
    const double* PlainRow(ResultQuantity quantity, std::size_t row, std::size_t columns) const {
        if (!isPlain_) return nullptr;
        const ResultArray& array = leaves_.front().arrays[static_cast<std::size_t>(quantity)].first;
        return array.Columns() >= columns ? array.Row(row) : nullptr;
    }
    /// Whether the cases have rows of a quantity.
    bool Has(ResultQuantity quantity) const;
    std::size_t Rows(ResultQuantity quantity) const;
    /// Whether values have a greatest and a least.
    bool HasEnvelope() const { return hasEnvelope_; }

private:
    static constexpr std::size_t kQuantities = static_cast<std::size_t>(ResultQuantity::DesignForce) + 1;

    /// The arrays of a case: its values or, of a time history, the greatest and the least.
    struct Arrays {
        ResultArray first;
        ResultArray second;
    };
    struct Leaf {
        int kind = 0;
        std::uint32_t key = 0;
        std::array<Arrays, kQuantities> arrays{};
    };
    int LeafOf(const CPostDataBase& database, int kind, std::uint32_t key);
    bool Add(const CaseTree& node, std::size_t quantity, std::size_t row, std::size_t columns, Row& bounds) const;
    bool ReadLeaf(const Leaf& leaf, std::size_t quantity, std::size_t row, std::size_t columns, double factor,
                  Row& bounds) const;

    CaseTree root_;
    std::vector<Leaf> leaves_;
    bool hasEnvelope_ = false;
    bool isPlain_ = false;
};

}  // namespace zt
