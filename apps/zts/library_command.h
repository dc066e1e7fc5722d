#pragma once

#include <string>
#include <vector>

/// Exit status of a search that found nothing.
inline constexpr int kNothingFound = 1;

/// Prints the library: without words how many rows each table has, otherwise the rows of a group ("materials",
/// "sections", "bars", "bolts", "plates") in which a text stands, whatever its case and blanks. Returns -1 for wrong
/// words.
int PrintLibrary(const std::vector<std::string>& words);
