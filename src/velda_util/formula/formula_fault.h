#pragma once

#include <string>
#include <string_view>

#include "velda_util/formula/formula.h"

namespace velda {

/// A text for use within a message: cut to a readable length, at a whole character.
std::string ShortQuote(std::string_view text);

/// Number of characters of a UTF-8 text.
std::size_t CharacterCount(std::string_view text);

/// The value of a formula with a fault. `where` is the part of `formula` that the fault lies in: a view into the same
/// text.
FormulaValue FormulaFailure(FormulaFault fault, std::string_view formula, std::string_view where);

}  // namespace velda
