#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "zt_db/exchange/exchange_model.h"
#include "zt_db/records/sect.h"

namespace zt {

/// Completes a section in SI units that has a shape with sizes, or the name of a profile: its values, and sizes where
/// they are missing. False when it knows nothing of the section. The place where a library of profiles is joined.
using ProfileLookup = std::function<bool(T_SECT_D&)>;

/// The record of a section, in SI units, without the values that only a library knows. Sizes of a shape that records do
/// not have are kept with the name of the shape.
T_SECT_D RecordOfSection(const ExchangeSection& section);
/// The section of a record; without material.
ExchangeSection SectionOfRecord(const T_SECT_D& record);

}  // namespace zt
