#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace velda {

/// The order in which the records of a result grid stand. Records and places count from 1. The order in which they are
/// numbered, and that of a table of objects by load cases, cost no memory that grows with their number; any other takes
/// a number for each record.
class RecordOrder {
public:
    RecordOrder() = default;
    /// As the records are numbered.
    static RecordOrder Natural(std::uint32_t count);
    /// Records are numbered object by object, with `inner.size()` of them each, and stand one inner place after the
    /// other, with all objects beneath: `inner` are the inner places from 0 in their order.
    static RecordOrder InnerFirst(std::vector<std::uint32_t> inner, std::uint32_t objectCount);
    /// Any order: the record of each place.
    static RecordOrder Of(std::vector<std::uint32_t> records);

    std::uint32_t Count() const { return count_; }
    /// The record at a place from 1 to Count().
    std::uint32_t RecordAt(std::uint32_t place) const;
    /// Where a record from 1 to Count() stands. The first call after a sort makes an index.
    std::uint32_t PlaceOf(std::uint32_t record) const;

private:
    enum class Kind : std::uint8_t { Natural, InnerFirst, Listed };
    Kind kind_ = Kind::Natural;
    std::uint32_t count_ = 0;
    std::uint32_t objectCount_ = 0;
    std::vector<std::uint32_t> inner_;
    std::vector<std::uint32_t> records_;
    mutable std::vector<std::uint32_t> places_;  ///< the places of `records_`, made when first asked for
};

}  // namespace velda
