#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "zt_db/records/bmla.h"
#include "zt_db/records/bwld.h"
#include "zt_db/records/sbla.h"

namespace zt {

/// The names under which cells show load types, and back. A name gives the lowest key that has it, unless the key that
/// stands there now has it, too; 0 where none has. Key 0, and one without record, have an empty name.
template <class Class>
struct LoadTypeNames {
    using Record = typename Class::Record;

    static bool Get(std::uint32_t key, Record& type);
    static std::string NameOf(std::uint32_t key);
    static std::uint32_t KeyOf(std::string_view name, std::uint32_t current);
    /// Lines of a choice list.
    static std::string Lines();
};

using BeamLoadTypeNames = LoadTypeNames<CClassBltp>;
using BeamWallTypeNames = LoadTypeNames<CClassBwtp>;
/// Slab load types have no name of their own: they are numbered from 1 in the order of their keys.
using SlabLoadTypeNames = LoadTypeNames<CClassSltp>;

extern template struct LoadTypeNames<CClassBltp>;
extern template struct LoadTypeNames<CClassBwtp>;
extern template struct LoadTypeNames<CClassSltp>;

}  // namespace zt
