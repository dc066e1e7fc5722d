#pragma once

#include <span>
#include <string>
#include <vector>

namespace velda {

/// Names under which sheets may stand in one spreadsheet file: at most 31 characters, none of []:*?/\ and no apostrophe
/// at an end, each one once without regard to case. What may not stand is replaced; equal names are numbered.
std::vector<std::string> SheetNames(std::span<const std::string> titles);

}  // namespace velda
